#pragma once

// The number of a folio: twelve digits, the moment of its creation as yyMMddHHmmss. Its first six digits
// are the day by which its ledger is filed.

#include <QDateTime>
#include <QString>
#include <QStringView>

namespace hotel {

inline constexpr int kFolioLength = 12;

QString NewFolioNumber(const QDateTime& now);
bool IsFolioNumber(QStringView text);

} // namespace hotel
