#pragma once

namespace hotel {

// A short tone that says that a call has come in. Silent without a device.
void Beep();

} // namespace hotel
