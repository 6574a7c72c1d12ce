#pragma once

// Finding records on the server. An empty project name searches all projects of the file, in order.

#include <QString>
#include <QStringList>
#include <QStringView>

#include "server/store.h"

namespace hotel {

// Names of the records that match a condition text (record/conditions.h), in their order. The one
// condition that precedes every posting, an extreme of `记录名`, is answered without looking at the
// records.
QStringList FindByConditions(Store& store, const StorePath& path, const QString& project,
                             QStringView conditionText);

// Keywords, each list separated by ",": a record is found when its value holds all of `required`,
// one of `optional` if there are any, and none of `excluded`.
struct Keywords {
    QStringList required;
    QStringList optional;
    QStringList excluded;
};
QStringList SplitKeywords(QStringView list);
QStringList FindByKeywords(Store& store, const StorePath& path, const QString& project,
                           const Keywords& keywords);

} // namespace hotel
