#include "house/folios/folio_posting.h"

#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "link/next_number.h"
#include "link/records.h"
#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/numbers.h"
#include "record/record_text.h"

namespace hotel {

namespace {

int AppendToJournal(QStringView folio, QStringView project, const QString& record) {
    const QString file = JournalFile(project, Clock::Today());
    DbCreateProject(file, project);
    const QString key = NextNumberInProject(file, project);
    const QString entry =
        SetTag(SetTag(record, folio_record::kSerial, key), folio_record::kFolio, folio);
    return SaveRecord(file, project, key, entry);
}

} // namespace

Posted SaveBills(QStringView folio, int kind, const QString& record) {
    const QString project = PostingProject(kind);
    const QString ledger = LedgerFile(folio);
    DbCreateProject(ledger, project);
    const QString key = NextNumberInProject(ledger, project);
    const QString entry = SetTag(record, folio_record::kSerial, key);
    const int status = SaveRecord(ledger, project, key, entry);
    return {status + AppendToJournal(folio, project, entry), key};
}

int DelBills(QStringView folio, int kind, QStringView key) {
    constexpr int kNotDone = 1;
    const QString project = kind == kServicePosting ? QString() : PostingProject(kind);
    // A record of no project in particular would be read from any that has that number.
    if (project.isEmpty())
        return kNotDone;
    const QString ledger = LedgerFile(folio);
    const QString record = ReadRecord(ledger, project, key);
    if (record.isEmpty())
        return kNotDone;
    const int status = DeleteRecord(ledger, project, key);
    const Money amount = Money::FromText(GetTag(record, posting::kAmount));
    return status +
           AppendToJournal(folio, project, SetTag(record, posting::kAmount, (-amount).text()));
}

} // namespace hotel
