#pragma once

// The lines between the desks of a played house and its servers, and what happens to them: some requests are delayed,
// arrive in two pieces that part a character, break off within one, have their answer break off likewise, or find the
// connection reset. What happens to a desk's requests is drawn by its number, so that the same requests meet the same
// faults.
//
// In turn, only one desk at a time has a request under way, and which is drawn too: a house of many desks goes through
// the same interleaving of their commands each time it is played. A request is held until every desk either waits with
// one or has nothing to do; the house's clock follows the desk whose turn it is.

#include <QHostAddress>
#include <QList>
#include <QObject>
#include <QTcpServer>

#include <array>
#include <map>
#include <memory>
#include <vector>

#include "app/demo/making.h"
#include "app/week/house_clock.h"

namespace hotel {

enum class LineFault { Delayed, InPieces, RequestCut, AnswerCut, Reset };
inline constexpr int kLineFaults = 5;
QString LineFaultName(LineFault fault);

struct LineOrder {
    QList<quint16> servers; // ports; desk n speaks with server n modulo their number
    int desks = 1;
    quint64 seed = 1;
    int requestsAFault = 0; // on the average; 0: none
    bool inTurn = false;
};

class DeskConnection;

class FaultyLine : public QObject {
    Q_OBJECT

public:
    FaultyLine(const LineOrder& order, HouseClock& clock);

    quint16 portOf(int desk) const { return listeners_[size_t(desk)]->serverPort(); }

    // In turn, the desk is waited for from begin() to end().
    void begin(int desk);
    void end(int desk);

    int faults(LineFault fault) const { return faults_[size_t(fault)]; }
    qint64 requests() const { return requests_; }

private:
    friend class DeskConnection;

    void take(int desk);
    void requestWaits(DeskConnection* connection);
    void connectionGone(DeskConnection* connection);
    void giveTurn();
    void pass(DeskConnection* connection);

    LineOrder order_;
    HouseClock& clock_;
    Dice turns_;
    std::vector<Dice> dice_; // by desk
    std::vector<std::unique_ptr<QTcpServer>> listeners_;
    QList<bool> busy_;                       // has something to do, and no request that waits
    std::map<int, DeskConnection*> waiting_; // by desk
    std::array<int, kLineFaults> faults_{};
    qint64 requests_ = 0;
};

} // namespace hotel
