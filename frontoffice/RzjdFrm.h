#pragma once

// Check-in (客人入住登记): the rooms of a party are chosen, its guests typed on the guest form, and all of
// it confirmed in one act. Nothing reaches the server before that.
//
// From the keyboard: room numbers are typed into the box above the lists ("8301", "8301 8305",
// "8301-8312"), Enter chooses them; Enter in the empty box opens the guest form; behind it Enter
// confirms.

#include <QString>

#include "screen/screen.h"

class QLabel;
class QLineEdit;
class QTimer;

namespace hotel {

class CheckList;
class GridView;
class PhotoFrame;

class RzjdFrm : public Screen {
    Q_OBJECT

public:
    RzjdFrm();

    // Reads rooms and rates. Rooms that are chosen already, and their guests, are left as they are.
    void load(const QVariant& argument) override;

protected:
    bool closing() override;

private:
    void RoomBox_Enter();
    void DownCmd_Click();
    void UpCmd_Click();
    void FreshCmd_Click();
    void DjCmd_Click();
    void QrCmd_Click();
    void DyCmd_Click();
    void Kxkfqd_Click(); // the room's picture

    void fresh();
    void loadOffered();
    void moveRows(GridView* from, GridView* to, const QStringList& rooms);
    void showCounts();
    void refuseFullRoom(const QString& room);
    bool maySetAside(const QString& words); // what has been typed; asks when there is something

    QString workingSet_;

    QLineEdit* roomBox_;
    GridView* Kxkfqd; // offered rooms
    GridView* Yxkfqd; // chosen rooms
    QLabel* Kxnum;
    QLabel* Yxnum;
    CheckList* Ftys; // statuses that are let through
    PhotoFrame* photo_;
    QTimer* photoSoon_;
};

} // namespace hotel
