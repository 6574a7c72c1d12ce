#include "personnel/attendance/frmCheck.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTabWidget>
#include <QVBoxLayout>

#include "personnel/attendance/day_check.h"
#include "personnel/attendance/day_load.h"
#include "personnel/attendance/day_statistics.h"
#include "personnel/attendance/punch_decision.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "tools/lists/list_export.h"
#include "tools/lists/list_print.h"

namespace hotel {

namespace {

const QList<FormField> kDateFields = {{u"日期", u"ChkDate", u"考勤日期", Editor::Date}};
const QList<FormField> kPunchFields = {
    {u"状态", u"Kqzt", u"状态", Editor::Category},
    {u"班次", u"Kqbc", u"班次", Editor::Category},
    {u"说明", u"Kqsm", u"考勤说明", Editor::Text, {}, 30, 100},
};
const QList<FormField> kAbsenceFields = {
    {u"编号", u"Ygbh", u"编号", Editor::Text, {}, 10, 20},
    {u"姓名", u"Ygxm", u"姓名", Editor::Text, {}, 12, 20},
    {u"班次", u"Qqbc", u"班次", Editor::Category},
    {u"类别", u"Qqlb", u"缺勤类别", Editor::Category},
    {u"折算", u"Qqzs", u"缺勤折算", Editor::Amount, {}, 8},
    {u"说明", u"Qqsm", u"缺勤说明", Editor::Text, {}, 30, 100},
};
const QList<FormField> kSettingFields = {
    {u"迟到限额", u"CdXe", u"迟到限额(分钟)", Editor::Number, {}, 6, 4},
    {u"早退限额", u"ZtXe", u"早退限额(分钟)", Editor::Number, {}, 6, 4},
    {u"缺省类别", u"QsLb", u"无记录时缺勤类别", Editor::Category},
};

const QColor kMarkedColour(0x8a, 0x94, 0x9e);
const QColor kMovedColour(0xff, 0xe9, 0xb0);
const QColor kLateColour(0xb3, 0x26, 0x1e);

constexpr int kWidestColumn = 520; // the note of an absence

constexpr QStringView kSavedListName = u"本查询结果";
const Notice kNotLoaded{u"错误"_s, u"考勤数据没有完整读取，请重新输入考勤日期！"_s};

GridView* List(const QString& name) {
    auto* grid = new GridView(name);
    grid->setSelect(GridView::Select::Rows);
    return grid;
}

QWidget* Stacked(const QList<QWidget*>& widgets) {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    for (QWidget* widget : widgets)
        layout->addWidget(widget, qobject_cast<GridView*>(widget) ? 1 : 0);
    return page;
}

} // namespace

frmCheck::frmCheck()
    : Screen(u"frmCheck"_s, u"考勤修订"_s), Tabs(new QTabWidget),
      date_(new FieldForm(kDateFields, 1)), punch_(new FieldForm(kPunchFields, 3)),
      absence_(new FieldForm(kAbsenceFields, 3)), settings_(new FieldForm(kSettingFields, 3)) {
    Tabs->setObjectName(u"Tabs"_s);
    pages_ = {
        {u"考勤纪录"_s, u" 考勤纪录清单"_s, &AttendanceDay::punches, List(u"Kqqd"_s), true},
        {u"缺勤"_s, u" 考勤缺勤记录清单"_s, &AttendanceDay::absences, List(u"KqqqQd"_s), false},
        {u"统计"_s, u" 考勤统计结果清单"_s, &AttendanceDay::statistics, List(u"KqtjQd"_s), true},
        {u"班次"_s, u" 考勤班次数据清单"_s, &AttendanceDay::shifts, List(u"KqbcQd"_s), true},
        {u"设定"_s, u" 员工考勤设定信息清单"_s, &AttendanceDay::periods, List(u"KqsdQd"_s), false}};
    Tabs->addTab(makePunchPage(), pages_[0].caption);
    Tabs->addTab(makeAbsencePage(), pages_[1].caption);
    Tabs->addTab(Stacked({pages_[2].grid}), pages_[2].caption);
    Tabs->addTab(Stacked({pages_[3].grid}), pages_[3].caption);
    Tabs->addTab(makeSettingsPage(), pages_[4].caption);

    auto* content = new QVBoxLayout;
    content->addWidget(date_, 0, Qt::AlignLeft);
    content->addWidget(Tabs, 1);
    setContent(content);
    addCommands({
        {u"AutoChk"_s, u"自动检查"_s, [this] { AutoChk_Click(); }, Qt::Key_F5},
        {u"MakeQq"_s, u"生成缺勤"_s, [this] { MakeQq_Click(); }, Qt::Key_F6},
        {u"FreshTj"_s, u"计算统计"_s, [this] { FreshTj_Click(); }, Qt::Key_F7},
        {u"SaveTj"_s, u"保存统计"_s, [this] { SaveTj_Click(); }, Qt::Key_F8},
        {u"CmdPrint"_s, u"打印"_s, [this] { Print_Click(); }, Qt::Key_F9, CommandKind::Plain,
         u"list"_s},
        {u"CmdFile"_s, u"存为文件"_s, [this] { FileSave_Click(); }, Qt::Key_F10, CommandKind::Plain,
         u"list"_s},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
    onEnter(date_->editor(u"ChkDate"), [this] { Dqrq_Change(); });
    resize(1240, 780);
}

QWidget* frmCheck::makePunchPage() {
    GridView* Kqqd = pages_[0].grid;
    Kqqd->setColours([this](int row, int) {
        CellColours colours;
        const TextTable& punches = day_.punches;
        if (!punches.text(row, punch_record::kMark).isEmpty())
            colours.text = kMarkedColour;
        else if (punches.text(row, punch_record::kState) == punch_word::kLate ||
                 punches.text(row, punch_record::kState) == punch_word::kEarly)
            colours.text = kLateColour;
        if (moved_.contains(punches.text(row, kRecordKey)))
            colours.background = kMovedColour;
        return colours;
    });
    punch_->setChoices(u"Kqzt",
                       QStringList{punch_word::kNormal.toString(), punch_word::kAtWork.toString()} +
                           AbsenceCategories());
    const auto state = [this] {
        correct([this](int row) { return CorrectState(day_, row, punch_->text(u"Kqzt")); });
    };
    const auto shift = [this] {
        correct([this](int row) { return CorrectShift(day_, row, punch_->text(u"Kqbc")); });
    };
    const auto note = [this] {
        correct([this](int row) { return CorrectNote(day_, row, punch_->text(u"Kqsm")); });
    };
    onEnter(punch_->editor(u"Kqzt"), state);
    onEnter(punch_->editor(u"Kqbc"), shift);
    onEnter(punch_->editor(u"Kqsm"), note);
    on(Kqqd, &GridView::rowActivated, [this] { punch_->editor(u"Kqzt")->setFocus(); });
    QWidget* commands = commandPanel({
        {u"XgZt"_s, u"修改状态"_s, state},
        {u"XgBc"_s, u"修改班次"_s, shift},
        {u"XgSm"_s, u"修改说明"_s, note},
        {u"ScJl"_s, u"删除/恢复"_s,
         [this] {
             correct([this](int row) {
                 return MarkPunch(day_, row, day_.punches.text(row, punch_record::kMark).isEmpty());
             });
         },
         Qt::CTRL | Qt::Key_D},
    });
    return Stacked({Kqqd, punch_, commands});
}

QWidget* frmCheck::makeAbsencePage() {
    absence_->setChoices(u"Qqlb", AbsenceCategories());
    on(absence_, &FieldForm::left, [this](const QString& control) {
        if (control == u"Ygbh")
            fillAbsencePerson();
    });
    onEnter(absence_->editor(u"Qqsm"), [this] { AddQq_Click(); });
    QWidget* commands = commandPanel({
        {u"AddQq"_s, u"增加缺勤"_s, [this] { AddQq_Click(); }},
        {u"DelQq"_s, u"删除缺勤"_s, [this] { DelQq_Click(); }, Qt::CTRL | Qt::Key_D},
    });
    return Stacked({pages_[1].grid, absence_, commands});
}

QWidget* frmCheck::makeSettingsPage() {
    const AnalysisSettings proposed;
    settings_->setText(u"CdXe", QString::number(proposed.lateLimit));
    settings_->setText(u"ZtXe", QString::number(proposed.earlyLimit));
    settings_->setChoices(u"QsLb", AbsenceCategories());
    settings_->setText(u"QsLb", proposed.noPunch);
    return Stacked({settings_, pages_[4].grid});
}

void frmCheck::load(const QVariant& argument) {
    const QString day = argument.toString();
    date_->setText(u"ChkDate", day.isEmpty() ? Clock::DateText() : day);
    Dqrq_Change();
}

void frmCheck::Dqrq_Change() {
    const QDate date = QDate::fromString(date_->text(u"ChkDate"), Qt::ISODate);
    if (!date.isValid()) {
        MsgBox(u"考勤日期不正确！"_s, u"请核对"_s);
        return goTo(date_->editor(u"ChkDate"));
    }
    day_ = AttendanceDay();
    day_.date = date;
    moved_.clear();
    loaded_ = loadLists();
    QStringList shifts;
    for (int row = 1; row < day_.periods.rows(); ++row)
        shifts.append(day_.periods.text(row, shift_period::kName));
    shifts.removeDuplicates();
    shifts.sort();
    punch_->setChoices(u"Kqbc", shifts);
    absence_->setChoices(u"Qqbc", shifts);
    showLists();
    setStatus(u"%1 考勤记录 %2 条，应到班次 %3 个，缺勤 %4 条"_s.arg(date_->text(u"ChkDate"))
                  .arg(day_.punches.dataRows())
                  .arg(day_.periods.dataRows())
                  .arg(day_.absences.dataRows()));
    if (!loaded_ && !stopRequested())
        show(kNotLoaded);
    pages_[0].grid->setFocus();
}

bool frmCheck::isLoaded() {
    if (!loaded_)
        show(kNotLoaded);
    return loaded_;
}

bool frmCheck::loadLists() {
    const bool staff = LoadKqsdQd(day_, [this](int done, int total) {
        progress(done, total, u"加载考勤时段..."_s);
        return stillOpen();
    });
    setStatus(u"加载考勤记录..."_s);
    const bool punches = LoadPunches(day_);
    setStatus(u"加载缺勤记录..."_s);
    return LoadAbsences(day_) && punches && staff;
}

// --- the steps of the analysis ---

void frmCheck::AutoChk_Click() {
    if (!isLoaded())
        return;
    setStatus(u"分析处理考勤记录..."_s);
    const CheckOutcome outcome = CheckPunches(day_);
    showLists();
    Tabs->setCurrentIndex(0);
    setStatus(u"自动检查考勤记录操作：标记重复记录 %1 条"_s.arg(outcome.marked));
    show(outcome.notice);
}

void frmCheck::MakeQq_Click() {
    if (!isLoaded() || !AskYesNo(kAskMakeAbsences.toString(), u"慎重确认"_s))
        return;
    setStatus(u"更新缺勤记录..."_s);
    const AbsenceOutcome outcome = MakeAbsences(day_, settings());
    for (const int row : outcome.changes.moved)
        moved_.insert(day_.punches.text(row, kRecordKey));
    showLists();
    Tabs->setCurrentIndex(outcome.changes.moved.isEmpty() ? 1 : 0);
    setStatus(u"缺勤记录 %1 条"_s.arg(day_.absences.dataRows()));
    for (const Notice& notice : outcome.notices)
        show(notice);
}

void frmCheck::FreshTj_Click() {
    if (!isLoaded())
        return;
    setStatus(u"计算统计考勤数据..."_s);
    const auto notice = MakeStatistics(day_, settings());
    showLists();
    Tabs->setCurrentIndex(2);
    setStatus(u"统计人员 %1 人"_s.arg(day_.statistics.dataRows()));
    show(notice);
}

void frmCheck::SaveTj_Click() {
    if (!isLoaded() || !AskYesNo(kAskSaveStatistics.toString(), u"慎重确认"_s))
        return;
    const auto notice = SaveStatistics(day_);
    if (!notice)
        setStatus(u"当天统计数据已经保存"_s);
    show(notice);
}

// --- corrections ---

QList<int> frmCheck::selectedPunches() const {
    const QList<int> rows = pages_[0].grid->selectedRows();
    const int current = pages_[0].grid->currentRow();
    return rows.isEmpty() && current > 0 ? QList<int>{current} : rows;
}

void frmCheck::correct(const std::function<std::optional<Notice>(int row)>& correction) {
    GridView* grid = pages_[0].grid;
    const QList<int> rows = selectedPunches();
    if (rows.isEmpty())
        return MsgBox(u"请先选择要修订的考勤记录！"_s, u"操作无效"_s);
    for (const int row : rows) {
        const auto refusal = correction(row);
        grid->table().setRow(row, day_.punches.row(row));
        grid->rowChanged(row);
        if (refusal)
            return show(refusal);
    }
    grid->setFocus();
}

// The number may be typed without its leading zeros.
void frmCheck::fillAbsencePerson() {
    const QString typed = TrimWhite(absence_->text(u"Ygbh"));
    const double value = LeadingNumber(typed);
    for (int row = 1; row < day_.statistics.rows() && !typed.isEmpty(); ++row) {
        const QString number = day_.statistics.row(row)[0];
        if (number != typed && (value == 0 || LeadingNumber(number) != value))
            continue;
        absence_->setText(u"Ygbh", number);
        absence_->setText(u"Ygxm", day_.statistics.row(row)[1]);
        const int due = day_.periods.find(0, number);
        if (due > 0) {
            absence_->setText(u"Qqbc", day_.periods.text(due, shift_period::kName));
            absence_->setText(u"Qqzs", day_.periods.text(due, shift_period::kDayValue));
        }
        return;
    }
}

void frmCheck::AddQq_Click() {
    if (!isLoaded())
        return;
    const auto text = [this](QStringView control) { return absence_->text(control); };
    const auto notice = AddAbsence(day_, {text(u"Ygbh"), text(u"Ygxm"), text(u"Qqbc"),
                                          text(u"Qqlb"), text(u"Qqzs"), text(u"Qqsm")});
    showLists();
    if (notice)
        return show(notice);
    absence_->clear();
    goTo(absence_->editor(u"Ygbh"));
}

void frmCheck::DelQq_Click() {
    const int row = pages_[1].grid->currentRow();
    if (!isLoaded())
        return;
    if (row == 0)
        return MsgBox(u"请先选择要删除的缺勤记录！"_s, u"操作无效"_s);
    const auto notice = DeleteAbsence(day_, row);
    showLists();
    show(notice);
}

// --- lists ---

void frmCheck::show(const std::optional<Notice>& notice) {
    if (notice)
        MsgBox(notice->words, notice->title);
}

TextTable frmCheck::shownList(const Page& page) const {
    TextTable list = day_.*page.list;
    if (page.lastHidden)
        list.removeColumn(list.cols() - 1);
    return list;
}

void frmCheck::showLists() {
    constexpr int kFirstSum = 2;
    for (int column = kFirstSum; column < day_.statistics.cols() - 1; ++column)
        pages_[2].grid->setColumnAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    for (const Page& page : pages_) {
        page.grid->setTable(shownList(page));
        page.grid->autoFit(kWidestColumn);
    }
}

const frmCheck::Page& frmCheck::currentPage() const {
    return pages_[Tabs->currentIndex()];
}

void frmCheck::Print_Click() {
    PrintWide(*currentPage().grid, currentPage().title);
}

void frmCheck::FileSave_Click() {
    SaveGridToText(currentPage().grid->table(), kSavedListName.toString());
}

AnalysisSettings frmCheck::settings() const {
    return {.lateLimit = int(LeadingNumber(settings_->text(u"CdXe"))),
            .earlyLimit = int(LeadingNumber(settings_->text(u"ZtXe"))),
            .noPunch = settings_->text(u"QsLb")};
}

} // namespace hotel
