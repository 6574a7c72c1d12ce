#pragma once

// The register of stays: one file a day of arrival, its records numbered from 1. Check-in only adds to
// it; nothing ever changes what stands there.

#include <QStringView>

namespace hotel {

namespace stay_register {
inline constexpr QStringView kProject = u"客人入住记录";
} // namespace stay_register

// Adds the guest text as it stands, at the day of the guest's own date of arrival. 0 when it is
// written.
int SaveDtRzKrQd(QStringView guest);

} // namespace hotel
