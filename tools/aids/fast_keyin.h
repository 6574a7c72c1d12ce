#pragma once

// A small form to pick an entry of a long list by typing.
//
//     ModalScreen<fast_keyin> pick(this, u"选择单位"_s, entries);
//     if (pick.show())
//         use(pick->chosen());
//
// Entries are "code,name,pinyin" (tools/aids/pinyin.h says how typed text selects one). Enter or a double
// click takes the selected entry; Esc leaves without one. (Waits for the screens of suppliers.)

#include <QStringList>

#include "screen/screen.h"

class QLineEdit;

namespace hotel {

class GridView;

class fast_keyin : public Screen {
    Q_OBJECT

public:
    fast_keyin(const QString& caption, const QStringList& entries);

    // The entry that was taken, whole; empty when there was none.
    QString chosen() const { return chosen_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void QrCmd_Click();
    void selectTyped();

    QStringList entries_;
    QString chosen_;
    QLineEdit* Key_code;
    QLineEdit* key_in;
    GridView* List1;
};

} // namespace hotel
