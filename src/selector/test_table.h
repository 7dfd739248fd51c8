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

struct TestRow {
    std::string name;
    NamedTest test;
};

// Every test that the evaluator knows, in family order; no name stands twice.
std::span<const TestRow> NamedTests();

// The test of this exact name, case and blanks included, or null. It lives as long as the program.
const NamedTest* FindTest(std::string_view name);

}  // namespace brantlow
