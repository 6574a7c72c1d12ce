#pragma once

// What a desk does when its login is lost: the server went away and has come back, or says that nobody is
// logged in here. No login repeats itself (but that of the punching desk, where nobody sits), and no screen closes: a notice stands in the corner of whatever window
// is active, a question or a modal form as well, and Ctrl+L asks for the password there.

#include <QKeySequence>
#include <QObject>
#include <QPointer>

class QPushButton;
class QWidget;

namespace hotel {

inline constexpr QKeyCombination kReloginKey = Qt::CTRL | Qt::Key_L;

class Relogin : public QObject {
    Q_OBJECT

public:
    // Of the link that is current now. `home` is the window for the question when none is active.
    explicit Relogin(QWidget& home);

    // Whether the login is lost.
    bool wanted() const { return wanted_; }

    // Asks for the password until the user is logged in again or cancels, which changes nothing.
    void ask();

Q_SIGNALS:
    // The login was lost, or the user is logged in again.
    void changed();

private:
    void setWanted(bool wanted);
    void showNotice(QWidget* window);
    void placeNotice();
    bool eventFilter(QObject* watched, QEvent* event) override;

    QWidget& home_;
    bool wanted_ = false;
    bool asking_ = false;
    QPointer<QPushButton> notice_; // goes with the window that it stands in
};

} // namespace hotel
