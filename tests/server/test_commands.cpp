// Every command over the wire: what is asked, and the answer to the letter.

#include "record/code_page.h"
#include "tests/hotel_test.h"
#include "tests/server/wire_client.h"

using namespace hotel;

namespace {

const QString kDone = u"<SUCCESS>"_s;

QString Error(QStringView words) {
    return u"<ERROR>"_s + words + u"</ERROR>"_s;
}

QString List(QStringView tag, const QStringList& names) {
    QString text = u"<"_s + tag + u">\r\n"_s;
    for (const QString& name : names)
        text += name + u"\r\n"_s;
    return text + u"</"_s + tag + u'>';
}

QString Checked(QStringView result) {
    return u"<检查结果>"_s + result + u"</检查结果>"_s;
}

QString Upload(QStringView name, QStringView content, QStringView size, QStringView sum) {
    return u"文件名=%1\n文件内容=%2\n文件长度=%3\n文件校验和=%4"_s.arg(name, content, size, sum);
}

QString Downloaded(QStringView content, QStringView size, QStringView sum) {
    return u"<文件内容>%1</文件内容>\r\n<文件长度>%2</文件长度>\r\n<文件校验和>%3</文件校验和>"_s
        .arg(content, size, sum);
}

// One step of a conversation. The fields are written `name=value`, one a line.
struct Step {
    QString command;
    QString fields;
    QString answer;
};

Fields ParseFields(const QString& lines) {
    Fields fields;
    for (const QString& line : lines.split(u'\n', Qt::SkipEmptyParts))
        fields += {line.section(u'=', 0, 0), line.section(u'=', 1)};
    return fields;
}

} // namespace

class CommandsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void conversations() {
        const auto talk = [](const QList<Step>& steps) {
            TestServer server;
            WireClient client(server.port(), u"前台"_s);
            for (const Step& step : steps) {
                const QString answer = client.ask(step.command, ParseFields(step.fields));
                QVERIFY2(answer == step.answer, qUtf8Printable(step.command + u' ' + step.fields +
                                                               u"\nanswered: "_s + answer));
            }
            server.stop();
            QCOMPARE(Store(server.store(), Store::Use::Look).check(), QStringList());
        };
        const QString a = u"库文件名=a.qvr\n"_s;
        const QString ap = a + u"项目名=p\n"_s;

        // records
        talk({
            {u"修改记录"_s, ap + u"记录=1\n记录值=<金额>5</金额>"_s, kDone},
            {u"读取记录"_s, u"库文件名=A.QVR\n项目名=p\n记录=1"_s, u"<1><金额>5</金额></1>"_s},
            {u"创建记录"_s, ap + u"记录=1\n记录值=x"_s, Error(u"记录已经存在")},
            {u"创建记录"_s, ap + u"记录=2\n记录值=x"_s, kDone},
            {u"替换记录"_s, ap + u"记录=3\n记录值=y"_s, Error(u"没有该记录")},
            {u"替换记录"_s, ap + u"记录=2\n记录值="_s, kDone},
            {u"读取记录"_s, ap + u"记录=2"_s, u"<2></2>"_s},
            {u"记录清单"_s, ap, List(u"记录清单", {u"1"_s, u"2"_s})},
            {u"删除记录"_s, ap + u"记录= 1 "_s, kDone},
            {u"删除记录"_s, ap + u"记录=1"_s, Error(u"没有该记录")},
            {u"读取记录"_s, ap + u"记录=1"_s, Error(u"没有该记录")},
            {u"修改记录"_s, ap + u"记录=\n记录值=x"_s, Error(u"名称无效")},
            {u"修改记录"_s, ap + u"记录=a<b\n记录值=x"_s, Error(u"名称无效")},
            {u"修改记录"_s, u"库文件名=a.qvr\n项目名=p<\n记录=1\n记录值=x"_s, Error(u"名称无效")},
            {u"记录清单"_s, ap, List(u"记录清单", {u"2"_s})},
        });
        // values hold any text
        talk({
            {u"修改记录"_s, ap + u"记录=1\n记录值=</记录><项目名>q</项目名></记录值>\r<1></1>"_s,
             kDone},
            {u"读取记录"_s, ap + u"记录=1"_s,
             u"<1></记录><项目名>q</项目名></记录值>\r<1></1></1>"_s},
            {u"修改记录"_s, ap + u"记录=1\n记录值=a\tb\x01€\u4e02\x1f"_s, kDone},
            {u"读取记录"_s, ap + u"记录=1"_s, u"<1>a b €\u4e02 </1>"_s},
        });
        // whole projects
        talk({
            {u"修改记录"_s, a + u"项目名=\n记录=p\n记录值=<2>b</2><1>a</1>"_s, kDone},
            {u"读取记录"_s, a + u"项目名=\n记录=p"_s, u"<p><2>b</2>\r\n<1>a</1></p>"_s},
            {u"读取记录"_s, a + u"记录=p"_s, u"<p><2>b</2>\r\n<1>a</1></p>"_s},
            {u"读取记录"_s, a + u"记录=1"_s, u"<1>a</1>"_s},
            {u"缓冲读取记录"_s, a + u"记录=p"_s, u"<p><2>b</2>\r\n<1>a</1></p>"_s},
            {u"修改记录"_s, ap + u"记录=p\n记录值=inner"_s, kDone},
            {u"读取记录"_s, a + u"记录=p"_s, u"<p><2>b</2>\r\n<1>a</1>\r\n<p>inner</p></p>"_s},
            {u"创建记录"_s, a + u"记录=p\n记录值=<3>c</3>"_s, Error(u"记录已经存在")},
            {u"替换记录"_s, a + u"记录=q\n记录值=<3>c</3>"_s, Error(u"没有该记录")},
            {u"创建记录"_s, a + u"记录=q\n记录值=<3>c</3>"_s, kDone},
            {u"删除记录"_s, a + u"记录=q"_s, Error(u"没有该记录")},
            {u"修改记录"_s, a + u"记录=p\n记录值="_s, kDone},
            {u"读取记录"_s, a + u"记录=p"_s, u"<p></p>"_s},
            {u"项目清单"_s, a, List(u"项目清单", {u"p"_s, u"q"_s})},
            {u"记录清单"_s, a, List(u"记录清单", {u"3"_s})},
        });
        // buffered reads
        talk({
            {u"修改记录"_s, a + u"记录=p\n记录值=<1>a</1><2><5>x</5></2><3>c</3><5>e</5><6>f</6>"_s,
             kDone},
            {u"缓冲读取记录"_s, ap + u"记录=1"_s, u"<1>a</1>\r\n<2><5>x</5></2>\r\n<3>c</3>"_s},
            {u"缓冲读取记录"_s, ap + u"记录=3"_s, u"<3>c</3>\r\n<5>e</5>\r\n<6>f</6>"_s},
            {u"缓冲读取记录"_s, ap + u"记录=9"_s, Error(u"没有该记录")},
        });
        // projects
        talk({
            {u"创建项目"_s, ap + u"初始值=<1>a</1>"_s, kDone},
            {u"创建项目"_s, ap + u"初始值=<2>b</2>"_s, kDone},
            {u"读取记录"_s, a + u"记录=p"_s, u"<p><1>a</1></p>"_s},
            {u"创建项目"_s, a + u"项目名=空\n初始值="_s, kDone},
            {u"项目清单"_s, a, List(u"项目清单", {u"p"_s, u"空"_s})},
            {u"删除项目"_s, ap, kDone},
            {u"删除项目"_s, ap, Error(u"没有该项目")},
            {u"创建项目"_s, a + u"项目名=\n初始值="_s, Error(u"名称无效")},
            {u"创建项目"_s, a + u"项目名=x\n初始值=<a\tb>1</a\tb>"_s, Error(u"名称无效")},
            {u"项目清单"_s, a, List(u"项目清单", {u"空"_s})},
        });
        // what isn't there
        talk({
            {u"项目清单"_s, a, List(u"项目清单", {})},
            {u"记录清单"_s, ap, List(u"记录清单", {})},
            {u"查找记录"_s, ap + u"记录必选项=x"_s, List(u"记录清单", {})},
            {u"字段查找"_s, a, List(u"记录清单", {})},
            {u"数据库清单"_s, u"路径名=none\\\n库文件说明=*.qvr"_s, List(u"文件清单", {})},
            {u"检查数据库"_s, a + u"功能码=0"_s, Checked(u"-1")},
            {u"检查数据库"_s, a + u"功能码=2"_s, Checked(u"-1")},
            {u"检查数据库"_s, a + u"功能码=5"_s, Checked(u"-1")},
            {u"检查数据库"_s, a + u"功能码=6"_s, Checked(u"-1")},
            {u"数据准备"_s, a, Error(u"没有该文件")},
            {u"删除数据库"_s, a, Error(u"没有该文件")},
            {u"下载文件"_s, u"文件名=a.jpg"_s, Error(u"没有该文件")},
            {u"读取记录"_s, ap + u"记录=1"_s, Error(u"没有该记录")},
            {u"数据库清单"_s, u"路径名=\n库文件说明=a*"_s, List(u"文件清单", {})},
            {u"开门"_s, u""_s, Error(u"不认识的命令")},
            {u""_s, u""_s, Error(u"不认识的命令")},
        });
        // files
        talk({
            {u"创建数据库"_s, u"库文件名=kq\\2605\\b.qvr\n初始值="_s, kDone},
            {u"创建数据库"_s, u"库文件名=KQ/2605/B.QVR\n初始值="_s, kDone},
            {u"创建数据库"_s, u"库文件名=kq\\0904\\c.qvr"_s, kDone},
            {u"创建数据库"_s, u"库文件名=kq\\old\\c.qvr"_s, kDone},
            {u"创建数据库"_s, u"库文件名=kq\\01top.QVR"_s, kDone},
            {u"创建数据库"_s, u"库文件名=kq\\top.bak"_s, kDone},
            {u"数据库清单"_s, u"路径名=kq\\\n库文件说明=*.qvr"_s,
             List(u"文件清单", {u"01top.QVR"_s})},
            {u"数据库清单"_s, u"路径名=KQ\n库文件说明="_s,
             List(u"文件清单", {u"01top.QVR"_s, u"top.bak"_s})},
            {u"检查数据库"_s, u"库文件名=kq\\x.qvr\n功能码=2"_s, Checked(u"0904")},
            {u"检查数据库"_s, u"库文件名=Kq\\\n功能码=3"_s, Checked(u"2605")},
            {u"检查数据库"_s, u"库文件名=kq\\2605\\b.qvr\n功能码=0"_s, Checked(u"0")},
            {u"检查数据库"_s, u"库文件名=kq\\2605\\b.qvr\n功能码=4"_s, Error(u"不认识的功能码")},
            {u"数据准备"_s, u"库文件名=kq\\2605\\b.qvr"_s, kDone},
            {u"文件复制"_s, u"源文件名=User.QVR\n目标文件名=copy.qvr"_s, kDone},
            {u"文件复制"_s, u"源文件名=User.QVR\n目标文件名=COPY.qvr"_s, Error(u"文件已经存在")},
            {u"文件换名"_s, u"源文件名=copy.qvr\n目标文件名=USER.qvr"_s, Error(u"文件已经存在")},
            {u"文件换名"_s, u"源文件名=no.qvr\n目标文件名=z.qvr"_s, Error(u"没有该文件")},
            {u"文件复制"_s, u"源文件名=no.qvr\n目标文件名=z.qvr"_s, Error(u"没有该文件")},
            {u"文件换名"_s, u"源文件名=copy.qvr\n目标文件名=moved.qvr"_s, kDone},
            {u"项目清单"_s, u"库文件名=moved.qvr"_s, List(u"项目清单", {u"操作员定义"_s})},
            {u"删除数据库"_s, u"库文件名=moved.qvr"_s, kDone},
            {u"项目清单"_s, u"库文件名=moved.qvr"_s, List(u"项目清单", {})},
        });
        // uploads
        talk({
            {u"上传文件"_s, Upload(u"krzp\\a.jpg", u"00FF10", u"3", u"10F"), kDone},
            {u"下载文件"_s, u"文件名=KRZP/A.JPG"_s, Downloaded(u"00FF10", u"3", u"10F")},
            {u"上传文件"_s, Upload(u"krzp\\a.jpg", u"01", u"2", u"1"), Error(u"文件长度不符")},
            {u"上传文件"_s, Upload(u"krzp\\a.jpg", u"0", u"1", u"0"), Error(u"文件长度不符")},
            {u"上传文件"_s, Upload(u"krzp\\a.jpg", u"0G", u"1", u"0"), Error(u"文件长度不符")},
            {u"上传文件"_s, Upload(u"krzp\\a.jpg", u"01", u"1", u"2"), Error(u"文件校验和不符")},
            {u"上传文件"_s, Upload(u"krzp\\a.jpg", u"01", u"1", u""), Error(u"文件校验和不符")},
            {u"上传文件"_s, Upload(u"User.QVR", u"01", u"1", u"1"), Error(u"文件已经存在")},
            {u"上传文件"_s, Upload(u"..\\x", u"01", u"1", u"1"), Error(u"名称无效")},
            {u"下载文件"_s, u"文件名=krzp\\a.jpg"_s, Downloaded(u"00FF10", u"3", u"10F")},
            {u"上传文件"_s, Upload(u"krzp\\a.jpg", u"", u"0", u"0"), kDone},
            {u"下载文件"_s, u"文件名=krzp\\a.jpg"_s, Downloaded(u"", u"0", u"0")},
            {u"修改记录"_s, u"库文件名=krzp\\a.jpg\n项目名=p\n记录=1\n记录值=x"_s,
             Error(u"该文件不是数据库")},
            {u"下载文件"_s, u"文件名=User.QVR"_s, Error(u"没有该文件")},
            {u"数据库清单"_s, u"路径名=krzp\\\n库文件说明=*.JPG"_s,
             List(u"文件清单", {u"a.jpg"_s})},
            {u"删除数据库"_s, u"库文件名=krzp\\a.jpg"_s, kDone},
        });
        // finding
        talk({
            {u"修改记录"_s, a + u"记录=p\n记录值=<9>甲</9><10>乙</10>"_s, kDone},
            {u"修改记录"_s, a + u"记录=q\n记录值=<11>甲</11>"_s, kDone},
            {u"字段查找"_s,
             ap + u"记录查询条件=<00><对象>记录名</对象><条件>数值最大</条件></00>"_s,
             List(u"记录清单", {u"10"_s})},
            {u"字段查找"_s, a + u"记录查询条件=<00><对象>记录名</对象><条件>数值最大</条件></00>"_s,
             List(u"记录清单", {u"11"_s})},
            {u"查找记录"_s, a + u"记录任选项=甲,丙"_s, List(u"记录清单", {u"9"_s, u"11"_s})},
            {u"查找记录"_s, ap + u"记录必选项=甲\n记录排除项=乙"_s, List(u"记录清单", {u"9"_s})},
        });
    }

    // A block holds 32 records, and ends ahead of a text that would make it longer than 16384 characters.
    void buffersAreBounded() {
        WireClient client(server_.port(), u"前台"_s);
        const auto read = [&](const QString& records) {
            Fields project = {{u"库文件名"_s, u"block.qvr"_s}, {u"记录"_s, u"p"_s}};
            client.ask(u"修改记录"_s, project + Fields{{u"记录值"_s, records}});
            project[1] = {u"项目名"_s, u"p"_s};
            return client.ask(u"缓冲读取记录"_s, project + Fields{{u"记录"_s, u"100"_s}});
        };
        QString many;
        for (int i = 100; i < 140; ++i)
            many += u"<%1>v</%1>"_s.arg(i);
        const QString block = read(many);
        QVERIFY(block.contains(u"<131>") && !block.contains(u"<132>"));
        const auto two = [](int size) {
            return u"<100>"_s + QString(16'384 - 11 - size, u'x') + u"</100><2>"_s +
                   QString(size, u'y') + u"</2>"_s;
        };
        QVERIFY(read(two(5000)).endsWith(u"y</2>"));
        QVERIFY(read(two(5000).insert(5, u'x')).endsWith(u"x</100>"));
    }

    void beforeLogin() {
        TestServer server;
        WireClient client(server.port());
        QCOMPARE(client.ask(u"用户清单"_s),
                 List(u"记录清单", {u"前台"_s, u"经理"_s, u"值班"_s, u"远方"_s}));
        QCOMPARE(client.ask(u"读取日期"_s), u"<当前日期>2026-03-05</当前日期>"_s);
        QCOMPARE(client.ask(u"读取时间"_s), u"<当前时间>10:00:00</当前时间>"_s);
        QCOMPARE(client.ask(u"获取用户文件名"_s), u"<用户文件名>User.QVR</用户文件名>"_s);
        for (const char16_t* command : {u"读取记录", u"修改记录", u"创建数据库", u"数据库清单",
                                        u"下载文件", u"上传文件", u"文件换名", u"开门"})
            QCOMPARE(client.ask(QStringView(command).toString(),
                                {{u"库文件名"_s, u"User.QVR"_s}, {u"记录"_s, u"操作员定义"_s}}),
                     Error(u"没有登录"));
    }

    // A value whose end is missing, and a project's text that holds no field, would store nothing, or empty
    // the project, and say that all is well.
    void cutTextsAreRefused() {
        WireClient client(server_.port(), u"前台"_s);
        const Fields whole = {
            {u"库文件名"_s, u"a.qvr"_s}, {u"项目名"_s, {}}, {u"记录"_s, u"cut"_s}};
        const auto write = [&](const QString& value) {
            return client.ask(u"修改记录"_s, whole + Fields{{u"记录值"_s, value}});
        };
        QCOMPARE(write(u"<1>v</1>"_s), kDone);
        QCOMPARE(write(u"v"_s), Error(u"内容不是记录"));
        QCOMPARE(write(u"<1>v"_s), Error(u"内容不是记录"));
        // without its end the name of the project is empty, and the whole project would be written
        WireClient torn(server_.port(), u"前台"_s);
        int number = 1;
        for (const char16_t* command : {u"修改记录", u"创建记录", u"替换记录"}) {
            for (const char16_t* end : {u"</记录值>\r\n", u"</项目名>\r\n"}) {
                torn.sendBytes(RequestBytes(QStringView(command).toString(),
                                            RecordFields(u"cut"_s, u"<2>w</2>"_s), number++)
                                   .replace(EncodeForWire(QStringView(end)), {}));
                QCOMPARE(torn.receive(), Error(u"命令不完整"));
            }
        }
        torn.sendBytes(
            RequestBytes(u"上传文件"_s, ParseFields(Upload(u"a.jpg", u"01", u"0", u"0")), number++)
                .replace(EncodeForWire(u"</文件内容>\r\n"), {}));
        QCOMPARE(torn.receive(), Error(u"命令不完整"));
        // what only asks is answered as if the torn field were not there
        torn.sendBytes(RequestBytes(u"查找记录"_s,
                                    {{u"库文件名"_s, u"a.qvr"_s}, {u"记录必选项"_s, u"w"_s}},
                                    number)
                           .replace(EncodeForWire(u"</记录必选项>"), {}));
        QCOMPARE(torn.receive(), List(u"记录清单", {u"1"_s}));
        QCOMPARE(client.ask(u"读取记录"_s, RecordFields(u"cut"_s)), Error(u"没有该记录"));
        const Fields read = {{u"库文件名"_s, u"a.qvr"_s}, {u"记录"_s, u"cut"_s}};
        QCOMPARE(client.ask(u"读取记录"_s, read), u"<cut><1>v</1></cut>"_s);
        const Fields named = {{u"库文件名"_s, u"a.qvr"_s}, {u"项目名"_s, u"new"_s}};
        QCOMPARE(client.ask(u"创建项目"_s, named + Fields{{u"初始值"_s, u"v"_s}}),
                 Error(u"内容不是记录"));
        QCOMPARE(write(u" \r\n"_s), kDone); // empties
        QCOMPARE(client.ask(u"读取记录"_s, read), u"<cut></cut>"_s);
    }

    // Before login nobody keeps the server's memory with requests that are none.
    void longRequestsBeforeLogin() {
        const auto request = [](qsizetype size) {
            const qsizetype frame = RequestBytes(u"读取日期"_s, {{u"x"_s, u""_s}}, 0).size();
            return RequestBytes(u"读取日期"_s, {{u"x"_s, QString(size - frame, u'x')}}, 0);
        };
        WireClient fits(server_.port());
        fits.sendBytes(request(65'536));
        QVERIFY(fits.receive().contains(u"当前日期"));
        WireClient tooLong(server_.port());
        tooLong.sendBytes(request(65'537));
        QCOMPARE(tooLong.readToEnd(), QByteArray());
        WireClient known(server_.port());
        QVERIFY(known.logIn(u"前台"_s, {}).contains(u"登录成功"));
        known.sendBytes(request(65'537).replace("CmdID:000", "CmdID:001"));
        QVERIFY(known.receive().contains(u"当前日期"));
    }

    void badPathsAreRefused() {
        const auto row = [this](const char* name, const QString& path) {
            const Fields fields = {{u"库文件名"_s, path},     {u"项目名"_s, u"p"_s},
                                   {u"记录"_s, u"1"_s},       {u"源文件名"_s, path},
                                   {u"文件名"_s, path},       {u"目标文件名"_s, path},
                                   {u"功能码"_s, u"0"_s},     {u"文件长度"_s, u"0"_s},
                                   {u"文件校验和"_s, u"0"_s}, {u"文件内容"_s, u""_s}};
            WireClient client(server_.port(), u"前台"_s);
            for (const char16_t* command :
                 {u"创建数据库", u"删除数据库",   u"项目清单", u"创建项目", u"删除项目",
                  u"读取记录",   u"缓冲读取记录", u"修改记录", u"创建记录", u"替换记录",
                  u"删除记录",   u"记录清单",     u"查找记录", u"字段查找", u"检查数据库",
                  u"数据准备",   u"文件换名",     u"文件复制", u"上传文件", u"下载文件"})
                Check(name, client.ask(QStringView(command).toString(), fields),
                      Error(u"名称无效"));
        };
        for (const char16_t* path :
             {u"", u"..\\a.qvr", u"/a.qvr", u"C:\\a.qvr", u"a\\..\\..\\b.qvr"})
            row(qUtf8Printable(QStringView(path).toString()), QStringView(path).toString());
    }

    // Several requests in one piece, good and bad: each gets its own answer, in order, and what is
    // refused undoes nothing.
    void oneTurn() {
        WireClient client(server_.port(), u"前台"_s);
        const auto bytes = [](const QString& command, const QString& record, int number) {
            return RequestBytes(command, RecordFields(record, u"v"_s), number);
        };
        client.sendBytes(bytes(u"修改记录"_s, u"1"_s, 1) + bytes(u"删除记录"_s, u"9"_s, 2) +
                         bytes(u"创建记录"_s, u"1"_s, 3) + bytes(u"读取记录"_s, u"1"_s, 4) +
                         bytes(u"创建记录"_s, u"2"_s, 5) + bytes(u"记录清单"_s, u""_s, 6));
        for (const QString& answer : {kDone, Error(u"没有该记录"), Error(u"记录已经存在"),
                                      u"<1>v</1>"_s, kDone, List(u"记录清单", {u"1"_s, u"2"_s})})
            QCOMPARE(client.receive(), answer);
    }

    void noRequestClosesTheConnection() {
        WireClient client(server_.port());
        client.sendBytes(RequestBytes(u"读取日期"_s, {}, 0) + "GET / HTTP/1.1\r\n\r\n");
        QVERIFY(client.readToEnd().endsWith("</CmdID:000>"));
        QVERIFY(client.socket().state() == QAbstractSocket::UnconnectedState);
    }

    // What a client sent ahead of going away, and what has arrived when the server is told to end,
    // is done.
    void whatWasReceivedIsDone() {
        TestServer server;
        WireClient leaving(server.port(), u"前台"_s);
        leaving.send(u"修改记录"_s, RecordFields(u"1"_s, u"v"_s));
        leaving.socket().disconnectFromHost();
        WireClient waiting(server.port(), u"前台"_s);
        waiting.send(u"修改记录"_s, RecordFields(u"2"_s, u"v"_s));
        server.stop();
        QCOMPARE(waiting.receive(), kDone);
        Store store(server.store(), Store::Use::Look);
        const StorePath path = *ParseFilePath(u"a.qvr");
        QVERIFY(store.read(path, u"p"_s, u"1"_s) && store.read(path, u"p"_s, u"2"_s));
    }

private:
    TestServer server_;
};

HOTEL_TEST(CommandsTest)

#include "test_commands.moc"
