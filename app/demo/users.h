#pragma once

// Users of the demo hotel, as its user file has them.

#include <QStringView>

namespace hotel {

struct DemoUser {
    QStringView login;
    QStringView password;
};

inline constexpr DemoUser kDayClerk = {u"QIANTAI", u"111111"};
inline constexpr DemoUser kNightClerk = {u"LIBAN", u"222222"};
inline constexpr DemoUser kHousekeeper = {u"KEFANG", u"333333"};
inline constexpr DemoUser kEngineer = {u"GONGCHENG", u"121212"};
inline constexpr DemoUser kNightAuditor = {u"YESHEN", u"555555"};
inline constexpr DemoUser kCashier = {u"SHOUYIN", u"444444"};
inline constexpr DemoUser kExchangeOperator = {u"ZONGJI", u"888888"};
inline constexpr DemoUser kSales = {u"XIAOSHOU", u"777777"};
inline constexpr DemoUser kOutlet = {u"CANYIN", u"999999"};
inline constexpr DemoUser kPersonnel = {u"RENSHI", u"123456"};
inline constexpr DemoUser kPunchingDesk = {u"KAOQIN", u"135790"};

} // namespace hotel
