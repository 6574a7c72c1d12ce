#include "record/numbers.h"
#include "tests/hotel_test.h"

#include <QRandomGenerator>

#include <cmath>
#include <limits>

using namespace hotel;

class NumbersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void leadingNumber() {
        const auto row = [](const QString& text, double number) {
            Check(qUtf8Printable(text), LeadingNumber(text), number);
        };
        row(u""_s, 0);
        row(u"12.5元"_s, 12.5);
        row(u"-3"_s, -3);
        row(u" \t- 1 2\r\n3"_s, -123);
        row(u"--3"_s, 0);
        row(u".5."_s, 0.5);
        row(u"."_s, 0);
        row(u"1.2.3"_s, 1.2);
        row(u"1,200"_s, 1);
        row(u"007"_s, 7);
        row(u"0"_s, 0);
        row(u"999999999"_s, 999999999);
        row(u"9999999999"_s, 9999999999.0);
        row(u"1e3"_s, 1000);
        row(u"1D-2x"_s, 0.01);
        row(u"12e+元"_s, 12);
        row(u"１２"_s, 0);
        row(u"9007199254740993"_s, 9007199254740992.0);
        row(u"1e999"_s, std::numeric_limits<double>::max());
        row(u"-1e99999999999999999999"_s, -std::numeric_limits<double>::max());
        row(u"1e-999"_s, 0);
        row(QString(400, u'9'), std::numeric_limits<double>::max());
        row(u"0e99999"_s, 0);
        QVERIFY(!std::signbit(LeadingNumber(u"-0")));
    }
    void formatNumber() {
        const auto row = [](double value, const QString& format, const QString& text) {
            Check(qUtf8Printable(format), FormatNumber(value, format), text);
        };
        row(1.005, u"#0.00"_s, u"1.01"_s);
        row(-0.125, u"#0.00"_s, u"-0.13"_s);
        row(0.0049, u"#0.00"_s, u"0.00"_s);
        row(-0.004, u"#0.00"_s, u"0.00"_s);
        row(-0.0, u"#0.00"_s, u"0.00"_s);
        row(999.995, u"#0.00"_s, u"1000.00"_s);
        row(0.1 + 0.2, u"#0.0"_s, u"0.3"_s);
        row(2.5, u"#0"_s, u"3"_s);
        row(0.49, u"#0"_s, u"0"_s);
        row(-2.5, u"#0"_s, u"-3"_s);
        row(7, u"00"_s, u"07"_s);
        row(7, u"#000"_s, u"007"_s);
        row(60302112233, u"000000000000"_s, u"060302112233"_s);
        row(1e21, u"#0.00"_s, u"1000000000000000000000.00"_s);
        row(1e-7, u"#0.0000000"_s, u"0.0000001"_s);
        row(2, u"#0.##"_s, u"2"_s);
        row(0, u"#"_s, u""_s);
        row(12.345, u"¥#0.00元"_s, u"12.35"_s);
        row(std::numeric_limits<double>::infinity(), u"#0.00"_s, u"0.00"_s);
        row(std::numeric_limits<double>::quiet_NaN(), u"#0"_s, u"0"_s);
    }

    void wholeNumbersAreExact() {
        QCOMPARE(FormatNumber(Q_INT64_C(9223372036854775807), u"#0"), u"9223372036854775807"_s);
        QCOMPARE(FormatNumber(std::numeric_limits<qint64>::min(), u"#0.0"),
                 u"-9223372036854775808.0"_s);
        QCOMPARE(FormatNumber(std::numeric_limits<qint64>::min(), u"#0"),
                 u"-9223372036854775808"_s);
        QCOMPARE(FormatNumber(0, u"#0") + FormatNumber(3, u"00"), u"003"_s);
    }

    void formatText() {
        const auto row = [](const QString& text, const QString& result) {
            Check(qUtf8Printable(text), FormatText(text, u"#0.00"), result);
        };
        row(u"1.005"_s, u"1.01"_s);
        row(u" -2 "_s, u"-2.00"_s);
        row(u"110101199001011234"_s, u"110101199001011234.00"_s);
        for (const QString& kept : {u""_s, u"-"_s, u"."_s, u"1.2.3"_s, u"12元"_s, u"1e3"_s,
                                    u"1 2"_s, u"\u30005"_s, u"１２"_s})
            row(kept, kept);
    }

    void moneySumsAreExact() {
        Money sum;
        for (int i = 0; i < 1000; ++i)
            sum += Money::FromText(u"0.1");
        QCOMPARE(sum.units(), 1000000);
        QCOMPARE((sum - Money::FromText(u"100.01")).text(), u"-0.01"_s);
        QCOMPARE((-sum).text(u"#0.0"), u"-100.0"_s);
        const auto tenths = [](qint64 units) { return Money::FromUnits(units).text(u"#0.0"); };
        QCOMPARE(tenths(0) + u' ' + tenths(499) + u' ' + tenths(500) + u' ' + tenths(9499) + u' ' +
                     tenths(9500) + u' ' + tenths(-499) + u' ' + tenths(-500) + u' ' +
                     tenths(123456),
                 u"0.0 0.0 0.1 0.9 1.0 0.0 -0.1 12.3"_s);
    }

    void moneyReadsFourDecimals() {
        QCOMPARE(Money::FromText(u"12.34565元").units(), 123457);
        QCOMPARE(Money::FromText(u"-12.34564999").units(), -123456);
        QCOMPARE(Money::FromNumber(1.00005).units(), 10001);
        QCOMPARE(Money::FromNumber(-0.00004).text(), u"0.00"_s);
        QCOMPARE(Money::FromText(u"1.005").text(), u"1.01"_s);
        QCOMPARE(Money::FromText(u"-1.005").text(), u"-1.01"_s);
    }

    // Amounts in the form in which they are stored, and by the format of money, are read and written by ways of their
    // own; a blank ahead, and a format that says the same, take the general ones.
    void moneyReadsAndWritesAlikeByBothWays() {
        const auto reads = [](const QString& text) {
            Check(qPrintable(text), Money::FromText(text).units(),
                  Money::FromText(u' ' + text).units());
        };
        for (const QString& text :
             {u""_s, u"."_s, u"5."_s, u".5"_s, u"1..5"_s, u"0.00005"_s, u"12.3456"_s, u"12.34567"_s,
              u"99999999999999"_s, u"999999999999999"_s, u"9999999999.9999"_s, u"1e3"_s, u"3元"_s,
              u"１"_s, u"007"_s})
            reads(text);
        const auto writes = [](qint64 units) {
            const Money money = Money::FromUnits(units);
            Check(qPrintable(QString::number(units)), money.text(), money.text(u"0.00"));
            Check(qPrintable(QString::number(units)), money.text(u"#0.0"), money.text(u"0.0"));
        };
        for (const qint64 units :
             {0LL, 1LL, 49LL, 50LL, 99LL, 149LL, 150LL, 9949LL, 9950LL, 10000LL, 999949LL, 999950LL,
              std::numeric_limits<long long>::max()}) {
            writes(units);
            writes(-units);
        }
        QRandomGenerator random(7);
        for (int n = 0; n < 5000; ++n) {
            const qint64 units = qint64(random.generate64()) >> random.bounded(63);
            writes(units);
            reads(
                QString::number(double(random.bounded(100'000'000)) / 100, 'f', random.bounded(6)));
        }
    }

    void moneyProductsRoundToFourDecimals() {
        const auto product = [](QStringView a, QStringView b) {
            return (Money::FromText(a) * Money::FromText(b)).units();
        };
        QCOMPARE(product(u"198", u"0.5"), 990000);
        QCOMPARE(product(u"0.0333", u"0.5"), 167);
        QCOMPARE(product(u"-0.0333", u"0.5"), -167);
        QCOMPARE(product(u"123456789.01", u"1000"), 1234567890100000);
    }

    void moneyStopsAtItsLimit() {
        const Money most = Money::FromText(u"1e30");
        QCOMPARE(most.units(), std::numeric_limits<qint64>::max());
        QCOMPARE(Money::FromText(u"922337203685477.58075").units(), most.units());
        QCOMPARE(Money::FromText(u"922337203685477.5806").units(), most.units() - 1);
        QCOMPARE(most + Money::FromText(u"0.01"), most);
        QCOMPARE(-most - most, -most);
        QCOMPARE(most * -most, -most);
        QCOMPARE(-Money::FromUnits(std::numeric_limits<qint64>::min()), most);
    }
};

HOTEL_TEST(NumbersTest)

#include "test_numbers.moc"
