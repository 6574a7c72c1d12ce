#pragma once

// A record server in a thread of its own, for programs that want one beside them.

#include <exception>

#include <QSemaphore>
#include <QThread>

#include "server/record_server.h"

namespace hotel {

class ServerThread : private QThread {
public:
    // Comes back when the server listens. Throws StoreError as RecordServer does. The settings'
    // clock is called on the server's thread.
    explicit ServerThread(ServerSettings settings);

    // Answers what has been received and ends. finish() throws what keeps the last changes from being
    // written.
    void finish();
    ~ServerThread() override;

    quint16 port() const { return port_; }

private:
    void run() override;

    ServerSettings settings_;
    QSemaphore started_;
    std::exception_ptr failure_;
    quint16 port_ = 0;
};

} // namespace hotel
