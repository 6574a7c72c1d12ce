#pragma once

// The twelve places of the statuses beside the board. Each has a block in the status's colour with its
// key (Alt and a key of the upper row), a label with its word, and a box: whether the map shows it.
//
//     Fttl01   block      Ftlb01   label      Ftxz01   box      and so on to 12

#include <QList>
#include <QWidget>

#include <array>

#include "house/stays/board.h"

class QCheckBox;

namespace hotel {

class ColourButton;

class StatusPlacePanel : public QWidget {
    Q_OBJECT

public:
    explicit StatusPlacePanel(QWidget* parent = nullptr);

    // A place without a status is hidden.
    void setPlaces(const StatusPlaces& places);

    // The boxes by place, of hidden places, too.
    QList<bool> ticks() const;
    void setTicks(const QList<bool>& ticks);

Q_SIGNALS:
    void chosen(int place); // counted from 0: a click on block or label, or the place's key
    void ticked();          // the user has turned a box

private:
    struct Place {
        ColourButton* Fttl;
        ColourButton* Ftlb;
        QCheckBox* Ftxz;
        QWidget* row;
    };
    Place makePlace(int index);

    std::array<Place, kStatusPlaces> places_;
};

} // namespace hotel
