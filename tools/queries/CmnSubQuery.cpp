#include "tools/queries/CmnSubQuery.h"

#include <QComboBox>
#include <QGroupBox>
#include <QVBoxLayout>

#include "record/field_walk.h"
#include "record/record_text.h"
#include "screen/field_form.h"
#include "tools/queries/query_text.h"

namespace hotel {

namespace {

const QList<FormField> kChoice = {{u"", u"FlmcQd", u"查询项目", Editor::Category, {}, 30}};

// Adds the tags of `record` that are not among `tags` yet.
void AddTags(QStringList& tags, QStringView record) {
    FieldWalk fields(record);
    while (fields.next() && tags.size() < CmnSubQuery::kFieldLimit) {
        const QString tag = fields.name().toString();
        if (fields.closed() && !tags.contains(tag))
            tags.append(tag);
    }
}

// The tags of all sub-records in `body`, in the order in which they come up.
QStringList TagsOf(QStringView body) {
    QStringList tags;
    FieldWalk subRecords(body);
    while (subRecords.next())
        AddTags(tags, subRecords.value());
    return tags;
}

} // namespace

CmnSubQuery::CmnSubQuery(const QString& caption, const QStringList& parts,
                         const QString& sampleRecord)
    : ConditionForm(u"CmnSubQuery"_s, caption, {}), sampleRecord_(sampleRecord),
      choice_(new FieldForm(kChoice, 1)) {
    choice_->setChoices(u"FlmcQd", parts);
    auto* content = new QVBoxLayout;
    content->addWidget(choice_);
    content->addWidget(conditionFrame(), 1);
    setContent(content);
    addCommands({
        {u"Search_cmd"_s, u"开始查询"_s, [this] { Search_cmd_Click(); }, Qt::Key_F8,
         CommandKind::Default},
        {u"Clear_cmd"_s, u"清除条件"_s, [this] { Clear_cmd_Click(); }, Qt::Key_F4},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, {}, CommandKind::Plain, u"end"_s},
    });
    enterOpens(choice_->editor<QComboBox>(u"FlmcQd"));
    on(choice_, &FieldForm::edited, [this] { FlmcQd_Click(); });
    if (parts.size() == 1) {
        choice_->setText(u"FlmcQd", parts.first());
        FlmcQd_Click();
    }
    showEnabling();
    resize(1000, 560);
}

QString CmnSubQuery::part() const {
    return choice_->text(u"FlmcQd");
}

void CmnSubQuery::load(const QVariant&) {
    if (part().isEmpty())
        choice_->editor(u"FlmcQd")->setFocus();
    else
        focusOnField();
}

// Conditions are about the fields of one part: another part begins anew.
void CmnSubQuery::FlmcQd_Click() {
    fields_ = TagsOf(GetTag(sampleRecord_, part()));
    setFields(fields_);
    clearConditions();
    showEnabling();
}

void CmnSubQuery::showEnabling() {
    ConditionForm::showEnabling();
    const bool hasConditions = !conditions().isEmpty();
    setCommandEnabled(u"Clear_cmd", hasConditions);
    setCommandEnabled(u"Search_cmd", hasConditions);
    conditionFrame()->setEnabled(!part().isEmpty());
}

void CmnSubQuery::Search_cmd_Click() {
    const QList<Condition> listed = conditions();
    if (!listed.isEmpty())
        finish(WithSubField(ConditionText(listed, {}), part()));
}

void CmnSubQuery::Clear_cmd_Click() {
    clearConditions();
    showEnabling();
    focusOnField();
}

} // namespace hotel
