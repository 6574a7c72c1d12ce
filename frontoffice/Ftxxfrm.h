#pragma once

// The room status board: the house as a map and as a list, counted by status, floor and type, and the
// place where a status is set by hand. A snapshot: only the refresh reads the house again, and only it
// counts and takes up what is ticked. What a user has ticked is kept for him when the board closes.

#include "house/stays/board.h"
#include "screen/screen.h"

class QTabWidget;

namespace hotel {

class CheckList;
class GridView;
class RoomMap;
class StatusPlacePanel;

class Ftxxfrm : public Screen {
    Q_OBJECT

public:
    Ftxxfrm();

    void load(const QVariant& argument) override;

protected:
    bool closing() override;

private:
    QWidget* makeBoard();
    QWidget* makeSide();
    GridView* makeCounts(const QString& name);

    void FreshCmd_Click();
    void Place_Click(int place);
    void KfxxCmd_Click();
    void TabCmd_Click();
    void PrtCmd_Click();
    void SaveCmd_Click();
    void Tick_Change();
    void Room_Change(); // another room is selected

    void readSettings();
    void saveSettings();
    void showList(const TextTable& list);
    QList<Notice> count(); // what could not be counted

    BoardFilter filter() const;
    QString selectedRoom() const; // of the active tab; empty: none
    QString roomOfList() const;
    int listRow(QStringView room) const;
    QString wordsOf(int row) const; // what the list says of a room
    void selectInList(QStringView room);
    const StatusPlace* placeOf(const QString& status) const;
    QString title() const;

    QTabWidget* tabs_;
    RoomMap* KfztTb;
    GridView* KfztQd;
    StatusPlacePanel* statuses_;
    GridView* FttjQd;
    GridView* LctjQd;
    GridView* FxtjQd;
    CheckList* Xslc;
    CheckList* Xsfx;

    StatusPlaces places_;
    BoardCounts counts_;
    bool settingsRead_ = false;
};

} // namespace hotel
