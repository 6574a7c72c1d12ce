#include "app/tour/tour.h"
#include "record/literals.h"
#include "screen/grid_view.h"
#include "screen/open_screen.h"
#include "screen/screen.h"
#include "shell/mainfrm.h"

namespace hotel {

// The lists that every screen chooses from.
void TourOfCategories(Tour& tour) {
    tour.logIn(u"ADMIN"_s, u"admin888"_s);
    tour.press(tour.mainWindow(), u"Xtgl_cmd"_s);
    tour.press(tour.mainWindow(), u"Flmc_cmd"_s);
    Screen* categories = FindScreen(u"FlmcFrm");
    tour.expect(categories, u"FlmcFrm 没有打开"_s);

    tour.choose(*categories, u"FlmcQd"_s, u"客房类型"_s);
    tour.picture(*categories, u"分类名称-客房类型"_s);
    tour.choose(*categories, u"FlmcQd"_s, u"停留事由"_s);
    auto* list = categories->findChild<GridView*>(u"FlxxQd"_s);
    const int before = list->table().dataRows();
    tour.press(*categories, u"CmdAdd"_s);
    tour.type(*categories, u"FlxxQd"_s, u"新闻采访"_s);
    list->setCurrent(before + 1, list->currentColumn() + 1);
    tour.type(*categories, u"FlxxQd"_s, u"xwcf"_s);
    tour.expect(list->table().dataRows() == before + 1, u"分类没有增加"_s);
    tour.picture(*categories, u"分类名称-增加"_s);
    tour.press(*categories, u"CmdSave"_s);
    tour.expect(tour.messages().last() == u"分类名称修改成功", u"分类没有保存"_s);
    categories->close();
    tour.leave();
}

} // namespace hotel
