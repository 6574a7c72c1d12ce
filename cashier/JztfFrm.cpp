#include "cashier/JztfFrm.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "cashier/QrtfFrm.h"
#include "cashier/check_out.h"
#include "cashier/folio_box.h"
#include "house/folios/folio.h"
#include "house/rooms/rate_table.h"
#include "platform/clock.h"
#include "record/numbers.h"
#include "screen/category_box.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "session/session.h"
#include "tools/aids/CalcSub.h"
#include "tools/aids/categories.h"

namespace hotel {

namespace {

constexpr int kTotalsEvery = 500; // milliseconds
constexpr int kStatusLength = 5;  // characters

const QList<FormField> kTotals = {
    {{}, u"Krxm", u"客人姓名", Editor::ReadOnly},  {{}, u"Zhxfe", u"总消费额", Editor::ReadOnly},
    {{}, u"Jzff", u"结账房费", Editor::ReadOnly},  {{}, u"Jsr", u"经手人", Editor::ReadOnly},
    {{}, u"Yxnum", u"间人", Editor::ReadOnly},     {{}, u"Zssje", u"已收金额", Editor::ReadOnly},
    {{}, u"Zysje", u"总应收额", Editor::ReadOnly}, {{}, u"Jbdw", u"经办单位", Editor::ReadOnly},
};
constexpr int kTotalsColumns = 4;

constexpr QStringView kPeriods[] = {u"当日无房费时段", u"当日半价时段", u"当日全价时段"};

QString TimeNow() {
    return Clock::Now().toString(u"HH:mm");
}

} // namespace

JztfFrm::JztfFrm()
    : Screen(u"JztfFrm"_s, u"结账退房"_s), Jzh(new FolioBox(u"Jzh"_s)),
      totals_(new FieldForm(kTotals, kTotalsColumns)),
      Yhft(new CategoryBox(u"使用后房态"_s, false)), Sd(new QButtonGroup(this)),
      Jzdxqd(new GridView(u"Jzdxqd"_s)) {
    Yhft->setObjectName(u"Yhft"_s);
    Yhft->setMinimumContentsLength(kStatusLength);
    for (const QStringView amount : {u"Zhxfe", u"Zssje", u"Jzff", u"Zysje"})
        totals_->editor<QLineEdit>(amount)->setAlignment(Qt::AlignRight);
    Jzdxqd->setTable(EmptySettlementList());
    Jzdxqd->setCheckColumn(kChosenColumn);
    Jzdxqd->setEditable(kChargeColumn, {KeyFilter::Amount, [](const QString& text) {
                                            const auto amount = AmountFromCell(text).amount;
                                            return text.isEmpty() || !amount ? text
                                                                             : amount->text();
                                        }});
    Jzdxqd->setEnterMove([this](GridCell from) { return nextChosen(from); });
    Jzdxqd->setColours([this](int row, int column) -> CellColours {
        if (column == kChargeColumn && typedRows_.contains(row))
            return {.background = QColor(0xFF, 0xF1, 0xC9)};
        return IsChosen(Jzdxqd->table(), row) ? CellColours{}
                                              : CellColours{.text = QColor(0x8A, 0x8A, 0x8A)};
    });
    for (const int column : {kPriceColumn, kChargeColumn})
        Jzdxqd->setColumnAlignment(column, Qt::AlignRight | Qt::AlignVCenter);

    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel(u"结账号"_s));
    top->addWidget(Jzh);
    top->addSpacing(16);
    top->addWidget(new QLabel(u"退房后房态"_s));
    top->addWidget(Yhft);
    top->addSpacing(16);
    top->addWidget(makePeriodOptions());
    top->addStretch(1);
    auto* content = new QVBoxLayout;
    content->addLayout(top);
    content->addWidget(totals_);
    content->addWidget(Jzdxqd, 1);
    setContent(content);

    addCommands({
        {u"DjCmd"_s, u"计算房费"_s, [this] { DjCmd_Click(); }, Qt::Key_F6},
        {u"QrCmd"_s, u"确认结账退房"_s, [this] { QrCmd_Click(); }, Qt::Key_F8,
         CommandKind::Default},
        {u"XzCmd"_s, u"退或留本行"_s, [this] { XzCmd_Click(); }, Qt::Key_F4, CommandKind::Plain,
         u"rows"_s},
        {u"QxCmd"_s, u"全部退房"_s, [this] { QxCmd_Click(); }, Qt::Key_F3, CommandKind::Plain,
         u"rows"_s},
        {u"FreshCmd"_s, u"刷新"_s, [this] { FreshCmd_Click(); }, Qt::Key_F5, CommandKind::Plain,
         u"rows"_s},
        {u"JzhxxCmd"_s, u"账务明细"_s, [this] { OpenScreen(u"JzhxxFrm", shown_); }, Qt::Key_F11,
         CommandKind::Plain, u"end"_s},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
    on(Jzh, &QComboBox::editTextChanged, [this] { Jzh_Change(); });
    onEnter(Jzh, [this] { Jzh_Enter(); });
    on(Jzdxqd, &GridView::rowClicked, [this](int row, int column) { Jzdxqd_Click(row, column); });
    on(Jzdxqd, &GridView::cellEdited, [this](int row, int) { Jzdxqd_Edited(row); });
    every(kTotalsEvery, [this] { showTotals(); });
    resize(1300, 680);
}

QWidget* JztfFrm::makePeriodOptions() {
    auto* frame = new QWidget;
    auto* line = new QHBoxLayout(frame);
    line->setContentsMargins(0, 0, 0, 0);
    for (int period = 0; period < int(std::size(kPeriods)); ++period) {
        auto* option = new QRadioButton(kPeriods[period].toString());
        option->setObjectName(u"Sd%1"_s.arg(period));
        option->setToolTip(u"Alt+%1"_s.arg(period));
        // A button's own shortcut presses it after a moment: F6 would come ahead of it.
        auto* key = new QShortcut(QKeySequence(Qt::ALT | Qt::Key(Qt::Key_0 + period)), frame);
        connect(key, &QShortcut::activated, option, [option] { option->setChecked(true); });
        Sd->addButton(option, period);
        line->addWidget(option);
    }
    Sd->button(0)->setChecked(true);
    return frame;
}

void JztfFrm::load(const QVariant& folio) {
    Jzh->setFocus();
    totals_->setText(u"Jsr", CurrentSession().userName);
    totals_->setText(u"Jbdw", CurrentSession().userDept);
    Jzh->setChoices(LoadJzhQd());
    const QStringList after = LoadCategory(u"使用后房态");
    Yhft->clear();
    Yhft->addItems(after);
    LoadRateTable();
    if (folio.toString() == Jzh->currentText())
        showFolio(Jzh->folio());
    else
        Jzh->setFolio(folio.toString());
}

// --- which folio ---

void JztfFrm::Jzh_Change() {
    QString typed;
    do { // the box may be changed while the server is waited for
        typed = Jzh->currentText();
        if (Jzh->folio() != shown_)
            showFolio(Jzh->folio());
    } while (typed != Jzh->currentText() && !stopRequested());
}

void JztfFrm::Jzh_Enter() {
    if (!Jzh->folio().isEmpty())
        return goTo(command(u"DjCmd"));
    Jzh->search();
}

void JztfFrm::FreshCmd_Click() {
    Jzh->setChoices(LoadJzhQd());
    showFolio(Jzh->folio());
}

// Without a number the list is empty, so that nobody's rooms stand below another number.
void JztfFrm::showFolio(const QString& folio) {
    const SettlementFolio loaded = folio.isEmpty() ? SettlementFolio() : LoadSettlementFolio(folio);
    shown_ = folio;
    folioTotals_ = loaded.totals;
    showList(loaded.list);
    if (loaded.notice)
        MsgBox(loaded.notice->words, loaded.notice->title);
    choosePeriod();
}

void JztfFrm::choosePeriod() {
    const PeriodChoice choice =
        PeriodOf(Jzdxqd->table(), TimeNow(), Clock::Today().toString(Qt::ISODate));
    Sd->button(int(choice.period))->setChecked(true);
    if (choice.remind)
        MsgBox(PeriodReminder().words, PeriodReminder().title);
}

void JztfFrm::showList(const TextTable& list) {
    typedRows_.clear();
    Jzdxqd->setTable(list);
    Jzdxqd->autoFit();
    showTotals();
}

void JztfFrm::showTotals() {
    const TextTable& list = Jzdxqd->table();
    const SettlementSums sums = SumsOf(list, folioTotals_.value_or(FolioTotals{}));
    totals_->setText(u"Zhxfe", sums.spent.text());
    totals_->setText(u"Zssje", sums.received.text());
    totals_->setText(u"Jzff", sums.roomCharges.text());
    totals_->setText(u"Zysje", sums.due().text());
    totals_->setText(u"Yxnum", FormatNumber(ChosenRows(list).size(), u"#0"));
    totals_->setText(u"Krxm", FirstGuest(list));
}

// --- who leaves, and for how much ---

void JztfFrm::toggle(int row) {
    SetChosen(Jzdxqd->table(), row, !IsChosen(Jzdxqd->table(), row));
    Jzdxqd->rowChanged(row);
    showTotals();
}

void JztfFrm::Jzdxqd_Click(int row, int column) {
    if (column == kChosenColumn)
        toggle(row);
}

void JztfFrm::XzCmd_Click() {
    if (const int row = Jzdxqd->currentRow(); row > 0)
        toggle(row);
}

void JztfFrm::QxCmd_Click() {
    for (int row = 1; row < Jzdxqd->table().rows(); ++row)
        SetChosen(Jzdxqd->table(), row, true);
    Jzdxqd->refresh();
    showTotals();
}

void JztfFrm::Jzdxqd_Edited(int row) {
    typedRows_.insert(row);
    setStatus(Jzdxqd->table().text(row, kRoomColumn) + u" 结账房费已修改"_s);
}

GridCell JztfFrm::nextChosen(GridCell from) const {
    for (const int row : ChosenRows(Jzdxqd->table())) {
        if (row > from.row)
            return {row, kChargeColumn};
    }
    return {from.row, kChargeColumn};
}

void JztfFrm::DjCmd_Click() {
    const QList<int> rows = ChosenRows(Jzdxqd->table());
    if (rows.isEmpty())
        return;
    CalculateCharges(Jzdxqd->table(), ChargePeriod(Sd->checkedId()), TimeNow(), RatesInUse());
    typedRows_.clear();
    Jzdxqd->refresh();
    Jzdxqd->autoFit();
    Jzdxqd->setCurrent(rows.first(), kChargeColumn);
    goTo(Jzdxqd);
    showTotals();
}

// --- confirming ---

void JztfFrm::QrCmd_Click() {
    Jzdxqd->finishCell();
    const QString folio = shown_;
    const CheckOutOutcome outcome = ConfirmCheckOut(
        {folio, Jzdxqd->table(), Yhft->currentText()},
        {[](const Notice& question) { return AskYesNo(question.words, question.title); },
         [&](const SettlementSums& sums) { return TakePayment(this, folio, sums.due().text()); },
         [this](int done, int total) { progress(done, total, u"正在结账退房"_s); }});
    for (const Notice& notice : outcome.notices)
        MsgBox(notice.words, notice.title);
    if (outcome.undecidedRow > 0) {
        Jzdxqd->setCurrent(outcome.undecidedRow, kChargeColumn);
        goTo(Jzdxqd);
    }
    if (outcome.done)
        showOutcome(folio, outcome);
}

void JztfFrm::showOutcome(const QString& folio, const CheckOutOutcome& outcome) {
    showList(outcome.list);
    if (outcome.retired) {
        Jzh->removeItem(Jzh->findText(folio));
        Jzh->clearEditText();
        goTo(Jzh);
        setStatus(u"结账号 "_s + folio + u" 已经结账退房"_s);
        return;
    }
    folioTotals_ = LoadFolioTotals(folio);
    if (!folioTotals_)
        MsgBox(TotalsUnread(folio).words, TotalsUnread(folio).title);
    showTotals();
    setStatus(u"结账号 "_s + folio + u" 部分退房，还有 %1 间"_s.arg(outcome.list.dataRows()));
}

} // namespace hotel
