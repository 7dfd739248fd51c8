// The tests in words: what a name of the catalogue means, its formula, what should be known of it, and the
// numbers of one verdict as a sentence. All of it is read off the rows of the test table and of the value
// slots. The condition editor and the explanation pane show it.
#pragma once

#include <string>
#include <string_view>

#include "selector/named_test.h"
#include "selector/test_table.h"
#include "selector/value_slots.h"

namespace brantlow {

// "Close", "MA 60", "Loose UCL 15 + MLR 15", "0": a quantity as a person reads it.
std::string CaptionOf(const Quantity& quantity);
// The same of one series.
std::string CaptionOf(StoredArray array);
std::string CaptionOf(IndicatorArray array);
std::string CaptionOf(WindowScalar scalar);

// "Close is above MA 60 on the newest bar and was not on the bar before."
std::string MeaningOf(const NamedTest& test);
// "Close > MA 60 and Close[-1] <= MA 60[-1]; more than 60 bars". [-1] is the bar before.
std::string FormulaOf(const NamedTest& test);
// What a person should know; empty where there is nothing.
std::string_view RemarkText(TestRemark remark);
// For a name that nothing tests.
inline constexpr std::string_view kNothingTestsIt = "Nothing tests this name: a line with it is passed over.";

// A number for a sentence: two decimals, more where it is small.
std::string NumberText(double value);

}  // namespace brantlow
