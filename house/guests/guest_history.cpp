#include "house/guests/guest_history.h"

#include <algorithm>

#include "house/guests/guest_text.h"
#include "link/records.h"
#include "record/field_walk.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "session/parameters.h"

namespace hotel {

namespace {

constexpr qsizetype kLeastKind = 3;
constexpr qsizetype kLeastNumber = 6;

bool HasPathSigns(QStringView text) {
    return std::ranges::any_of(text, [](QChar c) { return c == u':' || c == u'/' || c == u'\\'; });
}

// Empty for a number that isn't kept.
QString FileName(QStringView kind, QStringView number) {
    if (kind != kIdentityCard)
        return number.left(8).toString();
    if (!HasIdentityLength(number))
        return {};
    return number.mid(number.size() == 15 ? 6 : 8, 4).toString();
}

QString WithFolio(const QString& folios, QStringView folio) {
    int count = 0;
    for (FieldWalk stay(folios); stay.next();)
        ++count;
    return SetTag(folios, FormatNumber(count + 1, u"#000"), folio);
}

} // namespace

QString GuestHistoryFile(QStringView documentKind, QStringView documentNumber) {
    const bool kept = documentKind.size() >= kLeastKind && documentNumber.size() >= kLeastNumber &&
                      !HasPathSigns(documentKind) && !HasPathSigns(documentNumber);
    const QString name = kept ? FileName(documentKind, documentNumber) : QString();
    if (name.isEmpty())
        return {};
    return Param(u"KszlLj") + documentKind + u'\\' + documentNumber.left(2) + u'\\' + name +
           u".QVR"_s;
}

int UpdateKrLsRec(QStringView name, QStringView documentKind, const QString& documentNumber,
                  QStringView left, QStringView folio) {
    const QString number = TrimBlanks(documentNumber.toUpper());
    const QString file = GuestHistoryFile(documentKind, number);
    if (file.isEmpty())
        return 0;
    const RecordRead before = ReadToChange(file, guest_history::kProject, number);
    if (before.failed())
        return -1;
    if (before.outcome == Reading::Absent)
        EnsureProject(file, guest_history::kProject);
    QString record = SetTag(before.value, guest_history::kName, name);
    record = SetTag(record, guest_history::kDocumentNumber, number);
    record = SetTag(record, guest_history::kLeft, left);
    record = SetTag(record, guest_history::kFolios,
                    WithFolio(GetTag(record, guest_history::kFolios), folio));
    return SaveRecord(file, guest_history::kProject, number, record);
}

} // namespace hotel
