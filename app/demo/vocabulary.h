#pragma once

// Of what the guests of the weeks gone by are made: names, places, employers, what they consume. All invented.

#include <QList>
#include <QString>
#include <QStringView>

#include "app/demo/parties.h"
#include "house/folios/posting_kinds.h"

namespace hotel {

// The characters of names.
struct NameCharacters {
    QStringView surnames;
    QStringView maleFirst;
    QStringView maleSecond;
    QStringView femaleFirst;
    QStringView femaleSecond;
};
const NameCharacters& DemoNames();

// Where guests are registered: the area code of their identity card, and the town as on the list of towns.
struct DemoTown {
    QStringView code;
    QStringView name;
};
const QList<DemoTown>& DemoTowns();

struct DemoForeigner {
    QStringView name;
    QStringView sex;
    QStringView country;
};
const QList<DemoForeigner>& DemoForeigners();

const QList<QStringView>& DemoEmployers();

// Companies that sign for their guests, by what they send.
enum class Sends { Guests, TourGroups, Conferences };
struct SigningCompany {
    Sends sends;
    DemoCompany company;
};
const QList<SigningCompany>& SigningCompanies();

// What is put on a room: its fields without the amounts, which are reckoned.
struct DemoArticle {
    PostingKind kind;
    int weight;
    QStringView name;   // 费用名称 or 服务类别
    QStringView detail; // 结算地点 or 服务明细
    QStringView unit;
    int most;      // pieces or minutes
    int leastYuan; // price of one; of a telephone call in tenths
    int mostYuan;
};
const QList<DemoArticle>& DemoArticles();

// Those who come by a kind of stay, and how.
struct DemoCustom {
    QStringView status;
    QStringView rate;
    int weight;        // from Sunday to Thursday
    int weekendWeight; // on Friday and Saturday
    int leastRooms;
    int mostRooms;
    int leastNights;
    int mostNights;
    int leastGuests; // a room
    int mostGuests;
    QList<QStringView> reasons;
    bool employed = false;
    bool signs = false;
    Sends sends = Sends::Guests;
    QStringView price = {};
};
const QList<DemoCustom>& DemoCustoms();

} // namespace hotel
