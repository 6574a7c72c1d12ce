#include <QTest>

#include "link/records.h"
#include "link/serv_api.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "telephone/call_classes.h"
#include "telephone/call_intake.h"
#include "telephone/call_record.h"
#include "telephone/call_tables.h"
#include "tests/hotel_test.h"
#include "tests/house/cut_line.h"
#include "tests/test_hotel.h"

using namespace hotel;

namespace {

const QString kDay = u"Bill\\26\\03\\260305.QVR"_s;
const QString kCalls = u"电话详细话单"_s;

void Waiting(const QString& name, const QString& number = u"0106588"_s, const QString& mark = {}) {
    SaveRecord(
        kDay, kCalls, name,
        u"<分机号>8201</分机号>\r\n<被叫号码>%1</被叫号码>\r\n<话始日期>2026-03-05</话始日期>\r\n"
        "<话始时间>10:00:00</话始时间>\r\n<通话时长>60</通话时长>\r\n<标志>%2</标志>"_s.arg(number,
                                                                                            mark));
}

void Waiting(int calls) {
    for (int n = 1; n <= calls; ++n)
        Waiting(QString::number(n));
}

} // namespace

class CallTablesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHotel> hotel_;
    RatingTables tables_;
    QStringList rated_;
    WaitingCalls waiting_;

    RoundOutcome round(int stopBehind = 1000) {
        rated_.clear();
        return RateWaitingCalls(kDay, tables_, waiting_, [&](const QString& name, const QString&) {
            rated_.append(name);
            return rated_.size() < stopBehind;
        });
    }
    QString mark(const QString& name) {
        return GetTag(hotel_->stored(kDay, kCalls, name), u"标志");
    }

private Q_SLOTS:
    void init() {
        hotel_ = std::make_unique<TestHotel>();
        tables_ = RatingTablesOf(ReadCallTables(BillingFiles()), AccountingConfig());
        waiting_ = {};
    }
    void cleanup() { hotel_.reset(); }

    // What a first installation is delivered with rates calls of all classes.
    void deliversATariff() {
        const CallTables tables = ReadCallTables(BillingFiles());
        QVERIFY(!tables.unread());
        QCOMPARE(TariffObjections(tables.parameters), QStringList());
        QCOMPARE(tables.parameters.dataRows(), 91);
        QCOMPARE(tables.parameters.row(29),
                 QStringList({u"029"_s, u"市话计费方式（1至6）"_s, u"3"_s}));
        QCOMPARE(tables.prefixes.dataRows(), 294);
        for (int row = 1; row < tables.prefixes.rows(); ++row)
            QCOMPARE(PrefixObjection(tables.prefixes.row(row)), QString());
        QCOMPARE(tables.extensions.dataRows(), 123);
        QCOMPARE(tables.extensions.row(ExtensionRow(tables.extensions, u"6103")).mid(0, 4),
                 QStringList({u"6103"_s, u"前厅部"_s, u"总机"_s, u"国际"_s}));
        const auto row = [&](const QString& number, const QString& seconds,
                             const QString& expected) {
            const QString call =
                RateCall(u"<被叫号码>%1</被叫号码><通话时长>%2</通话时长>"_s.arg(number, seconds),
                         tables_)
                    .record;
            Check(qPrintable(number),
                  GetTag(call, u"通话地区") + u' ' + GetTag(call, u"通话费") + u' ' +
                      GetTag(call, u"总话费"),
                  expected);
        };
        row(u"83331234"_s, u"180"_s, u"武汉 0.30 0.33"_s);
        row(u"83331234"_s, u"181"_s, u"武汉 0.45 0.50"_s);
        row(u"13871234567"_s, u"61"_s, u"武汉移动电话 0.30 0.33"_s);
        row(u"120"_s, u"600"_s, u"急救 0.00 0.00"_s);
        row(u"114"_s, u"61"_s, u"查号 0.40 0.40"_s);
        row(u"07176222222"_s, u"61"_s, u"宜昌 0.66 0.73"_s);
        row(u"01065881190"_s, u"1320"_s, u"北京 13.20 14.52"_s);
        row(u"013973100268"_s, u"660"_s, u"国内移动电话 6.60 7.26"_s);
        row(u"0046855512034"_s, u"720"_s, u"瑞典 57.60 64.36"_s); // and 1 yuan a call
        row(u"9"_s, u"60"_s, u"本市 0.30 0.33"_s);
    }

    void keepsItsTables() {
        CallTables tables = ReadCallTables(BillingFiles());
        tables.parameters.setText(36, 2, u"5"_s);
        tables.parameters.setText(37, 2, {});
        tables.prefixes = WithPrefix(tables.prefixes, {u"010"_s, u"国内甲"_s, u"0.9"_s, u"京"_s});
        tables.prefixes = WithPrefix(tables.prefixes, {u"0999"_s, u"国内"_s, u"1"_s, u"新"_s});
        QStringList cells = {u"6103"_s,     u"前厅部"_s, u"总机台"_s, u"国际"_s, u"11111110"_s,
                             u"00000001"_s, u"3"_s,      u"x"_s,      u"0.005"_s};
        while (cells.size() < 15)
            cells.append(QString());
        tables.extensions = WithExtension(tables.extensions, cells);
        QCOMPARE(SaveParameters(BillingFiles(), tables.parameters), 0);
        QCOMPARE(SavePrefixes(BillingFiles(), tables.prefixes), 0);
        QCOMPARE(SaveExtensions(BillingFiles(), tables.extensions), 0);
        const CallTables again = ReadCallTables(BillingFiles());
        QCOMPARE(again.parameters.text(36, 2), u"5"_s);
        QCOMPARE(again.parameters.text(37, 2), QString());
        QCOMPARE(again.parameters.dataRows(), 91);
        QCOMPARE(again.prefixes.dataRows(), 295);
        QCOMPARE(again.prefixes.row(again.prefixes.find(0, u"010"_s)).mid(0, 5),
                 QStringList({u"010"_s, u"国内甲"_s, u"0.9"_s, u"京"_s, {}}));
        QCOMPARE(again.extensions.dataRows(), 123);
        QCOMPARE(again.extensions.row(ExtensionRow(again.extensions, u"6103")),
                 QStringList({u"6103"_s,
                              u"前厅部"_s,
                              u"总机台"_s,
                              u"国际"_s,
                              u"11111110"_s,
                              u"00000001"_s,
                              u"3.00"_s,
                              u"0.00"_s,
                              u"0.01"_s,
                              u"0.00"_s,
                              u"0.00"_s,
                              {},
                              u"0.00"_s,
                              u"0.00"_s,
                              u"0.00"_s}));
        QCOMPARE(hotel_->stored(u"Bill\\FEE.QVR"_s, u"系统参数"_s, u"036"_s),
                 u"<参数名称>市话步长或首段（分钟）</参数名称><参数值>5</参数值>"_s);

        // Missing rows and rows behind the last; an extension twice.
        const TextTable few =
            ParameterTable(u"<3><参数值>1</参数值></3><093><参数值>2</参数值></093><x>1</x>");
        QCOMPARE(few.dataRows(), 93);
        QCOMPARE(few.row(3), QStringList({u"003"_s, {}, u"1"_s}));
        QCOMPARE(few.row(92), QStringList({u"092"_s, {}, {}}));
        TextTable twice(ExtensionHeaders());
        twice.addRow({u"1"_s, u"甲"_s});
        twice.addRow({u"1"_s, u"乙"_s});
        QCOMPARE(ExtensionText(twice), u"<1><所有者>甲</所有者></1>"_s);
        hotel_->stopServer();
        QVERIFY(ReadCallTables(BillingFiles()).unread());
    }

    void refusesWhatCannotBe() {
        const auto parameter = [](const char* name, const QList<std::pair<int, QString>>& values,
                                  const QStringList& expected) {
            TextTable rows = ParameterTable({});
            for (int c = 1; c <= 7; ++c)
                rows.setText(28 + c, 2, u"2"_s);
            for (const auto& [row, value] : values)
                rows.setText(row, 2, value);
            Check(name, TariffObjections(rows), expected);
        };
        parameter("well", {}, {});
        parameter("mode 1 with steps", {{31, u"1"_s}, {38, u"0.5"_s}}, {});
        parameter("mode 1 without", {{31, u"1"_s}}, {u"第38行（）必须大于零"_s});
        parameter("mode 1, less than none", {{29, u"1"_s}, {36, u"-1"_s}},
                  {u"第36行（）必须大于零"_s});
        parameter("mode 3 without", {{31, u"3"_s}}, {});
        parameter("modes", {{29, u"0"_s}, {30, u"7"_s}, {31, u"6"_s}, {35, {}}},
                  {u"第29行（）应为1至6"_s, u"第30行（）应为1至6"_s, u"第35行（）应为1至6"_s});
        parameter("words", {{4, u"一元"_s}}, {u"第4行（）不是数字"_s});
        const auto prefix = [](const QStringList& cells, bool well) {
            Check(qPrintable(cells.join(u'|')), PrefixObjection(cells).isEmpty(), well);
        };
        prefix({u"0"_s, u"国内"_s, u"0.6"_s}, true);
        prefix({u"*9#"_s, u"专网甲"_s, u"0"_s}, true);
        prefix({{}, u"国内"_s, u"0.6"_s}, false);
        prefix({u"0a"_s, u"国内"_s, u"0.6"_s}, false);
        prefix({u"0"_s, u"国"_s, u"0.6"_s}, false);
        prefix({u"0"_s, u"外国内"_s, u"0.6"_s}, false);
        prefix({u"0"_s, u"国内"_s, u"六角"_s}, false);
        prefix({u"0"_s, u"国内"_s, {}}, false);
        AccountingConfig config;
        config.take(u"STAMINLENG=3");
        config.take(u"STAMAXLENG=4");
        config.take(u"STAMAXNUM=2");
        TextTable two(ExtensionHeaders());
        two.addRow({u"100"_s});
        two.addRow({u"101"_s});
        TextTable one(ExtensionHeaders());
        one.addRow({u"100"_s});
        const auto extension = [&](const TextTable& table, const QString& number,
                                   const QString& words) {
            const auto notice = CheckExtension(table, {number}, config);
            Check(qPrintable(number), notice ? notice->words : QString(), words);
        };
        extension(two, u"101"_s, {});
        extension(two, u"102"_s, u"分机已有2个，不能再增加！"_s);
        extension(one, u"102"_s, {});
        extension(one, {}, u"请输入分机号！"_s);
        extension(one, u"10"_s, u"分机号不能少于3位！"_s);
        extension(one, u"10000"_s, u"分机号不能多于4位！"_s);
        extension(one, u"1<0"_s, u"分机号只能由数字和字母组成！"_s);
        QCOMPARE(BitText({true, false, true}), u"101"_s);
        QCOMPARE(BitTicks(u"0110"),
                 QList<bool>({false, true, true, false, false, false, false, false}));
        QCOMPARE(BitEntries().size(), 8);
    }

    void ratesByRoundsOfTwenty() {
        QVERIFY(!round().present);
        Waiting(21);
        Waiting(u"22"_s, u"010"_s, u"计费处理"_s);
        RoundOutcome first = round();
        QVERIFY(first.present);
        QCOMPARE(first.found, 20);
        QCOMPARE(first.rated, 20);
        QCOMPARE(rated_.size(), 20);
        QCOMPARE(rated_.last(), u"20"_s);
        QCOMPARE(mark(u"20"_s), u"计费处理"_s);
        QCOMPARE(mark(u"21"_s), QString());
        QCOMPARE(GetTag(hotel_->stored(kDay, kCalls, u"1"_s), u"总话费"), u"0.66"_s);
        QCOMPARE(GetTag(hotel_->stored(kDay, kCalls, u"22"_s), u"总话费"), QString());
        const RoundOutcome second = round();
        QCOMPARE(second.found, 1);
        QCOMPARE(rated_, QStringList(u"21"_s));
        QCOMPARE(round().found, 0);
        const QDate day(2026, 3, 5);
        QCOMPARE(NextCallDay(first, day, day.addDays(1)), day);
        QCOMPARE(NextCallDay(second, day, day.addDays(1)), day.addDays(1));
        QCOMPARE(NextCallDay(second, day, day), day);
        QCOMPARE(NextCallDay(RoundOutcome(), day, day.addDays(3)), day.addDays(1));
        Waiting(3);
        QCOMPARE(round(2).rated, 2); // stopped by its desk
        QCOMPARE(round().rated, 1);
    }

    // What can't be rated keeps waiting, and doesn't hold up what is behind it.
    void leavesOutWhatItCannotRate() {
        tables_.tariff = Tariff(
            [] {
                TextTable rows = ReadCallTables(BillingFiles()).parameters;
                rows.setText(32, 2, u"1"_s);
                rows.setText(39, 2, u"0"_s);
                return rows;
            }(),
            ReadCallTables(BillingFiles()).prefixes);
        SaveRecord(kDay, kCalls, u"0"_s, u"");
        Waiting(20);
        Waiting(u"21"_s, u"88881234"_s);
        const RoundOutcome first = round();
        QCOMPARE(first.problem, u"系统参数第39行的分钟数为零"_s);
        QCOMPARE(first.found, 20);
        QCOMPARE(first.rated, 0);
        QCOMPARE(round().rated, 1);
        QCOMPARE(rated_, QStringList(u"21"_s));
        QCOMPARE(round().found, 0);
        QCOMPARE(mark(u"1"_s), QString());
        tables_ = RatingTablesOf(ReadCallTables(BillingFiles()), AccountingConfig());
        waiting_ = {};
        QCOMPARE(round().rated, 19);
        QCOMPARE(round().rated, 1);
    }

    // A backlog is looked for once; a call that another desk has rated meanwhile isn't rated again, and what comes
    // meanwhile gets its turn.
    void worksOffABacklog() {
        Waiting(65);
        QStringList all;
        QCOMPARE(round().rated, 20);
        all += rated_;
        Waiting(u"25"_s, u"0106588"_s, u"计费处理"_s);
        Waiting(u"66"_s);
        for (const int rated : {19, 20, 6, 0}) {
            QCOMPARE(round().rated, rated);
            all += rated_;
        }
        QCOMPARE(all.size(), 65);
        QCOMPARE(QSet<QString>(all.begin(), all.end()).size(), 65);
        QVERIFY(!all.contains(u"25"_s));
        QCOMPARE(all.last(), u"66"_s);
        SaveRecord(u"Bill\\26\\03\\260306.QVR", kCalls, u"1"_s, u"<分机号>8201</分机号>");
        QCOMPARE(RateWaitingCalls(u"Bill\\26\\03\\260306.QVR"_s, tables_, waiting_, {}).rated, 1);
    }

    // A second desk at the same file, turn about: it looks at a call before it takes it.
    void sharesAFileWithASecondDesk() {
        Waiting(50);
        WaitingCalls others;
        QStringList all;
        for (int turn = 0; turn < 5; ++turn) {
            round();
            all += rated_;
            RateWaitingCalls(kDay, tables_, others, [&](const QString& name, const QString&) {
                all.append(name);
                return true;
            });
        }
        QCOMPARE(all.size(), 50);
        QCOMPARE(QSet<QString>(all.begin(), all.end()).size(), 50);
    }

    // The server goes away in the middle of a round.
    void losesNoCallAndRatesNoneTwice() {
        Waiting(12);
        CutLine line(hotel_->port());
        Desk desk(line.port());
        desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
        QStringList all;
        line.reset();
        line.cutBeforeWrite(5);
        const RoundOutcome cut = round();
        all += rated_;
        QCOMPARE(cut.rated, 4);
        QVERIFY(cut.failure.has_value());
        QCOMPARE(cut.failure->title + cut.failure->words,
                 u"意外错误数据不能保存，请重新链接数据库服务器!"_s);
        QVERIFY(!round().present);
        hotel_->desk().use();
        QCOMPARE(mark(u"5"_s), QString());
        const RoundOutcome rest = round();
        all += rated_;
        QCOMPARE(rest.rated, 8);
        QStringList expected;
        for (int n = 1; n <= 12; ++n)
            expected.append(QString::number(n));
        QCOMPARE(all, expected);
    }

    // Whatever the server doesn't answer, a day is looked at until its calls are rated.
    void staysWithADayUntilItIsDone() {
        const QDate day(2026, 3, 5);
        const QDate today = day.addDays(2);
        constexpr int kRequests = 9; // the file, the search of two, three reads and writes
        for (int n = 1; n <= kRequests + 1; ++n) {
            hotel_->desk().use();
            Waiting(3);
            waiting_ = {};
            CutLine line(hotel_->port());
            Desk desk(line.port());
            desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
            line.reset();
            line.cutBeforeRequest(n);
            const RoundOutcome cut = round();
            const QStringList first = rated_;
            const auto step = u"cut before request %1"_s.arg(n);
            Check(qPrintable(step), NextCallDay(cut, day, today),
                  n > kRequests ? day.addDays(1) : day);
            Check(qPrintable(step), NextCallDay(round(), day, today), day); // nobody answers by now
            hotel_->desk().use();
            const RoundOutcome rest = round();
            Check(qPrintable(step), (first + rated_).join(u' '), u"1 2 3"_s);
            Check(qPrintable(step), NextCallDay(rest, day, today), day.addDays(1));
        }
        QCOMPARE(NextCallDay(RateWaitingCalls(u"Bill\\26\\03\\260306.QVR"_s, tables_, waiting_, {}),
                             day.addDays(1), today),
                 today); // no file: no calls
    }
};

HOTEL_TEST(CallTablesTest)

#include "test_call_tables.moc"
