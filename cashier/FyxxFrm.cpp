#include "cashier/FyxxFrm.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

#include "cashier/deposit_voucher.h"
#include "cashier/folio_statement.h"
#include "cashier/posting_page.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "session/operation_log.h"
#include "session/session.h"

namespace hotel {

namespace {

constexpr QStringView kMayView = u"费用查询";
constexpr QStringView kPrinted = u"清单打印操作";

PostingPageCommands Page(PostingKind kind, QStringView add, QStringView remove, QStringView print,
                         QStringView printFlag) {
    return {kind, add, remove, print, printFlag, PostingKindOf(kind).log, kPrinted};
}

QList<PostingPageCommands> Pages() {
    return {
        Page(kDepositPosting, u"YjAdd", u"YjDel", u"YjQdPrint", u"YjPrtFlg"),
        Page(kRoomPosting, u"FfAdd", u"FfDel", u"FfPrint", u"FfPrtFlg"),
        Page(kFoodPosting, u"XfAdd", u"XfDel", u"XfPrint", u"FyPrtFlg"),
        Page(kBroadbandPosting, u"WlAdd", u"WlDel", u"WlPrint", u"WlPrtFlg"),
        Page(kTelephonePosting, u"DhfAdd", u"DhfDel", u"DhfPrint", u"DhPrtFlg"),
        Page(kServicePosting, u"KffwAdd", u"KffwDel", u"KffwPrint", u"KffwPrtFlg"),
    };
}

} // namespace

FyxxFrm::FyxxFrm()
    : PostingScreen(u"FyxxFrm"_s, u"账号账务详细信息清单"_s, Pages(),
                    {{u"YjPrint"_s, u"打印押金凭证"_s, [this] { YjPrint_Click(); }, Qt::Key_F10}}),
      Zhxye(addTotal(u"Zhxye"_s, u"信用"_s, u"总信用额"_s)),
      Zssje(addTotal(u"Zssje"_s, u"实收"_s, u"总实收额"_s)),
      Zhxfe(addTotal(u"Zhxfe"_s, u"消费"_s, u"总消费额"_s)),
      Zhye(addTotal(u"Zhye"_s, u"余额"_s, u"总信用额减去总消费额的值"_s)) {
    addCommands({
        {u"StatementCmd"_s, u"打印账单"_s, [this] { StatementCmd_Click(); }, Qt::Key_F7},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
    QWidget* detail = services()->editor(u"Fwmx");
    detail->installEventFilter(this);
    onEnter(detail, [this] { Fwmx_Enter(); });
    connect(services(), &FieldForm::edited, this, [this](const QString& control) {
        if (control == u"Fwlb")
            Fwlb_Change();
    });
}

void FyxxFrm::load(const QVariant& folio) {
    if (mayView() && !catalogueLoaded_) {
        catalogue_.load();
        catalogueLoaded_ = true;
    }
    PostingScreen::load(folio);
}

bool FyxxFrm::mayView() const {
    return HasRight(kMayView);
}

void FyxxFrm::showTotals() {
    const TextTable& deposits = page(kDepositPosting)->list()->table();
    const Money credit = LastRunning(deposits, posting::kRunningCredit);
    const Money received = LastRunning(deposits, posting::kRunningReceived);
    Zhxye->setText(credit.text());
    Zssje->setText(received.text());
    Zhxfe->setText(charges().text());
    Zhye->setText((received + credit - charges()).text());
}

// --- prints ---

void FyxxFrm::YjPrint_Click() {
    const GridView* list = page(kDepositPosting)->list();
    const int chosen = list->currentRow();
    const int row = chosen > 0 ? chosen : list->table().dataRows();
    if (row == 0)
        return;
    const PostingValues shared = sharedValues();
    PrintDepositVoucher(
        list->table(), row,
        {folio(), shared[posting_control::kRoom], telephone(), shared[posting_control::kOperator]});
    SaveLogRec(u"执行押金预览打印功能"_s, folio() + u',' + list->table().row(row).join(u','));
}

void FyxxFrm::StatementCmd_Click() {
    if (folio().isEmpty())
        return;
    QList<PostingsOfKind> postings;
    for (const PostingKind kind : kEnteredKinds)
        postings.append({kind, page(kind)->list()->table()});
    const PostingValues shared = sharedValues();
    PrintFolioStatement(folio(), shared[posting_control::kGuest], postings);
    SaveLogRec(u"账单打印操作"_s, folio());
}

// --- the catalogue of service details ---

FieldForm* FyxxFrm::services() const {
    return page(kServicePosting)->form();
}

void FyxxFrm::Fwlb_Change() {
    services()->setChoices(u"Fwmx", catalogue_.details(services()->text(u"Fwlb")));
}

void FyxxFrm::Fwmx_Enter() {
    const QString serviceClass = services()->text(u"Fwlb");
    const QString detail = TrimWhite(services()->text(u"Fwmx"));
    services()->loadCategories();
    if (!detail.isEmpty() && services()->editor<QComboBox>(u"Fwlb")->findText(detail) >= 0) {
        MsgBox(u"服务明细不能和服务类别相同"_s, u"错误"_s);
        return services()->setText(u"Fwmx", {});
    }
    if (!serviceClass.isEmpty() && !detail.isEmpty()) {
        catalogue_.add(serviceClass, detail);
        Fwlb_Change();
        services()->setText(u"Fwmx", detail);
    }
    moveOn();
}

void FyxxFrm::Fwmx_Escape() {
    catalogue_.takeBack(services()->text(u"Fwlb"), services()->text(u"Fwmx"));
    Fwlb_Change();
    services()->setText(u"Fwmx", {});
}

void FyxxFrm::posted(const PostingPage& page, const PostingValues& values) {
    if (page.kind() == kServicePosting)
        catalogue_.add(values[u"Fwlb"], values[u"Fwmx"]);
}

bool FyxxFrm::eventFilter(QObject* watched, QEvent* event) {
    const bool isEscape = event->type() == QEvent::KeyPress &&
                          static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (!isEscape || watched != services()->editor(u"Fwmx") || services()->text(u"Fwmx").isEmpty())
        return PostingScreen::eventFilter(watched, event);
    Fwmx_Escape();
    return true;
}

bool FyxxFrm::closing() {
    if (catalogue_.writeBack() != 0)
        MsgBox(u"客房服务明细没有保存成功！"_s, u"偶然错误"_s);
    return true;
}

} // namespace hotel
