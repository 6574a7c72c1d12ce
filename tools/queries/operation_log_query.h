#pragma once

// The query of the operation log (main menu: 操作记录): who did what and when, day file by day file.

class QWidget;

namespace hotel {

// Asks, searches and shows, as part of a handler of `parent`'s screen.
void OpenOperationLogQuery(QWidget* parent);

} // namespace hotel
