#include "cashier/JzhxxFrm.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

#include "cashier/Jzhfrm.h"
#include "cashier/folio_box.h"
#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/folios/folio_posting.h"
#include "house/folios/folio_view.h"
#include "house/guests/guest_text.h"
#include "record/record_text.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "tools/aids/photo_frame.h"
#include "tools/aids/record_tree.h"

namespace hotel {

namespace {

// Kinds whose records are told by their line and have no value shown.
constexpr PostingKind kChargeKinds[] = {kDepositPosting, kRoomPosting, kFoodPosting,
                                        kBroadbandPosting, kTelephonePosting};

bool IsChargeProject(QStringView name) {
    return std::ranges::any_of(kChargeKinds,
                               [name](int kind) { return PostingProject(kind) == name; });
}

// What a record of the ledger shows in its line: of each column's fields, the first it has.
struct LedgerColumn {
    QString title;
    QStringList fields;
    bool isAmount = false;
};
const LedgerColumn kContent = {{},
                               {u"费用名称"_s, u"信用保证种类"_s, u"服务类别"_s, u"支付方式"_s}};
const LedgerColumn kLedgerColumns[] = {
    {u"日期"_s, {u"日期"_s, u"日期时间"_s}},
    {u"时间"_s, {u"时间"_s}},
    {u"客人"_s, {u"客人"_s, u"客人姓名"_s}},
    {u"房间号"_s, {u"房间号"_s}},
    {u"金额"_s, {u"金额"_s, u"实收金额"_s, u"信用金额"_s}, true},
    {u"备注"_s, {u"备注"_s, u"服务说明"_s}},
};

QString CellOf(const LedgerColumn& column, QStringView record) {
    for (const QString& field : column.fields) {
        const QString value = GetTag(record, field);
        if (!value.isEmpty())
            return value;
    }
    return {};
}

QStringList LedgerCells(QStringView record) {
    QStringList cells{CellOf(kContent, record)};
    for (const LedgerColumn& column : kLedgerColumns)
        cells.append(CellOf(column, record));
    return cells;
}

QList<RecordTree::Column> TreeColumns() {
    QList<RecordTree::Column> columns;
    for (const LedgerColumn& column : kLedgerColumns)
        columns.append({column.title, column.isAmount});
    return columns;
}

int PostingsIn(const RecordTree& ledger) {
    int postings = 0;
    for (int kind = kDepositPosting; kind <= kServicePosting; ++kind) {
        const QTreeWidgetItem* project = ledger.find(PostingProject(kind));
        postings += project ? project->childCount() : 0;
    }
    return postings;
}

QString ValueLine(const QTreeWidgetItem* node) {
    const bool isProject = node && !node->parent();
    if (!node || (RecordTree::IsRecord(node) && IsChargeProject(node->parent()->text(0))))
        return {};
    return node->text(0) + u" = "_s + (isProject ? node->text(1) : RecordTree::TextOf(node));
}

} // namespace

JzhxxFrm::JzhxxFrm()
    : Screen(u"JzhxxFrm"_s, u"结账号详细信息"_s), Jzh(new FolioBox(u"Jzh"_s)), state_(new QLabel),
      JzhmxQd(new GridView(u"JzhmxQd"_s)),
      QVRTrVw(new RecordTree(u"QVRTrVw"_s, RecordTree::Fields::WhenOpened)),
      value_(new QPlainTextEdit),
      photo_(new PhotoFrame(u"Zpk"_s, u"单击清单中的一行，显示客人的照片"_s)) {
    JzhmxQd->setTable(FolioRows({}));
    QVRTrVw->setRecordCells(TreeColumns(), [](QStringView, const QString&, const QString& record) {
        return LedgerCells(record);
    });
    value_->setObjectName(u"NodeValue"_s);
    value_->setReadOnly(true);
    value_->setFixedHeight(value_->fontMetrics().lineSpacing() * 3 + 16);
    state_->setObjectName(u"State"_s);
    state_->setStyleSheet(u"font-weight: bold; color: #B3261E"_s);

    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel(u"结账号"_s));
    top->addWidget(Jzh);
    top->addWidget(
        commandPanel({{u"PickCmd"_s, u"选择账号"_s, [this] { PickCmd_Click(); }, Qt::Key_F3}}));
    top->addWidget(state_);
    top->addStretch(1);
    auto* guests = new QHBoxLayout;
    guests->addWidget(JzhmxQd, 3);
    guests->addWidget(photo_, 1);
    auto* content = new QVBoxLayout;
    content->addLayout(top);
    content->addLayout(guests, 2);
    content->addWidget(QVRTrVw, 3);
    content->addWidget(value_);
    setContent(content);

    addCommands({
        {u"FreshCmd"_s, u"刷新"_s, [this] { FreshCmd_Click(); }, Qt::Key_F5},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
    on(Jzh, &QComboBox::editTextChanged, [this] { Jzh_Change(); });
    onEnter(Jzh, [this] { Jzh_Enter(); });
    on(JzhmxQd, &GridView::rowClicked, [this](int row, int) { JzhmxQd_Click(row); });
    on(JzhmxQd, &GridView::rowActivated, [this](int row, int) { JzhmxQd_Click(row); });
    on(QVRTrVw, &QTreeWidget::currentItemChanged, [this] { QVRTrVw_Click(); });
    onEnter(QVRTrVw, [this] {
        if (QTreeWidgetItem* node = QVRTrVw->currentItem())
            node->setExpanded(!node->isExpanded());
    });
    resize(1180, 760);
}

void JzhxxFrm::load(const QVariant& folio) {
    Jzh->setFocus();
    Jzh->setChoices(LoadJzhQd());
    {
        const QSignalBlocker quiet(Jzh);
        Jzh->setFolio(folio.toString());
    }
    Jzh_Change();
}

void JzhxxFrm::Jzh_Change() {
    QString shown;
    do { // the box may be changed while the server is waited for
        shown = Jzh->currentText();
        ShowFolio(Jzh->folio());
    } while (shown != Jzh->currentText() && !stopRequested());
}

void JzhxxFrm::Jzh_Enter() {
    if (!Jzh->folio().isEmpty()) {
        QVRTrVw->setFocus();
        return;
    }
    Jzh->search();
}

void JzhxxFrm::PickCmd_Click() {
    if (const auto folio = PickFolio(this, Jzh->searchedText()))
        Jzh->setFolio(*folio);
}

void JzhxxFrm::FreshCmd_Click() {
    Jzh->setChoices(LoadJzhQd());
    Jzh_Change();
}

// Without a number the screen is empty, so that nobody's folio stands below another number.
void JzhxxFrm::ShowFolio(const QString& folio) {
    photo_->setPhoto({});
    const FolioView view =
        folio.isEmpty() ? FolioView{true, {}, FolioRows({})} : LoadJzhToGrid(folio);
    Jzh->setRetired(!view.isOpen);
    state_->setText(view.isOpen ? QString() : kRetiredFolio.toString());
    JzhmxQd->setTable(view.rows);
    JzhmxQd->autoFit();
    if (view.notice)
        MsgBox(view.notice->words, view.notice->title);
    ShowLedger(folio);
}

void JzhxxFrm::ShowLedger(const QString& folio) {
    const QString file = folio.isEmpty() ? QString() : LedgerFile(folio);
    const RecordTree::Load load = QVRTrVw->load(*this, file);
    for (int n = 0; n < QVRTrVw->topLevelItemCount(); ++n) {
        QTreeWidgetItem* project = QVRTrVw->topLevelItem(n);
        project->setExpanded(IsChargeProject(project->text(0)));
    }
    QVRTrVw_Click();
    if (load != RecordTree::Load::Complete)
        setStatus(u"账务没有读完，按 F5 再读"_s);
    else
        setStatus(folio.isEmpty() ? QString() : u"共 %1 笔账务"_s.arg(PostingsIn(*QVRTrVw)));
}

void JzhxxFrm::JzhmxQd_Click(int row) {
    ShowListedPhoto(photo_, JzhmxQd->table(), row, guest_text::kPortrait, GuestPhotographFile);
}

void JzhxxFrm::QVRTrVw_Click() {
    value_->setPlainText(ValueLine(QVRTrVw->currentItem()));
}

} // namespace hotel
