#include "tools/queries/query_walk.h"

#include "link/QVRapp.h"
#include "link/serv_api.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/screen.h"
#include "tools/lists/CmnGrd.h"
#include "tools/queries/query_text.h"
#include "tools/queries/record_match.h"

namespace hotel {

namespace {

// A list of the server, copied: while a record is read, another screen may ask for a list as well.
QStringList Names(int limit, const std::function<QString(int n)>& nameOf) {
    QStringList names;
    for (int n = 1; n <= limit; ++n) {
        const QString name = nameOf(n);
        if (name.isEmpty() || IsError(name))
            break;
        names.append(name);
    }
    return names;
}

QStringList FoundNames(const QString& file, const QString& project, const QString& conditionText,
                       int limit) {
    const KeywordLists keywords = KeywordsOf(conditionText);
    if (keywords.isEmpty())
        return Names(limit, [&](int n) { return DbFieldFind(file, project, conditionText, n); });
    if (LeadingNumber(DbCheckFile(file, kFileExists)) < 0)
        return {};
    return Names(limit, [&](int n) {
        return DbFindRecords(file, project, keywords.required, keywords.optional, keywords.excluded,
                             n);
    });
}

// False when the list has passed its limit; the user has been told then.
bool IsWithin(int limit, const TextTable& list) {
    if (list.dataRows() <= limit)
        return true;
    MsgBox(u"清单太多，多于%1条，请重新设定条件再查询！"_s.arg(limit), u"无法继续查询"_s);
    return false;
}

WalkEnd WalkSubRecords(const QString& file, const QString& project, const QString& conditionText,
                       int nameColumn, TextTable& list, const WalkStep& step) {
    const QStringList names =
        Names(kSubWalkRecordLimit, [&](int n) { return DbRecordList(file, project, n); });
    const QString field = GetTag(conditionText, tag::kConditionField);
    for (int done = 1; done <= names.size(); ++done) {
        const QString record = DbReadRecordBuffered(file, project, names[done - 1]);
        const QString body = field.isEmpty() ? record : GetTag(record, field);
        for (int n = 1; n <= kSubWalkMatchLimit; ++n) {
            const QString match = MatchRecordConditions(record, conditionText, n);
            if (match.isEmpty())
                break;
            list.addRow(CellsOf(GetTag(body, match), match, list.headers(), nameColumn));
            if (!IsWithin(kWalkLimit, list))
                return WalkEnd::TooMany;
        }
        if (!step(done, int(names.size())))
            return WalkEnd::Stopped;
    }
    return WalkEnd::Finished;
}

// Runs a walk as a handler of the result screen.
WalkEnd WalkInto(CmnGrd& list, const std::function<WalkEnd(const WalkStep& step)>& walk) {
    const Screen::Running walking(list);
    if (!walking)
        return WalkEnd::Stopped;
    list.setTask(GridTask::Wait);
    return walk([&list](int done, int total) { return list.walkGoesOn(done, total); });
}

} // namespace

QStringList CellsOf(QStringView record, const QString& name, const QStringList& headers,
                    int nameColumn) {
    QStringList cells;
    cells.reserve(headers.size());
    for (int column = 0; column < headers.size(); ++column) {
        if (column == nameColumn)
            cells.append(name);
        else
            cells.append(TrimWhite(GetTag(record, headers[column]).replace(kCrLf, u" "_s)));
    }
    return cells;
}

WalkEnd WalkFound(const QString& file, const QString& project, const QString& conditionText,
                  int nameColumn, TextTable& list, int limit, const WalkStep& step) {
    const QStringList names = FoundNames(file, project, conditionText, limit + 1);
    for (int done = 1; done <= names.size(); ++done) {
        const QString& name = names[done - 1];
        const QString record = DbReadRecordBuffered(file, project, name);
        list.addRow(CellsOf(record, name, list.headers(), nameColumn));
        if (!IsWithin(limit, list))
            return WalkEnd::TooMany;
        if (!step(done, int(names.size())))
            return WalkEnd::Stopped;
    }
    return WalkEnd::Finished;
}

WalkEnd QueryToGrid(const QString& file, const QString& project, const QString& conditionText,
                    int nameColumn, CmnGrd& list) {
    return WalkInto(list, [&](const WalkStep& step) {
        return WalkFound(file, project, conditionText, nameColumn, list.Grd(), kWalkLimit, step);
    });
}

WalkEnd QueryToGridLarge(const QString& file, const QString& project, const QString& conditionText,
                         int nameColumn, GridView& grid, Screen& owner) {
    return WalkFound(file, project, conditionText, nameColumn, grid.table(), kLargeWalkLimit,
                     [&](int done, int total) {
                         grid.rowsAdded();
                         if (done % kRowsPerStep == 0)
                             owner.progress(done, total);
                         return owner.stillOpen() && owner.isVisible();
                     });
}

WalkEnd QuerySubRecordsToGrid(const QString& file, const QString& project,
                              const QString& conditionText, int nameColumn, CmnGrd& list) {
    return WalkInto(list, [&](const WalkStep& step) {
        return WalkSubRecords(file, project, conditionText, nameColumn, list.Grd(), step);
    });
}

QStringList DatedFiles(const QString& folder) {
    QStringList files;
    for (int n = 1; files.size() < kDatedFileLimit; ++n) {
        const QString name = DbFileList(folder, u"*.qvr"_s, n);
        if (name.isEmpty() || IsError(name))
            break;
        if (LeadingNumber(name.left(2)) > 0)
            files.append(folder + name);
    }
    return files;
}

QStringList DayFiles(QDate first, QDate last, const std::function<QString(QDate)>& fileOf) {
    QStringList files;
    if (!first.isValid() || !last.isValid())
        return files;
    for (QDate day = first; day <= last; day = day.addDays(1))
        files.append(fileOf(day));
    return files;
}

QStringList MonthFiles(QDate first, QDate last, const std::function<QString(QDate)>& fileOf) {
    QStringList files;
    if (!first.isValid() || !last.isValid())
        return files;
    for (QDate month(first.year(), first.month(), 1); month <= last; month = month.addMonths(1))
        files.append(fileOf(month));
    return files;
}

WalkEnd QueryFilesToGrid(const QStringList& files, const QString& project,
                         const QString& conditionText, int nameColumn, CmnGrd& list) {
    const Screen::Running searching(list);
    if (!searching)
        return WalkEnd::Stopped;
    WalkEnd end = WalkEnd::Finished;
    for (int n = 0; n < files.size() && end == WalkEnd::Finished; ++n) {
        list.setWalkPart(n, int(files.size()));
        end = QueryToGrid(files[n], project, conditionText, nameColumn, list);
        if (end == WalkEnd::Finished && !list.walkGoesOn(0, 0))
            end = WalkEnd::Stopped;
    }
    list.setTask(GridTask::Check);
    return end;
}

} // namespace hotel
