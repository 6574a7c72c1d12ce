#include "server/store_engine.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QUuid>

#include "record/literals.h"

namespace hotel {

namespace {

const QString kPostgresPlace = u"postgresql:"_s;

constexpr const char* kTables[] = {
    "CREATE TABLE IF NOT EXISTS file (id $key, path $text NOT NULL UNIQUE, name $text NOT NULL, "
    "kind INTEGER NOT NULL)",
    "CREATE TABLE IF NOT EXISTS project (id $key, file $id NOT NULL, name $text NOT NULL, "
    "UNIQUE (file, name))",
    "CREATE TABLE IF NOT EXISTS record (id $key, project $id NOT NULL, name $text NOT NULL, "
    "number DOUBLE PRECISION NOT NULL, value $text NOT NULL, UNIQUE (project, name))",
    "CREATE INDEX IF NOT EXISTS record_number ON record (project, number, id)",
    "CREATE TABLE IF NOT EXISTS upload (file $key, content $bytes NOT NULL)",
};

} // namespace

Rows::Rows(QSqlQuery& lent, Reading reading) : lent_(&lent), reading_(reading) {}

Rows::Rows(QSqlQuery&& own, Reading reading) : own_(std::move(own)), reading_(reading) {}

Rows::Rows(Rows&& other) noexcept
    : own_(std::exchange(other.own_, std::nullopt)), lent_(std::exchange(other.lent_, nullptr)),
      reading_(other.reading_) {}

Rows::~Rows() {
    if (lent_ || own_)
        query().finish();
}

bool Rows::next() {
    if (query().next())
        return true;
    if (query().lastError().isValid())
        throw FailureOf(query());
    return false;
}

QString Rows::text(int column) const {
    const QString stored = query().value(column).toString();
    return reading_ ? reading_(stored) : stored;
}

StoreError FailureOf(const QSqlQuery& query) {
    const QSqlError error = query.lastError();
    const QString words =
        error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
    return StoreError(words.section(u'\n', 0, 0));
}

ConnectionName::ConnectionName() : name(QUuid::createUuid().toString()) {}

ConnectionName::~ConnectionName() {
    QSqlDatabase::removeDatabase(name);
}

QStringList TableStatements(const TableWords& words) {
    QStringList statements;
    for (const char* table : kTables)
        statements += QString::fromLatin1(table)
                          .replace(u"$key"_s, QLatin1StringView(words.key))
                          .replace(u"$id"_s, QLatin1StringView(words.id))
                          .replace(u"$text"_s, QLatin1StringView(words.text))
                          .replace(u"$bytes"_s, QLatin1StringView(words.bytes));
    return statements;
}

bool IsDatabasePlace(const QString& place) {
    return place.startsWith(kPostgresPlace);
}

std::unique_ptr<StoreEngine> OpenEngine(const QString& place, StoreEngine::Use use) {
    if (IsDatabasePlace(place))
        return OpenPostgres(place.sliced(kPostgresPlace.size()), use);
    return OpenEmbedded(place, use);
}

} // namespace hotel
