#include "house/common/folio_number.h"

#include "record/record_text.h"

namespace hotel {

QString NewFolioNumber(const QDateTime& now) {
    return now.toString(u"yyMMddHHmmss");
}

bool IsFolioNumber(QStringView text) {
    return text.size() == kFolioLength && DigitsOnly(text) == text;
}

} // namespace hotel
