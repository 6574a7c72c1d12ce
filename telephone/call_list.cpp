#include "telephone/call_list.h"

#include "screen/grid_view.h"
#include "telephone/call_record.h"
#include "telephone/extensions.h"

namespace hotel {

void SetUpCallList(GridView& grid) {
    grid.table().setHeaders(CallColumns());
    for (int column = 0; column < grid.table().cols(); ++column) {
        if (IsAmountColumn(grid.table().headers()[column]))
            grid.setColumnAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    }
    grid.setSelect(GridView::Select::Rows);
    grid.refresh();
    grid.autoFit();
}

bool IsAmountColumn(QStringView header) {
    return IsCallAmount(header) || IsExtensionAmount(header) || header == u"费率";
}

} // namespace hotel
