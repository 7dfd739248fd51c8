// A daily run over many tickers that computes no more than the conditions look at: the verdict on each
// ticker's newest bar, made of its own files on any thread where it hangs on nothing else.
//
// Verdicts are those of loading one ticker after another into an empty series and judging it there, what an
// earlier ticker left in elements that a later one does not write included. Nothing is left in a series.
#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "base/ahead_of_turn.h"
#include "selector/leftover_verdicts.h"
#include "selector/newest_window.h"
#include "selector/ticker_verdict.h"

namespace brantlow {

class NewestVerdicts {
  public:
    // `helpers` threads work beside the caller's own. The source's folder and day are taken now; its lastDay
    // has to be none. The conditions outlive this.
    NewestVerdicts(const HistorySource& source, std::vector<std::string> tickers,
                   const WindowConditions& conditions, std::size_t helpers = kThreadsOfMachine);

    // The verdict on the next ticker of the list; there has to be one.
    TickerVerdict Next();

  private:
    struct Judged {
        TickerVerdict verdict;
        // What the verdict still lacks.
        bool isSettled = true;
        LeftoversNeeded needed;
    };
    // What one thread works with.
    struct Bench {
        explicit Bench(const LookedAtFields& fields) : window(fields) {}
        NewestWindow window;
        WindowBars bars;
    };

    void Judge(std::size_t place, Judged& judged);
    void JudgeBars(Bench& bench, Judged& judged) const;
    std::unique_ptr<Bench> TakeBench();
    void PutBack(std::unique_ptr<Bench> bench);

    const std::string quoteFolder_;
    const FixedClock clock_;
    const std::vector<std::string> tickers_;
    const std::vector<std::string> years_;
    const WindowConditions& conditions_;
    LeftoverVerdicts leftovers_;
    std::size_t next_ = 0;

    std::mutex mutex_;
    std::vector<std::unique_ptr<Bench>> benches_;  // that no thread works with
    std::optional<AheadOfTurn<Judged>> ahead_;
};

}  // namespace brantlow
