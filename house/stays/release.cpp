#include "house/stays/release.h"

#include <algorithm>

#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/guests/departures.h"
#include "house/rooms/room_record.h"
#include "link/records.h"
#include "record/numbers.h"
#include "record/record_text.h"

namespace hotel {

namespace {

QString WithDeparture(const QString& guest, const Leaving& leaving) {
    QString left = SetTag(guest, departures::kCharge, leaving.charge);
    left = SetTag(left, departures::kDate, leaving.date);
    return SetTag(left, departures::kTime, leaving.time);
}

RecordRead ReadStay(QStringView room) {
    return ReadProjectToChange(RoomFile(room), room_record::kStayProject);
}

// A room that is no longer one of the house has nothing to be freed.
template<typename Change>
int ChangeRoomRecord(QStringView room, Change change) {
    const RecordRead record = ReadToChange(RoomDatabaseFile(), room_record::kProject, room);
    if (record.failed())
        return -1;
    return record.outcome == Reading::Absent ? 0 : change(record.value);
}

// Somebody who has left the bed meanwhile is not registered again.
int ClearBed(const Leaving& leaving) {
    const RecordRead stay = ReadStay(leaving.room);
    if (stay.failed())
        return -1;
    const QString tag = GuestTag(leaving.bed);
    const QString guest = GetTag(stay.value, tag);
    if (guest.isEmpty())
        return 0;
    const QString left = WithDeparture(guest, leaving);
    int result = SaveRmLsToJzh(leaving.folio, leaving.room, SetTag(stay.value, tag, left));
    result += SaveDtldKrQd(left);
    return result + SaveRmRec(leaving.room, SetTag(stay.value, tag, {}));
}

int ClearAllBeds(const Leaving& leaving) {
    const RecordRead read = ReadStay(leaving.room);
    if (read.failed())
        return -1;
    QString stay = read.value;
    int result = 0;
    for (int bed = 1; bed <= kBedLimit; ++bed) {
        const QString guest = GetTag(stay, GuestTag(bed));
        if (guest.isEmpty())
            break;
        const QString left = WithDeparture(guest, leaving);
        stay = SetTag(stay, GuestTag(bed), left);
        result += SaveDtldKrQd(left);
    }
    result += SaveRmLsToJzh(leaving.folio, leaving.room, stay);
    return result + SaveRmRec(leaving.room, {});
}

// A count that was wrong before still comes to its end.
int CountOneLess(QStringView room, QStringView statusAfter) {
    return ChangeRoomRecord(room, [&](const QString& record) {
        const int present = int(LeadingNumber(GetTag(record, room_record::kGuests)));
        const int left = std::max(0, present - 1);
        const QString freed =
            left == 0 ? SetTag(record, room_record::kStatus, statusAfter) : record;
        return SetKfjbxx(room, SetTag(freed, room_record::kGuests, FormatNumber(left, u"#0")));
    });
}

int CountNobody(QStringView room, QStringView statusAfter) {
    return ChangeRoomRecord(room, [&](const QString& record) {
        const int result = SetKfjbxx(room, SetTag(record, room_record::kGuests, {}));
        return result + SetKfft(room, statusAfter);
    });
}

} // namespace

int ReleaseBed(const Leaving& leaving, QStringView statusAfter) {
    const int cleared = ClearBed(leaving);
    return cleared + CountOneLess(leaving.room, statusAfter);
}

int ReleaseRoom(const Leaving& leaving, QStringView statusAfter) {
    const int cleared = ClearAllBeds(leaving);
    return cleared + CountNobody(leaving.room, statusAfter);
}

} // namespace hotel
