#pragma once

// The guests of the weeks gone by: a name, a document that could be his, a job. Some have been here before.

#include <QDate>
#include <QList>
#include <QString>

#include <optional>
#include <utility>

#include "app/demo/making.h"

namespace hotel {

class GuestMaker {
public:
    // Who is how old is reckoned on `today`.
    GuestMaker(Dice& dice, DemoWords& words, QDate today)
        : dice_(dice), words_(words), today_(today) {}

    // So many guests of a room: couples and their children, groups, somebody alone.
    QList<DemoGuest> of(const DemoStay& stay, const DemoTown& town, int number);

private:
    DemoGuest resident(QChar surname, bool woman, int age, const DemoTown& town);
    QString identityNumber(QStringView area, bool woman, int age);
    DemoGuest foreigner();
    std::optional<DemoGuest> regular(const DemoStay& stay);

    Dice& dice_;
    DemoWords& words_;
    QDate today_;
    QList<std::pair<DemoGuest, QDateTime>> regulars_; // and until when they were here
};

} // namespace hotel
