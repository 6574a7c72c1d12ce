#include "cashier/folio_box.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QWheelEvent>

#include "cashier/folio_search.h"
#include "house/folios/folio.h"
#include "house/folios/folio_view.h"
#include "record/literals.h"
#include "screen/key_filter.h"

namespace hotel {

namespace {

constexpr auto kTag = "Tag";
constexpr int kShownChoices = 20;

} // namespace

FolioBox::FolioBox(const QString& name, QWidget* parent) : QComboBox(parent) {
    setObjectName(name);
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr); // it would complete half a number to somebody else's folio
    setMaxVisibleItems(kShownChoices);
    setMinimumContentsLength(kFolioLength + 4);
    SetKeyFilter(lineEdit(), KeyFilter::Capitals);
    lineEdit()->setPlaceholderText(u"账号、房号或姓名"_s);
}

QString FolioBox::folio() const {
    return IsFolioNumber(currentText()) ? currentText() : QString();
}

void FolioBox::setChoices(const QStringList& folios) {
    const QString shown = currentText();
    const QSignalBlocker quiet(this);
    clear();
    addItems(folios);
    setCurrentIndex(findText(shown));
    setEditText(shown);
}

void FolioBox::search() {
    if (!found_.isEmpty() && currentText() == found_ && count() > 0)
        return showPopup();
    const QString typed = searchedText();
    if (typed.isEmpty())
        return;
    const QStringList folios = FindFolios(typed);
    if (folios.size() == 1)
        return setFolio(folios.first());
    setChoices(folios);
    found_ = u"%1个相关结账号"_s.arg(folios.size());
    setEditText(found_);
    lineEdit()->selectAll();
}

QString FolioBox::searchedText() const {
    const QString typed = currentText();
    return IsFolioNumber(typed) || typed == found_ ? QString() : typed;
}

bool FolioBox::isRetired() const {
    return property(kTag).toString() == kRetiredFolio;
}

void FolioBox::setRetired(bool retired) {
    setProperty(kTag, retired ? kRetiredFolio.toString() : QString());
}

void FolioBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && !currentText().isEmpty())
        clearEditText();
    else
        QComboBox::keyPressEvent(event);
}

// A wheel turned in passing would go to another folio.
void FolioBox::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

} // namespace hotel
