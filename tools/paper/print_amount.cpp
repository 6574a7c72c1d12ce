#include "tools/paper/print_amount.h"

#include "record/literals.h"

namespace hotel {

namespace {

constexpr QStringView kDigits = u"零壹贰叁肆伍陆柒捌玖";
constexpr QStringView kPlaces[] = {u"", u"拾", u"佰", u"仟"};
constexpr QStringView kGroups[] = {u"", u"万", u"亿", u"万亿"};

// Four digits, without a zero ahead: 1004 is "壹仟零肆".
QString GroupInWords(int group) {
    QString words;
    bool zeroPending = false;
    for (int place = 3, unit = 1000; place >= 0; --place, unit /= 10) {
        const int digit = group / unit % 10;
        if (digit == 0) {
            zeroPending = !words.isEmpty();
            continue;
        }
        if (zeroPending)
            words += kDigits[0];
        zeroPending = false;
        words += kDigits[digit];
        words += kPlaces[place];
    }
    return words;
}

QString WholeInWords(qint64 whole) {
    QString words;
    bool zeroPending = false;
    for (int group = 3; group >= 0; --group) {
        qint64 size = 1;
        for (int n = 0; n < group; ++n)
            size *= 10000;
        const int value = int(whole / size % 10000);
        if (value == 0) {
            zeroPending = !words.isEmpty();
            continue;
        }
        if (zeroPending || (!words.isEmpty() && value < 1000))
            words += kDigits[0];
        zeroPending = false;
        words += GroupInWords(value);
        words += kGroups[group];
    }
    return words;
}

} // namespace

QString AmountInWords(Money amount) {
    const qint64 units = qAbs(amount.units());
    const qint64 cents = units / 100 + (units % 100 >= 50 ? 1 : 0);
    const int jiao = int(cents / 10 % 10);
    const int fen = int(cents % 10);
    QString words = WholeInWords(cents / 100);
    if (!words.isEmpty() || cents == 0)
        words = (words.isEmpty() ? u"零"_s : words) + u"元"_s;
    if (jiao > 0)
        words += kDigits[jiao] + u"角"_s;
    else if (fen > 0 && !words.isEmpty())
        words += kDigits[0];
    words += fen > 0 ? kDigits[fen] + u"分"_s : u"整"_s;
    return amount.units() < 0 && cents > 0 ? u"负"_s + words : words;
}

} // namespace hotel
