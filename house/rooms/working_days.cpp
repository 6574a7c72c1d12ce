#include "house/rooms/working_days.h"

#include "house/common/paths.h"
#include "link/records.h"
#include "link/serv_api.h"
#include "record/conditions.h"
#include "record/field_walk.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "session/operation_log.h"

namespace hotel {

namespace {

using namespace working_day;

QString DateCondition(QStringView date) {
    QString conditions;
    int number = 0;
    AddQueryCondition(conditions, u"或者", kDate, u"等于", date, number);
    return WrapConditions(conditions);
}

QString DayRecord(const TextTable& list, int row) {
    QString record;
    for (const QStringView field : {kRemark, kDate, kWeekday})
        record = SetTag(record, field, list.text(row, field));
    return record;
}

QStringList Cells(QStringView record) {
    return {GetTag(record, kRemark), GetTag(record, kDate), GetTag(record, kWeekday)};
}

} // namespace

const QStringList& Weekdays() {
    static const QStringList weekdays = {u"星期天"_s, u"星期一"_s, u"星期二"_s, u"星期三"_s,
                                         u"星期四"_s, u"星期五"_s, u"星期六"_s};
    return weekdays;
}

QString WeekdayOfKey(QStringView key) {
    bool isNumber = false;
    const int number = key.toInt(&isNumber);
    return !isNumber || number < 0 || number > 7 ? QString() : Weekdays()[number % 7];
}

QString CheckGzr(QStringView date) {
    const QString file = WorkingDayFile();
    const QString name = DbFieldFind(file, kProject.toString(), DateCondition(date), 1);
    return name.isEmpty() ? QString() : GetTag(ReadRecord(file, kProject, name), kWeekday);
}

std::optional<TextTable> LoadWorkingDays() {
    const RecordRead stored = ReadProjectToChange(WorkingDayFile(), kProject);
    if (stored.failed())
        return {};
    TextTable list({kRemark.toString(), kDate.toString(), kWeekday.toString()});
    for (FieldWalk day(stored.value); list.dataRows() < kWorkingDayLimit && day.next();)
        list.addRow(Cells(day.value()));
    return list;
}

std::optional<Notice> CheckWorkingDay(QDate day, QDate today) {
    if (day >= today)
        return {};
    return Notice{u"不能设定"_s,
                  u"没有必要设定以前的日期，正确的做法应该在考勤之前定义好以后的特殊工作日！"_s};
}

WorkingDayChange AddWorkingDay(TextTable& list, const QString& remark, const QString& date,
                               const QString& weekday) {
    if (remark.isEmpty() || weekday.isEmpty())
        return {};
    if (list.find(list.column(kDate), date) >= 1)
        return {false, Notice{u"错误"_s, u"不能重复定义！"_s}};
    const int last = list.rows() - 1;
    const bool lastIsEmpty = last >= 1 && list.text(last, kDate).isEmpty();
    const int row = lastIsEmpty ? last : list.addRow();
    list.setText(row, kRemark, remark);
    list.setText(row, kDate, date);
    list.setText(row, kWeekday, weekday);
    return {true, {}};
}

void RemoveWorkingDay(TextTable& list, int row) {
    if (list.dataRows() == 1)
        list.setRow(1, {});
    else
        list.removeRow(row);
}

std::optional<Notice> SaveWorkingDays(const TextTable& list) {
    const QString file = WorkingDayFile();
    DbCreateFile(file);
    DbDeleteProject(file, kProject);
    DbCreateProject(file, kProject);
    for (int row = 1; row < list.rows(); ++row) {
        const QString record = DayRecord(list, row);
        if (!record.isEmpty() && SaveRecord(file, kProject, FormatNumber(row, u"000"), record) != 0)
            return Notice{u"意外错误"_s, u"工作日定义信息保存失败？！"_s};
    }
    SaveLogRec(u"修改保存工作日信息"_s, {});
    return {};
}

} // namespace hotel
