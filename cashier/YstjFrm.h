#pragma once

// The night audit (夜审统计). It begins when the screen is opened, and nothing asks the auditor to start: step
// by step (house/stays/night_audit.h) it charges the night and tells all of it in its log, which can be
// printed and saved. Closing the screen, or Esc, ends the run behind the room that is being settled; an audit
// begun later charges what is left.

#include "house/stays/night_audit.h"
#include "screen/screen.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QTimer;

namespace hotel {

class YstjFrm : public Screen {
    Q_OBJECT

public:
    YstjFrm();

    // A screen that stands already is left as it is: its run goes on, its log can be read.
    void load(const QVariant& argument) override;

private:
    void Timer1_Timer();
    void CmdPrint_Click();
    void CmdFile_Click();

    QWidget* makeSettings();
    QString step() const;
    void setStep(const QString& tag);
    void addToLog(const QString& line);
    void showProgress(const QString& tag, int done, int total);
    QStringList log() const;

    NightAudit audit_;
    QLineEdit* Jsrq; // the audit date
    QLineEdit* Jsr;
    QLineEdit* Jbdw;
    QListWidget* Jsft; // the statuses that are settled
    QListWidget* YsStat;
    QProgressBar* PercentBar;
    QLabel* Percent;
    QTimer* Timer1; // its property Tag holds the step that comes next; empty: the run has ended
};

} // namespace hotel
