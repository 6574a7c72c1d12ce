#include "house/stays/house_calendar.h"

#include "house/common/paths.h"
#include "house/guests/guest_text.h"
#include "house/rooms/room_status.h"
#include "house/stays/board.h"
#include "house/stays/reservations.h"
#include "record/field_walk.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "tools/aids/categories.h"

#include <algorithm>

namespace hotel {

namespace {

constexpr QStringView kSellable = u"可售房态";
constexpr QStringView kUnknownGuests = u"住客不详";
constexpr QStringView kUnreadGuests = u"住客未读到";
constexpr qsizetype kDateLength = 10; // yyyy-MM-dd
constexpr QStringView kNamesApart = u"、";

// By a format a date would cost more than all else that is read.
QDate DateOf(QStringView record, QStringView tag) {
    const QString text = TrimWhite(GetTag(record, tag));
    return text.size() == kDateLength ? QDate::fromString(text, Qt::ISODate) : QDate();
}

bool HasSameNight(const CalendarSpan& one, const CalendarSpan& other) {
    return std::max(one.from, other.from) < std::min(one.until, other.until);
}

// The guests of a room, who leave when the last of them does. Those that couldn't be read may stay to the end.
CalendarSpan StayOf(const RecordRead& guests, QDate today, QDate end) {
    CalendarSpan stay{.isStay = true, .from = today, .until = today};
    QStringList names;
    const auto leaves = [&stay](QDate day) { stay.until = std::max(stay.until, day); };
    for (FieldWalk bed(guests.value); bed.next();) {
        const QStringView guest = bed.value();
        if (guest.isEmpty())
            continue;
        names.append(GetTag(guest, guest_text::kName));
        const QDate arrival = DateOf(guest, guest_text::kArrivalDate);
        const QDate departure = DateOf(guest, guest_text::kDeparture);
        if (arrival.isValid() && (!stay.arrival.isValid() || arrival < stay.arrival))
            stay.arrival = arrival;
        if (departure.isValid() && (!stay.departure.isValid() || departure > stay.departure))
            stay.departure = departure;
        if (stay.number.isEmpty())
            stay.number = GetTag(guest, guest_text::kFolio);
        if (stay.company.isEmpty())
            stay.company = GetTag(guest, guest_text::kEmployer);
        const bool isOverdue = !departure.isValid() || departure < today;
        stay.isOverdue = stay.isOverdue || isOverdue;
        leaves(isOverdue ? today.addDays(1) : departure);
    }
    stay.name = names.join(kNamesApart);
    if (names.isEmpty()) {
        stay.name = (guests.failed() ? kUnreadGuests : kUnknownGuests).toString();
        stay.isOverdue = true;
        leaves(guests.failed() ? std::max(end, today.addDays(1)) : today.addDays(1));
    }
    if (stay.arrival.isValid())
        stay.from = std::min(today, stay.arrival);
    return stay;
}

CalendarSpan ReservationOf(const QString& number, QStringView record) {
    const auto field = [record](QStringView tag) { return TrimWhite(GetTag(record, tag)); };
    CalendarSpan span{.number = number,
                      .name = field(reservation::kGuest),
                      .company = field(reservation::kCompany),
                      .state = field(reservation::kState),
                      .arrival = DateOf(record, reservation::kArrival),
                      .departure = DateOf(record, reservation::kDeparture)};
    if (span.name.isEmpty())
        span.name = span.company;
    span.from = span.arrival;
    span.until = span.arrival.addDays(1);
    if (span.departure.isValid())
        span.until = std::max(span.until, span.departure);
    return span;
}

QStringList HeldRooms(QStringView record) {
    const QString held = GetTag(record, reservation::kHeldRooms);
    QStringList rooms;
    for (FieldWalk room(held); room.next();)
        rooms.append(room.value().toString());
    rooms.removeDuplicates();
    rooms.removeAll(QString());
    return rooms;
}

class Reckoning {
public:
    Reckoning(const CalendarSource& source, QDate today, QDate first, int days) : source_(source) {
        calendar_.today = today;
        calendar_.first = first;
        calendar_.days = days;
    }

    HouseCalendar calendar() {
        placeRooms();
        for (FieldWalk record(source_.reservations); record.next();)
            place(record.name().toString(), record.value());
        for (CalendarType& type : calendar_.types) {
            for (CalendarRoom& room : type.rooms)
                order(room);
        }
        for (CalendarRoom& room : calendar_.unknown)
            order(room);
        std::ranges::stable_sort(calendar_.open, {},
                                 [](const CalendarOpenPlan& plan) { return plan.span.from; });
        count();
        return std::move(calendar_);
    }

private:
    void placeRooms() {
        TextTable sorted({room_record::kNumber.toString(), u"n"_s});
        for (qsizetype n = 0; n < source_.rooms.size(); ++n)
            sorted.addRow({source_.rooms[n].number, QString::number(n)});
        sorted.sort(0, TextTable::Order::Natural);
        QStringList types = source_.types;
        for (const RoomEntry& room : source_.rooms)
            types.append(GetTag(room.record, room_record::kType));
        types.removeDuplicates();
        QHash<QString, std::vector<CalendarRoom>> ofType;
        for (int row = 1; row < sorted.rows(); ++row) {
            const CalendarRoom room = roomOf(source_.rooms[sorted.text(row, 1).toInt()]);
            ofType[room.type].push_back(room);
        }
        for (const QString& type : types) {
            if (ofType.contains(type))
                calendar_.types.push_back({type, ofType.take(type), {}});
        }
        for (CalendarType& type : calendar_.types) {
            for (CalendarRoom& room : type.rooms)
                roomByNumber_.insert(room.number, &room);
        }
    }

    CalendarRoom roomOf(const RoomEntry& entry) const {
        const auto field = [&entry](QStringView tag) { return GetTag(entry.record, tag); };
        CalendarRoom room{.number = entry.number,
                          .floor = field(room_record::kFloor),
                          .type = field(room_record::kType),
                          .status = StatusAtSale(field(room_record::kStatus))};
        if (GuestsAtSale(entry.record) > 0) {
            const CalendarSpan stay = StayOf(source_.guests.value(entry.number), calendar_.today,
                                             calendar_.first.addDays(calendar_.days));
            if (isShown(stay))
                room.spans.append(stay);
        } else {
            room.isClosed = !source_.sellable.contains(room.status);
        }
        return room;
    }

    // Who leaves on the first day is seen leaving.
    bool isShown(const CalendarSpan& span) const {
        return span.until >= calendar_.first && span.from < calendar_.first.addDays(calendar_.days);
    }

    void place(const QString& number, QStringView record) {
        const CalendarSpan span = ReservationOf(number, record);
        if (!IsToCome(span.state))
            return;
        if (!span.arrival.isValid()) {
            ++calendar_.undated;
            return;
        }
        if (!isShown(span))
            return;
        const QStringList held = HeldRooms(record);
        for (const QString& room : held)
            heldRoom(room).spans.append(span);
        const int booked = int(LeadingNumber(GetTag(record, reservation::kRooms)));
        if (booked > held.size() && span.until > calendar_.first)
            calendar_.open.push_back({span, booked - int(held.size())});
    }

    CalendarRoom& heldRoom(const QString& number) {
        if (CalendarRoom* room = roomByNumber_.value(number))
            return *room;
        const auto known = std::ranges::find(calendar_.unknown, number, &CalendarRoom::number);
        if (known != calendar_.unknown.end())
            return *known;
        return calendar_.unknown.emplace_back(CalendarRoom{.number = number, .isKnown = false});
    }

    // Lanes are given out from the first, each to the next one that finds it free.
    void order(CalendarRoom& room) const {
        std::ranges::stable_sort(room.spans, {}, &CalendarSpan::from);
        for (qsizetype n = 0; n < room.spans.size(); ++n) {
            CalendarSpan& span = room.spans[n];
            QList<bool> isTaken(n + 1, false);
            for (qsizetype before = 0; before < n; ++before) {
                CalendarSpan& other = room.spans[before];
                if (!HasSameNight(span, other))
                    continue;
                isTaken[other.lane] = true;
                if (isSameNightShown(span, other))
                    span.isDoubled = other.isDoubled = true;
            }
            span.lane = int(isTaken.indexOf(false));
            room.lanes = std::max(room.lanes, span.lane + 1);
        }
    }

    bool isSameNightShown(const CalendarSpan& one, const CalendarSpan& other) const {
        return std::max({one.from, other.from, calendar_.first}) <
               std::min({one.until, other.until, calendar_.first.addDays(calendar_.days)});
    }

    void count() {
        calendar_.free = QList<int>(calendar_.days, 0);
        calendar_.wanted = calendar_.free;
        for (CalendarType& type : calendar_.types) {
            type.free = QList<int>(calendar_.days, 0);
            for (const CalendarRoom& room : type.rooms)
                countFree(room, type.free);
            for (int day = 0; day < calendar_.days; ++day)
                calendar_.free[day] += type.free[day];
        }
        for (const CalendarOpenPlan& plan : calendar_.open) {
            for (int day = 0; day < calendar_.days; ++day)
                calendar_.wanted[day] +=
                    plan.span.takes(calendar_.first.addDays(day)) ? plan.rooms : 0;
        }
    }

    void countFree(const CalendarRoom& room, QList<int>& free) const {
        for (int day = 0; day < calendar_.days; ++day) {
            const QDate night = calendar_.first.addDays(day);
            const bool isTaken = std::ranges::any_of(
                room.spans, [night](const CalendarSpan& span) { return span.takes(night); });
            const bool isClosed = room.isClosed && night == calendar_.today;
            free[day] += !isTaken && !isClosed;
        }
    }

    const CalendarSource& source_;
    HouseCalendar calendar_;
    QHash<QString, CalendarRoom*> roomByNumber_;
};

CalendarReading Failed() {
    return {{}, Notice{u"错误"_s, u"客房日历读取失败，请稍候刷新再试！"_s}};
}

} // namespace

bool CalendarRoom::isDoubled(QDate night) const {
    return std::ranges::count_if(
               spans, [night](const CalendarSpan& span) { return span.takes(night); }) > 1;
}

HouseCalendar ReckonCalendar(const CalendarSource& source, QDate today, QDate first, int days) {
    return Reckoning(source, today, first, days).calendar();
}

CalendarReading ReadCalendarSource(const WalkProgress& progress) {
    const RecordRead rooms = ReadProjectToChange(RoomDatabaseFile(), room_record::kProject);
    const PlanKind& plans = ReservationPlans();
    const RecordRead reservations = ReadProjectToChange(plans.file(), plans.project);
    const auto types = ReadCategory(category::kRoomTypes);
    const auto sellable = ReadCategory(kSellable);
    if (rooms.failed() || reservations.failed() || !types || !sellable)
        return Failed();

    CalendarSource source{
        .types = *types, .sellable = *sellable, .reservations = reservations.value};
    QStringList withGuests;
    for (FieldWalk room(rooms.value); room.next() && source.rooms.size() < kRoomLimit;) {
        source.rooms.append({room.name().toString(), room.value().toString()});
        if (GuestsAtSale(room.value()) > 0)
            withGuests.append(source.rooms.last().number);
    }
    int unread = 0;
    for (qsizetype n = 0; n < withGuests.size(); ++n) {
        if (!GoesOn(progress, int(n), int(withGuests.size())))
            return {};
        const RecordRead guests = FindKfrzxx(withGuests[n]);
        source.guests.insert(withGuests[n], guests);
        unread += guests.failed();
    }
    if (unread == 0)
        return {source, {}};
    return {source,
            Notice{u"错误"_s, u"有 %1 间客房的住客没有读到，请稍候刷新再试！"_s.arg(unread)}};
}

} // namespace hotel
