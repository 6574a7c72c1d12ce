#include <QLineEdit>
#include <QTabWidget>

#include "app/tour/tour.h"
#include "personnel/attendance/staff_walk.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "screen/grid_view.h"
#include "screen/open_screen.h"
#include "shell/mainfrm.h"

namespace hotel {

namespace {

constexpr int kInTheQueue = 8;

GridView& ListOf(Screen& screen, const char* name) {
    return *screen.findChild<GridView*>(QString::fromLatin1(name));
}

// So many of the staff, from every department some.
QStringList Numbers(int count) {
    QStringList numbers;
    EachDepartment([&](const QString&, QStringView employees) {
        int taken = 0;
        EachEmployee(employees, [&](const QString& number, QStringView) {
            if (numbers.size() < count && ++taken <= 2)
                numbers.append(number);
        });
    });
    return numbers;
}

void Punch(Tour& tour, Screen& desk, const QString& entered) {
    tour.type(desk, u"ComBh"_s, entered);
    tour.key(desk, Qt::Key_Return);
}

// A date in place of the one that is proposed.
void TypeDate(Tour& tour, Screen& screen, const QString& field, QDate date) {
    auto* editor = screen.findChild<QLineEdit*>(field);
    editor->setFocus();
    editor->selectAll();
    tour.type(screen, field, date.toString(u"yyyy-MM-dd"));
}

// The staff comes in: a number, Enter, the next.
void TheMorningQueue(Tour& tour) {
    tour.logIn(u"KAOQIN"_s, u"135790"_s);
    tour.press(tour.mainWindow(), u"Rsgl_cmd"_s);
    tour.press(tour.mainWindow(), u"Kq_cmd"_s);
    Screen& desk = tour.opened(u"FrmKq"_s);
    tour.picture(desk, u"考勤-等待"_s);
    const auto& list = ListOf(desk, "Kqqd").table();
    const int before = list.dataRows();
    const QStringList numbers = Numbers(kInTheQueue);
    tour.expect(numbers.size() == kInTheQueue, u"没有员工"_s);
    for (const QString& number : numbers)
        Punch(tour, desk, number);
    tour.expect(list.dataRows() == before + kInTheQueue, u"没有全部登记"_s);
    tour.picture(desk, u"考勤-登记"_s);
    tour.messages().clear();
    Punch(tour, desk, u"no-such-card"_s);
    tour.expect(tour.messages().last() == u"员工姓名没有确定", u"陌生的卡被登记"_s);
    tour.picture(desk, u"考勤-失败"_s);
    tour.messages().answerNext(u"yes"_s);
    desk.close();
    tour.leave();
}

void AnalyseYesterday(Tour& tour) {
    tour.press(tour.mainWindow(), u"Kqxd_cmd"_s);
    Screen& check = tour.opened(u"frmCheck"_s);
    TypeDate(tour, check, u"ChkDate"_s, Clock::Today().addDays(-1));
    tour.key(check, Qt::Key_Return);
    tour.expect(ListOf(check, "Kqqd").table().dataRows() > kInTheQueue, u"昨天没有考勤记录"_s);
    tour.picture(check, u"考勤修订-纪录"_s);
    auto* tabs = check.findChild<QTabWidget*>(u"Tabs"_s);
    const auto& absences = ListOf(check, "KqqqQd").table();
    tour.press(check, u"AutoChk"_s);
    for (int twice = 0; twice < 2; ++twice) { // in case that shifts are adjusted
        tour.messages().answerNext(u"yes"_s);
        tour.press(check, u"MakeQq"_s);
    }
    tour.expect(absences.dataRows() > 0, u"没有缺勤"_s);
    tabs->setCurrentIndex(1);
    tour.picture(check, u"考勤修订-缺勤"_s);
    tour.press(check, u"FreshTj"_s);
    tour.picture(check, u"考勤修订-统计"_s);
    tour.messages().answerNext(u"yes"_s);
    tour.press(check, u"SaveTj"_s);
    tabs->setCurrentIndex(3);
    tour.picture(check, u"考勤修订-班次"_s);
    tabs->setCurrentIndex(4);
    tour.picture(check, u"考勤修订-设定"_s);
    check.close();
}

void SumTheMonth(Tour& tour) {
    tour.press(tour.mainWindow(), u"Kqtj_cmd"_s);
    Screen& sums = tour.opened(u"FrmTj"_s);
    TypeDate(tour, sums, u"KsDate"_s, Clock::Today().addDays(-30));
    tour.press(sums, u"CmdTj"_s);
    tour.expect(ListOf(sums, "KqtjQd").table().dataRows() > kInTheQueue, u"没有统计"_s);
    tour.picture(sums, u"考勤统计-员工"_s);
    auto* tabs = sums.findChild<QTabWidget*>(u"Tabs"_s);
    tabs->setCurrentIndex(1);
    tour.picture(sums, u"考勤统计-班次"_s);
    tabs->setCurrentIndex(2);
    tour.picture(sums, u"考勤统计-图表"_s);
    tour.press(sums, u"CmdPrint"_s);
    Screen& preview = tour.opened(u"PrtPrev"_s);
    tour.picture(preview, u"预览-员工考勤统计表"_s);
    tour.printToPdf(preview, u"员工考勤统计表"_s);
    preview.close();

    tour.press(sums, u"CmdBb"_s);
    Screen& report = tour.opened(u"FrmKqCount"_s);
    TypeDate(tour, report, u"KsDate"_s, Clock::Today().addDays(-7));
    tour.press(report, u"CmdAddTj"_s);
    tour.press(report, u"CmdShcount"_s);
    tour.picture(report, u"考勤报表-上班登记"_s);
    tour.press(report, u"CmdBbCount"_s);
    tour.expect(ListOf(report, "BbQd").table().dataRows() > kInTheQueue, u"报表没有内容"_s);
    tour.picture(report, u"考勤报表-定期报表"_s);
    report.close();
    sums.close();
}

void SearchPunches(Tour& tour) {
    tour.press(tour.mainWindow(), u"Kqcx_cmd"_s);
    Screen& search = tour.opened(u"frmCx"_s);
    TypeDate(tour, search, u"KsDate"_s, Clock::Today().addDays(-7));
    tour.answering(u"CmnQuery"_s, [&tour](Screen& query) {
        tour.type(query, u"BxTj"_s, u"迟到"_s);
        tour.waitFor([&query] { return query.command(u"Search_cmd")->isEnabled(); }, u"不能查询"_s);
        tour.press(query, u"Search_cmd"_s);
    });
    tour.press(search, u"Scancmd"_s);
    tour.picture(search, u"考勤查询"_s);
    search.close();
}

} // namespace

// The staff punches in, the personnel department works off the day before, sums the month and looks for the late.
void TourOfAttendance(Tour& tour) {
    TheMorningQueue(tour);
    tour.logIn(u"RENSHI"_s, u"123456"_s);
    tour.press(tour.mainWindow(), u"Rsgl_cmd"_s);
    AnalyseYesterday(tour);
    SumTheMonth(tour);
    SearchPunches(tour);
    tour.leave();
}

} // namespace hotel
