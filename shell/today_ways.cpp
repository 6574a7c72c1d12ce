#include "shell/today_ways.h"

#include <algorithm>

#include "shell/main_menu.h"

namespace hotel {

namespace {

constexpr int kNone = -1;

struct Way {
    TodayKind kind;
    int column;          // of the line: what the screen is opened with
    QStringView control; // of the entry
    QStringView screen;
};

// A cashier checks out who leaves, others look who it is.
constexpr Way kWays[] = {
    {TodayKind::House, kNone, u"Ftxx_cmd", u"Ftxxfrm"},
    {TodayKind::House, kNone, u"Rzjd_cmd", u"RzjdFrm"},
    {TodayKind::Arrivals, 4, u"Ydgl_cmd", u"frmYD"},
    {TodayKind::Departures, 3, u"Jztf_cmd", u"JztfFrm"},
    {TodayKind::Departures, 0, u"Zkcx_cmd", u"KfxxFrm"},
    {TodayKind::Departures, 0, u"ZxZkcx_cmd", u"KfxxFrm"},
    {TodayKind::Balances, 3, u"Yecy_cmd", u"FyxxFrm"},
    {TodayKind::Repairs, 3, u"Kfwh_cmd", u"frmWX"},
};

const Way* OfferedWay(TodayKind kind) {
    const auto* way = std::ranges::find_if(
        kWays, [kind](const Way& each) { return each.kind == kind && OfferedEntry(each.control); });
    return way == std::end(kWays) ? nullptr : way;
}

} // namespace

TodayParts PartsByRights() {
    const auto mayKnow = [](TodayKind kind) { return OfferedWay(kind) != nullptr; };
    return {.house = mayKnow(TodayKind::House),
            .arrivals = mayKnow(TodayKind::Arrivals),
            .departures = mayKnow(TodayKind::Departures),
            .balances = mayKnow(TodayKind::Balances),
            .repairs = mayKnow(TodayKind::Repairs)};
}

std::optional<TodayWay> WayOfLine(TodayKind kind, const QStringList& cells) {
    const Way* way = OfferedWay(kind);
    if (!way)
        return {};
    return TodayWay{OfferedEntry(way->control), way->screen, cells.value(way->column)};
}

} // namespace hotel
