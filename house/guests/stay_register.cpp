#include "house/guests/stay_register.h"

#include "house/common/paths.h"
#include "house/guests/guest_text.h"
#include "link/next_number.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/record_text.h"

namespace hotel {

int SaveDtRzKrQd(QStringView guest) {
    const QString file = StayRegisterFile(GetTag(guest, guest_text::kArrivalDate), Clock::Today());
    EnsureProject(file, stay_register::kProject);
    const QString number = NextNumberInProject(file, stay_register::kProject);
    return SaveRecord(file, stay_register::kProject, number, guest);
}

} // namespace hotel
