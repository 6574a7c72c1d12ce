#include "personnel/attendance/day_absences.h"

#include <algorithm>

#include "link/records.h"
#include "link/serv_api.h"
#include "personnel/attendance/day_check.h"
#include "personnel/attendance/day_presence.h"
#include "personnel/attendance/list_records.h"
#include "personnel/attendance/punch_decision.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "session/operation_log.h"
#include "session/session.h"

namespace hotel {

namespace {

constexpr QStringView kDayAbsences = u"当天缺勤数据";

struct Finding {
    QString category;
    QString value;
    QString note;
};

std::optional<Finding> FindingOf(const Presence& presence, const ShiftPeriod& period,
                                 const AnalysisSettings& settings) {
    if (presence.arrival && presence.departure)
        return {};
    if (presence.arrival) {
        if (settings.earlyLimit != 0)
            return Finding{u"早退"_s, QString::number(settings.earlyLimit),
                           u"没有下班考勤纪录,默认为早退,使用限额分钟数"_s};
        return Finding{u"早退"_s, QString::number(period.early),
                       u"没有下班考勤纪录,默认为早退,使用时段中可提前分钟数"_s};
    }
    if (presence.departure) {
        if (settings.lateLimit == 0)
            return Finding{u"迟到"_s, QString::number(period.late),
                           u"没有上班考勤纪录,默认为迟到,使用时段中可延迟分钟数"_s};
        return Finding{u"迟到"_s, QString::number(settings.lateLimit),
                       u"没有上班考勤纪录,默认为迟到,使用限额分钟数"_s};
    }
    const QString& category = settings.noPunch;
    if (presence.between)
        return Finding{category, period.dayValue,
                       u"不能判断上班下班,有中途考勤纪录，默认"_s + category + u",应该确定"_s};
    return Finding{category, period.dayValue, u"没有任何考勤纪录,默认为"_s + category};
}

void Adopt(TextTable& punches, int row, QStringView function, const ShiftPeriod& period) {
    punches.setText(row, punch_record::kFunction, function.toString());
    punches.setText(row, punch_record::kShift, period.name);
}

// The period of the day that a punch of another shift belongs to, if it may be moved there.
const ShiftPeriod* FittingPeriod(const TextTable& punches, int row,
                                 const QList<ShiftPeriod>& periods) {
    const QString shift = punches.text(row, punch_record::kShift);
    const int minute = CompuMin(punches.text(row, punch_record::kTime));
    const auto own = std::ranges::find(periods, shift, &ShiftPeriod::name);
    if (own != periods.end() && LiesInside(*own, minute))
        return nullptr;
    const auto fit = std::ranges::find_if(periods, [&](const ShiftPeriod& period) {
        return period.mode == kRotating && LiesInside(period, minute);
    });
    return fit == periods.end() ? nullptr : &*fit;
}

void Move(TextTable& punches, int row, const ShiftPeriod& period) {
    punches.setText(row, punch_record::kShift, period.name);
    const QString function = punches.text(row, punch_record::kFunction);
    if (!function.isEmpty() && function != punch_word::kUnknown)
        return;
    const WindowHit hit = HitOf(period, CompuMin(punches.text(row, punch_record::kTime)));
    const bool decided = !hit.function.isEmpty();
    punches.setText(row, punch_record::kFunction,
                    (decided ? hit.function : punch_word::kArrival).toString());
    punches.setText(row, punch_record::kState,
                    (decided ? hit.state : punch_word::kAtWork).toString());
    punches.setText(row, punch_record::kMode, period.mode);
}

QString LoggedText(const AbsenceEntry& entry) {
    return entry.number + u':' + entry.name + u", 折算:"_s + entry.value;
}

} // namespace

PunchChanges DeriveAbsences(AttendanceDay& day, const AnalysisSettings& settings,
                            const QString& corrector) {
    PunchChanges changes;
    day.absences.clearRows();
    const RowsOfPeople punchesOf = PunchesOfPeople(day.punches);
    const RowsOfPeople periodsOf = PeriodsOfPeople(day.periods);
    QStringList people = periodsOf.keys();
    people.sort();
    for (const QString& person : std::as_const(people)) {
        const QList<int> rows = punchesOf.value(person);
        QList<ShiftPeriod> periods;
        QSet<int> taken;
        for (const int periodRow : periodsOf[person]) {
            periods.append(PeriodOfRow(day.periods, periodRow));
            const ShiftPeriod& period = periods.last();
            const Presence presence = PresenceIn(period, day.punches, rows, taken);
            if (presence.arrivalAdopted) {
                Adopt(day.punches, presence.arrival, punch_word::kArrival, period);
                changes.adopted.append(presence.arrival);
            }
            if (presence.departureAdopted) {
                Adopt(day.punches, presence.departure, punch_word::kDeparture, period);
                changes.adopted.append(presence.departure);
            }
            if (const auto finding = FindingOf(presence, period, settings))
                day.absences.addRow({{},
                                     person,
                                     day.periods.row(periodRow)[1],
                                     period.name,
                                     finding->category,
                                     finding->value,
                                     finding->note,
                                     corrector});
        }
        for (const int row : rows) {
            if (const ShiftPeriod* fit = FittingPeriod(day.punches, row, periods)) {
                Move(day.punches, row, *fit);
                changes.moved.append(row);
            }
        }
    }
    day.absences.numberRows(0);
    return changes;
}

std::optional<Notice> SaveAbsences(const AttendanceDay& day) {
    if (SaveListAsProject(AttendanceFile(day.date), absence_record::kProject, day.absences))
        return {};
    return Notice{u"错误"_s, u"缺勤记录保存失败!"_s};
}

AbsenceOutcome MakeAbsences(AttendanceDay& day, const AnalysisSettings& settings) {
    AbsenceOutcome outcome;
    outcome.changes = DeriveAbsences(day, settings, CurrentSession().userName);
    for (const QList<int>& rows : {outcome.changes.adopted, outcome.changes.moved}) {
        for (const int row : rows) {
            const auto failed = UpdatePunchRecord(day, row,
                                                  {punch_record::kFunction, punch_record::kShift,
                                                   punch_record::kState, punch_record::kMode});
            if (failed && outcome.notices.isEmpty())
                outcome.notices.append(*failed);
        }
    }
    if (const auto failed = SaveAbsences(day))
        outcome.notices.append(*failed);
    SaveLogRec(kDayAbsences.toString(), u"处理某天缺勤记录操作"_s);
    if (!outcome.changes.moved.isEmpty())
        outcome.notices.append({u"提示"_s, kAdjustedWords.toString()});
    return outcome;
}

std::optional<Notice> AddAbsence(AttendanceDay& day, const AbsenceEntry& entry) {
    for (const QString& field :
         {entry.number, entry.name, entry.shift, entry.category, entry.value, entry.note}) {
        if (TrimWhite(field).isEmpty())
            return Notice{u"提示"_s, u"各项信息均不能为空"_s};
    }
    day.absences.addRow({{},
                         entry.number,
                         entry.name,
                         entry.shift,
                         entry.category,
                         entry.value,
                         entry.note,
                         CurrentSession().userName});
    day.absences.numberRows(0);
    SaveLogRec(u"手工增加处理缺勤记录操作"_s, LoggedText(entry));
    return SaveAbsences(day);
}

std::optional<Notice> DeleteAbsence(AttendanceDay& day, int row) {
    const AbsenceEntry entry{.number = day.absences.text(row, punch_record::kNumber),
                             .name = day.absences.text(row, punch_record::kName),
                             .shift = {},
                             .category = {},
                             .value = day.absences.text(row, absence_record::kValue),
                             .note = {}};
    day.absences.removeRow(row);
    day.absences.numberRows(0);
    SaveLogRec(u"手工删除缺勤记录操作"_s, u"删除的内容："_s + LoggedText(entry));
    return SaveAbsences(day);
}

} // namespace hotel
