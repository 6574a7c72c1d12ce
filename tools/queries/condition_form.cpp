#include "tools/queries/condition_form.h"

#include <QComboBox>
#include <QGroupBox>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "session/operation_log.h"
#include "tools/queries/query_text.h"

namespace hotel {

namespace {

constexpr int kTimerInterval = 100; // milliseconds
constexpr int kNote = 1030;         // how long a refusal is shown

const QList<FormField> kRow = {
    {u"", u"Rlt", u"关系", Editor::Category, {}, 8},
    {u"", u"Fld", u"字段", Editor::Category, {}, 18},
    {u"", u"Cnd", u"条件", Editor::Category, {}, 13},
    {u"", u"Vl", u"内容", Editor::CategoryText, {}, 24},
};

// Values that conditions were added with, since the start of the program.
QStringList& TargetHistory() {
    static QStringList history;
    return history;
}

QStringList Cells(const Condition& condition) {
    return {condition.relation, condition.object, condition.op, condition.target};
}

bool IsBlank(const QStringList& cells) {
    return cells.join(QString()).isEmpty();
}

} // namespace

ConditionForm::ConditionForm(const QString& name, const QString& caption, const QString& relation)
    : Screen(name, caption), relation_(relation), Zhcxtj_(new QGroupBox(u"组合查询条件"_s)),
      row_(new FieldForm(kRow, int(kRow.size()))), CondGrd_(new GridView(u"CondGrd"_s)) {
    makeConditionFrame();
    every(kTimerInterval, [this] { showEnabling(); });
}

void ConditionForm::makeConditionFrame() {
    Zhcxtj_->setObjectName(u"Zhcxtj"_s);
    row_->setChoices(u"Rlt", {kAnd.toString(), kOr.toString()});
    row_->setText(u"Rlt", kAnd.toString());
    row_->setChoices(u"Cnd", OperatorWords());
    row_->setChoices(u"Vl", TargetHistory());
    CondGrd_->setTable(TextTable({u"关系"_s, u"字段"_s, u"条件"_s, u"内容"_s}));
    CondGrd_->setColumnWidth(0, 80);
    CondGrd_->setColumnWidth(1, 200);
    CondGrd_->setColumnWidth(2, 130);
    CondGrd_->setToolTip(u"双击一行或按Del键删除该条件"_s);

    auto* top = new QHBoxLayout;
    top->addWidget(row_, 1);
    top->addWidget(
        commandPanel({{u"Add_cmd"_s, u"增加条件"_s, [this] { Add_cmd_Click(); }, Qt::Key_F2}}));
    auto* layout = new QVBoxLayout(Zhcxtj_);
    layout->addLayout(top);
    layout->addWidget(CondGrd_, 1);

    for (const QStringView list : {u"Rlt", u"Fld", u"Cnd"})
        enterOpens(row_->editor<QComboBox>(list));
    onEnter(row_->editor(u"Vl"), [this] { Add_cmd_Click(); });
    on(CondGrd_, &GridView::rowDoubleClicked, [this](int row, int) { CondGrd_DblClick(row); });
    auto* del = new QShortcut(Qt::Key_Delete, CondGrd_, nullptr, nullptr, Qt::WidgetShortcut);
    on(del, &QShortcut::activated, [this] { CondGrd_DblClick(CondGrd_->currentRow()); });
}

void ConditionForm::setFields(const QStringList& fields) {
    row_->setText(u"Fld", {});
    row_->setChoices(u"Fld", fields);
}

void ConditionForm::focusOnField() {
    row_->editor(u"Fld")->setFocus();
}

QList<Condition> ConditionForm::conditions() const {
    QList<Condition> listed;
    const TextTable& table = CondGrd_->table();
    for (int row = 1; row < table.rows(); ++row) {
        if (!IsBlank(table.row(row)))
            listed.append(
                {table.text(row, 0), table.text(row, 1), table.text(row, 2), table.text(row, 3)});
    }
    return listed;
}

void ConditionForm::clearConditions() {
    CondGrd_->table().clearRows();
    CondGrd_->refresh();
}

void ConditionForm::finish(const QString& conditionText) {
    conditionText_ = conditionText;
    SaveLogRec(u"执行查询功能"_s, conditionText);
    clearConditions();
    accept();
}

void ConditionForm::showEnabling() {
    const Condition condition = composed();
    const bool noTarget = !condition.op.isEmpty() && !FormWantsTarget(condition.op);
    setCommandEnabled(u"Add_cmd",
                      !condition.object.isEmpty() && (noTarget || IsComplete(condition)));
}

void ConditionForm::enterOpens(QComboBox* list) {
    onEnter(list, [this, list] {
        if (list->currentText().isEmpty())
            list->showPopup();
        else
            moveOn();
    });
}

// --- adding and taking out ---

Condition ConditionForm::composed() const {
    return {row_->text(u"Rlt"), row_->text(u"Fld"), row_->text(u"Cnd"),
            WithoutTagMarks(row_->text(u"Vl"))};
}

void ConditionForm::Add_cmd_Click() {
    if (!IsComplete(composed()))
        return;
    normaliseTarget();
    rememberTarget();
    if (!place(composed()))
        return;
    for (const QStringView control : {u"Fld", u"Cnd", u"Vl"})
        row_->setText(control, {});
    row_->setText(u"Rlt", relation_);
    row_->editor(u"Rlt")->setFocus();
    showEnabling();
}

void ConditionForm::normaliseTarget() {
    const QString typed = composed().target;
    const QString normalised = NormalisedTarget(typed);
    if (normalised != typed &&
        AskOkCancel(u"您输入的可能是不标准的日期/时间参数，需要规范为标准形式吗？"_s,
                    u"自动日期时间格式调整"_s))
        row_->setText(u"Vl", normalised);
}

void ConditionForm::rememberTarget() {
    const QString target = composed().target;
    if (target.isEmpty() || TargetHistory().contains(target))
        return;
    TargetHistory().append(target);
    row_->setChoices(u"Vl", TargetHistory());
}

// False when the list does not take the condition.
bool ConditionForm::place(const Condition& condition) {
    TextTable& table = CondGrd_->table();
    const QStringList cells = Cells(condition);
    int row = 1;
    for (; row < table.rows() && !IsBlank(table.row(row)); ++row) {
        if (table.row(row) == cells) {
            TimedMessage(u"完全重复的条件！"_s, u"注意"_s, kNote);
            return false;
        }
    }
    if (row > kConditionLimit) {
        TimedMessage(u"最多100个条件！"_s, u"注意"_s, kNote);
        return false;
    }
    if (row == table.rows())
        table.addRow();
    table.setRow(row, cells);
    CondGrd_->refresh();
    CondGrd_->setCurrent(row);
    return true;
}

// The rows below move up; the last one is emptied.
void ConditionForm::CondGrd_DblClick(int row) {
    TextTable& table = CondGrd_->table();
    if (row < 1 || row > table.dataRows())
        return;
    if (table.dataRows() == 1)
        table.setRow(row, {});
    else
        table.removeRow(row);
    CondGrd_->refresh();
    showEnabling();
}

} // namespace hotel
