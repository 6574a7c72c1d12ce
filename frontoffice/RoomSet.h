#pragma once

// The rooms of the house (客房基本信息管理): adding, changing and deleting them, their pictures, and the
// list on paper and as a file.

#include "screen/screen.h"

class QLineEdit;

namespace hotel {

class FieldForm;
class GridView;
class PhotoFrame;
struct RoomEditOutcome;

class RoomSet : public Screen {
    Q_OBJECT

public:
    RoomSet();

    void load(const QVariant& argument) override;

private:
    void KfQd_RowChange(int row); // the boxes follow the row
    void KfQd_Click(int row);     // and its picture is fetched
    void ZpCmd_Click();
    void CmdAdd_Click();
    void CmdModify_Click();
    void cmdDel_Click();
    void CmdPrint_Click();
    void CmdFile_Click();

    QString selectedRoom() const; // empty: none
    int rowOf(QStringView room) const;
    QString trimmedBoxes(); // as record text; what is shown is trimmed, too
    void showOutcome(const RoomEditOutcome& outcome, const QString& room);
    void showRoom(const QString& room); // as the server has it now
    void showCount();

    GridView* KfQd;
    FieldForm* boxes_;
    QLineEdit* Zp; // a picture of this workstation, to go with the room
    PhotoFrame* photo_;
};

} // namespace hotel
