#pragma once

// The login as an act, without its screen.

#include <QString>
#include <QStringList>

namespace hotel {

// As many users as the login screen offers.
inline constexpr int kOfferedUsers = 100;

// The users' login names in the server's order, each once.
QStringList OfferedUsers();

enum class LoginResult {
    LoggedIn,
    NoPasswordSet, // logged in, whatever was typed: this user has no password
    Refused,       // wrong password, other refusal, or no link
    LinkTrouble,   // no answer that decides anything
};

// Whether the server has let the user in.
bool IsLoggedIn(LoginResult result);

// What the user is told of a login that failed, under kLoginFailed.
QString LoginFailure(LoginResult result);
inline constexpr QStringView kLoginFailed = u"登录失败！";

// Asks the server: first with an empty password, which tells a user without one, then with the typed
// one. A login with a real password therefore costs two commands, and the first refusal is normal.
LoginResult CheckLogin(const QString& user, const QString& password);

// Reads the user's record into the session and writes the operation log. A record that can't be read
// leaves the user without name and rights.
void BeginSession(const QString& user);

// The same user once more, after the login was lost: opens the link again where it is closed (LinkTrouble
// when it can't be), and follows the server's clock before the login, which depends on the date. The
// session gets the rights of this moment; what it had stays when they can't be read.
LoginResult LogInAgain(const QString& password);

// Writes the failed attempt into the operation log.
void LogRefusedLogin(const QString& user);

// Sets the workstation's clock from the server's time and date; a failure changes nothing. False when the
// machine's own clock was to follow and could not be set.
bool FollowServerClock();

// Writes the end of the session into the operation log, where the link still stands. The server gets
// no log out command: the connection's end is its log out.
void LogLeaving();

} // namespace hotel
