#include "telephone/HdfjFrm.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "link/QVRapp.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "telephone/billing_files.h"
#include "telephone/call_list.h"
#include "telephone/call_record.h"

namespace hotel {

namespace {

const QList<FormField> kDate = {{{}, u"BillDate", u"日期", Editor::Date}};

} // namespace

HdfjFrm::HdfjFrm()
    : Screen(u"HdfjFrm"_s, u"电话话单分拣处理"_s), date_(new FieldForm(kDate, 1)),
      HdQd(new GridView(u"HdQd"_s)) {
    SetUpCallList(*HdQd);
    auto* top = new QHBoxLayout;
    top->addWidget(date_);
    top->addStretch(1);
    auto* content = new QVBoxLayout;
    content->addLayout(top);
    content->addWidget(HdQd, 1);
    setContent(content);
    addCommands({{u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape}});
    on(date_, &FieldForm::left, [this] { showDay(); });
    onEnter(date_->editor(u"BillDate"), [this] { HdQd->setFocus(); });
    resize(1240, 680);
}

void HdfjFrm::load(const QVariant&) {
    date_->setText(u"BillDate", Clock::DateText());
    date_->editor(u"BillDate")->setFocus();
    showDay();
}

void HdfjFrm::showDay() {
    TextTable& calls = HdQd->table();
    calls.clearRows();
    const QDate day = QDate::fromString(date_->text(u"BillDate"), Qt::ISODate);
    QString words = u"请输入日期"_s;
    if (day.isValid()) {
        const BillingFiles files(AccountingConfig(ReadAccountingFile(AccountingConfigFile())));
        const QString file = files.dayFile(day);
        const int shown =
            LoadProjectToGrid(file, kCallProject.toString(), calls, calls.column(kKeyHeader),
                              [this](int, bool) { return stillOpen(); });
        words = shown == 0 && ReadProjectToChange(file, kCallProject).failed()
                    ? u"话单没有读出，请稍候再试"_s
                    : u"共 %1 条话单"_s.arg(shown);
    }
    HdQd->refresh();
    HdQd->autoFit();
    setStatus(words);
}

} // namespace hotel
