#include "link/QVRapp.h"

#include <algorithm>

#include "link/records.h"
#include "link/serv_api.h"
#include "record/field_walk.h"
#include "record/numbers.h"
#include "record/record_text.h"

namespace hotel {

namespace {

bool IsMissing(QStringView answer) {
    return answer.isEmpty() || IsError(answer);
}

constexpr int kNotDone = -1;

// Paths of the server know no letter case and take either separator.
bool IsSameFile(QString a, QString b) {
    return a.replace(u'/', u'\\').compare(b.replace(u'/', u'\\'), Qt::CaseInsensitive) == 0;
}

void ShowRecord(TextTable& list, int row, const QString& key, QStringView record, int keyColumn) {
    QStringList cells;
    cells.reserve(list.cols());
    for (int column = 0; column < list.cols(); ++column)
        cells.append(column == keyColumn ? key : GetTag(record, list.headers()[column]));
    list.setRow(row, cells);
}

bool IsBlank(const QStringList& cells) {
    return std::all_of(cells.begin(), cells.end(),
                       [](const QString& cell) { return cell.isEmpty(); });
}

// Appends records to a list and tells of the progress.
class ListLoad {
public:
    ListLoad(TextTable& list, int keyColumn, const LoadProgress& progress)
        : list_(list), keyColumn_(keyColumn), progress_(progress),
          fillsFirst_(list.dataRows() == 1 && IsBlank(list.row(1))) {}

    // False when the load is to stop.
    bool add(const QString& key, QStringView record) {
        const int row = fillsFirst_ ? 1 : list_.addRow();
        fillsFirst_ = false;
        ShowRecord(list_, row, key, record, keyColumn_);
        ++rows_;
        return rows_ % kRowsPerStep != 0 || !progress_ || progress_(rows_, false);
    }

    int finish() {
        if (progress_)
            progress_(rows_, true);
        return rows_;
    }

private:
    TextTable& list_;
    int keyColumn_;
    const LoadProgress& progress_;
    bool fillsFirst_;
    int rows_ = 0;
};

} // namespace

QString GetTagDefault(QStringView text, QStringView tag, const QString& fallback) {
    const QString value = GetTag(text, tag);
    return value.isEmpty() ? fallback : value;
}

int LoadProjectToGrid(const QString& file, const QString& project, TextTable& list, int keyColumn,
                      const LoadProgress& progress) {
    const QString answer = DbReadRecord(file, u"", project);
    if (IsMissing(answer))
        return 0;
    ListLoad load(list, keyColumn, progress);
    FieldWalk records(RecordsOf(answer, project));
    for (int n = 1; n <= kProjectLoadLimit && records.next(); ++n) {
        const QStringView value = records.value();
        if (!IsMissing(value) && !load.add(records.name().toString(), value))
            break;
    }
    return load.finish();
}

int LoadFoundToGrid(const QString& file, const QString& project, const QString& conditionText,
                    TextTable& list, int keyColumn, const LoadProgress& progress) {
    // The names are copied first: while a record is read, another screen may search.
    QStringList keys;
    for (int n = 1; n <= kFoundLoadLimit; ++n) {
        const QString key = DbFieldFind(file, project, conditionText, n);
        if (key.isEmpty())
            break;
        keys.append(key);
    }
    ListLoad load(list, keyColumn, progress);
    for (const QString& key : keys) {
        const QString record = DbReadRecordBuffered(file, project, key);
        if (!IsMissing(record) && !load.add(key, record))
            break;
    }
    return load.finish();
}

int SetGridRowByKey(TextTable& list, const QString& key, QStringView record, int keyColumn) {
    if (keyColumn == kNoKeyColumn)
        keyColumn = list.column(kKeyHeader);
    if (key.isEmpty() || keyColumn < 0 || keyColumn >= list.cols())
        return 0;
    int row = list.find(keyColumn, key);
    if (row < 0)
        row = list.addRow();
    ShowRecord(list, row, key, record, keyColumn);
    return row;
}

QString GridRowToText(const TextTable& list, int row, const QString& record, int keyColumn) {
    QString text = record;
    for (int column = 0; column < list.cols(); ++column) {
        if (column != keyColumn)
            text = SetTag(text, list.headers()[column], list.text(row, column));
    }
    return text;
}

int SaveGridRow(const QString& file, const QString& project, const TextTable& list, int row,
                int keyColumn) {
    const QString key = list.text(row, keyColumn);
    if (key.isEmpty())
        return 0;
    const RecordRead standing = ReadToChange(file, project, key);
    if (standing.failed())
        return kNotDone;
    return SaveRecord(file, project, key, GridRowToText(list, row, standing.value, keyColumn));
}

int MoveRecord(const QString& sourceFile, const QString& sourceProject, const QString& key,
               const QString& targetFile, const QString& targetProject, const QString& targetKey) {
    const RecordRead record = ReadToChange(sourceFile, sourceProject, key);
    if (record.outcome != Reading::Present)
        return kNotDone;
    if (IsSameFile(sourceFile, targetFile) && sourceProject == targetProject && key == targetKey)
        return 0;
    EnsureProject(targetFile, targetProject);
    const int written = SaveRecord(targetFile, targetProject, targetKey, record.value);
    return written != 0 ? written : DeleteRecord(sourceFile, sourceProject, key);
}

QString ListToRecordText(const QStringList& entries, const QString& text) {
    QString record = text;
    for (int n = 1; n <= entries.size(); ++n)
        record = SetTag(record, u"记录"_s + FormatNumber(n, u"00"), entries[n - 1]);
    return record;
}

} // namespace hotel
