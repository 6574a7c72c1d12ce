#include "link/serv_api.h"
#include "tests/hotel_test.h"
#include "tests/link/scripted_peer.h"

using namespace hotel;

namespace {

struct List {
    const char* name;
    QString tag;
    int limit;
    int requests; // a fetch costs
    std::function<QString(const QString& argument, int n)> entry;
};

const QList<List>& Lists() {
    static const QList<List> lists{
        {"projects", u"项目清单"_s, 3000, 1,
         [](const QString& file, int n) { return DbProjectList(file, n); }},
        {"files", u"文件清单"_s, 3000, 1,
         [](const QString& path, int n) { return DbFileList(path, u"d"_s, n); }},
        {"records", u"记录清单"_s, 32000, 1,
         [](const QString& project, int n) { return DbRecordList(u"f"_s, project, n); }},
        {"found by conditions", u"记录清单"_s, 32000, 2,
         [](const QString& text, int n) { return DbFieldFind(u"f"_s, u"p"_s, text, n); }},
        {"found by keywords", u"记录清单"_s, 32000, 1,
         [](const QString& words, int n) { return DbFindRecords(u"f", u"p", words, u"", u"", n); }},
        {"users", u"记录清单"_s, 1024, 1, [](const QString&, int n) { return DbUserList(n); }},
    };
    return lists;
}

constexpr int kComparesArguments = 4; // so many of the lists, from the first

QString Answer(const QString& tag, const QStringList& lines) {
    return u"<检查结果>1</检查结果><%1>\r\n"_s.arg(tag) + lines.join(kCrLf) +
           u"\r\n</%1>"_s.arg(tag);
}

} // namespace

class TestLists : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void fetchedOnceAWalk() {
        for (const List& list : Lists()) {
            ScriptedDesk desk;
            desk.peer.answerAll(Answer(list.tag, {u"a"_s, u"b"_s, u"c"_s}));
            QStringList walk;
            for (int n = 1; n <= 4; ++n)
                walk += list.entry(u"x"_s, n);
            QCOMPARE(walk, QStringList({u"a"_s, u"b"_s, u"c"_s, u""_s}));
            QCOMPARE(desk.peer.requests.size(), list.requests);

            desk.peer.answerAll(Answer(list.tag, {u"d"_s, u"e"_s}));
            QCOMPARE(list.entry(u"x"_s, 1), u"d"_s); // the first is always fetched
            const bool compares = &list - Lists().data() < kComparesArguments;
            desk.peer.answerAll(Answer(list.tag, {u"f"_s, u"g"_s}));
            QCOMPARE(list.entry(u"y"_s, 2), compares ? u"g"_s : u"e"_s);
            QCOMPARE(list.entry(u"y"_s, 9), u""_s);
            QCOMPARE(desk.peer.requests.size(), (compares ? 3 : 2) * list.requests);
        }
    }

    void failedFetchIsTriedAgain() {
        for (const List& list : Lists()) {
            ScriptedDesk desk;
            desk.peer.answerAll(Answer(list.tag, {u"a"_s, u"b"_s}));
            QCOMPARE(list.entry(u"x"_s, 1), u"a"_s);
            desk.peer.answerAll(u"<ERROR>没有登录</ERROR>"_s);
            QCOMPARE(list.entry(u"x"_s, 1), u""_s);
            desk.peer.answerAll(Answer(list.tag, {u"a"_s, u"b"_s}));
            QCOMPARE(list.entry(u"x"_s, 2), u"b"_s);
            QCOMPARE(list.entry(u"x"_s, 0), u""_s);
            QCOMPARE(list.entry(u"x"_s, -1), u""_s);
        }
    }

    void limit() {
        for (const List& list : Lists()) {
            ScriptedDesk desk;
            QStringList lines;
            for (int n = 1; n <= list.limit + 1; ++n)
                lines += u"记%1"_s.arg(n);
            desk.peer.answerAll(Answer(list.tag, lines));
            QCOMPARE(list.entry(u"x"_s, 1), lines.first());
            QCOMPARE(list.entry(u"x"_s, list.limit), lines[list.limit - 1]);
            QCOMPARE(list.entry(u"x"_s, list.limit + 1), u""_s);
        }
    }

    void linesOfTheAnswer() {
        const auto row = [](const char* name, const QString& answer, const QString& entries) {
            ScriptedDesk desk;
            desk.peer.answerAll(answer);
            QStringList read;
            for (int n = 1; n < 5; ++n)
                read += DbRecordList(u"f"_s, u"p"_s, n);
            read.removeAll(QString());
            Check(name, read.join(u' '), entries);
        };
        row("ordinary", u"<记录清单>\r\na\r\nb\r\n</记录清单>"_s, u"a b"_s);
        row("text ahead", u"x\r\n<记录清单>a\r\nb\r\n</记录清单>"_s, u"a b"_s);
        row("empty lines", u"<记录清单>\r\n\r\na\r\n\r\n\r\nb\r\n</记录清单>\r\n"_s, u"a b"_s);
        row("closing tag in a line", u"<记录清单>\r\na\r\nb</记录清单>\r\nc\r\n"_s, u"a"_s);
        row("no line end at the last", u"<记录清单>\r\na\r\nb"_s, u"a"_s);
        row("lone line ends", u"<记录清单>\r\na\nb\rc\r\n</记录清单>"_s, u"a\nb\rc"_s);
        row("no list", u"a\r\nb\r\n"_s, u""_s);
        row("other list", u"<文件清单>\r\na\r\n</文件清单>"_s, u""_s);
        row("tag cut short", u"<记录清单"_s, u""_s);
    }
};

HOTEL_TEST(TestLists)

#include "test_lists.moc"
