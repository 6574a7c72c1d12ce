#pragma once

// The program put together: link, theme, screens, login.

#include <memory>

#include "link/Wck_comm.h"
#include "shell/configuration.h"
#include "shell/link_window.h"
#include "shell/loginfrm.h"

class QApplication;

namespace hotel {

class Workstation {
public:
    // Reads the configuration that the command line names.
    explicit Workstation(QApplication& application);
    ~Workstation();

    // Shows the login screen and connects to the server.
    void start();

    Wck_comm& link() { return link_; }
    loginfrm& login() { return *login_; }
    LinkWindow& linkWindow() { return *linkWindow_; }

private:
    Wck_comm link_;
    Configuration configuration_;
    std::unique_ptr<LinkWindow> linkWindow_;
    std::unique_ptr<loginfrm> login_;
};

} // namespace hotel
