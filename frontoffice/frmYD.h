#pragma once

// Reservations (客房预定计划). Beside the plan stand the rooms that it holds: a click, the space bar or Enter marks a
// room; whole floors and room types are ticked in their lists.

#include <QString>

#include "tools/plans/plan_screen.h"

class QTabWidget;

namespace hotel {

class CheckList;

class frmYD : public PlanScreen {
    Q_OBJECT

public:
    frmYD();

    void load(const QVariant& number) override;

protected:
    QString formRecord() const override;
    QStringList furtherFields() const override;
    void planShown(const QString& number) override;
    QString newPlan() const override;

private:
    void RlCmd_Click();
    void KfQd_Click(int row);
    void Filter_Ticked(CheckList* filter, QStringView column);
    void AllSelCmd_Click();
    void AllClr_Click();
    void YdfjQdPrint_Click();
    void YdfjQdFile_Click();

    QWidget* makeRoomsTab();
    void loadRooms();
    void showHeld();

    bool isHeldKnown_ = true; // the rooms of the plan that is shown could be read
    QStringList floors_;
    QStringList types_;

    QTabWidget* tabs_;
    GridView* KfQd;
    CheckList* Xslc;
    CheckList* Xsfx;
    GridView* LctjQd;
    GridView* FxtjQd;
};

} // namespace hotel
