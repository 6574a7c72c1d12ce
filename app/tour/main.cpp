#include <cstdio>

#include <QApplication>
#include <QFileInfo>

#include "app/tour/tour.h"
#include "record/literals.h"

// tour Hotel.Cfg FOLDER: drives the client against the server that the configuration names.
int main(int argc, char** argv) {
    using namespace hotel;
    QApplication application(argc, argv);
    if (argc != 3) {
        std::fputs("usage: tour CONFIGURATION PICTURE-FOLDER\n", stderr);
        return 2;
    }
    try {
        Tour tour(application, QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]));
        TourOfLogin(tour);
        TourOfUsers(tour);
        TourOfRooms(tour);
        TourOfParties(tour);
        TourOfPlans(tour);
        TourOfRoomChange(tour);
        TourOfBoard(tour);
        TourOfToday(tour);
        TourOfFolio(tour);
        TourOfCharges(tour);
        TourOfTelephone(tour);
        TourOfNightAudit(tour);
        TourOfCheckOut(tour);
        TourOfStaff(tour);
        TourOfReports(tour);
        TourOfCategories(tour);
        TourOfInquiries(tour);
        TourOfAttendance(tour);
        std::printf("%d pictures in %s\n", tour.pictures(), argv[2]);
    } catch (const TourFailure& failure) {
        std::fprintf(stderr, "tour: %s\n", failure.what());
        return 1;
    }
    return 0;
}
