#include "personnel/attendance/desk_login.h"

#include "link/serv_api.h"
#include "personnel/attendance/punch.h"
#include "platform/clock.h"
#include "record/literals.h"

namespace hotel {

DeskLogin::DeskLogin() : user_(Link().UserName), password_(Link().password) {}

bool DeskLogin::stands() const {
    return !Link().UserName.isEmpty();
}

bool DeskLogin::regain() const {
    if (stands())
        return true;
    const auto moment = ServerMoment();
    if (!moment)
        return false;
    Clock::SetTime(moment->toString(u"HH:mm:ss"));
    Clock::SetDate(moment->toString(u"yyyy-MM-dd"));
    return DbLogin(user_, password_) == 0;
}

} // namespace hotel
