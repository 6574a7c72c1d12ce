#pragma once

// Who can punch: the employees by number and card, kept in memory while a punching desk is open. It is filled from
// the personnel file, department by department, by the first number it doesn't know, and once more by each further
// one; a person who is known costs no command.

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include "link/records.h"

namespace hotel {

struct StaffMember {
    QString department;
    QString number;
    QString name;
    QString card;
    QString post;
};

inline constexpr int kDirectoryLimit = 1000;
inline constexpr int kDirectoryDepartmentLimit = 500;

// Whom a typed or swiped text means: whose number it is, or whose card, or whose number it equals as a number that
// is not 0 ("12" is 0012), in this order. Blanks around a card don't count.
class StaffDirectory {
public:
    struct Found {
        Reading outcome =
            Reading::Failed; // Failed: not in the directory, and the staff could not be read
        StaffMember member;
        bool byCard = false;
    };
    Found find(QStringView entered);

    // Reads the staff anew. False when it can't be read, which leaves what is known.
    bool refill();
    int size() const { return int(members_.size()); }

private:
    const StaffMember* known(const QString& entered) const;
    void setMembers(const QList<StaffMember>& members);

    QList<StaffMember> members_;
    QHash<QString, qsizetype> byNumber_;
    QHash<QString, qsizetype> byCard_;
    QHash<double, qsizetype> byValue_; // of the number
};

} // namespace hotel
