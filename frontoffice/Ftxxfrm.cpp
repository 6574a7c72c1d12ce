#include "frontoffice/Ftxxfrm.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTabWidget>
#include <QVBoxLayout>

#include "frontoffice/room_map.h"
#include "frontoffice/status_places.h"
#include "house/rooms/room_record.h"
#include "house/stays/board_settings.h"
#include "link/Wck_comm.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "screen/check_list.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "screen/status_colour.h"
#include "session/operation_log.h"
#include "session/session.h"
#include "tools/lists/list_export.h"
#include "tools/lists/list_print.h"

namespace hotel {

namespace {

constexpr int kSideWidth = 432;
constexpr int kToldNotices = 15; // in one message; further ones are counted

constexpr QStringView kNumericTitles[] = {u"序号", room_record::kBeds, room_record::kGuests};

CellColours ColoursOf(int number) {
    const QColor fill = StatusColour(number);
    return {ReadableOn(fill), fill};
}

void Tell(const Notice& notice) {
    MsgBox(notice.words, notice.title);
}

// Many rooms may lack the same line: one message for them all.
void TellAll(const QList<Notice>& notices) {
    if (notices.isEmpty())
        return;
    QStringList lines;
    for (const Notice& notice : notices.mid(0, kToldNotices))
        lines.append(notice.words);
    if (notices.size() > kToldNotices)
        lines.append(u"……共 %1 处"_s.arg(notices.size()));
    MsgBox(lines.join(u'\n'), notices.first().title);
}

QWidget* Captioned(const QString& caption, QWidget* widget) {
    auto* box = new QWidget;
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(caption));
    layout->addWidget(widget, 1);
    return box;
}

} // namespace

Ftxxfrm::Ftxxfrm()
    : Screen(u"Ftxxfrm"_s, u"客房状态信息"_s), tabs_(new QTabWidget),
      KfztTb(new RoomMap(u"KfztTb"_s)), KfztQd(new GridView(u"KfztQd"_s)),
      statuses_(new StatusPlacePanel), FttjQd(makeCounts(u"FttjQd"_s)),
      LctjQd(makeCounts(u"LctjQd"_s)), FxtjQd(makeCounts(u"FxtjQd"_s)),
      Xslc(new CheckList(u"Xslc"_s)), Xsfx(new CheckList(u"Xsfx"_s)) {
    auto* content = new QHBoxLayout;
    content->addWidget(makeBoard(), 1);
    content->addWidget(makeSide());
    setContent(content);
    addCommands({
        {u"FreshCmd"_s, u"刷新"_s, [this] { FreshCmd_Click(); }, Qt::Key_F5, CommandKind::Default},
        {u"TabCmd"_s, u"房态图/清单"_s, [this] { TabCmd_Click(); }, Qt::Key_F2},
        {u"KfxxCmd"_s, u"住客信息"_s, [this] { KfxxCmd_Click(); }, Qt::Key_F6},
        {u"PrtCmd"_s, u"打印清单"_s, [this] { PrtCmd_Click(); }, Qt::Key_F9, CommandKind::Plain,
         u"list"_s},
        {u"SaveCmd"_s, u"保存清单"_s, [this] { SaveCmd_Click(); }, Qt::Key_F8, CommandKind::Plain,
         u"list"_s},
        {u"StopCmd"_s, u"停止"_s, [this] { requestStop(); }, {}, CommandKind::Stop, u"end"_s},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });

    on(KfztTb, &GridView::currentMoved, [this] { Room_Change(); });
    on(KfztQd, &GridView::currentMoved, [this] { Room_Change(); });
    on(KfztTb, &GridView::rowActivated, [this] { KfxxCmd_Click(); });
    on(KfztQd, &GridView::rowActivated, [this] { KfxxCmd_Click(); });
    on(statuses_, &StatusPlacePanel::chosen, [this](int place) { Place_Click(place); });
    on(statuses_, &StatusPlacePanel::ticked, [this] { Tick_Change(); });
    on(Xslc, &CheckList::ticked, [this] { Tick_Change(); });
    on(Xsfx, &CheckList::ticked, [this] { Tick_Change(); });

    resize(1280, 720);
    setWindowState(Qt::WindowMaximized);
}

QWidget* Ftxxfrm::makeBoard() {
    KfztQd->table().setHeaders(BoardTitles());
    KfztQd->setNumberColumn(0);
    KfztQd->setSortable(true);
    for (const QStringView numeric : kNumericTitles)
        KfztQd->setColumnAlignment(KfztQd->table().column(numeric),
                                   Qt::AlignRight | Qt::AlignVCenter);
    const int statusColumn = KfztQd->table().column(room_record::kStatus);
    KfztQd->setColours([this, statusColumn](int row, int column) {
        const StatusPlace* place =
            column == statusColumn ? placeOf(KfztQd->table().text(row, column)) : nullptr;
        return place ? ColoursOf(place->colour) : CellColours();
    });
    tabs_->setObjectName(u"tabs"_s);
    tabs_->addTab(KfztTb, u"房态图"_s);
    tabs_->addTab(KfztQd, u"房态清单"_s);
    return tabs_;
}

QWidget* Ftxxfrm::makeSide() {
    FttjQd->setColours([this](int row, int column) {
        const StatusPlace* place = column == 0 ? placeOf(FttjQd->table().text(row, 0)) : nullptr;
        return place ? ColoursOf(place->colour) : CellColours();
    });
    auto* lists = new QWidget;
    auto* listRow = new QHBoxLayout(lists);
    listRow->addWidget(Captioned(u"显示楼层选择"_s, Xslc), 2);
    listRow->addWidget(Captioned(u"显示房型选择"_s, Xsfx), 3);

    auto* figures = new QTabWidget;
    figures->setObjectName(u"figures"_s);
    figures->addTab(FttjQd, u"房态统计数据"_s);
    figures->addTab(LctjQd, u"楼层统计数据"_s);
    figures->addTab(FxtjQd, u"房型统计数据"_s);
    figures->addTab(lists, u"显示选择"_s);
    for (GridView* counts : {FttjQd, LctjQd, FxtjQd})
        counts->setAccessibleName(figures->tabText(figures->indexOf(counts)));

    auto* side = new QWidget;
    side->setFixedWidth(kSideWidth);
    auto* layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(statuses_);
    layout->addWidget(figures, 1);
    return side;
}

GridView* Ftxxfrm::makeCounts(const QString& name) {
    auto* counts = new GridView(name);
    counts->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    counts->verticalHeader()->setMinimumSectionSize(1);
    counts->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 2);
    counts->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    for (int column = 1; column <= 3; ++column)
        counts->setColumnAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    return counts;
}

void Ftxxfrm::load(const QVariant&) {
    saveSettings(); // of a board that is asked for again
    settingsRead_ = false;
    KfztTb->setFocus();
    FreshCmd_Click();
}

// What the board counts by, and what of it the user wants to see. Without the server it stays as it is,
// to be read by the next refresh; and what could not be read is not written back when the board closes.
void Ftxxfrm::readSettings() {
    const StatusPlaces places = LoadStatusPlaces();
    const QStringList floors = LoadLcQd();
    const QStringList types = LoadRoomTypes();
    const auto settings =
        LoadBoardSettings(CurrentSession().userId, kStatusPlaces, floors.size(), types.size());
    if (!settings || !Link().isUp())
        return;
    places_ = places;
    counts_ = EmptyCounts(places, floors, types);
    statuses_->setPlaces(places);
    statuses_->setTicks(settings->statuses);
    Xslc->setEntries(floors);
    Xslc->setTicks(settings->floors);
    Xsfx->setEntries(types);
    Xsfx->setTicks(settings->types);
    settingsRead_ = !stopRequested();
}

void Ftxxfrm::saveSettings() {
    if (settingsRead_ && Link().isUp())
        SaveBoardSettings(CurrentSession().userId,
                          {statuses_->ticks(), Xslc->ticks(), Xsfx->ticks()});
}

bool Ftxxfrm::closing() {
    saveSettings();
    return true;
}

// --- refresh ---

// Until all is read the board shows what it showed before.
void Ftxxfrm::FreshCmd_Click() {
    if (!settingsRead_)
        readSettings();
    TextTable list(BoardTitles());
    const auto notice = LoadFtQd(list, places_, [this](int done, int all) {
        progress(done, all, u"正在读取住客姓名"_s);
        return stillOpen() && Link().isUp();
    });
    const bool whole = !stopRequested() && Link().isUp();
    const bool showsRooms = KfztQd->table().dataRows() > 0;
    if (list.dataRows() == 0 && (showsRooms || !whole)) {
        setStatus(showsRooms ? u"没有读到客房，显示的仍是以前的房态"_s : u"没有读到客房"_s);
        return;
    }
    showList(list);
    KfztTb->setLines(MakeFtTb(list, places_, filter()));
    const QList<Notice> uncounted = count();
    setStatus(u"%1 共 %2 间客房"_s.arg(Clock::TimeText()).arg(list.dataRows()) +
              (whole ? QString() : u"，刷新没有完成，住客姓名不全"_s));
    if (stopRequested())
        return;
    if (notice)
        Tell(*notice); // rooms without a status are not counted, either: told with this
    else
        TellAll(uncounted);
}

void Ftxxfrm::showList(const TextTable& list) {
    const QString selected = roomOfList();
    KfztQd->setTable(list);
    KfztQd->autoFit();
    selectInList(selected);
}

QList<Notice> Ftxxfrm::count() {
    const QList<Notice> uncounted = SetFtLcFxtjQd(counts_, KfztQd->table());
    const std::pair<GridView*, const TextTable*> shown[] = {
        {FttjQd, &counts_.byStatus}, {LctjQd, &counts_.byFloor}, {FxtjQd, &counts_.byType}};
    for (const auto& [grid, table] : shown)
        grid->setTable(*table);
    return uncounted;
}

BoardFilter Ftxxfrm::filter() const {
    BoardFilter filter;
    const QList<bool> ticks = statuses_->ticks();
    for (qsizetype i = 0; i < ticks.size(); ++i) {
        if (ticks[i])
            filter.statuses.insert(places_[size_t(i)].word);
    }
    const QStringList floors = Xslc->tickedEntries();
    const QStringList types = Xsfx->tickedEntries();
    filter.floors = {floors.begin(), floors.end()};
    filter.types = {types.begin(), types.end()};
    return filter;
}

void Ftxxfrm::Tick_Change() {
    setStatus(u"显示选择已经改变，刷新后房态图才按它显示"_s);
}

// --- rooms ---

QString Ftxxfrm::selectedRoom() const {
    return tabs_->currentWidget() == KfztTb ? KfztTb->selectedRoom() : roomOfList();
}

QString Ftxxfrm::roomOfList() const {
    const QList<int> rows = KfztQd->selectedRows();
    return rows.isEmpty() ? QString() : KfztQd->table().text(rows.first(), room_record::kNumber);
}

int Ftxxfrm::listRow(QStringView room) const {
    return KfztQd->table().find(KfztQd->table().column(room_record::kNumber), room);
}

void Ftxxfrm::selectInList(QStringView room) {
    KfztQd->setCurrent(std::max(0, listRow(room)));
}

const StatusPlace* Ftxxfrm::placeOf(const QString& status) const {
    const auto place = std::ranges::find(places_, status, &StatusPlace::word);
    return status.isEmpty() || place == places_.end() ? nullptr : &*place;
}

QString Ftxxfrm::wordsOf(int row) const {
    QStringList words;
    for (int column = 1; column < KfztQd->table().cols(); ++column) {
        const QString text = KfztQd->table().text(row, column);
        if (!text.isEmpty())
            words.append(KfztQd->table().headers()[column] + u' ' + text);
    }
    return words.join(u"    "_s);
}

void Ftxxfrm::Room_Change() {
    const int row = listRow(selectedRoom());
    if (row > 0)
        setStatus(wordsOf(row));
}

void Ftxxfrm::Place_Click(int place) {
    const QString room = selectedRoom();
    const StatusPlace& wished = places_[size_t(place)];
    if (room.isEmpty())
        return;
    const StatusChange change = SetStatusByHand(room, wished.word);
    if (change.refusal)
        Tell(*change.refusal);
    if (!Link().isUp())
        setStatus(u"与服务器的连接断开，房间 %1 的房态可能没有改变"_s.arg(room));
    if (!change.changed)
        return;
    KfztTb->setColour(room, wished.colour);
    const int row = listRow(room);
    KfztQd->table().setText(row, room_record::kStatus, wished.word);
    KfztQd->rowChanged(row);
    setStatus(u"房间 %1 的房态已经改为：%2"_s.arg(room, wished.word));
}

void Ftxxfrm::KfxxCmd_Click() {
    if (const QString room = selectedRoom(); !room.isEmpty())
        OpenScreen(u"KfxxFrm", room);
}

// The room that is selected stays it on the other tab, where that shows it.
void Ftxxfrm::TabCmd_Click() {
    const QString room = selectedRoom();
    tabs_->setCurrentIndex(1 - tabs_->currentIndex());
    if (tabs_->currentWidget() == KfztTb)
        KfztTb->selectRoom(room);
    else
        selectInList(room);
    tabs_->currentWidget()->setFocus();
}

// --- paper and file ---

QString Ftxxfrm::title() const {
    return Clock::Now().toString(u"yyyy-MM-dd HH:mm") + u" 房态清单"_s;
}

void Ftxxfrm::PrtCmd_Click() {
    if (KfztQd->table().dataRows() == 0)
        return;
    const QString heading = title();
    SaveLogRec(u"打印房态清单"_s, heading);
    PrintGrid(*KfztQd, heading);
}

void Ftxxfrm::SaveCmd_Click() {
    const QString heading = title();
    if (!SaveGridToText(KfztQd->table(), heading))
        return;
    SaveLogRec(u"保存房态清单"_s, heading);
    setStatus(u"清单文件已经生成"_s);
}

} // namespace hotel
