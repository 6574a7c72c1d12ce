#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include "frontoffice/ParaFrm.h"
#include "house/common/paths.h"
#include "house/rooms/working_days.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/category_box.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "session/operation_log.h"
#include "session/parameters.h"
#include "tests/hotel_test.h"
#include "tests/test_hotel.h"

using namespace hotel;

class ParaTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;
    std::unique_ptr<ParaFrm> form_;
    GridView* days_ = nullptr;

    QLineEdit* box(QStringView name) { return form_->findChild<QLineEdit*>(name.toString()); }
    CategoryBox* weekday() { return form_->findChild<CategoryBox*>(u"Hsxq"_s); }
    void press(QStringView command) { form_->command(command)->click(); }
    void open() {
        form_ = std::make_unique<ParaFrm>();
        form_->show();
        form_->activateWindow();
        form_->run([this] { form_->load({}); });
        days_ = form_->findChild<GridView*>(u"GzrQd"_s);
        QVERIFY(QTest::qWaitForWindowActive(form_.get()));
    }
    void showTabOf(QWidget* control) {
        auto* tabs = form_->findChild<QTabWidget*>();
        for (int tab = 0; tab < tabs->count(); ++tab) {
            if (tabs->widget(tab)->isAncestorOf(control))
                tabs->setCurrentIndex(tab);
        }
    }
    // Types into the field and goes on with Tab.
    void type(QStringView name, const QString& text) {
        showTabOf(box(name));
        box(name)->setFocus();
        box(name)->selectAll();
        QTest::keyClicks(box(name), text);
        QTest::keyClick(box(name), Qt::Key_Tab);
    }
    void add(const QString& remark, const QString& date, const QString& day) {
        box(u"Gzrsm")->setText(remark);
        box(u"Rq")->setText(date);
        weekday()->setValue(day);
        press(u"AddRq");
    }
    QString storedDay(const QString& record) {
        return hotel_->stored(WorkingDayFile(), working_day::kProject.toString(), record);
    }

private Q_SLOTS:
    void init() {
        hotel_ = std::make_unique<TestHotel>();
        messages_ = std::make_unique<MessageRecorder>();
        open();
    }
    void cleanup() {
        form_.reset();
        messages_.reset();
        hotel_.reset();
    }

    void everyParameterHasAField() {
        for (const Parameter& parameter : Parameters()) {
            const QString name = parameter.name.toString();
            const auto* check = form_->findChild<QCheckBox*>(name);
            QVERIFY2(check || box(name), qPrintable(name));
            QCOMPARE(check ? QString::number(int(check->isChecked())) : box(name)->text(),
                     parameter.defaultValue.toString());
        }
    }

    void aChangeHoldsAtOnce_data() {
        QTest::addColumn<QString>("parameter");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("value");
        QTest::newRow("folder") << u"ScwjLj"_s << u"Qd\\"_s << u"Qd\\"_s;
        QTest::newRow("short time") << u"Bjsx1"_s << u"1330"_s << u"13:30"_s;
        QTest::newRow("no time") << u"Bjsx1"_s << u"99"_s << u"12:00"_s;
        QTest::newRow("time emptied") << u"Yjbj"_s << QString() << u"06:00"_s;
    }
    void aChangeHoldsAtOnce() {
        QFETCH(QString, parameter);
        QFETCH(QString, typed);
        box(parameter)->clear();
        type(parameter, typed);
        QTEST(Param(parameter), "value");
        form_->close();
        QTEST(Param(parameter), "value");
    }
    void switchesAreClicked() {
        auto* box = form_->findChild<QCheckBox*>(u"AutoFy"_s);
        showTabOf(box);
        box->click();
        QVERIFY(ParamOn(u"AutoFy"));
    }

    void definesAndSavesDays() {
        QVERIFY(!form_->command(u"SaveRq")->isEnabled());
        add({}, u"2026-05-01"_s, u"星期天"_s);
        add(u"劳动节"_s, u"2026-05-01"_s, {});
        QVERIFY(!form_->command(u"SaveRq")->isEnabled());
        QVERIFY(messages_->entries().isEmpty());
        add(u"劳动节"_s, u"2026-05-01"_s, u"星期天"_s);
        add(u"调休"_s, u"2026.5.9"_s, u"星期五"_s);
        QCOMPARE(days_->table().row(2), QStringList({u"调休"_s, u"2026-05-09"_s, u"星期五"_s}));
        add(u"又一次"_s, u"2026-05-01"_s, u"星期六"_s);
        QCOMPARE(messages_->entries().last().title, u"错误"_s);
        QCOMPARE(messages_->last(), u"不能重复定义！"_s);

        press(u"SaveRq");
        QVERIFY(!form_->command(u"SaveRq")->isEnabled());
        QCOMPARE(GetTag(storedDay(u"002"_s), working_day::kWeekday), u"星期五"_s);
        QCOMPARE(CheckGzr(u"2026-05-01"), u"星期天"_s);
        const QString log = hotel_->stored(OperationLogFile(Clock::DateText(), Clock::Today()),
                                           operation_log::kProject.toString(), u"100000"_s);
        QCOMPARE(GetTag(log, operation_log::kOperation), u"修改保存工作日信息"_s);
        open();
        QCOMPARE(days_->table().dataRows(), 2);
    }

    void deletesDays() {
        add(u"劳动节"_s, u"2026-05-01"_s, u"星期天"_s);
        add(u"调休"_s, u"2026-05-09"_s, u"星期五"_s);
        press(u"SaveRq");
        days_->setCurrent(1);
        press(u"DelRq");
        QCOMPARE(box(u"Gzrsm")->text(), u"劳动节"_s);
        QCOMPARE(weekday()->currentText(), u"星期天"_s);
        QCOMPARE(days_->table().dataRows(), 1);
        days_->setCurrent(1);
        press(u"DelRq");
        QCOMPARE(days_->table().row(1), QStringList({{}, {}, {}}));
        press(u"SaveRq");
        QCOMPARE(storedDay(u"001"_s), QString());
        add(u"国庆"_s, u"2026-10-01"_s, u"星期天"_s); // takes the empty row
        QCOMPARE(days_->table().dataRows(), 1);
    }

    void refusesDates_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("words");
        QTest::newRow("yesterday")
            << u"2026-3-4"_s
            << u"不能设定: 没有必要设定以前的日期，正确的做法应该在考勤之前定义好以后的特殊工作日！"_s;
        QTest::newRow("no date") << u"2026-2-30"_s << u"错误: 日期错误，必须输入！"_s;
        QTest::newRow("today") << u"2026-3-5"_s << QString();
    }
    void refusesDates() {
        QFETCH(QString, typed);
        type(u"Rq", typed);
        QString told;
        for (const auto& entry : messages_->entries())
            told += entry.title + u": "_s + entry.words;
        QTEST(told, "words");
        QCOMPARE(box(u"Rq")->text(), u"2026-03-05"_s);
    }

    void digitsPickTheWeekday_data() {
        QTest::addColumn<char>("key");
        QTest::addColumn<QString>("picked");
        QTest::newRow("0") << '0' << u"星期天"_s;
        QTest::newRow("6") << '6' << u"星期六"_s;
        QTest::newRow("7") << '7' << u"星期天"_s;
        QTest::newRow("8") << '8' << u"星期三"_s;
    }
    void digitsPickTheWeekday() {
        QFETCH(char, key);
        showTabOf(weekday());
        weekday()->setFocus();
        weekday()->setValue(u"星期三"_s);
        QTest::keyClick(weekday(), key);
        QTEST(weekday()->currentText(), "picked");
    }

    void unsavedDaysAreAskedFor_data() {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<bool>("saved");
        QTest::newRow("yes") << u"yes"_s << true;
        QTest::newRow("no") << u"no"_s << false;
    }
    void unsavedDaysAreAskedFor() {
        QFETCH(QString, answer);
        add(u"劳动节"_s, u"2026-05-01"_s, u"星期天"_s);
        form_->run([this] { form_->load({}); }); // asked for again by the menu
        QCOMPARE(days_->table().dataRows(), 1);
        messages_->answerNext(answer);
        QVERIFY(form_->close());
        QTEST(!storedDay(u"001"_s).isEmpty(), "saved");
    }

    void tellsThatSavingFailed() {
        add(u"劳动节"_s, u"2026-05-01"_s, u"星期天"_s);
        hotel_->stopServer();
        press(u"SaveRq");
        QVERIFY(messages_->words().contains(u"工作日定义信息保存失败？！"_s));
        QVERIFY(form_->command(u"SaveRq")->isEnabled());
        open();
        QVERIFY(!form_->command(u"AddRq")->isEnabled());
    }
};

HOTEL_TEST(ParaTest)
#include "test_para.moc"
