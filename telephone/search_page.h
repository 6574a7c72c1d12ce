#pragma once

// The page of the desk on which calls are looked for.

#include <QWidget>

#include "telephone/call_search.h"

namespace hotel {

class CheckList;
class FieldForm;

class SearchPage : public QWidget {
    Q_OBJECT

public:
    explicit SearchPage(QWidget* parent = nullptr);

    QWidget* firstField() const;
    QWidget* lastField() const;

    // From the first of the month to now.
    void setPeriod(const QDateTime& now);

    // A period that can't be read is not valid in the answer.
    CallQuestion question() const;

    void setCommands(QWidget* commands);

private:
    FieldForm* form_;
    CheckList* CxLb; // classes; all of them are as good as none
};

} // namespace hotel
