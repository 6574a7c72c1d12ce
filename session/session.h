#pragma once

// Who is logged in at this workstation.

#include <QString>
#include <QStringView>

namespace hotel {

struct Session {
    QString userId;   // login name, trimmed: key of the user record
    QString userName; // personal name (姓名)
    QString userDept; // department (部门)
    QString rights;   // 岗位码: right names in any order, with or without separators
};

Session& CurrentSession();

// A user has a right when its name occurs anywhere in the rights text. There is no separator rule: a
// right whose name contains another's grants both, deliberately.
bool HasRight(QStringView right);

} // namespace hotel
