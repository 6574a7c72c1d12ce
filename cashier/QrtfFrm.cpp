#include "cashier/QrtfFrm.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "cashier/team_customers.h"
#include "cashier/team_picker.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/field_form.h"
#include "screen/key_filter.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "tools/aids/categories.h"

namespace hotel {

namespace {

const QList<FormField> kBoxes = {
    {{}, u"Ysje", u"应收金额", Editor::ReadOnly},
    {{}, u"Khh", u"团队编号", Editor::Text},
    {{}, u"Zkje", u"折扣金额", Editor::Amount},
    {{}, u"Zffs", u"支付方式", Editor::Category, u"支付方式"},
    {{}, u"Skbz", u"收款备注", Editor::Text, {}, 36},
    {{}, u"Ssje", u"实收金额", Editor::Amount},
    {{}, u"Zsje", u"找赎金额", Editor::ReadOnly},
};

} // namespace

QrtfFrm::QrtfFrm(const QString& folio, const QString& due)
    : Screen(u"QrtfFrm"_s, folio + u" 结账退房"_s), boxes_(new FieldForm(kBoxes, 1)) {
    boxes_->setText(u"Ysje", due);
    boxes_->setText(u"Zkje", DefaultDiscount(due));
    for (const QStringView amount : {u"Ysje", u"Zsje"})
        boxes_->editor<QLineEdit>(amount)->setAlignment(Qt::AlignRight);
    SetKeyFilter(boxes_->editor<QLineEdit>(u"Khh"), KeyFilter::Capitals);
    boxes_->editor(u"Khh")->setToolTip(u"团队编号，或单位名称、联系人等关键字，回车查找"_s);
    boxes_->editor(u"Zkje")->setToolTip(u"可以输入算式，如 12+3.5 或 1280*0.05"_s);
    const QStringList kinds = LoadCategory(u"支付方式");
    boxes_->setChoices(u"Zffs", kinds);
    boxes_->setText(u"Zffs", kinds.value(0));
    auto* content = new QVBoxLayout;
    content->addWidget(boxes_);
    setContent(content);

    addCommands({
        {u"QrCmd"_s, u"确认收款"_s, [this] { accept(); }, Qt::Key_F8, CommandKind::Default},
        // The bill is printed from the screens of charges; here stands only where.
        {u"DyCmd"_s, u"打印"_s, [] {}},
        {u"Qxcmd"_s, u"取消"_s, [this] { Qxcmd_Click(); }, Qt::Key_Escape},
    });
    setCommandEnabled(u"QrCmd", false);
    command(u"DyCmd")->setToolTip(
        u"打印结帐单,如果没有全部选中,则不打印账单,需要打印,到费用签单中查询打印."_s);
    on(boxes_, &FieldForm::edited, [this](const QString& control) {
        if (control == u"Ssje" || control == u"Zkje")
            Ssje_Change();
    });
    on(boxes_, &FieldForm::left, [this](const QString& control) {
        if (control == u"Khh")
            Khh_Leave();
    });
    onEnter(boxes_->editor(u"Khh"), [this] { Khh_Enter(); });
    goTo(boxes_->editor(u"Ssje"));
}

Payment QrtfFrm::payment() const {
    return {boxes_->text(u"Ysje"), boxes_->text(u"Zkje"), boxes_->text(u"Ssje"),
            boxes_->text(u"Zsje"), boxes_->text(u"Zffs"), boxes_->text(u"Skbz"),
            boxes_->text(u"Khh")};
}

void QrtfFrm::Ssje_Change() {
    const auto typed = [this](QStringView box) { return boxes_->editor<QLineEdit>(box)->text(); };
    const auto change = ChangeOf(typed(u"Ssje"), typed(u"Zkje"), typed(u"Ysje"));
    boxes_->setText(u"Zsje", change.value_or(QString()));
    setCommandEnabled(u"QrCmd", change.has_value());
}

void QrtfFrm::Khh_Enter() {
    const QString key = TrimBlanks(boxes_->text(u"Khh"));
    if (key.isEmpty())
        return moveOn();
    const TextTable teams = FindTeams(key);
    if (teams.dataRows() == 0)
        return MsgBox(NoSuchTeam().words, NoSuchTeam().title);
    ModalScreen<TeamPicker> picker(this, teams);
    if (!picker.show())
        return;
    if (const auto refusal = RefuseTeam(picker->field(team_customer::kStatus)))
        return MsgBox(refusal->words, refusal->title);
    const QString number = picker->field(team_customer::kNumber);
    if (!IsTeamNumber(number))
        return;
    boxes_->setText(u"Khh", number);
    takeTeam(number);
    moveOn();
}

void QrtfFrm::Khh_Leave() {
    const QString number = boxes_->text(u"Khh");
    if (IsTeamNumber(number))
        takeTeam(number);
}

void QrtfFrm::takeTeam(const QString& number) {
    const auto team = FindTeam(number);
    if (!team) {
        boxes_->setText(u"Khh", {});
        return MsgBox(NoSuchTeam().words, NoSuchTeam().title);
    }
    boxes_->setText(u"Skbz",
                    WithTeamName(boxes_->text(u"Skbz"), GetTag(*team, team_customer::kName)));
}

void QrtfFrm::Qxcmd_Click() {
    boxes_->setText(u"Ssje", {});
    close();
}

std::optional<Payment> TakePayment(QWidget* parent, const QString& folio, const QString& due) {
    ModalScreen<QrtfFrm> dialog(parent, folio, due);
    if (!dialog.show() || dialog->payment().received.isEmpty())
        return {};
    return dialog->payment();
}

} // namespace hotel
