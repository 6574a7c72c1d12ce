#include "tests/test_hotel.h"

#include <stdexcept>

#include <QFile>

#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "server/server_thread.h"
#include "server/store.h"
#include "server/tree.h"
#include "session/operation_log.h"
#include "session/parameters.h"
#include "session/session.h"

namespace hotel {

namespace {

constexpr QLatin1StringView kTreeRoot{HOTEL_TREE};

// The filled store, made once for all tests of the program and copied for each.
const QString& FilledStore() {
    static const QTemporaryDir folder;
    static const QString path = [] {
        Store store(folder.path(), Store::Use::Serve);
        for (const QString& tree : {kTreeRoot + u"/install"_s, kTreeRoot + u"/demo"_s}) {
            const TreeReport report = ImportTree(store, tree);
            if (!report.faults.isEmpty())
                throw std::runtime_error(report.faults.join(u'\n').toStdString());
        }
        return folder.path();
    }();
    return path;
}

void CopyFolder(const QString& from, const QString& to) {
    for (const QString& name : QDir(from).entryList(QDir::Files))
        QFile::copy(from + u'/' + name, to + u'/' + name);
}

} // namespace

Desk::Desk(quint16 port) {
    link_.setMessage([this](const QString& words, const QString&) { said_.append(words); });
    link_.ProdID = u"Hotel"_s;
    use();
    link_.ConnectServer(u"127.0.0.1"_s, QString::number(port));
}

Desk::~Desk() {
    Wck_comm* current = SetLink(nullptr);
    if (current != &link_)
        SetLink(current);
}

void Desk::logIn(const QString& user, const QString& password) {
    use();
    if (DbLogin(user, password) != 0)
        throw std::runtime_error("the test user could not log in");
    CurrentSession() =
        SessionFromUserRecord(user, DbReadRecord(DbUserFileName(), user_record::kProject, user));
}

void Desk::use() {
    SetLink(&link_);
}

QDateTime TestHotel::Moment() {
    return QDateTime(QDate(2026, 3, 5), QTime(10, 0));
}

TestHotel::TestHotel(Start start, int turnsOfCommit)
    : serverClock_(Moment().toMSecsSinceEpoch()), turnsOfCommit_(turnsOfCommit) {
    CopyFolder(FilledStore(), folder_.path());
    Clock::Freeze(Moment());
    SetSiteParameters({});
    ResetParameters();
    CurrentSession() = {};
    startServer();
    desk_ = std::make_unique<Desk>(port_);
    if (start == Start::LoggedIn)
        desk_->logIn(u"ADMIN"_s, kAdminPassword);
}

TestHotel::~TestHotel() {
    desk_.reset();
    server_.reset();
    Clock::Resume();
}

void TestHotel::stopServer() {
    server_.reset();
}

void TestHotel::startServer() {
    ServerSettings settings;
    settings.store = folder_.path();
    settings.port = port_;
    settings.turnsOfCommit = turnsOfCommit_;
    settings.clock = [this] { return QDateTime::fromMSecsSinceEpoch(serverClock_); };
    server_ = std::make_unique<ServerThread>(settings);
    port_ = server_->port();
}

QString TestHotel::stored(const QString& file, const QString& project, const QString& record) {
    Wck_comm* current = SetLink(nullptr);
    QString value;
    {
        const Session session = CurrentSession();
        Desk looker(port_);
        looker.logIn(u"ADMIN"_s, kAdminPassword);
        value = DbReadRecord(file, project, record);
        CurrentSession() = session;
    }
    SetLink(current);
    return IsError(value) ? QString() : value;
}

QString TestHotel::logged(QStringView field, const QString& second) {
    return GetTag(stored(OperationLogFile(u"2026-03-05", Moment().date()),
                         operation_log::kProject.toString(), second),
                  field);
}

} // namespace hotel
