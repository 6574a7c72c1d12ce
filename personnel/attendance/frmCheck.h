#pragma once

// The analysis of a day's attendance (考勤修订), in the order of its commands: check the punches, make the absences,
// compute the statistics, save them. In between the clerk corrects: a punch's state, shift and note, or takes it
// out; an absence that has a reason. What the steps do is told in day_check.h, day_absences.h and
// day_statistics.h.

#include <QSet>

#include "personnel/attendance/day_absences.h"
#include "personnel/attendance/day_lists.h"
#include "screen/screen.h"

class QTabWidget;

namespace hotel {

class FieldForm;
class GridView;

class frmCheck : public Screen {
    Q_OBJECT

public:
    frmCheck();

    // The argument is the day, "yyyy-MM-dd"; none: today.
    void load(const QVariant& argument) override;

private:
    // A list of the day as a tab shows it.
    struct Page {
        QString caption;
        QString title; // printed above it
        TextTable AttendanceDay::*list;
        GridView* grid;
        bool lastHidden; // the last column is none of the list's own
    };

    QWidget* makePunchPage();
    QWidget* makeAbsencePage();
    QWidget* makeSettingsPage();

    void Dqrq_Change();
    void AutoChk_Click();
    void MakeQq_Click();
    void FreshTj_Click();
    void SaveTj_Click();
    void AddQq_Click();
    void DelQq_Click();
    void Print_Click();
    void FileSave_Click();

    // Applies a correction to the punches selected, until one fails.
    void correct(const std::function<std::optional<Notice>(int row)>& correction);
    void fillAbsencePerson();
    bool loadLists();
    void show(const std::optional<Notice>& notice);
    void showLists();
    QList<int> selectedPunches() const;
    const Page& currentPage() const;
    TextTable shownList(const Page& page) const;
    AnalysisSettings settings() const;

    // Whether the day's lists are whole: what is derived from less would be written over what is stored.
    bool isLoaded();

    AttendanceDay day_;
    bool loaded_ = false;
    QSet<QString> moved_; // keys of the punches that were moved to another shift
    QList<Page> pages_;
    QTabWidget* Tabs;
    FieldForm* date_;     // ChkDate
    FieldForm* punch_;    // Kqzt, Kqbc, Kqsm
    FieldForm* absence_;  // Ygbh, Ygxm, Qqbc, Qqlb, Qqzs, Qqsm
    FieldForm* settings_; // CdXe, ZtXe, QsLb
};

} // namespace hotel
