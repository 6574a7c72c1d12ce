#include "shell/link_window.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTimer>

#include "link/Wck_comm.h"
#include "record/literals.h"
#include "record/numbers.h"

namespace hotel {

namespace {

// A connection that stands again sooner than this shows no window.
constexpr int kShowAfterMilliseconds = 400;

QString StateWords(const QString& state) {
    static const QHash<QString, QString> words = {
        {u""_s, u"从未连接"_s},
        {u"-1"_s, u"正在直接连接"_s},
        {u"0"_s, u"已关闭"_s},
        {u"1"_s, u"已连接"_s},
        {u"2"_s, u"等待直接连接"_s},
        {u"3"_s, u"等待代理连接"_s},
        {u"4"_s, u"正在连接代理"_s},
        {u"5"_s, u"代理握手：验证方式"_s},
        {u"6"_s, u"代理握手：连接请求"_s},
    };
    return words.value(state);
}

QLineEdit* ShownText(const QString& name) {
    auto* edit = new QLineEdit;
    edit->setObjectName(name);
    edit->setReadOnly(true);
    return edit;
}

QPlainTextEdit* TraceBox(const QString& name) {
    auto* box = new QPlainTextEdit;
    box->setObjectName(name);
    box->setReadOnly(true);
    box->setLineWrapMode(QPlainTextEdit::NoWrap);
    return box;
}

} // namespace

LinkWindow::LinkWindow(Wck_comm& link, bool debugMode)
    : Screen(u"Wck_comm"_s, u"数据库连接"_s), link_(link), debugMode_(debugMode),
      showSoon_(new QTimer(this)), Send_(TraceBox(u"Send"_s)), Recv_(TraceBox(u"Recv"_s)),
      stat_(new QListWidget), lastLine_(new QLabel) {
    stat_->setObjectName(u"stat"_s);
    stat_->setUniformItemSizes(true);
    auto* content = new QGridLayout;
    content->addWidget(makeSettings(), 0, 0, 1, 2);
    content->addWidget(new QLabel(u"发送"_s), 1, 0);
    content->addWidget(new QLabel(u"接收"_s), 1, 1);
    content->addWidget(Send_, 2, 0);
    content->addWidget(Recv_, 2, 1);
    content->addWidget(lastLine_, 3, 0, 1, 2);
    content->addWidget(stat_, 4, 0, 1, 2);
    content->setRowStretch(2, 3);
    content->setRowStretch(4, 2);
    setContent(content);
    addCommands(
        {{u"CmdStop"_s, u"停止等待"_s, [this] { link_.stopWaiting(); }, {}, CommandKind::Stop}});

    showSoon_->setSingleShot(true);
    showSoon_->setInterval(kShowAfterMilliseconds);
    connect(showSoon_, &QTimer::timeout, this, &QWidget::show);
    connect(&link_, &Wck_comm::linkStateChanged, this, &LinkWindow::showState);
    connect(&link_, &Wck_comm::traceChanged, this, &LinkWindow::showTrace);
    connect(&link_, &Wck_comm::logChanged, this, &LinkWindow::showLog);
    connect(&link_, &Wck_comm::linkScreenWanted, this, &LinkWindow::linkScreenWanted);
    connect(&link_, &Wck_comm::linkScreenDone, this, &LinkWindow::linkScreenDone);
    showState();
    resize(900, 620);
    if (debugMode_)
        show();
}

QWidget* LinkWindow::makeSettings() {
    auto* settings = new QWidget;
    auto* layout = new QGridLayout(settings);
    layout->setContentsMargins(0, 0, 0, 0);
    int place = 0;
    auto add = [&](const QString& caption, QLineEdit*& edit, const QString& name) {
        edit = ShownText(name);
        layout->addWidget(new QLabel(caption), place / 3, place % 3 * 2);
        layout->addWidget(edit, place / 3, place % 3 * 2 + 1);
        ++place;
    };
    add(u"服务器地址"_s, IPaddr_, u"IPaddr"_s);
    add(u"端口"_s, Port_, u"Port"_s);
    add(u"连接状态"_s, state_, u"linkState"_s);
    add(u"本机地址"_s, localIP_, u"localIP"_s);
    add(u"工作站编号"_s, HardMacNo_, u"HardMacNo"_s);
    add(u"登录用户"_s, UserName_, u"UserName"_s);
    add(u"保持连接间隔（秒）"_s, AliveGap_, u"AliveGap"_s);
    AliveGap_->setReadOnly(false);
    connect(AliveGap_, &QLineEdit::editingFinished, this,
            [this] { link_.AliveGap = AliveGap_->text(); });

    AliveKp_ = new QCheckBox(u"空闲时保持连接"_s);
    AliveKp_->setObjectName(u"AliveKp"_s);
    AliveKp_->setChecked(link_.AliveKp);
    connect(AliveKp_, &QCheckBox::toggled, this, [this](bool on) { link_.AliveKp = on; });
    TraceChk_ = new QCheckBox(u"跟踪收发内容"_s);
    TraceChk_->setObjectName(u"TraceChk"_s);
    TraceChk_->setChecked(link_.TraceChk);
    connect(TraceChk_, &QCheckBox::toggled, this, [this](bool on) { link_.TraceChk = on; });
    layout->addWidget(AliveKp_, 2, 3);
    layout->addWidget(TraceChk_, 2, 5);
    return settings;
}

void LinkWindow::showState() {
    const QString& state = link_.linkState();
    state_->setText(StateWords(state) + u" ("_s + state + u')');
    IPaddr_->setText(link_.IPaddr);
    Port_->setText(link_.Port);
    localIP_->setText(link_.localIP);
    HardMacNo_->setText(link_.HardMacNo);
    UserName_->setText(link_.UserName);
    AliveGap_->setText(link_.AliveGap);
}

void LinkWindow::showTrace() {
    if (!isVisible())
        return;
    for (auto [box, text] : {std::pair{Send_, &link_.sendTrace()}, {Recv_, &link_.recvTrace()}}) {
        box->setPlainText(*text);
        box->verticalScrollBar()->setValue(box->verticalScrollBar()->maximum());
    }
    UserName_->setText(link_.UserName);
}

void LinkWindow::showLog() {
    lastLine_->setText(link_.lastLogLine());
    if (!isVisible() || !link_.TraceChk)
        return;
    const QStringList& lines = link_.logLines();
    // The list drops its oldest line when it is full; otherwise just the last one is new.
    if (stat_->count() + 1 == lines.size()) {
        stat_->addItem(lines.last());
    } else {
        stat_->clear();
        stat_->addItems(lines);
    }
    stat_->scrollToBottom();
}

void LinkWindow::linkScreenWanted() {
    setStatus(u"与数据库服务器的连接已断开，正在重新连接…"_s);
    if (!isVisible())
        showSoon_->start();
}

void LinkWindow::linkScreenDone() {
    showSoon_->stop();
    setStatus({});
    if (!debugMode_)
        hide();
}

// The window stands as long as the program: closing hides it, and ends a wait.
bool LinkWindow::closing() {
    link_.stopWaiting();
    hide();
    return false;
}

} // namespace hotel
