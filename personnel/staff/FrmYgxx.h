#pragma once

// The employees of a department. Typing into the search box goes to the next one whose number, name, its initials or
// card begin so. Enter on a row opens the card.

#include "screen/screen.h"

class QLineEdit;

namespace hotel {

class CategoryBox;
class GridView;

class FrmYgxx : public Screen {
    Q_OBJECT

public:
    FrmYgxx();

    void load(const QVariant& argument) override;

private:
    void ComBm_Click();
    void Search_Enter();
    void CmdAdd_Click();
    void CmdModify_Click() { change(u"frmManRecord"); }
    void EditCmd_Click() { change(u"frmYgEdit"); }
    void cmdDel_Click();
    void CmdPrint_Click();
    void Tj_cmd_Click();

    QString department() const;
    void showList();
    void change(QStringView card);
    void openCard(QStringView card, const QStringList& who);

    CategoryBox* ComBm;
    QLineEdit* search_;
    GridView* YgQd;
};

} // namespace hotel
