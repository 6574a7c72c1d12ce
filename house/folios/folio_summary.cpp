#include "house/folios/folio_summary.h"

#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/guests/guest_text.h"
#include "link/records.h"
#include "record/field_walk.h"
#include "record/record_text.h"

namespace hotel {

FolioSummary SummaryOf(QStringView openRecord) {
    FolioSummary folio;
    folio.payer = GetTag(GetTag(openRecord, folio_record::kPayer), guest_text::kName);
    for (FieldWalk room(openRecord); room.next();) {
        if (room.name() == folio_record::kPayer || room.value().isEmpty())
            continue;
        folio.rooms.append(room.name().toString());
        for (FieldWalk bed(room.value()); bed.next();) {
            const QString name = GetTag(bed.value(), guest_text::kName);
            if (!name.isEmpty())
                folio.guests.append(name);
        }
    }
    if (folio.payer.isEmpty())
        folio.payer = folio.guests.value(0);
    return folio;
}

QHash<QString, FolioSummary> LoadFolioSummaries() {
    QHash<QString, FolioSummary> folios;
    const QString records = ReadProject(OpenFolioFile(), folio_record::kProject);
    for (FieldWalk folio(records); folio.next();)
        folios.insert(folio.name().toString(), SummaryOf(folio.value()));
    return folios;
}

} // namespace hotel
