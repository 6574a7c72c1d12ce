#pragma once

// The editor of print format files: the projects of a file, their records and all fields inside them
// as a tree, and the value of the field that is chosen.

#include <QList>
#include <QString>

#include "screen/screen.h"

class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QTreeWidgetItem;

namespace hotel {

class RecordTree;

// Files that FmtFile offers at most.
inline constexpr int kFormatFileLimit = 1000;

class PrtForm : public Screen {
    Q_OBJECT

public:
    PrtForm();

    void load(const QVariant& argument) override;

protected:
    bool closing() override;

private:
    void FmtFile_Click();
    void Modify_field_Click();
    void Save_cmd_Click();
    void Preview_cmd_Click();

    void LoadTree();
    bool SaveChanges();
    bool AskToSave();
    void ShowField();

    QString file_;
    QList<QTreeWidgetItem*> changed_; // records, in the order of their first change

    QComboBox* FmtFile;       // the format files
    RecordTree* QVRTrVw;      // projects, records and fields of the file
    QLineEdit* FldName;       // the field chosen
    QPlainTextEdit* FldValue; // its value
};

} // namespace hotel
