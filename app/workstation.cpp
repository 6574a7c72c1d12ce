#include "app/workstation.h"

#include <QApplication>

#include "app/screens.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "screen/theme.h"
#include "session/parameters.h"
#include "tools/aids/form_tools.h"

namespace hotel {

Workstation::Workstation(QApplication& application, const QString& configuration)
    : configuration_(ReadConfiguration(configuration)) {
    application.setQuitOnLastWindowClosed(false);
    ApplyTheme(application);
    SetSiteParameters(configuration_.parameters);
    Clock::LetMachineFollow(configuration_.setsMachineClock ? Clock::SetMachineClock : nullptr);
    SetLink(&link_);
    link_.setMessage([](const QString& words, const QString& title) { MsgBox(words, title); });
    link_.Load();
    SetUpForms();
    RegisterScreens();
    linkWindow_ = new LinkWindow(link_, configuration_.debugMode);
    login_ = new loginfrm(configuration_);
}

Workstation::~Workstation() {
    CloseAllScreens();
    delete login_;
    delete linkWindow_;
}

void Workstation::start() {
    login_->show();
    login_->Load();
    if (!configuration_.refused.isEmpty())
        MsgBox(configuration_.refused.join(u'\n'), u"配置文件"_s);
}

} // namespace hotel
