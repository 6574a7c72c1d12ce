#pragma once

// The departments of the house: the projects of the personnel files, in the details and in the brief records alike.

#include <QString>
#include <QStringView>

#include "session/notice.h"

namespace hotel {

struct DepartmentOutcome {
    bool done = false;
    Notice notice;
};

// Makes a department. Its name is the name of a project, so it holds no "<" or ">"; blanks around it don't
// count. The server makes a project that exists once more without a word, so the list is looked at before.
DepartmentOutcome AddDepartment(QStringView name);

// Takes an empty department away. One whose employees could not be read stays.
DepartmentOutcome DeleteDepartment(QStringView name);

} // namespace hotel
