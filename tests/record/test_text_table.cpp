#include "record/text_table.h"
#include "tests/hotel_test.h"

using namespace hotel;

namespace {

TextTable Rooms() {
    TextTable table({u"序号"_s, u"房间号"_s, u""_s});
    table.addRow({u"1"_s, u"101"_s, u"a"_s});
    table.addRow({u"2"_s, u"102"_s, u"b"_s});
    table.addRow({u"3"_s, u"103"_s, u"c"_s});
    return table;
}

QString Column(const TextTable& table, int column) {
    QStringList cells;
    for (int row = 1; row < table.rows(); ++row)
        cells << table.text(row, column);
    return cells.join(u',');
}

} // namespace

class TextTableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void emptyTable() {
        TextTable table;
        table.addRow({u"cut"_s});
        QCOMPARE(table.text(1, 0), QString());
        table.sort(0, TextTable::Order::Text);
        table.setHeaders({u"a"_s});
        QCOMPARE(table.rows(), 1);
    }

    void cellsOutsideTheTable() {
        TextTable table = Rooms();
        const TextTable before = table;
        for (const auto& [row, column] : {std::pair{-1, 0}, {4, 0}, {1, -1}, {1, 3}}) {
            table.setText(row, column, u"x"_s);
            QCOMPARE(table.text(row, column), QString());
        }
        table.setText(1, u"房态", u"x"_s);
        table.setText(1, u"", u"x"_s);
        table.removeRow(0);
        table.removeRow(4);
        table.moveRow(0, 1);
        table.moveRow(1, 0);
        table.moveRow(1, 4);
        table.setRow(0, {u"x"_s});
        table.removeColumn(3);
        table.moveColumn(0, 3);
        table.setHeader(3, u"x"_s);
        QCOMPARE(table.column(u""), -1);
        QCOMPARE(table.find(3, u""), -1);
        for (int row = 0; row < 4; ++row)
            QCOMPARE(table.row(row), before.row(row));
        QCOMPARE(table.rows(), 4);
    }

    void rows() {
        TextTable table = Rooms();
        QCOMPARE(table.addRow({u"4"_s}), 4);
        QCOMPARE(table.row(4), QStringList({u"4"_s, u""_s, u""_s}));
        table.insertRow(0, {u"first"_s});
        table.insertRow(99, {u"last"_s});
        table.insertRow(3, {u"third"_s, u""_s, u""_s, u"cut"_s});
        QCOMPARE(Column(table, 0), u"first,1,third,2,3,4,last"_s);
        QCOMPARE(table.row(3).size(), 3);
        table.moveRow(1, 7);
        table.moveRow(6, 2);
        QCOMPARE(Column(table, 0), u"1,last,third,2,3,4,first"_s);
        table.removeRow(2);
        QCOMPARE(Column(table, 0), u"1,third,2,3,4,first"_s);
        table.setRow(1, {u"x"_s});
        QCOMPARE(table.row(1), QStringList({u"x"_s, u""_s, u""_s}));
        table.numberRows(0, u"000");
        QCOMPARE(Column(table, 0), u"001,002,003,004,005,006"_s);
        table.clearRows();
        QCOMPARE(table.dataRows(), 0);
        QCOMPARE(table.column(u"房间号"), 1);
    }

    void columns() {
        TextTable table = Rooms();
        QCOMPARE(table.addColumn(u"房态"_s), 3);
        table.setText(2, u"房态", u"散客"_s);
        table.moveColumn(3, 1);
        QCOMPARE(table.headers(), QStringList({u"序号"_s, u"房态"_s, u"房间号"_s, u""_s}));
        QCOMPARE(table.row(2), QStringList({u"2"_s, u"散客"_s, u"102"_s, u"b"_s}));
        table.removeColumn(0);
        table.setHeader(2, u"备注"_s);
        QCOMPARE(table.text(3, u"备注"), u"c"_s);
        QCOMPARE(table.row(1), QStringList({u""_s, u"101"_s, u"a"_s}));
    }

    void find() {
        const TextTable table = Rooms();
        QCOMPARE(table.find(0, u"序号"), -1);
        QCOMPARE(table.find(0, u"序号", 0), -1);
        QCOMPARE(table.find(1, u"102"), 2);
        QCOMPARE(table.find(1, u"102", 2), 2);
        QCOMPARE(table.find(1, u"102", 3), -1);
    }

    void sort() {
        using Order = TextTable::Order;
        const auto row = [](const char* name, const Order& order, bool descending,
                            const QString& sorted) {
            TextTable table({u"a"_s});
            for (const QString& cell : u"10,A,东,2,9楼,,-1,a,10.0,02"_s.split(u','))
                table.addRow({cell});
            table.sort(0, order, descending);
            Check(name, Column(table, 0), sorted);
            Check(name, table.headers(), QStringList{u"a"_s});
        };
        // 10 and 10.0, 2 and 02 are equal as numbers and keep their order.
        row("text", Order::Text, false, u",-1,02,10,10.0,2,9楼,A,a,东"_s);
        row("text down", Order::Text, true, u"东,a,A,9楼,2,10.0,10,02,-1,"_s);
        row("number", Order::Number, false, u"-1,A,东,,a,2,02,9楼,10,10.0"_s);
        row("number down", Order::Number, true, u"10,10.0,9楼,2,02,A,东,,a,-1"_s);
        row("natural", Order::Natural, false, u"-1,2,02,10,10.0,,9楼,A,a,东"_s);
        row("natural down", Order::Natural, true, u"东,a,A,9楼,,10,10.0,2,02,-1"_s);
    }

    void sumsStayLast() {
        TextTable table({u"a"_s});
        for (const QString& cell : u"3,1,2,合计"_s.split(u','))
            table.addRow({cell});
        table.sort(0, TextTable::Order::Number, true, 1);
        QCOMPARE(Column(table, 0), u"3,2,1,合计"_s);
        table.sort(0, TextTable::Order::Number, false, 9);
        QCOMPARE(Column(table, 0), u"3,2,1,合计"_s);
    }
};

HOTEL_TEST(TextTableTest)

#include "test_text_table.moc"
