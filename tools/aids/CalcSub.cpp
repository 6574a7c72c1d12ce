#include "tools/aids/CalcSub.h"

#include "record/literals.h"
#include "record/record_text.h"

#include <algorithm>
#include <cmath>

namespace hotel {

namespace {

constexpr QStringView kNegative = u"(-)";

QString Plain(QStringView expression) {
    constexpr QStringView kTyped = u"０１２３４５６７８９．。＋－＊／÷（｛［）｝］";
    constexpr QStringView kMeant = u"0123456789..+-*//((()))";
    static_assert(kTyped.size() == kMeant.size());
    QString plain = expression.toString();
    for (QChar& c : plain)
        if (const qsizetype i = kTyped.indexOf(c); i >= 0)
            c = kMeant[i];
    return plain;
}

bool IsDigitOrPoint(QChar c) {
    return (c >= u'0' && c <= u'9') || c == u'.';
}

int Priority(QStringView sign) {
    if (sign == u"+" || sign == u"-")
        return 1;
    if (sign == u"*" || sign == u"/")
        return 2;
    if (sign == u"^")
        return 3;
    return sign == kNegative ? 10 : 0;
}

// A stack that says so when it is used beyond its limits.
template<class Item>
class LimitedStack {
public:
    void push(const Item& item, qsizetype place) {
        if (items_.size() >= kCalculatorStackLimit)
            throw CalcError(place, u"内部堆栈错误");
        items_.append(item);
    }
    Item pop(qsizetype place) {
        if (items_.isEmpty())
            throw CalcError(place, u"内部堆栈弹出错误");
        return items_.takeLast();
    }
    bool isEmpty() const { return items_.isEmpty(); }
    const Item& top() const { return items_.constLast(); }

private:
    QList<Item> items_;
};

// One pass from left to right. Signs wait on a stack until one of lower priority, a bracket or the
// end lets them out behind their values.
class PostfixBuilder {
public:
    explicit PostfixBuilder(QStringView expression) : text_(Plain(expression)) {}

    QList<PostfixItem> build() {
        while (at_ < text_.size()) {
            const QChar c = text_[at_];
            if (IsDigitOrPoint(c))
                takeNumber();
            else if (Priority(QStringView(&c, 1)) > 0)
                takeSign();
            else if (c == u'(')
                takeOpening();
            else if (c == u')')
                takeClosing();
            else if (c == u' ' || c.category() == QChar::Other_Control)
                ++at_;
            else
                fail(u"不应该存在的符号");
        }
        finish();
        return postfix_;
    }

private:
    enum class Last { Nothing, Value, Operator, Negative, Opening };

    [[noreturn]] void fail(QStringView message) const { throw CalcError(at_ + 1, message); }

    void takeNumber() {
        const qsizetype begin = at_;
        if (last_ == Last::Value)
            fail(u"缺少运算符");
        int points = 0;
        for (; at_ < text_.size() && IsDigitOrPoint(text_[at_]); ++at_)
            if (text_[at_] == u'.' && ++points > 1)
                fail(u"小数点太多");
        const QString number = text_.mid(begin, at_ - begin);
        if (number == u".") {
            at_ = begin;
            fail(u"无效操作符");
        }
        postfix_.append({number, begin + 1});
        last_ = Last::Value;
    }

    void takeSign() {
        if (last_ == Last::Negative)
            fail(u"缺少运算符");
        const QString sign = text_.mid(at_, 1);
        if (last_ == Last::Value) {
            while (!waiting_.isEmpty() && Priority(waiting_.top().text) >= Priority(sign))
                letOut();
            push({sign, at_ + 1}, Last::Operator);
        } else if (sign == u"-") {
            push({kNegative.toString(), at_ + 1}, Last::Negative);
        } else if (sign != u"+") {
            fail(u"缺少运算项");
        }
        ++at_;
    }

    void takeOpening() {
        if (last_ == Last::Value)
            fail(u"缺少运算符");
        push({u"("_s, at_ + 1}, Last::Opening);
        ++open_;
        ++at_;
    }

    void takeClosing() {
        if (open_ == 0)
            fail(u"右括号没有可以配对的左括号");
        if (last_ != Last::Value)
            fail(u"缺少运算项");
        while (waiting_.top().text != u"(")
            letOut();
        waiting_.pop(at_ + 1);
        --open_;
        ++at_;
    }

    void finish() {
        if (last_ != Last::Value)
            fail(u"缺少运算项");
        while (!waiting_.isEmpty()) {
            if (waiting_.top().text == u"(")
                throw CalcError(waiting_.top().place, u"括号不成对");
            letOut();
        }
    }

    void push(const PostfixItem& sign, Last last) {
        waiting_.push(sign, sign.place);
        last_ = last;
    }

    void letOut() { postfix_.append(waiting_.pop(at_ + 1)); }

    QString text_;
    qsizetype at_ = 0;
    Last last_ = Last::Nothing;
    int open_ = 0; // brackets
    LimitedStack<PostfixItem> waiting_;
    QList<PostfixItem> postfix_;
};

double Combine(double left, QChar sign, double right, qsizetype place) {
    double result = 0;
    switch (sign.unicode()) {
    case u'+':
        result = left + right;
        break;
    case u'-':
        result = left - right;
        break;
    case u'*':
        result = left * right;
        break;
    case u'/':
        if (right == 0)
            throw CalcError(place, u"除数不能为零");
        result = left / right;
        break;
    default:
        result = std::pow(left, right);
    }
    if (!std::isfinite(result))
        throw CalcError(place, u"计算结果超出范围");
    return result;
}

double NumberOf(const PostfixItem& item) {
    const double value = item.text.toDouble();
    if (!std::isfinite(value))
        throw CalcError(item.place, u"计算结果超出范围");
    return value;
}

bool IsNumber(const QString& item) {
    return !item.isEmpty() && std::all_of(item.begin(), item.end(), IsDigitOrPoint);
}

} // namespace

CalcError::CalcError(qsizetype place, QStringView message)
    : CalcError(QString::number(place) + u" : 字符"_s + message) {}

QList<PostfixItem> ToPostfix(QStringView expression) {
    return PostfixBuilder(expression).build();
}

double EvaluatePostfix(const QList<PostfixItem>& postfix) {
    LimitedStack<double> values;
    for (const PostfixItem& item : postfix) {
        if (IsNumber(item.text)) {
            values.push(NumberOf(item), item.place);
        } else if (item.text == kNegative) {
            values.push(-values.pop(item.place), item.place);
        } else if (Priority(item.text) > 0) {
            const double right = values.pop(item.place);
            const double left = values.pop(item.place);
            values.push(Combine(left, item.text.front(), right, item.place), item.place);
        } else {
            throw CalcError(u"Bad token in StrVal: "_s + item.text);
        }
    }
    return values.pop(1);
}

double EvaluateExpression(QStringView text) {
    return EvaluatePostfix(ToPostfix(text));
}

CellAmount AmountFromCell(QStringView text) {
    if (TrimWhite(text).isEmpty())
        return {Money(), {}};
    try {
        const double value = EvaluateExpression(text);
        if (std::abs(value) >= kAmountLimit)
            return {std::nullopt, u"金额太大"_s};
        return {Money::FromNumber(value), {}};
    } catch (const CalcError& error) {
        return {std::nullopt, error.text()};
    }
}

} // namespace hotel
