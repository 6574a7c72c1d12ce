#pragma once

// From what a user composes on a query form to the condition text that is searched with
// (record/conditions.h), and the small rules of composing it.
//
// The form's text holds either numbered conditions or keyword blocks, never both:
//
//     <记录查询条件>                      <记录查询条件>
//     <00>                                <必选条件>散客,长包</必选条件>
//      <关系>并且</关系>                  <任选条件>...</任选条件>
//      <对象>房态</对象>                  <排除条件>...</排除条件>
//      <条件>等于</条件>                  </记录查询条件>
//      <目标>散客</目标>
//     </00>
//     </记录查询条件>

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include "record/conditions.h"
#include "record/literals.h"

namespace hotel {

inline constexpr QStringView kAnd = u"并且";
inline constexpr QStringView kOr = u"或者";

// Keywords that one of the three lists may hold.
inline constexpr int kKeywordLimit = 10;

namespace tag {
inline constexpr QStringView kRequired = u"必选条件"; // must hold all of these keywords
inline constexpr QStringView kOptional = u"任选条件"; // must hold one of these
inline constexpr QStringView kExcluded = u"排除条件"; // must hold none of these
} // namespace tag

// Each a list of keywords with "," between them.
struct KeywordLists {
    QString required;
    QString optional;
    QString excluded;

    bool isEmpty() const { return required.isEmpty() && optional.isEmpty() && excluded.isEmpty(); }
};

// --- composing ---

// True when the form wants a value for this operator. 数值最大 and 数值最小 want one too,
// deliberately, although nothing is compared with it: the form has always asked for it there.
bool FormWantsTarget(QStringView op);

// True when a condition may be added: field and operator are chosen, and a value is there where one
// is wanted.
bool IsComplete(const Condition& condition);

// "2026-03-05" from a date typed with two ".", "/" or "-", and "HH:mm:ss" from a time typed with one
// or two ":". A year of one or two digits lies between 1930 and 2029. Any other text, and one that
// only looks like a date or time, comes back unchanged.
QString NormalisedTarget(const QString& typed);

// A typed text as it can stand inside a condition text, which has no escaping: without the tag
// brackets and line ends.
QString WithoutTagMarks(QString typed);

// Keywords as they are searched: full-width commas count as commas, blanks around a keyword and
// empty keywords go.
QString NormalisedKeywords(const QString& typed);
int KeywordCount(QStringView keywords);

// --- the text ---

// The whole condition text of numbered conditions. `nameLabel` is what the form calls the record's
// own name; it becomes 记录名. Parts that are empty, and a target where none is compared, give no
// line. Conditions behind the hundredth are left out.
QString ConditionText(const QList<Condition>& conditions, QStringView nameLabel);

// The whole condition text of a keyword search; a list that is empty gives no block.
QString KeywordText(const KeywordLists& keywords);

// Adds which field's sub-records the conditions are about (see record_match.h).
QString WithSubField(const QString& conditionText, QStringView field);

// --- reading it back ---

KeywordLists KeywordsOf(QStringView conditionText);

// True when a record's text holds all required keywords, an optional one if there are any, and no
// excluded one.
bool MatchesKeywords(QStringView record, const KeywordLists& keywords);

} // namespace hotel
