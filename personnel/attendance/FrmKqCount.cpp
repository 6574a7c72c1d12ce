#include "personnel/attendance/FrmKqCount.h"

#include <QTabWidget>
#include <QVBoxLayout>

#include "personnel/attendance/period_fields.h"
#include "record/conditions.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "tools/lists/list_export.h"
#include "tools/lists/list_print.h"

namespace hotel {

namespace {

// The four lists in the order of their tabs; the last one is the report.
struct PageWords {
    QStringView caption;
    QStringView list; // its object name
    QStringView print;
};
constexpr PageWords kPages[] = {{u"上班登记", u"ShQd", u"CmdPrintSh"},
                                {u"下班登记", u"XbQd", u"CmdPrintXb"},
                                {u"缺勤信息", u"QqQd", u"CmdPrintQ"},
                                {u"定期报表", u"BbQd", u"CmdPrinBb"}};
constexpr int kReportPage = 3;
constexpr int kConditionHeight = 140;

QStringList ColumnsOf(int page) {
    return page == kReportPage ? ReportColumns() : QuestionColumns(AttendanceQuestion(page));
}

} // namespace

FrmKqCount::FrmKqCount()
    : Screen(u"FrmKqCount"_s, u"考勤报表"_s),
      condition_(
          new FieldForm(PeriodFields({{u"编号", u"Ygbh", u"员工编号", Editor::Text, {}, 10, 20},
                                      {u"迟到", u"CdTj", u"只查迟到、早退", Editor::Check}}),
                        4)),
      TjQd(new GridView(u"TjQd"_s)), Tabs(new QTabWidget) {
    Tabs->setObjectName(u"Tabs"_s);
    TjQd->table().setHeaders({u"关系"_s, u"对象"_s, u"条件"_s, u"目标"_s});
    TjQd->setFocusPolicy(Qt::ClickFocus);
    TjQd->setFixedHeight(kConditionHeight);
    for (int page = 0; page < int(std::size(kPages)); ++page) {
        auto* list = new GridView(kPages[page].list.toString());
        list->table().setHeaders(ColumnsOf(page));
        list->setSortable(true);
        lists_.append(list);
        auto* tab = new QWidget;
        auto* layout = new QVBoxLayout(tab);
        layout->addWidget(list, 1);
        layout->addWidget(commandPanel({{kPages[page].print.toString(), u"打印"_s,
                                         [this, page] { print(page); }, Qt::Key_F9}}));
        Tabs->addTab(tab, kPages[page].caption.toString());
    }
    auto* content = new QVBoxLayout;
    content->addWidget(condition_, 0, Qt::AlignLeft);
    content->addWidget(TjQd);
    content->addWidget(Tabs, 1);
    setContent(content);
    addCommands({
        {u"CmdAddTj"_s, u"增加条件"_s, [this] { CmdAddTj_Click(); }, Qt::Key_F4,
         CommandKind::Default},
        {u"CmdClear"_s, u"清除条件"_s, [this] { CmdClear_Click(); }},
        {u"CmdShcount"_s, u"上班登记"_s, [this] { count(AttendanceQuestion::Arrivals); },
         Qt::Key_F5, CommandKind::Plain, u"count"_s},
        {u"CmdXbcount"_s, u"下班登记"_s, [this] { count(AttendanceQuestion::Departures); },
         Qt::Key_F6, CommandKind::Plain, u"count"_s},
        {u"CmdQqcount"_s, u"缺勤信息"_s, [this] { count(AttendanceQuestion::Absences); },
         Qt::Key_F7, CommandKind::Plain, u"count"_s},
        {u"CmdBbCount"_s, u"定期报表"_s, [this] { CmdBbCount_Click(); }, Qt::Key_F8,
         CommandKind::Plain, u"count"_s},
        {u"AbortCmd"_s, u"停止"_s, [this] { requestStop(); }, {}, CommandKind::Stop, u"count"_s},
        {u"FileSave"_s, u"存为文件"_s, [this] { FileSave_Click(); }, Qt::Key_F10,
         CommandKind::Plain, u"list"_s},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
    resize(1180, 760);
}

void FrmKqCount::load(const QVariant&) {
    ProposeThisMonth(*condition_);
    condition_->editor(u"KsDate")->setFocus();
}

void FrmKqCount::CmdAddTj_Click() {
    const auto period = PeriodOf(*condition_);
    if (!period)
        return;
    added_ = AttendanceCondition{.first = period->first,
                                 .last = period->second,
                                 .number = TrimWhite(condition_->text(u"Ygbh")),
                                 .onlyIrregular = condition_->text(u"CdTj") == u"1"};
    TjQd->table().clearRows();
    for (const Condition& part :
         ParseConditions(ConditionTextOf(AttendanceQuestion::Arrivals, *added_)))
        TjQd->table().addRow({part.relation, part.object, part.op, part.target});
    TjQd->refresh();
    TjQd->autoFit();
}

void FrmKqCount::CmdClear_Click() {
    added_.reset();
    TjQd->table().clearRows();
    TjQd->refresh();
}

DayProgress FrmKqCount::walk() {
    return [this](const QString&, int done, int total) {
        progress(done, total, u"系统正在检索数据库，请稍候......"_s);
        return stillOpen();
    };
}

void FrmKqCount::count(AttendanceQuestion question) {
    if (!added_)
        return MsgBox(u"请选择查询条件！"_s, u"提示"_s);
    GridView* list = lists_[int(question)];
    Tabs->setCurrentIndex(int(question));
    list->table().clearRows();
    const bool finished = AskAttendance(question, *added_, list->table(), walk());
    list->refresh();
    list->autoFit();
    const int found = list->table().dataRows();
    if (!finished)
        setStatus(u"尚未完成统计，中途停止！"_s);
    else if (found == 0)
        setStatus(u"没有检索到满足条件的记录！请确认统计时间段正确后指定新的条件查询！"_s);
    else
        setStatus(u"共检索到"_s + QString::number(found) + u"条记录！"_s);
}

void FrmKqCount::CmdBbCount_Click() {
    const auto period = PeriodOf(*condition_);
    if (!period)
        return;
    GridView* list = lists_[kReportPage];
    Tabs->setCurrentIndex(kReportPage);
    list->table().clearRows();
    const ReportEnd end = ReportMonths(period->first, period->second, list->table(), walk());
    for (int column = 3; column < list->table().cols(); ++column)
        list->setColumnAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    list->refresh();
    list->autoFit();
    setStatus(u"共 %1 人"_s.arg(list->table().dataRows()) + UnreadDays(end.unread));
    if (end.finished)
        MsgBox(u"本期报表统计结束！"_s, u"提示"_s);
    else
        setStatus(u"尚未完成统计，中途停止！"_s);
}

void FrmKqCount::print(int page) {
    PrintGrid(*lists_[page], kPages[page].caption.toString());
}

void FrmKqCount::FileSave_Click() {
    const int page = Tabs->currentIndex();
    SaveGridToText(lists_[page]->table(), kPages[page].caption.toString());
}

} // namespace hotel
