#include "frontoffice/registration_form_print.h"

#include "house/guests/guest_text.h"
#include "house/guests/registration_form_cells.h"
#include "house/guests/working_set.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "session/operation_log.h"
#include "session/parameters.h"
#include "tools/paper/PrtSubs.h"
#include "tools/paper/print_form_cells.h"

namespace hotel {

namespace {

void PrintSheet(const QString& format, const QStringList& rooms, const QString& roomGuests) {
    const std::pair<QStringView, FormCells> blocks[] = {
        {tag::kFormTitle, HotelCells()},
        {tag::kFormHead, PartyCells(rooms)},
        {tag::kFormBody, RegistrationCells(roomGuests, Clock::Now())},
        {tag::kFormBody1, {}},
        {tag::kFormFoot, {}},
    };
    StartPage();
    double y = 0;
    for (const auto& [block, cells] : blocks)
        y += PrintFormBlockWithData(format, block, 0, y, cells);
    EndPage();
}

// The folios of the party, each once.
QStringList FoliosOf(const QString& workingSet, const QStringList& rooms) {
    QStringList folios;
    for (const QString& room : rooms) {
        for (const QString& bed : BedsOfSet(workingSet, room)) {
            const QString folio = GetTag(GuestOfSet(workingSet, room, bed), guest_text::kFolio);
            if (!folio.isEmpty() && !folios.contains(folio))
                folios.append(folio);
        }
    }
    return folios;
}

} // namespace

std::optional<Notice> RefuseRegistrationForm(const QString& workingSet) {
    if (!workingSet.isEmpty())
        return {};
    return Notice{u"以后再打印"_s, u"还没有登记客人信息，或没有有效的登记信息，无法打印！"_s};
}

void PrintRegistrationForm(const QString& workingSet, const QStringList& rooms) {
    const QString file = Param(u"DygsLj") + Param(u"ZsdjFmt");
    const PaperFormat paper = ReadPaperFormat(ReadProject(file, tag::kPaper));
    const QString format = ReadProject(file, registration_form::kName);
    OpenPrintJob(paper.width, paper.height);
    SetPrintMargins(paper.left, paper.right, paper.top, paper.bottom);
    for (const QString& room : rooms) {
        const QString guests = GetTag(workingSet, room);
        // A room that was chosen after the guests were typed has none yet.
        if (!guests.isEmpty() && !format.isEmpty())
            PrintSheet(format, rooms, guests);
    }
    PreviewPrintJob();
    SaveLogRec(u"入住登记打印功能"_s, FoliosOf(workingSet, rooms).join(u','));
}

} // namespace hotel
