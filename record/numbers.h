#pragma once

// Numbers and money as text.

#include <QString>
#include <QStringView>

#include <algorithm>
#include <limits>

namespace hotel {

// The number at the start of a text ("12.5元" is 12.5, "-3" is -3, "abc" and "" are 0). Blanks, tabs
// and line ends are skipped wherever they stand; reading stops at the first character that can't
// continue the number. An exponent counts, by "e" or by "d": "1e3" and "1d3" are 1000. A number past
// the greatest double reads as that one.
double LeadingNumber(QStringView text);

// An amount in fixed point with four decimals. Sums are exact, a product is rounded to four decimals;
// text() rounds to its format. All rounding is half away from zero, and an amount that doesn't fit
// (beyond 900 million million) becomes the greatest one of its sign.
class Money {
public:
    constexpr Money() = default;

    static constexpr Money FromUnits(qint64 tenThousandths) {
        return Money(std::max(tenThousandths, -kMost));
    }
    static Money FromNumber(double value);
    // The leading number of `text`, digits behind the fourth decimal rounded half away from zero.
    static Money FromText(QStringView text);

    constexpr qint64 units() const { return units_; }
    double number() const { return double(units_) / 10000.0; }

    // By one of the formats of FormatNumber; money is "#0.00" nearly everywhere.
    QString text(QStringView format = u"#0.00") const;

    constexpr Money operator-() const { return Money(-units_); }
    constexpr Money& operator+=(Money other) { return *this = *this + other; }
    constexpr Money& operator-=(Money other) { return *this = *this - other; }
    friend constexpr Money operator+(Money a, Money b) {
        qint64 sum = 0;
        if (__builtin_add_overflow(a.units_, b.units_, &sum))
            sum = a.units_ < 0 ? -kMost : kMost;
        return FromUnits(sum);
    }
    friend constexpr Money operator-(Money a, Money b) { return a + -b; }
    friend Money operator*(Money a, Money b);
    friend constexpr auto operator<=>(Money, Money) = default;

private:
    static constexpr qint64 kMost = std::numeric_limits<qint64>::max();

    constexpr explicit Money(qint64 units) : units_(units) {}
    qint64 units_ = 0; // never below -kMost
};

// `value` by a format of `0` (a digit that is always written), `#` (one that is written if needed)
// and one point: "#0.00", "#0.0", "#0", "#00", "#000", "000", "000000000000"; other characters of a
// format are not looked at. Rounds half away from zero on the shortest decimal text of the value, so
// that 0.125 by "#0.00" is 0.13 and 1.005 is 1.01. Nothing is written with an exponent, zero never
// with a minus; a value that is no number counts as 0.
QString FormatNumber(double value, QStringView format);
QString FormatNumber(qint64 value, QStringView format);
inline QString FormatNumber(int value, QStringView format) {
    return FormatNumber(qint64(value), format);
}

// True for a text that is a plain number throughout: a sign, digits and one point, blanks around it.
bool IsNumber(QStringView text);

// A text by a number format: a text that is a number throughout (see IsNumber) is formatted from
// its own digits, any other comes back unchanged.
QString FormatText(QStringView text, QStringView format);

} // namespace hotel
