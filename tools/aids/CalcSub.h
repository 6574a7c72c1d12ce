#pragma once

// The calculator behind amount fields: staff type 128+2*15 where an amount is asked for, with the
// full-width characters of a Chinese input method if they like.
//
//     number   digits with at most one point
//     + -      lowest priority
//     * /      next
//     ^        highest of the signs between two values; from the left, so that 2^3^2 is 64
//     -        in front of a value: above all of them, so that -2^2 is 4; it can't be repeated
//     ( )      any depth up to kCalculatorStackLimit
//
// Full-width digits, points, + - * / and ÷ and the brackets （） ｛｝ ［］ stand for the plain signs.
// Blanks are skipped. Nothing else is taken: not ×, not %.

#include <QList>
#include <QString>
#include <QStringView>

#include <optional>
#include <stdexcept>

#include "record/numbers.h"

namespace hotel {

// Signs that wait for their second value, and values that wait for their sign.
inline constexpr qsizetype kCalculatorStackLimit = 32000;

// An amount from here on, either sign, is a slip of the keyboard.
inline constexpr double kAmountLimit = 1e12;

// Why an expression has no value: text() is for the user, as "4 : 字符小数点太多" with the place of the
// fault counted from 1.
class CalcError : public std::runtime_error {
public:
    explicit CalcError(const QString& text) : std::runtime_error(text.toStdString()), text_(text) {}
    CalcError(qsizetype place, QStringView message);

    const QString& text() const { return text_; }

private:
    QString text_;
};

// One item of an expression in postfix order: a number, + - * / ^, or the sign in front, "(-)".
struct PostfixItem {
    QString text;
    qsizetype place = 0; // in the expression, counted from 1
};

// The two halves of EvaluateExpression; both throw CalcError. The value is always finite.
QList<PostfixItem> ToPostfix(QStringView expression);
double EvaluatePostfix(const QList<PostfixItem>& postfix);

// The value of an expression. Throws CalcError; an empty text has no value.
double EvaluateExpression(QStringView text);

// The amount in a cell or a field, which may be an expression. Blank reads as 0.00. Without a value
// the amount is missing and `error` says why; where a screen has nobody to tell, it counts as 0.00:
// AmountFromCell(text).orZero().
struct CellAmount {
    std::optional<Money> amount;
    QString error;

    Money orZero() const { return amount.value_or(Money()); }
};
CellAmount AmountFromCell(QStringView text);

} // namespace hotel
