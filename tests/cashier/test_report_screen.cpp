// The screen of the business reports, as a clerk in a hurry uses it.

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "cashier/reports/YybbFrm.h"
#include "house/common/paths.h"
#include "link/records.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "tests/hotel_test.h"
#include "tests/house/small_house.h"
#include "tests/test_files.h"
#include "tests/tools/paper/print_items.h"
#include "tests/type_text.h"
#include "tools/charts/ChartBox.h"
#include "tools/lists/CmnGrd.h"
#include "tools/paper/PrtPrev.h"
#include "tools/paper/PrtSubs.h"
#include "tools/paper/print_pass.h"

using namespace hotel;

class ReportScreenTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;
    WorkingFolder folder_;
    QPointer<Screen> screen_;

    template<class Widget>
    Widget* in(const QString& name) {
        return screen_->findChild<Widget*>(name);
    }
    QString caption() { return in<QLabel>(u"BbBt"_s)->text(); }
    const TextTable& list() { return in<GridView>(u"BbQd"_s)->table(); }
    QString box(const QString& name) { return in<QLineEdit>(name)->text(); }
    bool enabled(QStringView command) { return screen_->command(command)->isEnabled(); }

    void choose(const QString& report) { Choose(in<QComboBox>(u"BbZl"_s), report); }
    void retype(const QString& name, const QString& text) {
        auto* field = in<QLineEdit>(name);
        field->setFocus();
        field->selectAll();
        TypeText(field, text);
    }
    void make() { screen_->command(u"MakeCmd")->click(); }
    QString status() {
        for (const QLabel* label : screen_->findChildren<QLabel*>()) {
            if (label->text().startsWith(u"共 "))
                return label->text();
        }
        return {};
    }

private Q_SLOTS:
    void initTestCase() {
        RegisterScreen(u"YybbFrm", [] { return new YybbFrm; });
        RegisterScreen(u"PrtPrev", [] { return new PrtPrev; });
    }
    void init() {
        hotel_ = std::make_unique<TestHotel>();
        messages_ = std::make_unique<MessageRecorder>();
        const QString project = PostingProject(kFoodPosting);
        SaveProject(JournalFile(project, {2026, 3, 4}), project,
                    u"<1><费用名称>早餐</费用名称><金额>20.00</金额></1>"
                    "<2><费用名称>午餐</费用名称><金额>36.00</金额></2>");
        OpenScreen(u"YybbFrm");
        screen_ = FindScreen(u"YybbFrm");
        QVERIFY(screen_);
    }
    void cleanup() {
        CloseAllScreens();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        ClosePrintJob();
        hotel_.reset();
    }

    void proposesDays() {
        ShowActive(screen_);
        QCOMPARE(in<QComboBox>(u"BbZl"_s)->count(), 23);
        QCOMPARE(in<QComboBox>(u"BbZl"_s)->currentText(), u"在住客人清单"_s);
        QVERIFY(in<QLineEdit>(u"StDay"_s)->isReadOnly()); // the present moment
        choose(u"餐饮娱乐收入明细单"_s);
        QVERIFY(!in<QLineEdit>(u"StDay"_s)->isReadOnly());
        QVERIFY(in<QLineEdit>(u"EndDay"_s)->isReadOnly());
        QCOMPARE(box(u"StDay"_s), u"2026-03-05"_s);
        retype(u"StDay"_s, u"3.4"_s);
        in<QComboBox>(u"BbZl"_s)->setFocus();
        choose(u"房费收入明细单"_s); // the day that was typed holds on
        QCOMPARE(box(u"StDay"_s), u"2026-03-04"_s);
        choose(u"房费收入统计表"_s);
        QCOMPARE(box(u"StDay"_s) + box(u"EndDay"_s), u"2026-03-012026-03-05"_s);
        QVERIFY(!in<QLineEdit>(u"EndDay"_s)->isReadOnly());
        QCOMPARE(list().headers(), (QStringList{u"序号"_s, u"费用名称"_s, u"金额"_s}));
        QCOMPARE(list().dataRows(), 0);
        QVERIFY(!enabled(u"CmdPrint") && !enabled(u"CmdFile") && !enabled(u"ChartSave"));
    }

    // Enter from the report to the list, without the mouse.
    void makesAReportByKeys() {
        ShowActive(screen_);
        auto* reports = in<QComboBox>(u"BbZl"_s);
        QVERIFY(reports->hasFocus());
        choose(u"餐饮娱乐收入明细单"_s);
        QTest::keyClick(reports, Qt::Key_Return);
        QVERIFY(in<QLineEdit>(u"StDay"_s)->hasFocus());
        retype(u"StDay"_s, u"3.4"_s);
        QTest::keyClick(in<QLineEdit>(u"StDay"_s), Qt::Key_Return);
        QVERIFY(screen_->command(u"MakeCmd")->hasFocus()); // the end of a period isn't asked for
        QTest::keyClick(screen_->command(u"MakeCmd"), Qt::Key_Return);
        QCOMPARE(caption(), u"餐饮娱乐收入明细单(2026-03-04)"_s);
        QCOMPARE(list().dataRows(), 3);
        QCOMPARE(status(), u"共 2 行"_s);
        QTRY_VERIFY(in<GridView>(u"BbQd"_s)->hasFocus());
        QVERIFY(screen_->findChild<ChartBox*>()->isVisible());
        const auto* rows = in<GridView>(u"BbQd"_s);
        const auto alignment = [&](const QString& column) {
            const QModelIndex cell = rows->model()->index(0, list().column(column));
            return Qt::Alignment(rows->model()->data(cell, Qt::TextAlignmentRole).toInt());
        };
        QVERIFY(alignment(u"金额"_s) & Qt::AlignRight);
        QVERIFY(alignment(u"费用名称"_s) & Qt::AlignLeft);
        in<GridView>(u"BbQd"_s)->sortBy(list().column(u"金额"), true);
        QCOMPARE(list().text(1, u"金额"), u"36.00"_s);
        QCOMPARE(list().text(3, 0), u"总计"_s);
    }

    void refusesWrongDays() {
        choose(u"餐饮娱乐收入统计表"_s);
        retype(u"StDay"_s, u"2026-03-06"_s);
        make();
        QCOMPARE(messages_->entries().last().title, u"时段错误"_s);
        QCOMPARE(messages_->last(), u"统计报表起始日期不能大于终止日期"_s);
        QVERIFY(enabled(u"MakeCmd"));
        retype(u"StDay"_s, u"2026-02-30"_s);
        make();
        QCOMPARE(messages_->entries().last().title, u"日期错误"_s);
        messages_->clear();
        retype(u"StDay"_s, u"2026-03-01"_s);
        make();
        QVERIFY(messages_->entries().isEmpty());
        QCOMPARE(caption(), u"餐饮娱乐收入统计表(2026-03-01到2026-03-05)"_s);
        QCOMPARE(list().row(3), (QStringList{u"总计"_s, u""_s, u"56.00"_s}));
    }

    // While a report runs its own command waits; 中止 gives that back and no more; Esc ends the walk.
    void stopsByEscape() {
        choose(u"餐饮娱乐收入统计表"_s);
        retype(u"StDay"_s, u"2016-03-01"_s);
        QString meanwhile;
        QTimer::singleShot(0, screen_, [&] {
            meanwhile = caption();
            screen_->command(u"CmdStop")->click();
            screen_->command(u"MakeCmd")->click(); // refused: it runs
        });
        make();
        QVERIFY(meanwhile.startsWith(u"餐饮娱乐收入统计表(处理20"));
        QCOMPARE(caption(), u"餐饮娱乐收入统计表(2016-03-01到2026-03-05)"_s);
        QCOMPARE(list().dataRows(), 3);

        QTimer::singleShot(0, screen_, [&] { QTest::keyClick(screen_, Qt::Key_Escape); });
        make();
        QVERIFY(screen_->isVisible());
        QVERIFY(caption().startsWith(u"餐饮娱乐收入统计表(处理20"));
        QCOMPARE(list().dataRows(), 1);
        QVERIFY(status().contains(u"没有做完，只统计到 20"));
        QVERIFY(enabled(u"MakeCmd"));

        QTimer::singleShot(0, screen_, [&] { screen_->close(); });
        make();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!screen_);
    }

    void printsAndSaves() {
        choose(u"餐饮娱乐收入统计表"_s);
        make();
        messages_->answerNext(u"清单.txt"_s);
        screen_->command(u"CmdFile")->click();
        QCOMPARE(
            FileText(u"清单.txt"_s),
            u"序号，费用名称，金额\r\n1，早餐，20.00\r\n2，午餐，36.00\r\n总计，，56.00\r\n"_s);
        QCOMPARE(hotel_->logged(u"操作内容"), u"各种报表保存操作"_s);
        QCOMPARE(hotel_->logged(u"备注"), u"餐饮娱乐收入统计表(2026-03-01到2026-03-05)"_s);
        screen_->command(u"CmdFile")->click(); // cancelled
        screen_->command(u"CmdPrint")->click();
        QCOMPARE(hotel_->logged(u"操作内容"), u"各种报表打印操作"_s);
        PrintScript script = ReadPrintJob().script;
        const PrintPage page = script.previewPage(1);
        QCOMPARE(TextsOf(page).first().text, u"餐饮娱乐收入统计表(2026-03-01到2026-03-05)"_s);
        QCOMPARE(std::ranges::count_if(
                     page,
                     [](const auto& item) { return std::holds_alternative<PrintedPicture>(item); }),
                 2);
    }

    void opensTheListWithItsChart() {
        choose(u"餐饮娱乐收入统计表"_s);
        make();
        screen_->command(u"ListCmd")->click();
        auto* grid = static_cast<CmnGrd*>(FindScreen(u"CmnGrd"));
        QVERIFY(grid);
        QTRY_COMPARE(grid->GrdView()->table().dataRows(), 3);
        QCOMPARE(grid->Grd().headers(), (QStringList{u"费用名称"_s, u"金额"_s}));
        QCOMPARE(grid->Grd().row(3), (QStringList{u"总计"_s, u"56.00"_s}));
        grid->GrdView()->sortBy(2, true);
        QCOMPARE(grid->Grd().text(3, 0), u"总计"_s); // stays last
        QVERIFY(grid->findChild<ChartBox*>()->isVisible());
        messages_->answerNext(u"图.png"_s);
        screen_->command(u"ChartSave")->click();
        QVERIFY(QFile::exists(u"图.png"_s));
    }
};

HOTEL_TEST(ReportScreenTest)

#include "test_report_screen.moc"
