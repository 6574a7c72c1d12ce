#include "screen/wait_frm.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

#include "record/literals.h"

namespace hotel {

WaitFrm::WaitFrm()
    : QFrame(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                          Qt::WindowDoesNotAcceptFocus),
      title_(new QLabel), words_(new QLabel), timer_(new QTimer(this)) {
    setObjectName(u"WaitFrm"_s);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);

    QFont bold = font();
    bold.setBold(true);
    title_->setFont(bold);
    words_->setWordWrap(true);
    words_->setMinimumWidth(360);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 18, 24, 20);
    layout->setSpacing(10);
    layout->addWidget(title_);
    layout->addWidget(words_);

    timer_->setSingleShot(true);
    connect(timer_, &QTimer::timeout, this, &QWidget::close);
}

void WaitFrm::showFor(const QString& words, const QString& title, int milliseconds) {
    setWindowTitle(title);
    title_->setText(title);
    title_->setVisible(!title.isEmpty());
    words_->setText(words);
    timer_->start(milliseconds);

    const QWidget* below = QApplication::activeWindow();
    const QRect around =
        below ? below->frameGeometry() : QGuiApplication::primaryScreen()->availableGeometry();
    adjustSize();
    move(around.center() - rect().center());
    show();
}

void WaitFrm::mousePressEvent(QMouseEvent*) {
    close();
}

} // namespace hotel
