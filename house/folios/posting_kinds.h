#pragma once

// The kinds of posting, as one table: where a posting lies, how it is listed, typed, checked, written, told
// to the operation log. Screens, totals and reports are made from it.
//
//     kind   project        list     holds
//     0      信用押金信息   XyyjQd   deposits, credits, settlement lines
//     1      房费明细信息   FfxxQd   room charges: nightly, final and special
//     2      餐饮娱乐费用   CyylQd   food, drink, entertainment, other
//     3      宽带网络费用   KdjfQd   broadband
//     4      电话计费信息   DhjfQd   telephone
//     5      团队结算信息            team settlements; nobody enters them by hand
//     6      客房服务费用   KffwQd   room service

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <array>
#include <optional>
#include <span>

namespace hotel {

enum PostingKind {
    kDepositPosting = 0,
    kRoomPosting = 1,
    kFoodPosting = 2,
    kBroadbandPosting = 3,
    kTelephonePosting = 4,
    kTeamPosting = 5,
    kServicePosting = 6,
};

namespace posting {
inline constexpr QStringView kAmount = u"金额";
inline constexpr QStringView kReceived = u"实收金额";
inline constexpr QStringView kCredit = u"信用金额";
inline constexpr QStringView kRunningAmount = u"累计金额";
inline constexpr QStringView kRunningReceived = u"累计实收";
inline constexpr QStringView kRunningCredit = u"累计信用";
inline constexpr QStringView kSerial = u"序号";
inline constexpr QStringView kGuest = u"客人";
inline constexpr QStringView kRoom = u"房间号";
inline constexpr QStringView kDate = u"日期";
inline constexpr QStringView kTime = u"时间";
inline constexpr QStringView kDepartment = u"经办单位";
inline constexpr QStringView kOperator = u"经办人";
} // namespace posting

// The controls that all kinds have in common.
namespace posting_control {
inline constexpr QStringView kGuest = u"Krxm";
inline constexpr QStringView kRoom = u"Fjh";
inline constexpr QStringView kDepartment = u"Jbdw";
inline constexpr QStringView kOperator = u"Jsr";
} // namespace posting_control

enum class PostingInput {
    Choice,       // an entry of the category
    ChoiceOrText, // or any text; without a category the screen fills the list
    Text,
    Digits,
    Amount, // may be an expression; written as "#0.00"
    Guarantee, // an amount that is written as 实收金额 or as 信用金额, by the kind of guarantee
    Note,
    Date,      // "yyyy-MM-dd"
    ShortTime, // "HH:mm"
    Shared,    // from one of posting_control
    Today,     // the moment of the posting
    Now,
};

struct PostingField {
    QStringView tag;
    QStringView control; // empty: it isn't typed
    PostingInput input;
    QStringView label = {};
    QStringView category = {};
};

enum class PostingRule {
    Filled,
    GuaranteeAmount, // filled; a credit is proposed one
    GuaranteeNote,   // filled, unless the kind of guarantee says enough
};

// What must be typed, and the words where it isn't.
struct PostingCheck {
    QStringView control;
    QStringView words;
    PostingRule rule = PostingRule::Filled;
};

// A column with the sum of an amount column down to its row: computed, never stored.
struct RunningColumn {
    QStringView amount;
    QStringView running;
};

// A control whose amount follows those of two others.
struct FeeSum {
    QStringView control;
    std::array<QStringView, 2> fees;
};

// Words of the operation log.
struct PostingLog {
    QStringView added;
    QStringView deleted;
};

struct PostingKindEntry {
    QStringView project;
    QStringView list;    // its object name
    QStringView caption; // of its page
    QStringView columns; // of its list, behind 序号; blanks between them
    std::span<const RunningColumn> running;
    QList<PostingField> fields; // in the order of writing
    QList<PostingCheck> checks; // in their order
    std::optional<FeeSum> feeSum;
    PostingLog log;

    QStringList headers() const; // of the list, 序号 first
};

const PostingKindEntry& PostingKindOf(PostingKind kind);

// The kinds that are entered by hand, in the order of their pages.
inline constexpr PostingKind kEnteredKinds[] = {kDepositPosting,   kRoomPosting,
                                                kFoodPosting,      kBroadbandPosting,
                                                kTelephonePosting, kServicePosting};

// Project of a kind; empty for a number that is none.
QString PostingProject(int kind);

} // namespace hotel
