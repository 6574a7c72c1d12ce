#include "personnel/staff/employee_change.h"

#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "session/operation_log.h"
#include "session/session.h"

namespace hotel {

namespace {

using namespace employee;

constexpr QStringView kFill = u"000000000";
constexpr int kUsualLength = 4;
constexpr qsizetype kEntryDigits = 2; // of the entries of a list

Notice Unread() {
    return {kUnreadTitle.toString(), kUnreadWords.toString()};
}

EmployeeKey KeyOf(QStringView record) {
    return {TrimWhite(EmployeeValue(record, kDepartment)),
            TrimWhite(EmployeeValue(record, kNumber))};
}

QString LogRemark(const EmployeeKey& key) {
    return u"员工部门:"_s + key.department + u",编号:"_s + key.number;
}

// One of the two records of an employee: where it lies and goes, and what is said of it.
struct Copy {
    QString (*file)();
    QString (*history)();
    QStringView word;
    QStringView historyWord;
};
constexpr Copy kBrief = {EmployeeBriefFile, FormerEmployeeBriefFile, u"简明信息",
                         u"简明历史纪录库"};
constexpr Copy kDetails = {EmployeeFile, FormerEmployeeFile, u"信息", u"历史纪录库"};
constexpr QStringView kDetailWord = u"详细信息";

void DeleteOld(const Copy& copy, QStringView word, const EmployeeKey& key, QStringList& lines) {
    const bool gone = DeleteRecord(copy.file(), key.department, key.number) == 0;
    lines.append(u"员工原有"_s + word + (gone ? u"删除成功!"_s : u"无法删除!"_s));
}

bool Write(const Copy& copy, QStringView word, const EmployeeKey& key, const QString& value,
           QStringList& lines) {
    const bool written = SaveRecord(copy.file(), key.department, key.number, value) == 0;
    lines.append(u"员工"_s + word + (written ? u"已经更新!"_s : u"无法更新!"_s));
    return written;
}

QString FreeMoment(QStringView department) {
    for (QDateTime moment = Clock::Now();; moment = moment.addSecs(1)) {
        const QString key = moment.toString(u"yyMMddHHmmss");
        if (!FindRecord(FormerEmployeeFile(), department, key))
            return key;
    }
}

QString AsFormer(const QString& record) {
    return SetTag(SetTag(record, kLeftOn, Clock::DateText()), kLeftBy, CurrentSession().userName);
}

// Into history, then away from the living; false where the record is still among these.
bool MoveToHistory(const Copy& copy, const EmployeeKey& key, const QString& historyKey,
                   const QString& record, QStringList& lines) {
    const QString word = copy.word.toString();
    if (SaveRecord(copy.history(), key.department, historyKey, AsFormer(record)) != 0) {
        lines.append(word + u"无法存入"_s + copy.historyWord + u"，没有删除！"_s);
        return false;
    }
    const bool gone = DeleteRecord(copy.file(), key.department, key.number) == 0;
    lines.append(word + (gone ? u"删除成功！"_s : u"无法删除！"_s));
    lines.append(word + (gone ? u"删除后成功存入"_s : u"已经存入"_s) + copy.historyWord +
                 u"中！"_s);
    return gone;
}

QString OrNone(const QString& text) {
    return text.isEmpty() ? u"无"_s : text;
}

} // namespace

std::optional<Notice> RefuseEmployee(QStringView record) {
    const EmployeeKey key = KeyOf(record);
    for (const auto& [value, words] :
         {std::pair{key.number, u"员工编号不能空白！"_s},
          std::pair{EmployeeValue(record, kName), u"员工姓名不能空白！"_s},
          std::pair{key.department, u"所在部门不能空白！"_s}}) {
        if (TrimWhite(value).isEmpty())
            return Notice{u"请注意"_s, words};
    }
    if (key.department == kAllDepartments)
        return Notice{u"请注意"_s, u"请选择员工所在的具体部门！"_s};
    if (key.number.contains(u'<') || key.number.contains(u'>'))
        return Notice{u"请注意"_s, u"员工编号不能含有“<”或“>”！"_s};
    if (key.number.size() == kEntryDigits && DigitsOnly(key.number) == key.number)
        return Notice{u"请注意"_s, u"员工编号不能只有两位数字，请在前面补0！"_s};
    return std::nullopt;
}

QString NextEmployeeNumber(QStringView like) {
    qint64 greatest = 0;
    qsizetype length = like.isEmpty() ? kUsualLength : like.size();
    for (const QString& department : StaffDepartments()) {
        for (int n = 1;; ++n) {
            const QString number = DbRecordList(EmployeeFile(), department, n);
            if (number.isEmpty())
                break;
            const bool counts = number.size() <= kFill.size() && DigitsOnly(number) == number;
            if (!counts || number.toLongLong() <= greatest)
                continue;
            greatest = number.toLongLong();
            if (like.isEmpty())
                length = number.size();
        }
    }
    const QString next = QString::number(greatest + 1);
    return (kFill + next).right(qMax(qMax(length, next.size()), kEntryDigits + 1));
}

SaveOutcome SaveEmployee(const EmployeeKey& before, const QString& record, bool removeOld) {
    SaveOutcome outcome;
    outcome.notice = RefuseEmployee(record);
    if (outcome.notice)
        return outcome;
    const EmployeeKey key = KeyOf(record);
    if (key.number != before.number) {
        const Reading taken = EmployeeNumberTaken(key.number);
        if (taken == Reading::Failed) {
            outcome.notice = Unread();
            return outcome;
        }
        if (taken == Reading::Present)
            return {SaveStep::NumberTaken, {}, NextEmployeeNumber(key.number), {}};
    }
    if (!before.isNew()) {
        const Reading standing =
            ReadToChange(EmployeeFile(), before.department, before.number).outcome;
        if (standing == Reading::Absent)
            outcome.notice = Notice{
                u"请注意"_s, u"这个员工已经不在原来的部门，可能已被删除或调离，没有保存！"_s};
        if (standing == Reading::Failed)
            outcome.notice = Unread();
    }
    const auto titles = StaffTitles();
    if (!titles)
        outcome.notice = Unread();
    if (outcome.notice)
        return outcome;
    outcome.number = key.number;
    const QString brief = BriefRecord(record, *titles);
    const bool moves = key != before;
    const auto writeBrief = [&] { return Write(kBrief, kBrief.word, key, brief, outcome.lines); };
    const auto writeDetails = [&] {
        return Write(kDetails, kDetailWord, key, record, outcome.lines);
    };
    // At a new place the details come last: without them the number isn't taken, and F8 can be pressed again.
    bool written = moves ? writeBrief() && writeDetails() : writeDetails();
    if (!moves)
        written = writeBrief() && written;
    const bool renumbered = key.number != before.number;
    if (written && !before.isNew() && moves && (removeOld || !renumbered)) {
        DeleteOld(kBrief, kBrief.word, before, outcome.lines);
        DeleteOld(kDetails, kDetailWord, before, outcome.lines);
    }
    outcome.step = written ? SaveStep::Written : SaveStep::Failed;
    if (written)
        SaveLogRec(before.isNew() ? u"新增员工信息"_s : u"修改员工信息"_s, LogRemark(key));
    return outcome;
}

DeleteOutcome DeleteEmployee(const EmployeeKey& key) {
    const RecordRead brief = ReadToChange(EmployeeBriefFile(), key.department, key.number);
    const RecordRead details = ReadToChange(EmployeeFile(), key.department, key.number);
    if (brief.failed() || details.failed())
        return {false, {kUnreadWords.toString()}};
    DeleteOutcome outcome{true, {}};
    if (brief.outcome == Reading::Present)
        outcome.done = MoveToHistory(kBrief, key, key.number, brief.value, outcome.lines);
    if (details.outcome == Reading::Present)
        outcome.done = MoveToHistory(kDetails, key, FreeMoment(key.department), details.value,
                                     outcome.lines) &&
                       outcome.done;
    if (outcome.done)
        SaveLogRec(u"删除员工信息"_s, LogRemark(key));
    return outcome;
}

// --- changes that leave a line in 工作经历 ---

CareerChange TransferChange(const QString& name, const QString& from, const QString& to,
                            const QString& post) {
    return {u"是否要将员工："_s + name + u" 从 "_s + from + u" 调往 "_s + to + u"?"_s,
            u"工作内部调动"_s, to, post};
}

CareerChange SecondJobChange(const QString& name, const QString& from, const QString& to,
                             const QString& post) {
    return {u"是否调整员工的兼职岗位："_s + name + u" 从 "_s + OrNone(from) + u" 改为 "_s +
                OrNone(to) + u"?"_s,
            u"兼职岗位调整"_s, to, post};
}

CareerChange EmployeeStatusChange(const QString& name, const QString& from, const QString& to) {
    if (from.isEmpty())
        return {u"是否要记录员工："_s + name + u" 进入任职状态 "_s + to + u"?"_s,
                u"工作状态进入 "_s + to,
                {},
                {}};
    return {u"是否要记录员工："_s + name + u" 任职状态从 "_s + from + u" 变化到 "_s + to + u"?"_s,
            u"工作状态从 "_s + from + u" 变化到 "_s + to,
            {},
            {}};
}

QString CareerEntry(QStringView record, const QString& departmentBefore,
                    const CareerChange& change) {
    const std::pair<QStringView, QString> fields[] = {
        {u"工作开始", Clock::DateText()},
        {u"工作部门", departmentBefore},
        {u"当时职务", EmployeeValue(record, kPost)},
        {u"当时职称", EmployeeValue(record, kTitle)},
        {u"经历说明", change.words},
        {u"调入部门", change.department},
        {u"调入岗位", change.department.isEmpty() ? QString() : change.post},
        {u"录入员", CurrentSession().userName},
    };
    QString entry;
    for (const auto& [field, value] : fields)
        entry = SetTag(entry, field, value);
    return entry;
}

} // namespace hotel
