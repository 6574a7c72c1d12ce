#include <QApplication>
#include <QTreeWidget>

#include "app/tour/tour.h"
#include "record/literals.h"
#include "screen/grid_view.h"
#include "screen/open_screen.h"
#include "session/parameters.h"
#include "shell/mainfrm.h"

namespace hotel {

namespace {

void AddCondition(Tour& tour, Screen& query, const QString& field, const QString& op,
                  const QString& target) {
    tour.choose(query, u"Fld"_s, field);
    tour.choose(query, u"Cnd"_s, op);
    tour.type(query, u"Vl"_s, target);
    tour.press(query, u"Add_cmd"_s);
}

void ComposeQuery(Tour& tour, Screen& query) {
    AddCondition(tour, query, u"操作内容"_s, u"非空"_s, {});
    AddCondition(tour, query, u"操作员"_s, u"不等于"_s, u"夜审员"_s);
    tour.picture(query, u"查询条件"_s);
    tour.press(query, u"Search_cmd"_s);
}

// Works on the list as a manager does: statistics of a column, then paper.
void WorkOnTheList(Tour& tour, Screen& list) {
    auto* rows = list.findChild<GridView*>(u"GrdView"_s);
    tour.waitFor([rows] { return rows->isVisible() && rows->table().dataRows() > 5; },
                 u"操作记录没有查出"_s);
    rows->setCurrent(2, 1);
    tour.picture(list, u"操作记录清单"_s);
    tour.press(list, u"Print_cmd"_s);
    tour.waitFor([] { return FindScreen(u"PrtPrev") != nullptr; }, u"没有打印预览"_s);
    Screen& preview = tour.opened(u"PrtPrev"_s);
    tour.picture(preview, u"打印预览"_s);
    tour.printToPdf(preview, u"操作记录清单"_s);
    preview.close();
    list.close();
}

// Opens a format file in the editor, previews its form and prints it empty.
void SeeToFormat(Tour& tour, const QString& file, bool first) {
    tour.press(tour.mainWindow(), u"Dygs_cmd"_s);
    Screen& editor = tour.opened(u"PrtForm"_s);
    tour.choose(editor, u"FmtFile"_s, file);
    auto* tree = editor.findChild<QTreeWidget*>(u"QVRTrVw"_s);
    tour.waitFor([tree] { return tree->topLevelItemCount() > 1; }, file + u" 没有读出"_s);
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        if (tree->topLevelItem(i)->text(0) == u"纸张")
            continue;
        const QString form = tree->topLevelItem(i)->text(0);
        tree->setCurrentItem(tree->topLevelItem(i));
        if (first)
            tour.picture(editor, u"打印格式"_s);
        tour.press(editor, u"Preview_cmd"_s);
        Screen& preview = tour.opened(u"PrtPrev"_s);
        if (first)
            tour.picture(preview, u"预览-"_s + form);
        tour.printToPdf(preview, form);
        preview.close();
        QApplication::processEvents();
        break;
    }
    editor.close();
    QApplication::processEvents();
}

} // namespace

// A manager looks at the operation log of the month, prints it, and sees to the print formats.
void TourOfInquiries(Tour& tour) {
    tour.logIn(u"ADMIN"_s, u"admin888"_s);
    mainfrm& window = tour.mainWindow();

    tour.press(window, u"Jlbg_cmd"_s);
    tour.answering(u"CmnQuery"_s, [&tour](Screen& query) { ComposeQuery(tour, query); });
    tour.press(window, u"Czjl_cmd"_s);
    WorkOnTheList(tour, tour.opened(u"CmnGrd"_s));

    tour.press(window, u"Xtgl_cmd"_s);
    bool first = true;
    for (const QStringView format : {u"ZsdjFmt", u"Bkyjpz", u"Krhftzd"}) {
        SeeToFormat(tour, Param(u"DygsLj") + Param(format), first);
        first = false;
    }
    tour.leave();
}

} // namespace hotel
