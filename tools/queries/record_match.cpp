#include "tools/queries/record_match.h"

#include <QStringList>
#include <algorithm>
#include <array>

#include "record/conditions.h"
#include "record/field_walk.h"
#include "record/record_text.h"

namespace hotel {

namespace {

struct MatchList {
    QString record;
    QString query;
    QStringList names;
    quint64 lastUse = 0; // 0: never filled

    bool isFor(const QString& recordText, const QString& queryText) const;
};

// A walk asks with the very same text again and again: then no character is compared.
bool IsSameText(const QString& a, const QString& b) {
    return a.size() == b.size() && (a.constData() == b.constData() || a == b);
}

bool MatchList::isFor(const QString& recordText, const QString& queryText) const {
    return lastUse > 0 && IsSameText(record, recordText) && IsSameText(query, queryText);
}

QStringList FindMatches(const QString& recordText, const QString& queryText) {
    const QString conditions = GetTag(queryText, tag::kConditions);
    if (conditions.isEmpty())
        return {};
    const QString field = GetTag(queryText, tag::kConditionField);
    const QString body = field.isEmpty() ? recordText : GetTag(recordText, field);
    RecordSelection selection(ParseConditions(conditions));
    FieldWalk subRecords(body);
    for (int n = 1; n <= kSubRecordLimit && subRecords.next(); ++n)
        selection.look(subRecords.name(), subRecords.value());
    return selection.names();
}

} // namespace

QString MatchRecordConditions(const QString& recordText, const QString& queryText, int n) {
    static std::array<MatchList, 6> slots;
    static quint64 uses = 0;

    const auto kept = std::find_if(slots.begin(), slots.end(), [&](const MatchList& slot) {
        return slot.isFor(recordText, queryText);
    });
    if (kept != slots.end()) {
        kept->lastUse = ++uses;
        return kept->names.value(n - 1);
    }
    MatchList& slot =
        *std::min_element(slots.begin(), slots.end(), [](const MatchList& a, const MatchList& b) {
            return a.lastUse < b.lastUse;
        });
    const QStringList names = FindMatches(recordText, queryText);
    slot = {recordText, queryText, names.first(std::min<qsizetype>(names.size(), kMatchesKept)),
            ++uses};
    return names.value(n - 1);
}

} // namespace hotel
