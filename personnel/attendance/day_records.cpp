#include "personnel/attendance/day_records.h"

#include "house/rooms/working_days.h"
#include "personnel/attendance/shift_period.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "session/parameters.h"

namespace hotel {

namespace {

constexpr int kTimeLength = 8;

QString DayName(QDate day) {
    return day.toString(u"yyMM") + u'\\' + day.toString(u"yyMMdd") + u".qvr"_s;
}

} // namespace

QString AttendanceFile(QDate day) {
    return Param(u"KqxxPath") + DayName(day);
}

QString DayResultFile(QDate day) {
    return Param(u"KqtjLj") + DayName(day);
}

QString PunchKey(const QDateTime& moment) {
    return moment.toString(u"yyMMddHHmmss");
}

QString PunchPhotographName(QStringView key) {
    return key + u".jpg"_s;
}

QString PunchPhotographFolder(QStringView key) {
    return Param(u"KqzpPath") + key.left(4) + u'\\' + key.left(6) + u'\\';
}

QString PunchPhotographFile(QStringView name) {
    return PunchPhotographFolder(name) + name;
}

const QStringList& AbsenceCategories() {
    static const QStringList categories = {u"事假"_s, u"病假"_s, u"旷工"_s, u"迟到"_s, u"早退"_s,
                                           u"加班"_s, u"公务"_s, u"特许"_s, u"出差"_s, u"换休"_s,
                                           u"培训"_s, u"施工"_s, u"其他"_s, u"特班"_s};
    return categories;
}

int CompuMin(QStringView time) {
    return MinuteOf(time.size() == kTimeLength ? time.toString() : Clock::TimeText());
}

int RuleWeekday(QDate day) {
    // 星期天 stands first in the list and is the seventh day of the rules.
    const qsizetype special = Weekdays().indexOf(CheckGzr(day.toString(u"yyyy-MM-dd")));
    if (special < 0)
        return day.dayOfWeek();
    return special == 0 ? Qt::Sunday : int(special);
}

} // namespace hotel
