// The part of GridView that takes what is typed.

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QKeyEvent>

#include "record/record_text.h"
#include "screen/grid_model.h"
#include "screen/grid_view.h"

namespace hotel {

void GridView::setEditable(int column, const CellEditing& editing) {
    editing_.insert(column, editing);
}

void GridView::setReadOnly() {
    finishCell();
    editing_.clear();
}

void GridView::setEnterMove(std::function<GridCell(GridCell)> move) {
    enterMove_ = std::move(move);
}

// True when the key is done with here.
bool GridView::typeKey(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (currentRow() == 0)
        return false;
    if (enter && editing_.isEmpty()) {
        Q_EMIT rowActivated(currentRow(), currentColumn());
        return true;
    }
    if (enter) {
        moveByEnter();
        return true;
    }
    if (!isEditable(currentColumn())) {
        if (event->key() != Qt::Key_Space)
            return false;
        Q_EMIT rowClicked(currentRow(), currentColumn());
        return true;
    }

    const QString text = table().text(currentRow(), currentColumn());
    if (event->key() == Qt::Key_Escape) {
        if (text.isEmpty())
            return false;
        writeCell({});
    } else if (event->key() == Qt::Key_Backspace) {
        writeCell(text.chopped(qMin<qsizetype>(1, text.size())));
    } else if (event->matches(QKeySequence::Paste)) {
        typeText(QApplication::clipboard()->text());
    } else if (const QString typed = TypedText(*event); !typed.isEmpty()) {
        typeText(typed);
    } else {
        return false;
    }
    return true;
}

void GridView::inputMethodEvent(QInputMethodEvent* event) {
    if (currentRow() == 0 || !isEditable(currentColumn())) {
        event->ignore();
        return;
    }
    preedit_ = event->preeditString();
    typeText(event->commitString());
    update(currentIndex());
    event->accept();
}

QVariant GridView::inputMethodQuery(Qt::InputMethodQuery query) const {
    if (query == Qt::ImCursorRectangle)
        return visualRect(currentIndex());
    return QTableView::inputMethodQuery(query);
}

void GridView::typeText(const QString& text) {
    QString taken = FilterTyped(editing_.value(currentColumn()).filter, text);
    taken.removeIf([](QChar c) { return c < u' '; });
    if (!taken.isEmpty())
        writeCell(table().text(currentRow(), currentColumn()) + taken);
}

void GridView::writeCell(const QString& text) {
    typed_ = {currentRow(), currentColumn()};
    if (text == table().text(typed_.row, typed_.column))
        return;
    table().setText(typed_.row, typed_.column, text);
    modified_ = true;
    model_->showRow(typed_.row);
    Q_EMIT cellEdited(typed_.row, typed_.column);
}

void GridView::finishCell() {
    preedit_.clear();
    const GridCell cell = std::exchange(typed_, {});
    if (cell.row == 0)
        return;
    QString text = TrimBlanks(table().text(cell.row, cell.column));
    if (const auto& onLeave = editing_.value(cell.column).onLeave)
        text = onLeave(text);
    table().setText(cell.row, cell.column, text);
    model_->showRow(cell.row);
    Q_EMIT cellFinished(cell.row, cell.column);
}

void GridView::moveByEnter() {
    const GridCell from{currentRow(), currentColumn()};
    finishCell();
    const GridCell to = enterMove_ ? enterMove_(from) : nextEditable(from);
    setCurrent(to.row, to.column);
}

GridCell GridView::nextEditable(GridCell from) const {
    for (int row = from.row; row <= qMin(from.row + 1, table().dataRows()); ++row) {
        for (int column = row == from.row ? from.column + 1 : 0; column < table().cols();
             ++column) {
            if (isEditable(column) && !isColumnHidden(column))
                return {row, column};
        }
    }
    return from;
}

void GridView::focusOutEvent(QFocusEvent* event) {
    if (event->reason() != Qt::PopupFocusReason)
        finishCell();
    QTableView::focusOutEvent(event);
}

} // namespace hotel
