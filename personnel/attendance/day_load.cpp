#include "personnel/attendance/day_load.h"

#include "link/records.h"
#include "personnel/attendance/day_check.h"
#include "personnel/attendance/day_statistics.h"
#include "personnel/attendance/list_records.h"
#include "personnel/attendance/staff_walk.h"
#include "record/literals.h"
#include "record/record_text.h"

namespace hotel {

bool LoadKqsdQd(AttendanceDay& day, const WalkProgress& progress) {
    for (TextTable* list : {&day.periods, &day.statistics, &day.shifts})
        list->clearRows();
    const int weekday = RuleWeekday(day.date);
    return EachDepartment(
        [&](const QString& department, QStringView employees) {
            EachEmployee(employees, [&](const QString& number, QStringView record) {
                const QString name = GetTag(record, employee::kName);
                AddPerson(day, number, name, department);
                AddDuePeriods(day.periods, {number, name, department},
                              GetTag(record, employee::kShiftPeriods), weekday);
            });
        },
        progress);
}

bool LoadPunches(AttendanceDay& day) {
    const int key = day.punches.column(kRecordKey);
    if (LoadProjectAsList(AttendanceFile(day.date), punch_record::kProject, day.punches, key) ==
        Reading::Failed)
        return false;
    day.punches.sort(key, TextTable::Order::Text);
    day.punches.numberRows(0);
    return true;
}

bool LoadAbsences(AttendanceDay& day) {
    return LoadProjectAsList(AttendanceFile(day.date), absence_record::kProject, day.absences) !=
           Reading::Failed;
}

QList<Notice> WorkOffDay(QDate date, const AnalysisSettings& settings) {
    AttendanceDay day;
    day.date = date;
    if (!LoadKqsdQd(day) || !LoadPunches(day))
        return {{u"错误"_s, u"考勤数据读取失败！"_s}};
    if (const auto notice = CheckPunches(day).notice)
        return {*notice};
    AbsenceOutcome absences = MakeAbsences(day, settings);
    if (!absences.changes.moved.isEmpty()) {
        absences = MakeAbsences(day, settings);
    }
    QList<Notice> notices = absences.notices;
    for (const auto& notice : {MakeStatistics(day, settings), SaveStatistics(day)}) {
        if (notice)
            notices.append(*notice);
    }
    return notices;
}

} // namespace hotel
