#pragma once

// The lists of the desk: amounts to the right, on the screen and on paper.

#include <QString>
#include <QStringView>

namespace hotel {

class GridView;

// The columns of a list of calls (call_record.h).
void SetUpCallList(GridView& grid);

bool IsAmountColumn(QStringView header);

} // namespace hotel
