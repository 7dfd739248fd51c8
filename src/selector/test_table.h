// From a name to its test. The table is built once from the rows of each family: the pieces of its names, the
// series they speak of, the kind of comparison and the guard. The listed names are in catalogue.h; the one
// name listed there without a test, and the one test here whose name is not listed, are told in
// test_table.cpp.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "selector/named_test.h"

namespace brantlow {

// What a person should know of a test whose outcome is not what its name promises.
enum class TestRemark : unsigned char {
    None,
    AlwaysHolds,   // cannot be computed, and what cannot be computed passes
    NeverHolds,    // compares a line with itself
    SignOnly,      // the extreme in the name is taken as 0
    NeverRuns,     // waits for more bars than a window holds
    NearConstant,  // the series lies between 0 and 1
};

struct TestRow {
    std::string name;
    NamedTest test;
    TestRemark remark = TestRemark::None;
};

// Every test that the evaluator knows, in family order; no name stands twice.
std::span<const TestRow> NamedTests();

// The row of this exact name, case and blanks included, or null. It lives as long as the program.
const TestRow* FindTestRow(std::string_view name);
// Its test, or null.
const NamedTest* FindTest(std::string_view name);

}  // namespace brantlow
