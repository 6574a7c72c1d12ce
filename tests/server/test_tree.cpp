#include "server/tree.h"

#include <QDirIterator>
#include <QProcess>

#include "tests/hotel_test.h"
#include "tests/server/test_place.h"
#include "tests/test_files.h"

using namespace hotel;

namespace {

using Tree = QMap<QString, QByteArray>; // file by its path in the tree

void WriteTree(const QString& folder, const Tree& tree) {
    for (auto file = tree.begin(); file != tree.end(); ++file)
        WriteBytes(folder + u'/' + file.key(), *file);
}

Tree ReadTree(const QString& folder) {
    Tree tree;
    QDirIterator files(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        tree.insert(QDir(folder).relativeFilePath(path), FileBytes(path));
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
        store_.reset();
        folder_ = std::make_unique<QTemporaryDir>();
        place_ = std::make_unique<TestPlace>();
        store_ = std::make_unique<Store>(place_->name(), Store::Use::Serve);
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
        WriteTree(folder_->filePath(u"demo"_s),
                  {{u"A.QVR/p.txt"_s, "<3>c\r\nd\n</3>\r\n<1>new</1>\r\n"},
                   {u"A.QVR/.hidden"_s, "rubbish"},
                   {u"x.wav"_s, "new"}});
        for (const QString& tree : {u"install"_s, u"demo"_s, u"demo"_s})
            QCOMPARE(ImportTree(*store_, folder_->filePath(tree)).faults, QStringList());
        QCOMPARE(store_->readProject(Path(u"a.qvr"), u"p"_s),
                 u"<1>new</1>\r\n<2>b</2>\r\n<3>c\r\nd\r\n</3>"_s);
        QCOMPARE(store_->readProject(Path(u"a.qvr"), u"q"_s), u"<1>q</1>"_s);
        QCOMPARE(store_->upload(Path(u"x.wav")), QByteArray("new"));
    }

    // Files are read in pieces of 64 KiB, which end anywhere: in a character, a line end, a tag.
    void longFiles() {
        const auto value = [](int size) {
            QString text;
            while (text.size() < size)
                text += u"中\r\n<a>é</a>"_s;
            return text.first(size)
                .replace(u"\r\n"_s, u"\n"_s)
                .replace(u"\r"_s, u""_s)
                .replace(u"\n"_s, u"\r\n"_s);
        };
        const QList<int> sizes = {0, 1, 16'000, 32'767, 65'530, 65'531, 65'532, 70'000, 400'000};
        store_->begin();
        for (qsizetype i = 0; i < sizes.size(); ++i)
            store_->write(Path(u"a.qvr"), u"p"_s, u"r%1"_s.arg(i), value(sizes[i]));
        for (int i = 0; i < 2 * kProgressStep; ++i)
            store_->write(Path(u"b.qvr"), u"p"_s, QString::number(i), u"v"_s);
        store_->commit();
        QList<qint64> told;
        const auto tell = [&told](qint64 records, const QString& file) {
            told += records;
            QCOMPARE(file, u"b.qvr"_s);
        };
        const QString whole = *store_->readProject(Path(u"a.qvr"), u"p"_s);
        QCOMPARE(ExportTree(*store_, folder_->filePath(u"out"_s), tell).faults, QStringList());
        const TestPlace place;
        Store other(place.name(), Store::Use::Serve);
        QCOMPARE(ImportTree(other, folder_->filePath(u"out"_s), tell).faults, QStringList());
        QVERIFY(other.readProject(Path(u"a.qvr"), u"p"_s) == whole);
        QCOMPARE(other.read(Path(u"b.qvr"), u"p"_s, u"99999"_s), u"v"_s);
        QCOMPARE(told, (QList<qint64>{50'000, 100'000, 50'000, 100'000}));

        for (int shift = 0; shift < 4; ++shift) { // somebody's editor ends lines with CR LF
            const QByteArray lines = QByteArray("ab\r\n").repeated(40'000);
            const QString tree = folder_->filePath(u"crlf%1"_s.arg(shift));
            WriteTree(tree, {{u"c.qvr/p.txt"_s,
                              "<1>" + QByteArray(shift, 'x') + lines + "</1>\r\n<2></2>\r\n"}});
            QCOMPARE(ImportTree(other, tree).faults, QStringList());
            QVERIFY(other.read(Path(u"c.qvr"), u"p"_s, u"1"_s) ==
                    QString(shift, u'x') + QString::fromLatin1(lines));
        }
    }

    void badTrees() {
        const auto row = [this](const char* name, const QString& file, const QByteArray& content) {
            init();
            store_->begin();
            store_->createDatabase(Path(u"x.qvr"));
            store_->commit();
            WriteTree(folder_->filePath(u"in"_s),
                      {{u"0.qvr/good.txt"_s, "<1>1</1>"}, {file, content}});
            const TreeReport report = ImportTree(*store_, folder_->filePath(u"in"_s));
            QVERIFY2(report.faults.size() == 1, name);
            QVERIFY2(report.faults.first().contains(file.section(u'/', 0, 1)),
                     qUtf8Printable(report.faults.first()));
            QVERIFY(store_->kind(Path(u"0.qvr")) == Store::Kind::Missing);
            QVERIFY(store_->kind(Path(u"a.qvr")) == Store::Kind::Missing);
        };
        row("not in UTF-8", u"a.qvr/p.txt"_s, QByteArray("<1>\xb2\xe2</1>"));
        row("text without fields", u"a.qvr/p.txt"_s, QByteArray("no fields"));
        row("a field never closed", u"a.qvr/p.txt"_s, QByteArray("<1>a</1>\n<2>b\n"));
        row("half a character", u"a.qvr/p.txt"_s, "<1>" + QByteArray(70'000, 'x') + "\xb2</1>");
        row("a name that can't be", u"a.qvr/p.txt"_s, QByteArray("<1>a</1><a\tb>1</a\tb>"));
        row("a stray closing tag", u"a.qvr/p.txt"_s, QByteArray("<1>a</1></2>\n"));
        row("a file that is no project", u"a.qvr/p.text"_s, QByteArray("<1>a</1>"));
        row("a folder in a database file", u"a.qvr/b/p.txt"_s, QByteArray("<1>a</1>"));
        row("an uploaded file in a database's place", u"x.qvr"_s, QByteArray("x"));
    }

    void exportTellsWhatWouldChange() {
        const auto row = [this](const char* why, const QString& name, const QString& value,
                                bool changes) {
            init();
            store_->begin();
            store_->write(Path(u"a.qvr"), u"p"_s, u"0"_s, u"good"_s);
            store_->write(Path(u"a.qvr"), u"p"_s, name, value);
            store_->commit();
            const TreeReport report = ExportTree(*store_, folder_->filePath(u"out"_s));
            Check(why, !report.faults.isEmpty(), changes);
        };
        row("line ends", u"1"_s, u"<a>1</a>\r\n<b>2</b>\r\n"_s, false);
        row("a lone CR", u"1"_s, u"a\rb"_s, false);
        row("a lone LF", u"1"_s, u"a\nb"_s, true);
        row("a CR ahead of a line end", u"1"_s, u"a\r\r\nb"_s, true);
        row("its own closing tag", u"1"_s, u"a</1>b"_s, true);
        row("a name that is trimmed", u" 1"_s, u""_s, true);
    }

    void exportTellsOfPlaces() {
        const auto row = [this](const char* name, const QString& path, bool isUpload) {
            init();
            store_->begin();
            if (isUpload)
                store_->writeUpload(Path(path), "x");
            else
                store_->write(Path(path), u"p"_s, u"1"_s, u"x"_s);
            store_->write(Path(u"good.qvr"), u"p"_s, u"1"_s, u"x"_s);
            store_->commit();
            const TreeReport report = ExportTree(*store_, folder_->filePath(u"out"_s));
            QVERIFY2(report.faults.size() == 1, name);
            QVERIFY(report.faults.first().startsWith(path));
            QVERIFY(QFile::exists(folder_->filePath(u"out/good.qvr/p.txt"_s)));
        };
        row("a database file without the suffix", u"a.dat"_s, false);
        row("in another's folder", u"b.qvr\\a.qvr"_s, false);
        row("an uploaded file with the suffix", u"a.qvr"_s, true);
        row("an uploaded file in a database's folder", u"b.qvr\\p.txt"_s, true);
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
    void commandLine() {
        WriteTree(folder_->filePath(u"in"_s), {{u"a.qvr/p.txt"_s, "<1>1</1>\n"}});
        const TestPlace place;
        { Store made(place.name(), Store::Use::Serve); }
        const auto row = [this, &place](const char* arguments, int exitCode) {
            QProcess process;
            process.setWorkingDirectory(folder_->path());
            QStringList words;
            for (const QString& word : QString::fromLatin1(arguments).split(u' '))
                words += word == u"STORE"  ? place.arguments()
                         : word == u"NONE" ? TestPlace::arguments(TestPlace::missing())
                                           : QStringList{word};
            process.start(QStringLiteral(QVRD), words);
            QVERIFY2(process.waitForFinished(), arguments);
            Check(arguments, process.exitCode(), exitCode);
        };
        row("STORE import in", 0);
        row("STORE check", 0);
        row("STORE export out", 0);
        row("STORE export in", 1); // on top of another tree
        row("STORE import none", 1);
        row("NONE check", 1);
        row("check", 2);
        row("STORE repair", 2);
        row("--store S check", 2);
        row("--data S --store postgresql: check", 2);
        row("STORE check in", 2);
        row("STORE --port 70000", 2);
        row("STORE --listen x", 2);
    }

private:
    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<TestPlace> place_;
    std::unique_ptr<Store> store_;
};

HOTEL_TEST(TreeTest)

#include "test_tree.moc"
