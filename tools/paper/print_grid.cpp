#include "tools/paper/print_grid.h"

#include <algorithm>
#include <numeric>

#include "record/literals.h"
#include "tools/paper/PrtSubs.h"

namespace hotel {

namespace {

// Air between a text and the frame of its cell.
constexpr double kSidePaddingCm = 0.08;
constexpr double kRowPaddingCm = 0.1;

constexpr double kFontStep = 0.5;

PrintFont FontOr(const PrintFont& font, double size) {
    return {font.name.isEmpty() ? u"宋体"_s : font.name, font.size > 0 ? font.size : size,
            font.bold};
}

LinePainter PainterOf(const QString& alignment) {
    if (alignment.endsWith(u"->"))
        return PrintTextRight;
    if (alignment.endsWith(u"<>"))
        return PrintTextSpread;
    if (alignment.endsWith(u" -"))
        return PrintTextCentre;
    return PrintTextLeft;
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
            columns[column].body = std::max(columns[column].body,
                                            TextWidthCm(table.text(row, column), layout.bodyFont));
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
    while (Sum(layout.widths) > available &&
           (layout.headFont.size > kSmallestGridFont || layout.bodyFont.size > kSmallestGridFont)) {
        layout.headFont.size = Lowered(layout.headFont.size);
        layout.bodyFont.size = Lowered(layout.bodyFont.size);
        layout.widths =
            ColumnWidths(columns, layout.headFont.size / headSize, layout.bodyFont.size / bodySize);
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

// The lines of a cell; one, unless its column was squeezed.
QStringList CellLines(const GridPrintLayout& layout, int column, const QString& text,
                      const PrintFont& font) {
    if (!layout.squeezed)
        return {text};
    return CutToWidth(text, font, (layout.widths.at(column) - 2 * kSidePaddingCm) * kTwipsPerCm);
}

double PileHeight(qsizetype lines, const PrintFont& font) {
    return TextHeightCm(font) * (1 + double(lines - 1) * kLinePitch);
}

// A row of cells ready to be printed.
struct PrintRow {
    QList<QStringList> cells; // lines of each
    double height = 0;
};

// `space` is the height that the row can have; what is longer is cut off at its end.
PrintRow LayRow(const TextTable& table, const GridPrintLayout& layout, int row,
                const PrintFont& font, double space) {
    const double spare = space - kRowPaddingCm - TextHeightCm(font);
    const qsizetype limit = 1 + std::max(0, int(spare / (TextHeightCm(font) * kLinePitch)));
    PrintRow result;
    qsizetype mostLines = 1;
    for (int column = 0; column < table.cols(); ++column) {
        const QStringList lines = CellLines(layout, column, table.text(row, column), font);
        result.cells.append(lines.first(std::min(limit, lines.size())));
        mostLines = std::max(mostLines, result.cells.last().size());
    }
    result.height = PileHeight(mostLines, font) + kRowPaddingCm;
    return result;
}

void PrintCells(const PrintRow& row, const GridPrintLayout& layout,
                const QList<LinePainter>& painters, double y, const PrintFont& font,
                double lineWidth) {
    double x = layout.left;
    for (qsizetype column = 0; column < row.cells.size(); ++column) {
        const double width = layout.widths.at(column);
        PrintBox(x, y, x + width, y + row.height, lineWidth);
        const QStringList& lines = row.cells.at(column);
        double lineTop = y + (row.height - PileHeight(lines.size(), font)) / 2;
        for (const QString& line : lines) {
            painters.at(column)(x + kSidePaddingCm, lineTop, line, font,
                                width - 2 * kSidePaddingCm);
            lineTop += TextHeightCm(font) * kLinePitch;
        }
        x += width;
    }
}

} // namespace

GridPrintLayout MeasureGridPrint(const TextTable& table, const GridPrintStyle& style) {
    GridPrintLayout layout;
    layout.headFont = FontOr(style.headFont, 10);
    layout.bodyFont = FontOr(style.bodyFont, 8);
    layout.headLineWidth = style.headLineWidth;
    layout.bodyLineWidth = style.bodyLineWidth;
    for (int column = 0; column < table.cols(); ++column)
        layout.painters.append(PainterOf(style.alignments.value(column)));

    const double available = PrintableWidthCm();
    const QList<ColumnMeasure> columns = MeasureColumns(table, layout);
    layout.widths = ColumnWidths(columns, 1, 1);
    if (style.fitFont)
        LowerFonts(layout, columns, available);
    layout.squeezed = Sum(layout.widths) > available;
    if (layout.squeezed)
        Squeeze(layout.widths, available);
    layout.left = std::max(0.0, (available - Sum(layout.widths)) / 2);
    return layout;
}

int PrintGridPage(const TextTable& table, const GridPrintLayout& layout, int row, double top,
                  double* bottom) {
    const double end = PrintableHeightCm();
    const PrintRow head = LayRow(table, layout, 0, layout.headFont, (end - top) / 2);
    const QList<LinePainter> centred(table.cols(), PrintTextCentre);
    PrintCells(head, layout, centred, top, layout.headFont, layout.headLineWidth);
    const double bodyTop = top + head.height;
    double y = bodyTop;
    const int first = std::max(1, row);
    for (row = first; row < table.rows(); ++row) {
        const PrintRow next = LayRow(table, layout, row, layout.bodyFont, end - bodyTop);
        if (row > first && y + next.height > end)
            break;
        PrintCells(next, layout, layout.painters, y, layout.bodyFont, layout.bodyLineWidth);
        y += next.height;
    }
    if (bottom)
        *bottom = y;
    return row;
}

} // namespace hotel
