#pragma once

// What may be typed where. Full-width digits, letters and signs, as a Chinese input method gives
// them, count as their plain forms wherever a filter but Any is at work. "<" and ">" are the marks of
// record text, which knows no escaping: in whatever goes into a record they are typed full-width.

#include <QString>
#include <QStringView>

class QKeyEvent;
class QLineEdit;

namespace hotel {

enum class KeyFilter {
    Any,
    Letters,    // letters only, turned to capitals
    Capitals,   // everything; letters are turned to capitals
    Digits,     // 0 to 9
    Amount,     // digits and the point
    Expression, // digits, point, the signs of arithmetic and brackets: amounts that may be reckoned
};

// `text` with full-width letters, digits, signs and blanks in their plain forms.
QString PlainForm(QStringView text);

// `text` with "<" and ">" full-width, so that it can stand as a value in a record.
QString WithoutMarks(QString text);

// What is taken of a typed (or pasted) text.
QString FilterTyped(KeyFilter filter, QStringView typed);

// The text that a key types, from the blank upward; empty for every other key.
QString TypedText(const QKeyEvent& key);

// Puts a filter on a box; with `maxBytes` above 0 what goes beyond that many bytes (AnsiLen) is not
// taken. Esc empties a box with any filter but Any; an empty one leaves Esc to the screen.
void SetKeyFilter(QLineEdit* box, KeyFilter filter, int maxBytes = 0);

// The two filters that most boxes have.
inline void DigitKeyFilter(QLineEdit* box) {
    SetKeyFilter(box, KeyFilter::Digits);
}
inline void AmountKeyFilter(QLineEdit* box) {
    SetKeyFilter(box, KeyFilter::Amount);
}

} // namespace hotel
