#include "cashier/receivables.h"

#include "record/numbers.h"
#include "record/record_text.h"
#include "session/parameters.h"

namespace hotel {

namespace {

constexpr QStringView kAmount = u"金额";
constexpr QStringView kState = u"目前状态";
constexpr QStringView kReason = u"收款原因";
constexpr QStringView kDue = u"应收日期";
constexpr QStringView kOutcome = u"收款结果";

std::optional<Notice> Check(QStringView record) {
    const auto missing = [record](QStringView tag) {
        return TrimWhite(GetTag(record, tag)).isEmpty();
    };
    const QString title = u"缺少参数"_s;
    if (missing(kReason))
        return Notice{title, u"收款原因必须说明!"_s};
    if (Money::FromText(GetTag(record, kAmount)) == Money())
        return Notice{title, u"应收款金额必须说明!"_s};
    if (missing(kState))
        return Notice{title, u"目前应收款所处状态必须说明!"_s};
    return {};
}

std::optional<Notice> CheckClosing(QStringView record) {
    if (!TrimWhite(GetTag(record, kOutcome)).isEmpty())
        return {};
    return Notice{u"操作错误"_s, u"收款结果没有确定,不能完成收款!"_s};
}

bool IsDone(const TextTable& list, int row, QDate) {
    return !list.text(row, kOutcome).isEmpty();
}

} // namespace

const PlanKind& ReceivablePlans() {
    static const PlanKind kind = {
        .project = u"应收款信息",
        .columns = {u"应收款单号"_s, kAmount.toString(), kState.toString(), kReason.toString(),
                    kDue.toString(), u"应收单位"_s, u"应收人"_s, kOutcome.toString(), u"收款日期"_s,
                    u"收款人"_s},
        .file = [] { return Param(u"YskDbLj") + Param(u"YskDB"); },
        .folder = [] { return Param(u"YskDbLj"); },
        .check = Check,
        .closing = {kOutcome.toString(), u"收款日期"_s, u"收款人"_s},
        .checkClosing = CheckClosing,
        .closedOn = u"收款日期",
        .closer = u"收款人",
        .makerUnit = u"应收单位",
        .maker = u"应收人",
        .madeOn = kDue,
        .isDone = IsDone,
        .notSaved = u"应收款保存失败?",
        .notChanged = u"应收款数据库存取错误!",
        .notToday = u"为了防止误操作，系统只能删除当天增加的信息，而且从后往前删，以前的应收款请用"
                    u"应收款中的取消、中止等方"
                    u"法完成！",
        .notOwn = u"为了防止误操作，系统只允许删除本人添加当天增加的应收款信息，而且从后往前删，以"
                  u"前的或别人应收款请用应收款"
                  u"中的取消、中止等方法完成！",
    };
    return kind;
}

} // namespace hotel
