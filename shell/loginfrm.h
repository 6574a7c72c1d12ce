#pragma once

// The login screen. It stays loaded and hidden while the main window is open; leaving the main window
// ends the program through it.

#include <QPointer>

#include "screen/screen.h"
#include "shell/configuration.h"

class QComboBox;
class QLineEdit;
class QTimer;

namespace hotel {

class mainfrm;

class loginfrm : public Screen {
    Q_OBJECT

public:
    explicit loginfrm(const Configuration& configuration);

    // Connects the link to the configured server and begins to fill the user list. Returns after at
    // most three seconds, whether the server answers or not.
    void Load();

    // The main window of the user who has logged in, or null.
    mainfrm* mainWindow() const;

    // Ends the program: the operation log, then the event loop. Also runs when the screen is closed.
    void cancelcmd_Click();

protected:
    bool closing() override;

private:
    void usercmb_GotFocus();
    void Logincmd_Click();
    void SetPassCmd_Click();
    void Timer1_Timer();

    void refuse(const QString& words);
    void openMainWindow();
    void showLinkState();
    bool eventFilter(QObject* watched, QEvent* event) override;

    Configuration configuration_;
    QComboBox* usercmb_;
    QLineEdit* password_;
    QTimer* timer1_ = nullptr;
    QPointer<mainfrm> main_;
    bool ended_ = false;
};

} // namespace hotel
