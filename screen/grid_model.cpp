#include "screen/grid_model.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace hotel {

void GridModel::showAll() {
    beginResetModel();
    shownRows_ = table.dataRows();
    shownColumns_ = table.cols();
    endResetModel();
}

void GridModel::showAdded() {
    if (table.cols() != shownColumns_ || table.dataRows() < shownRows_) {
        showAll();
        return;
    }
    if (table.dataRows() == shownRows_)
        return;
    beginInsertRows({}, shownRows_, table.dataRows() - 1);
    shownRows_ = table.dataRows();
    endInsertRows();
}

void GridModel::showRow(int row) {
    Q_EMIT dataChanged(indexOf(row, 0), indexOf(row, shownColumns_ - 1));
}

GridCell GridModel::cell(const QModelIndex& index) const {
    return index.isValid() ? GridCell{index.row() + 1, index.column()} : GridCell{};
}

QModelIndex GridModel::indexOf(int row, int column) const {
    return index(row - 1, column);
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shownRows_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shownColumns_;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    const auto [row, column] = cell(index);
    switch (role) {
    case Qt::DisplayRole:
        return table.text(row, column);
    case Qt::TextAlignmentRole:
        return int(alignments.value(column, Qt::AlignLeft) | Qt::AlignVCenter);
    case Qt::CheckStateRole:
        if (column == checkColumn)
            return table.text(row, column).isEmpty() ? Qt::Unchecked : Qt::Checked;
        return {};
    case Qt::ForegroundRole:
        if (const QColor text = colours ? colours(row, column).text : QColor(); text.isValid())
            return text;
        return {};
    case Qt::BackgroundRole:
        if (const QColor fill = colours ? colours(row, column).background : QColor();
            fill.isValid())
            return fill;
        return {};
    default:
        return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical)
        return {};
    if (role == Qt::DisplayRole)
        return table.headers().value(section);
    if (role == Qt::TextAlignmentRole)
        return int(alignments.value(section, Qt::AlignLeft) | Qt::AlignVCenter);
    return {};
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    // The editable flag lets the input method in; cells are typed into without an editor.
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return isEditable(index.column()) ? flags | Qt::ItemIsEditable : flags;
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const bool focused = grid_->hasFocus();
    const bool current = index == grid_->currentIndex();
    const bool ringed = cell.state & QStyle::State_Selected && cell.backgroundBrush != Qt::NoBrush;
    const bool typed = current && focused && grid_->isEditable(index.column());
    const QColor accent = cell.palette.color(QPalette::Highlight);

    cell.state.setFlag(QStyle::State_HasFocus, false);
    if (ringed || typed)
        cell.state.setFlag(QStyle::State_Selected, false);
    if (!focused) {
        cell.palette.setColor(QPalette::Highlight, QColor(0xC9, 0xDB, 0xED));
        cell.palette.setColor(QPalette::HighlightedText, cell.palette.color(QPalette::Text));
    }
    if (typed) {
        cell.text += grid_->preedit();
        painter->fillRect(option.rect, cell.palette.base()); // over the row's selection
    }
    cell.widget->style()->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);

    if (ringed || typed) {
        painter->save();
        painter->setPen(QPen(accent, 2));
        painter->drawRect(QRect(option.rect).adjusted(1, 1, -1, -1));
        painter->restore();
    }
    if (typed)
        paintCaret(painter, cell);
}

void GridDelegate::paintCaret(QPainter* painter, const QStyleOptionViewItem& option) const {
    const QStyle* style = option.widget->style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, option.widget) + 1;
    const QRect text =
        style->itemTextRect(option.fontMetrics, option.rect.adjusted(margin, 0, -margin, 0),
                            int(option.displayAlignment), true, option.text);
    const int x = qMin(text.right() + 2, option.rect.right() - 3);
    const int half = option.fontMetrics.height() / 2;
    painter->fillRect(x, option.rect.center().y() - half, 2, 2 * half,
                      option.palette.color(QPalette::Text));
}

bool GridDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                             const QStyleOptionViewItem& option, const QModelIndex& index) {
    const QString text = index.data().toString();
    const bool cut = sizeHint(option, index).width() > option.rect.width();
    if (event->type() == QEvent::ToolTip && cut) {
        QToolTip::showText(event->globalPos(), text, view);
        return true;
    }
    return QStyledItemDelegate::helpEvent(event, view, option, index);
}

} // namespace hotel
