#include "record/code_page.h"
#include "record/conditions.h"
#include "server/search.h"
#include "server/store.h"
#include "tests/hotel_test.h"
#include "tests/select_records.h"
#include "tests/server/test_place.h"

using namespace hotel;

namespace {

const StorePath kFile = *ParseFilePath(u"QVR\\Test.QVR");
const QString kProject = u"项目"_s;

QString Whole(Store& store, const QString& project = kProject) {
    return store.readProject(kFile, project).value_or(u"none"_s);
}

QStringList Names(Store& store, const QString& project) {
    QStringList names;
    store.walk(kFile, project, false, [&](const QString& name, const QString&) { names += name; });
    return names;
}

} // namespace

class StoreTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        store_.reset();
        place_ = std::make_unique<TestPlace>();
        store_ = std::make_unique<Store>(place_->name(), Store::Use::Serve);
        store_->begin();
    }
    void cleanup() { store_.reset(); }

    void wholeProjects() {
        const auto row = [this](const char* name, const QString& text, const QString& readBack) {
            init();
            store_->writeProject(kFile, kProject, u"<old>1</old>\r\n<a>0</a>");
            store_->writeProject(kFile, kProject, text);
            Check(name, Whole(*store_), readBack);
            reopen();
            Check(name, Whole(*store_), readBack);
        };
        row("fields in their order", u"<乙>2</乙>\r\n<甲>1</甲>"_s, u"<乙>2</乙>\r\n<甲>1</甲>"_s);
        row("no line ends", u"<a>1</a><b>2</b>"_s, u"<a>1</a>\r\n<b>2</b>"_s);
        row("text outside the fields", u"x<a>1</a>y\r\n"_s, u"<a>1</a>"_s);
        row("empty value", u"<a></a>"_s, u"<a></a>"_s);
        row("nested", u"<a><b>1</b>\r\n<b>2</b></a>"_s, u"<a><b>1</b>\r\n<b>2</b></a>"_s);
        row("blanks around a name", u"< a >1</ a ><b>2</b>"_s, u"<b>2</b>"_s);
        row("a name twice", u"<a>1</a><b>2</b><a>3</a>"_s, u"<a>3</a>\r\n<b>2</b>"_s);
        row("never closed", u"<a /><b>2</b></c>"_s, u"<b>2</b>"_s);
        row("empty", u""_s, u""_s);
        row("odd characters", u"<a>\t\x01€'\";--%</a>"_s, u"<a>\t\x01€'\";--%</a>"_s);
    }

    // Every character that a workstation can send comes back, in values and, where they may stand, in names.
    void theWholeCodePage() {
        QString all;
        for (int code = 0; code < 0x10000; ++code)
            if (code < 0x80 || CodePageValue(char16_t(code)) != u'?')
                all += QChar(char16_t(code));
        store_->write(kFile, kProject, u"1"_s, all);
        for (qsizetype at = 0x80; at < all.size(); at += 500)
            store_->write(kFile, u"names"_s,
                          all.sliced(at).first(qMin<qsizetype>(500, all.size() - at)), u""_s);
        const QStringList names = Names(*store_, u"names"_s);
        reopen();
        QCOMPARE(store_->read(kFile, kProject, u"1"_s), all);
        QCOMPARE(Names(*store_, u"names"_s), names);
        QCOMPARE(names.join(QString()), all.sliced(0x80));
    }

    void changingKeepsThePlace() {
        for (const QString& name : {u"3"_s, u"1"_s, u"2"_s})
            store_->write(kFile, kProject, name, u"v"_s);
        store_->write(kFile, kProject, u"1"_s, u""_s);
        store_->remove(kFile, kProject, u"3"_s);
        store_->write(kFile, kProject, u"3"_s, u"new"_s);
        QCOMPARE(Whole(*store_), u"<1></1>\r\n<2>v</2>\r\n<3>new</3>"_s);
        reopen();
        store_->write(kFile, kProject, u"0"_s, u"x"_s);
        QCOMPARE(Names(*store_, kProject), (QStringList{u"1"_s, u"2"_s, u"3"_s, u"0"_s}));
    }

    void projectsStandInTheirOrder() {
        store_->write(kFile, u"乙"_s, u"r"_s, u"1"_s);
        store_->write(kFile, u"甲"_s, u"r"_s, u"2"_s);
        store_->write(kFile, u"丙"_s, u"s"_s, u"3"_s);
        store_->writeProject(kFile, u"乙"_s, u"");
        QCOMPARE(store_->projects(kFile), (QStringList{u"乙"_s, u"甲"_s, u"丙"_s}));
        QCOMPARE(store_->readAnywhere(kFile, u"r"_s), u"2"_s);
        QCOMPARE(Names(*store_, u""_s), (QStringList{u"r"_s, u"s"_s}));
        reopen();
        QCOMPARE(store_->projects(kFile), (QStringList{u"乙"_s, u"甲"_s, u"丙"_s}));
        store_->removeProject(kFile, u"甲"_s);
        QCOMPARE(store_->readAnywhere(kFile, u"r"_s), std::optional<QString>());
        QVERIFY(store_->check().isEmpty());
    }

    void files() {
        const auto path = [](const char16_t* text) { return *ParseFilePath(QStringView(text)); };
        store_->write(path(u"Kqxx\\2604\\260401.qvr"), u"p"_s, u"r"_s, u"1"_s);
        store_->write(path(u"KQXX\\2605\\260501.QVR"), u"p"_s, u"r"_s, u"2"_s);
        store_->createDatabase(path(u"kqxx2\\c.qvr"));
        store_->writeUpload(path(u"kqxx\\x.jpg"), QByteArray("\0\xff", 2));
        QCOMPARE(store_->list(*ParseFolderPath(u"kqxx\\")).files, QStringList{u"x.jpg"_s});
        QCOMPARE(store_->list(*ParseFolderPath(u"")).folders, (QStringList{u"Kqxx"_s, u"kqxx2"_s}));

        store_->copyFile(path(u"kqxx\\2604\\260401.qvr"), path(u"copy.qvr"));
        store_->write(path(u"copy.qvr"), u"p"_s, u"s"_s, u"3"_s);
        QCOMPARE(store_->readProject(path(u"copy.qvr"), u"p"_s), u"<r>1</r>\r\n<s>3</s>"_s);
        QCOMPARE(store_->readProject(path(u"kqxx\\2604\\260401.qvr"), u"p"_s), u"<r>1</r>"_s);
        store_->copyFile(path(u"kqxx\\x.jpg"), path(u"y.jpg"));
        QCOMPARE(store_->upload(path(u"y.jpg")), QByteArray("\0\xff", 2));
        store_->renameFile(path(u"copy.qvr"), path(u"COPY.QVR"));
        store_->renameFile(path(u"copy.qvr"), path(u"moved.qvr"));
        QCOMPARE(store_->read(path(u"moved.qvr"), u"p"_s, u"s"_s), u"3"_s);
        QVERIFY(store_->kind(path(u"copy.qvr")) == Store::Kind::Missing);
        QVERIFY(store_->check().isEmpty());

        store_->removeFile(path(u"y.jpg"));
        store_->removeFile(path(u"moved.qvr"));
        QCOMPARE(store_->projects(path(u"moved.qvr")), QStringList());
        reopen();
        QVERIFY(store_->kind(path(u"y.jpg")) == Store::Kind::Missing);
        QCOMPARE(store_->upload(path(u"kqxx\\x.jpg")), QByteArray("\0\xff", 2));
        QVERIFY(store_->check().isEmpty());
    }

    // Each change gives the file a stamp that it never had; other files keep theirs.
    void stamps() {
        const StorePath other = *ParseFilePath(u"other.qvr");
        store_->createDatabase(other);
        store_->write(kFile, kProject, u"r"_s, u"1"_s);
        const QString otherStamp = store_->stamp(other);
        QStringList stamps = {store_->stamp(kFile)};
        const auto changes = [&] {
            const QString stamp = store_->stamp(kFile);
            const bool isNew = !stamps.contains(stamp);
            stamps += stamp;
            return isNew && stamp.size() == 16;
        };
        store_->write(kFile, kProject, u"r"_s, u"2"_s);
        QVERIFY(changes());
        store_->remove(kFile, kProject, u"r"_s);
        QVERIFY(changes());
        store_->writeProject(kFile, kProject, u"<a>1</a>");
        QVERIFY(changes());
        store_->removeProject(kFile, kProject);
        QVERIFY(changes());
        store_->removeFile(kFile);
        store_->createDatabase(kFile);
        QVERIFY(changes());
        store_->renameFile(kFile, *ParseFilePath(u"x.qvr"));
        store_->renameFile(*ParseFilePath(u"x.qvr"), kFile);
        QVERIFY(changes());
        QCOMPARE(store_->stamp(other), otherStamp);
        store_->read(kFile, kProject, u"r"_s);
        store_->createDatabase(kFile);
        QVERIFY(!changes());
    }

    // After a rollback the store knows nothing of what was undone, and goes on.
    void rollback() {
        store_->write(kFile, kProject, u"1"_s, u"old"_s);
        store_->commit();
        const QString stamp = store_->stamp(kFile);
        const StorePath made = *ParseFilePath(u"made.qvr");

        store_->begin();
        store_->write(kFile, kProject, u"1"_s, u"new"_s);
        store_->write(kFile, kProject, u"2"_s, u"new"_s);
        store_->write(kFile, u"made"_s, u"1"_s, u"new"_s);
        store_->write(made, kProject, u"1"_s, u"new"_s);
        store_->renameFile(kFile, *ParseFilePath(u"renamed.qvr"));
        store_->removeFile(made);
        store_->rollback();

        QCOMPARE(store_->stamp(kFile), stamp);
        QCOMPARE(store_->projects(kFile), QStringList{kProject});
        QCOMPARE(Whole(*store_), u"<1>old</1>"_s);
        QVERIFY(store_->kind(made) == Store::Kind::Missing);
        QVERIFY(store_->kind(*ParseFilePath(u"renamed.qvr")) == Store::Kind::Missing);
        store_->begin();
        store_->write(kFile, u"made"_s, u"1"_s, u"again"_s);
        store_->write(kFile, kProject, u"2"_s, u"again"_s);
        reopen();
        QCOMPARE(Whole(*store_), u"<1>old</1>\r\n<2>again</2>"_s);
        QVERIFY(store_->check().isEmpty());
    }

    void oneServesOthersLook() {
        store_->write(kFile, kProject, u"r"_s, u"1"_s);
        store_->commit();
        if (!TestPlace::isShared())
            QVERIFY_EXCEPTION_THROWN(Store(place_->name(), Store::Use::Serve), StoreError);
        Store looking(place_->name(), Store::Use::Look);
        store_->begin();
        store_->write(kFile, kProject, u"r"_s, u"2"_s);
        store_->commit();
        QCOMPARE(Whole(looking), u"<r>1</r>"_s);
        QVERIFY_EXCEPTION_THROWN(looking.write(kFile, kProject, u"r"_s, u"3"_s), StoreError);
        QVERIFY_EXCEPTION_THROWN(Store(TestPlace::missing(), Store::Use::Look), StoreError);
    }

    void checkSeesDamage() {
        for (const QString& damage :
             {u"DELETE FROM project"_s, u"DELETE FROM file WHERE kind = 1"_s,
              u"DELETE FROM file WHERE kind = 2"_s, u"DELETE FROM upload"_s,
              u"UPDATE file SET path = 'x' WHERE kind = 1"_s, u"UPDATE record SET number = 8"_s,
              u"UPDATE record SET id = 1"_s, u"UPDATE record SET name = '7<'"_s}) {
            init();
            store_->write(kFile, kProject, u"7"_s, u"1"_s);
            store_->writeUpload(*ParseFilePath(u"a.jpg"), "x");
            store_->commit();
            store_.reset();
            QVERIFY(place_->execute(damage) > 0);
            QVERIFY2(!Store(place_->name(), Store::Use::Look).check().isEmpty(),
                     qPrintable(damage));
        }
    }

private:
    void reopen() {
        store_->commit();
        store_.reset();
        store_ = std::make_unique<Store>(place_->name(), Store::Use::Serve);
        store_->begin();
    }

    std::unique_ptr<TestPlace> place_;
    std::unique_ptr<Store> store_;
};

HOTEL_TEST(StoreTest)

namespace {

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
        store_ = std::make_unique<Store>(place_.name(), Store::Use::Serve);
        store_->begin();
        const QStringList names = {u"9"_s, u"12"_s, u"007"_s, u"12.0"_s, u"乙"_s, u"-3"_s};
        for (qsizetype i = 0; i < names.size(); ++i)
            store_->write(kFile, u"甲"_s, names[i], u"<房号>%1</房号>"_s.arg(100 + i));
        store_->write(kFile, u"丙"_s, u"500"_s, u"<房号>103</房号><备注>吸烟,海景</备注>"_s);
    }

    // The index and the scan mean the same.
    void extremesOfTheName() {
        for (const QString& op : {u"最大"_s, u"最小"_s, u"数值最大"_s, u"数值最小"_s}) {
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
    TestPlace place_;
    std::unique_ptr<Store> store_;
};

HOTEL_TEST(SearchTest)

#include "test_store.moc"
