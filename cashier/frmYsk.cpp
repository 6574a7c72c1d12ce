#include "cashier/frmYsk.h"

#include "cashier/receivables.h"
#include "record/literals.h"

namespace hotel {

namespace {

const PlanPanel kPanel = {
    .screen = u"frmYsk"_s,
    .caption = u"应收款管理"_s,
    .list = u"YskQd"_s,
    .fields = {{u"应收款单号", u"Yskdh", u"应收款单号", Editor::ReadOnly, {}, 14},
               {u"金额", u"Je", u"金额", Editor::Amount, {}, 12, 14},
               {u"目前状态", u"Mqzt", u"目前状态", Editor::CategoryText, u"收款状态", 16, 40},
               {u"收款原因", u"Yskyy", u"收款原因", Editor::CategoryText, u"收款原因", 24, 100},
               {u"应收日期", u"Ysrq", u"应收日期", Editor::Date},
               {u"应收单位", u"Ysdw", u"应收单位", Editor::CategoryText, u"经办单位", 16, 60},
               {u"应收人", u"Ysr", u"应收人", Editor::Text, {}, 14, 20},
               {u"收款结果", u"Skjg", u"收款结果", Editor::Text, {}, 16, 100},
               {u"收款日期", u"Skrq", u"收款日期", Editor::Date},
               {u"收款人", u"Skr", u"收款人", Editor::Text, {}, 14, 20}},
    .fieldColumns = 3,
    .listTitle = u"应收款信息清单"_s,
    .historyCaption = u"请输入应收款信息历史资料查询组合条件"_s,
    .changeCaption = u"完成收款"_s,
    .tidyTip = u"将已有收款结果的应收款移到历史资料数据库中"_s,
    .numbers = {u"金额"_s},
};

} // namespace

frmYsk::frmYsk() : PlanScreen(ReceivablePlans(), kPanel) {
    setPanel();
}

} // namespace hotel
