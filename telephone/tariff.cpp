#include "telephone/tariff.h"

#include <algorithm>

#include "record/literals.h"
#include "telephone/billing_files.h"
#include "telephone/call_classes.h"

namespace hotel {

namespace {

const QStringList kPrefixHeaders = {u"号头"_s,     u"费率类别"_s, u"费率"_s,     u"通话地区"_s,
                                    u"隐藏位数"_s, u"追加号头"_s, u"中继组"_s,   u"单位时长"_s,
                                    u"单位费率"_s, u"起价时长"_s, u"起价费率"_s, u"说明"_s};
const QStringList kParameterHeaders = {u"行号"_s, u"参数名称"_s, u"参数值"_s};
constexpr QStringView kRowFormat = u"000";
constexpr int kParameterRowLimit = 999;
constexpr int kFirstMode = 1;
constexpr int kLastMode = 6;

QString RowKey(int row) {
    return FormatNumber(row, kRowFormat);
}

bool IsDialled(QChar character) {
    return (character >= u'0' && character <= u'9') || character == u'*' || character == u'#';
}

} // namespace

QStringList PrefixHeaders() {
    return kPrefixHeaders;
}

TextTable PrefixTable(QStringView projectText) {
    return TableOf(projectText, kPrefixHeaders, prefix_column::kPrefix);
}

QString PrefixText(const TextTable& prefixes) {
    return TableText(prefixes, prefix_column::kPrefix);
}

TextTable ParameterTable(QStringView projectText) {
    const TextTable stored = TableOf(projectText, kParameterHeaders, parameter_column::kRow);
    TextTable parameters(kParameterHeaders);
    for (int row = 1; row <= kParameterRows; ++row)
        parameters.addRow({RowKey(row)});
    for (int row = 1; row < stored.rows(); ++row) {
        const int number = int(LeadingNumber(stored.text(row, parameter_column::kRow)));
        if (number < 1 || number > kParameterRowLimit)
            continue;
        while (parameters.dataRows() < number)
            parameters.addRow({RowKey(parameters.rows())});
        QStringList cells = stored.row(row);
        cells[parameter_column::kRow] = RowKey(number);
        parameters.setRow(number, cells);
    }
    return parameters;
}

QString ParameterText(const TextTable& parameters) {
    return TableText(parameters, parameter_column::kRow);
}

TextTable WithPrefix(TextTable prefixes, const QStringList& cells) {
    const int row = prefixes.find(prefix_column::kPrefix, cells.value(prefix_column::kPrefix));
    if (row < 1)
        prefixes.addRow(cells);
    else
        prefixes.setRow(row, cells);
    return prefixes;
}

QString PrefixObjection(const QStringList& cells) {
    const QString prefix = cells.value(prefix_column::kPrefix);
    if (prefix.isEmpty() || !std::ranges::all_of(prefix, IsDialled))
        return u"号头只能由数字、*和#组成！"_s;
    if (CallClassOf(cells.value(prefix_column::kClass)) == 0)
        return u"费率类别要以市话、特服、省内、国内、国际、农话或专网开头！"_s;
    if (!IsNumber(cells.value(prefix_column::kRate)))
        return u"费率必须是数字！"_s;
    return {};
}

QStringList TariffObjections(const TextTable& parameters) {
    using namespace parameter_block;
    QStringList objections;
    const auto object = [&](int row, QStringView why) {
        objections.append(
            u"第%1行（%2）%3"_s.arg(row).arg(parameters.text(row, parameter_column::kLabel), why));
    };
    for (int row = 1; row < parameters.rows(); ++row) {
        const QString value = parameters.text(row, parameter_column::kValue);
        if (!value.isEmpty() && !IsNumber(value))
            object(row, u"不是数字");
    }
    const Tariff tariff(parameters, TextTable(kPrefixHeaders));
    for (int c = 1; c <= int(kCallClasses.size()); ++c) {
        const qint64 mode = WholePart(tariff.parameter(kMode, c));
        if (mode < kFirstMode || mode > kLastMode)
            object(kMode + c, u"应为1至6");
        else if (mode == 1 && tariff.parameter(kStepMinutes, c) <= Money())
            object(kStepMinutes + c, u"必须大于零");
    }
    return objections;
}

Tariff::Tariff(const TextTable& parameters, const TextTable& prefixes) {
    for (int row = 1; row <= kParameterRows; ++row)
        parameters_[size_t(row)] = Money::FromText(parameters.text(row, parameter_column::kValue));
    for (int row = 1; row < prefixes.rows(); ++row) {
        const QString prefix = prefixes.text(row, prefix_column::kPrefix);
        if (prefix.isEmpty() || rows_.contains(prefix))
            continue;
        const QString classText = prefixes.text(row, prefix_column::kClass);
        rows_.insert(prefix,
                     {prefix, classText, Money::FromText(prefixes.text(row, prefix_column::kRate)),
                      prefixes.text(row, prefix_column::kPlace),
                      std::max(kLocalClass, CallClassOf(classText))});
        if (!lengths_.contains(prefix.size()))
            lengths_.append(prefix.size());
    }
    std::ranges::sort(lengths_, std::greater());
}

const PrefixRow* Tariff::longestPrefix(QStringView number) const {
    for (const qsizetype length : lengths_) {
        if (length > number.size())
            continue;
        const auto row = rows_.constFind(number.first(length).toString());
        if (row != rows_.cend())
            return &*row;
    }
    return nullptr;
}

} // namespace hotel
