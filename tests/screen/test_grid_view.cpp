// The list: what it shows, its order, its selection.

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>

#include "screen/grid_view.h"
#include "tests/hotel_test.h"
#include "tests/type_text.h"

using namespace hotel;

namespace {

QString Column(const GridView& grid, int column) {
    QStringList cells;
    for (int row = 1; row < grid.table().rows(); ++row)
        cells += grid.table().text(row, column);
    return cells.join(u',');
}

QString Shown(const GridView& grid, int viewRow, int column) {
    return grid.model()->index(viewRow, column).data().toString();
}

} // namespace

class GridViewTest : public QObject {
    Q_OBJECT

    std::unique_ptr<GridView> grid_;

    void press(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(grid_.get(), Qt::Key(key), modifiers);
    }
    QPoint cellAt(int row, int column) {
        return grid_->visualRect(grid_->model()->index(row - 1, column)).center();
    }

private Q_SLOTS:
    // Rooms out of order; amounts of unequal length; two rows alike.
    void init() {
        grid_ = std::make_unique<GridView>(u"KfztQd"_s);
        grid_->table().setHeaders({u"序号"_s, u"房间号"_s, u"房态"_s, u"房价"_s});
        grid_->table().addRow({u"1"_s, u"8203"_s, u"空房"_s, u"99.00"_s});
        grid_->table().addRow({u"2"_s, u"8101"_s, u"散客"_s, u"280.00"_s});
        grid_->table().addRow({u"3"_s, u"8302"_s, u"空房"_s, u"1280.00"_s});
        grid_->table().addRow({u"4"_s, u"8102"_s, u"包房"_s, u""_s});
        grid_->setNumberColumn(0);
        grid_->resize(600, 300);
        grid_->refresh();
        grid_->autoFit();
        ShowActive(grid_.get());
    }
    void cleanup() { grid_.reset(); }

    void thirtyThousandRows() {
        constexpr int kRows = 30000;
        constexpr int kColumns = 20;
        TextTable table(QStringList(kColumns, u"列"_s));
        for (int row = 1; row <= kRows; ++row)
            table.addRow(QStringList(kColumns, QString::number(kRows - row)));
        grid_->setTable(table);
        grid_->setNumberColumn(0, u"00000"_s);
        grid_->autoFit();
        QCOMPARE(grid_->model()->rowCount(), kRows);
        QCOMPARE(Shown(*grid_, 0, 1), u"29999"_s);

        grid_->setCurrent(kRows, 1);
        grid_->sortBy(1);
        QCOMPARE(Shown(*grid_, 0, 1), u"0"_s);
        QCOMPARE(Shown(*grid_, kRows - 1, 1), u"29999"_s);
        QCOMPARE(Shown(*grid_, kRows - 1, 0), u"30000"_s);
        QCOMPARE(grid_->currentRow(), 1); // the record that was last
        press(Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(grid_->currentRow(), kRows);
        QVERIFY(grid_->verticalScrollBar()->value() > kRows / 2);
        QVERIFY(grid_->viewport()->rect().contains(cellAt(kRows, grid_->currentColumn())));
    }

    void rowsOfALongLoadAppear() {
        for (int i = 0; i < 1000; ++i) {
            grid_->table().addRow({u"x"_s});
            grid_->rowsAdded();
        }
        QTRY_COMPARE(grid_->model()->rowCount(), 1004);
        grid_->table().addRow({u"x"_s});
        grid_->rowsAdded();
        grid_->setCurrent(1005, 0); // needs no turn of events
        QCOMPARE(grid_->currentRow(), 1005);
        grid_->table().clearRows();
        grid_->table().addRow({u"y"_s});
        grid_->rowsAdded(); // not the truth, and harmless
        QTRY_COMPARE(grid_->model()->rowCount(), 1);
    }

    // Who follows a list sees its last row at once, not when the next one comes.
    void followsItsEnd() {
        for (int row = 0; row < 100; ++row) {
            grid_->table().addRow({u"%1"_s.arg(row)});
            grid_->rowsAdded();
            grid_->scrollToEnd();
            const int last = grid_->table().dataRows() - 1;
            QCOMPARE(grid_->model()->rowCount(), last + 1);
            QVERIFY(grid_->viewport()->rect().contains(
                grid_->visualRect(grid_->model()->index(last, 0)).center()));
        }
        QVERIFY(grid_->verticalScrollBar()->value() > 50);
    }

    void tableMayShrinkBeforeRefresh() {
        grid_->setCurrent(4, 1);
        grid_->table().clearRows();
        grid_->viewport()->repaint();
        QCOMPARE(Shown(*grid_, 3, 1), QString());
        grid_->refresh();
        QCOMPARE(grid_->currentRow(), 0);
    }

    void refreshKeepsTheCurrentCell() {
        grid_->setCurrent(3, 2);
        grid_->table().addRow({});
        grid_->refresh();
        QCOMPARE(grid_->currentRow(), 3);
        QCOMPARE(grid_->currentColumn(), 2);
        QCOMPARE(grid_->selectedRows(), QList<int>{3});
        grid_->table().removeRow(5);
        grid_->table().removeRow(4);
        grid_->table().removeRow(3);
        grid_->refresh();
        QCOMPARE(grid_->currentRow(), 2);
    }

    void headerClickSortsWhenOn() {
        QSignalSpy clicked(grid_.get(), &GridView::headerClicked);
        const auto clickHeader = [this](int column) {
            auto* header = grid_->horizontalHeader();
            const int x = header->sectionViewportPosition(column) + 10;
            QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, {x, header->height() / 2});
        };
        clickHeader(3);
        QCOMPARE(Column(*grid_, 1), u"8203,8101,8302,8102"_s);
        QVERIFY(!grid_->horizontalHeader()->isSortIndicatorShown());

        grid_->setSortable(true);
        grid_->setCurrent(1, 1);
        clickHeader(3);
        QCOMPARE(Column(*grid_, 3), u"99.00,280.00,1280.00,"_s);
        QCOMPARE(Column(*grid_, 0), u"1,2,3,4"_s);
        clickHeader(3);
        QCOMPARE(Column(*grid_, 3), u",1280.00,280.00,99.00"_s);
        QCOMPARE(grid_->currentRow(), 4);
        QCOMPARE(grid_->horizontalHeader()->sortIndicatorOrder(), Qt::DescendingOrder);
        clickHeader(1);
        QCOMPARE(Column(*grid_, 1), u"8101,8102,8203,8302"_s);
        QCOMPARE(clicked.count(), 4);

        grid_->setCurrent(1, 3);
        press(Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(Column(*grid_, 3), u"99.00,280.00,1280.00,"_s);
        grid_->refresh(); // a table read anew is in the order of its file
        QVERIFY(!grid_->horizontalHeader()->isSortIndicatorShown());
    }

    void selectionFollowsItsRecordsThroughASort() {
        grid_->setSelect(GridView::Select::Rows);
        grid_->setSelectedRows({1, 3});
        QCOMPARE(grid_->selectedRows(), QList<int>({1, 3}));
        grid_->sortBy(1);
        QCOMPARE(grid_->selectedRows(), QList<int>({3, 4}));
        press(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(grid_->selectedRows().size(), 4);
    }

    void copiesTabSeparatedText() {
        grid_->table().setText(3, 1, u"8302\r\n备\t用"_s);
        grid_->setColumnHidden(2, true);
        const auto row = [this](const char* name, GridView::Select select, const QString& copied) {
            grid_->setSelect(select);
            grid_->clearSelection();
            grid_->setCurrent(2, 1);
            if (select != GridView::Select::Row)
                press(Qt::Key_Down, Qt::ShiftModifier);
            press(Qt::Key_C, Qt::ControlModifier);
            Check(name, QApplication::clipboard()->text(), copied);
        };
        row("row", GridView::Select::Row, u"2\t8101\t280.00"_s);
        row("rows", GridView::Select::Rows, u"2\t8101\t280.00\r\n3\t8302 备 用\t1280.00"_s);
        row("cells", GridView::Select::Cells, u"8101\r\n8302 备 用"_s);
    }

    void mouseAndKeysTellTheRow() {
        QSignalSpy clicked(grid_.get(), &GridView::rowClicked);
        QSignalSpy doubled(grid_.get(), &GridView::rowDoubleClicked);
        QSignalSpy activated(grid_.get(), &GridView::rowActivated);
        QTest::mouseClick(grid_->viewport(), Qt::LeftButton, {}, cellAt(2, 1));
        QCOMPARE(clicked.takeFirst(), QVariantList({2, 1}));
        press(Qt::Key_Down);
        press(Qt::Key_Space);
        QCOMPARE(clicked.takeFirst(), QVariantList({3, 1}));
        press(Qt::Key_Return);
        QCOMPARE(activated.takeFirst(), QVariantList({3, 1}));
        QTest::mouseClick(grid_->viewport(), Qt::LeftButton, {}, cellAt(4, 2));
        QTest::mouseDClick(grid_->viewport(), Qt::LeftButton, {}, cellAt(4, 2));
        QCOMPARE(doubled.size(), 1);
        QCOMPARE(activated.takeFirst(), QVariantList({4, 2}));
    }

    void typedDigitsFindARow() {
        grid_->setCurrent(1, 1);
        TypeText(grid_.get(), u"8102"_s);
        QCOMPARE(grid_->currentRow(), 4);
    }

    void rowsMoveByKeyAndMouse() {
        QSignalSpy moved(grid_.get(), &GridView::rowMoved);
        grid_->setRowsMovable(true);
        grid_->setCurrent(1, 1);
        press(Qt::Key_Up, Qt::ControlModifier); // at the top already
        press(Qt::Key_Down, Qt::ControlModifier);
        QCOMPARE(Column(*grid_, 1), u"8101,8203,8302,8102"_s);
        QCOMPARE(Column(*grid_, 0), u"1,2,3,4"_s);
        QCOMPARE(grid_->currentRow(), 2);
        QTest::mousePress(grid_->viewport(), Qt::LeftButton, {}, cellAt(2, 1));
        QMouseEvent drag(QEvent::MouseMove, cellAt(4, 1), cellAt(4, 1), Qt::NoButton,
                         Qt::LeftButton, {});
        QApplication::sendEvent(grid_->viewport(), &drag);
        QTest::mouseRelease(grid_->viewport(), Qt::LeftButton, {}, cellAt(4, 1));
        QCOMPARE(Column(*grid_, 1), u"8101,8302,8102,8203"_s);
        QCOMPARE(moved.size(), 2);
        QCOMPARE(moved.last(), QVariantList({2, 4}));
    }

    void columnsFitTheirWidestText() {
        grid_->table().setText(2, 2, u"散客合住，早餐送到房间"_s);
        grid_->autoFit();
        QVERIFY(grid_->columnWidth(2) >
                grid_->fontMetrics().horizontalAdvance(u"散客合住，早餐送到房间"_s));
        QVERIFY(grid_->columnWidth(0) < 80);
        grid_->autoFit(100);
        QVERIFY(grid_->columnWidth(2) <= 100);
    }

    void coloursAreAskedByTableRow() {
        grid_->setColours([](int row, int column) -> CellColours {
            return {row == 2 && column == 1 ? QColor(Qt::red) : QColor(), {}};
        });
        QCOMPARE(grid_->model()->index(1, 1).data(Qt::ForegroundRole).value<QColor>(),
                 QColor(Qt::red));
        QVERIFY(!grid_->model()->index(0, 1).data(Qt::ForegroundRole).isValid());
    }
};

HOTEL_TEST(GridViewTest)

#include "test_grid_view.moc"
