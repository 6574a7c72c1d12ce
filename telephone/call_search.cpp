#include "telephone/call_search.h"

#include "link/QVRapp.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "telephone/call_rating.h"
#include "telephone/call_record.h"
#include "tools/lists/CmnGrd.h"
#include "tools/lists/list_totals.h"
#include "tools/queries/query_text.h"

namespace hotel {

namespace {

constexpr QStringView kTimeFormat = u"HH:mm:ss";

bool OccursIn(QStringView record, QStringView tag, const QString& limit) {
    return limit.isEmpty() || limit.contains(GetTag(record, tag));
}

} // namespace

bool IsWithinLimits(QStringView record, const CallLimits& limits) {
    using namespace call_record;
    if (!OccursIn(record, kExtension, limits.extensions) ||
        !OccursIn(record, kOwner, limits.owners) || !OccursIn(record, kUser, limits.users))
        return false;
    if (!GetTag(record, kNumber).startsWith(limits.numberStart))
        return false;
    const double minutes = double(SecondsOfCall(GetTag(record, kLength))) / 60;
    return (limits.leastMinutes.isEmpty() || minutes >= LeadingNumber(limits.leastMinutes)) &&
           (limits.greatestMinutes.isEmpty() || minutes <= LeadingNumber(limits.greatestMinutes));
}

QString CallConditions(const CallQuestion& question, QDate day) {
    using namespace call_record;
    QList<Condition> conditions;
    const auto ask = [&](QStringView tag, QStringView op, const QString& target) {
        if (!target.isEmpty())
            conditions.append(
                {kAnd.toString(), tag.toString(), op.toString(), WithoutTagMarks(target)});
    };
    ask(kExtension, u"包含", question.extension);
    ask(kOwner, u"包含", question.owner);
    ask(kUser, u"包含", question.user);
    ask(kNumber, u"包含", question.number);
    ask(kTotal, u"数值不小于", question.leastTotal);
    ask(kTotal, u"数值不大于", question.greatestTotal);
    if (conditions.isEmpty())
        conditions.append({kAnd.toString(), kClass.toString(), u"非空"_s, {}});
    if (day == question.from.date())
        ask(kStartTime, u"不小于", question.from.time().toString(kTimeFormat));
    if (day == question.to.date())
        ask(kStartTime, u"不大于", question.to.time().toString(kTimeFormat));
    for (const QString& callClass : question.classes) // one of them
        conditions.append({kOr.toString(), kClass.toString(), u"包含"_s, callClass});
    return ConditionText(conditions, {});
}

int SearchCalls(const CallQuestion& question, const BillingFiles& files, CmnGrd& list) {
    const int nameColumn = list.Grd().column(kKeyHeader);
    const qint64 days = question.from.date().daysTo(question.to.date());
    for (qint64 n = 0; n <= days; ++n) {
        const QDate day = question.from.date().addDays(n);
        list.setWalkPart(int(n), int(days) + 1);
        if (QueryToGrid(files.dayFile(day), kCallProject.toString(), CallConditions(question, day),
                        nameColumn, list) != WalkEnd::Finished ||
            !list.walkGoesOn(0, 0))
            break;
    }
    return SumUpCalls(list);
}

int SumUpCalls(CmnGrd& list) {
    const int calls = list.Grd().dataRows();
    if (calls > 0)
        AddColumnTotals(list.Grd(), kCallSums);
    return calls;
}

} // namespace hotel
