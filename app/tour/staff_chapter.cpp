#include <QLineEdit>
#include <QTabWidget>

#include "app/tour/tour.h"
#include "personnel/staff/employee_fields.h"
#include "record/literals.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/open_screen.h"
#include "shell/mainfrm.h"

namespace hotel {

namespace {

void Answer(Tour& tour, const QStringList& answers) {
    for (const QString& answer : answers)
        tour.messages().answerNext(answer);
}

void AddShift(Tour& tour, Screen& card, const QString& name, const QString& start,
              const QString& end, const QString& week) {
    card.findChild<QLineEdit*>(u"SdXqsd"_s)->clear();
    tour.choose(card, u"SdBcmc"_s, name);
    tour.type(card, u"SdKssj"_s, start);
    tour.type(card, u"SdJssj"_s, end);
    tour.type(card, u"SdXqsd"_s, week);
    tour.press(card, u"TjSd"_s);
}

void Hire(Tour& tour, Screen& list) {
    Answer(tour, {u"卡片"_s});
    tour.press(list, u"CmdAdd"_s);
    Screen& card = tour.opened(u"frmManRecord"_s);
    tour.type(card, u"Xm"_s, u"叶思远"_s);
    tour.choose(card, u"YgBm"_s, u"前厅部"_s);
    tour.type(card, u"Sfzh"_s, u"110101199803070019"_s);
    tour.choose(card, u"Zw"_s, u"前台接待员"_s);
    tour.choose(card, u"Zt"_s, u"试用期"_s);
    tour.type(card, u"Lxdh"_s, u"13800001234"_s);
    tour.picture(card, u"员工卡片-新员工"_s);
    Answer(tour, {u"88015566"_s, u"88015566"_s});
    tour.press(card, u"CmdKaH"_s);
    tour.expect(tour.messages().last() == u"该员工可以使用这张磁卡考勤了！", u"没有考勤卡"_s);

    auto* pages = card.findChild<QTabWidget*>(u"Pages"_s);
    pages->setCurrentIndex(int(FieldsPages().size()));
    AddShift(tour, card, u"早班"_s, u"7"_s, u"15:30"_s, u"1111100"_s);
    AddShift(tour, card, u"夜班"_s, u"23"_s, u"7"_s, u"0000011"_s);
    Answer(tour, {u"yes"_s}); // the status is to be noted
    tour.press(card, u"CmdSave"_s);
    tour.picture(card, u"员工卡片-考勤时段"_s);
    pages->setCurrentIndex(0);
    tour.picture(card, u"员工卡片-基本情况"_s);
    tour.press(card, u"CmdPrint"_s);
    Screen& preview = tour.opened(u"PrtPrev"_s);
    tour.picture(preview, u"预览-员工信息"_s);
    tour.printToPdf(preview, u"员工信息"_s);
    preview.close();
    tour.press(card, u"CmdBarCode"_s);
    Screen& bars = tour.opened(u"PrtPrev"_s);
    tour.picture(bars, u"预览-条码卡"_s);
    bars.close();
    card.close();
}

void Transfer(Tour& tour, Screen& list) {
    tour.press(list, u"CmdModify"_s);
    Screen& card = tour.opened(u"frmManRecord"_s);
    tour.choose(card, u"YgBm"_s, u"销售部"_s);
    Answer(tour, {u"yes"_s});
    tour.press(card, u"CmdSave"_s);
    card.findChild<QTabWidget*>(u"Pages"_s)->setCurrentIndex(int(FieldsPages().size()) + 1);
    tour.picture(card, u"员工卡片-调动"_s);
    card.close();
}

} // namespace

// Personnel hires somebody, gives him a card and shifts, moves him to another department, and lets him go.
void TourOfStaff(Tour& tour) {
    tour.logIn(u"RENSHI"_s, u"123456"_s);
    tour.press(tour.mainWindow(), u"Rsgl_cmd"_s);
    tour.press(tour.mainWindow(), u"Bmsd_cmd"_s);
    Screen& departments = tour.opened(u"frmBm"_s);
    tour.type(departments, u"Bmmc"_s, u"会议中心"_s);
    tour.key(departments, Qt::Key_Return);
    tour.expect(tour.messages().last() == u"成功增加部门：会议中心", u"没有增加部门"_s);
    tour.picture(departments, u"部门设定"_s);
    departments.close();

    tour.press(tour.mainWindow(), u"Ygxx_cmd"_s);
    Screen& list = tour.opened(u"FrmYgxx"_s);
    tour.picture(list, u"员工信息"_s);
    Hire(tour, list);
    tour.type(list, u"Search"_s, u"ysy"_s);
    tour.key(list, Qt::Key_Return);
    auto* staff = list.findChild<GridView*>(u"YgQd"_s);
    tour.expect(staff->table().text(staff->currentRow(), u"姓名") == u"叶思远",
                u"没有找到新员工"_s);
    Transfer(tour, list);
    tour.press(list, u"CmdPrint"_s);
    Screen& preview = tour.opened(u"PrtPrev"_s);
    tour.picture(preview, u"预览-员工花名册"_s);
    tour.printToPdf(preview, u"员工花名册"_s);
    preview.close();
    tour.press(list, u"Tj_cmd"_s);
    Screen& staffing = tour.opened(u"CmnGrd"_s);
    const GridView* counted = staffing.findChild<GridView*>(u"GrdView"_s);
    tour.waitFor([counted] { return counted->table().dataRows() > 0; }, u"编制表是空的"_s);
    tour.picture(staffing, u"员工编制表"_s);
    staffing.close();

    tour.choose(list, u"ComBm"_s, u"销售部"_s);
    list.findChild<QLineEdit*>(u"Search"_s)->clear();
    tour.type(list, u"Search"_s, u"ysy"_s);
    tour.key(list, Qt::Key_Return);
    tour.expect(staff->table().text(staff->currentRow(), u"姓名") == u"叶思远",
                u"调动后没有找到"_s);
    Answer(tour, {u"ok"_s});
    tour.press(list, u"cmdDel"_s);
    tour.expect(tour.messages().last().contains(u"信息删除后成功存入历史纪录库中！"),
                u"员工没有离职"_s);
    tour.picture(list, u"员工信息-离职"_s);
    list.close();
    tour.leave();
}

} // namespace hotel
