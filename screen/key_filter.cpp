#include "screen/key_filter.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "record/record_text.h"

namespace hotel {

namespace {

bool Passes(KeyFilter filter, QChar c) {
    const bool digit = c >= u'0' && c <= u'9';
    switch (filter) {
    case KeyFilter::Any:
    case KeyFilter::Capitals:
        return true;
    case KeyFilter::Letters:
        return c >= u'A' && c <= u'Z';
    case KeyFilter::Digits:
        return digit;
    case KeyFilter::Amount:
        return digit || c == u'.';
    case KeyFilter::Expression:
        // A sign is never dropped: "100×2" must not turn into 1002.
        return digit || QStringView(u".+-*/^()[]{} ×÷").contains(c);
    }
    return true;
}

// Filters what the user types into a box, in place: the same for keys, input method and paste.
class TypingFilter : public QObject {
public:
    TypingFilter(QLineEdit* box, KeyFilter filter, int maxBytes)
        : QObject(box), box_(box), filter_(filter), maxBytes_(maxBytes) {
        box->installEventFilter(this);
        connect(box, &QLineEdit::textEdited, this, [this] { takeTyped(); });
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool escape = event->type() == QEvent::KeyPress &&
                            static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
        if (!escape || filter_ == KeyFilter::Any || box_->isReadOnly() || box_->text().isEmpty())
            return QObject::eventFilter(watched, event);
        box_->clear();
        Q_EMIT box_->textEdited({});
        return true;
    }

private:
    void takeTyped() {
        const QString typed = box_->text();
        QString before = FilterTyped(filter_, QStringView(typed).left(box_->cursorPosition()));
        const QString behind = FilterTyped(filter_, QStringView(typed).mid(box_->cursorPosition()));
        while (maxBytes_ > 0 && !before.isEmpty() && AnsiLen(before) + AnsiLen(behind) > maxBytes_)
            before.chop(1);
        if (before + behind == typed)
            return;
        box_->setText(before + behind);
        box_->setCursorPosition(int(before.size()));
    }

    QLineEdit* box_;
    KeyFilter filter_;
    int maxBytes_;
};

} // namespace

QString PlainForm(QStringView text) {
    constexpr int kFullWidthOffset = 0xFEE0;
    QString plain = text.toString();
    for (QChar& c : plain) {
        if (c >= u'！' && c <= u'～')
            c = QChar(c.unicode() - kFullWidthOffset);
        else if (c == u'　')
            c = u' ';
    }
    return plain;
}

QString WithoutMarks(QString text) {
    return text.replace(u'<', u'＜').replace(u'>', u'＞');
}

QString FilterTyped(KeyFilter filter, QStringView typed) {
    if (filter == KeyFilter::Any)
        return WithoutMarks(typed.toString());
    QString taken = PlainForm(typed);
    if (filter == KeyFilter::Letters || filter == KeyFilter::Capitals)
        taken = taken.toUpper();
    if (filter == KeyFilter::Amount || filter == KeyFilter::Expression)
        taken.replace(u'。', u'.');
    taken.removeIf([filter](QChar c) { return !Passes(filter, c); });
    return WithoutMarks(taken);
}

QString TypedText(const QKeyEvent& key) {
    constexpr QChar kDelete = u'\x7F';
    const QString text = key.text();
    const bool command = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    return command || text.isEmpty() || text[0] < u' ' || text[0] == kDelete ? QString() : text;
}

void SetKeyFilter(QLineEdit* box, KeyFilter filter, int maxBytes) {
    new TypingFilter(box, filter, maxBytes);
}

} // namespace hotel
