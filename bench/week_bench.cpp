// A day of the demo hotel at one, ten and a hundred desks at once, over lines that hold; and at a hundred desks with
// one and with two record servers before one PostgreSQL.

#include "bench/ratio.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include "app/week/week.h"
#include "record/literals.h"
#include "server/store.h"
#include "server/tree.h"
#include "tests/private_postgres.h"

using namespace hotel;
using namespace hotel::bench;

namespace {

void Fill(const QString& place) {
    Store store(place, Store::Use::Serve);
    for (const QString& tree : {u"/install"_s, u"/demo"_s})
        ImportTree(store, QLatin1StringView(HOTEL_TREE) + tree);
}

WeekReport Day(const QString& store, int desks, int actsAnHour, int servers = 1) {
    Fill(store);
    const WeekReport report = PlayWeek({.store = store,
                                        .program = QStringLiteral(HOTEL_WEEK),
                                        .servers = servers,
                                        .desks = desks,
                                        .days = 1,
                                        .actsAnHour = actsAnHour,
                                        .requestsAFault = 0,
                                        .log = {}},
                                       [](const DayOfWeek&) {});
    std::printf("a day at %d desks, %d server(s): %d acts, %.0f a second, half of them within "
                "%.1f ms, 99 of 100 within %.1f ms%s\n",
                desks, servers, report.acts, report.actsASecond(), report.median, report.slowest,
                report.isSound() ? "" : ", THE BOOKS DO NOT AGREE");
    std::fflush(stdout);
    return report;
}

WeekReport EmbeddedDay(int desks, int actsAnHour) {
    const QTemporaryDir folder;
    return Day(folder.path(), desks, actsAnHour);
}

WeekReport PostgresDay(int desks, int actsAnHour, int servers) {
    const PrivatePostgres postgres(PrivatePostgres::Disk::Flushed);
    return Day(u"postgresql: "_s + postgres.connection(), desks, actsAnHour, servers);
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    EmbeddedDay(1, 40);
    EmbeddedDay(10, 8);
    EmbeddedDay(100, 1);
    if (!PrivatePostgres::isInstalled()) {
        std::puts(
            "PostgreSQL is not installed here (package postgresql): the embedded store alone");
        return 0;
    }
    const double one = PostgresDay(100, 1, 1).actsASecond();
    PrintRatio("one_server_by_two_before_postgresql", one / PostgresDay(100, 1, 2).actsASecond(),
               1 / 1.5);
}
