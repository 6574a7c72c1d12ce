#pragma once

// Periodic reports of attendance (考勤报表): arrivals, departures and absences by conditions, and the report of
// months (attendance_report.h). A condition is composed from the fields and added by CmdAddTj; a search runs on what
// was added. Opened from the statistics.

#include <optional>

#include "personnel/attendance/attendance_report.h"
#include "screen/screen.h"

class QTabWidget;

namespace hotel {

class FieldForm;
class GridView;

class FrmKqCount : public Screen {
    Q_OBJECT

public:
    FrmKqCount();
    void load(const QVariant& argument) override;

private:
    void CmdAddTj_Click();
    void CmdClear_Click();
    void count(AttendanceQuestion question);
    void CmdBbCount_Click();
    void print(int page);
    void FileSave_Click();
    DayProgress walk();

    FieldForm* condition_; // KsDate, JsDate, Ygbh, CdTj
    GridView* TjQd;        // the condition that was added, a row a part
    QTabWidget* Tabs;
    QList<GridView*> lists_; // 上班登记, 下班登记, 缺勤信息, 定期报表
    std::optional<AttendanceCondition> added_;
};

} // namespace hotel
