#include "platform/clock.h"

#include <optional>
#include <utility>

#include <time.h>

#include "record/literals.h"

namespace hotel::Clock {

namespace {

struct State {
    qint64 offset = 0; // milliseconds ahead of the machine's clock
    MachineClock machine;
    std::optional<QDateTime> frozen;
};

State& Current() {
    static State state;
    return state;
}

void MoveTo(const QDateTime& moment) {
    State& state = Current();
    if (state.frozen)
        state.frozen = moment;
    else
        state.offset = QDateTime::currentDateTime().msecsTo(moment);
}

} // namespace

QDateTime Now() {
    const State& state = Current();
    return state.frozen ? *state.frozen : QDateTime::currentDateTime().addMSecs(state.offset);
}

QDate Today() {
    return Now().date();
}

QTime Time() {
    return Now().time();
}

QString DateText() {
    return Today().toString(u"yyyy-MM-dd"_s);
}

QString TimeText() {
    return Time().toString(u"HH:mm:ss"_s);
}

// Waits ask for it many times a millisecond, so the time zone is only looked up once a minute.
double SecondsSinceMidnight() {
    constexpr qint64 kMinute = 60'000;
    static qint64 knownMinute = -1;
    static int startOfMinute = 0; // milliseconds since midnight

    if (Current().frozen)
        return Time().msecsSinceStartOfDay() / 1000.0;
    const qint64 now = QDateTime::currentMSecsSinceEpoch() + Current().offset;
    if (now / kMinute != knownMinute) {
        knownMinute = now / kMinute;
        startOfMinute =
            QDateTime::fromMSecsSinceEpoch(knownMinute * kMinute).time().msecsSinceStartOfDay();
    }
    return double(startOfMinute + now % kMinute) / 1000.0;
}

bool SetDate(QStringView yyyyMMdd) {
    const QDate date = QDate::fromString(yyyyMMdd.toString(), u"yyyy-MM-dd"_s);
    if (date.isValid())
        MoveTo(QDateTime(date, Time()));
    return date.isValid();
}

bool SetTime(QStringView hhmmss) {
    const QTime time = QTime::fromString(hhmmss.toString(), u"HH:mm:ss"_s);
    if (time.isValid())
        MoveTo(QDateTime(Today(), time));
    return time.isValid();
}

bool SetMachineClock(const QDateTime& moment) {
    const qint64 milliseconds = moment.toMSecsSinceEpoch();
    timespec time{};
    time.tv_sec = milliseconds / 1000;
    time.tv_nsec = (milliseconds % 1000) * 1000000;
    return clock_settime(CLOCK_REALTIME, &time) == 0;
}

void LetMachineFollow(MachineClock machine) {
    Current().machine = std::move(machine);
}

bool MoveMachine() {
    const QDateTime moment = Now();
    if (!Current().machine)
        return true;
    const bool moved = Current().machine(moment);
    MoveTo(moment);
    return moved;
}

void Freeze(const QDateTime& moment) {
    Current().frozen = moment;
}

void Advance(qint64 milliseconds) {
    State& state = Current();
    if (state.frozen)
        state.frozen = state.frozen->addMSecs(milliseconds);
    else
        state.offset += milliseconds;
}

void Resume() {
    Current().frozen.reset();
}

} // namespace hotel::Clock
