#include "frontoffice/RoomSet.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "house/common/paths.h"
#include "house/rooms/room_edit.h"
#include "house/rooms/room_record.h"
#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "session/operation_log.h"
#include "tools/aids/categories.h"
#include "tools/aids/photo_frame.h"
#include "tools/lists/list_export.h"
#include "tools/lists/list_print.h"

namespace hotel {

namespace {

using namespace room_record;

const QList<FormField> kBoxes = {
    {kNumber, u"Fjh", u"房间号", Editor::Text, {}, 20},
    {kFloor, u"Lch", u"楼层号", Editor::Text, {}, 20},
    {kBeds, u"Cws", u"床位数", Editor::Number, {}, 20, 2},
    {kType, u"Fjlx", u"客房类型", Editor::Category, category::kRoomTypes, 20},
    {kTelephone, u"Dhhm", u"电话号码", Editor::Text, {}, 20},
    {kNetworkPort, u"Wldk", u"网络端口", Editor::Text, {}, 20},
    {kRemark, u"Sm", u"说明", Editor::Text, {}, 36},
};
constexpr int kBoxColumns = 2;

const QStringList kTitles = {u"序号"_s,     u"房间号"_s,   u"楼层号"_s,   u"床位数"_s,
                             u"客房类型"_s, u"电话号码"_s, u"网络端口"_s, u"房态"_s,
                             u"住客数"_s,   u"说明"_s,     u"照片"_s};

constexpr QStringView kNumericTitles[] = {u"序号", kBeds, kGuests};

void SaveLog(const QString& remark) {
    SaveLogRec(u"房间基本参数设定"_s, remark);
}

} // namespace

RoomSet::RoomSet()
    : Screen(u"RoomSet"_s, u"客房基本信息管理"_s), KfQd(new GridView(u"KfQd"_s)),
      boxes_(new FieldForm(kBoxes, kBoxColumns)), Zp(new QLineEdit),
      photo_(new PhotoFrame(u"Zpk"_s, u"单击清单中的一行，显示该客房的照片"_s)) {
    KfQd->table().setHeaders(kTitles);
    KfQd->setNumberColumn(0);
    KfQd->setSortable(true);
    for (const QStringView title : kNumericTitles)
        KfQd->setColumnAlignment(KfQd->table().column(title), Qt::AlignRight | Qt::AlignVCenter);

    Zp->setObjectName(u"Zp"_s);
    Zp->setReadOnly(true);
    Zp->setFocusPolicy(Qt::ClickFocus);
    Zp->setPlaceholderText(u"不换照片"_s);
    auto* chooseRow = new QHBoxLayout;
    chooseRow->addWidget(Zp, 1);
    chooseRow->addWidget(
        commandPanel({{u"ZpCmd"_s, u"选择照片"_s, [this] { ZpCmd_Click(); }, Qt::Key_F4}}));
    auto* pictureSide = new QVBoxLayout;
    pictureSide->addWidget(photo_, 1);
    pictureSide->addLayout(chooseRow);

    auto* entry = new QHBoxLayout;
    entry->addWidget(boxes_, 3, Qt::AlignTop);
    entry->addSpacing(16);
    entry->addLayout(pictureSide, 2);

    auto* content = new QVBoxLayout;
    content->addWidget(KfQd, 1);
    content->addLayout(entry);
    setContent(content);

    addCommands({
        {u"CmdAdd"_s, u"增加"_s, [this] { CmdAdd_Click(); }, Qt::Key_F5, CommandKind::Default},
        {u"CmdModify"_s, u"修改"_s, [this] { CmdModify_Click(); }, Qt::Key_F6},
        {u"cmdDel"_s, u"删除"_s, [this] { cmdDel_Click(); }, Qt::Key_F7},
        {u"CmdPrint"_s, u"打印清单"_s, [this] { CmdPrint_Click(); }, Qt::Key_F9, CommandKind::Plain,
         u"list"_s},
        {u"CmdFile"_s, u"生成清单"_s, [this] { CmdFile_Click(); }, Qt::Key_F8, CommandKind::Plain,
         u"list"_s},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
    on(KfQd, &GridView::currentMoved, [this](int row, int) { KfQd_RowChange(row); });
    on(KfQd, &GridView::rowClicked, [this](int row, int) { KfQd_Click(row); });
    on(KfQd, &GridView::rowActivated, [this](int row, int) { KfQd_Click(row); });
    resize(1180, 700);
}

void RoomSet::load(const QVariant&) {
    LoadkfQd(KfQd->table());
    KfQd->refresh();
    KfQd->autoFit();
    boxes_->loadCategories();
    boxes_->editor(u"Fjh")->setFocus();
    showCount();
}

void RoomSet::KfQd_RowChange(int row) {
    photo_->setPhoto({});
    Zp->clear();
    boxes_->clear();
    if (row == 0)
        return;
    for (const FormField& field : kBoxes)
        boxes_->setText(field.control, KfQd->table().text(row, field.tag));
}

void RoomSet::KfQd_Click(int row) {
    KfQd_RowChange(row);
    ShowListedPhoto(photo_, KfQd->table(), row, kPicture, RoomPictureFile);
    if (KfQd->currentRow() != row) // the user went on meanwhile
        KfQd_RowChange(KfQd->currentRow());
}

void RoomSet::ZpCmd_Click() {
    const QString path = AskOpenFile(u"选择照片"_s, u"(JPEG图片文件)|*.jpg|(所有文件)|*.*"_s);
    if (path.isEmpty())
        return;
    if (!QFileInfo(path).isFile()) {
        MsgBox(u"照片文件不存在？"_s, u"请检查"_s);
        return;
    }
    if (QFileInfo(path).size() >= kFileLimit) {
        MsgBox(u"照片文件太大，请选择小于1000000字节的照片！"_s, u"请检查"_s);
        return;
    }
    Zp->setText(path);
    SetPhoto(photo_, path);
}

void RoomSet::CmdAdd_Click() {
    const QString boxes = trimmedBoxes();
    showOutcome(AddRoom(boxes, Zp->text()), GetTag(boxes, kNumber));
}

void RoomSet::CmdModify_Click() {
    if (selectedRoom().isEmpty()) {
        MsgBox(u"请选择要修改的记录,再执行本功能！"_s, u"提示"_s);
        return;
    }
    const QString boxes = trimmedBoxes();
    showOutcome(ChangeRoom(boxes, Zp->text()), GetTag(boxes, kNumber));
}

void RoomSet::cmdDel_Click() {
    const QString room = selectedRoom();
    if (room.isEmpty()) {
        MsgBox(u"请选择要删除的客房记录！"_s, u"提示"_s);
        return;
    }
    if (const auto refusal = RefuseDelete(room)) {
        MsgBox(refusal->words, refusal->title);
        return;
    }
    const Notice question = DeleteQuestion(room);
    if (!AskOkCancel(question.words, question.title))
        return;
    const RoomEditOutcome outcome = DeleteRoom(room);
    if (outcome.done) {
        KfQd->table().removeRow(rowOf(room));
        KfQd->table().numberRows(0);
        KfQd->refresh();
        KfQd->setCurrent(0);
        KfQd_RowChange(0);
        showCount();
    }
    MsgBox(outcome.notice->words, outcome.notice->title);
}

void RoomSet::CmdPrint_Click() {
    if (KfQd->table().dataRows() == 0)
        return;
    SaveLog(u"打印清单"_s);
    PrintGrid(*KfQd, u"客房基本情况定义清单"_s);
}

void RoomSet::CmdFile_Click() {
    const QString name = u"客房基本情况清单"_s + Clock::Today().toString(u"yyMMdd") + u".txt"_s;
    if (!SaveGridToText(KfQd->table(), u"本查询结果"_s, name))
        return;
    SaveLog(u"生成清单"_s);
    setStatus(u"清单文件已经生成"_s);
}

QString RoomSet::selectedRoom() const {
    const int row = KfQd->currentRow();
    return row == 0 ? QString() : KfQd->table().text(row, kNumber);
}

int RoomSet::rowOf(QStringView room) const {
    return KfQd->table().find(KfQd->table().column(kNumber), room);
}

QString RoomSet::trimmedBoxes() {
    for (const FormField& field : kBoxes)
        boxes_->setText(field.control, TrimWhite(boxes_->text(field.control)));
    return boxes_->store({});
}

void RoomSet::showOutcome(const RoomEditOutcome& outcome, const QString& room) {
    if (outcome.notice)
        MsgBox(outcome.notice->words, outcome.notice->title);
    if (outcome.done)
        showRoom(room);
    const auto missing = std::ranges::find(kBoxes, outcome.missing, &FormField::tag);
    if (missing != kBoxes.end()) {
        boxes_->editor(missing->control)->setFocus();
        return;
    }
    auto* number = boxes_->editor<QLineEdit>(u"Fjh");
    number->setFocus();
    number->selectAll();
}

void RoomSet::showRoom(const QString& room) {
    UpdateKfGrid(KfQd->table(), room);
    KfQd->refresh();
    KfQd->autoFit();
    KfQd->setCurrent(rowOf(room));
    showCount();
}

void RoomSet::showCount() {
    setStatus(u"共 %1 间客房"_s.arg(KfQd->table().dataRows()));
}

} // namespace hotel
