#pragma once

// The screen on which staff keep the category lists (分类定义信息管理).

#include "screen/grid_view.h"
#include "screen/screen.h"

class QComboBox;

namespace hotel {

// Whether rows may be added to and deleted from a category. Those of the room states and of the kinds
// of guarantee can be changed in their words only: the program relies on their number.
bool CategoryMayGrow(QStringView category);

// Where Enter goes from a cell of the list: the next column; behind the last one the first column of
// the next row; behind the last row it stays there. From rows that are not filled in yet it goes up
// to the last one that is.
GridCell NextCategoryCell(const TextTable& table, GridCell from);

class FlmcFrm : public Screen {
    Q_OBJECT

public:
    FlmcFrm();

    void load(const QVariant& argument) override;

protected:
    bool closing() override;

private:
    void FlmcQd_Click();
    void CmdAdd_Click();
    void cmdDel_Click();
    void CmdSave_Click();
    void CmdPrint_Click();
    void CmdFile_Click();
    void Timer1_Timer();

    void showRows(const TextTable& table);
    bool save(const QString& text);
    bool saveShown(); // and tells how it went
    bool hasUnsavedRows() const;
    bool offerToSave(); // false: they were to be saved and could not be

    QComboBox* FlmcQd;
    GridView* FlxxQd;
    QString shown_; // the category in the list
};

} // namespace hotel
