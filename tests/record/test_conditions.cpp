#include "record/conditions.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"
#include "tests/select_records.h"

using namespace hotel;

namespace {

// A condition as a line: "relation object operator target", words separated by one blank.
QList<Condition> Conditions(const QStringList& lines) {
    QList<Condition> conditions;
    for (const QString& line : lines) {
        const QStringList words = line.split(u' ');
        conditions.append({words.value(0), words.value(1), words.value(2), words.value(3)});
    }
    return conditions;
}

// Numbers of the records that match, counted from 1.
QString Matches(const QStringList& records, const QStringList& lines) {
    RecordSelection selection(Conditions(lines));
    for (qsizetype i = 0; i < records.size(); ++i)
        selection.look(QString::number(i + 1), records[i]);
    return selection.names().join(u' ');
}

} // namespace

class ConditionsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void operators() {
        const auto row = [](const QString& op, const QString& target, const QStringList& pass,
                            const QStringList& fail) {
            for (const QString& value : pass)
                QVERIFY2(PassesOperator(op, value, target), qUtf8Printable(op + u' ' + value));
            for (const QString& value : fail)
                QVERIFY2(!PassesOperator(op, value, target), qUtf8Printable(op + u' ' + value));
        };
        row(u"为空"_s, u"x"_s, {u""_s}, {u" "_s, u"x"_s});
        row(u"非空"_s, u"x"_s, {u" "_s, u"0"_s}, {u""_s});
        row(u"大于"_s, u"b"_s, {u"ba"_s, u"c"_s, u"中"_s}, {u"b"_s, u"a"_s, u"B"_s, u""_s});
        row(u"小于"_s, u"b"_s, {u"a"_s, u"B"_s, u""_s, u"10"_s}, {u"b"_s, u"ba"_s});
        row(u"等于"_s, u"散客"_s, {u"散客"_s}, {u"散"_s, u"散客 "_s, u""_s});
        row(u"等于"_s, u""_s, {u""_s}, {u" "_s});
        row(u"不等于"_s, u"a"_s, {u"A"_s, u""_s}, {u"a"_s});
        row(u"不大于"_s, u"9"_s, {u"9"_s, u"10"_s, u""_s}, {u"91"_s});
        row(u"不小于"_s, u"9"_s, {u"9"_s, u"91"_s}, {u"10"_s, u""_s});
        row(u"属于"_s, u"101,102,203"_s, {u"102"_s, u"02,2"_s, u""_s},
            {u"103"_s, u"101,102,203,"_s});
        row(u"不属于"_s, u"101,102"_s, {u"103"_s}, {u"102"_s, u""_s});
        row(u"包含"_s, u"散"_s, {u"散"_s, u"团散客"_s}, {u"团"_s, u""_s});
        row(u"包含"_s, u""_s, {u"x"_s}, {});
        row(u"不包含"_s, u"散"_s, {u"团"_s, u""_s}, {u"团散客"_s});
        row(u"数值大于"_s, u"9"_s, {u"10"_s, u"9.5元"_s}, {u"9"_s, u"abc"_s, u""_s});
        row(u"数值小于"_s, u"10"_s, {u"9"_s, u"abc"_s, u"-11"_s}, {u"10.0"_s, u"11"_s});
        row(u"数值等于"_s, u"1.50"_s, {u"1.5"_s, u"01.500元"_s}, {u"1.51"_s, u""_s});
        row(u"数值等于"_s, u""_s, {u"0"_s, u""_s, u"abc"_s}, {u"1"_s});
        row(u"数值不等于"_s, u"1.50"_s, {u"1.51"_s, u""_s}, {u"1.5"_s});
        row(u"数值不大于"_s, u"10"_s, {u"9"_s, u"10"_s, u""_s}, {u"10.1"_s});
        row(u"数值不小于"_s, u"9"_s, {u"10"_s, u"9.0"_s}, {u"8"_s, u""_s});
        row(u"首部等于"_s, u"13"_s, {u"13"_s, u"1301"_s}, {u"1"_s, u"0131"_s, u""_s});
        row(u"首部等于"_s, u""_s, {u""_s, u"x"_s}, {});
        row(u"尾部等于"_s, u"01"_s, {u"01"_s, u"1301"_s}, {u"1"_s, u"013"_s, u""_s});
        row(u"首部不等于"_s, u"13"_s, {u"1"_s, u"0131"_s, u""_s}, {u"1301"_s});
        row(u"尾部不等于"_s, u"01"_s, {u"1"_s, u"013"_s, u""_s}, {u"1301"_s});
        row(u"近似"_s, u"x"_s, {}, {u"x"_s, u""_s});
        row(u""_s, u"x"_s, {}, {u"x"_s});
    }

    void joining() {
        // The records are a=1 b=1, a=1 b=2, a=2 b=1, a=2 b=2.
        const auto row = [](const char* name, const QStringList& conditions,
                            const QString& matches) {
            Check(name,
                  Matches({u"<a>1</a><b>1</b>"_s, u"<a>1</a><b>2</b>"_s, u"<a>2</a><b>1</b>"_s,
                           u"<a>2</a><b>2</b>"_s},
                          conditions),
                  matches);
        };
        row("none", {}, u"1 2 3 4"_s);
        row("or", {u"或者 a 等于 1"_s, u"或者 b 等于 1"_s}, u"1 2 3"_s);
        row("empty is or", {u" a 等于 1"_s, u"或者 b 等于 1"_s}, u"1 2 3"_s);
        row("and", {u"并且 a 等于 1"_s, u"并且 b 等于 1"_s}, u"1"_s);
        row("only one and", {u"并且 a 等于 1"_s}, u"1 2"_s);
        row("both", {u" a 等于 1"_s, u"并且 b 等于 1"_s, u"或者 a 等于 2"_s}, u"1 3"_s);
        row("order plays no part", {u"并且 b 等于 1"_s, u"或者 a 等于 2"_s, u" a 等于 1"_s},
            u"1 3"_s);
        row("unknown operator", {u"并且 a 近似 1"_s}, {});
        row("record name", {u" 记录名 数值大于 2"_s}, u"3 4"_s);
    }

    void repeatedFields() {
        const auto row = [](const char* name, const QString& record, const QString& condition,
                            bool matches) {
            Check(name, Matches({record}, {condition}), matches ? u"1"_s : QString());
        };
        const QString three = u"<a>1</a><b>x</b><a>2</a>\r\n<a>3</a>"_s;
        row("last one", three, u" a 等于 3"_s, true);
        row("none", three, u" a 等于 4"_s, false);
        row("any that differs", three, u" a 不等于 1"_s, true);
        row("up to the empty one", u"<a>1</a><a></a><a>3</a>"_s, u" a 等于 3"_s, false);
        row("the empty one is not tested", u"<a>1</a><a></a>"_s, u" a 为空"_s, false);
        row("the first one is", u"<a></a><a>3</a>"_s, u" a 为空"_s, true);
        row("first one empty ends it", u"<a></a><a>3</a>"_s, u" a 等于 3"_s, false);
        row("no field", u"<b>1</b>"_s, u" a 为空"_s, true);
        row("empty record", u""_s, u" a 为空"_s, true);
        row("empty form", u"<a>1</a><a /><a>3</a>"_s, u" a 等于 3"_s, false);
        row("closing tag ahead", u"</a><a>1</a>"_s, u" a 等于 1"_s, true);
        row("name is read once", u"<记录名>x</记录名>"_s, u" 记录名 等于 x"_s, false);
    }

    void occurrencesHaveALimit() {
        QString record;
        for (int i = 1; i <= 32001; ++i)
            record += u"<a>%1</a>"_s.arg(i);
        QCOMPARE(Matches({record}, {u" a 等于 32000"_s}), u"1"_s);
        QCOMPARE(Matches({record}, {u" a 等于 32001"_s}), QString());
        const QString oversized = u"<a>1</a>"_s + QString(kTagTextLimit - 8, u'x');
        QCOMPARE(Matches({oversized}, {u" a 为空"_s}), u"1"_s);
    }

    void extremes() {
        // The values are those of field a, one record each.
        const auto row = [](const char* name, const QString& values, const QStringList& conditions,
                            const QString& matches) {
            QStringList records;
            for (const QString& value : values.split(u','))
                records << SetTag(QString(), u"a", value);
            Check(name, Matches(records, conditions), matches);
        };
        row("greatest text", u"10,9,91,2"_s, {u" a 最大"_s}, u"3"_s);
        row("first holder keeps", u"1,9,9"_s, {u" a 最大"_s}, u"2"_s);
        row("smallest text", u"9,10,2"_s, {u" a 最小"_s}, u"2"_s);
        row("first smallest keeps", u"9,1,1"_s, {u" a 最小"_s}, u"2"_s);
        row("empty smallest gives way", u"5,,3"_s, {u" a 最小"_s}, u"3"_s);
        row("empty smallest at the end", u"5,3,"_s, {u" a 最小"_s}, u"3"_s);
        row("empty smallest gives way to empty", u",,"_s, {u" a 最小"_s}, u"3"_s);
        row("greatest of empty ones", u",,"_s, {u" a 最大"_s}, u"1"_s);
        row("greatest number", u"9,10,010,2"_s, {u" a 数值最大"_s}, u"2"_s);
        row("greatest negative number", u"-5,-3,-4"_s, {u" a 数值最大"_s}, u"2"_s);
        row("smallest number", u"9,10,2,2.0"_s, {u" a 数值最小"_s}, u"3"_s);
        row("among all, not only those that match", u"5,9"_s,
            {u" a 数值最大"_s, u"并且 a 小于 9"_s}, QString());
        row("and another condition that holds", u"5,9"_s, {u" a 数值最大"_s, u"并且 a 大于 8"_s},
            u"2"_s);
        row("or another condition", u"5,9,1"_s, {u" a 数值最大"_s, u"或者 a 等于 1"_s}, u"2 3"_s);
        row("greatest and smallest", u"5,9,1"_s, {u" a 数值最大"_s, u"或者 a 数值最小"_s},
            u"2 3"_s);
        row("by and", u"5,9,1"_s, {u"并且 a 数值最大"_s}, u"2"_s);
        row("both by and", u"5,9,1"_s, {u"并且 a 数值最大"_s, u"并且 a 数值最小"_s}, QString());
        row("record name", u"x,x,x"_s, {u" 记录名 数值最大"_s}, u"3"_s);
        QCOMPARE(Matches({u"<a>5</a>"_s, u"<a>1</a><a>9</a>"_s, u"<a>8</a>"_s}, {u" a 数值最大"_s}),
                 u"2"_s);
    }

    void textOfTheNextRecordNumber() {
        QString conditions;
        int number = 0;
        AddQueryCondition(conditions, u"或者", u"记录名", u"数值最大", u"", number);
        QCOMPARE(number, 1);
        QCOMPARE(WrapConditions(conditions),
                 u"<记录查询条件>\r\n<00>\r\n<关系>或者</关系>\r\n<对象>记录名</对象>\r\n"
                 u"<条件>数值最大</条件>\r\n</00>\r\n</记录查询条件>\r\n"_s);
        QCOMPARE(SelectRecords(u"<1>a</1>\r\n<12>b</12>\r\n<9>c</9>"_s, WrapConditions(conditions)),
                 QStringList{u"12"_s});
    }

    void parsing() {
        QString conditions;
        int number = 0;
        AddQueryCondition(conditions, u"", u"房态", u"等于", u" 散客\r\n", number);
        AddQueryCondition(conditions, u"并且", u"", u"非空", u"", number);
        AddQueryCondition(conditions, u"并且", u"楼层", u"最大", u"", number);
        ++number; // 03 is missing
        AddQueryCondition(conditions, u"并且", u"房号", u"非空", u"", number);
        for (const QString& text : {conditions, WrapConditions(conditions)}) {
            const QList<Condition> parsed = ParseConditions(text);
            QCOMPARE(parsed.size(), 2);
            QCOMPARE(parsed[0].relation, QString());
            QCOMPARE(parsed[0].object, u"房态"_s);
            QCOMPARE(parsed[0].op, u"等于"_s);
            QCOMPARE(parsed[0].target, u" 散客\r\n"_s);
            QCOMPARE(parsed[1].object, u"楼层"_s);
            QCOMPARE(parsed[1].target, QString());
        }
        QCOMPARE(ParseConditions(conditions.replace(u"<"_s, u" <"_s)).size(),
                 2); // as a form writes
        QVERIFY(ParseConditions(u"").isEmpty());
        QVERIFY(ParseConditions(WrapConditions(u"")).isEmpty());
    }
};

HOTEL_TEST(ConditionsTest)

#include "test_conditions.moc"
