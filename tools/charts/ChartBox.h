#pragma once

#include <QWidget>

#include "tools/charts/chart.h"

class QComboBox;

namespace hotel {

class ChartPane;

// The charts of one list, one at a time: a drop-down chooses among several by their titles. Hidden while there is
// nothing worth drawing.
class ChartBox : public QWidget {
    Q_OBJECT

public:
    explicit ChartBox(QWidget* parent = nullptr);

    // Those that aren't worth drawing are left out.
    void setCharts(const QList<Chart>& charts);
    const QList<Chart>& charts() const { return charts_; }

    // The one on display; an empty one where there is none.
    Chart current() const;

private:
    void showCurrent();

    QList<Chart> charts_;
    QComboBox* Tblx_; // the titles
    ChartPane* pane_;
};

} // namespace hotel
