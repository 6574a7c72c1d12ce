#include "shell/backdrop.h"

#include <QPainter>

#include "record/literals.h"
#include "screen/theme.h"

namespace hotel {

namespace {

constexpr QColor kSky{24, 44, 74};
constexpr QColor kWall{38, 66, 104};
constexpr QColor kNeighbour{31, 54, 88};
constexpr QColor kDark{48, 80, 122};
constexpr QColor kLit{244, 208, 132};
constexpr QColor kWords{246, 243, 234};

// A house front with rows of windows; which ones are lit follows from their place alone.
void PaintHouse(QPainter& painter, const QRectF& house, const QColor& wall, int columns, int rows) {
    painter.fillRect(house, wall);
    const qreal across = house.width() / (columns * 2 + 1);
    const qreal down = house.height() / (rows * 2 + 1);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const bool lit = (row * 7 + column * 5 + columns) % 4 == 0;
            painter.fillRect(QRectF(house.left() + across * (column * 2 + 1),
                                    house.top() + down * (row * 2 + 1), across, down),
                             lit ? kLit : kDark);
        }
    }
}

} // namespace

Backdrop::Backdrop(const QString& hotelName, QWidget* parent)
    : QWidget(parent), hotelName_(hotelName) {
    setMinimumWidth(360);
}

void Backdrop::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const qreal w = width();
    const qreal h = height();
    painter.fillRect(rect(), kSky);
    PaintHouse(painter, {w * 0.04, h * 0.62, w * 0.26, h * 0.38}, kNeighbour, 5, 5);
    PaintHouse(painter, {w * 0.74, h * 0.56, w * 0.22, h * 0.44}, kNeighbour, 4, 6);
    PaintHouse(painter, {w * 0.34, h * 0.40, w * 0.36, h * 0.60}, kWall, 8, 9);

    painter.setPen(kWords);
    painter.setFont(FontFor(u"宋体", 26, true));
    painter.drawText(QRectF(0, h * 0.10, w, h * 0.14), Qt::AlignCenter, hotelName_);
    painter.setFont(FontFor(u"黑体", 12));
    painter.drawText(QRectF(0, h * 0.23, w, h * 0.08), Qt::AlignCenter, u"宾馆管理工作站"_s);
}

} // namespace hotel
