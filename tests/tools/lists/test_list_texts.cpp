
#include "platform/clock.h"
#include "screen/messages.h"
#include "tests/hotel_test.h"
#include "tests/test_files.h"
#include "tools/aids/recent_visits.h"
#include "tools/lists/list_export.h"
#include "tools/lists/list_statistics.h"
#include "tools/lists/list_totals.h"

using namespace hotel;

namespace {

TextTable Charges() {
    TextTable list({u"项目"_s, u"金额"_s, u"日期"_s, u"浮动"_s});
    list.addRow({u"房费"_s, u"1,200.50"_s, u"2026-03-05"_s, u"0.00005"_s});
    list.addRow({u"餐饮"_s, u"12元5角"_s, u"2026-03-06"_s, u"0.00005"_s});
    list.addRow({u"退款"_s, u"-5"_s, u""_s, u"-0.1"_s});
    return list;
}

} // namespace

// What is made of a finished list: sums, statistics, text files.
class ListTextsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { Clock::Freeze(QDateTime(QDate(2026, 3, 5), QTime(10, 0))); }
    void cleanup() { Clock::Resume(); }

    void sumsNamedColumns() {
        TextTable list = Charges();
        AddColumnTotals(list, u"金额,浮动");
        QCOMPARE(list.row(4), (QStringList{u"合计"_s, u"1330.50"_s, u""_s, u"0.10"_s}));
        list.setText(1, 1, u"200.50"_s);
        AddColumnTotals(list, u"金额"); // over the row that stands
        QCOMPARE(list.rows(), 5);
        QCOMPARE(list.text(4, 1), u"330.50"_s);
        AddColumnTotals(list, u"额,项目,"); // no header is one of these but the first column's
        QCOMPARE(list.row(4), (QStringList{u"合计"_s, u"330.50"_s, u""_s, u"0.10"_s}));
    }

    void sumsAllColumns() {
        TextTable list = Charges();
        list.setText(2, 2, QString(40, u'9'));
        AddColumnTotalsAll(list);
        QCOMPARE(list.text(4, 0), u"合计"_s);
        QCOMPARE(list.text(4, 1), u"1330.50"_s);
        QCOMPARE(list.text(4, 3), u"0.10"_s); // four decimals each: 0.0001 + 0.0001 + 0.1
        QVERIFY(list.text(4, 2).size() > 15); // more than fits stays at the greatest amount
    }

    void statistics() {
        const TextTable list = Charges();
        // The values from 最大值 on, and the cells of the first two.
        const auto row = [&](const char* name, int column, const QString& values,
                             const QString& cells) {
            const TextTable table = StatisticsTable(list, ColumnBlock(list, column));
            Check(name, table.text(1, 1), u"3"_s); // the number column doesn't count
            Check(name, table.text(2, 1), u"3"_s);
            QStringList read;
            for (int n = 3; n < table.rows(); ++n)
                read.append(table.text(n, 1));
            Check(name, read.join(u' '), values);
            Check(name, table.text(3, 2) + u' ' + table.text(4, 2), cells);
        };
        row("amounts", 1, u"1200.5 5 1330.5 443.50 537.517 1195.5"_s, u"1,200.50 -5"_s);
        row("words only", 0, u"0 0 0 0.00 0 0"_s, u"房费 房费"_s);

        QCOMPARE(StatisticsOf(list, {2, 3, 1, 1}).sum, 130.0);
        QCOMPARE(StatisticsOf(list, {1, 3, 1, 3}).greatestText, u"2026-03-06"_s);
        const TextTable empty({u"序号"_s, u"金额"_s});
        const TextTable none = StatisticsTable(empty, ColumnBlock(empty, 1));
        for (int n = 1; n < none.rows(); ++n)
            QCOMPARE(none.text(n, 1), QString());
    }

    void layouts() {
        TextTable list({u"号"_s, u"姓名"_s});
        list.addRow({u"1"_s, u"王\"伟"_s});
        list.addRow({u"12345678"_s, u""_s});
        const auto row = [&](const QString& layout, const QString& text) {
            Check(qPrintable(layout), ExportText(list, layout, {6, 6}), text);
            QVERIFY(ExportLayouts().contains(layout));
        };
        row(u"逗号，"_s, u"号，姓名\r\n1，王\"伟\r\n12345678，\r\n"_s);
        row(u"逗号,"_s, u"号,姓名\r\n1,王\"伟\r\n12345678,\r\n"_s);
        row(u"双引号空格"_s, u"\"号\" \"姓名\"\r\n\"1\" \"王\"伟\"\r\n\"12345678\" \"\"\r\n"_s);
        row(u"双引号逗号"_s, u"\"号\",\"姓名\"\r\n\"1\",\"王\"伟\"\r\n\"12345678\",\"\"\r\n"_s);
        row(u"空格紧缩"_s, u"号 姓名\r\n1 王\"伟\r\n12345678 \r\n"_s);
        row(u"空格对齐"_s, u"号    姓名  \r\n1     王\"伟 \r\n12345678      \r\n"_s);
        row(u"表停字符"_s, u"号    \t姓名  \r\n1     \t王\"伟 \r\n12345678\t      \r\n"_s);
    }

    void widths() {
        QCOMPARE(DisplayWidth(u"a中\u007f\u0080é"), 1 + 2 + 1 + 2 + 2);
        QCOMPARE(DisplayWidth(QString(QChar(0))), 2);
        QCOMPARE(DisplayColumns(100), 17);
    }

    void savesTheListFile() {
        QTemporaryDir folder;
        const QString name = folder.filePath(u"a.txt"_s);
        MessageRecorder recorder;
        recorder.answerNext(name);
        QVERIFY(SaveListFile(Charges(), u"逗号,", {}));
        QVERIFY(FileText(name).startsWith(u"项目,金额,日期,浮动\r\n房费,1,200.50,"));
        QCOMPARE(recorder.words(),
                 (QStringList{u"260305清单.txt"_s, u"表格内容已经成功保存在:"_s + name}));
        recorder.clear();
        QVERIFY(!SaveListFile(TextTable({u"项目"_s}), u"逗号,", {})); // nothing is asked
        QVERIFY(recorder.entries().isEmpty());
        recorder.answerNext(u""_s);
        QVERIFY(!SaveListFile(Charges(), u"逗号,", {}));
        recorder.answerNext(name + u"/a.txt"_s); // a file is no folder
        QVERIFY(!SaveListFile(Charges(), u"逗号,", {}));
        QCOMPARE(recorder.last(), u"文件无法生成!"_s);
    }

    void savesAlignedUnderTheNameTyped() {
        QTemporaryDir folder;
        const QString name = folder.filePath(u"b.txt"_s);
        TextTable list({u"号"_s, u"姓名"_s});
        MessageRecorder recorder;
        QVERIFY(!SaveGridToText(list, u"住客"_s)); // nothing is asked
        QVERIFY(recorder.entries().isEmpty());
        list.addRow({u"1"_s, u"王小丽"_s});
        recorder.answerNext(name);
        QVERIFY(SaveGridToText(list, u"住客"_s, u"c.txt"_s));
        QCOMPARE(recorder.entries().last().words, u"住客的存放文件名："_s);
        QCOMPARE(recorder.entries().last().proposed, u"c.txt"_s);
        QCOMPARE(FileText(name), u"号  姓名    \r\n1   王小丽  \r\n"_s);
        QVERIFY(!SaveGridToText(list, u"住客"_s)); // cancelled
        QVERIFY(recorder.entries().last().proposed.endsWith(u"/260305.txt"));
    }

    void recentVisits() {
        TextTable list({u"编号"_s, u"名称"_s});
        for (int n = 1; n <= 60; ++n)
            list.addRow({u"G%1"_s.arg(n), u"供应商%1"_s.arg(n)});
        QVERIFY(RecentListText(list).endsWith(u"<G50>供应商50</G50>"));
        list.setText(3, 0, {});
        QCOMPARE(RecentListText(list), u"<G1>供应商1</G1>\r\n<G2>供应商2</G2>"_s);
    }
};

HOTEL_TEST(ListTextsTest)

#include "test_list_texts.moc"
