#include "app/demo/exchange.h"

#include <algorithm>

#include "link/next_number.h"
#include "link/records.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "telephone/call_record.h"
#include "telephone/call_tables.h"

namespace hotel {

namespace {

// What is dialled: the digits it begins with, how many follow, and how often by day and in the evening.
struct Habit {
    QStringView start;
    int more;
    int longest; // minutes
    int byDay;
    int inTheEvening;
};
constexpr Habit kHabits[] = {
    {u"8", 7, 8, 30, 12},    {u"6", 7, 8, 14, 6},    {u"139", 8, 10, 20, 24},
    {u"158", 8, 10, 12, 14}, {u"010", 8, 20, 6, 9},  {u"021", 8, 20, 5, 8},
    {u"020", 8, 15, 3, 5},   {u"0755", 8, 15, 3, 5}, {u"0717", 7, 12, 4, 5},
    {u"013", 9, 15, 5, 10},  {u"0731", 8, 12, 2, 4}, {u"00852", 8, 12, 1, 2},
    {u"001", 10, 25, 1, 3},  {u"0081", 9, 20, 1, 2}, {u"0049", 10, 20, 1, 1},
    {u"114", 0, 2, 4, 1},    {u"12117", 0, 1, 1, 1}, {u"120", 0, 3, 1, 1},
    {u"4008", 6, 10, 3, 1},
};

// Calls an hour, as shares of a day's.
constexpr int kHours[24] = {4,  2,  1,  1,  1,  2,  6,  14, 22, 24, 22, 18,
                            16, 14, 18, 20, 20, 22, 24, 30, 34, 32, 22, 10};
constexpr int kEvening = 18;
constexpr int kTrunks = 8;

int Weighed(QRandomGenerator& random, int count, const std::function<int(int)>& weight) {
    int sum = 0;
    for (int n = 0; n < count; ++n)
        sum += weight(n);
    if (sum == 0)
        return 0;
    int left = random.bounded(sum);
    int n = 0;
    while (left >= weight(n))
        left -= weight(n++);
    return n;
}

QString Field(QStringView tag, const QString& value) {
    return u"<%1>%2</%1>"_s.arg(tag, value);
}

} // namespace

PlayedCall PlayCall(QRandomGenerator& random, const QStringList& extensions, const QDateTime& end) {
    using namespace call_record;
    const bool evening = end.time().hour() >= kEvening;
    const Habit& habit = kHabits[Weighed(random, int(std::size(kHabits)), [evening](int n) {
        return evening ? kHabits[n].inTheEvening : kHabits[n].byDay;
    })];
    QString number = habit.start.toString();
    for (int n = 0; n < habit.more; ++n)
        number += QChar(u'0' + random.bounded(10));
    const bool nobody = random.bounded(40) == 0;
    const int seconds = nobody ? 0 : random.bounded(8, 20 + random.bounded(habit.longest * 60));
    const QDateTime start = end.addSecs(-seconds);
    QStringList fields = {Field(kExtension, extensions[random.bounded(int(extensions.size()))]),
                          Field(kNumber, number)};
    if (random.bounded(3) == 0)
        fields += {Field(kEndDate, end.toString(u"yyyy-MM-dd")),
                   Field(kEndTime, end.toString(u"HH:mm:ss"))};
    else
        fields += {Field(kStartDate, start.toString(u"yyyy-MM-dd")),
                   Field(kStartTime, start.toString(u"HH:mm:ss"))};
    const QString length = random.bounded(2) == 0
                               ? QString::number(seconds)
                               : QTime(0, 0).addSecs(seconds).toString(u"HH:mm:ss");
    fields += {Field(kLength, length), Field(kTrunk, QString::number(1 + random.bounded(kTrunks))),
               Field(kLinkClass, u"呼出"_s)};
    return {end, fields.join(kCrLf)};
}

QList<PlayedCall> PlayDay(QRandomGenerator& random, const QStringList& extensions, QDate day,
                          QTime until, int calls) {
    const int last = std::max(1, QTime(0, 0).secsTo(until));
    QList<int> ends;
    while (ends.size() < calls) {
        const int hour = Weighed(random, 24, [](int n) { return kHours[n]; });
        const int second = hour * 3600 + random.bounded(3600);
        // What falls behind the end of the day so far, falls anywhere before it.
        ends.append(second < last ? second : random.bounded(last));
    }
    std::ranges::sort(ends);
    QList<PlayedCall> played;
    for (const int second : ends)
        played.append(PlayCall(random, extensions, QDateTime(day, QTime(0, 0).addSecs(second))));
    return played;
}

int WriteCalls(const BillingFiles& files, const QList<PlayedCall>& calls,
               const std::function<bool(int done)>& written) {
    int done = 0;
    QString file;
    qint64 number = 0;
    for (const PlayedCall& call : calls) {
        if (const QString itsFile = files.dayFile(call.end.date()); itsFile != file) {
            file = itsFile;
            number = qint64(LeadingNumber(NextNumberInProject(file, kCallProject)));
        }
        if (SaveRecord(file, kCallProject, FormatNumber(number, u"#0"), call.record) != 0)
            break;
        ++number;
        if (++done; written && !written(done))
            break;
    }
    return done;
}

QStringList PlayedExtensions(const BillingFiles& files) {
    CallTables tables;
    ReadExtensions(files, tables);
    QStringList numbers;
    for (int row = 1; row < tables.extensions.rows(); ++row)
        numbers.append(tables.extensions.text(row, 0));
    return numbers.isEmpty() ? QStringList({u"8201"_s, u"8202"_s, u"6103"_s}) : numbers;
}

} // namespace hotel
