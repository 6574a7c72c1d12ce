#pragma once

#include <memory>

#include <QObject>

namespace hotel {
class TestHotel;
}

// Login screen and main window through their own controls, against a real server.
class TestLogin : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void userListIsFilledAndTypedInCapitals();
    void outcomes_data();
    void outcomes();
    void refusedPasswordIsSelectedForTyping();
    void mainWindowShowsTheUsersRights_data();
    void mainWindowShowsTheUsersRights();
    void entriesWriteTheOperationLog();
    void leavingIsLoggedAndPicturesAreRemoved();
    void dateOfAnotherDayIsNotedInTheLog();
    void workstationFollowsTheServersClock();
    void serverThatComesLaterFillsTheList();
    void serverLostWhileLoggedIn();

private:
    std::unique_ptr<hotel::TestHotel> hotel_;
};
