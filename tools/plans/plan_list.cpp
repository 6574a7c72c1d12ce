#include "tools/plans/plan_list.h"

#include "link/QVRapp.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/field_columns.h"
#include "record/field_walk.h"
#include "record/record_text.h"
#include "session/session.h"

namespace hotel {

namespace {

constexpr QStringView kNumberForm = u"yyMMddHHmmss";
constexpr int kNumberTries = 500;
constexpr int kKeyColumn = 0;

Notice Unexpected(QStringView words) {
    return {u"意外错误"_s, words.toString()};
}

Notice Forbidden(QStringView words) {
    return {u"操作禁止"_s, words.toString()};
}

QStringView NumberTag(const PlanKind& kind) {
    return kind.columns.first();
}

// The row of one plan; the number is its key, whatever the record says.
QStringList CellsOf(const PlanKind& kind, const QString& number, QStringView record) {
    FieldColumns columns(kind.columns);
    QStringList cells = columns.cells(record, kind.columns);
    cells.first() = number;
    return cells;
}

// `record` with the plan's number, as its kind keeps it.
QString Numbered(const PlanKind& kind, const QString& record, const QString& number) {
    return SetTag(record, NumberTag(kind), kind.numberIsField ? number : QString());
}

bool MayChange(const PlanKind& kind, const QString& field) {
    if (field == NumberTag(kind))
        return false;
    if (!kind.closing.isEmpty())
        return kind.closing.contains(field);
    return field != kind.makerUnit && field != kind.maker;
}

int ShowPlan(const PlanKind& kind, TextTable& list, const QString& number, QStringView record) {
    const QStringList cells = CellsOf(kind, number, record);
    if (list.dataRows() != 1 || IsPlan(list, 1))
        return list.addRow(cells);
    list.setRow(1, cells); // the blank one
    return 1;
}

// Plans are looked for in the list and in the file; the file isn't asked for what the list has.
std::optional<bool> IsTaken(const PlanKind& kind, const TextTable& list, const QString& number) {
    if (list.find(kKeyColumn, number) > 0)
        return true;
    const RecordRead read = ReadToChange(kind.file(), kind.project, number);
    if (read.failed())
        return {};
    return read.outcome == Reading::Present;
}

std::optional<Notice> RefuseDeletion(const PlanKind& kind, const TextTable& list, int row) {
    const Session& session = CurrentSession();
    const auto cell = [&](QStringView column) { return list.text(row, column); };
    const bool onlyToday = !kind.madeOn.isEmpty();
    if (onlyToday && (row != list.dataRows() || cell(kind.madeOn) != Clock::DateText()))
        return Forbidden(kind.notToday);
    if (cell(kind.makerUnit) != session.userDept || cell(kind.maker) != session.userName)
        return Forbidden(kind.notOwn);
    return {};
}

void RemoveRow(TextTable& list, int row) {
    if (list.dataRows() == 1)
        list.setRow(row, {});
    else
        list.removeRow(row);
}

} // namespace

bool IsPlan(const TextTable& list, int row) {
    return !list.text(row, kKeyColumn).isEmpty();
}

std::optional<TextTable> LoadPlans(const PlanKind& kind) {
    const RecordRead project = ReadProjectToChange(kind.file(), kind.project);
    if (project.failed())
        return {};
    TextTable list(kind.columns);
    FieldColumns columns(kind.columns);
    for (FieldWalk record(project.value); record.next();) {
        QStringList cells = columns.cells(record.value(), list.row(list.dataRows()));
        cells.first() = record.name().toString();
        list.addRow(cells);
    }
    return list;
}

std::optional<QString> FreePlanNumber(const PlanKind& kind, const TextTable& list) {
    const QDateTime now = Clock::Now();
    for (int tries = 0; tries < kNumberTries; ++tries) {
        const QString number = now.addSecs(tries).toString(kNumberForm);
        const std::optional<bool> taken = IsTaken(kind, list, number);
        if (!taken)
            return {};
        if (!*taken)
            return number;
    }
    return {};
}

PlanOutcome AddPlan(const PlanKind& kind, TextTable& list, const QString& record) {
    if (const auto refusal = kind.check(record))
        return {.notice = refusal};
    QString number = GetTag(record, NumberTag(kind));
    const std::optional<bool> taken = number.isEmpty() ? true : IsTaken(kind, list, number);
    if (taken.value_or(true))
        number = taken ? FreePlanNumber(kind, list).value_or(QString()) : QString();
    QString added = Numbered(kind, record, number);
    for (const QString& field : kind.closing)
        added = SetTag(added, field, {});
    if (!number.isEmpty())
        EnsureProject(kind.file(), kind.project);
    if (number.isEmpty() || SaveRecord(kind.file(), kind.project, number, added) != 0)
        return {.notice = Unexpected(kind.notSaved)};
    return {.done = true, .row = ShowPlan(kind, list, number, added)};
}

PlanOutcome ChangePlan(const PlanKind& kind, TextTable& list, int row, const QString& record,
                       const QStringList& more) {
    const auto check = kind.closing.isEmpty() ? kind.check : kind.checkClosing;
    if (const auto refusal = check(record))
        return {.notice = refusal};
    const QString number = list.text(row, kKeyColumn);
    const RecordRead standing = ReadToChange(kind.file(), kind.project, number);
    if (standing.outcome != Reading::Present)
        return {.notice = Unexpected(kind.notChanged)};
    QString changed = standing.value;
    QString entered = record;
    if (!kind.closer.isEmpty() && GetTag(record, kind.closer).isEmpty())
        entered = SetTag(entered, kind.closer, CurrentSession().userName);
    for (const QString& field : kind.columns + more) {
        if (MayChange(kind, field))
            changed = SetTag(changed, field, GetTag(entered, field));
    }
    if (SaveRecord(kind.file(), kind.project, number, changed) != 0)
        return {.notice = Unexpected(kind.notChanged)};
    list.setRow(row, CellsOf(kind, number, changed));
    return {.done = true, .row = row};
}

PlanOutcome DeletePlan(const PlanKind& kind, TextTable& list, int row) {
    if (const auto refusal = RefuseDeletion(kind, list, row))
        return {.notice = refusal};
    if (DeleteRecord(kind.file(), kind.project, list.text(row, kKeyColumn)) != 0)
        return {.notice = Unexpected(u"数据删除失败,请再试一次！")};
    RemoveRow(list, row);
    return {.done = true};
}

TidyOutcome TidyPlans(const PlanKind& kind, TextTable& list,
                      const std::function<bool(int done, int all)>& goesOn) {
    TidyOutcome outcome;
    const QDate today = Clock::Today();
    const QString file = kind.file();
    const QString project = kind.project.toString();
    const int all = list.dataRows();
    for (int row = all; row >= 1; --row) {
        if (goesOn && !goesOn(all - row, all))
            break;
        if (!IsPlan(list, row) || !kind.isDone(list, row, today))
            continue;
        const QString number = list.text(row, kKeyColumn);
        if (MoveRecord(file, project, number, PlanHistoryFile(kind, number), project, number) ==
            0) {
            RemoveRow(list, row);
            ++outcome.moved;
        } else {
            ++outcome.failed;
        }
    }
    return outcome;
}

QString PlanHistoryFile(const PlanKind& kind, QStringView number) {
    return kind.folder() + number.left(2) + u'\\' + number.left(4) + u".QVR";
}

QString PlanHistoryFile(const PlanKind& kind, QDate month) {
    return PlanHistoryFile(kind, month.toString(u"yyMM"));
}

} // namespace hotel
