#pragma once

// The time of a played house: one file of numbers that every process of it maps, the server's too. The house is as
// late as the latest of its desks, and never goes back.

#include <QDateTime>
#include <QFile>
#include <QString>

#include <atomic>

namespace hotel {

class HouseClock {
public:
    // Makes the file anew, for desks numbered from 0. Throws std::runtime_error when it can't be written.
    static void make(const QString& path, int desks, const QDateTime& moment);

    // Throws std::runtime_error when there is no such file.
    explicit HouseClock(const QString& path);

    QDateTime now() const;
    void moveTo(const QDateTime& moment);

    // Where a desk stands.
    QDateTime ofDesk(int desk) const;
    void setDesk(int desk, const QDateTime& moment);

private:
    std::atomic_ref<qint64> at(int number) const { return std::atomic_ref(numbers_[number]); }

    QFile file_;
    qint64* numbers_ = nullptr; // milliseconds: the house's, then each desk's
};

} // namespace hotel
