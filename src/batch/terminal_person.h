// The person at a terminal, or behind a script: sentences go to standard error, questions are answered as the
// call says, progress is a bar where standard error is a terminal, and Ctrl-C is the Exit button.
#pragma once

#include <chrono>
#include <cstddef>
#include <ostream>
#include <string>

#include "shell/person.h"
#include "shell/run_control.h"

namespace brantlow {

class TerminalPerson final : public Person {
  public:
    // `isTerminal`: draw progress. `interrupted` tells whether Ctrl-C was pressed.
    TerminalPerson(std::ostream& err, bool isTerminal, bool (*interrupted)())
        : err_(err), isTerminal_(isTerminal), interrupted_(interrupted) {}
    ~TerminalPerson() override { ClearBar(); }
    TerminalPerson(const TerminalPerson&) = delete;
    TerminalPerson& operator=(const TerminalPerson&) = delete;

    // The run whose control word Ctrl-C sets to stop; null for none.
    void WatchRun(RunControl* run) { run_ = run; }
    // Whether questions are answered with Yes; without it a question is written and answered with No.
    void AnswerYes(bool yes) { answerYes_ = yes; }

    void Say(std::string_view text, std::string_view title = {}) override;
    bool Ask(std::string_view text, std::string_view title = {}) override;
    void ShowStatusWord(std::string_view word) override;
    void ShowTickerCount(std::size_t count) override { tickerCount_ = count; }
    void ShowProgress(double fraction) override;
    void PumpEvents() override;
    void Beep() override;

  private:
    using SteadyClock = std::chrono::steady_clock;

    void ClearBar();

    std::ostream& err_;
    bool isTerminal_;
    bool (*interrupted_)();
    RunControl* run_ = nullptr;
    bool answerYes_ = false;
    bool barShown_ = false;
    double lastFraction_ = 0;
    std::size_t tickerCount_ = 0;
    SteadyClock::time_point started_{};
    SteadyClock::time_point lastDrawn_{};
};

// The bar's line `seconds` after the start of a run over `count` tickers (0 when that is not known),
// `fraction` (0 to 1) of it done: bar, share, tickers, tickers a second, time to go.
std::string ProgressLine(double fraction, std::size_t count, double seconds);

}  // namespace brantlow
