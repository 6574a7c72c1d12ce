#pragma once

// The query form for conditions inside a repeated part of a record: work experience in a staff record,
// the guests in a room. What it composes goes to QuerySubRecordsToGrid.
//
//     ModalScreen<CmnSubQuery> query(this, caption, {u"工作经历"_s, u"家庭成员"_s}, sampleRecord);
//     if (!query.show()) return;

#include "tools/queries/condition_form.h"

namespace hotel {

class CmnSubQuery : public ConditionForm {
    Q_OBJECT

public:
    // Tags of a sub-record that can be searched.
    static constexpr int kFieldLimit = 999;

    // `parts`: fields of the record that hold sub-records. `sampleRecord`: a record in which the tags
    // of their sub-records are looked up.
    CmnSubQuery(const QString& caption, const QStringList& parts, const QString& sampleRecord);

    // The part that was searched.
    QString part() const;

    // What a sub-record of that part holds: the headers of a list that shows them.
    QStringList fields() const { return fields_; }

    void load(const QVariant& argument) override;

protected:
    void showEnabling() final;

private:
    void FlmcQd_Click();
    void Search_cmd_Click();
    void Clear_cmd_Click();

    QString sampleRecord_;
    QStringList fields_;
    FieldForm* choice_; // FlmcQd
};

} // namespace hotel
