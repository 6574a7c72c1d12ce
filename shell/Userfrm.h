#pragma once

// The users of the system and their rights (用户管理). The screen works on a list of its own: what is added, changed
// and deleted reaches the server by saving, and is lost when the screen is left without.

#include "screen/screen.h"
#include "shell/user_accounts.h"

namespace hotel {

class CheckList;
class FieldForm;
class GridView;

class Userfrm : public Screen {
    Q_OBJECT

public:
    Userfrm();

    void load(const QVariant& argument) override;

protected:
    bool closing() override;

private:
    void QVRTrVw_RowChange(int row);
    void PrivList_Click();
    void CmdAdd_Click();
    void CmdModify_Click();
    void cmdDel_Click();
    void CmdFile_Click();
    void CmdPrint_Click();

    QString selectedUser() const; // empty: none
    QString boxes();              // with the rights text
    void showUsers(const QString& select);
    void showOutcome(const UserEditOutcome& outcome);

    UserAccounts users_;
    bool isLoaded_ = false; // else there is nothing that could be saved
    QString rights_;        // of the boxes

    GridView* QVRTrVw;
    FieldForm* boxes_;
    CheckList* PrivList;
};

} // namespace hotel
