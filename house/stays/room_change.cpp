#include "house/stays/room_change.h"

#include "house/common/folio_number.h"
#include "house/folios/folio.h"
#include "house/guests/guest_text.h"
#include "house/guests/working_set.h"
#include "house/rooms/room_record.h"
#include "link/records.h"
#include "record/field_walk.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "session/operation_log.h"

#include <algorithm>

namespace hotel {

namespace {

using namespace guest_text;

Notice Unread() {
    return {kUnreadTitle.toString(), kUnreadWords.toString()};
}

Notice RoomNotSaved() {
    return {u"严重错误"_s, u"客房基本状态数据保存失败，退出系统，重新登录再试！"_s};
}

Notice GuestsNotSaved(const QString& room) {
    return {u"严重错误"_s, u"客房客人入住数据保存失败，退出系统，重新登录再试！"_s + room};
}

QString BlankGuests(QStringView oldRecord) {
    QString guests;
    for (int bed = 1; bed <= std::min(BedsOfRoom(oldRecord), kBedLimit); ++bed)
        guests = SetTag(guests, GuestTag(bed), SetTag(QString(), kBed, FormatNumber(bed, u"#0")));
    return guests;
}

QString Rewritten(QStringView guest, const RoomChange& change, const QString& newType, int number) {
    QString moved = SetTag(guest.toString(), kRoom, change.newRoom);
    moved = SetTag(moved, kRoomType, newType);
    moved = SetTag(moved, kBed, FormatNumber(number, u"#0"));
    const QString remark = GetTag(guest, kRemark);
    const QString history = u"从"_s + change.oldRoom + u"因为:" + change.reason + u"换房";
    return SetTag(moved, kRemark, remark.isEmpty() ? history : remark + u',' + history);
}

// A guest as valid as at check-in, but for the price and the folio, which are refused with words of their own.
bool MayMove(QStringView guest) {
    return (TestKrRecFail(guest) & ~(kLacksPrice | kLacksFolio)) == 0;
}

// The first guest speaks for all; of the folio it only matters here that one is named.
bool IsVerified(QStringView firstGuest) {
    const int lack = TestKrRecFail(firstGuest);
    return lack == 0 || (lack == kLacksFolio && !GetTag(firstGuest, kFolio).isEmpty());
}

QStringList MovingGuests(QStringView guests) {
    QStringList moving;
    for (FieldWalk guest(guests); guest.next();) {
        if (MayMove(guest.value()))
            moving.append(guest.value().toString());
    }
    return moving;
}

std::optional<Notice> CheckGuests(const QString& room, QStringView guests) {
    if (!IsVerified(GetTag(guests, GuestTag(1))))
        return Notice{u"请确认"_s, u"客房："_s + room + u" 客人信息还没有落实验证！不能继续"};
    const QStringList moving = MovingGuests(guests);
    for (const QString& guest : moving) {
        if (GetTag(guest, kPrice).isEmpty())
            return Notice{u"请确定房价"_s,
                          u"客房："_s + room + u" 客人房价信息还没有确定！不能继续"};
    }
    for (const QString& guest : moving) {
        if (GetTag(guest, kFolio).size() != kFolioLength)
            return Notice{u"请确定结账号"_s,
                          u"客房："_s + room + u" 客人结账号还没有确定或结账号错误！不能继续"};
    }
    return {};
}

// The room's record with `change` made in it; a room that isn't there any more can't be written.
template<typename Change>
bool ChangeRoom(QStringView room, Change change) {
    const RecordRead read = FindKfjbxx(room);
    return read.outcome == Reading::Present && SetKfjbxx(room, change(read.value)) == 0;
}

// `wasTaken`: the new guests join those who are in the room.
bool OccupyNewRoom(const QString& room, QStringView status, qsizetype moving, bool& wasTaken) {
    return ChangeRoom(room, [&](const QString& record) {
        const qint64 present = qint64(LeadingNumber(GetTag(record, room_record::kGuests)));
        wasTaken = present > 0;
        const QString counted =
            SetTag(record, room_record::kGuests, FormatNumber(present + moving, u"#0"));
        return SetTag(counted, room_record::kStatus, status);
    });
}

bool LeaveOldRoom(const QString& room, QStringView status) {
    return ChangeRoom(room, [&](const QString& record) {
        return SetTag(SetTag(record, room_record::kGuests, u"0"), room_record::kStatus, status);
    });
}

// The new room's guests with those who move in its free beds. Nothing when who is in the room can't be read. A room that
// counts no guests has nobody to join, whoever moved out of it and stands in its file still.
std::optional<QString> WithMoved(const QString& room, bool wasTaken, const QStringList& moving) {
    const RecordRead present = wasTaken ? FindKfrzxx(room) : RecordRead{Reading::Absent, {}};
    const RecordRead record = FindKfjbxx(room);
    if (present.failed() || record.failed())
        return {};
    QString guests = present.value;
    const int beds = std::min(BedsOfRoom(record.value), kBedLimit);
    int bed = 1;
    for (const QString& guest : moving) {
        while (bed <= beds && !GetTag(guests, GuestTag(bed)).isEmpty())
            ++bed;
        if (bed > beds)
            break;
        guests = SetTag(guests, GuestTag(bed), guest);
    }
    return guests;
}

// A folio that could not be written is told, but stops nothing.
bool UpdateFolios(const RoomChange& change, const QString& newGuests, const QStringList& moving) {
    int result = UpdateJzhByRmRec(newGuests);
    for (const QString& guest : moving)
        result += DelRmFromJzh(GetTag(guest, kFolio), change.oldRoom);
    return result == 0;
}

} // namespace

std::optional<Notice> RefuseRooms(const RoomChange& change) {
    const QString title = u"必要参数不全"_s;
    if (change.oldRoom.isEmpty())
        return Notice{title, u"换房当然要先选择原房间！"_s};
    if (change.newRoom.isEmpty())
        return Notice{title, u"换房也要选择新房间！"_s};
    if (change.reason.isEmpty())
        return Notice{title, u"换房也要选择输入换房原因！"_s};
    if (change.newRoom == change.oldRoom)
        return Notice{title, u"新房间不能就是原房间！"_s};
    return {};
}

PreparedChange PrepareRoomChange(const RoomChange& change) {
    const RecordRead stay = FindKfrzxx(change.oldRoom);
    const RecordRead oldRecord = FindKfjbxx(change.oldRoom);
    const RecordRead newRecord = FindKfjbxx(change.newRoom);
    if (stay.failed() || oldRecord.failed() || newRecord.failed())
        return {{}, Unread()};
    const QString present = stay.value.isEmpty() ? BlankGuests(oldRecord.value) : stay.value;
    const QString type = GetTag(newRecord.value, room_record::kType);
    QString guests;
    int number = 0;
    for (FieldWalk guest(present); guest.next();) {
        ++number;
        guests = SetTag(guests, GuestTag(number), Rewritten(guest.value(), change, type, number));
    }
    return {SetTag(QString(), change.newRoom, guests), {}};
}

RoomChangeOutcome ConfirmRoomChange(const RoomChange& change, QStringView workingSet) {
    RoomChangeOutcome outcome;
    outcome.notice = RefuseRooms(change);
    if (outcome.notice)
        return outcome;
    const QString guests = GetTag(workingSet, change.newRoom);
    if (guests.isEmpty())
        outcome.notice = Notice{u"请先确认客人详细信息"_s,
                                u"还没有再次确认客人信息，或没有有效的换房客人信息，无法操作！"_s};
    else
        outcome.notice = CheckGuests(change.newRoom, guests);
    if (outcome.notice)
        return outcome;

    const QStringList moving = MovingGuests(guests);
    const QString status = GetTag(GetTag(guests, GuestTag(1)), kStatus);
    bool wasTaken = false;
    if (!OccupyNewRoom(change.newRoom, status, moving.size(), wasTaken) ||
        !LeaveOldRoom(change.oldRoom, change.statusAfter)) {
        outcome.notice = RoomNotSaved();
        return outcome;
    }
    const auto newGuests = WithMoved(change.newRoom, wasTaken, moving);
    if (!newGuests || SaveRmRec(change.newRoom, *newGuests) != 0) {
        outcome.notice = GuestsNotSaved(change.newRoom);
        return outcome;
    }
    if (!UpdateFolios(change, *newGuests, moving))
        outcome.notice = GuestsNotSaved(change.newRoom);
    SaveLogRec(u"客人换房"_s,
               u"从"_s + change.oldRoom + u"因为:" + change.reason + u"换房到" + change.newRoom);
    outcome.confirmed = true;
    return outcome;
}

} // namespace hotel
