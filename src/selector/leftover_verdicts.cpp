#include "selector/leftover_verdicts.h"

#include <algorithm>

#include "indicators/series_folding.h"

namespace brantlow {

namespace {

// Tickers that are looked at for a cover: most cover all that the next one may look at.
constexpr std::size_t kFarthestCover = 12;
// Verdicts behind a cover that cost less than the whole run: the first ones, and a share of the tickers.
constexpr std::size_t kFewCovered = 16;
constexpr std::size_t kTickersForEachCovered = 64;
// A window of so many bars looks at no bar whose indicators look at element 0.
constexpr std::size_t kFewestBars = 40;

}  // namespace

LeftoverVerdicts::LeftoverVerdicts(const HistorySource& source, const std::vector<std::string>& tickers,
                                   std::span<const std::string> years, const WindowConditions& conditions,
                                   std::size_t helpers)
    : source_(source), tickers_(tickers), years_(years), conditions_(conditions), helpers_(helpers) {}

TickerVerdict LeftoverVerdicts::Of(std::size_t place, const LeftoversNeeded& needed) {
    const bool isCheap = covered_ < kFewCovered + place / kTickersForEachCovered;
    if (!TakesAll() && isCheap && !needed.elementZero) {
        if (const auto cover = FindCover(place, needed.rows)) return BehindCover(*cover, place);
    }
    return InWholeRun(place);
}

std::optional<std::size_t> LeftoverVerdicts::FindCover(std::size_t place, std::size_t rows) {
    if (rows > 0 && rows < kFewestBars) return std::nullopt;
    std::size_t covers = rows == 0 ? 0 : std::min(rows + 1, kMostRows);
    for (std::size_t at = place; at > 0 && place - at < kFarthestCover; --at) {
        candidate_.Prepare(source_.QuoteFolder, years_, Interval::Daily, tickers_[at - 1]);
        // One that cannot be read leaves nothing.
        if (candidate_.Unreadable()) continue;
        const std::size_t itsRows = candidate_.History().BarCount();
        const bool isCover = candidate_.IsRegular() && candidate_.BarCount() == kDefaultWindow &&
                             itsRows >= covers && candidate_.Covers(conditions_.IndicatorSlots());
        if (isCover) return at - 1;
        // One with short rows passes on what it finds.
        if (!candidate_.IsRegular()) covers = std::max(covers, std::min(itsRows + 1, kMostRows));
    }
    return std::nullopt;
}

TickerVerdict LeftoverVerdicts::BehindCover(std::size_t cover, std::size_t place) {
    ++covered_;
    if (analysis_ == nullptr) analysis_ = std::make_unique<Analysis>();
    Failure failure;
    for (std::size_t at = cover; at <= place; ++at)
        failure = AnalyseTicker(source_, tickers_[at], Interval::Daily, *analysis_);
    if (failure) return {std::move(failure)};
    return VerdictOn(*analysis_, conditions_.Compiled());
}

TickerVerdict LeftoverVerdicts::InWholeRun(std::size_t place) {
    if (!run_) {
        analysis_ = std::make_unique<Analysis>();
        run_.emplace(source_, Interval::Daily, tickers_, *analysis_, helpers_, Leftovers::Unused);
    }
    for (; taken_ <= place; ++taken_) run_->Next();
    if (run_->Unreadable()) return {run_->Unreadable()};
    return VerdictOn(*analysis_, conditions_.Compiled());
}

}  // namespace brantlow
