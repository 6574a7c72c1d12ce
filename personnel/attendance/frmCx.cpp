#include "personnel/attendance/frmCx.h"

#include <QDate>
#include <QHBoxLayout>
#include <QSet>
#include <QVBoxLayout>

#include "link/serv_api.h"
#include "personnel/attendance/day_lists.h"
#include "personnel/attendance/period_fields.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "tools/aids/photo_frame.h"
#include "tools/lists/list_export.h"
#include "tools/lists/list_print.h"
#include "tools/queries/CmnQuery.h"
#include "tools/queries/query_walk.h"

namespace hotel {

namespace {

constexpr QStringView kPhotograph = u"照片文件";
constexpr QStringView kTitle = u"考勤记录查询清单";
constexpr int kPhotographWidth = 260;

QStringList SearchColumns() {
    QStringList columns = PunchColumns();
    columns.removeLast(); // which is not shown
    columns << punch_record::kPost.toString() << kPhotograph.toString();
    return columns;
}

// What can be searched.
QStringList SearchFields() {
    QStringList fields = SearchColumns();
    for (const QStringView notStored : {kRowNumber, kPhotograph})
        fields.removeOne(notStored);
    return fields;
}

// The photographs that the day has.
QSet<QString> PhotographsOf(QDate day) {
    QSet<QString> names;
    const QString folder = PunchPhotographFolder(day.toString(u"yyMMdd"));
    for (int n = 1;; ++n) {
        const QString name = DbFileList(folder, u"*.jpg"_s, n);
        if (name.isEmpty() || IsError(name))
            return names;
        names.insert(name);
    }
}

} // namespace

frmCx::frmCx()
    : Screen(u"frmCx"_s, u"考勤查询"_s), period_(new FieldForm(PeriodFields(), 2)),
      Kqqd(new GridView(u"Kqqd"_s)), Zp(new PhotoFrame(u"Zp"_s, u"没有照片"_s)) {
    Kqqd->table().setHeaders(SearchColumns());
    Kqqd->setSortable(true);
    Kqqd->setNumberColumn(0);
    Zp->setFixedWidth(kPhotographWidth);
    auto* lists = new QHBoxLayout;
    lists->addWidget(Kqqd, 1);
    lists->addWidget(Zp);
    auto* content = new QVBoxLayout;
    content->addWidget(period_, 0, Qt::AlignLeft);
    content->addLayout(lists, 1);
    setContent(content);
    addCommands({
        {u"Scancmd"_s, u"查询"_s, [this] { Scancmd_Click(); }, Qt::Key_F5, CommandKind::Default},
        {u"CmdStop"_s, u"停止"_s, [this] { requestStop(); }, {}, CommandKind::Stop},
        {u"CmdPrint"_s, u"打印"_s, [this] { PrintWide(*Kqqd, kTitle.toString()); }, Qt::Key_F9,
         CommandKind::Plain, u"list"_s},
        {u"CmdFile"_s, u"存为文件"_s, [this] { SaveGridToText(Kqqd->table(), kTitle.toString()); },
         Qt::Key_F10, CommandKind::Plain, u"list"_s},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
    on(Kqqd, &GridView::rowActivated, [this](int row, int) { DownZhaop(row); });
    resize(1240, 760);
}

void frmCx::load(const QVariant&) {
    ProposeThisMonth(*period_);
    period_->editor(u"KsDate")->setFocus();
}

void frmCx::Scancmd_Click() {
    const auto period = PeriodOf(*period_);
    if (!period)
        return;
    ModalScreen<CmnQuery> query(this, u"请输入考勤记录查询组合条件"_s, SearchFields());
    if (!query.show())
        return;
    Kqqd->table().clearRows();
    Kqqd->refresh();
    Zp->setPhoto({});
    const int days = int(period->first.daysTo(period->second)) + 1;
    bool goesOn = true;
    for (int done = 0; goesOn && done < days; ++done) {
        const QDate day = period->first.addDays(done);
        progress(done, days, u"正在检索 "_s + day.toString(u"yyyy-MM-dd"));
        goesOn = stillOpen() && searchDay(day, query->conditionText());
    }
    Kqqd->table().numberRows(0);
    Kqqd->refresh();
    Kqqd->autoFit();
    Kqqd->setFocus();
    const QString found = QString::number(Kqqd->table().dataRows());
    setStatus(goesOn ? u"共检索到"_s + found + u"条记录！"_s
                     : u"尚未完成查询，中途停止！已检索到"_s + found + u"条记录"_s);
}

// False when the walk ends here.
bool frmCx::searchDay(QDate day, const QString& conditionText) {
    TextTable& list = Kqqd->table();
    const int key = list.column(kRecordKey);
    const int before = list.rows();
    const WalkEnd end = QueryToGridLarge(AttendanceFile(day), punch_record::kProject.toString(),
                                         conditionText, key, *Kqqd, *this);
    if (list.rows() > before) {
        const QSet<QString> photographs = PhotographsOf(day);
        for (int row = before; row < list.rows(); ++row) {
            const QString name = PunchPhotographName(list.text(row, key));
            if (photographs.contains(name))
                list.setText(row, kPhotograph, name);
        }
    }
    return end == WalkEnd::Finished;
}

void frmCx::DownZhaop(int row) {
    ShowListedPhoto(Zp, Kqqd->table(), row, kPhotograph, PunchPhotographFile);
}

} // namespace hotel
