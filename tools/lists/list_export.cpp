#include "tools/lists/list_export.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <algorithm>
#include <numeric>

#include "platform/clock.h"
#include "platform/work_folder.h"
#include "record/literals.h"
#include "screen/messages.h"

namespace hotel {

namespace {

struct Layout {
    QStringView name;
    QStringView quote;
    QStringView between;
    bool filled = false;
};

constexpr Layout kLayouts[] = {
    {u"逗号，", u"", u"，"},         {u"逗号,", u"", u","},    {u"双引号空格", u"\"", u" "},
    {u"双引号逗号", u"\"", u","},    {u"空格紧缩", u"", u" "}, {u"空格对齐", u"", u"", true},
    {u"表停字符", u"", u"\t", true},
};

constexpr QStringView kAligned = u"空格对齐";
constexpr int kSavedNote = 2000; // milliseconds

const Layout& LayoutOf(QStringView name) {
    const auto found = std::find_if(std::begin(kLayouts), std::end(kLayouts),
                                    [name](const Layout& layout) { return layout.name == name; });
    return found == std::end(kLayouts) ? kLayouts[0] : *found;
}

QString Today() {
    return Clock::Today().toString(u"yyMMdd");
}

// The width of each column that takes its widest text, and two more between the columns.
QList<int> WidestTexts(const TextTable& list) {
    constexpr int kGap = 2;
    QList<int> widths(list.cols(), 0);
    for (int row = 0; row < list.rows(); ++row) {
        for (int column = 0; column < list.cols(); ++column)
            widths[column] = std::max(widths[column], DisplayWidth(list.text(row, column)) + kGap);
    }
    return widths;
}

} // namespace

QStringList ExportLayouts() {
    QStringList names;
    for (const Layout& layout : kLayouts)
        names.append(layout.name.toString());
    return names;
}

QString ExportText(const TextTable& list, QStringView layoutName, const QList<int>& widths) {
    const Layout& layout = LayoutOf(layoutName);
    QString text;
    for (int row = 0; row < list.rows(); ++row) {
        for (int column = 0; column < list.cols(); ++column) {
            const QString cell = list.text(row, column);
            text += layout.quote + cell + layout.quote;
            if (layout.filled)
                text += QString(std::max(0, widths.value(column) - DisplayWidth(cell)), u' ');
            if (column + 1 < list.cols())
                text += layout.between;
        }
        text += kCrLf;
    }
    return text;
}

int DisplayWidth(QStringView text) {
    return std::accumulate(text.begin(), text.end(), 0, [](int width, QChar c) {
        return width + (c >= QChar(1) && c <= QChar(127) ? 1 : 2);
    });
}

int DisplayColumns(int pixels) {
    // Columns are measured in twips, of which a pixel of the desk's screens has 15.
    constexpr int kTwipsPerPixel = 15;
    return pixels * kTwipsPerPixel / 100 + 2;
}

bool WriteTextFile(const QString& name, const QString& text) {
    const QString path = QString(name).replace(u'\\', u'/');
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0 && file.commit())
        return true;
    MsgBox(u"文件无法生成!"_s, u"错误"_s);
    return false;
}

bool SaveListFile(const TextTable& list, QStringView layout, const QList<int>& widths) {
    if (list.dataRows() == 0)
        return false;
    const QString name =
        AskSaveFile(u"文件保存"_s, Today() + u"清单.txt"_s, u"(文本文档)|*.txt|(所有文件)|*.*"_s);
    if (name.isEmpty() || !WriteTextFile(name, ExportText(list, layout, widths)))
        return false;
    TimedMessage(u"表格内容已经成功保存在:"_s + name, u"文件保存"_s, kSavedNote);
    return true;
}

bool SaveGridToText(const TextTable& list, const QString& listName, const QString& proposedName) {
    if (list.dataRows() == 0)
        return false;
    const QString inListFolder = QDir(ListFolder()).filePath(Today() + u".txt"_s);
    const QString name = InputBox(listName + u"的存放文件名："_s, u"保存文件提示"_s,
                                  proposedName.isEmpty() ? inListFolder : proposedName)
                             .value_or(QString());
    return !name.isEmpty() && WriteTextFile(name, ExportText(list, kAligned, WidestTexts(list)));
}

} // namespace hotel
