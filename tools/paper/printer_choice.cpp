#include "tools/paper/printer_choice.h"

#include <QListWidget>

#include "platform/printers.h"
#include "record/literals.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "tools/paper/print_pass.h"

namespace hotel {

PrinterChoice::PrinterChoice()
    : Screen(u"PrinterChoice"_s, u"选择打印机"_s), DyjQd(new QListWidget) {
    DyjQd->setObjectName(u"DyjQd"_s);
    DyjQd->addItems(Printers::Installed().names());
    for (QListWidgetItem* item : DyjQd->findItems(ChosenPrinter(), Qt::MatchExactly))
        DyjQd->setCurrentItem(item);
    setContent(DyjQd);
    addCommands({
        {u"QdCmd"_s, u"确定"_s, [this] { accept(); }, {}, CommandKind::Default},
        {u"GbCmd"_s, u"关闭"_s, [this] { close(); }},
    });
    onEnter(DyjQd, [this] { accept(); });
    on(DyjQd, &QListWidget::itemDoubleClicked, [this] { accept(); });
    DyjQd->setFocus();
}

QString PrinterChoice::printer() const {
    return DyjQd->currentItem() ? DyjQd->currentItem()->text() : QString();
}

void AskForPrinter(QWidget* asking) {
    if (Printers::Installed().names().isEmpty()) {
        MsgBox(u"没有可以使用的打印机!"_s, u"注意"_s);
        return;
    }
    ModalScreen<PrinterChoice> choice(asking);
    if (choice.show())
        ChoosePrinter(choice->printer());
}

} // namespace hotel
