#include "tools/lists/CmnGrd.h"

#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabWidget>
#include <QVBoxLayout>
#include <array>

#include "record/numbers.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/key_filter.h"
#include "screen/theme.h"
#include "tools/charts/ChartBox.h"
#include "tools/charts/draw_chart.h"
#include "tools/lists/list_export.h"
#include "tools/lists/list_totals.h"

namespace hotel {

namespace {

constexpr int kTimerInterval = 100; // milliseconds
constexpr int kShowWalkEvery = 100;
constexpr int kPanelWidth = 330;
constexpr int kListWidth = 1026; // with the panel as wide as the smallest screen of the house
constexpr int kRowsHeight = 300;
constexpr int kChartHeight = 280;

constexpr QStringView kNumberHeader = u"序号";

// The steps of a column's alignment mark.
constexpr std::array<QStringView, 4> kMarks = {u"->", u"<-", u"<>", u" -"};

const QList<FormField> kHeading = {
    {u"", u"bt", u"标题", Editor::Text, {}, 52},
    {u"", u"SepFlg", u"文件分隔", Editor::Category, {}, 14},
};

const QList<FormField> kSettings = {
    {u"", u"wd", u"纸宽", Editor::Text, {}, 6},
    {u"", u"ht", u"纸高", Editor::Text, {}, 6},
    {u"", u"lm", u"左边界", Editor::Text, {}, 6},
    {u"", u"rm", u"右边界", Editor::Text, {}, 6},
    {u"", u"tm", u"上边界", Editor::Text, {}, 6},
    {u"", u"bm", u"下边界", Editor::Text, {}, 6},
    {u"", u"font3", u"标题字体", Editor::CategoryText, {}, 8},
    {u"", u"fsiz3", u"字号", Editor::Text, {}, 6},
    {u"", u"fbld", u"标题粗体", Editor::Check},
    {u"", u"Bgap", u"标题间距", Editor::Text, {}, 6},
    {u"", u"font1", u"表头字体", Editor::CategoryText, {}, 8},
    {u"", u"fsiz1", u"字号", Editor::Text, {}, 6},
    {u"", u"font2", u"表芯字体", Editor::CategoryText, {}, 8},
    {u"", u"fsiz2", u"字号", Editor::Text, {}, 6},
    {u"", u"lw1", u"表头线宽", Editor::Text, {}, 6},
    {u"", u"lw2", u"表芯线宽", Editor::Text, {}, 6},
};

const QList<FormField> kPageTexts = {
    {u"", u"ym", u"页眉", Editor::Text, {}, 24},
    {u"", u"yj", u"页脚", Editor::Text, {}, 24},
    {u"", u"AutoAdj", u"自动调整单元字号", Editor::Check},
};

constexpr std::array<QStringView, 12> kNumberBoxes = {u"wd",    u"ht",    u"lm",    u"rm",
                                                      u"tm",    u"bm",    u"fsiz3", u"Bgap",
                                                      u"fsiz1", u"fsiz2", u"lw1",   u"lw2"};

QString Short(double value) {
    return FormatNumber(value, u"#0.##");
}

bool HasText(const TextTable& list, int column) {
    for (int row = 1; row < list.rows(); ++row) {
        if (!list.text(row, column).isEmpty())
            return true;
    }
    return false;
}

bool EndsInSums(const TextTable& list) {
    return HasTotalRow(list) || HasTotalRow(list, kReportTotalLabel);
}

Qt::Alignment AlignmentOf(QStringView mark) {
    if (mark == u"->")
        return Qt::AlignRight | Qt::AlignVCenter;
    return (mark == u" -" ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter;
}

} // namespace

CmnGrd::CmnGrd(const QString& title, const QStringList& columns)
    : Screen(u"CmnGrd"_s, title.isEmpty() ? u"参考清单"_s : title), Grd_(columns),
      pages_(new QStackedWidget), GrdView_(new GridView(u"GrdView"_s)), SelList_(new QListWidget),
      AligList_(new QListWidget), StatusGrd_(new GridView(u"StatusGrd"_s)), charts_(new ChartBox),
      heading_(new FieldForm(kHeading, 2)), settings_(new FieldForm(kSettings, 2)),
      pageTexts_(new FieldForm(kPageTexts, 1)), busy_(new QLabel) {
    GrdView_->setSelect(GridView::Select::Cells);
    GrdView_->setSortable(true);
    GrdView_->setNumberColumn(0);
    busy_->setAlignment(Qt::AlignCenter);
    busy_->setFont(FontFor(u"黑体", 16));
    pages_->addWidget(GrdView_);
    pages_->addWidget(busy_);
    heading_->setText(u"bt", title);
    heading_->setChoices(u"SepFlg", ExportLayouts());
    heading_->setText(u"SepFlg", ExportLayouts().first());

    auto* list = new QWidget;
    auto* listLayout = new QVBoxLayout(list);
    listLayout->setContentsMargins(0, 0, 0, 0);
    listLayout->addWidget(heading_);
    auto* rows = new QSplitter(Qt::Vertical);
    rows->addWidget(pages_);
    rows->addWidget(charts_);
    rows->setStretchFactor(0, 1);
    rows->setChildrenCollapsible(false);
    rows->setSizes({kRowsHeight, kChartHeight});
    listLayout->addWidget(rows, 1);
    auto* panel = new QTabWidget;
    panel_ = panel;
    panel->addTab(makeColumnsPage(), u"列与统计"_s);
    panel->addTab(makeSettingsPage(), u"打印设置"_s);
    panel->setMinimumWidth(kPanelWidth);
    panel->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    auto* split = new QSplitter;
    split->addWidget(list);
    split->addWidget(panel);
    split->setStretchFactor(0, 1);
    split->setChildrenCollapsible(false);
    split->setSizes({kListWidth, kPanelWidth});
    setContent(split);

    addCommands({
        {u"Print_cmd"_s, u"打印"_s, [this] { Print_cmd_Click(); }, Qt::Key_F8,
         CommandKind::Default},
        {u"FileSave"_s, u"存为文件"_s, [this] { FileSave_Click(); }, Qt::Key_F9},
        {u"ChartSave"_s, u"图表存盘"_s, [this] { ChartSave_Click(); }, Qt::Key_F10},
        {u"PanelCmd"_s, u"列与设置"_s, [this] { PanelCmd_Click(); }, Qt::Key_F6},
        {u"CmdStop"_s, u"停止"_s, [this] { CmdStop_Click(); }, {}, CommandKind::Stop, u"end"_s},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, {}, CommandKind::Plain, u"end"_s},
    });
    // These wait for nothing and must not be refused while a list is printed: they are no handlers.
    connect(SelList_, &QListWidget::itemChanged, this, &CmnGrd::SelList_ItemCheck);
    connect(SelList_->model(), &QAbstractItemModel::rowsMoved, this, &CmnGrd::SelList_ItemCheck);
    connect(AligList_, &QListWidget::itemClicked, this, &CmnGrd::AligList_Click);
    connect(GrdView_, &GridView::selectionMoved, this, &CmnGrd::showStatistics);
    connect(GrdView_, &GridView::sorted, this, &CmnGrd::GrdView_Sorted);
    makeShortcuts();
    every(kTimerInterval, [this] { Timer1_Timer(); });
    setTask(GridTask::None);
    setCharts({});
    resize(kListWidth + kPanelWidth, 720);
    GrdView_->setFocus();
}

QWidget* CmnGrd::makeColumnsPage() {
    SelList_->setObjectName(u"SelList"_s);
    SelList_->setDragDropMode(QAbstractItemView::InternalMove);
    SelList_->setToolTip(u"打勾的列才显示、打印和保存；拖动或按Ctrl+↑↓调整次序"_s);
    AligList_->setObjectName(u"AligList"_s);
    AligList_->setToolTip(u"单击或按空格键改变对齐方式：-> 右，<- 左，<> 匀齐， - 居中"_s);
    StatusGrd_->setFocusPolicy(Qt::NoFocus);
    StatusGrd_->setTable(StatisticsTable(TextTable(), {}));
    StatusGrd_->setColumnAlignment(1, AlignmentOf(u"->"));

    auto* lists = new QHBoxLayout;
    for (const auto& [label, list] :
         {std::pair{u"显示的列"_s, SelList_}, std::pair{u"对齐方式"_s, AligList_}}) {
        auto* column = new QVBoxLayout;
        column->addWidget(new QLabel(label));
        column->addWidget(list);
        lists->addLayout(column);
    }
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(lists, 1);
    layout->addWidget(new QLabel(u"统计（当前列，或选中的几行）"_s));
    layout->addWidget(StatusGrd_);
    StatusGrd_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    StatusGrd_->setFixedHeight(StatusGrd_->horizontalHeader()->sizeHint().height() +
                               StatusGrd_->verticalHeader()->length() +
                               2 * StatusGrd_->frameWidth());
    return page;
}

QWidget* CmnGrd::makeSettingsPage() {
    const QStringList fonts = {u"黑体"_s, u"宋体"_s, u"楷体"_s, u"仿宋"_s};
    for (const QStringView box : {u"font1", u"font2", u"font3"})
        settings_->setChoices(box, fonts);
    for (const QStringView box : kNumberBoxes)
        AmountKeyFilter(settings_->editor<QLineEdit>(box));

    const ListPrintSettings start;
    const std::pair<QStringView, QString> values[] = {
        {u"wd", Short(start.paperWidth)},
        {u"ht", Short(start.paperHeight)},
        {u"lm", Short(start.left)},
        {u"rm", Short(start.right)},
        {u"tm", Short(start.top)},
        {u"bm", Short(start.bottom)},
        {u"font3", start.titleFont.name},
        {u"fsiz3", Short(start.titleFont.size)},
        {u"Bgap", Short(start.titleGap)},
        {u"font1", start.table.headFont.name},
        {u"fsiz1", Short(start.table.headFont.size)},
        {u"lw1", Short(start.table.headLineWidth)},
        {u"font2", start.table.bodyFont.name},
        {u"fsiz2", Short(start.table.bodyFont.size)},
        {u"lw2", Short(start.table.bodyLineWidth)},
    };
    for (const auto& [box, value] : values)
        settings_->setText(box, value);

    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(new QLabel(u"长度单位：厘米，字号单位：磅"_s));
    layout->addWidget(settings_);
    layout->addWidget(pageTexts_);
    layout->addStretch(1);
    return page;
}

void CmnGrd::makeShortcuts() {
    const auto add = [this](QWidget* list, const QKeySequence& key, std::function<void()> handler) {
        auto* shortcut = new QShortcut(key, list, nullptr, nullptr, Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, std::move(handler));
    };
    add(SelList_, Qt::CTRL | Qt::Key_Up, [this] { moveColumn(-1); });
    add(SelList_, Qt::CTRL | Qt::Key_Down, [this] { moveColumn(1); });
    add(AligList_, Qt::Key_Space, [this] { AligList_Click(AligList_->currentItem()); });
}

// --- what is shown ---

void CmnGrd::setTask(GridTask task) {
    task_ = task;
    setCommandEnabled(u"CmdStop", task == GridTask::Wait);
    if (task == GridTask::Wait) {
        pages_->setCurrentWidget(busy_);
        showWalk(0, 0);
        sinceShown_.start();
    }
}

void CmnGrd::Timer1_Timer() {
    switch (task_) {
    case GridTask::None:
    case GridTask::Abort:
        return;
    case GridTask::Wait:
        showWalk(0, 0);
        return;
    case GridTask::Check:
        rebuildColumnLists();
        break;
    case GridTask::Fresh:
    case GridTask::Show:
        if (SelList_->count() != Grd_.cols())
            rebuildColumnLists();
    }
    const bool isNew = std::exchange(task_, GridTask::None) == GridTask::Check;
    showColumns();
    GrdView_->autoFit();
    if (isNew)
        foldPanelForList();
}

// Columns come first: a list that doesn't fit beside the panel has the whole width, until F6 asks for the panel.
void CmnGrd::foldPanelForList() {
    const int needed = GrdView_->horizontalHeader()->length();
    if (needed > GrdView_->viewport()->width())
        panel_->hide();
}

void CmnGrd::rebuildColumnLists() {
    const QSignalBlocker quiet(SelList_);
    SelList_->clear();
    AligList_->clear();
    for (int column = 0; column < Grd_.cols(); ++column) {
        const QString& header = Grd_.headers()[column];
        auto* item = new QListWidgetItem(header, SelList_);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable |
                       Qt::ItemIsDragEnabled);
        item->setCheckState(HasText(Grd_, column) ? Qt::Checked : Qt::Unchecked);
        item->setData(Qt::UserRole, column);
        AligList_->addItem(header + (HoldsAmounts(Grd_, column) ? kMarks.front() : QStringView()));
    }
}

QList<int> CmnGrd::shownColumns() const {
    QList<int> columns;
    for (int place = 0; place < SelList_->count(); ++place) {
        const QListWidgetItem* item = SelList_->item(place);
        if (item->checkState() == Qt::Checked)
            columns.append(item->data(Qt::UserRole).toInt());
    }
    return columns;
}

void CmnGrd::showColumns() {
    const QList<int> columns = shownColumns();
    const auto cellsOf = [&](int row, const QString& number) {
        QStringList cells;
        cells.reserve(columns.size() + 1);
        cells.append(number);
        for (const int column : columns)
            cells.append(Grd_.text(row, column));
        return cells;
    };
    TextTable shown(cellsOf(0, kNumberHeader.toString()));
    for (int row = 1; row < Grd_.rows(); ++row)
        shown.addRow(cellsOf(row, QString::number(row)));
    GrdView_->setTable(shown);
    GrdView_->setTotalRows(EndsInSums(Grd_) ? 1 : 0);
    if (GrdView_->currentRow() == 0 && shown.dataRows() > 0)
        GrdView_->setCurrent(1, shown.cols() > 1 ? 1 : 0);
    showAlignments();
    pages_->setCurrentWidget(GrdView_);
    shownBlock_ = {};
    showStatistics();
    setStatus(u"共 %1 行"_s.arg(Grd_.dataRows()));
}

void CmnGrd::showAlignments() {
    const QList<int> columns = shownColumns();
    GrdView_->setColumnAlignment(0, AlignmentOf(u"->"));
    for (int place = 0; place < columns.size(); ++place)
        GrdView_->setColumnAlignment(place + 1, AlignmentOf(alignmentMark(columns[place])));
    GrdView_->viewport()->update();
}

void CmnGrd::SelList_ItemCheck() {
    if (task_ == GridTask::None)
        task_ = GridTask::Show;
}

void CmnGrd::moveColumn(int step) {
    const int from = SelList_->currentRow();
    const int to = from + step;
    if (from < 0 || to < 0 || to >= SelList_->count())
        return;
    SelList_->insertItem(to, SelList_->takeItem(from));
    SelList_->setCurrentRow(to);
    SelList_ItemCheck();
}

QString CmnGrd::alignmentMark(int column) const {
    return AligList_->item(column)->text().sliced(Grd_.headers()[column].size());
}

void CmnGrd::AligList_Click(QListWidgetItem* item) {
    if (!item)
        return;
    const int column = AligList_->row(item);
    const auto mark = std::find(kMarks.begin(), kMarks.end(), alignmentMark(column));
    const bool last = mark == kMarks.end() || mark + 1 == kMarks.end();
    item->setText(Grd_.headers()[column] + (last ? kMarks.front() : *(mark + 1)));
    showAlignments();
}

// What is shown has been sorted; the list behind it follows, so that rows stay the same rows.
void CmnGrd::GrdView_Sorted(const QList<int>& cameFrom) {
    const TextTable before = Grd_;
    for (int row = 1; row < std::min(int(cameFrom.size()), Grd_.rows()); ++row)
        Grd_.setRow(row, before.row(cameFrom[row]));
}

// --- statistics ---

// A block of several rows, else the whole column; whole rows count by their current column. The row of
// sums at the end doesn't count.
CellBlock CmnGrd::selectedBlock() const {
    const QItemSelection selection = GrdView_->selectionModel()->selection();
    const int column = std::max(0, GrdView_->currentColumn());
    CellBlock block = ColumnBlock(GrdView_->table(), column);
    if (EndsInSums(Grd_))
        --block.lastRow;
    if (selection.size() != 1 || selection.first().height() < 2)
        return block;
    const QItemSelectionRange& range = selection.first();
    block.firstRow = range.top() + 1;
    block.lastRow = std::min(block.lastRow, range.bottom() + 1);
    if (range.width() < GrdView_->table().cols()) {
        block.firstColumn = range.left();
        block.lastColumn = range.right();
    }
    return block;
}

void CmnGrd::showStatistics() {
    const CellBlock block = selectedBlock();
    if (block == shownBlock_)
        return;
    shownBlock_ = block;
    StatusGrd_->setTable(StatisticsTable(GrdView_->table(), block));
    StatusGrd_->autoFit();
}

// --- walks ---

void CmnGrd::setWalkPart(int part, int parts) {
    walkPart_ = part;
    walkParts_ = parts;
}

void CmnGrd::showWalk(int done, int total) {
    StatusGrd_->setTable(CountsTable(Grd_.cols(), Grd_.dataRows()));
    busy_->setText(u"正在查询，请稍候……\n\n已找到 %1 条"_s.arg(Grd_.dataRows()));
    if (walkParts_ > 1)
        progress(walkPart_, walkParts_, u"第 %1/%2 个文件"_s.arg(walkPart_ + 1).arg(walkParts_));
    else
        progress(done, total);
}

bool CmnGrd::walkGoesOn(int done, int total) {
    if (!sinceShown_.isValid() || sinceShown_.hasExpired(kShowWalkEvery)) {
        showWalk(done, total);
        sinceShown_.start();
    }
    const bool askerStops = asker_ && asker_->stopRequested();
    return stillOpen() && task_ != GridTask::Abort && !askerStops;
}

void CmnGrd::CmdStop_Click() {
    if (task_ == GridTask::Wait)
        task_ = GridTask::Abort;
    requestStop();
}

// --- charts and panel ---

void CmnGrd::setCharts(const QList<Chart>& charts) {
    charts_->setCharts(charts);
    command(u"ChartSave")->setVisible(!charts_->charts().isEmpty());
}

void CmnGrd::ChartSave_Click() {
    SaveChartPicture(charts_->current());
}

void CmnGrd::PanelCmd_Click() {
    panel_->setVisible(!panel_->isVisible());
}

// --- paper and files ---

ListPrintSettings CmnGrd::printSettings() const {
    const auto number = [this](QStringView box) { return LeadingNumber(settings_->text(box)); };
    ListPrintSettings set;
    set.paperWidth = number(u"wd");
    set.paperHeight = number(u"ht");
    set.left = number(u"lm");
    set.right = number(u"rm");
    set.top = number(u"tm");
    set.bottom = number(u"bm");
    set.titleFont = {settings_->text(u"font3"), number(u"fsiz3"), settings_->text(u"fbld") == u"1"};
    set.titleGap = number(u"Bgap");
    set.table.headFont = {settings_->text(u"font1"), number(u"fsiz1"), false};
    set.table.headLineWidth = number(u"lw1");
    set.table.bodyFont = {settings_->text(u"font2"), number(u"fsiz2"), false};
    set.table.bodyLineWidth = number(u"lw2");
    set.table.fitFont = pageTexts_->text(u"AutoAdj") == u"1";
    set.head = pageTexts_->text(u"ym");
    set.foot = pageTexts_->text(u"yj");
    set.charts = charts_->charts();
    set.table.alignments = {kMarks.front().toString()};
    for (const int column : shownColumns())
        set.table.alignments.append(alignmentMark(column));
    return set;
}

void CmnGrd::Print_cmd_Click() {
    const TextTable list = GrdView_->table(); // as it stands now, whatever is done to it meanwhile
    setCommandEnabled(u"CmdStop", true);
    PrintList(list, heading_->text(u"bt"), printSettings(),
              [this](int rows, int allRows, int page) {
                  progress(rows, allRows, u"%1/%2, 第%3页"_s.arg(rows).arg(allRows).arg(page));
                  return stillOpen();
              });
    setCommandEnabled(u"CmdStop", false);
}

void CmnGrd::FileSave_Click() {
    QList<int> widths;
    for (int column = 0; column < GrdView_->table().cols(); ++column)
        widths.append(DisplayColumns(GrdView_->columnWidth(column)));
    SaveListFile(GrdView_->table(), heading_->text(u"SepFlg"), widths);
}

} // namespace hotel
