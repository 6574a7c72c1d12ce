#include "personnel/attendance/day_presence.h"

#include "personnel/attendance/punch_decision.h"

namespace hotel {

namespace {

// Columns of the list of punches.
struct PunchColumn {
    int time;
    int state;
    int shift;
    int function;
    int mode;
};

const PunchColumn& Column() {
    static const PunchColumn column = [] {
        const TextTable list(PunchColumns());
        return PunchColumn{list.column(punch_record::kTime), list.column(punch_record::kState),
                           list.column(punch_record::kShift), list.column(punch_record::kFunction),
                           list.column(punch_record::kMode)};
    }();
    return column;
}

} // namespace

bool IsOvertimePunch(const TextTable& punches, int row) {
    const QStringList& cells = punches.row(row);
    const QString& function = cells[Column().function];
    return (function.isEmpty() || function == punch_word::kUnknown) &&
           (cells[Column().state] == punch_word::kOvertime ||
            cells[Column().mode] == punch_word::kOvertime);
}

Presence PresenceIn(const ShiftPeriod& period, const TextTable& punches, const QList<int>& rows,
                    QSet<int>& taken) {
    Presence presence;
    for (const int row : rows) {
        const QStringList& cells = punches.row(row);
        if (cells[Column().shift] != period.name || IsOvertimePunch(punches, row))
            continue;
        if (cells[Column().state] == punch_word::kAtWork)
            presence.between = presence.between ? presence.between : row;
        else if (cells[Column().function] == punch_word::kArrival)
            presence.arrival = presence.arrival ? presence.arrival : row;
        else if (cells[Column().function] == punch_word::kDeparture)
            presence.departure = row;
    }
    const auto minute = [&](int row) { return CompuMin(punches.row(row)[Column().time]); };
    const auto free = [&](int row) {
        return IsOvertimePunch(punches, row) && !taken.contains(row);
    };
    for (qsizetype i = 0; i < rows.size() && !presence.arrival; ++i) {
        if (free(rows[i]) && (period.isNight() || minute(rows[i]) < period.end)) {
            presence.arrival = rows[i];
            presence.arrivalAdopted = true;
            taken.insert(rows[i]);
        }
    }
    for (qsizetype i = rows.size() - 1; i >= 0 && !presence.departure; --i) {
        if (free(rows[i]) && (period.isNight() || minute(rows[i]) > period.start)) {
            presence.departure = rows[i];
            presence.departureAdopted = true;
            taken.insert(rows[i]);
        }
    }
    return presence;
}

} // namespace hotel
