#include "personnel/staff/frmBm.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "personnel/staff/departments.h"
#include "personnel/staff/employee_records.h"
#include "personnel/staff/staff_list.h"
#include "record/literals.h"
#include "screen/grid_view.h"
#include "screen/messages.h"

namespace hotel {

namespace {

constexpr QStringView kNameTitle = u"部门名称";
constexpr int kNameLength = 40;

} // namespace

frmBm::frmBm()
    : Screen(u"frmBm"_s, u"部门设定"_s), Bmmc(new QLineEdit), BmQd(new GridView(u"BmQd"_s)) {
    Bmmc->setObjectName(u"Bmmc"_s);
    Bmmc->setMaxLength(kNameLength);
    Bmmc->setPlaceholderText(u"新部门的名称，回车增加"_s);
    BmQd->table().setHeaders({kSerialTitle.toString(), kNameTitle.toString()});
    BmQd->setNumberColumn(0);

    auto* adding = new QHBoxLayout;
    adding->addWidget(new QLabel(kNameTitle.toString()));
    adding->addWidget(Bmmc, 1);
    auto* content = new QVBoxLayout;
    content->addLayout(adding);
    content->addWidget(BmQd, 1);
    setContent(content);

    addCommands({
        {u"CmdAdd"_s, u"增加"_s, [this] { CmdAdd_Click(); }, Qt::Key_F5, CommandKind::Default},
        {u"cmdDel"_s, u"删除"_s, [this] { cmdDel_Click(); }, Qt::Key_F7},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
    onEnter(Bmmc, [this] { CmdAdd_Click(); });
    resize(460, 560);
}

void frmBm::load(const QVariant&) {
    refresh();
    Bmmc->setFocus();
}

void frmBm::refresh() {
    TextTable& table = BmQd->table();
    table.clearRows();
    for (const QString& department : StaffDepartments())
        table.addRow({{}, department});
    table.numberRows(0);
    BmQd->refresh();
    BmQd->autoFit();
    setStatus(u"共 %1 个部门"_s.arg(table.dataRows()));
}

void frmBm::CmdAdd_Click() {
    const DepartmentOutcome outcome = AddDepartment(Bmmc->text());
    MsgBox(outcome.notice.words, outcome.notice.title);
    if (outcome.done) {
        Bmmc->clear();
        refresh();
        BmQd->setCurrent(BmQd->table().dataRows());
    }
    Bmmc->selectAll(); // what was refused gives way to what is typed next
    goTo(Bmmc);
}

void frmBm::cmdDel_Click() {
    const QString department = BmQd->table().text(BmQd->currentRow(), kNameTitle);
    if (BmQd->currentRow() == 0)
        return MsgBox(u"请选择要删除的记录！"_s, u"请注意"_s);
    if (!AskOkCancel(u"确认要删除部门："_s + department + u" 吗？"_s, u"请确认"_s))
        return;
    const DepartmentOutcome outcome = DeleteDepartment(department);
    MsgBox(outcome.notice.words, outcome.notice.title);
    refresh();
}

} // namespace hotel
