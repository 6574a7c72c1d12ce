#pragma once

// The link: one TCP connection to the record server, direct or through a SOCKS5 proxy without
// authentication. A command goes out with a number; the answer comes back in a frame with the same
// number and waits in a table until its command takes it, so that a timer may issue a command while
// another one waits.
//
// Nothing here fails with an exception: a command that can't be answered gives a text with <ERROR>.
//
// The connection does not log itself in again after it was lost. The screens tell the user to.

#include <array>
#include <functional>
#include <memory>

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTcpSocket>
#include <QTimer>

#include "record/code_page.h"

namespace hotel {

class ServerMemos; // the memos and caches of serv_api, one set a link

// What goes wrong on the link outside of a command's answer and must be told to the user. The link
// lies below the screens and knows no message box; the shell installs the words' way to the user.
using LinkMessage = std::function<void(const QString& words, const QString& title)>;

class Wck_comm : public QObject {
    Q_OBJECT

public:
    // Settings, texts as the link window shows them.
    QString IPaddr;
    QString Port;
    QString ProxyIP;
    QString ProxyPort;
    bool ProxyMode = false;
    QString ProdID;       // product tag that enters the login digest
    QString HardMacNo;    // one stable number a workstation, eight digits or more
    QString localIP;
    QString UserName;     // the user logged in on this connection, and the password as typed
    QString password;
    bool AliveKp = true;
    QString AliveGap;     // idle seconds before a keep-alive
    bool TraceChk = false;
    // ... (to be completed by the link's implementation)
};

} // namespace hotel
