#pragma once

// One kind of posting on the screen, made from its table (house/folios/posting_kinds.h): the list of what was
// posted, and the panel for the next one. It is shown and typed here; posting it is the screen's.

#include <QWidget>

#include "house/folios/posting_list.h"

namespace hotel {

class FieldForm;
class GridView;

class PostingPage : public QWidget {
    Q_OBJECT

public:
    explicit PostingPage(PostingKind kind, QWidget* parent = nullptr);

    PostingKind kind() const { return kind_; }
    const PostingKindEntry& entry() const { return PostingKindOf(kind_); }
    GridView* list() const { return list_; }
    FieldForm* form() const { return form_; }
    QWidget* firstField() const;

    // The commands of the page, below its panel.
    void setCommands(QWidget* commands);

    // Shows the folio's postings; none without a folio. False when they could not be read.
    bool load(const QString& folio);

    PostingValues values() const;
    void setValues(const PostingValues& values);

    // The list as a posting was added or deleted; amounts and notes of the panel are emptied for the next one.
    void showAdded(QStringView record);
    void showDeleted();

    // Prints the list: amounts to the right, a list of many columns across the paper.
    void print(const QString& title) const;

private:
    void followFees(const QString& control);
    void showList(const TextTable& list);

    PostingKind kind_;
    GridView* list_;
    FieldForm* form_;
};

} // namespace hotel
