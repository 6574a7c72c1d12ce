#include "record/conditions.h"

#include "record/field_walk.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "record/tag_search.h"

#include <algorithm>

namespace hotel {

namespace {

using Predicate = bool (*)(QStringView value, QStringView target);

struct Operator {
    QStringView word;
    Predicate passes = nullptr;    // null for the extremes
    Predicate takesOver = nullptr; // of an extreme, with the running one in the place of the target
    bool needsTarget = true;
};

template<typename Compare>
constexpr Predicate ByNumber = [](QStringView value, QStringView target) {
    return Compare{}(LeadingNumber(value), LeadingNumber(target));
};

template<typename Compare>
constexpr Predicate ByText =
    [](QStringView value, QStringView target) { return Compare{}(value.compare(target), 0); };

bool IsEmpty(QStringView value, QStringView) {
    return value.isEmpty();
}

bool IsFilled(QStringView value, QStringView) {
    return !value.isEmpty();
}

bool BeginsWith(QStringView value, QStringView target) {
    return value.first(std::min(value.size(), target.size())) == target;
}

bool EndsWith(QStringView value, QStringView target) {
    return value.last(std::min(value.size(), target.size())) == target;
}

bool Contains(QStringView value, QStringView target) {
    return target.isEmpty() || FindText(value, target) >= 0;
}

// An empty running extreme gives way to any value, so that records without the field don't hold it
// for good.
bool IsSmaller(QStringView value, QStringView running) {
    return running.isEmpty() || value < running;
}

constexpr Operator kOperators[] = {
    {u"为空", IsEmpty, nullptr, false},
    {u"非空", IsFilled, nullptr, false},
    {u"大于", ByText<std::greater<int>>},
    {u"小于", ByText<std::less<int>>},
    {u"等于", ByText<std::equal_to<int>>},
    {u"不等于", ByText<std::not_equal_to<int>>},
    {u"不大于", ByText<std::less_equal<int>>},
    {u"不小于", ByText<std::greater_equal<int>>},
    {u"属于", [](QStringView value, QStringView target) { return Contains(target, value); }},
    {u"不属于", [](QStringView value, QStringView target) { return !Contains(target, value); }},
    {u"包含", Contains},
    {u"不包含", [](QStringView value, QStringView target) { return !Contains(value, target); }},
    {u"最大", nullptr, ByText<std::greater<int>>, false},
    {u"最小", nullptr, IsSmaller, false},
    {u"数值最大", nullptr, ByNumber<std::greater<double>>, false},
    {u"数值最小", nullptr, ByNumber<std::less<double>>, false},
    {u"数值大于", ByNumber<std::greater<double>>},
    {u"数值小于", ByNumber<std::less<double>>},
    {u"数值等于", ByNumber<std::equal_to<double>>},
    {u"数值不等于", ByNumber<std::not_equal_to<double>>},
    {u"数值不大于", ByNumber<std::less_equal<double>>},
    {u"数值不小于", ByNumber<std::greater_equal<double>>},
    {u"首部等于", BeginsWith},
    {u"尾部等于", EndsWith},
    {u"首部不等于",
     [](QStringView value, QStringView target) { return !BeginsWith(value, target); }},
    {u"尾部不等于", [](QStringView value, QStringView target) { return !EndsWith(value, target); }},
};

const Operator* FindOperator(QStringView word) {
    const auto found = std::find_if(std::begin(kOperators), std::end(kOperators),
                                    [word](const Operator& op) { return op.word == word; });
    return found == std::end(kOperators) ? nullptr : found;
}

} // namespace

const QStringList& OperatorWords() {
    static const QStringList words = [] {
        QStringList all;
        for (const Operator& op : kOperators)
            all.append(op.word.toString());
        return all;
    }();
    return words;
}

bool OperatorNeedsNoTarget(QStringView op) {
    const Operator* const found = FindOperator(op);
    return found && !found->needsTarget;
}

QList<Condition> ParseConditions(QStringView conditionText) {
    const QString wrapped = GetTag(conditionText, tag::kConditions);
    const QStringView body = wrapped.isEmpty() ? conditionText : wrapped;
    QList<Condition> conditions;
    for (int number = 0; number < kConditionLimit; ++number) {
        const QString block = GetTag(body, FormatNumber(number, u"00"));
        if (block.isEmpty())
            break;
        Condition condition{GetTag(block, tag::kRelation), GetTag(block, tag::kObject),
                            GetTag(block, tag::kOperator), GetTag(block, tag::kTarget)};
        if (!condition.object.isEmpty())
            conditions.append(std::move(condition));
    }
    return conditions;
}

void AddQueryCondition(QString& conditions, QStringView relation, QStringView object,
                       QStringView op, QStringView target, int& number) {
    QString block = SetTag(QString(), tag::kRelation, relation);
    block = SetTag(block, tag::kObject, object);
    block = SetTag(block, tag::kOperator, op);
    block = SetTag(block, tag::kTarget, target);
    conditions = SetTag(conditions, FormatNumber(number, u"00"), kCrLf + block + kCrLf);
    ++number;
}

QString WrapConditions(QStringView conditions) {
    QString text = u"<记录查询条件>\r\n"_s;
    text += conditions;
    if (!conditions.isEmpty())
        text += kCrLf;
    return text + u"</记录查询条件>\r\n"_s;
}

RecordSelection::RecordSelection(QList<Condition> conditions) {
    for (Condition& condition : conditions) {
        const Operator* const op = FindOperator(condition.op);
        QList<Test>& group = condition.relation == u"并且" ? all_ : any_;
        group.append({std::move(condition.object),
                      std::move(condition.target),
                      op ? op->passes : nullptr,
                      op ? op->takesOver : nullptr,
                      kNoHolder,
                      {}});
    }
}

bool RecordSelection::tryValue(Test& test, QStringView value) const {
    if (test.passes)
        return test.passes(value, test.target);
    if (!test.takesOver || (test.holder != kNoHolder && !test.takesOver(value, test.running)))
        return false;
    test.holder = looked_;
    test.running = value.toString();
    return true;
}

bool RecordSelection::tryRecord(Test& test, QStringView name, QStringView value) const {
    if (test.object == tag::kRecordName)
        return tryValue(test, name);
    const TagMarks marks(test.object);
    const QStringView text = value.size() < kTagTextLimit ? value : QStringView();
    Occurrence occurrence = ReadOccurrence(text, marks, 0);
    bool passed = tryValue(test, occurrence.value);
    for (int n = 2; n <= kNameLimit && !occurrence.value.isEmpty(); ++n) {
        occurrence = ReadOccurrence(text, marks, occurrence.next);
        if (!occurrence.value.isEmpty())
            passed |= tryValue(test, occurrence.value);
    }
    return passed;
}

void RecordSelection::look(QStringView name, QStringView value) {
    // Every test is made, because an extreme sees every record, whatever the others say.
    bool anyOf = any_.isEmpty();
    bool takesOver = false;
    for (Test& test : any_)
        (test.takesOver ? takesOver : anyOf) |= tryRecord(test, name, value);
    bool allOf = true;
    for (Test& test : all_)
        allOf &= tryRecord(test, name, value);
    if ((anyOf || takesOver) && allOf)
        candidates_.append({looked_, name.toString(), anyOf});
    ++looked_;
}

QStringList RecordSelection::names() const {
    QStringList names;
    for (const Candidate& candidate : candidates_) {
        const auto holds = [&](const Test& test) { return test.holder == candidate.number; };
        const bool anyOf = candidate.anyOf || std::any_of(any_.begin(), any_.end(), holds);
        const bool allOf = std::all_of(all_.begin(), all_.end(), [&](const Test& test) {
            return !test.takesOver || holds(test);
        });
        if (anyOf && allOf)
            names.append(candidate.name);
    }
    return names;
}

} // namespace hotel
