#pragma once

// The rooms and beds of a folio as the cashier settles them: one row a bed of a shared room, one row for a
// room sold as a whole. The columns are known by their place:
//
//     0 结账       a blank: this one leaves; empty: stays
//     1-6          the guest's, as in the guest text (house/guests/guest_text.h)
//     7 结账房费   the last room charge, "#0.00"; empty: not decided yet
//     8-18         the guest's, or the room's where the guest text has no such field
//     19, 20       day and time of the settlement, "yyyy-MM-dd" and "HH:mm"

#include <QList>
#include <QString>
#include <QStringView>

#include <optional>

#include "house/folios/folio_totals.h"
#include "house/folios/room_charge.h"
#include "record/text_table.h"
#include "session/notice.h"

namespace hotel {

enum SettlementColumn {
    kChosenColumn = 0,
    kRoomColumn = 1,
    kGuestColumn = 2,
    kStatusColumn = 3,
    kTypeColumn = 4,
    kPriceColumn = 6,
    kChargeColumn = 7,
    kArrivalDateColumn = 9,
    kArrivalTimeColumn = 10,
    kChargedThroughColumn = 11,
    kSharesColumn = 12,
    kBedColumn = 14,
    kDocumentKindColumn = 15,
    kDocumentNumberColumn = 16,
    kLeaveDateColumn = 19,
    kLeaveTimeColumn = 20,
};

TextTable EmptySettlementList();

inline constexpr int kFolioRoomLimit = 1000;

struct SettlementFolio {
    TextTable list = EmptySettlementList(); // every row chosen
    std::optional<FolioTotals> totals;      // nothing: they could not be read
    std::optional<Notice> notice;
};
// An open folio, with its guests of whom each one's own record names it. Whether a room is listed by the
// bed is told by the guest's status; a guest text may also hold 散住客人, which no desk writes today: any
// number there but 0 means by the bed, too.
SettlementFolio LoadSettlementFolio(const QString& folio);

Notice FolioNotOpen(const QString& folio);
Notice TotalsUnread(const QString& folio);

// --- who leaves ---

bool IsChosen(const TextTable& list, int row);
void SetChosen(TextTable& list, int row, bool chosen);
QList<int> ChosenRows(const TextTable& list);
bool AllChosen(const TextTable& list);
bool LeavesBed(const TextTable& list, int row); // else the whole room
QString FirstGuest(const TextTable& list);      // name of the first one who leaves

// The chosen rows go; where only one row is left in the list, it is emptied instead.
void RemoveChosen(TextTable& list);

// --- what they owe ---

// A row's last room charge; nothing decided, or nothing that can be read, is 0.
Money ChargeOf(const TextTable& list, int row);

struct SettlementSums {
    Money roomCharges; // of those who leave
    Money spent;       // all that was charged to the folio
    Money received;    // all that was received for it

    Money due() const { return roomCharges + spent - received; }
};
SettlementSums SumsOf(const TextTable& list, const FolioTotals& totals);

// The period that the list is opened with, at this time.
PeriodChoice PeriodOf(const TextTable& list, QStringView now, QStringView today);
Notice PeriodReminder();

// Reckons the charge of everybody who leaves; one that can't be reckoned stays as it was.
void CalculateCharges(TextTable& list, ChargePeriod period, QStringView now,
                      const TextTable& rates);

} // namespace hotel
