#include "cashier/reports/YybbFrm.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSplitter>
#include <QVBoxLayout>

#include "platform/clock.h"
#include "record/literals.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "screen/theme.h"
#include "session/operation_log.h"
#include "tools/charts/ChartBox.h"
#include "tools/charts/draw_chart.h"
#include "tools/lists/CmnGrd.h"
#include "tools/lists/list_export.h"
#include "tools/lists/list_print.h"
#include "tools/lists/list_totals.h"

namespace hotel {

namespace {

constexpr int kListWidth = 900;
constexpr int kChartWidth = 440;
constexpr double kCaptionPoints = 13;
constexpr int kNumberColumn = 0;

const QList<FormField> kFields = {
    {u"", u"BbZl", u"报表种类", Editor::Category, {}, 22},
    {u"", u"StDay", u"日期", Editor::Date, {}, 12},
    {u"", u"EndDay", u"到", Editor::Date, {}, 12},
};

bool EndsInSums(const TextTable& list) {
    return HasTotalRow(list, kReportTotalLabel);
}

// What the grid of results shows: it counts the rows itself, and the words 总计 move to its first column.
TextTable WithoutNumbers(TextTable list) {
    if (EndsInSums(list))
        list.setText(list.rows() - 1, kNumberColumn + 1, kReportTotalLabel.toString());
    list.removeColumn(kNumberColumn);
    return list;
}

} // namespace

YybbFrm::YybbFrm()
    : Screen(u"YybbFrm"_s, u"营业报表处理"_s), form_(new FieldForm(kFields, 3)), BbBt(new QLabel),
      BbQd(new GridView(u"BbQd"_s)), charts_(new ChartBox) {
    QStringList names;
    for (const ReportEntry& entry : Reports())
        names.append(entry.name.toString());
    form_->setChoices(u"BbZl", names);
    form_->setText(u"BbZl", names.first());
    BbBt->setObjectName(u"BbBt"_s);
    BbBt->setAlignment(Qt::AlignCenter);
    BbBt->setFont(FontFor(u"黑体", kCaptionPoints, true));
    BbQd->setSortable(true);
    BbQd->horizontalHeader()->setStretchLastSection(false);

    auto* split = new QSplitter;
    split->addWidget(BbQd);
    split->addWidget(charts_);
    split->setStretchFactor(0, 1);
    split->setChildrenCollapsible(false);
    split->setSizes({kListWidth, kChartWidth});
    auto* content = new QVBoxLayout;
    content->addWidget(form_);
    content->addWidget(BbBt);
    content->addWidget(split, 1);
    setContent(content);
    addCommands({
        {u"MakeCmd"_s, u"制作报表"_s, [this] { MakeCmd_Click(); }, Qt::Key_F5,
         CommandKind::Default},
        {u"CmdStop"_s, u"中止统计工作"_s, [this] { CmdStop_Click(); }, {}, CommandKind::Stop},
        {u"CmdPrint"_s, u"打印"_s, [this] { CmdPrint_Click(); }, Qt::Key_F9, CommandKind::Plain,
         u"list"_s},
        {u"CmdFile"_s, u"存为文件"_s, [this] { CmdFile_Click(); }, Qt::Key_F8, CommandKind::Plain,
         u"list"_s},
        {u"ChartSave"_s, u"图表存盘"_s, [this] { ChartSave_Click(); }, Qt::Key_F10,
         CommandKind::Plain, u"list"_s},
        {u"ListCmd"_s, u"参考清单"_s, [this] { ListCmd_Click(); }, Qt::Key_F6, CommandKind::Plain,
         u"list"_s},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
    on(form_, &FieldForm::edited, [this](const QString& control) {
        if (control == u"BbZl")
            BbZl_Change();
    });
    resize(kListWidth + kChartWidth, 720);
}

// A report that stands already is left as it is.
void YybbFrm::load(const QVariant&) {
    if (!form_->text(u"StDay").isEmpty())
        return;
    form_->setText(u"StDay", Clock::DateText());
    form_->setText(u"EndDay", Clock::DateText());
    BbZl_Change();
    form_->editor(u"BbZl")->setFocus();
}

const ReportEntry& YybbFrm::report() const {
    return ReportOf(form_->text(u"BbZl"));
}

ReportPeriod YybbFrm::period() const {
    const auto day = [this](QStringView box) {
        return QDate::fromString(form_->text(box), Qt::ISODate);
    };
    return {day(u"StDay"), day(u"EndDay")};
}

// A day that was typed stays while reports of a day are chosen, and a period for those of a period.
void YybbFrm::BbZl_Change() {
    const ReportEntry& chosen = report();
    if (chosen.isOfPeriod() != ofPeriod_) {
        ofPeriod_ = chosen.isOfPeriod();
        const QDate today = Clock::Today();
        form_->setText(u"StDay", ofPeriod_ ? today.toString(u"yyyy-MM-01") : Clock::DateText());
        form_->setText(u"EndDay", Clock::DateText());
    }
    form_->setReadOnly(u"StDay", chosen.isOfNow());
    form_->setReadOnly(u"EndDay", !ofPeriod_);
    show({.list = TextTable(ReportTitles(chosen)), .caption = chosen.name.toString()});
    setStatus({});
}

void YybbFrm::MakeCmd_Click() {
    const ReportEntry& chosen = report();
    const ReportPeriod asked = period();
    setCommandEnabled(u"MakeCmd", false);
    const Report made = MakeReport(chosen, asked, [&](int done, int total) {
        if (chosen.isOfPeriod())
            showCaption(WorkingCaption(chosen, asked.first.addDays(done)));
        return showProgress(done, total);
    });
    setCommandEnabled(u"MakeCmd", true);
    show(made);
    const int rows = made.list.dataRows() - (EndsInSums(made.list) ? 1 : 0);
    setStatus(u"共 %1 行"_s.arg(rows) +
              (made.remark.isEmpty() ? QString() : u"；"_s + made.remark));
    if (made.notice)
        MsgBox(made.notice->words, made.notice->title);
    else if (rows > 0)
        goTo(BbQd);
}

bool YybbFrm::showProgress(int done, int total) {
    progress(done, total, u"正在制作报表，按 Esc 停止"_s);
    return stillOpen();
}

void YybbFrm::show(const Report& made) {
    showCaption(made.caption);
    BbQd->setTable(made.list);
    BbQd->setTotalRows(EndsInSums(made.list) ? 1 : 0);
    for (int column = 0; column < made.list.cols(); ++column) {
        const bool right = column == kNumberColumn || HoldsAmounts(made.list, column);
        BbQd->setColumnAlignment(column,
                                 Qt::AlignVCenter | (right ? Qt::AlignRight : Qt::AlignLeft));
    }
    BbQd->autoFit();
    if (made.list.dataRows() > 0)
        BbQd->setCurrent(1, 1);
    charts_->setCharts(made.charts);
    const bool isEmpty = made.list.dataRows() == 0;
    for (const QStringView name : {u"CmdPrint", u"CmdFile", u"ListCmd"})
        setCommandEnabled(name, !isEmpty);
    setCommandEnabled(u"ChartSave", !charts_->charts().isEmpty());
}

void YybbFrm::showCaption(const QString& caption) {
    BbBt->setText(caption);
}

void YybbFrm::CmdPrint_Click() {
    const TextTable list = BbQd->table();
    const QString caption = BbBt->text();
    ListPrintSettings settings;
    for (int column = 0; column < list.cols(); ++column) {
        const bool right = column == kNumberColumn || HoldsAmounts(list, column);
        settings.table.alignments.append(right ? u"->"_s : u"<-"_s);
    }
    settings.charts = charts_->charts();
    const int pages = PrintList(list, caption, settings, [this](int rows, int all, int page) {
        progress(rows, all, u"%1/%2, 第%3页"_s.arg(rows).arg(all).arg(page));
        return stillOpen();
    });
    if (pages > 0)
        SaveLogRec(u"各种报表打印操作"_s, caption);
}

void YybbFrm::CmdFile_Click() {
    const QString caption = BbBt->text();
    QList<int> widths;
    for (int column = 0; column < BbQd->table().cols(); ++column)
        widths.append(DisplayColumns(BbQd->columnWidth(column)));
    if (SaveListFile(BbQd->table(), ExportLayouts().first(), widths))
        SaveLogRec(u"各种报表保存操作"_s, caption);
}

// The same list where columns can be chosen, statistics be seen and the print be set.
void YybbFrm::ListCmd_Click() {
    const TextTable list = WithoutNumbers(BbQd->table());
    auto* grid = new CmnGrd(BbBt->text());
    grid->Grd() = list;
    grid->setCharts(charts_->charts());
    ShowScreen(grid);
    grid->setTask(GridTask::Check);
}

void YybbFrm::ChartSave_Click() {
    SaveChartPicture(charts_->current());
}

// Deliberately this alone: a report that runs goes on to its end, unless Esc or the closing of the window stops
// it.
void YybbFrm::CmdStop_Click() {
    setCommandEnabled(u"MakeCmd", true);
}

} // namespace hotel
