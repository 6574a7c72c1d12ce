#pragma once

// The forms that a house is delivered with (install/dygs), and the numbers of the cells into which the
// screens put their values. All other cells hold the words, lines and frames of the form; the house may
// change them in PrtForm as it likes, and move the cells about, as long as the numbers keep their
// meaning.
//
// Each form has a file of its own, named by a hotel parameter, with the projects 纸张 (see
// ReadPaperFormat) and the form's name (one record per block, see print_form.h). Both are read in one
// piece:
//
//     DbReadRecord(Param(u"DygsLj") + Param(u"ZsdjFmt"), u"", registration_form::kName)

#include <QStringView>

namespace hotel {

// 旅客住宿登记单, parameter ZsdjFmt: one sheet a room.
namespace registration_form {
inline constexpr QStringView kName = u"旅客住宿登记单";
// 标题
inline constexpr int kHotel = 0; // parameter Yhdwmc
// 表头
inline constexpr int kPartyRooms = 1; // all rooms of the party, "8101,8102"
// 表芯, the guest
inline constexpr int kGuest = 1;
inline constexpr int kSex = 2;
inline constexpr int kAge = 3;
inline constexpr int kAddress = 4;
inline constexpr int kJobTitle = 5;
inline constexpr int kDocumentKind = 6;
inline constexpr int kDocumentNumber = 7;
inline constexpr int kSignature = 8; // a blank
inline constexpr int kReason = 9;
inline constexpr int kFrom = 10;
inline constexpr int kTo = 11;
inline constexpr int kOuterFrame = 12; // a blank
inline constexpr int kDeparture = 13;
// 表芯, the second guest
inline constexpr int kSecondGuest = 14;
inline constexpr int kSecondSex = 15;
inline constexpr int kSecondAge = 16;
inline constexpr int kSecondAddress = 17;
// 表芯, the stay
inline constexpr int kRoom = 18;
inline constexpr int kRoomType = 19;
inline constexpr int kPrice = 20;
inline constexpr int kRemark = 21;
inline constexpr int kFormNumber = 34; // the folio number again
inline constexpr int kArrivalDate = 37;
inline constexpr int kArrivalTime = 38;
inline constexpr int kFolio = 41;
inline constexpr int kRegistered = 52; // yyyy-MM-dd
inline constexpr int kReception = 54;
} // namespace registration_form

// 客人换房通知单, parameter Krhftzd: one sheet a move, 表芯1 once a guest.
namespace room_change_form {
inline constexpr QStringView kName = u"客人换房通知单";
// 标题
inline constexpr int kHotel = 0;
// 表头
inline constexpr int kOldRoom = 1;
inline constexpr int kNewRoom = 3;
inline constexpr int kRoomType = 5;
inline constexpr int kPrice = 7;
inline constexpr int kFolio = 9;
inline constexpr int kMoment = 11; // the moment of printing, unless the screen gives another
inline constexpr int kReason = 13;
// 表芯1: kGuest to kDeparture and kSecondGuest to kSecondAddress of the registration form; the second
// ones lie over the first ones
// 表底
inline constexpr int kOperator = 1;
} // namespace room_change_form

// 宾客押金凭证, parameter Bkyjpz.
namespace deposit_form {
inline constexpr QStringView kName = u"宾客押金凭证";
// 标题
inline constexpr int kHotel = 0;
// 表头
inline constexpr int kMoment = 1; // yyyy-MM-dd HH:mm
inline constexpr int kFolio = 3;
// 表芯
inline constexpr int kGuest = 1;
inline constexpr int kRoom = 3;
inline constexpr int kTelephone = 5;
inline constexpr int kOperator = 7;
inline constexpr int kAmount = 9;
inline constexpr int kAmountInWords = 11; // see AmountInWords
inline constexpr int kKind = 13;          // "种类:现金押金, 方式:现金,"
} // namespace deposit_form

// The night audit's log, parameter YsjlFmt: project 正文, record 夜审记录清单. It has no cells but the
// look of its lines:
//
//     左边界 上边界     where the first line begins inside the margins, cm
//     字体 字号 粗体    as in a cell
//     行距              from line to line, millimetres; 0 stands for 5
namespace audit_form {
inline constexpr QStringView kProject = u"正文";
inline constexpr QStringView kRecord = u"夜审记录清单";
inline constexpr QStringView kLineSpacing = u"行距";
} // namespace audit_form

} // namespace hotel
