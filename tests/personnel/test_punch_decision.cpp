#include <QRandomGenerator>
#include <QTest>

#include "personnel/attendance/punch_decision.h"
#include "tests/hotel_test.h"

using namespace hotel;

namespace {

QString PeriodText(const QString& name, const QString& start, const QString& end, int early,
                   int late, const QString& weekdays = {}, const QString& mode = u"常规"_s) {
    return u"<班次名称>%1</班次名称><考勤方式>%2</考勤方式><开始时间>%3</开始时间><结束时间>%4</"
           u"结束时间>"
           "<可提前>%5</可提前><可延迟>%6</可延迟><星期设定>%7</星期设定><缺勤折算>1</缺勤折算>"_s
               .arg(name, mode, start, end)
               .arg(early)
               .arg(late)
               .arg(weekdays);
}

QString PeriodsText(const QStringList& periods) {
    QString text;
    for (int n = 0; n < periods.size(); ++n)
        text += u"<%1>%2</%1>\r\n"_s.arg(n, 2, 10, QChar(u'0')).arg(periods[n]);
    return text;
}

QString Told(const PunchDecision& decision) {
    return decision.shift + u' ' + decision.function + decision.state +
           (decision.mode == u"加班" ? u" 加班"_s : QString());
}

// A day as stretches of equal decisions: "07:30 早班 上班正常".
QStringList Day(const QString& periodsText, int weekday = 1) {
    QStringList stretches;
    QString last;
    for (int minute = 0; minute < 24 * 60; ++minute) {
        const QString told = Told(DecidePunch(minute, weekday, ReadShiftPeriods(periodsText)));
        if (told != last)
            stretches.append(u"%1:%2 "_s.arg(minute / 60, 2, 10, QChar(u'0'))
                                 .arg(minute % 60, 2, 10, QChar(u'0')) +
                             told);
        last = told;
    }
    return stretches;
}

// The rules once more, by the words in which a personnel clerk tells them.
QString PlainReading(int t, int weekday, const QList<ShiftPeriod>& periods) {
    const auto counts = [&](const ShiftPeriod& p) {
        QString days = p.weekdays;
        for (int i = 0; days.size() < 7; ++i)
            days += QStringView(u"1111100")[i];
        if (days[weekday - 1] != u'1')
            return false;
        if (p.start > p.end)
            return !(t > p.end + p.late && t < p.start - p.early);
        return p.start - p.early <= t && t <= p.end + p.late;
    };
    for (const ShiftPeriod& p : periods) {
        const bool known =
            QStringList({u"常规"_s, u"时间"_s, u"倒班"_s, u"登记"_s}).contains(p.mode);
        if (!counts(p) || !known)
            continue;
        const QString name = p.name + u' ';
        if (p.start - p.early <= t && t <= p.start)
            return name + u"上班正常"_s;
        if (p.end <= t && t <= p.end + p.late)
            return name + u"下班正常"_s;
        if (p.start < t && t <= p.start + p.late)
            return name + u"上班迟到"_s;
        if (p.end - p.early <= t && t < p.end)
            return name + u"下班早退"_s;
    }
    for (const ShiftPeriod& p : periods) {
        if (counts(p))
            return p.name + u" 上班工作中"_s;
    }
    return u" 未知正常 加班"_s;
}

} // namespace

class PunchDecisionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyMinuteOfADay() {
        const auto row = [](const char* name, const QStringList& periods,
                            const QStringList& expected) {
            Check(name, Day(PeriodsText(periods)), expected);
        };
        row("a day shift", {PeriodText(u"早班"_s, u"08:00:00"_s, u"18:00:00"_s, 30, 30)},
            {u"00:00  未知正常 加班"_s, u"07:30 早班 上班正常"_s, u"08:01 早班 上班迟到"_s,
             u"08:31 早班 上班工作中"_s, u"17:30 早班 下班早退"_s, u"18:00 早班 下班正常"_s,
             u"18:31  未知正常 加班"_s});
        row("margins that differ: lateness by the late minutes, early leaving by the early ones",
            {PeriodText(u"早班"_s, u"08:00:00"_s, u"18:00:00"_s, 20, 50)},
            {u"00:00  未知正常 加班"_s, u"07:40 早班 上班正常"_s, u"08:01 早班 上班迟到"_s,
             u"08:51 早班 上班工作中"_s, u"17:40 早班 下班早退"_s, u"18:00 早班 下班正常"_s,
             u"18:51  未知正常 加班"_s});
        row("a night shift", {PeriodText(u"夜班"_s, u"22:00:00"_s, u"06:00:00"_s, 30, 45)},
            {u"00:00 夜班 上班工作中"_s, u"05:30 夜班 下班早退"_s, u"06:00 夜班 下班正常"_s,
             u"06:46  未知正常 加班"_s, u"21:30 夜班 上班正常"_s, u"22:01 夜班 上班迟到"_s,
             u"22:46 夜班 上班工作中"_s});
        row("a night shift whose margins meet: nobody is outside",
            {PeriodText(u"夜班"_s, u"20:00:00"_s, u"08:00:00"_s, 360, 360)},
            {u"00:00 夜班 上班工作中"_s, u"02:00 夜班 下班早退"_s, u"08:00 夜班 下班正常"_s,
             u"14:00 夜班 上班正常"_s, u"20:01 夜班 上班迟到"_s});
        row("windows that cross: an arrival goes ahead of a departure, on time ahead of late",
            {PeriodText(u"短班"_s, u"12:00:00"_s, u"12:20:00"_s, 30, 30)},
            {u"00:00  未知正常 加班"_s, u"11:30 短班 上班正常"_s, u"12:01 短班 上班迟到"_s,
             u"12:20 短班 下班正常"_s, u"12:51  未知正常 加班"_s});
        row("two shifts: the first that decides, though the other holds the minute too",
            {PeriodText(u"早班"_s, u"08:00:00"_s, u"12:00:00"_s, 30, 60),
             PeriodText(u"晚班"_s, u"12:30:00"_s, u"16:00:00"_s, 60, 30)},
            {u"00:00  未知正常 加班"_s, u"07:30 早班 上班正常"_s, u"08:01 早班 上班迟到"_s,
             u"09:01 早班 上班工作中"_s, u"11:30 早班 下班早退"_s, u"12:00 早班 下班正常"_s,
             u"13:01 晚班 上班工作中"_s, u"15:00 晚班 下班早退"_s, u"16:00 晚班 下班正常"_s,
             u"16:31  未知正常 加班"_s});
        row("a way of keeping time that nobody knows decides nothing, but tells who is at work",
            {PeriodText(u"早班"_s, u"08:00:00"_s, u"18:00:00"_s, 30, 30, {}, u"别的"_s)},
            {u"00:00  未知正常 加班"_s, u"07:30 早班 上班工作中"_s, u"18:31  未知正常 加班"_s});
        row("a shift without a name is none",
            {PeriodText({}, u"08:00:00"_s, u"18:00:00"_s, 30, 30)}, {u"00:00  未知正常 加班"_s});
        row("no period", {}, {u"00:00  未知正常 加班"_s});
    }

    void weekdays() {
        const auto row = [](const char* name, const QString& setting, const QString& expected) {
            QString days;
            for (int weekday = 1; weekday <= 7; ++weekday)
                days += HoldsOn(setting, weekday) ? u'1' : u'0';
            Check(name, days, expected);
        };
        row("empty", {}, u"1111100"_s);
        row("three digits have the rest behind them", u"010"_s, u"0101111"_s);
        row("seven", u"1000001"_s, u"1000001"_s);
        row("nine: two too many", u"000000111"_s, u"0000001"_s);
        const QString text =
            PeriodsText({PeriodText(u"早班"_s, u"08:00:00"_s, u"18:00:00"_s, 30, 30)});
        QCOMPARE(Day(text, 5).size(), 7);
        QCOMPARE(Day(text, 6), QStringList({u"00:00  未知正常 加班"_s}));
    }

    // What is kept of a decision outside every period.
    void overtime() {
        const PunchDecision decision = DecidePunch(601, 7, {});
        QCOMPARE(decision.start, 601);
        QCOMPARE(decision.end, 601);
        QCOMPARE(decision.early, 10);
        QCOMPARE(decision.late, 10);
        QCOMPARE(decision.weekdays, u"1111111"_s);
    }

    void periodsOfARecord() {
        QStringList hundred;
        for (int n = 0; n < 101; ++n)
            hundred.append(PeriodText(u"班%1"_s.arg(n), u"08:00:00"_s, u"18:00:00"_s, 30, 30));
        const QString text = PeriodsText(hundred);
        QCOMPARE(ReadShiftPeriods(text).size(), 100);
        QCOMPARE(ReadShiftPeriods(text).last().name, u"班99"_s);
        QCOMPARE(ReadShiftPeriods(PeriodsText({hundred[0], {}, hundred[2]})).size(), 1);
        const QString one =
            PeriodsText({PeriodText(u"早班"_s, u"08:00:00"_s, u"18:00:00"_s, 30, 30)});
        for (qsizetype cut = 0; cut <= one.size(); ++cut) {
            const auto periods = ReadShiftPeriods(one.left(cut));
            QVERIFY(periods.size() <= 1);
            QVERIFY(!DecidePunch(485, 1, periods).state.isEmpty());
        }
        const ShiftPeriod cut =
            ReadShiftPeriods(u"<00><班次名称>早班</班次名称><开始时间>8</00>")[0];
        QCOMPARE(cut.name, u"早班"_s);
        QCOMPARE(cut.start, 0);
    }

    void decisionsEqualAPlainReading() {
        auto random = QRandomGenerator(20261123);
        const auto below = [&](int limit) { return int(random.bounded(limit)); };
        int decided = 0;
        for (int n = 0; n < 20000; ++n) {
            QStringList texts;
            for (int i = below(4); i >= 0; --i) {
                const QString digits = u"1101111010"_s.mid(below(10), below(10));
                const auto time = [&] {
                    return u"%1:%2:00"_s.arg(below(24), 2, 10, QChar(u'0'))
                        .arg(below(4) * 15, 2, 10, QChar(u'0'));
                };
                const QString mode =
                    QStringList({u"常规"_s, u"时间"_s, u"倒班"_s, u"登记"_s, u"别的"_s})[below(5)];
                texts.append(PeriodText(u"班%1"_s.arg(i), time(), time(), below(5) * 15,
                                        below(5) * 15, digits, mode));
            }
            const auto periods = ReadShiftPeriods(PeriodsText(texts));
            const int weekday = 1 + below(7);
            const int minute = below(96) * 15 + below(3) - 1;
            const QString told = Told(DecidePunch(minute, weekday, periods));
            QCOMPARE(told, PlainReading(minute, weekday, periods));
            decided += !told.contains(u"未知") && !told.contains(u"工作中");
        }
        QVERIFY(decided > 1000);
    }
};

HOTEL_TEST(PunchDecisionTest)
#include "test_punch_decision.moc"
