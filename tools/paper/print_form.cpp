#include "tools/paper/print_form.h"

#include <algorithm>

#include "record/numbers.h"
#include "record/record_text.h"
#include "tools/paper/PrtSubs.h"

namespace hotel {

namespace {

QString FormatField(QStringView text, QStringView tag) {
    return text.size() > kFormatTextLimit ? QString() : GetTag(text, tag);
}

double NumberField(QStringView text, QStringView tag, double absent = 0) {
    const QString value = FormatField(text, tag);
    return value.isEmpty() ? absent : LeadingNumber(value);
}

FormCell ReadFormCell(QStringView text, const FormCell& before) {
    FormCell cell;
    cell.font = before.font;
    if (const QString name = FormatField(text, u"字体"); !name.isEmpty())
        cell.font.name = name;
    cell.font.size = NumberField(text, u"字号", before.font.size);
    cell.font.bold = NumberField(text, u"粗体", before.font.bold) != 0;
    cell.left = NumberField(text, u"左边界", before.left);
    cell.top = NumberField(text, u"上边界", before.top);
    cell.width = NumberField(text, u"单元宽");
    cell.height = NumberField(text, u"单元高");
    cell.placing = FormatField(text, u"方式");
    cell.lineWidth = NumberField(text, u"线宽");
    cell.fill = int(qBound(0.0, NumberField(text, u"填充色"), double(0xFFFFFF)));
    cell.text = FormatField(text, u"文本");
    return cell;
}

// Where a line or a pile of lines begins so that it stands in the middle; what is too high begins at
// the top.
double MiddleOf(const FormCell& cell, double textHeight) {
    return cell.top + std::max(0.0, (cell.height - textHeight) / 2);
}

double MiddleOf(const FormCell& cell) {
    return MiddleOf(cell, TextHeightCm(cell.font));
}

struct Placing {
    QStringView word;
    void (*print)(const FormCell& cell);
};

void PrintLeft(const FormCell& cell) {
    const int lines = TextLineCount(cell.text, cell.font, cell.width);
    const double height = TextHeightCm(cell.font) * (1 + (lines - 1) * kLinePitch);
    PrintTextLeft(cell.left, MiddleOf(cell, height), cell.text, cell.font, cell.width);
}

template<VerticalPlacing Where>
void PrintVertical(const FormCell& cell) {
    PrintTextVertical(cell.left, cell.top, cell.text, cell.font, Where, cell.width, cell.height);
}

constexpr Placing kPlacings[] = {
    {u"右对齐",
     [](const FormCell& cell) {
         PrintTextRight(cell.left, MiddleOf(cell), cell.text, cell.font, cell.width);
     }},
    {u"居中",
     [](const FormCell& cell) {
         PrintTextCentre(cell.left, MiddleOf(cell), cell.text, cell.font, cell.width);
     }},
    {u"匀齐",
     [](const FormCell& cell) {
         PrintTextSpread(cell.left, MiddleOf(cell), cell.text, cell.font, cell.width);
     }},
    {u"上对齐", PrintVertical<VerticalPlacing::Top>},
    {u"下对齐", PrintVertical<VerticalPlacing::Bottom>},
    {u"垂直居中", PrintVertical<VerticalPlacing::Centre>},
    {u"垂直匀齐", PrintVertical<VerticalPlacing::Spread>},
};

void PrintPlaced(const FormCell& cell) {
    for (const Placing& placing : kPlacings)
        if (placing.word == cell.placing)
            return placing.print(cell);
    PrintLeft(cell);
}

double PrintCells(QStringView blockText, double x, double y, const PrintFont& font,
                  const QMap<int, QString>& data) {
    const QList<FormCell> cells = ReadFormCells(blockText, font);
    for (int number = 0; number < cells.size(); ++number) {
        FormCell cell = cells.at(number);
        if (const QString value = data.value(number); !value.isEmpty())
            cell.text = value;
        PrintCell(cell, x, y);
    }
    return NumberField(blockText, u"高度");
}

} // namespace

PaperFormat ReadPaperFormat(QStringView text, const PaperFormat& standing) {
    PaperFormat paper = standing;
    const auto take = [&](double& length, QStringView tag) {
        if (const double value = NumberField(text, tag); value > 0)
            length = value;
    };
    take(paper.width, u"纸宽");
    take(paper.height, u"纸高");
    take(paper.left, u"左边界");
    take(paper.right, u"右边界");
    take(paper.top, u"上边界");
    take(paper.bottom, u"下边界");
    return paper;
}

QList<FormCell> ReadFormCells(QStringView blockText, const PrintFont& font) {
    QList<FormCell> cells;
    FormCell before;
    before.font = font;
    for (int number = 0; number < kFormCellLimit; ++number) {
        const QString text = FormatField(blockText, FormatNumber(qint64(number), u"00"));
        if (text.isEmpty())
            break;
        before = ReadFormCell(text, before);
        cells.append(before);
    }
    return cells;
}

void PrintCell(const FormCell& cell, double x, double y) {
    FormCell placed = cell;
    placed.left += x;
    placed.top += y;
    placed.text = ExpandPrintMacros(cell.text);
    const double right = placed.left + placed.width;
    const double bottom = placed.top + placed.height;
    if (placed.placing == u"直线") {
        PrintLine(placed.left, placed.top, right, bottom, placed.lineWidth, placed.fill);
        return;
    }
    if (placed.fill != 0)
        PrintFilledBox(placed.left, placed.top, right, bottom, placed.fill);
    if (placed.lineWidth > 0)
        PrintBox(placed.left, placed.top, right, bottom, placed.lineWidth);
    if (!placed.text.isEmpty())
        PrintPlaced(placed);
}

double FormBlockHeight(QStringView formatText, QStringView block) {
    return NumberField(FormatField(formatText, block), u"高度");
}

double PrintFormBlock(QStringView formatText, QStringView block, double x, double y) {
    const QString blockText = FormatField(formatText, block);
    const PrintFont font{FormatField(blockText, u"默认字体"), NumberField(blockText, u"默认字号"),
                         false};
    return PrintCells(blockText, x, y, font, {});
}

double PrintFormBlockWithData(QStringView formatText, QStringView block, double x, double y,
                              const QMap<int, QString>& data) {
    return PrintCells(FormatField(formatText, block), x, y, {}, data);
}

} // namespace hotel
