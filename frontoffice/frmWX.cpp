#include "frontoffice/frmWX.h"

#include "house/stays/repairs.h"
#include "record/literals.h"

namespace hotel {

namespace {

const PlanPanel kPanel = {
    .screen = u"frmWX"_s,
    .caption = u"客房维修计划"_s,
    .list = u"WxxxQd"_s,
    .fields = {{u"维修单号", u"Wxdh", u"维修单号", Editor::ReadOnly, {}, 14},
               {u"房间号", u"Fh", u"房间号", Editor::Text, {}, 12, 10},
               {u"目前状态", u"Mqzt", u"目前状态", Editor::CategoryText, u"目前状态", 16, 40},
               {u"维修原因", u"Wxyy", u"维修原因", Editor::CategoryText, u"维修原因", 24, 100},
               {u"报修日期", u"Bxrq", u"报修日期", Editor::Date},
               {u"报修单位", u"Bxdw", u"报修单位", Editor::CategoryText, u"经办单位", 16, 40},
               {u"报修人", u"Bxr", u"报修人", Editor::Text, {}, 14, 20},
               {u"维修结果", u"Wxjg", u"维修结果", Editor::CategoryText, u"维修结果", 16, 100},
               {u"维修日期", u"Wxrq", u"维修日期", Editor::Date},
               {u"维修人", u"Wxr", u"维修人", Editor::Text, {}, 14, 20}},
    .fieldColumns = 3,
    .listTitle = u"客房维修计划信息清单"_s,
    .historyCaption = u"请输入维修计划信息历史资料查询组合条件"_s,
    .changeCaption = u"完成维修"_s,
    .tidyTip = u"将已有维修结果的维修信息移到历史资料数据库中"_s,
};

} // namespace

frmWX::frmWX() : PlanScreen(RepairPlans(), kPanel) {
    setPanel();
}

} // namespace hotel
