#include "cashier/balance_list.h"

#include <QHash>
#include <QPointer>
#include <QWidget>

#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/folios/folio_posting.h"
#include "house/rooms/room_record.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/field_walk.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "tools/aids/CalcSub.h"
#include "tools/lists/CmnGrd.h"

namespace hotel {

namespace {

constexpr PostingKind kChargeColumns[] = {kRoomPosting, kFoodPosting, kBroadbandPosting,
                                          kTelephonePosting};
constexpr int kNamesShown = 3;
constexpr QStringView kUnread = u"读取失败";
constexpr QStringView kCaption = u"余额查验";
constexpr QStringView kQuestion =
    u"请输入账号信用余额下限，小于下限的账号将显示，不输入表示所有账号均列出：";

struct Question {
    bool cancelled = false;
    std::optional<Money> limit;
};

// What is no amount is asked for once more, as it was typed.
Question AskLimit() {
    QString typed;
    for (;;) {
        const std::optional<QString> answer = InputBox(kQuestion.toString(), u"请输入"_s, typed);
        if (!answer)
            return {.cancelled = true, .limit = {}};
        typed = TrimWhite(*answer);
        if (typed.isEmpty())
            return {};
        const CellAmount amount = AmountFromCell(typed);
        if (amount.amount)
            return {.limit = amount.amount};
        MsgBox(u"余额下限应当是金额："_s + amount.error, kCaption.toString());
    }
}

QHash<QString, QString> TelephonesByRoom() {
    QHash<QString, QString> telephones;
    for (const RoomEntry& room : LoadRooms())
        telephones.insert(room.number, GetTag(room.record, room_record::kTelephone));
    return telephones;
}

QStringList TelephonesOf(const QStringList& rooms, const QHash<QString, QString>& byRoom) {
    QStringList telephones;
    for (const QString& room : rooms) {
        const QString telephone = byRoom.value(room);
        if (!telephone.isEmpty() && !telephones.contains(telephone))
            telephones.append(telephone);
    }
    return telephones;
}

// A party's rooms would fill the line, and the balance be out of sight.
QString Shortened(const QStringList& names, QStringView unit) {
    if (names.size() <= kNamesShown)
        return names.join(u',');
    return u"%1等%2%3"_s.arg(names.first()).arg(names.size()).arg(unit);
}

// The open folios in the order of their file, without their sums.
QList<FolioBalance> FoliosIn(QStringView openFolios) {
    const QHash<QString, QString> telephones = TelephonesByRoom();
    QList<FolioBalance> folios;
    FieldWalk folio(openFolios);
    while (folios.size() < kFolioListLimit && folio.next()) {
        const FolioSummary summary = SummaryOf(folio.value());
        folios.append(
            {folio.name().toString(), summary, TelephonesOf(summary.rooms, telephones), {}});
    }
    return folios;
}

void FillList(CmnGrd& list, QList<FolioBalance> folios, std::optional<Money> limit) {
    for (int n = 0; n < folios.size() && list.walkGoesOn(n, int(folios.size())); ++n) {
        folios[n].totals = LoadFolioTotals(folios[n].folio);
        if (IsBelow(folios[n], limit))
            list.Grd().addRow(BalanceCells(folios[n]));
    }
}

void OpenChargesOnClick(CmnGrd* list) {
    const auto open = [list](int row) {
        const QString folio = list->Grd().text(row, u"结账号");
        if (IsFolioNumber(folio))
            list->run([&] { OpenScreen(u"FyxxFrm", folio); });
    };
    QObject::connect(list->GrdView(), &GridView::rowClicked, list, open);
    QObject::connect(list->GrdView(), &GridView::rowActivated, list, open);
}

// False when the walk went through and found nothing.
bool ShowBalances(const QList<FolioBalance>& folios, std::optional<Money> limit, QWidget* parent) {
    auto* list = new CmnGrd(BalanceListTitle(limit, Clock::Today()), BalanceTitles());
    list->stopWith(parent ? qobject_cast<Screen*>(parent->window()) : nullptr);
    ShowScreen(list);
    const Screen::Running walking(*list); // the list stands until this is gone
    list->setTask(GridTask::Wait);
    FillList(*list, folios, limit);
    list->setTask(GridTask::Check);
    OpenChargesOnClick(list);
    if (list->Grd().dataRows() > 0 || list->stopRequested())
        return true;
    list->close();
    return false;
}

} // namespace

const QStringList& BalanceTitles() {
    static const QStringList titles = {u"结账号"_s, u"房间号"_s,   u"客人姓名"_s, u"电话号码"_s,
                                       u"房费类"_s, u"餐饮娱乐"_s, u"宽带网络"_s, u"电话费"_s,
                                       u"总消费"_s, u"总信用额"_s, u"总实收额"_s, u"信用余额"_s};
    return titles;
}

QStringList BalanceCells(const FolioBalance& balance) {
    QStringList cells = {balance.folio, Shortened(balance.summary.rooms, u"间"),
                         balance.summary.payer, Shortened(balance.telephones, u"部")};
    if (!balance.totals) {
        cells.resize(BalanceTitles().size(), kUnread.toString());
        return cells;
    }
    for (const PostingKind kind : kChargeColumns)
        cells.append(balance.totals->ofKind[kind].text());
    const FolioTotals& totals = *balance.totals;
    for (const Money sum : {totals.charges, totals.credit, totals.received, totals.balance()})
        cells.append(sum.text());
    return cells;
}

QString BalanceListTitle(std::optional<Money> limit, QDate today) {
    const QString below = limit ? u"信用额小于"_s + limit->text() + u"，"_s : QString();
    return u"记账号费用金额清单（"_s + below + today.toString(u"yyyy-MM-dd") + u"）"_s;
}

bool IsBelow(const FolioBalance& balance, std::optional<Money> limit) {
    return !limit || !balance.totals || balance.totals->balance() < *limit;
}

void OpenBalanceList(QWidget* parent) {
    const QPointer<QWidget> asker = parent;
    const Question question = AskLimit();
    if (question.cancelled)
        return;
    const RecordRead folios = ReadProjectToChange(OpenFolioFile(), folio_record::kProject);
    if (folios.failed())
        return MsgBox(u"账号清单读取失败，请稍候再试！"_s, kCaption.toString());
    if (!ShowBalances(FoliosIn(folios.value), question.limit, asker))
        MsgBox(u"没有找到满足条件的账号！"_s, kCaption.toString());
}

} // namespace hotel
