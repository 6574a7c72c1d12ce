#include "frontoffice/frmYD.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "house/stays/board.h"
#include "house/stays/reservations.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/check_list.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "tools/lists/list_export.h"
#include "tools/lists/list_print.h"

namespace hotel {

namespace {

// In the order of the talk on the telephone: who, when, how many, at what price, who calls and from where; then the
// terms. Who entered it is never typed.
const PlanPanel kPanel = {
    .screen = u"frmYD"_s,
    .caption = u"客房预定计划"_s,
    .list = u"YdxxQd"_s,
    .fields = {{u"预定单号", u"Yddh", u"预定单号", Editor::ReadOnly, {}, 14},
               {u"客人姓名", u"Krxm", u"客人姓名", Editor::Text, {}, 16, 40},
               {u"客人单位", u"Krdw", u"客人单位", Editor::Text, {}, 20, 60},
               {u"预计到达", u"Yjdd", u"预计到达", Editor::Date},
               {u"预计离店", u"Yjld", u"预计离店", Editor::Date},
               {u"订房间数", u"Dfjs", u"订房间数", Editor::Number, {}, 8, 4},
               {u"预订房价", u"Ydfj", u"预订房价", Editor::Text, {}, 12, 40},
               {u"预定人", u"Ydr", u"预定人", Editor::Text, {}, 14, 40},
               {u"手机号码", u"Sjhm", u"手机号码", Editor::Text, {}, 16, 40},
               {u"电话号码", u"Dhhm", u"电话号码", Editor::Text, {}, 16, 40},
               {u"预定状态", u"Ydzt", u"预定状态", Editor::Category, {}, 10},
               {u"付款方式", u"Fkfs", u"付款方式", Editor::CategoryText, u"支付方式", 12, 40},
               {u"押金金额", u"Yjje", u"押金金额", Editor::Amount, {}, 12, 14},
               {u"合约单位", u"Hydw", u"合约单位", Editor::Text, {}, 20, 60},
               {u"合同编号", u"Htbh", u"合同编号", Editor::Text, {}, 14, 40},
               {u"预定来源", u"Ydly", u"预定来源", Editor::Text, {}, 14, 40},
               {u"销售中介", u"Xszj", u"销售中介", Editor::Text, {}, 14, 40},
               {u"佣金说明", u"Yjsm", u"佣金说明", Editor::Text, {}, 14, 60},
               {u"传真号码", u"Czhm", u"传真号码", Editor::Text, {}, 16, 40},
               {u"电子邮件", u"Dzyj", u"电子邮件", Editor::Text, {}, 20, 60},
               {u"通讯地址", u"Txdz", u"通讯地址", Editor::Text, {}, 24, 100},
               {u"备注信息", u"Bzxx", u"备注信息", Editor::Text, {}, 24, 200},
               {u"经办单位", u"Jbdw", u"经办单位", Editor::ReadOnly, {}, 14},
               {u"经办人", u"Jbr", u"经办人", Editor::ReadOnly, {}, 12}},
    .fieldColumns = 4,
    .listTitle = u"客房预定计划信息清单"_s,
    .historyCaption = u"请输入预订计划信息历史资料查询组合条件"_s,
    .changeCaption = u"修改"_s,
    .tidyTip = u"对所有的预订信息进行整理,将完成或失效的预订信息删除,移到历史资料数据库中."_s,
    .numbers = {u"订房间数"_s, u"押金金额"_s},
    .numberFirst = true,
};

GridView* MakeCountList(const QString& name) {
    auto* list = new GridView(name);
    for (const int column : {1, 2})
        list->setColumnAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    return list;
}

QVBoxLayout* Headed(const QString& caption, QWidget* widget) {
    auto* column = new QVBoxLayout;
    auto* label = new QLabel(caption);
    label->setBuddy(widget);
    column->addWidget(label);
    column->addWidget(widget, 1);
    return column;
}

} // namespace

frmYD::frmYD()
    : PlanScreen(ReservationPlans(), kPanel,
                 {{u"RlCmd"_s, u"客房日历"_s, [this] { RlCmd_Click(); }, Qt::Key_F2,
                   CommandKind::Plain, u"list"_s}}),
      tabs_(new QTabWidget), KfQd(new GridView(u"KfQd"_s)), Xslc(new CheckList(u"Xslc"_s)),
      Xsfx(new CheckList(u"Xsfx"_s)), LctjQd(MakeCountList(u"LctjQd"_s)),
      FxtjQd(MakeCountList(u"FxtjQd"_s)) {
    form()->setChoices(u"Ydzt", ReservationStates());
    KfQd->table().setHeaders(HeldRoomTitles());
    KfQd->setCheckColumn(0);
    tabs_->setObjectName(u"tabs"_s);
    tabs_->addTab(list(), u"预定清单（&1）"_s);
    tabs_->addTab(makeRoomsTab(), u"预留客房（&2）"_s);
    auto* content = new QVBoxLayout;
    content->addWidget(tabs_, 1);
    content->addWidget(form());
    setContent(content);

    on(KfQd, &GridView::rowClicked, [this](int row, int) { KfQd_Click(row); });
    on(KfQd, &GridView::rowActivated, [this](int row, int) { KfQd_Click(row); });
    on(Xslc, &CheckList::ticked, [this] { Filter_Ticked(Xslc, u"楼层号"); });
    on(Xsfx, &CheckList::ticked, [this] { Filter_Ticked(Xsfx, u"客房类型"); });
    resize(1366, 768);
}

QWidget* frmYD::makeRoomsTab() {
    auto* filters = new QHBoxLayout;
    filters->addLayout(Headed(u"楼层（&L）"_s, Xslc));
    filters->addLayout(Headed(u"房型（&X）"_s, Xsfx));
    auto* counts = new QHBoxLayout;
    counts->addWidget(LctjQd, 1);
    counts->addWidget(FxtjQd, 1);
    auto* lists = new QHBoxLayout;
    lists->addWidget(KfQd, 4);
    lists->addLayout(filters, 3);
    lists->addLayout(counts, 4);
    auto* commands = commandPanel({
        {u"AllSelCmd"_s, u"全选"_s, [this] { AllSelCmd_Click(); }, Qt::CTRL | Qt::Key_A},
        {u"AllClr"_s, u"全清"_s, [this] { AllClr_Click(); }, Qt::CTRL | Qt::Key_D},
        {u"CmdSet"_s, u"预分配"_s, [this] { CmdAdd_Click(); }},
        {u"ApplCmd"_s, u"预占客房"_s, [] {}},
        {u"YdfjQdPrint"_s, u"打印预留客房"_s, [this] { YdfjQdPrint_Click(); }},
        {u"YdfjQdFile"_s, u"生成预留清单"_s, [this] { YdfjQdFile_Click(); }},
    });
    command(u"CmdSet")->setToolTip(u"按照预订房间的数量，进入预分配操作"_s);
    // Choosing rooms by itself is no part of the system.
    command(u"ApplCmd")
        ->setToolTip(
            u"在当前的空闲房间中按照清单的要求预占房间，即将合适数量的房间状态变为预订。"_s);
    setCommandEnabled(u"ApplCmd", false);
    auto* tab = new QWidget;
    auto* content = new QVBoxLayout(tab);
    content->addLayout(lists, 1);
    content->addWidget(commands);
    return tab;
}

void frmYD::load(const QVariant& number) {
    if (KfQd->table().dataRows() == 0)
        loadRooms();
    PlanScreen::load(number);
    tabs_->setCurrentIndex(0);
}

void frmYD::loadRooms() {
    floors_ = LoadLcQd();
    types_ = LoadRoomTypes();
    Xslc->setEntries(floors_);
    Xsfx->setEntries(types_);
    LoadRoomsToHold(KfQd->table());
    KfQd->refresh();
    KfQd->autoFit();
    const HeldCounts counts = SetLcFxtjQd(KfQd->table(), floors_, types_);
    if (counts.notice)
        MsgBox(counts.notice->words, counts.notice->title);
    showHeld();
}

void frmYD::showHeld() {
    const HeldCounts counts = SetLcFxtjQd(KfQd->table(), floors_, types_);
    LctjQd->setTable(counts.byFloor);
    FxtjQd->setTable(counts.byType);
    KfQd->refresh();
    for (GridView* list : {LctjQd, FxtjQd})
        list->autoFit();
    const qsizetype held = MarkedRooms(KfQd->table()).size();
    tabs_->setTabText(1, held == 0 ? u"预留客房（&2）"_s : u"预留客房（&2） %1 间"_s.arg(held));
    Xslc->setTicks(QList<bool>(floors_.size(), false));
    Xsfx->setTicks(QList<bool>(types_.size(), false));
}

QString frmYD::newPlan() const {
    const QString plan = SetTag(PlanScreen::newPlan(), reservation::kState, reservation::kPlanned);
    return SetTag(plan, reservation::kArrival, Clock::DateText());
}

// The list doesn't have the rooms; without them the plan is changed without touching them.
void frmYD::planShown(const QString& number) {
    const PlanKind& kind = ReservationPlans();
    const RecordRead read = number.isEmpty() ? RecordRead{Reading::Absent, {}}
                                             : ReadToChange(kind.file(), kind.project, number);
    if (list()->table().text(list()->currentRow(), 0) != number && !number.isEmpty())
        return; // the user went on meanwhile
    isHeldKnown_ = !read.failed();
    MarkHeldRooms(KfQd->table(), GetTag(read.value, reservation::kHeldRooms));
    KfQd->setEnabled(isHeldKnown_);
    showHeld();
}

QString frmYD::formRecord() const {
    return SetTag(PlanScreen::formRecord(), reservation::kHeldRooms,
                  HeldRoomsText(MarkedRooms(KfQd->table())));
}

QStringList frmYD::furtherFields() const {
    return isHeldKnown_ ? QStringList{reservation::kHeldRooms.toString()} : QStringList();
}

// The calendar of the days of the plan that is shown.
void frmYD::RlCmd_Click() {
    OpenScreen(u"YdrlFrm", form()->text(u"Yjdd"));
}

// --- the rooms ---

void frmYD::KfQd_Click(int row) {
    TextTable& rooms = KfQd->table();
    const bool held = !rooms.text(row, 0).isEmpty();
    rooms.setText(row, 0, held ? QString() : kHeldMark.toString());
    showHeld();
}

// A floor or type that is ticked has all its rooms marked, one that is cleared none.
void frmYD::Filter_Ticked(CheckList* filter, QStringView column) {
    const int entry = filter->currentRow();
    if (entry < 0)
        return;
    const QList<bool> ticks = filter->ticks();
    MarkAll(KfQd->table(), column, filter->entries()[entry], ticks[entry]);
    showHeld();
    filter->setTicks(ticks);
}

void frmYD::AllSelCmd_Click() {
    for (const QString& floor : floors_)
        MarkAll(KfQd->table(), u"楼层号", floor, true);
    showHeld();
    Xslc->setTicks(QList<bool>(floors_.size(), true));
    Xsfx->setTicks(QList<bool>(types_.size(), true));
}

void frmYD::AllClr_Click() {
    MarkHeldRooms(KfQd->table(), {});
    showHeld();
}

void frmYD::YdfjQdPrint_Click() {
    PrintList(MarkedList(KfQd->table()), kPanel.listTitle, {});
}

void frmYD::YdfjQdFile_Click() {
    SaveGridToText(MarkedList(KfQd->table()), kPanel.listTitle);
}

} // namespace hotel
