#pragma once

// Printed fonts: how they are measured and how they are drawn, both in twips, so that the preview and
// every printer place a text where the layout expected it.

#include <QFont>
#include <QString>
#include <QStringList>
#include <QStringView>

namespace hotel {

inline constexpr double kTwipsPerCm = 567;
inline constexpr double kTwipsPerPoint = 20;

// A font as print formats name it (see FontFor), the size in points.
struct PrintFont {
    QString name;
    double size = 0;
    bool bold = false;

    bool operator==(const PrintFont&) const = default;
};

// The font for a painter whose unit is one twip.
QFont FontInTwips(const PrintFont& font);

// Width of a text in twips: the widths of its characters added up, so that a text that is cut or
// spread character by character is as wide as one printed whole.
double TextWidthTwips(QStringView text, const PrintFont& font);

// `text` cut between characters into lines no wider than `width` twips; a character that is wider by
// itself stands alone. One empty line for an empty text.
QStringList CutToWidth(const QString& text, const PrintFont& font, double width);

// The characters of a text, one each.
QStringList Characters(const QString& text);

// Height of one line in twips.
double LineHeightTwips(const PrintFont& font);

// Distance of the baseline from the top of the line in twips; an ideograph then stands in the middle
// of the line.
double BaselineTwips(const PrintFont& font);

} // namespace hotel
