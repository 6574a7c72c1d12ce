#include "app/week/house_clock.h"

#include <stdexcept>

namespace hotel {

void HouseClock::make(const QString& path, int desks, const QDateTime& moment) {
    const QList<qint64> numbers(desks + 1, moment.toMSecsSinceEpoch());
    const qint64 size = numbers.size() * qint64(sizeof(qint64));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(reinterpret_cast<const char*>(numbers.constData()), size) != size)
        throw std::runtime_error("the house's clock can't be written: " + path.toStdString());
}

HouseClock::HouseClock(const QString& path) : file_(path) {
    uchar* mapped = nullptr;
    if (file_.open(QIODevice::ReadWrite))
        mapped = file_.map(0, file_.size());
    if (!mapped)
        throw std::runtime_error("the house's clock can't be read: " + path.toStdString());
    numbers_ = reinterpret_cast<qint64*>(mapped);
}

QDateTime HouseClock::now() const {
    return QDateTime::fromMSecsSinceEpoch(at(0).load());
}

void HouseClock::moveTo(const QDateTime& moment) {
    const qint64 wanted = moment.toMSecsSinceEpoch();
    qint64 shown = at(0).load();
    while (shown < wanted && !at(0).compare_exchange_weak(shown, wanted)) {
    }
}

QDateTime HouseClock::ofDesk(int desk) const {
    return QDateTime::fromMSecsSinceEpoch(at(desk + 1).load());
}

void HouseClock::setDesk(int desk, const QDateTime& moment) {
    at(desk + 1).store(moment.toMSecsSinceEpoch());
}

} // namespace hotel
