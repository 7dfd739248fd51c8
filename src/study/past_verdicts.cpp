#include "study/past_verdicts.h"

#include <algorithm>
#include <cmath>

#include "selector/selector_run.h"
#include "selector/test_running.h"

namespace brantlow {

namespace {

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

TestState RunStepOver(const TestStep& step, const WindowBars& bars) {
    if (step.test != nullptr) return RunNamedTestOver(*step.test, bars, bars.BarCount());
    return RunValueSlotOver(*FindSlot(step.slot), step.x, bars, bars.BarCount());
}

std::size_t CostOf(const TestStep& step) {
    constexpr std::size_t kBeyondAllGuards = 1000;
    const CountingBars bars;
    if (step.test != nullptr) {
        RunNamedTestOver(*step.test, bars, kBeyondAllGuards);
    } else {
        RunValueSlotOver(*FindSlot(step.slot), step.x, bars, kBeyondAllGuards);
    }
    return bars.Cost();
}

// As before the first ticker: what loading `rows` rows and one pass over a window may have written.
void Forget(Analysis& analysis, std::size_t rows) {
    const auto clear = [](NumberSeries& series, std::size_t count) {
        std::fill_n(series.MutableValues(), count, 0.0);
        std::fill_n(series.MutableStates(), count, ElementState::NeverWritten);
    };
    const std::size_t loaded = std::min(rows + 2, kMostRows + 1);
    for (const NumberField& field : kNumberFields) clear(analysis.series.*field.series, loaded);
    clear(analysis.series.AskPrice, loaded);
    clear(analysis.series.BidPrice, loaded);
    for (const NamedIndicator& row : kIndicatorArrays)
        clear(analysis.indicators.*row.array, kDefaultWindow + 1);
    static_cast<IndicatorScalars&>(analysis.indicators) = {};
}

}  // namespace

StudyConditions::StudyConditions(const SettingsTables& settings) : compiled_(settings) {
    for (std::size_t condition = 1; condition <= compiled_.BlockCount(); ++condition) {
        std::vector<TestStep> steps = compiled_.Block(condition).steps;
        std::stable_sort(steps.begin(), steps.end(),
                         [](const TestStep& a, const TestStep& b) { return CostOf(a) < CostOf(b); });
        steps_.push_back(std::move(steps));
    }
}

BarVerdicts StudyConditions::Judge(const WindowBars& bars) const {
    BarVerdicts verdicts = kEvaluated;
    for (std::size_t i = 0; i < steps_.size(); ++i) {
        bool tested = false;
        bool failed = false;
        for (const TestStep& step : steps_[i]) {
            const TestState state = RunStepOver(step, bars);
            failed = state == TestState::False;
            if (failed) break;
            tested = tested || state == TestState::True;
        }
        if (tested && !failed) verdicts |= VerdictOf(i + 1);
    }
    return verdicts;
}

PastVerdicts::PastVerdicts(std::string quoteFolder, const StudySpan& span, const StudyConditions& conditions)
    : quoteFolder_(std::move(quoteFolder)),
      span_(span),
      conditions_(conditions),
      fewestBars_(MinimumHistory(span.interval)),
      windows_(quoteFolder_, span.interval) {}

BarVerdicts PastVerdicts::LookBack(std::int32_t day) {
    if (windows_.LookAt(day, fewestBars_, bars_) < fewestBars_) return 0;
    return conditions_.Judge(bars_);
}

Failure PastVerdicts::LoadAnew(const std::string& ticker, std::int32_t day, BarVerdicts& verdicts) {
    if (anew_ == nullptr) anew_ = std::make_unique<Analysis>();
    const FixedClock clock(DateOfNumber(day));
    Failure failure = AnalyseTicker({quoteFolder_, clock, clock.Today()}, ticker, span_.interval, *anew_);
    if (failure) return failure;
    verdicts = 0;
    if (anew_->series.BarCount >= fewestBars_) {
        verdicts = kEvaluated;
        conditions_.Compiled().Evaluate(*anew_, results_);
        for (std::size_t condition = 1; condition <= conditions_.Count(); ++condition)
            if (results_.ConditionResult[condition] == Word(TestState::True))
                verdicts |= VerdictOf(condition);
    }
    Forget(*anew_, anew_->series.LastRowRead);
    return {};
}

Failure PastVerdicts::Take(const std::string& ticker, const TickerBars& bars,
                           std::vector<BarVerdicts>& verdicts) {
    const std::int32_t first = DayNumberOf(span_.from);
    const std::int32_t last = DayNumberOf(span_.to);
    int year = 0;
    verdicts.assign(bars.Bars().size(), 0);
    for (std::size_t i = 0; i < verdicts.size(); ++i) {
        const std::int32_t day = bars.Bars()[i].day.day;
        if (day < first || day > last) continue;
        const int itsYear = static_cast<int>(DateOfNumber(day).year());
        Failure failure;
        if (bars.IsOrderly() && itsYear != year) failure = windows_.Load(ticker, itsYear, day);
        year = itsYear;
        if (bars.IsOrderly() && windows_.IsPiecewise()) {
            verdicts[i] = LookBack(day);
        } else if (!failure) {
            failure = LoadAnew(ticker, day, verdicts[i]);
        }
        if (failure) return failure;
    }
    return {};
}

}  // namespace brantlow
