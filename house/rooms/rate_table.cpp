#include "house/rooms/rate_table.h"

#include "link/records.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "tools/aids/categories.h"

namespace hotel {

namespace {

constexpr int kTypeColumn = 1;
constexpr int kStandardRateColumn = 2;

void DropRowsWithoutType(TextTable& table) {
    for (int row = table.dataRows(); row >= 1; --row) {
        if (table.text(row, kTypeColumn).isEmpty())
            table.removeRow(row);
    }
}

TextTable& Rates() {
    static TextTable rates;
    return rates;
}

} // namespace

TextTable RateTable(QStringView categoryText) {
    TextTable table = CategoryTable(categoryText);
    table.removeColumn(table.column(tag::kShortKey));
    if (table.column(u"房价") < 0)
        table.addColumn(u"房价"_s);
    table.moveColumn(table.column(u"房价"), kStandardRateColumn);
    table.setHeader(0, u"序号"_s);
    table.setHeader(kTypeColumn, category::kRoomTypes.toString());
    DropRowsWithoutType(table);
    return table;
}

const TextTable& LoadRateTable() {
    TextTable& rates = Rates();
    rates = RateTable(ReadProject(CategoryFile(), category::kRoomTypes));
    return rates;
}

const TextTable& RatesInUse() {
    const TextTable& rates = Rates();
    return rates.dataRows() > 0 ? rates : LoadRateTable();
}

RateChoice RatesOfType(const TextTable& rateTable, QStringView roomType) {
    RateChoice choice;
    const int row = rateTable.find(kTypeColumn, roomType);
    if (row < 0) {
        choice.notice = Notice{u"设定错误"_s, u"房型："_s + roomType +
                                                  u" 没有确定可用房价，请在分类设定中定义！"_s};
        return choice;
    }
    for (int column = kStandardRateColumn; column < rateTable.cols(); ++column) {
        const QString price =
            TrimBlanks(rateTable.text(row, column)); // a category's empty cell is a blank
        if (price.isEmpty())
            continue;
        choice.kinds.append(rateTable.headers()[column]);
        choice.prices.append(FormatText(price, u"#0.00"));
    }
    return choice;
}

bool IsNegotiable(QStringView rateKind) {
    return rateKind.contains(u"前台");
}

} // namespace hotel
