#pragma once

// The tariff: what a call costs by the number that was dialled (record 费率定义) and by its class (系统参数).
//
// A row of 费率定义 is one prefix of called numbers:
//
//     号头         the prefix
//     费率类别     begins with the class of the call: 市话, 特服, 省内, 国内, 国际, 农话, 专网
//     费率         for a unit
//     通话地区     name of the place
//     隐藏位数 追加号头 中继组 单位时长 单位费率 起价时长 起价费率 说明     for the link program
//
// A row of 系统参数 is one numbered parameter: its label, which only people read, and its value. Blocks of seven
// rows hold one parameter for the seven classes, numbered c:
//
//     c         附加费 for a unit
//     7 + c     手续费 for a call
//     21 + c    浮动费 in percent
//     28 + c    charging mode, 1 to 6
//     35 + c    minutes of a step in the modes 1 and 3
//     42 + c    rate for a unit where no prefix matches, and for the first unit
//     49 + c    过线费 for a unit
//     56 + c    建设费 in percent
//     77 + c    rate of each further unit; 0: all units cost the same
//     84 + c    seconds of a unit; below 1: 60
//
// The rows of class 1 also rate the local part of a long-distance call, which the modes 4 to 6 add.

#include <QHash>
#include <QList>
#include <QString>
#include <QStringView>

#include <array>

#include "record/numbers.h"
#include "record/text_table.h"

namespace hotel {

inline constexpr QStringView kPrefixProject = u"费率定义";
inline constexpr QStringView kParameterProject = u"系统参数";

namespace prefix_column {
inline constexpr int kPrefix = 0;
inline constexpr int kClass = 1;
inline constexpr int kRate = 2;
inline constexpr int kPlace = 3;
} // namespace prefix_column

namespace parameter_column {
inline constexpr int kRow = 0; // "001": the table's row of that number
inline constexpr int kLabel = 1;
inline constexpr int kValue = 2;
} // namespace parameter_column

// First rows less one of the blocks.
namespace parameter_block {
inline constexpr int kSurcharge = 0;
inline constexpr int kHandling = 7;
inline constexpr int kFloating = 21;
inline constexpr int kMode = 28;
inline constexpr int kStepMinutes = 35;
inline constexpr int kUnitRate = 42;
inline constexpr int kLineFee = 49;
inline constexpr int kConstruction = 56;
inline constexpr int kFurtherRate = 77;
inline constexpr int kUnitSeconds = 84;
} // namespace parameter_block

inline constexpr int kParameterRows = 91; // all that rating looks at

QStringList PrefixHeaders();
TextTable PrefixTable(QStringView projectText);
QString PrefixText(const TextTable& prefixes);

// Row n of the table is parameter n; one that the record lacks stands there without label and value. Parameters
// behind kParameterRows are kept.
TextTable ParameterTable(QStringView projectText);
QString ParameterText(const TextTable& parameters);

// `prefixes` with the row added, or put in the place of the one of its prefix.
TextTable WithPrefix(TextTable prefixes, const QStringList& cells);
// Why that can't be, in words: no prefix, one that isn't dialled, a class that is none, a rate that is no
// amount. Empty when it can.
QString PrefixObjection(const QStringList& cells);

// Why a tariff can't be saved, a line for each fault: a class that is charged by no mode, steps of no minutes where
// its mode divides by them, a value that is no number.
QStringList TariffObjections(const TextTable& parameters);

// The whole number of a parameter, its fraction cut.
constexpr qint64 WholePart(Money value) {
    return value.units() / 10000;
}

struct PrefixRow {
    QString prefix;
    QString classText;
    Money rate;
    QString place;
    int callClass = 0; // 市话 for a class text that begins with no class
};

class Tariff {
public:
    Tariff() = default;
    Tariff(const TextTable& parameters, const TextTable& prefixes);

    // Parameter of a class by its block; 0 where the record has none.
    Money parameter(int block, int callClass) const {
        return parameters_[size_t(block + callClass)];
    }

    // The longest prefix that the number begins with, the first one where it stands twice; null when there is none.
    // Looks up one prefix a length, however many the table has.
    const PrefixRow* longestPrefix(QStringView number) const;

private:
    std::array<Money, kParameterRows + 1> parameters_{};
    QHash<QString, PrefixRow> rows_;
    QList<qsizetype> lengths_; // of all prefixes, descending
};

} // namespace hotel
