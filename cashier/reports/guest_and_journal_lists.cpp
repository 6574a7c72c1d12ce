// The families that show records as they stand: guests, and the journal of a day.

#include "cashier/reports/report_charts.h"
#include "cashier/reports/reports.h"
#include "house/common/paths.h"
#include "house/guests/departures.h"
#include "house/guests/stay_register.h"
#include "house/rooms/room_record.h"
#include "link/QVRapp.h"
#include "link/records.h"
#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "session/parameters.h"
#include "tools/lists/list_totals.h"

namespace hotel {

namespace {

constexpr int kNumberColumn = 0;
constexpr QStringView kFiles = u"*.QVR";

QString DayText(QDate day) {
    return day.toString(u"yyyy-MM-dd");
}

QStringList FilesOf(const QString& folder) {
    QStringList files;
    for (int n = 1;; ++n) {
        const QString name = DbFileList(folder, kFiles, n);
        if (name.isEmpty())
            return files;
        files.append(folder + name);
    }
}

// A row for each bed that is filled.
void AddGuests(TextTable& list, const QString& stay) {
    for (int bed = 1; bed <= kBedLimit; ++bed) {
        const QString guest = GetTag(stay, GuestTag(bed));
        if (guest.isEmpty())
            continue;
        QStringList cells = {FormatNumber(list.rows(), u"#0")};
        for (int column = 1; column < list.cols(); ++column)
            cells.append(GetTag(guest, list.headers()[column]));
        list.addRow(cells);
    }
}

Report MakeInHouseList(const ReportEntry& report, const WalkProgress& progress) {
    Report made{.list = TextTable(ReportTitles(report)),
                .caption = DayCaption(report, Clock::Now().toString(u"yyyy-MM-dd HH:mm"))};
    const QStringList files = FilesOf(Param(u"KfxxLj"));
    int unread = 0;
    for (int n = 0; n < files.size(); ++n) {
        if (!GoesOn(progress, n, int(files.size()))) {
            made.remark = u"没有做完，只列出一部分"_s;
            return made;
        }
        const RecordRead stay = ReadProjectToChange(files[n], room_record::kStayProject);
        unread += stay.failed() ? 1 : 0;
        AddGuests(made.list, stay.value);
    }
    if (unread > 0)
        made.remark = u"有 %1 个房间读取失败"_s.arg(unread);
    return made;
}

// A project as it stands. An empty list may mean that nothing is known: asked once more, that is told.
void LoadDay(Report& made, const QString& file, const QString& project,
             const WalkProgress& progress) {
    bool whole = true;
    const int loaded =
        LoadProjectToGrid(file, project, made.list, kNumberColumn, [&](int rows, bool atEnd) {
            whole = whole && (atEnd || GoesOn(progress, rows, 0));
            return whole;
        });
    if (loaded == 0 && ReadProjectToChange(file, project).failed())
        made.remark = u"读取失败，请稍候再试"_s;
    else if (loaded >= kProjectLoadLimit)
        made.remark = u"只列出前 %1 条"_s.arg(kProjectLoadLimit);
    else if (!whole)
        made.remark = u"没有做完，只列出一部分"_s;
}

} // namespace

Report MakeGuestList(const ReportEntry& report, QDate day, const WalkProgress& progress) {
    if (report.isOfNow())
        return MakeInHouseList(report, progress);
    Report made{.list = TextTable(ReportTitles(report)),
                .caption = DayCaption(report, DayText(day))};
    const bool leaving = report.guests == GuestSource::Departures;
    const QString file =
        leaving ? DepartureFile(DayText(day)) : StayRegisterFile(DayText(day), day);
    const QStringView project = leaving ? departures::kProject : stay_register::kProject;
    LoadDay(made, file, project.toString(), progress);
    return made;
}

Report MakeJournalList(const ReportEntry& report, QDate day, const WalkProgress& progress) {
    Report made{.list = TextTable(ReportTitles(report)),
                .caption = DayCaption(report, DayText(day))};
    const QString project = PostingProject(report.kind);
    LoadDay(made, JournalFile(project, day), project, progress);
    made.charts = JournalCharts(report, made);
    AddReportTotals(made.list, JournalSums(report.kind), u"#0.00");
    return made;
}

} // namespace hotel
