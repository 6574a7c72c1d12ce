#pragma once

// Folios: the accounts that collect what a guest or a party owes and has paid.
//
// A folio is named by a number of twelve digits (house/common/folio_number.h). While it is open its record stands in the open-folio file, keyed by the number:
//
//     基本信息        the paying guest's entry, as below
//     a room number   one field a room, whose value is one field a bed, 床位01 to 床位10, each an entry
//
// An entry holds of the guest: 客人姓名, 散住, 付费客人, 证件号码.
//
// Every folio has a ledger file of its own, which stays for ever. The charges are in seven projects
// (house/folios/folio_posting.h); three more are written as a folio or a room comes to its end, their records
// numbered from 1, with 序号 (the record's own key) and 日期时间 ("yyyy-MM-dd HH:mm") added:
//
//     结账号基本信息   the open record, each time before it is changed or retired
//     结账信息         the settlement
//     住宿信息         the stay record of a room that leaves the folio, with 房间号 added
//
// A folio without rooms is dead and is retired: its record moves to the retired-folio file of the day.
//
// A folio that is not there counts as an empty record throughout; one that can't be read is left as it is, and the
// status says so.
// Every write is tried twice, and a status is the sum of the writes' results: 0 when all are done. There is
// no lock.

#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

#include "house/common/folio_number.h"
#include "house/common/walk_progress.h"

namespace hotel {

namespace folio_record {
inline constexpr QStringView kProject = u"结账号信息";
inline constexpr QStringView kPayer = u"基本信息";
inline constexpr QStringView kSerial = u"序号";
inline constexpr QStringView kMoment = u"日期时间";
inline constexpr QStringView kRoom = u"房间号";
inline constexpr QStringView kFolio = u"结账号";
inline constexpr QStringView kHistoryProject = u"结账号基本信息";
inline constexpr QStringView kSettlementProject = u"结账信息";
inline constexpr QStringView kStayProject = u"住宿信息";
} // namespace folio_record

inline constexpr int kFolioListLimit = 10000;
inline constexpr int kFolioCheckLimit = 1000; // folios, and fields of one, that Jzhjc looks at

// Tag of a bed's entry in a folio: "床位01".
QString BedTag(int bed);

// The open record; nothing when the folio isn't open. A folio whose last room has left may be empty.
std::optional<QString> FindOpenFolio(QStringView folio);

// All open folios in the order of their file.
QStringList LoadJzhQd();

// Enters the guests of a stay record (one field a bed) in the folios they name. Makes the folio that
// isn't there yet; the first paying guest becomes its 基本信息. One read and one write a folio.
int UpdateJzhByRmRec(const QString& stayRecord);

// Take a room, or a guest's bed, off a folio; the record before is kept in the ledger. Where the bed
// isn't entered, the whole room goes. A folio that isn't open is left alone.
int DelRmFromJzh(QStringView folio, QStringView room);
int DelKrFromJzh(QStringView folio, QStringView room, int bed);

// Retires an open folio.
int DelJzh(QStringView folio);

// Retires the folios that hold no room any more. Rooms are told by their names, which begin with a
// number above 0: a folio whose rooms are all named by letters is retired, deliberately. False when it
// was stopped.
bool Jzhjc(const WalkProgress& progress = {});

// Append to the ledger: the open record as it stands, a settlement, the stay of a room.
int SaveJzhLsRec(QStringView folio, const QString& openRecord);
int SaveJzhJzRec(QStringView folio, const QString& settlement);
int SaveRmLsToJzh(QStringView folio, QStringView room, const QString& stayRecord);

// The last record of a ledger project: how a retired folio shows its last state. Empty when there is
// none.
QString LoadJzhLastRec(QStringView folio, QStringView project);

} // namespace hotel
