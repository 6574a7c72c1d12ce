#include "shell/relogin.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QTimer>

#include "link/Wck_comm.h"
#include "record/literals.h"
#include "screen/open_screen.h"
#include "screen/screen.h"
#include "shell/ReloginFrm.h"

namespace hotel {

namespace {

constexpr int kNoticeMargin = 6;

constexpr QLatin1StringView kNoticeStyle(
    "background: #b3261e; color: white; border: none; border-radius: 4px; padding: 5px 12px;");

QPushButton* MakeNotice() {
    auto* notice = new QPushButton(u"登录已失效，请重新登录（Ctrl+L）"_s);
    notice->setObjectName(u"reloginNotice"_s);
    notice->setFocusPolicy(Qt::NoFocus);
    notice->setStyleSheet(kNoticeStyle);
    return notice;
}

} // namespace

Relogin::Relogin(QWidget& home) : home_(home) {
    connect(&Link(), &Wck_comm::loginLost, this, [this] { setWanted(true); });
    // By a desk that logs itself in. While the password is asked here, the session isn't read yet.
    connect(&Link(), &Wck_comm::loggedIn, this, [this] {
        if (!asking_)
            setWanted(false);
    });
}

void Relogin::setWanted(bool wanted) {
    if (wanted_ == wanted)
        return;
    wanted_ = wanted;
    if (wanted) {
        qApp->installEventFilter(this);
        showNotice(QApplication::activeWindow());
    } else {
        qApp->removeEventFilter(this);
        if (notice_) {
            notice_->hide();
            notice_->deleteLater(); // it may have been pressed
            notice_.clear();
        }
    }
    Q_EMIT changed();
}

void Relogin::ask() {
    if (asking_ || !wanted_)
        return;
    if (QWidget* list = QApplication::activePopupWidget())
        list->close();
    QWidget* active = QApplication::activeWindow();
    const QPointer<Relogin> self(this); // the program may end below the question
    asking_ = true;
    const bool loggedIn = ModalScreen<ReloginFrm>(active ? active : &home_).show();
    if (!self)
        return;
    asking_ = false;
    if (loggedIn)
        setWanted(Link().UserName.isEmpty()); // lost again meanwhile
}

// Message boxes come and go, and their words fill them.
void Relogin::showNotice(QWidget* window) {
    if (!qobject_cast<Screen*>(window) || qobject_cast<ReloginFrm*>(window))
        return;
    if (!notice_) {
        notice_ = MakeNotice();
        connect(notice_, &QPushButton::clicked, this, &Relogin::ask, Qt::QueuedConnection);
    }
    notice_->setParent(window);
    placeNotice();
    notice_->show();
    notice_->raise();
}

void Relogin::placeNotice() {
    notice_->adjustSize();
    const QWidget* window = notice_->parentWidget();
    notice_->move(window->width() - notice_->width() - kNoticeMargin,
                  window->height() - notice_->height() - kNoticeMargin);
}

// The key works over modal forms, where a shortcut of the main window would not.
bool Relogin::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent*>(event)->keyCombination() == kReloginKey && !asking_) {
            QTimer::singleShot(0, this, &Relogin::ask);
            return true;
        }
        break;
    case QEvent::WindowActivate:
        if (watched->isWidgetType())
            showNotice(static_cast<QWidget*>(watched));
        break;
    case QEvent::Resize:
        if (notice_ && watched == notice_->parentWidget())
            placeNotice();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace hotel
