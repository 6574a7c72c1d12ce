#include "house/common/paths.h"

#include "record/literals.h"
#include "session/parameters.h"

namespace hotel {

namespace {

QString DayFile(QDate day) {
    return day.toString(u"yyMMdd") + u".QVR"_s;
}

} // namespace

QString RoomDatabaseFile() {
    return Param(u"KfxxLj") + Param(u"Kfjbxx");
}

QString RoomFile(QStringView room) {
    return Param(u"KfxxLj") + room + u".qvr"_s;
}

QString RoomPictureFile(QStringView name) {
    return Param(u"KfZpLj") + name;
}

QString WorkingDayFile() {
    return Param(u"XtsjLj") + Param(u"GzrDB");
}

QString PersonalFile(QStringView user) {
    return Param(u"XtsjLj") + user + u"\\Personal.qvr"_s;
}

QString StayRegisterFile(QStringView arrivalDate, QDate today) {
    const QDate arrival = QDate::fromString(arrivalDate, Qt::ISODate);
    const QDate day = arrival.isValid() ? arrival : today;
    return Param(u"KszlLj") + u"rzjl\\"_s + day.toString(u"yyMMdd") + u".qvr"_s;
}

QString GuestPhotographFile(QStringView name) {
    return Param(u"KrzpLj") + name;
}

QString OpenFolioFile() {
    return Param(u"KzxxLj") + Param(u"Jzhxx");
}

QString LedgerFile(QStringView folio) {
    return Param(u"KzxxLj") + folio.mid(0, 2) + u'\\' + folio.mid(2, 2) + u'\\' + folio.mid(4, 2) +
           u'\\' + folio + u".QVR"_s;
}

QString JournalFile(QStringView project, QDate day) {
    return Param(u"KzxxLj") + project + day.toString(u"\\yy\\MM\\") + DayFile(day);
}

QString RetiredFolioFile(QDate day) {
    return Param(u"KzxxLj") + u"jzhls\\"_s + DayFile(day);
}

QString SnapshotFile(QDate day) {
    return Param(u"TjxxLj") + u"tjrb\\"_s + DayFile(day);
}

} // namespace hotel
