#include "tools/charts/ChartBox.h"

#include <QComboBox>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "record/literals.h"
#include "tools/charts/ChartPane.h"

namespace hotel {

ChartBox::ChartBox(QWidget* parent) : QWidget(parent), Tblx_(new QComboBox), pane_(new ChartPane) {
    setObjectName(u"ChartBox"_s);
    Tblx_->setObjectName(u"Tblx"_s);
    Tblx_->setAccessibleName(u"图表"_s);
    Tblx_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(Tblx_);
    layout->addWidget(pane_, 1);
    connect(Tblx_, &QComboBox::currentIndexChanged, this, &ChartBox::showCurrent);
    hide();
}

void ChartBox::setCharts(const QList<Chart>& charts) {
    charts_ = charts;
    charts_.removeIf([](const Chart& chart) { return !IsWorthDrawing(chart); });
    {
        const QSignalBlocker quiet(Tblx_);
        Tblx_->clear();
        for (const Chart& chart : charts_)
            Tblx_->addItem(chart.title);
    }
    Tblx_->setVisible(charts_.size() > 1);
    showCurrent();
    setVisible(!charts_.isEmpty());
}

Chart ChartBox::current() const {
    return charts_.value(Tblx_->currentIndex());
}

void ChartBox::showCurrent() {
    pane_->setChart(current());
}

} // namespace hotel
