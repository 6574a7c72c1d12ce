#include "screen/category_box.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <algorithm>
#include <utility>

#include "screen/field_form.h"
#include "screen/key_filter.h"
#include "screen/screen.h"

namespace hotel {

namespace {

std::function<std::optional<QStringList>(QStringView)> categoryLoader;

std::function<bool(QStringView, QStringView)> categoryMatch = [](QStringView entry,
                                                                 QStringView typed) {
    return entry.startsWith(typed, Qt::CaseInsensitive);
};

} // namespace

void SetCategoryLoader(std::function<std::optional<QStringList>(QStringView category)> loader) {
    categoryLoader = std::move(loader);
}

void SetCategoryMatch(std::function<bool(QStringView entry, QStringView typed)> match) {
    categoryMatch = std::move(match);
}

CategoryBox::CategoryBox(const QString& category, bool freeText, QWidget* parent)
    : QComboBox(parent), category_(category), filled_(category.isEmpty()) {
    setEditable(freeText);
    setInsertPolicy(NoInsert);
    if (freeText)
        setCompleter(nullptr);
    setMaxVisibleItems(16);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
}

void CategoryBox::setValue(const QString& text) {
    if (!isEditable() && findText(text) < 0 && !text.isEmpty())
        addItem(text);
    setCurrentIndex(text.isEmpty() ? -1 : findText(text));
    if (isEditable())
        setEditText(text);
}

void CategoryBox::setChoices(const QStringList& entries) {
    const QString value = currentText();
    filled_ = true;
    clear();
    addItems(entries);
    setValue(value);
}

void CategoryBox::fill() {
    if (filled_ || !categoryLoader)
        return;
    // Reading may wait on the server, so it is a handler of the screen. What the list needs is
    // asked for again when it is opened while another handler waits.
    auto* screen = qobject_cast<Screen*>(window());
    const auto read = [this] {
        filled_ = true; // while it waits, nobody else reads
        if (const auto entries = categoryLoader(category_))
            setChoices(*entries);
        else
            filled_ = false;
    };
    if (screen)
        screen->run(read);
    else
        read();
}

void CategoryBox::showPopup() {
    fill();
    constexpr int kWidest = 480;
    constexpr int kScrollBar = 32;
    view()->setMinimumWidth(std::min(kWidest, view()->sizeHintForColumn(0) + kScrollBar));
    QComboBox::showPopup();
}

void CategoryBox::keyPressEvent(QKeyEvent* event) {
    const bool move = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    const QString letters = isEditable() ? QString() : TypedText(*event).trimmed();
    if (move || !letters.isEmpty())
        fill();
    if (letters.isEmpty())
        QComboBox::keyPressEvent(event);
    else
        selectByLetters(letters);
}

// The letters of a quick run are looked for together; a single one repeated goes on to the next
// entry.
void CategoryBox::selectByLetters(const QString& letters) {
    const bool goesOn = sinceLetter_.isValid() &&
                        !sinceLetter_.hasExpired(QApplication::keyboardInputInterval() * 2);
    sinceLetter_.start();
    letters_ = goesOn && letters_ != letters ? letters_ + letters : letters;
    const int first = qMax(0, currentIndex() + (letters_.size() == 1 ? 1 : 0));
    for (int i = 0; i < count(); ++i) {
        const int entry = (first + i) % count();
        if (categoryMatch(itemText(entry), letters_)) {
            setCurrentIndex(entry);
            Q_EMIT activated(entry);
            return;
        }
    }
}

void CategoryBox::focusOutEvent(QFocusEvent* event) {
    if (isEditable() && !category_.isEmpty() && event->reason() == Qt::TabFocusReason)
        takeInitials();
    QComboBox::focusOutEvent(event);
}

void CategoryBox::takeInitials() {
    const QString typed = currentText();
    const auto isLetter = [](QChar c) { return c.unicode() < 0x80 && c.isLetter(); };
    if (typed.isEmpty() || !std::ranges::all_of(typed, isLetter) || findText(typed) >= 0)
        return;
    fill();
    for (int entry = 0; entry < count(); ++entry) {
        if (!categoryMatch(itemText(entry), typed))
            continue;
        setCurrentIndex(entry);
        Q_EMIT activated(entry);
        return;
    }
}

void CategoryBox::wheelEvent(QWheelEvent* event) {
    event->ignore(); // a turn of the wheel over a form must not change a value
}

} // namespace hotel
