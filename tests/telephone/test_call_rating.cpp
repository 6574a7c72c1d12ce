#include <QRandomGenerator>
#include <QTest>

#include <numeric>

#include "record/literals.h"
#include "record/record_text.h"
#include "telephone/call_rating.h"
#include "telephone/call_record.h"
#include "tests/hotel_test.h"

using namespace hotel;

namespace {

__extension__ using Wide = __int128;

using Parameters = QList<std::pair<int, QString>>;

TextTable ParameterRows(const Parameters& parameters) {
    TextTable rows = ParameterTable({});
    for (const auto& [row, value] : parameters)
        rows.setText(row, 2, value);
    return rows;
}

TextTable Prefixes(const QList<QStringList>& rows) {
    TextTable table = PrefixTable({});
    for (const QStringList& row : rows)
        table.addRow(row);
    return table;
}

RatingTables TablesOf(const Parameters& parameters, const QList<QStringList>& prefixes,
                      const QStringList& configuration = {}) {
    AccountingConfig config;
    for (const QString& line : configuration)
        config.take(line);
    TextTable extensions(ExtensionHeaders());
    extensions.addRow({u"8201"_s, u"客房部"_s, u"8201房间"_s});
    extensions.addRow({u"8201"_s, u"第二个"_s, u"不算"_s});
    extensions.addRow({u"6000"_s, {}, u"总机"_s});
    return {ExtensionIndex(extensions), Tariff(ParameterRows(parameters), Prefixes(prefixes)),
            RateBands(config)};
}

// The amounts of a rated record in their order of writing, the total last.
QString Amounts(const QString& record) {
    QStringList amounts;
    for (const QStringView tag :
         {u"通话费", u"手续费", u"浮动费", u"过线费", u"附加费", u"建设费", u"地方费", u"总话费"})
        amounts.append(GetTag(record, tag));
    return amounts.join(u' ');
}

QString Call(const QString& number, const QString& length) {
    return u"<分机号>8201</分机号>\r\n<被叫号码>%1</被叫号码>\r\n<话始日期>2026-03-05</"
           u"话始日期>\r\n"
           "<话始时间>21:59:30</话始时间>\r\n<通话时长>%2</通话时长>"_s.arg(number, length);
}

// --- a second reckoning, by fractions ---

struct Fraction {
    Wide top = 0;
    Wide bottom = 1;
};
Fraction Make(Wide top, Wide bottom = 1) {
    Wide a = top < 0 ? -top : top;
    Wide b = bottom;
    while (b != 0)
        a = std::exchange(b, a % b);
    return a == 0 ? Fraction{0, 1} : Fraction{top / a, bottom / a};
}
Fraction operator+(Fraction a, Fraction b) {
    return Make(a.top * b.bottom + b.top * a.bottom, a.bottom * b.bottom);
}
Fraction operator-(Fraction a, Fraction b) {
    return a + Fraction{-b.top, b.bottom};
}
Fraction operator*(Fraction a, Fraction b) {
    return Make(a.top * b.top, a.bottom * b.bottom);
}
bool operator<(Fraction a, Fraction b) {
    return a.top * b.bottom < b.top * a.bottom;
}
Fraction Cut(Fraction a, Fraction by) { // a ÷ by, without its fraction
    const Fraction q = Make(a.top * by.bottom, a.bottom * by.top);
    return {q.top / q.bottom, 1};
}
Fraction ToScale(Fraction a, Wide scale) { // half away from zero
    const Wide sign = a.top < 0 ? -1 : 1;
    return Make(sign * ((a.top * sign * scale * 2 + a.bottom) / (a.bottom * 2)), scale);
}
Fraction Product(Fraction a, Fraction b) {
    return ToScale(a * b, 10000);
}

struct PlainTariff {
    std::array<Fraction, 92> P;
    bool hasPrefix = false;
    Fraction R;
    int c = 1;
};

struct PlainBand {
    Fraction f{1, 1};
    bool third = false;
    bool fourth = false;
};

// The seven amounts in cents, in their order of writing.
std::array<qint64, 7> ReckonPlainly(const PlainTariff& tariff, int d, const PlainBand& band) {
    const auto& P = tariff.P;
    const auto c = size_t(tariff.c);
    const Fraction one{1, 1};
    const Fraction sixty{60, 1};
    Wide U = Cut(P[84 + c], one).top;
    U = U < 1 ? 60 : U;
    const Fraction T{(d + U - 1) / U * U, 1};
    const auto steps = [&](Fraction minutes) {
        return Cut(Cut(minutes * sixty - one + T, sixty), minutes);
    };
    Fraction n;
    switch (int(P[29].top / P[29].bottom)) {
    case 1:
        n = steps(P[36]);
        break;
    case 3:
        n = Cut(T - (P[36] * sixty + Fraction{59, 1}), sixty) + one;
        n = n < one ? one : n;
        break;
    default:
        n = Cut(T + Fraction{59, 1}, sixty);
    }
    const Fraction L =
        Product(n - one, P[78]) + P[43] + Product(n, P[1]) + P[8] + P[57] + Product(n, P[50]);
    const int M = int(P[28 + c].top / P[28 + c].bottom);
    Fraction u = T * Fraction{1, 60};
    if (M == 1)
        u = steps(P[35 + c]);
    if (M == 3) {
        u = (T - P[35 + c] * sixty) * Fraction{1, 60} + one;
        u = u < Fraction{1, 1000000} ? one : u;
    }
    const Fraction first = tariff.hasPrefix ? tariff.R : P[42 + c];
    Fraction call;
    if (P[77 + c].top != 0) {
        if (tariff.hasPrefix && u < one)
            u = one;
        call = Product(u - one, P[77 + c]) + first;
    } else {
        call = Product(u, first);
    }
    if (M > 3)
        call = call + L;
    const auto percent = [](Fraction amount, Fraction rate) {
        return ToScale(Product(amount, rate) * Fraction{1, 100}, 10000);
    };
    Fraction floating = percent(call, P[21 + c]);
    if (band.third)
        floating = Product(floating, band.f);
    const Fraction fees = Product(u, P[c]) + P[7 + c] + Product(u, P[49 + c]);
    if (band.fourth)
        floating = percent((band.third ? Product(call, band.f) : call) + fees, P[21 + c]);
    const Fraction construction = percent(call + floating + fees, P[56 + c]);
    std::array<qint64, 7> cents{};
    const std::array<Fraction, 7> amounts = {
        call, P[7 + c], floating, Product(u, P[49 + c]), Product(u, P[c]), construction, {0, 1}};
    for (size_t i = 0; i < amounts.size(); ++i)
        cents[i] = qint64((ToScale(amounts[i], 100) * Fraction{100, 1}).top);
    return cents;
}

QString CentsText(qint64 cents) {
    const qint64 size = cents < 0 ? -cents : cents;
    return (cents < 0 ? u"-"_s : QString()) +
           u"%1.%2"_s.arg(size / 100).arg(size % 100, 2, 10, QLatin1Char('0'));
}

QString FourDecimals(qint64 units) {
    return u"%1.%2"_s.arg(units / 10000).arg(units % 10000, 4, 10, QLatin1Char('0'));
}

} // namespace

class CallRatingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ratesByEveryMode() {
        const Parameters mode1 = {{29, u"1"_s}, {36, u"3"_s}, {43, u"0.5"_s}};
        const Parameters mode1Further = mode1 + Parameters{{78, u"0.2"_s}};
        const Parameters mode2 = {{29, u"2"_s}, {32, u"2"_s}, {88, u"6"_s}};
        const Parameters bySecond = {{29, u"2"_s}, {32, u"2"_s}, {88, u"1"_s}};
        const Parameters mode2Further = mode2 + Parameters{{81, u"0.3"_s}};
        const Parameters mode3 = {{29, u"3"_s}, {36, u"3"_s}, {43, u"0.22"_s}};
        const Parameters mode3Further = mode3 + Parameters{{78, u"0.11"_s}};
        const Parameters localFees = {{78, u"0.11"_s}, {43, u"0.22"_s}, {1, u"0.01"_s},
                                      {8, u"0.05"_s},  {57, u"0.03"_s}, {50, u"0.02"_s}};
        const QList<QStringList> none;
        const QList<QStringList> national = {{u"0"_s, u"国内长途"_s, u"0.6"_s, u"外地"_s}};
        const QList<QStringList> city = {{u"0"_s, u"市话"_s, u"0.5"_s, u"本地"_s}};
        const auto row = [](const char* name, const Parameters& parameters,
                            const QList<QStringList>& prefixes, const QString& length,
                            const QString& fee, const QString& total) {
            const RatedCall call =
                RateCall(Call(u"0101234"_s, length), TablesOf(parameters, prefixes));
            Check(name, call.problem, QString());
            Check(name, GetTag(call.record, u"通话费") + u" "_s + GetTag(call.record, u"总话费"),
                  fee + u" "_s + total);
        };
        row("1: a step begun", mode1, none, u"181"_s, u"1.00"_s, u"1.00"_s);
        row("1: a step full", mode1, none, u"180"_s, u"0.50"_s, u"0.50"_s);
        row("1: no second", mode1, none, u"0"_s, u"0.00"_s, u"0.00"_s);
        row("1: further step", mode1Further, none, u"181"_s, u"0.70"_s, u"0.70"_s);
        row("1: less than a first step", mode1Further, none, u"0"_s, u"0.30"_s, u"0.30"_s);
        row("1: lifted to the first step", mode1Further, city, u"0"_s, u"0.50"_s, u"0.50"_s);
        row("1: half minutes", {{29, u"1"_s}, {36, u"0.5"_s}, {43, u"0.1"_s}}, none, u"61"_s,
            u"0.40"_s, u"0.40"_s);
        row("2: units of 6 seconds", mode2, national, u"61"_s, u"0.66"_s, u"0.66"_s);
        row("2: units of 60 seconds", {{29, u"2"_s}, {32, u"2"_s}}, national, u"61"_s, u"1.20"_s,
            u"1.20"_s);
        row("2: a unit below 1 is 60", {{29, u"2"_s}, {32, u"2"_s}, {88, u"0.9"_s}}, national,
            u"61"_s, u"1.20"_s, u"1.20"_s);
        row("2: the unit's fraction is cut", {{29, u"2"_s}, {32, u"2"_s}, {88, u"6.9"_s}}, national,
            u"61"_s, u"0.66"_s, u"0.66"_s);
        row("2: thirds of a minute", bySecond, national, u"100"_s, u"1.00"_s, u"1.00"_s);
        row("2: half a cent up", bySecond, {{u"0"_s, u"国内"_s, u"0.125"_s}}, u"60"_s, u"0.13"_s,
            u"0.13"_s);
        row("2: no second", mode2, national, u"0"_s, u"0.00"_s, u"0.00"_s);
        row("2: no second, first unit", mode2Further, national, u"0"_s, u"0.60"_s, u"0.60"_s);
        row("2: further units", mode2Further, national, u"90"_s, u"0.75"_s, u"0.75"_s);
        row("2: no prefix, negative base", {{29, u"2"_s}, {43, u"0.6"_s}, {78, u"0.3"_s}}, none,
            u"0"_s, u"0.30"_s, u"0.30"_s);
        row("3: within the first step", mode3Further, none, u"60"_s, u"0.22"_s, u"0.22"_s);
        row("3: the first step full", mode3Further, none, u"180"_s, u"0.22"_s, u"0.22"_s);
        row("3: a second more", mode3Further, none, u"181"_s, u"0.33"_s, u"0.33"_s);
        row("3: all units alike", mode3, none, u"300"_s, u"0.66"_s, u"0.66"_s);
        row("3: a fraction of a unit", mode3Further + Parameters{{36, u"1"_s}, {85, u"6"_s}}, none,
            u"66"_s, u"0.23"_s, u"0.23"_s);
        row("4: local by first step",
            localFees + Parameters{{29, u"3"_s}, {36, u"3"_s}, {32, u"4"_s}, {88, u"6"_s}},
            national, u"61"_s, u"0.99"_s, u"0.99"_s);
        row("4: local steps behind the first",
            localFees + Parameters{{29, u"3"_s}, {36, u"1"_s}, {32, u"4"_s}}, national, u"240"_s,
            u"3.01"_s, u"3.01"_s);
        row("5: local by the minute", localFees + Parameters{{29, u"2"_s}, {32, u"5"_s}}, national,
            u"130"_s, u"2.41"_s, u"2.41"_s);
        row("6: local by steps", localFees + Parameters{{29, u"1"_s}, {36, u"2"_s}, {32, u"6"_s}},
            national, u"130"_s, u"2.27"_s, u"2.27"_s);
        row("6: local mode 4 as 2",
            localFees + Parameters{{29, u"4"_s}, {32, u"6"_s}, {88, u"1"_s}}, national, u"61"_s,
            u"1.08"_s, u"1.08"_s);
        row("the mode's fraction is cut", {{29, u"2.9"_s}, {32, u"2.9"_s}}, national, u"60"_s,
            u"0.60"_s, u"0.60"_s);
        row("an unknown class is local", {{29, u"2"_s}}, {{u"0"_s, u"其他"_s, u"0.4"_s}}, u"60"_s,
            u"0.40"_s, u"0.40"_s);
    }

    void ratesEachClassByItsOwnRows() {
        const QStringList classes = {u"市话"_s, u"特服"_s, u"省内"_s, u"国内"_s,
                                     u"国际"_s, u"农话"_s, u"专网"_s};
        Parameters parameters;
        for (int c = 1; c <= 7; ++c)
            parameters += {{28 + c, u"2"_s}, {7 + c, QString::number(c)}};
        for (int c = 1; c <= 7; ++c) {
            const RatedCall call =
                RateCall(Call(u"9"_s, u"60"_s),
                         TablesOf(parameters, {{u"9"_s, classes[c - 1] + u"甲"_s, u"1"_s}}));
            QCOMPARE(GetTag(call.record, u"手续费"), QString::number(c) + u".00"_s);
            QCOMPARE(GetTag(call.record, u"费率类别"), classes[c - 1] + u"甲"_s);
        }
    }

    void addsFeesAndTheBand() {
        const Parameters fees = {{29, u"2"_s},  {32, u"2"_s},    {4, u"0.05"_s}, {11, u"0.5"_s},
                                 {25, u"10"_s}, {53, u"0.03"_s}, {60, u"10"_s}};
        const auto row = [&](const char* name, const QString& flags, const QString& amounts) {
            const RatingTables tables =
                TablesOf(fees, {{u"0"_s, u"国内长途"_s, u"1"_s, u"外地"_s}},
                         {u"HALFFEE=1111111 1111111  21002300050"_s + flags});
            Check(name, Amounts(RateCall(Call(u"010"_s, u"00:02:00"_s), tables).record), amounts);
        };
        row("no flag", u"0000"_s, u"2.00 0.50 0.20 0.06 0.10 0.29 0.00 3.15"_s);
        row("first and second mean nothing", u"1100"_s,
            u"2.00 0.50 0.20 0.06 0.10 0.29 0.00 3.15"_s);
        row("third", u"0010"_s, u"2.00 0.50 0.10 0.06 0.10 0.28 0.00 3.04"_s);
        row("fourth", u"0001"_s, u"2.00 0.50 0.27 0.06 0.10 0.29 0.00 3.22"_s);
        row("both", u"0011"_s, u"2.00 0.50 0.17 0.06 0.10 0.28 0.00 3.11"_s);
    }

    // A call's record, as it comes and as it goes.
    void fillsTheRecord() {
        const RatingTables tables =
            TablesOf({{29, u"2"_s}, {32, u"2"_s}}, {{u"0"_s, u"国内长途"_s, u"0.6"_s, u"外地"_s},
                                                    {u"010"_s, u"国内甲"_s, u"0.7"_s, u"北京"_s},
                                                    {u"010"_s, u"国内乙"_s, u"9"_s, u"不算"_s},
                                                    {{}, u"国际"_s, u"9"_s, u"空号头"_s}});
        QCOMPARE(RateCall(u"<分机号>8201</分机号>\r\n<被叫号码>0106588</被叫号码>\r\n"
                          "<话始日期>2026-02-28</话始日期>\r\n<话始时间>23:59:00</话始时间>\r\n"
                          "<通话时长>3723</通话时长>\r\n<中继号>7</中继号>\r\n<标志></标志>"_s,
                          tables)
                     .record,
                 u"<分机号>8201</分机号>\r\n<被叫号码>0106588</被叫号码>\r\n"
                 "<话始日期>2026-02-28</话始日期>\r\n<话始时间>23:59:00</话始时间>\r\n"
                 "<通话时长>01:02:03</通话时长>\r\n<中继号>7</中继号>\r\n<标志>计费处理</标志>\r\n"
                 "<所有者>客房部</所有者>\r\n<使用者>8201房间</使用者>\r\n"
                 "<话终日期>2026-03-01</话终日期>\r\n<话终时间>01:01:03</话终时间>\r\n"
                 "<通话地区>北京</通话地区>\r\n<费率类别>国内甲</费率类别>\r\n"
                 "<通话费>44.10</通话费>\r\n<手续费>0.00</手续费>\r\n<浮动费>0.00</浮动费>\r\n"
                 "<过线费>0.00</过线费>\r\n<附加费>0.00</附加费>\r\n<建设费>0.00</建设费>\r\n"
                 "<地方费>0.00</地方费>\r\n<总话费>44.10</总话费>"_s);
        const auto row = [&](const char* name, const QString& record, const QString& tags,
                             const QString& expected) {
            const QString rated = RateCall(record, tables).record;
            QStringList values;
            for (const QString& tag : tags.split(u' '))
                values.append(GetTag(rated, tag));
            Check(name, values.join(u'|'), expected);
        };
        const auto number = [](const QString& digits) {
            return u"<被叫号码>%1</被叫号码>"_s.arg(digits);
        };
        row("shorter prefix", number(u"0200"_s), u"通话地区 费率类别"_s, u"外地|国内长途"_s);
        row("no prefix", number(u"6588"_s), u"通话地区 费率类别"_s, u"本市|市话类别"_s);
        row("no number", number({}), u"通话地区 费率类别 总话费"_s, u"本市|市话类别|0.00"_s);
        row("number as short as the prefix", number(u"0"_s), u"通话地区"_s, u"外地"_s);
        row("owner that is empty", u"<分机号>6000</分机号>\r\n<所有者>旧</所有者>"_s,
            u"所有者 使用者"_s, u"|总机"_s);
        row("extension unknown", u"<分机号>60</分机号><使用者>旧</使用者>"_s, u"所有者 使用者"_s,
            u"|旧"_s);
        const auto moment = [](const QString& tags, const QString& length) {
            return tags + u"<通话时长>%1</通话时长>"_s.arg(length);
        };
        const QString start = u"<话始日期>2026-12-31</话始日期><话始时间>23:59:59</话始时间>"_s;
        const QString end = u"<话终日期>2024-03-01</话终日期><话终时间>00:00:00</话终时间>"_s;
        const QString ends = u"话终日期 话终时间 通话时长"_s;
        const QString starts = u"话始日期 话始时间 标志"_s;
        row("into the next year", moment(start, u"1"_s), ends, u"2027-01-01|00:00:00|00:00:01"_s);
        row("start from the end, leap day", moment(end, u"1"_s), starts,
            u"2024-02-29|23:59:59|计费处理"_s);
        row("start at midnight", moment(end, u"86400"_s), starts,
            u"2024-02-29|00:00:00|计费处理"_s);
        row("no length", end, starts, u"2024-03-01|00:00:00|计费处理"_s);
        row("the start counts", moment(start + end, u"0:1:1"_s), ends,
            u"2027-01-01|00:01:00|0:1:1"_s);
        row("a date that is none",
            u"<话始日期>2026-02-30</话始日期><话始时间>10:00:00</话始时间>"_s,
            u"话始日期 话终日期 标志"_s, u"2026-02-30||计费处理"_s);
        row("a time that is none",
            u"<话始日期>2026-02-20</话始日期><话始时间>25:00:00</话始时间>"_s,
            u"话始时间 话终日期 标志"_s, u"25:00:00||计费处理"_s);
        row("neither start nor end", u"<通话时长>5</通话时长>"_s,
            u"话始日期 话终日期 通话时长 标志"_s, u"||00:00:05|计费处理"_s);
    }

    void readsLengths() {
        const auto row = [](const QString& text, qint64 seconds) {
            Check(qPrintable(text), SecondsOfCall(text), seconds);
        };
        row(u"01:02:03"_s, 3723);
        row(u"3723"_s, 3723);
        row(u"1:2"_s, 3720);
        row(u"-5"_s, 0);
        row(u"-1:00:00"_s, 0);
        row(u"99:99:99"_s, 362439);
        row(u"1:2:3:4"_s, 3723);
        row(u"90000"_s, 90000);
        row(u"9999999999999999"_s, 8640000);
        row({}, 0);
        row(u"abc"_s, 0);
        row(u":"_s, 0);
        const QString day =
            RateCall(u"<通话时长>90061</通话时长>"_s, TablesOf({{29, u"2"_s}}, {})).record;
        QCOMPARE(GetTag(day, u"通话时长"), u"25:01:01"_s);
    }

    void findsTheBand() {
        const auto row = [](const char* name, const QStringList& configuration, const QString& day,
                            const QString& time, qint64 percent) {
            AccountingConfig config;
            for (const QString& line : configuration)
                config.take(line);
            const RateBand band =
                RateBands(config).at(QDate::fromString(day, Qt::ISODate), QTime::fromString(time));
            Check(name, band.factor.units(), percent * 100);
        };
        // Thursday 5 March 2026; Sunday is the 8th.
        const QStringList night = {u"HALFFEE=1111111 1111111  210006590500000"_s};
        const QStringList noon = {u"HALFFEE=0000100 0000000  120013300300000"_s};
        const QStringList both = {u"HALFFEE=1000000 1111111  000023590200000"_s,
                                  u"HALFFEE=1111111 0000000  000012000400000"_s,
                                  u"HALFFEE=1111111 1111111  110023590600000"_s};
        row("no entry", {}, u"2026-03-05"_s, u"12:00:00"_s, 100);
        row("across midnight: start", night, u"2026-03-05"_s, u"21:00:00"_s, 50);
        row("across midnight: before", night, u"2026-03-05"_s, u"20:59:59"_s, 100);
        row("across midnight: end", night, u"2026-03-05"_s, u"06:59:59"_s, 50);
        row("across midnight: behind", night, u"2026-03-05"_s, u"07:00:00"_s, 100);
        row("across midnight: midnight", night, u"2026-03-05"_s, u"00:00:00"_s, 50);
        row("its day", noon, u"2026-03-05"_s, u"13:30:59"_s, 30);
        row("behind its end", noon, u"2026-03-05"_s, u"13:31:00"_s, 100);
        row("another day", noon, u"2026-03-06"_s, u"12:30:00"_s, 100);
        row("Sunday is the first flag", both, u"2026-03-08"_s, u"11:30:00"_s, 20);
        row("the first that applies", both, u"2026-03-05"_s, u"11:30:00"_s, 40);
        row("the third", both, u"2026-03-05"_s, u"12:01:00"_s, 60);
        row("no holiday flag", both, u"2026-01-01"_s, u"11:30:00"_s, 60);
        row("both flags on a holiday", both, u"2026-10-01"_s, u"11:30:00"_s, 60);
        row("a holiday needs the day's flag, too", both, u"2027-05-01"_s, u"10:00:00"_s, 100);
        row("no day", night, u"2026-02-30"_s, u"22:00:00"_s, 100);
        row("no time", night, u"2026-02-20"_s, u"x"_s, 100);
    }

    void knowsTheHolidays() {
        AccountingConfig config;
        config.take(u"HALFDEF=126");
        config.take(u"HALFDEF=1224");
        const RateBands bands(config);
        const auto row = [&](const QString& day, bool holiday) {
            Check(qPrintable(day), bands.isHoliday(QDate::fromString(day, Qt::ISODate)), holiday);
        };
        for (const QString& day :
             {u"2026-01-01"_s, u"2026-05-01"_s, u"2026-10-01"_s, u"2026-10-02"_s, u"2030-12-24"_s,
              u"2009-01-26"_s, u"1998-01-28"_s, u"1998-01-30"_s, u"1999-02-16"_s, u"1999-02-18"_s,
              u"2000-02-05"_s, u"2000-02-07"_s, u"2001-01-24"_s, u"2001-01-26"_s, u"2002-02-12"_s,
              u"2002-02-14"_s, u"2003-02-01"_s, u"2003-02-03"_s, u"2004-01-22"_s, u"2004-01-24"_s,
              u"2005-02-09"_s, u"2005-02-10"_s, u"2005-02-11"_s, u"2006-01-29"_s, u"2006-01-31"_s,
              u"2007-02-18"_s, u"2007-02-20"_s})
            row(day, true);
        for (const QString& day :
             {u"2026-01-02"_s, u"2026-05-02"_s, u"2026-10-03"_s, u"2005-02-08"_s, u"2005-02-12"_s,
              u"2007-02-17"_s, u"2007-02-21"_s, u"1998-01-27"_s, u"1998-01-31"_s, u"2008-02-07"_s,
              u"2009-01-27"_s, u"2004-02-09"_s})
            row(day, false);
    }

    // Divisors of zero and modes that are none are told, and the call is left as it was.
    void tellsOfATariffThatCannotRate() {
        const QList<QStringList> national = {{u"0"_s, u"国内长途"_s, u"0.6"_s, u"外地"_s}};
        const auto row = [&](const char* name, const Parameters& parameters, const QString& words) {
            const QString record = Call(u"010"_s, u"61"_s);
            const RatedCall call = RateCall(record, TablesOf(parameters, national));
            Check(name, call.problem, words);
            Check(name, call.record == record, !words.isEmpty());
        };
        row("no steps", {{29, u"2"_s}, {32, u"1"_s}}, u"系统参数第39行的分钟数为零"_s);
        row("no mode", {{29, u"2"_s}}, u"系统参数第32行不是1至6的计费方式"_s);
        row("mode 7", {{29, u"2"_s}, {32, u"7"_s}}, u"系统参数第32行不是1至6的计费方式"_s);
        row("no local steps", {{29, u"1"_s}, {32, u"4"_s}}, u"系统参数第36行的分钟数为零"_s);
        row("no local mode", {{32, u"6"_s}}, u"系统参数第29行不是1至6的计费方式"_s);
        row("no local part is asked for", {{29, u"1"_s}, {32, u"2"_s}}, {});
        row("steps of no minutes in mode 3", {{29, u"2"_s}, {32, u"3"_s}}, {});
    }

    void staysInRangeWithAbsurdTariffs() {
        const QString most = u"900000000000000"_s;
        Parameters parameters;
        for (int row = 1; row <= 91; ++row)
            parameters.append({row, most});
        for (const QString& mode : {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s}) {
            for (const QString& step : {u"0.0001"_s, most}) {
                const Parameters all =
                    parameters +
                    Parameters{{29, mode}, {32, mode}, {36, step}, {39, step}, {81, u"0"_s}};
                const RatedCall call = RateCall(Call(u"0"_s, u"99:59:59"_s),
                                                TablesOf(all, {{u"0"_s, u"国内"_s, most}}));
                QVERIFY(GetTag(call.record, u"总话费").startsWith(u"922337203685477"));
            }
        }
    }

    void findsThePrefixOfAWalk() {
        QRandomGenerator random(11);
        const auto digits = [&](int least) {
            QString text;
            for (int n = random.bounded(least, 6); n > 0; --n)
                text += QChar(u'0' + random.bounded(3));
            return text;
        };
        for (int round = 0; round < 300; ++round) {
            QList<QStringList> rows;
            for (int n = random.bounded(40); n > 0; --n)
                rows.append({digits(0), u"国内"_s, u"1"_s, QString::number(n)});
            const Tariff tariff(ParameterRows({}), Prefixes(rows));
            for (int n = 0; n < 30; ++n) {
                const QString number = digits(0) + digits(0);
                QString place = u"none"_s;
                qsizetype longest = 0;
                for (const QStringList& row : rows) {
                    if (number.startsWith(row[0]) && row[0].size() > longest) {
                        longest = row[0].size();
                        place = row[3];
                    }
                }
                const PrefixRow* found = tariff.longestPrefix(number);
                QCOMPARE(found ? found->place : u"none"_s, place);
            }
        }
    }

    // Twenty-five thousand random calls by random tariffs, to the cent.
    void agreesWithAReckoningByFractions() {
        QRandomGenerator random(61);
        const QStringList classes = {u"市话"_s, u"特服"_s, u"省内"_s, u"国内"_s,
                                     u"国际"_s, u"农话"_s, u"专网"_s};
        constexpr int kTariffs = 1000;
        constexpr int kCalls = 25;
        for (int round = 0; round < kTariffs; ++round) {
            PlainTariff plain;
            Parameters parameters;
            for (int row = 1; row <= 91; ++row) {
                qint64 units = random.bounded(4) == 0 ? 0 : random.bounded(120'000);
                if (row > 28 && row <= 35)
                    units = random.bounded(10'000, 70'000); // modes, with a fraction
                else if (row > 35 && row <= 42)
                    units = random.bounded(2) ? random.bounded(1, 6) * 10'000
                                              : random.bounded(1, 60'000);
                else if (row > 84)
                    units =
                        random.bounded(2) ? random.bounded(9) * 10'000 : random.bounded(900'000);
                plain.P[size_t(row)] = Make(units, 10000);
                parameters.append({row, FourDecimals(units)});
            }
            plain.c = random.bounded(1, 8);
            const int rate = random.bounded(200'000);
            plain.R = Make(rate, 10000);
            const int percent = random.bounded(1000);
            const PlainBand band{Make(percent, 100), random.bounded(2) == 1,
                                 random.bounded(2) == 1};
            const QString flags = u"00%1%2"_s.arg(int(band.third)).arg(int(band.fourth));
            const QString half =
                u"HALFFEE=1111111 1111111  00002359%1%2"_s.arg(percent, 3, 10, QLatin1Char('0'))
                    .arg(flags);
            const RatingTables tables = TablesOf(
                parameters, {{u"0"_s, classes[plain.c - 1], FourDecimals(rate), {}}}, {half});
            const int c = plain.c;
            for (int n = 0; n < kCalls; ++n) {
                plain.hasPrefix = random.bounded(3) > 0;
                plain.c = plain.hasPrefix ? c : 1;
                const int d = random.bounded(4) == 0 ? random.bounded(70) : random.bounded(20'000);
                const std::array<qint64, 7> cents = ReckonPlainly(plain, d, band);
                QStringList expected;
                for (const qint64 amount : cents)
                    expected.append(CentsText(amount));
                expected.append(CentsText(std::accumulate(cents.begin(), cents.end(), qint64(0))));
                const RatedCall call = RateCall(
                    Call(plain.hasPrefix ? u"0123"_s : u"5123"_s, QString::number(d)), tables);
                QCOMPARE(Amounts(call.record), expected.join(u' '));
            }
        }
    }
};

HOTEL_TEST(CallRatingTest)

#include "test_call_rating.moc"
