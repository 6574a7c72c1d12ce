#pragma once

// The model behind a GridView: one TextTable, row 0 its headers. What is drawn in a cell is fetched
// when it is drawn.

#include <QAbstractTableModel>
#include <QStyledItemDelegate>

#include "screen/grid_view.h"

namespace hotel {

class GridModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    TextTable table;
    QHash<int, Qt::Alignment> alignments;
    int checkColumn = -1;
    std::function<CellColours(int row, int column)> colours;
    std::function<bool(int column)> isEditable;

    // Tells the view about everything, or about rows that were appended since.
    void showAll();
    void showAdded();
    void showRow(int row);

    // Between the table's rows and those of the model.
    GridCell cell(const QModelIndex& index) const;
    QModelIndex indexOf(int row, int column) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    int shownRows_ = 0;
    int shownColumns_ = 0;
};

// Draws a cell: a paler selection while the grid is without the focus, a ring instead of the fill
// where a cell has a colour of its own, a caret behind the text that is being typed.
class GridDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit GridDelegate(GridView* grid) : QStyledItemDelegate(grid), grid_(grid) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    void paintCaret(QPainter* painter, const QStyleOptionViewItem& option) const;

    GridView* grid_;
};

} // namespace hotel
