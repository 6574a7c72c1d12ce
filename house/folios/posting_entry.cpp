#include "house/folios/posting_entry.h"

#include "house/common/folio_number.h"
#include "record/field_walk.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "tools/aids/CalcSub.h"

#include <algorithm>

namespace hotel {

namespace {

constexpr QStringView kMissing = u"缺少必须输入的项目";
constexpr QStringView kUsualCredit = u"15000.00";
constexpr QStringView kGuarantee = u"Xyzl";

bool ContainsAny(QStringView text, std::initializer_list<QStringView> words) {
    return std::ranges::any_of(words, [text](QStringView word) { return text.contains(word); });
}

bool IsBlank(const PostingValues& values, QStringView control) {
    return TrimWhite(values.value(control)).isEmpty();
}

bool IsAmount(PostingInput input) {
    return input == PostingInput::Amount || input == PostingInput::Guarantee;
}

bool IsTypedMoment(PostingInput input) {
    return input == PostingInput::Date || input == PostingInput::ShortTime;
}

PostingObjection Missing(QStringView control, QStringView words) {
    return {{kMissing.toString(), words.toString()}, control};
}

std::optional<PostingObjection> ObjectTo(const PostingCheck& check, const PostingValues& values) {
    if (!IsBlank(values, check.control))
        return {};
    const QString guarantee = values.value(kGuarantee);
    if (check.rule == PostingRule::GuaranteeNote && ContainsAny(guarantee, {u"限额", u"预付"}))
        return {};
    if (check.rule == PostingRule::GuaranteeAmount && !IsMoneyReceipt(guarantee))
        return PostingObjection{
            {u"请再次确认"_s, u"项目被自动确认为信用,默认值是15000.00,担保或信用必须输入一个上限,"
                              "以控制风险!"_s},
            check.control,
            kUsualCredit.toString()};
    return Missing(check.control, check.words);
}

// What is typed, but can't be read: it would be posted as something else.
QString FaultOf(const PostingField& field, const QString& typed) {
    if (IsAmount(field.input)) {
        const CellAmount amount = AmountFromCell(typed);
        return amount.amount ? QString() : field.label + u"不能计算："_s + amount.error;
    }
    const bool isMoment = field.input == PostingInput::Date
                              ? QDate::fromString(typed, Qt::ISODate).isValid()
                              : QTime::fromString(typed, u"HH:mm").isValid();
    if (!IsTypedMoment(field.input) || typed.isEmpty() || isMoment)
        return {};
    return field.label + u"输入错误："_s + typed;
}

QString ValueOf(const PostingField& field, const PostingValues& values, const QDateTime& moment) {
    if (field.input == PostingInput::Today)
        return moment.toString(u"yyyy-MM-dd");
    if (field.input == PostingInput::Now)
        return moment.toString(u"HH:mm:ss");
    const QString typed = values.value(field.control);
    if (IsTypedMoment(field.input) && typed.isEmpty())
        return moment.toString(field.input == PostingInput::Date ? u"yyyy-MM-dd" : u"HH:mm");
    return IsAmount(field.input) ? AmountFromCell(typed).orZero().text() : typed;
}

QStringView TagOf(const PostingField& field, const PostingValues& values) {
    const bool isCredit =
        field.input == PostingInput::Guarantee && !IsMoneyReceipt(values.value(kGuarantee));
    return isCredit ? posting::kCredit : field.tag;
}

} // namespace

bool IsMoneyReceipt(QStringView guarantee) {
    return ContainsAny(guarantee, {u"实收", u"预付", u"定额", u"现金"});
}

std::optional<Notice> RefuseFolioNumber(QStringView typed) {
    if (typed.size() != kFolioLength)
        return Notice{kMissing.toString(), u"结账号错误"_s};
    if (!IsFolioNumber(typed))
        return Notice{kMissing.toString(), u"结账号位数错误或含有数字以外的字符"_s};
    return {};
}

std::optional<PostingObjection> CheckPosting(PostingKind kind, const PostingValues& values) {
    const PostingKindEntry& entry = PostingKindOf(kind);
    for (const PostingCheck& check : entry.checks) {
        if (auto objection = ObjectTo(check, values))
            return objection;
    }
    for (const PostingField& field : entry.fields) {
        const QString words = FaultOf(field, values.value(field.control));
        if (!words.isEmpty())
            return Missing(field.control, words);
    }
    return {};
}

QString BuildPostingRecord(PostingKind kind, const PostingValues& values, const QDateTime& moment) {
    QString record;
    for (const PostingField& field : PostingKindOf(kind).fields)
        record = SetTag(record, TagOf(field, values), ValueOf(field, values, moment));
    return record;
}

QString SumOfFees(const FeeSum& feeSum, const PostingValues& values) {
    Money sum;
    for (const QStringView fee : feeSum.fees)
        sum += AmountFromCell(values.value(fee)).orZero();
    return sum.text(u"0.00");
}

QString PostingDetail(QStringView folio, QStringView record) {
    QStringList detail{folio.toString()};
    for (FieldWalk field(record); field.next();)
        detail.append(field.value().toString());
    return detail.join(u',');
}

} // namespace hotel
