#include "telephone/search_page.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "record/literals.h"
#include "record/record_text.h"
#include "screen/check_list.h"
#include "screen/field_form.h"
#include "telephone/call_classes.h"

namespace hotel {

namespace {

const QList<FormField> kFields = {
    {{}, u"CxFjh", u"分机号", Editor::Text, {}, 18},
    {{}, u"CxHm", u"被叫号码", Editor::Text, {}, 18},
    {{}, u"CxSyz", u"所有者", Editor::Text, {}, 18},
    {{}, u"CxSyr", u"使用者", Editor::Text, {}, 18},
    {{}, u"CxQsrq", u"从日期", Editor::Date},
    {{}, u"CxQssj", u"时间", Editor::Time},
    {{}, u"CxZzrq", u"到日期", Editor::Date},
    {{}, u"CxZzsj", u"时间", Editor::Time},
    {{}, u"CxZxhf", u"总话费不少于", Editor::Amount},
    {{}, u"CxZdhf", u"不多于", Editor::Amount},
};
constexpr int kColumns = 2;

QStringList ClassNames() {
    QStringList names;
    for (const QStringView name : kCallClasses)
        names.append(name.toString());
    return names;
}

} // namespace

SearchPage::SearchPage(QWidget* parent)
    : QWidget(parent), form_(new FieldForm(kFields, kColumns)), CxLb(new CheckList(u"CxLb"_s)) {
    CxLb->setEntries(ClassNames());
    auto* classes = new QVBoxLayout;
    classes->addWidget(new QLabel(u"费率类别"_s));
    classes->addWidget(CxLb);
    classes->addStretch(1);
    auto* fields = new QHBoxLayout;
    fields->addWidget(form_, 0, Qt::AlignTop);
    fields->addSpacing(24);
    fields->addLayout(classes);
    fields->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addWidget(new QLabel(u"空着的条件不限；费率类别全选时不限。时间是时段两头的时刻。"_s));
    layout->addStretch(1);
}

QWidget* SearchPage::firstField() const {
    return form_->editor(u"CxFjh");
}

QWidget* SearchPage::lastField() const {
    return form_->editor(u"CxZdhf");
}

void SearchPage::setPeriod(const QDateTime& now) {
    form_->setText(u"CxQsrq", now.toString(u"yyyy-MM-01"));
    form_->setText(u"CxQssj", u"00:00:00"_s);
    form_->setText(u"CxZzrq", now.toString(u"yyyy-MM-dd"));
    form_->setText(u"CxZzsj", now.toString(u"HH:mm:ss"));
}

CallQuestion SearchPage::question() const {
    const auto text = [this](QStringView control) { return TrimWhite(form_->text(control)); };
    const auto moment = [&](QStringView date, QStringView time, QTime otherwise) {
        const QTime typed = QTime::fromString(text(time), u"HH:mm:ss");
        return QDateTime(QDate::fromString(text(date), Qt::ISODate),
                         typed.isValid() ? typed : otherwise);
    };
    const QStringList classes = CxLb->tickedEntries();
    return {text(u"CxFjh"),
            text(u"CxSyz"),
            text(u"CxSyr"),
            text(u"CxHm"),
            text(u"CxZxhf"),
            text(u"CxZdhf"),
            classes.size() == CxLb->count() ? QStringList() : classes,
            moment(u"CxQsrq", u"CxQssj", QTime(0, 0)),
            moment(u"CxZzrq", u"CxZzsj", QTime(23, 59, 59))};
}

void SearchPage::setCommands(QWidget* commands) {
    static_cast<QVBoxLayout*>(layout())->insertWidget(1, commands);
}

} // namespace hotel
