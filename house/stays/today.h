#pragma once

// Today: what a desk should know of the day when it opens its main window. It only reads, and in one command a part
// (two for departures and balances, which are looked up in the day's sheet, house/stays/today_sheet.h), however many
// rooms the house has. What isn't asked for isn't read: the rights decide, in the shell.
//
//     house        the rooms by status, those that are free by type
//     arrivals     reservations that begin today, or were to have begun and haven't ended; none that are 取消, 实施,
//                  完成 or 失效
//     departures   guests due to leave today or earlier who are still on an open folio
//     balances     open folios whose balance lies below a limit
//     repairs      repairs without an outcome
//
// A guest of the sheet who has left, or a folio that was closed, isn't listed any more; who has moved stands with his
// room of now; who came today to leave today is taken from the register of stays. Balances are those of the sheet.

#include <QDate>
#include <QList>
#include <QString>

#include <optional>

#include "link/records.h"
#include "record/numbers.h"
#include "record/text_table.h"

namespace hotel {

struct TodayParts {
    bool house = false;
    bool arrivals = false;
    bool departures = false;
    bool balances = false;
    bool repairs = false;
};

struct StatusShare {
    QString status; // a vacant room without one: the board's vacant word
    std::optional<int>
        colour; // as in the category, 0xBBGGRR; nothing for a status that isn't in it
    int rooms = 0;
    int guests = 0;
};

struct HouseToday {
    bool failed = false;
    QList<StatusShare> shares; // of statuses that some room has, in the order of the category
    int rooms = 0;
    int occupied = 0; // rooms with guests
    int guests = 0;
    TextTable freeByType; // 房型, 空房, 总数: every type that a room has, in the order of the rooms
};

// Of the columns, the last one names the record.
//     arrivals     客人, 间数, 预计到达, 状态, 预定单号; by day of arrival
//     departures   房间号, 客人姓名, 预计离店, 结账号; by room
//     balances     客人姓名, 房间号, 信用余额, 结账号; the lowest first
//     repairs      房间号, 维修原因, 报修日期, 维修单号; in the order of their file
struct TodayList {
    Reading outcome = Reading::Present; // Absent: the day's sheet has still to be made
    QString checkedAt = {};             // of lists from the sheet, HH:mm
    TextTable rows = {};
};

struct Today {
    QDate day;
    QString readAt; // HH:mm
    // Nothing: not asked for.
    std::optional<HouseToday> house = {};
    std::optional<TodayList> arrivals = {};
    std::optional<TodayList> departures = {};
    std::optional<TodayList> balances = {};
    std::optional<TodayList> repairs = {};
};

// The day is the clock's. Behind a read that the link lost, nothing further is tried: what is left counts as failed.
Today LoadToday(const TodayParts& parts, Money limit = {});

} // namespace hotel
