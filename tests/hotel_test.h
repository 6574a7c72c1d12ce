#pragma once

// Every test class names itself with HOTEL_TEST; the shared main of the tests runs all that are linked
// into one program, and fails when one of them fails. A first argument that is the name of a class runs
// that class alone; all others go to each (Qt Test's own options).

#include <QObject>
#include <QTest>
#include <functional>
#include <source_location>
#include <type_traits>

#include "record/literals.h"

namespace hotel {

bool RegisterTest(const char* name, std::function<QObject*()> make);

// Runs the registered tests in the order of their names; 0 when all have passed.
int RunTests(int argc, char** argv);

// A table of cases is a lambda called `row` and a call of it for each case. Check compares within the
// lambda: a case that fails is told by its name, and the cases behind it run all the same.
template<class Value>
void Check(const char* row, const Value& actual, const std::type_identity_t<Value>& expected,
           std::source_location place = std::source_location::current()) {
    QTest::qCompare(actual, expected, row, "expected", place.file_name(), int(place.line()));
}

// A table whose cases are tests of their own, each with its init() and cleanup():
//     const Columns<QString, int> row("text", "number");
//     row("one digit", u"1"_s, 1);
template<class... Cells>
class Columns {
public:
    template<class... Names>
    explicit Columns(Names... names) {
        (QTest::addColumn<Cells>(names), ...);
    }
    void operator()(const char* name, const Cells&... cells) const {
        (QTest::newRow(name) << ... << cells);
    }
};

} // namespace hotel

#define HOTEL_TEST(Class)                                                                          \
    [[maybe_unused]] static const bool registered##Class =                                         \
        hotel::RegisterTest(#Class, []() -> QObject* { return new Class; });
