// What may be typed where, and the forms of dates and times.

#include <QLineEdit>

#include "screen/date_text.h"
#include "screen/key_filter.h"
#include "tests/hotel_test.h"
#include "tests/type_text.h"

using namespace hotel;

Q_DECLARE_METATYPE(hotel::KeyFilter)

class TypingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void filters() {
        const auto row = [](const char* name, KeyFilter filter, const QString& typed,
                            const QString& taken) {
            Check(name, FilterTyped(filter, typed), taken);
        };
        const QString mixed = u"aＢ3４.。-+号 "_s;
        row("any", KeyFilter::Any, mixed, mixed);
        row("letters", KeyFilter::Letters, mixed, u"AB"_s);
        row("marks of record text", KeyFilter::Any, u"</内容>"_s, u"＜/内容＞"_s);
        row("marks, plain and full-width", KeyFilter::Capitals, u"<a＞"_s, u"＜A＞"_s);
        row("capitals", KeyFilter::Capitals, mixed, u"AB34.。-+号 "_s);
        row("digits", KeyFilter::Digits, mixed, u"34"_s);
        row("amount", KeyFilter::Amount, mixed, u"34.."_s);
        row("expression", KeyFilter::Expression, mixed, u"34..-+ "_s);
        row("a sign that can't be reckoned stays to be seen", KeyFilter::Expression,
            u"（１００×２）"_s, u"(100×2)"_s);
    }

    void boxTakesTypedTextInPlace() {
        QLineEdit box;
        DigitKeyFilter(&box);
        TypeText(&box, u"1a２b4"_s);
        QCOMPARE(box.text(), u"124"_s);
        box.setCursorPosition(2);
        TypeText(&box, u"x3"_s);
        QCOMPARE(box.text(), u"1234"_s);
        QCOMPARE(box.cursorPosition(), 3);
    }

    void boxKeepsItsLimitInBytes() {
        const auto row = [](const char* name, const QString& before, int cursor,
                            const QString& after) {
            QLineEdit box;
            SetKeyFilter(&box, KeyFilter::Any, 5);
            box.setText(before);
            box.setCursorPosition(cursor);
            TypeText(&box, u"客"_s);
            Check(name, box.text(), after);
        };
        row("a double byte more than fits", u"王ab"_s, 3, u"王ab"_s);
        row("just fits", u"王a"_s, 2, u"王a客"_s);
        row("what stands behind the cursor stays", u"ab王"_s, 2, u"ab王"_s);
    }

    void dates() {
        const auto row = [](const char* name, const QString& typed, const QString& date) {
            Check(name, DateFromTyped(typed, QDate(2026, 3, 1)), date);
        };
        for (const QString& typed :
             {u"2026.3.5"_s, u"2026/3/5"_s, u"2026-03-05"_s, u"20260305"_s, u"2026年3月5日"_s,
              u"２０２６．３．５"_s, u" 2026-3-5 "_s, u"3.5"_s, u"3月5日"_s, u"0305"_s})
            row(qPrintable(typed), typed, u"2026-03-05"_s);
        for (const QString& typed : {u""_s, u"2026-2-30"_s, u"2026-13-1"_s, u"2026035"_s, u"13-5"_s,
                                     u"2026-3"_s, u"2026-3-5-6"_s, u"x20260305"_s})
            row(qPrintable(u"no date: "_s + typed), typed, {});
        row("leap day", u"2024.2.29"_s, u"2024-02-29"_s);
        row("at the turn of the year", u"12-30"_s, u"2025-12-30"_s);
    }

    void times() {
        const auto row = [](const char* name, const QString& typed, const QString& time) {
            Check(name, TimeFromTyped(typed), time);
        };
        row("parts", u"9:5:30"_s, u"09:05:30"_s);
        row("full-width colon", u"１４：05"_s, u"14:05:00"_s);
        row("points", u"14.5"_s, u"14:05:00"_s);
        row("four digits", u"0905"_s, u"09:05:00"_s);
        row("three digits", u"905"_s, u"09:05:00"_s);
        row("midnight", u"0"_s, u"00:00:00"_s);
        for (const QString& typed :
             {u""_s, u"24:00"_s, u"12:60"_s, u"12:"_s, u"1:2:3:4"_s, u"abc"_s})
            row(qPrintable(u"no time: "_s + typed), typed, {});
    }
};

HOTEL_TEST(TypingTest)

#include "test_typing.moc"
