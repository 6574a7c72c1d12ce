// What may be typed where, and the forms of dates and times.

#include <QLineEdit>
#include <QTest>

#include "record/literals.h"
#include "screen/date_text.h"
#include "screen/key_filter.h"
#include "tests/hotel_test.h"
#include "tests/type_text.h"

using namespace hotel;

Q_DECLARE_METATYPE(hotel::KeyFilter)

class TypingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void filters_data() {
        QTest::addColumn<KeyFilter>("filter");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("taken");
        const QString mixed = u"aＢ3４.。-+号 "_s;
        QTest::newRow("any") << KeyFilter::Any << mixed << mixed;
        QTest::newRow("letters") << KeyFilter::Letters << mixed << u"AB"_s;
        QTest::newRow("marks of record text") << KeyFilter::Any << u"</内容>"_s << u"＜/内容＞"_s;
        QTest::newRow("marks, plain and full-width")
            << KeyFilter::Capitals << u"<a＞"_s << u"＜A＞"_s;
        QTest::newRow("capitals") << KeyFilter::Capitals << mixed << u"AB34.。-+号 "_s;
        QTest::newRow("digits") << KeyFilter::Digits << mixed << u"34"_s;
        QTest::newRow("amount") << KeyFilter::Amount << mixed << u"34.."_s;
        QTest::newRow("expression") << KeyFilter::Expression << mixed << u"34..-+ "_s;
        QTest::newRow("a sign that can't be reckoned stays to be seen")
            << KeyFilter::Expression << u"（１００×２）"_s << u"(100×2)"_s;
    }
    void filters() {
        QFETCH(KeyFilter, filter);
        QFETCH(QString, typed);
        QTEST(FilterTyped(filter, typed), "taken");
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

    void boxKeepsItsLimitInBytes_data() {
        QTest::addColumn<QString>("before");
        QTest::addColumn<int>("cursor");
        QTest::addColumn<QString>("after");
        QTest::newRow("a double byte more than fits") << u"王ab"_s << 3 << u"王ab"_s;
        QTest::newRow("just fits") << u"王a"_s << 2 << u"王a客"_s;
        QTest::newRow("what stands behind the cursor stays") << u"ab王"_s << 2 << u"ab王"_s;
    }
    void boxKeepsItsLimitInBytes() {
        QFETCH(QString, before);
        QFETCH(int, cursor);
        QLineEdit box;
        SetKeyFilter(&box, KeyFilter::Any, 5);
        box.setText(before);
        box.setCursorPosition(cursor);
        TypeText(&box, u"客"_s);
        QTEST(box.text(), "after");
    }

    void dates_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("date");
        for (const QString& typed : {u"2026.3.5"_s, u"2026/3/5"_s, u"2026-03-05"_s, u"20260305"_s,
                                     u"2026年3月5日"_s, u"２０２６．３．５"_s, u" 2026-3-5 "_s})
            QTest::newRow(qPrintable(typed)) << typed << u"2026-03-05"_s;
        for (const QString& typed : {u""_s, u"2026-2-30"_s, u"2026-13-1"_s, u"2026035"_s, u"3-5"_s,
                                     u"2026-3"_s, u"2026-3-5-6"_s, u"x20260305"_s})
            QTest::newRow(qPrintable(u"no date: "_s + typed)) << typed << QString();
        QTest::newRow("leap day") << u"2024.2.29"_s << u"2024-02-29"_s;
    }
    void dates() {
        QFETCH(QString, typed);
        QTEST(DateFromTyped(typed), "date");
    }

    void times_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("time");
        QTest::newRow("parts") << u"9:5:30"_s << u"09:05:30"_s;
        QTest::newRow("full-width colon") << u"１４：05"_s << u"14:05:00"_s;
        QTest::newRow("points") << u"14.5"_s << u"14:05:00"_s;
        QTest::newRow("six digits") << u"090530"_s << u"09:05:30"_s;
        QTest::newRow("four digits") << u"0905"_s << u"09:05:00"_s;
        QTest::newRow("three digits") << u"905"_s << u"09:05:00"_s;
        QTest::newRow("hour") << u"9"_s << u"09:00:00"_s;
        QTest::newRow("midnight") << u"0"_s << u"00:00:00"_s;
        for (const QString& typed :
             {u""_s, u"24:00"_s, u"12:60"_s, u"12:"_s, u"1:2:3:4"_s, u"abc"_s})
            QTest::newRow(qPrintable(u"no time: "_s + typed)) << typed << QString();
    }
    void times() {
        QFETCH(QString, typed);
        QTEST(TimeFromTyped(typed), "time");
    }
};

HOTEL_TEST(TypingTest)

#include "test_typing.moc"
