#include "frontoffice/guest_query.h"

#include <QSet>

#include "house/guests/guest_text.h"
#include "house/rooms/room_record.h"
#include "platform/clock.h"
#include "record/conditions.h"
#include "record/field_walk.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "tools/lists/CmnGrd.h"
#include "tools/queries/list_query.h"
#include "tools/queries/query_text.h"

namespace hotel {

namespace {

const QStringList kColumns = {
    u"房间号"_s,     u"客人姓名"_s, u"性别"_s,     u"年龄"_s,     u"证件种类"_s, u"证件号码"_s,
    u"户口所在地"_s, u"入住日期"_s, u"入住时间"_s, u"预计离店"_s, u"房态"_s,     u"客房类型"_s,
    u"确认房价"_s,   u"结账号"_s,   u"付费客人"_s, u"工作单位"_s, u"接待单位"_s, u"自何处来"_s,
    u"往何处去"_s,   u"停留事由"_s, u"职务"_s,     u"特殊说明"_s, u"接待"_s};

// The stay touches the period. It lasts through today at least: whoever is asked for is still in the house.
bool StaysWithin(const QString& guest, QDate first, QDate last, QDate today) {
    const auto text = [](QDate day) { return day.toString(u"yyyy-MM-dd"_s); };
    const QString end = qMax(GetTag(guest, u"预计离店"), text(today));
    return GetTag(guest, u"入住日期") <= text(last) && end >= text(first);
}

WalkEnd SearchGuests(const QueryAnswer& answer, CmnGrd& list) {
    bool finished = true;
    const QList<InHouseGuest> guests = GuestsInHouse([&](int done, int total) {
        finished = list.walkGoesOn(done, total);
        return finished;
    });
    for (const InHouseGuest& guest :
         SelectGuests(guests, answer.conditionText, answer.first, answer.last, Clock::Today()))
        list.Grd().addRow(CellsOf(guest.text, guest.name, kColumns, kNoNameColumn));
    return finished ? WalkEnd::Finished : WalkEnd::Stopped;
}

} // namespace

QList<InHouseGuest> GuestsInHouse(const std::function<bool(int done, int total)>& step) {
    QList<InHouseGuest> guests;
    const QList<RoomEntry> rooms = LoadRooms();
    int done = 0;
    for (const RoomEntry& room : rooms) {
        if (LeadingNumber(GetTag(room.record, room_record::kGuests)) > 0) {
            const QString stay = GetKfrzxx(room.number);
            for (FieldWalk guest(stay); guest.next();)
                guests.append({room.number + u'-' + guest.name(), guest.value().toString()});
        }
        if (!step(++done, int(rooms.size())))
            break;
    }
    return guests;
}

QList<InHouseGuest> SelectGuests(const QList<InHouseGuest>& guests, const QString& conditionText,
                                 QDate first, QDate last, QDate today) {
    QList<InHouseGuest> candidates;
    const KeywordLists keywords = KeywordsOf(conditionText);
    for (const InHouseGuest& guest : guests) {
        if (StaysWithin(guest.text, first, last, today) &&
            (keywords.isEmpty() || MatchesKeywords(guest.text, keywords)))
            candidates.append(guest);
    }
    if (!keywords.isEmpty())
        return candidates;

    RecordSelection selection(ParseConditions(conditionText));
    for (const InHouseGuest& guest : candidates)
        selection.look(guest.name, guest.text);
    const QStringList names = selection.names();
    const QSet<QString> matching(names.begin(), names.end());
    candidates.removeIf([&](const InHouseGuest& guest) { return !matching.contains(guest.name); });
    return candidates;
}

void OpenGuestQuery(QWidget* parent) {
    const ListQuery query = {
        .caption = u"请输入现住客人信息查询组合条件"_s,
        .title = u"现住客人信息清单"_s,
        .columns = kColumns,
        .nameLabel = {},
        .dated = true,
        .search = SearchGuests,
    };
    OpenListQuery(query, parent);
}

} // namespace hotel
