#include "screen/date_text.h"

#include <QDate>
#include <QRegularExpression>
#include <QTime>

#include "record/literals.h"
#include "screen/key_filter.h"

namespace hotel {

QString DateFromTyped(QStringView typed) {
    static const QRegularExpression kParts(
        u"^(\\d{4})(?:[-./年](\\d{1,2})[-./月](\\d{1,2})日?|(\\d\\d)(\\d\\d))$"_s);
    const auto match = kParts.match(PlainForm(typed).trimmed());
    const int first = match.capturedView(2).isEmpty() ? 4 : 2; // the form without separators
    const QDate date(match.capturedView(1).toInt(), match.capturedView(first).toInt(),
                     match.capturedView(first + 1).toInt());
    return date.toString(u"yyyy-MM-dd");
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
