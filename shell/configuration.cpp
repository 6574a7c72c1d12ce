#include "shell/configuration.h"

#include <QFile>
#include <QStringDecoder>

#include "record/code_page.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "session/parameters.h"

namespace hotel {

namespace {

constexpr qsizetype kShortestAddress = 8;
constexpr qsizetype kShortestPort = 3;
constexpr int kHighestPort = 65535;

bool IsOn(const QString& text, QStringView key) {
    return LeadingNumber(GetTag(text, key)) != 0;
}

void TakeParameters(const QString& text, Configuration& configuration) {
    for (const Parameter& parameter : Parameters()) {
        if (!text.contains(u"<%1>"_s.arg(parameter.name)))
            continue;
        const QString value = GetTag(text, parameter.name);
        const QString objection = CheckParameter(parameter, value);
        if (objection.isEmpty())
            configuration.parameters.insert(parameter.name.toString(), value);
        else
            configuration.refused += u"%1（%2）：“%3”没有采用，%4。"_s.arg(
                parameter.label, parameter.name, value, objection);
    }
}

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
    configuration.debugMode = IsOn(joined, u"调试方式");
    configuration.setsMachineClock = IsOn(joined, u"校准本机时钟");
    TakeParameters(joined, configuration);
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
