#include "tests/hotel_test.h"

#include <QTest>
#include <map>
#include <memory>
#include <string>

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
    int failures = 0;
    for (const auto& [name, make] : Tests()) {
        const std::unique_ptr<QObject> test(make());
        failures += QTest::qExec(test.get(), argc, argv);
    }
    return failures == 0 ? 0 : 1;
}

} // namespace hotel
