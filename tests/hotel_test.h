#pragma once

// Every test class names itself with HOTEL_TEST; the shared main of the tests runs all that are linked
// into one program, and fails when one of them fails. A first argument that is the name of a class runs
// that class alone; all others go to each (Qt Test's own options).

#include <QObject>
#include <functional>

namespace hotel {

bool RegisterTest(const char* name, std::function<QObject*()> make);

// Runs the registered tests in the order of their names; 0 when all have passed.
int RunTests(int argc, char** argv);

} // namespace hotel

#define HOTEL_TEST(Class)                                                                          \
    [[maybe_unused]] static const bool registered##Class =                                         \
        hotel::RegisterTest(#Class, []() -> QObject* { return new Class; });
