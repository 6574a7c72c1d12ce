#pragma once

// The page of the desk that keeps the extensions. Storing them is the desk's.

#include <QStringList>
#include <QWidget>

#include "record/text_table.h"

namespace hotel {

class CheckList;
class FieldForm;
class GridView;

class ExtensionPage : public QWidget {
    Q_OBJECT

public:
    explicit ExtensionPage(QWidget* parent = nullptr);

    GridView* list() const { return UserList; }
    QWidget* firstField() const;
    QWidget* lastField() const;

    // Shows the extensions, that of `number` current.
    void show(const TextTable& extensions, const QString& number = {});
    // Brings a row of the list into the boxes.
    void edit(int row);

    // The row as the boxes have it.
    QStringList cells() const;
    // Boxes for a new extension.
    void clearBoxes();

    void setCommands(QWidget* commands);

private:
    GridView* UserList;
    FieldForm* form_;
    CheckList* SfQd; // 收费参数
    CheckList* MfQd; // 减免参数
};

} // namespace hotel
