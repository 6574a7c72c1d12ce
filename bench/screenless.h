#pragma once

// Benchmarks of screens are run where no display is: unless QT_QPA_PLATFORM says otherwise, they draw into memory.

#include <QApplication>

namespace hotel::bench {

// Has to be done before the application is there.
struct DrawsIntoMemory {
    DrawsIntoMemory() {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
    }
};

class ScreenlessApplication : private DrawsIntoMemory, public QApplication {
public:
    ScreenlessApplication(int& argc, char** argv) : QApplication(argc, argv) {}
};

} // namespace hotel::bench
