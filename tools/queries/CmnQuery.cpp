#include "tools/queries/CmnQuery.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHash>
#include <QLabel>
#include <QVBoxLayout>

#include "platform/clock.h"
#include "screen/field_form.h"
#include "screen/messages.h"

namespace hotel {

namespace {

const QList<FormField> kKeywords = {
    {u"", u"BxTj", u"必须含有", Editor::CategoryText, {}, 76},
    {u"", u"RxTj", u"任意含有", Editor::CategoryText, {}, 76},
    {u"", u"PcTj", u"不能含有", Editor::CategoryText, {}, 76},
};

const QList<FormField> kDates = {
    {u"", u"StDay", u"从", Editor::Date},
    {u"", u"EndDay", u"到", Editor::Date},
};

// Keywords that were searched with since the start of the program, by their box.
QStringList& KeywordHistory(QStringView box) {
    static QHash<QString, QStringList> history;
    return history[box.toString()];
}

void Remember(QStringView box, const QString& keywords) {
    if (!keywords.isEmpty() && !KeywordHistory(box).contains(keywords))
        KeywordHistory(box).append(keywords);
}

QDate DateOf(const FieldForm& form, QStringView control) {
    return QDate::fromString(form.text(control), u"yyyy-MM-dd"_s);
}

} // namespace

CmnQuery::CmnQuery(const QString& caption, const QStringList& fields, const QString& nameLabel)
    : ConditionForm(u"CmnQuery"_s, caption, kAnd.toString()), nameLabel_(nameLabel),
      Kscxtj_(new QGroupBox(u"快速查询条件"_s)), DateFrm_(new QGroupBox(u"数据有效时段"_s)),
      keywords_(new FieldForm(kKeywords, 1)), dates_(new FieldForm(kDates, 1)) {
    setFields(fields);
    auto* below = new QHBoxLayout;
    below->addWidget(makeKeywordFrame(), 1);
    below->addWidget(makeDateFrame());
    auto* content = new QVBoxLayout;
    content->addWidget(conditionFrame(), 1);
    content->addLayout(below);
    setContent(content);
    addCommands({
        {u"Search_cmd"_s, u"开始查询"_s, [this] { Search_cmd_Click(); }, Qt::Key_F8,
         CommandKind::Default},
        {u"Clear_cmd"_s, u"清除条件"_s, [this] { Clear_cmd_Click(); }, Qt::Key_F4},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, {}, CommandKind::Plain, u"end"_s},
    });
    showEnabling();
    resize(1000, 620);
}

QWidget* CmnQuery::makeKeywordFrame() {
    Kscxtj_->setObjectName(u"Kscxtj"_s);
    for (const FormField& box : kKeywords)
        keywords_->setChoices(box.control, KeywordHistory(box.control));
    auto* layout = new QVBoxLayout(Kscxtj_);
    layout->addWidget(keywords_);
    layout->addWidget(new QLabel(u"每栏最多%1个关键词，用逗号分开"_s.arg(kKeywordLimit)));
    return Kscxtj_;
}

QWidget* CmnQuery::makeDateFrame() {
    DateFrm_->setObjectName(u"DateFrm"_s);
    DateFrm_->setEnabled(false);
    const QDate today = Clock::Today();
    dates_->setText(u"StDay", today.toString(u"yyyy-MM-01"));
    dates_->setText(u"EndDay", today.toString(u"yyyy-MM-dd"));
    auto* layout = new QVBoxLayout(DateFrm_);
    layout->addWidget(dates_);
    layout->addStretch(1);
    return DateFrm_;
}

void CmnQuery::useDates() {
    DateFrm_->setEnabled(true);
    showEnabling();
}

QDate CmnQuery::StDay() const {
    return DateOf(*dates_, u"StDay");
}

QDate CmnQuery::EndDay() const {
    return DateOf(*dates_, u"EndDay");
}

void CmnQuery::load(const QVariant&) {
    focusOnField();
}

void CmnQuery::showEnabling() {
    ConditionForm::showEnabling();
    const bool hasKeywords = !typedKeywords().isEmpty();
    const bool hasConditions = !conditions().isEmpty();
    setCommandEnabled(u"Clear_cmd", hasKeywords || hasConditions);
    setCommandEnabled(u"Search_cmd", hasKeywords || hasConditions);
    DateFrm_->setVisible(DateFrm_->isEnabled());
    conditionFrame()->setEnabled(!hasKeywords);
    Kscxtj_->setEnabled(!hasConditions);
}

KeywordLists CmnQuery::typedKeywords() const {
    return {NormalisedKeywords(keywords_->text(u"BxTj")),
            NormalisedKeywords(keywords_->text(u"RxTj")),
            NormalisedKeywords(keywords_->text(u"PcTj"))};
}

bool CmnQuery::areKeywordsFew(const KeywordLists& keywords) const {
    for (const QString& list : {keywords.required, keywords.optional, keywords.excluded}) {
        if (KeywordCount(list) > kKeywordLimit) {
            MsgBox(u"每栏最多%1个关键词！"_s.arg(kKeywordLimit), u"注意"_s);
            return false;
        }
    }
    return true;
}

bool CmnQuery::isPeriodRight() const {
    if (!DateFrm_->isEnabled() || (StDay().isValid() && EndDay().isValid()))
        return true;
    MsgBox(u"数据有效时段的日期不正确，请检查！"_s, u"注意"_s);
    return false;
}

void CmnQuery::Search_cmd_Click() {
    const QList<Condition> listed = conditions();
    const KeywordLists keywords = typedKeywords();
    if ((listed.isEmpty() && keywords.isEmpty()) || !isPeriodRight())
        return;
    if (!listed.isEmpty()) {
        finish(ConditionText(listed, nameLabel_));
        return;
    }
    if (!areKeywordsFew(keywords))
        return;
    Remember(u"BxTj", keywords.required);
    Remember(u"RxTj", keywords.optional);
    Remember(u"PcTj", keywords.excluded);
    finish(KeywordText(keywords));
}

void CmnQuery::Clear_cmd_Click() {
    clearConditions();
    keywords_->clear();
    showEnabling();
    focusOnField();
}

} // namespace hotel
