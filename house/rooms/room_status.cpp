#include "house/rooms/room_status.h"

#include <algorithm>
#include <array>

#include "record/literals.h"

namespace hotel {

namespace {

constexpr std::array<QStringView, 4> kVacantWords = {u"空闲", u"空房", u"闲房", u"空闲房"};
constexpr std::array<QStringView, 6> kReceptionStatuses = {u"包房", u"长包", u"钟点",
                                                           u"散客", u"会议", u"团队"};
constexpr QStringView kComplimentary = u"免费";

StatusDecision GoAhead() {
    return {.change = true, .refusal = {}};
}

StatusDecision Refuse(const QString& title, const QString& words) {
    return {.change = false, .refusal = Notice{title, words}};
}

StatusDecision RefuseForReception() {
    return Refuse(u"不能操作"_s, u"这种房态不能直接设定，必须通过接待等渠道设定！"_s);
}

} // namespace

bool IsVacant(QStringView status) {
    return status.contains(u'空') || status.contains(u'闲');
}

bool IsShared(QStringView status) {
    return status.contains(u'散');
}

bool IsVacantWord(QStringView word) {
    return std::ranges::find(kVacantWords, word) != kVacantWords.end();
}

bool IsReceptionStatus(QStringView status) {
    return std::ranges::find(kReceptionStatuses, status) != kReceptionStatuses.end();
}

QString StatusAtSale(QStringView status) {
    return status.isEmpty() ? kVacantRoom.toString() : status.toString();
}

StatusDecision DecideStatusChange(QStringView oldStatus, QStringView newStatus, int guests) {
    if (oldStatus == newStatus)
        return {};
    if (IsReceptionStatus(oldStatus))
        return guests == 0 ? GoAhead() : RefuseForReception();
    if (oldStatus == kComplimentary) {
        return guests < 1 ? GoAhead()
                          : Refuse(u"操作错误"_s,
                                   u"目前该房间还有客人,不能随便更换房态,请先给客人换房!"_s);
    }
    return IsReceptionStatus(newStatus) ? RefuseForReception() : GoAhead();
}

} // namespace hotel
