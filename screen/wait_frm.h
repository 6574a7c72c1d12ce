#pragma once

// The box of the timed messages (TimedMessage in screen/messages.h). It comes up over the screens
// without taking the focus from what is being typed, goes by itself or with a click, and is
// destroyed with that.

#include <QFrame>

class QLabel;
class QTimer;

namespace hotel {

class WaitFrm : public QFrame {
    Q_OBJECT

public:
    WaitFrm();

    // Shows title and words for so long. A box that is up already takes the new words and time.
    void showFor(const QString& words, const QString& title, int milliseconds);

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    QLabel* title_;
    QLabel* words_;
    QTimer* timer_;
};

} // namespace hotel
