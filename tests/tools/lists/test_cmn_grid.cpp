#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>

#include "platform/clock.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "tests/hotel_test.h"
#include "tests/test_files.h"
#include "tests/tools/paper/print_items.h"
#include "tools/charts/ChartBox.h"
#include "tools/lists/CmnGrd.h"
#include "tools/lists/list_totals.h"
#include "tools/paper/PrtSubs.h"
#include "tools/paper/print_pass.h"

using namespace hotel;

class CmnGridTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        Clock::Freeze(QDateTime(QDate(2026, 3, 5), QTime(10, 0)));
        screen_ = new CmnGrd(u"房费清单"_s, {u"房间号"_s, u"客人"_s, u"空栏"_s, u"金额"_s});
        screen_->Grd().addRow({u"8102"_s, u"王"_s, {}, u"100.50"_s});
        screen_->Grd().addRow({u"8101"_s, u"李"_s, {}, u"9"_s});
        screen_->Grd().addRow({u"8103"_s, u"张"_s, {}, u"20"_s});
        ShowScreen(screen_);
        screen_->setTask(GridTask::Check);
        QTRY_COMPARE(screen_->task(), GridTask::None);
        view_ = screen_->GrdView();
        columns_ = screen_->findChild<QListWidget*>(u"SelList"_s);
        alignments_ = screen_->findChild<QListWidget*>(u"AligList"_s);
    }
    void cleanup() {
        delete screen_;
        ClosePrintJob();
        Clock::Resume();
    }

    void showsTheColumnsThatHoldText() {
        QCOMPARE(view_->table().headers(),
                 (QStringList{u"序号"_s, u"房间号"_s, u"客人"_s, u"金额"_s}));
        QCOMPARE(view_->table().row(2), (QStringList{u"2"_s, u"8101"_s, u"李"_s, u"9"_s}));
        QCOMPARE(columns_->item(2)->checkState(), Qt::Unchecked);
        columns_->item(2)->setCheckState(Qt::Checked);
        columns_->item(0)->setCheckState(Qt::Unchecked);
        QTRY_COMPARE(view_->table().headers(),
                     (QStringList{u"序号"_s, u"客人"_s, u"空栏"_s, u"金额"_s}));
    }

    void columnsChangePlaces() {
        columns_->setFocus();
        columns_->setCurrentRow(3);
        QTest::keyClick(columns_, Qt::Key_Up, Qt::ControlModifier);
        QTest::keyClick(columns_, Qt::Key_Up, Qt::ControlModifier);
        QTRY_COMPARE(view_->table().headers(),
                     (QStringList{u"序号"_s, u"房间号"_s, u"金额"_s, u"客人"_s}));
        // As a drag does it.
        QVERIFY(columns_->model()->moveRow({}, 0, {}, columns_->count()));
        QTRY_COMPARE(view_->table().headers(),
                     (QStringList{u"序号"_s, u"金额"_s, u"客人"_s, u"房间号"_s}));
        QCOMPARE(view_->table().row(1), (QStringList{u"1"_s, u"100.50"_s, u"王"_s, u"8102"_s}));
        // Marks go by the column, not by its place; amounts begin at the right, numbers of rooms don't.
        const auto isRight = [&](int column) {
            const QModelIndex cell = view_->model()->index(0, column);
            return (view_->model()->data(cell, Qt::TextAlignmentRole).toInt() & Qt::AlignRight) !=
                   0;
        };
        QVERIFY(isRight(1) && !isRight(2) && !isRight(3));
        Q_EMIT alignments_->itemClicked(alignments_->item(3));
        QCOMPARE(alignments_->item(3)->text(), u"金额<-"_s);
        QVERIFY(!isRight(1));
    }

    void filledAnew() {
        columns_->item(0)->setCheckState(Qt::Unchecked);
        screen_->Grd().addRow({u"8104"_s, u"赵"_s, u"有"_s, u"1"_s});
        screen_->setTask(GridTask::Fresh); // keeps the checks
        QTRY_COMPARE(view_->table().dataRows(), 4);
        QCOMPARE(view_->table().cols(), 3);
        screen_->setTask(GridTask::Check);
        QTRY_COMPARE(view_->table().cols(), 5);
        screen_->Grd() = TextTable({u"a"_s, u"b"_s});
        screen_->setTask(GridTask::Show); // other columns: the lists are made anew
        QTRY_COMPARE(columns_->count(), 2);
        QCOMPARE(view_->table().headers(), QStringList{u"序号"_s}); // nothing in any column
    }

    void sortsWithTheSumsLast() {
        AddColumnTotals(screen_->Grd(), u"金额");
        screen_->setTask(GridTask::Fresh);
        QTRY_COMPARE(view_->table().dataRows(), 4);
        view_->setCurrent(1, 1); // 8102
        view_->sortBy(3);
        QCOMPARE(view_->table().row(1), (QStringList{u"1"_s, u"8101"_s, u"李"_s, u"9"_s}));
        QCOMPARE(view_->table().row(4), (QStringList{u"4"_s, u"合计"_s, u""_s, u"129.50"_s}));
        QCOMPARE(view_->currentRow(), 3);
        QCOMPARE(screen_->Grd().text(1, 0), u"8101"_s); // the rows behind are the same rows
        QCOMPARE(screen_->Grd().text(4, 0), u"合计"_s);
        view_->sortBy(0, true); // by the row number: turned round
        QCOMPARE(screen_->Grd().text(1, 0), u"8102"_s);
        columns_->item(1)->setCheckState(Qt::Unchecked); // the order stays
        QTRY_COMPARE(view_->table().row(1), (QStringList{u"1"_s, u"8102"_s, u"100.50"_s}));
    }

    void statisticsFollowTheSelection() {
        const auto* status = screen_->findChild<GridView*>(u"StatusGrd"_s);
        const auto sum = [&] { return status->table().text(5, 1); };
        view_->setCurrent(1, 3);
        QCOMPARE(sum(), u"129.5"_s);
        view_->setCurrent(2, 2);
        QCOMPARE(sum(), u"0"_s);
        const auto cell = [&](int row, int column) {
            return view_->model()->index(row - 1, column);
        };
        view_->selectionModel()->select(QItemSelection(cell(2, 3), cell(3, 3)),
                                        QItemSelectionModel::ClearAndSelect);
        QCOMPARE(sum(), u"29"_s);
        AddColumnTotals(screen_->Grd(), u"金额"); // sums are not summed
        screen_->setTask(GridTask::Fresh);
        QTRY_COMPARE(view_->table().dataRows(), 4);
        view_->setCurrent(1, 3);
        QCOMPARE(sum(), u"129.5"_s);
        QCOMPARE(status->table().text(2, 1), u"4"_s);
    }

    void waitsHiddenAndShowsTheCounts() {
        const auto* status = screen_->findChild<GridView*>(u"StatusGrd"_s);
        QVERIFY(!screen_->command(u"CmdStop")->isEnabled());
        screen_->setTask(GridTask::Wait);
        QVERIFY(!view_->isVisible());
        screen_->Grd().addRow({u"8104"_s});
        QTRY_COMPARE(status->table().text(2, 1), u"4"_s);
        screen_->command(u"CmdStop")->click();
        QCOMPARE(screen_->task(), GridTask::Abort);
        screen_->setTask(GridTask::Check);
        QTRY_VERIFY(view_->isVisible());
        screen_->command(u"CmdStop")->click(); // nothing to stop
        QCOMPARE(screen_->task(), GridTask::None);
    }

    void savesWhatIsShown() {
        QTemporaryDir folder;
        const QString name = folder.filePath(u"list.txt"_s);
        MessageRecorder recorder;
        recorder.answerNext(name);
        screen_->command(u"FileSave")->click();
        QCOMPARE(FileText(name).section(kCrLf, 0, 1),
                 u"序号，房间号，客人，金额\r\n1，8102，王，100.50"_s);
    }

    void printsEveryPageUnderItsTitle() {
        for (int n = 0; n < 200; ++n)
            screen_->Grd().addRow({QString::number(n), u"客"_s, {}, u"1"_s});
        screen_->setTask(GridTask::Fresh);
        QTRY_COMPARE(view_->table().dataRows(), 203);
        screen_->findChild<QLineEdit*>(u"yj"_s)->setText(u"制表："_s);
        screen_->command(u"Print_cmd")->click();
        PrintScript script = ReadPrintJob().script;
        QVERIFY(script.hasPage(2));
        int rows = 0;
        for (int page = 1; script.hasPage(page); ++page) {
            QStringList words;
            for (const PrintedText& text : TextsOf(script.previewPage(page)))
                words.append(text.text);
            QVERIFY(words.contains(u"房费清单"_s));
            QVERIFY(words.contains(u"制表：第%1页"_s.arg(page)));
            rows += int(words.count(u"客"_s));
        }
        QCOMPARE(rows, 200);
    }

    void chartsStandBelowTheListAndBehindItOnPaper() {
        const auto* box = screen_->findChild<ChartBox*>();
        QVERIFY(!box->isVisible());
        QVERIFY(!screen_->command(u"ChartSave")->isVisible());
        Chart chart{u"按房间"_s};
        chart.labels = {u"8101"_s, u"8102"_s};
        chart.series = {{u"金额"_s, {900, 10050}}};
        Chart other = chart;
        other.title = u"按客人"_s;
        other.kind = ChartKind::Pie;
        screen_->setCharts({chart, Chart{u"空"_s}, other});
        QVERIFY(box->isVisible());
        auto* titles = screen_->findChild<QComboBox*>(u"Tblx"_s);
        QCOMPARE(titles->count(), 2);
        titles->setCurrentIndex(1);
        QTemporaryDir folder;
        MessageRecorder recorder;
        recorder.answerNext(folder.filePath(u"a.png"_s));
        screen_->command(u"ChartSave")->click();
        QVERIFY(recorder.entries().first().words.endsWith(u"/按客人.png"_s));
        QVERIFY(QFile::exists(folder.filePath(u"a.png"_s)));

        // Rows that leave room for both charts, for one, for none: one page or two.
        const auto pictures = [&](int rows) {
            screen_->Grd().clearRows();
            for (int n = 0; n < rows; ++n)
                screen_->Grd().addRow({QString::number(n), u"客"_s, {}, u"1.00"_s});
            screen_->setTask(GridTask::Fresh);
            while (screen_->task() != GridTask::None)
                QTest::qWait(10);
            screen_->command(u"Print_cmd")->click();
            PrintScript script = ReadPrintJob().script;
            QStringList pages;
            for (int page = 1; script.hasPage(page); ++page) {
                int here = 0;
                for (const PrintItem& item : script.previewPage(page)) {
                    if (const auto* picture = std::get_if<PrintedPicture>(&item)) {
                        ++here;
                        if (picture->area.bottom() > (28 - 1) * kTwipsPerCm)
                            return u"below the paper"_s;
                    }
                }
                pages.append(QString::number(here));
            }
            return pages.join(u' ');
        };
        QCOMPARE(pictures(3), u"2"_s);
        QCOMPARE(pictures(20), u"1 1"_s);
        QCOMPARE(pictures(40), u"0 2"_s);
        screen_->setCharts({});
        QVERIFY(!box->isVisible());
        QCOMPARE(pictures(3), u"0"_s);
    }

    void aWideListHasTheWholeWidth() {
        QVERIFY(columns_->isVisible()); // three columns fit beside it
        screen_->command(u"PanelCmd")->click();
        QVERIFY(!columns_->isVisible());
        screen_->command(u"PanelCmd")->click();
        for (int n = 0; n < 12; ++n)
            screen_->Grd().setText(1, screen_->Grd().addColumn(u"金额%1"_s.arg(n)),
                                   u"1234567.00"_s);
        screen_->setTask(GridTask::Check);
        QTRY_VERIFY(!columns_->isVisible());
        screen_->command(u"PanelCmd")->click();
        columns_->item(0)->setCheckState(Qt::Unchecked); // asked for: it stays
        QTRY_COMPARE(view_->table().cols(), 15);
        QVERIFY(columns_->isVisible());
    }

    void blockForPrinting() {
        GridView grid(u"grid"_s);
        grid.setTable(view_->table());
        grid.setCurrent(1);
        QCOMPARE(SelectedBlock(grid).dataRows(), 3); // one row is no block
        grid.setSelect(GridView::Select::Cells);
        const auto cell = [&](int row, int column) { return grid.model()->index(row - 1, column); };
        grid.selectionModel()->select(QItemSelection(cell(1, 2), cell(2, 3)),
                                      QItemSelectionModel::ClearAndSelect);
        const TextTable block = SelectedBlock(grid);
        QCOMPARE(block.headers(), (QStringList{u"客人"_s, u"金额"_s}));
        QCOMPARE(block.dataRows(), 2);
        QCOMPARE(block.row(2), (QStringList{u"李"_s, u"9"_s}));
    }

private:
    CmnGrd* screen_ = nullptr;
    GridView* view_ = nullptr;
    QListWidget* columns_ = nullptr;
    QListWidget* alignments_ = nullptr;
};

HOTEL_TEST(CmnGridTest)

#include "test_cmn_grid.moc"
