#include "house/guests/guest_form.h"

#include "house/common/folio_number.h"
#include "house/guests/guest_text.h"
#include "house/rooms/room_record.h"
#include "house/rooms/room_status.h"
#include "record/numbers.h"
#include "record/record_text.h"

#include <algorithm>

namespace hotel {

namespace {

using namespace guest_text;

constexpr QStringView kDateFormat = u"yyyy-MM-dd";
constexpr QStringView kTimeFormat = u"HH:mm";

constexpr QStringView kCarriedFields[] = {
    kFolio,      kEmployer, kReceivedBy, kArrivalTime, kArrivalDate,  kDeparture,
    kComingFrom, kGoingTo,  kReason,     kJobTitle,    kReceptionist, kStatus,
};
constexpr QStringView kRateFields[] = {kRateKind, kPrice};
constexpr QStringView kOwnFields[] = {kRoom, kBed, kPays}; // never copied from guest to guest

template<typename Tags>
QString Carried(QString guest, QStringView form, const Tags& tags) {
    for (const QStringView tag : tags) {
        if (GetTag(guest, tag).isEmpty())
            guest = SetTag(guest, tag, GetTag(form, tag));
    }
    return guest;
}

Notice CheckNotice(const QString& words) {
    return {u"请检查"_s, words};
}

FormStep NextGuest(FormPlace from, int guests, bool complete) {
    if (!complete)
        return {from, false, CheckNotice(u"客人的主要信息不全，不能继续下一位"_s)};
    const int last = std::min(guests, kBedLimit);
    return {{from.room, std::min(from.guest + 1, last)}, true, {}};
}

FormStep NextRoom(FormPlace from, int rooms, bool complete) {
    if (from.room == 1 && !complete) {
        return {from, false, CheckNotice(u"第一个房间的客人都没有正确输入，不能输入下一个房间"_s)};
    }
    if (from.room >= rooms)
        return {from, complete, {}};
    return {{from.room + 1, 1}, complete, {}};
}

FormStep LastRoom(FormPlace from, bool complete) {
    if (from.room <= 1)
        return {from, complete, {}};
    return {{from.room - 1, 1}, complete, {}};
}

QTime ParsedTime(QStringView typed) {
    const QList<QStringView> parts = typed.split(u':');
    if (typed.size() < 3 || parts.size() < 2 || parts.size() > 3)
        return {};
    bool isHour = false;
    bool isMinute = false;
    const int hour = parts[0].toInt(&isHour);
    const int minute = parts[1].toInt(&isMinute);
    return isHour && isMinute ? QTime(hour, minute) : QTime();
}

} // namespace

QString NewGuestForm(const QDateTime& now) {
    QString form;
    form = SetTag(form, kDocumentKind, kIdentityCard);
    form = SetTag(form, kArrivalTime, now.toString(kTimeFormat));
    form = SetTag(form, kArrivalDate, now.toString(kDateFormat));
    form = SetTag(form, kDeparture, now.addDays(1).toString(kDateFormat));
    form = SetTag(form, kReason, u"公务旅行");
    return SetTag(form, kJobTitle, u"干部");
}

QString GuestForForm(QStringView guest, QStringView form, const QDateTime& now) {
    QString shown = Carried(guest.toString(), form, kCarriedFields);
    if (GetTag(shown, kRoomType) == GetTag(form, kRoomType))
        shown = Carried(shown, form, kRateFields);
    if (GetTag(shown, kDocumentKind).isEmpty())
        shown = SetTag(shown, kDocumentKind, kIdentityCard);
    if (GetTag(shown, kFolio).isEmpty()) {
        shown = SetTag(shown, kFolio, NewFolioNumber(now));
        shown = SetTag(shown, kPays, u"1");
    }
    if (GetTag(shown, kStatus).isEmpty())
        shown = SetTag(shown, kStatus, kWholeRoom);
    if (IsShared(GetTag(shown, kStatus)))
        shown = SetTag(shown, kSharesRoom, u"1");
    return InWritingOrder(shown);
}

QString CopyKr(QStringView form) {
    QString copied = form.toString();
    for (const QStringView tag : kOwnFields)
        copied = SetTag(copied, tag, {});
    return copied;
}

QString PasteKr(QStringView form, QStringView copied) {
    QString pasted = copied.toString();
    for (const QStringView tag : kOwnFields)
        pasted = SetTag(pasted, tag, GetTag(form, tag));
    return InWritingOrder(pasted);
}

QString SharedStatusAmong(const QStringList& statuses) {
    const auto found = std::ranges::find_if(statuses, [](const QString& status) {
        return status.contains(u"散客") || status.contains(u"散住");
    });
    return found == statuses.end() ? QString() : *found;
}

FormStep DecideFormStep(FormMove move, FormPlace from, int rooms, int guests, bool complete) {
    switch (move) {
    case FormMove::NextGuest:
        return NextGuest(from, guests, complete);
    case FormMove::LastGuest:
        return {{from.room, std::max(from.guest - 1, 1)}, true, {}};
    case FormMove::NextRoom:
        return NextRoom(from, rooms, complete);
    case FormMove::LastRoom:
        return LastRoom(from, complete);
    }
    Q_UNREACHABLE();
}

AgeCheck CheckAge(QStringView age) {
    const double years = LeadingNumber(age);
    if (age.isEmpty() || (years >= 1 && years < 80))
        return {age.toString(), {}};
    const bool possible = years >= 1 && years < 120;
    return {possible ? age.toString() : QString(),
            Notice{u"客人年龄特别"_s, u"客人的年龄可能错误，如果是身份证自动算出来的年龄，"
                                      u"证件号码可能输错！"_s}};
}

QString ArrivalTime(QStringView typed, QTime now) {
    const QTime time = ParsedTime(typed);
    return (time.isValid() ? time : now).toString(kTimeFormat);
}

QString DepartureDate(QStringView typed, QDate arrival) {
    constexpr int kMostDigits = 3;
    bool isCount = false;
    const uint nights = typed.toUInt(&isCount);
    const bool counts = isCount && typed.size() <= kMostDigits && arrival.isValid();
    return counts ? arrival.addDays(nights).toString(kDateFormat) : typed.toString();
}

QString WithBirthday(QStringView remark, QStringView birthDate, QDate today) {
    constexpr int kDaysAhead = 3;
    const QString birthday = today.toString(u"yyyy") + birthDate.mid(4);
    const qint64 days = today.daysTo(QDate::fromString(birthday, kDateFormat));
    const QString note = u"生日:"_s + birthday;
    const bool isNear =
        QDate::fromString(birthday, kDateFormat).isValid() && days >= 0 && days < kDaysAhead;
    if (!isNear || remark.contains(note))
        return remark.toString();
    return remark.isEmpty() ? note : remark + u"; "_s + note;
}

QString DocumentPhotographName(QStringView documentNumber) {
    return documentNumber.size() < 5 ? QString() : documentNumber + u".jpg"_s;
}

QString PortraitName(QStringView guestName, const QDateTime& now) {
    return guestName.size() < 2 ? QString() : guestName + now.toString(u"yyMMddHHmm") + u".jpg"_s;
}

} // namespace hotel
