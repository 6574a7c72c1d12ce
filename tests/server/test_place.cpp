#include "tests/server/test_place.h"

#include <csignal>
#include <sys/resource.h>

#include <QDirIterator>
#include <QSqlDatabase>
#include <QSqlQuery>

#include "record/literals.h"

namespace hotel {

namespace {

// Bytes of the longest file in the folder.
qint64 LongestFile(const QString& folder) {
    qint64 longest = 0;
    QDirIterator files(folder, QDir::Files);
    while (files.hasNext())
        longest = std::max(longest, QFileInfo(files.next()).size());
    return longest;
}

} // namespace

TestPlace::TestPlace() {
    if (!isShared())
        return;
    static int count = 0;
    schema_ = u"place%1"_s.arg(++count);
    postgres().execute(u"CREATE SCHEMA "_s + schema_, schema_);
}

bool TestPlace::isShared() {
    return qgetenv("HOTEL_TEST_STORE") == "postgresql";
}

PrivatePostgres& TestPlace::postgres() {
    static PrivatePostgres server;
    return server;
}

QString TestPlace::name() const {
    return isShared() ? u"postgresql: "_s + postgres().connection(schema_) : folder();
}

QString TestPlace::missing() {
    return isShared() ? u"postgresql: "_s + postgres().connection(u"nowhere"_s) : u"/nowhere"_s;
}

QStringList TestPlace::arguments(const QString& name) {
    return {isShared() ? u"--store"_s : u"--data"_s, name};
}

int TestPlace::execute(const QString& sql) const {
    if (isShared()) {
        const QString count = u"WITH changed AS (%1 RETURNING 1) SELECT count(*) FROM changed"_s;
        return postgres().execute(count.arg(sql), schema_).toInt();
    }
    int changed = 0;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"beside"_s);
        database.setDatabaseName(folder_.filePath(u"store.db"_s));
        database.open();
        QSqlQuery query(database);
        query.exec(sql);
        changed = query.numRowsAffected();
    }
    QSqlDatabase::removeDatabase(u"beside"_s);
    return changed;
}

// The system refuses to make files of this process longer.
StoreLimit::StoreLimit(const TestPlace& place, qint64 bytes) : place_(place) {
    if (TestPlace::isShared()) {
        TestPlace::postgres().execute(
            u"CREATE FUNCTION refuse() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN "
            "IF (SELECT sum(octet_length(value)) FROM record) > %1 + "
            "(SELECT bytes FROM before) THEN "
            "RAISE EXCEPTION 'no space left' USING ERRCODE = 'disk_full'; END IF; "
            "RETURN NULL; END $$; "
            "CREATE TABLE before AS SELECT coalesce(sum(octet_length(value)), 0) AS bytes FROM "
            "record; "
            "CREATE TRIGGER refuse AFTER INSERT OR UPDATE ON record EXECUTE FUNCTION refuse()"_s
                .arg(bytes),
            place_.schema());
        return;
    }
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    before_ = limit.rlim_cur;
    limit.rlim_cur = rlim_t(LongestFile(place_.folder()) + bytes);
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

StoreLimit::~StoreLimit() {
    if (TestPlace::isShared()) {
        TestPlace::postgres().execute(u"DROP TABLE before; DROP FUNCTION refuse CASCADE"_s,
                                      place_.schema());
        return;
    }
    rlimit limit{};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = rlim_t(before_);
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

} // namespace hotel
