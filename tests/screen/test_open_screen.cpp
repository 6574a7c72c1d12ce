// Screens by name, and screens as questions.

#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include "example_screen.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "tests/hotel_test.h"

using namespace hotel;

namespace {

// A screen that keeps what it was asked to load.
class FolioScreen : public Screen {
public:
    FolioScreen() : Screen(u"FolioScreen"_s, u"费用签单"_s) {
        addCommands({{u"QrCmd"_s, u"确认"_s, [this] { accept(); }, {}, CommandKind::Default}});
    }
    void load(const QVariant& argument) override {
        loaded += argument.toString();
        if (argument == u"none"_s)
            close();
    }
    QStringList loaded;
};

FolioScreen* Folio() {
    return static_cast<FolioScreen*>(FindScreen(u"FolioScreen"));
}

} // namespace

class OpenScreenTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        RegisterScreen(u"FolioScreen", [] { return new FolioScreen; });
        RegisterScreen(
            u"ExampleScreen", [] { return new ExampleScreen; }, Instances::Many);
    }
    void cleanup() {
        QVERIFY(CloseAllScreens());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void oneWindowAName() {
        QVERIFY(!OpenScreen(u"NoSuchFrm"));
        QVERIFY(OpenScreen(u"FolioScreen", u"060302141500"_s));
        const QPointer<FolioScreen> first = Folio();
        QVERIFY(OpenScreen(u"FolioScreen", u"060302141501"_s));
        QCOMPARE(Folio(), first);
        QCOMPARE(first->loaded, QStringList({u"060302141500"_s, u"060302141501"_s}));

        first->close();
        QVERIFY(!FindScreen(u"FolioScreen"));
        QVERIFY(OpenScreen(u"FolioScreen")); // at once: the closed window may still stand
        QVERIFY(Folio() != first);
        QTRY_VERIFY(!first);
    }

    void manyWindowsAName() {
        QVERIFY(OpenScreen(u"ExampleScreen"));
        auto* first = FindScreen(u"ExampleScreen");
        QVERIFY(OpenScreen(u"ExampleScreen"));
        first->close();
        QVERIFY(FindScreen(u"ExampleScreen"));
        QVERIFY(FindScreen(u"ExampleScreen") != first);
    }

    void loadingMayCloseTheScreen() {
        QVERIFY(!OpenScreen(u"FolioScreen", u"none"_s));
        QVERIFY(!FindScreen(u"FolioScreen"));
    }

    void aBusyScreenTakesNoArgumentAndStays() {
        OpenScreen(u"FolioScreen");
        FolioScreen* folio = Folio();
        folio->run([&] {
            QEventLoop loop;
            QTimer::singleShot(0, &loop, [&] {
                QVERIFY(!OpenScreen(u"FolioScreen", u"060302141500"_s));
                QVERIFY(!CloseAllScreens());
                loop.quit();
            });
            loop.exec();
            QCOMPARE(folio->loaded, QStringList{QString()});
        });
        QVERIFY(!FindScreen(u"FolioScreen")); // the closing was remembered
    }

    void aQuestionIsAnsweredCancelledOrLost() {
        const auto row = [](const char* name, const QString& act, bool answered) {
            auto* asking = new QWidget;
            asking->show();
            ModalScreen<FolioScreen> question(asking);
            QTimer::singleShot(0, asking, [&] {
                QVERIFY(question->isVisible());
                if (act == u"accept")
                    question->command(u"QrCmd")->click();
                else if (act == u"close")
                    question->close();
                else
                    delete asking;
            });
            Check(name, question.show(), answered);
            Check(name, question.get() == nullptr, act == u"vanish");
            if (act != u"vanish")
                delete asking; // takes the form along, which the holder survives
        };
        row("accepted", u"accept"_s, true);
        row("closed", u"close"_s, false);
        row("the asking window vanishes", u"vanish"_s, false);
    }

    void aQuestionIsAskedAgainFromTheStart() {
        QWidget asking;
        ModalScreen<FolioScreen> question(&asking);
        QTimer::singleShot(0, &asking, [&] { question->accept(); });
        QVERIFY(question.show());
        QTimer::singleShot(0, &asking, [&] { question->close(); });
        QVERIFY(!question.show());
    }
};

HOTEL_TEST(OpenScreenTest)

#include "test_open_screen.moc"
