#pragma once

// The business reports (营业报表处理): the clerk chooses a report and its day or period; the list stands with
// pictures of its figures beside it, is printed with them and saved as text.

#include "cashier/reports/reports.h"
#include "screen/screen.h"

class QLabel;

namespace hotel {

class ChartBox;
class FieldForm;
class GridView;

class YybbFrm : public Screen {
    Q_OBJECT

public:
    YybbFrm();

    void load(const QVariant& argument) override;

private:
    void BbZl_Change();
    void MakeCmd_Click();
    void CmdPrint_Click();
    void CmdFile_Click();
    void ListCmd_Click();
    void ChartSave_Click();
    void CmdStop_Click();

    const ReportEntry& report() const;
    ReportPeriod period() const;
    bool showProgress(int done, int total);
    void show(const Report& made);
    void showCaption(const QString& caption);

    FieldForm* form_; // BbZl, StDay, EndDay
    QLabel* BbBt;     // the caption
    GridView* BbQd;
    ChartBox* charts_;
    bool ofPeriod_ = false; // what StDay stands for: the first day of a period, or the day
};

} // namespace hotel
