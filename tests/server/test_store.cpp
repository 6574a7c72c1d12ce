#include "server/store.h"

#include <QTemporaryDir>
#include <QTest>

#include "tests/hotel_test.h"

namespace hotel {

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

// Words of the refusal that `act` ends in; empty when it is done.
template<typename Act>
QString Refused(Act act) {
    try {
        act();
    } catch (const Refusal& refusal) {
        return refusal.words();
    }
    return {};
}

} // namespace

class StoreTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        folder_ = std::make_unique<QTemporaryDir>();
        store_ = std::make_unique<Store>(folder_->path(), Store::Use::Serve);
        store_->begin();
    }
    void cleanup() { store_.reset(); }

    void wholeProjects_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("readBack");
        QTest::newRow("fields in their order")
            << u"<乙>2</乙>\r\n<甲>1</甲>"_s << u"<乙>2</乙>\r\n<甲>1</甲>"_s;
        QTest::newRow("no line ends") << u"<a>1</a><b>2</b>"_s << u"<a>1</a>\r\n<b>2</b>"_s;
        QTest::newRow("text outside the fields") << u"x<a>1</a>y\r\n"_s << u"<a>1</a>"_s;
        QTest::newRow("empty value") << u"<a></a>"_s << u"<a></a>"_s;
        QTest::newRow("nested") << u"<a><b>1</b>\r\n<b>2</b></a>"_s
                                << u"<a><b>1</b>\r\n<b>2</b></a>"_s;
        QTest::newRow("blanks around a name") << u"< a >1</ a ><b>2</b>"_s << u"<b>2</b>"_s;
        QTest::newRow("a name twice") << u"<a>1</a><b>2</b><a>3</a>"_s << u"<a>3</a>\r\n<b>2</b>"_s;
        QTest::newRow("never closed") << u"<a /><b>2</b></c>"_s << u"<b>2</b>"_s;
        QTest::newRow("empty") << u""_s << u""_s;
        QTest::newRow("odd characters") << u"<a>\t\x01€'\";--%</a>"_s << u"<a>\t\x01€'\";--%</a>"_s;
    }
    void wholeProjects() {
        QFETCH(QString, text);
        store_->writeProject(kFile, kProject, u"<old>1</old>\r\n<a>0</a>");
        store_->writeProject(kFile, kProject, text);
        QTEST(Whole(*store_), "readBack");
        reopen();
        QTEST(Whole(*store_), "readBack");
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

    // Of many records only the neighbours in number are looked at, wherever they stand.
    void extremes_data() {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QString>("greatest");
        QTest::addColumn<QString>("least");
        QTest::addColumn<QString>("last");
        QTest::addColumn<QString>("first");
        QTest::newRow("numbers") << QStringList{u"9"_s, u"10"_s, u"2"_s} << u"10"_s << u"2"_s
                                 << u"9"_s << u"10"_s;
        QTest::newRow("the first of equals")
            << QStringList{u"7"_s, u"007"_s, u"7.0"_s} << u"7"_s << u"7"_s << u"7.0"_s << u"007"_s;
        QTest::newRow("texts count as 0")
            << QStringList{u"甲"_s, u"-1"_s, u"乙"_s} << u"甲"_s << u"-1"_s << u"甲"_s << u"-1"_s;
        QTest::newRow("folio numbers")
            << QStringList{u"260305100000"_s, u"260305095959"_s} << u"260305100000"_s
            << u"260305095959"_s << u"260305100000"_s << u"260305095959"_s;
    }
    void extremes() {
        QFETCH(QStringList, names);
        for (const QString& name : names)
            store_->write(kFile, kProject, name, u"v"_s);
        store_->write(kFile, u"other"_s, u"99999999999999"_s, u"v"_s);
        const auto holder = [&](Store::Extreme extreme) {
            return store_->extremeName(kFile, kProject, extreme).value_or(QString());
        };
        QTEST(holder(Store::Extreme::GreatestNumber), "greatest");
        QTEST(holder(Store::Extreme::LeastNumber), "least");
        QTEST(holder(Store::Extreme::LastText), "last");
        QTEST(holder(Store::Extreme::FirstText), "first");
    }

    void blocks() {
        for (int i = 0; i < 10; ++i)
            store_->write(kFile, kProject, QString::number(i), u"v"_s);
        store_->write(kFile, u"next"_s, u"10"_s, u"v"_s);
        const auto names = [&](const QString& from, int count) {
            QString joined;
            for (const NamedText& record : store_->readBlock(kFile, kProject, from, count))
                joined += record.name;
            return joined;
        };
        QCOMPARE(names(u"3"_s, 4), u"3456"_s);
        QCOMPARE(names(u"8"_s, 4), u"89"_s);
        QCOMPARE(names(u"x"_s, 4), u""_s);
    }

    void files() {
        const auto path = [](const char16_t* text) { return *ParseFilePath(QStringView(text)); };
        const auto folder = [](const char16_t* text) {
            return *ParseFolderPath(QStringView(text));
        };
        store_->write(path(u"Kqxx\\2604\\260401.qvr"), u"p"_s, u"r"_s, u"1"_s);
        store_->write(path(u"KQXX\\2605\\260501.QVR"), u"p"_s, u"r"_s, u"2"_s);
        store_->createDatabase(path(u"kqxx\\B.qvr"));
        store_->createDatabase(path(u"kqxx\\a.qvr"));
        store_->createDatabase(path(u"kqxx2\\c.qvr"));
        store_->writeUpload(path(u"kqxx\\x.jpg"), QByteArray("\0\xff", 2));
        QCOMPARE(store_->list(folder(u"Kqxx")).files,
                 (QStringList{u"a.qvr"_s, u"B.qvr"_s, u"x.jpg"_s}));
        QCOMPARE(store_->list(folder(u"kqxx\\")).folders, (QStringList{u"2604"_s, u"2605"_s}));
        QCOMPARE(store_->list(folder(u"")).folders, (QStringList{u"Kqxx"_s, u"kqxx2"_s}));
        QCOMPARE(store_->list(folder(u"kqx")).files, QStringList());

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

        QCOMPARE(Refused([&] { store_->copyFile(path(u"no.qvr"), path(u"z.qvr")); }),
                 refusal::kNoFile);
        QCOMPARE(Refused([&] { store_->copyFile(path(u"y.jpg"), path(u"moved.qvr")); }),
                 refusal::kFileExists);
        QCOMPARE(Refused([&] { store_->renameFile(path(u"y.jpg"), path(u"moved.qvr")); }),
                 refusal::kFileExists);
        QCOMPARE(Refused([&] { store_->writeUpload(path(u"moved.qvr"), "x"); }),
                 refusal::kFileExists);
        QCOMPARE(Refused([&] { store_->write(path(u"y.jpg"), u"p"_s, u"r"_s, u"1"_s); }),
                 refusal::kNotDatabase);
        store_->removeFile(path(u"y.jpg"));
        store_->removeFile(path(u"moved.qvr"));
        QCOMPARE(Refused([&] { store_->removeFile(path(u"moved.qvr")); }), refusal::kNoFile);
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
        QVERIFY_EXCEPTION_THROWN(Store(folder_->path(), Store::Use::Serve), StoreError);
        Store looking(folder_->path(), Store::Use::Look);
        store_->begin();
        store_->write(kFile, kProject, u"r"_s, u"2"_s);
        store_->commit();
        QCOMPARE(Whole(looking), u"<r>1</r>"_s);
        QVERIFY_EXCEPTION_THROWN(looking.write(kFile, kProject, u"r"_s, u"3"_s), StoreError);
        QVERIFY_EXCEPTION_THROWN(Store(folder_->path() + u"/none"_s, Store::Use::Look), StoreError);
    }

    void checkSeesDamage_data() {
        QTest::addColumn<QString>("damage");
        QTest::newRow("record without project") << u"DELETE FROM project"_s;
        QTest::newRow("project without file") << u"DELETE FROM file WHERE kind = 1"_s;
        QTest::newRow("upload without file") << u"DELETE FROM file WHERE kind = 2"_s;
        QTest::newRow("file without content") << u"DELETE FROM upload"_s;
        QTest::newRow("wrong key") << u"UPDATE file SET path = 'x' WHERE kind = 1"_s;
        QTest::newRow("wrong number") << u"UPDATE record SET number = 8"_s;
        QTest::newRow("record in another's place") << u"UPDATE record SET id = 1"_s;
        QTest::newRow("a name that can't be") << u"UPDATE record SET name = '7<'"_s;
    }
    void checkSeesDamage() {
        QFETCH(QString, damage);
        store_->write(kFile, kProject, u"7"_s, u"1"_s);
        store_->writeUpload(*ParseFilePath(u"a.jpg"), "x");
        store_->commit();
        store_.reset();
        {
            QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"damage"_s);
            database.setDatabaseName(folder_->filePath(u"store.db"_s));
            QVERIFY(database.open());
            QSqlQuery query(database);
            QVERIFY(query.exec(damage));
            QVERIFY(query.numRowsAffected() > 0);
        }
        QSqlDatabase::removeDatabase(u"damage"_s);
        QVERIFY(!Store(folder_->path(), Store::Use::Look).check().isEmpty());
    }

private:
    void reopen() {
        store_->commit();
        store_.reset();
        store_ = std::make_unique<Store>(folder_->path(), Store::Use::Serve);
        store_->begin();
    }

    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<Store> store_;
};

HOTEL_TEST(StoreTest)

} // namespace hotel

#include "test_store.moc"
