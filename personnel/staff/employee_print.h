#pragma once

// What personnel prints of one employee.

#include <QMap>
#include <QString>
#include <QStringView>

namespace hotel {

// The personnel form by the house's own format, dygs\员工信息打印格式.qvr: projects 纸张 and 员工信息, of which the
// blocks 标题, 表头, 表芯 and 表底 are printed once and 表芯1 once an entry of the repeating lists, over as many
// pages as they need. A cell whose text is a field in square brackets, [姓名], takes that field's value; besides
// the fields of the record there are [单位] (the hotel), [日期], [操作员], and in 表芯1 [清单] and [内容].
void PrintEmployee(const QString& record);

// The values of the cells of a block whose texts are fields in brackets. An empty value is a blank, so that the
// brackets are not printed.
QMap<int, QString> CellsByField(QStringView block, QStringView values);

// A card with the employee's number as bars, for a desk whose reader types what it reads.
void PrintBarCodeCard(const QString& record);

// The bars of a text in Code 39 with its start and stop signs: for each element from left to right, which begin
// with a bar and go on by turns, whether it is a wide one. Empty for a text with signs that the code doesn't have;
// small letters count as capitals.
QString Code39(QStringView text); // 'n' narrow, 'w' wide

} // namespace hotel
