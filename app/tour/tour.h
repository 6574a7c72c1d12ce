#pragma once

// The tour: the real client driven through a hotel's day against a real server, without a display. It
// leaves a picture of every screen and ends at the first step that does not come out as it should.

#include <memory>
#include <stdexcept>

#include <QString>
#include <QWidget>

#include "app/workstation.h"
#include "screen/messages.h"

namespace hotel {

class TourFailure : public std::runtime_error {
public:
    explicit TourFailure(const QString& words) : std::runtime_error(words.toStdString()) {}
};

class Tour {
public:
    Tour(QApplication& application, const QString& configuration, const QString& pictureFolder);

    // A fresh workstation at its login screen, with the user list filled.
    void start();
    // Types name and password and logs in; the main window then stands.
    void logIn(const QString& user, const QString& password);
    // Leaves by the main window's exit.
    void leave();

    loginfrm& login() { return workstation_->login(); }
    mainfrm& mainWindow() { return *workstation_->login().mainWindow(); }
    LinkWindow& linkWindow() { return workstation_->linkWindow(); }

    // Presses the button of that object name inside `window`.
    void press(QWidget& window, const QString& button);
    // Types into the field of that object name, key by key.
    void type(QWidget& window, const QString& field, const QString& text);
    // Chooses an entry of the drop-down of that object name.
    void choose(QWidget& window, const QString& box, const QString& entry);
    // A picture of the window, numbered in the order taken: 07-<name>.png.
    void picture(QWidget& window, const QString& name);

    // A key on whatever has the focus in the window.
    void key(QWidget& window, Qt::Key key);

    // Prints what the preview shows into <name>.pdf beside the pictures.
    void printToPdf(Screen& preview, const QString& name);

    // The open screen of that name; fails when it isn't there.
    Screen& opened(const QString& name);
    // Has `answer` run as soon as a question of that name is on display; the step that follows asks it.
    void answering(const QString& name, const std::function<void(Screen&)>& answer);

    // Lets events run until the condition holds; fails with the words after ten seconds.
    void waitFor(const std::function<bool()>& condition, const QString& words);
    void expect(bool condition, const QString& words);

    // Answers the questions of the steps, and keeps what was said.
    MessageRecorder& messages() { return messages_; }

    int pictures() const { return pictures_; }
    const QString& folder() const { return folder_; } // of the pictures

private:
    QApplication& application_;
    QString configuration_;
    QString folder_;
    int pictures_ = 0;
    MessageRecorder messages_;
    std::unique_ptr<Workstation> workstation_;
};

// The chapters, in the order of the day.
void TourOfLogin(Tour& tour);
void TourOfUsers(Tour& tour);
void TourOfRooms(Tour& tour);
void TourOfParties(Tour& tour);
void TourOfPlans(Tour& tour);
void TourOfRoomChange(Tour& tour);
void TourOfBoard(Tour& tour);
void TourOfFolio(Tour& tour);
void TourOfNightAudit(Tour& tour);
void TourOfCheckOut(Tour& tour);
void TourOfToday(Tour& tour);
void TourOfCharges(Tour& tour);
void TourOfStaff(Tour& tour);
void TourOfReports(Tour& tour);
void TourOfTelephone(Tour& tour);
void TourOfCategories(Tour& tour);
void TourOfInquiries(Tour& tour);
void TourOfAttendance(Tour& tour);

} // namespace hotel
