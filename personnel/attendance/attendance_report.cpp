#include "personnel/attendance/attendance_report.h"

#include <QHash>
#include <QMap>

#include <algorithm>

#include "link/records.h"
#include "link/serv_api.h"
#include "personnel/attendance/day_lists.h"
#include "personnel/attendance/day_presence.h"
#include "personnel/attendance/list_records.h"
#include "personnel/attendance/punch_decision.h"
#include "personnel/attendance/staff_walk.h"
#include "record/conditions.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "tools/queries/query_text.h"
#include "tools/queries/query_walk.h"

namespace hotel {

namespace {

constexpr QStringView kYes = u"是";

struct QuestionRow {
    QStringView project;
    QStringView function;  // of the punches that count
    QStringView irregular; // field and state
    QStringList columns;
};

const QuestionRow& RowOf(AttendanceQuestion question) {
    static const QuestionRow rows[] = {
        {punch_record::kProject,
         punch_word::kArrival,
         punch_word::kLate,
         {u"编号"_s, u"姓名"_s, u"所在部门"_s, u"日期"_s, u"应到时间"_s, u"实到时间"_s, u"迟到"_s}},
        {punch_record::kProject,
         punch_word::kDeparture,
         punch_word::kEarly,
         {u"编号"_s, u"姓名"_s, u"所在部门"_s, u"日期"_s, u"下班时间"_s, u"离开时间"_s, u"早退"_s}},
        {absence_record::kProject,
         {},
         {},
         {u"编号"_s, u"姓名"_s, u"缺勤事由"_s, u"批准人"_s, u"开始时间"_s, u"结束时间"_s,
          u"缺勤天数"_s}}};
    return rows[int(question)];
}

// Start and end of the shifts as they are set now, by person and shift.
using ShiftTimes = QHash<QString, std::pair<QString, QString>>;

ShiftTimes ReadShiftTimes() {
    ShiftTimes times;
    EachDepartment([&](const QString&, QStringView employees) {
        EachEmployee(employees, [&](const QString& number, QStringView record) {
            for (const ShiftPeriod& period :
                 ReadShiftPeriods(GetTag(record, employee::kShiftPeriods)))
                times.insert(number + u'|' + period.name, {period.startText, period.endText});
        });
    });
    return times;
}

// The fields of a record that a row of an answer is made of.
QStringList RawColumns(AttendanceQuestion question) {
    using namespace punch_record;
    if (question == AttendanceQuestion::Absences)
        return {kNumber.toString(),
                kName.toString(),
                absence_record::kCategory.toString(),
                absence_record::kNote.toString(),
                kCorrector.toString(),
                absence_record::kValue.toString()};
    return {kNumber.toString(),     kName.toString(),
            kDepartment.toString(), kDate.toString(),
            kTime.toString(),       kState.toString(),
            kShift.toString(),      RowOf(question).irregular.toString(),
            kMark.toString()};
}

QStringList AnswerRow(AttendanceQuestion question, const QStringList& raw, QDate day,
                      const ShiftTimes& times) {
    if (question == AttendanceQuestion::Absences) {
        const bool inMinutes = raw[2] == punch_word::kLate || raw[2] == punch_word::kEarly;
        const QString date = day.toString(u"yyyy-MM-dd");
        return {raw[0],
                raw[1],
                raw[3].isEmpty() ? raw[2] : raw[2] + u"："_s + raw[3],
                raw[4],
                date,
                date,
                inMinutes ? u"0"_s : raw[5]};
    }
    const auto& [start, end] = times.value(raw[0] + u'|' + raw[6]);
    const bool irregular = raw[7] == kYes || raw[5] == RowOf(question).irregular;
    return {raw[0],
            raw[1],
            raw[2],
            raw[3],
            question == AttendanceQuestion::Arrivals ? start : end,
            raw[4],
            irregular ? kYes.toString() : QString()};
}

// One walk over the days of a period.
bool EachDay(QDate first, QDate last, const DayProgress& progress,
             const std::function<void(QDate day, const QString& file)>& use) {
    const int total = int(first.daysTo(last)) + 1;
    for (int done = 0; done < total; ++done) {
        const QDate day = first.addDays(done);
        const QString file = AttendanceFile(day);
        if (progress && !progress(file, done, total))
            return false;
        use(day, file);
    }
    return true;
}

struct PersonReport {
    QString name;
    QString department;
    int late = 0;
    int early = 0;
    Money leave;
    Money missed;
    Money travel;
    Money holidays;
    Money overtime; // hours
};
using Reports = QMap<QString, PersonReport>;

Money* DaysOf(PersonReport& report, QStringView category) {
    struct Kind {
        QStringView category;
        Money PersonReport::*days;
    };
    static constexpr Kind kKinds[] = {
        {u"请假", &PersonReport::leave},      {u"事假", &PersonReport::leave},
        {u"病假", &PersonReport::leave},      {u"旷工", &PersonReport::missed},
        {u"因公出差", &PersonReport::travel}, {u"出差", &PersonReport::travel},
        {u"休假", &PersonReport::holidays},   {u"换休", &PersonReport::holidays},
        {u"加班", &PersonReport::overtime}};
    const auto kind = std::ranges::find(kKinds, category, &Kind::category);
    return kind == std::end(kKinds) ? nullptr : &(report.*kind->days);
}

void ReportPunches(const TextTable& punches, Reports& reports) {
    const RowsOfPeople people = PunchesOfPeople(punches);
    for (auto person = people.cbegin(); person != people.cend(); ++person) {
        if (person->isEmpty())
            continue;
        PersonReport& report = reports[person.key()];
        QList<int> overtime;
        for (const int row : *person) {
            if (report.name.isEmpty())
                report.name = punches.text(row, punch_record::kName);
            if (report.department.isEmpty())
                report.department = punches.text(row, punch_record::kDepartment);
            const QString state = punches.text(row, punch_record::kState);
            const QString function = punches.text(row, punch_record::kFunction);
            report.late += function == punch_word::kArrival && state == punch_word::kLate;
            report.early += function == punch_word::kDeparture && state == punch_word::kEarly;
            if (IsOvertimePunch(punches, row))
                overtime.append(row);
        }
        if (overtime.size() < 2)
            continue;
        const auto minute = [&](int row) {
            return CompuMin(punches.text(row, punch_record::kTime));
        };
        constexpr qint64 kUnitsAnHour = 10000;
        report.overtime += Money::FromUnits((minute(overtime.last()) - minute(overtime.first())) *
                                            kUnitsAnHour / 60);
    }
}

void ReportAbsences(const TextTable& absences, Reports& reports) {
    for (int row = 1; row < absences.rows(); ++row) {
        PersonReport& report = reports[absences.text(row, punch_record::kNumber)];
        if (report.name.isEmpty())
            report.name = absences.text(row, punch_record::kName);
        if (Money* days = DaysOf(report, absences.text(row, absence_record::kCategory)))
            *days += Money::FromText(absences.text(row, absence_record::kValue));
    }
}

// An absence doesn't tell the department of who never punched.
void FillDepartments(Reports& reports) {
    EachDepartment([&reports](const QString& department, QStringView employees) {
        EachEmployee(employees, [&](const QString& number, QStringView) {
            const auto report = reports.find(number);
            if (report != reports.end() && report->department.isEmpty())
                report->department = department;
        });
    });
}

// The months of the chosen ones of which there are files, by the folders of the server.
std::pair<QDate, QDate> MonthsOnFile(QDate first, QDate last) {
    const auto month = [](FileCheck code) {
        const QString name = DbCheckFile(AttendanceFile(QDate(2000, 1, 1)), code);
        return QDate::fromString(u"20"_s + FormatNumber(LeadingNumber(name), u"0000") + u"01"_s,
                                 u"yyyyMMdd");
    };
    const QDate oldest = month(kFirstIndex);
    const QDate newest = month(kLastIndex);
    const auto endOf = [](QDate day) {
        return QDate(day.year(), day.month(), 1).addMonths(1).addDays(-1);
    };
    first = QDate(first.year(), first.month(), 1);
    last = endOf(last);
    if (!oldest.isValid() || !newest.isValid())
        return {first, first.addDays(-1)};
    return {std::max(first, oldest), std::min(last, endOf(newest))};
}

} // namespace

QString ConditionTextOf(AttendanceQuestion question, const AttendanceCondition& condition) {
    const QuestionRow& row = RowOf(question);
    QString text;
    int number = 0;
    if (question != AttendanceQuestion::Absences) {
        AddQueryCondition(text, kAnd, tag::kRecordName, u"大于",
                          condition.first.toString(u"yyMMdd") + u"000000"_s, number);
        AddQueryCondition(text, kAnd, tag::kRecordName, u"不大于",
                          condition.last.toString(u"yyMMdd") + u"300000"_s, number);
    }
    if (!condition.number.isEmpty())
        AddQueryCondition(text, kAnd, punch_record::kNumber, u"等于", condition.number, number);
    if (condition.onlyIrregular && !row.irregular.isEmpty()) {
        AddQueryCondition(text, kOr, row.irregular, u"等于", kYes, number);
        AddQueryCondition(text, kOr, punch_record::kState, u"等于", row.irregular, number);
    }
    if (!row.function.isEmpty())
        AddQueryCondition(text, kAnd, punch_record::kFunction, u"等于", row.function, number);
    return WrapConditions(text);
}

QStringList QuestionColumns(AttendanceQuestion question) {
    return RowOf(question).columns;
}

bool AskAttendance(AttendanceQuestion question, const AttendanceCondition& condition,
                   TextTable& list, const DayProgress& progress) {
    const QString conditionText = ConditionTextOf(question, condition);
    const ShiftTimes times =
        question == AttendanceQuestion::Absences ? ShiftTimes() : ReadShiftTimes();
    return EachDay(condition.first, condition.last, progress, [&](QDate day, const QString& file) {
        TextTable found(RawColumns(question));
        WalkFound(file, RowOf(question).project.toString(), conditionText, kNoNameColumn, found,
                  kLargeWalkLimit, [](int, int) { return true; });
        for (int row = 1; row < found.rows(); ++row) {
            if (found.text(row, punch_record::kMark) != kDeletedMark)
                list.addRow(AnswerRow(question, found.row(row), day, times));
        }
    });
}

QStringList ReportColumns() {
    return {u"编号"_s,     u"姓名"_s,     u"所在部门"_s, u"迟到次数"_s, u"早退次数"_s,
            u"请假天数"_s, u"旷工天数"_s, u"出差天数"_s, u"休假天数"_s, u"加班时间"_s};
}

ReportEnd ReportMonths(QDate first, QDate last, TextTable& list, const DayProgress& progress) {
    Reports reports;
    ReportEnd end;
    const auto [oldest, newest] = MonthsOnFile(first, last);
    if (oldest > newest) // or nobody answers
        end.unread = ReadProjectToChange(AttendanceFile(first), punch_record::kProject).failed();
    end.finished = EachDay(oldest, newest, progress, [&](QDate, const QString& file) {
        TextTable punches(PunchColumns());
        TextTable absences(AbsenceColumns());
        const Reading readings[] = {LoadProjectAsList(file, punch_record::kProject, punches),
                                    LoadProjectAsList(file, absence_record::kProject, absences)};
        end.unread += std::ranges::count(readings, Reading::Failed) > 0;
        ReportPunches(punches, reports);
        ReportAbsences(absences, reports);
    });
    FillDepartments(reports);
    for (auto person = reports.cbegin(); person != reports.cend(); ++person) {
        const PersonReport& sum = *person;
        QStringList cells = {person.key(), sum.name, sum.department, QString::number(sum.late),
                             QString::number(sum.early)};
        for (const Money days : {sum.leave, sum.missed, sum.travel, sum.holidays, sum.overtime})
            cells.append(days.text(u"#0.0"));
        list.addRow(cells);
    }
    return end;
}

} // namespace hotel
