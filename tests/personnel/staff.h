#pragma once

// A small staff for the tests of attendance.

#include <QString>
#include <QStringList>

#include "link/records.h"
#include "record/literals.h"

namespace hotel {

// "早班 08:00 18:00" with margins of 30 minutes, on every day; a fourth part is the way of keeping time.
inline QString ShiftsText(const QStringList& shifts) {
    QString text;
    for (int n = 0; n < shifts.size(); ++n) {
        const QStringList part = shifts[n].split(u' ');
        text +=
            u"<%1><班次名称>%2</班次名称><缺勤折算>1</缺勤折算><开始时间>%3:00</开始时间><可提前>30"
            "</可提前><结束时间>%4:00</结束时间><可延迟>30</可延迟><考勤方式>%5</考勤方式>"
            "<星期设定>1111111</星期设定></%1>\r\n"_s.arg(n, 2, 10, QChar(u'0'))
                .arg(part[0], part[1], part[2], part.value(3, u"常规"_s));
    }
    return text;
}

inline void Employ(const QString& department, const QString& number, const QString& name,
                   const QStringList& shifts, const QString& more = {}) {
    if (SaveRecord(u"Ygxx\\Ygxx.QVR", department, number,
                   u"<识别卡号>C%1</识别卡号><编号>%1</编号><姓名>%2</姓名><职务>服务员</职务>"
                   "<所在部门>%3</所在部门><考勤时段>%4</考勤时段>%5"_s.arg(
                       number, name, department, ShiftsText(shifts), more)) != 0)
        qFatal("nobody was employed");
}

} // namespace hotel
