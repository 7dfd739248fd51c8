#include "selector/window_conditions.h"

#include <algorithm>

#include "selector/test_running.h"
#include "selector/ticker_verdict.h"

namespace brantlow {

namespace {

// A bar with so many before it that every guard is met.
constexpr std::size_t kBeyondAllGuards = 1000;

template <class Bars>
TestState RunStepOver(const TestStep& step, const Bars& bars, std::size_t bar) {
    if (step.test != nullptr) return RunNamedTestOver(*step.test, bars, bar);
    return RunValueSlotOver(*FindSlot(step.slot), step.x, bars, bar);
}

// Bars that count what is asked of them: a step that reads long sums of many bars costs most.
class CountingBars {
  public:
    double Stored(StoredArray, std::size_t) const { return 1; }
    double Computed(IndicatorArray array, std::size_t) const {
        constexpr std::size_t kPlain = 1;
        for (const NamedIndicator& row : kIndicatorArrays)
            if (row.array == array) cost_ += kPlain + row.firstBar;
        const bool wholeWindow = array == &Indicators::LRPrice || array == &Indicators::LRVolume;
        const bool everyBar = array == &Indicators::MACD15 || array == &Indicators::MACD30;
        if (wholeWindow) cost_ += kDefaultWindow;
        if (everyBar) cost_ += kDefaultWindow * kDefaultWindow;
        return 1;
    }
    double Scalar(WindowScalar) const {
        cost_ += kDefaultWindow;
        return 1;
    }
    std::size_t Cost() const { return cost_; }

  private:
    mutable std::size_t cost_ = 0;
};

std::size_t CostOf(const TestStep& step) {
    const CountingBars bars;
    RunStepOver(step, bars, kBeyondAllGuards);
    return bars.Cost();
}

// Bars that take down what is asked of them.
class NotingBars {
  public:
    NotingBars(LookedAtFields& fields, std::vector<IndicatorSlot>& indicators)
        : fields_(fields), indicators_(indicators) {}

    double Stored(StoredArray array, std::size_t bar) const {
        const bool isNew = bar + kNewestBars > kBeyondAllGuards;
        for (const NumberField& row : kNumberFields)
            if (row.series == array) (isNew ? fields_.newestBars : fields_.everyBar).set(row.field);
        return 1;
    }
    double Computed(IndicatorArray array, std::size_t) const {
        const IndicatorSlot slot = SlotOf(array);
        const auto place = std::lower_bound(indicators_.begin(), indicators_.end(), slot);
        if (place == indicators_.end() || *place != slot) indicators_.insert(place, slot);
        const WindowInputs inputs = InputsOf(array);
        for (const NumberSlot number : inputs.everyBar) fields_.everyBar.set(kNumberFields[number].field);
        for (const NumberSlot number : inputs.sameBar) fields_.newestBars.set(kNumberFields[number].field);
        return 1;
    }
    double Scalar(WindowScalar scalar) const {
        fields_.everyBar.set(kNumberFields[InputOf(scalar)].field);
        return 1;
    }

  private:
    LookedAtFields& fields_;
    std::vector<IndicatorSlot>& indicators_;
};

}  // namespace

WindowConditions::WindowConditions(const SettingsTables& settings) : compiled_(settings) {
    const NotingBars noting(fields_, indicators_);
    fields_.everyBar.set(kNumberFields[kCloseSlot].field);
    noting.Computed(kShortTrendArray, kBeyondAllGuards);
    for (std::size_t condition = 1; condition <= compiled_.BlockCount(); ++condition) {
        std::vector<TestStep> steps = compiled_.Block(condition).steps;
        std::stable_sort(steps.begin(), steps.end(),
                         [](const TestStep& a, const TestStep& b) { return CostOf(a) < CostOf(b); });
        for (const TestStep& step : steps) RunStepOver(step, noting, kBeyondAllGuards);
        steps_.push_back(std::move(steps));
    }
}

BarVerdicts WindowConditions::Judge(const WindowBars& bars) const {
    BarVerdicts verdicts = 0;
    for (std::size_t i = 0; i < steps_.size(); ++i) {
        bool tested = false;
        bool failed = false;
        for (const TestStep& step : steps_[i]) {
            const TestState state = RunStepOver(step, bars, bars.BarCount());
            failed = state == TestState::False;
            if (failed) break;
            tested = tested || state == TestState::True;
        }
        if (tested && !failed) verdicts |= VerdictOf(i + 1);
    }
    return verdicts;
}

}  // namespace brantlow
