#include "house/guests/registration_form_cells.h"

#include "house/guests/guest_text.h"
#include "record/field_walk.h"
#include "record/record_text.h"
#include "session/parameters.h"
#include "tools/paper/print_form_cells.h"

#include <span>

namespace hotel {

namespace {

using namespace guest_text;
namespace cell = registration_form;

struct GuestCell {
    int cell;
    QStringView field; // empty: the cell is printed as a blank
};

constexpr GuestCell kFirstGuest[] = {
    {cell::kGuest, kName},
    {cell::kSex, kSex},
    {cell::kAge, kAge},
    {cell::kAddress, kAddress},
    {cell::kJobTitle, kJobTitle},
    {cell::kDocumentKind, kDocumentKind},
    {cell::kDocumentNumber, kDocumentNumber},
    {cell::kSignature, {}},
    {cell::kReason, kReason},
    {cell::kFrom, kComingFrom},
    {cell::kTo, kGoingTo},
    {cell::kOuterFrame, {}},
    {cell::kDeparture, kDeparture},
};
constexpr GuestCell kSecondGuest[] = {
    {cell::kSecondGuest, kName},
    {cell::kSecondSex, kSex},
    {cell::kSecondAge, kAge},
    {cell::kSecondAddress, kAddress},
};
constexpr GuestCell kStay[] = {
    {cell::kRoom, kRoom},
    {cell::kRoomType, kRoomType},
    {cell::kPrice, kPrice},
    {cell::kRemark, kRemark},
    {cell::kFormNumber, kFolio},
    {cell::kFolio, kFolio},
    {cell::kReception, kReceptionist},
    {cell::kArrivalDate, kArrivalDate},
    {cell::kArrivalTime, kArrivalTime},
};

FormCells Cells(QStringView guest, std::span<const GuestCell> layout) {
    FormCells cells;
    for (const GuestCell& entry : layout)
        cells[entry.cell] = entry.field.isEmpty() ? u" "_s : GetTag(guest, entry.field);
    return cells;
}

} // namespace

FormCells HotelCells() {
    return {{cell::kHotel, Param(u"Yhdwmc")}};
}

FormCells PartyCells(const QStringList& rooms) {
    return {{cell::kPartyRooms, rooms.join(u',')}};
}

FormCells GuestCells(QStringView guest, int n) {
    switch (n) {
    case 1:
        return Cells(guest, kFirstGuest);
    case 2:
        return Cells(guest, kSecondGuest);
    default:
        return {};
    }
}

FormCells NoticeCells(QStringView guest) {
    FormCells cells = GuestCells(guest, 1);
    cells.insert(GuestCells(guest, 2));
    return cells;
}

FormCells RegistrationCells(QStringView roomGuests, const QDateTime& now) {
    FormCells cells = {{cell::kRegistered, now.toString(u"yyyy-MM-dd")}};
    FieldWalk bed(roomGuests);
    for (int n = 1; n <= 2 && bed.next(); ++n) {
        cells.insert(GuestCells(bed.value(), n));
        if (n == 1)
            cells.insert(Cells(bed.value(), kStay));
    }
    return cells;
}

} // namespace hotel
