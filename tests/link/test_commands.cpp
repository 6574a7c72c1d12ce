#include <QTest>

#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/login_digest.h"
#include "tests/hotel_test.h"
#include "tests/link/scripted_peer.h"

using namespace hotel;

namespace {

// A call, the bytes of its request (but the sequence field), an answer and what the call makes of it.
struct Case {
    const char* name;
    std::function<QVariant()> call;
    QStringList requests; // "/" stands for CR LF
    QString answer;
    QVariant result;
};

const QString kYes = u"<SUCCESS>"_s;
const QString kNo = u"<ERROR>没有登录</ERROR>"_s;

QString Wire(QString text) {
    return text.replace(u'|', kCrLf);
}

const QList<Case>& Cases() {
    static const QList<Case> cases{
        {"create file",
         [] { return DbCreateFile(u"a\\B.qvr"); },
         {u"<命令>创建数据库</命令>|<库文件名>a\\B.qvr</库文件名>|<初始值></初始值>|"_s},
         kYes,
         0},
        {"create project trims",
         [] { return DbCreateProject(u" f ", u"　项\t", u" v "); },
         {u"<命令>创建项目</命令>|<库文件名>f</库文件名>|<项目名>项</项目名>|<初始值> v </初始值>"_s},
         kYes,
         0},
        {"delete project refused",
         [] { return DbDeleteProject(u"f\r\n", u" p"); },
         {u"<命令>删除项目</命令>|<库文件名>f</库文件名>|<项目名>p</项目名>|"_s},
         kNo,
         -1},
        {"modify record strips blanks only of the record",
         [] { return DbModifyRecord(u" f", u"p ", u" \t8101 ", u" <房态>散客</房态> "); },
         {u"<命令>修改记录</命令>|<库文件名>f</库文件名>|<项目名>p</项目名>|<记录>\t8101</记录>|"
          "<记录值> <房态>散客</房态> </记录值>|"_s},
         kYes,
         0},
        {"modify record without a name",
         [] { return DbModifyRecord(u"f", u"p", u"", u"v"); },
         {},
         kNo,
         0},
        {"create record",
         [] { return DbCreateRecord(u"f", u"p", u"r", u"v"); },
         {u"<命令>创建记录</命令>|<库文件名>f</库文件名>|<项目名>p</项目名>|<记录>r</记录>|"
          "<记录值>v</记录值>|"_s},
         u""_s + kNo,
         -1},
        {"delete record",
         [] { return DbDeleteRecord(u"f", u"p", u" r"); },
         {u"<命令>删除记录</命令>|<库文件名>f</库文件名>|<项目名>p</项目名>|<记录>r</记录>|"_s},
         kYes,
         0},
        {"read record as given",
         [] { return DbReadRecord(u" f", u"p ", u"r"); },
         {u"<命令>读取记录</命令>|<库文件名> f</库文件名>|<项目名>p </项目名>|<记录>r</记录>|"_s},
         u"<r><房态>散客</房态></r>"_s,
         u"<房态>散客</房态>"_s},
        {"read empty record",
         [] { return DbReadRecord(u"f", u"p", u"r"); },
         {u"<命令>读取记录</命令>|<库文件名>f</库文件名>|<项目名>p</项目名>|<记录>r</记录>|"_s},
         u"<r></r>"_s,
         u"<r></r>"_s},
        {"read refused",
         [] { return DbReadRecord(u"f", u"", u"r"); },
         {u"<命令>读取记录</命令>|<库文件名>f</库文件名>|<项目名></项目名>|<记录>r</记录>|"_s},
         kNo,
         kNo},
        {"check file",
         [] { return DbCheckFile(u"f", kFileStamp); },
         {u"<命令>检查数据库</命令>|<库文件名>f</库文件名>|<功能码>6</功能码>|"_s},
         u"<检查结果>2006</检查结果>"_s,
         u"2006"_s},
        {"check file without a result",
         [] { return DbCheckFile(u"f", kFileExists); },
         {u"<命令>检查数据库</命令>|<库文件名>f</库文件名>|<功能码>0</功能码>|"_s},
         kNo,
         u"-1"_s},
        {"server's date",
         [] { return DbServerDate(); },
         {u"<命令>读取日期</命令>|"_s},
         u"<当前日期>2006-04-12</当前日期>"_s,
         u"2006-04-12"_s},
        {"server's time",
         [] { return DbServerTime(); },
         {u"<命令>读取时间</命令>|"_s},
         u"<当前时间>10:00:00</当前时间>"_s,
         u"10:00:00"_s},
        {"no date", [] { return DbServerDate(); }, {u"<命令>读取日期</命令>|"_s}, kNo, u""_s},
        {"user file",
         [] { return DbUserFileName(); },
         {u"<命令>获取用户文件名</命令>|"_s},
         u"<用户文件名>User.QVR</用户文件名>"_s,
         u"User.QVR"_s},
        {"project list",
         [] { return DbProjectList(u"f", 1); },
         {u"<命令>项目清单</命令>|<库文件名>f</库文件名>"_s},
         u"<项目清单>|a|</项目清单>"_s,
         u"a"_s},
        {"record list",
         [] { return DbRecordList(u"f", u"p", 1); },
         {u"<命令>记录清单</命令>|<库文件名>f</库文件名><项目名>p</项目名>"_s},
         u"<记录清单>|a|</记录清单>"_s,
         u"a"_s},
        {"file list",
         [] { return DbFileList(u"照片", u"", 1); },
         {u"<命令>数据库清单</命令>|<路径名>照片</路径名><库文件说明></库文件说明>"_s},
         u"<文件清单>|a|</文件清单>"_s,
         u"a"_s},
        {"user list",
         [] { return DbUserList(1); },
         {u"<命令>用户清单</命令>"_s},
         u"<记录清单>|ADMIN|</记录清单>"_s,
         u"ADMIN"_s},
        {"find by all keywords",
         [] { return DbFindRecords(u"f", u"p", u"a", u"b,c", u"d", 1); },
         {u"<命令>查找记录</命令>|<库文件名>f</库文件名><项目名>p</项目名><记录必选项>a</"
          u"记录必选项>"
          "<记录任选项>b,c</记录任选项><记录排除项>d</记录排除项>"_s},
         u"<记录清单>|x|</记录清单>"_s,
         u"x"_s},
        {"find by one keyword",
         [] { return DbFindRecords(u"f", u"", u"", u"b", u"", 1); },
         {u"<命令>查找记录</命令>|<库文件名>f</库文件名><记录任选项>b</记录任选项>"_s},
         u"<记录清单>|x|</记录清单>"_s,
         u"x"_s},
        {"find by conditions asks for the file first",
         [] { return DbFieldFind(u" f"_s, u"p "_s, u"<记录查询条件>\r\n</记录查询条件>", 1); },
         {u"<命令>检查数据库</命令>|<库文件名>f</库文件名>|<功能码>0</功能码>|"_s,
          u"<命令>字段查找</命令>|<库文件名>f</库文件名><项目名>p</项目名><记录查询条件>|"
          "</记录查询条件>|"_s},
         u"<检查结果>1</检查结果><记录清单>|x|</记录清单>"_s,
         u"x"_s},
        {"find in no file",
         [] { return DbFieldFind(u"f"_s, u""_s, u"c"_s, 1); },
         {u"<命令>检查数据库</命令>|<库文件名>f</库文件名>|<功能码>0</功能码>|"_s},
         u"<检查结果>-1</检查结果><记录清单>|x|</记录清单>"_s,
         u""_s},
        {"buffered read",
         [] { return DbReadRecordBuffered(u" f", u"p ", u" r "); },
         {u"<命令>缓冲读取记录</命令>|<库文件名>f</库文件名>|<项目名>p</项目名>|<记录>r</记录>|"_s},
         u"<r>1</r>|<s>2</s>"_s,
         u"1"_s},
        {"buffered read of nothing",
         [] { return DbReadRecordBuffered(u"f", u"p", u"r"); },
         {u"<命令>缓冲读取记录</命令>|<库文件名>f</库文件名>|<项目名>p</项目名>|<记录>r</记录>|"_s},
         kNo,
         u""_s},
        {"buffered read of a whole project",
         [] { return DbReadRecordBuffered(u"f", u"p", u" "); },
         {u"<命令>读取记录</命令>|<库文件名>f</库文件名>|<项目名>p</项目名>|<记录> </记录>|"_s},
         kNo,
         kNo},
        {"cached read names no project",
         [] { return DbReadCached(u"f", u"r", 10); },
         {u"<命令>读取记录</命令>|<库文件名>f</库文件名>|<记录>r</记录>|"_s,
          u"<命令>检查数据库</命令>|<库文件名>f</库文件名>|<功能码>6</功能码>|"_s},
         u"<r>1</r>"_s,
         u"1"_s},
        {"cached read of nothing",
         [] { return DbReadCached(u"f", u"r", 10); },
         {u"<命令>读取记录</命令>|<库文件名>f</库文件名>|<记录>r</记录>|"_s},
         kNo,
         kNo},
    };
    return cases;
}

} // namespace

class TestCommands : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void requestsAndAnswers_data() {
        QTest::addColumn<int>("index");
        for (int i = 0; i < Cases().size(); ++i)
            QTest::newRow(Cases()[i].name) << i;
    }
    void requestsAndAnswers() {
        QFETCH(int, index);
        const Case& expected = Cases()[index];
        ScriptedDesk desk;
        QVERIFY(desk.open());
        desk.peer.answerAll(Wire(expected.answer));
        QCOMPARE(expected.call(), expected.result);
        QCOMPARE(desk.peer.requests.join(u'\n'), Wire(expected.requests.join(u'\n')));
    }

    void login_data() {
        QTest::addColumn<QString>("password");
        QTest::addColumn<QString>("answer");
        QTest::addColumn<int>("result");
        QTest::newRow("right") << u"王8"_s << u"<SUCCESS>登录成功"_s << 0;
        QTest::newRow("no password") << u""_s << u"<SUCCESS>登录成功"_s << 0;
        QTest::newRow("wrong password") << u"x"_s << u"<ERROR>密码错误</ERROR>"_s << 1;
        QTest::newRow("unknown user") << u"x"_s << u"<ERROR>没有该用户</ERROR>"_s << -1;
        QTest::newRow("can't be digested") << QString(200, u'\x8FFF') << u"登录成功"_s << -1;
    }
    void login() {
        QFETCH(QString, password);
        QFETCH(QString, answer);
        QFETCH(int, result);
        const FrozenClock clock;
        ScriptedDesk desk;
        desk.link.ProdID = u"Hotel"_s;
        desk.link.HardMacNo = u"123456789012"_s;
        QCOMPARE(DbLogin(u"ADMIN"_s, password), 2);
        QVERIFY(desk.open());
        desk.peer.answerAll(answer);
        desk.link.UserName = desk.link.password = u"before"_s;
        QCOMPARE(DbLogin(u"ADMIN"_s, password), result);
        QCOMPARE(desk.link.UserName, result == 0 ? u"ADMIN"_s : QString());
        QCOMPARE(desk.link.password, result == 0 ? password : QString());

        const auto digest = LoginDigest(u"Hotel", u"ADMIN", password, u"2006-04-12");
        const QString request = u"<命令>登录</命令>|<用户名>ADMIN</用户名>|<密码>"_s +
                                digest.value_or(QString()) +
                                u"</密码>|<MAC地址>123456789012</MAC地址>|"_s;
        QCOMPARE(desk.peer.requests, digest ? QStringList{Wire(request)} : QStringList{});
    }

    void linkIsSwitched() {
        ScriptedDesk first;
        ScriptedDesk second; // current from here on
        QVERIFY(first.open());
        QVERIFY(second.open());
        first.peer.answerAll(u"<项目清单>\r\nfirst\r\n</项目清单>"_s);
        second.peer.answerAll(u"<项目清单>\r\nsecond\r\nlast\r\n</项目清单>"_s);
        QCOMPARE(DbProjectList(u"f"_s, 1), u"second"_s);
        QCOMPARE(SetLink(&first.link), &second.link);
        QCOMPARE(DbProjectList(u"f"_s, 1), u"first"_s);
        SetLink(&second.link);
        QCOMPARE(DbProjectList(u"f"_s, 2), u"last"_s);
        QCOMPARE(second.peer.requests.size(), 1);
    }
};

HOTEL_TEST(TestCommands)

#include "test_commands.moc"
