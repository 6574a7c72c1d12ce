#pragma once

// The main window: ten-fold menu of the house, a panel of entries for each group, what the user has no
// right to disabled. A function key opens a group, the digit on an entry opens it.
//
// Where no group is open stands the day (shell/today_panel.h): read when the window comes up, when the user has
// logged in again, with a new day, and on F5. What needs the day's sheet (house/stays/today_sheet.h) and finds none
// has it made in the background, a few records at a time; F12 has it made anew.

#include <QHash>

#include <optional>

#include "house/stays/today.h"
#include "house/stays/today_sheet.h"
#include "screen/screen.h"
#include "shell/relogin.h"
#include "shell/today_ways.h"

class QLabel;
class QPushButton;
class QStackedWidget;
class QTimer;

namespace hotel {

class TodayPanel;
class loginfrm;
struct MenuEntry;
struct MenuGroup;

class mainfrm : public Screen {
    Q_OBJECT

public:
    // Reads the rights of the current session, now and after each login that was renewed. `login`
    // outlives the window.
    explicit mainfrm(loginfrm& login);

    // Hides all panels and the welcome panel.
    void FuWei();

protected:
    bool closing() override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeHeader();
    QWidget* makeGroups();
    QWidget* makePanel(const MenuGroup& group);
    QPushButton* makeEntry(const MenuEntry& entry, int number);
    void openGroup(const MenuGroup& group);
    void openEntry(const MenuEntry& entry);
    void openScreen(const MenuEntry& entry, QStringView screen, const QString& argument);
    void showUser();
    void showRelogin();
    void showTime();
    void showServer();

    void Today_Click();
    void Check_Click();
    void Limit_Click();
    void openLine(TodayKind kind, const QStringList& cells);
    void readToday();
    void readTodaySoon() { todayIsOld_ = true; }
    void startChecking(const QList<SheetPart>& parts);
    void goOnChecking();
    void showHotelName();

    loginfrm& login_;
    Relogin relogin_{*this};
    QLabel* Bgmc_ = nullptr;
    QLabel* user_ = nullptr;
    QLabel* time_ = nullptr;
    QStackedWidget* panels_ = nullptr;
    TodayPanel* welcome_ = nullptr;
    QHash<QStringView, QWidget*> panelOfGroup_;

    Today today_;
    Money limit_;            // of the balances that are listed
    bool todayIsOld_ = true; // to be read as soon as nothing else runs
    QList<SheetPart> toCheck_;
    std::optional<SheetWalk> walk_; // of the first of them
    QTimer* checking_ = nullptr;
};

// Removes the pictures that the photograph screens have downloaded: *.JPG, *.GIF, *.bmp in any case.
void RemoveTemporaryPictures(const QString& folder);

} // namespace hotel
