#include "telephone/tariff_page.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

#include "record/literals.h"
#include "record/record_text.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "telephone/call_classes.h"
#include "telephone/tariff.h"

namespace hotel {

namespace {

const QList<FormField> kFields = {
    {u"号头", u"Ht", u"号头", Editor::Text, {}, 12, 20},
    {u"费率类别", u"Fllb", u"费率类别", Editor::Text, {}, 14, 40},
    {u"费率", u"Fl", u"费率", Editor::Text, {}, 10, 12},
    {u"通话地区", u"Thdq", u"通话地区", Editor::Text, {}, 14, 40},
    {u"隐藏位数", u"Ycws", u"隐藏位数", Editor::Number, {}, 6},
    {u"追加号头", u"Zjht", u"追加号头", Editor::Text, {}, 10, 20},
    {u"中继组", u"Zjz", u"中继组", Editor::Text, {}, 6, 20},
    {u"单位时长", u"Dwsc", u"单位时长", Editor::Number, {}, 8},
    {u"单位费率", u"Dwfl", u"单位费率", Editor::Text, {}, 8, 12},
    {u"起价时长", u"Qjsc", u"起价时长", Editor::Number, {}, 8},
    {u"起价费率", u"Qjfl", u"起价费率", Editor::Text, {}, 8, 12},
    {u"说明", u"Sm", u"说明", Editor::Text, {}, 20, 60},
};
constexpr int kColumns = 4;

QVBoxLayout* WithCaption(const QString& caption, GridView* list) {
    auto* layout = new QVBoxLayout;
    layout->addWidget(new QLabel(caption));
    layout->addWidget(list, 1);
    return layout;
}

} // namespace

TariffPage::TariffPage(QWidget* parent)
    : QWidget(parent), FeeList(new GridView(u"FeeList"_s)), FeePara(new GridView(u"FeePara"_s)),
      form_(new FieldForm(kFields, kColumns)) {
    FeeList->setColumnAlignment(prefix_column::kRate, Qt::AlignRight | Qt::AlignVCenter);
    FeePara->setColumnAlignment(parameter_column::kValue, Qt::AlignRight | Qt::AlignVCenter);
    show(ParameterTable({}), PrefixTable({}));
    FeePara->setEditable(parameter_column::kValue, {KeyFilter::Amount, {}});
    auto* lists = new QHBoxLayout;
    lists->addLayout(WithCaption(u"费率种类"_s, FeeList), 3);
    lists->addLayout(WithCaption(u"费率参数"_s, FeePara), 2);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(lists, 1);
    layout->addWidget(form_);
}

QWidget* TariffPage::firstField() const {
    return form_->editor(u"Ht");
}

QWidget* TariffPage::lastField() const {
    return form_->editor(u"Sm");
}

void TariffPage::show(const TextTable& parameters, const TextTable& prefixes) {
    FeePara->setTable(parameters);
    FeePara->refresh();
    FeePara->autoFit();
    parametersStored();
    changePrefixes(prefixes);
    prefixesStored();
}

void TariffPage::edit(int row) {
    if (row == 0)
        return clearBoxes();
    for (const FormField& field : kFields)
        form_->setText(field.control, FeeList->table().text(row, field.tag));
}

QStringList TariffPage::cells() const {
    TextTable row(PrefixHeaders());
    row.addRow();
    for (const FormField& field : kFields)
        row.setText(1, field.tag, TrimWhite(form_->text(field.control)));
    return row.row(1);
}

void TariffPage::clearBoxes() {
    form_->clear();
}

void TariffPage::changePrefixes(const TextTable& prefixes, const QString& prefix) {
    FeeList->setTable(prefixes);
    FeeList->refresh();
    FeeList->autoFit();
    FeeList->setCurrent(
        prefix.isEmpty() ? 0 : std::max(0, prefixes.find(prefix_column::kPrefix, prefix)));
    prefixesChanged_ = true;
}

bool TariffPage::parametersChanged() const {
    return FeePara->isModified();
}

void TariffPage::parametersStored() {
    FeePara->setModified(false);
}

void TariffPage::setCommands(QWidget* commands) {
    layout()->addWidget(commands);
}

} // namespace hotel
