#pragma once

// A query from its form to its list, as the screens and the main menu offer it: ask for the conditions,
// search, show what was found; where nothing was, say so and ask again. What differs between the
// queries is a table.
//
//     const ListQuery kRepairHistory = {
//         .caption = u"请输入维修计划信息历史资料查询组合条件"_s,
//         .title = u"客房维修计划信息清单"_s,
//         .columns = columns,
//         .nameLabel = u"维修单号"_s,
//         .dated = true,
//         .search = SearchFiles(u"维修信息"_s, [](QDate first, QDate last) {
//             return MonthFiles(first, last, HistoryFile);
//         }),
//     };
//     OpenListQuery(kRepairHistory, this);

#include <QDate>
#include <QString>
#include <QStringList>
#include <functional>

#include "tools/queries/query_walk.h"

class QWidget;

namespace hotel {

// What the user has asked for.
struct QueryAnswer {
    QString conditionText;
    QDate first; // the period of the data
    QDate last;
    int nameColumn = kNoNameColumn; // where the record's own name is shown
};

// Fills the list with what is found.
using ListSearch = std::function<WalkEnd(const QueryAnswer& answer, CmnGrd& list)>;

struct ListQuery {
    QString caption;     // of the query form
    QString title;       // of the list
    QStringList columns; // of the list, and what can be searched, in this order
    QString
        nameLabel; // the column that shows the record's own name; empty: 记录名, if there is one
    bool dated = false; // the form asks for the period of the data
    ListSearch search;
};

// A search of one project through the files of a period.
ListSearch SearchFiles(const QString& project,
                       const std::function<QStringList(QDate first, QDate last)>& files);

// Runs a query as part of a handler of `parent`'s screen, which may be null. Comes back when the list
// stands, complete or as far as the walk came, or when the user has closed form or list.
void OpenListQuery(const ListQuery& query, QWidget* parent);

} // namespace hotel
