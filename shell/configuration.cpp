#include "shell/configuration.h"

#include <QFile>
#include <QStringDecoder>

#include "record/code_page.h"
#include "record/numbers.h"
#include "record/record_text.h"

namespace hotel {

namespace {

constexpr qsizetype kShortestAddress = 8;
constexpr qsizetype kShortestPort = 3;
constexpr int kHighestPort = 65535;

QString DecodeFile(const QByteArray& bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(bytes);
    return utf8.hasError() ? DecodeRequest(bytes) : text;
}

} // namespace

Configuration ParseConfiguration(QStringView text) {
    QString joined = text.toString();
    joined.remove(u'\r').remove(u'\n');

    Configuration configuration;
    if (const QString address = GetTag(joined, u"IP地址"); address.size() >= kShortestAddress)
        configuration.address = address;
    if (const QString port = GetTag(joined, u"端口地址"); port.size() >= kShortestPort) {
        const double number = LeadingNumber(port);
        if (number >= 1 && number <= kHighestPort)
            configuration.port = int(number);
    }
    configuration.debugMode = LeadingNumber(GetTag(joined, u"调试方式")) != 0;
    return configuration;
}

Configuration ReadConfiguration(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return ParseConfiguration(DecodeFile(file.readAll()));
}

QString ConfigurationPath(const QStringList& arguments, const QString& programFolder) {
    if (arguments.size() > 1)
        return arguments.mid(1).join(u' ');
    return programFolder + u"/Hotel.Cfg"_s;
}

} // namespace hotel
