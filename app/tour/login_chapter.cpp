#include <QCheckBox>
#include <QPushButton>

#include "app/tour/tour.h"
#include "record/literals.h"
#include "shell/main_menu.h"
#include "shell/mainfrm.h"

namespace hotel {

namespace {

struct Role {
    QString user;
    QString password;
    QString group; // button of the group to open; empty: a user without rights
};

void ShowDebugWindow(Tour& tour) {
    LinkWindow& window = tour.linkWindow();
    window.show();
    window.findChild<QCheckBox*>(u"TraceChk"_s)->setChecked(true);
    tour.press(tour.mainWindow(), u"Rsgl_cmd"_s);
    tour.press(tour.mainWindow(), u"Bmsd_cmd"_s); // writes the operation log
    tour.picture(window, u"数据库连接"_s);
    window.close();
}

} // namespace

// Every role logs in and sees the groups and entries of its rights.
void TourOfLogin(Tour& tour) {
    tour.start();
    tour.picture(tour.login(), u"登录"_s);
    tour.type(tour.login(), u"usercmb"_s, u"qiantai"_s);
    tour.type(tour.login(), u"Password"_s, u"wrong"_s);
    tour.press(tour.login(), u"Logincmd"_s);
    tour.expect(tour.messages().last().startsWith(u"用户名与密码不匹配！"),
                u"错误的密码没有被拒绝"_s);

    const Role roles[] = {
        {u"QIANTAI"_s, u"111111"_s, u"Qtjd_cmd"_s},
        {u"KEFANG"_s, u"333333"_s, u"Kfzx_cmd"_s},
        {u"SHOUYIN"_s, u"444444"_s, u"Syjs_cmd"_s},
        {u"JINGLI"_s, u"666666"_s, u"Jlbg_cmd"_s},
        {u"XIAOSHOU"_s, u"777777"_s, u"Xsyd_cmd"_s},
        {u"ZONGJI"_s, u"888888"_s, u"SwCy_cmd"_s},
        {u"RENSHI"_s, u"123456"_s, u"Rsgl_cmd"_s},
        {u"ADMIN"_s, u"admin888"_s, u"Xtgl_cmd"_s},
        {u"BENJI"_s, u"654321"_s, u"Zlxx_cmd"_s},
        {u"CHAXUN"_s, {}, u"Qtjd_cmd"_s},
        {u"SHIXI"_s, u"000000"_s, {}},
    };
    for (const Role& role : roles) {
        tour.logIn(role.user, role.password);
        tour.picture(tour.mainWindow(), u"主窗口-"_s + role.user);
        if (!role.group.isEmpty()) {
            tour.press(tour.mainWindow(), role.group);
            tour.picture(tour.mainWindow(), u"功能组-"_s + role.user);
        }
        tour.leave();
    }
    tour.logIn(u"ADMIN"_s, u"admin888"_s);
    ShowDebugWindow(tour);
    tour.leave();
}

} // namespace hotel
