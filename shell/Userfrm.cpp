#include "shell/Userfrm.h"

#include <algorithm>

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "link/records.h"
#include "record/conditions.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/check_list.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/key_filter.h"
#include "screen/messages.h"
#include "session/session.h"
#include "tools/queries/list_query.h"

namespace hotel {

namespace {

const QList<FormField> kBoxes = {
    {kUserId, u"UserID", u"用户名", Editor::Text, {}, 20},
    {user_record::kName, u"UserName", u"姓名", Editor::Text, {}, 20},
    {user_record::kDepartment, u"UserDept", u"部门", Editor::CategoryText, u"经办单位", 20},
    {user_record::kPassword, u"Password", u"密码", Editor::Password, {}, 20},
    {user_record::kAddress, u"IPaddr", u"IP地址", Editor::Text, {}, 20, 15},
};
constexpr int kBoxColumns = 1;

const QStringList kTitles = {u"序号"_s, u"用户名"_s, u"姓名"_s, u"部门"_s, u"IP地址"_s};

} // namespace

Userfrm::Userfrm()
    : Screen(u"Userfrm"_s, u"用户管理"_s), QVRTrVw(new GridView(u"QVRTrVw"_s)),
      boxes_(new FieldForm(kBoxes, kBoxColumns)), PrivList(new CheckList(u"PrivList"_s)) {
    QVRTrVw->table().setHeaders(kTitles);
    QVRTrVw->setNumberColumn(0);
    QVRTrVw->setSortable(true);
    SetKeyFilter(boxes_->editor<QLineEdit>(u"UserID"), KeyFilter::Capitals);
    SetKeyFilter(boxes_->editor<QLineEdit>(u"IPaddr"), KeyFilter::Amount, 15);

    QStringList rights;
    for (const QStringView right : OfferedRights())
        rights.append(right.toString());
    PrivList->setEntries(rights);
    PrivList->setTicks(TicksOf({}));

    auto* entry = new QVBoxLayout;
    entry->addWidget(boxes_);
    entry->addWidget(new QLabel(u"权限（空格键或单击选择）"_s));
    entry->addWidget(PrivList, 1);
    auto* content = new QHBoxLayout;
    content->addWidget(QVRTrVw, 3);
    content->addSpacing(16);
    content->addLayout(entry, 2);
    setContent(content);

    addCommands({
        {u"CmdAdd"_s, u"增加"_s, [this] { CmdAdd_Click(); }, Qt::Key_F5, CommandKind::Default},
        {u"CmdModify"_s, u"修改"_s, [this] { CmdModify_Click(); }, Qt::Key_F6},
        {u"cmdDel"_s, u"删除"_s, [this] { cmdDel_Click(); }, Qt::Key_F7},
        {u"CmdFile"_s, u"保存"_s, [this] { CmdFile_Click(); }, Qt::Key_F8, CommandKind::Plain,
         u"list"_s},
        {u"CmdPrint"_s, u"查询"_s, [this] { CmdPrint_Click(); }, Qt::Key_F9, CommandKind::Plain,
         u"list"_s},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
    on(QVRTrVw, &GridView::currentMoved, [this](int row, int) { QVRTrVw_RowChange(row); });
    on(PrivList, &CheckList::ticked, [this] { PrivList_Click(); });
    resize(1000, 680);
}

void Userfrm::load(const QVariant&) {
    if (isLoaded_ && users_.changed()) // asked for again: what isn't saved yet stays
        return;
    const auto users = LoadUsers();
    isLoaded_ = users.has_value();
    users_ = users.value_or(UserAccounts());
    showUsers({});
    boxes_->editor(u"UserID")->setFocus();
    if (!isLoaded_)
        MsgBox(u"用户信息读取失败，请关闭本窗口后再试！"_s, u"错误"_s);
}

bool Userfrm::closing() {
    return !users_.changed() ||
           AskYesNo(u"用户信息已经改动，还没有保存，放弃这些改动吗？"_s, u"请确认"_s);
}

void Userfrm::QVRTrVw_RowChange(int row) {
    const qsizetype index = row == 0 ? -1 : users_.find(selectedUser());
    const QString record = index < 0 ? QString() : users_.edited[index].record;
    boxes_->load(record);
    boxes_->setText(u"UserID", index < 0 ? QString() : users_.edited[index].id);
    rights_ = GetTag(record, user_record::kRights);
    PrivList->setTicks(TicksOf(rights_));
}

// An entry that stands under two groups is one right: what was turned last decides, for both.
void Userfrm::PrivList_Click() {
    const QStringList offered = PrivList->entries();
    const QList<bool> before = TicksOf(rights_);
    QList<bool> ticks = PrivList->ticks();
    for (int n = 0; n < ticks.size(); ++n) {
        if (ticks[n] == before[n])
            continue;
        for (int twin = 0; twin < offered.size(); ++twin) {
            if (offered[twin] == offered[n])
                ticks[twin] = ticks[n];
        }
    }
    PrivList->setTicks(ticks);
    rights_ = RightsText(PrivList->tickedEntries());
}

void Userfrm::CmdAdd_Click() {
    const QString entered = boxes();
    const UserEditOutcome outcome = AddUser(users_, entered);
    if (outcome.done)
        showUsers(TrimWhite(GetTag(entered, kUserId)));
    showOutcome(outcome);
}

void Userfrm::CmdModify_Click() {
    const QString user = selectedUser();
    const UserEditOutcome outcome = ChangeUser(users_, user, boxes());
    if (outcome.done)
        showUsers(user);
    showOutcome(outcome);
}

void Userfrm::cmdDel_Click() {
    const QString user = selectedUser();
    if (user.isEmpty()) {
        MsgBox(u"请先选择要删除的用户"_s, u"提示"_s);
        return;
    }
    if (!AskOkCancel(u"这是一个含有许多信息的记录，真的要删除吗？"_s, u"注  意"_s))
        return;
    RemoveUser(users_, user);
    showUsers({});
}

void Userfrm::CmdFile_Click() {
    if (!isLoaded_) {
        MsgBox(kUnreadWords.toString(), kUnreadTitle.toString());
        return;
    }
    const UserEditOutcome outcome = SaveUsers(users_);
    if (outcome.done)
        showUsers(selectedUser());
    showOutcome(outcome);
}

void Userfrm::CmdPrint_Click() {
    const ListQuery query = {
        .caption = u"请输入用户信息查询组合条件"_s,
        .title = u"用户信息清单"_s,
        .columns = {tag::kRecordName.toString(), user_record::kName.toString(),
                    user_record::kDepartment.toString(), user_record::kPassword.toString(),
                    user_record::kAddress.toString(), user_record::kRights.toString()},
        .nameLabel = {},
        .search = SearchFiles(user_record::kProject.toString(),
                              [](QDate, QDate) { return QStringList{UserFile()}; }),
    };
    OpenListQuery(query, this);
}

QString Userfrm::selectedUser() const {
    const int row = QVRTrVw->currentRow();
    return row == 0 ? QString() : QVRTrVw->table().text(row, kUserId);
}

QString Userfrm::boxes() {
    for (const FormField& field : kBoxes) {
        if (field.editor != Editor::Password)
            boxes_->setText(field.control, TrimWhite(boxes_->text(field.control)));
    }
    return SetTag(boxes_->store({}), user_record::kRights, rights_);
}

void Userfrm::showUsers(const QString& select) {
    TextTable& table = QVRTrVw->table();
    table.clearRows();
    for (const UserAccount& user : users_.edited) {
        table.addRow({{},
                      user.id,
                      GetTag(user.record, user_record::kName),
                      GetTag(user.record, user_record::kDepartment),
                      GetTag(user.record, user_record::kAddress)});
    }
    table.numberRows(0);
    QVRTrVw->refresh();
    QVRTrVw->autoFit();
    const int row = select.isEmpty() ? -1 : table.find(table.column(kUserId), select);
    QVRTrVw->setCurrent(qMax(row, 0));
    QVRTrVw_RowChange(qMax(row, 0));
    setStatus(u"共"_s + QString::number(users_.edited.size()) + u"个用户"_s +
              (users_.changed() ? u"，改动还没有保存"_s : QString()));
}

void Userfrm::showOutcome(const UserEditOutcome& outcome) {
    if (outcome.notice)
        MsgBox(outcome.notice->words, outcome.notice->title);
    const auto missing = std::ranges::find(kBoxes, outcome.missing, &FormField::tag);
    QWidget* next = boxes_->editor(missing == kBoxes.end() ? u"UserID" : missing->control);
    next->setFocus();
    if (auto* box = qobject_cast<QLineEdit*>(next))
        box->selectAll();
}

} // namespace hotel
