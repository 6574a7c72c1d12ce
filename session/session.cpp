#include "session/session.h"

#include "record/record_text.h"

namespace hotel {

Session& CurrentSession() {
    static Session session;
    return session;
}

bool HasRight(QStringView right) {
    return CurrentSession().rights.contains(right);
}

Session SessionFromUserRecord(const QString& userId, const QString& record) {
    return {.userId = userId,
            .userName = GetTag(record, user_record::kName),
            .userDept = GetTag(record, user_record::kDepartment),
            .rights = TrimBlanks(GetTag(record, user_record::kRights))};
}

} // namespace hotel
