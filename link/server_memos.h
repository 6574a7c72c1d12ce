#pragma once

// What the commands of serv_api remember between calls; one set a link.

#include <array>

#include <QString>
#include <QStringList>

namespace hotel {

// The list of one call, and the arguments with which it was fetched.
struct ListMemo {
    QStringList entries;
    QStringList arguments;
};

struct BufferedReadMemo {
    QStringList place; // file and project
    QString record;
    QString answer;
    QString value;
    double used = 0;    // seconds since midnight
    qsizetype next = 0; // behind the value taken last
};

struct CachedRecord {
    QString file;
    QString record;
    QString stamp;
    double fetched = 0; // seconds since midnight
    int uses = 0;
    QString value;
};

struct ServerMemos {
    ListMemo users;
    ListMemo projects;
    ListMemo files;
    ListMemo records;
    ListMemo foundByKeywords;
    ListMemo foundByConditions;
    BufferedReadMemo buffered;
    std::array<CachedRecord, 10> cached;
};

} // namespace hotel
