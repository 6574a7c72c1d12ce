#pragma once

// The map of the room status board: one coloured cell a room, five rooms a line behind their floor.
// Lines and figures are as large as the window allows, so that a house of a hundred rooms is seen whole
// and read from across the room; a house that would need figures too small to read is scrolled through.
//
// Keys: the arrows go from room to room; digits (or letters) typed one after the other go to the room
// whose number begins so, else to the next one that holds them.

#include <QElapsedTimer>

#include "house/stays/board.h"
#include "screen/grid_view.h"

namespace hotel {

class RoomMap : public GridView {
    Q_OBJECT

public:
    explicit RoomMap(const QString& name, QWidget* parent = nullptr);

    // The selection stays with its room, and goes when the room is not among the lines.
    void setLines(const QList<MapLine>& lines);

    // The cell at a row and a column of the table; null where there is no room.
    const MapCell* cell(int row, int column) const;
    QString room(int row, int column) const; // empty: none

    // The room of the selected cell.
    QString selectedRoom() const;
    void selectRoom(const QString& room);

    // Recolours the room's cell.
    void setColour(const QString& room, int colour);

    // A line of another floor begins here.
    bool beginsFloor(int row) const;

    int figureSize() const { return figureSize_; } // pixels, of the room numbers

protected:
    void resizeEvent(QResizeEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void keyboardSearch(const QString& typed) override;

private:
    GridCell find(const QString& room) const;
    GridCell findTyped() const;
    GridCell step(GridCell from, int direction) const;
    QModelIndex indexOf(GridCell cell) const;
    void fit();
    double widthOfWidest() const; // for figures of one pixel

    QList<MapLine> lines_;
    int figureSize_ = 0;
    QString typed_;
    QElapsedTimer sinceTyped_;
};

} // namespace hotel
