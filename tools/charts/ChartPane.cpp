#include "tools/charts/ChartPane.h"

#include <QKeyEvent>
#include <QPainter>

#include "record/literals.h"
#include "tools/charts/draw_chart.h"

namespace hotel {

namespace {

constexpr int kFrame = 2;        // pixels
constexpr int kWordsHeight = 26; // of the figures in words, while the chart has the focus

} // namespace

ChartPane::ChartPane(QWidget* parent) : QWidget(parent) {
    setObjectName(u"ChartPane"_s);
    setFocusPolicy(Qt::StrongFocus);
    setToolTip(u"方向键逐项查看数值，Ctrl+S存为图片"_s);
}

void ChartPane::setChart(const Chart& chart) {
    chart_ = chart;
    picture_ = {};
    label_ = -1;
    setAccessibleName(chart.title);
    update();
}

QString ChartPane::figuresInWords() const {
    if (label_ < 0 || label_ >= chart_.labels.size())
        return {};
    QStringList figures;
    for (const ChartSeries& series : chart_.series)
        figures += (series.name.isEmpty() ? QString() : series.name + u' ') +
                   ChartFigure(chart_, series.values.value(label_), true);
    return chart_.labels[label_] + u'：' + figures.join(u'，');
}

QSize ChartPane::sizeHint() const {
    return {440, 300};
}

QSize ChartPane::minimumSizeHint() const {
    return {280, 200};
}

// The words have their line at the foot always, so that the picture doesn't jump.
QRect ChartPane::pictureArea() const {
    return rect().adjusted(kFrame, kFrame, -kFrame, -kFrame - kWordsHeight);
}

void ChartPane::paintEvent(QPaintEvent*) {
    const QRect area = pictureArea();
    const double scale = devicePixelRatioF();
    if (picture_.size() != (QSizeF(area.size()) * scale).toSize())
        picture_ = DrawChart(chart_, area.size(), scale);
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.drawImage(area, picture_);
    const QRect words = rect().adjusted(8, rect().height() - kWordsHeight, -8, -kFrame);
    painter.drawText(words, Qt::AlignCenter,
                     fontMetrics().elidedText(figuresInWords(), Qt::ElideRight, words.width()));
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), kFrame));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
}

void ChartPane::goToLabel(int label) {
    label_ = std::clamp(label, 0, int(chart_.labels.size()) - 1);
    setAccessibleDescription(figuresInWords());
    update();
}

void ChartPane::keyPressEvent(QKeyEvent* event) {
    const int last = int(chart_.labels.size()) - 1;
    if (event->matches(QKeySequence::Save))
        SaveChartPicture(Chart(chart_)); // the pane may be gone before the question is answered
    else if (last >= 0 && (event->key() == Qt::Key_Right || event->key() == Qt::Key_Down))
        goToLabel(label_ + 1);
    else if (last >= 0 && (event->key() == Qt::Key_Left || event->key() == Qt::Key_Up))
        goToLabel(label_ - 1);
    else if (last >= 0 && event->key() == Qt::Key_Home)
        goToLabel(0);
    else if (last >= 0 && event->key() == Qt::Key_End)
        goToLabel(last);
    else
        QWidget::keyPressEvent(event);
}

void ChartPane::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void ChartPane::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

} // namespace hotel
