#pragma once

// The night audit: what makes room charges accumulate from night to night. It walks every room in a status
// that is settled, posts one night a bed (or one a room that is let as a whole) to its folio, retires the
// folios that hold no room any more, and tells all of it to a log. The audit keeps nothing else: what is
// charged is decided by each bed's 结算日期 alone (house/folios/night_charge.h), so that a second audit of a
// night charges only what the dates still allow.
//
// A charge, in its order of writing:
//
//     费用名称   结算日期 as the bed had it, and 房费: the first night of a stay has no date, and is 房费
//     房间号     room
//     客人       the guest of the bed
//     日期       of the posting, "yyyy-MM-dd"
//     时间       likewise, "HH:mm:ss"
//     金额       factor times 确认房价, "#0.00"
//     备注       自动结算
//     经办单位   department and
//     经办人     name of the auditor
//
// A room is let as a whole when the first bed that is taken has a 房态 without 散 and its 散住客人 is 0: it
// pays once, by that bed. Check-in writes no 散住客人 (a guest who shares his room carries 散住), so that the
// status decides.
//
// Nothing stops the audit. What fails is logged, and the walk goes on (a room whose guests can't be read is left
// for the next audit, and so is a house whose rooms or statuses can't); a bed whose charge could not be posted
// is settled through its new date all the same, and a charge whose date could not be written is posted once
// more by the next audit.

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <functional>

#include "house/common/walk_progress.h"

namespace hotel {

// Category of the statuses whose rooms are settled.
inline constexpr QStringView kSettledStatuses = u"结算房态";

inline constexpr QStringView kFirstAuditStep = u"0";

// The date that an audit begun at this moment bears, "yyyy-MM-dd": behind 18:00:00 that of the next day, so
// that an audit in the evening and one in the small hours behind it are of the same date.
QString AuditDate(const QDateTime& now);

struct NightAudit {
    QString auditDate;
    QStringList
        statuses; // a room is settled whose status occurs in them, joined with "," behind each
    QString department; // of the auditor, as in the charges
    QString auditor;    // likewise
    std::function<void(const QString& line)> log;
    WalkProgress progress = {}; // within a step
};

// Logs the step of this tag ("0" to "10"), does its work and gives the tag of the next one; empty behind the
// last step and where the audit was stopped, which is logged. An unknown tag does nothing. Steps 3 to 9 are
// lines of the log and nothing more: they keep the place of checks to come.
QString RunAuditStep(QStringView tag, const NightAudit& audit);

} // namespace hotel
