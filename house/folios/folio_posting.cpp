#include "house/folios/folio_posting.h"

#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "link/next_number.h"
#include "link/records.h"
#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/numbers.h"
#include "record/record_text.h"

#include <array>

namespace hotel {

namespace {

constexpr std::array<QStringView, 7> kProjects = {
    u"信用押金信息", u"房费明细信息", u"餐饮娱乐费用", u"宽带网络费用",
    u"电话计费信息", u"团队结算信息", u"客房服务费用",
};

int AppendToJournal(QStringView folio, QStringView project, const QString& record) {
    const QString file = JournalFile(project, Clock::Today());
    DbCreateProject(file, project);
    const QString key = NextNumberInProject(file, project);
    const QString entry =
        SetTag(SetTag(record, folio_record::kSerial, key), folio_record::kFolio, folio);
    return SaveRecord(file, project, key, entry);
}

} // namespace

QString PostingProject(int kind) {
    return kind >= 0 && kind < int(kProjects.size()) ? kProjects[size_t(kind)].toString()
                                                     : QString();
}

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
    const QString project = kind == kServicePosting ? QString() : PostingProject(kind);
    const QString ledger = LedgerFile(folio);
    const QString record = ReadRecord(ledger, project, key);
    if (record.isEmpty())
        return 0;
    const int status = DeleteRecord(ledger, project, key);
    const Money amount = Money::FromText(GetTag(record, posting::kAmount));
    return status +
           AppendToJournal(folio, project, SetTag(record, posting::kAmount, (-amount).text()));
}

} // namespace hotel
