// demo_guests FOLDER: brings staff and guests into the demo hotel whose store lies in the folder, which nobody
// serves meanwhile. Ends with 0 when all are in, with 1 when not, with 2 when the command line makes no
// sense.
//
// It serves the store itself: the guests arrived over the last days, and only a server whose clock goes
// along lets logins, logs and journals bear the days on which they would have been written.

#include <atomic>
#include <cstdio>

#include <unistd.h>

#include <QCoreApplication>

#include "app/demo/demo_guests.h"
#include "app/demo/plans.h"
#include "app/demo/punches.h"
#include "app/demo/staff.h"
#include "link/Wck_comm.h"
#include "record/literals.h"
#include "server/server_thread.h"

namespace hotel {

namespace {

constexpr int kTurnsOfCommit = 1000; // the folder is thrown away when it isn't filled to the end

// A line that is written anew where somebody looks at it.
void ShowProgress(int done, int all) {
    static int shown = -1;
    const int percent = (done + 1) * 100 / all;
    if (percent == shown || ::isatty(STDERR_FILENO) == 0)
        return;
    shown = percent;
    std::fprintf(stderr, "\r  the last %d days of the demo hotel: %d %%%s", kDemoDays, percent,
                 percent == 100 ? "\n" : "");
}

void Open(const QString& folder) {
    const QDateTime opening = QDateTime::currentDateTime();
    std::atomic<qint64> serverClock = opening.toMSecsSinceEpoch();
    ServerSettings settings;
    settings.store = folder;
    settings.port = 0;
    settings.clock = [&serverClock] { return QDateTime::fromMSecsSinceEpoch(serverClock); };
    settings.turnsOfCommit = kTurnsOfCommit;
    ServerThread server(std::move(settings));

    Wck_comm link;
    SetLink(&link);
    link.ProdID = kProductId.toString();
    link.ConnectServer(u"127.0.0.1"_s, QString::number(server.port()));
    const DemoOpening demo = {
        .at = opening,
        .setServerClock =
            [&serverClock](const QDateTime& moment) { serverClock = moment.toMSecsSinceEpoch(); },
        .progress = ShowProgress};
    BringInStaff(opening, demo.setServerClock);
    BringInPunches(opening, demo.setServerClock);
    BringInGuests(demo);
    KeepPlans(demo);
    server.finish();
}

} // namespace

} // namespace hotel

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("usage: demo_guests FOLDER\n", stderr);
        return 2;
    }
    try {
        hotel::Open(QString::fromLocal8Bit(argv[1]));
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "demo_guests: %s\n", failure.what());
        return 1;
    }
    return 0;
}
