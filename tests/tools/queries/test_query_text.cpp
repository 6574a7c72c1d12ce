#include "record/conditions.h"
#include "tests/hotel_test.h"
#include "tools/queries/query_text.h"
#include "tools/queries/record_match.h"

using namespace hotel;

class QueryTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void normalisesTargets() {
        const auto row = [](const QString& typed, const QString& target) {
            Check(qPrintable(typed), NormalisedTarget(typed), target);
        };
        for (const QString& typed : {u"2026.3.5"_s, u"2026/3/5"_s, u"2026-3-5"_s, u"26.3.5"_s})
            row(typed, u"2026-03-05"_s);
        row(u"6.3.5"_s, u"2006-03-05"_s);
        row(u"29-1-1"_s, u"2029-01-01"_s);
        row(u"30-1-1"_s, u"1930-01-01"_s);
        row(u"2024.2.29"_s, u"2024-02-29"_s);
        row(u"9:5"_s, u"09:05:00"_s);
        row(u"9:5:7"_s, u"09:05:07"_s);
        // One separator too many or too few, two kinds, no such day or time, no year: kept as typed.
        for (const QString& kept :
             {u"2026-03-05"_s, u"2026.3."_s, u".3.5"_s, u"2026.3.5.1"_s, u"2026.3/5"_s,
              u"2026.2.29"_s, u"2026.13.1"_s, u"192.168.1"_s, u"126.3.5"_s, u"a.b.c"_s,
              u"2026-3-5 9:05"_s, u"12.50"_s, u"9:"_s, u":5"_s, u"24:00"_s, u"1:2:3:4"_s, u""_s})
            row(kept, kept);
    }

    void completeConditions() {
        const auto row = [](const char* name, const QString& object, const QString& op,
                            const QString& target, bool complete) {
            Check(name, IsComplete({{}, object, op, target}), complete);
        };
        row("all", u"房态"_s, u"等于"_s, u"散客"_s, true);
        row("no field", u""_s, u"等于"_s, u"散客"_s, false);
        row("no operator", u"房态"_s, u""_s, u"散客"_s, false);
        row("no value", u"房态"_s, u"等于"_s, u""_s, false);
        row("none wanted", u"房态"_s, u"为空"_s, u""_s, true);
        row("greatest text", u"房态"_s, u"最大"_s, u""_s, true);
        row("greatest number wants one", u"房态"_s, u"数值最大"_s, u""_s, false);
    }

    void writesConditions() {
        const QList<Condition> conditions = {
            {u"并且"_s, u"编号"_s, u"数值大于"_s, u"5"_s},
            {{}, u"房态"_s, u"为空"_s, u"typed all the same"_s},
            {u"或者"_s, u"姓名"_s, u"包含"_s, u"王"_s},
        };
        QCOMPARE(ConditionText(conditions, u"编号"),
                 u"<记录查询条件>\r\n"
                 "<00>\r\n <关系>并且</关系>\r\n <对象>记录名</对象>\r\n <条件>数值大于</条件>\r\n"
                 " <目标>5</目标>\r\n</00>\r\n"
                 "<01>\r\n <对象>房态</对象>\r\n <条件>为空</条件>\r\n</01>\r\n"
                 "<02>\r\n <关系>或者</关系>\r\n <对象>姓名</对象>\r\n <条件>包含</条件>\r\n"
                 " <目标>王</目标>\r\n</02>\r\n"
                 "</记录查询条件>\r\n"_s);
        QVERIFY(ConditionText(conditions, {}).contains(u"<对象>编号</对象>"));
    }

    // What is written is what the evaluating side reads, up to the last number.
    void hundredConditionsAreReadBack() {
        QList<Condition> conditions;
        for (int n = 0; n < 101; ++n)
            conditions.append({u"或者"_s, u"房号"_s, u"等于"_s, QString::number(n)});
        const QList<Condition> read = ParseConditions(ConditionText(conditions, {}));
        QCOMPARE(read.size(), kConditionLimit);
        QCOMPARE(read.last().target, u"99"_s);
        QCOMPARE(read.last().relation, u"或者"_s);
    }

    void writesKeywords() {
        QCOMPARE(KeywordText({u"散客,长包"_s, {}, u"免费"_s}),
                 u"<记录查询条件>\r\n<必选条件>散客,长包</必选条件>\r\n"
                 "<排除条件>免费</排除条件>\r\n</记录查询条件>\r\n"_s);
        const KeywordLists read = KeywordsOf(KeywordText({u"a"_s, u"b,c"_s, {}}));
        QCOMPARE(read.required, u"a"_s);
        QCOMPARE(read.optional, u"b,c"_s);
        QVERIFY(read.excluded.isEmpty());
        QVERIFY(KeywordsOf(ConditionText({{{}, u"a"_s, u"为空"_s, {}}}, {})).isEmpty());
        QVERIFY(WithSubField(KeywordText({}), u"工作经历")
                    .endsWith(u"</记录查询条件>\r\n<记录查询字段>工作经历</记录查询字段>\r\n"));
    }

    void normalisesKeywords() {
        const auto row = [](const char* name, const QString& typed, const QString& keywords,
                            int count) {
            Check(name, NormalisedKeywords(typed), keywords);
            Check(name, KeywordCount(keywords), count);
        };
        row("none", u""_s, u""_s, 0);
        row("one", u" 散客 "_s, u"散客"_s, 1);
        row("full-width comma", u"散客，王 伟"_s, u"散客,王 伟"_s, 2);
        row("nothing between commas", u",a,, ,b,"_s, u"a,b"_s, 2);
        row("tag marks", u"</必选条件>a"_s, u"/必选条件a"_s, 1);
    }

    void matchesKeywords() {
        const auto row = [](const char* name, const QString& required, const QString& optional,
                            const QString& excluded, bool matches) {
            const QString record =
                u"<房间号>8101</房间号>\r\n<姓名>王伟</姓名>\r\n<房态>散客</房态>"_s;
            Check(name, MatchesKeywords(record, {required, optional, excluded}), matches);
        };
        row("none asked for", u""_s, u""_s, u""_s, true);
        row("all held", u"王伟,散客"_s, u""_s, u""_s, true);
        row("one missing", u"王伟,长包"_s, u""_s, u""_s, false);
        row("one of them held", u""_s, u"长包,散客"_s, u""_s, true);
        row("none of them held", u"王伟"_s, u"长包,团队"_s, u""_s, false);
        row("excluded", u"王伟"_s, u"散客"_s, u"团队,8101"_s, false);
        row("the tags count", u"房态"_s, u""_s, u""_s, true);
    }
};

HOTEL_TEST(QueryTextTest)

namespace {

const QString kStaff = u"<姓名>王伟</姓名>\r\n<工作经历>"
                       "<01><单位>一店</单位><年>3</年></01>"
                       "<02><单位>二店</单位><年>12</年></02>"
                       "<03><单位>总店</单位></03>"
                       "</工作经历>"_s;

QString Query(const QList<Condition>& conditions, QStringView field = u"工作经历") {
    const QString text = ConditionText(conditions, {});
    return field.isEmpty() ? text : WithSubField(text, field);
}

QStringList AllMatches(const QString& record, const QString& query) {
    QStringList names;
    for (int n = 1;; ++n) {
        const QString name = MatchRecordConditions(record, query, n);
        if (name.isEmpty())
            return names;
        names.append(name);
    }
}

} // namespace

class QueryMatchTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findsSubRecords() {
        const auto row = [](const char* name, const QString& query, const QStringList& names) {
            Check(name, AllMatches(kStaff, query), names);
            QCOMPARE(MatchRecordConditions(kStaff, query, 0), QString());
            QCOMPARE(MatchRecordConditions(kStaff, query, -1), QString());
        };
        row("one condition", Query({{{}, u"单位"_s, u"包含"_s, u"店"_s}}),
            {u"01"_s, u"02"_s, u"03"_s});
        row("the field is missing", Query({{{}, u"年"_s, u"为空"_s, {}}}), {u"03"_s});
        row("the tag as its name", Query({{{}, u"记录名"_s, u"数值大于"_s, u"1"_s}}),
            {u"02"_s, u"03"_s});
        row("an extreme", Query({{{}, u"年"_s, u"数值最大"_s, {}}}), {u"02"_s});
        row("joined",
            Query({{u"并且"_s, u"年"_s, u"非空"_s, {}},
                   {{}, u"单位"_s, u"等于"_s, u"总店"_s},
                   {u"或者"_s, u"单位"_s, u"等于"_s, u"二店"_s}}),
            {u"02"_s});
        row("the record's own fields", Query({{{}, u"记录名"_s, u"首部等于"_s, u"工作"_s}}, {}),
            {u"工作经历"_s});
        row("a field that isn't there", Query({{{}, u"单位"_s, u"非空"_s, {}}}, u"家庭"), {});
        row("no condition text", u"<记录查询字段>工作经历</记录查询字段>"_s, {});
        row("empty query", {}, {});
        row("cut off", Query({{{}, u"单位"_s, u"非空"_s, {}}}).left(40), {});
    }

    // A seventh pair of texts takes the place of the one used longest ago; each answers for itself.
    void pairsOfTextsAreKeptApart() {
        const auto query = [](int n) {
            return Query({{{}, u"记录名"_s, u"数值等于"_s, QString::number(n)}});
        };
        for (int round = 0; round < 3; ++round) {
            for (int n = 1; n <= 7; ++n)
                QCOMPARE(AllMatches(kStaff, query(n)),
                         n <= 3 ? QStringList{u"0%1"_s.arg(n)} : QStringList());
        }
        const QString other = QString(kStaff).replace(u"一店"_s, u"三店"_s); // of the same length
        const QString shop = Query({{{}, u"单位"_s, u"等于"_s, u"一店"_s}});
        QCOMPARE(AllMatches(kStaff, shop), QStringList{u"01"_s});
        QCOMPARE(AllMatches(other, shop), QStringList());
        QCOMPARE(AllMatches(kStaff, shop), QStringList{u"01"_s});
    }

    void keptListEndsAtItsLimit() {
        QString record;
        for (int n = 1; n <= 2500; ++n)
            record += u"<r%1>x</r%1>"_s.arg(n);
        const QString query = Query({{{}, u"记录名"_s, u"非空"_s, {}}}, {});
        QCOMPARE(MatchRecordConditions(record, query, 2400), u"r2400"_s); // makes the list
        QCOMPARE(MatchRecordConditions(record, query, kMatchesKept), u"r2000"_s);
        QCOMPARE(MatchRecordConditions(record, query, kMatchesKept + 1), QString());
    }
};

HOTEL_TEST(QueryMatchTest)

#include "test_query_text.moc"
