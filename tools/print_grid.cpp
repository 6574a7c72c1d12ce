#include "tools/print_grid.h"

#include <algorithm>
#include <numeric>

#include "record/literals.h"
#include "tools/PrtSubs.h"

namespace hotel {

namespace {

// Air between a text and the frame of its cell.
constexpr double kSidePaddingCm = 0.08;
constexpr double kRowPaddingCm = 0.1;

constexpr double kFontStep = 0.5;

PrintFont Or(const PrintFont& font, double size) {
    return {font.name.isEmpty() ? u"宋体"_s : font.name, font.size > 0 ? font.size : size,
            font.bold};
}

QString PlacingOf(const QString& alignment) {
    if (alignment.endsWith(u"->"))
        return u"右对齐"_s;
    if (alignment.endsWith(u"<>"))
        return u"匀齐"_s;
    if (alignment.endsWith(u" -"))
        return u"居中"_s;
    return u"左对齐"_s;
}

// Width of the widest text of a column, in the size it was measured with; letters grow and shrink in
// proportion, so that other sizes need no second look at the rows.
struct ColumnMeasure {
    double head = 0;
    double body = 0;
};

QList<ColumnMeasure> MeasureColumns(const TextTable& table, const GridPrintLayout& layout) {
    QList<ColumnMeasure> columns(table.cols());
    for (int column = 0; column < table.cols(); ++column)
        columns[column].head = TextWidthCm(table.text(0, column), layout.headFont);
    for (int row = 1; row < table.rows(); ++row)
        for (int column = 0; column < table.cols(); ++column)
            columns[column].body = std::max(
                columns[column].body, TextWidthCm(table.text(row, column), layout.bodyFont));
    return columns;
}

QList<double> ColumnWidths(const QList<ColumnMeasure>& columns, double headScale,
                           double bodyScale) {
    QList<double> widths;
    for (const ColumnMeasure& column : columns)
        widths.append(std::max(column.head * headScale, column.body * bodyScale) +
                      2 * kSidePaddingCm);
    return widths;
}

double Sum(const QList<double>& widths) {
    return std::accumulate(widths.begin(), widths.end(), 0.0);
}

double Lowered(double size) {
    return std::max(size - kFontStep, std::min(size, kSmallestGridFont));
}

void LowerFonts(GridPrintLayout& layout, const QList<ColumnMeasure>& columns, double available) {
    const double headSize = layout.headFont.size;
    const double bodySize = layout.bodyFont.size;
    while (Sum(layout.widths) > available && (layout.headFont.size > kSmallestGridFont ||
                                              layout.bodyFont.size > kSmallestGridFont)) {
        layout.headFont.size = Lowered(layout.headFont.size);
        layout.bodyFont.size = Lowered(layout.bodyFont.size);
        layout.widths = ColumnWidths(columns, layout.headFont.size / headSize,
                                     layout.bodyFont.size / bodySize);
    }
}

// Takes width from the widest columns only, so that short ones keep their texts whole.
void Squeeze(QList<double>& widths, double available) {
    QList<double> ascending = widths;
    std::sort(ascending.begin(), ascending.end());
    double left = available;
    for (qsizetype n = 0; n < ascending.size(); ++n) {
        const double share = left / double(ascending.size() - n);
        if (ascending.at(n) > share) {
            for (double& width : widths)
                width = std::min(width, share);
            return;
        }
        left -= ascending.at(n);
    }
}

// One row on paper.
struct RowStyle {
    const PrintFont& font;
    double lineWidth;
    bool centred; // the head row: whatever the columns say
};

QStringList CellLines(const QString& text, const PrintFont& font, double width, bool squeezed) {
    return squeezed ? CutToWidth(text, font, width * kTwipsPerCm) : QStringList{text};
}

double RowHeight(const TextTable& table, const GridPrintLayout& layout, int row,
                 const PrintFont& font) {
    qsizetype lines = 1;
    if (layout.squeezed)
        for (int column = 0; column < table.cols(); ++column)
            lines = std::max(lines, CellLines(table.text(row, column), font,
                                              layout.widths.at(column) - 2 * kSidePaddingCm, true)
                                        .size());
    return TextHeightCm(font) * (1 + double(lines - 1) * kLinePitch) + kRowPaddingCm;
}

void PrintRow(const TextTable& table, const GridPrintLayout& layout, int row, double y,
              double height, const RowStyle& style) {
    FormCell cell;
    cell.font = style.font;
    cell.left = layout.left;
    const double lineHeight = TextHeightCm(style.font);
    for (int column = 0; column < table.cols(); ++column) {
        const double width = layout.widths.at(column);
        PrintBox(cell.left, y, cell.left + width, y + height, style.lineWidth);
        const QStringList lines =
            CellLines(table.text(row, column), style.font, width - 2 * kSidePaddingCm,
                      layout.squeezed);
        const double pile = lineHeight * (1 + double(lines.size() - 1) * kLinePitch);
        double lineTop = y + (height - pile) / 2;
        for (const QString& line : lines) {
            PrintPlacedLine(cell.left + kSidePaddingCm, lineTop, line, style.font,
                            width - 2 * kSidePaddingCm,
                            style.centred ? u"居中"_s : layout.placings.at(column));
            lineTop += lineHeight * kLinePitch;
        }
        cell.left += width;
    }
}

} // namespace
