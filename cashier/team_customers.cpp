#include "cashier/team_customers.h"

#include "link/next_number.h"
#include "link/records.h"
#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/field_walk.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "session/parameters.h"
#include "session/session.h"

#include <QSet>
#include <algorithm>

namespace hotel {

namespace {

using namespace team_customer;

constexpr qsizetype kNumberLength = 8;
constexpr QStringView kNumberFormat = u"00000000";

QSet<QString> Hits(const QString& key) {
    QSet<QString> numbers;
    for (int n = 1; n <= kTeamHitLimit; ++n) {
        const QString number = DbFindRecords(TeamCustomerFile(), kProject, key, {}, {}, n);
        if (number.isEmpty())
            break;
        numbers.insert(number);
    }
    return numbers;
}

QStringList CellsOf(QStringView number, QStringView record) {
    QStringList cells;
    for (const QString& title : TeamTitles())
        cells.append(GetTag(record, title));
    cells[1] = number.toString();
    return cells;
}

Notice Refusal(const QString& words) {
    return {u"请正确操作"_s, words};
}

TeamEditOutcome Saved(const QString& number, const QString& record) {
    if (SaveRecord(TeamCustomerFile(), kProject, number, record) == 0)
        return {true, {}, number};
    return {false, Notice{u"没有保存"_s, u"没有保存成功,稍候再试!"_s}};
}

std::optional<Notice> RefuseBoxes(QStringView boxes) {
    const QString number = GetTag(boxes, kNumber);
    if (!number.isEmpty() && !IsTeamNumber(number))
        return Refusal(u"编号必须是 8 位数字！"_s);
    if (GetTag(boxes, kName).isEmpty())
        return Refusal(u"请输入单位名称！"_s);
    return {};
}

// Another desk may have taken the number that was shown; so the record itself is asked for.
TeamEditOutcome AddNew(const QString& number, const QString& boxes) {
    const RecordRead before = ReadToChange(TeamCustomerFile(), kProject, number);
    if (before.failed())
        return {false, Notice{kUnreadTitle.toString(), kUnreadWords.toString()}};
    if (before.outcome == Reading::Present)
        return {false, Refusal(u"编号："_s + number + u" 已经有单位使用！"_s)};
    EnsureProject(TeamCustomerFile(), kProject);
    QString record = SetTag(boxes, kNumber, number);
    record = SetTag(record, kCreated, Clock::Today().toString(Qt::ISODate));
    return Saved(number, SetTag(record, kOperator, CurrentSession().userName));
}

} // namespace

QString TeamCustomerFile() {
    return Param(u"TdxxLj") + Param(u"Tdxx");
}

bool IsTeamNumber(QStringView text) {
    return text.size() == kNumberLength && DigitsOnly(text).size() == kNumberLength;
}

const QStringList& TeamTitles() {
    static const QStringList titles = {
        u"序号"_s,     u"编号"_s,     u"单位名称"_s, u"联系人"_s,   u"手机"_s,
        u"电话"_s,     u"传真"_s,     u"链接"_s,     u"地址"_s,     u"邮政编码"_s,
        u"简介"_s,     u"邮箱"_s,     u"简码"_s,     u"法人代表"_s, u"纳税号"_s,
        u"注册资金"_s, u"所在地区"_s, u"建立日期"_s, u"操作员"_s,   u"状态"_s,
    };
    return titles;
}

// The project in one read, however many are found.
TextTable FindTeams(const QString& key) {
    TextTable list(TeamTitles());
    const QString typed = TrimBlanks(key);
    const QSet<QString> hits = typed.isEmpty() ? QSet<QString>() : Hits(typed);
    if (!typed.isEmpty() && hits.isEmpty())
        return list;
    const QString project = ReadProject(TeamCustomerFile(), kProject);
    for (FieldWalk team(project); team.next();) {
        if (typed.isEmpty() || hits.contains(team.name().toString()))
            list.addRow(CellsOf(team.name(), team.value()));
    }
    list.numberRows(0);
    return list;
}

std::optional<QString> FindTeam(QStringView number) {
    return FindRecord(TeamCustomerFile(), kProject, number);
}

Notice NoSuchTeam() {
    return {u"查询结果"_s, u"没有类似的单位,请先增加或输入其他关键字试试!"_s};
}

std::optional<Notice> RefuseTeam(const QString& status) {
    if (status.isEmpty() || status == u"有效" || status == u"可用")
        return {};
    return Notice{u"不能签单"_s,
                  u"该单位的状态不是空白或：可用，处于："_s + status + u"请检查！"_s};
}

QString WithTeamName(const QString& note, const QString& name) {
    if (name.isEmpty() || note.contains(name))
        return note;
    return note.isEmpty() ? name : note + u',' + name;
}

TeamEditOutcome AddTeam(const QString& boxes) {
    if (const auto refusal = RefuseBoxes(boxes))
        return {false, refusal};
    const QString typed = GetTag(boxes, kNumber);
    if (!typed.isEmpty())
        return AddNew(typed, boxes);
    const QString next = NextNumberInProject(TeamCustomerFile(), kProject);
    return AddNew(FormatNumber(LeadingNumber(next), kNumberFormat), boxes);
}

TeamEditOutcome ChangeTeam(const QString& boxes) {
    if (const auto refusal = RefuseBoxes(boxes))
        return {false, refusal};
    const QString number = GetTag(boxes, kNumber);
    const RecordRead before = ReadToChange(TeamCustomerFile(), kProject, number);
    if (before.failed())
        return {false, Notice{kUnreadTitle.toString(), kUnreadWords.toString()}};
    if (number.isEmpty() || before.outcome == Reading::Absent)
        return {false, NoSuchTeam()};
    QString record = before.value;
    for (const QString& title : TeamTitles().sliced(1)) {
        if (title != kCreated && title != kOperator)
            record = SetTag(record, title, GetTag(boxes, title));
    }
    return Saved(number, record);
}

TeamEditOutcome DeleteTeam(QStringView number) {
    if (DeleteRecord(TeamCustomerFile(), kProject, number) == 0)
        return {true, {}};
    return {false, Notice{u"没有删除"_s, u"没有删除成功,稍候再试!"_s}};
}

} // namespace hotel
