#include "cashier/deposit_voucher.h"

#include <QMap>
#include <utility>

#include "house/folios/posting_kinds.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "session/parameters.h"
#include "tools/paper/PrtSubs.h"
#include "tools/paper/print_amount.h"
#include "tools/paper/print_form_cells.h"

namespace hotel {

namespace {

namespace cell = deposit_form;
using Cells = QMap<int, QString>;

QString AmountOf(const TextTable& deposits, int row) {
    const QString received = deposits.text(row, posting::kReceived);
    return received.isEmpty() ? deposits.text(row, posting::kCredit) : received;
}

Cells BodyCells(const TextTable& deposits, int row, const VoucherDesk& desk) {
    const QString amount = AmountOf(deposits, row);
    return {
        {cell::kGuest, deposits.text(row, posting::kGuest)},
        {cell::kRoom, desk.room},
        {cell::kTelephone, desk.telephone},
        {cell::kOperator, desk.operatorName},
        {cell::kAmount, amount},
        {cell::kAmountInWords, AmountInWords(Money::FromText(amount))},
        {cell::kKind, u"种类:"_s + deposits.text(row, u"信用保证种类") + u", 方式:"_s +
                          deposits.text(row, u"支付方式") + u","_s + deposits.text(row, u"备注")},
    };
}

} // namespace

void PrintDepositVoucher(const TextTable& deposits, int row, const VoucherDesk& desk) {
    const QString file = Param(u"DygsLj") + Param(u"Bkyjpz");
    const PaperFormat paper = ReadPaperFormat(ReadProject(file, tag::kPaper));
    const QString format = ReadProject(file, cell::kName);
    const std::pair<QStringView, Cells> blocks[] = {
        {tag::kFormTitle, {{cell::kHotel, Param(u"Yhdwmc")}}},
        {tag::kFormHead,
         {{cell::kMoment, Clock::Now().toString(u"yyyy-MM-dd HH:mm")}, {cell::kFolio, desk.folio}}},
        {tag::kFormBody, BodyCells(deposits, row, desk)},
        {tag::kFormBody1, {}},
        {tag::kFormFoot, {}},
    };
    OpenPrintJob(paper.width, paper.height);
    SetPrintMargins(paper.left, paper.right, paper.top, paper.bottom);
    StartPage();
    double y = 0;
    for (const auto& [block, cells] : blocks)
        y += PrintFormBlockWithData(format, block, 0, y, cells);
    EndPage();
    PreviewPrintJob();
}

} // namespace hotel
