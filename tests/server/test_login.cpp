#include "server/login.h"

#include "record/login_digest.h"
#include "server/command_table.h"
#include "tests/hotel_test.h"
#include "tests/server/wire_client.h"

using namespace hotel;

class ServerLoginTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void digests() {
        const auto row = [](const char* name, const QString& user, const QString& password,
                            const QString& digest) {
            const std::optional<QString> made =
                LoginDigest(u"Hotel", user, password, u"2006-03-02");
            if (digest == u"-")
                QVERIFY(made.has_value());
            else
                Check(name, made.value_or(QString()), digest);
        };
        row("no password", u"管理员"_s, u""_s, u"49904D631D70184C3AA3A0E884B9BE56"_s);
        row("ASCII", u"admin"_s, u"secret"_s, u"3F8C019FD0C779C9477677BCAB899C6F"_s);
        row("Chinese", u"前台"_s, u"密码12"_s, u"9B1D6D8EE820E13182D153E7A04C7BED"_s);
        row("largest product", u"a"_s, QString(64, u'\xff') + u'\x7f', u"-"_s);
        row("overflow at byte 129", u"a"_s, QString(64, u'a') + u'\xff', u""_s);
        row("overflow in a high byte", u"a"_s, QString(63, u'a') + u'\xffff' + u'\xffff', u""_s);
    }

    void logins() {
        const auto row = [this](const char* name, const QString& user, const QString& password,
                                const QString& answer) {
            WireClient client(server_.port());
            Check(name, client.logIn(user, password), answer);
            const bool isIn = client.ask(u"项目清单"_s, {{u"库文件名"_s, u"User.QVR"_s}}) !=
                              u"<ERROR>没有登录</ERROR>";
            Check(name, isIn, answer.startsWith(u"<SUCCESS>"));
        };
        row("password", u"经理"_s, u"secret"_s, u"<SUCCESS>登录成功"_s);
        row("no password", u"前台"_s, u""_s, u"<SUCCESS>登录成功"_s);
        row("a password that isn't asked for", u"前台"_s, u"x"_s, u"<ERROR>密码错误</ERROR>"_s);
        row("empty password", u"经理"_s, u""_s, u"<ERROR>密码错误</ERROR>"_s);
        row("letter case", u"经理"_s, u"Secret"_s, u"<ERROR>密码错误</ERROR>"_s);
        row("unknown user", u"无名"_s, u""_s, u"<ERROR>没有该用户</ERROR>"_s);
        row("another address", u"远方"_s, u""_s, u"<ERROR>不允许从该地址登录</ERROR>"_s);
    }

    void digestOfAnotherDayOrProduct() {
        WireClient client(server_.port());
        const auto attempt = [&](QStringView product, QStringView date) {
            const QString user = u"值班"_s;
            return client.ask(u"登录"_s,
                              {{u"用户名"_s, user},
                               {u"密码"_s, *LoginDigest(product, user, kLongPassword, date)}});
        };
        QCOMPARE(attempt(u"Hotel", u"2026-03-06"), u"<ERROR>密码错误</ERROR>"_s);
        QCOMPARE(attempt(u"Normal", u"2026-03-05"), u"<ERROR>密码错误</ERROR>"_s);
        QCOMPARE(attempt(u"Hotel", u"2026-03-05"), u"<SUCCESS>登录成功"_s);
    }

    void theAddressAdmits() {
        const TestPlace place;
        WriteTestUsers(place.name());
        Store store(place.name(), Store::Use::Look);
        const QString digest = *LoginDigest(kProductId, u"远方", u"", u"2026-03-05");
        const auto verdict = [&](const QString& address) {
            return JudgeLogin(store, kProductId, u"远方"_s, digest, QHostAddress(address),
                              u"2026-03-05");
        };
        QVERIFY(verdict(u"10.1.2.3"_s) == LoginVerdict::Admitted);
        QVERIFY(verdict(u"::ffff:10.1.2.3"_s) == LoginVerdict::Admitted);
        QVERIFY(verdict(u"10.1.2.30"_s) == LoginVerdict::WrongAddress);
        QVERIFY(verdict(u"::1"_s) == LoginVerdict::WrongAddress);
    }

    void logoutAndFailedLogin() {
        WireClient client(server_.port());
        const auto isIn = [&] { return client.ask(u"记录清单"_s) != u"<ERROR>没有登录</ERROR>"; };
        QVERIFY(!isIn());
        client.logIn(u"经理"_s, u"secret"_s);
        QVERIFY(isIn());
        client.logIn(u"经理"_s, u"wrong"_s); // ends what was
        QVERIFY(!isIn());
        client.logIn(u"经理"_s, u"secret"_s);
        QCOMPARE(client.ask(u"注销"_s), u"<SUCCESS>"_s);
        QVERIFY(!isIn());
        QVERIFY(WireClient(server_.port()).ask(u"注销"_s) == u"<ERROR>没有登录</ERROR>");
    }

    // A user who is deleted is refused on the connections that he has, others go on.
    void deletedUser() {
        TestServer server;
        const QString users = u"User.QVR"_s;
        const QString project = u"操作员定义"_s;
        WireClient manager(server.port(), u"前台"_s);
        WireClient deleted(server.port());
        deleted.logIn(u"经理"_s, u"secret"_s);
        manager.ask(u"修改记录"_s, {{u"库文件名"_s, u"user.qvr"_s},
                                    {u"项目名"_s, project},
                                    {u"记录"_s, u"新人"_s},
                                    {u"记录值"_s, u"<密码></密码>"_s}});
        QVERIFY(!deleted.ask(u"记录清单"_s).contains(u"没有登录"));
        manager.ask(u"删除记录"_s,
                    {{u"库文件名"_s, users}, {u"项目名"_s, project}, {u"记录"_s, u"经理"_s}});
        QCOMPARE(deleted.ask(u"记录清单"_s), u"<ERROR>没有登录</ERROR>"_s);
        QVERIFY(!manager.ask(u"记录清单"_s).contains(u"没有登录"));
        manager.ask(u"文件换名"_s, {{u"源文件名"_s, users}, {u"目标文件名"_s, u"b.qvr"_s}});
        QCOMPARE(manager.ask(u"记录清单"_s), u"<ERROR>没有登录</ERROR>"_s);
    }

    // After each refused login one new entry of the day's operation log, which tells of a refusal, and
    // nothing else.
    void refusedAttemptsAreOnFile() {
        TestServer server;
        WireClient client(server.port());
        const QString refused = u"<ERROR>没有登录</ERROR>"_s;
        const QString modify = u"修改记录"_s;
        const QString entry =
            u"<操作员></操作员>\r\n<日期>2026-03-05</日期>\r\n<时间>10:00:00</时间>\r\n"
            u"<操作内容>登录失败</操作内容>\r\n<备注>从[10.1.2.3]</备注>\r\n"_s;
        struct Place {
            QString file = u"BglogRec\\26\\03\\260305.qvr"_s;
            QString project = u"操作记录信息"_s;
        };
        const auto add = [&](const QString& record, const QString& value, const QString& command,
                             const Place& place = {}) {
            return client.ask(command, {{u"库文件名"_s, place.file},
                                        {u"项目名"_s, place.project},
                                        {u"记录"_s, record},
                                        {u"记录值"_s, value}});
        };
        const auto longEntry = [](int size) {
            const QString frame = u"<操作内容>登录失败</操作内容><备注></备注>"_s;
            return QString(frame).insert(frame.size() - 5, QString(size - frame.size(), u'x'));
        };
        const QString t = u"100000"_s;
        QCOMPARE(add(t, entry, modify), refused); // nobody was refused yet
        client.logIn(u"经理"_s, u"wrong"_s);
        QCOMPARE(add(t, entry, modify, {.file = u"BglogRec\\26\\03\\260306.qvr"_s}), refused);
        QCOMPARE(add(t, entry, modify, {.project = u"别的"_s}), refused);
        QCOMPARE(add(t, entry, modify, {.project = {}}), refused);
        QCOMPARE(add(t, entry, u"替换记录"_s), refused);
        for (const QString& name : {u""_s, u"10000"_s, u"1000000"_s, u"240000"_s, u"10000a"_s})
            QCOMPARE(add(name, entry, modify), refused);
        for (const QString& value :
             {u""_s, u"登录失败"_s, u"<操作内容>登录系统成功</操作内容>"_s,
              u"<备注><操作内容>登录失败</操作内容></备注>"_s, entry + u"<金额>1</金额>"_s,
              entry + u"<备注>"_s, u"<操作内容>登录系统成功</操作内容>"_s + entry,
              u"<操作内容>修改密码</操作内容><备注>成功</备注>"_s, longEntry(501)})
            QCOMPARE(add(t, value, modify), refused);
        QCOMPARE(add(t, longEntry(500), modify, {.file = u"bglogrec/26/03/260305.QVR"_s}),
                 u"<SUCCESS>"_s);
        QCOMPARE(add(u"100001"_s, entry, modify), refused); // one is one
        client.logIn(u"经理"_s, u"wrong"_s);
        QCOMPARE(add(t, entry, modify), refused); // it stands already
        QCOMPARE(add(u"100001"_s, entry, u"创建记录"_s), u"<SUCCESS>"_s);
        client.logIn(u"经理"_s, u"wrong"_s);
        QCOMPARE(add(u"235959"_s, u"<操作内容>修改密码</操作内容><备注>验证失败</备注>"_s, modify),
                 u"<SUCCESS>"_s);
        client.logIn(u"经理"_s, u"wrong"_s);
        client.logIn(u"前台"_s, {});
        client.ask(u"注销"_s);
        QCOMPARE(add(u"100002"_s, entry, modify), refused); // he came in meanwhile
    }

    // The first failures are free; each of those that follow waits longer, to a bound, and behind the ones
    // before it; other addresses aren't touched.
    void delays() {
        qint64 now = 0;
        FailureLimit limit(500, [&now] { return now; });
        const QHostAddress guesser(u"10.0.0.1"_s);
        const QHostAddress neighbour(u"10.0.0.2"_s);
        const auto fail = [&] { return limit.delayOfFailure(guesser); };
        for (int i = 0; i < 10; ++i)
            QCOMPARE(fail(), 0);
        QCOMPARE(fail(), 500);
        QCOMPARE(fail(), 1500);
        QCOMPARE(fail(), 3000);
        QCOMPARE(limit.wait(guesser), 3000);
        QCOMPARE(limit.wait(neighbour), 0);
        QCOMPARE(limit.delayOfFailure(neighbour), 0);
        now = 3000;
        QCOMPARE(limit.wait(guesser), 0);
        for (int i = 4; i <= 22; ++i) { // one at a time: each has been answered before the next
            QCOMPARE(fail(), std::min(i * 500, 10'000));
            now += 10'000;
        }
        QCOMPARE(fail(), 10'000);
        QVERIFY(limit.isClosedTo(guesser));
        QVERIFY(!limit.isClosedTo(neighbour));
        now += 1;
        QVERIFY(!limit.isClosedTo(guesser));
        QCOMPARE(fail(), 19'999); // the longest that a workstation may have to wait
        now += 19'999 + 60'000;
        QCOMPARE(fail(), 10'000);
        now += 10'000 + 60'001; // nothing for a minute: forgotten
        QCOMPARE(fail(), 0);
    }

    // A workstation tries the empty password ahead of every login: that is no guessing, and never waits.
    // What it puts on file counts in its stead.
    void emptyAttemptsAreNotCounted() {
        const TestPlace place;
        WriteTestUsers(place.name());
        Store store(place.name(), Store::Use::Serve);
        qint64 now = 0;
        FailureLimit failures(500, [&now] { return now; });
        ServerState state{store, failures, kProductId.toString(),
                          [] { return QDateTime(QDate(2026, 3, 5), QTime(10, 0)); }};
        Peer peer{QHostAddress::LocalHost, QString()};
        const auto attempt = [&](QStringView user, QStringView password) {
            const QString digest = *LoginDigest(kProductId, user, password, u"2026-03-05");
            return AnswerRequest(
                state, peer,
                Request("000", u"<命令>登录</命令><用户名>%1</用户名><密码>%2</密码>"_s.arg(
                                   user, digest)));
        };
        const auto delay = [&](QStringView password) { return attempt(u"经理", password).delay; };
        const QString entryText =
            u"<命令>修改记录</命令><库文件名>BglogRec\\26\\03\\260305.qvr</库文件名>"
            u"<项目名>操作记录信息</项目名><记录>%1</记录>"
            u"<记录值><操作内容>登录失败</操作内容></记录值>"_s;
        int entries = 100'000;
        const auto entry = [&] {
            return AnswerRequest(state, peer, Request("000", entryText.arg(entries++)));
        };
        for (int i = 0; i < 30; ++i)
            QCOMPARE(delay(u""), 0);
        for (int i = 0; i < 9; ++i)
            QCOMPARE(delay(u"guess"), 0);
        QCOMPARE(entry().text, u"<SUCCESS>"_s);
        QCOMPARE(delay(u""), 0);
        QCOMPARE(entry().delay, 0); // the tenth
        QCOMPARE(delay(u"guess"), 500);
        QCOMPARE(entry().delay, 0);
        QCOMPARE(delay(u"secret"), 500); // behind the guess: its haste would tell
        QCOMPARE(delay(u""), 0);
        QCOMPARE(entry().delay, 1500);
        QCOMPARE(attempt(u"前台", u"").delay, 0);
        for (const int wait : {3000, 5000, 7500, 10'500})
            QCOMPARE(delay(u"guess"), wait);
        const CommandAnswer closed = attempt(u"经理", u"secret");
        QCOMPARE(closed.text, u"<ERROR>登录失败次数太多，请稍候再试</ERROR>"_s);
        QCOMPARE(closed.delay, 10'500);
        QCOMPARE(delay(u""), 0);
        QCOMPARE(entry().text, u"<ERROR>没有登录</ERROR>"_s);
        now = 501;
        QCOMPARE(delay(u"secret"), 9'999);
    }

    void orderIsKeptAroundADelayedAnswer() {
        TestServer server([](ServerSettings& settings) { settings.failureStep = 20; });
        WireClient client(server.port());
        constexpr int kAttempts = 12;
        for (int i = 0; i < kAttempts; ++i) {
            client.send(u"登录"_s, {{u"用户名"_s, u"经理"_s}, {u"密码"_s, u"0"_s}});
            client.send(u"读取日期"_s);
        }
        for (int i = 0; i < kAttempts; ++i) {
            QCOMPARE(client.receive(), u"<ERROR>密码错误</ERROR>"_s);
            QCOMPARE(client.receive(), u"<当前日期>2026-03-05</当前日期>"_s);
        }
    }

private:
    TestServer server_;
};

HOTEL_TEST(ServerLoginTest)

#include "test_login.moc"
