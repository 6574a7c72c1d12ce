#include "frontoffice/RzjdFrm.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "frontoffice/RzdjFrm.h"
#include "frontoffice/registration_form_print.h"
#include "house/common/paths.h"
#include "house/guests/offered_rooms.h"
#include "house/rooms/rate_table.h"
#include "house/rooms/room_record.h"
#include "house/stays/check_in.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "screen/check_list.h"
#include "screen/grid_view.h"
#include "screen/key_filter.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "session/parameters.h"
#include "tools/aids/categories.h"
#include "tools/aids/photo_frame.h"

namespace hotel {

namespace {

using namespace room_record;

const QStringList kTitles = {u"房间号"_s, u"房态"_s,     u"楼层号"_s, u"客房类型"_s, u"床位数"_s,
                             u"住客数"_s, u"房态说明"_s, u"房价"_s,   u"照片"_s};

GridView* MakeRoomList(const QString& name) {
    auto* list = new GridView(name);
    list->table().setHeaders(kTitles);
    list->setSelect(GridView::Select::Rows);
    for (const QStringView title : {kBeds, kGuests})
        list->setColumnAlignment(list->table().column(title), Qt::AlignRight | Qt::AlignVCenter);
    return list;
}

QLabel* MakeCount(const QString& name) {
    auto* count = new QLabel;
    count->setObjectName(name);
    QFont bold = count->font();
    bold.setBold(true);
    count->setFont(bold);
    return count;
}

QHBoxLayout* Headed(const QString& caption, QWidget* count) {
    auto* line = new QHBoxLayout;
    line->addWidget(new QLabel(caption));
    line->addWidget(count);
    line->addWidget(new QLabel(u"间"_s));
    line->addStretch();
    return line;
}

QStringList Numbers(const GridView& list, const QList<int>& rows) {
    QStringList numbers;
    for (const int row : rows)
        numbers.append(list.table().text(row, kNumber));
    return numbers;
}

QStringList AllNumbers(const GridView& list) {
    QStringList numbers;
    for (int row = 1; row < list.table().rows(); ++row)
        numbers.append(list.table().text(row, kNumber));
    return numbers;
}

} // namespace

RzjdFrm::RzjdFrm()
    : Screen(u"RzjdFrm"_s, u"客人入住登记"_s), roomBox_(new QLineEdit),
      Kxkfqd(MakeRoomList(u"Kxkfqd"_s)), Yxkfqd(MakeRoomList(u"Yxkfqd"_s)),
      Kxnum(MakeCount(u"Kxnum"_s)), Yxnum(MakeCount(u"Yxnum"_s)), Ftys(new CheckList(u"Ftys"_s)),
      photo_(new PhotoFrame(u"Zpk"_s, u"客房照片"_s)), photoSoon_(new QTimer(this)) {
    roomBox_->setObjectName(u"RoomBox"_s);
    roomBox_->setPlaceholderText(u"8301  8305  8307-8312"_s);
    onEnter(roomBox_, [this] { RoomBox_Enter(); });

    auto* typing = new QHBoxLayout;
    auto* label = new QLabel(u"房间号(&H)"_s);
    label->setBuddy(roomBox_);
    typing->addWidget(label);
    typing->addWidget(roomBox_, 1);
    auto* filterLabel = new QLabel(u"客房房态约束(&T)"_s);
    filterLabel->setBuddy(Ftys);

    auto* offered = new QVBoxLayout;
    offered->addLayout(Headed(u"可选客房"_s, Kxnum));
    offered->addWidget(Kxkfqd, 1);
    auto* chosen = new QVBoxLayout;
    chosen->addLayout(Headed(u"已选客房"_s, Yxnum));
    chosen->addWidget(Yxkfqd, 1);
    auto* side = new QVBoxLayout;
    side->addWidget(filterLabel);
    side->addWidget(Ftys);
    side->addWidget(photo_);
    side->addStretch();
    auto* lists = new QHBoxLayout;
    lists->addLayout(offered, 5);
    lists->addLayout(chosen, 5);
    lists->addLayout(side, 2);
    auto* content = new QVBoxLayout;
    content->addLayout(typing);
    content->addLayout(lists, 1);
    setContent(content);

    addCommands({
        {u"DownCmd"_s, u"选中"_s, [this] { DownCmd_Click(); }, Qt::Key_F3, CommandKind::Plain,
         u"rooms"_s},
        {u"UpCmd"_s, u"退回"_s, [this] { UpCmd_Click(); }, Qt::Key_F4, CommandKind::Plain,
         u"rooms"_s},
        {u"FreshCmd"_s, u"刷新"_s, [this] { FreshCmd_Click(); }, Qt::Key_F5, CommandKind::Plain,
         u"rooms"_s},
        {u"DjCmd"_s, u"客人详细信息登记"_s, [this] { DjCmd_Click(); }, Qt::Key_F6,
         CommandKind::Plain, u"party"_s},
        {u"QrCmd"_s, u"确认登记完成"_s, [this] { QrCmd_Click(); }, Qt::Key_F8, CommandKind::Default,
         u"party"_s},
        {u"DyCmd"_s, u"打印住房单"_s, [this] { DyCmd_Click(); }, Qt::Key_F9, CommandKind::Plain,
         u"party"_s},
        {u"FtCmd"_s, u"察看房态"_s, [] { OpenScreen(u"Ftxxfrm"); }, Qt::Key_F11, CommandKind::Plain,
         u"look"_s},
        {u"JgbCmd"_s, u"当前房价表"_s, [] { OpenScreen(u"Fjxxfrm"); }, Qt::Key_F12,
         CommandKind::Plain, u"look"_s},
    });
    // The picture waits until a second click would have come: fetching it, the list takes none.
    photoSoon_->setSingleShot(true);
    photoSoon_->setInterval(QApplication::doubleClickInterval());
    on(Kxkfqd, &GridView::rowClicked, [this] { photoSoon_->start(); });
    on(photoSoon_, &QTimer::timeout, [this] { Kxkfqd_Click(); });
    on(Kxkfqd, &GridView::rowActivated, [this] { DownCmd_Click(); });
    on(Yxkfqd, &GridView::rowActivated, [this] { UpCmd_Click(); });
    on(Ftys, &CheckList::ticked, [this] { loadOffered(); });
    resize(1400, 720);
}

void RzjdFrm::load(const QVariant&) {
    if (Yxkfqd->table().dataRows() > 0)
        return;
    Ftys->setEntries(LoadCategory(u"可售房态"));
    LoadRateTable();
    fresh();
}

// --- choosing rooms ---

void RzjdFrm::fresh() {
    workingSet_.clear();
    Yxkfqd->table().clearRows();
    Yxkfqd->refresh();
    loadOffered();
    roomBox_->clear();
    roomBox_->setFocus();
}

void RzjdFrm::loadOffered() {
    LoadKxkfQd(Kxkfqd->table(), StatusFilter(Ftys->tickedEntries()), ChosenRooms(Yxkfqd->table()));
    Kxkfqd->refresh();
    Kxkfqd->autoFit();
    photo_->setPhoto({});
    showCounts();
}

void RzjdFrm::moveRows(GridView* from, GridView* to, const QStringList& rooms) {
    photoSoon_->stop();
    const int stood = from->currentRow();
    for (const QString& room : rooms) {
        const int row = from->table().find(from->table().column(kNumber), room);
        to->table().addRow(from->table().row(row));
        from->table().removeRow(row);
    }
    to->table().sort(0, TextTable::Order::Natural);
    for (GridView* list : {from, to}) {
        list->refresh();
        list->autoFit();
    }
    from->setCurrent(std::min(stood, from->table().dataRows()));
    if (!rooms.isEmpty())
        to->setCurrent(to->table().find(to->table().column(kNumber), rooms.last()));
    workingSet_ = KeepRooms(workingSet_, ChosenRooms(Yxkfqd->table()));
    showCounts();
}

void RzjdFrm::RoomBox_Enter() {
    if (TrimWhite(roomBox_->text()).isEmpty()) {
        if (Yxkfqd->table().dataRows() > 0)
            DjCmd_Click();
        return;
    }
    const TypedRooms typed = RoomsTyped(PlainForm(roomBox_->text()), AllNumbers(*Kxkfqd));
    moveRows(Kxkfqd, Yxkfqd, typed.rooms);
    roomBox_->setText(typed.unknown.join(u' '));
    if (typed.unknown.isEmpty())
        return;
    MsgBox(u"客房："_s + typed.unknown.join(u","_s) + u" 现在不可选，请核对房间号和房态！"_s,
           u"提示"_s);
    roomBox_->selectAll();
}

void RzjdFrm::DownCmd_Click() {
    moveRows(Kxkfqd, Yxkfqd, Numbers(*Kxkfqd, Kxkfqd->selectedRows()));
}

void RzjdFrm::UpCmd_Click() {
    moveRows(Yxkfqd, Kxkfqd, Numbers(*Yxkfqd, Yxkfqd->selectedRows()));
}

void RzjdFrm::FreshCmd_Click() {
    if (maySetAside(u"已登记的客人还没有确认，刷新将清除本次登记，要刷新吗？"_s))
        fresh();
}

void RzjdFrm::Kxkfqd_Click() {
    ShowListedPhoto(photo_, Kxkfqd->table(), Kxkfqd->currentRow(), kPicture, RoomPictureFile);
}

// --- the party ---

void RzjdFrm::showCounts() {
    Kxnum->setText(FormatNumber(Kxkfqd->table().dataRows(), u"#0"));
    Yxnum->setText(FormatNumber(Yxkfqd->table().dataRows(), u"#0"));
    setStatus(u"已选客房 %1 间，已登记客人 %2 位"_s.arg(Yxkfqd->table().dataRows())
                  .arg(ValidGuestsOfSet(workingSet_)));
}

bool RzjdFrm::maySetAside(const QString& words) {
    return ValidGuestsOfSet(workingSet_) == 0 || AskYesNo(words, u"提示"_s);
}

void RzjdFrm::DjCmd_Click() {
    const QList<ChosenRoom> rooms = ChosenRooms(Yxkfqd->table());
    if (rooms.isEmpty())
        return;
    workingSet_ = KeepRooms(OpenWorkingSet(workingSet_, rooms), rooms);
    for (const ChosenRoom& room : rooms) {
        if (BedsOfSet(workingSet_, room.number).isEmpty())
            return refuseFullRoom(room.number);
    }
    ModalScreen<RzdjFrm> form(this, workingSet_, rooms);
    form.show();
    if (!form.get())
        return;
    workingSet_ = form->workingSet();
    showCounts();
    goTo(ValidGuestsOfSet(workingSet_) > 0 ? command(u"QrCmd") : static_cast<QWidget*>(roomBox_));
}

// Other desks have filled it since it was offered.
void RzjdFrm::refuseFullRoom(const QString& room) {
    showCounts();
    MsgBox(u"客房："_s + room + u" 已没有空床，请退回这间客房再登记！"_s, u"请检查"_s);
    Yxkfqd->setCurrent(Yxkfqd->table().find(Yxkfqd->table().column(kNumber), room));
    goTo(Yxkfqd);
}

void RzjdFrm::QrCmd_Click() {
    const CheckInOutcome outcome = ConfirmCheckIn(workingSet_, ChosenRooms(Yxkfqd->table()));
    if (outcome.notice)
        MsgBox(outcome.notice->words, outcome.notice->title);
    if (!outcome.confirmed)
        return;
    if (ParamOn(u"AutoFy"))
        OpenScreen(u"FyxxFrm", outcome.firstFolio);
    fresh();
    setStatus(u"登记完成：%1 间客房，结账号 %2"_s.arg(outcome.roomsWithGuests.size())
                  .arg(outcome.firstFolio));
}

void RzjdFrm::DyCmd_Click() {
    if (const auto refusal = RefuseRegistrationForm(workingSet_))
        MsgBox(refusal->words, refusal->title);
    else
        PrintRegistrationForm(workingSet_, AllNumbers(*Yxkfqd));
}

bool RzjdFrm::closing() {
    return maySetAside(u"已登记的客人还没有确认，关闭将清除本次登记，要关闭吗？"_s);
}

} // namespace hotel
