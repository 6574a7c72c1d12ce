#pragma once

// What every screen is made of: a content area, the command bar below it and a status line; and the
// rule that keeps a screen sound while one of its handlers waits on the server.
//
//     RzjdFrm::RzjdFrm() : Screen(u"RzjdFrm"_s, u"客人入住登记"_s) {
//         setContent(...);
//         addCommands({
//             {u"QrCmd"_s, u"确认"_s, [this] { QrCmd_Click(); }, Qt::Key_F8, CommandKind::Default},
//             {u"FreshCmd"_s, u"刷新"_s, [this] { FreshCmd_Click(); }, Qt::Key_F5},
//             {u"CmdStop"_s, u"停止"_s, [this] { requestStop(); }, {}, CommandKind::Stop},
//         });
//         on(Kxkfqd, &GridView::rowDoubleClicked, [this](int row, int) { Kxkfqd_DblClick(row); });
//     }
//
// Re-entry. A command of the link waits while the event loop runs, so any handler can be entered
// while another one waits. Therefore everything that a user or a timer starts goes through run(),
// which the command bar, on(), onEnter() and every() do by themselves:
// - While a handler of a screen is on the stack, what else is started on that screen is refused,
//   except stop commands. The commands are shown disabled when it takes longer than a blink.
// - A handler that is called by another one without the event loop in between (the handler has set
//   a text, and the text's own change handler runs) is part of it and is not refused.
// - A request to close is remembered, sets stopRequested(), and is carried out when the handler has
//   returned. A screen is never destroyed while one of its handlers is on the stack, so a handler
//   may use `this` after any wait.
//
// Keys. Enter moves on from field to field, and from the last one to the default command;
// Shift+Enter moves back; on a command Enter presses it. Esc stops what runs, and closes the screen
// when nothing runs. Each command may have a key of its own, shown on its button.

#include <QElapsedTimer>
#include <QKeySequence>
#include <QList>
#include <QPointer>
#include <QVariant>
#include <QWidget>
#include <functional>
#include <type_traits>
#include <utility>

class QLabel;
class QProgressBar;
class QPushButton;
class QTimer;
class QVBoxLayout;

namespace hotel {

class CommandBar;

enum class CommandKind {
    Plain,
    Default, // where Enter ends up behind the last field; a screen has one at most
    Stop,    // runs while other handlers run, too; Esc presses it then
};

struct ScreenCommand {
    QString name;    // object name of its button, as "QrCmd"
    QString caption; // as on the button
    std::function<void()> handler;
    QKeySequence key = {};
    CommandKind kind = CommandKind::Plain;
    QString group = {}; // commands of one group stand together; a new group begins with a gap
};

class Screen : public QWidget {
    Q_OBJECT

public:
    // `name` is the screen's name ("RzjdFrm") and object name, `caption` its window title.
    Screen(const QString& name, const QString& caption, QWidget* parent = nullptr);
    ~Screen() override;

    // Called by OpenScreen each time the screen is asked for, as a handler of it, with the window
    // already on display: reads what the screen shows. A screen that can't go on calls close()
    // here.
    virtual void load(const QVariant& argument);

    // --- commands ---

    // The button of a command; an unknown name is an error of the program.
    QPushButton* command(QStringView name) const;

    // A command that the screen's state forbids. Refusal while a handler runs comes on top of it.
    void setCommandEnabled(QStringView name, bool enabled);

    // --- handlers ---

    // Runs a handler under the rule above; false when it was refused. An exception that leaves the
    // handler is shown to the user and ends there.
    bool run(const std::function<void()>& handler);

    // True while a handler of this screen is on the stack.
    bool busy() const { return depth_ > 0; }

    // Holds the rule for a stretch of code that works on a screen which is not its own (a query
    // that fills the list screen it has opened).
    //
    //     Screen::Running filling(*listScreen);
    //     if (!filling) return; // another handler of it is waiting
    class Running {
    public:
        explicit Running(Screen& screen);
        ~Running();
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;
        explicit operator bool() const { return screen_; }

    private:
        friend class Screen;
        Running(Screen& screen, bool enters);

        QPointer<Screen> screen_; // null when it was refused
        int outerEventDepth_;     // the screen's before this stretch
    };

    // --- long walks ---
    //
    //     for (int n = 1; stillOpen(); ++n) { ...; progress(n, total, u"..."_s); }

    // Lets events through (at most every 20 ms, so it costs nothing in a tight walk) and tells
    // whether the walk may go on: false once a stop or the closing of the screen was asked for.
    bool stillOpen();

    // True from a request to stop or close until the running handler has returned. Never true while
    // nothing runs.
    bool stopRequested() const { return stopRequested_; }
    void requestStop();

    // Progress in the status line: `done` of `total` and words. The bar goes with the end of the walk;
    // where a timer carries the work from tick to tick, 0 of 0 takes it away.
    void progress(int done, int total, const QString& words = {});
    void setStatus(const QString& words);

    // --- fields and keys ---

    // Enter in `control` runs the handler (by run) in place of moving on. The handler calls
    // moveOn() when the field is done with.
    void onEnter(QWidget* control, std::function<void()> handler);

    // Moves the focus to the next (previous) field that can be typed into: in the order set by
    // setFieldOrder, else in the order of the Tab key; behind the last field to the default
    // command.
    void moveOn(bool back = false);

    // Gives a control the focus: now, or, where the running handler has its command disabled, as soon
    // as the handler has returned.
    void goTo(QWidget* control);

    // The order in which Enter and Tab go through the fields. Controls that are left out keep to
    // Tab.
    void setFieldOrder(const QList<QWidget*>& fields);

    // --- for screens used as questions (see ModalScreen in screen/open_screen.h) ---

    // Closes with a result: the question was answered.
    void accept();
    bool accepted() const { return accepted_; }

Q_SIGNALS:
    // The screen has been closed; it still stands, and is destroyed when events go on.
    void closed();

protected:
    void setContent(QWidget* content);
    void setContent(QLayout* content);

    // Adds commands to the bar at the foot of the screen.
    void addCommands(const QList<ScreenCommand>& commands);
    // A further bar, to be placed inside the content (the commands of one tab). Its commands come
    // under the same rule; their keys work while it is visible.
    QWidget* commandPanel(const QList<ScreenCommand>& commands);

    // Runs `handler` by run() whenever the signal comes; it takes all arguments of the signal or
    // none.
    template<class Sender, class Signal, class Handler>
    void on(Sender* sender, Signal signal, Handler handler) {
        connect(sender, signal, this,
                [this, handler](auto... arguments) { run([&] { Call(handler, arguments...); }); });
    }

    // Runs `handler` by run() every so many milliseconds; a tick that meets a running handler is
    // left out. The timer runs already; stop() it as needed.
    QTimer* every(int milliseconds, std::function<void()> handler);

    // Asked, as a handler, before the screen closes; false keeps it open. May wait on the server.
    virtual bool closing() { return true; }

    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    template<class Handler, class... Arguments>
    static void Call(const Handler& handler, const Arguments&... arguments) {
        if constexpr (std::is_invocable_v<const Handler&, const Arguments&...>)
            handler(arguments...);
        else
            handler();
    }

    struct Command {
        QPushButton* button; // its object name is the command's name
        CommandKind kind;
        bool byEscape;       // its key is Esc
        bool enabled = true; // as the screen wants it
    };

    void addCommand(const ScreenCommand& command, CommandBar* bar);
    qsizetype indexOf(QStringView name) const;
    void showEnabled(const Command& command);

    bool isReentry() const;
    void enter();
    void leave(int outerEventDepth);
    void perform(const std::function<void()>& handler);
    void showRefusal();
    void endRefusal();

    void putCommandsLast(); // Enter and Tab come to the commands behind the content
    void pressEnter(bool back);
    void pressEscape();
    std::function<void()> enterHandler(const QWidget* control) const;

    QVBoxLayout* layout_;
    QWidget* content_ = nullptr;
    CommandBar* commands_;
    QList<Command> commandTable_;
    QLabel* status_;
    QProgressBar* progress_;
    QList<std::pair<QPointer<QWidget>, std::function<void()>>> onEnter_;

    int depth_ = 0;      // handlers on the stack
    int eventDepth_ = 0; // EventDepth() of the innermost one
    bool stopRequested_ = false;
    bool closeRequested_ = false;
    bool closing_ = false; // closing() is on the stack
    bool accepted_ = false;
    bool walked_ = false; // the running handler is a walk
    QElapsedTimer sinceEvents_;

    // The refusal as the user sees it.
    QTimer* disableSoon_;
    bool refusing_ = false;
    QPointer<QWidget> focusBefore_;
    QPointer<QWidget> focusMeanwhile_;
};

} // namespace hotel
