#include "shell/today_panel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include "record/literals.h"
#include "screen/grid_view.h"
#include "screen/status_colour.h"
#include "screen/theme.h"

namespace hotel {

namespace {

constexpr int kHouseWidth = 264;
constexpr int kBarHeight = 28;
constexpr int kRowHeight = 25;
constexpr int kListsPerLine = 2;
constexpr QColor kUnknownStatus(0x8a, 0x93, 0x9d);
constexpr QLatin1StringView kHeadingStyle("color: #1b3556;");
constexpr QLatin1StringView kFailedStyle("color: #b3261e;");

QColor ColourOf(const StatusShare& share) {
    return share.colour ? StatusColour(*share.colour) : kUnknownStatus;
}

QLabel* MakeHeading() {
    auto* heading = new QLabel;
    heading->setFont(FontFor(u"黑体", 12, true));
    return heading;
}

GridView* MakeList(const QString& name) {
    auto* list = new GridView(name);
    list->verticalHeader()->setMinimumSectionSize(kRowHeight);
    list->verticalHeader()->setDefaultSectionSize(kRowHeight);
    list->setFrameShape(QFrame::NoFrame);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->horizontalHeader()->setStretchLastSection(false);
    return list;
}

// The column of names takes the width that the others leave, so that nothing has to be scrolled sideways.
void FitList(GridView* list, QStringView names) {
    list->autoFit();
    list->horizontalHeader()->setSectionResizeMode(list->table().column(names),
                                                   QHeaderView::Stretch);
}

void AlignRight(GridView* list, const QStringList& titles) {
    for (const QString& title : titles) {
        if (const int column = list->table().column(title); column >= 0)
            list->setColumnAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    }
}

void SetHeading(QLabel* heading, const QString& words, bool failed) {
    heading->setStyleSheet(failed ? kFailedStyle : kHeadingStyle);
    heading->setText(words);
}

} // namespace

// --- the bar ---

HouseBar::HouseBar(QWidget* parent) : QWidget(parent) {
    setObjectName(u"HouseBar"_s);
    setFixedHeight(kBarHeight);
}

void HouseBar::setShares(const QList<StatusShare>& shares) {
    shares_ = shares;
    update();
}

void HouseBar::paintEvent(QPaintEvent*) {
    int rooms = 0;
    for (const StatusShare& share : shares_)
        rooms += share.rooms;
    if (rooms == 0)
        return;
    QPainter painter(this);
    int before = 0;
    for (const StatusShare& share : shares_) {
        const int left = width() * before / rooms;
        before += share.rooms;
        const QRect block(left, 0, width() * before / rooms - left - 1, height());
        const QColor colour = ColourOf(share);
        painter.fillRect(block, colour);
        const QString count = QString::number(share.rooms);
        if (painter.fontMetrics().horizontalAdvance(count) + 4 > block.width())
            continue;
        painter.setPen(ReadableOn(colour));
        painter.drawText(block, Qt::AlignCenter, count);
    }
}

// --- the panel ---

TodayPanel::TodayPanel()
    : greeting_(new QLabel), hint_(new QLabel), readAt_(new QLabel), houseHeading_(MakeHeading()),
      houseFigures_(new QLabel), bar_(new HouseBar), statuses_(MakeList(u"TodayStatus"_s)),
      freeRooms_(MakeList(u"TodayFree"_s)), places_(new QGridLayout) {
    setObjectName(u"welcome"_s);
    greeting_->setFont(FontFor(u"宋体", 16, true));
    readAt_->setObjectName(u"TodayRead"_s);
    hint_->setText(u"请用左侧的功能组开始工作，F10 退出系统"_s);
    hint_->setFont(FontFor(u"黑体", 12));

    auto* head = new QHBoxLayout;
    head->addWidget(greeting_);
    head->addStretch();
    head->addWidget(readAt_);

    house_ = makeHouse();
    houseLists_ = makeHouseLists();
    places_->setSpacing(14);
    auto* below = new QWidget; // takes the height, also where there is nothing to show
    auto* body = new QHBoxLayout(below);
    body->setContentsMargins(0, 0, 0, 0);
    body->setSpacing(18);
    body->addWidget(houseLists_);
    body->addLayout(places_, 1);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(22, 16, 22, 12);
    layout->setSpacing(12);
    layout->addLayout(head);
    layout->addWidget(hint_);
    layout->addWidget(house_);
    layout->addWidget(below, 1);

    sections_ = {
        makeSection(TodayKind::Arrivals, u"预计到达"_s, u"TodayArrivals"_s, u"客人"),
        makeSection(TodayKind::Departures, u"预计离店"_s, u"TodayDepartures"_s, u"客人姓名"),
        makeSection(TodayKind::Balances, u"余额不足"_s, u"TodayBalances"_s, u"客人姓名"),
        makeSection(TodayKind::Repairs, u"待修客房"_s, u"TodayRepairs"_s, u"维修原因")};
    for (QWidget* part : {house_, houseLists_})
        part->hide();
}

QWidget* TodayPanel::makeHouse() {
    auto* house = new QWidget;
    houseHeading_->setObjectName(u"TodayHouse"_s);
    auto* head = new QHBoxLayout;
    head->addWidget(houseHeading_);
    head->addSpacing(12);
    head->addWidget(houseFigures_, 1);
    auto* layout = new QVBoxLayout(house);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(head);
    layout->addWidget(bar_);
    return house;
}

QWidget* TodayPanel::makeHouseLists() {
    auto* lists = new QWidget;
    lists->setFixedWidth(kHouseWidth);
    statuses_->table().setHeaders({u"房态"_s, u"房数"_s, u"住客"_s});
    auto* layout = new QVBoxLayout(lists);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(statuses_, 3);
    layout->addWidget(freeRooms_, 2);
    connectList(statuses_, TodayKind::House);
    connectList(freeRooms_, TodayKind::House);
    return lists;
}

TodayPanel::Section TodayPanel::makeSection(TodayKind kind, const QString& title,
                                            const QString& name, QStringView names) {
    const Section section{kind,          title,         names, new QWidget(places_->parentWidget()),
                          MakeHeading(), MakeList(name)};
    section.heading->setObjectName(name + u"Heading"_s);
    auto* layout = new QVBoxLayout(section.frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(section.heading);
    layout->addWidget(section.list, 1);
    section.frame->hide();
    connectList(section.list, kind);
    return section;
}

void TodayPanel::connectList(GridView* list, TodayKind kind) {
    connect(list, &GridView::rowActivated, this,
            [this, list, kind](int row) { Q_EMIT chosen(kind, list->table().row(row)); });
}

void TodayPanel::greet(const QString& user) {
    greeting_->setText(user + u"，欢迎使用"_s);
}

GridView* TodayPanel::firstList() const {
    for (const Section& section : sections_) {
        if (!section.frame->isHidden() && section.list->table().dataRows() > 0)
            return section.list;
    }
    return houseLists_->isHidden() || statuses_->table().dataRows() == 0 ? nullptr : statuses_;
}

void TodayPanel::showDay(const Today& today, Money limit, bool checking) {
    showHouse(today.house);
    const QString below = u"低于 "_s + limit.text();
    showList(sections_[0], today.arrivals, {}, checking);
    showList(sections_[1], today.departures, {}, checking);
    showList(sections_[2], today.balances, below, checking);
    showList(sections_[3], today.repairs, {}, checking);
    placeSections();
    const bool shows =
        today.house || today.arrivals || today.departures || today.balances || today.repairs;
    hint_->setVisible(!shows);
    readAt_->setText(shows ? u"今日 "_s + today.day.toString(u"M月d日") + u"，"_s + today.readAt +
                                 u" 读取"_s
                           : QString());
}

void TodayPanel::showHouse(const std::optional<HouseToday>& house) {
    const bool known = house && !house->failed;
    house_->setVisible(house.has_value());
    houseLists_->setVisible(known);
    bar_->setVisible(known);
    houseFigures_->setVisible(known);
    if (house)
        SetHeading(houseHeading_, house->failed ? u"客房　读取失败"_s : u"客房"_s, house->failed);
    if (!known)
        return;
    const int rate =
        house->rooms > 0 ? (house->occupied * 100 + house->rooms / 2) / house->rooms : 0;
    houseFigures_->setText(u"共 %1 间，在住 %2 间（%3%），住客 %4 人"_s.arg(house->rooms)
                               .arg(house->occupied)
                               .arg(rate)
                               .arg(house->guests));
    bar_->setShares(house->shares);
    statuses_->table().clearRows();
    for (const StatusShare& share : house->shares)
        statuses_->table().addRow({share.status, QString::number(share.rooms),
                                   share.guests > 0 ? QString::number(share.guests) : QString()});
    const QList<StatusShare> shares = house->shares;
    statuses_->setColours([shares](int row, int column) {
        if (column != 0 || row < 1 || row > shares.size())
            return CellColours{};
        const QColor colour = ColourOf(shares[row - 1]);
        return CellColours{ReadableOn(colour), colour};
    });
    freeRooms_->setTable(house->freeByType);
    statuses_->refresh();
    AlignRight(statuses_, {u"房数"_s, u"住客"_s});
    AlignRight(freeRooms_, {u"空房"_s, u"总数"_s});
    FitList(statuses_, u"房态");
    FitList(freeRooms_, u"房型");
}

void TodayPanel::showList(const Section& section, const std::optional<TodayList>& list,
                          const QString& remark, bool checking) {
    section.frame->setVisible(list.has_value());
    if (!list)
        return;
    QStringList remarks;
    if (!remark.isEmpty())
        remarks.append(remark);
    if (!list->checkedAt.isEmpty())
        remarks.append(list->checkedAt + u" 核对"_s);
    const QString behind =
        remarks.isEmpty() ? QString() : u"（"_s + remarks.join(u"，"_s) + u"）"_s;
    const int rows = list->rows.dataRows();
    switch (list->outcome) {
    case Reading::Present:
        SetHeading(section.heading,
                   section.title + u'　' + (rows > 0 ? QString::number(rows) : u"无"_s) + behind,
                   false);
        break;
    case Reading::Absent:
        SetHeading(section.heading,
                   section.title + (checking ? u"　正在核对…"_s : u"　今日还没有核对（F12）"_s),
                   false);
        break;
    case Reading::Failed:
        SetHeading(section.heading, section.title + u"　读取失败"_s, true);
        break;
    }
    section.list->setVisible(list->outcome == Reading::Present);
    section.list->setTable(list->rows);
    AlignRight(section.list, {u"间数"_s, u"信用余额"_s});
    FitList(section.list, section.names);
    // The number is for the screen that the line leads to.
    section.list->setColumnHidden(list->rows.cols() - 1, true);
}

void TodayPanel::placeSections() {
    int place = 0;
    for (const Section& section : sections_) {
        places_->removeWidget(section.frame);
        if (section.frame->isHidden())
            continue;
        places_->addWidget(section.frame, place / kListsPerLine, place % kListsPerLine);
        ++place;
    }
}

} // namespace hotel
