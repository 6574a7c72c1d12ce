#pragma once

// Attendance over time (考勤统计): the saved results of the days of a period, summed for a department or all
// (period_statistics.h), with charts of what is compared: lateness by day, attendance by department. The walk over
// the days can be stopped.

#include "personnel/attendance/period_statistics.h"
#include "screen/screen.h"

class QTabWidget;

namespace hotel {

class FieldForm;
class ChartPane;
class GridView;

class FrmTj : public Screen {
    Q_OBJECT

public:
    FrmTj();
    void load(const QVariant& argument) override;

private:
    void CmdTj_Click();
    bool showsShifts() const;
    void CmdPrint_Click();
    void CmdFile_Click();
    void showResult(const PeriodStatistics& result);

    FieldForm* period_; // KsDate, JsDate, ComBm
    QTabWidget* Tabs;
    GridView* KqtjQd;
    GridView* BctjQd;
    ChartPane* byDay_;
    ChartPane* byDepartment_;
    QString lastFile_;
};

} // namespace hotel
