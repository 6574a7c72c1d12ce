#include "tests/server/wire_client.h"

#include "record/code_page.h"
#include "record/login_digest.h"

namespace hotel {

namespace {

constexpr int kPatience = 60'000; // milliseconds, for a machine that is busy with other things

QDateTime TestMoment() {
    return QDateTime(QDate(2026, 3, 5), QTime(10, 0));
}

} // namespace

QByteArray RequestBytes(const QString& command, const Fields& fields, int number) {
    QString text = u"<命令>"_s + command + u"</命令>\r\n"_s;
    for (const auto& [name, value] : fields)
        text += u'<' + name + u'>' + value + u"</" + name + u">\r\n"_s;
    text += u"<命令流水号>CmdID:"_s + QString::number(number).rightJustified(3, u'0') +
            u"</命令流水号>\r\n"_s;
    return EncodeForWire(text);
}

Fields RecordFields(const QString& record, const QString& value) {
    return {{u"库文件名"_s, u"a.qvr"_s},
            {u"项目名"_s, u"p"_s},
            {u"记录"_s, record},
            {u"记录值"_s, value}};
}

WireClient::WireClient(quint16 port, const QString& user) {
    socket_.connectToHost(QHostAddress::LocalHost, port);
    socket_.waitForConnected(kPatience);
    if (!user.isEmpty())
        logIn(user, {});
}

QString WireClient::ask(const QString& command, const Fields& fields) {
    send(command, fields);
    return receive();
}

void WireClient::send(const QString& command, const Fields& fields) {
    sendBytes(RequestBytes(command, fields, sent_++ % 256));
}

void WireClient::sendBytes(const QByteArray& bytes) {
    socket_.write(bytes);
    socket_.flush();
}

QString WireClient::receive() {
    const QByteArray head =
        "CmdID:" + QByteArray::number(received_++ % 256).rightJustified(3, '0') + '>';
    qsizetype end = -1;
    while ((end = buffer_.indexOf("</" + head)) < 0) {
        if (socket_.bytesAvailable() == 0 && !socket_.waitForReadyRead(kPatience))
            return {};
        buffer_ += socket_.readAll();
    }
    if (!buffer_.startsWith('<' + head))
        return u"out of order: "_s + QString::fromLatin1(buffer_.first(12));
    const QString answer =
        DecodeRequest(QByteArrayView(buffer_).sliced(head.size() + 1, end - head.size() - 1));
    buffer_.remove(0, end + head.size() + 2);
    return answer;
}

QByteArray WireClient::readToEnd() {
    while (socket_.waitForReadyRead(kPatience))
        buffer_ += socket_.readAll();
    return std::exchange(buffer_, {}) + socket_.readAll();
}

QString WireClient::logIn(const QString& user, const QString& password, QDate day) {
    const QString date = day.toString(u"yyyy-MM-dd"_s);
    return ask(u"登录"_s, {{u"用户名"_s, user},
                           {u"密码"_s, *LoginDigest(kProductId, user, password, date)},
                           {u"MAC地址"_s, u"00000000"_s}});
}

void WriteTestUsers(const QString& place) {
    Store store(place, Store::Use::Serve);
    store.begin();
    store.writeProject(*ParseFilePath(kUserFile), kUserProject,
                       u"<前台><姓名>张三</姓名></前台>\r\n"_s +
                           u"<经理><密码>secret</密码></经理>\r\n"_s + u"<值班><密码>"_s +
                           kLongPassword + u"</密码></值班>\r\n"_s +
                           u"<远方><IP地址>10.1.2.3</IP地址></远方>"_s);
    store.commit();
}

TestServer::TestServer(const std::function<void(ServerSettings&)>& change) {
    WriteTestUsers(place_.name());
    ServerSettings settings;
    settings.store = place_.name();
    settings.port = 0;
    settings.clock = TestMoment;
    if (change)
        change(settings);
    thread_ = std::make_unique<ServerThread>(settings);
}

} // namespace hotel
