#pragma once

// Who is logged in at this workstation.

#include <QString>
#include <QStringView>

#include "record/literals.h"

namespace hotel {

struct Session {
    QString userId;   // login name, trimmed: key of the user record
    QString userName; // personal name (姓名)
    QString userDept; // department (部门)
    QString rights;   // 岗位码: right names in any order, with or without separators
};

// The user file. Its name is the server's to tell (DbUserFileName); one record a user in this project,
// keyed by the login name in capitals.
//
//     姓名     personal name
//     部门     department
//     密码     as the user typed it; only the login turns it into a digest
//     岗位码   rights: each right name, usually followed by CR LF
//     IP地址   the one address the user may log in from; digits and points; empty: any
namespace user_record {
inline constexpr QStringView kProject = u"操作员定义";
inline constexpr QStringView kName = u"姓名";
inline constexpr QStringView kDepartment = u"部门";
inline constexpr QStringView kPassword = u"密码";
inline constexpr QStringView kRights = u"岗位码";
inline constexpr QStringView kAddress = u"IP地址";
} // namespace user_record

// Rights that are not those of an entry in the main menu.
namespace right {
inline constexpr QStringView kSetPassword = u"密码设定";    // change the own password at login
inline constexpr QStringView kAdjustDate = u"日期调整";     // no date note in the operation log
inline constexpr QStringView kTimedReminders = u"定时提醒"; // reminders run in the background
} // namespace right

Session& CurrentSession();

// A user has a right when its name occurs anywhere in the rights text. There is no separator rule: a
// right whose name contains another's grants both, deliberately.
bool HasRight(QStringView right);

// The session that a user record gives: missing fields are empty, so an unreadable record leaves a
// user without rights.
Session SessionFromUserRecord(const QString& userId, const QString& record);

} // namespace hotel
