#pragma once

// A call, project 电话详细话单 of its day's file, named by the number that the link program gave it.
//
//     分机号       extension                              the link program's
//     被叫号码     dialled digits                         "
//     话始日期 话始时间 话终日期 话终时间                  "; the two that it leaves out are reckoned
//                  yyyy-MM-dd, HH:mm:ss
//     通话时长     HH:mm:ss, or seconds                   "; seconds are rewritten as HH:mm:ss
//     中继号 费用类别                                     "
//     所有者 使用者                                       rating, from the extension
//     通话地区     place of the prefix, or 本市           rating
//     费率类别     class text of the prefix, or 市话类别  rating
//     通话费 手续费 浮动费 过线费 附加费 建设费 地方费 总话费     rating, "#0.00"; the total is the sum of
//                                                         the others as they are written
//     标志         empty until the call is rated, then 计费处理

#include <QStringList>
#include <QStringView>

#include <array>

namespace hotel {

inline constexpr QStringView kCallProject = u"电话详细话单";

namespace call_record {
inline constexpr QStringView kExtension = u"分机号";
inline constexpr QStringView kNumber = u"被叫号码";
inline constexpr QStringView kStartDate = u"话始日期";
inline constexpr QStringView kStartTime = u"话始时间";
inline constexpr QStringView kEndDate = u"话终日期";
inline constexpr QStringView kEndTime = u"话终时间";
inline constexpr QStringView kLength = u"通话时长";
inline constexpr QStringView kTrunk = u"中继号";
inline constexpr QStringView kLinkClass = u"费用类别";
inline constexpr QStringView kOwner = u"所有者";
inline constexpr QStringView kUser = u"使用者";
inline constexpr QStringView kPlace = u"通话地区";
inline constexpr QStringView kClass = u"费率类别";
inline constexpr QStringView kTotal = u"总话费";
inline constexpr QStringView kMark = u"标志";
inline constexpr QStringView kRated = u"计费处理"; // what the mark becomes

// The seven amounts, in their order of writing.
inline constexpr std::array<QStringView, 7> kAmounts = {u"通话费", u"手续费", u"浮动费", u"过线费",
                                                        u"附加费", u"建设费", u"地方费"};
} // namespace call_record

// What the lists of calls show, in this order; the record's own name is 记录号. All of them have the end of the call
// and what the link program told of it, too.
QStringList CallColumns();
QStringList AllCallColumns();
// The columns that are summed, "," between them.
inline constexpr QStringView kCallSums = u"总话费,通话费,手续费,浮动费,过线费,附加费,建设费,地方费";
bool IsCallAmount(QStringView header);

} // namespace hotel
