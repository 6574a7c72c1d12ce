#pragma once

// The editor of print format files: the projects of a file, their records and all fields inside them
// as a tree, and the value of the field that is chosen.

#include <QList>
#include <QString>
#include <QStringList>
#include <utility>

#include "screen/screen.h"

class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace hotel {

// Files that FmtFile offers at most.
inline constexpr int kFormatFileLimit = 1000;

// The value at the end of a path of field names, each inside the one before; all of `text` for an empty
// path.
QString FieldAt(const QString& text, const QStringList& path);

// `text` with that value replaced; an empty one removes the field.
QString WithFieldAt(const QString& text, const QStringList& path, const QString& value);

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

    using RecordName = std::pair<QString, QString>; // project, record

    void LoadTree();
    void AddFields(QTreeWidgetItem* node, const QString& text);
    QString* ProjectText(const QString& project);
    QString TextAt(const QStringList& path);
    bool SaveChanges();
    bool AskToSave();
    void ShowField();

    // Format files are small; they are held whole while they are edited.
    struct Project {
        QString name;
        QString text; // one field per record
    };

    QString file_;
    QList<Project> projects_;
    QList<RecordName> changed_; // in the order of their first change

    QComboBox* FmtFile;       // the format files
    QTreeWidget* QVRTrVw;     // projects, records and fields of the file
    QLineEdit* FldName;       // the field chosen
    QPlainTextEdit* FldValue; // its value
};

} // namespace hotel
