#include "cashier/reports/report_table.h"

#include <algorithm>

#include "house/guests/departures.h"
#include "record/literals.h"

namespace hotel {

namespace {

using enum ReportFamily;
using enum GuestSource;
using enum DaySnapshot;

constexpr QStringView kFee = u"费用名称";
constexpr QStringView kGuarantee = u"信用保证种类";
constexpr QStringView kTeam = u"团队编号";
constexpr QStringView kCompany = u"单位名称";

constexpr SumColumn kAmountSum[] = {{posting::kAmount, posting::kAmount}};
constexpr SumColumn kDepositSums[] = {{posting::kReceived, posting::kReceived},
                                      {posting::kCredit, posting::kCredit}};
// A settlement on a company's account carries 金额 alone; what comes in for it is no posting.
constexpr SumColumn kTeamSums[] = {{u"结算单数", {}},
                                   {u"结算金额", posting::kAmount},
                                   {u"实收金额", posting::kReceived},
                                   {u"应收金额", u"应收金额"}};

constexpr ReportEntry kReports[] = {
    {.name = u"在住客人清单", .family = Guests, .guests = InHouse},
    {.name = u"当日抵店客人清单", .family = Guests, .guests = Arrivals},
    {.name = u"当日离店客人清单", .family = Guests, .guests = Departures},
    {.name = u"楼层销售日报表", .family = Snapshot, .snapshot = SoldByFloor},
    {.name = u"楼层销售统计表", .family = SnapshotPeriod, .snapshot = SoldByFloor},
    {.name = u"客房住宿率日报表", .family = Snapshot, .snapshot = SoldByType},
    {.name = u"信用押金收款明细单", .family = Journal, .kind = kDepositPosting},
    {.name = u"客房状态明细单", .family = Snapshot, .snapshot = RoomStates},
    {.name = u"客房住宿率统计表", .family = SnapshotPeriod, .snapshot = SoldByType},
    {.name = u"房费收入明细单", .family = Journal, .kind = kRoomPosting},
    {.name = u"餐饮娱乐收入明细单", .family = Journal, .kind = kFoodPosting},
    {.name = u"宽带网络收入明细单", .family = Journal, .kind = kBroadbandPosting},
    {.name = u"电话计费收入明细单", .family = Journal, .kind = kTelephonePosting},
    {.name = u"团队结算收入明细单", .family = Journal, .kind = kTeamPosting},
    {.name = u"客房服务收入明细单", .family = Journal, .kind = kServicePosting},
    {.name = u"房费收入统计表",
     .family = PeriodSum,
     .kind = kRoomPosting,
     .key = kFee,
     .sums = kAmountSum},
    {.name = u"餐饮娱乐收入统计表",
     .family = PeriodSum,
     .kind = kFoodPosting,
     .key = kFee,
     .sums = kAmountSum},
    {.name = u"信用押金收款统计表",
     .family = PeriodSum,
     .kind = kDepositPosting,
     .key = kGuarantee,
     .sums = kDepositSums},
    {.name = u"宽带网络收入统计表",
     .family = PeriodSum,
     .kind = kBroadbandPosting,
     .key = kFee,
     .sums = kAmountSum},
    {.name = u"电话计费收入统计表",
     .family = PeriodSum,
     .kind = kTelephonePosting,
     .key = kFee,
     .sums = kAmountSum},
    {.name = u"团队结算收入统计表",
     .family = PeriodSum,
     .kind = kTeamPosting,
     .key = kTeam,
     .sums = kAmountSum},
    {.name = u"客房服务收入统计表",
     .family = PeriodSum,
     .kind = kServicePosting,
     .key = u"服务明细",
     .sums = kAmountSum},
    {.name = u"团队结算统计清单",
     .family = PeriodSum,
     .kind = kTeamPosting,
     .key = kTeam,
     .named = kCompany,
     .sums = kTeamSums},
};

constexpr QStringView kGuestColumns = u"房间号 床位 客人姓名 性别 年龄 结账号 证件号码 证件种类 "
                                      u"特殊说明 户口所在地 工作单位 接待单位 "
                                      "入住时间 入住日期 预计离店 自何处来 往何处去 停留事由 职务 "
                                      "房态 客房类型 房价种类 确认房价 接待 "
                                      "散住 付费客人 证件照片 人像照片";
constexpr QStringView kTeamColumns = u"团队编号 单位名称 客人 日期 时间 金额 备注 经办单位 经办人";

QStringList GuestTitles(GuestSource source) {
    QStringList titles = kGuestColumns.toString().split(u' ');
    if (source == Departures) {
        for (const QStringView title : {departures::kCharge, departures::kDate, departures::kTime})
            titles.append(title.toString());
    }
    return titles;
}

// The columns of the kind's own list without its running totals.
QStringList JournalTitles(PostingKind kind) {
    if (kind == kTeamPosting)
        return kTeamColumns.toString().split(u' ');
    const PostingKindEntry& entry = PostingKindOf(kind);
    QStringList titles = entry.columns.toString().split(u' ');
    for (const RunningColumn& column : entry.running)
        titles.removeAll(column.running);
    return titles;
}

QStringList SumTitles(const ReportEntry& report) {
    QStringList titles = {report.key.toString()};
    if (!report.named.isEmpty())
        titles.append(report.named.toString());
    for (const SumColumn& sum : report.sums)
        titles.append(sum.header.toString());
    return titles;
}

} // namespace

std::span<const ReportEntry> Reports() {
    return kReports;
}

const ReportEntry& ReportOf(QStringView name) {
    return *std::ranges::find(kReports, name, &ReportEntry::name);
}

QStringList ReportTitles(const ReportEntry& report) {
    QStringList titles = {kReportNumber.toString()};
    switch (report.family) {
    case Guests:
        return titles + GuestTitles(report.guests);
    case Journal:
        return titles + JournalTitles(report.kind);
    case Snapshot:
    case SnapshotPeriod:
        return SnapshotTitles(report.snapshot);
    case PeriodSum:
        return titles + SumTitles(report);
    }
    return titles;
}

QStringList JournalSums(PostingKind kind) {
    if (kind == kDepositPosting)
        return {posting::kCredit.toString(), posting::kReceived.toString()};
    return {posting::kAmount.toString()};
}

} // namespace hotel
