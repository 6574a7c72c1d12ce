#include "tools/queries/query_text.h"

#include <QDate>
#include <QTime>
#include <algorithm>

#include "record/numbers.h"
#include "record/record_text.h"

namespace hotel {

namespace {

constexpr int kShortestDate = 5;
constexpr int kShortestTime = 3;

// The parts of `typed` between so many separators, all of them digits; empty where it is built
// otherwise.
QList<int> NumbersBetween(QStringView typed, QChar separator, int leastParts, int mostParts) {
    const QList<QStringView> parts = typed.split(separator);
    if (parts.size() < leastParts || parts.size() > mostParts)
        return {};
    QList<int> numbers;
    for (const QStringView part : parts) {
        const bool digits =
            std::all_of(part.begin(), part.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
        if (part.isEmpty() || part.size() > 4 || !digits)
            return {};
        numbers.append(part.toInt());
    }
    return numbers;
}

int FullYear(QStringView typed) {
    constexpr int kFirstOfLastCentury = 30;
    const int year = typed.toInt();
    if (typed.size() > 2)
        return year;
    return year < kFirstOfLastCentury ? 2000 + year : 1900 + year;
}

// Empty when it is no date.
QString AsDate(QStringView typed, QChar separator) {
    const QList<int> parts = NumbersBetween(typed, separator, 3, 3);
    if (typed.size() < kShortestDate || parts.isEmpty())
        return {};
    const QStringView year = typed.first(typed.indexOf(separator));
    if (year.size() == 3)
        return {};
    return QDate(FullYear(year), parts[1], parts[2]).toString(u"yyyy-MM-dd");
}

QString AsTime(QStringView typed) {
    const QList<int> parts = NumbersBetween(typed, u':', 2, 3);
    if (typed.size() < kShortestTime || parts.isEmpty())
        return {};
    return QTime(parts[0], parts[1], parts.value(2)).toString(u"HH:mm:ss");
}

QString Field(QStringView tag, QStringView value) {
    return u"<"_s + tag + u'>' + value + u"</" + tag + u'>' + kCrLf;
}

QString Line(QStringView tag, QStringView value) {
    return value.isEmpty() ? QString() : u' ' + Field(tag, value);
}

QString Block(QStringView tag, const QString& keywords) {
    return keywords.isEmpty() ? QString() : Field(tag, keywords);
}

QString Wrapped(const QString& body) {
    return Field(tag::kConditions, kCrLf + body);
}

QStringList Keywords(const QString& list) {
    return list.split(u',', Qt::SkipEmptyParts);
}

} // namespace

bool FormWantsTarget(QStringView op) {
    return op != u"为空" && op != u"非空" && op != u"最大" && op != u"最小";
}

bool IsComplete(const Condition& condition) {
    return !condition.object.isEmpty() && !condition.op.isEmpty() &&
           (!condition.target.isEmpty() || !FormWantsTarget(condition.op));
}

QString NormalisedTarget(const QString& typed) {
    for (const QChar separator : {u'.', u'/', u'-'}) {
        const QString date = AsDate(typed, separator);
        if (!date.isEmpty())
            return date;
    }
    const QString time = AsTime(typed);
    return time.isEmpty() ? typed : time;
}

QString WithoutTagMarks(QString typed) {
    return typed.removeIf(
        [](QChar c) { return c == u'<' || c == u'>' || c == u'\r' || c == u'\n'; });
}

QString NormalisedKeywords(const QString& typed) {
    QStringList keywords;
    for (const QString& keyword : WithoutTagMarks(typed).replace(u'，', u',').split(u','))
        keywords.append(TrimWhite(keyword));
    keywords.removeAll(QString());
    return keywords.join(u',');
}

int KeywordCount(QStringView keywords) {
    return keywords.isEmpty() ? 0 : int(keywords.count(u',')) + 1;
}

QString ConditionText(const QList<Condition>& conditions, QStringView nameLabel) {
    QString body;
    for (int number = 0; number < std::min(int(conditions.size()), kConditionLimit); ++number) {
        const Condition& condition = conditions[number];
        const bool isName = !nameLabel.isEmpty() && condition.object == nameLabel;
        QString lines = kCrLf + Line(tag::kRelation, condition.relation) +
                        Line(tag::kObject, isName ? tag::kRecordName : condition.object) +
                        Line(tag::kOperator, condition.op);
        if (!OperatorNeedsNoTarget(condition.op))
            lines += Line(tag::kTarget, condition.target);
        body += Field(FormatNumber(number, u"00"), lines);
    }
    return Wrapped(body);
}

QString KeywordText(const KeywordLists& keywords) {
    return Wrapped(Block(tag::kRequired, keywords.required) +
                   Block(tag::kOptional, keywords.optional) +
                   Block(tag::kExcluded, keywords.excluded));
}

QString WithSubField(const QString& conditionText, QStringView field) {
    return conditionText + Field(tag::kConditionField, field);
}

KeywordLists KeywordsOf(QStringView conditionText) {
    return {GetTag(conditionText, tag::kRequired), GetTag(conditionText, tag::kOptional),
            GetTag(conditionText, tag::kExcluded)};
}

bool MatchesKeywords(QStringView record, const KeywordLists& keywords) {
    const auto held = [record](const QString& keyword) { return record.contains(keyword); };
    const QStringList required = Keywords(keywords.required);
    const QStringList optional = Keywords(keywords.optional);
    const QStringList excluded = Keywords(keywords.excluded);
    return std::all_of(required.begin(), required.end(), held) &&
           (optional.isEmpty() || std::any_of(optional.begin(), optional.end(), held)) &&
           std::none_of(excluded.begin(), excluded.end(), held);
}

} // namespace hotel
