#include "cashier/posting_screen.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

#include "cashier/Jzhfrm.h"
#include "cashier/folio_box.h"
#include "cashier/posting_page.h"
#include "house/folios/folio.h"
#include "house/folios/folio_posting.h"
#include "house/folios/folio_view.h"
#include "house/rooms/room_record.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "session/operation_log.h"
#include "session/session.h"

namespace hotel {

namespace {

constexpr int kTotalsMilliseconds = 500;
constexpr int kGuestListWidth = 260;
constexpr int kTotalWidth = 12; // in digits
constexpr int kSharedColumns = 5;
constexpr QStringView kMayPost = u"签单记账";

const QList<FormField> kSharedFields = {
    {{}, u"Krxm", u"客人姓名", Editor::Text, {}, 14},
    {{}, u"Fjh", u"房间号", Editor::Text, {}, 8},
    {{}, u"Fjdh", u"电话", Editor::ReadOnly, {}, 8},
    {{}, u"Jbdw", u"经办单位", Editor::ReadOnly, {}, 12},
    {{}, u"Jsr", u"经办人", Editor::ReadOnly, {}, 12},
};

// The room of a row of the guest list; empty in a row that isn't a room's.
QString RoomOfRow(const TextTable& guests, int row) {
    const QString name = guests.text(row, 0);
    return LeadingNumber(name.left(2)) > 0 ? name : QString();
}

// The first guest with a room, whom Enter in Krxm takes; the payer's line, which names none, where there is no
// other.
int FirstRoomRow(const TextTable& guests) {
    for (int row = 1; row < guests.rows(); ++row) {
        if (!RoomOfRow(guests, row).isEmpty())
            return row;
    }
    return guests.dataRows() > 0 ? 1 : 0;
}

} // namespace

PostingScreen::PostingScreen(const QString& name, const QString& caption,
                             const QList<PostingPageCommands>& pages,
                             const QList<ScreenCommand>& deposits)
    : Screen(name, caption), commands_(pages), Jzh(new FolioBox(u"Jzh"_s)), state_(new QLabel),
      shared_(new FieldForm(kSharedFields, kSharedColumns)), JzhmxQd(new GridView(u"JzhmxQd"_s)),
      tabs_(new QTabWidget), totals_(new QWidget) {
    tabs_->setObjectName(u"Pages"_s);
    tabs_->setFocusPolicy(Qt::NoFocus);
    for (int n = 0; n < commands_.size(); ++n) {
        auto* page = new PostingPage(commands_[n].kind);
        pages_.append(page);
        page->setCommands(makeCommands(
            commands_[n], page->kind() == kDepositPosting ? deposits : QList<ScreenCommand>()));
        tabs_->addTab(page, u"%1 F%2"_s.arg(page->entry().caption).arg(n + 1));
        auto* key = new QShortcut(QKeySequence(Qt::Key_F1 + n), this);
        on(key, &QShortcut::activated, [this, n] {
            tabs_->setCurrentIndex(n);
            goTo(currentPage()->firstField());
        });
    }
    JzhmxQd->setFixedWidth(kGuestListWidth);
    JzhmxQd->setTable(FolioRows({}));

    auto* work = new QHBoxLayout;
    work->addWidget(tabs_, 1);
    work->addWidget(JzhmxQd);
    auto* content = new QVBoxLayout;
    content->addWidget(makeHead());
    content->addWidget(shared_);
    content->addLayout(work, 1);
    setContent(content);
    addCommands({
        {u"PickCmd"_s, u"选择账号"_s, [this] { PickCmd_Click(); }, Qt::Key_F11},
        {u"FreshCmd"_s, u"刷新"_s, [this] { FreshFyxx(); }, Qt::Key_F12},
    });

    shared_->editor(posting_control::kGuest)->installEventFilter(this);
    on(Jzh, &QComboBox::editTextChanged, [this] { Jzh_Change(); });
    onEnter(Jzh, [this] { Jzh_Enter(); });
    onEnter(shared_->editor(posting_control::kGuest), [this] { Krxm_Enter(); });
    on(JzhmxQd, &GridView::rowActivated, [this] { Krxm_Enter(); });
    on(shared_, &FieldForm::left, [this] { Fjh_Change(); });
    every(kTotalsMilliseconds, [this] { showTotals(); })->setObjectName(u"Timer1"_s);
    resize(1340, 690);
}

QWidget* PostingScreen::makeHead() {
    state_->setObjectName(u"State"_s);
    state_->setStyleSheet(u"font-weight: bold; color: #B3261E"_s);
    auto* totals = new QHBoxLayout(totals_);
    totals->setContentsMargins(0, 0, 0, 0);
    auto* head = new QWidget;
    auto* layout = new QHBoxLayout(head);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(u"结账号"_s));
    layout->addWidget(Jzh);
    layout->addWidget(state_);
    layout->addStretch(1);
    layout->addWidget(totals_);
    return head;
}

QWidget* PostingScreen::makeCommands(const PostingPageCommands& names,
                                     const QList<ScreenCommand>& further) {
    const auto pageOf = [this, kind = names.kind] { return page(kind); };
    QList<ScreenCommand> commands = {
        {names.add.toString(), u"增加"_s, [this, names, pageOf] { add(pageOf(), names); },
         Qt::Key_F8, CommandKind::Default},
        {names.remove.toString(), u"删除"_s, [this, names, pageOf] { remove(pageOf(), names); },
         Qt::CTRL | Qt::Key_D},
        {names.print.toString(), u"打印清单"_s, [this, names, pageOf] { print(pageOf(), names); },
         Qt::Key_F9},
    };
    QWidget* panel = commandPanel(commands + further);
    if (names.printFlag.isEmpty())
        return panel;
    auto* flag = new QCheckBox(u"结账时打印"_s);
    flag->setObjectName(names.printFlag.toString());
    auto* line = new QWidget;
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(panel, 1);
    layout->addWidget(flag);
    return line;
}

QLineEdit* PostingScreen::addTotal(const QString& name, const QString& label, const QString& hint) {
    auto* total = new QLineEdit(u"0.00"_s);
    total->setObjectName(name);
    total->setReadOnly(true);
    total->setFocusPolicy(Qt::NoFocus);
    total->setAlignment(Qt::AlignRight);
    total->setToolTip(hint);
    QFont font = total->font();
    font.setBold(true);
    total->setFont(font);
    total->setFixedWidth(QFontMetrics(font).horizontalAdvance(u'0') * kTotalWidth);
    totals_->layout()->addWidget(new QLabel(label));
    totals_->layout()->addWidget(total);
    return total;
}

// --- the folio ---

void PostingScreen::load(const QVariant& folio) {
    shared_->setText(posting_control::kDepartment, CurrentSession().userDept);
    shared_->setText(posting_control::kOperator, CurrentSession().userName);
    if (!mayView()) {
        {
            const QSignalBlocker quiet(Jzh);
            Jzh->setFolio({});
        }
        showFolio({});
        return MsgBox(u"您无权浏览客人的费用信息！"_s, u"请联系管理员"_s);
    }
    Jzh->setChoices(LoadJzhQd());
    {
        const QSignalBlocker quiet(Jzh);
        Jzh->setFolio(folio.toString());
    }
    Jzh_Change();
    goTo(shown_.isEmpty() ? Jzh : currentPage()->firstField());
}

void PostingScreen::Jzh_Change() {
    if (!mayView())
        return;
    QString typed;
    do { // the box may be changed while the server is waited for
        typed = Jzh->currentText();
        showFolio(Jzh->folio());
    } while (typed != Jzh->currentText() && !stopRequested());
}

void PostingScreen::Jzh_Enter() {
    if (!mayView())
        return;
    if (shown_.isEmpty())
        Jzh->search();
    if (!shown_.isEmpty())
        goTo(currentPage()->firstField());
}

void PostingScreen::PickCmd_Click() {
    if (!mayView())
        return;
    const auto folio = PickFolio(this, Jzh->searchedText());
    if (!folio)
        return;
    Jzh->setFolio(*folio);
    goTo(currentPage()->firstField());
}

void PostingScreen::FreshFyxx() {
    if (!mayView())
        return;
    Jzh->setChoices(LoadJzhQd());
    Jzh_Change();
}

// Without a number the screen is empty, so that nobody's postings stand below another number.
void PostingScreen::showFolio(const QString& folio) {
    if (folio != shown_)
        setGuest({}, {});
    shown_ = folio;
    const FolioView view =
        folio.isEmpty() ? FolioView{true, {}, FolioRows({})} : LoadJzhToGrid(folio);
    Jzh->setRetired(!view.isOpen);
    state_->setText(view.isOpen ? QString() : kRetiredFolio.toString());
    JzhmxQd->setTable(view.rows);
    JzhmxQd->autoFit();
    JzhmxQd->setCurrent(FirstRoomRow(view.rows));
    isWhole_ = true;
    for (PostingPage* page : pages_)
        isWhole_ &= page->load(folio);
    fillGuest();
    showTotals();
    enableCommands();
    setStatus(isWhole_ ? QString() : u"账务没有读完，按 F12 再读"_s);
    if (view.notice)
        MsgBox(view.notice->words, view.notice->title);
    else if (!isWhole_)
        MsgBox(u"账务读取失败，请稍候再试！"_s, u"提示"_s);
}

void PostingScreen::enableCommands() {
    const bool open = !Jzh->isRetired() && isWhole_;
    for (const PostingPageCommands& names : commands_) {
        setCommandEnabled(names.add, open && HasRight(kMayPost));
        setCommandEnabled(names.remove, open && HasRight(kMayPost));
        setCommandEnabled(names.print, open);
    }
}

QString PostingScreen::folio() const {
    return shown_;
}

PostingPage* PostingScreen::page(PostingKind kind) const {
    return *std::ranges::find(pages_, kind, &PostingPage::kind);
}

PostingPage* PostingScreen::currentPage() const {
    return pages_.at(tabs_->currentIndex());
}

Money PostingScreen::charges() const {
    Money sum;
    for (const PostingPage* page : pages_)
        sum += LastRunning(page->list()->table(), posting::kRunningAmount);
    return sum;
}

// --- who posts are for ---

// The guest of the folio's first room charge.
void PostingScreen::fillGuest() {
    const auto charged = std::ranges::find(pages_, kRoomPosting, &PostingPage::kind);
    const TextTable charges = charged == pages_.end()
                                  ? LoadPostings(shown_, kRoomPosting).value_or(TextTable())
                                  : (*charged)->list()->table();
    const PostingValues typed = sharedValues();
    for (int row = 1; row < charges.rows(); ++row) {
        if (LeadingNumber(charges.text(row, posting::kSerial)) <= 0)
            continue;
        const auto orCharged = [&](QStringView control, QStringView column) {
            return typed[control].isEmpty() ? charges.text(row, column) : typed[control];
        };
        return setGuest(orCharged(posting_control::kGuest, posting::kGuest),
                        orCharged(posting_control::kRoom, posting::kRoom));
    }
}

void PostingScreen::setGuest(const QString& name, const QString& room) {
    shared_->setText(posting_control::kGuest, name);
    shared_->setText(posting_control::kRoom, room);
    Fjh_Change();
}

void PostingScreen::Krxm_Enter() {
    const int row = JzhmxQd->currentRow();
    if (row > 0)
        setGuest(JzhmxQd->table().text(row, 1), RoomOfRow(JzhmxQd->table(), row));
    goTo(currentPage()->firstField());
}

void PostingScreen::Fjh_Change() {
    const QString room = shared_->text(posting_control::kRoom);
    if (room == telephoneRoom_)
        return;
    telephoneRoom_ = room;
    shared_->setText(u"Fjdh",
                     room.isEmpty() ? QString() : GetTag(GetKfjbxx(room), room_record::kTelephone));
}

QString PostingScreen::telephone() const {
    return shared_->text(u"Fjdh");
}

PostingValues PostingScreen::sharedValues() const {
    PostingValues values;
    for (const FormField& field : kSharedFields)
        values.insert(field.control, shared_->text(field.control));
    return values;
}

// The arrow keys in Krxm choose among the guests.
bool PostingScreen::eventFilter(QObject* watched, QEvent* event) {
    const bool isKey =
        watched == shared_->editor(posting_control::kGuest) && event->type() == QEvent::KeyPress;
    const int key = isKey ? static_cast<QKeyEvent*>(event)->key() : 0;
    if (key != Qt::Key_Up && key != Qt::Key_Down)
        return Screen::eventFilter(watched, event);
    const int row = JzhmxQd->currentRow() + (key == Qt::Key_Up ? -1 : 1);
    if (row >= 1 && row < JzhmxQd->table().rows())
        JzhmxQd->setCurrent(row);
    return true;
}

// --- postings ---

QWidget* PostingScreen::editorOf(const PostingPage& page, QStringView control) const {
    const auto shared = std::ranges::find(kSharedFields, control, &FormField::control);
    return (shared == kSharedFields.end() ? page.form() : shared_)->editor(control);
}

void PostingScreen::add(PostingPage* page, const PostingPageCommands& names) {
    if (const auto refusal = RefuseFolioNumber(Jzh->currentText())) {
        MsgBox(refusal->words, refusal->title);
        return goTo(Jzh);
    }
    PostingValues values = page->values();
    values.insert(sharedValues());
    if (const auto objection = CheckPosting(page->kind(), values)) {
        MsgBox(objection->notice.words, objection->notice.title);
        if (!objection->proposal.isEmpty())
            page->form()->setText(objection->control, objection->proposal);
        return goTo(objection->proposal.isEmpty() ? editorOf(*page, objection->control)
                                                  : command(names.add));
    }
    const QString record = BuildPostingRecord(page->kind(), values, Clock::Now());
    const Posted written = SaveBills(shown_, page->kind(), record);
    if (written.status != 0)
        return MsgBox(u"没有保存成功,稍候再试!"_s, u"偶然错误"_s);
    page->showAdded(SetTag(record, posting::kSerial, written.key));
    showTotals();
    posted(*page, values);
    SaveLogRec(names.log.added.toString(), PostingDetail(shown_, record));
    setStatus(u"第 %1 笔已经记账"_s.arg(written.key));
    goTo(page->firstField());
}

void PostingScreen::remove(PostingPage* page, const PostingPageCommands& names) {
    if (const auto refusal = RefuseFolioNumber(Jzh->currentText()))
        return MsgBox(refusal->words, refusal->title);
    const TextTable& list = page->list()->table();
    const int row = page->list()->currentRow();
    if (list.dataRows() == 0)
        return;
    const PostingValues shared = sharedValues();
    if (!MayDelete(list, row, shared[posting_control::kDepartment],
                   shared[posting_control::kOperator]))
        return MsgBox(u"只能删除本人输入的记录，并且必须从最后一行开始删除！"_s, u"禁止"_s);
    if (DelBills(shown_, page->kind(), list.text(row, posting::kSerial)) != 0)
        return MsgBox(u"删除操作失败"_s, u"无法删除"_s);
    const QString detail = shown_ + u',' + list.row(row).join(u',');
    page->setValues(ValuesOfRow(page->kind(), list, row));
    const auto orShared = [&](QStringView column, QStringView control) {
        return list.column(column) < 0 ? shared[control] : list.text(row, column);
    };
    setGuest(orShared(posting::kGuest, posting_control::kGuest),
             orShared(posting::kRoom, posting_control::kRoom));
    page->showDeleted();
    showTotals();
    SaveLogRec(names.log.deleted.toString(), detail);
    goTo(page->firstField());
}

void PostingScreen::print(PostingPage* page, const PostingPageCommands& names) {
    const QString title = u"结账号："_s + shown_ + u"的"_s + page->entry().caption + u"清单"_s;
    page->print(title);
    SaveLogRec(names.printed.toString(), title);
}

} // namespace hotel
