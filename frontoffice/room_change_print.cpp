#include "frontoffice/room_change_print.h"

#include "house/guests/guest_text.h"
#include "house/guests/registration_form_cells.h"
#include "house/rooms/room_record.h"
#include "house/stays/room_change.h"
#include "link/records.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "session/parameters.h"
#include "session/session.h"
#include "tools/paper/PrtSubs.h"
#include "tools/paper/print_form_cells.h"

namespace hotel {

namespace {

namespace cell = room_change_form;

constexpr int kNoticeGuests = 100;

FormCells HeadCells(const RoomChange& change, QStringView firstGuest) {
    return {
        {cell::kOldRoom, change.oldRoom},
        {cell::kNewRoom, change.newRoom},
        {cell::kRoomType, GetTag(firstGuest, guest_text::kRoomType)},
        {cell::kPrice, GetTag(firstGuest, guest_text::kPrice)},
        {cell::kFolio, GetTag(firstGuest, guest_text::kFolio)},
        {cell::kReason, change.reason},
    };
}

// Blocks one under another, on a further page where one doesn't fit any more.
class Sheets {
public:
    explicit Sheets(const QString& format) : format_(format) { StartPage(); }
    ~Sheets() { EndPage(); }
    Sheets(const Sheets&) = delete;
    Sheets& operator=(const Sheets&) = delete;

    void add(QStringView block, const FormCells& cells) {
        if (y_ > 0 && y_ + FormBlockHeight(format_, block) > PrintableHeightCm()) {
            EndPage();
            StartPage();
            y_ = 0;
        }
        y_ += PrintFormBlockWithData(format_, block, 0, y_, cells);
    }

private:
    QString format_;
    double y_ = 0;
};

} // namespace

void PrintRoomChangeNotice(const RoomChange& change, const QString& workingSet) {
    const QString file = Param(u"DygsLj") + Param(u"Krhftzd");
    const PaperFormat paper = ReadPaperFormat(ReadProject(file, tag::kPaper));
    const QString format = ReadProject(file, cell::kName);
    const QString guests = GetTag(workingSet, change.newRoom);
    OpenPrintJob(paper.width, paper.height);
    SetPrintMargins(paper.left, paper.right, paper.top, paper.bottom);
    {
        Sheets sheets(format);
        sheets.add(tag::kFormTitle, HotelCells());
        sheets.add(tag::kFormHead, HeadCells(change, GetTag(guests, GuestTag(1))));
        sheets.add(tag::kFormBody, {});
        for (int n = 1; n <= kNoticeGuests; ++n) {
            if (const QString guest = GetTag(guests, GuestTag(n)); !guest.isEmpty())
                sheets.add(tag::kFormBody1, NoticeCells(guest));
        }
        sheets.add(tag::kFormFoot, {{cell::kOperator, CurrentSession().userName}});
    }
    PreviewPrintJob();
}

} // namespace hotel
