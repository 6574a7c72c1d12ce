#include "tests/hotel_test.h"

#include <QTest>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace hotel {

namespace {

std::map<std::string, std::function<QObject*()>>& Tests() {
    static std::map<std::string, std::function<QObject*()>> tests;
    return tests;
}

} // namespace

bool RegisterTest(const char* name, std::function<QObject*()> make) {
    return Tests().emplace(name, std::move(make)).second;
}

int RunTests(int argc, char** argv) {
    // A crash ends the program at once; a debugger's stack is for who looks into it by hand.
    QByteArray noCrashHandler = "-nocrashhandler";
    std::vector<char*> arguments(argv, argv + argc);
    arguments.push_back(noCrashHandler.data());
    const std::string only = argc > 1 && Tests().contains(argv[1]) ? argv[1] : "";
    if (!only.empty())
        arguments.erase(arguments.begin() + 1);
    int failures = 0;
    for (const auto& [name, make] : Tests()) {
        if (!only.empty() && name != only)
            continue;
        const std::unique_ptr<QObject> test(make());
        failures += QTest::qExec(test.get(), int(arguments.size()), arguments.data());
    }
    return failures == 0 ? 0 : 1;
}

} // namespace hotel
