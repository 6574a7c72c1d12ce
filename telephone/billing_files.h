#pragma once

// Where the call accounting keeps its records on the server: below one folder, by names of the configuration.
//
//     FEE.QVR                 系统参数 and 费率定义     the tariff (tariff.h)
//     STATION.QVR             分机信息                 the extensions (extensions.h)
//     yy\MM\yyMMdd.QVR        电话详细话单             the calls of a day (call_record.h)
//
// The tables are projects that are read and written whole. In each the record's name is the row's key.

#include <QDate>
#include <QString>

#include "record/text_table.h"
#include "telephone/accounting_config.h"

namespace hotel {

// The folder that the desk starts with, its "\" at the end.
inline constexpr QStringView kBillingFolder = u"Bill\\";

class BillingFiles {
public:
    explicit BillingFiles(const AccountingConfig& config = {},
                          const QString& folder = kBillingFolder.toString());

    QString rateFile() const { return folder_ + rateFile_; }
    QString extensionFile() const { return folder_ + extensionFile_; }
    QString dayFile(QDate day) const;

private:
    QString folder_;
    QString rateFile_;
    QString extensionFile_;
    QString dayPattern_;
};

// A table as a project: a record a row, named by the cell of `keyColumn`, its fields by the headers of the
// others. A row without a key is not stored; of two rows with one key the first is.
QString TableText(const TextTable& table, int keyColumn);

// The records of a project as rows below `headers`.
TextTable TableOf(QStringView projectText, const QStringList& headers, int keyColumn);

} // namespace hotel
