#include "cashier/team_picker.h"

#include <QVBoxLayout>

#include "record/literals.h"
#include "screen/grid_view.h"

namespace hotel {

TeamPicker::TeamPicker(const TextTable& teams)
    : Screen(u"TeamPicker"_s, u"选择签单单位"_s), list_(new GridView(u"TdQd"_s)) {
    list_->setTable(teams);
    list_->autoFit();
    list_->setCurrent(1);
    auto* content = new QVBoxLayout;
    content->addWidget(list_);
    setContent(content);
    addCommands({
        {u"OkCmd"_s, u"选定"_s, [this] { accept(); }, Qt::Key_F8},
        {u"ExitCmd"_s, u"取消"_s, [this] { close(); }, Qt::Key_Escape},
    });
    on(list_, &GridView::rowActivated, [this] { accept(); });
    setStatus(u"共 %1 个单位，回车选定"_s.arg(teams.dataRows()));
    resize(1000, 420);
}

QString TeamPicker::field(QStringView title) const {
    return list_->table().text(list_->currentRow(), title);
}

} // namespace hotel
