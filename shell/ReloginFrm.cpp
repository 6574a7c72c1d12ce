#include "shell/ReloginFrm.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

#include "record/literals.h"
#include "screen/messages.h"
#include "session/session.h"
#include "shell/login.h"

namespace hotel {

ReloginFrm::ReloginFrm() : Screen(u"ReloginFrm"_s, u"重新登录"_s), password_(new QLineEdit) {
    password_->setObjectName(u"Password"_s);
    password_->setEchoMode(QLineEdit::Password);
    password_->setMinimumWidth(240);
    auto* fields = new QFormLayout;
    fields->setVerticalSpacing(16);
    fields->addRow(new QLabel(u"登录已失效。重新登录后，打开的窗口和已输入的内容不受影响。"_s));
    const Session& session = CurrentSession();
    fields->addRow(u"用户名"_s, new QLabel(session.userId + u"　"_s + session.userName));
    fields->addRow(u"密　码(&P)"_s, password_);
    setContent(fields);
    addCommands({
        {u"Logincmd"_s, u"登录"_s, [this] { Logincmd_Click(); }, {}, CommandKind::Default},
        {u"cancelcmd"_s, u"取消"_s, [this] { close(); }, Qt::Key_Escape},
    });
    onEnter(password_, [this] { Logincmd_Click(); });
    password_->setFocus();
}

void ReloginFrm::Logincmd_Click() {
    const LoginResult result = LogInAgain(password_->text());
    if (IsLoggedIn(result))
        return accept();
    MsgBox(LoginFailure(result), kLoginFailed.toString());
    goTo(password_);
    password_->selectAll();
    if (result == LoginResult::Refused)
        LogRefusedLogin(CurrentSession().userId);
}

} // namespace hotel
