#pragma once

// Finding a folio among the open ones by what a desk knows of it: a part of its number, a room, a
// guest.

#include <QString>
#include <QStringList>
#include <QStringView>

#include "house/folios/folio_summary.h"

namespace hotel {

// A folio's searchable words: its rooms, and its guests by name and by pinyin initials.
QStringList SearchWords(const FolioSummary& folio);

// Whether what is typed means the folio: digits anywhere in its number, or the beginning of a word.
// Letter case doesn't matter; nothing typed means every folio.
bool MatchesFolio(QStringView number, const QStringList& words, QStringView typed);

// Numbers of the open folios that are meant, in the order of their file, at most kFolioHitLimit.
inline constexpr int kFolioHitLimit = 1000;
QStringList FindFolios(QStringView typed);

} // namespace hotel
