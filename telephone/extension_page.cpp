#include "telephone/extension_page.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "record/literals.h"
#include "record/record_text.h"
#include "screen/check_list.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "telephone/call_list.h"
#include "telephone/extensions.h"

namespace hotel {

namespace {

const QList<FormField> kFields = {
    {u"分机号", u"Fjh", u"分机号", Editor::Text, {}, 12},
    {u"所有者", u"Syz", u"所有者", Editor::Text, {}, 16, 40},
    {u"使用者", u"Syr", u"使用者", Editor::Text, {}, 16, 40},
    {u"呼出权限", u"Hcqx", u"呼出权限", Editor::Text, {}, 12, 20},
    {u"基本月租", u"Jbyz", u"基本月租", Editor::Amount},
    {u"其他月租", u"Qtyz", u"其他月租", Editor::Amount},
    {u"收费起价", u"Sfqj", u"收费起价", Editor::Amount},
    {u"收费补贴", u"Sfbt", u"收费补贴", Editor::Amount},
    {u"其他费用", u"Qtfy", u"其他费用", Editor::Amount},
    {u"分机内码", u"Fjnm", u"分机内码", Editor::Text, {}, 12, 20},
    {u"押金初值", u"Yjcz", u"押金初值", Editor::Amount},
    {u"押金余额", u"Yjye", u"押金余额", Editor::Amount},
    {u"押金下限", u"Yjxx", u"押金下限", Editor::Amount},
};
constexpr int kColumns = 3;

QWidget* WithCaption(const QString& caption, CheckList* list) {
    auto* box = new QWidget;
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(caption));
    layout->addWidget(list);
    return box;
}

} // namespace

ExtensionPage::ExtensionPage(QWidget* parent)
    : QWidget(parent), UserList(new GridView(u"UserList"_s)),
      form_(new FieldForm(kFields, kColumns)), SfQd(new CheckList(u"SfQd"_s)),
      MfQd(new CheckList(u"MfQd"_s)) {
    UserList->table().setHeaders(ExtensionHeaders());
    for (int column = 0; column < UserList->table().cols(); ++column) {
        if (IsAmountColumn(UserList->table().headers()[column]))
            UserList->setColumnAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    }
    UserList->refresh();
    SfQd->setEntries(BitEntries());
    MfQd->setEntries(BitEntries());
    auto* entry = new QHBoxLayout;
    entry->addWidget(form_, 1, Qt::AlignTop);
    entry->addWidget(WithCaption(extension_column::kCharged.toString(), SfQd));
    entry->addWidget(WithCaption(extension_column::kRemitted.toString(), MfQd));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(UserList, 1);
    layout->addLayout(entry);
    clearBoxes();
}

QWidget* ExtensionPage::firstField() const {
    return form_->editor(u"Fjh");
}

QWidget* ExtensionPage::lastField() const {
    return form_->editor(u"Yjxx");
}

void ExtensionPage::show(const TextTable& extensions, const QString& number) {
    UserList->setTable(extensions);
    UserList->refresh();
    UserList->autoFit();
    UserList->setCurrent(ExtensionRow(extensions, number));
}

void ExtensionPage::edit(int row) {
    const TextTable& table = UserList->table();
    if (row == 0)
        return clearBoxes();
    for (const FormField& field : kFields)
        form_->setText(field.control, table.text(row, field.tag));
    SfQd->setTicks(BitTicks(table.text(row, extension_column::kCharged)));
    MfQd->setTicks(BitTicks(table.text(row, extension_column::kRemitted)));
}

QStringList ExtensionPage::cells() const {
    TextTable row(ExtensionHeaders());
    row.addRow();
    for (const FormField& field : kFields)
        row.setText(1, field.tag, TrimWhite(form_->text(field.control)));
    row.setText(1, extension_column::kCharged, BitText(SfQd->ticks()));
    row.setText(1, extension_column::kRemitted, BitText(MfQd->ticks()));
    return row.row(1);
}

void ExtensionPage::clearBoxes() {
    form_->clear();
    SfQd->setTicks(BitTicks(kAllCharged));
    MfQd->setTicks(BitTicks(kNoneRemitted));
}

void ExtensionPage::setCommands(QWidget* commands) {
    layout()->addWidget(commands);
}

} // namespace hotel
