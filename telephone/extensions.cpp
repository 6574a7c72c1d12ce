#include "telephone/extensions.h"

#include <algorithm>

#include "record/literals.h"
#include "record/numbers.h"
#include "telephone/billing_files.h"
#include "telephone/call_classes.h"

namespace hotel {

namespace {

const QStringList kHeaders = {u"分机号"_s,   u"所有者"_s,   u"使用者"_s,   u"呼出权限"_s,
                              u"收费参数"_s, u"减免参数"_s, u"基本月租"_s, u"其他月租"_s,
                              u"收费起价"_s, u"收费补贴"_s, u"其他费用"_s, u"分机内码"_s,
                              u"押金初值"_s, u"押金余额"_s, u"押金下限"_s};
constexpr QStringView kAmounts[] = {u"基本月租", u"其他月租", u"收费起价", u"收费补贴",
                                    u"其他费用", u"押金初值", u"押金余额", u"押金下限"};
constexpr QStringView kOtherCalls = u"其他";
constexpr QStringView kRefused = u"不能保存";

bool IsNumberCharacter(QChar character) {
    return character.unicode() < 128 && character.isLetterOrNumber();
}

} // namespace

QStringList ExtensionHeaders() {
    return kHeaders;
}

bool IsExtensionAmount(QStringView header) {
    return std::ranges::find(kAmounts, header) != std::end(kAmounts);
}

QStringList BitEntries() {
    QStringList entries;
    for (const QStringView name : kCallClasses)
        entries.append(name.toString());
    entries.append(kOtherCalls.toString());
    return entries;
}

QString BitText(const QList<bool>& ticks) {
    QString text;
    for (const bool tick : ticks)
        text += tick ? u'1' : u'0';
    return text;
}

QList<bool> BitTicks(QStringView text) {
    QList<bool> ticks;
    for (qsizetype n = 0; n < kAllCharged.size(); ++n)
        ticks.append(n < text.size() && text[n] == u'1');
    return ticks;
}

TextTable ExtensionTable(QStringView projectText) {
    return TableOf(projectText, kHeaders, 0);
}

QString ExtensionText(const TextTable& extensions) {
    return TableText(extensions, 0);
}

int ExtensionRow(const TextTable& extensions, QStringView number) {
    return number.isEmpty() ? 0 : std::max(0, extensions.find(0, number));
}

std::optional<Notice> CheckExtension(const TextTable& extensions, const QStringList& cells,
                                     const AccountingConfig& config) {
    const QString number = cells.value(0);
    const auto refused = [](const QString& words) { return Notice{kRefused.toString(), words}; };
    if (number.isEmpty())
        return refused(u"请输入分机号！"_s);
    if (!std::ranges::all_of(number, IsNumberCharacter))
        return refused(u"分机号只能由数字和字母组成！"_s);
    if (const auto least = config.number(accounting_key::kShortestExtension);
        least && number.size() < *least)
        return refused(u"分机号不能少于%1位！"_s.arg(*least));
    if (const auto most = config.number(accounting_key::kLongestExtension);
        most && number.size() > *most)
        return refused(u"分机号不能多于%1位！"_s.arg(*most));
    if (const auto most = config.number(accounting_key::kMostExtensions);
        most && ExtensionRow(extensions, number) == 0 && extensions.dataRows() >= *most)
        return refused(u"分机已有%1个，不能再增加！"_s.arg(extensions.dataRows()));
    return std::nullopt;
}

TextTable WithExtension(TextTable extensions, QStringList cells) {
    for (qsizetype column = 0; column < kHeaders.size() && column < cells.size(); ++column) {
        if (IsExtensionAmount(kHeaders[column]))
            cells[column] = Money::FromText(cells[column]).text();
    }
    const int row = ExtensionRow(extensions, cells.value(0));
    if (row == 0)
        extensions.addRow(cells);
    else
        extensions.setRow(row, cells);
    return extensions;
}

ExtensionIndex::ExtensionIndex(const TextTable& extensions) {
    const int owner = extensions.column(extension_column::kOwner);
    const int user = extensions.column(extension_column::kUser);
    for (int row = 1; row < extensions.rows(); ++row) {
        const QString number = extensions.text(row, 0);
        if (!number.isEmpty() && !holders_.contains(number))
            holders_.insert(number, {extensions.text(row, owner), extensions.text(row, user)});
    }
}

const ExtensionHolder* ExtensionIndex::find(const QString& number) const {
    const auto holder = holders_.constFind(number);
    return holder == holders_.cend() ? nullptr : &*holder;
}

} // namespace hotel
