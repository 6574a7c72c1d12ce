#include "personnel/attendance/staff_directory.h"

#include "personnel/attendance/staff_walk.h"
#include "record/numbers.h"
#include "record/record_text.h"

namespace hotel {

// The first whose number it is, or whose card, or whose number is of that value.
const StaffMember* StaffDirectory::known(const QString& entered) const {
    const auto at = [this](const auto& index, const auto& key) {
        const auto found = index.constFind(key);
        return found == index.cend() ? nullptr : &members_[*found];
    };
    if (const StaffMember* member = at(byNumber_, entered))
        return member;
    if (const StaffMember* member = at(byCard_, entered))
        return member;
    const double number = LeadingNumber(entered);
    return number == 0 ? nullptr : at(byValue_, number);
}

void StaffDirectory::setMembers(const QList<StaffMember>& members) {
    members_ = members;
    byNumber_.clear();
    byCard_.clear();
    byValue_.clear();
    // From the last on, so that of those with one card the first stays.
    for (qsizetype n = members_.size() - 1; n >= 0; --n) {
        byNumber_.insert(members_[n].number, n);
        byCard_.insert(members_[n].card, n);
        byValue_.insert(LeadingNumber(members_[n].number), n);
    }
}

bool StaffDirectory::refill() {
    QList<StaffMember> members;
    const bool read = EachDepartment([&](const QString& department, QStringView employees) {
        int taken = 0;
        EachEmployee(employees, [&](const QString& number, QStringView record) {
            if (members.size() < kDirectoryLimit && ++taken <= kDirectoryDepartmentLimit)
                members.append({.department = department,
                                .number = number,
                                .name = GetTag(record, employee::kName),
                                .card = TrimWhite(GetTag(record, employee::kCard)),
                                .post = GetTag(record, employee::kPost)});
        });
    });
    if (read)
        setMembers(members);
    return read;
}

StaffDirectory::Found StaffDirectory::find(QStringView entered) {
    const QString text = TrimWhite(entered);
    if (text.isEmpty())
        return {Reading::Absent, {}, false};
    const StaffMember* member = known(text);
    if (!member) {
        if (!refill())
            return {};
        member = known(text);
    }
    if (!member)
        return {Reading::Absent, {}, false};
    const bool byCard = text == member->card && text != member->number;
    return {Reading::Present, *member, byCard};
}

} // namespace hotel
