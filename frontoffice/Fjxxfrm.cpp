#include "frontoffice/Fjxxfrm.h"

#include <QVBoxLayout>

#include "house/rooms/rate_table.h"
#include "record/literals.h"
#include "screen/grid_view.h"

namespace hotel {

namespace {

constexpr int kFirstRateColumn = 2;

} // namespace

Fjxxfrm::Fjxxfrm() : Screen(u"Fjxxfrm"_s, u"最新房价表"_s), FjxxQd(new GridView(u"FjxxQd"_s)) {
    FjxxQd->setNumberColumn(0, u"#00"_s);
    auto* content = new QVBoxLayout;
    content->addWidget(FjxxQd);
    setContent(content);
    addCommands({
        {u"FreshCmd"_s, u"刷新"_s, [this] { load({}); }, Qt::Key_F5},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape},
    });
    resize(1000, 520);
}

void Fjxxfrm::load(const QVariant&) {
    FjxxQd->setTable(LoadRateTable());
    for (int column = kFirstRateColumn; column < FjxxQd->table().cols(); ++column)
        FjxxQd->setColumnAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    FjxxQd->autoFit();
    FjxxQd->setFocus();
    setStatus(u"共 %1 种客房类型"_s.arg(FjxxQd->table().dataRows()));
}

} // namespace hotel
