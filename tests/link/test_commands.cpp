#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/login_digest.h"
#include "tests/hotel_test.h"
#include "tests/link/scripted_peer.h"

using namespace hotel;

namespace {

const QString kYes = u"<SUCCESS>"_s;
const QString kNo = u"<ERROR>没有登录</ERROR>"_s;

QString Wire(QString text) {
    return text.replace(u'|', kCrLf);
}

// A request by its command, and what stands behind; "|" stands for CR LF.
QString Ask(const QString& command, const QString& fields) {
    return Wire(u"<命令>"_s + command + u"</命令>|"_s + fields);
}

} // namespace

class TestCommands : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // The bytes of the requests (but the sequence field), an answer, what the call makes of it, the call.
    void requestsAndAnswers() {
        const auto row = [](const char* name, const QStringList& requests, const QString& answer,
                            const QVariant& result, const std::function<QVariant()>& call) {
            ScriptedDesk desk;
            desk.peer.answerAll(Wire(answer));
            Check(name, call(), result);
            Check(name, desk.peer.requests, requests);
        };
        const QString f = u"<库文件名>f</库文件名>|"_s;
        const QString fp = f + u"<项目名>p</项目名>|"_s;
        const QString fpr = fp + u"<记录>r</记录>|"_s;
        const QString exists = Ask(u"检查数据库"_s, f + u"<功能码>0</功能码>|"_s);
        row("create file",
            {Ask(u"创建数据库"_s, u"<库文件名>a\\B.qvr</库文件名>|<初始值></初始值>|"_s)}, kYes, 0,
            [] { return DbCreateFile(u"a\\B.qvr"); });
        row("create project trims",
            {Ask(u"创建项目"_s, f + u"<项目名>项</项目名>|<初始值> v </初始值>"_s)}, kYes, 0,
            [] { return DbCreateProject(u" f ", u"　项\t", u" v "); });
        row("delete project refused", {Ask(u"删除项目"_s, fp)}, kNo, -1,
            [] { return DbDeleteProject(u"f\r\n", u" p"); });
        row("modify record strips blanks only of the record",
            {Ask(u"修改记录"_s,
                 fp + u"<记录>\t8101</记录>|<记录值> <房态>散客</房态> </记录值>|"_s)},
            kYes, 0,
            [] { return DbModifyRecord(u" f", u"p ", u" \t8101 ", u" <房态>散客</房态> "); });
        row("modify record without a name", {}, kNo, 0,
            [] { return DbModifyRecord(u"f", u"p", u"", u"v"); });
        row("create record", {Ask(u"创建记录"_s, fpr + u"<记录值>v</记录值>|"_s)}, kNo, -1,
            [] { return DbCreateRecord(u"f", u"p", u"r", u"v"); });
        row("delete record", {Ask(u"删除记录"_s, fpr)}, kYes, 0,
            [] { return DbDeleteRecord(u"f", u"p", u" r"); });
        row("read record as given",
            {Ask(u"读取记录"_s, u"<库文件名> f</库文件名>|<项目名>p </项目名>|<记录>r</记录>|"_s)},
            u"<r><房态>散客</房态></r>"_s, u"<房态>散客</房态>"_s,
            [] { return DbReadRecord(u" f", u"p ", u"r"); });
        row("read empty record", {Ask(u"读取记录"_s, fpr)}, u"<r></r>"_s, u"<r></r>"_s,
            [] { return DbReadRecord(u"f", u"p", u"r"); });
        row("read refused", {Ask(u"读取记录"_s, f + u"<项目名></项目名>|<记录>r</记录>|"_s)}, kNo,
            kNo, [] { return DbReadRecord(u"f", u"", u"r"); });
        row("check file", {Ask(u"检查数据库"_s, f + u"<功能码>6</功能码>|"_s)},
            u"<检查结果>2006</检查结果>"_s, u"2006"_s,
            [] { return DbCheckFile(u"f", kFileStamp); });
        row("check file without a result", {exists}, kNo, u"-1"_s,
            [] { return DbCheckFile(u"f", kFileExists); });
        row("server's date", {Ask(u"读取日期"_s, {})}, u"<当前日期>2006-04-12</当前日期>"_s,
            u"2006-04-12"_s, [] { return DbServerDate(); });
        row("server's time", {Ask(u"读取时间"_s, {})}, u"<当前时间>10:00:00</当前时间>"_s,
            u"10:00:00"_s, [] { return DbServerTime(); });
        row("no date", {Ask(u"读取日期"_s, {})}, kNo, u""_s, [] { return DbServerDate(); });
        row("user file", {Ask(u"获取用户文件名"_s, {})}, u"<用户文件名>User.QVR</用户文件名>"_s,
            u"User.QVR"_s, [] { return DbUserFileName(); });
        row("project list", {Ask(u"项目清单"_s, u"<库文件名>f</库文件名>"_s)},
            u"<项目清单>|a|</项目清单>"_s, u"a"_s, [] { return DbProjectList(u"f", 1); });
        row("record list", {Ask(u"记录清单"_s, u"<库文件名>f</库文件名><项目名>p</项目名>"_s)},
            u"<记录清单>|a|</记录清单>"_s, u"a"_s, [] { return DbRecordList(u"f", u"p", 1); });
        row("file list",
            {Ask(u"数据库清单"_s, u"<路径名>照片</路径名><库文件说明></库文件说明>"_s)},
            u"<文件清单>|a|</文件清单>"_s, u"a"_s, [] { return DbFileList(u"照片", u"", 1); });
        row("user list", {u"<命令>用户清单</命令>"_s}, u"<记录清单>|ADMIN|</记录清单>"_s,
            u"ADMIN"_s, [] { return DbUserList(1); });
        row("find by all keywords",
            {Ask(u"查找记录"_s,
                 u"<库文件名>f</库文件名><项目名>p</项目名><记录必选项>a</记录必选项>"
                 "<记录任选项>b,c</记录任选项><记录排除项>d</记录排除项>"_s)},
            u"<记录清单>|x|</记录清单>"_s, u"x"_s,
            [] { return DbFindRecords(u"f", u"p", u"a", u"b,c", u"d", 1); });
        row("find by one keyword",
            {Ask(u"查找记录"_s, u"<库文件名>f</库文件名><记录任选项>b</记录任选项>"_s)},
            u"<记录清单>|x|</记录清单>"_s, u"x"_s,
            [] { return DbFindRecords(u"f", u"", u"", u"b", u"", 1); });
        row("find by conditions asks for the file first",
            {exists, Ask(u"字段查找"_s, u"<库文件名>f</库文件名><项目名>p</项目名><记录查询条件>|"
                                        "</记录查询条件>|"_s)},
            u"<检查结果>1</检查结果><记录清单>|x|</记录清单>"_s, u"x"_s,
            [] { return DbFieldFind(u" f"_s, u"p "_s, u"<记录查询条件>\r\n</记录查询条件>", 1); });
        row("find in no file", {exists}, u"<检查结果>-1</检查结果><记录清单>|x|</记录清单>"_s,
            u""_s, [] { return DbFieldFind(u"f"_s, u""_s, u"c"_s, 1); });
        row("buffered read", {Ask(u"缓冲读取记录"_s, fpr)}, u"<r>1</r>|<s>2</s>"_s, u"1"_s,
            [] { return DbReadRecordBuffered(u" f", u"p ", u" r "); });
        row("buffered read of nothing", {Ask(u"缓冲读取记录"_s, fpr)}, kNo, u""_s,
            [] { return DbReadRecordBuffered(u"f", u"p", u"r"); });
        row("buffered read of a whole project", {Ask(u"读取记录"_s, fp + u"<记录> </记录>|"_s)},
            kNo, kNo, [] { return DbReadRecordBuffered(u"f", u"p", u" "); });
        row("cached read names no project",
            {Ask(u"读取记录"_s, f + u"<记录>r</记录>|"_s),
             Ask(u"检查数据库"_s, f + u"<功能码>6</功能码>|"_s)},
            u"<r>1</r>"_s, u"1"_s, [] { return DbReadCached(u"f", u"r", 10); });
        row("cached read of nothing", {Ask(u"读取记录"_s, f + u"<记录>r</记录>|"_s)}, kNo, kNo,
            [] { return DbReadCached(u"f", u"r", 10); });
    }

    void login() {
        const auto row = [](const char* name, const QString& password, const QString& answer,
                            int result) {
            const FrozenClock clock;
            ScriptedDesk desk(ScriptedDesk::Start::Closed);
            desk.link.ProdID = u"Hotel"_s;
            desk.link.HardMacNo = u"123456789012"_s;
            QCOMPARE(DbLogin(u"ADMIN"_s, password), 2);
            QVERIFY(desk.open());
            desk.peer.answerAll(answer);
            desk.link.UserName = desk.link.password = u"before"_s;
            Check(name, DbLogin(u"ADMIN"_s, password), result);
            QCOMPARE(desk.link.UserName, result == 0 ? u"ADMIN"_s : QString());
            QCOMPARE(desk.link.password, result == 0 ? password : QString());

            const auto digest = LoginDigest(u"Hotel", u"ADMIN", password, u"2006-04-12");
            const QString request = u"<命令>登录</命令>|<用户名>ADMIN</用户名>|<密码>"_s +
                                    digest.value_or(QString()) +
                                    u"</密码>|<MAC地址>123456789012</MAC地址>|"_s;
            Check(name, desk.peer.requests, digest ? QStringList{Wire(request)} : QStringList{});
        };
        row("right", u"王8"_s, u"<SUCCESS>登录成功"_s, 0);
        row("no password", u""_s, u"<SUCCESS>登录成功"_s, 0);
        row("wrong password", u"x"_s, u"<ERROR>密码错误</ERROR>"_s, 1);
        row("unknown user", u"x"_s, u"<ERROR>没有该用户</ERROR>"_s, -1);
        row("can't be digested", QString(200, u'\x8FFF'), u"登录成功"_s, -1);
    }

    void linkIsSwitched() {
        ScriptedDesk first;
        ScriptedDesk second; // current from here on
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
