#include "frontoffice/KfxxFrm.h"

#include <QVBoxLayout>

#include "house/rooms/room_record.h"
#include "record/field_walk.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/grid_view.h"
#include "screen/messages.h"

namespace hotel {

namespace {

const QStringList kTitles = {
    u"序号"_s,       u"客人姓名"_s, u"年龄"_s,     u"性别"_s,     u"证件号码"_s, u"证件种类"_s,
    u"户口所在地"_s, u"入住时间"_s, u"入住日期"_s, u"预计离店"_s, u"结账号"_s,   u"自何处来"_s,
    u"往何处去"_s,   u"停留事由"_s, u"房态"_s,     u"工作单位"_s, u"接待单位"_s, u"职务"_s,
    u"付费客人"_s,   u"人像照片"_s, u"证件照片"_s, u"特殊说明"_s, u"接待"_s};

TextTable GuestList(QStringView guests) {
    TextTable list(kTitles);
    for (FieldWalk guest(guests); list.dataRows() < kBedLimit && guest.next();) {
        QStringList cells{QString()};
        for (const QString& title : kTitles.mid(1))
            cells.append(GetTag(guest.value(), title));
        list.addRow(cells);
    }
    list.numberRows(0);
    return list;
}

} // namespace

KfxxFrm::KfxxFrm() : Screen(u"KfxxFrm"_s, u"客房住客信息"_s), KrxxQd(new GridView(u"KrxxQd"_s)) {
    KrxxQd->setNumberColumn(0);
    for (const int column : {0, 2})
        KrxxQd->setColumnAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    auto* content = new QVBoxLayout;
    content->addWidget(KrxxQd);
    setContent(content);
    addCommands({{u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape}});
    resize(1180, 360);
}

void KfxxFrm::load(const QVariant& room) {
    const QString guests = GetKfrzxx(room.toString());
    if (guests.isEmpty()) {
        MsgBox(u"该房间目前没有可供显示的相关数据！"_s, u"即将关闭"_s);
        close();
        return;
    }
    setWindowTitle(u"客房住客信息 "_s + room.toString());
    KrxxQd->setTable(GuestList(guests));
    KrxxQd->autoFit();
    KrxxQd->setFocus();
    setStatus(u"房间 %1：住客 %2 人"_s.arg(room.toString()).arg(KrxxQd->table().dataRows()));
}

} // namespace hotel
