#include "server/search.h"

#include <QTemporaryDir>

#include "record/conditions.h"
#include "tests/hotel_test.h"

using namespace hotel;

namespace {

const StorePath kFile = *ParseFilePath(u"test.qvr");

QString OneCondition(QStringView object, QStringView op, QStringView target = u"",
                     QStringView relation = u"或者") {
    QString conditions;
    int number = 0;
    AddQueryCondition(conditions, relation, object, op, target, number);
    return conditions;
}

} // namespace

class SearchTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        store_ = std::make_unique<Store>(folder_.path(), Store::Use::Serve);
        store_->begin();
        const QStringList names = {u"9"_s, u"12"_s, u"007"_s, u"12.0"_s, u"乙"_s, u"-3"_s};
        for (qsizetype i = 0; i < names.size(); ++i)
            store_->write(kFile, u"甲"_s, names[i], u"<房号>%1</房号>"_s.arg(100 + i));
        store_->write(kFile, u"丙"_s, u"500"_s, u"<房号>103</房号><备注>吸烟,海景</备注>"_s);
    }

    // The index and the scan mean the same.
    void extremesOfTheName() {
        for (const QString& op : OperatorWords()) {
            if (!IsExtremeOperator(op))
                continue;
            for (const QString& relation : {u"或者"_s, u"并且"_s, u""_s}) {
                const QString conditions = OneCondition(tag::kRecordName, op, u"", relation);
                QCOMPARE(FindByConditions(*store_, kFile, u"甲"_s, conditions),
                         SelectRecords(*store_->readProject(kFile, u"甲"_s), conditions));
            }
        }
    }

    void conditions() {
        const auto row = [this](const char* name, const QString& project, const QString& conditions,
                                const QString& found) {
            Check(name, FindByConditions(*store_, kFile, project, conditions).join(u' '), found);
        };
        const QString greatest = OneCondition(tag::kRecordName, u"数值最大");
        row("greatest in a project", u"甲"_s, greatest, u"12"_s);
        row("greatest in all projects", u""_s, greatest, u"500"_s);
        row("greatest, wrapped", u"甲"_s, WrapConditions(greatest), u"12"_s);
        row("greatest of no project", u"丁"_s, greatest, u""_s);
        row("greatest of a field", u"甲"_s, OneCondition(u"房号", u"数值最大"), u"-3"_s);
        row("equal", u"甲"_s, OneCondition(u"房号", u"等于", u"103"), u"12.0"_s);
        row("equal in all projects", u""_s, OneCondition(u"房号", u"等于", u"103"), u"12.0 500"_s);
        row("by name", u"甲"_s, OneCondition(tag::kRecordName, u"大于", u"12"), u"9 12.0 乙"_s);
        int number = 1;
        QString both = OneCondition(tag::kRecordName, u"大于", u"12", u"并且");
        AddQueryCondition(both, u"并且", u"房号", u"小于", u"104", number);
        row("name and field", u"甲"_s, both, u"9 12.0"_s);
        int second = 1;
        QString two = greatest;
        AddQueryCondition(two, u"或者", tag::kRecordName, u"数值最小", u"", second);
        row("two extremes", u"甲"_s, two, u"12 -3"_s);
    }

    void keywords() {
        const auto row = [this](const char* name, const QString& required, const QString& optional,
                                const QString& excluded, const QString& found) {
            const Keywords words{SplitKeywords(required), SplitKeywords(optional),
                                 SplitKeywords(excluded)};
            Check(name, FindByKeywords(*store_, kFile, u""_s, words).join(u' '), found);
        };
        row("none", u""_s, u""_s, u""_s, u"9 12 007 12.0 乙 -3 500"_s);
        row("all of two", u"103,海景"_s, u""_s, u""_s, u"500"_s);
        row("any of two", u""_s, u"101, 105"_s, u""_s, u"12 -3"_s);
        row("must and any", u"房号"_s, u"103,"_s, u""_s, u"12.0 500"_s);
        row("excluded", u""_s, u"103"_s, u"吸烟"_s, u"12.0"_s);
        row("any that nobody holds", u"房号"_s, u"999"_s, u""_s, u""_s);
    }

private:
    QTemporaryDir folder_;
    std::unique_ptr<Store> store_;
};

HOTEL_TEST(SearchTest)

#include "test_search.moc"
