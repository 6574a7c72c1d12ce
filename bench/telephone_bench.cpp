// Rating calls, by itself and round by round, against a server in the same program.

#include "bench/ratio.h"
#include "bench/screenless.h"

#include "app/demo/exchange.h"
#include "link/records.h"
#include "link/serv_api.h"
#include "record/literals.h"
#include "screen/grid_view.h"
#include "telephone/Accntfrm.h"
#include "telephone/call_intake.h"
#include "telephone/call_record.h"
#include "telephone/call_tables.h"
#include "tests/test_hotel.h"
#include "tools/queries/query_text.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QTimer>

using namespace hotel;
using namespace hotel::bench;

namespace {

constexpr int kBacklog = 20000;
const QDate kDay(2026, 3, 5);
const QString kProject = kCallProject.toString();

RatingTables TablesOf(int prefixes) {
    CallTables tables = ReadCallTables(BillingFiles());
    tables.prefixes = PrefixTable({});
    for (int n = 0; n < prefixes; ++n)
        tables.prefixes.addRow({u"0%1"_s.arg(n, 4, 10, QLatin1Char('0')), u"国内长途"_s, u"0.6"_s,
                                u"地区%1"_s.arg(n)});
    return RatingTablesOf(tables, {});
}

QList<PlayedCall> Played(int calls) {
    QRandomGenerator random(5);
    return PlayDay(random, PlayedExtensions(BillingFiles()), kDay, QTime(23, 59, 59), calls);
}

void Rating() {
    const TestHotel hotel;
    const QString call = Played(1).first().record;
    const QString number = u"<分机号>8201</分机号>\r\n<被叫号码>002565881190</被叫号码>\r\n"
                           "<话始日期>2026-03-05</话始日期>\r\n<话始时间>10:00:00</话始时间>\r\n"
                           "<通话时长>61</通话时长>\r\n<中继号>1</中继号>"_s;
    const RatingTables few = TablesOf(50);
    const RatingTables many = TablesOf(5000);
    PrintRatio("rate_with_5000_prefixes",
               MedianRatio([&] { return RateCall(number, many).record.size(); },
                           [&] { return RateCall(number, few).record.size(); }),
               1.5);
    // A hundred calls rated, by one written.
    const QString file = BillingFiles().dayFile(kDay);
    int n = 0;
    PrintRatio(
        "rate_100_by_writing_one",
        MedianRatio(
            [&] {
                qsizetype size = 0;
                for (int times = 0; times < 100; ++times)
                    size += RateCall(number, many).record.size();
                return size;
            },
            [&] { return DbModifyRecord(file, kProject, QString::number(n++ % 1000), call); }),
        1.0);
}

void Fill(const QList<PlayedCall>& calls) {
    QString project;
    int n = 0;
    for (const PlayedCall& call : calls)
        project += u"<%1>%2</%1>\r\n"_s.arg(++n).arg(call.record);
    SaveProject(BillingFiles().dayFile(kDay), kProject, project);
}

// What a round has to ask for and to write.
int BareRound(const QString& file, const QString& condition, const QString& rated) {
    DbCheckFile(file, kCallStamp);
    QStringList names;
    for (int n = 1; n <= kCallsARound; ++n)
        names.append(DbFieldFind(file, kProject, condition, n));
    int failed = 0;
    for (const QString& name : names) {
        failed += int(DbReadRecord(file, kProject, name).isEmpty());
        failed += DbModifyRecord(file, kProject, name, rated);
    }
    return failed;
}

void Round() {
    const TestHotel hotel;
    const QString file = BillingFiles().dayFile(kDay);
    const QString condition =
        ConditionText({{kOr.toString(), call_record::kMark.toString(), u"为空"_s, {}}}, {});
    const RatingTables tables = RatingTablesOf(ReadCallTables(BillingFiles()), {});
    const QList<PlayedCall> calls = Played(20);
    const QString rated = RateCall(calls.first().record, tables).record;
    WaitingCalls waiting;
    // Both begin with calls that wait, whose filling counts for both alike.
    PrintRatio("round_of_20_calls",
               MedianRatio(
                   [&] {
                       Fill(calls);
                       return RateWaitingCalls(file, tables, waiting, {}).rated;
                   },
                   [&] {
                       Fill(calls);
                       return BareRound(file, condition, rated);
                   }),
               1.3);
}

// The desk works off a long day; meanwhile a key is waited for.
void Backlog() {
    const TestHotel hotel;
    Fill(Played(kBacklog));
    Accntfrm desk;
    desk.show();
    desk.findChild<QCheckBox*>(u"BeepOff"_s)->setChecked(true);
    desk.run([&] { desk.load({}); });
    auto* list = desk.findChild<GridView*>(u"LjjfQd"_s);
    QTimer keys;
    keys.setInterval(0);
    QElapsedTimer sinceKey;
    qint64 longest = 0;
    QObject::connect(&keys, &QTimer::timeout,
                     [&] { longest = std::max(longest, sinceKey.restart()); });
    sinceKey.start();
    keys.start();
    QElapsedTimer clock;
    clock.start();
    double first = 0;
    double beforeLast = 0;
    while (list->table().dataRows() < kBacklog) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        const int rows = list->table().dataRows();
        if (rows >= 1000 && first == 0)
            first = double(clock.elapsed()) / rows;
        if (rows >= kBacklog - 1000 && beforeLast == 0)
            beforeLast = double(clock.elapsed());
    }
    const double last = (double(clock.elapsed()) - beforeLast) / 1000;
    std::printf("backlog of %d calls: %.0f calls a second\n", kBacklog,
                kBacklog / (double(clock.elapsed()) / 1000));
    PrintRatio("last_1000_of_a_backlog_by_the_first", last / first, 1.2);
    std::printf("longest wait of the window: %lld ms (limit 100 ms)%s\n", longest,
                longest > 100 ? " OVER" : "");
}

} // namespace

int main(int argc, char** argv) {
    ScreenlessApplication application(argc, argv);
    Rating();
    Round();
    Backlog();
}
