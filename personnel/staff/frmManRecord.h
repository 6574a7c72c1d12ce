#pragma once

// The card of an employee. Opened under two names, frmManRecord and frmYgEdit: FrmYgxx offers both.
//
// Opened with the list {department, number}; without a number somebody is hired into the department. What is typed
// is kept by F8, except a card and a photograph of somebody on file, which hold at once. Leaving department,
// second department or status notes the change in 工作经历 if the user wants it; F8 asks for those not left yet.

#include <QHash>
#include <QList>
#include <QString>
#include <QTemporaryDir>

#include "personnel/staff/employee_change.h"
#include "screen/screen.h"

class QTabWidget;

namespace hotel {

class EntriesWidget;
class FieldForm;
class PhotoFrame;
struct EntriesPage;

class frmManRecord : public Screen {
    Q_OBJECT

public:
    explicit frmManRecord(const QString& name);

    void load(const QVariant& argument) override;

protected:
    bool closing() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makePages();
    void addEntriesPage(const EntriesPage& page);

    void YgBm_LostFocus();
    void JzBm1_LostFocus() { secondJobLeft(u"JzBm1", u"JzZw1"); }
    void JzBm2_LostFocus() { secondJobLeft(u"JzBm2", u"JzZw2"); }
    void Zt_Click();
    void Sfzh_LostFocus();
    void fieldLeft(const QString& control);
    void AddEntry(EntriesWidget* list); // TjSd, AddWz and those of the other lists
    void ModEntry(EntriesWidget* list);
    void DelEntry(EntriesWidget* list);
    void CmdKaH_Click();
    void CmdBarCode_Click();
    void ImgZp_Click();
    void CmdSave_Click();
    void CmdNew_Click();
    void CmdPrint_Click();

    void open(const EmployeeKey& key);
    void show(const QString& record);
    void showPhotograph();
    FieldForm* formOf(QStringView control) const;
    QString text(QStringView control) const;
    void setText(QStringView control, const QString& text);
    QString composed() const;
    void settle(); // asks what leaving a field would have asked
    void secondJobLeft(QStringView department, QStringView post);
    bool note(const CareerChange& change, const QString& departmentBefore);
    bool save();
    bool refuseTypedCard();
    SaveOutcome write(const QString& record, bool removeOld);
    bool keepPhotograph();
    bool offerToSave(); // false: it was to be saved and could not be

    QList<FieldForm*> forms_;
    QList<EntriesWidget*> lists_;
    QTabWidget* pages_;
    PhotoFrame* ImgZp;

    EmployeeKey before_;              // where he was read
    QString stored_;                  // as he was read
    QString unchanged_;               // composed() when nothing is to be saved
    QHash<QString, QString> settled_; // by control: the value that was asked about last
    QTemporaryDir photographs_;
    QString photograph_; // local file of the picture shown; empty: none
    bool photographToSend_ = false;
};

} // namespace hotel
