#include "house/guests/departures.h"

#include "link/next_number.h"
#include "link/records.h"
#include "record/record_text.h"
#include "session/parameters.h"

#include <QDate>

namespace hotel {

QString DepartureFile(QStringView date) {
    const QDate day = QDate::fromString(date, Qt::ISODate);
    return Param(u"KszlLj") + u"ldjl\\"_s + day.toString(u"yyMMdd") + u".QVR"_s;
}

int SaveDtldKrQd(QStringView guest) {
    const QString date = GetTag(guest, departures::kDate);
    if (date.isEmpty())
        return 0;
    const QString file = DepartureFile(date);
    EnsureProject(file, departures::kProject);
    const QString number = NextNumberInProject(file, departures::kProject);
    return SaveRecord(file, departures::kProject, number, guest);
}

} // namespace hotel
