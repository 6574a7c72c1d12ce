// Typing into the cells of a list.

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QSignalSpy>

#include "record/numbers.h"
#include "screen/grid_view.h"
#include "tests/hotel_test.h"
#include "tests/type_text.h"

using namespace hotel;

class GridTypingTest : public QObject {
    Q_OBJECT

    std::unique_ptr<GridView> grid_;

    // Letters are typed, [Enter] and the like are keys.
    void type(const QString& keys) {
        static const QHash<QString, int> kKeys = {
            {u"Enter"_s, Qt::Key_Return},   {u"Esc"_s, Qt::Key_Escape},
            {u"Back"_s, Qt::Key_Backspace}, {u"Up"_s, Qt::Key_Up},
            {u"Down"_s, Qt::Key_Down},      {u"Right"_s, Qt::Key_Right},
            {u"Space"_s, Qt::Key_Space}};
        for (const QString& part : keys.split(u'[')) {
            const QString key = part.section(u']', 0, -2);
            if (kKeys.contains(key))
                QTest::keyClick(grid_.get(), Qt::Key(kKeys[key]));
            TypeText(grid_.get(), part.section(u']', -1));
        }
    }
    QString cells() const { return (grid_->table().row(1) + grid_->table().row(2)).join(u'|'); }

private Q_SLOTS:
    void init() {
        grid_ = std::make_unique<GridView>(u"FlxxQd"_s);
        grid_->table().setHeaders({u"编号"_s, u"内容"_s, u"快捷键"_s, u"金额"_s});
        grid_->table().addRow({u"01"_s, u"现金"_s, u"XJ"_s, u"1.00"_s});
        grid_->table().addRow({u"02"_s, u"支票"_s, u"ZP"_s, u"2.00"_s});
        grid_->setEditable(1);
        grid_->setEditable(2, {KeyFilter::Letters});
        grid_->setEditable(3, {KeyFilter::Amount,
                               [](const QString& typed) { return FormatText(typed, u"#0.00"); }});
        grid_->refresh();
        ShowActive(grid_.get());
        grid_->setCurrent(1, 1);
    }
    void cleanup() { grid_.reset(); }

    void typing() {
        const auto row = [this](const char* name, const QString& keys, const QString& shown,
                                const QString& at) {
            init();
            type(keys);
            Check(name, cells(), shown);
            Check(name, u"%1,%2"_s.arg(grid_->currentRow()).arg(grid_->currentColumn()), at);
        };
        row("behind the text", u"a"_s, u"01|现金a|XJ|1.00|02|支票|ZP|2.00"_s, u"1,1"_s);
        row("backspace", u"[Back][Back][Back]卡"_s, u"01|卡|XJ|1.00|02|支票|ZP|2.00"_s, u"1,1"_s);
        row("blanks are trimmed on leaving", u"[Esc] 卡 [Space][Down]"_s,
            u"01|卡|XJ|1.00|02|支票|ZP|2.00"_s, u"2,1"_s);
        row("Enter goes to the next column", u"[Enter]"_s, u"01|现金|XJ|1.00|02|支票|ZP|2.00"_s,
            u"1,2"_s);
        row("letters become capitals, others are dropped", u"[Right][Esc]x1y现"_s,
            u"01|现金|XY|1.00|02|支票|ZP|2.00"_s, u"1,2"_s);
        row("an amount is reformatted on leaving", u"[Right][Right][Esc]a１2.5-[Enter]"_s,
            u"01|现金|XJ|12.50|02|支票|ZP|2.00"_s, u"2,1"_s);
        row("in the last cell Enter stays", u"[Down][Enter][Enter][Enter][Enter]"_s,
            u"01|现金|XJ|1.00|02|支票|ZP|2.00"_s, u"2,3"_s);
    }

    void onlyATypedCellCountsAsModified() {
        QSignalSpy edited(grid_.get(), &GridView::cellEdited);
        QSignalSpy finished(grid_.get(), &GridView::cellFinished);
        type(u"[Enter][Down][Up]1"_s); // moves, and a key that the column doesn't take
        QVERIFY(!grid_->isModified());
        QCOMPARE(edited.size(), 0);
        type(u"a"_s);
        QVERIFY(grid_->isModified());
        QCOMPARE(edited.takeLast(), QVariantList({1, 2}));
        type(u"[Enter]"_s);
        QCOMPARE(finished.takeLast(), QVariantList({1, 2}));
    }

    void escOfAnEmptyCellIsLeftToTheScreen() {
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(grid_.get(), &escape);
        QVERIFY(escape.isAccepted());
        QCOMPARE(grid_->table().text(1, 1), QString());
        QApplication::sendEvent(grid_.get(), &escape);
        QVERIFY(!escape.isAccepted());
    }

    void inputMethodAndPasteGoThroughTheFilter() {
        QInputMethodEvent composing(u"xian"_s, {});
        QApplication::sendEvent(grid_.get(), &composing);
        QCOMPARE(grid_->preedit(), u"xian"_s);
        QCOMPARE(grid_->table().text(1, 1), u"现金"_s);
        QInputMethodEvent commit;
        commit.setCommitString(u"卡"_s);
        QApplication::sendEvent(grid_.get(), &commit);
        QCOMPARE(grid_->table().text(1, 1), u"现金卡"_s);
        QCOMPARE(grid_->preedit(), QString());

        grid_->setCurrent(1, 3);
        QApplication::clipboard()->setText(u"，200.5元\r\n"_s);
        QTest::keyClick(grid_.get(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(grid_->table().text(1, 3), u"1.00200.5"_s);
    }

    void theScreenMayDirectEnter() {
        grid_->setEnterMove([](GridCell from) { return GridCell{from.row % 2 + 1, 3}; });
        type(u"[Enter][Enter]"_s);
        QCOMPARE(grid_->currentRow(), 1);
        QCOMPARE(grid_->currentColumn(), 3);
    }

    void leavingTheGridFinishesTheCell() {
        grid_->setCurrent(1, 3);
        type(u"[Esc]7"_s);
        grid_->clearFocus();
        QCOMPARE(grid_->table().text(1, 3), u"7.00"_s);
    }

    void aReadOnlyGridActivatesAgain() {
        QSignalSpy activated(grid_.get(), &GridView::rowActivated);
        type(u"a"_s);
        grid_->setReadOnly();
        type(u"b[Enter]"_s);
        QCOMPARE(grid_->table().text(1, 1), u"现金a"_s);
        QCOMPARE(activated.size(), 1);
    }
};

HOTEL_TEST(GridTypingTest)

#include "test_grid_typing.moc"
