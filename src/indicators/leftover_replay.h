// What the tickers of a run would have left above their windows, for a run that reads their older files only
// where somebody asks for it. A ticker with short rows keeps what an earlier ticker left; BringUp loads as
// many of the earlier ones in full, in their order, as it takes to have that right.
//
// A ticker that covers all elements up to an index makes the loads before it unnecessary. Those behind a
// ticker with short rows never are: its window may hold what it found.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>

#include "indicators/history_text.h"
#include "indicators/working_series.h"

namespace brantlow {

class LeftoverReplay {
  public:
    // The run began with a working series into which nothing had ever been written. The tickers outlive this.
    LeftoverReplay(const HistorySource& source, std::span<const std::string> tickers,
                   std::span<const std::string> years)
        : source_(source), tickers_(tickers), years_(years) {}

    // The elements up to `needed` become what loading the tickers before `next` one after another leaves.
    void BringUp(std::size_t next, std::size_t needed, WorkingSeries& series);
    // Ticker `at` has just been loaded in full behind BringUp.
    void Loaded(std::size_t at) { base_ = at + 1; }

  private:
    // The nearest ticker before `next` whose rows cover the elements up to `needed`; `next` where there is
    // none as far back as base_.
    std::size_t FindCover(std::size_t next, std::size_t needed);

    HistorySource source_;
    std::span<const std::string> tickers_;
    std::span<const std::string> years_;
    // The elements up to exact_ were right when all tickers before base_ had been loaded.
    std::size_t base_ = 0;
    std::size_t exact_ = kMostRows;
    std::unique_ptr<HistoryText> history_ = std::make_unique<HistoryText>();
};

}  // namespace brantlow
