#pragma once

// The register of departures: one file a day of departure, its records numbered from 1, each a guest
// text (house/guests/guest_text.h) with what check-out adds: 结账房费 (the last room charge), 结账日期
// and 结账时间. Check-out only adds to it.

#include <QString>
#include <QStringView>

namespace hotel {

namespace departures {
inline constexpr QStringView kProject = u"离店客人记录";
inline constexpr QStringView kCharge = u"结账房费";
inline constexpr QStringView kDate = u"结账日期"; // yyyy-MM-dd
inline constexpr QStringView kTime = u"结账时间"; // HH:mm
} // namespace departures

// Below the folder of guest history; `date` is the guest's 结账日期.
QString DepartureFile(QStringView date);

// Adds a guest who leaves. 0 when it is written; a guest without a date of departure is still here, and
// nothing happens.
int SaveDtldKrQd(QStringView guest);

} // namespace hotel
