#pragma once

// The screen of a kept plan (tools/plans/plan_list.h): the list, under it the plan that is chosen or being entered, and
// the commands. A screen is its PlanKind and its PlanPanel; what only it has, it adds in a class of its own:
//
//     class frmWX : public PlanScreen {
//     public:
//         frmWX() : PlanScreen(RepairPlans(), kPanel) {}
//     };
//
// Opened with a number it goes to that plan; a plan that is being entered it asks about first.

#include <QList>
#include <QString>
#include <QStringList>

#include "screen/field_form.h"
#include "screen/screen.h"
#include "tools/plans/plan_list.h"

namespace hotel {

class GridView;

struct PlanPanel {
    QString screen; // its name
    QString caption;
    QString list;            // object name of the list
    QList<FormField> fields; // by their columns; the first is the number
    int fieldColumns = 3;
    QString listTitle;      // on paper, in files, above the history
    QString historyCaption; // of the history's query
    QString changeCaption;  // of the command that changes or closes
    QString tidyTip;
    QStringList numbers = {}; // columns set to the right
    // Adding takes two steps: a number first, with an empty form, then the saving.
    bool numberFirst = false;
};

class PlanScreen : public Screen {
    Q_OBJECT

public:
    void load(const QVariant& number) override;

protected:
    // `further` commands stand ahead of the last one.
    PlanScreen(const PlanKind& kind, const PlanPanel& panel,
               const QList<ScreenCommand>& further = {});

    // What stands in the form, as a record. A screen adds the fields that aren't in the form.
    virtual QString formRecord() const;
    // Fields that formRecord() has besides the columns.
    virtual QStringList furtherFields() const { return {}; }
    // The form shows another plan; an empty number: none, or a new one.
    virtual void planShown(const QString& number);
    // What a new plan is proposed with.
    virtual QString newPlan() const;

    // The list above the form; a screen that has more lays them out itself.
    void setPanel();

    bool closing() override;

    void CmdAdd_Click();

    FieldForm* form() const { return form_; }
    GridView* list() const { return list_; }

private:
    void List_RowChange(int row);
    void CmdModify_Click();
    void CmdDel_Click();
    void CmdRange_Click();
    void HistCmd_Click();
    void CmdPrint_Click();
    void CmdFile_Click();
    void FreshCmd_Click();

    void loadList();
    void beginPlan(const QString& number);
    void showCount();
    void tell(const PlanOutcome& outcome);
    QString selectedNumber() const;
    bool isBegun() const; // a number was given out, and the plan isn't saved yet

    PlanKind kind_;
    PlanPanel panel_;
    bool isLoaded_ = false;
    GridView* list_;
    FieldForm* form_;
};

} // namespace hotel
