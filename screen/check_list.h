#pragma once

// A short list whose entries are each on or off: filters, for instance. The space bar or a click on an
// entry turns it; the arrow keys go through the list; a letter or digit looks for the next entry that
// begins so.

#include <QList>
#include <QListWidget>
#include <QString>
#include <QStringList>

namespace hotel {

class CheckList : public QListWidget {
    Q_OBJECT

public:
    explicit CheckList(const QString& name, QWidget* parent = nullptr);

    // The entries, all of them on.
    void setEntries(const QStringList& entries);
    QStringList entries() const;

    // On or off by entry. Entries that `ticks` doesn't reach keep what they are.
    QList<bool> ticks() const;
    void setTicks(const QList<bool>& ticks);

    QStringList tickedEntries() const;

    QSize sizeHint() const override;

Q_SIGNALS:
    void ticked(); // the user has turned an entry

private:
    bool quiet_ = false;                     // entries are being set, not turned
    Qt::CheckState pressed_ = Qt::Unchecked; // of the entry under the mouse when it was pressed
};

} // namespace hotel
