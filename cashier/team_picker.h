#pragma once

// Asks which of several companies is meant: Enter takes the one on the bar, Esc none.

#include <QString>

#include <optional>

#include "record/text_table.h"
#include "screen/screen.h"

namespace hotel {

class GridView;

class TeamPicker : public Screen {
    Q_OBJECT

public:
    explicit TeamPicker(const TextTable& teams);

    // A field of the chosen company.
    QString field(QStringView title) const;

private:
    GridView* list_;
};

} // namespace hotel
