#include "personnel/staff/FrmYgxx.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "personnel/staff/employee_change.h"
#include "record/literals.h"
#include "screen/category_box.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "tools/aids/pinyin.h"
#include "tools/lists/CmnGrd.h"
#include "tools/lists/list_print.h"

namespace hotel {

namespace {

using namespace employee;

const QString kByTable = u"表格"_s;
const QString kByCard = u"卡片"_s;

// Whether a row is the one that is looked for.
bool IsSought(const TextTable& list, int row, const QString& sought) {
    for (const QStringView column : {kNumber, kName, kCard, kBadge}) {
        if (list.text(row, column).startsWith(sought, Qt::CaseInsensitive))
            return true;
    }
    return PinyinInitials(list.text(row, kName)).startsWith(sought, Qt::CaseInsensitive);
}

} // namespace

FrmYgxx::FrmYgxx()
    : Screen(u"FrmYgxx"_s, u"员工信息"_s), ComBm(new CategoryBox({}, false)),
      search_(new QLineEdit), YgQd(new GridView(u"YgQd"_s)) {
    ComBm->setObjectName(u"ComBm"_s);
    ComBm->setMinimumWidth(180);
    search_->setObjectName(u"Search"_s);
    search_->setPlaceholderText(u"编号、姓名、拼音字头或卡号，回车查找下一个"_s);
    YgQd->setSortable(true);
    YgQd->setNumberColumn(0);

    auto* choosing = new QHBoxLayout;
    choosing->addWidget(new QLabel(u"部门"_s));
    choosing->addWidget(ComBm);
    choosing->addSpacing(16);
    choosing->addWidget(new QLabel(u"查找"_s));
    choosing->addWidget(search_, 1);
    auto* content = new QVBoxLayout;
    content->addLayout(choosing);
    content->addWidget(YgQd, 1);
    setContent(content);

    addCommands({
        {u"CmdAdd"_s, u"增加"_s, [this] { CmdAdd_Click(); }, Qt::Key_F4},
        {u"CmdModify"_s, u"修改"_s, [this] { CmdModify_Click(); }, Qt::Key_F6,
         CommandKind::Default},
        {u"EditCmd"_s, u"表格修改"_s, [this] { EditCmd_Click(); }, Qt::Key_F3},
        {u"cmdDel"_s, u"删除"_s, [this] { cmdDel_Click(); }, Qt::Key_F7},
        {u"FreshCmd"_s, u"刷新"_s, [this] { showList(); }, Qt::Key_F5},
        {u"CmdPrint"_s, u"花名册"_s, [this] { CmdPrint_Click(); }, Qt::Key_F9, CommandKind::Plain,
         u"lists"_s},
        {u"Tj_cmd"_s, u"编制表"_s, [this] { Tj_cmd_Click(); }, Qt::Key_F11, CommandKind::Plain,
         u"lists"_s},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
    on(ComBm, &QComboBox::activated, [this] { ComBm_Click(); });
    onEnter(ComBm, [this] {
        ComBm_Click();
        goTo(search_);
        search_->selectAll();
    });
    onEnter(search_, [this] { Search_Enter(); });
    on(YgQd, &GridView::rowActivated, [this] { CmdModify_Click(); });
    resize(1180, 680);
}

void FrmYgxx::load(const QVariant&) {
    const QString standing = department();
    ComBm->setChoices(QStringList{kAllDepartments.toString()} + OfferedDepartments());
    ComBm->setValue(standing.isEmpty() ? kAllDepartments.toString() : standing);
    showList();
    goTo(ComBm);
}

QString FrmYgxx::department() const {
    return ComBm->currentText();
}

void FrmYgxx::ComBm_Click() {
    showList();
}

void FrmYgxx::showList() {
    const EmployeeKey current = EmployeeOfRow(YgQd->table(), YgQd->currentRow());
    const StaffList list = ListStaff(department());
    YgQd->setTable(list.table);
    YgQd->setNumberColumn(0);
    YgQd->autoFit();
    int found = 0; // nobody takes the place of who isn't in the list any more
    for (int row = 1; row < list.table.rows(); ++row) {
        if (EmployeeOfRow(YgQd->table(), row) == current)
            found = row;
    }
    YgQd->setCurrent(found);
    setStatus(list.complete ? u"共 %1 人"_s.arg(list.table.dataRows())
                            : u"员工信息没有读全，请按F5刷新！"_s);
}

void FrmYgxx::Search_Enter() {
    const QString sought = search_->text().trimmed();
    search_->selectAll(); // Enter looks for the next one, a letter begins anew
    const TextTable& list = YgQd->table();
    for (int step = 1; !sought.isEmpty() && step < list.rows(); ++step) {
        const int row = (YgQd->currentRow() - 1 + step) % list.dataRows() + 1;
        if (IsSought(list, row, sought)) {
            YgQd->setCurrent(row);
            return setStatus(list.text(row, kDepartment) + u' ' + list.text(row, kName));
        }
    }
    setStatus(sought.isEmpty() ? QString() : u"没有找到："_s + sought);
}

void FrmYgxx::CmdAdd_Click() {
    const auto way =
        AskChoice(u"选择表格方式输入新员工信息？"_s, u"请选择输入方式"_s, {kByTable, kByCard});
    if (!way)
        return;
    const QString chosen = department() == kAllDepartments ? QString() : department();
    openCard(*way == kByTable ? u"frmYgEdit" : u"frmManRecord", {chosen, {}});
}

void FrmYgxx::change(QStringView card) {
    const int row = YgQd->currentRow();
    if (const auto refused = RefuseChange(YgQd->table(), row, department()))
        return MsgBox(refused->words, refused->title);
    const EmployeeKey key = EmployeeOfRow(YgQd->table(), row);
    openCard(card, {key.department, key.number});
}

void FrmYgxx::openCard(QStringView card, const QStringList& who) {
    const bool stood = FindScreen(card);
    if (OpenScreen(card, who) && !stood)
        on(FindScreen(card), &Screen::closed, [this] { showList(); });
}

void FrmYgxx::cmdDel_Click() {
    const int row = YgQd->currentRow();
    if (const auto refused = RefuseDeletion(YgQd->table(), row, department()))
        return MsgBox(refused->words, refused->title);
    if (!AskOkCancel(u"确认要删除员工:"_s + YgQd->table().text(row, kName) + u" 的所有信息吗？"_s,
                     u"请确认"_s))
        return;
    const DeleteOutcome outcome = DeleteEmployee(EmployeeOfRow(YgQd->table(), row));
    MsgBox(outcome.lines.join(kCrLf), outcome.done ? u"提示"_s : u"请注意"_s);
    showList();
}

void FrmYgxx::CmdPrint_Click() {
    if (YgQd->table().dataRows() == 0)
        return MsgBox(u"没有可以打印的内容!"_s, u"请注意"_s);
    const QString where = department() == kAllDepartments ? QString() : department();
    ListPrintSettings settings;
    settings.table.fitFont = true;
    PrintList(Roster(YgQd->table()), where + u"员工花名册"_s, settings);
}

void FrmYgxx::Tj_cmd_Click() {
    const StaffList everybody = ListStaff(kAllDepartments.toString());
    if (!everybody.complete)
        return MsgBox(u"员工信息没有读全，请稍候再试！"_s, u"请注意"_s);
    const TextTable staffing = StaffingTable(everybody.table);
    auto* list = new CmnGrd(u"员工编制表"_s, staffing.headers());
    ShowScreen(list);
    list->Grd() = staffing;
    list->setTask(GridTask::Check);
}

} // namespace hotel
