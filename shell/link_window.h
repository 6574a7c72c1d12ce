#pragma once

// The window of the link: its settings and state, the traffic and the log list. Shown from the start
// in debug mode; otherwise only while a command waits for a connection, with the button that ends the
// wait.

#include "screen/screen.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QTimer;

namespace hotel {

class Wck_comm;

class LinkWindow : public Screen {
    Q_OBJECT

public:
    // `link` outlives the window. In debug mode the window shows at once and stays.
    LinkWindow(Wck_comm& link, bool debugMode);

protected:
    bool closing() override;

private:
    QWidget* makeSettings();
    void showState();
    void showTrace();
    void showLog();
    void linkScreenWanted();
    void linkScreenDone();

    Wck_comm& link_;
    bool debugMode_;
    QTimer* showSoon_;
    QLineEdit* state_ = nullptr;
    QLineEdit* IPaddr_ = nullptr;
    QLineEdit* Port_ = nullptr;
    QLineEdit* localIP_ = nullptr;
    QLineEdit* HardMacNo_ = nullptr;
    QLineEdit* UserName_ = nullptr;
    QLineEdit* AliveGap_ = nullptr;
    QCheckBox* AliveKp_ = nullptr;
    QCheckBox* TraceChk_ = nullptr;
    QPlainTextEdit* Send_;
    QPlainTextEdit* Recv_;
    QListWidget* stat_;
    QLabel* lastLine_;
};

} // namespace hotel
