#include "server/server_thread.h"

#include <utility>

namespace hotel {

ServerThread::ServerThread(ServerSettings settings) : settings_(std::move(settings)) {
    start();
    started_.acquire();
    if (!failure_)
        return;
    wait();
    std::rethrow_exception(failure_);
}

void ServerThread::finish() {
    quit();
    wait();
    if (failure_)
        std::rethrow_exception(std::exchange(failure_, nullptr));
}

ServerThread::~ServerThread() {
    quit();
    wait();
}

void ServerThread::run() {
    try {
        RecordServer server(settings_);
        port_ = server.port();
        started_.release();
        exec();
        server.finish();
    } catch (const StoreError&) {
        failure_ = std::current_exception();
        started_.release();
    }
}

} // namespace hotel
