// week --store PLACE: plays a week in the demo hotel whose store that is, and audits its books after each day.
//
//     --desks 4 --days 7 --acts 4    so many at once, so long, so much an hour each
//     --seed 1                       another week
//     --in-turn                      every command in an order that the seed draws: the same week each time
//     --faults 400                   one request in so many meets a fault on its line; 0: none
//     --log FILE                     every act as its desk told it
//     --servers 1                    so many record servers on one database
//
// Ends with 0 when the books agree, with 1 when not, with 2 when the command line makes no sense.

#include <cstdio>

#include <QCommandLineParser>
#include <QCoreApplication>

#include "app/week/house_books.h"
#include "app/week/week.h"
#include "record/literals.h"

namespace hotel {

namespace {

void Print(const QString& line) {
    std::fprintf(stdout, "%s\n", line.toUtf8().constData());
    std::fflush(stdout);
}

void PrintDay(const DayOfWeek& day) {
    Print(
        u"%1: %2 acts, %3 of which staff were told that they didn't come out; %4 difference(s) that nothing explains"_s
            .arg(day.day.toString(u"ddd yyyy-MM-dd"))
            .arg(day.done + day.told)
            .arg(day.told)
            .arg(day.faults.size()));
    for (const QString& fault : day.faults)
        Print(u"    "_s + fault);
}

void PrintCounts(const QString& title, const QMap<QString, int>& counts) {
    Print(title);
    for (auto count = counts.cbegin(); count != counts.cend(); ++count)
        Print(u"    %1  %2"_s.arg(*count, 6).arg(count.key()));
}

void PrintReport(const WeekReport& report) {
    PrintCounts(u"done:"_s, report.kinds);
    PrintCounts(u"told to the staff:"_s, report.words);
    Print(u"on the lines, of %1 requests:"_s.arg(report.requests));
    for (int fault = 0; fault < kLineFaults; ++fault)
        Print(u"    %1  %2"_s.arg(report.lineFaults[size_t(fault)], 6)
                  .arg(LineFaultName(LineFault(fault))));
    PrintCounts(u"differences in the books that are accepted:"_s, report.accepted);
    for (const AcceptedRace& race : AcceptedBetweenDesks()) {
        if (report.accepted.contains(race.name.toString()))
            Print(u"    %1: %2"_s.arg(race.name, race.words));
    }
    Print(u"%1 acts in %2 s: %3 a second; half of them within %4 ms, 99 of 100 within %5 ms"_s
              .arg(report.acts)
              .arg(report.seconds, 0, 'f', 1)
              .arg(report.actsASecond(), 0, 'f', 0)
              .arg(report.median, 0, 'f', 1)
              .arg(report.slowest, 0, 'f', 1));
    Print(report.isSound() ? u"The books agree."_s : u"THE BOOKS DO NOT AGREE."_s);
}

std::optional<WeekOrder> ReadOrder(QCoreApplication& application) {
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions(
        {{u"store"_s, u"Folder or database of the store."_s, u"STORE"_s},
         {u"desks"_s, u"Desks at once."_s, u"N"_s, u"4"_s},
         {u"days"_s, u"Days."_s, u"N"_s, u"7"_s},
         {u"acts"_s, u"Acts an hour of each desk."_s, u"N"_s, u"4"_s},
         {u"faults"_s, u"Requests for one fault on the line; 0: none."_s, u"N"_s, u"400"_s},
         {u"servers"_s, u"Record servers on one database."_s, u"N"_s, u"1"_s},
         {u"seed"_s, u"Which week."_s, u"N"_s, u"1"_s},
         {u"log"_s, u"Writes every act into a file."_s, u"FILE"_s},
         {u"in-turn"_s, u"Commands in an order that the seed draws."_s}});
    parser.process(application);
    const WeekOrder order{.store = parser.value(u"store"_s),
                          .program = QCoreApplication::applicationFilePath(),
                          .servers = parser.value(u"servers"_s).toInt(),
                          .desks = parser.value(u"desks"_s).toInt(),
                          .days = parser.value(u"days"_s).toInt(),
                          .actsAnHour = parser.value(u"acts"_s).toInt(),
                          .requestsAFault = parser.value(u"faults"_s).toInt(),
                          .inTurn = parser.isSet(u"in-turn"_s),
                          .seed = parser.value(u"seed"_s).toULongLong(),
                          .log = parser.value(u"log"_s)};
    const bool isOrder = !order.store.isEmpty() && order.servers > 0 && order.desks > 0 &&
                         order.days > 0 && order.actsAnHour > 0 && order.requestsAFault >= 0 &&
                         parser.positionalArguments().isEmpty();
    if (isOrder)
        return order;
    std::fputs(parser.helpText().toUtf8().constData(), stderr);
    return {};
}

int Play(QCoreApplication& application) {
    const auto order = ReadOrder(application);
    if (!order)
        return 2;
    const WeekReport report = PlayWeek(*order, PrintDay);
    PrintReport(report);
    return report.isSound() ? 0 : 1;
}

} // namespace

} // namespace hotel

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    try {
        return arguments.value(1) == QLatin1StringView("desk") ? hotel::PlayDesk(arguments.mid(2))
                                                               : hotel::Play(application);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "week: %s\n", failure.what());
        return 1;
    }
}
