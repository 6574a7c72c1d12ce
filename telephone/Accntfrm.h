#pragma once

// The call accounting desk (电话计费). It looks at a day's file again and again, rates the calls that wait there and
// shows them as they come in; it searches the calls of a period, and keeps extensions, tariff and configuration.
// One desk of the house should stand open: see call_intake.h.

#include "screen/screen.h"
#include "telephone/accounting_config.h"
#include "telephone/call_intake.h"
#include "telephone/call_tables.h"

class QTabWidget;

namespace hotel {

class CmnGrd;
class ConfigPage;
class ExtensionPage;
class LivePage;
class SearchPage;
class TariffPage;

class Accntfrm : public Screen {
    Q_OBJECT

public:
    Accntfrm();

    // A desk that stands already is left as it is: its calls go on coming in.
    void load(const QVariant& argument) override;

protected:
    // Asks about changes of the tariff that aren't stored.
    bool closing() override;

private:
    void makePages();
    void makeCommands();

    void Timer1_Timer();
    void showRated(const QString& name, const QString& record);
    void showRound(const RoundOutcome& round);

    void CxTjCmd_Click();
    void CmdSearch_Click();

    void UsrAdd_Click();
    void UsrDel_Click();
    bool saveExtension(const TextTable& extensions, const QString& number);

    void FeeAdd_Click();
    void FeeDel_Click();
    void FeeModify_Click();
    bool saveParameters();
    bool savePrefixes();

    void ConfigItem_Enter();
    void DelItem_Click();
    void SavItem_Click();
    // What it names is looked at from here on: another file of a table is read, or the old one's rows would be written
    // into it.
    void configChanged();

    // Reads the tables from the server; with what could not be read nothing is rated.
    void readTables();
    void showTables();
    // The tables or the configuration were changed: calls are rated by them from here on.
    void tablesChanged();
    bool hasPendingChanges() const;

    AccountingConfig config_;
    BillingFiles files_;
    CallTables tables_; // as stored
    RatingTables rating_;
    WaitingCalls waiting_; // of the day that is looked at

    QTabWidget* tabs_;
    LivePage* live_;
    SearchPage* search_;
    ExtensionPage* extensions_;
    TariffPage* tariff_;
    ConfigPage* configPage_;
    QTimer* Timer1;
    bool loaded_ = false;
    int ratedSinceStart_ = 0;
};

} // namespace hotel
