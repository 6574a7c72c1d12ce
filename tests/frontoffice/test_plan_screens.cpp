// Reservations and repairs through their screens, from the keyboard.

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include "frontoffice/frmWX.h"
#include "frontoffice/frmYD.h"
#include "link/records.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/check_list.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "tests/hotel_test.h"
#include "tests/test_hotel.h"
#include "tests/type_text.h"
#include "tools/aids/form_tools.h"

using namespace hotel;

namespace {

const QString kLive = u"ydxx\\Kfydxx.QVR"_s;
const QString kProject = u"客房预订信息"_s;

void Key(Qt::Key key) {
    QTest::keyClick(QApplication::focusWidget(), key);
}

void TypeLine(const QString& text) {
    TypeText(QApplication::focusWidget(), text);
    Key(Qt::Key_Enter);
}

QString FocusName() {
    return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
}

} // namespace

class PlanScreensTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { SetUpForms(); }
    void init() {
        hotel_ = std::make_unique<TestHotel>(TestHotel::Start::NobodyLoggedIn);
        hotel_->desk().logIn(u"QIANTAI"_s, u"111111"_s);
        messages_ = std::make_unique<MessageRecorder>();
    }
    void cleanup() {
        messages_.reset();
        hotel_.reset();
    }

    void aReservationFromTheKeyboard() {
        frmYD plans;
        show(plans);
        QCOMPARE(text(plans, u"Yddh"_s), QString());
        QTest::keyClick(&plans, Qt::Key_F5);
        QCOMPARE(text(plans, u"Yddh"_s), u"260305100000"_s);
        QCOMPARE(text(plans, u"Ydzt"_s), u"计划"_s);
        QCOMPARE(text(plans, u"Yjdd"_s), u"2026-03-05"_s);
        QCOMPARE(text(plans, u"Jbr"_s), u"林晓燕"_s);
        QCOMPARE(FocusName(), u"Krxm"_s);
        TypeLine(u"王一"_s);
        Key(Qt::Key_Enter); // no company
        QCOMPARE(FocusName(), u"Yjdd"_s);
        Key(Qt::Key_Enter);
        QTest::keyClick(&plans, Qt::Key_F5); // too early
        QCOMPARE(messages_->last(), u"预订人必须说明!"_s);
        QCOMPARE(text(plans, u"Krxm"_s), u"王一"_s);
        field(plans, u"Dfjs"_s)->setFocus();
        TypeLine(u"2"_s);
        field(plans, u"Ydr"_s)->setFocus();
        TypeLine(u"刘秘书"_s);
        mark(plans, {u"8203"_s, u"8205"_s});
        mark(plans, {u"8203"_s}); // and not
        QTest::keyClick(&plans, Qt::Key_F5);
        QCOMPARE(messages_->words().size(), 1);
        QCOMPARE(stored(u"预留客房"_s), u"<001>8205</001>"_s);
        QCOMPARE(stored(u"经办人"_s), u"林晓燕"_s);
        QCOMPARE(text(plans, u"Yddh"_s), QString()); // ready for the next one
        QCOMPARE(text(plans, u"Krxm"_s), QString());
        QCOMPARE(list(plans, u"YdxxQd"_s)->currentRow(), 0);

        list(plans, u"YdxxQd"_s)->setCurrent(1);
        QCOMPARE(text(plans, u"Krxm"_s), u"王一"_s);
        QCOMPARE(rooms(plans), u"8205"_s);
        QTest::keyClick(
            &plans, Qt::Key_F5); // the number stands: a new one is begun, nothing is overwritten
        QCOMPARE(text(plans, u"Yddh"_s), u"260305100001"_s);
        QCOMPARE(rooms(plans), QString());
        messages_->answerNext(u"no"_s);
        plans.close();
        QVERIFY(plans.isVisible());
        QCOMPARE(messages_->last(), u"新增的记录还没有保存，放弃吗？"_s);
    }

    void changeAndDelete() {
        save(u"260305090000"_s, u"<经办单位>前厅部</经办单位><经办人>林晓燕</经办人>"_s);
        save(u"260305090001"_s, u"<经办单位>前厅部</经办单位><经办人>陈志远</经办人>"_s);
        frmYD plans;
        show(plans);
        QTest::keyClick(&plans, Qt::Key_F6);
        QCOMPARE(messages_->last(), u"请选择要修改的记录,再执行本功能！"_s);
        QTest::keyClick(&plans, Qt::Key_F7);
        QCOMPARE(messages_->last(), u"请选择要删除的记录！"_s);
        auto* table = list(plans, u"YdxxQd"_s);
        table->setCurrent(2);
        auto* state = plans.findChild<QComboBox*>(u"Ydzt"_s);
        state->setCurrentText(u"取消"_s);
        QTest::keyClick(&plans, Qt::Key_F6);
        QCOMPARE(stored(u"预定状态"_s, u"260305090001"_s), u"取消"_s);
        QCOMPARE(stored(u"经办人"_s, u"260305090001"_s), u"陈志远"_s);
        messages_->answerNext(u"yes"_s);
        QTest::keyClick(&plans, Qt::Key_F7);
        QCOMPARE(messages_->entries().last().title, u"操作禁止"_s);
        table->setCurrent(1);
        messages_->answerNext(u"no"_s);
        QTest::keyClick(&plans, Qt::Key_F7);
        QCOMPARE(table->table().dataRows(), 2);
        messages_->answerNext(u"yes"_s);
        QTest::keyClick(&plans, Qt::Key_F7);
        QCOMPARE(table->table().dataRows(), 1);
        QCOMPARE(hotel_->stored(kLive, kProject, u"260305090000"_s), QString());
    }

    void roomsOfFloorsAndTypes() {
        frmYD plans;
        show(plans);
        plans.findChild<QTabWidget*>()->setCurrentIndex(1);
        auto* floors = plans.findChild<CheckList*>(u"Xslc"_s);
        const int second = int(floors->entries().indexOf(u"2"));
        floors->setFocus();
        floors->setCurrentRow(second);
        Key(Qt::Key_Space);
        QVERIFY(rooms(plans).startsWith(u"8201,8202,8203"));
        const int marked = int(rooms(plans).count(u',')) + 1;
        const TextTable& counts = list(plans, u"LctjQd"_s)->table();
        QCOMPARE(counts.text(counts.rows() - 1, u"房数"), QString::number(marked));
        QVERIFY(floors->ticks()[second]);
        Key(Qt::Key_Space);
        QCOMPARE(rooms(plans), QString());
        plans.command(u"AllSelCmd")->click();
        QCOMPARE(counts.text(counts.rows() - 1, u"房数"), u"100"_s);
        plans.command(u"AllClr")->click();
        QCOMPARE(rooms(plans), QString());
        QVERIFY(!plans.command(u"ApplCmd")->isEnabled());
    }

    // What can't be read is neither shown as empty nor written over.
    void anUnreadListAndUnreadRooms() {
        save(u"260305090000"_s, u"<预留客房><001>8203</001></预留客房>"_s);
        frmYD plans;
        show(plans);
        hotel_->stopServer();
        list(plans, u"YdxxQd"_s)->setCurrent(1);
        QVERIFY(!list(plans, u"KfQd"_s)->isEnabled());
        QTest::keyClick(&plans, Qt::Key_F11);
        QCOMPARE(messages_->last(), u"清单读取失败，请稍候刷新再试！"_s);
        QCOMPARE(list(plans, u"YdxxQd"_s)->table().dataRows(), 1);
    }

    void aRepairFromReportToHistory() {
        frmWX repairs;
        show(repairs);
        QCOMPARE(FocusName(), u"Fh"_s);
        TypeLine(u"8203"_s);
        TypeLine(u"住客"_s);
        TypeLine(u"灯坏"_s);
        QCOMPARE(text(repairs, u"Bxrq"_s), u"2026-03-05"_s);
        QCOMPARE(text(repairs, u"Bxdw"_s), u"前厅部"_s);
        QCOMPARE(text(repairs, u"Bxr"_s), u"林晓燕"_s);
        QTest::keyClick(&repairs, Qt::Key_F5);
        QTest::keyClick(&repairs, Qt::Key_F5); // pressed twice: the empty form is refused
        QCOMPARE(messages_->last(), u"维修原因必须说明!"_s);
        auto* table = list(repairs, u"WxxxQd"_s);
        QCOMPARE(table->table().dataRows(), 1);
        table->setCurrent(1);
        QCOMPARE(text(repairs, u"Wxrq"_s), u"2026-03-05"_s); // proposed
        QTest::keyClick(&repairs, Qt::Key_F6);
        QCOMPARE(messages_->last(), u"维修结果没有确定,不能完成维修!"_s);
        field(repairs, u"Wxjg"_s)->setFocus();
        TypeLine(u"已换灯泡"_s);
        QTest::keyClick(&repairs, Qt::Key_F6);
        QCOMPARE(table->table().row(1).mid(7).join(u'|'), u"已换灯泡|2026-03-05|"_s);
        QTest::keyClick(&repairs, Qt::Key_F4);
        QCOMPARE(table->table().text(1, 0), QString());
        QCOMPARE(GetTag(hotel_->stored(u"wxzl\\26\\2603.QVR"_s, u"维修信息"_s, u"260305100000"_s),
                        u"维修原因"),
                 u"灯坏"_s);
    }

private:
    void show(Screen& screen) {
        screen.show();
        screen.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&screen));
        screen.run([&] { screen.load({}); });
    }
    static QWidget* field(const Screen& screen, const QString& name) {
        return screen.findChild<QWidget*>(name);
    }
    static QString text(const Screen& screen, const QString& name) {
        QWidget* editor = field(screen, name);
        if (const auto* box = qobject_cast<QComboBox*>(editor))
            return box->currentText();
        return qobject_cast<QLineEdit*>(editor)->text();
    }
    static GridView* list(const Screen& screen, const QString& name) {
        return screen.findChild<GridView*>(name);
    }
    static QString rooms(const Screen& plans) {
        QStringList marked;
        const TextTable& table = list(plans, u"KfQd"_s)->table();
        for (int row = 1; row < table.rows(); ++row) {
            if (table.text(row, u"选择") == u"是")
                marked.append(table.text(row, u"房间号"));
        }
        return marked.join(u',');
    }
    static void mark(Screen& plans, const QStringList& numbers) {
        plans.findChild<QTabWidget*>()->setCurrentIndex(1);
        GridView* all = list(plans, u"KfQd"_s);
        for (const QString& number : numbers) {
            all->setCurrent(all->table().find(1, number));
            QTest::keyClick(all, Qt::Key_Space);
        }
    }
    static void save(const QString& number, const QString& changes) {
        SaveRecord(
            kLive, kProject, number,
            u"<预定单号>"_s + number +
                u"</预定单号><客人姓名>王一</客人姓名><订房间数>1</订房间数><预定人>王一</预定人>" +
                changes);
    }
    QString stored(const QString& tag, const QString& number = u"260305100000"_s) {
        return GetTag(hotel_->stored(kLive, kProject, number), tag);
    }

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;
};

HOTEL_TEST(PlanScreensTest)

#include "test_plan_screens.moc"
