#include "house/stays/today_sheet.h"

#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/folios/folio_totals.h"
#include "house/guests/guest_text.h"
#include "house/rooms/room_record.h"
#include "platform/clock.h"
#include "record/field_walk.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "session/parameters.h"
#include "session/session.h"

namespace hotel {

namespace {

using namespace guest_text;

constexpr QStringView kKept[] = {kFolio, kRoom, kBed, kName, kDeparture};

// No name of a field inside: the end of that one would be taken for the end of the project.
QStringView ProjectOf(SheetPart part) {
    return part == SheetPart::Departures ? u"离店核对" : u"余额核对";
}

QString Field(QStringView name, const QString& value) {
    return u'<' + name.toString() + u'>' + value + u"</"_s + name + u">\r\n";
}

bool IsDue(QStringView guest, QDate day) {
    const QDate departure = QDate::fromString(GetTag(guest, kDeparture), Qt::ISODate);
    return departure.isValid() && departure <= day;
}

} // namespace

QString TodaySheetFile(QDate day) {
    return Param(u"TjxxLj") + u"jrhd\\"_s + day.toString(u"yyMMdd") + u".QVR"_s;
}

RecordRead LoadTodaySheet(SheetPart part, QDate day) {
    return ReadProjectToChange(TodaySheetFile(day), ProjectOf(part));
}

SheetWalk::SheetWalk(SheetPart part, QDate day) : part_(part), day_(day) {
    checked_ = SetTag(QString(), today_sheet::kTime, Clock::TimeText().left(5));
    checked_ = SetTag(checked_, today_sheet::kBy, CurrentSession().userName);
}

SheetWalk::State SheetWalk::step() {
    if (state_ != State::Running)
        return state_;
    bool well = true;
    if (!begun_)
        well = begin();
    else if (done_ < total())
        well = look(keys_[done_++]);
    if (well && done_ == total()) {
        well = save();
        state_ = State::Done;
    }
    if (!well)
        state_ = State::Failed;
    return state_;
}

bool SheetWalk::begin() {
    begun_ = true;
    const RecordRead read = part_ == SheetPart::Departures
                                ? ReadProjectToChange(RoomDatabaseFile(), room_record::kProject)
                                : ReadProjectToChange(OpenFolioFile(), folio_record::kProject);
    for (FieldWalk record(read.value); record.next();) {
        if (part_ == SheetPart::Balances || GuestsAtSale(record.value()) > 0)
            keys_.append(record.name().toString());
    }
    return !read.failed();
}

bool SheetWalk::look(const QString& key) {
    return part_ == SheetPart::Departures ? lookIntoRoom(key) : lookIntoLedger(key);
}

bool SheetWalk::lookIntoRoom(const QString& room) {
    const RecordRead guests = FindKfrzxx(room);
    for (FieldWalk guest(guests.value); guest.next();) {
        if (!IsDue(guest.value(), day_))
            continue;
        QString kept = SetTag(guest.value().toString(), kRoom, room);
        QString record;
        for (const QStringView tag : kKept)
            record = SetTag(record, tag, GetTag(kept, tag));
        records_.append(Field(QString::number(records_.size() + 1), record));
    }
    return !guests.failed();
}

bool SheetWalk::lookIntoLedger(const QString& folio) {
    const auto totals = LoadFolioTotals(folio);
    if (totals)
        records_.append(
            Field(folio, SetTag(QString(), today_sheet::kBalance, totals->balance().text())));
    return totals.has_value();
}

bool SheetWalk::save() const {
    const QString file = TodaySheetFile(day_);
    const QStringView project = ProjectOf(part_);
    EnsureProject(file, project);
    return SaveProject(file, project,
                       Field(today_sheet::kChecked, checked_) + records_.join(QString())) == 0;
}

} // namespace hotel
