#include "tools/paper/PrtPrev.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

#include "record/numbers.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "tools/paper/PrtSet.h"
#include "tools/paper/PrtSubs.h"
#include "tools/paper/printer_choice.h"

namespace hotel {

namespace {

constexpr double kCmPerInch = 2.54;
constexpr int kZoomStep = 25;
constexpr qsizetype kBytesAtATime = 1 << 18;

const QString kPageHeight = u"页高"_s;
const QString kPageWidth = u"页宽"_s;
const QString kWholePage = u"整页"_s;

double Fit(double window, double page) {
    return page > 0 ? window / page * 100 : 100;
}

} // namespace

double ZoomOf(const QString& text, QSizeF page, QSizeF window) {
    const double byHeight = Fit(window.height(), page.height());
    const double byWidth = Fit(window.width(), page.width());
    double zoom = LeadingNumber(text);
    if (text == kPageHeight)
        zoom = byHeight;
    else if (text == kPageWidth)
        zoom = byWidth;
    else if (text == kWholePage)
        zoom = qMin(byHeight, byWidth);
    else if (zoom <= 0)
        zoom = 100;
    return qBound(double(kSmallestZoom), zoom, double(kLargestZoom));
}

// The sheet on its grey ground.
class PageView : public QWidget {
public:
    void show(const PrintPage& page) {
        page_ = page;
        update();
    }

    // `pixels` is the paper's size on the screen, `paper` its size in twips.
    void resizePaper(QSize pixels, QSizeF paper) {
        paper_ = paper;
        setFixedSize(pixels);
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::white);
        if (paper_.isEmpty())
            return;
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        painter.scale(width() / paper_.width(), height() / paper_.height());
        DrawPage(painter, page_, paper_);
    }

private:
    PrintPage page_;
    QSizeF paper_;
};

PrtPrev::PrtPrev()
    : Screen(u"PrtPrev"_s, u"打印预览"_s), ePag(new QComboBox), zVal(new QComboBox),
      PagLbl(new QLabel), ZoomLbl(new QLabel), surface_(new PageView), window_(new QScrollArea),
      findPages_(new QTimer(this)) {
    ePag->setObjectName(u"ePag"_s);
    zVal->setObjectName(u"zVal"_s);
    zVal->setEditable(true);
    zVal->setInsertPolicy(QComboBox::NoInsert);
    zVal->setCompleter(nullptr); // 10 is not the beginning of 100
    zVal->addItems({kPageHeight, kPageWidth, kWholePage, u"200"_s, u"150"_s, u"100"_s, u"75"_s,
                    u"50"_s, u"25"_s});
    zVal->setCurrentText(kWholePage);
    PagLbl->setObjectName(u"PagLbl"_s);
    ZoomLbl->setObjectName(u"ZoomLbl"_s);

    window_->setWidget(surface_);
    window_->setAlignment(Qt::AlignCenter);
    window_->setBackgroundRole(QPalette::Mid);
    window_->setFocusPolicy(Qt::StrongFocus);
    window_->installEventFilter(this);

    auto* line = new QHBoxLayout;
    line->addWidget(new QLabel(u"页"_s));
    line->addWidget(ePag);
    line->addWidget(PagLbl);
    line->addSpacing(24);
    line->addWidget(new QLabel(u"显示比例"_s));
    line->addWidget(zVal);
    line->addWidget(ZoomLbl);
    line->addStretch(1);
    auto* content = new QVBoxLayout;
    content->addLayout(line);
    content->addWidget(window_, 1);
    setContent(content);

    addCommands({
        {u"FreshCmd"_s, u"刷新<CR>"_s, [this] { ShowPage(page_); }, {}, CommandKind::Default},
        {u"ZoomIn"_s, u"放大(+)"_s, [this] { ZoomIn_Click(); }},
        {u"ZoomOut"_s, u"缩小(-)"_s, [this] { ZoomOut_Click(); }},
        {u"PrintCmd"_s, u"打印"_s, [this] { PrintCmd_Click(); }},
        {u"PrinterCmd"_s, u"选择打印机"_s, [this] { PrinterCmd_Click(); }},
        {u"FirstCmd"_s, u"首页"_s, [this] { ShowPage(1); }},
        {u"PrevCmd"_s, u"前一页(PgUp)"_s, [this] { ShowPage(page_ - 1); }},
        {u"NextCmd"_s, u"下一页(PgDn)"_s, [this] { ShowPage(page_ + 1); }},
        {u"LastCmd"_s, u"尾页"_s, [this] { ShowPage(LastPage()); }},
        {u"CloseCmd"_s, u"关闭"_s, [this] { close(); }},
    });
    for (const auto& [key, name] : {std::pair(Qt::Key_Plus, u"ZoomIn"),
                                    {Qt::Key_Minus, u"ZoomOut"},
                                    {Qt::Key_PageUp, u"PrevCmd"},
                                    {Qt::Key_PageDown, u"NextCmd"}})
        connect(new QShortcut(key, this), &QShortcut::activated, command(name),
                &QPushButton::click);
    onEnter(window_, [this] { ShowPage(page_); });
    onEnter(zVal, [this] { zVal_Change(); });
    on(ePag, &QComboBox::activated, [this] { ePag_Click(); });
    on(zVal, &QComboBox::activated, [this] { zVal_Change(); });
    connect(findPages_, &QTimer::timeout, this, &PrtPrev::FindMorePages);
    resize(1000, 760);
}

void PrtPrev::load(const QVariant&) {
    job_ = ReadPrintJob();
    ePag->clear();
    if (!job_.isWhole) {
        MsgBox(u"打印文件无法写入临时文件夹,请检查磁盘空间和权限!"_s, u"无法预览"_s);
        close();
        return;
    }
    if (!job_.script.hasPage(1)) {
        MsgBox(u"没有可以打印的内容!"_s, u"无法预览"_s);
        close();
        return;
    }
    findPages_->start(0);
    ShowPage(1);
    ShowZoom();
    window_->setFocus();
}

void PrtPrev::FindMorePages() {
    if (!job_.script.walkOn(kBytesAtATime))
        findPages_->stop();
    QStringList found;
    for (int page = ePag->count() + 1; page <= job_.script.pagesFound(); ++page)
        found.append(QString::number(page));
    ePag->addItems(found);
    ePag->setCurrentIndex(page_ - 1);
    PagLbl->setText(u"第%1页，共%2页"_s.arg(page_).arg(job_.script.pagesFound()));
}

int PrtPrev::LastPage() {
    return job_.script.pageCount();
}

void PrtPrev::ShowPage(int page) {
    if (!job_.script.hasPage(page))
        return;
    page_ = page;
    surface_->show(job_.script.previewPage(page));
    window_->verticalScrollBar()->setValue(0);
    FindMorePages();
}

void PrtPrev::ShowZoom() {
    const QSizeF twips = job_.paper * kTwipsPerCm;
    const QSizeF pixels = job_.paper / kCmPerInch * logicalDpiX();
    zoom_ = ZoomOf(zVal->currentText(), pixels, window_->maximumViewportSize());
    surface_->resizePaper((pixels * zoom_ / 100).toSize(), twips);
    ZoomLbl->setText(u'%' + FormatNumber(zoom_, u"#0"));
}

void PrtPrev::ZoomIn_Click() {
    zVal->setCurrentText(FormatNumber(zoom_ + kZoomStep, u"#0"));
    ShowZoom();
}

void PrtPrev::ZoomOut_Click() {
    zVal->setCurrentText(FormatNumber(qMax(zoom_ - kZoomStep, double(kSmallestZoom)), u"#0"));
    ShowZoom();
}

void PrtPrev::zVal_Change() {
    ShowZoom();
    window_->setFocus();
}

void PrtPrev::ePag_Click() {
    ShowPage(ePag->currentIndex() + 1);
    window_->setFocus();
}

void PrtPrev::PrintCmd_Click() {
    ModalScreen<PrtSet> settings(this, job_, page_);
    settings.show();
}

void PrtPrev::PrinterCmd_Click() {
    AskForPrinter(this);
}

bool PrtPrev::closing() {
    PreviewClosed(job_);
    return true;
}

// A page that fits the window goes on fitting it.
bool PrtPrev::eventFilter(QObject* watched, QEvent* event) {
    const bool fits = LeadingNumber(zVal->currentText()) <= 0;
    if (event->type() == QEvent::Resize && fits && !job_.paper.isEmpty())
        ShowZoom();
    return Screen::eventFilter(watched, event);
}

} // namespace hotel
