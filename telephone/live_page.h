#pragma once

// The page of the desk on which calls come in: the day that is looked at, the limits of what is shown, the list.

#include <QWidget>

#include "telephone/call_search.h"

namespace hotel {

class FieldForm;
class GridView;

class LivePage : public QWidget {
    Q_OBJECT

public:
    explicit LivePage(QWidget* parent = nullptr);

    GridView* list() const { return LjjfQd; }

    // BillDate, the day whose file is looked at; not valid while nonsense stands in the box.
    QDate day() const;
    void setDay(QDate day);
    // A day that is being typed must not be looked at.
    bool isDayTyped() const;

    bool isBeeping() const; // BeepOff is off

    CallLimits limits() const;
    // Appends a call, so many digits of its number at most.
    void append(const QString& name, const QString& record, int digits);
    // Behind a round: the list at its end, its columns as wide as it takes.
    void showEnd();
    void clear();

    void setCommands(QWidget* commands);

private:
    FieldForm* form_;
    GridView* LjjfQd;
};

} // namespace hotel
