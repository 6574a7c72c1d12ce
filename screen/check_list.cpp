#include "screen/check_list.h"

#include <algorithm>

namespace hotel {

namespace {

constexpr int kShownEntries = 8; // more of them are scrolled to

} // namespace

CheckList::CheckList(const QString& name, QWidget* parent) : QListWidget(parent) {
    setObjectName(name);
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QListWidget::itemChanged, this, [this] {
        if (!quiet_)
            Q_EMIT ticked();
    });
    // A click on the words does what a click on the box does; the box itself has turned already when
    // the click is told, so the two are told apart by the state before.
    connect(this, &QListWidget::itemPressed, this,
            [this](QListWidgetItem* item) { pressed_ = item->checkState(); });
    connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        if (item->checkState() == pressed_)
            item->setCheckState(item->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    });
}

void CheckList::setEntries(const QStringList& entries) {
    quiet_ = true;
    clear();
    for (const QString& entry : entries) {
        auto* item = new QListWidgetItem(entry, this);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Checked);
    }
    quiet_ = false;
    if (count() > 0)
        setCurrentRow(0);
    updateGeometry();
}

QStringList CheckList::entries() const {
    QStringList entries;
    for (int i = 0; i < count(); ++i)
        entries.append(item(i)->text());
    return entries;
}

QList<bool> CheckList::ticks() const {
    QList<bool> ticks;
    for (int i = 0; i < count(); ++i)
        ticks.append(item(i)->checkState() == Qt::Checked);
    return ticks;
}

void CheckList::setTicks(const QList<bool>& ticks) {
    quiet_ = true;
    for (int i = 0; i < std::min<int>(count(), int(ticks.size())); ++i)
        item(i)->setCheckState(ticks[i] ? Qt::Checked : Qt::Unchecked);
    quiet_ = false;
}

QStringList CheckList::tickedEntries() const {
    QStringList entries;
    for (int i = 0; i < count(); ++i) {
        if (item(i)->checkState() == Qt::Checked)
            entries.append(item(i)->text());
    }
    return entries;
}

QSize CheckList::sizeHint() const {
    const int row = count() > 0 ? sizeHintForRow(0) : fontMetrics().height();
    const int rows = std::clamp(count(), 2, kShownEntries);
    return {std::max(sizeHintForColumn(0), 60) + 40, rows * row + 2 * frameWidth()};
}

} // namespace hotel
