#include "personnel/attendance/day_check.h"

#include <QSet>

#include "link/records.h"
#include "personnel/attendance/punch_decision.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "session/operation_log.h"
#include "session/session.h"

namespace hotel {

namespace {

using namespace punch_record;

const Notice kWriteFailed{u"错误"_s, u"记录修改失败!"_s};

std::optional<Notice> CorrectCell(AttendanceDay& day, int row, QStringView field,
                                  const QString& value) {
    const QString before = day.punches.text(row, field);
    day.punches.setText(row, field, value);
    const auto failed = UpdatePunchRecord(day, row, {field});
    if (failed)
        day.punches.setText(row, field, before);
    return failed;
}

// Of a person's punches, by time, those that say once more what another one says: of the same shift and function.
QList<int> Repeats(const TextTable& punches, const QList<int>& rows) {
    static const TextTable kColumns(PunchColumns());
    static const int kShiftColumn = kColumns.column(kShift);
    static const int kFunctionColumn = kColumns.column(kFunction);
    static const int kStateColumn = kColumns.column(kState);
    QList<int> repeats;
    QSet<QString> seen;
    const auto look = [&](int row) {
        const QStringList& cells = punches.row(row);
        const QString name = cells[kShiftColumn] + u'|' + cells[kFunctionColumn];
        if (seen.contains(name))
            repeats.append(row);
        seen.insert(name);
    };
    for (const int row : rows) {
        const QStringList& cells = punches.row(row);
        const QString& function = cells[kFunctionColumn];
        if (function.isEmpty() ||
            (function == punch_word::kArrival && cells[kStateColumn] != punch_word::kAtWork))
            look(row);
    }
    for (auto row = rows.crbegin(); row != rows.crend(); ++row) {
        if (punches.row(*row)[kFunctionColumn] == punch_word::kDeparture)
            look(*row);
    }
    return repeats;
}

} // namespace

std::optional<Notice> UpdatePunchRecord(AttendanceDay& day, int row,
                                        const QList<QStringView>& fields) {
    const QString file = AttendanceFile(day.date);
    const QString key = day.punches.text(row, kRecordKey);
    const RecordRead stored = ReadToChange(file, kProject, key);
    if (stored.outcome != Reading::Present)
        return kWriteFailed;
    QString record = stored.value;
    for (const QStringView field : fields)
        record = SetTag(record, field, day.punches.text(row, field));
    const QString corrector = CurrentSession().userName;
    const QString today = Clock::DateText();
    record = SetTag(record, kCorrector, corrector);
    record = SetTag(record, kCorrected, today);
    if (SaveRecord(file, kProject, key, record) != 0)
        return kWriteFailed;
    day.punches.setText(row, kCorrector, corrector);
    day.punches.setText(row, kCorrected, today);
    return {};
}

std::optional<Notice> CorrectState(AttendanceDay& day, int row, const QString& state) {
    if (state.isEmpty())
        return Notice{u"操作无效"_s, u"请先选择一种状态，再执行点击修改状态功能"_s};
    return CorrectCell(day, row, kState, state);
}

std::optional<Notice> CorrectShift(AttendanceDay& day, int row, const QString& shift) {
    if (shift.isEmpty())
        return Notice{u"操作无效"_s, u"请先选择一种班次，再执行点击修改考勤班次"_s};
    return CorrectCell(day, row, kShift, shift);
}

std::optional<Notice> CorrectNote(AttendanceDay& day, int row, const QString& note) {
    if (note.isEmpty())
        return Notice{
            u"操作无效"_s,
            u"请先输入考勤说明信息，再执行点击修改说明功能，将输入的说明信息填入记录单元中"_s};
    return CorrectCell(day, row, kNote, note);
}

std::optional<Notice> MarkPunch(AttendanceDay& day, int row, bool deleted) {
    return CorrectCell(day, row, kMark, deleted ? kDeletedMark.toString() : QString());
}

QList<int> MarkPunches(AttendanceDay& day) {
    TextTable& punches = day.punches;
    const int mark = punches.column(kMark);
    const int number = punches.column(kNumber);
    const int time = punches.column(kTime);
    for (int row = punches.rows() - 1; row >= 1; --row) {
        if (!punches.row(row)[mark].isEmpty())
            punches.removeRow(row);
    }
    punches.numberRows(0);

    QList<int> marked;
    for (int row = 1; row < punches.rows(); ++row) {
        const QStringList& cells = punches.row(row);
        if (cells[number].isEmpty() || cells[time].isEmpty())
            marked.append(row);
    }
    const RowsOfPeople people = PunchesOfPeople(punches);
    for (auto person = people.cbegin(); person != people.cend(); ++person) {
        if (!person.key().isEmpty())
            marked += Repeats(punches, *person);
    }
    for (const int row : std::as_const(marked))
        punches.setText(row, kMark, kDeletedMark.toString());
    return marked;
}

CheckOutcome CheckPunches(AttendanceDay& day) {
    CheckOutcome outcome;
    const QList<int> marked = MarkPunches(day);
    outcome.marked = int(marked.size());
    for (const int row : marked) {
        if (!outcome.notice)
            outcome.notice = UpdatePunchRecord(day, row, {kMark});
        if (outcome.notice)
            day.punches.setText(row, kMark, {}); // not written, and to be found again
    }
    SaveLogRec(u"自动检查考勤记录操作"_s, day.date.toString(u"yyyy-MM-dd"));
    return outcome;
}

} // namespace hotel
