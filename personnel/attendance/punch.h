#pragma once

// One punch, from what was typed or swiped to its record in the day's file, without a window:
//
//     PreparedPunch punch = PreparePunch(directory, u"1024");
//     if (const auto refusal = CheckPunch(punch)) ...
//     const auto key = file.save(punch);
//
// The record bears, in this order of writing, 编号 姓名 所在部门 职务 实到时间 状态 班次名称 考勤方式 考勤功能 模式
// 日期 考勤说明 操作员 地点 (day_records.h). Its key is the moment of the punch; where that is taken, the next second
// that is free. Two desks that punch within one second and look before either has written get the same key, and the
// later one's record stays: that is accepted.

#include <optional>

#include "personnel/attendance/day_records.h"
#include "personnel/attendance/punch_decision.h"
#include "personnel/attendance/staff_directory.h"
#include "record/text_table.h"
#include "session/notice.h"

namespace hotel {

namespace punch_means {
inline constexpr QStringView kKeyboard = u"键盘操作";
inline constexpr QStringView kMouse = u"鼠标操作";
inline constexpr QStringView kMagneticCard =
    u"磁卡刷卡";                                  // a reader that frames what it reads: ;1024?
inline constexpr QStringView kCard = u"刷卡模式"; // found by the card
inline constexpr QStringView kBuffer = u"快速缓冲";
} // namespace punch_means

// Date and time of the server; what it answers in a wrong length is asked for once more. Nothing when it
// tells no time.
std::optional<QDateTime> ServerMoment();

struct PreparedPunch {
    bool served = false; // the server has told what the decision needs
    StaffMember person;  // without a name: nobody is meant
    QDateTime moment;
    PunchDecision decision;
    QString birthday; // yyyy-MM-dd
    QString means;
    QString note;
    QString operatorName;
    QString place;

    bool isBirthday() const;
};

// Who is meant, and what his punch means now. A person whose record is gone from his department (he was
// transferred) is looked for once more; one whose record can't be read, or without periods, works overtime.
PreparedPunch PreparePunch(StaffDirectory& directory, QStringView entered);

inline constexpr QStringView kPunchRefused = u"考勤失败";
std::optional<Notice> CheckPunch(const PreparedPunch& punch);

// An entry of the quick buffer: number, position, lock with "," between them. The lock is that of the door whose
// reader sent it, and is not recorded.
struct BufferedPunch {
    QString number;
    QString place;
};
BufferedPunch ReadBufferedPunch(QStringView entry);

// Kqqd of the punching desk: 序号, the fields of a punch, 记录号.
QStringList DeskColumns();
// Adds the punch; its key is empty until it is saved.
int AddDeskRow(TextTable& list, const PreparedPunch& punch);

class PunchFile {
public:
    // Writes the punch; its key, or nothing when it was not written. The day's file is made by the first
    // punch of a day.
    std::optional<QString> save(const PreparedPunch& punch);

private:
    QString madeFile_;
};

// The record of a punch.
QString PunchText(const PreparedPunch& punch);

} // namespace hotel
