#pragma once

// Room change (客人换房): the guests' room, the new room and the reason are chosen, the guests looked through on the
// guest form, and the move confirmed in one act (house/stays/room_change.h). Nothing reaches the server before that.
//
// From the keyboard: old room, Enter, new room, Enter, reason, Enter opens the guest form; behind it Enter confirms.

#include <QString>

#include "house/stays/room_change.h"
#include "screen/screen.h"

namespace hotel {

class CheckList;
class FieldForm;
class GridView;

class KrhfFrm : public Screen {
    Q_OBJECT

public:
    KrhfFrm();

    // Reads the rooms. A move that is being prepared is left as it is.
    void load(const QVariant& argument) override;

protected:
    bool closing() override;

private:
    void XgCmd_Click();
    void QrCmd_Click();
    void DyCmd_Click();
    void FreshCmd_Click();
    void Yfjh_Leave();
    void Xfjh_Leave();

    void loadRooms();
    void fresh();
    void takeRoom(QStringView box, const GridView* list); // the row that stands in the list
    bool isListed(QStringView box, const GridView* list) const;
    RoomChange change() const;
    void dropOutdated();
    void showStatus();

    QString workingSet_; // prepared, not yet confirmed
    RoomChange prepared_;
    QString printedSet_; // of the last move, prepared or confirmed
    RoomChange printed_;

    FieldForm* boxes_;
    GridView* KrfjQd; // rooms with guests
    GridView* Kxkfqd; // free rooms
    CheckList* Khft;  // statuses of the one
    CheckList* Kxft;  // and of the other
};

} // namespace hotel
