#include "shell/login.h"

#include "link/Wck_comm.h"
#include "link/records.h"
#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/record_text.h"
#include "session/operation_log.h"
#include "session/session.h"

namespace hotel {

namespace {

// What the link answers to a login.
constexpr int kLoginDone = 0;
constexpr int kLoginLinkTrouble = 3;

void LogLogin(const QString& user) {
    SaveLogRec(u"登录系统成功"_s, u"从["_s + Link().localIP + u"]以用户："_s + user + u"登录"_s);
}

} // namespace

QStringList OfferedUsers() {
    QStringList users;
    for (int n = 1; n <= kOfferedUsers; ++n) {
        const QString user = DbUserList(n);
        if (user.isEmpty())
            break;
        if (!users.contains(user))
            users.append(user);
    }
    return users;
}

LoginResult CheckLogin(const QString& user, const QString& password) {
    if (DbLogin(user, {}) == kLoginDone)
        return LoginResult::NoPasswordSet;
    switch (DbLogin(user, password)) {
    case kLoginDone:
        return LoginResult::LoggedIn;
    case kLoginLinkTrouble:
        return LoginResult::LinkTrouble;
    default:
        return LoginResult::Refused;
    }
}

bool IsLoggedIn(LoginResult result) {
    return result == LoginResult::LoggedIn || result == LoginResult::NoPasswordSet;
}

QString LoginFailure(LoginResult result) {
    switch (result) {
    case LoginResult::Refused:
        return u"用户名与密码不匹配！也有可能是未经许可的IP,还应保持和服务器时间相近，请核对！"_s;
    case LoginResult::LinkTrouble:
        return u"网络未连接或不可预料的错误！"_s;
    case LoginResult::LoggedIn:
    case LoginResult::NoPasswordSet:
        break;
    }
    return {};
}

void BeginSession(const QString& user) {
    const QString key = TrimBlanks(user);
    const QString record = DbReadRecord(DbUserFileName(), user_record::kProject.toString(), key);
    CurrentSession() = SessionFromUserRecord(key, record);
    LogLogin(user);
}

LoginResult LogInAgain(const QString& password) {
    FollowServerClock();
    if (!Link().isUp())
        return LoginResult::LinkTrouble;
    const QString user = CurrentSession().userId;
    const LoginResult result = CheckLogin(user, password);
    if (!IsLoggedIn(result))
        return result;
    const auto record = FindRecord(DbUserFileName(), user_record::kProject, user);
    if (record)
        CurrentSession() = SessionFromUserRecord(user, *record);
    LogLogin(user);
    return result;
}

void LogRefusedLogin(const QString& user) {
    SaveLogRec(u"登录失败"_s,
               u"从["_s + Link().localIP + u"]尝试以用户："_s + user + u"登录，失败"_s);
}

bool FollowServerClock() {
    Clock::SetTime(DbServerTime());
    Clock::SetDate(DbServerDate());
    return Clock::MoveMachine();
}

void LogLeaving() {
    if (Link().linkState() != u"1")
        return;
    const Session& session = CurrentSession();
    SaveLogRec(u"退出系统"_s,
               u"用户："_s + session.userId + u"，姓名："_s + session.userName + u"退出系统"_s);
}

} // namespace hotel
