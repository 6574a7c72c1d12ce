#pragma once

// What a user has looked at lately. Screens with a browse list keep it between sessions in the user's
// own folder: file XtsjLj + login name + "\最近访问记录.QVR", project 最近访问记录, one record a screen,
// in it one field a visit, named by the first column of the list, its value the second. (Waits for the screens
// of suppliers and supply notes.)

#include <QString>
#include <QStringView>

#include "record/text_table.h"

namespace hotel {

inline constexpr int kRecentVisitLimit = 50;

// Records of the screens that keep one.
namespace recent_visits {
inline constexpr QStringView kProject = u"最近访问记录";
inline constexpr QStringView kSuppliers = u"供应商信息管理的最近访问记录";
inline constexpr QStringView kSupplyNotes = u"供应信息管理的最近访问记录";
inline constexpr QStringView kCustomers = u"客户信息管理的最近访问记录";
} // namespace recent_visits

// The record text of a list: its first kRecentVisitLimit rows, up to the first that has no name.
QString RecentListText(const TextTable& list);

// Writes the list to the user's file. Gives 0 when it is written.
int SaveRecentList(const TextTable& list, QStringView recordName);

// Replaces the rows of `list` by the visits kept, the name in the first column, the value in the
// second. A failed read leaves the list without rows.
void LoadRecentList(TextTable& list, QStringView recordName);

} // namespace hotel
