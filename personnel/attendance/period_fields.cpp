#include "personnel/attendance/period_fields.h"

#include "platform/clock.h"
#include "record/literals.h"
#include "screen/messages.h"

namespace hotel {

QList<FormField> PeriodFields(const QList<FormField>& more) {
    return QList<FormField>{{u"起始日期", u"KsDate", u"起始日期", Editor::Date},
                            {u"结束日期", u"JsDate", u"结束日期", Editor::Date}} +
           more;
}

void ProposeThisMonth(FieldForm& form) {
    form.setText(u"KsDate", Clock::Today().toString(u"yyyy-MM-01"));
    form.setText(u"JsDate", Clock::DateText());
}

std::optional<std::pair<QDate, QDate>> PeriodOf(const FieldForm& form) {
    const QDate first = QDate::fromString(form.text(u"KsDate"), Qt::ISODate);
    const QDate last = QDate::fromString(form.text(u"JsDate"), Qt::ISODate);
    if (!first.isValid() || !last.isValid()) {
        MsgBox(u"起始日期或结束日期不正确！不能继续．"_s, u"设定错误"_s);
        return {};
    }
    if (first > last) {
        MsgBox(u"起始日期大于结束日期！不能继续．"_s, u"设定错误"_s);
        return {};
    }
    return std::pair(first, last);
}

QString UnreadDays(int days) {
    return days == 0 ? QString() : u"，%1 天读取失败"_s.arg(days);
}

} // namespace hotel
