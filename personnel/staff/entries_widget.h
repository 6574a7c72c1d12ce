#pragma once

// A repeating list of an employee on the screen: its entries, and the panel in which one is typed. The commands
// are its screen's.

#include <QWidget>

#include "personnel/staff/employee_fields.h"

namespace hotel {

class GridView;

class EntriesWidget : public QWidget {
    Q_OBJECT

public:
    explicit EntriesWidget(const EntriesPage& page, QWidget* parent = nullptr);

    const EntriesPage& page() const { return page_; }
    GridView* list() const { return list_; }
    FieldForm* form() const { return form_; }

    // The commands of the list, below its panel.
    void setCommands(QWidget* commands);

    const QStringList& entries() const { return entries_; }
    void setEntries(const QStringList& entries);

    // What is typed in the panel, over what the entry held besides (a new one: nothing).
    QString typed(qsizetype place) const;

    // The entry of the current row, counted from 0; -1 when there is none.
    qsizetype chosen() const;

    // Each shows the list as it stands then. Behind the last place an entry is added, and the panel made ready
    // for the next one.
    void put(qsizetype place, const QString& entry);
    void removeLast();

    void startEntry();

private:
    void showEntries();
    void showChosen();

    const EntriesPage& page_;
    GridView* list_;
    FieldForm* form_;
    QStringList entries_;
};

} // namespace hotel
