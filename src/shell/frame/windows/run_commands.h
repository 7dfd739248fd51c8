// The long runs that a person starts on the open table's tickers: the selector, filling the database, and
// restating the history of one ticker after a stock split.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "indicators/analysis.h"
#include "shell/frame/windows/frame_hands.h"

namespace brantlow {

struct HistoryImportChoice;
struct ImportOutlook;
struct SelectorOutcome;

class RunCommands final {
  public:
    // Both outlive this.
    RunCommands(const FrameHands& frame, Analysis& analysis) : frame_(frame), analysis_(analysis) {}

    CommandRows Rows();
    // Fills the database for the open table. A person who does not want stored histories to be replaced
    // keeps them, and nothing is fetched; `report` takes what a run told.
    Filling Populate(RunReport& report);

  private:
    void StockSelector();
    void PopulateTickers();
    void AskImport();
    void Import(const HistoryImportChoice& choice, const ImportOutlook& outlook);
    void AdjustSplit();
    void AskInterval();
    // History after `lastDay` counts as not there.
    void RunStockSelector(Interval interval, std::optional<Date> lastDay);
    void TellOutcome(const SelectorOutcome& outcome);
    // Asks before the histories of several tickers are replaced.
    bool MayReplace(const std::vector<std::string>& tickers, std::string_view verb);
    void RunRepopulate();
    void RestateHistory(const std::string& ticker, double SplitFactor);

    const FrameHands& frame_;
    Analysis& analysis_;
};

}  // namespace brantlow
