#pragma once

// The page of the desk that keeps the tariff: prefixes and numbered parameters. What is changed here counts when it
// has been stored, which is the desk's.

#include <QStringList>
#include <QWidget>

#include "record/text_table.h"

namespace hotel {

class FieldForm;
class GridView;

class TariffPage : public QWidget {
    Q_OBJECT

public:
    explicit TariffPage(QWidget* parent = nullptr);

    GridView* prefixes() const { return FeeList; }
    GridView* parameters() const { return FeePara; }
    QWidget* firstField() const;
    QWidget* lastField() const;

    // Shows what is stored; nothing is changed then.
    void show(const TextTable& parameters, const TextTable& prefixes);

    // Brings a row of the prefixes into the boxes.
    void edit(int row);
    QStringList cells() const;
    void clearBoxes();

    // The prefixes as the user has changed them, that of `prefix` current.
    void changePrefixes(const TextTable& prefixes, const QString& prefix = {});

    bool prefixesChanged() const { return prefixesChanged_; }
    bool parametersChanged() const;
    void prefixesStored() { prefixesChanged_ = false; }
    void parametersStored();

    void setCommands(QWidget* commands);

private:
    GridView* FeeList; // 费率种类
    GridView* FeePara; // 费率参数
    FieldForm* form_;
    bool prefixesChanged_ = false;
};

} // namespace hotel
