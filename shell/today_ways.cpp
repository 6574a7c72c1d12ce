#include "shell/today_ways.h"

#include <algorithm>

#include "shell/main_menu.h"

namespace hotel {

namespace {

constexpr int kNone = -1;

struct Way {
    TodayKind kind;
    QStringView control; // of the entry
    QStringView screen;
    int column; // of the line: what the screen is opened with
};

// A cashier checks out who leaves, others look who it is.
constexpr Way kWays[] = {
    {TodayKind::House, u"Ftxx_cmd", u"Ftxxfrm", kNone},
    {TodayKind::House, u"Rzjd_cmd", u"RzjdFrm", kNone},
    {TodayKind::Arrivals, u"Ydgl_cmd", u"frmYD", 4},
    {TodayKind::Departures, u"Jztf_cmd", u"JztfFrm", 3},
    {TodayKind::Departures, u"Zkcx_cmd", u"KfxxFrm", 0},
    {TodayKind::Departures, u"ZxZkcx_cmd", u"KfxxFrm", 0},
    {TodayKind::Balances, u"Yecy_cmd", u"FyxxFrm", 3},
    {TodayKind::Repairs, u"Kfwh_cmd", u"frmWX", 3},
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
