#pragma once

// Letting events through while something waits or walks. There is one thread: without this the windows
// would stand still for as long as a command of the link or a long walk takes.

#include <QEventLoop>

namespace hotel {

// Handles the events that have come. The one way to do so in the middle of something: EventDepth counts
// it, so that screens can tell what was started meanwhile (see Screen in screen/screen.h).
void LetEventsThrough(QEventLoop::ProcessEventsFlags flags = QEventLoop::AllEvents);

// How many turns of event handling are on the stack: event loops that run and calls of
// LetEventsThrough. Two places on the stack with the same depth have none in between.
int EventDepth();

} // namespace hotel
