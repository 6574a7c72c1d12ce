#include "house/stays/reservations.h"

#include "house/rooms/room_record.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "session/parameters.h"

#include <QDate>

namespace hotel {

namespace {

using namespace reservation;

constexpr QStringView kPrice = u"预订房价";
constexpr QStringView kHeld = u"选择";

Notice Missing(const QString& words) {
    return {u"缺少参数"_s, words};
}

bool IsDate(QStringView text) {
    return text.isEmpty() || QDate::fromString(text, u"yyyy-MM-dd").isValid();
}

std::optional<Notice> Check(QStringView record) {
    const auto field = [record](QStringView tag) { return TrimWhite(GetTag(record, tag)); };
    if (field(kGuest).isEmpty() && field(kCompany).isEmpty())
        return Missing(u"预订客人姓名或预定客人单位必须说明至少一项!"_s);
    if (field(kBookedBy).isEmpty())
        return Missing(u"预订人必须说明!"_s);
    if (LeadingNumber(field(kRooms)) <= 0)
        return Missing(u"订房间数必须大于0!"_s);
    if (!IsDate(field(kArrival)) || !IsDate(field(kDeparture)))
        return Notice{u"请检查"_s, u"预计到达或预计离店不是有效的日期！"_s};
    if (!field(kDeparture).isEmpty() && field(kDeparture) < field(kArrival))
        return Notice{u"请检查"_s, u"预计离店不能早于预计到达！"_s};
    return {};
}

bool IsDone(const TextTable& list, int row, QDate today) {
    const QString word = list.text(row, kPrice);
    if (word == u"失效" || word == u"取消" || word == u"完成")
        return true;
    return word == u"实施" && list.text(row, kArrival) < today.toString(u"yyyy-MM-dd");
}

// Rooms and beds of one line of a count.
struct Count {
    int rooms = 0;
    qint64 beds = 0;

    void add(qint64 bedsOfRoom) {
        ++rooms;
        beds += bedsOfRoom;
    }
};

TextTable CountTable(QStringView title, const QStringList& lines, const QList<Count>& counts) {
    TextTable table({title.toString(), u"房数"_s, u"床数"_s});
    Count all;
    const auto cells = [](const QString& name, const Count& count) {
        return QStringList{name, FormatNumber(count.rooms, u"#0"), FormatNumber(count.beds, u"#0")};
    };
    for (qsizetype n = 0; n < lines.size(); ++n) {
        table.addRow(cells(lines[n], counts[n]));
        all.rooms += counts[n].rooms;
        all.beds += counts[n].beds;
    }
    table.addRow(cells(u"合计"_s, all));
    return table;
}

} // namespace

QStringList ReservationStates() {
    return {kPlanned.toString(), u"取消"_s, u"实施"_s, u"延期"_s, u"完成"_s};
}

bool IsToCome(QStringView state) {
    return state != u"取消" && state != u"实施" && state != u"完成" && state != u"失效";
}

const PlanKind& ReservationPlans() {
    static const PlanKind kind = {
        .project = kProject,
        .columns = {kNumber.toString(),    kGuest.toString(), kCompany.toString(),
                    u"通讯地址"_s,         u"电话号码"_s,     u"手机号码"_s,
                    u"传真号码"_s,         u"电子邮件"_s,     kArrival.toString(),
                    kDeparture.toString(), kRooms.toString(), kPrice.toString(),
                    kBookedBy.toString(),  kState.toString(), u"合约单位"_s,
                    u"合同编号"_s,         u"付款方式"_s,     u"押金金额"_s,
                    u"销售中介"_s,         u"佣金说明"_s,     u"预定来源"_s,
                    u"备注信息"_s,         u"经办单位"_s,     u"经办人"_s},
        .numberIsField = true,
        .file = [] { return Param(u"YdxxLj") + Param(u"Ydxx"); },
        .folder = [] { return Param(u"YdxxLj"); },
        .check = Check,
        .closing = {},
        .makerUnit = u"经办单位",
        .maker = u"经办人",
        .isDone = IsDone,
        .notSaved = u"预订计划保存失败?",
        .notChanged = u"预订计划保存失败?",
        .notToday = {},
        .notOwn = u"为了防止误操作，系统只允许删除本人添加当天增加的计划信息，而且从后往前删，以前"
                  u"的或别人计划请用维修"
                  u"中的取消、中止等方法完成！",
    };
    return kind;
}

QString HeldRoomsText(const QStringList& rooms) {
    QString text;
    for (qsizetype n = 0; n < rooms.size(); ++n)
        text = SetTag(text, FormatNumber(n + 1, u"#000"), rooms[n]);
    return text;
}

bool HoldsRoom(QStringView heldRooms, QStringView room) {
    return heldRooms.contains(u'>' + room.toString() + u'<');
}

QStringList HeldRoomTitles() {
    return {kHeld.toString(), room_record::kNumber.toString(), room_record::kFloor.toString(),
            room_record::kType.toString(), room_record::kBeds.toString()};
}

void LoadRoomsToHold(TextTable& rooms) {
    LoadkfQd(rooms);
    MarkHeldRooms(rooms, {});
}

void MarkHeldRooms(TextTable& rooms, QStringView heldRooms) {
    for (int row = 1; row < rooms.rows(); ++row) {
        const bool held = HoldsRoom(heldRooms, rooms.text(row, room_record::kNumber));
        rooms.setText(row, kHeld, held ? kHeldMark.toString() : QString());
    }
}

QStringList MarkedRooms(const TextTable& rooms) {
    QStringList marked;
    for (int row = 1; row < rooms.rows(); ++row) {
        if (rooms.text(row, kHeld) == kHeldMark)
            marked.append(rooms.text(row, room_record::kNumber));
    }
    return marked;
}

TextTable MarkedList(const TextTable& rooms) {
    TextTable marked(rooms.headers());
    for (int row = 1; row < rooms.rows(); ++row) {
        if (rooms.text(row, kHeld) == kHeldMark)
            marked.addRow(rooms.row(row));
    }
    return marked;
}

void MarkAll(TextTable& rooms, QStringView column, QStringView value, bool held) {
    for (int row = 1; row < rooms.rows(); ++row) {
        if (rooms.text(row, column) == value)
            rooms.setText(row, kHeld, held ? kHeldMark.toString() : QString());
    }
}

HeldCounts SetLcFxtjQd(const TextTable& rooms, const QStringList& floors,
                       const QStringList& types) {
    QList<Count> byFloor(floors.size());
    QList<Count> byType(types.size());
    bool isTypeUnknown = false;
    for (int row = 1; row < rooms.rows(); ++row) {
        const qsizetype floor = floors.indexOf(rooms.text(row, room_record::kFloor));
        const qsizetype type = types.indexOf(rooms.text(row, room_record::kType));
        isTypeUnknown = isTypeUnknown || type < 0;
        if (rooms.text(row, kHeld) != kHeldMark)
            continue;
        const qint64 beds = qint64(LeadingNumber(rooms.text(row, room_record::kBeds)));
        if (floor >= 0)
            byFloor[floor].add(beds);
        if (type >= 0)
            byType[type].add(beds);
    }
    HeldCounts counts = {
        CountTable(u"楼层", floors, byFloor), CountTable(u"房型", types, byType), {}};
    if (isTypeUnknown)
        counts.notice = Notice{u"内部设定错误"_s, u"有一种房型没有在房间类型分类中定义！"_s};
    return counts;
}

} // namespace hotel
