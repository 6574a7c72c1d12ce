#include "frontoffice/room_map.h"

#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

#include "record/numbers.h"
#include "screen/status_colour.h"

namespace hotel {

namespace {

constexpr int kFloorTwips = 700; // width of the floor's column
constexpr int kTwipsInAnInch = 1440;

constexpr int kLeastLine = 22; // pixels; smaller ones can't be read from two metres
constexpr int kGreatestLine = 64;
constexpr double kFigureHeight = 0.80; // of the line
constexpr double kTailScale = 0.78;    // beds and guests by the room number
constexpr double kGuestScale = 0.50;   // the mark of a guest by the room number
constexpr double kCellMargin = 0.45;
constexpr int kShownGuests = 4;
constexpr int kFrame = 3;         // pixels, of the selected cell
constexpr double kMeasured = 100; // pixels of the font that widths are measured with

constexpr int kTypingPause = 1500; // milliseconds: what is typed later begins a new number

QFont Figures(const QFont& base, double pixels, bool bold) {
    QFont font = base;
    font.setPixelSize(std::max(1, int(pixels)));
    font.setBold(bold);
    return font;
}

QString TailOf(const QString& cellText) {
    return cellText.mid(cellText.indexOf(u'/'));
}

int GuestsOf(const QString& cellText) {
    return int(LeadingNumber(QStringView(cellText).mid(cellText.lastIndexOf(u'/') + 1)));
}

// Where figures stand to be in the middle of a line; the font's own middle is that of its letters.
int Baseline(const QRect& line, const QFont& figures) {
    return line.top() + (line.height() + QFontMetrics(figures).capHeight()) / 2;
}

// Draws a cell of the map: number, beds and guests, and for each guest a mark at the right edge.
class MapDelegate : public QStyledItemDelegate {
public:
    explicit MapDelegate(RoomMap* map) : QStyledItemDelegate(map), map_(map) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const int row = index.row() + 1;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const int gap = map_->beginsFloor(row) ? 3 : 1; // floors stand apart
        const QRect place = option.rect.adjusted(1, gap, -1, -1);
        painter->fillRect(option.rect, option.palette.window());
        if (const MapCell* cell = map_->cell(row, index.column()))
            paintRoom(painter, place, *cell, option.state & QStyle::State_Selected);
        else if (index.column() == 0)
            paintFloor(painter, place, index.data().toString(), option);
        painter->restore();
    }

private:
    void paintFloor(QPainter* painter, const QRect& place, const QString& floor,
                    const QStyleOptionViewItem& option) const {
        double pixels = map_->figureSize();
        const int width = QFontMetrics(Figures(option.font, pixels, true)).horizontalAdvance(floor);
        if (width > place.width())
            pixels *= double(place.width()) / width;
        const QFont figures = Figures(option.font, pixels, true);
        const int used = QFontMetrics(figures).horizontalAdvance(floor);
        painter->setFont(figures);
        painter->setPen(option.palette.color(QPalette::WindowText));
        painter->drawText(place.center().x() - used / 2, Baseline(place, figures), floor);
    }

    // The selected room has a frame, and its number in the colours the other way round.
    void paintRoom(QPainter* painter, const QRect& place, const MapCell& cell,
                   bool selected) const {
        const QColor fill = StatusColour(cell.colour);
        const QColor ink = ReadableOn(fill);
        painter->fillRect(place, fill);

        const double pixels = map_->figureSize();
        const QFont figures = Figures(map_->font(), pixels, true);
        const QString room = RoomOfMapCell(cell.text);
        const int margin = int(pixels * kCellMargin);
        const int width = QFontMetrics(figures).horizontalAdvance(room);
        const QRect text = place.adjusted(margin, 0, -margin, 0);
        const int baseline = Baseline(place, figures);
        int behind = text.left() + width;
        if (selected) {
            behind += kFrame;
            painter->fillRect(QRect(place.topLeft(), QPoint(behind, place.bottom())), ink);
            painter->setPen(QPen(ink, kFrame));
            painter->drawRect(QRectF(place).adjusted(1.5, 1.5, -1.5, -1.5));
            behind += kFrame;
        }
        painter->setPen(selected ? fill : ink);
        painter->setFont(figures);
        painter->drawText(text.left(), baseline, room);
        painter->setPen(ink);
        painter->setFont(Figures(map_->font(), pixels * kTailScale, false));
        painter->drawText(behind, baseline, TailOf(cell.text));
        paintGuests(painter, text, GuestsOf(cell.text));
    }

    void paintGuests(QPainter* painter, const QRect& text, int guests) const {
        const double size = map_->figureSize() * kGuestScale;
        painter->setBrush(painter->pen().color());
        for (int i = 0; i < std::min(guests, kShownGuests); ++i) {
            const QPointF centre(text.right() - size * (1.25 * i + 0.5), text.center().y() + 0.5);
            painter->drawEllipse(centre, size / 2, size / 2);
        }
    }

    RoomMap* map_;
};

} // namespace

RoomMap::RoomMap(const QString& name, QWidget* parent) : GridView(name, parent) {
    QStringList headers(kMapRooms + 1);
    headers[0] = u"楼层"_s;
    table().setHeaders(headers);
    setItemDelegate(new MapDelegate(this));
    setSelectionBehavior(SelectItems);
    setSelectionMode(SingleSelection);
    setShowGrid(false);
    viewport()->setBackgroundRole(QPalette::Window);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    horizontalHeader()->hide();
    horizontalHeader()->setStretchLastSection(false);
    horizontalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setMinimumSectionSize(1);
    refresh();
}

void RoomMap::setLines(const QList<MapLine>& lines) {
    const QString selected = selectedRoom();
    lines_ = lines;
    table().clearRows();
    for (const MapLine& line : lines_) {
        QStringList cells{line.floor};
        for (const MapCell& cell : line.cells)
            cells.append(cell.text);
        table().addRow(cells);
    }
    refresh();
    fit();
    selectRoom(selected);
}

// --- rooms ---

const MapCell* RoomMap::cell(int row, int column) const {
    if (row < 1 || row > lines_.size() || column < 1 || column > lines_[row - 1].cells.size())
        return nullptr;
    return &lines_[row - 1].cells[column - 1];
}

QString RoomMap::room(int row, int column) const {
    const MapCell* found = cell(row, column);
    return found ? RoomOfMapCell(found->text) : QString();
}

QString RoomMap::selectedRoom() const {
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    return selected.size() == 1 ? room(selected.first().row() + 1, selected.first().column())
                                : QString();
}

void RoomMap::selectRoom(const QString& room) {
    const GridCell found = find(room);
    setCurrent(found.row, found.column);
}

void RoomMap::setColour(const QString& room, int colour) {
    const GridCell found = find(room);
    if (found.row == 0)
        return;
    lines_[found.row - 1].cells[found.column - 1].colour = colour;
    rowChanged(found.row);
}

bool RoomMap::beginsFloor(int row) const {
    return row > 1 && row <= lines_.size() && lines_[row - 1].floor != lines_[row - 2].floor;
}

GridCell RoomMap::find(const QString& wanted) const {
    for (GridCell at = step({1, 0}, 1); at.row > 0 && !wanted.isEmpty(); at = step(at, 1)) {
        if (room(at.row, at.column) == wanted)
            return at;
    }
    return {};
}

// The room next to a cell in the order of reading; none: row 0.
GridCell RoomMap::step(GridCell from, int direction) const {
    from.column += direction;
    while (from.row >= 1 && from.row <= lines_.size() && !cell(from.row, from.column)) {
        from.row += direction;
        if (from.row >= 1 && from.row <= lines_.size())
            from.column = direction > 0 ? 1 : int(lines_[from.row - 1].cells.size());
    }
    return cell(from.row, from.column) ? from : GridCell{};
}

QModelIndex RoomMap::indexOf(GridCell cell) const {
    return model()->index(cell.row - 1, cell.column);
}

// --- keys ---

QModelIndex RoomMap::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const GridCell from{currentRow(), currentColumn()};
    if (from.row == 0)
        return indexOf(step({1, 0}, 1));
    if (action == MoveLeft || action == MovePrevious || action == MoveRight || action == MoveNext) {
        const GridCell to = step(from, action == MoveLeft || action == MovePrevious ? -1 : 1);
        return to.row > 0 ? indexOf(to) : currentIndex();
    }
    const QModelIndex to = GridView::moveCursor(action, modifiers);
    if (!to.isValid())
        return to;
    const int last = int(lines_[to.row()].cells.size());
    return to.siblingAtColumn(std::clamp(to.column(), 1, last));
}

void RoomMap::keyboardSearch(const QString& typed) {
    if (!sinceTyped_.isValid() || sinceTyped_.hasExpired(kTypingPause))
        typed_.clear();
    sinceTyped_.start();
    typed_ += PlainForm(typed).toUpper();
    const GridCell found = findTyped();
    if (found.row > 0)
        setCurrent(found.row, found.column);
}

GridCell RoomMap::findTyped() const {
    GridCell holds;
    for (GridCell at = step({1, 0}, 1); at.row > 0; at = step(at, 1)) {
        const QString number = room(at.row, at.column).toUpper();
        if (number.startsWith(typed_))
            return at;
        if (holds.row == 0 && number.contains(typed_))
            holds = at;
    }
    return holds;
}

// --- size ---

void RoomMap::resizeEvent(QResizeEvent* event) {
    GridView::resizeEvent(event);
    fit();
}

void RoomMap::fit() {
    const int lines = std::max<int>(1, int(lines_.size()));
    const int height = std::clamp(viewport()->height() / lines, kLeastLine, kGreatestLine);
    const int floor = kFloorTwips * logicalDpiX() / kTwipsInAnInch;
    const int width = (viewport()->width() - floor) / kMapRooms;
    verticalHeader()->setDefaultSectionSize(height);
    for (int column = 0; column <= kMapRooms; ++column)
        setColumnWidth(column, column == 0 ? floor : width);
    const double widest = widthOfWidest();
    figureSize_ = int(std::min(height * kFigureHeight, widest > 0 ? (width - 2) / widest : height));
    viewport()->update();
}

double RoomMap::widthOfWidest() const {
    const QFontMetricsF number(Figures(font(), kMeasured, true));
    const QFontMetricsF tail(Figures(font(), kMeasured * kTailScale, false));
    double widest = 0;
    for (const MapLine& line : lines_) {
        for (const MapCell& cell : line.cells) {
            const int guests = std::min(GuestsOf(cell.text), kShownGuests);
            const double width = number.horizontalAdvance(RoomOfMapCell(cell.text)) +
                                 tail.horizontalAdvance(TailOf(cell.text)) +
                                 kMeasured * (2 * kCellMargin + guests * 1.25 * kGuestScale);
            widest = std::max(widest, width / kMeasured);
        }
    }
    return widest;
}

} // namespace hotel
