#include "tools/list_statistics.h"

#include <cmath>

#include "record/literals.h"
#include "record/numbers.h"
#include "tools/list_totals.h"

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

double NumberOf(const QString& cell) {
    return LeadingNumber(NumericReading(cell));
}

template<class Use>
void ForEachCell(const TextTable& list, const CellBlock& block, Use use) {
    for (int row = block.firstRow; row <= block.lastRow; ++row) {
        for (int column = block.firstColumn; column <= block.lastColumn; ++column)
            use(list.text(row, column));
    }
}

} // namespace

CellBlock ColumnBlock(const TextTable& list, int column) {
    return {1, list.dataRows(), column, column};
}

ListStatistics StatisticsOf(const TextTable& list, const CellBlock& block) {
    ListStatistics result;
    int count = 0;
    ForEachCell(list, block, [&](const QString& cell) {
        const double number = NumberOf(cell);
        if (count == 0 || number > result.greatest) {
            result.greatest = number;
            result.greatestText = cell;
        }
        if (count == 0 || number < result.least) {
            result.least = number;
            result.leastText = cell;
        }
        result.sum += number;
        ++count;
    });
    if (count == 0)
        return result;
    result.mean = result.sum / count;
    double squares = 0;
    ForEachCell(list, block, [&](const QString& cell) {
        const double difference = NumberOf(cell) - result.mean;
        squares += difference * difference;
    });
    result.deviation = std::sqrt(squares / count);
    return result;
}

TextTable StatisticsTable(const TextTable& list, const CellBlock& block) {
    if (list.dataRows() == 0)
        return Labels();
    const ListStatistics statistics = StatisticsOf(list, block);
    TextTable table = CountsTable(list);
    SetValue(table, u"最大值", FormatNumber(statistics.greatest, kAsItIs), statistics.greatestText);
    SetValue(table, u"最小值", FormatNumber(statistics.least, kAsItIs), statistics.leastText);
    SetValue(table, u"总合计", FormatNumber(statistics.sum, kAsItIs));
    SetValue(table, u"平均值", FormatNumber(statistics.mean, u"#0.00"));
    SetValue(table, u"均方差", FormatNumber(statistics.deviation, kAsItIs));
    SetValue(table, u"极  差", FormatNumber(statistics.greatest - statistics.least, kAsItIs));
    return table;
}

TextTable CountsTable(const TextTable& list) {
    TextTable table = Labels();
    SetValue(table, u"总列数", FormatNumber(list.cols() - 1, u"#0"));
    SetValue(table, u"总行数", FormatNumber(list.dataRows(), u"#0"));
    return table;
}

} // namespace hotel
