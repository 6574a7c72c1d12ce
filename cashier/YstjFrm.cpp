#include "cashier/YstjFrm.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QTimer>
#include <QVBoxLayout>

#include "cashier/audit_log.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "session/session.h"
#include "tools/aids/categories.h"

namespace hotel {

namespace {

constexpr int kTimerMilliseconds = 100;
constexpr int kPercentAStep = 10;
constexpr int kWhole = 100;
constexpr int kSettingsWidth = 260;
constexpr int kShortestLogLine = 2; // a log whose line has fewer characters is none to be saved

QLineEdit* ShownField(const QString& name) {
    auto* field = new QLineEdit;
    field->setObjectName(name);
    field->setReadOnly(true);
    field->setFocusPolicy(Qt::NoFocus);
    return field;
}

} // namespace

YstjFrm::YstjFrm()
    : Screen(u"YstjFrm"_s, u"夜审统计"_s), Jsrq(ShownField(u"Jsrq"_s)), Jsr(ShownField(u"Jsr"_s)),
      Jbdw(ShownField(u"Jbdw"_s)), Jsft(new QListWidget), YsStat(new QListWidget),
      PercentBar(new QProgressBar), Percent(new QLabel(u"0%"_s)),
      Timer1(every(kTimerMilliseconds, [this] { Timer1_Timer(); })) {
    Timer1->stop();
    Timer1->setObjectName(u"Timer1"_s);
    Jsft->setObjectName(u"Jsft"_s);
    Jsft->setFocusPolicy(Qt::NoFocus);
    YsStat->setObjectName(u"YsStat"_s);
    Percent->setObjectName(u"Percent"_s);
    Percent->setMinimumWidth(Percent->fontMetrics().horizontalAdvance(u"100%"_s));
    PercentBar->setObjectName(u"PercentBar"_s);
    PercentBar->setRange(0, kWhole);
    PercentBar->setTextVisible(false);

    auto* progress = new QHBoxLayout;
    progress->addWidget(PercentBar, 1);
    progress->addWidget(Percent);
    auto* run = new QVBoxLayout;
    run->addWidget(new QLabel(u"夜审记录"_s));
    run->addWidget(YsStat, 1);
    run->addLayout(progress);
    auto* content = new QHBoxLayout;
    content->addWidget(makeSettings());
    content->addLayout(run, 1);
    setContent(content);
    addCommands({
        {u"CmdPrint"_s, u"打印记录"_s, [this] { CmdPrint_Click(); }, Qt::Key_F9},
        {u"CmdFile"_s, u"存为文件"_s, [this] { CmdFile_Click(); }, Qt::Key_F8},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
    resize(1000, 680);
}

QWidget* YstjFrm::makeSettings() {
    auto* fields = new QFormLayout;
    fields->addRow(u"结算日期"_s, Jsrq);
    fields->addRow(u"经手人"_s, Jsr);
    fields->addRow(u"经办单位"_s, Jbdw);
    auto* settings = new QWidget;
    settings->setFixedWidth(kSettingsWidth);
    auto* layout = new QVBoxLayout(settings);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(fields);
    layout->addWidget(new QLabel(u"结算房态"_s));
    layout->addWidget(Jsft);
    layout->addStretch(1);
    return settings;
}

void YstjFrm::load(const QVariant&) {
    if (!Jsrq->text().isEmpty())
        return;
    audit_ = {.auditDate = AuditDate(Clock::Now()),
              .statuses = LoadCategory(kSettledStatuses),
              .department = CurrentSession().userDept,
              .auditor = CurrentSession().userName,
              .log = [this](const QString& line) { addToLog(line); },
              .progress =
                  [this](int done, int total) {
                      showProgress(step(), done, total);
                      return stillOpen();
                  }};
    Jsrq->setText(audit_.auditDate);
    Jsr->setText(audit_.auditor);
    Jbdw->setText(audit_.department);
    Jsft->addItems(audit_.statuses);
    YsStat->setFocus();
    setStep(kFirstAuditStep.toString());
    Timer1->start();
}

void YstjFrm::Timer1_Timer() {
    Timer1->stop();
    const QString tag = step();
    showProgress(tag, 0, 1);
    setStep(RunAuditStep(tag, audit_));
    if (step().isEmpty())
        setStatus(u"夜审记录共 %1 行，F9 打印，F8 存为文件"_s.arg(YsStat->count()));
    else
        Timer1->start();
}

void YstjFrm::CmdPrint_Click() {
    PrintAuditLog(log(), audit_.auditor);
}

void YstjFrm::CmdFile_Click() {
    const QListWidgetItem* current = YsStat->currentItem();
    if (current && current->text().size() >= kShortestLogLine && SaveAuditLog(log()))
        setStatus(u"夜审记录已经保存"_s);
}

QString YstjFrm::step() const {
    return Timer1->property("Tag").toString();
}

void YstjFrm::setStep(const QString& tag) {
    Timer1->setProperty("Tag", tag);
}

void YstjFrm::addToLog(const QString& line) {
    YsStat->addItem(line);
    YsStat->setCurrentRow(YsStat->count() - 1);
    YsStat->scrollToBottom();
}

void YstjFrm::showProgress(const QString& tag, int done, int total) {
    const int percent = int(LeadingNumber(tag)) * kPercentAStep + kPercentAStep * done / total;
    PercentBar->setValue(percent);
    Percent->setText(QString::number(percent) + u'%');
}

QStringList YstjFrm::log() const {
    QStringList lines;
    for (int row = 0; row < YsStat->count(); ++row)
        lines.append(YsStat->item(row)->text());
    return lines;
}

} // namespace hotel
