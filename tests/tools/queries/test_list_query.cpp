#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include "platform/clock.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "session/operation_log.h"
#include "tests/hotel_test.h"
#include "tests/test_hotel.h"
#include "tools/lists/CmnGrd.h"
#include "tools/queries/CmnQuery.h"
#include "tools/queries/operation_log_query.h"

using namespace hotel;

namespace {

CmnGrd* OpenList() {
    return qobject_cast<CmnGrd*>(FindScreen(u"CmnGrd"));
}

// Plays the user at each query form that comes up; a form without an answer left is closed.
class Manager : public QObject {
public:
    explicit Manager(const QStringList& keywords) : keywords_(keywords) {
        connect(&timer_, &QTimer::timeout, this, &Manager::answer);
        timer_.start(20);
    }
    int forms = 0;
    QString caption;

private:
    void answer() {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            auto* form = qobject_cast<CmnQuery*>(window);
            if (!form || !form->isVisible() || form == last_)
                continue;
            last_ = form;
            ++forms;
            caption = form->windowTitle();
            if (keywords_.isEmpty()) {
                form->close();
                return;
            }
            // Today's file holds what was searched with, since every query is logged.
            form->findChild<QLineEdit*>(u"EndDay"_s)->setText(u"2026-03-04"_s);
            form->findChild<QComboBox*>(u"BxTj"_s)->setEditText(keywords_.takeFirst());
            QTRY_VERIFY(form->command(u"Search_cmd")->isEnabled());
            form->command(u"Search_cmd")->click();
            return;
        }
    }

    QStringList keywords_;
    QPointer<CmnQuery> last_;
    QTimer timer_;
};

} // namespace

class ListQueryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { hotel_ = std::make_unique<TestHotel>(); }
    void cleanup() {
        CloseAllScreens();
        hotel_.reset();
    }

    void operationLog() {
        for (const int day : {-1, 1, 3, 4}) { // the first is ahead of the period
            Clock::Freeze(QDateTime(QDate(2026, 3, 1), QTime(9, 0, 5)).addDays(day - 1));
            hotel_->setServerClock(Clock::Now());
            SaveLogRec(u"入住登记"_s, u"1间客房:%1"_s.arg(8100 + day));
        }
        Clock::Freeze(TestHotel::Moment());
        hotel_->setServerClock(Clock::Now());

        MessageRecorder recorder;
        Manager manager({u"没有的词"_s, u"1间客房"_s});
        QWidget window;
        OpenOperationLogQuery(&window);
        QCOMPARE(manager.forms, 2); // asked again
        QCOMPARE(manager.caption, u"请输入系统操作信息查询组合条件"_s);
        QCOMPARE(recorder.words(), QStringList{u"没有找到满足条件的信息！"_s});
        QCOMPARE(recorder.entries()[0].title, u"重新查询"_s);
        const CmnGrd* list = OpenList();
        QVERIFY(list);
        QCOMPARE(list->windowTitle(), u"系统登录操作信息明细"_s);
        QTRY_COMPARE(list->GrdView()->table().dataRows(), 3);
        QCOMPARE(list->Grd().row(2).join(u'|'),
                 u"090005|系统管理员|2026-03-03|09:00:05|入住登记|1间客房:8103"_s);
    }

    void closedForm() {
        MessageRecorder recorder;
        Manager manager({});
        OpenOperationLogQuery(nullptr);
        QCOMPARE(manager.forms, 1);
        QVERIFY(!OpenList());
        QVERIFY(recorder.entries().isEmpty());
    }

    void windowsCloseMeanwhile() {
        for (const bool form : {false, true}) {
            MessageRecorder recorder;
            auto window = std::make_unique<QWidget>();
            window->show();
            Manager manager(form ? QStringList() : QStringList{u"没有的词"_s});
            QTimer closer;
            connect(&closer, &QTimer::timeout, [&] {
                if (form)
                    window.reset();
                else if (CmnGrd* list = OpenList())
                    list->close();
            });
            closer.start(1);
            OpenOperationLogQuery(window.get());
            QVERIFY(recorder.entries().isEmpty());
            QTRY_VERIFY(!OpenList());
        }
    }

private:
    std::unique_ptr<TestHotel> hotel_;
};

HOTEL_TEST(ListQueryTest)

#include "test_list_query.moc"
