#include "record/numbers.h"

#include "record/record_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <utility>

namespace hotel {

namespace {

bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

// A number by its decimal digits: 0.digits times ten to the power of `point`.
struct Decimal {
    bool negative = false;
    std::string digits; // without leading zeros; empty for zero
    qint64 point = 0;
};

// Reads the number at the start of a text.
class NumberReader {
public:
    explicit NumberReader(QStringView text) : text_(text) {}

    Decimal read() {
        Decimal decimal;
        decimal.negative = takeSign();
        takeDigits(decimal.digits);
        decimal.point = qint64(decimal.digits.size());
        if (peek() == u'.') {
            ++at_;
            takeDigits(decimal.digits);
        }
        if (decimal.digits.empty())
            return {};
        decimal.point += exponent();
        const size_t zeros = std::min(decimal.digits.find_first_not_of('0'), decimal.digits.size());
        decimal.digits.erase(0, zeros);
        decimal.point -= qint64(zeros);
        return decimal;
    }

private:
    // The next character that isn't a blank, or NUL at the end.
    QChar peek() {
        while (at_ < text_.size() && (text_[at_] == u' ' || text_[at_] == u'\t' ||
                                      text_[at_] == u'\r' || text_[at_] == u'\n'))
            ++at_;
        return at_ < text_.size() ? text_[at_] : QChar();
    }

    bool takeSign() {
        const QChar sign = peek();
        if (sign == u'-' || sign == u'+')
            ++at_;
        return sign == u'-';
    }

    void takeDigits(std::string& digits) {
        for (QChar c = peek(); IsDigit(c); c = peek()) {
            digits += char(c.unicode());
            ++at_;
        }
    }

    qint64 exponent() {
        // A power beyond this one is zero or past every limit, whatever the digits.
        constexpr qint64 kFarAway = 1'000'000'000;
        const QChar letter = peek().toLower();
        if (letter != u'e' && letter != u'd')
            return 0;
        ++at_;
        const bool negative = takeSign();
        qint64 power = 0;
        for (QChar c = peek(); IsDigit(c); c = peek()) {
            power = std::min(10 * power + c.digitValue(), kFarAway);
            ++at_;
        }
        return negative ? -power : power;
    }

    QStringView text_;
    qsizetype at_ = 0;
};

Decimal ReadDecimal(QStringView text) {
    return NumberReader(text).read();
}

// The shortest decimal text that reads back as `value`; zero for what is no number.
Decimal FromDouble(double value) {
    if (!std::isfinite(value))
        return {};
    char text[32];
    const auto result =
        std::to_chars(text, text + sizeof text, value, std::chars_format::scientific);
    return ReadDecimal(QString::fromLatin1(text, result.ptr - text));
}

Decimal FromInteger(qint64 value) {
    std::string digits = value == 0 ? std::string() : std::to_string(value);
    if (value < 0)
        digits.erase(0, 1);
    const auto point = qint64(digits.size());
    return {value < 0, std::move(digits), point};
}

// Rounds to `places` behind the point, half away from zero. The digits are then exactly those in
// front of the point and `places` behind it, leading zeros left out.
void Round(Decimal& decimal, size_t places) {
    const qint64 kept = decimal.point + qint64(places);
    if (decimal.digits.empty() || kept < 0) {
        decimal.digits.clear();
        return;
    }
    const bool up = kept < qint64(decimal.digits.size()) && decimal.digits[size_t(kept)] >= '5';
    decimal.digits.resize(size_t(kept), '0');
    if (!up)
        return;
    size_t i = decimal.digits.size();
    while (i > 0 && decimal.digits[i - 1] == '9')
        decimal.digits[--i] = '0';
    if (i > 0) {
        ++decimal.digits[i - 1];
    } else {
        decimal.digits.insert(0, 1, '1');
        ++decimal.point;
    }
}

struct Format {
    explicit Format(QStringView format) {
        bool behindPoint = false;
        for (const QChar c : format) {
            const bool always = c == u'0';
            if (c == u'.') {
                behindPoint = true;
            } else if (behindPoint && (always || c == u'#')) {
                ++mostDecimals;
                leastDecimals = always ? mostDecimals : leastDecimals;
            } else if (always || (c == u'#' && wholeDigits > 0)) {
                ++wholeDigits;
            }
        }
    }

    size_t wholeDigits = 0;
    size_t leastDecimals = 0;
    size_t mostDecimals = 0;
};

QString Formatted(Decimal decimal, QStringView pattern) {
    const Format format(pattern);
    Round(decimal, format.mostDecimals);
    std::string& digits = decimal.digits;
    const bool isZero = digits.find_first_not_of('0') == std::string::npos;
    if (digits.size() < format.wholeDigits + format.mostDecimals)
        digits.insert(0, format.wholeDigits + format.mostDecimals - digits.size(), '0');
    const size_t wholeSize = digits.size() - format.mostDecimals;
    size_t decimals = format.mostDecimals;
    while (decimals > format.leastDecimals && digits[wholeSize + decimals - 1] == '0')
        --decimals;
    std::string text = decimal.negative && !isZero ? "-" : "";
    text += digits.substr(0, wholeSize);
    if (decimals > 0)
        text += '.' + digits.substr(wholeSize, decimals);
    return QString::fromLatin1(text);
}

Money ToMoney(Decimal decimal) {
    constexpr qint64 kMost = std::numeric_limits<qint64>::max();
    if (decimal.point > std::numeric_limits<qint64>::digits10)
        return Money::FromUnits(decimal.negative ? -kMost : kMost);
    Round(decimal, 4);
    qint64 units = 0;
    const char* const end = decimal.digits.data() + decimal.digits.size();
    if (std::from_chars(decimal.digits.data(), end, units).ec == std::errc::result_out_of_range)
        units = kMost;
    return Money::FromUnits(decimal.negative ? -units : units);
}

// Amounts as they are stored, "38.00": digits, up to four of them behind a point. Nothing for any other text.
std::optional<Money> PlainAmount(QStringView text) {
    constexpr qsizetype kMostCharacters = 14; // whose ten-thousandths are in range
    constexpr int kDecimals = 4;
    if (text.size() > kMostCharacters)
        return std::nullopt;
    qint64 units = 0;
    bool behindPoint = false;
    int decimals = 0;
    for (const QChar c : text) {
        if (c == u'.' && !behindPoint) {
            behindPoint = true;
        } else if (IsDigit(c) && decimals < kDecimals) {
            units = 10 * units + (c.unicode() - u'0');
            decimals += int(behindPoint);
        } else {
            return std::nullopt;
        }
    }
    for (; decimals < kDecimals; ++decimals)
        units *= 10;
    return Money::FromUnits(units);
}

// A whole number as most are stored: a few digits and nothing else. Nothing for any other text.
std::optional<int> PlainDigits(QStringView text) {
    constexpr qsizetype kMostDigits = 9;
    if (text.isEmpty() || text.size() > kMostDigits || !std::ranges::all_of(text, IsDigit))
        return std::nullopt;
    int number = 0;
    for (const QChar digit : text)
        number = 10 * number + (digit.unicode() - u'0');
    return number;
}

// An amount by "#0.00" or "#0.0", as nearly all are written; a last unit has so many ten-thousandths.
QString FixedText(qint64 units, int decimals, quint64 unitsOfLast) {
    const quint64 size = units < 0 ? 0 - quint64(units) : quint64(units);
    quint64 rest = (size + unitsOfLast / 2) / unitsOfLast;
    const bool negative = units < 0 && rest > 0;
    std::array<char16_t, 24> text{};
    size_t first = text.size();
    for (int digits = 0; rest > 0 || digits <= decimals; ++digits, rest /= 10) {
        if (digits == decimals)
            text[--first] = u'.';
        text[--first] = char16_t(u'0' + rest % 10);
    }
    if (negative)
        text[--first] = u'-';
    return QStringView(text.data() + first, qsizetype(text.size() - first)).toString();
}

} // namespace

double LeadingNumber(QStringView text) {
    if (const auto digits = PlainDigits(text))
        return *digits;
    const Decimal decimal = ReadDecimal(text);
    if (decimal.digits.empty())
        return 0;
    const std::string plain =
        decimal.digits + 'e' + std::to_string(decimal.point - qint64(decimal.digits.size()));
    double value = 0;
    const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        value = decimal.point > 0 ? std::numeric_limits<double>::max() : 0;
    return decimal.negative && value != 0 ? -value : value;
}

bool IsNumber(QStringView text) {
    const QString number = TrimBlanks(text);
    const bool hasSign = number.startsWith(u'-') || number.startsWith(u'+');
    const QStringView digits = QStringView(number).sliced(hasSign ? 1 : 0);
    const bool plain =
        std::all_of(digits.begin(), digits.end(), [](QChar c) { return IsDigit(c) || c == u'.'; });
    return plain && digits.count(u'.') <= 1 && digits.size() > digits.count(u'.');
}

Money operator*(Money a, Money b) {
    __extension__ using Wide = __int128;
    constexpr Wide kScale = 10000;
    const Wide product = Wide(a.units_) * b.units_;
    const Wide rounded = (product + (product < 0 ? -kScale / 2 : kScale / 2)) / kScale;
    return Money::FromUnits(qint64(std::clamp<Wide>(rounded, -Money::kMost, Money::kMost)));
}

Money Money::FromNumber(double value) {
    return ToMoney(FromDouble(value));
}

Money Money::FromText(QStringView text) {
    const auto plain = PlainAmount(text);
    return plain ? *plain : ToMoney(ReadDecimal(text));
}

QString Money::text(QStringView format) const {
    if (format == u"#0.00")
        return FixedText(units_, 2, 100);
    if (format == u"#0.0")
        return FixedText(units_, 1, 1000);
    Decimal decimal = FromInteger(units_);
    decimal.point -= 4;
    return Formatted(decimal, format);
}

QString FormatNumber(double value, QStringView format) {
    return Formatted(FromDouble(value), format);
}

QString FormatNumber(qint64 value, QStringView format) {
    if (format == u"#0")
        return QString::number(value);
    return Formatted(FromInteger(value), format);
}

QString FormatText(QStringView text, QStringView format) {
    return IsNumber(text) ? Formatted(ReadDecimal(text), format) : text.toString();
}

} // namespace hotel
