#pragma once

// The program put together: link, theme, screens, login.

#include <QPointer>

#include "link/Wck_comm.h"
#include "shell/configuration.h"
#include "shell/link_window.h"
#include "shell/loginfrm.h"

class QApplication;

namespace hotel {

class Workstation {
public:
    // `configuration` is the path of the configuration file; it need not exist.
    Workstation(QApplication& application, const QString& configuration);
    ~Workstation();

    // Shows the login screen and connects to the server.
    void start();

    Wck_comm& link() { return link_; }
    loginfrm& login() { return *login_; }
    LinkWindow& linkWindow() { return *linkWindow_; }

private:
    Wck_comm link_;
    Configuration configuration_;
    // Closed screens destroy themselves: what still stands ends with the program.
    QPointer<LinkWindow> linkWindow_;
    QPointer<loginfrm> login_;
};

} // namespace hotel
