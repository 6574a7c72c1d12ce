#include "telephone/call_intake.h"

#include <algorithm>

#include "link/records.h"
#include "link/serv_api.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "telephone/call_record.h"
#include "tools/queries/query_text.h"

namespace hotel {

namespace {

constexpr qsizetype kStampLength = 8;

bool IsPresent(const QString& dayFile) {
    return DbCheckFile(dayFile, kCallStamp).size() == kStampLength;
}

QString WithoutMark() {
    return ConditionText({{kOr.toString(), call_record::kMark.toString(), u"为空"_s, {}}}, {});
}

// The calls of a round, all that wait where they don't fill it. The list of the server is copied, as it may be asked
// for by another screen while a call is read.
QStringList NextCalls(WaitingCalls& waiting) {
    if (waiting.names.size() < kCallsARound) {
        waiting.names.clear();
        const QString condition = WithoutMark();
        for (int n = 1;; ++n) {
            const QString name = DbFieldFind(waiting.dayFile, kCallProject, condition, n);
            if (name.isEmpty() || IsError(name))
                break;
            if (!waiting.leftOut.contains(name))
                waiting.names.append(name);
        }
    }
    const QStringList names =
        waiting.names.first(std::min<qsizetype>(kCallsARound, waiting.names.size()));
    waiting.names.remove(0, names.size());
    return names;
}

} // namespace

RoundOutcome RateWaitingCalls(const QString& dayFile, const RatingTables& tables,
                              WaitingCalls& waiting, const CallRated& rated) {
    RoundOutcome round;
    if (!IsPresent(dayFile)) { // or nobody answers, which a read tells
        round.cut = ReadToChange(dayFile, {}, kCallProject).failed();
        return round;
    }
    round.present = true;
    if (waiting.dayFile != dayFile)
        waiting = {dayFile, {}, {}};
    const QStringList names = NextCalls(waiting);
    round.found = int(names.size());
    bool unseen = names.isEmpty();
    for (const QString& name : names) {
        const RecordRead call = ReadToChange(dayFile, kCallProject, name);
        unseen |= call.failed();
        if (call.outcome != Reading::Present)
            continue;
        if (call.value.isEmpty()) {
            waiting.leftOut.insert(name);
            continue;
        }
        if (!GetTag(call.value, call_record::kMark).isEmpty()) // by another desk, meanwhile
            continue;
        const RatedCall result = RateCall(call.value, tables);
        if (!result.problem.isEmpty()) {
            waiting.leftOut.insert(name);
            round.problem = result.problem;
            continue;
        }
        if (DbModifyRecord(dayFile, kCallProject, name, result.record) != 0) {
            round.failure = {u"意外错误"_s, u"数据不能保存，请重新链接数据库服务器!"_s};
            round.cut = true;
            return round;
        }
        ++round.rated;
        if (rated && !rated(name, result.record))
            return round;
    }
    round.cut = unseen && !IsPresent(dayFile);
    return round;
}

QDate NextCallDay(const RoundOutcome& round, QDate day, QDate today) {
    const bool done = !round.cut && round.found < kCallsARound;
    return done && day < today ? day.addDays(1) : day;
}

} // namespace hotel
