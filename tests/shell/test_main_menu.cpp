#include <QSet>

#include "screen/messages.h"
#include "shell/main_menu.h"
#include "tests/hotel_test.h"

using namespace hotel;

class MainMenuTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nightAuditGate() {
        const auto row = [](const char* name, const QString& time, bool open) {
            Check(name, NightAuditMayOpen(time), open);
        };
        row("before ten", u"21:59:59"_s, false);
        row("ten", u"22:00:00"_s, true);
        row("midnight", u"00:00:00"_s, true);
        row("before seven", u"06:59:59"_s, true);
        row("seven", u"07:00:00"_s, false);
        row("noon", u"12:00:00"_s, false);
    }

    // Two buttons of one name could not be told apart by their handlers.
    void controlsAreUnique() {
        QSet<QStringView> controls;
        int count = 0;
        for (const MenuGroup& group : MainMenu()) {
            controls.insert(group.control);
            ++count;
            for (const MenuEntry& entry : group.entries) {
                controls.insert(entry.control);
                ++count;
                QVERIFY2(!entry.screen.isEmpty(), qPrintable(entry.control.toString()));
            }
        }
        QCOMPARE(controls.size(), count);
    }

    void entryWithoutScreenSaysSo() {
        MessageRecorder messages;
        QStringList opened;
        SetEntryOpener([&](QStringView screen, const QString&) {
            opened.append(screen.toString());
            return screen == u"Ftxxfrm";
        });
        OpenEntry(u"Ftxxfrm", u"房态信息");
        QVERIFY(messages.entries().isEmpty());
        OpenEntry(u"frmShw", u"失物招领");
        QVERIFY(messages.last().contains(u"失物招领"));
        QCOMPARE(opened, (QStringList{u"Ftxxfrm"_s, u"frmShw"_s}));
        SetEntryOpener({});
    }
};

HOTEL_TEST(MainMenuTest)

#include "test_main_menu.moc"
