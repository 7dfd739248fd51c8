#include "study/past_verdicts.h"

#include <algorithm>

#include "selector/selector_run.h"

namespace brantlow {

namespace {

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

PastVerdicts::PastVerdicts(std::string quoteFolder, const StudySpan& span, const WindowConditions& conditions)
    : quoteFolder_(std::move(quoteFolder)),
      span_(span),
      conditions_(conditions),
      fewestBars_(MinimumHistory(span.interval)),
      windows_(quoteFolder_, span.interval) {}

BarVerdicts PastVerdicts::LookBack(std::int32_t day) {
    if (windows_.LookAt(day, fewestBars_, bars_) < fewestBars_) return 0;
    return kEvaluated | conditions_.Judge(bars_);
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
