// Why a verdict came out as it did: each tested line of a condition with its state, why it was passed over,
// and the numbers that its test read. The batch tool prints it, the pane beside the verdict table shows it.
//
// The numbers are taken down while the very test of the selector runs, so they are its operands by
// construction.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "indicators/analysis.h"
#include "selector/evaluation.h"
#include "selector/test_state.h"

namespace brantlow {

// One number that a test read: an element of a series or of an indicator, or a value of the whole window.
struct LookedAt {
    StoredArray stored = nullptr;
    IndicatorArray computed = nullptr;
    WindowScalar scalar = nullptr;
    std::size_t bar = 0;  // of a value of the whole window the bar under test
    ElementState state = ElementState::Written;
    double value = 0;

    bool IsSame(const LookedAt& other) const {
        return stored == other.stored && computed == other.computed && scalar == other.scalar &&
               bar == other.bar;
    }
};

// "ClosePrice", "MA60", "AverageVolume".
std::string_view NameOf(const LookedAt& value);
// The same as a person reads it: "Close", "MA 60", "Average volume".
std::string CaptionOf(const LookedAt& value);

enum class PassedOver : unsigned char { No, TooFewBars, UnknownName, NoData };
// "", "too few bars", "unknown name", "no data".
std::string_view ReasonText(PassedOver reason);

struct LineExplanation {
    std::string text;
    bool isSlot = false;
    double x = 0;  // of a slot
    TestState state = TestState::Undecided;
    PassedOver reason = PassedOver::No;
    // False where the line holds because its test could not be computed.
    bool computed = true;
    std::vector<LookedAt> values;  // in the order read, each once
};

struct ConditionExplanation {
    std::string action;
    TestState result = TestState::Undecided;
    std::vector<LineExplanation> lines;
};

// One line at one bar; its state is the selector's.
LineExplanation ExplainLine(const TestedLine& line, const Analysis& analysis, std::size_t bar);

// What the selector makes of a condition's lines together.
TestState ResultOf(const std::vector<LineExplanation>& lines);

// One block at the newest bar, after ComputeIndicators.
ConditionExplanation ExplainCondition(const ConditionBlock& block, const Analysis& analysis);

// Whether a condition holds without a single test behind it.
bool IsUntestedHit(const ConditionExplanation& explanation);

// The result in words: "holds", "fails", "nothing could be tested", "it has no line and never holds"; of a
// hit without a single test behind it "holds, but 0 of 6 tests could be made: 16 bars".
std::string ResultWords(const ConditionExplanation& explanation, std::size_t bars);

// A verdict in one short text: the result, and in a line each what decided it, the first few.
std::string ShortExplanation(const ConditionBlock& block, const ConditionExplanation& explanation,
                             const Analysis& analysis);

// Every block of the settings at the newest bar, after ComputeIndicators.
std::vector<ConditionExplanation> ExplainConditions(const CompiledConditions& conditions,
                                                    const Analysis& analysis);

// The numbers of a line as a sentence: "Close 71.25 above MA 60 70.10", "LR 90 Slope (%/yr) 45.10; wanted at
// least 30.00". Empty for a candlestick pattern.
std::string LineSentence(const TestedLine& line, const LineExplanation& explained, const Analysis& analysis,
                         std::size_t bar);

}  // namespace brantlow
