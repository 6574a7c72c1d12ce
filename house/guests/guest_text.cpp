#include "house/guests/guest_text.h"

#include "house/common/folio_number.h"
#include "record/field_walk.h"
#include "record/record_text.h"

#include <algorithm>

namespace hotel {

namespace {

using namespace guest_text;

constexpr QStringView kFields[] = {
    kRoom,       kName,           kFolio,        kBed,        kRemark,      kDocumentPhotograph,
    kPortrait,   kDocumentNumber, kDocumentKind, kSex,        kAge,         kAddress,
    kSharesRoom, kPays,           kEmployer,     kReceivedBy, kArrivalTime, kArrivalDate,
    kDeparture,  kComingFrom,     kGoingTo,      kReason,     kJobTitle,    kReceptionist,
    kStatus,     kRoomType,       kRateKind,     kPrice,
};

bool IsGuestField(QStringView tag) {
    return std::ranges::find(kFields, tag) != std::end(kFields);
}

// The form of a resident identity number: 15 digits, or 17 and a check character.
bool IsIdentityNumber(QStringView number) {
    if (!HasIdentityLength(number))
        return false;
    const QStringView digits = number.size() == 15 ? number : number.chopped(1);
    return DigitsOnly(digits) == digits;
}

} // namespace

std::span<const QStringView> GuestFields() {
    return kFields;
}

QString InWritingOrder(QStringView guest) {
    QString ordered;
    for (const QStringView tag : kFields)
        ordered = SetTag(ordered, tag, GetTag(guest, tag));
    for (FieldWalk walk(guest); walk.next();) {
        if (!IsGuestField(walk.name()))
            ordered = SetTag(ordered, walk.name(), walk.value());
    }
    return ordered;
}

int TestKrRecFail(QStringView guest) {
    const auto isEmpty = [guest](QStringView tag) { return GetTag(guest, tag).isEmpty(); };
    int lacks = 0;
    if (isEmpty(kName))
        lacks += kLacksName;
    if (isEmpty(kDocumentKind))
        lacks += kLacksDocumentKind;
    if (GetTag(guest, kDocumentKind) == kIdentityCard &&
        !IsIdentityNumber(GetTag(guest, kDocumentNumber)))
        lacks += kLacksDocumentNumber;
    if (GetTag(guest, kFolio).size() != kFolioLength)
        lacks += kLacksFolio;
    if (isEmpty(kStatus))
        lacks += kLacksStatus;
    if (isEmpty(kPrice))
        lacks += kLacksPrice;
    return lacks;
}

} // namespace hotel
