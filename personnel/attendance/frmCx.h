#pragma once

// The search of raw punches (考勤查询): the day files of a period by any condition on the fields of a punch. The
// photograph of a punch is shown by a double click, or Enter, on its row.

#include "screen/screen.h"

namespace hotel {

class FieldForm;
class GridView;
class PhotoFrame;

class frmCx : public Screen {
    Q_OBJECT

public:
    frmCx();
    void load(const QVariant& argument) override;

private:
    void Scancmd_Click();
    void DownZhaop(int row);
    bool searchDay(QDate day, const QString& conditionText);

    FieldForm* period_; // KsDate, JsDate
    GridView* Kqqd;
    PhotoFrame* Zp;
};

} // namespace hotel
