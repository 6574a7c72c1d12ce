#include "record/conditions.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"
#include "tools/query_text.h"
#include "tools/record_match.h"

using namespace hotel;

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

#include "test_query_match.moc"
