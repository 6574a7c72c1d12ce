#include "cashier/khxxmain.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "cashier/team_customers.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/key_filter.h"
#include "screen/messages.h"

namespace hotel {

namespace {

using namespace team_customer;

const QList<FormField> kBoxes = {
    {u"编号", u"Bh", u"编号", Editor::Number},
    {u"单位名称", u"Dwmc", u"单位名称", Editor::Text, {}, 30, 60},
    {u"简码", u"Jm", u"简码", Editor::Text},
    {u"联系人", u"Lxr", u"联系人", Editor::Text},
    {u"手机", u"Sj", u"手机", Editor::Text},
    {u"电话", u"Dh", u"电话", Editor::Text},
    {u"传真", u"Cz", u"传真", Editor::Text},
    {u"地址", u"Dz", u"地址", Editor::Text, {}, 30},
    {u"邮政编码", u"Yzbm", u"邮政编码", Editor::Text},
    {u"所在地区", u"Szdq", u"所在地区", Editor::Text},
    {u"邮箱", u"Yx", u"邮箱", Editor::Text, {}, 30},
    {u"链接", u"Lj", u"链接", Editor::Text},
    {u"法人代表", u"Frdb", u"法人代表", Editor::Text},
    {u"纳税号", u"Nsh", u"纳税号", Editor::Text, {}, 30},
    {u"注册资金", u"Zczj", u"注册资金", Editor::Text},
    {u"状态", u"Zt", u"状态", Editor::CategoryText},
    {u"简介", u"Jj", u"简介", Editor::Text, {}, 30},
};
constexpr int kBoxColumns = 3;

} // namespace

khxxmain::khxxmain()
    : Screen(u"khxxmain"_s, u"团队会议客户"_s), search_(new QLineEdit),
      KhQd(new GridView(u"KhQd"_s)), boxes_(new FieldForm(kBoxes, kBoxColumns)) {
    search_->setObjectName(u"Search"_s);
    search_->setPlaceholderText(u"编号、单位名称、联系人等，回车查找"_s);
    SetKeyFilter(search_, KeyFilter::Capitals);
    boxes_->editor(u"Bh")->setToolTip(u"8 位数字，不填则自动编号"_s);
    boxes_->setChoices(u"Zt", {u"有效"_s, u"可用"_s, u"停用"_s});
    KhQd->setNumberColumn(0);

    auto* searching = new QHBoxLayout;
    searching->addWidget(new QLabel(u"查找"_s));
    searching->addWidget(search_, 1);
    auto* content = new QVBoxLayout;
    content->addLayout(searching);
    content->addWidget(KhQd, 1);
    content->addWidget(boxes_);
    setContent(content);

    addCommands({
        {u"ClearCmd"_s, u"新单位"_s, [this] { ClearCmd_Click(); }, Qt::Key_F4},
        {u"CmdAdd"_s, u"增加"_s, [this] { CmdAdd_Click(); }, Qt::Key_F5, CommandKind::Default},
        {u"CmdModify"_s, u"修改"_s, [this] { CmdModify_Click(); }, Qt::Key_F6},
        {u"cmdDel"_s, u"删除"_s, [this] { cmdDel_Click(); }, Qt::Key_F7},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
    onEnter(search_, [this] { CxCmd_Click(); });
    on(KhQd, &GridView::currentMoved, [this](int row, int) { KhQd_RowChange(row); });
    resize(1180, 680);
}

void khxxmain::load(const QVariant&) {
    find({});
    search_->setFocus();
}

void khxxmain::CxCmd_Click() {
    find(search_->text());
    if (KhQd->table().dataRows() == 0)
        MsgBox(NoSuchTeam().words, NoSuchTeam().title);
}

void khxxmain::find(const QString& key) {
    KhQd->setTable(FindTeams(key));
    KhQd->autoFit();
    setStatus(u"共 %1 个单位"_s.arg(KhQd->table().dataRows()));
}

void khxxmain::KhQd_RowChange(int row) {
    for (const FormField& box : kBoxes)
        boxes_->setText(box.control, KhQd->table().text(row, box.tag));
}

void khxxmain::ClearCmd_Click() {
    KhQd->setCurrent(0);
    boxes_->clear();
    boxes_->editor(u"Dwmc")->setFocus();
}

void khxxmain::CmdAdd_Click() {
    showOutcome(AddTeam(boxes_->store({})), u"已经增加"_s);
}

void khxxmain::CmdModify_Click() {
    showOutcome(ChangeTeam(boxes_->store({})), u"已经修改"_s);
}

void khxxmain::cmdDel_Click() {
    const QString number = boxes_->text(u"Bh");
    if (!FindTeam(number))
        return MsgBox(NoSuchTeam().words, NoSuchTeam().title);
    if (AskOkCancel(u"要删除单位："_s + number + u' ' + boxes_->text(u"Dwmc") + u" 吗？"_s,
                    u"请确认"_s))
        showOutcome(DeleteTeam(number), u"已经删除"_s);
}

void khxxmain::showOutcome(const TeamEditOutcome& outcome, const QString& done) {
    if (outcome.notice)
        MsgBox(outcome.notice->words, outcome.notice->title);
    if (!outcome.done)
        return;
    find({});
    KhQd->setCurrent(qMax(0, KhQd->table().find(KhQd->table().column(kNumber), outcome.number)));
    KhQd_RowChange(KhQd->currentRow());
    setStatus(outcome.number + u' ' + done);
}

} // namespace hotel
