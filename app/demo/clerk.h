#pragma once

// The hands of the demo hotel's staff: what they do at their screens, step by step by the same acts. Whoever is
// logged in on the current link does it. A step that doesn't come out ends what is being done with a DemoFailure; what
// was written until then stays.

#include <QDate>
#include <QHash>
#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>

#include "app/demo/consumption.h"
#include "app/demo/parties.h"
#include "cashier/settlement_list.h"
#include "house/folios/folio_posting.h"
#include "house/guests/working_set.h"

namespace hotel {

struct Payment;

// What is typed for a posting, by the tags under which it is written.
using TypedPosting = QMap<QStringView, QString>;

// A posting as it stands in the folio's ledger.
struct EnteredPosting {
    QString folio;
    PostingKind kind;
    QString key;
};

// A party has come in.
struct ArrivedParty {
    QString folio; // of the first guest
    QString workingSet;
};

class Clerk {
public:
    // Tables tell their days from `openingDay`. `goOn` lets the seconds pass that something takes to be typed.
    Clerk(QDate openingDay, std::function<void(int seconds)> goOn)
        : openingDay_(openingDay), goOn_(std::move(goOn)) {}

    // Told of each posting ahead of its writing.
    std::function<void(const QString& folio, PostingKind kind, const QString& record)> onPosting;

    ArrivedParty checkIn(const DemoParty& party);
    void setStatus(const DemoStatusChange& change);
    void auditNight();
    void keepFigures(QDate day);
    EnteredPosting post(const DemoPosting& posting);
    void takeBack(const EnteredPosting& posting);
    // Gives the list of who might have left, as it was settled.
    TextTable checkOut(const DemoDeparture& departure);
    void enter(const DemoCompany& company);

private:
    QString picked(QStringView word, QStringView category);
    QList<ChosenRoom> choose(const DemoParty& party) const;
    QString newForm(const DemoParty& party);
    QString typed(QString form, const DemoGuest& guest);
    QString priced(const QString& form, const DemoParty& party) const;
    QString typedSet(const DemoParty& party, const QList<ChosenRoom>& rooms);
    void takeDeposit(const DemoParty& party, const QString& folio);
    EnteredPosting postTyped(const QString& folio, PostingKind kind, const TypedPosting& typed);
    Payment paymentOf(const DemoDeparture& departure, const SettlementSums& sums);

    QDate openingDay_;
    std::function<void(int seconds)> goOn_;
    QHash<QString, QStringList> categories_; // nobody changes them while the guests come and go
};

} // namespace hotel
