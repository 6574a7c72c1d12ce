#include "tools/lists/list_statistics.h"

#include <cmath>

#include "record/literals.h"
#include "record/numbers.h"
#include "tools/lists/list_totals.h"

namespace hotel {

namespace {

constexpr QStringView kAsItIs = u"#0.####";

TextTable Labels() {
    TextTable table({u"统计项"_s, u"数值"_s, u"所在单元"_s});
    for (const QStringView label :
         {u"总列数", u"总行数", u"最大值", u"最小值", u"总合计", u"平均值", u"均方差", u"极  差"})
        table.addRow({label.toString()});
    return table;
}

void SetValue(TextTable& table, QStringView label, const QString& value, const QString& cell = {}) {
    const int row = table.find(0, label);
    table.setText(row, 1, value);
    table.setText(row, 2, cell);
}

} // namespace

CellBlock ColumnBlock(const TextTable& list, int column) {
    return {1, list.dataRows(), column, column};
}

ListStatistics StatisticsOf(const TextTable& list, const CellBlock& block) {
    ListStatistics result;
    QList<double> numbers;
    for (int row = block.firstRow; row <= block.lastRow; ++row) {
        for (int column = block.firstColumn; column <= block.lastColumn; ++column) {
            const QString cell = list.text(row, column);
            const double number = LeadingNumber(NumericReading(cell));
            if (numbers.isEmpty() || number > result.greatest) {
                result.greatest = number;
                result.greatestText = cell;
            }
            if (numbers.isEmpty() || number < result.least) {
                result.least = number;
                result.leastText = cell;
            }
            result.sum += number;
            numbers.append(number);
        }
    }
    if (numbers.isEmpty())
        return result;
    result.mean = result.sum / double(numbers.size());
    double squares = 0;
    for (const double number : numbers)
        squares += (number - result.mean) * (number - result.mean);
    result.deviation = std::sqrt(squares / double(numbers.size()));
    return result;
}

TextTable StatisticsTable(const TextTable& list, const CellBlock& block) {
    if (list.dataRows() == 0)
        return Labels();
    const ListStatistics statistics = StatisticsOf(list, block);
    TextTable table = CountsTable(list.cols() - 1, list.dataRows());
    SetValue(table, u"最大值", FormatNumber(statistics.greatest, kAsItIs), statistics.greatestText);
    SetValue(table, u"最小值", FormatNumber(statistics.least, kAsItIs), statistics.leastText);
    SetValue(table, u"总合计", FormatNumber(statistics.sum, kAsItIs));
    SetValue(table, u"平均值", FormatNumber(statistics.mean, u"#0.00"));
    SetValue(table, u"均方差", FormatNumber(statistics.deviation, kAsItIs));
    SetValue(table, u"极  差", FormatNumber(statistics.greatest - statistics.least, kAsItIs));
    return table;
}

TextTable CountsTable(int columns, int rows) {
    TextTable table = Labels();
    SetValue(table, u"总列数", FormatNumber(columns, u"#0"));
    SetValue(table, u"总行数", FormatNumber(rows, u"#0"));
    return table;
}

} // namespace hotel
