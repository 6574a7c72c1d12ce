#pragma once

// The main window: ten-fold menu of the house, a panel of entries for each group, what the user has no
// right to disabled. F1 to F9 open a group, the digit on an entry opens it.

#include <QHash>

#include "screen/screen.h"
#include "shell/relogin.h"

class QLabel;
class QPushButton;
class QStackedWidget;

namespace hotel {

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

private:
    QWidget* makeHeader();
    QWidget* makeGroups();
    QWidget* makeWelcome();
    QWidget* makePanel(const MenuGroup& group);
    QPushButton* makeEntry(const MenuEntry& entry, int number);
    void openGroup(const MenuGroup& group);
    void openEntry(const MenuEntry& entry);
    void showUser();
    void showRelogin();
    void showTime();
    void showHotelName();

    loginfrm& login_;
    Relogin relogin_{*this};
    QLabel* Bgmc_ = nullptr;
    QLabel* user_ = nullptr;
    QLabel* time_ = nullptr;
    QStackedWidget* panels_ = nullptr;
    QWidget* welcome_ = nullptr;
    QHash<QStringView, QWidget*> panelOfGroup_;
};

// Removes the pictures that the photograph screens have downloaded: *.JPG, *.GIF, *.bmp in any case.
void RemoveTemporaryPictures(const QString& folder);

} // namespace hotel
