#include "house/stays/check_in.h"

#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/guests/guest_text.h"
#include "house/guests/stay_register.h"
#include "house/rooms/room_record.h"
#include "house/rooms/room_status.h"
#include "link/records.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "session/operation_log.h"

#include <QFileInfo>

namespace hotel {

namespace {

struct Bed {
    QString tag;
    QString guest;
};

// A room with those of its guests who can be checked in.
struct RoomParty {
    QString room;
    bool sharedOnOffer = false;
    bool merges = false; // joins, bed by bed, the guests who are in the room already
    QList<Bed> beds;
};

Notice NothingTyped() {
    return {u"请先登记客人详细信息"_s, u"还没有登记客人信息，或没有有效的登记信息，无法操作！"_s};
}

Notice GuestsMissing(const QString& room) {
    return {u"请确认"_s, u"客房："_s + room + u" 客人信息还没有输入! 不能完成登记!"_s};
}

Notice MixedUse(const QString& room) {
    return {u"请确定房间使用状态"_s,
            u"客房："_s + room + u" 不能同时处于散客合住与包房类状态！不能继续"_s};
}

Notice NoValidGuest(const QString& room) {
    return {u"请确定房间客人信息"_s,
            u"客房："_s + room + u" 没有一个有效的客人登记信息？不能继续"_s};
}

Notice RoomNotSaved(const QString& room) {
    return {u"严重错误"_s, u"客房基本数据保存失败，退出系统，重新登录再试！"_s + room};
}

Notice GuestsNotSaved(const QString& room) {
    return {u"严重错误"_s, u"客房客人入住数据保存失败，退出系统，重新登录再试！"_s + room};
}

// Guests who are not valid are dropped here: whoever was left half typed is not checked in.
RoomParty PartyOf(QStringView workingSet, const ChosenRoom& room) {
    RoomParty party{.room = room.number, .sharedOnOffer = IsShared(room.status), .beds = {}};
    for (const QString& tag : BedsOfSet(workingSet, room.number)) {
        const QString guest = GuestOfSet(workingSet, room.number, tag);
        if (IsValidGuest(guest))
            party.beds.append({tag, guest});
    }
    return party;
}

// In a room sold as a whole the first bed speaks for all.
std::optional<Notice> CheckEntered(const RoomParty& party) {
    const bool entered =
        !party.beds.isEmpty() && (party.sharedOnOffer || party.beds.first().tag == GuestTag(1));
    return entered ? std::nullopt : std::optional(GuestsMissing(party.room));
}

std::optional<Notice> CheckUse(const RoomParty& party) {
    qsizetype shared = 0;
    for (const Bed& bed : party.beds)
        shared += IsShared(GetTag(bed.guest, guest_text::kStatus));
    if (shared > 0 && shared < party.beds.size())
        return MixedUse(party.room);
    return party.beds.isEmpty() ? std::optional(NoValidGuest(party.room)) : std::nullopt;
}

template<typename Check>
std::optional<Notice> FirstRefusal(const QList<RoomParty>& parties, Check check) {
    for (const RoomParty& party : parties) {
        if (const auto notice = check(party))
            return notice;
    }
    return {};
}

QList<RoomParty> PartiesOf(QStringView workingSet, const QList<ChosenRoom>& rooms) {
    QList<RoomParty> parties;
    for (const ChosenRoom& room : rooms)
        parties.append(PartyOf(workingSet, room));
    return parties;
}

// A room that can't be read counts as an empty record: its count begins with the new guests. A vacant
// room has nobody to merge with, whoever stands in its file still.
bool OccupyRoom(RoomParty& party, CheckInOutcome& outcome) {
    QString record = GetKfjbxx(party.room);
    const int present = GuestsAtSale(record);
    party.merges = party.sharedOnOffer || present > 0;
    const QString status = GetTag(party.beds.last().guest, guest_text::kStatus);
    record = SetTag(record, room_record::kGuests, FormatNumber(present + party.beds.size(), u"#0"));
    record = SetTag(record, room_record::kStatus, status);
    if (SetKfjbxx(party.room, record) != 0) {
        outcome.notice = RoomNotSaved(party.room);
        return false;
    }
    outcome.occupiedRooms.append(party.room);
    return true;
}

// The register keeps each guest as typed: a photograph stands there by its path on this workstation,
// since it is moved only afterwards. What could not be registered is told, but stops nothing.
bool StoreGuests(const RoomParty& party, CheckInOutcome& outcome) {
    for (const Bed& bed : party.beds) {
        if (SaveDtRzKrQd(bed.guest) != 0)
            outcome.notice = GuestsNotSaved(party.room);
    }
    const RecordRead present =
        party.merges ? FindKfrzxx(party.room) : RecordRead{Reading::Absent, {}};
    if (present.failed()) { // who is in the room would be overwritten
        outcome.notice = GuestsNotSaved(party.room);
        return false;
    }
    QString guests = present.value;
    for (const Bed& bed : party.beds)
        guests = SetTag(guests, bed.tag, WithUploadedPhotographs(bed.guest));
    if (SaveRmRec(party.room, guests) != 0) {
        outcome.notice = GuestsNotSaved(party.room);
        return false;
    }
    outcome.roomsWithGuests.append(party.room);
    return true;
}

// A folio that could not be written is told, but stops nothing.
void EnterInFolios(const RoomParty& party, CheckInOutcome& outcome) {
    QString stay;
    for (const Bed& bed : party.beds)
        stay = SetTag(stay, bed.tag, bed.guest);
    if (UpdateJzhByRmRec(stay) != 0)
        outcome.notice = GuestsNotSaved(party.room);
}

void LogCheckIn(const QList<RoomParty>& parties) {
    QStringList rooms;
    for (const RoomParty& party : parties)
        rooms.append(party.room);
    SaveLogRec(u"入住登记"_s, FormatNumber(rooms.size(), u"#0") + u"间客房:"_s + rooms.join(u','));
}

} // namespace

CheckInOutcome ConfirmCheckIn(const QString& workingSet, const QList<ChosenRoom>& rooms) {
    CheckInOutcome outcome;
    if (rooms.isEmpty())
        return outcome;
    if (workingSet.isEmpty()) {
        outcome.notice = NothingTyped();
        return outcome;
    }
    QList<RoomParty> parties = PartiesOf(workingSet, rooms);
    outcome.notice = FirstRefusal(parties, CheckEntered);
    if (!outcome.notice)
        outcome.notice = FirstRefusal(parties, CheckUse);
    if (outcome.notice)
        return outcome;

    for (RoomParty& party : parties) {
        if (!OccupyRoom(party, outcome))
            return outcome;
    }
    for (const RoomParty& party : parties) {
        if (!StoreGuests(party, outcome))
            return outcome;
    }
    for (const RoomParty& party : parties)
        EnterInFolios(party, outcome);
    LogCheckIn(parties);
    outcome.confirmed = true;
    outcome.firstFolio = GetTag(parties.first().beds.first().guest, guest_text::kFolio);
    return outcome;
}

QString WithUploadedPhotographs(QStringView guest) {
    QString moved = guest.toString();
    for (const QStringView tag : {guest_text::kDocumentPhotograph, guest_text::kPortrait}) {
        const QString path = GetTag(guest, tag);
        const QString name = QFileInfo(path).fileName();
        bool lost = false;
        if (QFileInfo(path).isFile()) {
            lost = UploadFile(path, GuestPhotographFile(name)) != 0;
            QFile::remove(path);
        }
        moved = SetTag(moved, tag, lost ? QString() : name);
    }
    return moved;
}

} // namespace hotel
