#pragma once

#include <QImage>
#include <QWidget>

#include "tools/charts/chart.h"

namespace hotel {

// A chart on the screen, as large as its place. Reached by Tab; the arrow keys, Home and End go
// from label to label and tell the figures there in words; Ctrl+S saves the picture.
class ChartPane : public QWidget {
    Q_OBJECT

public:
    explicit ChartPane(QWidget* parent = nullptr);

    void setChart(const Chart& chart);
    const Chart& chart() const { return chart_; }

    // "11-02：客房住宿率 70.0%，床位住宿率 65.5%" of the label that was gone to; empty at the start.
    QString figuresInWords() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void goToLabel(int label);
    QRect pictureArea() const;

    Chart chart_;
    QImage picture_; // of the chart in the present size
    int label_ = -1;
};

} // namespace hotel
