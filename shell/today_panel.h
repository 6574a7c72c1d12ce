#pragma once

// Today, where the main window's panels are when no group is open: the house as a bar of its statuses, and the lists
// of the day (house/stays/today.h). It shows what it is given; a user without any of the rights is only greeted.
//
// From the keyboard: Tab from list to list, arrows in a list, Enter on a line.

#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

#include "shell/today_ways.h"

class QGridLayout;
class QLabel;

namespace hotel {

class GridView;

// The rooms by status, side by side in the colours of the board.
class HouseBar : public QWidget {
public:
    explicit HouseBar(QWidget* parent = nullptr);
    void setShares(const QList<StatusShare>& shares);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QList<StatusShare> shares_;
};

class TodayPanel : public QWidget {
    Q_OBJECT

public:
    TodayPanel();

    void greet(const QString& user);
    // `checking`: the day's sheet is being made for what has none; else somebody has to ask for it.
    void showDay(const Today& today, Money limit, bool checking);

    // The list that the keyboard begins with: the first one with a line. Null when there is none.
    GridView* firstList() const;

Q_SIGNALS:
    void chosen(TodayKind kind, const QStringList& cells); // a line, by Enter or a double click

private:
    struct Section {
        TodayKind kind;
        QString title;
        QStringView names; // the column that takes the width
        QWidget* frame;
        QLabel* heading;
        GridView* list;
    };

    Section makeSection(TodayKind kind, const QString& title, const QString& name,
                        QStringView names);
    QWidget* makeHouse();
    QWidget* makeHouseLists();
    void connectList(GridView* list, TodayKind kind);
    void showHouse(const std::optional<HouseToday>& house);
    void showList(const Section& section, const std::optional<TodayList>& list,
                  const QString& remark, bool checking);
    void placeSections();

    QLabel* greeting_;
    QLabel* hint_;
    QLabel* readAt_;
    QWidget* house_;
    QWidget* houseLists_;
    QLabel* houseHeading_;
    QLabel* houseFigures_;
    HouseBar* bar_;
    GridView* statuses_;
    GridView* freeRooms_;
    QGridLayout* places_;
    QList<Section> sections_;
};

} // namespace hotel
