#pragma once

// The day's sheet: what can only be known by looking into every room and every ledger, that is who is due to leave
// and what each open folio comes to. One desk looks it up, a record or two at a time, and keeps it for all of them;
// it lasts until the day is over or somebody looks again.
//
// One file a day (TodaySheetFile), a project for each part, written whole:
//
//     离店核对   a record a guest due today or earlier, numbered from 1, in the order of the rooms:
//                结账号, 房间号, 床位, 客人姓名, 预计离店
//     余额核对   a record an open folio, keyed by its number: 信用余额, "#0.00"
//
// and in both of them the record 核对 of the look itself: 时间 (HH:mm, of its beginning) and 经手人.

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include "link/records.h"

namespace hotel {

enum class SheetPart { Departures, Balances };

namespace today_sheet {
inline constexpr QStringView kChecked = u"核对";
inline constexpr QStringView kTime = u"时间";
inline constexpr QStringView kBy = u"经手人";
inline constexpr QStringView kBalance = u"信用余额";
} // namespace today_sheet

QString TodaySheetFile(QDate day);

// The part as it is kept: Absent until somebody has looked.
RecordRead LoadTodaySheet(SheetPart part, QDate day);

// Looks one part up, step by step, so that a window can do it between its user's keys:
//
//     SheetWalk walk(SheetPart::Balances, Clock::Today());
//     while (walk.step() == SheetWalk::State::Running) ...
//
// The first step reads what there is to look into, each further one a room or a ledger, and the last one writes the
// sheet. After a failed read or write the walk has failed, and the sheet that stands is left alone: half a house
// would be taken for the whole.
class SheetWalk {
public:
    enum class State { Running, Done, Failed };

    SheetWalk(SheetPart part, QDate day);

    State step();
    SheetPart part() const { return part_; }
    int done() const { return done_; }
    int total() const { return int(keys_.size()); }

private:
    bool begin();
    bool look(const QString& key);
    bool lookIntoRoom(const QString& room);
    bool lookIntoLedger(const QString& folio);
    bool save() const;

    SheetPart part_;
    QDate day_;
    QString checked_;
    State state_ = State::Running;
    bool begun_ = false;
    QStringList keys_; // rooms with guests, or open folios
    int done_ = 0;
    QStringList records_; // as they will stand, tags and all
};

} // namespace hotel
