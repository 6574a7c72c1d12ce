#include "app/screens.h"

#include "record/literals.h"
#include "screen/open_screen.h"
#include "shell/main_menu.h"

namespace hotel {

namespace {

// What the main menu offers already and the house does not have yet. A screen that comes is taken off
// this list and registered below.
constexpr QStringView kScreensToCome[] = {
    u"RzjdFrm",  u"Zkcx",     u"KrhfFrm", u"PicCap",  u"Ftxxfrm",  u"frmWX", u"frmShw",
    u"frmTimer", u"Jzhfrm",   u"FyxxFrm", u"YstjFrm", u"JztfFrm",  u"Yecy",  u"YybbFrm",
    u"Userfrm",  u"RoomSet",  u"PicView", u"Czjl",    u"GzjhFrm",  u"frmYD", u"Pmxs",
    u"ShopSet",  u"khxxmain", u"frmYsk",  u"QdjzFrm", u"Accntfrm", u"Kdjf",  u"HdfjFrm",
    u"Wffj",     u"frmBm",    u"FrmYgxx", u"FrmKq",   u"frmCheck", u"FrmTj", u"frmCx",
    u"FlmcFrm",  u"ParaFrm",  u"QVRView", u"Xtwh",    u"PrtForm",  u"Gys",   u"Gyxx",
    u"QfyjFrm",  u"QfdxFrm",  u"PlDyxf",  u"SetPass",
};

bool IsToCome(QStringView screen) {
    return std::ranges::find(kScreensToCome, screen) != std::end(kScreensToCome);
}

} // namespace

void RegisterScreens() {
    SetEntryOpener([](QStringView screen) {
        if (IsToCome(screen))
            return false;
        OpenScreen(screen);
        return true;
    });
}

QStringList ScreensToCome() {
    QStringList names;
    for (QStringView name : kScreensToCome)
        names.append(name.toString());
    return names;
}

} // namespace hotel
