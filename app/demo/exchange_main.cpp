// exchange: plays the telephone exchange of the demo hotel beside a running record server, so that the call
// accounting desk has something to rate.
//
//     exchange                     a call every three seconds, until Ctrl+C
//     exchange --every 0.5         faster
//     exchange --burst 200         two hundred calls of the day so far, at once
//     exchange --days 7 --burst 150    so many on each of the last seven days
//     --host 127.0.0.1 --port 6801 --user ZONGJI --password 888888
//
// Ends with 0 when all calls were written, with 1 when the server could not be reached or refused one, with 2 when
// the command line makes no sense.

#include <cstdio>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QThread>

#include "app/demo/exchange.h"
#include "link/Wck_comm.h"
#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/login_digest.h"

namespace hotel {

namespace {

struct Order {
    QString host;
    QString port;
    QString user;
    QString password;
    int burst = 0; // calls a day; 0: steadily
    int days = 1;
    int milliseconds = 3000;
};

bool LogIn(const Order& order) {
    Link().ConnectServer(order.host, order.port);
    if (DbLogin(order.user, order.password) != 0) {
        std::fprintf(stderr, "exchange: %s at %s:%s could not be logged in\n",
                     qPrintable(order.user), qPrintable(order.host), qPrintable(order.port));
        return false;
    }
    Clock::SetDate(DbServerDate());
    Clock::SetTime(DbServerTime());
    return true;
}

int Fail() {
    std::fputs("exchange: the server refused a call\n", stderr);
    return 1;
}

int PlayBurst(const Order& order, QRandomGenerator& random) {
    const BillingFiles files;
    const QStringList extensions = PlayedExtensions(files);
    for (int ago = order.days - 1; ago >= 0; --ago) {
        const QDate day = Clock::Today().addDays(-ago);
        const QTime until = ago == 0 ? Clock::Time() : QTime(23, 59, 59);
        const int written = WriteCalls(files, PlayDay(random, extensions, day, until, order.burst));
        std::printf("%s: %d calls\n", qPrintable(files.dayFile(day)), written);
        if (written < order.burst)
            return Fail();
    }
    return 0;
}

int PlaySteadily(const Order& order, QRandomGenerator& random) {
    const BillingFiles files;
    const QStringList extensions = PlayedExtensions(files);
    for (int calls = 1;; ++calls) {
        if (WriteCalls(files, {PlayCall(random, extensions, Clock::Now())}) != 1)
            return Fail();
        std::printf("\r%d calls", calls);
        std::fflush(stdout);
        QThread::msleep(static_cast<unsigned long>(order.milliseconds));
    }
}

// False when an option makes no sense.
bool ReadOrder(const QStringList& arguments, Order& order) {
    QCommandLineParser parser;
    parser.addOptions({{u"host"_s, {}, u"host"_s, u"127.0.0.1"_s},
                       {u"port"_s, {}, u"port"_s, u"6801"_s},
                       {u"user"_s, {}, u"user"_s, u"ZONGJI"_s},
                       {u"password"_s, {}, u"password"_s, u"888888"_s},
                       {u"burst"_s, {}, u"calls"_s, u"0"_s},
                       {u"days"_s, {}, u"days"_s, u"1"_s},
                       {u"every"_s, {}, u"seconds"_s, u"3"_s}});
    if (!parser.parse(arguments) || !parser.positionalArguments().isEmpty())
        return false;
    order = {parser.value(u"host"_s),
             parser.value(u"port"_s),
             parser.value(u"user"_s),
             parser.value(u"password"_s),
             parser.value(u"burst"_s).toInt(),
             parser.value(u"days"_s).toInt(),
             int(parser.value(u"every"_s).toDouble() * 1000)};
    return order.burst >= 0 && order.days >= 1 && order.milliseconds > 0 &&
           (order.burst > 0 || !parser.isSet(u"burst"_s));
}

} // namespace

} // namespace hotel

int main(int argc, char** argv) {
    using namespace hotel;
    QCoreApplication application(argc, argv);
    Order order;
    if (!ReadOrder(application.arguments(), order)) {
        std::fputs(
            "usage: exchange [--every SECONDS | --burst CALLS [--days DAYS]]\n"
            "                [--host HOST] [--port PORT] [--user USER] [--password PASSWORD]\n",
            stderr);
        return 2;
    }
    Wck_comm link;
    SetLink(&link);
    link.ProdID = kProductId.toString();
    if (!LogIn(order))
        return 1;
    QRandomGenerator random = QRandomGenerator::securelySeeded();
    return order.burst > 0 ? PlayBurst(order, random) : PlaySteadily(order, random);
}
