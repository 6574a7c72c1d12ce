#include "house/folios/folio.h"

#include "house/common/paths.h"
#include "house/guests/guest_text.h"
#include "house/rooms/room_record.h"
#include "link/next_number.h"
#include "link/records.h"
#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/field_walk.h"
#include "record/numbers.h"
#include "record/record_text.h"

namespace hotel {

namespace {

constexpr QStringView kEntryFields[] = {guest_text::kName, guest_text::kSharesRoom,
                                        guest_text::kPays, guest_text::kDocumentNumber};

struct OpenFolio {
    QString number;
    QString record;
    bool isKnown = true; // false: it could not be read, and is not to be written
};

constexpr int kUnread = -1;

QString EntryOf(QStringView guest) {
    QString entry;
    for (const QStringView tag : kEntryFields)
        entry = SetTag(entry, tag, GetTag(guest, tag));
    return entry;
}

QString WithBed(const QString& record, QStringView room, QStringView bedTag, const QString& entry) {
    return SetTag(record, room, SetTag(GetTag(record, room), bedTag, entry));
}

QString WithGuestEntered(const QString& record, QStringView guest, int bed) {
    const QString entry = EntryOf(guest);
    const bool pays = LeadingNumber(GetTag(guest, guest_text::kPays)) > 0;
    const bool becomesPayer = pays && GetTag(record, folio_record::kPayer).isEmpty();
    const QString headed = becomesPayer ? SetTag(record, folio_record::kPayer, entry) : record;
    return WithBed(headed, GetTag(guest, guest_text::kRoom), BedTag(bed), entry);
}

OpenFolio& FolioAmong(QList<OpenFolio>& folios, const QString& number) {
    for (OpenFolio& folio : folios) {
        if (folio.number == number)
            return folio;
    }
    const RecordRead read = ReadToChange(OpenFolioFile(), folio_record::kProject, number);
    return folios.emplaceBack(OpenFolio{number, read.value, !read.failed()});
}

int SaveOpenFolio(QStringView folio, QStringView record) {
    return SaveRecord(OpenFolioFile(), folio_record::kProject, folio, record);
}

int AppendToLedger(QStringView folio, QStringView project, const QString& text) {
    const QString file = LedgerFile(folio);
    DbCreateProject(file, project);
    const QString number = NextNumberInProject(file, project);
    QString record = SetTag(text, folio_record::kSerial, number);
    record = SetTag(record, folio_record::kMoment, Clock::Now().toString(u"yyyy-MM-dd HH:mm"));
    return SaveRecord(file, project, number, record);
}

// `change` of the open record. A folio that isn't open has nothing to be changed; one that can't be read is left as it
// is, and that is told.
template<typename Change>
int ChangeOpenFolio(QStringView folio, Change change) {
    const RecordRead read = ReadToChange(OpenFolioFile(), folio_record::kProject, folio);
    if (read.failed())
        return kUnread;
    return read.outcome == Reading::Absent ? 0 : change(read.value);
}

bool HoldsRoom(QStringView record) {
    FieldWalk field(record);
    for (int n = 0; n < kFolioCheckLimit && field.next(); ++n) {
        if (LeadingNumber(field.name()) > 0)
            return true;
    }
    return false;
}

} // namespace

QString BedTag(int bed) {
    return NumberedTag(u"床位", bed);
}

std::optional<QString> FindOpenFolio(QStringView folio) {
    return FindRecord(OpenFolioFile(), folio_record::kProject, folio);
}

QStringList LoadJzhQd() {
    QStringList folios;
    for (int n = 1; n <= kFolioListLimit; ++n) {
        const QString folio = DbRecordList(OpenFolioFile(), folio_record::kProject.toString(), n);
        if (folio.isEmpty())
            break;
        folios.append(folio);
    }
    return folios;
}

int UpdateJzhByRmRec(const QString& stayRecord) {
    QList<OpenFolio> folios;
    for (int bed = 1; bed <= kBedLimit; ++bed) {
        const QString guest = GetTag(stayRecord, GuestTag(bed));
        const QString number = GetTag(guest, guest_text::kFolio);
        if (number.isEmpty())
            continue;
        OpenFolio& folio = FolioAmong(folios, number);
        folio.record = WithGuestEntered(folio.record, guest, bed);
    }
    int result = 0;
    for (const OpenFolio& folio : folios)
        result += folio.isKnown ? SaveOpenFolio(folio.number, folio.record) : kUnread;
    return result;
}

int DelRmFromJzh(QStringView folio, QStringView room) {
    return ChangeOpenFolio(folio, [&](const QString& record) {
        return SaveJzhLsRec(folio, record) + SaveOpenFolio(folio, SetTag(record, room, {}));
    });
}

int DelKrFromJzh(QStringView folio, QStringView room, int bed) {
    return ChangeOpenFolio(folio, [&](const QString& record) {
        const QString beds = GetTag(record, room);
        const bool isEntered = !GetTag(beds, BedTag(bed)).isEmpty();
        const QString left = isEntered ? SetTag(beds, BedTag(bed), {}) : QString();
        return SaveJzhLsRec(folio, record) + SaveOpenFolio(folio, SetTag(record, room, left));
    });
}

int DelJzh(QStringView folio) {
    return ChangeOpenFolio(folio, [&](const QString& record) {
        int result = SaveJzhLsRec(folio, record);
        result += DeleteRecord(OpenFolioFile(), folio_record::kProject, folio);
        const QString file = RetiredFolioFile(Clock::Today());
        EnsureProject(file, folio_record::kProject);
        const QString number = NextNumberInProject(file, folio_record::kProject);
        return result + SaveRecord(file, folio_record::kProject, number, record);
    });
}

bool Jzhjc(const WalkProgress& progress) {
    const QStringList folios = LoadJzhQd().mid(0, kFolioCheckLimit);
    for (int n = 0; n < folios.size(); ++n) {
        if (!GoesOn(progress, n, int(folios.size())))
            return false;
        const auto record = FindOpenFolio(folios[n]);
        if (record && !HoldsRoom(*record))
            DelJzh(folios[n]);
    }
    return true;
}

int SaveJzhLsRec(QStringView folio, const QString& openRecord) {
    return AppendToLedger(folio, folio_record::kHistoryProject, openRecord);
}

int SaveJzhJzRec(QStringView folio, const QString& settlement) {
    return AppendToLedger(folio, folio_record::kSettlementProject, settlement);
}

int SaveRmLsToJzh(QStringView folio, QStringView room, const QString& stayRecord) {
    return AppendToLedger(folio, folio_record::kStayProject,
                          SetTag(stayRecord, folio_record::kRoom, room));
}

QString LoadJzhLastRec(QStringView folio, QStringView project) {
    const QString file = LedgerFile(folio);
    const double last = LeadingNumber(NextNumberInProject(file, project)) - 1;
    return last == 0 ? QString() : ReadRecord(file, project, FormatNumber(last, u"#0"));
}

} // namespace hotel
