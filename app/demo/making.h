#pragma once

// What the makers of the weeks gone by (weeks.h) share: the dice, the words that their tables look at, a stay
// that is being made up.

#include <QDateTime>
#include <QString>
#include <QStringView>

#include <algorithm>
#include <deque>
#include <random>

#include "app/demo/parties.h"
#include "app/demo/vocabulary.h"
#include "record/literals.h"

namespace hotel {

class Dice {
public:
    explicit Dice(quint64 seed) : engine_(seed) {}

    // 0 to n - 1. The library's own distributions differ from one to the next.
    int below(int n) { return int(engine_() % quint64(std::max(n, 1))); }
    int between(int least, int most) { return least + below(most - least + 1); }
    bool chance(int percent) { return below(100) < percent; }

    template<class List>
    auto pick(const List& list) {
        return list[below(int(list.size()))];
    }

    // An entry by its weight.
    template<class List, class Weight>
    const auto& weigh(const List& list, Weight weight) {
        int sum = 0;
        for (const auto& entry : list)
            sum += weight(entry);
        int left = below(sum);
        auto entry = list.begin();
        while (left >= weight(*entry))
            left -= weight(*entry++);
        return *entry;
    }

private:
    std::mt19937_64 engine_;
};

// The views that tables are made of look at these, which stay where they are.
class DemoWords {
public:
    QStringView keep(const QString& word) { return words_.emplace_back(word); }
    QStringView yuan(int amount) { return keep(QString::number(amount) + u".00"_s); }
    QStringView tenths(int amount) { return keep(u"%1.%20"_s.arg(amount / 10).arg(amount % 10)); }
    DemoMoment moment(const QDateTime& at, QDate openingDay) {
        return DaysAgo(int(at.date().daysTo(openingDay)), keep(at.toString(u"HH:mm")));
    }

private:
    std::deque<QString> words_;
};

struct DemoStay {
    const DemoCustom* custom;
    QDateTime arrives;
    QDateTime leaves;
    DemoParty party;

    int nights() const { return int(arrives.date().daysTo(leaves.date())); }
    bool isSentBy(Sends sends) const { return custom->signs && custom->sends == sends; }
};

} // namespace hotel
