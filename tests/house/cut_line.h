#pragma once

// A line between a workstation and its server that counts what goes over it and can be cut: ahead of
// the n-th write the connection is dropped, and from then on nobody answers; or one write is made
// unreadable. Runs in a thread of its
// own.

#include <QString>

#include <atomic>
#include <memory>

class QThread;

namespace hotel {

class CutLine {
public:
    explicit CutLine(quint16 serverPort);
    ~CutLine();

    quint16 port() const { return port_; }

    // Cuts ahead of this write, counted from 1 and from the last reset.
    void cutBeforeWrite(int n) { cutBefore_ = n; }
    // The same ahead of any request.
    void cutBeforeRequest(int n) { cutBeforeRequest_ = n; }
    // Has this write, counted likewise, refused by the server.
    void spoilWrite(int n) { spoilt_ = n; }

    // Requests and, of these, writes since the last reset.
    int requests() const { return requests_; }
    int writes() const { return writes_; }
    void reset();

private:
    friend class CutLineWorker;

    std::atomic<int> requests_ = 0;
    std::atomic<int> writes_ = 0;
    std::atomic<int> cutBefore_ = 0;
    std::atomic<int> cutBeforeRequest_ = 0;
    std::atomic<int> spoilt_ = 0;
    quint16 port_ = 0;
    std::unique_ptr<QThread> thread_;
};

} // namespace hotel
