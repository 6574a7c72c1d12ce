#include "frontoffice/KrhfFrm.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "frontoffice/RzdjFrm.h"
#include "frontoffice/room_change_print.h"
#include "house/guests/offered_rooms.h"
#include "house/guests/working_set.h"
#include "house/rooms/rate_table.h"
#include "house/rooms/room_record.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "screen/check_list.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/key_filter.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "tools/aids/categories.h"

namespace hotel {

namespace {

const QStringList kTitles = {u"房间号"_s, u"房态"_s,   u"楼层号"_s,   u"客房类型"_s,
                             u"床位数"_s, u"住客数"_s, u"电话号码"_s, u"房价"_s};

const QList<FormField> kBoxes = {
    {{}, u"Yfjh", u"原房间号", Editor::Text, {}, 10, 10},
    {{}, u"Xfjh", u"新房间号", Editor::Text, {}, 10, 10},
    {{}, u"Hfyy", u"换房原因", Editor::CategoryText, u"换房原因", 24, 60},
    {{}, u"Yhft", u"原房使用后房态", Editor::Category, u"使用后房态"},
};

GridView* MakeRoomList(const QString& name) {
    auto* list = new GridView(name);
    list->table().setHeaders(kTitles);
    list->setSelect(GridView::Select::Rows);
    for (const QStringView title : {room_record::kBeds, room_record::kGuests})
        list->setColumnAlignment(list->table().column(title), Qt::AlignRight | Qt::AlignVCenter);
    return list;
}

QWidget* Framed(const QString& caption, GridView* list, CheckList* statuses) {
    auto* frame = new QGroupBox(caption);
    auto* inside = new QHBoxLayout(frame);
    inside->addWidget(list, 1);
    inside->addWidget(statuses);
    return frame;
}

} // namespace

KrhfFrm::KrhfFrm()
    : Screen(u"KrhfFrm"_s, u"客人换房"_s), boxes_(new FieldForm(kBoxes, 4)),
      KrfjQd(MakeRoomList(u"KrfjQd"_s)), Kxkfqd(MakeRoomList(u"Kxkfqd"_s)),
      Khft(new CheckList(u"Khft"_s)), Kxft(new CheckList(u"Kxft"_s)) {
    for (const QStringView box : {u"Yfjh", u"Xfjh"})
        SetKeyFilter(boxes_->editor<QLineEdit>(box), KeyFilter::Capitals);
    auto* lists = new QHBoxLayout;
    lists->addWidget(Framed(u"住客房间（&O）"_s, KrfjQd, Khft), 1);
    lists->addWidget(Framed(u"可换客房（&N）"_s, Kxkfqd, Kxft), 1);
    auto* content = new QVBoxLayout;
    content->addWidget(boxes_);
    content->addLayout(lists, 1);
    setContent(content);

    addCommands({
        {u"XgCmd"_s, u"核实客人信息"_s, [this] { XgCmd_Click(); }, Qt::Key_F6, CommandKind::Plain,
         u"move"_s},
        {u"QrCmd"_s, u"确认换房"_s, [this] { QrCmd_Click(); }, Qt::Key_F8, CommandKind::Default,
         u"move"_s},
        {u"DyCmd"_s, u"打印通知单"_s, [this] { DyCmd_Click(); }, Qt::Key_F9, CommandKind::Plain,
         u"move"_s},
        {u"FreshCmd"_s, u"刷新"_s, [this] { FreshCmd_Click(); }, Qt::Key_F5, CommandKind::Plain,
         u"rooms"_s},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
    command(u"XgCmd")->setToolTip(u"换房时，可以同时调整某些设定，如房价，请核实客人详细信息"_s);

    on(KrfjQd, &GridView::rowClicked, [this] { takeRoom(u"Yfjh", KrfjQd); });
    on(KrfjQd, &GridView::rowActivated, [this] {
        takeRoom(u"Yfjh", KrfjQd);
        goTo(boxes_->editor(u"Xfjh"));
    });
    on(Kxkfqd, &GridView::rowClicked, [this] { takeRoom(u"Xfjh", Kxkfqd); });
    on(Kxkfqd, &GridView::rowActivated, [this] {
        takeRoom(u"Xfjh", Kxkfqd);
        goTo(boxes_->editor(u"Hfyy"));
    });
    on(boxes_, &FieldForm::edited, [this] { dropOutdated(); });
    on(boxes_, &FieldForm::left, [this](const QString& control) {
        if (control == u"Yfjh")
            Yfjh_Leave();
        if (control == u"Xfjh")
            Xfjh_Leave();
    });
    onEnter(boxes_->editor(u"Yhft"), [this] { XgCmd_Click(); });
    on(Khft, &CheckList::ticked, [this] { loadRooms(); });
    on(Kxft, &CheckList::ticked, [this] { loadRooms(); });
    resize(1400, 720);
}

void KrhfFrm::load(const QVariant&) {
    if (!workingSet_.isEmpty())
        return;
    Khft->setEntries(LoadCategory(u"入住房态"));
    Kxft->setEntries(LoadCategory(u"可售房态"));
    boxes_->loadCategories();
    LoadRateTable();
    fresh();
}

void KrhfFrm::fresh() {
    workingSet_.clear();
    prepared_ = {};
    for (const QStringView box : {u"Yfjh", u"Xfjh", u"Hfyy"})
        boxes_->setText(box, {});
    if (boxes_->text(u"Yhft").isEmpty())
        boxes_->setText(u"Yhft", LoadCategory(u"使用后房态").value(0));
    loadRooms();
    goTo(boxes_->editor(u"Yfjh"));
}

void KrhfFrm::loadRooms() {
    LoadRoomsInStatus(KrfjQd->table(), Khft->tickedEntries());
    LoadKxkfQd(Kxkfqd->table(), StatusFilter(Kxft->tickedEntries()));
    for (GridView* list : {KrfjQd, Kxkfqd}) {
        list->refresh();
        list->autoFit();
    }
    showStatus();
}

// --- the rooms ---

RoomChange KrhfFrm::change() const {
    return {boxes_->text(u"Yfjh").trimmed(), boxes_->text(u"Xfjh").trimmed(),
            TrimWhite(boxes_->text(u"Hfyy")), boxes_->text(u"Yhft")};
}

void KrhfFrm::takeRoom(QStringView box, const GridView* list) {
    const int row = list->currentRow();
    if (row > 0)
        boxes_->setText(box, list->table().text(row, room_record::kNumber));
    dropOutdated();
}

bool KrhfFrm::isListed(QStringView box, const GridView* list) const {
    return list->table().find(list->table().column(room_record::kNumber),
                              boxes_->text(box).trimmed()) > 0;
}

void KrhfFrm::Yfjh_Leave() {
    if (change().oldRoom.isEmpty() || isListed(u"Yfjh", KrfjQd))
        return showStatus();
    MsgBox(u"客房："_s + change().oldRoom + u" 现在没有住客，请核对房间号！"_s, u"提示"_s);
    goTo(boxes_->editor(u"Yfjh"));
}

void KrhfFrm::Xfjh_Leave() {
    if (change().newRoom.isEmpty() || isListed(u"Xfjh", Kxkfqd))
        return showStatus();
    MsgBox(u"客房："_s + change().newRoom + u" 现在不可选，请核对房间号和房态！"_s, u"提示"_s);
    goTo(boxes_->editor(u"Xfjh"));
}

// What was prepared for other rooms, or with another reason, doesn't stand for these.
void KrhfFrm::dropOutdated() {
    if (!workingSet_.isEmpty() && !change().isPreparedAs(prepared_))
        workingSet_.clear();
    showStatus();
}

void KrhfFrm::showStatus() {
    const QString prepared = workingSet_.isEmpty()
                                 ? QString()
                                 : u"　已核实客人 %1 位"_s.arg(ValidGuestsOfSet(workingSet_));
    setStatus(u"住客房间 %1 间，可换客房 %2 间"_s.arg(KrfjQd->table().dataRows())
                  .arg(Kxkfqd->table().dataRows()) +
              prepared);
}

void KrhfFrm::FreshCmd_Click() {
    loadRooms();
}

// --- the move ---

void KrhfFrm::XgCmd_Click() {
    const RoomChange wanted = change();
    if (!wanted.isComplete() || !isListed(u"Yfjh", KrfjQd) || !isListed(u"Xfjh", Kxkfqd))
        return;
    if (const auto refusal = RefuseRooms(wanted))
        return MsgBox(refusal->words, refusal->title);
    if (workingSet_.isEmpty()) {
        const PreparedChange prepared = PrepareRoomChange(wanted);
        if (prepared.refusal)
            return MsgBox(prepared.refusal->words, prepared.refusal->title);
        workingSet_ = prepared.workingSet;
        prepared_ = wanted;
    }
    const int row =
        Kxkfqd->table().find(Kxkfqd->table().column(room_record::kNumber), wanted.newRoom);
    const ChosenRoom room{.number = wanted.newRoom,
                          .status = Kxkfqd->table().text(row, room_record::kStatus),
                          .type = Kxkfqd->table().text(row, room_record::kType),
                          .beds =
                              int(LeadingNumber(Kxkfqd->table().text(row, room_record::kBeds)))};
    ModalScreen<RzdjFrm> form(this, workingSet_, QList{room}, RzdjFrm::Use::RoomChange);
    form.show();
    if (!form.get())
        return;
    workingSet_ = form->workingSet();
    printedSet_ = workingSet_;
    printed_ = wanted;
    showStatus();
    goTo(workingSet_.isEmpty() ? boxes_->editor(u"Yfjh")
                               : static_cast<QWidget*>(command(u"QrCmd")));
}

void KrhfFrm::QrCmd_Click() {
    const RoomChange wanted = change();
    const RoomChangeOutcome outcome = ConfirmRoomChange(wanted, workingSet_);
    if (outcome.notice)
        MsgBox(outcome.notice->words, outcome.notice->title);
    if (!outcome.confirmed)
        return;
    fresh();
    setStatus(u"换房完成："_s + wanted.oldRoom + u" 的客人已换到 "_s + wanted.newRoom);
}

void KrhfFrm::DyCmd_Click() {
    if (printedSet_.isEmpty())
        return MsgBox(u"还没有换房信息，或没有有效的换房信息，无法打印！"_s, u"以后再打印"_s);
    PrintRoomChangeNotice(printed_, printedSet_);
}

bool KrhfFrm::closing() {
    return workingSet_.isEmpty() ||
           AskYesNo(u"已核实的换房还没有确认，关闭将放弃这次换房，要关闭吗？"_s, u"提示"_s);
}

} // namespace hotel
