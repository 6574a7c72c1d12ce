#pragma once

// The companies that settle later what their guests owe: the team customers. One record each in the team
// customer file (parameters TdxxLj and Tdxx), keyed by the company's number of eight digits. Its fields
// are the titles of the list, from 编号 on; 状态 empty, 有效 or 可用 means that the company may sign.

#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

#include "record/text_table.h"
#include "session/notice.h"

namespace hotel {

namespace team_customer {
inline constexpr QStringView kProject = u"团队客户信息";
inline constexpr QStringView kSerial = u"序号";
inline constexpr QStringView kNumber = u"编号";
inline constexpr QStringView kName = u"单位名称";
inline constexpr QStringView kCreated = u"建立日期";
inline constexpr QStringView kOperator = u"操作员";
inline constexpr QStringView kStatus = u"状态";
} // namespace team_customer

inline constexpr int kTeamHitLimit = 1000;

QString TeamCustomerFile();
bool IsTeamNumber(QStringView text); // eight digits

// Titles of a list of companies; 序号 counts its rows.
const QStringList& TeamTitles();

// The companies in which `key` occurs; all of them for an empty one. In the order of the file.
TextTable FindTeams(const QString& key);

// The company's record; nothing when there is none.
std::optional<QString> FindTeam(QStringView number);

Notice NoSuchTeam();

// Why a company with this status may not sign.
std::optional<Notice> RefuseTeam(const QString& status);

// `note` with the company's name at its end, unless it is there already.
QString WithTeamName(const QString& note, const QString& name);

// --- keeping them ---

struct TeamEditOutcome {
    bool done = false;
    std::optional<Notice> notice;
    QString number = {}; // of the company that was written
};
// `boxes` is what stands in the entry boxes, as record text. A company without a number gets the next
// free one. Day and operator of a new company are filled in.
TeamEditOutcome AddTeam(const QString& boxes);
TeamEditOutcome ChangeTeam(const QString& boxes);
TeamEditOutcome DeleteTeam(QStringView number);

} // namespace hotel
