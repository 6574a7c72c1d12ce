#include "cashier/settlement_list.h"

#include "house/folios/folio.h"
#include "house/guests/guest_text.h"
#include "house/rooms/room_record.h"
#include "house/rooms/room_status.h"
#include "platform/clock.h"
#include "record/field_walk.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "tools/aids/CalcSub.h"

namespace hotel {

namespace {

const QStringList kTitles = {
    u"结账"_s,     u"房间号"_s,   u"客人姓名"_s, u"房态"_s,     u"客房类型"_s, u"房价种类"_s,
    u"确认房价"_s, u"结账房费"_s, u"特殊说明"_s, u"入住日期"_s, u"入住时间"_s, u"结算日期"_s,
    u"散住"_s,     u"付费客人"_s, u"床位"_s,     u"证件种类"_s, u"证件号码"_s, u"楼层号"_s,
    u"电话号码"_s, u"结账日期"_s, u"结账时间"_s,
};

constexpr QStringView kSharingGuest = u"散住客人";

bool IsListedByBed(QStringView guest) {
    return IsShared(GetTag(guest, guest_text::kStatus)) ||
           LeadingNumber(GetTag(guest, kSharingGuest)) != 0;
}

QStringList CellsOf(QStringView guest, QStringView room) {
    QStringList cells = RoomCells(guest, kTitles);
    const QStringList ofRoom = RoomCells(room, kTitles);
    for (qsizetype column = 0; column < cells.size(); ++column) {
        if (cells[column].isEmpty())
            cells[column] = ofRoom[column];
    }
    return cells;
}

void AddRoom(TextTable& list, QStringView room, QStringView folio) {
    const QString record = GetKfjbxx(room);
    const QString stay = GetKfrzxx(room);
    for (int bed = 1; bed <= kBedLimit; ++bed) {
        const QString guest = GetTag(stay, GuestTag(bed));
        if (guest.isEmpty() || GetTag(guest, guest_text::kFolio) != folio)
            continue;
        list.addRow(CellsOf(guest, record));
        if (!IsListedByBed(guest))
            return;
    }
}

void AddRoomsOf(TextTable& list, QStringView folio, QStringView folioRecord) {
    FieldWalk field(folioRecord);
    for (int n = 0; n < kFolioRoomLimit && field.next(); ++n) {
        if (field.name() != folio_record::kPayer && !field.value().isEmpty())
            AddRoom(list, field.name(), folio);
    }
}

void ChooseAll(TextTable& list) {
    const QDateTime now = Clock::Now();
    for (int row = 1; row < list.rows(); ++row) {
        SetChosen(list, row, true);
        list.setText(row, kLeaveDateColumn, now.toString(u"yyyy-MM-dd"));
        list.setText(row, kLeaveTimeColumn, now.toString(u"HH:mm"));
    }
}

} // namespace

TextTable EmptySettlementList() {
    return TextTable(kTitles);
}

SettlementFolio LoadSettlementFolio(const QString& folio) {
    SettlementFolio loaded;
    const QString record = FindOpenFolio(folio).value_or(QString());
    if (record.isEmpty()) {
        loaded.notice = FolioNotOpen(folio);
        return loaded;
    }
    AddRoomsOf(loaded.list, folio, record);
    ChooseAll(loaded.list);
    loaded.totals = LoadFolioTotals(folio);
    if (!loaded.totals)
        loaded.notice = TotalsUnread(folio);
    return loaded;
}

Notice FolioNotOpen(const QString& folio) {
    return {u"注意"_s, u"结账号："_s + folio};
}

Notice TotalsUnread(const QString& folio) {
    return {u"不能结账"_s, u"结账号："_s + folio + u" 的费用读取失败，没有结账！请稍候再试！"_s};
}

bool IsChosen(const TextTable& list, int row) {
    return !list.text(row, kChosenColumn).isEmpty();
}

void SetChosen(TextTable& list, int row, bool chosen) {
    list.setText(row, kChosenColumn, chosen ? u" "_s : QString());
}

QList<int> ChosenRows(const TextTable& list) {
    QList<int> rows;
    for (int row = 1; row < list.rows(); ++row) {
        if (IsChosen(list, row))
            rows.append(row);
    }
    return rows;
}

bool AllChosen(const TextTable& list) {
    return ChosenRows(list).size() == list.dataRows();
}

bool LeavesBed(const TextTable& list, int row) {
    return LeadingNumber(list.text(row, kSharesColumn)) != 0;
}

QString FirstGuest(const TextTable& list) {
    return list.text(ChosenRows(list).value(0, -1), kGuestColumn);
}

void RemoveChosen(TextTable& list) {
    const QList<int> rows = ChosenRows(list);
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        if (list.dataRows() == 1)
            list.setRow(*row, {});
        else
            list.removeRow(*row);
    }
}

Money ChargeOf(const TextTable& list, int row) {
    return AmountFromCell(list.text(row, kChargeColumn)).orZero();
}

SettlementSums SumsOf(const TextTable& list, const FolioTotals& totals) {
    SettlementSums sums{.roomCharges = {}, .spent = totals.charges, .received = totals.received};
    for (const int row : ChosenRows(list))
        sums.roomCharges += ChargeOf(list, row);
    return sums;
}

PeriodChoice PeriodOf(const TextTable& list, QStringView now, QStringView today) {
    std::optional<FirstLeaving> first;
    if (const QList<int> rows = ChosenRows(list); !rows.isEmpty())
        first = FirstLeaving{list.text(rows.first(), kChargedThroughColumn),
                             list.text(rows.first(), kArrivalTimeColumn)};
    return SettlementPeriod(now, ChargeTimesInUse(), first, today);
}

Notice PeriodReminder() {
    return {u"提醒"_s, u"请注意手工计算房费，直接填写房间费用，或者该结账号费用特别结算,!"_s};
}

void CalculateCharges(TextTable& list, ChargePeriod period, QStringView now,
                      const TextTable& rates) {
    for (const int row : ChosenRows(list)) {
        const ChargedStay stay{list.text(row, kStatusColumn), list.text(row, kPriceColumn),
                               list.text(row, kArrivalTimeColumn), list.text(row, kTypeColumn)};
        if (const auto charge = LastCharge(stay, period, now, rates))
            list.setText(row, kChargeColumn, *charge);
    }
}

} // namespace hotel
