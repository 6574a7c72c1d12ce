#include "cashier/check_out.h"

#include "house/folios/folio.h"
#include "house/guests/guest_history.h"
#include "house/stays/release.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "session/operation_log.h"
#include "tools/aids/CalcSub.h"

namespace hotel {

namespace {

Notice ChargeUndecided() {
    return {u"请正确操作"_s, u"某个或某些房间的结账房价还没有确定,费用无法结清!"_s};
}

Notice NobodyLeaves() {
    return {u"请正确操作"_s, u"没有任何房间或床位要结账!?"_s};
}

Notice PartialQuestion() {
    return {u"请确认"_s, u"只结清部分房间床位,保留其余账务,以后处理?"_s};
}

Notice NotFreed(const QStringList& rooms) {
    return {u"意外失误"_s,
            u"客房："_s + rooms.join(u',') + u" 没有处理完，请退出后重新登录，核对客房和账号！"_s};
}

// One check-out on its way: who leaves, and what there is to tell.
class Departure {
public:
    Departure(const CheckOut& checkOut, const CheckOutQuestions& questions,
              CheckOutOutcome& outcome)
        : folio_(checkOut.folio), statusAfter_(checkOut.statusAfter), questions_(questions),
          outcome_(outcome), rows_(ChosenRows(outcome.list)) {}

    bool mayBegin() {
        for (const int row : rows_) {
            if (list().text(row, kChargeColumn).isEmpty()) {
                outcome_.undecidedRow = row;
                return refuse(ChargeUndecided());
            }
        }
        return rows_.isEmpty() ? refuse(NobodyLeaves()) : true;
    }

    bool isWhole() const { return rows_.size() == list().dataRows(); }

    bool partIsMeant() const { return questions_.yes(PartialQuestion()); }

    // Other desks may have posted to the folio, or settled it, since it was shown.
    bool readSums() {
        if (!FindOpenFolio(folio_))
            return refuse(FolioNotOpen(folio_));
        const auto totals = LoadFolioTotals(folio_);
        if (!totals)
            return refuse(TotalsUnread(folio_));
        sums_ = SumsOf(list(), *totals);
        return true;
    }

    bool takePayment() {
        const auto payment = questions_.payment(sums_);
        if (!payment)
            return false;
        received_ = AmountFromCell(payment->received).orZero();
        outcome_.notices += PostSettlement(folio_, FirstGuest(list()), *payment);
        return true;
    }

    void postFinalCharges() {
        for (const int row : rows_) {
            const Money charge = ChargeOf(list(), row);
            const auto failure =
                charge == Money()
                    ? std::nullopt
                    : PostFinalCharge(folio_, {cell(row, kRoomColumn), cell(row, kGuestColumn),
                                               cell(row, kLeaveDateColumn),
                                               cell(row, kLeaveTimeColumn), charge.text()});
            if (failure)
                outcome_.notices.append(*failure);
            tellProgress();
        }
    }

    void keepGuestHistory() {
        for (const int row : rows_) {
            const QString name = cell(row, kGuestColumn);
            const QString kind = cell(row, kDocumentKindColumn);
            const QString number = cell(row, kDocumentNumberColumn);
            if (!name.isEmpty() && !kind.isEmpty() && !number.isEmpty())
                note(row, UpdateKrLsRec(name, kind, number, cell(row, kLeaveDateColumn), folio_));
            tellProgress();
        }
    }

    void releaseRooms() {
        for (const int row : rows_) {
            const Leaving leaving{folio_,
                                  cell(row, kRoomColumn),
                                  bedOf(row),
                                  cell(row, kChargeColumn),
                                  cell(row, kLeaveDateColumn),
                                  cell(row, kLeaveTimeColumn)};
            note(row, LeavesBed(list(), row) ? ReleaseBed(leaving, statusAfter_)
                                             : ReleaseRoom(leaving, statusAfter_));
            tellProgress();
        }
    }

    void takeOffFolio() {
        for (const int row : rows_) {
            const QString room = cell(row, kRoomColumn);
            note(row, LeavesBed(list(), row) ? DelKrFromJzh(folio_, room, bedOf(row))
                                             : DelRmFromJzh(folio_, room));
            tellProgress();
        }
        if (!unfreed_.isEmpty())
            outcome_.notices.append(NotFreed(unfreed_));
    }

    void retireFolio() {
        outcome_.retired = true;
        if (DelJzh(folio_) != 0)
            outcome_.notices.append(
                {u"意外失误"_s, u"结账号："_s + folio_ + u" 没有注销，请重新登录后核对！"_s});
    }

    void logWhole() const {
        SaveLogRec(folio_ + u" 结账退房"_s, u"费用:"_s + sums_.spent.text() + u", 已收:"_s +
                                                sums_.received.text() + u", 结账房费:"_s +
                                                sums_.roomCharges.text() + u", 实收:"_s +
                                                received_.text());
    }

    void logPart() const { SaveLogRec(folio_ + u" 退房"_s, u"房费:"_s + sums_.roomCharges.text()); }

private:
    const TextTable& list() const { return outcome_.list; }
    QString cell(int row, int column) const { return list().text(row, column); }
    int bedOf(int row) const { return int(LeadingNumber(cell(row, kBedColumn))); }

    bool refuse(const Notice& why) {
        outcome_.notices.append(why);
        return false;
    }

    void note(int row, int status) {
        const QString room = cell(row, kRoomColumn);
        if (status != 0 && !unfreed_.contains(room))
            unfreed_.append(room);
    }

    void tellProgress() {
        constexpr int kWalks = 4;
        questions_.progress(++done_, int(rows_.size()) * kWalks);
    }

    const QString folio_;
    const QString statusAfter_;
    const CheckOutQuestions& questions_;
    CheckOutOutcome& outcome_;
    const QList<int> rows_;
    SettlementSums sums_;
    Money received_;
    QStringList unfreed_;
    int done_ = 0;
};

} // namespace

CheckOutOutcome ConfirmCheckOut(const CheckOut& checkOut, const CheckOutQuestions& questions) {
    CheckOutOutcome outcome{.list = checkOut.list, .notices = {}};
    Departure departure(checkOut, questions, outcome);
    if (!departure.mayBegin())
        return outcome;
    const bool whole = departure.isWhole();
    if (!whole && !departure.partIsMeant())
        return outcome;
    if (!departure.readSums())
        return outcome;
    if (whole && !departure.takePayment())
        return outcome;

    departure.postFinalCharges();
    departure.keepGuestHistory();
    departure.releaseRooms();
    departure.takeOffFolio();
    RemoveChosen(outcome.list);
    if (whole)
        departure.retireFolio();
    if (whole)
        departure.logWhole();
    else
        departure.logPart();
    outcome.done = true;
    return outcome;
}

} // namespace hotel
