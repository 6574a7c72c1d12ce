#pragma once

// What the two query forms share: the row in which a condition is composed (Rlt, Fld, Cnd, Vl), the
// list of conditions, and the rules between them. Everything can be done from the keyboard: Enter moves
// on, opens a list in which nothing is chosen, and in Vl adds the condition; Del takes one out.

#include <QList>

#include "record/conditions.h"
#include "screen/screen.h"

class QComboBox;
class QGroupBox;

namespace hotel {

class FieldForm;
class GridView;

class ConditionForm : public Screen {
    Q_OBJECT

public:
    // The whole condition text that was searched with; empty when the form was closed otherwise.
    const QString& conditionText() const { return conditionText_; }

protected:
    // `relation`: what Rlt falls back to when a condition has been added.
    ConditionForm(const QString& name, const QString& caption, const QString& relation);

    QGroupBox* conditionFrame() const { return Zhcxtj_; }

    // The fields that conditions may be about.
    void setFields(const QStringList& fields);

    // The conditions listed, in their order.
    QList<Condition> conditions() const;
    void clearConditions();

    // Enter in this list moves on, or opens it where nothing is chosen.
    void enterOpens(QComboBox* list);

    // Where composing begins.
    void focusOnField();

    // Ends the form with a condition text, which goes into the operation log.
    void finish(const QString& conditionText);

    // Enables what may be pressed; runs every 100 ms.
    virtual void showEnabling();

private:
    void makeConditionFrame();
    void Add_cmd_Click();
    void CondGrd_DblClick(int row);
    void normaliseTarget();
    void rememberTarget();
    bool place(const Condition& condition);
    Condition composed() const;

    QString relation_;
    QString conditionText_;
    QGroupBox* Zhcxtj_;
    FieldForm* row_; // Rlt, Fld, Cnd, Vl
    GridView* CondGrd_;
};

} // namespace hotel
