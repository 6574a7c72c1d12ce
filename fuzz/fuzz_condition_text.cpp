// A condition text, evaluated over a project. Input: the project's records a line, then the condition
// text.

#include "fuzz/fuzz_input.h"

#include "record/conditions.h"
#include "record/field_walk.h"
#include "tests/select_records.h"

#include <algorithm>

using namespace hotel;
using namespace hotel::fuzz;

namespace {

QStringList Select(const QString& project, const QList<Condition>& conditions) {
    RecordSelection selection(conditions);
    for (FieldWalk walk(project); walk.next();)
        selection.look(walk.name(), walk.value());
    return selection.names();
}

bool IsClean(const Condition& condition) {
    const QString all = condition.relation + condition.object + condition.op + condition.target;
    return !all.contains(u'<') && !all.contains(u'>');
}

void WrittenConditionsReadTheSame(const QList<Condition>& conditions) {
    if (!std::all_of(conditions.begin(), conditions.end(), IsClean))
        return;
    QString text;
    int number = 0;
    for (const Condition& condition : conditions)
        AddQueryCondition(text, condition.relation, condition.object, condition.op,
                          condition.target, number);
    Require(ParseConditions(WrapConditions(text)) == conditions,
            "written conditions read the same");
}

void OperatorsContradict(QStringView value, QStringView target) {
    constexpr QStringView opposites[][2] = {
        {u"为空", u"非空"},           {u"等于", u"不等于"},         {u"大于", u"不大于"},
        {u"小于", u"不小于"},         {u"属于", u"不属于"},         {u"包含", u"不包含"},
        {u"首部等于", u"首部不等于"}, {u"尾部等于", u"尾部不等于"}, {u"数值大于", u"数值不大于"},
        {u"数值小于", u"数值不小于"}, {u"数值等于", u"数值不等于"}};
    for (const auto& [word, opposite] : opposites)
        Require(PassesOperator(word, value, target) != PassesOperator(opposite, value, target),
                "one of two opposite operators is true");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QStringList texts = Texts(data, size, 2);
    const QString& project = texts[0];
    const QList<Condition> conditions = ParseConditions(texts[1]);
    Require(conditions.size() <= kConditionLimit, "conditions have a limit");
    for (const Condition& condition : conditions) {
        Require(!condition.object.isEmpty(), "a condition has an object");
        OperatorsContradict(project, condition.target);
        OperatorsContradict(condition.target, condition.object);
    }
    WrittenConditionsReadTheSame(conditions);
    Require(Select(project, {}) == SelectRecords(project, u""),
            "no condition selects every record");
    Require(Select(project, conditions) == SelectRecords(project, texts[1]),
            "a text selects what its conditions do");
    return 0;
}
