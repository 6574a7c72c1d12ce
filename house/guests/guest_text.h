#pragma once

// A guest text: one person's stay in one bed, from check-in to check-out. It is the value of the
// bed's field in the room's file and of a record in the register of stays.
//
//     房间号       room
//     客人姓名     name; required
//     结账号       folio that collects the charges, twelve digits (house/folios/folio.h); required
//     床位         bed number in the room, from 1, "#0"
//     特殊说明     remark
//     证件照片     photograph of the document: a path of this workstation until the check-in is
//                  confirmed, from then on a file name in the house's folder of guest photographs
//     人像照片     photograph of the guest, likewise
//     证件号码     document number; required
//     证件种类     kind of document; required
//     性别         sex
//     年龄         age in years
//     户口所在地   registered address
//     散住         "1": shares the room, sold by the bed; else "0"
//     付费客人     "1": pays the folio; else "0"
//     工作单位     employer
//     接待单位     receiving organisation
//     入住时间     time of arrival, HH:mm
//     入住日期     date of arrival, yyyy-MM-dd
//     预计离店     expected departure, yyyy-MM-dd
//     自何处来     coming from
//     往何处去     going to
//     停留事由     reason of stay
//     职务         job title
//     接待         who received the guest
//     房态         status of the stay (house/rooms/room_status.h); required
//     客房类型     room type
//     房价种类     rate kind (house/rooms/rate_table.h)
//     确认房价     agreed price a night, "#0.00"; required
//
// Later the night audit adds 结算日期 (the date through which the room has been charged), and check-out
// adds 结账房费, 结账日期 and 结账时间.

#include <QString>
#include <QStringView>

#include <span>

namespace hotel {

namespace guest_text {
inline constexpr QStringView kRoom = u"房间号";
inline constexpr QStringView kName = u"客人姓名";
inline constexpr QStringView kFolio = u"结账号";
inline constexpr QStringView kBed = u"床位";
inline constexpr QStringView kRemark = u"特殊说明";
inline constexpr QStringView kDocumentPhotograph = u"证件照片";
inline constexpr QStringView kPortrait = u"人像照片";
inline constexpr QStringView kDocumentNumber = u"证件号码";
inline constexpr QStringView kDocumentKind = u"证件种类";
inline constexpr QStringView kSex = u"性别";
inline constexpr QStringView kAge = u"年龄";
inline constexpr QStringView kAddress = u"户口所在地";
inline constexpr QStringView kSharesRoom = u"散住";
inline constexpr QStringView kPays = u"付费客人";
inline constexpr QStringView kEmployer = u"工作单位";
inline constexpr QStringView kReceivedBy = u"接待单位";
inline constexpr QStringView kArrivalTime = u"入住时间";
inline constexpr QStringView kArrivalDate = u"入住日期";
inline constexpr QStringView kDeparture = u"预计离店";
inline constexpr QStringView kComingFrom = u"自何处来";
inline constexpr QStringView kGoingTo = u"往何处去";
inline constexpr QStringView kReason = u"停留事由";
inline constexpr QStringView kJobTitle = u"职务";
inline constexpr QStringView kReceptionist = u"接待";
inline constexpr QStringView kStatus = u"房态";
inline constexpr QStringView kRoomType = u"客房类型";
inline constexpr QStringView kRateKind = u"房价种类";
inline constexpr QStringView kPrice = u"确认房价";
inline constexpr QStringView kSettledThrough = u"结算日期";
} // namespace guest_text

inline constexpr QStringView kIdentityCard = u"身份证";

// All tags of a guest text in the order in which it is written.
std::span<const QStringView> GuestFields();

// `guest` with its fields in writing order; what isn't a field of a guest stands behind.
QString InWritingOrder(QStringView guest);

// What a guest lacks to be checked in; a sum of these.
enum GuestLack {
    kLacksName = 1,
    kLacksDocumentKind = 2,
    kLacksDocumentNumber = 4, // an identity card whose number is none; other kinds aren't tested
    kLacksFolio = 8,          // no number of twelve characters
    kLacksStatus = 16,
    kLacksPrice = 32,
};

// Only a number of 15 or 18 characters can be that of an identity card.
inline bool HasIdentityLength(QStringView number) {
    return number.size() == 15 || number.size() == 18;
}

// 0 for a guest who can be checked in, otherwise what is lacking.
int TestKrRecFail(QStringView guest);

inline bool IsValidGuest(QStringView guest) {
    return TestKrRecFail(guest) == 0;
}

} // namespace hotel
