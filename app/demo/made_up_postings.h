#pragma once

// What the guests of the weeks gone by had put on their rooms, and what they paid in between.

#include <QDate>
#include <QList>

#include "app/demo/consumption.h"
#include "app/demo/making.h"

namespace hotel {

class PostingMaker {
public:
    PostingMaker(Dice& dice, DemoWords& words, QDate openingDay)
        : dice_(dice), words_(words), openingDay_(openingDay) {}

    QList<DemoPosting> of(const DemoStay& stay);

    // Something that is put on one room of the party.
    DemoPosting one(const DemoStay& stay, int room, const QDateTime& at);

private:
    struct Drawn {
        const DemoArticle* article;
        int number;
        int price;
    };
    Drawn draw();
    void postTo(const DemoStay& stay, int room, QDate day);
    QDateTime mealtime(const DemoStay& stay, QDate day);
    DemoPosting posting(const DemoStay& stay, int room, const QDateTime& at,
                        const DemoArticle& article, int number, int price, QStringView note = {});
    void dinnerFor(const DemoStay& stay, QDate day);
    void payMore(const DemoStay& stay);

    Dice& dice_;
    DemoWords& words_;
    QDate openingDay_;
    QList<DemoPosting> made_;
};

} // namespace hotel
