#include "house/stays/repairs.h"

#include "record/record_text.h"
#include "session/parameters.h"

namespace hotel {

namespace {

using namespace repair;

std::optional<Notice> Check(QStringView record) {
    const auto missing = [record](QStringView tag) {
        return TrimWhite(GetTag(record, tag)).isEmpty();
    };
    const QString title = u"缺少参数"_s;
    if (missing(kReason))
        return Notice{title, u"维修原因必须说明!"_s};
    if (missing(kRoom))
        return Notice{title, u"维修房号必须说明!"_s};
    if (missing(kState))
        return Notice{title, u"目前房间所处状态必须说明!"_s};
    return {};
}

std::optional<Notice> CheckClosing(QStringView record) {
    if (!TrimWhite(GetTag(record, kOutcome)).isEmpty())
        return {};
    return Notice{u"操作错误"_s, u"维修结果没有确定,不能完成维修!"_s};
}

bool IsDone(const TextTable& list, int row, QDate) {
    return !list.text(row, kOutcome).isEmpty();
}

} // namespace

const PlanKind& RepairPlans() {
    static const PlanKind kind = {
        .project = kProject,
        .columns = {kNumber.toString(), kRoom.toString(), kState.toString(), kReason.toString(),
                    kReported.toString(), u"报修单位"_s, u"报修人"_s, kOutcome.toString(),
                    u"维修日期"_s, u"维修人"_s},
        .file = [] { return Param(u"WxDbLj") + Param(u"WxDb"); },
        .folder = [] { return Param(u"WxDbLj"); },
        .check = Check,
        .closing = {kOutcome.toString(), u"维修日期"_s, u"维修人"_s},
        .checkClosing = CheckClosing,
        .closedOn = u"维修日期",
        .makerUnit = u"报修单位",
        .maker = u"报修人",
        .madeOn = kReported,
        .isDone = IsDone,
        .notSaved = u"维修计划保存失败?",
        .notChanged = u"维修数据库存取错误!",
        .notToday = u"为了防止误操作，系统只能删除当天增加的计划信息，而且从后往前删，以前的计划请"
                    u"用维修中的取消、中止等方"
                    u"法完成！",
        .notOwn = u"为了防止误操作，系统只允许删除本人添加当天增加的计划信息，而且从后往前删，以前"
                  u"的或别人计划请用维修"
                  u"中的取消、中止等方法完成！",
    };
    return kind;
}

} // namespace hotel
