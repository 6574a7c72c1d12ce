#pragma once

// The box for a folio number, as every screen of the cashier has it: typed (full-width digits count) or
// chosen from the open folios. What is no number yet may be searched by; Esc empties the box.

#include <QComboBox>
#include <QString>
#include <QStringList>

namespace hotel {

class FolioBox : public QComboBox {
    Q_OBJECT

public:
    explicit FolioBox(const QString& name, QWidget* parent = nullptr);

    // The number in the box; empty while what stands there is none. editTextChanged tells of every
    // change.
    QString folio() const;
    void setFolio(const QString& folio) { setEditText(folio); }

    void setChoices(const QStringList& folios);

    // Looks for the open folios that what is typed means (cashier/folio_search.h). The one that is found is
    // taken; of several, or none, the box tells how many there are ("3个相关结账号") and offers them.
    void search();
    // What is typed to search by; empty while a number or the count of found ones stands there.
    QString searchedText() const;

    // The mark of a folio that may only be looked at. It is the box's property Tag, too: "失效" or empty.
    bool isRetired() const;
    void setRetired(bool retired);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QString found_; // the words that tell of the last search
};

} // namespace hotel
