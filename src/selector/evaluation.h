// The evaluator: which of the ten conditions hold for the ticker in the working series. Runs after
// ComputeIndicators.
//
// The selector asks for the newest bar (EvaluateConditions); the chart asks the same lines about every bar
// (chart/signals.h), each line resolved once to a TestStep and run bar by bar.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "indicators/analysis.h"
#include "selector/named_test.h"
#include "selector/test_state.h"
#include "shell/settings/condition_set.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

// One name at one bar. Undecided where the name is unknown or its guard is not met.
TestState EvaluateNameAt(std::string_view name, const Analysis& analysis, std::size_t bar);
// The same at the newest bar.
TestState EvaluateName(std::string_view name, const Analysis& analysis);

// A line of a condition with its name or its number resolved. One without a test and without a slot stands
// for a name that nothing tests. A slot's text that is no number counts as 0, and an empty one is a slot not
// in use, which makes no step.
struct TestStep {
    const NamedTest* test = nullptr;
    std::size_t slot = 0;
    double x = 0;
};

// A tested line of a condition in its order: a name, one that nothing tests included, or a filled slot. The
// text is the name as stored or the slot's label.
struct TestedLine {
    std::string text;
    bool isSlot = false;
    TestStep step;
};

// One block of the condition set. Steps are the lines that can decide something.
struct ConditionBlock {
    bool present = false;
    std::string action;
    std::vector<TestedLine> lines;
    std::vector<TestStep> steps;
};

// Undecided where nothing tests the step, or where its test or slot is not to be run at this bar.
TestState RunStep(const TestStep& step, const Analysis& analysis, std::size_t bar);

struct ConditionResults {
    // Elements 1 to 10: the state of each block at its end, "", "True" or "False", and "Buy", "Sell" or
    // "Hold". Element 0 takes what stands before the first block.
    std::array<std::string, kConditionCount + 1> ConditionResult;
    std::array<std::string, kConditionCount + 1> ConditionAction;
    // Blocks that the settings hold, at most 10.
    std::size_t blocks = 0;
};

// The lines of the condition set, names and numbers resolved, so that a run over many tickers reads them
// once. It must not outlive the settings' meaning: compile again when the settings change.
class CompiledConditions {
  public:
    explicit CompiledConditions(const SettingsTables& settings);

    // Elements of blocks that the settings do not hold, and the action of a block without an action line,
    // keep what they held.
    void Evaluate(const Analysis& analysis, ConditionResults& results) const;

    // The conditions, 1 to 10, that come to True.
    BarVerdicts Judge(const Analysis& analysis) const;

    // Blocks that the settings hold, at most 10, and each of them, 1 to that number.
    std::size_t BlockCount() const { return blockCount_; }
    const ConditionBlock& Block(std::size_t condition) const { return blocks_[condition]; }

  private:
    static TestState Run(const ConditionBlock& block, const Analysis& analysis);

    std::array<ConditionBlock, kConditionCount + 1> blocks_;
    std::size_t blockCount_ = 0;

    friend class ConditionWalk;
};

// Walks the settings' lines 1 to SelectorLineCount for the newest bar. Blocks after the tenth are passed
// over.
void EvaluateConditions(const SettingsTables& settings, const Analysis& analysis, ConditionResults& results);

}  // namespace brantlow
