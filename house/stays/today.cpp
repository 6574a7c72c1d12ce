#include "house/stays/today.h"

#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/folios/folio_summary.h"
#include "house/guests/guest_text.h"
#include "house/guests/stay_register.h"
#include "house/rooms/room_record.h"
#include "house/rooms/room_status.h"
#include "house/stays/board.h"
#include "house/stays/repairs.h"
#include "house/stays/reservations.h"
#include "house/stays/today_sheet.h"
#include "link/Wck_comm.h"
#include "platform/clock.h"
#include "record/field_walk.h"
#include "record/record_text.h"
#include "tools/aids/categories.h"

#include <algorithm>

namespace hotel {

namespace {

// Reads until the link is lost; each further read would wait for it again.
class Reader {
public:
    RecordRead project(QStringView file, QStringView name) {
        return read([&] { return ReadProjectToChange(file, name); });
    }
    RecordRead sheet(SheetPart part, QDate day) {
        return read([&] { return LoadTodaySheet(part, day); });
    }

private:
    template<typename Read>
    RecordRead read(Read read) {
        if (lost_)
            return {};
        RecordRead result = read();
        lost_ = result.failed() && !Link().isUp();
        return result;
    }

    bool lost_ = false;
};

QDate Day(QStringView record, QStringView tag) {
    return QDate::fromString(GetTag(record, tag), Qt::ISODate);
}

// --- the house ---

QList<StatusShare> SharesOf(const StatusPlaces& places) {
    QList<StatusShare> shares;
    for (const StatusPlace& place : places) {
        if (!place.word.isEmpty())
            shares.append({.status = place.word, .colour = place.colour});
    }
    return shares;
}

// The line of a status; a status that the board doesn't know gets one of its own.
StatusShare& ShareOf(QList<StatusShare>& shares, const QString& status) {
    const auto found = std::ranges::find(shares, status, &StatusShare::status);
    if (found != shares.end())
        return *found;
    shares.append({.status = status, .colour = {}});
    return shares.last();
}

// The word for a room without a status.
QString VacantWord(const QList<StatusShare>& shares) {
    const auto found = std::ranges::find_if(
        shares, [](const StatusShare& share) { return IsVacantWord(share.status); });
    return found == shares.end() ? kVacantRoom.toString() : found->status;
}

void CountByType(TextTable& types, const QString& type, bool isFree) {
    int row = types.find(0, type);
    if (row < 0)
        row = types.addRow({type, u"0"_s, u"0"_s});
    types.setText(row, 1, QString::number(types.text(row, 1).toInt() + (isFree ? 1 : 0)));
    types.setText(row, 2, QString::number(types.text(row, 2).toInt() + 1));
}

HouseToday LoadHouse(Reader& reader) {
    const RecordRead rooms = reader.project(RoomDatabaseFile(), room_record::kProject);
    const RecordRead statuses = reader.project(CategoryFile(), category::kRoomStates);
    HouseToday house;
    house.freeByType.setHeaders({u"房型"_s, u"空房"_s, u"总数"_s});
    house.failed = rooms.failed() || statuses.failed();
    if (house.failed)
        return house;
    house.shares = SharesOf(PlacesOfCategory(statuses.value));
    const QString vacant = VacantWord(house.shares);
    FieldWalk room(rooms.value);
    while (house.rooms < kRoomLimit && room.next()) {
        const QString given = GetTag(room.value(), room_record::kStatus);
        const QString status = given.isEmpty() ? vacant : given;
        const int guests = GuestsAtSale(room.value());
        StatusShare& share = ShareOf(house.shares, status);
        ++share.rooms;
        share.guests += guests;
        ++house.rooms;
        house.guests += guests;
        house.occupied += guests > 0 ? 1 : 0;
        CountByType(house.freeByType, GetTag(room.value(), room_record::kType), IsVacant(status));
    }
    house.shares.removeIf([](const StatusShare& share) { return share.rooms == 0; });
    return house;
}

// --- reservations and repairs ---

bool IsExpected(QStringView reservation, QDate today) {
    if (!IsToCome(GetTag(reservation, reservation::kState)))
        return false;
    const QDate arrival = Day(reservation, reservation::kArrival);
    return arrival == today || (arrival.isValid() && arrival < today &&
                                Day(reservation, reservation::kDeparture) >= today);
}

QString WhoComes(QStringView reservation) {
    QStringList names = {GetTag(reservation, reservation::kGuest),
                         GetTag(reservation, reservation::kCompany)};
    names.removeAll({});
    return names.join(u' ');
}

TodayList LoadArrivals(Reader& reader, QDate today) {
    const RecordRead read = reader.project(ReservationPlans().file(), reservation::kProject);
    TodayList list{.rows =
                       TextTable({u"客人"_s, u"间数"_s, u"预计到达"_s, u"状态"_s, u"预定单号"_s})};
    if (read.failed())
        list.outcome = Reading::Failed;
    for (FieldWalk plan(read.value); plan.next();) {
        if (IsExpected(plan.value(), today))
            list.rows.addRow({WhoComes(plan.value()), GetTag(plan.value(), reservation::kRooms),
                              GetTag(plan.value(), reservation::kArrival),
                              GetTag(plan.value(), reservation::kState), plan.name().toString()});
    }
    list.rows.sort(2, TextTable::Order::Text);
    return list;
}

TodayList LoadRepairs(Reader& reader) {
    const RecordRead read = reader.project(RepairPlans().file(), repair::kProject);
    TodayList list{.rows = TextTable({u"房间号"_s, u"维修原因"_s, u"报修日期"_s, u"维修单号"_s})};
    if (read.failed())
        list.outcome = Reading::Failed;
    for (FieldWalk plan(read.value); plan.next();) {
        if (GetTag(plan.value(), repair::kOutcome).isEmpty())
            list.rows.addRow({GetTag(plan.value(), repair::kRoom),
                              GetTag(plan.value(), repair::kReason),
                              GetTag(plan.value(), repair::kReported), plan.name().toString()});
    }
    return list;
}

// --- departures and balances ---

// Of a list that the day's sheet and the open folios make, whether it can be made; `folios` is read once for both.
Reading OutcomeOf(const RecordRead& sheet, const RecordRead& folios) {
    if (sheet.failed() || folios.failed())
        return Reading::Failed;
    return sheet.outcome;
}

QString CheckedAt(const RecordRead& sheet) {
    return GetTag(GetTag(sheet.value, today_sheet::kChecked), today_sheet::kTime);
}

// Who is on the open folios. Each bed answers for one guest.
class BedsTaken {
public:
    explicit BedsTaken(QStringView openFolios) {
        for (FieldWalk folio(openFolios); folio.next();) {
            for (FieldWalk room(folio.value()); room.next();) {
                if (room.name() == folio_record::kPayer)
                    continue;
                for (FieldWalk bed(room.value()); bed.next();)
                    beds_[folio.name().toString()].append({room.name().toString(),
                                                           bed.name().toString(),
                                                           GetTag(bed.value(), guest_text::kName)});
            }
        }
    }

    // Where the guest is now: his own bed if he is still in it, else another bed of his folio under his name. Nothing
    // when he has left, or has been found already.
    std::optional<QString> claim(QStringView guest) {
        QList<Bed>& beds = beds_[GetTag(guest, guest_text::kFolio)];
        const QString name = GetTag(guest, guest_text::kName);
        const QString room = GetTag(guest, guest_text::kRoom);
        const QString tag = BedTag(int(LeadingNumber(GetTag(guest, guest_text::kBed))));
        auto found = std::ranges::find_if(beds, [&](const Bed& bed) {
            return bed.name == name && bed.room == room && bed.tag == tag;
        });
        if (found == beds.end())
            found = std::ranges::find(beds, name, &Bed::name);
        if (found == beds.end())
            return {};
        const QString where = found->room;
        beds.erase(found);
        return where;
    }

private:
    struct Bed {
        QString room;
        QString tag;
        QString name;
    };
    QHash<QString, QList<Bed>> beds_; // by folio
};

void AddLeaving(TextTable& rows, QStringView guest, BedsTaken& beds) {
    if (const auto room = beds.claim(guest))
        rows.addRow({*room, GetTag(guest, guest_text::kName), GetTag(guest, guest_text::kDeparture),
                     GetTag(guest, guest_text::kFolio)});
}

TodayList LoadDepartures(Reader& reader, const RecordRead& folios, QDate today) {
    const RecordRead sheet = reader.sheet(SheetPart::Departures, today);
    const RecordRead arrived = reader.project(StayRegisterFile(today.toString(Qt::ISODate), today),
                                              stay_register::kProject);
    TodayList list{.outcome = arrived.failed() ? Reading::Failed : OutcomeOf(sheet, folios),
                   .checkedAt = CheckedAt(sheet),
                   .rows = TextTable({u"房间号"_s, u"客人姓名"_s, u"预计离店"_s, u"结账号"_s})};
    if (list.outcome != Reading::Present)
        return list;
    BedsTaken beds(folios.value);
    for (FieldWalk guest(sheet.value); guest.next();) {
        if (guest.name() != today_sheet::kChecked)
            AddLeaving(list.rows, guest.value(), beds);
    }
    for (FieldWalk guest(arrived.value); guest.next();) {
        if (const QDate departure = Day(guest.value(), guest_text::kDeparture);
            departure.isValid() && departure <= today)
            AddLeaving(list.rows, guest.value(), beds);
    }
    list.rows.sort(0, TextTable::Order::Natural);
    return list;
}

QString RoomsInShort(const QStringList& rooms) {
    return rooms.size() < 2 ? rooms.value(0) : u"%1等%2间"_s.arg(rooms.first()).arg(rooms.size());
}

TodayList LoadBalances(Reader& reader, const RecordRead& folios, QDate today, Money limit) {
    const RecordRead sheet = reader.sheet(SheetPart::Balances, today);
    TodayList list{.outcome = OutcomeOf(sheet, folios),
                   .checkedAt = CheckedAt(sheet),
                   .rows = TextTable({u"客人姓名"_s, u"房间号"_s, u"信用余额"_s, u"结账号"_s})};
    if (list.outcome != Reading::Present)
        return list;
    QHash<QString, QString> balances;
    for (FieldWalk folio(sheet.value); folio.next();)
        balances.insert(folio.name().toString(), GetTag(folio.value(), today_sheet::kBalance));
    for (FieldWalk folio(folios.value); folio.next();) {
        const QString balance = balances.value(folio.name().toString());
        if (balance.isEmpty() || Money::FromText(balance) >= limit)
            continue;
        const FolioSummary summary = SummaryOf(folio.value());
        list.rows.addRow(
            {summary.payer, RoomsInShort(summary.rooms), balance, folio.name().toString()});
    }
    list.rows.sort(2, TextTable::Order::Number);
    return list;
}

} // namespace

Today LoadToday(const TodayParts& parts, Money limit) {
    Today today{.day = Clock::Today(), .readAt = Clock::TimeText().left(5)};
    Reader reader;
    if (parts.house)
        today.house = LoadHouse(reader);
    if (parts.arrivals)
        today.arrivals = LoadArrivals(reader, today.day);
    if (parts.departures || parts.balances) {
        const RecordRead folios = reader.project(OpenFolioFile(), folio_record::kProject);
        if (parts.departures)
            today.departures = LoadDepartures(reader, folios, today.day);
        if (parts.balances)
            today.balances = LoadBalances(reader, folios, today.day, limit);
    }
    if (parts.repairs)
        today.repairs = LoadRepairs(reader);
    return today;
}

} // namespace hotel
