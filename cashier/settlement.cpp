#include "cashier/settlement.h"

#include "house/folios/folio.h"
#include "house/folios/folio_posting.h"
#include "platform/clock.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "session/session.h"
#include "tools/aids/CalcSub.h"

namespace hotel {

namespace {

constexpr qsizetype kTeamNumberLength = 8;

struct Field {
    QStringView tag;
    QString value;
};

QString RecordOf(const QList<Field>& fields) {
    QString record;
    for (const Field& field : fields)
        record = SetTag(record, field.tag, field.value);
    return record;
}

Money Amount(QStringView text) {
    return AmountFromCell(text).orZero();
}

// Who settled what for whom, and when.
struct Settled {
    const QString& folio;
    const QString& guest;
    const Payment& payment;
    QString date;
    QString time;
};

int SaveSettlementRecord(const Settled& settled) {
    const Payment& payment = settled.payment;
    return SaveJzhJzRec(settled.folio, RecordOf({
                                           {u"客人", settled.guest},
                                           {u"日期", settled.date},
                                           {u"时间", settled.time},
                                           {u"支付方式", payment.kind},
                                           {u"应收金额", payment.due},
                                           {u"折扣金额", payment.discount},
                                           {u"实收金额", Amount(payment.received).text()},
                                           {u"找赎金额", Amount(payment.change).text()},
                                           {u"备注", payment.note},
                                           {u"经办单位", CurrentSession().userDept},
                                           {u"经办人", CurrentSession().userName},
                                       }));
}

int PostLine(const Settled& settled, const QString& guarantee, QStringView amountTag,
             Money amount) {
    const QString record = RecordOf({
        {u"信用保证种类", guarantee},
        {u"支付方式", settled.payment.kind},
        {u"客人", settled.guest},
        {u"日期", settled.date},
        {u"时间", settled.time},
        {amountTag, amount.text()},
        {u"备注", settled.payment.note},
        {u"经办单位", CurrentSession().userDept},
        {u"经办人", CurrentSession().userName},
    });
    return SaveBills(settled.folio, kDepositPosting, record).status;
}

int PostOrdinary(const Settled& settled) {
    const Money due = Amount(settled.payment.due);
    const Money discount = Amount(settled.payment.discount);
    const int paid = PostLine(settled, u"结账实收"_s, u"实收金额", due - discount);
    return paid + PostLine(settled, u"结账折扣"_s, u"信用金额", discount);
}

int PostTeam(const Settled& settled) {
    const Money due = Amount(settled.payment.due);
    const Money discount = Amount(settled.payment.discount);
    const int owed = PostLine(settled, u"团队结算"_s, u"信用金额", due);
    return owed + PostLine(settled, u"团队折扣"_s, u"信用金额", -discount);
}

int PostToTeamAccount(const Settled& settled) {
    const Payment& payment = settled.payment;
    const QString record = RecordOf({
        {u"团队编号", payment.team},
        {u"单位名称", payment.note},
        {u"客人", settled.guest},
        {u"日期", settled.date},
        {u"时间", settled.time},
        {posting::kAmount, (Amount(payment.due) - Amount(payment.discount)).text()},
        {u"备注", payment.note},
        {u"经办单位", CurrentSession().userDept},
        {u"经办人", CurrentSession().userName},
    });
    return SaveBills(settled.folio, kTeamPosting, record).status;
}

Notice DoneOrFailed(int status, const QString& done) {
    if (status == 0)
        return {u"处理完成"_s, done};
    return {u"意外失误"_s, u"保存结账信息失败，请退出后重新登录再试！"_s};
}

} // namespace

QString DefaultDiscount(const QString& due) {
    const qsizetype point = due.indexOf(u'.');
    return point < 0 ? u"0.00"_s : u'0' + due.mid(point);
}

std::optional<QString> ChangeOf(QStringView received, QStringView discount, QStringView due) {
    const auto paid = AmountFromCell(received).amount;
    const auto waived = AmountFromCell(discount).amount;
    if (TrimBlanks(received).isEmpty() || !paid || !waived)
        return {};
    const Money change = *paid + *waived - Amount(due);
    return change < Money() ? std::nullopt : std::optional(change.text());
}

bool IsTeamSettlement(const Payment& payment) {
    return !payment.note.isEmpty() && payment.team.size() >= kTeamNumberLength;
}

QList<Notice> PostSettlement(const QString& folio, const QString& guest, const Payment& payment) {
    const QDateTime now = Clock::Now();
    const Settled settled{folio, guest, payment, now.toString(u"yyyy-MM-dd"),
                          now.toString(u"HH:mm:ss")};
    const bool team = IsTeamSettlement(payment);
    const int recorded = SaveSettlementRecord(settled);
    const int posted = team ? PostTeam(settled) : PostOrdinary(settled);
    QList<Notice> notices{DoneOrFailed(recorded + posted, u"账务已经结清"_s)};
    if (team)
        notices.append(DoneOrFailed(PostToTeamAccount(settled), u"团队账务已经保存"_s));
    return notices;
}

std::optional<Notice> PostFinalCharge(const QString& folio, const FinalCharge& charge) {
    const QString record = RecordOf({
        {u"费用名称", u"结账房费"_s},
        {u"房间号", charge.room},
        {u"客人", charge.guest},
        {u"日期", charge.date},
        {u"时间", charge.time},
        {posting::kAmount, charge.amount},
        {u"备注", u"最终结算"_s},
        {u"经办单位", CurrentSession().userDept},
        {u"经办人", CurrentSession().userName},
    });
    if (SaveBills(folio, kRoomPosting, record).status == 0)
        return {};
    return Notice{u"意外错误"_s, u"结账结算"_s + charge.room + u"房间的"_s + charge.guest +
                                     u"房费保存失败,需要退出重新操作!"_s};
}

} // namespace hotel
