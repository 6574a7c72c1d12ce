#include "tools/queries/operation_log_query.h"

#include "record/conditions.h"
#include "session/operation_log.h"
#include "tools/queries/list_query.h"

namespace hotel {

namespace {

QStringList LogFiles(QDate first, QDate last) {
    return DayFiles(first, last,
                    [](QDate day) { return OperationLogFile(day.toString(u"yyyy-MM-dd"), day); });
}

} // namespace

void OpenOperationLogQuery(QWidget* parent) {
    const ListQuery query = {
        .caption = u"请输入系统操作信息查询组合条件"_s,
        .title = u"系统登录操作信息明细"_s,
        .columns = {tag::kRecordName.toString(), operation_log::kOperator.toString(),
                    operation_log::kDate.toString(), operation_log::kTime.toString(),
                    operation_log::kOperation.toString(), operation_log::kRemark.toString()},
        .nameLabel = {},
        .dated = true,
        .search = SearchFiles(operation_log::kProject.toString(), LogFiles),
    };
    OpenListQuery(query, parent);
}

} // namespace hotel
