#include "tools/paper/PrtSet.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>

#include "tools/paper/printer_choice.h"

namespace hotel {

namespace {

QComboBox* PageList(const QString& name, int pages) {
    auto* list = new QComboBox;
    list->setObjectName(name);
    for (int page = 1; page <= pages; ++page)
        list->addItem(QString::number(page));
    return list;
}

QLabel* Label(const QString& name, const QString& text) {
    auto* label = new QLabel(text);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

PrtSet::PrtSet(FinishedPrintJob& job, int viewedPage)
    : Screen(u"PrtSet"_s, u"打印机参数设定"_s), job_(job), viewedPage_(viewedPage) {
    const int pages = job_.script.pageCount();
    tPag = Label(u"tPag"_s, QString::number(pages));
    sPag = PageList(u"sPag"_s, pages);
    ePag = PageList(u"ePag"_s, pages);
    ePag->setCurrentIndex(pages - 1);
    Dyj = Label(u"Dyj"_s, ChosenPrinter());

    auto* form = new QFormLayout;
    form->addRow(u"打印机"_s, Dyj);
    form->addRow(u"总页数"_s, tPag);
    form->addRow(u"起始页"_s, sPag);
    form->addRow(u"结束页"_s, ePag);
    setContent(form);
    addCommands({
        {u"Command1"_s, u"打印"_s, [this] { Command1_Click(); }, {}, CommandKind::Default},
        {u"Command4"_s, u"select activee (viewed) page"_s, [this] { Command4_Click(); }},
        {u"Command3"_s, u"select printer"_s, [this] { Command3_Click(); }},
        {u"CmdStop"_s, u"停止"_s, [this] { requestStop(); }, {}, CommandKind::Stop},
        {u"CmdExit"_s, u"关闭"_s, [this] { close(); }},
    });
    on(sPag, &QComboBox::currentIndexChanged, [this] { Pages_Change(); });
    on(ePag, &QComboBox::currentIndexChanged, [this] { Pages_Change(); });
}

// The end takes the start when it stands ahead of it.
void PrtSet::Pages_Change() {
    ePag->setCurrentIndex(qMax(sPag->currentIndex(), ePag->currentIndex()));
}

void PrtSet::Command1_Click() {
    const bool printed = PrintPages(job_, sPag->currentIndex() + 1, ePag->currentIndex() + 1,
                                    [this](int page, int last) {
                                        progress(page, last, u"正在打印第%1页"_s.arg(page));
                                        return stillOpen();
                                    });
    if (printed)
        accept();
}

void PrtSet::Command3_Click() {
    AskForPrinter(this);
    Dyj->setText(ChosenPrinter());
}

void PrtSet::Command4_Click() {
    sPag->setCurrentIndex(viewedPage_ - 1);
    ePag->setCurrentIndex(viewedPage_ - 1);
}

} // namespace hotel
