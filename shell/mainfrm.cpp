#include "shell/mainfrm.h"

#include <QDir>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QTimer>

#include "link/Wck_comm.h"
#include "platform/clock.h"
#include "platform/work_folder.h"
#include "record/literals.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "screen/theme.h"
#include "session/operation_log.h"
#include "session/parameters.h"
#include "session/session.h"
#include "shell/loginfrm.h"
#include "shell/main_menu.h"
#include "shell/today_panel.h"
#include "tools/aids/CalcSub.h"

namespace hotel {

namespace {

constexpr int kEntriesPerLine = 3;
constexpr int kEntryWidth = 216;
constexpr int kEntryHeight = 84;

constexpr int kCheckMilliseconds = 50; // between two stretches of making the day's sheet
constexpr int kCheckSteps = 2;         // rooms or ledgers a stretch

constexpr QStringView kNightAudit = u"Ystj_cmd";

constexpr QLatin1StringView kStyle(R"(
    #header { background: #1b3556; }
    #header QLabel { color: #f6f3ea; }
    #groups { background: #e6ebf2; }
    #groups QPushButton { text-align: left; padding: 8px 16px; font-size: 12pt; border: none;
                          border-radius: 4px; background: transparent; color: #1b2733; }
    #groups QPushButton:hover { background: #d3dce8; }
    #groups QPushButton:checked { background: #1f5fa8; color: white; }
    #groups QPushButton:disabled { color: #9aa6b3; }
    QPushButton[entry="true"] { font-size: 14pt; background: white; border: 1px solid #b9c4d1;
                                border-radius: 6px; }
    QPushButton[entry="true"]:hover { background: #eef4fb; border-color: #1f5fa8; }
    QPushButton[entry="true"]:disabled { background: #f3f5f7; color: #a3adb8; border-color: #dde3ea; }
)");

QString Caption() {
    const QString hotel = Param(u"Yhdwmc");
    return hotel.isEmpty() ? u"宾馆管理工作站"_s : hotel + u" 管理工作站"_s;
}

} // namespace

mainfrm::mainfrm(loginfrm& login) : Screen(u"mainfrm"_s, Caption()), login_(login) {
    auto* body = new QHBoxLayout;
    body->setContentsMargins(0, 0, 0, 0);
    body->setSpacing(0);
    panels_ = new QStackedWidget;
    panels_->setObjectName(u"panels"_s);
    body->addWidget(makeGroups());
    body->addWidget(panels_, 1);

    auto* content = new QVBoxLayout;
    content->setContentsMargins(0, 0, 0, 0);
    content->setSpacing(0);
    content->addWidget(makeHeader());
    content->addLayout(body, 1);
    setContent(content);
    setStyleSheet(kStyle);

    panels_->addWidget(new QWidget); // what FuWei leaves: nothing
    panels_->addWidget(welcome_ = new TodayPanel);
    for (const MenuGroup& group : MainMenu()) {
        QWidget* panel = makePanel(group);
        panelOfGroup_.insert(group.control, panel);
        panels_->addWidget(panel);
    }
    addCommands({
        {u"Today_cmd"_s, u"今日"_s, [this] { Today_Click(); }, Qt::Key_F5, CommandKind::Plain,
         u"today"_s},
        {u"Check_cmd"_s, u"重新核对"_s, [this] { Check_Click(); }, Qt::Key_F12, CommandKind::Plain,
         u"today"_s},
        {u"Limit_cmd"_s,
         u"余额下限"_s,
         [this] { Limit_Click(); },
         {},
         CommandKind::Plain,
         u"today"_s},
        {u"Relogin_cmd"_s, u"重新登录"_s, [this] { relogin_.ask(); }, kReloginKey},
        {u"exit_cmd"_s, u"退出系统"_s, [this] { close(); }, Qt::Key_F10, CommandKind::Plain,
         u"leave"_s},
    });
    command(u"Check_cmd")->setToolTip(u"重新核对今日离店的客人和各账号的余额"_s);
    connect(&relogin_, &Relogin::changed, this, &mainfrm::showRelogin);
    on(welcome_, &TodayPanel::chosen,
       [this](TodayKind kind, const QStringList& cells) { openLine(kind, cells); });
    checking_ = every(kCheckMilliseconds, [this] { goOnChecking(); });
    checking_->stop();

    FuWei();
    panels_->setCurrentWidget(welcome_);
    showHotelName();
    showRelogin();
    showTime();
    every(1000, [this] { showTime(); });
    showServer();
    resize(1280, 680); // with its frame inside a display of 1366 by 768
}

QWidget* mainfrm::makeHeader() {
    auto* header = new QWidget;
    header->setObjectName(u"header"_s);
    header->setAttribute(Qt::WA_StyledBackground);
    Bgmc_ = new QLabel(u"宾馆管理工作站"_s); // unless the hotel has a name
    Bgmc_->setObjectName(u"Bgmc"_s);
    Bgmc_->setFont(FontFor(u"宋体", 22, true));
    user_ = new QLabel;
    user_->setObjectName(u"user"_s);
    user_->setFont(FontFor(u"黑体", 12));
    time_ = new QLabel;
    time_->setObjectName(u"time"_s);
    time_->setFont(FontFor(u"黑体", 12));

    auto* layout = new QHBoxLayout(header);
    layout->setContentsMargins(24, 14, 24, 14);
    layout->setSpacing(32);
    layout->addWidget(Bgmc_, 1);
    layout->addWidget(user_);
    layout->addWidget(time_);
    return header;
}

QWidget* mainfrm::makeGroups() {
    auto* groups = new QWidget;
    groups->setObjectName(u"groups"_s);
    groups->setAttribute(Qt::WA_StyledBackground);
    groups->setFixedWidth(196);
    auto* layout = new QVBoxLayout(groups);
    layout->setContentsMargins(10, 14, 10, 14);
    for (const MenuGroup& group : MainMenu()) {
        auto* button = new QPushButton(u"F%1　%2"_s.arg(group.functionKey).arg(group.right));
        button->setObjectName(group.control.toString());
        button->setCheckable(true);
        button->setAutoExclusive(true);
        // Not the button's own shortcut: that one clicks a moment later, behind the digit typed next.
        auto* shortcut = new QShortcut(QKeySequence(Qt::Key_F1 + group.functionKey - 1), button);
        connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
        on(button, &QPushButton::clicked, [this, &group] { openGroup(group); });
        layout->addWidget(button);
    }
    layout->addStretch();
    return groups;
}

QWidget* mainfrm::makePanel(const MenuGroup& group) {
    auto* panel = new QWidget;
    panel->setObjectName(u"%1_panel"_s.arg(group.control));
    auto* heading = new QLabel(group.right.toString());
    heading->setFont(FontFor(u"黑体", 18, true));

    auto* entries = new QGridLayout;
    entries->setSpacing(18);
    int number = 0;
    for (const MenuEntry& entry : group.entries) {
        entries->addWidget(makeEntry(entry, number + 1), number / kEntriesPerLine,
                           number % kEntriesPerLine);
        ++number;
    }
    entries->setColumnStretch(kEntriesPerLine, 1);

    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(36, 28, 36, 28);
    layout->setSpacing(22);
    layout->addWidget(heading);
    layout->addLayout(entries);
    layout->addStretch();
    return panel;
}

QPushButton* mainfrm::makeEntry(const MenuEntry& entry, int number) {
    auto* button = new QPushButton(u"%1　%2"_s.arg(number).arg(entry.caption));
    button->setObjectName(entry.control.toString());
    button->setProperty("entry", true);
    button->setFixedSize(kEntryWidth, kEntryHeight);
    on(button, &QPushButton::clicked, [this, &entry] { openEntry(entry); });
    return button;
}

void mainfrm::FuWei() {
    panels_->setCurrentIndex(0);
}

void mainfrm::openGroup(const MenuGroup& group) {
    FuWei();
    QWidget* panel = panelOfGroup_.value(group.control);
    panels_->setCurrentWidget(panel);
    QPushButton* first = nullptr;
    for (const MenuEntry& entry : group.entries) {
        auto* button = panel->findChild<QPushButton*>(entry.control.toString());
        if (!first && button->isEnabled())
            first = button;
    }
    if (first)
        first->setFocus();
}

void mainfrm::openEntry(const MenuEntry& entry) {
    openScreen(entry, entry.screen, {});
}

void mainfrm::openScreen(const MenuEntry& entry, QStringView screen, const QString& argument) {
    if (entry.control == kNightAudit && !NightAuditMayOpen(Clock::TimeText())) {
        MsgBox(u"夜审时间通常在22：00 - 07：00之间进行"_s, u"操作时间未到"_s);
        return;
    }
    if (!entry.operation.isEmpty())
        SaveLogRec(entry.operation.toString(), entry.remark.toString());
    OpenEntry(screen, entry.caption, argument);
}

// The digit on an entry presses it.
void mainfrm::keyPressEvent(QKeyEvent* event) {
    const int digit = event->key() - Qt::Key_0;
    if (digit >= 1 && digit <= 9 && !(event->modifiers() & ~Qt::KeypadModifier)) {
        const QString prefix = QString::number(digit) + u'　';
        const auto buttons = panels_->currentWidget()->findChildren<QPushButton*>();
        for (QPushButton* button : buttons) {
            if (button->text().startsWith(prefix)) {
                button->click();
                return;
            }
        }
    }
    Screen::keyPressEvent(event);
}

void mainfrm::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        showHotelName();
    Screen::changeEvent(event);
}

void mainfrm::showHotelName() {
    if (const QString name = Param(u"Yhdwmc"); !name.isEmpty())
        Bgmc_->setText(name);
}

// The name, and what the rights open.
void mainfrm::showUser() {
    const Session& session = CurrentSession();
    user_->setText(session.userDept + u"　"_s + session.userName);
    welcome_->greet(session.userName);
    for (const MenuGroup& group : MainMenu()) {
        auto* button = findChild<QPushButton*>(group.control.toString());
        button->setEnabled(HasRight(group.right));
        QWidget* panel = panelOfGroup_.value(group.control);
        for (const MenuEntry& entry : group.entries)
            panel->findChild<QPushButton*>(entry.control.toString())
                ->setEnabled(HasRight(entry.right));
        if (!button->isEnabled() && panels_->currentWidget() == panel)
            panels_->setCurrentWidget(welcome_);
    }
}

void mainfrm::showRelogin() {
    setCommandEnabled(u"Relogin_cmd", relogin_.wanted());
    if (relogin_.wanted())
        return;
    showUser();
    readTodaySoon();
}

void mainfrm::showTime() {
    time_->setText(Clock::DateText() + u"　"_s + Clock::TimeText().left(5));
    if (isVisible() && (todayIsOld_ || today_.day != Clock::Today()))
        readToday();
}

void mainfrm::showServer() {
    setStatus(u"数据库服务器 "_s + Link().IPaddr + u':' + Link().Port);
}

// --- today ---

void mainfrm::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    QTimer::singleShot(0, this, [this] { run([this] { showTime(); }); });
}

void mainfrm::Today_Click() {
    for (const MenuGroup& group : MainMenu()) {
        auto* button = findChild<QPushButton*>(group.control.toString());
        button->setAutoExclusive(false); // one of them would stay down
        button->setChecked(false);
        button->setAutoExclusive(true);
    }
    FuWei();
    panels_->setCurrentWidget(welcome_);
    readToday();
    if (GridView* list = welcome_->firstList())
        goTo(list);
}

void mainfrm::readToday() {
    todayIsOld_ = false;
    const TodayParts parts = PartsByRights();
    today_ = LoadToday(parts, limit_);
    setCommandEnabled(u"Check_cmd", parts.departures || parts.balances);
    setCommandEnabled(u"Limit_cmd", parts.balances);
    QList<SheetPart> missing;
    if (today_.departures && today_.departures->outcome == Reading::Absent)
        missing.append(SheetPart::Departures);
    if (today_.balances && today_.balances->outcome == Reading::Absent)
        missing.append(SheetPart::Balances);
    startChecking(missing);
}

void mainfrm::startChecking(const QList<SheetPart>& parts) {
    if (!walk_)
        toCheck_ = parts;
    welcome_->showDay(today_, limit_, !toCheck_.isEmpty());
    if (!toCheck_.isEmpty())
        checking_->start();
}

void mainfrm::goOnChecking() {
    if (!walk_)
        walk_.emplace(toCheck_.first(), Clock::Today());
    SheetWalk::State state = SheetWalk::State::Running;
    for (int n = 0; n < kCheckSteps && state == SheetWalk::State::Running; ++n)
        state = walk_->step();
    progress(walk_->done(), walk_->total(), u"核对今日离店和余额"_s);
    if (state == SheetWalk::State::Running)
        return;
    walk_.reset();
    toCheck_.removeFirst();
    if (state == SheetWalk::State::Failed)
        toCheck_.clear(); // until somebody asks again
    if (!toCheck_.isEmpty())
        return;
    checking_->stop();
    progress(0, 0);
    showServer();
    if (state == SheetWalk::State::Done)
        readToday();
    else
        welcome_->showDay(today_, limit_, false);
}

void mainfrm::Check_Click() {
    QList<SheetPart> parts;
    if (today_.departures)
        parts.append(SheetPart::Departures);
    if (today_.balances)
        parts.append(SheetPart::Balances);
    startChecking(parts);
}

void mainfrm::Limit_Click() {
    const auto typed = InputBox(u"列出信用余额小于多少的账号："_s, u"余额下限"_s, limit_.text());
    if (!typed)
        return;
    const CellAmount amount = AmountFromCell(*typed);
    if (!amount.amount)
        return MsgBox(u"余额下限应当是金额："_s + amount.error, u"余额下限"_s);
    limit_ = *amount.amount;
    readToday();
}

void mainfrm::openLine(TodayKind kind, const QStringList& cells) {
    if (const auto way = WayOfLine(kind, cells))
        openScreen(*way->entry, way->screen, way->argument);
}

bool mainfrm::closing() {
    if (!CloseAllScreens())
        return false;
    RemoveTemporaryPictures(PictureFolder());
    login_.cancelcmd_Click();
    return true;
}

void RemoveTemporaryPictures(const QString& folder) {
    const QDir pictures(folder, u"*.jpg;*.gif;*.bmp"_s, QDir::Name, QDir::Files);
    for (const QString& name : pictures.entryList())
        QFile::remove(pictures.filePath(name));
}

} // namespace hotel
