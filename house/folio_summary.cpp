#include "house/folio_summary.h"

#include "house/folio.h"
#include "house/guest_text.h"
#include "house/paths.h"
#include "link/QVRapp.h"
#include "link/serv_api.h"
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
    const QString answer = DbReadRecord(OpenFolioFile(), u"", folio_record::kProject);
    if (IsError(answer))
        return folios;
    for (FieldWalk folio(RecordsOf(answer, folio_record::kProject)); folio.next();)
        folios.insert(folio.name().toString(), SummaryOf(folio.value()));
    return folios;
}

} // namespace hotel
