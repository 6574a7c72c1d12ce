#include "screen/date_text.h"

#include <QRegularExpression>
#include <QTime>

#include "record/literals.h"
#include "screen/key_filter.h"

namespace hotel {

QString DateFromTyped(QStringView typed, QDate today) {
    static const QRegularExpression kParts(
        u"^(?:(?:(\\d{4})[-./年])?(\\d{1,2})[-./月](\\d{1,2})日?|(\\d{4})?(\\d\\d)(\\d\\d))$"_s);
    const auto match = kParts.match(PlainForm(typed).trimmed());
    const int first = match.capturedView(2).isEmpty() ? 4 : 1; // the form without separators
    const int year = match.capturedView(first).toInt();
    const int month = match.capturedView(first + 1).toInt();
    const int day = match.capturedView(first + 2).toInt();
    if (year > 0)
        return QDate(year, month, day).toString(u"yyyy-MM-dd");
    QDate nearest;
    for (const int shift : {0, 1, -1}) {
        const QDate date(today.year() + shift, month, day);
        if (date.isValid() &&
            (!nearest.isValid() || qAbs(today.daysTo(date)) < qAbs(today.daysTo(nearest))))
            nearest = date;
    }
    return nearest.toString(u"yyyy-MM-dd");
}

QString TimeFromTyped(QStringView typed) {
    static const QRegularExpression kParts(
        u"^(\\d{1,2})(?:[:.](\\d{1,2})(?:[:.](\\d{1,2}))?|(\\d\\d)(\\d\\d)?)?$"_s);
    const auto match = kParts.match(PlainForm(typed).trimmed());
    if (!match.hasMatch())
        return {};
    const int first = match.capturedView(2).isEmpty() ? 4 : 2;
    const QTime time(match.capturedView(1).toInt(), match.capturedView(first).toInt(),
                     match.capturedView(first + 1).toInt());
    return time.toString(u"HH:mm:ss");
}

} // namespace hotel
