#include "chart/signals.h"

#include <algorithm>
#include <string>
#include <vector>

#include "base/numbers.h"
#include "indicators/indicator_pass.h"
#include "selector/evaluation.h"
#include "selector/test_table.h"
#include "shell/settings/condition_lines.h"

namespace brantlow {

namespace {

// The walk over the settings for one side. As what a line is to be read hangs on the lines before it and on
// no bar, so the lines of the chosen block are resolved here once.
class SideWalk {
  public:
    SideWalk(const SignalSide& side, std::string_view chosenBlock)
        : action_(side.action), chosenBlock_(chosenBlock) {}

    void Take(const ConditionLine& line) {
        if (line.token == ConditionToken::Begin) EvalPhase_ = Phase::BeforeAction;
        if (chosenBlock_ != "Condition " + std::to_string(line.block)) return;
        if (line.text == action_) EvalPhase_ = Phase::Names;
        CountSlots(line);
        if (IsTested(line)) steps_.push_back(Resolve(line.text));
    }

    const std::vector<TestStep>& Steps() const { return steps_; }

  private:
    enum class Phase : unsigned char { BeforeAction, Names, Slots };

    void CountSlots(const ConditionLine& line) {
        const bool isValues = line.token == ConditionToken::Values;
        if (EvalPhase_ == Phase::Names && isValues) {
            EvalPhase_ = Phase::Slots;
            ValueSlot_ = 0;
        } else if (EvalPhase_ == Phase::Slots && !isValues) {
            ++ValueSlot_;
        }
    }

    // The actions of other sides are tested as names, which no test answers to.
    bool IsTested(const ConditionLine& line) const {
        const bool isText = line.token == ConditionToken::Text || line.token == ConditionToken::Action;
        return EvalPhase_ != Phase::BeforeAction && isText && !line.text.empty() && line.text != action_;
    }

    TestStep Resolve(const std::string& row) const {
        if (EvalPhase_ == Phase::Names) return {.test = FindTest(row)};
        return {.slot = ValueSlot_, .x = LeadingNumber(row)};
    }

    std::string_view action_;
    std::string_view chosenBlock_;
    std::vector<TestStep> steps_;
    Phase EvalPhase_ = Phase::BeforeAction;
    std::size_t ValueSlot_ = 0;
};

std::vector<TestStep> StepsOf(const SettingsTables& settings, const SignalSide& side) {
    SideWalk walk(side, Get(settings, side.setting));
    WalkConditionLines(settings, [&](const ConditionLine& line) { walk.Take(line); });
    return walk.Steps();
}

// One bar's verdict: every step must be True there. A block without a step leaves the bar dark.
TestState SignalAt(const std::vector<TestStep>& steps, const Analysis& analysis, std::size_t bar) {
    if (steps.empty()) return TestState::Undecided;
    const bool all = std::all_of(steps.begin(), steps.end(), [&](const TestStep& step) {
        return RunStep(step, analysis, bar) == TestState::True;
    });
    return all ? TestState::True : TestState::False;
}

void ComputeSignals(const SettingsTables& settings, const SignalSide& side, const Analysis& analysis,
                    TextSeries& signal) {
    // Of so few bars no indicators are computed: the arrays hold those of an earlier ticker.
    const bool testable = analysis.series.BarCount > kTooFewBars;
    const std::vector<TestStep> steps = testable ? StepsOf(settings, side) : std::vector<TestStep>();
    for (std::size_t bar = 1; bar <= analysis.series.BarCount; ++bar)
        signal.Set(bar, Word(SignalAt(steps, analysis, bar)));
}

}  // namespace

bool HasCondition(const SettingsTables& settings, const SignalSide& side) {
    const std::string& chosen = Get(settings, side.setting);
    return !chosen.empty() && chosen != kNoConditionWord;
}

bool HasBothConditions(const SettingsTables& settings) {
    return HasCondition(settings, kBuySide) && HasCondition(settings, kSellSide);
}

void ComputeBuySignals(const SettingsTables& settings, const Analysis& analysis, ChartSession& session) {
    ComputeSignals(settings, kBuySide, analysis, session.BuySignal);
}

void ComputeSellSignals(const SettingsTables& settings, const Analysis& analysis, ChartSession& session) {
    ComputeSignals(settings, kSellSide, analysis, session.SellSignal);
}

}  // namespace brantlow
