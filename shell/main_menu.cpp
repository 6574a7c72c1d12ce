#include "shell/main_menu.h"

#include <algorithm>

#include "record/literals.h"
#include "record/numbers.h"
#include "screen/messages.h"
#include "session/session.h"

namespace hotel {

namespace {

constexpr MenuEntry kFrontDesk[] = {
    {u"Rzjd_cmd", u"入住接待", u"入住接待", u"RzjdFrm"},
    {u"Zkcx_cmd", u"住客查询", u"住客查询", u"Zkcx"},
    {u"Krhf_cmd", u"客人换房", u"客人换房", u"KrhfFrm"},
    {u"Qtjk_cmd", u"前台监控", u"前台监控", u"PicCap"},
};

constexpr MenuEntry kHousekeeping[] = {
    {u"Ftxx_cmd", u"房态信息", u"房态信息", u"Ftxxfrm"},
    {u"Kfwh_cmd", u"客房维护", u"客房维护", u"frmWX", u"客房维修"},
    {u"Swzl_cmd", u"失物招领", u"失物招领", u"frmShw", u"失物招领"},
    {u"ZxZkcx_cmd", u"住客查询", u"住客查询", u"Zkcx"},
    {u"Dstx_cmd", u"定时提醒", u"定时提醒", u"frmTimer"},
};

constexpr MenuEntry kCashier[] = {
    {u"Zhgl_cmd", u"账号管理", u"账号管理", u"Jzhfrm"},
    {u"Fycx_cmd", u"费用查询", u"费用查询", u"FyxxFrm"},
    {u"Ystj_cmd", u"夜审统计", u"夜审统计", u"YstjFrm", u"处理房间数据，生成报表", u"夜审"},
    {u"Jztf_cmd", u"结账退房", u"结账退房", u"JztfFrm"},
    {u"Yecy_cmd", u"余额查验", u"余额查验", u"Yecy"},
    {u"Yybb_cmd", u"营业报表", u"营业报表", u"YybbFrm"},
};

constexpr MenuEntry kManager[] = {
    {u"Yhgl_cmd", u"用户管理", u"用户管理", u"Userfrm"},
    {u"Kfcs_cmd", u"客房参数", u"客房参数", u"RoomSet"},
    {u"Qtzp_cmd", u"前厅照片", u"前厅照片", u"PicView"},
    {u"Czjl_cmd", u"操作记录", u"操作记录", u"Czjl"},
    {u"Gzjh_cmd", u"", u"工作计划", u"GzjhFrm"},
};

constexpr MenuEntry kSales[] = {
    {u"Ydgl_cmd", u"预定管理", u"预定管理", u"frmYD"},
    {u"Pmxs_cmd", u"铺面销售", u"铺面销售", u"Pmxs"},
    {u"Pmcs_Cmd", u"铺面参数", u"铺面参数", u"ShopSet"},
    {u"Tdkh_cmd", u"团队会议", u"团队会议", u"khxxmain"},
    {u"Ysk_cmd", u"应收管理", u"应收管理", u"frmYsk"},
};

constexpr MenuEntry kBusiness[] = {
    {u"Qdjz_cmd", u"签单记账", u"签单记账", u"QdjzFrm"},
    {u"Dhjf_cmd", u"电话计费", u"电话计费", u"Accntfrm"},
    {u"Kdjf_cmd", u"宽带计费", u"宽带计费", u"Kdjf"},
    {u"Hdfj_cmd", u"话单分拣", u"话单分拣", u"HdfjFrm"},
    {u"Wffj_cmd", u"网费分拣", u"网费分拣", u"Wffj"},
};

constexpr MenuEntry kPersonnel[] = {
    {u"Bmsd_cmd", u"部门设定", u"部门设定", u"frmBm", u"单位部门设定", u"人事管理"},
    {u"Ygxx_cmd", u"员工信息", u"员工信息", u"FrmYgxx", u"员工详细信息操作", u"人事管理"},
    {u"Kq_cmd", u"员工考勤", u"员工考勤", u"FrmKq", u"启动考勤功能", u"开始考勤"},
    {u"Kqxd_cmd", u"考勤修订", u"考勤修订", u"frmCheck", u"检查修正考勤中的错误纪录", u"考勤修订"},
    {u"Kqtj_cmd", u"考勤统计", u"考勤统计", u"FrmTj",
     u"根据修订过的考勤日统计分析信息，生成某时段考勤统计表", u"考勤统计"},
    {u"Kqcx_cmd", u"考勤查询", u"考勤查询", u"frmCx", u"详细查询历史考勤纪录", u"考勤查询"},
};

constexpr MenuEntry kSystem[] = {
    {u"Flmc_cmd", u"分类名称", u"分类名称", u"FlmcFrm"},
    {u"Xtcs_cmd", u"系统参数", u"系统参数", u"ParaFrm"},
    {u"Sjll_cmd", u"数据浏览", u"数据浏览", u"QVRView"},
    {u"Xtwh_cmd", u"系统维护", u"系统维护", u"Xtwh"},
    {u"Dygs_cmd", u"打印格式", u"打印格式", u"PrtForm"},
};

constexpr MenuEntry kBusinessData[] = {
    {u"Gys_cmd", u"供应商", u"供应商", u"Gys"},
    {u"Gyxx_cmd", u"", u"供应信息", u"Gyxx"},
    {u"Qfyj_cmd", u"群发邮件", u"群发邮件", u"QfyjFrm"},
    {u"Qfdx_cmd", u"群发短信", u"群发短信", u"QfdxFrm"},
    {u"Pldy_cmd", u"打印封签", u"打印封签", u"PlDyxf"},
};

constexpr MenuGroup kGroups[] = {
    {u"Qtjd_cmd", u"前台接待", 1, kFrontDesk}, {u"Kfzx_cmd", u"客房中心", 2, kHousekeeping},
    {u"Syjs_cmd", u"收银结算", 3, kCashier},   {u"Jlbg_cmd", u"经理办公", 4, kManager},
    {u"Xsyd_cmd", u"销售预定", 11, kSales}, // F5 reads the day anew
    {u"SwCy_cmd", u"商务餐娱", 6, kBusiness},  {u"Rsgl_cmd", u"人事管理", 7, kPersonnel},
    {u"Xtgl_cmd", u"系统管理", 8, kSystem},    {u"Zlxx_cmd", u"资料信息", 9, kBusinessData},
};

constexpr int kNoticeMilliseconds = 2000;

EntryOpener& Opener() {
    static EntryOpener opener;
    return opener;
}

} // namespace

std::span<const MenuGroup> MainMenu() {
    return kGroups;
}

const MenuEntry* OfferedEntry(QStringView control) {
    for (const MenuGroup& group : kGroups) {
        const auto entry = std::ranges::find(group.entries, control, &MenuEntry::control);
        if (entry != group.entries.end())
            return HasRight(group.right) && HasRight(entry->right) ? &*entry : nullptr;
    }
    return nullptr;
}

void SetEntryOpener(EntryOpener opener) {
    Opener() = std::move(opener);
}

void OpenEntry(QStringView screen, QStringView caption, const QString& argument) {
    if (!Opener() || !Opener()(screen, argument))
        TimedMessage(u"“%1”尚未启用。"_s.arg(caption), u"提示"_s, kNoticeMilliseconds);
}

bool NightAuditMayOpen(QStringView timeText) {
    const int hour = int(LeadingNumber(timeText.left(2)));
    return hour >= 22 || hour < 7;
}

} // namespace hotel
