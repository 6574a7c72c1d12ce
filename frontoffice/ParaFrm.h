#pragma once

// The hotel's parameters (宾馆系统基本参数) and its special working days.
//
// A parameter that is changed here holds at once, and until the program ends: nothing stores it, and
// the next start begins with the defaults again. The list of working days is stored by SaveRq.

#include <QList>

#include "screen/screen.h"

namespace hotel {

class FieldForm;
class GridView;

class ParaFrm : public Screen {
    Q_OBJECT

public:
    ParaFrm();

    void load(const QVariant& argument) override;

protected:
    bool closing() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeParameters(qsizetype group);
    QWidget* makeWorkingDays();

    void Parameter_Change(FieldForm* form, const QString& name);
    void Rq_LostFocus();
    void AddRq_Click();
    void DelRq_Click();
    bool SaveRq_Click(); // false when it could not be written

    bool dateIsGood(); // tells the user when not, and goes back to today
    void readDays();
    void showDays(bool changed);

    QList<FieldForm*> parameters_; // one a group
    FieldForm* day_ = nullptr;     // the working day being defined
    GridView* GzrQd = nullptr;
    bool daysChanged_ = false;
};

} // namespace hotel
