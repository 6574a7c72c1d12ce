#pragma once

// Hotel.Cfg: where the record server is, what this site calls its own, and whether the link window shows.
// Record text, read line by line with the lines joined without separators. A missing file is no error: the
// defaults hold.
//
//     IP地址        server address; taken only when longer than 7 characters
//     端口地址      server port; taken only when 3 characters or longer, read as a number
//     调试方式      a number other than 0 shows the link window
//     校准本机时钟  a number other than 0 has the machine's own clock set at login as well
//     <parameter>   the site's value of a parameter, under its own name (session/parameters.h)

#include <QHash>
#include <QString>
#include <QStringList>
#include <QStringView>

namespace hotel {

struct Configuration {
    QString address = QStringLiteral("127.0.0.1");
    int port = 6801;
    bool debugMode = false;
    bool setsMachineClock = false;
    QHash<QString, QString> parameters; // the site's values by name
    QStringList refused;                // a line of words for each value that can't be taken
};

Configuration ParseConfiguration(QStringView text);

// The file of that path; the defaults when it can't be read. UTF-8, or the Chinese code page where it
// is not valid UTF-8.
Configuration ReadConfiguration(const QString& path);

// The whole command line behind the program's name is the path, blanks included; without one it is
// Hotel.Cfg in `programFolder`.
QString ConfigurationPath(const QStringList& arguments, const QString& programFolder);

} // namespace hotel
