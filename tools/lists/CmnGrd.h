#pragma once

// The list screen (参考清单), on which every result is looked at: a query, a report, a category. It
// shows the columns the user picks, in the order he drags them to, gives running statistics of the
// column or block that is selected, prints, and saves as a text file. Pictures of its figures stand below it.
//
//     auto* list = new CmnGrd(u"系统登录操作信息明细"_s, columns);
//     ShowScreen(list);
//     ... fill list->Grd() ...
//     list->setTask(GridTask::Check);
//
// Screens that fill it in the course of a walk hold a Screen::Running on it meanwhile (see
// query_walk.h); closing it then only stops the walk.

#include <QPointer>

#include "screen/screen.h"
#include "tools/lists/list_print.h"
#include "tools/lists/list_statistics.h"

class QLabel;
class QListWidget;
class QListWidgetItem;
class QStackedWidget;

namespace hotel {

class ChartBox;
class FieldForm;
class GridView;

// What the screen's timer does next.
enum class GridTask {
    None,
    Fresh, // show the list anew, in the checked columns
    Check, // the list was filled from outside: make the column lists anew, and show it
    Wait,  // a walk is filling the list: keep it hidden, show its numbers of columns and rows
    Show,  // as Fresh
    Abort, // the user has stopped the walk
};

class CmnGrd : public Screen {
    Q_OBJECT

public:
    explicit CmnGrd(const QString& title, const QStringList& columns = {});

    // The list as its caller fills it; what is shown is a copy of the checked columns. Rows of the two
    // are the same rows: sorting what is shown sorts this as well.
    TextTable& Grd() { return Grd_; }
    const TextTable& Grd() const { return Grd_; }

    // Pictures made from the rows, shown below the list and printed with it; those that have nothing to compare
    // are left out.
    void setCharts(const QList<Chart>& charts);

    // The list as it is shown. Column 0 counts the rows.
    GridView* GrdView() const { return GrdView_; }

    void setTask(GridTask task);
    GridTask task() const { return task_; }

    // --- for walks, while they hold a Screen::Running ---

    // A screen whose handler the walk is part of: when that is to stop, the walk stops.
    void stopWith(Screen* asker) { asker_ = asker; }

    // Which of several files is being searched.
    void setWalkPart(int part, int parts);

    // Shows how far the walk has come, lets events through, and tells whether it may go on.
    bool walkGoesOn(int done, int total);

private:
    QWidget* makeColumnsPage();
    QWidget* makeSettingsPage();
    void makeShortcuts();

    void Timer1_Timer();
    void SelList_ItemCheck();
    void AligList_Click(QListWidgetItem* item);
    void GrdView_Sorted(const QList<int>& cameFrom);
    void Print_cmd_Click();
    void FileSave_Click();
    void CmdStop_Click();
    void PanelCmd_Click();
    void ChartSave_Click();

    void rebuildColumnLists();
    void showColumns();
    void showAlignments();
    void foldPanelForList();
    void showStatistics();
    void showWalk(int done, int total);
    void moveColumn(int step);
    QList<int> shownColumns() const; // of Grd, in the order shown
    QString alignmentMark(int column) const;
    CellBlock selectedBlock() const;
    ListPrintSettings printSettings() const;

    TextTable Grd_;
    GridTask task_ = GridTask::None;
    QStackedWidget* pages_;
    GridView* GrdView_;
    QListWidget* SelList_;
    QListWidget* AligList_;
    GridView* StatusGrd_;
    ChartBox* charts_;
    QWidget* panel_;      // columns, statistics, print settings
    FieldForm* heading_;  // bt, SepFlg
    FieldForm* settings_; // the print settings
    FieldForm* pageTexts_;
    QLabel* busy_; // takes the list's place during a walk

    CellBlock shownBlock_;
    QPointer<Screen> asker_;
    int walkPart_ = 0;
    int walkParts_ = 0;
    QElapsedTimer sinceShown_;
};

} // namespace hotel
