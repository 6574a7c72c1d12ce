#include "cashier/folio_search.h"

#include <algorithm>

#include "house/folio.h"
#include "house/guest_text.h"
#include "house/paths.h"
#include "link/QVRapp.h"
#include "link/serv_api.h"
#include "record/field_walk.h"
#include "record/record_text.h"
#include "tools/pinyin.h"

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

QStringList SearchWords(const FolioSummary& folio) {
    QStringList words = folio.rooms;
    for (const QString& guest : folio.guests + QStringList(folio.payer))
        words << guest << PinyinInitials(guest);
    return words;
}

bool MatchesFolio(QStringView number, const QStringList& words, QStringView typed) {
    const auto means = [typed](const QString& word) {
        return word.startsWith(typed, Qt::CaseInsensitive);
    };
    return number.contains(typed) || std::ranges::any_of(words, means);
}

QStringList FindFolios(QStringView typed) {
    const QString answer = DbReadRecord(OpenFolioFile(), u"", folio_record::kProject);
    if (IsError(answer))
        return {};
    QStringList found;
    for (FieldWalk folio(RecordsOf(answer, folio_record::kProject)); folio.next();) {
        if (MatchesFolio(folio.name(), SearchWords(SummaryOf(folio.value())), typed))
            found.append(folio.name().toString());
    }
    return found;
}

} // namespace hotel
