#include "tools/aids/recent_visits.h"

#include "link/serv_api.h"
#include "record/field_walk.h"
#include "record/record_text.h"
#include "session/parameters.h"
#include "session/session.h"

namespace hotel {

namespace {

QString RecentFile() {
    return Param(u"XtsjLj") + CurrentSession().userId + u"\\最近访问记录.QVR"_s;
}

} // namespace

QString RecentListText(const TextTable& list) {
    QString text;
    for (int row = 1; row <= qMin(list.dataRows(), kRecentVisitLimit); ++row) {
        const QString name = list.text(row, 0);
        if (name.isEmpty())
            break;
        text = SetTag(text, name, list.text(row, 1));
    }
    return text;
}

int SaveRecentList(const TextTable& list, QStringView recordName) {
    return DbModifyRecord(RecentFile(), recent_visits::kProject, recordName, RecentListText(list));
}

void LoadRecentList(TextTable& list, QStringView recordName) {
    list.clearRows();
    const QString text = DbReadRecord(RecentFile(), recent_visits::kProject, recordName);
    if (IsError(text))
        return;
    FieldWalk visits(text);
    while (visits.next() && list.dataRows() < kRecentVisitLimit) {
        if (!visits.value().isEmpty())
            list.addRow({visits.name().toString(), visits.value().toString()});
    }
}

} // namespace hotel
