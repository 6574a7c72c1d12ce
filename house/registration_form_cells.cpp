#include "house/registration_form_cells.h"

#include "house/guest_text.h"
#include "record/field_walk.h"
#include "record/record_text.h"

#include <span>

namespace hotel {

namespace {

using namespace guest_text;

struct GuestCell {
    int cell;
    QStringView field; // empty: the cell is printed as a blank
};

constexpr GuestCell kFirstGuest[] = {
    {1, kName},           {2, kSex},      {3, kAge},
    {4, kAddress},        {5, kJobTitle}, {6, kDocumentKind},
    {7, kDocumentNumber}, {8, {}},        {9, kReason},
    {10, kComingFrom},    {11, kGoingTo}, {12, {}},
    {13, kDeparture},
};
constexpr GuestCell kSecondGuest[] = {{14, kName}, {15, kSex}, {16, kAge}, {17, kAddress}};

FormCells Cells(QStringView guest, std::span<const GuestCell> layout) {
    FormCells cells;
    for (const GuestCell& cell : layout)
        cells[cell.cell] = cell.field.isEmpty() ? u" "_s : GetTag(guest, cell.field);
    return cells;
}

} // namespace

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

FormCells PartyCells(const QStringList& rooms) {
    return {{1, rooms.join(u',')}};
}

FormCells RegistrationCells(QStringView roomGuests, const QDateTime& now) {
    FormCells cells;
    FieldWalk bed(roomGuests);
    for (int n = 1; n <= 2 && bed.next(); ++n) {
        cells.insert(GuestCells(bed.value(), n));
        if (n > 1)
            continue;
        const QString folio = GetTag(bed.value(), kFolio);
        const QString date = now.toString(u"yyyy-MM-dd");
        cells.insert({{34, folio},
                      {37, date},
                      {38, now.toString(u"HH:mm")},
                      {41, folio},
                      {52, date},
                      {54, GetTag(bed.value(), kReceptionist)}});
    }
    return cells;
}

} // namespace hotel
