#pragma once

// The departments of the house. Enter in the box adds the one that is typed; a row's department goes by F7.

#include "screen/screen.h"

class QLineEdit;

namespace hotel {

class GridView;

class frmBm : public Screen {
    Q_OBJECT

public:
    frmBm();

    void load(const QVariant& argument) override;

private:
    void CmdAdd_Click();
    void cmdDel_Click();
    void refresh();

    QLineEdit* Bmmc;
    GridView* BmQd;
};

} // namespace hotel
