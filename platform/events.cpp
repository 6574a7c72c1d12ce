#include "platform/events.h"

#include <QCoreApplication>
#include <QScopedValueRollback>
#include <QThread>

namespace hotel {

namespace {

thread_local int callsOnStack = 0;

} // namespace

void LetEventsThrough(QEventLoop::ProcessEventsFlags flags) {
    const QScopedValueRollback deeper(callsOnStack, callsOnStack + 1);
    QCoreApplication::processEvents(flags);
}

int EventDepth() {
    return QThread::currentThread()->loopLevel() + callsOnStack;
}

} // namespace hotel
