// What one name of the catalogue tests: a comparison of two quantities at a bar, at a bar and the one before
// it, or over ten bars; a candlestick pattern; or a computation that always fails. The selector runs a test
// at the newest bar, the chart at any bar: both call RunNamedTest.
#pragma once

#include <cstddef>

#include "indicators/analysis.h"
#include "selector/candlesticks.h"
#include "selector/test_state.h"

namespace brantlow {

using StoredArray = NumberSeries WorkingSeries::*;
using WindowScalar = double Indicators::*;

// The sum, at a bar, of whichever parts are set.
struct Quantity {
    StoredArray stored = nullptr;
    IndicatorArray computed = nullptr;
    IndicatorArray added = nullptr;
    IndicatorArray subtracted = nullptr;
    // One value for the whole window.
    WindowScalar scalar = nullptr;
    double constant = 0;
};

enum class Relation : unsigned char { Above, Below, AtLeast, AtMost };

constexpr bool Holds(double left, Relation relation, double right) {
    switch (relation) {
        case Relation::Above:
            return left > right;
        case Relation::Below:
            return left < right;
        case Relation::AtLeast:
            return left >= right;
        case Relation::AtMost:
            break;
    }
    return left <= right;
}

enum class TestKind : unsigned char {
    Today,          // left against right at the bar
    Crossing,       // holds at the bar and did not at the bar before
    WithinTenBars,  // holds on at least one of the bar and the nine before it
    FromYesterday,  // left at the bar against left at the bar before
    Pattern,        // a candlestick pattern
    NeverComputes,  // asks for a bar of what is a single number, which fails at every bar
};

// The guard of a test that has none.
inline constexpr std::size_t kNoGuard = 0;

struct NamedTest {
    TestKind kind = TestKind::Today;
    Quantity left = {};
    Relation relation = Relation::Above;
    Quantity right = {};
    // The test is run only at bars above this one.
    std::size_t guard = kNoGuard;
    const CandlePattern* pattern = nullptr;
};

// Undecided where the guard is not met. A test that cannot be computed, because it looks at a bar before
// element 0 or at a sum beyond a double, is True.
TestState RunNamedTest(const NamedTest& test, const Analysis& analysis, std::size_t bar);

}  // namespace brantlow
