#pragma once

// A folio as the cashier looks at it.

#include <QString>
#include <QStringView>

#include <optional>

#include "record/text_table.h"
#include "session/notice.h"

namespace hotel {

// Mark of a folio that is retired or was never opened: it may be looked at, nothing is posted to it.
inline constexpr QStringView kRetiredFolio = u"失效";

struct FolioView {
    bool isOpen = false;
    std::optional<Notice> notice; // why the folio isn't open

    // One row a field of the folio, the payer first: 房间号, the field's name (a room, or 基本信息); 客人姓名,
    // 证件号码, 散住, 入住时间, 入住日期, 预计离店, 付费客人, 人像照片; then every further field that an entry
    // holds. A room with several guests shows the first; each further one has a row of his own, under the
    // room's name again.
    TextTable rows;
};

// An open folio is one read; of any other the last state that its ledger has.
FolioView LoadJzhToGrid(QStringView folio);

TextTable FolioRows(QStringView folioRecord);

// The number of an open folio in a tree of the open-folio file: what stands behind the first blank of
// the node's key. Empty when that is none.
QString FolioOfNode(QStringView nodeKey);

} // namespace hotel
