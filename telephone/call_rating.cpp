#include "telephone/call_rating.h"

#include <QVarLengthArray>

#include <algorithm>
#include <optional>

#include "record/field_walk.h"
#include "record/literals.h"
#include "telephone/call_classes.h"
#include "telephone/call_record.h"

namespace hotel {

namespace {

__extension__ using Wide = __int128;

constexpr int kSecondsAMinute = 60;
constexpr int kSecondsADay = 24 * 3600;
constexpr qint64 kDefaultUnitSeconds = 60;
constexpr Wide kScale = 10000; // parts of one, in Money
// Units of a call are held in parts of this size, in which minutes of any parameter come out even.
constexpr Wide kParts = kSecondsAMinute * kScale;
constexpr Wide kMostUnits = 1'000'000'000'000; // far beyond any call; keeps products in their type

constexpr QStringView kLocalPlace = u"本市";
constexpr QStringView kLocalClassText = u"市话类别";

// numerator / denominator as an amount, half away from zero.
Money Rounded(Wide numerator, Wide denominator) {
    const Wide half = numerator < 0 ? -denominator / 2 : denominator / 2;
    constexpr Wide kMost = std::numeric_limits<qint64>::max();
    return Money::FromUnits(qint64(std::clamp((numerator + half) / denominator, -kMost, kMost)));
}

// `parts` of a unit, at `rate` a unit.
Money Times(Wide parts, Money rate) {
    return Rounded(parts * rate.units(), kParts);
}

Money Percent(Money amount, Money percent) {
    return Rounded((amount * percent).units(), 100);
}

// Steps of so many minutes that are begun in `seconds`, which are whole units already. Cuts the fraction twice.
Wide StepsBegun(Wide seconds, Money minutes) {
    const Wide wholeMinutes =
        (Wide(minutes.units()) * kSecondsAMinute + (seconds - 1) * kScale) / kParts;
    return std::clamp<Wide>(wholeMinutes * kScale / minutes.units(), -kMostUnits, kMostUnits);
}

QString NoMode(int row) {
    return u"系统参数第%1行不是1至6的计费方式"_s.arg(row);
}
QString NoMinutes(int row) {
    return u"系统参数第%1行的分钟数为零"_s.arg(row);
}

// --- the record ---

// A record's fields while they are changed: reading and writing all of them costs one pass each.
class CallFields {
public:
    explicit CallFields(QStringView record) {
        for (FieldWalk walk(record); walk.next();) {
            if (walk.closed())
                fields_.append({walk.name(), walk.value(), {}});
        }
    }

    QStringView get(QStringView tag) const {
        const auto field = std::ranges::find(fields_, tag, &Field::tag);
        return field == fields_.end() ? QStringView() : field->value;
    }

    // As SetTag: a field keeps its place, a new one goes to the end, an empty one goes.
    void set(QStringView tag, const QString& value) {
        auto field = std::ranges::find(fields_, tag, &Field::tag);
        if (field == fields_.end()) {
            fields_.append({tag, {}, {}});
            field = fields_.end() - 1;
        }
        field->owned = value;
        field->value = field->owned;
    }

    QString text() const {
        QString text;
        text.reserve(40 * fields_.size());
        for (const Field& field : fields_) {
            if (field.value.isEmpty())
                continue;
            if (!text.isEmpty())
                text.append(kCrLf);
            text.append(u'<').append(field.tag).append(u'>');
            text.append(field.value);
            text.append(u"</").append(field.tag).append(u'>');
        }
        return text;
    }

private:
    struct Field {
        QStringView tag;
        QStringView value; // into the record or into `owned`
        QString owned;
    };
    QVarLengthArray<Field, 40> fields_;
};

// --- moments ---

struct CallMoment {
    QDate day;
    int second = 0; // of the day

    QTime time() const { return QTime::fromMSecsSinceStartOfDay(second * 1000); }
};

// Three numbers with `separator` between them; nothing for any other text.
std::optional<std::array<int, 3>> ThreeNumbers(QStringView text, QChar separator) {
    std::array<int, 3> numbers{};
    size_t part = 0;
    int digits = 0;
    constexpr int kMostDigits = 4;
    for (const QChar character : text) {
        if (character == separator) {
            if (digits == 0 || ++part == numbers.size())
                return std::nullopt;
            digits = 0;
        } else if (character >= u'0' && character <= u'9' && ++digits <= kMostDigits) {
            numbers[part] = numbers[part] * 10 + (character.unicode() - u'0');
        } else {
            return std::nullopt;
        }
    }
    return part + 1 == numbers.size() && digits > 0 ? std::optional(numbers) : std::nullopt;
}

std::optional<CallMoment> ReadMoment(QStringView dateText, QStringView timeText) {
    const auto date = ThreeNumbers(dateText, u'-');
    const auto time = ThreeNumbers(timeText, u':');
    if (!date || !time)
        return std::nullopt;
    const QDate day((*date)[0], (*date)[1], (*date)[2]);
    if (!day.isValid() || !QTime::isValid((*time)[0], (*time)[1], (*time)[2]))
        return std::nullopt;
    return CallMoment{day, ((*time)[0] * 60 + (*time)[1]) * 60 + (*time)[2]};
}

CallMoment Moved(const CallMoment& moment, qint64 seconds) {
    const qint64 sum = moment.second + seconds;
    const qint64 days = sum >= 0 ? sum / kSecondsADay : -((-sum + kSecondsADay - 1) / kSecondsADay);
    return {moment.day.addDays(days), int(sum - days * kSecondsADay)};
}

void AppendDigits(QString& text, int number, int least) {
    std::array<char16_t, 12> digits{};
    size_t first = digits.size();
    for (int written = 0; number > 0 || written < least; ++written, number /= 10)
        digits[--first] = char16_t(u'0' + number % 10);
    text.append(QStringView(digits.data() + first, qsizetype(digits.size() - first)));
}

// Three numbers of so many digits at least, `separator` between them.
QString NumbersText(std::array<int, 3> numbers, int leastOfFirst, char16_t separator) {
    QString text;
    text.reserve(10);
    AppendDigits(text, numbers[0], leastOfFirst);
    AppendDigits(text.append(separator), numbers[1], 2);
    AppendDigits(text.append(separator), numbers[2], 2);
    return text;
}

QString DateText(QDate day) {
    std::array<int, 3> numbers{};
    day.getDate(&numbers[0], &numbers[1], &numbers[2]);
    return NumbersText(numbers, 4, u'-');
}

QString LengthText(qint64 seconds) {
    const int second = int(seconds);
    return NumbersText({second / 3600, second / 60 % 60, second % 60}, 2, u':');
}

// The end of the call from its start and length, or, where the link program gave no start, the start from its end.
// Gives the start, if it can be told.
std::optional<CallMoment> CompleteMoments(CallFields& fields, qint64 seconds) {
    using namespace call_record;
    const auto store = [&fields](QStringView date, QStringView time, const CallMoment& moment) {
        fields.set(date, DateText(moment.day));
        fields.set(time, LengthText(moment.second));
    };
    if (!fields.get(kStartTime).isEmpty()) {
        const auto start = ReadMoment(fields.get(kStartDate), fields.get(kStartTime));
        if (start)
            store(kEndDate, kEndTime, Moved(*start, seconds));
        return start;
    }
    const auto end = ReadMoment(fields.get(kEndDate), fields.get(kEndTime));
    if (!end)
        return std::nullopt;
    const CallMoment start = Moved(*end, -seconds);
    store(kStartDate, kStartTime, start);
    return start;
}

} // namespace

qint64 SecondsOfCall(QStringView length) {
    double seconds = 0;
    if (!length.contains(u':')) {
        seconds = LeadingNumber(length);
    } else {
        double worth = 3600;
        for (const QStringView part : length.split(u':')) {
            seconds += LeadingNumber(part) * worth;
            worth = worth > 1 ? worth / 60 : 0;
        }
    }
    return qint64(std::clamp(seconds, 0.0, double(kLongestCall)));
}

Reckoning ReckonCall(const Tariff& tariff, const PrefixRow* prefix, qint64 seconds,
                     const RateBand& band) {
    using namespace parameter_block;
    // 1. Length and class.
    const Wide d = seconds;
    const int c = prefix ? prefix->callClass : kLocalClass;
    const auto P = [&tariff](int block, int callClass) {
        return tariff.parameter(block, callClass);
    };
    constexpr int kOne = kLocalClass;

    // 2. The length in whole units.
    const qint64 wanted = WholePart(P(kUnitSeconds, c));
    const Wide unit = wanted < 1 ? kDefaultUnitSeconds : wanted;
    const Wide T = (d + unit - 1) / unit * unit;

    // 3. Modes of the class and of local calls.
    const qint64 mode = WholePart(P(kMode, c));
    const qint64 localMode = WholePart(P(kMode, kOne));
    const bool addsLocal = mode > 3;

    // 4. Local units, where a local part is to be added.
    const Money localStep = P(kStepMinutes, kOne);
    Wide n = 0;
    if (addsLocal) {
        switch (localMode) {
        case 1:
            if (localStep == Money())
                return {{}, NoMinutes(kStepMinutes + kOne)};
            n = StepsBegun(T, localStep);
            break;
        case 2:
        case 4:
        case 5:
        case 6:
            n = (T + kSecondsAMinute - 1) / kSecondsAMinute;
            break;
        case 3:
            n = (T * kScale -
                 (Wide(localStep.units()) * kSecondsAMinute + (kSecondsAMinute - 1) * kScale)) /
                    kParts +
                1;
            n = std::clamp<Wide>(n, 1, kMostUnits);
            break;
        default:
            return {{}, NoMode(kMode + kOne)};
        }
    }

    // 5. Local amount. Its construction fee counts as an amount, not as a percentage, deliberately.
    const Money L = Times((n - 1) * kParts, P(kFurtherRate, kOne)) + P(kUnitRate, kOne) +
                    Times(n * kParts, P(kSurcharge, kOne)) + P(kHandling, kOne) +
                    P(kConstruction, kOne) + Times(n * kParts, P(kLineFee, kOne));

    // 6. Units of the class.
    const Money step = P(kStepMinutes, c);
    Wide u = 0; // in parts
    switch (mode) {
    case 1:
        if (step == Money())
            return {{}, NoMinutes(kStepMinutes + c)};
        u = StepsBegun(T, step) * kParts;
        break;
    case 2:
    case 4:
    case 5:
    case 6:
        u = T * kScale;
        break;
    case 3:
        u = T * kScale - Wide(step.units()) * kSecondsAMinute + kParts;
        if (u <= 0)
            u = kParts;
        break;
    default:
        return {{}, NoMode(kMode + c)};
    }

    CallCharges charges;
    // 7. The call's own fee. A prefix has its rate for the first unit, which is charged in any case.
    const Money further = P(kFurtherRate, c);
    const Money rate = prefix ? prefix->rate : P(kUnitRate, c);
    if (further == Money()) {
        charges.call = Times(u, rate);
    } else {
        if (prefix)
            u = std::max(u, kParts);
        charges.call = Times(u - kParts, further) + rate;
    }

    // 8. The local part on top.
    if (addsLocal)
        charges.call += L;

    // 9. Floating fee.
    charges.floating = Percent(charges.call, P(kFloating, c));
    if (band.onFloating)
        charges.floating = charges.floating * band.factor;

    // 10. Fees by the unit and by the call.
    charges.surcharge = Times(u, P(kSurcharge, c));
    charges.handling = P(kHandling, c);
    charges.lineFee = Times(u, P(kLineFee, c));

    // 11. The floating fee once more, of the sum.
    if (band.floatingOnTheSum) {
        const Money call = band.onFloating ? charges.call * band.factor : charges.call;
        charges.floating =
            Percent(call + charges.surcharge + charges.handling + charges.lineFee, P(kFloating, c));
    }

    // 12. Construction fee.
    const Money beforeConstruction =
        charges.call + charges.floating + charges.surcharge + charges.handling + charges.lineFee;
    charges.construction = Percent(beforeConstruction, P(kConstruction, c));

    // 13. The local fee stays 0.00.
    // 14. The total.
    charges.total = beforeConstruction + charges.construction + charges.local;
    return {charges, {}};
}

RatedCall RateCall(const QString& record, const RatingTables& tables) {
    using namespace call_record;
    CallFields fields(record);
    if (const auto* holder = tables.extensions.find(fields.get(kExtension).toString())) {
        fields.set(kOwner, holder->owner);
        fields.set(kUser, holder->user);
    }
    const qint64 seconds = SecondsOfCall(fields.get(kLength));
    if (!fields.get(kLength).contains(u':'))
        fields.set(kLength, LengthText(seconds));
    const auto start = CompleteMoments(fields, seconds);
    const PrefixRow* prefix = tables.tariff.longestPrefix(fields.get(kNumber));
    fields.set(kPlace, prefix ? prefix->place : kLocalPlace.toString());
    fields.set(kClass, prefix ? prefix->classText : kLocalClassText.toString());

    const RateBand band = start ? tables.bands.at(start->day, start->time()) : RateBand();
    const Reckoning reckoning = ReckonCall(tables.tariff, prefix, seconds, band);
    if (!reckoning.problem.isEmpty())
        return {record, reckoning.problem};

    const CallCharges& charges = reckoning.charges;
    const std::array<Money, kAmounts.size()> amounts = {
        charges.call,      charges.handling,     charges.floating, charges.lineFee,
        charges.surcharge, charges.construction, charges.local};
    Money sum;
    for (size_t n = 0; n < amounts.size(); ++n) {
        const QString written = amounts[n].text();
        fields.set(kAmounts[n], written);
        sum += Money::FromText(written);
    }
    fields.set(kTotal, sum.text());
    fields.set(kMark, kRated.toString());
    return {fields.text(), {}};
}

} // namespace hotel
