#include "telephone/Accntfrm.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "link/QVRapp.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "session/operation_log.h"
#include "telephone/beep.h"
#include "telephone/call_list.h"
#include "telephone/call_record.h"
#include "telephone/config_page.h"
#include "telephone/extension_page.h"
#include "telephone/live_page.h"
#include "telephone/search_page.h"
#include "telephone/tariff_page.h"
#include "tools/lists/CmnGrd.h"
#include "tools/lists/list_export.h"
#include "tools/lists/list_print.h"
#include "tools/queries/list_query.h"

namespace hotel {

namespace {

// A round behind one that was full follows at once, so that a backlog is worked off.
constexpr int kRoundMilliseconds = 1000;
constexpr int kBacklogMilliseconds = 20;

constexpr QStringView kSearchTitle = u"电话详细话单";

void ExportList(const GridView& list, const QString& name) {
    SaveGridToText(list.table(), name, name + Clock::Today().toString(u"yyMMdd") + u".txt"_s);
}

QString WordsOf(AccountingConfig::Taken taken) {
    using Taken = AccountingConfig::Taken;
    switch (taken) {
    case Taken::Added:
        return u"参数已增加，按 F8 保存到文件"_s;
    case Taken::Replaced:
        return u"参数已替换，按 F8 保存到文件"_s;
    case Taken::Standing:
        return u"同样的参数已经存在"_s;
    case Taken::Full:
        return u"该参数最多%1行，没有采用"_s.arg(AccountingConfig::kRepeats);
    case Taken::NoKey:
        return u"没有这个参数，请按“参数=值”输入"_s;
    case Taken::NoValue:
        return u"值不合适，没有采用"_s;
    case Taken::NoFile:
        return u"没有采用"_s;
    }
    return {};
}

void TellOfMissingFile() {
    MsgBox(u"分机转换文件不存在!"_s, u"注  意"_s);
}

} // namespace

Accntfrm::Accntfrm()
    : Screen(u"Accntfrm"_s, u"电话计费"_s), tabs_(new QTabWidget), live_(new LivePage),
      search_(new SearchPage), extensions_(new ExtensionPage), tariff_(new TariffPage),
      configPage_(new ConfigPage), Timer1(every(kRoundMilliseconds, [this] { Timer1_Timer(); })) {
    Timer1->stop();
    Timer1->setObjectName(u"Timer1"_s);
    makeCommands();
    makePages();
    resize(1240, 720);
}

void Accntfrm::makePages() {
    tabs_->setObjectName(u"Pages"_s);
    tabs_->setFocusPolicy(Qt::NoFocus);
    struct Page {
        QWidget* page;
        QString caption;
        QWidget* first; // where typing begins
    };
    const QList<Page> pages = {
        {live_, u"实时计费"_s, live_->list()},
        {search_, u"话单查询"_s, search_->firstField()},
        {extensions_, u"分机"_s, extensions_->firstField()},
        {tariff_, u"费率"_s, tariff_->firstField()},
        {configPage_, u"计费参数"_s, configPage_->itemBox()},
    };
    for (int n = 0; n < pages.size(); ++n) {
        tabs_->addTab(pages[n].page, u"%1 F%2"_s.arg(pages[n].caption).arg(n + 1));
        auto* key = new QShortcut(QKeySequence(Qt::Key_F1 + n), this);
        on(key, &QShortcut::activated, [this, n, first = pages[n].first] {
            tabs_->setCurrentIndex(n);
            goTo(first);
        });
    }
    auto* content = new QVBoxLayout;
    content->addWidget(tabs_);
    setContent(content);

    on(extensions_->list(), &GridView::currentMoved,
       [this](int row, int) { extensions_->edit(row); });
    on(tariff_->prefixes(), &GridView::currentMoved, [this](int row, int) { tariff_->edit(row); });
    onEnter(search_->lastField(), [this] { goTo(command(u"CxTjCmd")); });
    onEnter(extensions_->lastField(), [this] { goTo(command(u"UsrAdd")); });
    onEnter(tariff_->lastField(), [this] { goTo(command(u"FeeAdd")); });
    onEnter(configPage_->itemBox(), [this] { ConfigItem_Enter(); });
    on(configPage_->folderBox(), &QLineEdit::editingFinished, [this] { configChanged(); });
}

void Accntfrm::makeCommands() {
    const auto lists = [](const QString& prefix, const QString& title, const GridView* list) {
        return QList<ScreenCommand>{
            {prefix + u"Print"_s, u"打印清单"_s, [=] { PrintWide(*list, title); }, Qt::Key_F9},
            {prefix + u"File"_s, u"存为文件"_s, [=] { ExportList(*list, title); }, Qt::Key_F10}};
    };
    live_->setCommands(
        commandPanel(lists(u"Live"_s, u"实时话单"_s, live_->list()) +
                     QList<ScreenCommand>{
                         {u"LiveClear"_s, u"清空清单"_s, [this] { live_->clear(); }, Qt::Key_F7}}));
    search_->setCommands(commandPanel({
        {u"CxTjCmd"_s, u"快速查询"_s, [this] { CxTjCmd_Click(); }, Qt::Key_F8},
        {u"CmdSearch"_s, u"组合查询"_s, [this] { CmdSearch_Click(); }, Qt::Key_F7},
    }));
    extensions_->setCommands(
        commandPanel(QList<ScreenCommand>{
                         {u"UsrAdd"_s, u"保存分机"_s, [this] { UsrAdd_Click(); }, Qt::Key_F8},
                         {u"UsrDel"_s, u"删除分机"_s, [this] { UsrDel_Click(); }, Qt::Key_F7},
                     } +
                     lists(u"Usr"_s, u"分机信息"_s, extensions_->list())));
    tariff_->setCommands(
        commandPanel(QList<ScreenCommand>{
                         {u"FeeAdd"_s, u"增加号头"_s, [this] { FeeAdd_Click(); }, Qt::Key_F6},
                         {u"FeeDel"_s, u"删除号头"_s, [this] { FeeDel_Click(); }, Qt::Key_F7},
                         {u"FeeModify"_s, u"保存费率"_s, [this] { FeeModify_Click(); }, Qt::Key_F8},
                     } +
                     lists(u"Fee"_s, u"费率种类"_s, tariff_->prefixes())));
    configPage_->setCommands(commandPanel({
        {u"DelItem"_s, u"删除参数"_s, [this] { DelItem_Click(); }, Qt::Key_F7},
        {u"SavItem"_s, u"保存参数"_s, [this] { SavItem_Click(); }, Qt::Key_F8},
    }));
    addCommands({
        {u"FreshCmd"_s, u"重新加载"_s, [this] { readTables(); }, Qt::Key_F12},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
}

void Accntfrm::load(const QVariant&) {
    if (loaded_)
        return;
    loaded_ = true;
    bool missingFile = false;
    config_ = AccountingConfig(ReadAccountingFile(AccountingConfigFile()), &missingFile);
    if (missingFile)
        TellOfMissingFile();
    configPage_->show(config_);
    live_->setDay(Clock::Today());
    search_->setPeriod(Clock::Now());
    live_->list()->setFocus();
    readTables();
    Timer1->start();
}

void Accntfrm::readTables() {
    if (hasPendingChanges() &&
        !AskOkCancel(u"费率的修改还没有保存，重新加载会丢失这些修改，继续吗？"_s, u"请确认"_s))
        return;
    files_ = BillingFiles(config_, configPage_->folder());
    setStatus(u"加载分机号码数据库"_s);
    ReadExtensions(files_, tables_);
    setStatus(u"加载费率信息数据库"_s);
    ReadTariff(files_, tables_);
    showTables();
    tablesChanged();
    setStatus(tables_.unread() ? u"分机或费率没有读出，暂停计费，按 F12 重新加载"_s
                               : u"加载完毕"_s);
}

void Accntfrm::showTables() {
    extensions_->show(tables_.extensions);
    extensions_->clearBoxes();
    tariff_->show(tables_.parameters, tables_.prefixes);
    tariff_->clearBoxes();
}

void Accntfrm::tablesChanged() {
    rating_ = RatingTablesOf(tables_, config_);
    waiting_ = {};
}

bool Accntfrm::hasPendingChanges() const {
    return tariff_->parametersChanged() || tariff_->prefixesChanged();
}

bool Accntfrm::closing() {
    if (tariff_->parametersChanged() && AskYesNo(u"保存系统计费参数清单"_s, u"请确认"_s) &&
        !saveParameters())
        return false;
    return !tariff_->prefixesChanged() || !AskYesNo(u"保存号码费率定义信息清单"_s, u"请确认"_s) ||
           savePrefixes();
}

// --- the round ---

void Accntfrm::Timer1_Timer() {
    const QDate day = live_->day();
    if (tabs_->currentWidget() != live_ || live_->isDayTyped() || !day.isValid() ||
        tables_.unread())
        return;
    Timer1->stop();
    const RoundOutcome round = RateWaitingCalls(files_.dayFile(day), rating_, waiting_,
                                                [this](const QString& name, const QString& record) {
                                                    showRated(name, record);
                                                    return stillOpen();
                                                });
    showRound(round);
    if (live_->day() == day && !live_->isDayTyped()) {
        const QDate next = NextCallDay(round, day, Clock::Today());
        if (next != day)
            live_->setDay(next);
    }
    Timer1->start(round.rated == kCallsARound ? kBacklogMilliseconds : kRoundMilliseconds);
}

void Accntfrm::showRated(const QString& name, const QString& record) {
    ++ratedSinceStart_;
    if (!IsWithinLimits(record, live_->limits()))
        return;
    live_->append(name, record,
                  config_.number(accounting_key::kShownDigits).value_or(int(record.size())));
    if (live_->isBeeping())
        Beep();
}

void Accntfrm::showRound(const RoundOutcome& round) {
    if (round.rated > 0)
        live_->showEnd();
    if (round.failure)
        MsgBox(round.failure->words, round.failure->title);
    if (!round.problem.isEmpty())
        setStatus(u"有话单不能计费："_s + round.problem);
    else if (round.rated > 0)
        setStatus(u"已计费 %1 条话单"_s.arg(ratedSinceStart_));
}

// --- searching ---

void Accntfrm::CxTjCmd_Click() {
    const CallQuestion question = search_->question();
    if (!question.from.isValid() || !question.to.isValid() || question.from > question.to) {
        MsgBox(u"请输入正确的查询时段！"_s, u"请检查"_s);
        return;
    }
    SaveLogRec(u"快速查询电话详细话单操作"_s, question.from.toString(u"yyyy-MM-dd HH:mm:ss") +
                                                  u" - "_s +
                                                  question.to.toString(u"yyyy-MM-dd HH:mm:ss"));
    auto* list = new CmnGrd(kSearchTitle.toString(), CallColumns());
    list->stopWith(this);
    ShowScreen(list);
    const Screen::Running searching(*list);
    const int found = SearchCalls(question, files_, *list);
    list->setTask(GridTask::Check);
    setStatus(u"查到%1条信息"_s.arg(found));
    if (found == 0)
        list->close();
}

void Accntfrm::CmdSearch_Click() {
    SaveLogRec(u"查询电话详细话单操作"_s, {});
    int found = 0;
    const ListQuery query = {
        .caption = u"请输入电话详细话单查询组合条件"_s,
        .title = kSearchTitle.toString(),
        .columns = AllCallColumns(),
        .nameLabel = kKeyHeader.toString(),
        .dated = true,
        .search =
            [&](const QueryAnswer& answer, CmnGrd& list) {
                const WalkEnd end = QueryFilesToGrid(
                    DayFiles(answer.first, answer.last,
                             [this](QDate day) { return files_.dayFile(day); }),
                    kCallProject.toString(), answer.conditionText, answer.nameColumn, list);
                found = SumUpCalls(list);
                return end;
            },
    };
    OpenListQuery(query, this);
    setStatus(u"查到%1条信息"_s.arg(found));
}

// --- extensions ---

void Accntfrm::UsrAdd_Click() {
    const QStringList cells = extensions_->cells();
    const QString& number = cells.first();
    // As they stand by now: another desk may keep them, too.
    ReadExtensions(files_, tables_);
    if (tables_.extensionsUnread)
        return MsgBox(kUnreadWords.toString(), kUnreadTitle.toString());
    if (const auto refusal = CheckExtension(tables_.extensions, cells, config_)) {
        MsgBox(refusal->words, refusal->title);
        return goTo(extensions_->firstField());
    }
    if (ExtensionRow(tables_.extensions, number) > 0 &&
        !AskOkCancel(u"分机："_s + number + u"已经存在，是否修改其参数？"_s, u"请确认"_s))
        return;
    if (saveExtension(WithExtension(tables_.extensions, cells), number)) {
        setStatus(u"分机 %1 已保存"_s.arg(number));
        goTo(extensions_->firstField());
    }
}

void Accntfrm::UsrDel_Click() {
    const QString number = extensions_->cells().first();
    ReadExtensions(files_, tables_);
    if (tables_.extensionsUnread)
        return MsgBox(kUnreadWords.toString(), kUnreadTitle.toString());
    const int row = ExtensionRow(tables_.extensions, number);
    if (row == 0)
        return MsgBox(u"请选择要删除的分机！"_s, u"提示"_s);
    if (!AskOkCancel(u"删除分机："_s + number + u"？"_s, u"请确认"_s))
        return;
    TextTable extensions = tables_.extensions;
    extensions.removeRow(row);
    if (saveExtension(extensions, number))
        setStatus(u"分机 %1 已删除"_s.arg(number));
}

bool Accntfrm::saveExtension(const TextTable& extensions, const QString& number) {
    if (SaveExtensions(files_, extensions) != 0) {
        MsgBox(u"分机："_s + number + u"信息保存失败？"_s, u"意外错误"_s);
        return false;
    }
    tables_.extensions = extensions;
    extensions_->show(extensions, number);
    extensions_->edit(ExtensionRow(extensions, number));
    tablesChanged();
    return true;
}

// --- tariff ---

void Accntfrm::FeeAdd_Click() {
    const QStringList cells = tariff_->cells();
    const QString objection = PrefixObjection(cells);
    if (!objection.isEmpty()) {
        MsgBox(objection, u"请检查"_s);
        return goTo(tariff_->firstField());
    }
    tariff_->changePrefixes(WithPrefix(tariff_->prefixes()->table(), cells), cells.first());
    setStatus(u"号头 %1 已放入清单，按 F8 保存"_s.arg(cells.first()));
    goTo(tariff_->firstField());
}

void Accntfrm::FeeDel_Click() {
    const int row = tariff_->prefixes()->currentRow();
    if (row == 0)
        return MsgBox(u"请选择要删除的号头！"_s, u"提示"_s);
    TextTable prefixes = tariff_->prefixes()->table();
    prefixes.removeRow(row);
    tariff_->changePrefixes(prefixes);
    tariff_->clearBoxes();
    setStatus(u"已从清单删除，按 F8 保存"_s);
}

void Accntfrm::FeeModify_Click() {
    tariff_->parameters()->finishCell();
    if (!hasPendingChanges())
        return setStatus(u"没有修改"_s);
    if ((!tariff_->prefixesChanged() || savePrefixes()) &&
        (!tariff_->parametersChanged() || saveParameters()))
        setStatus(u"费率已保存"_s);
}

bool Accntfrm::savePrefixes() {
    const TextTable& prefixes = tariff_->prefixes()->table();
    if (tables_.prefixesUnread) {
        MsgBox(kUnreadWords.toString(), kUnreadTitle.toString());
        return false;
    }
    if (SavePrefixes(files_, prefixes) != 0) {
        MsgBox(u"修改号码费率定义信息失败"_s, u"数据库错误"_s);
        return false;
    }
    SaveLogRec(u"修改号码费率定义信息"_s, {});
    tables_.prefixes = prefixes;
    tariff_->prefixesStored();
    tablesChanged();
    return true;
}

bool Accntfrm::saveParameters() {
    const TextTable& parameters = tariff_->parameters()->table();
    if (tables_.parametersUnread) {
        MsgBox(kUnreadWords.toString(), kUnreadTitle.toString());
        return false;
    }
    if (const QStringList objections = TariffObjections(parameters); !objections.isEmpty()) {
        MsgBox(objections.join(u'\n'), u"请检查费率参数"_s);
        return false;
    }
    if (SaveParameters(files_, parameters) != 0) {
        MsgBox(u"修改系统计费参数失败"_s, u"数据库错误"_s);
        return false;
    }
    SaveLogRec(u"修改系统计费参数"_s, {});
    tables_.parameters = parameters;
    tariff_->parametersStored();
    tablesChanged();
    return true;
}

// --- configuration ---

void Accntfrm::ConfigItem_Enter() {
    const AccountingConfig::Taken taken = config_.take(configPage_->itemBox()->text());
    if (taken == AccountingConfig::Taken::NoFile)
        TellOfMissingFile();
    configPage_->show(config_);
    setStatus(WordsOf(taken));
    if (taken != AccountingConfig::Taken::Added && taken != AccountingConfig::Taken::Replaced)
        return configPage_->itemBox()->selectAll();
    configPage_->itemBox()->clear();
    configChanged();
}

void Accntfrm::DelItem_Click() {
    const int row = configPage_->list()->currentRow();
    if (row < 0 || row >= config_.lines().size())
        return setStatus(u"请选择要删除的参数"_s);
    config_.removeAt(row);
    configPage_->show(config_);
    setStatus(u"参数已删除，按 F8 保存到文件"_s);
    configChanged();
}

void Accntfrm::SavItem_Click() {
    if (WriteAccountingFile(AccountingConfigFile(), config_))
        setStatus(u"参数已保存"_s);
    else
        MsgBox(u"参数文件不能写入："_s + AccountingConfigFile(), u"意外错误"_s);
}

void Accntfrm::configChanged() {
    const BillingFiles files(config_, configPage_->folder());
    if (files.rateFile() != files_.rateFile() || files.extensionFile() != files_.extensionFile())
        return readTables();
    files_ = files;
    tablesChanged();
}

} // namespace hotel
