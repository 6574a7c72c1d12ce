#include "frontoffice/YdrlFrm.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "frontoffice/house_calendar_view.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"

namespace hotel {

namespace {

constexpr int kDays = 35;
constexpr int kWeek = 7;
constexpr QStringView kNumber = u"单号";

const QList<FormField> kFields = {
    {{}, u"Qsrq", u"起始日期", Editor::Date},
    {{}, u"Fx", u"客房类型", Editor::Category, {}, 18},
};
const QString kAllTypes = u"全部房型"_s;

const QString kLegend =
    u"<span style='background:#3D5A80;color:white'>&nbsp;住客&nbsp;</span>&nbsp; "
    u"<span style='background:#F4C95D;color:black'>&nbsp;预定&nbsp;</span>&nbsp; "
    u"<span style='background:#F9D6D5;color:#C62828'>&nbsp;重复占用&nbsp;</span>&nbsp; 虚线：应离未离"_s;

QString DateOf(QDate day) {
    return day.toString(u"yyyy-MM-dd");
}

QString FreeRooms(const CalendarType& type, const HouseCalendar& calendar, QDate night) {
    QStringList rooms;
    for (const CalendarRoom& room : type.rooms) {
        const bool isTaken = std::ranges::any_of(
            room.spans, [night](const CalendarSpan& span) { return span.takes(night); });
        if (!isTaken && !(room.isClosed && night == calendar.today))
            rooms.append(room.number);
    }
    return rooms.isEmpty() ? u"没有空房"_s : u"空 %1 间："_s.arg(rooms.size()) + rooms.join(u' ');
}

} // namespace

YdrlFrm::YdrlFrm()
    : Screen(u"YdrlFrm"_s, u"客房日历"_s), form_(new FieldForm(kFields, 2)),
      Rl(new HouseCalendarView(u"Rl"_s)), YdQd(new GridView(u"YdQd"_s)) {
    YdQd->table().setHeaders({u"房间号"_s, u"占用"_s, u"姓名"_s, u"单位"_s, u"预计到达"_s,
                              u"预计离店"_s, u"预定状态"_s, kNumber.toString()});
    YdQd->setFixedHeight(YdQd->fontMetrics().height() * 5);
    auto* legend = new QLabel(kLegend);
    legend->setTextFormat(Qt::RichText);
    auto* head = new QHBoxLayout;
    head->addWidget(form_);
    head->addStretch(1);
    head->addWidget(legend);
    auto* content = new QVBoxLayout;
    content->addLayout(head);
    content->addWidget(Rl, 1);
    content->addWidget(YdQd);
    setContent(content);
    addCommands({
        {u"OpenCmd"_s, u"打开预定"_s, [this] { OpenCmd_Click(); }, Qt::Key_F2,
         CommandKind::Default},
        {u"BackCmd"_s, u"前一周"_s, [this] { showWeeks(Rl->calendar().first.addDays(-kWeek)); },
         Qt::Key_F6, CommandKind::Plain, u"weeks"_s},
        {u"NextCmd"_s, u"后一周"_s, [this] { showWeeks(Rl->calendar().first.addDays(kWeek)); },
         Qt::Key_F7, CommandKind::Plain, u"weeks"_s},
        {u"TodayCmd"_s, u"今天"_s,
         [this] {
             showWeeks(Clock::Today());
             Rl->goToDay(Clock::Today());
         },
         Qt::Key_F8, CommandKind::Plain, u"weeks"_s},
        {u"FreshCmd"_s, u"刷新"_s, [this] { read(); }, Qt::Key_F11, CommandKind::Plain, u"end"_s},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
    on(Rl, &HouseCalendarView::moved, [this] { Rl_Moved(); });
    on(Rl, &HouseCalendarView::activated, [this] { OpenCmd_Click(); });
    on(Rl, &HouseCalendarView::reservationClicked,
       [this](const QString& number) { openReservation(number); });
    on(YdQd, &GridView::rowActivated,
       [this](int row, int) { openReservation(YdQd->table().text(row, kNumber)); });
    on(form_, &FieldForm::left, [this](const QString& control) {
        if (control == u"Qsrq")
            Qsrq_Left();
    });
    on(form_, &FieldForm::edited, [this](const QString& control) {
        if (control == u"Fx")
            showWeeks(Rl->calendar().first);
    });
    resize(1366, 820);
}

void YdrlFrm::load(const QVariant& day) {
    form_->setChoices(u"Fx", {kAllTypes});
    form_->setText(u"Fx", kAllTypes);
    statuses_ = LoadStatusPlaces();
    read();
    const QDate date = QDate::fromString(day.toString(), u"yyyy-MM-dd");
    if (date.isValid() &&
        !(Rl->calendar().first <= date && date < Rl->calendar().first.addDays(kDays - kWeek)))
        showWeeks(date.addDays(-kWeek));
    if (date.isValid())
        Rl->goToDay(date);
    goTo(Rl);
}

void YdrlFrm::read() {
    const CalendarReading reading = ReadCalendarSource([this](int done, int total) {
        progress(done, total, u"正在读取住客"_s);
        return stillOpen();
    });
    if (reading.source) {
        source_ = *reading.source;
        form_->setChoices(u"Fx", QStringList{kAllTypes} + source_.types);
        showWeeks(Rl->calendar().days > 0 ? Rl->calendar().first : Clock::Today());
    }
    if (reading.notice)
        MsgBox(reading.notice->words, reading.notice->title);
}

void YdrlFrm::showWeeks(QDate first) {
    HouseCalendar calendar = ReckonCalendar(source_, Clock::Today(), first, kDays);
    const QString type = form_->text(u"Fx");
    if (source_.types.contains(type))
        std::erase_if(calendar.types,
                      [&type](const CalendarType& other) { return other.name != type; });
    form_->setText(u"Qsrq", DateOf(first));
    Rl->setCalendar(calendar, statuses_);
}

void YdrlFrm::Qsrq_Left() {
    const QDate first = QDate::fromString(form_->text(u"Qsrq"), u"yyyy-MM-dd");
    if (first.isValid())
        showWeeks(first);
    else
        form_->setText(u"Qsrq", DateOf(Rl->calendar().first));
}

// Below stands who is in the cell, in the status line what is free.
void YdrlFrm::Rl_Moved() {
    const HouseCalendarView::Line line = Rl->line();
    YdQd->table().clearRows();
    for (const CalendarSpan& span : Rl->spans()) {
        const QString use = !span.isStay ? u"预定"_s : span.isOverdue ? u"应离未离"_s : u"住客"_s;
        YdQd->table().addRow({line.room ? line.room->number : QString(), use, span.name,
                              span.company, DateOf(span.arrival), DateOf(span.departure),
                              span.state, span.isStay ? QString() : span.number});
    }
    YdQd->refresh();
    YdQd->autoFit();
    QString words = DayText(Rl->day());
    if (line.room && line.room->isDoubled(Rl->day()))
        words += u"，重复占用"_s;
    if (line.type)
        words += u' ' + line.title + u' ' + FreeRooms(*line.type, Rl->calendar(), Rl->day());
    if (Rl->calendar().undated > 0)
        words += u"（另有 %1 个预定没有到达日期）"_s.arg(Rl->calendar().undated);
    setStatus(words);
}

void YdrlFrm::OpenCmd_Click() {
    QStringList numbers;
    for (const CalendarSpan& span : Rl->spans()) {
        if (!span.isStay)
            numbers.append(span.number);
    }
    if (numbers.isEmpty())
        return setStatus(DayText(Rl->day()) + u"，这里没有预定"_s);
    if (numbers.size() == 1)
        return openReservation(numbers.first());
    YdQd->setCurrent(YdQd->table().find(YdQd->table().column(kNumber), numbers.first()));
    goTo(YdQd);
}

void YdrlFrm::openReservation(const QString& number) {
    if (!number.isEmpty())
        OpenScreen(u"frmYD", number);
}

} // namespace hotel
