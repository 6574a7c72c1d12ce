#include "app/workstation.h"

#include <QApplication>

#include "app/screens.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "screen/theme.h"

namespace hotel {

Workstation::Workstation(QApplication& application)
    : configuration_(ReadConfiguration(ConfigurationPath(
          QCoreApplication::arguments(), QCoreApplication::applicationDirPath()))) {
    application.setQuitOnLastWindowClosed(false);
    ApplyTheme(application);
    SetLink(&link_);
    link_.setMessage([](const QString& words, const QString& title) { MsgBox(words, title); });
    link_.Load();
    RegisterScreens();
    linkWindow_ = std::make_unique<LinkWindow>(link_, configuration_.debugMode);
    login_ = std::make_unique<loginfrm>(configuration_);
}

Workstation::~Workstation() {
    CloseAllScreens();
}

void Workstation::start() {
    login_->show();
    login_->Load();
}

} // namespace hotel
