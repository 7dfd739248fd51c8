#include "indicators/leftover_replay.h"

namespace brantlow {

std::size_t LeftoverReplay::FindCover(std::size_t next, std::size_t needed) {
    for (std::size_t at = next; at > base_; --at) {
        const Failure failure = history_->Load(source_.QuoteFolder, tickers_[at - 1], years_, std::nullopt);
        if (!failure && history_->IsRegular() && history_->BarCount() >= needed) return at - 1;
    }
    return next;
}

void LeftoverReplay::BringUp(std::size_t next, std::size_t needed, WorkingSeries& series) {
    std::size_t from = FindCover(next, needed);
    if (from < next) {
        exact_ = needed;
    } else if (needed <= exact_) {
        from = base_;
    } else {
        // Nobody near covers so much: everything once more, from the beginning.
        series = {};
        from = 0;
        exact_ = kMostRows;
    }
    // One that cannot be read leaves nothing.
    for (std::size_t at = from; at < next; ++at)
        static_cast<void>(LoadSeriesFor(source_, tickers_[at], Interval::Daily, series));
}

}  // namespace brantlow
