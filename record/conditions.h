#pragma once

// The condition language: what the server's field search, the client's search inside a record and
// the query form mean by a condition text. One implementation serves all three.
//
//     <记录查询条件>
//     <00>
//     <关系>并且</关系>        how it joins: 并且 (and), 或者 or empty (or)
//     <对象>房态</对象>        the field; 记录名 is the record's own name
//     <条件>等于</条件>        the operator
//     <目标>散客</目标>        what is compared with; left out where the operator needs none
//     </00>
//     </记录查询条件>
//
// All conditions that are joined by "or" make one group; the record matches when one of that group
// is true (or the group is empty) and every "and" condition is true. Order plays no part.

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include "record/literals.h"

namespace hotel {

inline constexpr int kConditionLimit = 100;

namespace tag {
inline constexpr QStringView kConditions = u"记录查询条件";
inline constexpr QStringView kConditionField = u"记录查询字段";
inline constexpr QStringView kRelation = u"关系";
inline constexpr QStringView kObject = u"对象";
inline constexpr QStringView kOperator = u"条件";
inline constexpr QStringView kTarget = u"目标";
inline constexpr QStringView kRecordName = u"记录名";
} // namespace tag

struct Condition {
    QString relation; // "并且", "或者" or empty
    QString object;   // field tag, or "记录名"
    QString op;       // a word of OperatorWords()
    QString target;

    bool operator==(const Condition&) const = default;
};

// The operators in the order in which the query form offers them.
const QStringList& OperatorWords();

// True for "为空", "非空", "最大" and the like: operators that compare with no target.
bool OperatorNeedsNoTarget(QStringView op);

// The conditions of a condition text (or of its body), from number 00 up to the first one missing.
// A condition without an object is left out.
QList<Condition> ParseConditions(QStringView conditionText);

// Appends one condition block to `conditions` under its number and counts `number` up. The result
// is a body: wrap it with WrapConditions before it is sent.
void AddQueryCondition(QString& conditions, QStringView relation, QStringView object,
                       QStringView op, QStringView target, int& number);
QString WrapConditions(QStringView conditions);

// Selects among records that are shown to it one after the other, in their order.
//
//     RecordSelection selection(ParseConditions(text));
//     for each record: selection.look(name, value);
//     selection.names();
//
// A repeated field passes when any of its occurrences does; they are read up to the first empty
// one, and the first is always read. Any relation but "并且" counts as "或者". Without conditions
// every record matches.
//
// An extreme is sought among all records shown, whatever the other conditions say, and held by the
// first record that reaches it. Under "最小" an empty value, once it holds, gives way to any other.
class RecordSelection {
public:
    explicit RecordSelection(QList<Condition> conditions);

    void look(QStringView name, QStringView value);

    // Names of the records that match, in the order in which they were shown.
    QStringList names() const;

private:
    static constexpr qsizetype kNoHolder = -1;
    struct Test {
        QString object;
        QString target;
        bool (*passes)(QStringView value, QStringView target);     // null for an extreme
        bool (*takesOver)(QStringView value, QStringView running); // null for any other operator
        qsizetype holder; // number of the record that holds the extreme,
        QString running;  // and the value by which it does
    };
    struct Candidate {
        qsizetype number;
        QString name;
        bool anyOf; // true without the help of an extreme
    };

    bool tryValue(Test& test, QStringView value) const;
    bool tryRecord(Test& test, QStringView name, QStringView value) const;

    QList<Test> any_; // joined by "or"
    QList<Test> all_; // joined by "and"
    QList<Candidate> candidates_;
    qsizetype looked_ = 0;
};

} // namespace hotel
