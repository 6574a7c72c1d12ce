#include "screen/grid_view.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTimer>
#include <algorithm>

#include "record/record_text.h"
#include "screen/grid_model.h"

namespace hotel {

namespace {

constexpr int kShowAddedAfter = 30; // milliseconds: rows of a long load come in bundles
constexpr int kSampledRows = 400;   // rows that autoFit looks at
constexpr int kMeasuredCells = 5;   // cells of a column that autoFit measures
constexpr int kCellPadding = 16;
constexpr int kSortArrow = 26;

// The widest cells of a column by their length in bytes, out of a sample spread over the table.
QStringList WidestCells(const TextTable& table, int column) {
    const int step = qMax(1, table.dataRows() / kSampledRows);
    QList<std::pair<int, QString>> cells;
    for (int row = 1; row < table.rows(); row += step) {
        const QString text = table.text(row, column);
        cells.append({-AnsiLen(text), text});
    }
    const qsizetype count = qMin<qsizetype>(kMeasuredCells, cells.size());
    std::partial_sort(cells.begin(), cells.begin() + count, cells.end());
    QStringList widest;
    for (qsizetype i = 0; i < count; ++i)
        widest += cells[i].second;
    return widest;
}

} // namespace

GridView::GridView(const QString& name, QWidget* parent)
    : QTableView(parent), model_(new GridModel(this)), showAdded_(new QTimer(this)) {
    setObjectName(name);
    model_->isEditable = [this](int column) { return isEditable(column); };
    setModel(model_);
    setItemDelegate(new GridDelegate(this));

    setSelect(Select::Row);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setMinimumSectionSize(fontMetrics().averageCharWidth() * 4);

    showAdded_->setSingleShot(true);
    showAdded_->setInterval(kShowAddedAfter);
    connect(showAdded_, &QTimer::timeout, model_, &GridModel::showAdded);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &GridView::sortByHeader);
    connect(this, &QTableView::clicked, this, [this](const QModelIndex& index) {
        Q_EMIT rowClicked(model_->cell(index).row, index.column());
    });
    connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        const GridCell cell = model_->cell(index);
        Q_EMIT rowDoubleClicked(cell.row, cell.column);
        Q_EMIT rowActivated(cell.row, cell.column);
    });
}

GridView::~GridView() = default;

// --- the table ---

TextTable& GridView::table() {
    return model_->table;
}

const TextTable& GridView::table() const {
    return model_->table;
}

void GridView::setTable(const TextTable& table) {
    model_->table = table;
    refresh();
}

void GridView::refresh() {
    const GridCell current = model_->cell(currentIndex());
    const QList<int> selected = selectedRows();
    typed_ = {};
    clearSortMark();
    model_->showAll();
    setCurrent(qMin(current.row, table().dataRows()), current.column);
    if (selected.size() > 1)
        setSelectedRows(selected);
}

void GridView::rowChanged(int row) {
    model_->showRow(row);
}

void GridView::rowsAdded() {
    if (!showAdded_->isActive())
        showAdded_->start();
}

void GridView::scrollToEnd() {
    model_->showAdded();
    scrollToBottom();
}

// --- current cell and selection ---

int GridView::currentRow() const {
    return model_->cell(currentIndex()).row;
}

int GridView::currentColumn() const {
    return model_->cell(currentIndex()).column;
}

void GridView::setCurrent(int row, int column) {
    model_->showAdded();
    if (column < 0)
        column = currentColumn();
    if (isColumnHidden(column))
        column = qMax(0, horizontalHeader()->logicalIndexAt(0));
    const QModelIndex index = model_->indexOf(row, column);
    setCurrentIndex(index);
    if (index.isValid())
        scrollTo(index);
    else
        clearSelection();
}

void GridView::setSelect(Select what) {
    setSelectionBehavior(what == Select::Cells ? SelectItems : SelectRows);
    setSelectionMode(what == Select::Row ? SingleSelection : ExtendedSelection);
}

QList<int> GridView::selectedRows() const {
    QList<int> rows;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.append(row + 1);
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

void GridView::setSelectedRows(const QList<int>& rows) {
    model_->showAdded();
    QItemSelection selection;
    for (const int row : rows) {
        const QModelIndex index = model_->indexOf(row, 0);
        selection.select(index, index);
    }
    selectionModel()->select(selection,
                             QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

QString GridView::selectedText() const {
    QStringList lines;
    for (const int row : selectedRows()) {
        QStringList cells;
        for (int place = 0; place < horizontalHeader()->count(); ++place) {
            const int column = horizontalHeader()->logicalIndex(place);
            if (isColumnHidden(column) || !selectionModel()->columnIntersectsSelection(column))
                continue;
            const bool selected = selectionModel()->isSelected(model_->indexOf(row, column));
            QString text = selected ? table().text(row, column) : QString();
            text.replace(kCrLf, u" "_s);
            for (QChar& c : text) {
                if (c == u'\t' || c == u'\r' || c == u'\n')
                    c = u' ';
            }
            cells += text;
        }
        lines += cells.join(u'\t');
    }
    return lines.join(kCrLf);
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    finishCell();
    QTableView::currentChanged(current, previous);
    const GridCell cell = model_->cell(current);
    Q_EMIT currentMoved(cell.row, cell.column);
}

void GridView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    Q_EMIT selectionMoved();
}

// --- look ---

void GridView::autoFit(int widest) {
    model_->showAdded();
    QFont headerFont = horizontalHeader()->font();
    headerFont.setBold(true);
    const QFontMetrics headerMetrics(headerFont);
    const QFontMetrics metrics(font());
    for (int column = 0; column < table().cols(); ++column) {
        int width = headerMetrics.horizontalAdvance(table().headers().at(column)) +
                    (sortable_ ? kSortArrow : 0);
        for (const QString& text : WidestCells(table(), column))
            width = qMax(width, metrics.horizontalAdvance(text));
        setColumnWidth(column, qMin(width + kCellPadding, widest));
    }
}

void GridView::setColumnAlignment(int column, Qt::Alignment alignment) {
    model_->alignments.insert(column, alignment);
}

bool GridView::isRightAligned(int column) const {
    return model_->alignments.value(column).testFlag(Qt::AlignRight);
}

void GridView::setCheckColumn(int column) {
    model_->checkColumn = column;
}

void GridView::setColours(std::function<CellColours(int row, int column)> colours) {
    model_->colours = std::move(colours);
    viewport()->update();
}

// --- order ---

void GridView::setSortable(bool on) {
    sortable_ = on;
}

void GridView::sortByHeader(int column) {
    if (sortable_)
        sortBy(column, column == sortedColumn_ && !sortedDescending_);
    Q_EMIT headerClicked(column);
}

void GridView::sortBy(int column, bool descending) {
    finishCell();
    const QList<int> selected = selectedRows();
    const int current = currentRow();
    const int currentColumn = this->currentColumn();

    const QList<int> cameFrom =
        table().sort(column, TextTable::Order::Natural, descending, totalRows_);
    renumber();

    model_->showAll();
    setCurrent(current > 0 ? int(cameFrom.indexOf(current)) : 0, currentColumn);
    QList<int> moved;
    for (int row = 1; row < cameFrom.size(); ++row) {
        if (std::binary_search(selected.begin(), selected.end(), cameFrom[row]))
            moved.append(row);
    }
    setSelectedRows(moved);

    sortedColumn_ = column;
    sortedDescending_ = descending;
    horizontalHeader()->setSortIndicatorShown(true);
    horizontalHeader()->setSortIndicator(column,
                                         descending ? Qt::DescendingOrder : Qt::AscendingOrder);
    Q_EMIT sorted(cameFrom);
}

void GridView::clearSortMark() {
    sortedColumn_ = -1;
    horizontalHeader()->setSortIndicatorShown(false);
}

void GridView::setNumberColumn(int column, const QString& format) {
    numberColumn_ = column;
    numberFormat_ = format;
}

void GridView::renumber() {
    if (numberColumn_ >= 0)
        table().numberRows(numberColumn_, numberFormat_);
}

void GridView::setRowsMovable(bool on) {
    rowsMovable_ = on;
}

void GridView::moveRow(int to) {
    const int from = currentRow();
    if (from < 1 || to < 1 || to > table().dataRows() || from == to)
        return;
    table().moveRow(from, to);
    renumber();
    clearSortMark();
    model_->showAll();
    setCurrent(to);
    Q_EMIT rowMoved(from, to);
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
    if (rowsMovable_ && event->buttons() == Qt::LeftButton)
        moveRow(model_->cell(indexAt(event->position().toPoint())).row);
    else
        QTableView::mouseMoveEvent(event);
}

// --- keys ---

void GridView::keyPressEvent(QKeyEvent* event) {
    const int row = currentRow();
    const bool up = event->key() == Qt::Key_Up;
    const bool down = event->key() == Qt::Key_Down;
    if (event->matches(QKeySequence::Copy))
        QApplication::clipboard()->setText(selectedText());
    else if (rowsMovable_ && event->modifiers() == Qt::ControlModifier && (up || down))
        moveRow(up ? row - 1 : row + 1);
    else if (sortable_ && event->modifiers() == Qt::AltModifier && (up || down) && row > 0)
        sortBy(currentColumn(), down);
    else if (!typeKey(event))
        QTableView::keyPressEvent(event);
}

} // namespace hotel
