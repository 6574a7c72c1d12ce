// The calendar of a house of 300 rooms over 35 days, with 2000 reservations.

#include "bench/ratio.h"
#include "bench/screenless.h"

#include <QScrollBar>

#include "frontoffice/house_calendar_view.h"
#include "house/guests/guest_text.h"
#include "house/stays/reservations.h"
#include "record/field_walk.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/grid_view.h"
#include "screen/theme.h"

using namespace hotel;
using namespace hotel::bench;

namespace {

constexpr int kRooms = 300;
constexpr int kReservations = 2000;
constexpr int kDays = 35;
const QDate kToday(2026, 3, 5);

QString Iso(QDate day) {
    return day.toString(u"yyyy-MM-dd");
}

CalendarSource House() {
    CalendarSource source{.types = {u"标准双床房"_s, u"豪华大床房"_s}, .sellable = {u"空房"_s}};
    for (int n = 0; n < kRooms; ++n) {
        const QString number = QString::number(8000 + n);
        const bool isIn = n % 2 == 0;
        source.rooms.append({number, u"<房间号>%1</房间号><客房类型>%2</客房类型><床位数>2</床位数>"
                                     u"<房态>%3</房态><住客数>%4</住客数>"_s.arg(
                                         number, source.types[n % 3 % 2],
                                         isIn ? u"包房"_s : u"空房"_s, isIn ? u"1"_s : u"0"_s)});
        if (isIn)
            source.guests.insert(
                number, {Reading::Present,
                         u"<客人01><客人姓名>王小明</客人姓名><入住日期>2026-03-03</入住日期>"
                         u"<预计离店>%1</预计离店></客人01>"_s.arg(Iso(kToday.addDays(n % 5)))});
    }
    for (int n = 0; n < kReservations; ++n) {
        const QDate arrival = kToday.addDays(n * 7919 % 60);
        source.reservations +=
            u"<%1><客人姓名>李秀英</客人姓名><预计到达>%2</预计到达><预计离店>%3</预计离店>"
            u"<订房间数>1</订房间数><预定状态>计划</预定状态><预留客房>%4</预留客房></%1>\r\n"_s
                .arg(QString::number(260301000000 + n), Iso(arrival),
                     Iso(arrival.addDays(1 + n % 3)),
                     HeldRoomsText({QString::number(8000 + n * 104729 % kRooms)}));
    }
    return source;
}

// Every record is met and three of its fields are taken, and nothing is made of it.
qsizetype Walk(const CalendarSource& source) {
    qsizetype length = 0;
    for (FieldWalk record(source.reservations); record.next();) {
        for (const QStringView field : {u"预计到达"_s, u"预计离店"_s, u"预留客房"_s})
            length += GetTag(record.value(), field).size();
    }
    return length;
}

template<class View>
int ScrollAndPaint(View& view) {
    QScrollBar* bar = view.verticalScrollBar();
    bar->setValue((bar->value() + 25) % std::max(1, bar->maximum()));
    return view.viewport()->grab().width();
}

} // namespace

int main(int argc, char** argv) {
    ScreenlessApplication application(argc, argv);
    ApplyTheme(application);
    const CalendarSource source = House();
    const auto reckon = [&source] {
        return ReckonCalendar(source, kToday, kToday, kDays).free.size();
    };
    std::printf("calendar reckoned in %.2f ms\n", Nanoseconds(reckon, Time::Processor) / 1e6);
    PrintRatio("calendar_reckoned", // by a walk over its reservations
               ProcessorRatio(reckon, [&source] { return Walk(source); }), 6.0);

    HouseCalendarView view(u"Rl"_s);
    view.setCalendar(ReckonCalendar(source, kToday, kToday, kDays), {});
    QStringList headers;
    for (int column = 0; column <= kDays; ++column)
        headers.append(QString::number(column));
    TextTable table(headers);
    for (int row = 0; row < kRooms; ++row)
        table.addRow(QStringList(kDays + 1, u"王"_s));
    GridView grid(u"grid"_s);
    grid.setTable(table);
    for (QWidget* widget : {static_cast<QWidget*>(&view), static_cast<QWidget*>(&grid)}) {
        widget->resize(1366, 700);
        widget->show();
    }
    for (int column = 0; column <= kDays; ++column)
        grid.setColumnWidth(column, 36);
    QCoreApplication::processEvents();
    const auto paint = [&view] { return ScrollAndPaint(view); };
    std::printf("calendar painted in %.2f ms\n", Nanoseconds(paint, Time::Processor) / 1e6);
    PrintRatio("calendar_painted", // by a list of as many cells
               ProcessorRatio(paint, [&grid] { return ScrollAndPaint(grid); }), 1.5);
    return 0;
}
