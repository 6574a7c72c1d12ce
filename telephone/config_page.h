#pragma once

// The page of the desk that keeps Accnt.Cfg: the lines in force, a box for the next one, and the folder of the
// billing files on the server.

#include <QWidget>

#include "telephone/accounting_config.h"

class QLineEdit;
class QListWidget;

namespace hotel {

class ConfigPage : public QWidget {
    Q_OBJECT

public:
    explicit ConfigPage(QWidget* parent = nullptr);

    QLineEdit* folderBox() const { return TeldbLj; }
    QLineEdit* itemBox() const { return ConfigItem; }
    QListWidget* list() const { return ConfigList; }

    // As it is typed, with a "\" at its end or without.
    QString folder() const;

    // A configuration without an entry is one blank line.
    void show(const AccountingConfig& config);

    void setCommands(QWidget* commands);

private:
    QLineEdit* TeldbLj;
    QListWidget* ConfigList;
    QLineEdit* ConfigItem;
};

} // namespace hotel
