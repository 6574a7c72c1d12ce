#pragma once

// The rooms of the house, in the room database: one record a room, keyed by the room number exactly
// as entered.
//
//     房间号     room number
//     楼层号     floor
//     床位数     beds, "#0"
//     客房类型   room type: a 内容 of the category 客房类型
//     电话号码   extension
//     网络端口   network port
//     说明       remark
//     照片       file name of the room's picture, without its folder
//     房态       status; empty or missing: vacant (house/rooms/room_status.h)
//     住客数     guests now in the room, "#0"; missing: none
//
// And each room's own file, whose one project holds the guests that are in the room now: one field a
// bed, 客人01 to 客人10, each a guest text (house/guests/guest_text.h).

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include "record/text_table.h"

#include "link/records.h"

namespace hotel {

namespace room_record {
inline constexpr QStringView kProject = u"客房基本信息";
inline constexpr QStringView kNumber = u"房间号";
inline constexpr QStringView kFloor = u"楼层号";
inline constexpr QStringView kBeds = u"床位数";
inline constexpr QStringView kType = u"客房类型";
inline constexpr QStringView kTelephone = u"电话号码";
inline constexpr QStringView kNetworkPort = u"网络端口";
inline constexpr QStringView kRemark = u"说明";
inline constexpr QStringView kPicture = u"照片";
inline constexpr QStringView kStatus = u"房态";
inline constexpr QStringView kGuests = u"住客数";
inline constexpr QStringView kStayProject = u"客人入住信息";
} // namespace room_record

inline constexpr int kRoomLimit = 1000; // rooms of a house; further ones are not read
inline constexpr int kBedLimit = 10;    // beds of a room

// A tag of a word and a number of two digits, and such a tag of a bed's guest: "客人01".
QString NumberedTag(QStringView word, int number);
QString GuestTag(int bed);

struct RoomEntry {
    QString number;
    QString record;
};

// All rooms in the order of the room database, read in one command.
QList<RoomEntry> LoadRooms();

// The room's record; empty when there is none. FindKfjbxx tells a record that is missing from a failed read.
QString GetKfjbxx(QStringView room);
RecordRead FindKfjbxx(QStringView room);
int SetKfjbxx(QStringView room, QStringView record);

// Sets the status of a room that exists; other fields stay. 0 when it is written.
int SetKfft(QStringView room, QStringView status);

// The guests in the room, one field a bed; empty when there are none. FindKfrzxx tells an empty room from a
// failed read.
QString GetKfrzxx(QStringView room);
RecordRead FindKfrzxx(QStringView room);
int SaveRmRec(QStringView room, QStringView guests);

int BedsOfRoom(QStringView record);

// Guests in the room as a sale sees them: a vacant room has none, whatever count stands there.
int GuestsAtSale(QStringView record);

// The cells of a room in a list with these titles: each the field named by its title, empty where the
// room has none; a title that ends in 数 shows a number.
QStringList RoomCells(QStringView record, const QStringList& titles);

// Fills a list of rooms by its own titles: column 0 counts the rows, in the order of the room numbers.
void LoadkfQd(TextTable& grid);

// Shows the room's record as it is now in its row; a room that has none gets one at the end.
void UpdateKfGrid(TextTable& grid, const QString& room);

} // namespace hotel
