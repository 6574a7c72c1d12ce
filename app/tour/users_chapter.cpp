#include <QListWidget>

#include "app/tour/tour.h"
#include "link/Wck_comm.h"
#include "record/literals.h"
#include "screen/check_list.h"
#include "screen/grid_view.h"
#include "screen/open_screen.h"
#include "shell/mainfrm.h"

namespace hotel {

namespace {

// Ticks by key, as one does who goes down the list.
void Tick(Tour& tour, Screen& users, const QString& right) {
    auto* list = users.findChild<CheckList*>(u"PrivList"_s);
    const auto entry = list->findItems(right, Qt::MatchExactly);
    tour.expect(!entry.isEmpty(), u"没有权限 "_s + right);
    list->setFocus();
    list->setCurrentItem(entry.first());
    tour.key(users, Qt::Key_Space);
}

// A new receptionist is entered, with the rights of the desk.
void MakeAUser(Tour& tour) {
    tour.logIn(u"JINGLI"_s, u"666666"_s);
    tour.press(tour.mainWindow(), u"Jlbg_cmd"_s);
    tour.press(tour.mainWindow(), u"Yhgl_cmd"_s);
    Screen& users = tour.opened(u"Userfrm"_s);
    tour.type(users, u"UserID"_s, u"zhouli"_s);
    tour.type(users, u"UserName"_s, u"周丽"_s);
    tour.type(users, u"UserDept"_s, u"前厅部"_s);
    tour.type(users, u"Password"_s, u"zl1"_s);
    for (const QString& right :
         {u"密码设定"_s, u"前台接待"_s, u" 入住接待"_s, u" 客人换房"_s, u" 前台监控"_s})
        Tick(tour, users, right);
    tour.picture(users, u"用户管理-新用户"_s);
    tour.press(users, u"CmdAdd"_s);
    tour.press(users, u"CmdFile"_s);
    tour.expect(tour.messages().last() == u"用户信息清单已经保存成功！", u"用户没有保存"_s);
    tour.picture(users, u"用户管理"_s);
    users.close();
    tour.leave();
}

void ChangeTheOwnPassword(Tour& tour) {
    tour.start();
    tour.type(tour.login(), u"usercmb"_s, u"zhouli"_s);
    tour.press(tour.login(), u"SetPassCmd"_s);
    Screen& change = tour.opened(u"SetPass"_s);
    tour.type(change, u"OldPass"_s, u"zl1"_s);
    tour.type(change, u"NewPass"_s, u"Zhou2026"_s);
    tour.type(change, u"ReTypePass"_s, u"Zhou2026"_s);
    tour.picture(change, u"修改密码"_s);
    tour.press(change, u"Image1"_s);
    tour.expect(tour.messages().last() == u"密码成功修改！", u"密码没有修改"_s);
}

// The server goes away and comes back: the login is lost, the open window isn't.
void LogInAgain(Tour& tour) {
    tour.logIn(u"ZHOULI"_s, u"Zhou2026"_s);
    tour.press(tour.mainWindow(), u"Qtjd_cmd"_s);
    tour.picture(tour.mainWindow(), u"主窗口-新用户"_s);
    Link().ConnectServer(Link().IPaddr, Link().Port);
    tour.waitFor([] { return Link().isUp(); }, u"连接没有恢复"_s);
    tour.picture(tour.mainWindow(), u"登录已失效"_s);
    tour.answering(u"ReloginFrm"_s, [&tour](Screen& again) {
        tour.type(again, u"Password"_s, u"Zhou2026"_s);
        tour.picture(again, u"重新登录"_s);
        tour.press(again, u"Logincmd"_s);
    });
    tour.press(tour.mainWindow(), u"Relogin_cmd"_s);
    tour.expect(!tour.mainWindow().findChild<QWidget*>(u"Relogin_cmd"_s)->isEnabled(),
                u"没有重新登录"_s);
    tour.leave();
}

} // namespace

void TourOfUsers(Tour& tour) {
    MakeAUser(tour);
    ChangeTheOwnPassword(tour);
    LogInAgain(tour);
}

} // namespace hotel
