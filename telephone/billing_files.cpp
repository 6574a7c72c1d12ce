#include "telephone/billing_files.h"

#include <QSet>

#include "record/field_walk.h"
#include "record/literals.h"
#include "record/record_text.h"

namespace hotel {

BillingFiles::BillingFiles(const AccountingConfig& config, const QString& folder)
    : folder_(folder), rateFile_(config.value(accounting_key::kRateFile)),
      extensionFile_(config.value(accounting_key::kExtensionFile)),
      dayPattern_(config.value(accounting_key::kDayFile)) {
    if (!folder_.isEmpty() && !folder_.endsWith(u'\\'))
        folder_ += u'\\';
}

QString BillingFiles::dayFile(QDate day) const {
    return folder_ + day.toString(u"yy\\MM\\") + day.toString(dayPattern_);
}

QString TableText(const TextTable& table, int keyColumn) {
    QSet<QString> keys;
    QString text;
    for (int row = 1; row < table.rows(); ++row) {
        const QString key = table.text(row, keyColumn);
        if (key.isEmpty() || keys.contains(key))
            continue;
        keys.insert(key);
        if (!text.isEmpty())
            text += kCrLf;
        text += u"<%1>"_s.arg(key);
        for (int column = 0; column < table.cols(); ++column) {
            const QString value = table.text(row, column);
            if (column != keyColumn && !value.isEmpty())
                text += u"<%1>"_s.arg(table.headers()[column]) + value +
                        u"</%1>"_s.arg(table.headers()[column]);
        }
        text += u"</%1>"_s.arg(key);
    }
    return text;
}

TextTable TableOf(QStringView projectText, const QStringList& headers, int keyColumn) {
    TextTable table(headers);
    for (FieldWalk record(projectText); record.next();) {
        if (!record.closed())
            continue;
        QStringList cells(headers.size());
        for (FieldWalk field(record.value()); field.next();) {
            const qsizetype column = headers.indexOf(field.name());
            if (column >= 0)
                cells[column] = field.value().toString();
        }
        cells[keyColumn] = record.name().toString();
        table.addRow(cells);
    }
    return table;
}

} // namespace hotel
