#include "server/tree.h"

#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include "tests/hotel_test.h"

namespace hotel {

namespace {

using Tree = QMap<QString, QByteArray>; // file by its path in the tree

void WriteTree(const QString& folder, const Tree& tree) {
    for (auto file = tree.begin(); file != tree.end(); ++file) {
        const QString path = folder + u'/' + file.key();
        QDir().mkpath(QFileInfo(path).path());
        QFile written(path);
        QVERIFY(written.open(QIODevice::WriteOnly));
        written.write(*file);
    }
}

Tree ReadTree(const QString& folder) {
    Tree tree;
    QDirIterator files(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (file.open(QIODevice::ReadOnly))
            tree.insert(QDir(folder).relativeFilePath(file.fileName()), file.readAll());
    }
    return tree;
}

StorePath Path(QStringView text) {
    return *ParseFilePath(text);
}

} // namespace

class TreeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        folder_ = std::make_unique<QTemporaryDir>();
        store_ = std::make_unique<Store>(folder_->filePath(u"store"_s), Store::Use::Serve);
    }

    void roundTrip() {
        const Tree tree = {
            {u"QVR/Flmcxx.QVR/证件名称.txt"_s,
             "<内容>\n<1>身份证</1>\n<2>护照</2></内容>\n<空></空>\n"},
            {u"QVR/Flmcxx.QVR/a%2Fb.txt"_s, ""},
            {u"QVR/gzrdy.qvr/z.txt"_s, "<1>z</1>\n"},
            {u"QVR/gzrdy.qvr/a.txt"_s, "<1>a</1>\n"},
            {u"QVR/gzrdy.qvr/m.txt"_s, "<1>m</1>\n"},
            {u"QVR/gzrdy.qvr/.order"_s, "z\na\nm\n"},
            {u"Wave/成功.wav"_s, QByteArray("RIFF\0\xff\r\n", 8)},
            {u"Txt/清单.txt"_s, "just a text\r\n"},
        };
        WriteTree(folder_->filePath(u"in"_s), tree);
        QCOMPARE(ImportTree(*store_, folder_->filePath(u"in"_s)).faults, QStringList());
        QCOMPARE(store_->read(Path(u"qvr\\flmcxx.qvr"), u"证件名称"_s, u"内容"_s),
                 u"\r\n<1>身份证</1>\r\n<2>护照</2>"_s);
        QCOMPARE(store_->projects(Path(u"qvr\\gzrdy.qvr")), (QStringList{u"z"_s, u"a"_s, u"m"_s}));
        QCOMPARE(store_->upload(Path(u"wave\\成功.wav")), QByteArray("RIFF\0\xff\r\n", 8));
        QCOMPARE(ExportTree(*store_, folder_->filePath(u"out"_s)).faults, QStringList());
        QCOMPARE(ReadTree(folder_->filePath(u"out"_s)), tree);
        QCOMPARE(store_->check(), QStringList());
    }

    // A tree on top of another: same names give way, the rest is added, what is there stays.
    void oneTreeOnAnother() {
        WriteTree(folder_->filePath(u"install"_s), {{u"a.qvr/p.txt"_s, "<1>a</1><2>b</2>"},
                                                    {u"a.qvr/q.txt"_s, "<1>q</1>"},
                                                    {u"x.wav"_s, "old"}});
        WriteTree(folder_->filePath(u"demo"_s), {{u"A.QVR/p.txt"_s, "<3>c</3>\r\n<1>new</1>\r\n"},
                                                 {u"A.QVR/.hidden"_s, "rubbish"},
                                                 {u"x.wav"_s, "new"}});
        for (const QString& tree : {u"install"_s, u"demo"_s, u"demo"_s})
            QCOMPARE(ImportTree(*store_, folder_->filePath(tree)).faults, QStringList());
        QCOMPARE(store_->readProject(Path(u"a.qvr"), u"p"_s),
                 u"<1>new</1>\r\n<2>b</2>\r\n<3>c</3>"_s);
        QCOMPARE(store_->readProject(Path(u"a.qvr"), u"q"_s), u"<1>q</1>"_s);
        QCOMPARE(store_->upload(Path(u"x.wav")), QByteArray("new"));
    }

    void badTrees_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("not in UTF-8") << u"a.qvr/p.txt"_s << QByteArray("<1>\xb2\xe2</1>");
        QTest::newRow("text without fields") << u"a.qvr/p.txt"_s << QByteArray("no fields");
        QTest::newRow("a field never closed") << u"a.qvr/p.txt"_s << QByteArray("<1>a</1>\n<2>b\n");
        QTest::newRow("a stray closing tag") << u"a.qvr/p.txt"_s << QByteArray("<1>a</1></2>\n");
        QTest::newRow("a file that is no project") << u"a.qvr/p.text"_s << QByteArray("<1>a</1>");
        QTest::newRow("a folder in a database file")
            << u"a.qvr/b/p.txt"_s << QByteArray("<1>a</1>");
        QTest::newRow("an uploaded file in a database's place") << u"x.qvr"_s << QByteArray("x");
    }
    void badTrees() {
        QFETCH(QString, file);
        QFETCH(QByteArray, content);
        store_->begin();
        store_->createDatabase(Path(u"x.qvr"));
        store_->commit();
        WriteTree(folder_->filePath(u"in"_s), {{u"0.qvr/good.txt"_s, "<1>1</1>"}, {file, content}});
        const TreeReport report = ImportTree(*store_, folder_->filePath(u"in"_s));
        QCOMPARE(report.faults.size(), 1);
        QVERIFY2(report.faults.first().contains(file.section(u'/', 0, 1)),
                 qUtf8Printable(report.faults.first()));
        QVERIFY(store_->kind(Path(u"0.qvr")) == Store::Kind::Missing);
        QVERIFY(store_->kind(Path(u"a.qvr")) == Store::Kind::Missing);
    }

    void exportTellsWhatWouldChange_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("value");
        QTest::addColumn<bool>("changes");
        QTest::newRow("line ends") << u"1"_s << u"<a>1</a>\r\n<b>2</b>\r\n"_s << false;
        QTest::newRow("a lone CR") << u"1"_s << u"a\rb"_s << false;
        QTest::newRow("a lone LF") << u"1"_s << u"a\nb"_s << true;
        QTest::newRow("a CR ahead of a line end") << u"1"_s << u"a\r\r\nb"_s << true;
        QTest::newRow("its own closing tag") << u"1"_s << u"a</1>b"_s << true;
        QTest::newRow("a name that is trimmed") << u" 1"_s << u""_s << true;
    }
    void exportTellsWhatWouldChange() {
        QFETCH(QString, name);
        QFETCH(QString, value);
        store_->begin();
        store_->write(Path(u"a.qvr"), u"p"_s, u"0"_s, u"good"_s);
        store_->write(Path(u"a.qvr"), u"p"_s, name, value);
        store_->commit();
        QTEST(!ExportTree(*store_, folder_->filePath(u"out"_s)).faults.isEmpty(), "changes");
    }

    void exportTellsOfPlaces_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("isUpload");
        QTest::newRow("a database file without the suffix") << u"a.dat"_s << false;
        QTest::newRow("in another's folder") << u"b.qvr\\a.qvr"_s << false;
        QTest::newRow("an uploaded file with the suffix") << u"a.qvr"_s << true;
        QTest::newRow("an uploaded file in a database's folder") << u"b.qvr\\p.txt"_s << true;
    }
    void exportTellsOfPlaces() {
        QFETCH(QString, path);
        QFETCH(bool, isUpload);
        store_->begin();
        if (isUpload)
            store_->writeUpload(Path(path), "x");
        else
            store_->write(Path(path), u"p"_s, u"1"_s, u"x"_s);
        store_->write(Path(u"good.qvr"), u"p"_s, u"1"_s, u"x"_s);
        store_->commit();
        const TreeReport report = ExportTree(*store_, folder_->filePath(u"out"_s));
        QCOMPARE(report.faults.size(), 1);
        QVERIFY(report.faults.first().startsWith(path));
        QVERIFY(QFile::exists(folder_->filePath(u"out/good.qvr/p.txt"_s)));
    }

    void oneSpellingOfAFolder() {
        store_->begin();
        store_->createDatabase(Path(u"QVR\\a.qvr"));
        store_->createDatabase(Path(u"qvr\\B.qvr"));
        store_->commit();
        ExportTree(*store_, folder_->filePath(u"out"_s));
        QCOMPARE(QDir(folder_->filePath(u"out"_s)).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
                 QStringList{u"QVR"_s});
        QVERIFY(!ExportTree(*store_, folder_->filePath(u"out"_s)).faults.isEmpty());
    }

    // The program itself: what it says, and what it ends with.
    void commandLine_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        const QString data = u"--data"_s;
        QTest::newRow("import") << QStringList{data, u"S"_s, u"import"_s, u"in"_s} << 0;
        QTest::newRow("check") << QStringList{data, u"S"_s, u"check"_s} << 0;
        QTest::newRow("export") << QStringList{data, u"S"_s, u"export"_s, u"out"_s} << 0;
        QTest::newRow("export on top") << QStringList{data, u"S"_s, u"export"_s, u"in"_s} << 1;
        QTest::newRow("no tree") << QStringList{data, u"S"_s, u"import"_s, u"none"_s} << 1;
        QTest::newRow("no store") << QStringList{data, u"none"_s, u"check"_s} << 1;
        QTest::newRow("no data folder") << QStringList{u"check"_s} << 2;
        QTest::newRow("unknown word") << QStringList{data, u"S"_s, u"repair"_s} << 2;
        QTest::newRow("too many words") << QStringList{data, u"S"_s, u"check"_s, u"in"_s} << 2;
        QTest::newRow("bad port") << QStringList{data, u"S"_s, u"--port"_s, u"70000"_s} << 2;
        QTest::newRow("bad address") << QStringList{data, u"S"_s, u"--listen"_s, u"x"_s} << 2;
    }
    void commandLine() {
        QFETCH(QStringList, arguments);
        WriteTree(folder_->filePath(u"in"_s), {{u"a.qvr/p.txt"_s, "<1>1</1>\n"}});
        { Store made(folder_->filePath(u"S"_s), Store::Use::Serve); }
        QProcess process;
        process.setWorkingDirectory(folder_->path());
        process.start(QStringLiteral(QVRD), arguments);
        QVERIFY(process.waitForFinished());
        QTEST(process.exitCode(), "exitCode");
    }

private:
    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<Store> store_;
};

HOTEL_TEST(TreeTest)

} // namespace hotel

#include "test_tree.moc"
