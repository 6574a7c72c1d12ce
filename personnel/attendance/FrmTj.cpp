#include "personnel/attendance/FrmTj.h"

#include <QTabWidget>
#include <QVBoxLayout>

#include "personnel/attendance/day_records.h"
#include "personnel/attendance/period_fields.h"
#include "personnel/attendance/staff_walk.h"
#include "personnel/staff/employee_records.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "session/operation_log.h"
#include "tools/charts/ChartPane.h"
#include "tools/lists/list_export.h"
#include "tools/lists/list_print.h"

namespace hotel {

namespace {

// What differs between the two lists, in the order of their tabs.
struct ListWords {
    QStringView caption;
    QStringView title;  // of the list as a file
    QStringView table;  // printed above it
    QStringView logged; // when it is printed
};
constexpr ListWords kLists[] = {
    {u"员工统计", u"员工考勤统计信息清单", u"员工考勤统计表", u"打印员工考勤统计结果"},
    {u"班次统计", u"员工班次统计信息清单", u"员工班次统计表", u"打印员工班次统计结果"}};

// Columns of a list of figures as the series of a chart; what is no whole number is cut.
Chart ChartOf(const QString& title, ChartKind kind, const TextTable& list,
              const QStringList& columns, int labelCut = 0) {
    Chart chart{title, kind};
    for (int row = 1; row < list.rows(); ++row)
        chart.labels.append(list.text(row, 0).sliced(labelCut));
    for (const QString& column : columns) {
        ChartSeries series{column, {}};
        for (int row = 1; row < list.rows(); ++row)
            series.values.append(qint64(LeadingNumber(list.text(row, column))));
        chart.series.append(series);
    }
    chart.unit = u"次"_s;
    return chart;
}

void AlignNumbers(GridView& grid, int firstColumn, int lastColumn) {
    for (int column = firstColumn; column <= lastColumn; ++column)
        grid.setColumnAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
}

} // namespace

FrmTj::FrmTj()
    : Screen(u"FrmTj"_s, u"考勤统计"_s),
      period_(new FieldForm(PeriodFields({{u"部门", u"ComBm", u"部门", Editor::Category}}), 3)),
      Tabs(new QTabWidget), KqtjQd(new GridView(u"KqtjQd"_s)), BctjQd(new GridView(u"BctjQd"_s)),
      byDay_(new ChartPane), byDepartment_(new ChartPane) {
    byDay_->setObjectName(u"byDay"_s);
    byDepartment_->setObjectName(u"byDepartment"_s);
    Tabs->setObjectName(u"Tabs"_s);
    for (GridView* list : {KqtjQd, BctjQd}) {
        list->setSortable(true);
        list->setTotalRows(1);
        Tabs->addTab(list, kLists[Tabs->count()].caption.toString());
    }
    auto* charts = new QWidget;
    auto* chartLayout = new QVBoxLayout(charts);
    for (ChartPane* chart : {byDay_, byDepartment_})
        chartLayout->addWidget(chart, 1);
    Tabs->addTab(charts, u"图表"_s);
    auto* content = new QVBoxLayout;
    content->addWidget(period_, 0, Qt::AlignLeft);
    content->addWidget(Tabs, 1);
    setContent(content);
    addCommands({
        {u"CmdTj"_s, u"开始统计"_s, [this] { CmdTj_Click(); }, Qt::Key_F5, CommandKind::Default},
        {u"CmdStop"_s, u"停止"_s, [this] { requestStop(); }, {}, CommandKind::Stop},
        {u"CmdPrint"_s, u"打印"_s, [this] { CmdPrint_Click(); }, Qt::Key_F9, CommandKind::Plain,
         u"list"_s},
        {u"CmdFile"_s, u"存为文件"_s, [this] { CmdFile_Click(); }, Qt::Key_F10, CommandKind::Plain,
         u"list"_s},
        {u"CmdBb"_s, u"定期报表"_s, [] { OpenScreen(u"FrmKqCount"); }, Qt::Key_F6,
         CommandKind::Plain, u"list"_s},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
    resize(1240, 780);
}

void FrmTj::load(const QVariant&) {
    ProposeThisMonth(*period_);
    period_->setChoices(u"ComBm", QStringList{kAllDepartments.toString()} + StaffDepartments());
    period_->setText(u"ComBm", kAllDepartments.toString());
    period_->editor(u"KsDate")->setFocus();
}

void FrmTj::CmdTj_Click() {
    const auto period = PeriodOf(*period_);
    if (!period)
        return;
    const PeriodStatistics result =
        SumPeriod(period->first, period->second, period_->text(u"ComBm"),
                  [this](const QString& file, int done, int total) {
                      lastFile_ = file;
                      progress(done, total, u"文件:"_s + file);
                      return stillOpen();
                  });
    showResult(result);
    if (result.finished)
        setStatus(u"文件:"_s + lastFile_ + u",共有:"_s + QString::number(result.persons) +
                  UnreadDays(result.unread));
    else
        setStatus(u"尚未完成统计，中途停止！"_s);
}

void FrmTj::showResult(const PeriodStatistics& result) {
    KqtjQd->setTable(result.people);
    BctjQd->setTable(result.shifts);
    AlignNumbers(*KqtjQd, 2, result.people.cols() - 2);
    AlignNumbers(*BctjQd, 3, result.shifts.cols() - 1);
    for (GridView* list : {KqtjQd, BctjQd})
        list->autoFit();
    constexpr int kYear = 5; // "2026-"
    byDay_->setChart(ChartOf(u"每天迟到、早退、缺勤"_s, ChartKind::Lines, result.days,
                             {u"迟到次数"_s, u"早退次数"_s, u"缺勤次数"_s}, kYear));
    byDepartment_->setChart(ChartOf(u"各部门出勤与缺勤"_s, ChartKind::StackedBars,
                                    result.departments, {u"出勤次数"_s, u"缺勤次数"_s}));
}

// The charts belong to the list of the people, and go behind it on paper.
bool FrmTj::showsShifts() const {
    return Tabs->currentWidget() == BctjQd;
}

void FrmTj::CmdPrint_Click() {
    const GridView& list = showsShifts() ? *BctjQd : *KqtjQd;
    const ListWords& words = kLists[showsShifts()];
    if (list.table().dataRows() == 0)
        return MsgBox(u"没有可以打印的内容!"_s, u"请注意"_s);
    PrintWide(list, words.table.toString(),
              showsShifts() ? QList<Chart>() : QList{byDay_->chart(), byDepartment_->chart()});
    SaveLogRec(words.logged.toString(), period_->text(u"KsDate") + u'-' + period_->text(u"JsDate"));
}

void FrmTj::CmdFile_Click() {
    const GridView& list = showsShifts() ? *BctjQd : *KqtjQd;
    SaveGridToText(list.table(), kLists[showsShifts()].title.toString());
}

} // namespace hotel
