#pragma once

// The companies that may settle later (house customers of the sales desk): number, name and how to reach
// them. Typing into the search box and Enter lists the companies whose record has it; Enter with an empty
// box lists all. The boxes follow the row.

#include "screen/screen.h"

class QLineEdit;

namespace hotel {

class FieldForm;
class GridView;
struct TeamEditOutcome;

class khxxmain : public Screen {
    Q_OBJECT

public:
    khxxmain();

    void load(const QVariant& argument) override;

private:
    void CxCmd_Click();
    void KhQd_RowChange(int row);
    void ClearCmd_Click();
    void CmdAdd_Click();
    void CmdModify_Click();
    void cmdDel_Click();

    void find(const QString& key);
    void showOutcome(const TeamEditOutcome& outcome, const QString& done);

    QLineEdit* search_;
    GridView* KhQd;
    FieldForm* boxes_;
};

} // namespace hotel
