#include "house/stays/night_audit.h"

#include "house/common/folio_number.h"
#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/folios/folio_posting.h"
#include "house/folios/night_charge.h"
#include "house/guests/guest_text.h"
#include "house/rooms/room_record.h"
#include "house/rooms/room_status.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "session/parameters.h"

#include <algorithm>

namespace hotel {

namespace {

// How far the lines of the log are moved in.
constexpr QStringView kStepLead = u" ";
constexpr QStringView kComplaintLead = u"  ";
constexpr QStringView kResultLead = u"    ";

constexpr QStringView kEveningBegins = u"18:00:00";
constexpr QStringView kGuestsWhoShare = u"散住客人";

QString Joined(const QStringList& statuses) {
    QString joined;
    for (const QString& status : statuses)
        joined += status + u',';
    return joined;
}

NightCharge ChargeOfBed(const QString& bed, const QString& auditDate) {
    const QString settledThrough = GetTag(bed, guest_text::kSettledThrough);
    const QString arrivalDate = GetTag(bed, guest_text::kArrivalDate);
    const QString arrivalTime = GetTag(bed, guest_text::kArrivalTime);
    return ChargeOfNight({settledThrough, arrivalDate, arrivalTime, auditDate},
                         {Param(u"Yjbj"), Param(u"XYtks")});
}

QString ChargeRecord(const QString& room, const QString& bed, Money factor,
                     const NightAudit& audit) {
    const Money price = Money::FromText(GetTag(bed, guest_text::kPrice));
    const std::pair<QStringView, QString> fields[] = {
        {u"费用名称", GetTag(bed, guest_text::kSettledThrough) + u"房费"_s},
        {u"房间号", room},
        {u"客人", GetTag(bed, guest_text::kName)},
        {u"日期", Clock::DateText()},
        {u"时间", Clock::TimeText()},
        {posting::kAmount, (factor * price).text()},
        {u"备注", u"自动结算"_s},
        {u"经办单位", audit.department},
        {u"经办人", audit.auditor},
    };
    QString record;
    for (const auto& [tag, value] : fields)
        record = SetTag(record, tag, value);
    return record;
}

void PostNight(const QString& room, const QString& bed, Money factor, const NightAudit& audit) {
    const QString guest = GetTag(bed, guest_text::kName);
    const QString folio = GetTag(bed, guest_text::kFolio);
    if (folio.size() != kFolioLength) {
        audit.log(kComplaintLead + u"客房："_s + room + u"的"_s + guest +
                  u"没有结账号，或结账号错误？"_s);
        return;
    }
    const Posted posted = SaveBills(folio, kRoomPosting, ChargeRecord(room, bed, factor, audit));
    audit.log(kResultLead + u"结算"_s + room + u"房间的"_s + guest + u"的"_s +
              GetTag(bed, guest_text::kSettledThrough) +
              (posted.status == 0 ? u"房费成功"_s : u"房费保存失败"_s));
}

bool IsLetAsWhole(QStringView bed) {
    return !IsShared(GetTag(bed, guest_text::kStatus)) &&
           LeadingNumber(GetTag(bed, kGuestsWhoShare)) == 0;
}

// Charges the beds of a room in their order; gives the stay record with their new dates.
QString SettledBeds(const QString& room, const QString& stay, const NightAudit& audit) {
    QString settled = stay;
    for (int n = 1; n <= kBedLimit; ++n) {
        const QString bed = GetTag(stay, GuestTag(n));
        if (bed.isEmpty())
            continue;
        const NightCharge charge = ChargeOfBed(bed, audit.auditDate);
        if (charge.factor > Money())
            PostNight(room, bed, charge.factor, audit);
        if (charge.writesBed)
            settled = SetTag(settled, GuestTag(n),
                             SetTag(bed, guest_text::kSettledThrough, charge.settledThrough));
        if (IsLetAsWhole(bed))
            break;
    }
    return settled;
}

// A room whose guests can't be read is left as it is: nothing is charged, nothing written.
void SettleRoom(const QString& room, const NightAudit& audit) {
    const RecordRead stay = ReadProjectToChange(RoomFile(room), room_record::kStayProject);
    if (stay.failed())
        audit.log(kResultLead + u"读取"_s + room + u"房间的住客失败"_s);
    const QString settled = SettledBeds(room, stay.value, audit);
    if (settled != stay.value && SaveRmRec(room, settled) != 0)
        audit.log(kResultLead + u"更新"_s + room + u"房间的结算日期失败"_s);
}

bool SettleRooms(const NightAudit& audit) {
    const QString statuses = Joined(audit.statuses);
    const QList<RoomEntry> rooms = LoadRooms();
    if (rooms.isEmpty() || audit.statuses.isEmpty())
        audit.log(kResultLead + (rooms.isEmpty() ? u"没有读到客房清单"_s : u"没有读到结算房态"_s));
    for (int n = 0; n < rooms.size(); ++n) {
        if (!GoesOn(audit.progress, n, int(rooms.size())))
            return false;
        if (statuses.contains(StatusAtSale(GetTag(rooms[n].record, room_record::kStatus))))
            SettleRoom(rooms[n].number, audit);
    }
    return true;
}

bool CheckFolios(const NightAudit& audit) {
    return Jzhjc(audit.progress);
}

struct AuditStep {
    QStringView tag;
    QStringView words;               // of its line in the log
    bool dated;                      // date and time stand ahead of the words
    bool (*work)(const NightAudit&); // false when it was stopped; null: the step is its line alone
    QStringView next;                // tag of the step behind it
};

constexpr AuditStep kSteps[] = {
    {kFirstAuditStep, u"夜审开始：", true, nullptr, u"1"},
    {u"1", u"1:结算房费：", false, SettleRooms, u"2"},
    {u"2", u"2:检查结账号", false, CheckFolios, u"3"},
    {u"3", u"3:次日离店客人检查", false, nullptr, u"4"},
    {u"4", u"4:计算常客积分", false, nullptr, u"5"},
    {u"5", u"5:预订检查处理", false, nullptr, u"6"},
    {u"6", u"6:数据检查校对", false, nullptr, u"7"},
    {u"7", u"7:统计每日指标", false, nullptr, u"8"},
    {u"8", u"8:自动延住", false, nullptr, u"9"},
    {u"9", u"9:数据备份", false, nullptr, u"10"},
    {u"10", u"夜审结束！\r\n", true, nullptr, u""},
};

QString Moment() {
    return Clock::DateText() + u' ' + Clock::TimeText();
}

} // namespace

QString AuditDate(const QDateTime& now) {
    const bool evening = now.toString(u"HH:mm:ss") > kEveningBegins;
    return now.date().addDays(evening ? 1 : 0).toString(u"yyyy-MM-dd");
}

QString RunAuditStep(QStringView tag, const NightAudit& audit) {
    const auto* step = std::ranges::find(kSteps, tag, &AuditStep::tag);
    if (step == std::end(kSteps))
        return {};
    audit.log(kStepLead + (step->dated ? Moment() : QString()) + step->words);
    if (step->work && !step->work(audit)) {
        audit.log(kStepLead + Moment() + u"夜审中断！"_s);
        return {};
    }
    return step->next.toString();
}

} // namespace hotel
