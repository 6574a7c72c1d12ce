#include "cashier/folio_box.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QWheelEvent>

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
