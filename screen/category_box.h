#pragma once

// A drop-down over a category. Its entries are read when they are first wanted, and, once that has
// succeeded, not again.
//
// Letters look for an entry (see SetCategoryMatch): at once where only entries can be chosen; where any
// text may be typed, a text of plain letters turns into the entry it means when Enter or Tab leaves the
// box, and stays where it means none. A box that its owner fills, with what was typed earlier for instance,
// only offers: what is typed there is what is meant.

#include <QComboBox>
#include <QElapsedTimer>
#include <QStringList>

namespace hotel {

class CategoryBox : public QComboBox {
    Q_OBJECT

public:
    // With `category` empty the owner fills the box. `freeText`: any text may be typed as well.
    CategoryBox(const QString& category, bool freeText, QWidget* parent = nullptr);

    // Shows a value, in the list or not.
    void setValue(const QString& text);

    void setChoices(const QStringList& entries);

    // Reads the category if that has not been done.
    void fill();

    void showPopup() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void takeInitials();
    void selectByLetters(const QString& letters);

    QString category_;
    bool filled_;
    QString letters_; // typed within the last moment
    QElapsedTimer sinceLetter_;
};

} // namespace hotel
