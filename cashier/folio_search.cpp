#include "cashier/folio_search.h"

#include <algorithm>

#include "house/folios/folio.h"
#include "tools/aids/pinyin.h"

namespace hotel {

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
    const QHash<QString, FolioSummary> folios = LoadFolioSummaries();
    QStringList found;
    for (const QString& number : LoadJzhQd()) {
        if (found.size() == kFolioHitLimit)
            break;
        if (MatchesFolio(number, SearchWords(folios.value(number)), typed))
            found.append(number);
    }
    return found;
}

} // namespace hotel
