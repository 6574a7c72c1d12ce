#include "app/week/desk_act.h"

#include <algorithm>
#include <array>

#include "house/guests/guest_text.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "telephone/call_record.h"

namespace hotel {

namespace {

constexpr QChar kColumn = u'\t';
constexpr QChar kEntry = u'|';
constexpr int kColumns = 8;

QString OneLine(QString text) {
    for (const QChar parting : {kColumn, kEntry, QChar(u'\r'), QChar(u'\n')})
        text.replace(parting, u' ');
    return text;
}

QStringList Entries(const QString& text) {
    return text.isEmpty() ? QStringList() : text.split(kEntry);
}

QString FieldsOf(QStringView record, std::initializer_list<QStringView> tags) {
    QStringList values;
    for (const QStringView tag : tags)
        values.append(GetTag(record, tag));
    return values.join(u' ');
}

} // namespace

QString LineOfAct(const DeskAct& act) {
    QStringList places = act.places;
    places.removeDuplicates();
    return QStringList{QString::number(act.desk),        act.kind,
                       QString::number(int(act.result)), QString::number(act.begin),
                       QString::number(act.end),         places.join(kEntry),
                       act.items.join(kEntry),           OneLine(act.told)}
        .join(kColumn);
}

std::optional<DeskAct> ActOfLine(const QString& line) {
    const QStringList columns = line.split(kColumn);
    if (columns.size() != kColumns)
        return {};
    return DeskAct{.desk = columns[0].toInt(),
                   .kind = columns[1],
                   .result = ActResult(columns[2].toInt()),
                   .begin = columns[3].toLongLong(),
                   .end = columns[4].toLongLong(),
                   .places = Entries(columns[5]),
                   .items = Entries(columns[6]),
                   .told = columns[7]};
}

QString Place(QStringView kind, QStringView name) {
    return OneLine(kind.toString() + u' ' + name);
}

QString DayPlace(QStringView kind, QDate day) {
    return Place(kind, day.toString(Qt::ISODate));
}

QString JournalPlace(QStringView project, QDate day) {
    return Place(place::kJournal, project.toString() + u' ' + day.toString(Qt::ISODate));
}

bool IsSamePlace(QStringView one, QStringView other) {
    constexpr std::array kOfHouse = {place::kRoom, place::kFolio, place::kLedger, place::kJournal};
    const auto isOfHouse = [&](QStringView name) {
        return std::ranges::any_of(kOfHouse,
                                   [&](QStringView kind) { return name.startsWith(Place(kind)); });
    };
    const QString house = Place(place::kWholeHouse);
    return one == other || (one == house && isOfHouse(other)) || (other == house && isOfHouse(one));
}

QString GuestItem(QStringView guest) {
    using namespace guest_text;
    return u"guest "_s + OneLine(FieldsOf(guest, {kFolio, kDocumentNumber}));
}

QString PartyItem(QStringView folio) {
    return u"party "_s + folio;
}

QString SettledItem(QStringView folio) {
    return u"settled "_s + folio;
}

QString AuditedItem(QDate day) {
    return u"audited "_s + day.toString(Qt::ISODate);
}

QString PostingItem(QStringView project, QStringView folio, QStringView record) {
    return u"posting "_s + project + u' ' + folio + u' ' +
           OneLine(FieldsOf(record, {u"日期", u"时间", u"金额", u"实收金额", u"信用金额"}));
}

QString PlanItem(QStringView number) {
    return u"plan "_s + number;
}

QString PunchItem(QStringView key) {
    return u"punch "_s + key;
}

QStringList CallItems(QStringView record) {
    using namespace call_record;
    QStringList items;
    for (const auto& [date, time] : {std::pair(kStartDate, kStartTime), {kEndDate, kEndTime}}) {
        if (!GetTag(record, date).isEmpty())
            items.append(u"call "_s + date + u' ' +
                         OneLine(FieldsOf(record, {kExtension, kNumber, date, time})));
    }
    return items;
}

} // namespace hotel
