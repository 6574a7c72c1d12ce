#include "telephone/live_page.h"

#include <QVBoxLayout>

#include "link/QVRapp.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "telephone/call_list.h"
#include "telephone/call_record.h"

namespace hotel {

namespace {

const QList<FormField> kFields = {
    {{}, u"XsFjh", u"分机号", Editor::Text, {}, 14},
    {{}, u"XsSyz", u"所有者", Editor::Text, {}, 14},
    {{}, u"XsSyr", u"使用者", Editor::Text, {}, 14},
    {{}, u"BillDate", u"计费日期", Editor::Date},
    {{}, u"XsHm", u"号码开头", Editor::Text, {}, 14},
    {{}, u"XsZx", u"最短（分）", Editor::Amount, {}, 8},
    {{}, u"XsZd", u"最长（分）", Editor::Amount, {}, 8},
    {{}, u"BeepOff", u"不响铃", Editor::Check},
};
constexpr int kColumns = 4;

} // namespace

LivePage::LivePage(QWidget* parent)
    : QWidget(parent), form_(new FieldForm(kFields, kColumns)), LjjfQd(new GridView(u"LjjfQd"_s)) {
    form_->editor(u"BillDate")
        ->setToolTip(u"党获得焦点时，系统暂停。注意错误的时间设定，将会导致重复话单收取！"_s);
    SetUpCallList(*LjjfQd);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(form_);
    layout->addWidget(LjjfQd, 1);
}

QDate LivePage::day() const {
    return QDate::fromString(form_->text(u"BillDate"), Qt::ISODate);
}

void LivePage::setDay(QDate day) {
    form_->setText(u"BillDate", day.toString(Qt::ISODate));
}

bool LivePage::isDayTyped() const {
    return form_->editor(u"BillDate")->hasFocus();
}

bool LivePage::isBeeping() const {
    return form_->text(u"BeepOff") != u"1";
}

CallLimits LivePage::limits() const {
    const auto text = [this](QStringView control) { return TrimWhite(form_->text(control)); };
    return {text(u"XsFjh"), text(u"XsSyz"), text(u"XsSyr"),
            text(u"XsHm"),  text(u"XsZx"),  text(u"XsZd")};
}

void LivePage::append(const QString& name, const QString& record, int digits) {
    TextTable& table = LjjfQd->table();
    QStringList cells = CellsOf(record, name, table.headers(), table.column(kKeyHeader));
    QString& number = cells[table.column(call_record::kNumber)];
    number = number.left(digits);
    table.addRow(cells);
    LjjfQd->rowsAdded();
}

void LivePage::showEnd() {
    LjjfQd->autoFit();
    LjjfQd->scrollToEnd();
}

void LivePage::clear() {
    LjjfQd->table().clearRows();
    LjjfQd->refresh();
}

void LivePage::setCommands(QWidget* commands) {
    layout()->addWidget(commands);
}

} // namespace hotel
