#include "screen/screen.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QTextEdit>
#include <QTimer>
#include <QVBoxLayout>
#include <exception>
#include <utility>

#include "platform/events.h"
#include "record/literals.h"
#include "screen/command_bar.h"
#include "screen/messages.h"

namespace hotel {

namespace {

constexpr int kDisableAfter = 200; // milliseconds: a handler that is quicker doesn't flicker
constexpr int kEventsInterval =
    20; // milliseconds between two times that a walk lets events through

bool TakesText(const QWidget* widget) {
    if (const auto* box = qobject_cast<const QLineEdit*>(widget))
        return !box->isReadOnly();
    if (const auto* lines = qobject_cast<const QPlainTextEdit*>(widget))
        return !lines->isReadOnly();
    if (const auto* lines = qobject_cast<const QTextEdit*>(widget))
        return !lines->isReadOnly();
    return qobject_cast<const QComboBox*>(widget) || qobject_cast<const QCheckBox*>(widget) ||
           qobject_cast<const QRadioButton*>(widget) ||
           qobject_cast<const QAbstractSpinBox*>(widget);
}

// Whether Enter stops here on its way through the fields.
bool IsStop(const QWidget* widget) {
    if (!widget->isVisible() || !widget->isEnabled() || !(widget->focusPolicy() & Qt::TabFocus) ||
        widget->focusProxy())
        return false;
    const auto* button = qobject_cast<const QPushButton*>(widget);
    return button ? button->isDefault() : TakesText(widget);
}

} // namespace

Screen::Screen(const QString& name, const QString& caption, QWidget* parent)
    : QWidget(parent, Qt::Window), layout_(new QVBoxLayout(this)), commands_(new CommandBar),
      status_(new QLabel), progress_(new QProgressBar), disableSoon_(new QTimer(this)) {
    setObjectName(name);
    setWindowTitle(caption);

    progress_->setFixedWidth(280);
    progress_->setTextVisible(true);
    progress_->hide();
    status_->setTextFormat(Qt::PlainText);
    status_->setSizePolicy(QSizePolicy::Ignored,
                           QSizePolicy::Preferred); // long words widen no window
    auto* statusLine = new QHBoxLayout;
    statusLine->addWidget(status_, 1);
    statusLine->addWidget(progress_);

    layout_->setContentsMargins(12, 12, 12, 8);
    layout_->setSpacing(10);
    layout_->addWidget(commands_);
    layout_->addLayout(statusLine);

    disableSoon_->setSingleShot(true);
    disableSoon_->setInterval(kDisableAfter);
    connect(disableSoon_, &QTimer::timeout, this, &Screen::showRefusal);
}

Screen::~Screen() {
    Q_ASSERT_X(depth_ == 0, "Screen", "destroyed while one of its handlers is on the stack");
}

void Screen::load(const QVariant&) {}

void Screen::setContent(QWidget* content) {
    delete std::exchange(content_, content);
    layout_->insertWidget(0, content, 1);
}

void Screen::setContent(QLayout* content) {
    auto* widget = new QWidget;
    content->setContentsMargins(0, 0, 0, 0);
    widget->setLayout(content);
    setContent(widget);
}

// --- commands ---

void Screen::addCommands(const QList<ScreenCommand>& commands) {
    for (const ScreenCommand& command : commands)
        addCommand(command, commands_);
}

QWidget* Screen::commandPanel(const QList<ScreenCommand>& commands) {
    auto* panel = new CommandBar;
    for (const ScreenCommand& command : commands)
        addCommand(command, panel);
    return panel;
}

void Screen::addCommand(const ScreenCommand& command, CommandBar* bar) {
    auto* button = new CommandButton(command.caption, command.key);
    button->setObjectName(command.name);
    button->setDefault(command.kind == CommandKind::Default);
    bar->addButton(button, command.group);
    commandTable_.append({button, command.kind, command.key == Qt::Key_Escape});

    const auto press = [this, handler = command.handler, kind = command.kind] {
        const Running running(*this, kind == CommandKind::Stop || !isReentry());
        if (running)
            perform(handler);
    };
    connect(button, &QPushButton::clicked, this, press);
    if (!command.key.isEmpty() && command.key != Qt::Key_Escape) {
        auto* shortcut = new QShortcut(command.key, button);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
    }
}

qsizetype Screen::indexOf(QStringView name) const {
    for (qsizetype i = 0; i < commandTable_.size(); ++i) {
        if (commandTable_[i].button->objectName() == name)
            return i;
    }
    qFatal("%s has no command %s", qPrintable(objectName()), qPrintable(name.toString()));
}

QPushButton* Screen::command(QStringView name) const {
    return commandTable_[indexOf(name)].button;
}

void Screen::setCommandEnabled(QStringView name, bool enabled) {
    Command& command = commandTable_[indexOf(name)];
    command.enabled = enabled;
    showEnabled(command);
}

void Screen::showEnabled(const Command& command) {
    command.button->setEnabled(command.enabled &&
                               (!refusing_ || command.kind == CommandKind::Stop));
}

// --- handlers ---

bool Screen::run(const std::function<void()>& handler) {
    const Running running(*this);
    if (running)
        perform(handler);
    return bool(running);
}

void Screen::perform(const std::function<void()>& handler) {
    try {
        handler();
    } catch (const std::exception& error) {
        MsgBox(QString::fromUtf8(error.what()), u"程序错误"_s);
    }
}

Screen::Running::Running(Screen& screen) : Running(screen, !screen.isReentry()) {}

Screen::Running::Running(Screen& screen, bool enters)
    : screen_(enters ? &screen : nullptr), outerEventDepth_(screen.eventDepth_) {
    if (screen_)
        screen_->enter();
}

Screen::Running::~Running() {
    if (screen_)
        screen_->leave(outerEventDepth_);
}

bool Screen::isReentry() const {
    return busy() && eventDepth_ != EventDepth();
}

void Screen::enter() {
    eventDepth_ = EventDepth();
    if (++depth_ == 1)
        disableSoon_->start();
}

void Screen::leave(int outerEventDepth) {
    eventDepth_ = outerEventDepth;
    if (--depth_ > 0)
        return;
    stopRequested_ = false;
    if (std::exchange(walked_, false))
        progress_->hide();
    disableSoon_->stop();
    endRefusal();
    if (std::exchange(closeRequested_, false))
        close();
}

void Screen::showRefusal() {
    refusing_ = true;
    QPointer<QWidget> focus = focusWidget();
    for (const Command& command : commandTable_)
        showEnabled(command);
    // A disabled button passes the focus on; it gets it back if the handler leaves it at that.
    if (focus && focus != focusWidget()) {
        focusBefore_ = focus;
        focusMeanwhile_ = focusWidget();
    }
}

void Screen::endRefusal() {
    if (!std::exchange(refusing_, false))
        return;
    for (const Command& command : commandTable_)
        showEnabled(command);
    if (focusBefore_ && focusWidget() == focusMeanwhile_)
        focusBefore_->setFocus();
    focusBefore_ = nullptr;
}

QTimer* Screen::every(int milliseconds, std::function<void()> handler) {
    auto* timer = new QTimer(this);
    timer->start(milliseconds);
    connect(timer, &QTimer::timeout, this, [this, handler = std::move(handler)] {
        if (!busy())
            run(handler);
    });
    return timer;
}

// --- long walks ---

bool Screen::stillOpen() {
    Q_ASSERT_X(busy(), "Screen::stillOpen", "a walk is part of a handler");
    walked_ = true;
    if (!sinceEvents_.isValid() || sinceEvents_.hasExpired(kEventsInterval)) {
        LetEventsThrough();
        sinceEvents_.start();
    }
    return !stopRequested_;
}

void Screen::requestStop() {
    if (busy())
        stopRequested_ = true;
}

void Screen::progress(int done, int total, const QString& words) {
    progress_->setVisible(total > 0);
    progress_->setRange(0, total);
    progress_->setValue(done);
    setStatus(words);
}

void Screen::setStatus(const QString& words) {
    status_->setText(words);
}

// --- fields and keys ---

void Screen::onEnter(QWidget* control, std::function<void()> handler) {
    onEnter_.append({control, std::move(handler)});
}

void Screen::moveOn(bool back) {
    QWidget* from = focusWidget() ? focusWidget() : this;
    QWidget* to = from;
    do {
        to = back ? to->previousInFocusChain() : to->nextInFocusChain();
    } while (to != from && !IsStop(to));
    to->setFocus(back ? Qt::BacktabFocusReason : Qt::TabFocusReason);
}

void Screen::goTo(QWidget* control) {
    if (refusing_ && !control->isEnabled()) {
        focusBefore_ = control;
        focusMeanwhile_ = focusWidget();
        return;
    }
    control->setFocus();
}

void Screen::setFieldOrder(const QList<QWidget*>& fields) {
    for (qsizetype i = 1; i < fields.size(); ++i)
        QWidget::setTabOrder(fields[i - 1], fields[i]);
}

void Screen::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!event->isAutoRepeat())
            pressEnter(event->modifiers() & Qt::ShiftModifier);
        break;
    case Qt::Key_Escape:
        pressEscape();
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void Screen::pressEnter(bool back) {
    QWidget* control = focusWidget();
    if (auto* button = qobject_cast<QPushButton*>(control))
        button->click();
    else if (const auto handler = back ? nullptr : enterHandler(control))
        run(handler);
    else
        moveOn(back);
}

std::function<void()> Screen::enterHandler(const QWidget* control) const {
    for (const auto& [owner, handler] : onEnter_) {
        if (owner == control)
            return handler;
    }
    return nullptr;
}

void Screen::pressEscape() {
    const bool stops = busy();
    requestStop();
    bool done = stops;
    for (const Command& command : commandTable_) {
        if (stops ? command.kind == CommandKind::Stop : command.byEscape) {
            command.button->click();
            done = true;
        }
    }
    if (!done)
        close();
}

// --- closing ---

void Screen::accept() {
    accepted_ = true;
    close();
}

void Screen::showEvent(QShowEvent* event) {
    if (!event->spontaneous()) {
        accepted_ = false;
        putCommandsLast();
    }
    QWidget::showEvent(event);
}

void Screen::putCommandsLast() {
    QWidget* last = previousInFocusChain();
    while (commands_->isAncestorOf(last))
        last = last->previousInFocusChain();
    for (auto* button : commands_->findChildren<QPushButton*>()) {
        QWidget::setTabOrder(last, button);
        last = button;
    }
}

void Screen::closeEvent(QCloseEvent* event) {
    if (busy()) {
        closeRequested_ = !closing_;
        stopRequested_ = true;
        event->ignore();
        return;
    }
    bool closes = false;
    {
        const Running running(*this);
        closing_ = true;
        perform([&] { closes = closing(); });
        closing_ = false;
    }
    event->setAccepted(closes);
    if (closes)
        Q_EMIT closed();
    else
        accepted_ = false;
}

} // namespace hotel
