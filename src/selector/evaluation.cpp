#include "selector/evaluation.h"

#include <algorithm>

#include "base/numbers.h"
#include "selector/test_table.h"
#include "selector/value_slots.h"
#include "shell/settings/condition_lines.h"

namespace brantlow {

TestState EvaluateNameAt(std::string_view name, const Analysis& analysis, std::size_t bar) {
    const NamedTest* test = FindTest(name);
    return test == nullptr ? TestState::Undecided : RunNamedTest(*test, analysis, bar);
}

TestState EvaluateName(std::string_view name, const Analysis& analysis) {
    return EvaluateNameAt(name, analysis, analysis.series.LastBar);
}

TestState RunStep(const TestStep& step, const Analysis& analysis, std::size_t bar) {
    if (step.test != nullptr) return RunNamedTest(*step.test, analysis, bar);
    return RunValueSlot(step.slot, step.x, analysis, bar);
}

// The walk over the lines. What a line is to be read as hangs on the lines before it and never on a verdict,
// so it is settled here once. The phase outlives a block: a block that starts in the value phase gives its
// "Condition" line to the slots, and every further line until its own action.
class ConditionWalk {
  public:
    explicit ConditionWalk(CompiledConditions& compiled) : compiled_(compiled) {}

    void Take(const ConditionLine& line) {
        ConditionIndex_ = line.block;
        if (line.token == ConditionToken::Action) {
            EvalPhase_ = Phase::Names;
            if (ConditionBlock* block = BlockInHand()) block->action = line.text;
        }
        if (line.token == ConditionToken::Values) {
            EvalPhase_ = Phase::Slots;
            ValueSlot_ = 0;
        }
        if (EvalPhase_ == Phase::Names && line.token == ConditionToken::Text) TakeName(line.text);
        if (EvalPhase_ == Phase::Slots && line.token != ConditionToken::Values) TakeSlot(line.text);
        if (ConditionBlock* block = BlockInHand()) block->present = true;
    }

    std::size_t Blocks() const { return std::min(ConditionIndex_, kConditionCount); }

  private:
    enum class Phase : unsigned char { BeforeFirstAction, Names, Slots };

    ConditionBlock* BlockInHand() {
        return ConditionIndex_ <= kConditionCount ? &compiled_.blocks_[ConditionIndex_] : nullptr;
    }

    void Add(const TestedLine& line) {
        ConditionBlock* const block = BlockInHand();
        if (block == nullptr) return;
        block->lines.push_back(line);
        if (line.step.test != nullptr || line.step.slot != 0) block->steps.push_back(line.step);
    }

    void TakeName(const std::string& line) {
        if (line.empty()) return;
        Add({line, false, {.test = FindTest(line)}});
    }

    void TakeSlot(const std::string& line) {
        ++ValueSlot_;
        if (line.empty() || ValueSlot_ > kSlotCount) return;
        Add({std::string(ValueSlotLabel(ValueSlot_)), true, {.slot = ValueSlot_, .x = LeadingNumber(line)}});
    }

    CompiledConditions& compiled_;
    std::size_t ConditionIndex_ = 0;
    Phase EvalPhase_ = Phase::BeforeFirstAction;
    std::size_t ValueSlot_ = 0;
};

CompiledConditions::CompiledConditions(const SettingsTables& settings) {
    ConditionWalk walk(*this);
    WalkConditionLines(settings, [&](const ConditionLine& line) { walk.Take(line); });
    blockCount_ = walk.Blocks();
}

TestState CompiledConditions::Run(const ConditionBlock& block, const Analysis& analysis) {
    TestState state = TestState::Undecided;
    for (const TestStep& step : block.steps) {
        const TestState verdict = RunStep(step, analysis, analysis.series.LastBar);
        if (verdict == TestState::False) return verdict;
        if (verdict == TestState::True) state = verdict;
    }
    return state;
}

void CompiledConditions::Evaluate(const Analysis& analysis, ConditionResults& results) const {
    for (std::size_t i = 0; i < blocks_.size(); ++i) {
        if (!blocks_[i].present) continue;
        results.ConditionResult[i] = Word(Run(blocks_[i], analysis));
        if (!blocks_[i].action.empty()) results.ConditionAction[i] = blocks_[i].action;
    }
    results.blocks = blockCount_;
}

BarVerdicts CompiledConditions::Judge(const Analysis& analysis) const {
    BarVerdicts holds = 0;
    for (std::size_t i = 1; i <= kConditionCount; ++i)
        if (blocks_[i].present && Run(blocks_[i], analysis) == TestState::True) holds |= VerdictOf(i);
    return holds;
}

void EvaluateConditions(const SettingsTables& settings, const Analysis& analysis, ConditionResults& results) {
    CompiledConditions(settings).Evaluate(analysis, results);
}

}  // namespace brantlow
