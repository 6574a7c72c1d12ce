#include "house/folios/folio_view.h"

#include "house/folios/folio.h"
#include "house/guests/guest_text.h"
#include "record/field_walk.h"
#include "record/record_text.h"

namespace hotel {

namespace {

using namespace guest_text;

constexpr int kRowLimit = 1000;

TextTable EmptyView() {
    TextTable rows;
    QStringList headers{kRoom.toString()};
    for (const QStringView header : {kName, kDocumentNumber, kSharesRoom, kArrivalTime,
                                     kArrivalDate, kDeparture, kPays, kPortrait})
        headers.append(header.toString());
    rows.setHeaders(headers);
    return rows;
}

void AddColumnsOf(TextTable& rows, QStringView entry) {
    for (FieldWalk field(entry); field.next();) {
        if (rows.column(field.name()) < 0 && !field.value().contains(u'<'))
            rows.addColumn(field.name().toString());
    }
}

// A field's cells are looked for anywhere inside it, so that a room shows its first bed.
void AddRow(TextTable& rows, QStringView name, QStringView entry) {
    AddColumnsOf(rows, entry);
    QStringList cells{name.toString()};
    for (const QString& header : rows.headers().sliced(1))
        cells.append(GetTag(entry, header));
    rows.addRow(cells);
}

// The guests that the room's own row doesn't show.
void AddFurtherBeds(TextTable& rows, QStringView room, QStringView beds) {
    bool isShown = true;
    for (FieldWalk bed(beds); bed.next();) {
        if (!bed.value().contains(u'<'))
            continue;
        if (!isShown)
            AddRow(rows, room, bed.value());
        isShown = false;
    }
}

} // namespace

FolioView LoadJzhToGrid(QStringView folio) {
    if (const auto record = FindOpenFolio(folio))
        return {true, {}, FolioRows(*record)};
    const QString last = LoadJzhLastRec(folio, folio_record::kHistoryProject);
    const Notice notice = last.isEmpty() ? Notice{u"错误"_s, u"没有这个结账号，请核对！"_s}
                                         : Notice{u"说明"_s, u"该结账号已经过期或结清！"_s};
    return {false, notice, FolioRows(last)};
}

TextTable FolioRows(QStringView folioRecord) {
    TextTable rows = EmptyView();
    const QString payer = GetTag(folioRecord, folio_record::kPayer);
    if (!payer.isEmpty())
        AddRow(rows, folio_record::kPayer, payer);
    for (FieldWalk field(folioRecord); rows.dataRows() < kRowLimit && field.next();) {
        const bool isEntry = field.value().contains(u'<');
        if (!isEntry || field.name() == folio_record::kPayer)
            continue;
        AddRow(rows, field.name(), field.value());
        AddFurtherBeds(rows, field.name(), field.value());
    }
    return rows;
}

QString FolioOfNode(QStringView nodeKey) {
    const qsizetype blank = nodeKey.indexOf(u' ');
    const QString number = blank < 0 ? QString() : TrimBlanks(nodeKey.sliced(blank));
    return IsFolioNumber(number) ? number : QString();
}

} // namespace hotel
