#pragma once

// Where the house's records lie on the server. Every path is a parameter of the house, names joined
// to it without anything between, relative to the server's data; see session/parameters.h.

#include <QDate>
#include <QString>
#include <QStringView>

namespace hotel {

QString RoomDatabaseFile(); // all rooms
QString RoomFile(QStringView room);
QString RoomPictureFile(QStringView name);
QString WorkingDayFile(); // special working days
QString PersonalFile(QStringView user);

// The register of stays by day of arrival; `arrivalDate` is the guest's, "yyyy-MM-dd". A stay
// without a readable date goes to `today`, so that it isn't lost.
QString StayRegisterFile(QStringView arrivalDate, QDate today);
QString GuestPhotographFile(QStringView name); // of guests and their documents

QString OpenFolioFile();
// By the day in the folio's number.
QString LedgerFile(QStringView folio);
// By the day of the write.
QString JournalFile(QStringView project, QDate day);
QString RetiredFolioFile(QDate day);
QString SnapshotFile(QDate day); // the house as it stood on that day

} // namespace hotel
