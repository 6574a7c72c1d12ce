#include "house/folios/posting_kinds.h"

#include "record/literals.h"

namespace hotel {

namespace {

using enum PostingInput;

constexpr RunningColumn kDepositColumns[] = {
    {posting::kCredit, posting::kRunningCredit},
    {posting::kReceived, posting::kRunningReceived},
};
constexpr RunningColumn kChargeColumns[] = {{posting::kAmount, posting::kRunningAmount}};

constexpr PostingField kRoom{u"房间号", u"Fjh", Shared};
constexpr PostingField kGuest{u"客人", u"Krxm", Shared};
constexpr PostingField kToday{u"日期", {}, Today};
constexpr PostingField kNow{u"时间", {}, Now};
constexpr PostingField kDepartment{u"经办单位", u"Jbdw", Shared};
constexpr PostingField kOperator{u"经办人", u"Jsr", Shared};

constexpr PostingCheck kGuestCheck{u"Krxm", u"选择输入客人姓名"};

const std::array<PostingKindEntry, 7> kKinds = {{
    {
        .project = u"信用押金信息",
        .list = u"XyyjQd",
        .caption = u"信用押金",
        .columns = u"信用保证种类 支付方式 客人 日期 时间 信用金额 累计信用 实收金额 累计实收 备注 "
                   "经办单位 经办人",
        .running = kDepositColumns,
        .fields = {{u"信用保证种类", u"Xyzl", Choice, u"信用种类", u"信用保证种类"},
                   {u"支付方式", u"Zffs", Choice, u"支付方式", u"支付方式"},
                   kGuest,
                   kToday,
                   kNow,
                   {u"实收金额", u"Yje", Guarantee, u"金额"},
                   {u"备注", u"Xysm", Note, u"说明"},
                   kDepartment,
                   kOperator},
        .checks = {{u"Xyzl", u"选择输入信用种类"},
                   {u"Zffs", u"选择输入支付方式"},
                   {u"Yje", u"选择输入信用额度或实际押金额", PostingRule::GuaranteeAmount},
                   kGuestCheck,
                   {u"Xysm", u"请输入必要的说明,如领导的姓名,票据的号码种类.",
                    PostingRule::GuaranteeNote}},
        .feeSum = {},
        .log = {u"信用押金增加操作", u"信用押金删除操作"},
    },
    {
        .project = u"房费明细信息",
        .list = u"FfxxQd",
        .caption = u"房费明细",
        .columns = u"费用名称 客人 房间号 日期 时间 金额 累计金额 备注 经办单位 经办人",
        .running = kChargeColumns,
        .fields = {{u"费用名称", u"Tsff", Choice, u"特殊房费", u"特殊房费项目"},
                   kRoom,
                   kGuest,
                   kToday,
                   kNow,
                   {u"金额", u"Ffje", Amount, u"金额"},
                   {u"备注", u"Ffsm", Note, u"说明"},
                   kDepartment,
                   kOperator},
        .checks = {{u"Tsff", u"选择输入特殊房间费用种类"},
                   {u"Ffje", u"选择输入消费服务额"},
                   kGuestCheck},
        .feeSum = {},
        .log = {u"特殊房费增加操作", u"房费明细删除操作"},
    },
    {
        .project = u"餐饮娱乐费用",
        .list = u"CyylQd",
        .caption = u"餐饮娱乐",
        .columns = u"费用名称 客人 房间号 日期 时间 结算地点 计量单位 数量 金额 累计金额 经办单位 "
                   "经办人 备注",
        .running = kChargeColumns,
        .fields = {{u"费用名称", u"Cymc", Choice, u"费用种类", u"餐饮娱乐服务种类"},
                   {u"结算地点", u"Jsdd", ChoiceOrText, u"结算地点", u"结算地点"},
                   {u"计量单位", u"Jldw", ChoiceOrText, u"计量单位", u"计量单位"},
                   {u"数量", u"Jssl", Text, u"数量"},
                   kRoom,
                   kGuest,
                   kToday,
                   kNow,
                   {u"金额", u"Xfje", Amount, u"金额"},
                   {u"备注", u"Xfsm", Note, u"说明"},
                   kDepartment,
                   kOperator},
        .checks = {{u"Cymc", u"选择输入餐饮、娱乐、其他费用种类"},
                   {u"Xfje", u"选择输入消费服务额"},
                   kGuestCheck},
        .feeSum = {},
        .log = {u"餐饮娱乐服务增加操作", u"餐饮娱乐明细删除操作"},
    },
    {
        .project = u"宽带网络费用",
        .list = u"KdjfQd",
        .caption = u"宽带网络",
        .columns = u"费用名称 网络端口 客人 房间号 日期 时间 时长 基本金额 服务费 金额 累计金额 "
                   "经办单位 经办人 计费流量 备注",
        .running = kChargeColumns,
        .fields = {{u"费用名称", u"Wlfymc", Choice, u"费用种类", u"宽带业务名称"},
                   kRoom,
                   kGuest,
                   {u"网络端口", u"Wldk", Text, u"网络端口"},
                   {u"时长", u"Wlsc", Digits, u"时长(分)"},
                   {u"日期", u"Wlrq", Date, u"日期"},
                   {u"时间", u"Wlsj", ShortTime, u"时间"},
                   {u"计费流量", u"Wlll", Text, u"计费流量"},
                   {u"基本金额", u"Wlfy", Amount, u"基本金额"},
                   {u"服务费", u"Wlfwf", Amount, u"服务费"},
                   {u"金额", u"Wlfhj", Amount, u"合计金额"},
                   {u"备注", u"Wlbz", Note, u"说明"},
                   kDepartment,
                   kOperator},
        .checks = {{u"Wlfymc", u"选择输入宽带网络费用种类"}, kGuestCheck},
        .feeSum = FeeSum{u"Wlfhj", {u"Wlfy", u"Wlfwf"}},
        .log = {u"宽带网络费用增加操作", u"宽带网络费用删除操作"},
    },
    {
        .project = u"电话计费信息",
        .list = u"DhjfQd",
        .caption = u"电话计费",
        .columns =
            u"费用名称 主叫电话 客人 房间号 日期 时间 时长 通达地区 被叫号码 话费金额 服务费 "
            "金额 累计金额 结算地点 经办单位 经办人 备注",
        .running = kChargeColumns,
        .fields = {{u"费用名称", u"DxywMc", Choice, u"费用种类", u"电信业务名称"},
                   kRoom,
                   kGuest,
                   {u"主叫电话", u"Zjdh", Text, u"主叫电话"},
                   {u"结算地点", u"Dxjsdd", ChoiceOrText, u"结算地点", u"结算地点"},
                   {u"时长", u"Thsc", Digits, u"时长(分)"},
                   {u"日期", u"Thrq", Date, u"日期"},
                   {u"时间", u"Thsj", ShortTime, u"时间"},
                   {u"通达地区", u"Tddq", Text, u"通达地区"},
                   {u"话费金额", u"Hfje", Amount, u"话费金额"},
                   {u"服务费", u"Fwfje", Amount, u"服务费"},
                   {u"金额", u"Hjhf", Amount, u"合计话费"},
                   {u"被叫号码", u"Bjhm", Text, u"被叫号码"},
                   kDepartment,
                   kOperator,
                   {u"备注", u"Dhbz", Note, u"说明"}},
        .checks = {{u"Dxjsdd", u"选择输入消费结算的地点"},
                   {u"DxywMc", u"选择输入电信业务费用种类"},
                   {u"Hjhf", u"选择输入合计话费额"},
                   kGuestCheck},
        .feeSum = FeeSum{u"Hjhf", {u"Hfje", u"Fwfje"}},
        .log = {u"电话费用服务增加操作", u"电话费用明细删除操作"},
    },
    {
        .project = u"团队结算信息",
        .list = {},
        .caption = {},
        .columns = {},
        .running = {},
        .fields = {},
        .checks = {},
        .feeSum = {},
        .log = {},
    },
    {
        .project = u"客房服务费用",
        .list = u"KffwQd",
        .caption = u"客房服务",
        .columns = u"服务类别 客人 房间号 日期 时间 服务明细 计量单位 数量 金额 累计金额 经办单位 "
                   "经办人 服务说明 服务单号",
        .running = kChargeColumns,
        .fields = {{u"服务类别", u"Fwlb", Choice, u"服务类别", u"客房服务种类"},
                   {u"服务明细", u"Fwmx", ChoiceOrText, u"服务明细"},
                   {u"服务单号", u"Fwdh", Text, u"服务单号"},
                   {u"计量单位", u"Fwdw", ChoiceOrText, u"计量单位", u"计量单位"},
                   {u"数量", u"Fwsl", Text, u"数量"},
                   {u"金额", u"Fwje", Amount, u"金额"},
                   kRoom,
                   kGuest,
                   kToday,
                   kNow,
                   {u"服务说明", u"Fwsm", Note, u"说明"},
                   kDepartment,
                   kOperator},
        .checks = {{u"Fwlb", u"选择输入客房服务费用种类"},
                   {u"Fwmx", u"选择输入客房服务费用种类相应的明细类别,便于统计!"},
                   {u"Fwje", u"选择输入客房服务额"},
                   kGuestCheck},
        .feeSum = {},
        .log = {u"客房服务增加操作", u"客房服务明细删除操作"},
    },
}};

} // namespace

QStringList PostingKindEntry::headers() const {
    return u"序号 "_s.append(columns).split(u' ');
}

const PostingKindEntry& PostingKindOf(PostingKind kind) {
    return kKinds.at(size_t(kind));
}

QString PostingProject(int kind) {
    return kind >= 0 && kind < int(kKinds.size()) ? kKinds[size_t(kind)].project.toString()
                                                  : QString();
}

} // namespace hotel
