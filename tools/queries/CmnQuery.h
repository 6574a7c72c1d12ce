#pragma once

// The query form: composes the condition text of a search, either from conditions on fields or from
// keywords, which exclude each other.
//
//     ModalScreen<CmnQuery> query(this, u"请输入员工信息查询组合条件"_s, columns, u"编号"_s);
//     query->useDates();          // where files that carry dates are searched
//     if (!query.show()) return;  // the user closed the form
//     QueryToGrid(file, project, query->conditionText(), 0, *list);

#include <QDate>

#include "tools/queries/condition_form.h"
#include "tools/queries/query_text.h"

namespace hotel {

class CmnQuery : public ConditionForm {
    Q_OBJECT

public:
    // `fields`: what can be searched, in the order of the result's columns; `nameLabel`: the one of
    // them that stands for the record's own name, or empty.
    CmnQuery(const QString& caption, const QStringList& fields, const QString& nameLabel = {});

    // Shows the period of the data, from the first of this month to today.
    void useDates();
    QDate StDay() const;
    QDate EndDay() const;

    void load(const QVariant& argument) override;

protected:
    void showEnabling() final;

private:
    QWidget* makeKeywordFrame();
    QWidget* makeDateFrame();
    void Search_cmd_Click();
    void Clear_cmd_Click();
    KeywordLists typedKeywords() const;
    bool areKeywordsFew(const KeywordLists& keywords) const;
    bool isPeriodRight() const;

    QString nameLabel_;
    QGroupBox* Kscxtj_;
    QGroupBox* DateFrm_;
    FieldForm* keywords_; // BxTj, RxTj, PcTj
    FieldForm* dates_;    // StDay, EndDay
};

} // namespace hotel
