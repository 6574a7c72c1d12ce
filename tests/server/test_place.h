#pragma once

// Where a test keeps its store. The tests of the server run over either engine: with HOTEL_TEST_STORE set to
// `postgresql` a place is a schema of its own in a PostgreSQL that all tests of the program share, and else a
// temporary folder.

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include "tests/private_postgres.h"

namespace hotel {

class TestPlace {
public:
    TestPlace();
    TestPlace(const TestPlace&) = delete;
    TestPlace& operator=(const TestPlace&) = delete;

    static bool isShared();
    // The PostgreSQL below the places.
    static PrivatePostgres& postgres();

    // As Store takes it, and the same for a store that isn't there.
    QString name() const;
    static QString missing();
    // As qvrd's command line takes it.
    static QStringList arguments(const QString& name);
    QStringList arguments() const { return arguments(name()); }

    // Of an embedded store.
    QString folder() const { return folder_.path(); }
    // Of a shared one.
    QString schema() const { return schema_; }

    // Runs SQL beside the store; gives the number of rows it has changed.
    int execute(const QString& sql) const;

private:
    QTemporaryDir folder_;
    QString schema_;
};

// While it lives the store of `place` takes values up to so many bytes altogether beyond what it has, as on
// a disk that gets full.
class StoreLimit {
public:
    StoreLimit(const TestPlace& place, qint64 bytes);
    ~StoreLimit();
    StoreLimit(const StoreLimit&) = delete;
    StoreLimit& operator=(const StoreLimit&) = delete;

private:
    const TestPlace& place_;
    quint64 before_ = 0;
};

} // namespace hotel
