#pragma once

// The users of the system and their rights, as acts without their screens. What a user's record holds is told in
// session/session.h.
//
// The screen of users works on a list of its own, which reaches the server by saving. Meanwhile other desks may save
// theirs, and users change their passwords; so saving brings over what was changed here, field by field, and leaves
// the rest as the server has it by then.

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>
#include <span>

#include "session/notice.h"

namespace hotel {

// What can be ticked: the groups of the main menu and, behind one blank each, their entries. One entry stands under
// two groups; its right is one.
std::span<const QStringView> OfferedRights();

// The rights text of the ticked entries: each without its leading blank, followed by CR LF.
QString RightsText(const QStringList& ticked);

// For each offered right whether the text holds it with CR LF behind it. A text that doesn't end in CR LF loses its
// last right here, though the login still finds it, deliberately: ticking rebuilds the text.
QList<bool> TicksOf(QStringView rights);

// The user file's name as the server tells it; its usual name when it doesn't.
QString UserFile();

struct UserAccount {
    QString id;     // login name
    QString record; // session/session.h

    bool operator==(const UserAccount&) const = default;
};

struct UserAccounts {
    QList<UserAccount> read;   // as the server had them
    QList<UserAccount> edited; // as they are to be saved

    bool changed() const { return read != edited; }
    // Where the user stands in `edited`; -1 when he doesn't.
    qsizetype find(QStringView id) const;
};

// Nothing when the users can't be read.
std::optional<UserAccounts> LoadUsers();

struct UserEditOutcome {
    bool done = false; // `edited` has changed
    std::optional<Notice> notice;
    QStringView missing = {}; // the field that must be filled first; kUserId for the login name
};

// Tag of the login name among the boxes of the screen; it is the record's key and no field of it.
inline constexpr QStringView kUserId = u"用户名";

// Enters a user who isn't in the list yet, or changes the one that is selected (empty: none), whose login name stays
// as it is. `boxes` is record text with the login name and the fields of a user record.
UserEditOutcome AddUser(UserAccounts& users, QStringView boxes);
UserEditOutcome ChangeUser(UserAccounts& users, QStringView selected, QStringView boxes);
void RemoveUser(UserAccounts& users, QStringView id);

// Writes the list back. When it is done, `users` stands as saved, with what other desks have changed. Refused when
// the server's list can't be read, and when nobody would be left who may manage users.
UserEditOutcome SaveUsers(UserAccounts& users);

struct PasswordOutcome {
    bool done = false;
    Notice notice;
    bool clearsOld = false; // the boxes to be emptied: the old password,
    bool clearsNew = false; // the new one and its repetition
};

// Changes a user's own password, by a login with the old one. On this connection that user is logged in afterwards,
// and nobody when the old password is refused.
PasswordOutcome ChangePassword(const QString& user, const QString& oldPassword,
                               const QString& newPassword, const QString& retyped);

} // namespace hotel
