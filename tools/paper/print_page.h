#pragma once

// What stands on one printed page: the list of its items in the order in which they are drawn. The
// preview and the printers draw it; tests read it.
//
// Places are in twips from the top left corner of the paper (567 to the centimetre).

#include <QColor>
#include <QLineF>
#include <QList>
#include <QPainter>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <optional>
#include <variant>

#include "tools/paper/print_font.h"

namespace hotel {

struct PrintedText {
    QPointF at; // top left of the line
    QString text;
    PrintFont font;
    bool operator==(const PrintedText&) const = default;
};

struct PrintedLine {
    QLineF line;
    double width; // in line widths, see kTwipsPerLineWidth
    QColor colour;
    bool operator==(const PrintedLine&) const = default;
};

struct PrintedBox {
    QRectF area;
    double width;
    std::optional<QColor> outline;
    std::optional<QColor> fill;
    bool operator==(const PrintedBox&) const = default;
};

struct PrintedPicture {
    QString file;
    QRectF area;
    bool operator==(const PrintedPicture&) const = default;
};

// Covers the paper, in the preview only.
struct PrintedBackground {
    QString file;
    bool operator==(const PrintedBackground&) const = default;
};

using PrintItem =
    std::variant<PrintedText, PrintedLine, PrintedBox, PrintedPicture, PrintedBackground>;
using PrintPage = QList<PrintItem>;

// Line width 1 is half a point.
inline constexpr double kTwipsPerLineWidth = 10;

// Draws a page with a painter that is scaled to twips. A picture that is missing or can't be read is
// left out. `paper` is in twips.
void DrawPage(QPainter& painter, const PrintPage& page, QSizeF paper);

} // namespace hotel
