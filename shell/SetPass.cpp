#include "shell/SetPass.h"

#include <QLineEdit>
#include <QVBoxLayout>

#include "record/literals.h"
#include "screen/field_form.h"
#include "screen/key_filter.h"
#include "screen/messages.h"
#include "shell/user_accounts.h"

namespace hotel {

namespace {

const QList<FormField> kBoxes = {
    {{}, u"UserID", u"用户名", Editor::Text, {}, 20},
    {{}, u"OldPass", u"原密码", Editor::Password, {}, 20},
    {{}, u"NewPass", u"新密码", Editor::Password, {}, 20},
    {{}, u"ReTypePass", u"再次输入新密码", Editor::Password, {}, 20},
};

} // namespace

SetPass::SetPass() : Screen(u"SetPass"_s, u"修改密码"_s), boxes_(new FieldForm(kBoxes, 1)) {
    SetKeyFilter(boxes_->editor<QLineEdit>(u"UserID"), KeyFilter::Capitals);
    auto* content = new QVBoxLayout;
    content->addWidget(boxes_);
    setContent(content);
    addCommands({
        {u"Image1"_s, u"确认修改"_s, [this] { Image1_Click(); }, Qt::Key_F8, CommandKind::Default},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
}

void SetPass::load(const QVariant& user) {
    boxes_->clear();
    boxes_->setText(u"UserID", user.toString());
    boxes_->editor(user.toString().isEmpty() ? u"UserID" : u"OldPass")->setFocus();
}

void SetPass::Image1_Click() {
    const PasswordOutcome outcome =
        ChangePassword(boxes_->text(u"UserID").trimmed(), boxes_->text(u"OldPass"),
                       boxes_->text(u"NewPass"), boxes_->text(u"ReTypePass"));
    MsgBox(outcome.notice.words, outcome.notice.title);
    if (outcome.clearsNew) {
        boxes_->setText(u"NewPass", {});
        boxes_->setText(u"ReTypePass", {});
    }
    if (outcome.clearsOld)
        boxes_->setText(u"OldPass", {});
    if (outcome.done)
        close();
    else
        boxes_->editor(outcome.clearsOld ? u"OldPass" : u"NewPass")->setFocus();
}

} // namespace hotel
