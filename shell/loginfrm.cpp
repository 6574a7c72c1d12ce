#include "shell/loginfrm.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

#include "link/Wck_comm.h"
#include "record/literals.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "screen/theme.h"
#include "session/parameters.h"
#include "session/session.h"
#include "shell/backdrop.h"
#include "shell/login.h"
#include "shell/mainfrm.h"

namespace hotel {

namespace {

constexpr int kUserListMilliseconds = 500;
constexpr int kNoPasswordMilliseconds = 2000;
constexpr int kMachineClockMilliseconds = 4000;

// Login names are kept in capitals; other characters than a to z stay as they are.
QString Capitals(const QString& typed) {
    QString text = typed;
    for (QChar& character : text) {
        if (character >= u'a' && character <= u'z')
            character = character.toUpper();
    }
    return text;
}

} // namespace

loginfrm::loginfrm(const Configuration& configuration)
    : Screen(u"loginfrm"_s, u"用户登录"_s), configuration_(configuration) {
    usercmb_ = new QComboBox;
    usercmb_->setObjectName(u"usercmb"_s);
    usercmb_->setEditable(true);
    usercmb_->setInsertPolicy(QComboBox::NoInsert);
    usercmb_->setCompleter(nullptr); // the list offers; who is typed is who is meant
    usercmb_->setMinimumWidth(240);
    password_ = new QLineEdit;
    password_->setObjectName(u"Password"_s);
    password_->setEchoMode(QLineEdit::Password);

    auto* heading = new QLabel(u"用户登录"_s);
    heading->setFont(FontFor(u"黑体", 18, true));
    auto* fields = new QFormLayout;
    fields->setVerticalSpacing(16);
    fields->addRow(heading);
    fields->addRow(u"用户名(&U)"_s, usercmb_);
    fields->addRow(u"密　码(&P)"_s, password_);

    auto* panel = new QVBoxLayout;
    panel->setContentsMargins(36, 24, 36, 24);
    panel->addStretch(2);
    panel->addLayout(fields);
    panel->addStretch(3);

    auto* content = new QHBoxLayout;
    content->setContentsMargins(0, 0, 0, 0);
    content->addWidget(new Backdrop(Param(u"Yhdwmc")), 3);
    content->addLayout(panel, 2);
    setContent(content);

    addCommands({
        {u"Logincmd"_s, u"登录"_s, [this] { Logincmd_Click(); }, {}, CommandKind::Default},
        {u"SetPassCmd"_s, u"修改密码"_s, [this] { SetPassCmd_Click(); }, Qt::Key_F4},
        {u"cancelcmd"_s, u"退出"_s, [this] { close(); }, Qt::Key_F10, CommandKind::Plain,
         u"leave"_s},
    });
    setFieldOrder({usercmb_, password_});
    onEnter(password_, [this] { Logincmd_Click(); });
    usercmb_->lineEdit()->installEventFilter(this);
    connect(usercmb_->lineEdit(), &QLineEdit::textEdited, this, [this](const QString& typed) {
        const int cursor = usercmb_->lineEdit()->cursorPosition();
        usercmb_->lineEdit()->setText(Capitals(typed));
        usercmb_->lineEdit()->setCursorPosition(cursor);
    });
    connect(&Link(), &Wck_comm::linkStateChanged, this, &loginfrm::showLinkState);
    resize(920, 520);
}

mainfrm* loginfrm::mainWindow() const {
    return main_;
}

void loginfrm::Load() {
    Wck_comm& link = Link();
    link.ProdID = u"Hotel"_s;
    link.ConnectServer(configuration_.address, QString::number(configuration_.port));
    showLinkState();
    timer1_ = every(kUserListMilliseconds, [this] { Timer1_Timer(); });
    usercmb_->setFocus();
    if (link.isUp())
        QTimer::singleShot(0, this, [this] { run([this] { usercmb_GotFocus(); }); });
}

void loginfrm::Timer1_Timer() {
    if (usercmb_->count() > 0) {
        timer1_->stop();
        return;
    }
    if (!isVisible())
        return;
    usercmb_->setFocus();
    usercmb_GotFocus();
}

void loginfrm::usercmb_GotFocus() {
    if (usercmb_->count() > 0)
        return;
    const QStringList users = OfferedUsers();
    if (users.isEmpty())
        return;
    // What was typed meanwhile stays as it is: the first entry would take its place.
    const QString typed = usercmb_->currentText();
    const int cursor = usercmb_->lineEdit()->cursorPosition();
    usercmb_->addItems(users);
    usercmb_->setCurrentIndex(-1);
    usercmb_->setEditText(typed);
    usercmb_->lineEdit()->setCursorPosition(cursor);
}

bool loginfrm::eventFilter(QObject* watched, QEvent* event) {
    if (watched == usercmb_->lineEdit() && event->type() == QEvent::FocusIn && timer1_)
        QTimer::singleShot(0, this, [this] { run([this] { usercmb_GotFocus(); }); });
    return Screen::eventFilter(watched, event);
}

void loginfrm::Logincmd_Click() {
    const QString user = usercmb_->currentText();
    if (user.isEmpty()) {
        MsgBox(u"用户名不能为空，请重新选择！"_s, kLoginFailed.toString());
        usercmb_->setFocus();
        return;
    }
    setCommandEnabled(u"Logincmd", false);
    password_->setEnabled(false);

    const LoginResult result = CheckLogin(user, password_->text());
    if (!IsLoggedIn(result)) {
        refuse(LoginFailure(result));
        if (result == LoginResult::Refused)
            LogRefusedLogin(user);
        return;
    }
    if (result == LoginResult::NoPasswordSet)
        TimedMessage(u"用户没有密码,必要时请设定操作密码！"_s, u"注意"_s, kNoPasswordMilliseconds,
                     true);
    BeginSession(user);
    setWindowTitle(u"用户登录"_s);
    const bool machineFollowed = FollowServerClock();
    openMainWindow();
    if (!machineFollowed)
        TimedMessage(u"本机时钟没有校准（当前系统用户无权设定），程序按服务器的时间运行。"_s,
                     u"注意"_s, kMachineClockMilliseconds);
}

void loginfrm::refuse(const QString& words) {
    setCommandEnabled(u"SetPassCmd", false);
    setCommandEnabled(u"Logincmd", true);
    password_->setEnabled(true);
    MsgBox(words, kLoginFailed.toString());
    password_->setFocus();
    password_->selectAll();
}

void loginfrm::openMainWindow() {
    main_ = new mainfrm(*this);
    connect(main_, &Screen::closed, main_, &QObject::deleteLater);
    main_->show();
    main_->activateWindow();
    hide();
    setCommandEnabled(u"SetPassCmd", HasRight(right::kSetPassword));
}

void loginfrm::SetPassCmd_Click() {
    OpenScreen(u"SetPass", usercmb_->currentText());
}

void loginfrm::showLinkState() {
    const QString server = configuration_.address + u':' + QString::number(configuration_.port);
    setStatus(Link().isUp() ? u"已连接数据库服务器 "_s + server
                            : u"尚未连接数据库服务器 "_s + server);
}

bool loginfrm::closing() {
    cancelcmd_Click();
    return true;
}

void loginfrm::cancelcmd_Click() {
    if (ended_)
        return;
    ended_ = true;
    LogLeaving();
    QCoreApplication::exit(0);
}

} // namespace hotel
