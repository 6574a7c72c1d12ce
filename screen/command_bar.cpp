#include "screen/command_bar.h"

#include <QEvent>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace hotel {

namespace {

constexpr int kSpacing = 8;
constexpr int kGroupGap = 20;
constexpr int kKeyGap = 10;
constexpr int kPadding = 14;
constexpr int kSmallestWidth = 88;

} // namespace

CommandButton::CommandButton(const QString& caption, const QKeySequence& key, QWidget* parent)
    : QPushButton(caption, parent), keyText_(key.toString(QKeySequence::NativeText)) {}

QFont CommandButton::keyFont() const {
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    return small;
}

QSize CommandButton::sizeHint() const {
    int width = fontMetrics().horizontalAdvance(text()) + 2 * kPadding;
    if (!keyText_.isEmpty())
        width += kKeyGap + QFontMetrics(keyFont()).horizontalAdvance(keyText_);
    return {qMax(width, kSmallestWidth), QPushButton::sizeHint().height()};
}

void CommandButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const QString caption = option.text;
    option.text.clear();
    painter.drawControl(QStyle::CE_PushButton, option);

    // Caption and key are centred together.
    const bool filled = isDefault() && isEnabled();
    const auto role = filled ? QPalette::HighlightedText : QPalette::ButtonText;
    const QFontMetrics keyMetrics(keyFont());
    const int keyWidth = keyText_.isEmpty() ? 0 : kKeyGap + keyMetrics.horizontalAdvance(keyText_);
    const int captionWidth = fontMetrics().horizontalAdvance(caption);
    QRect place = rect();
    place.setLeft((width() - captionWidth - keyWidth) / 2);
    painter.setPen(palette().color(role));
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter, caption);
    place.setLeft(place.left() + captionWidth + kKeyGap);
    painter.setFont(keyFont());
    painter.setOpacity(0.75);
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter, keyText_);
}

CommandBar::CommandBar(QWidget* parent) : QWidget(parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void CommandBar::addButton(QPushButton* button, const QString& group) {
    button->setParent(this);
    places_.append({button, !places_.isEmpty() && group != lastGroup_});
    lastGroup_ = group;
    updateGeometry();
}

QSize CommandBar::sizeHint() const {
    constexpr int kOneRow = 1 << 20;
    int width = 0;
    for (const Place& place : places_)
        width += place.button->sizeHint().width() + (place.gap ? kGroupGap : kSpacing);
    return {qMax(0, width - kSpacing), arrange(kOneRow, false)};
}

QSize CommandBar::minimumSizeHint() const {
    int width = 0;
    for (const Place& place : places_)
        width = qMax(width, place.button->sizeHint().width());
    return {width, 0};
}

int CommandBar::heightForWidth(int width) const {
    return arrange(width, false);
}

int CommandBar::arrange(int width, bool move) const {
    int x = 0;
    int y = 0;
    int height = 0;
    for (const Place& place : places_) {
        if (place.button->isHidden())
            continue;
        const QSize size = place.button->sizeHint();
        if (x > 0)
            x += place.gap ? kGroupGap : kSpacing;
        if (x > 0 && x + size.width() > width) {
            x = 0;
            y += height + kSpacing;
        }
        if (move)
            place.button->setGeometry(QRect({x, y}, size));
        x += size.width();
        height = size.height();
    }
    return y + height;
}

void CommandBar::resizeEvent(QResizeEvent*) {
    arrange(width(), true);
}

bool CommandBar::event(QEvent* event) {
    // A button was shown, hidden or changed its caption.
    if (event->type() == QEvent::LayoutRequest) {
        updateGeometry();
        arrange(width(), true);
    }
    return QWidget::event(event);
}

} // namespace hotel
