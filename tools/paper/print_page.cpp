#include "tools/paper/print_page.h"

#include <QImage>
#include <QPen>

namespace hotel {

namespace {

class PageDrawing {
public:
    PageDrawing(QPainter& painter, QSizeF paper) : painter_(painter), paper_(paper) {}

    void operator()(const PrintedText& item) {
        painter_.setPen(Qt::black);
        painter_.setFont(FontInTwips(item.font));
        painter_.drawText(item.at + QPointF(0, BaselineTwips(item.font)), item.text);
    }

    void operator()(const PrintedLine& item) {
        painter_.setPen(pen(item.colour, item.width));
        painter_.drawLine(item.line);
    }

    void operator()(const PrintedBox& item) {
        painter_.setPen(item.outline ? pen(*item.outline, item.width) : QPen(Qt::NoPen));
        painter_.setBrush(item.fill ? QBrush(*item.fill) : QBrush(Qt::NoBrush));
        painter_.drawRect(item.area);
    }

    void operator()(const PrintedPicture& item) { picture(item.file, item.area); }

    void operator()(const PrintedBackground& item) {
        picture(item.file, QRectF(QPointF(0, 0), paper_));
    }

private:
    // On the screen a thin line keeps one pixel, however small the page is shown.
    QPen pen(const QColor& colour, double width) const {
        const double onePixel = 1 / qMax(painter_.deviceTransform().m11(), 1e-6);
        return QPen(colour, qMax(width * kTwipsPerLineWidth, onePixel), Qt::SolidLine,
                    Qt::SquareCap, Qt::MiterJoin);
    }

    void picture(const QString& file, const QRectF& area) {
        const QImage image(file);
        if (image.isNull() || area.isEmpty())
            return;
        painter_.setRenderHint(QPainter::SmoothPixmapTransform);
        painter_.drawImage(area, image);
    }

    QPainter& painter_;
    QSizeF paper_;
};

} // namespace

void DrawPage(QPainter& painter, const PrintPage& page, QSizeF paper) {
    painter.save();
    PageDrawing drawing(painter, paper);
    for (const PrintItem& item : page)
        std::visit(drawing, item);
    painter.restore();
}

} // namespace hotel
