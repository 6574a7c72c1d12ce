#pragma once

// Guest history: who has stayed here before, kept by identity document. The file goes by the document,
// below the folder of guest history (parameter KszlLj):
//
//     document kind, length of its number   folder                        file
//     身份证, 15                             kind \ first 2 characters \   characters 7 to 10 .QVR
//     身份证, 18                             kind \ first 2 characters \   characters 9 to 12 .QVR
//     身份证, other                          none: such a number isn't kept
//     any other kind                        kind \ first 2 characters \   characters 1 to 8 .QVR
//
// so that identity cards go by province and year (and month) of birth. One record a document, keyed by
// its number:
//
//     姓名         name
//     证件号码     document number, in capitals
//     结账日期     when the guest left last, yyyy-MM-dd
//     结账号清单   the folios of all stays, one field each: 001, 002, ...

#include <QString>
#include <QStringView>

namespace hotel {

namespace guest_history {
inline constexpr QStringView kProject = u"客史资料信息";
inline constexpr QStringView kName = u"姓名";
inline constexpr QStringView kDocumentNumber = u"证件号码";
inline constexpr QStringView kLeft = u"结账日期";
inline constexpr QStringView kFolios = u"结账号清单";
} // namespace guest_history

// Empty for a document that isn't kept: an identity card of another length, a kind of less than 3
// characters, a number of less than 6, or one of ":", "/" and "\" in either.
QString GuestHistoryFile(QStringView documentKind, QStringView documentNumber);

// Adds a stay to the guest's history. 0 when it is written or the document isn't kept. When what stands
// there can't be read, nothing is written, so that earlier stays aren't lost: the status is -1, and this
// stay is missing in the history.
int UpdateKrLsRec(QStringView name, QStringView documentKind, const QString& documentNumber,
                  QStringView left, QStringView folio);

} // namespace hotel
