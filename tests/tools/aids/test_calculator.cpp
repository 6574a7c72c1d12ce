#include "tests/hotel_test.h"
#include "tools/aids/CalcSub.h"

using namespace hotel;

class CalculatorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void evaluates() {
        const auto row = [](const char* name, const QString& text, double value) {
            Check(name, EvaluateExpression(text), value);
        };
        row("one number", u"12.50"_s, 12.5);
        row("points at the ends", u".5+12."_s, 12.5);
        row("priorities", u"1+2*3-8/4"_s, 5);
        row("same priority runs from the left", u"10-4-3"_s, 3);
        row("division runs from the left", u"100/10/5"_s, 2);
        row("power runs from the left", u"2^3^2"_s, 64);
        row("the sign in front binds above the power", u"-2^2"_s, 4);
        row("sign behind an operator", u"2*-3"_s, -6);
        row("sign of a bracket", u"-(2+3)*2"_s, -10);
        row("plus in front is dropped", u"+2*+3"_s, 6);
        row("minus behind a dropped plus", u"5-+-2"_s, 7);
        row("brackets", u"(1+2)*((3))"_s, 9);
        row("blanks and line ends", u" 1 +\r\n2 "_s, 3);
        row("full-width digits and signs", u"１２．５＋３＊（４－２）／２÷１"_s, 15.5);
        row("Chinese stop for the point", u"9。5"_s, 9.5);
        row("other full-width brackets", u"｛１＋２｝＊［３］"_s, 9);
    }

    void refuses() {
        const auto row = [](const char* name, const QString& text, const QString& error) {
            try {
                EvaluateExpression(text);
                QFAIL(name);
            } catch (const CalcError& fault) {
                Check(name, fault.text(), error);
            }
        };
        row("two points", u"1..2"_s, u"3 : 字符小数点太多"_s);
        row("two points, not in sequence", u"7+1.2.3"_s, u"6 : 字符小数点太多"_s);
        row("point alone", u"1+."_s, u"3 : 字符无效操作符"_s);
        row("number behind number", u"1 2"_s, u"3 : 字符缺少运算符"_s);
        row("bracket behind number", u"2(1)"_s, u"2 : 字符缺少运算符"_s);
        row("minus in front twice", u"--2"_s, u"2 : 字符缺少运算符"_s);
        row("operator behind operator", u"2+*3"_s, u"3 : 字符缺少运算项"_s);
        row("operator at the start", u"/3"_s, u"1 : 字符缺少运算项"_s);
        row("operator at the end", u"3+"_s, u"3 : 字符缺少运算项"_s);
        row("operator ahead of a closing bracket", u"(3+)"_s, u"4 : 字符缺少运算项"_s);
        row("nothing in brackets", u"1+()"_s, u"4 : 字符缺少运算项"_s);
        row("empty", u""_s, u"1 : 字符缺少运算项"_s);
        row("closing bracket alone", u"1+2)"_s, u"4 : 字符右括号没有可以配对的左括号"_s);
        row("bracket left open", u"2*(1+(3)"_s, u"3 : 字符括号不成对"_s);
        row("multiplication cross", u"2×3"_s, u"2 : 字符不应该存在的符号"_s);
        row("percent", u"100*5%"_s, u"6 : 字符不应该存在的符号"_s);
        row("division by zero", u"8/(2-2)"_s, u"2 : 字符除数不能为零"_s);
        row("power of zero", u"0^-1"_s, u"2 : 字符计算结果超出范围"_s);
        row("root of a negative", u"(-2)^0.5"_s, u"5 : 字符计算结果超出范围"_s);
        row("overflow", u"9^999"_s, u"2 : 字符计算结果超出范围"_s);
        row("number too long", u"1+"_s + QString(400, u'9'), u"3 : 字符计算结果超出范围"_s);
    }

    // Deep nesting is an error in words, never a crash.
    void keepsToItsStackLimit() {
        const auto nested = [](qsizetype depth) {
            return QString(depth, u'(') + u'7' + QString(depth, u')');
        };
        QCOMPARE(EvaluateExpression(nested(kCalculatorStackLimit)), 7.0);
        QCOMPARE(AmountFromCell(nested(kCalculatorStackLimit + 1)).error,
                 QString::number(kCalculatorStackLimit + 1) + u" : 字符内部堆栈错误"_s);
    }

    void readsAmountsOfCells() {
        const auto row = [](const char* name, const QString& text, const QString& amount,
                            const QString& error) {
            const CellAmount cell = AmountFromCell(text);
            Check(name, cell.amount ? cell.amount->text() : u""_s, amount);
            Check(name, cell.error, error);
        };
        row("plain", u"298.00"_s, u"298.00"_s, u""_s);
        row("full-width expression", u"２９８＊２"_s, u"596.00"_s, u""_s);
        row("decimals add up exactly", u"0.1+0.2"_s, u"0.30"_s, u""_s);
        row("empty", u""_s, u"0.00"_s, u""_s);
        row("the blank of an empty cell", u" "_s, u"0.00"_s, u""_s);
        row("no expression", u"免费"_s, u""_s, u"1 : 字符不应该存在的符号"_s);
        row("largest", u"999999999999.99"_s, u"999999999999.99"_s, u""_s);
        row("too large", u"0-10^12"_s, u""_s, u"金额太大"_s);
    }
};

HOTEL_TEST(CalculatorTest)

#include "test_calculator.moc"
