#include "tools/plans/plan_screen.h"

#include <QPushButton>
#include <QVBoxLayout>

#include "platform/clock.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "session/session.h"
#include "tools/lists/list_export.h"
#include "tools/lists/list_print.h"
#include "tools/queries/list_query.h"

namespace hotel {

PlanScreen::PlanScreen(const PlanKind& kind, const PlanPanel& panel,
                       const QList<ScreenCommand>& further)
    : Screen(panel.screen, panel.caption), kind_(kind), panel_(panel),
      list_(new GridView(panel.list)), form_(new FieldForm(panel.fields, panel.fieldColumns)) {
    list_->table().setHeaders(kind.columns);
    list_->setSortable(true);
    for (const QString& column : panel.numbers)
        list_->setColumnAlignment(list_->table().column(column), Qt::AlignRight | Qt::AlignVCenter);
    addCommands({
        {u"CmdAdd"_s, u"增加"_s, [this] { CmdAdd_Click(); }, Qt::Key_F5, CommandKind::Default},
        {u"CmdModify"_s, panel.changeCaption, [this] { CmdModify_Click(); }, Qt::Key_F6},
        {u"CmdDel"_s, u"删除"_s, [this] { CmdDel_Click(); }, Qt::Key_F7},
        {u"CmdRange"_s, u"整理"_s, [this] { CmdRange_Click(); }, Qt::Key_F4, CommandKind::Plain,
         u"history"_s},
        {u"HistCmd"_s, u"历史资料"_s, [this] { HistCmd_Click(); }, Qt::Key_F3, CommandKind::Plain,
         u"history"_s},
        {u"CmdPrint"_s, u"打印清单"_s, [this] { CmdPrint_Click(); }, Qt::Key_F9, CommandKind::Plain,
         u"list"_s},
        {u"CmdFile"_s, u"生成清单"_s, [this] { CmdFile_Click(); }, Qt::Key_F8, CommandKind::Plain,
         u"list"_s},
        {u"FreshCmd"_s, u"刷新"_s, [this] { FreshCmd_Click(); }, Qt::Key_F11, CommandKind::Plain,
         u"list"_s},
    });
    addCommands(further);
    addCommands({
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
    command(u"CmdRange")->setToolTip(panel.tidyTip);
    on(list_, &GridView::currentMoved, [this](int row, int) { List_RowChange(row); });
    resize(1240, 720);
}

void PlanScreen::setPanel() {
    auto* content = new QVBoxLayout;
    content->addWidget(list_, 1);
    content->addWidget(form_);
    setContent(content);
}

void PlanScreen::load(const QVariant& number) {
    if (!isLoaded_) {
        form_->loadCategories();
        loadList();
        beginPlan({});
        isLoaded_ = true;
    }
    const QString wanted = number.toString();
    if (wanted.isEmpty() || !closing())
        return;
    if (list_->table().find(0, wanted) < 0)
        loadList(); // another desk has added it
    list_->setCurrent(std::max(0, list_->table().find(0, wanted)));
}

void PlanScreen::loadList() {
    const auto plans = LoadPlans(kind_);
    if (plans) {
        list_->setTable(*plans);
        list_->autoFit();
    }
    showCount();
    if (!plans)
        MsgBox(u"清单读取失败，请稍候刷新再试！"_s, u"错误"_s);
}

// A blank plan to be entered.
void PlanScreen::beginPlan(const QString& number) {
    list_->setCurrent(0);
    form_->load(SetTag(newPlan(), kind_.columns.first(), number));
    planShown({});
    goTo(form_->editor(panel_.fields.value(1).control));
}

// Made by whoever sits here, today.
QString PlanScreen::newPlan() const {
    const Session& session = CurrentSession();
    QString plan = SetTag(QString(), kind_.makerUnit, session.userDept);
    plan = SetTag(plan, kind_.maker, session.userName);
    return kind_.madeOn.isEmpty() ? plan : SetTag(plan, kind_.madeOn, Clock::DateText());
}

QString PlanScreen::formRecord() const {
    return form_->store({});
}

void PlanScreen::planShown(const QString&) {}

void PlanScreen::showCount() {
    int plans = 0;
    for (int row = 1; row < list_->table().rows(); ++row)
        plans += IsPlan(list_->table(), row);
    setStatus(u"共 %1 条"_s.arg(plans));
}

bool PlanScreen::isBegun() const {
    const QString number = form_->text(panel_.fields.first().control);
    return !number.isEmpty() && list_->table().find(0, number) < 0;
}

bool PlanScreen::closing() {
    return !isBegun() || AskYesNo(u"新增的记录还没有保存，放弃吗？"_s, u"请确认"_s);
}

QString PlanScreen::selectedNumber() const {
    const int row = list_->currentRow();
    return row == 0 ? QString() : list_->table().text(row, 0);
}

void PlanScreen::List_RowChange(int row) {
    const TextTable& table = list_->table();
    QString record;
    for (int column = 0; column < table.cols(); ++column)
        record =
            SetTag(record, table.headers()[column], row == 0 ? QString() : table.text(row, column));
    if (row > 0 && !kind_.closedOn.isEmpty() && GetTag(record, kind_.closedOn).isEmpty())
        record = SetTag(record, kind_.closedOn, Clock::DateText());
    form_->load(record);
    planShown(selectedNumber());
}

void PlanScreen::tell(const PlanOutcome& outcome) {
    if (outcome.notice)
        MsgBox(outcome.notice->words, outcome.notice->title);
}

void PlanScreen::CmdAdd_Click() {
    const QString number = form_->text(panel_.fields.first().control);
    const bool wasBegun = isBegun();
    if (panel_.numberFirst && !wasBegun) {
        const auto next = FreePlanNumber(kind_, list_->table());
        if (!next)
            return MsgBox(kind_.notSaved.toString(), u"意外错误"_s);
        return beginPlan(*next);
    }
    const PlanOutcome outcome = AddPlan(kind_, list_->table(), formRecord());
    tell(outcome);
    if (!outcome.done)
        return;
    const QString added = list_->table().text(outcome.row, 0);
    list_->refresh();
    list_->autoFit();
    list_->setCurrent(outcome.row); // into view
    beginPlan({});
    showCount();
    if (added != number && wasBegun)
        MsgBox(u"单号 "_s + number + u" 已被其他工作站占用，本条改为 " + added, u"提示"_s);
}

void PlanScreen::CmdModify_Click() {
    const int row = list_->currentRow();
    if (selectedNumber().isEmpty())
        return MsgBox(u"请选择要修改的记录,再执行本功能！"_s, u"提示"_s);
    const PlanOutcome outcome =
        ChangePlan(kind_, list_->table(), row, formRecord(), furtherFields());
    tell(outcome);
    if (!outcome.done)
        return;
    list_->rowChanged(row);
    if (list_->currentRow() == row)
        List_RowChange(row);
    setStatus(selectedNumber() + u" 已保存"_s);
}

void PlanScreen::CmdDel_Click() {
    const QString number = selectedNumber();
    if (number.isEmpty())
        return MsgBox(u"请选择要删除的记录！"_s, u"提示"_s);
    if (!AskYesNo(u"确定要删除 "_s + number + u" 吗？"_s, u"请确认"_s))
        return;
    const PlanOutcome outcome = DeletePlan(kind_, list_->table(), list_->table().find(0, number));
    tell(outcome);
    if (!outcome.done)
        return;
    list_->refresh();
    beginPlan({});
    showCount();
}

void PlanScreen::CmdRange_Click() {
    const TidyOutcome outcome = TidyPlans(kind_, list_->table(), [this](int done, int all) {
        progress(done, all, u"正在整理"_s);
        return stillOpen();
    });
    list_->refresh();
    beginPlan({});
    QString words = u"已将 %1 条移到历史资料"_s.arg(outcome.moved);
    if (outcome.failed > 0)
        words += u"，%1 条没有移走，请稍候再整理"_s.arg(outcome.failed);
    setStatus(words);
}

void PlanScreen::HistCmd_Click() {
    const ListQuery query = {
        .caption = panel_.historyCaption,
        .title = panel_.listTitle,
        .columns = kind_.columns,
        .nameLabel = kind_.columns.first(),
        .dated = true,
        .search = SearchFiles(kind_.project.toString(),
                              [kind = kind_](QDate first, QDate last) {
                                  return MonthFiles(first, last, [&kind](QDate month) {
                                      return PlanHistoryFile(kind, month);
                                  });
                              }),
    };
    OpenListQuery(query, this);
}

void PlanScreen::CmdPrint_Click() {
    PrintGrid(*list_, panel_.listTitle);
}

void PlanScreen::CmdFile_Click() {
    SaveGridToText(list_->table(), panel_.listTitle);
}

void PlanScreen::FreshCmd_Click() {
    const QString number = selectedNumber();
    loadList();
    list_->setCurrent(std::max(0, list_->table().find(0, number)));
}

} // namespace hotel
