#pragma once

// A list on the screen: a table view over one TextTable. Nothing is created per cell, so that tens
// of thousands of rows open without a pause.
//
//     auto* Kxkfqd = new GridView(u"Kxkfqd"_s);
//     Kxkfqd->table().setHeaders({u"房间号"_s, u"房态"_s});
//     Kxkfqd->table().addRow({u"8101"_s, u"空房"_s});
//     Kxkfqd->refresh();
//     Kxkfqd->autoFit();
//
// Rows and columns are those of the table everywhere: row 0 is the header row, data begins at row
// 1; row 0 stands for "none". The inherited calls that take view rows (selectRow, setRowHidden)
// count otherwise and are not used.
//
// Keys: arrows, Page, Home and End move; Enter activates the row (or moves on in a grid that is
// typed into); Ctrl+C copies the selection as tab-separated text; Ctrl+A selects all; letters and
// digits in a grid that is not typed into look for the next row whose cell in the current column
// begins so.

#include <QColor>
#include <QHash>
#include <QList>
#include <QTableView>
#include <functional>

#include "record/literals.h"
#include "record/text_table.h"
#include "screen/key_filter.h"

class QTimer;

namespace hotel {

class GridModel;

struct GridCell {
    int row = 0;
    int column = 0;
    friend bool operator==(GridCell, GridCell) = default;
};

// Colours of a cell; one that is not valid is left as it is.
struct CellColours {
    QColor text = {};
    QColor background = {};
};

// How the cells of a column are typed into: a typed character goes behind the text, Backspace takes
// its last character, Esc empties the cell (once more: closes the screen), Ctrl+V pastes behind it.
struct CellEditing {
    KeyFilter filter = KeyFilter::Any;
    // The text that stands when the cell is left, from the typed one, which has its blanks trimmed.
    std::function<QString(const QString&)> onLeave = {};
};

class GridView : public QTableView {
    Q_OBJECT

public:
    explicit GridView(const QString& name, QWidget* parent = nullptr);
    ~GridView() override;

    // --- the table ---

    // The table itself: change it as you like, then call refresh() or rowsAdded().
    TextTable& table();
    const TextTable& table() const;
    void setTable(const TextTable& table);

    // Shows the table as it now stands, whatever was changed. The current cell stays where it was
    // if the table still has it.
    void refresh();

    // The cells of one row were changed and nothing else.
    void rowChanged(int row);

    // Rows were appended and nothing else was changed: cheap enough to be called for each row of a
    // long load.
    void rowsAdded();
    // Brings the last row into view, those that rowsAdded has told of included.
    void scrollToEnd();

    // --- current cell and selection ---

    int currentRow() const; // 0 when none
    int currentColumn() const;
    // Makes a cell current, selects its row and scrolls it into view; row 0 takes the selection
    // away. Column -1 keeps the column.
    void setCurrent(int row, int column = -1);

    enum class Select {
        Row,   // one row (at the start)
        Rows,  // any rows, with Shift, Ctrl and Ctrl+A
        Cells, // a block of cells
    };
    void setSelect(Select what);

    // Rows with a selected cell, ascending.
    QList<int> selectedRows() const;
    void setSelectedRows(const QList<int>& rows);

    // The selection as text: cells with TAB between them, lines with CR LF, in the order shown.
    // Line ends and TABs inside a cell become blanks.
    QString selectedText() const;

    // --- look ---

    // Fits the columns to their texts, none wider than `widest` pixels. Looks at a bounded sample
    // of cells: the time doesn't grow with the table.
    void autoFit(int widest = 320);

    void setColumnAlignment(int column, Qt::Alignment alignment);
    bool isRightAligned(int column) const;
    // A column whose cells show a mark: on while the cell holds anything.
    void setCheckColumn(int column);
    // Asked for each cell that is drawn: keep it quick.
    void setColours(std::function<CellColours(int row, int column)> colours);

    // --- order ---

    // A click on a header sorts by that column (once more: descending) and shows an arrow. Off at
    // the start: many lists must keep the order of their file.
    void setSortable(bool on);
    // Sorts: numbers as numbers. Current cell and selection stay with their records.
    void sortBy(int column, bool descending = false);
    // The column that holds the running number of the row; renewed by sorting and moving.
    void setNumberColumn(int column, const QString& format = u"#0"_s);
    // The last rows of the table hold sums: they stay last when it is sorted. At the start: none.
    void setTotalRows(int count) { totalRows_ = count; }
    // Rows can be dragged to another place, or moved with Ctrl+Up and Ctrl+Down, one at a time.
    void setRowsMovable(bool on);

    // --- typing into cells ---

    void setEditable(int column, const CellEditing& editing = {});
    void setReadOnly(); // no column is typed into any more
    bool isEditable(int column) const { return editing_.contains(column); }

    // True since a cell was typed into; cleared by the caller.
    bool isModified() const { return modified_; }
    void setModified(bool modified) { modified_ = modified; }

    // Where Enter goes from a cell. At the start: the next editable column, behind the last one the
    // first editable column of the next row, and in the last row it stays.
    void setEnterMove(std::function<GridCell(GridCell)> move);

    // What the input method is composing for the current cell.
    QString preedit() const { return preedit_; }

    // Trims and reformats the cell that is being typed into, as leaving it would.
    void finishCell();

Q_SIGNALS:
    void rowClicked(int row, int column); // a click, or the space bar
    // Enter (in a grid that is not typed into) or a double click: connect this for what a double
    // click does, so that the keyboard does it too.
    void rowActivated(int row, int column);
    void rowDoubleClicked(int row, int column); // where Enter must not do the same
    void headerClicked(int column);
    // The table has been sorted by a column; each row stood before where `cameFrom` says.
    void sorted(const QList<int>& cameFrom);
    void currentMoved(int row, int column); // row 0 when there is none any more
    void selectionMoved();
    void cellEdited(int row, int column);   // with every key
    void cellFinished(int row, int column); // a cell that was typed into has been left
    void rowMoved(int from, int to);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void sortByHeader(int column);
    void renumber();
    void moveRow(int to); // the current row
    void clearSortMark();

    bool typeKey(QKeyEvent* event);
    void typeText(const QString& text);
    void writeCell(const QString& text);
    void moveByEnter();
    GridCell nextEditable(GridCell from) const;

    GridModel* model_;
    QTimer* showAdded_;
    int totalRows_ = 0;
    int numberColumn_ = -1;
    QString numberFormat_;
    bool sortable_ = false;
    int sortedColumn_ = -1;
    bool sortedDescending_ = false;
    bool rowsMovable_ = false;

    QHash<int, CellEditing> editing_;
    std::function<GridCell(GridCell)> enterMove_;
    GridCell typed_; // the cell being typed into; row 0: none
    QString preedit_;
    bool modified_ = false;
};

} // namespace hotel
