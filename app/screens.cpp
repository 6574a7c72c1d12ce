#include "app/screens.h"

#include <QApplication>
#include <algorithm>

#include "cashier/FyxxFrm.h"
#include "cashier/Jzhfrm.h"
#include "cashier/JzhxxFrm.h"
#include "cashier/JztfFrm.h"
#include "cashier/QdjzFrm.h"
#include "cashier/YstjFrm.h"
#include "cashier/balance_list.h"
#include "cashier/frmYsk.h"
#include "cashier/khxxmain.h"
#include "cashier/reports/YybbFrm.h"
#include "frontoffice/Fjxxfrm.h"
#include "frontoffice/Ftxxfrm.h"
#include "frontoffice/KfxxFrm.h"
#include "frontoffice/KrhfFrm.h"
#include "frontoffice/ParaFrm.h"
#include "frontoffice/RoomSet.h"
#include "frontoffice/RzjdFrm.h"
#include "frontoffice/YdrlFrm.h"
#include "frontoffice/frmWX.h"
#include "frontoffice/frmYD.h"
#include "frontoffice/guest_query.h"
#include "personnel/attendance/FrmKq.h"
#include "personnel/attendance/FrmKqCount.h"
#include "personnel/attendance/FrmTj.h"
#include "personnel/attendance/frmCheck.h"
#include "personnel/attendance/frmCx.h"
#include "personnel/staff/FrmYgxx.h"
#include "personnel/staff/frmBm.h"
#include "personnel/staff/frmManRecord.h"
#include "record/literals.h"
#include "screen/open_screen.h"
#include "shell/SetPass.h"
#include "shell/Userfrm.h"
#include "shell/main_menu.h"
#include "telephone/Accntfrm.h"
#include "telephone/HdfjFrm.h"
#include "tools/lists/FlmcFrm.h"
#include "tools/paper/PrtForm.h"
#include "tools/paper/PrtPrev.h"
#include "tools/queries/operation_log_query.h"

namespace hotel {

namespace {

// What the main menu offers already and the house does not have yet. A screen that comes is taken off
// this list and registered below.
constexpr QStringView kScreensToCome[] = {
    u"PicCap", u"frmShw",  u"frmTimer", u"PicView", u"GzjhFrm", u"Pmxs",    u"ShopSet", u"Kdjf",
    u"Wffj",   u"QVRView", u"Xtwh",     u"Gys",     u"Gyxx",    u"QfyjFrm", u"QfdxFrm", u"PlDyxf",
};

// Entries that ask something first and show a list then, in front of the active window.
struct Inquiry {
    QStringView name;
    void (*open)(QWidget* parent);
};
constexpr Inquiry kInquiries[] = {
    {u"Czjl", OpenOperationLogQuery},
    {u"Yecy", OpenBalanceList},
    {u"Zkcx", OpenGuestQuery},
};

bool IsToCome(QStringView screen) {
    return std::ranges::find(kScreensToCome, screen) != std::end(kScreensToCome);
}

} // namespace

void RegisterScreens() {
    RegisterScreen(u"Accntfrm", [] { return new Accntfrm; });
    RegisterScreen(u"HdfjFrm", [] { return new HdfjFrm; });
    RegisterScreen(u"Fjxxfrm", [] { return new Fjxxfrm; });
    RegisterScreen(u"FlmcFrm", [] { return new FlmcFrm; });
    RegisterScreen(u"Ftxxfrm", [] { return new Ftxxfrm; });
    RegisterScreen(u"FrmKq", [] { return new FrmKq; });
    RegisterScreen(u"FrmKqCount", [] { return new FrmKqCount; });
    RegisterScreen(u"FrmTj", [] { return new FrmTj; });
    RegisterScreen(u"FyxxFrm", [] { return new FyxxFrm; });
    RegisterScreen(u"Jzhfrm", [] { return new Jzhfrm; });
    RegisterScreen(u"JzhxxFrm", [] { return new JzhxxFrm; });
    RegisterScreen(u"JztfFrm", [] { return new JztfFrm; });
    RegisterScreen(u"KfxxFrm", [] { return new KfxxFrm; });
    RegisterScreen(u"frmCheck", [] { return new frmCheck; });
    RegisterScreen(u"frmCx", [] { return new frmCx; });
    RegisterScreen(u"khxxmain", [] { return new khxxmain; });
    RegisterScreen(u"ParaFrm", [] { return new ParaFrm; });
    RegisterScreen(u"PrtForm", [] { return new PrtForm; });
    RegisterScreen(
        u"PrtPrev", [] { return new PrtPrev; }, Instances::Many);
    RegisterScreen(u"QdjzFrm", [] { return new QdjzFrm; });
    RegisterScreen(u"RoomSet", [] { return new RoomSet; });
    RegisterScreen(u"frmWX", [] { return new frmWX; });
    RegisterScreen(u"frmYD", [] { return new frmYD; });
    RegisterScreen(u"frmYsk", [] { return new frmYsk; });
    RegisterScreen(u"KrhfFrm", [] { return new KrhfFrm; });
    RegisterScreen(u"RzjdFrm", [] { return new RzjdFrm; });
    RegisterScreen(u"SetPass", [] { return new SetPass; });
    RegisterScreen(u"Userfrm", [] { return new Userfrm; });
    RegisterScreen(u"YdrlFrm", [] { return new YdrlFrm; });
    RegisterScreen(u"YstjFrm", [] { return new YstjFrm; });
    RegisterScreen(u"frmBm", [] { return new frmBm; });
    RegisterScreen(u"FrmYgxx", [] { return new FrmYgxx; });
    for (const QStringView card : {u"frmManRecord", u"frmYgEdit"})
        RegisterScreen(card, [card] { return new frmManRecord(card.toString()); });
    RegisterScreen(u"YybbFrm", [] { return new YybbFrm; });
    SetEntryOpener([](QStringView screen, const QString& argument) {
        if (IsToCome(screen))
            return false;
        const auto* inquiry = std::ranges::find(kInquiries, screen, &Inquiry::name);
        if (inquiry != std::end(kInquiries))
            inquiry->open(QApplication::activeWindow());
        else
            OpenScreen(screen, argument);
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
