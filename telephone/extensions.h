#pragma once

// The extensions of the house, record 分机信息: for each its number and
//
//     所有者 使用者         who has it, who uses it: a room's guests, an office
//     呼出权限              what may be dialled
//     收费参数 减免参数     eight characters "0" and "1", one a class of calls: charged, remitted
//     基本月租 其他月租     fixed items of a month, "#0.00" as all amounts here
//     收费起价              least amount of a month, charged when its calls come to less
//     收费补贴              amount of a month that is not charged; a total below it pays nothing
//     其他费用              a further fixed item of a month
//     分机内码              the exchange's own code of the line
//     押金初值 押金余额 押金下限    deposit: at first, left, least

#include <QHash>
#include <QString>
#include <QStringView>

#include <optional>

#include "record/text_table.h"
#include "session/notice.h"
#include "telephone/accounting_config.h"

namespace hotel {

inline constexpr QStringView kExtensionProject = u"分机信息";

namespace extension_column {
inline constexpr QStringView kNumber = u"分机号"; // column 0
inline constexpr QStringView kOwner = u"所有者";
inline constexpr QStringView kUser = u"使用者";
inline constexpr QStringView kCharged = u"收费参数";
inline constexpr QStringView kRemitted = u"减免参数";
} // namespace extension_column

QStringList ExtensionHeaders();
bool IsExtensionAmount(QStringView header);

// The entries of the two bit strings, in the order of their characters: the classes of calls and one for all
// others.
QStringList BitEntries();
inline constexpr QStringView kAllCharged = u"11111111"; // of a new extension
inline constexpr QStringView kNoneRemitted = u"00000000";
// "1" for an entry that is on. A text that is too short is filled up with "0".
QString BitText(const QList<bool>& ticks);
QList<bool> BitTicks(QStringView text);

TextTable ExtensionTable(QStringView projectText);
QString ExtensionText(const TextTable& extensions);

// Row of an extension, the first where it stands twice; 0 when there is none.
int ExtensionRow(const TextTable& extensions, QStringView number);

// Why an extension can't be stored, in words: no number, one that is not made of letters and digits, of a length
// or one too many by the configuration. Nothing when it can.
std::optional<Notice> CheckExtension(const TextTable& extensions, const QStringList& cells,
                                     const AccountingConfig& config);

// `extensions` with the row set or added, its amounts formatted.
TextTable WithExtension(TextTable extensions, QStringList cells);

// Who an extension belongs to, for rating.
struct ExtensionHolder {
    QString owner;
    QString user;
};
class ExtensionIndex {
public:
    ExtensionIndex() = default;
    explicit ExtensionIndex(const TextTable& extensions);
    // Null for an extension that isn't listed.
    const ExtensionHolder* find(const QString& number) const;

private:
    QHash<QString, ExtensionHolder> holders_;
};

} // namespace hotel
