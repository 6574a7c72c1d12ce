#pragma once

// What a desk knows a folio by, beside its number: who pays, which rooms and guests are on it.

#include <QHash>
#include <QString>
#include <QStringList>
#include <QStringView>

namespace hotel {

struct FolioSummary {
    QString payer; // the paying guest; where none is entered, the first guest
    QStringList rooms;
    QStringList guests; // names, bed by bed
};
FolioSummary SummaryOf(QStringView openRecord);

// All open folios by number, in one read. Empty when the server doesn't give them.
QHash<QString, FolioSummary> LoadFolioSummaries();

} // namespace hotel
