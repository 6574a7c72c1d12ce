#include "personnel/attendance/staff_directory.h"

#include <algorithm>

#include "personnel/attendance/staff_walk.h"
#include "record/numbers.h"
#include "record/record_text.h"

namespace hotel {

const StaffMember* StaffDirectory::known(QStringView entered) const {
    const double number = LeadingNumber(entered);
    const auto first = [this](auto means) {
        const auto member = std::ranges::find_if(members_, means);
        return member == members_.end() ? nullptr : &*member;
    };
    if (const auto* member = first([&](const auto& each) { return each.number == entered; }))
        return member;
    if (const auto* member = first([&](const auto& each) { return each.card == entered; }))
        return member;
    return number == 0
               ? nullptr
               : first([&](const auto& each) { return LeadingNumber(each.number) == number; });
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
        members_ = members;
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
