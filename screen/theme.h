#pragma once

// The look of the program: calm, high in contrast, made for eight hours at a desk.

#include <QFont>
#include <QStringView>

class QApplication;

namespace hotel {

// Sets fonts, palette, style sheet and the Chinese words of the toolkit's own dialogs.
void ApplyTheme(QApplication& application);

// A font by the name that print formats and screens use ("黑体", "宋体", "楷体", "仿宋"), in
// points. The Debian package fonts-noto-cjk stands for the Chinese ones; a name that is not among
// them is taken as the name of an installed family.
QFont FontFor(QStringView name, double points, bool bold = false);

} // namespace hotel
