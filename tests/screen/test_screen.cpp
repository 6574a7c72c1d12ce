// The rule for re-entry, closing, and the way of Enter and Esc.

#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <memory>

#include "example_screen.h"
#include "platform/events.h"
#include "screen/messages.h"
#include "tests/hotel_test.h"
#include "tests/type_text.h"

using namespace hotel;

using Wait = ExampleScreen::Wait;

constexpr Wait kBothWaits[] = {Wait::InEventLoop, Wait::LettingEventsThrough};

class ScreenTest : public QObject {
    Q_OBJECT

    std::unique_ptr<ExampleScreen> screen_;

    QWidget* focus() const { return screen_->focusWidget(); }
    QPushButton* button(QStringView name) const { return screen_->command(name); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(screen_->windowHandle(), key, modifiers);
    }

private Q_SLOTS:
    void init() {
        screen_ = std::make_unique<ExampleScreen>();
        ShowActive(screen_.get());
    }
    void cleanup() { screen_.reset(); }

    void commandsAreRefusedWhileAHandlerWaits() {
        for (const Wait wait : kBothWaits) {
            init();
            screen_->wait = wait;
            screen_->pressWaitCmd([this] {
                button(u"DyCmd")->click();
                press(Qt::Key_F8);
                QVERIFY(!screen_->run([] {}));
                button(u"CmdStop")->click();
            });
            QCOMPARE(screen_->ran, QStringList({u"WaitCmd"_s, u"CmdStop"_s, u"WaitCmd ended"_s}));
            button(u"DyCmd")->click();
            QCOMPARE(screen_->ran.last(), u"DyCmd"_s);
        }
    }

    void aHandlerCalledByAnotherIsPartOfIt() {
        for (const Wait wait : kBothWaits) {
            init();
            screen_->wait = wait;
            bool inner = false;
            QVERIFY(screen_->run([&] {
                screen_->pressWaitCmd([] {}); // an inner wait that is over
                inner = screen_->run([] {});
            }));
            QVERIFY(inner);
            QVERIFY(screen_->ran.contains(u"WaitCmd ended"_s));
            QVERIFY(!screen_->busy());
        }
    }

    void aHandlerStartedFromAnotherScreensWaitRuns() {
        ExampleScreen other;
        bool nested = false;
        screen_->wait = Wait::LettingEventsThrough;
        screen_->pressWaitCmd([&] { other.run([&] { nested = other.run([] {}); }); });
        QVERIFY(nested);
    }

    void refusalIsShownWhenItLasts() {
        screen_->setCommandEnabled(u"LastC", false);
        button(u"WaitCmd")->setFocus();
        screen_->pressWaitCmd([this] {
            QTRY_VERIFY(!button(u"DyCmd")->isEnabled());
            QVERIFY(button(u"CmdStop")->isEnabled());
            screen_->setCommandEnabled(u"NextC", false);
            screen_->setCommandEnabled(u"LastC", true);
            QVERIFY(!button(u"LastC")->isEnabled());
        });
        QVERIFY(button(u"DyCmd")->isEnabled());
        QVERIFY(button(u"LastC")->isEnabled());
        QVERIFY(!button(u"NextC")->isEnabled());
        QCOMPARE(focus(), button(u"WaitCmd"));
    }

    void closingIsRememberedAndCarriedOut() {
        for (const Wait wait : kBothWaits) {
            init();
            auto* screen = screen_.release();
            const QPointer<Screen> stands = screen;
            screen->setAttribute(Qt::WA_DeleteOnClose);
            screen->wait = wait;
            QStringList ran;
            connect(screen, &Screen::closed, screen, [&] { ran = screen->ran; });
            screen->pressWaitCmd([&] {
                QVERIFY(!screen->close());
                screen->close();
                QVERIFY(screen->isVisible());
                QVERIFY(screen->stopRequested());
            });
            QCOMPARE(ran, QStringList({u"WaitCmd"_s, u"WaitCmd ended"_s, u"closing"_s}));
            QTRY_VERIFY(!stands);
        }
    }

    void aScreenMayRefuseToClose() {
        screen_->mayClose = false;
        screen_->accept();
        QVERIFY(screen_->isVisible());
        QVERIFY(!screen_->accepted());
        screen_->mayClose = true;
        QVERIFY(screen_->close());
        QVERIFY(!screen_->accepted());
    }

    void aScreenClosesFromItsOwnCommand() {
        button(u"ExitCmd")->click();
        QVERIFY(!screen_->isVisible());
        QCOMPARE(screen_->ran, QStringList{u"closing"_s});
    }

    void exceptionsEndInAMessage() {
        MessageRecorder recorder;
        screen_->run([] { throw std::runtime_error("too many names"); });
        QCOMPARE(recorder.last(), u"too many names"_s);
        QVERIFY(!screen_->busy());
    }

    void aWalkIsStoppedByEsc() {
        int steps = 0;
        screen_->run([&] {
            while (screen_->stillOpen()) {
                if (++steps == 3)
                    QTimer::singleShot(0, this, [this] { press(Qt::Key_Escape); });
            }
        });
        QVERIFY(steps >= 3);
        QVERIFY(screen_->isVisible());
        QVERIFY(!screen_->stopRequested());
        QCOMPARE(screen_->ran, QStringList{u"CmdStop"_s});
        press(Qt::Key_Escape);
        QVERIFY(!screen_->isVisible());
    }

    void timersStandBackWhileAHandlerRuns() {
        QTRY_VERIFY(screen_->ticks > 0);
        int before = -1;
        int after = -1;
        screen_->pressWaitCmd([&] {
            before = screen_->ticks;
            QTest::qWait(50);
            after = screen_->ticks;
        });
        QCOMPARE(after, before);
        QTRY_VERIFY(screen_->ticks > after);
    }

    void theFirstFieldHasTheFocus() { QCOMPARE(focus()->objectName(), u"Krxm"_s); }

    void progressStaysFromTickToTickAndGoesWithAWalk() {
        auto* bar = screen_->findChild<QProgressBar*>();
        screen_->progress(1, 10);
        const int ticks = screen_->ticks;
        QTRY_VERIFY(screen_->ticks > ticks);
        QVERIFY(bar->isVisible());
        screen_->run([this] { screen_->stillOpen(); });
        QVERIFY(!bar->isVisible());
    }

    void enterMovesThroughTheFieldsToTheDefaultCommand() {
        screen_->form->editor(u"Krxm")->setFocus();
        screen_->form->setReadOnly(u"Zjhm", true);
        for (const QString& field : {u"Krxb"_s, u"Zjzl"_s, u"Krnl"_s, u"Rzrq"_s, u"Rzsj"_s,
                                     u"Qrfj"_s, u"Zhcl"_s, u"Ffkr"_s, u"Tssm"_s}) {
            press(Qt::Key_Return);
            QCOMPARE(focus()->objectName(), field);
        }
        press(Qt::Key_Return); // a new line
        QCOMPARE(focus()->objectName(), u"Tssm"_s);
        press(Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(focus()->objectName(), u"QrCmd"_s);
        press(Qt::Key_Return);
        QCOMPARE(screen_->ran.last(), u"QrCmd"_s);
        press(Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(screen_->ran.count(u"QrCmd"_s), 2);
        screen_->form->editor(u"Zjzl")->setFocus();
        press(Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(focus()->objectName(), u"Krxb"_s);
    }

    void aFieldMayTakeEnterForItself() {
        QWidget* name = screen_->form->editor(u"Krxm");
        name->setFocus();
        screen_->onEnter(name, [this] { screen_->ran += u"search"_s; });
        press(Qt::Key_Enter, Qt::KeypadModifier);
        QCOMPARE(screen_->ran, QStringList{u"search"_s});
        QCOMPARE(focus(), name);
    }

    void tabReachesTheCommandsLast() {
        screen_->guests->setFocus();
        press(Qt::Key_Tab);
        QCOMPARE(focus()->objectName(), u"LastC"_s);
    }

    void escEmptiesAnAmountBeforeItCloses() {
        screen_->form->editor(u"Qrfj")->setFocus();
        screen_->form->setText(u"Qrfj", u"12"_s);
        press(Qt::Key_Escape);
        QVERIFY(screen_->isVisible());
        QCOMPARE(screen_->form->text(u"Qrfj"), QString());
        press(Qt::Key_Escape);
        QVERIFY(!screen_->isVisible());
    }

    void commandsFitANarrowWindow() {
        screen_->resize(screen_->minimumSizeHint());
        QVERIFY(screen_->width() < 800); // less than the commands take in one row
        QCoreApplication::processEvents();
        for (const auto* each : screen_->findChildren<QPushButton*>())
            QVERIFY2(each->parentWidget()->rect().contains(each->geometry()),
                     qPrintable(each->objectName()));
    }
};

HOTEL_TEST(ScreenTest)

#include "test_screen.moc"
