// The study: for every day of a span and every ticker of a table, which conditions held with what was known
// on that day. Its figures (study_figures.h), the list of signals and the equity curve are made of what the
// walk leaves. The batch tool and the study window run it.
//
// A pair of ticker and day is evaluated when the day is a bar of the ticker in the span and the ticker had
// the interval's minimum history then. A condition holds there when the selector, run on that day over this
// ticker alone, would have said so.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "base/failure.h"
#include "indicators/working_series.h"
#include "selector/test_state.h"
#include "shell/session.h"
#include "shell/settings/condition_set.h"
#include "study/study_days.h"

namespace brantlow {

// The whole, of costs and returns in percent.
inline constexpr double kPercent = 100;

struct StudySpan {
    Interval interval = Interval::Daily;  // or weekly
    // Days that are evaluated; trades may end later.
    Date from;
    Date to;
};

// The span that a study has without a wish: the year up to `today`.
inline constexpr int kStudyDays = 364;
StudySpan UsualSpan(const Date& today);

// Of the verdicts of a bar, set where it was evaluated.
inline constexpr BarVerdicts kEvaluated = 1U << 15U;

// The bars of one ticker from the first day of the span to today.
struct StudiedTicker {
    std::string ticker;
    std::vector<std::uint32_t> dates;  // places in ConditionStudy::dates
    std::vector<double> closes;
    std::vector<BarVerdicts> verdicts;

    bool IsEvaluated(std::size_t bar) const { return (verdicts[bar] & kEvaluated) != 0; }
    bool Holds(std::size_t condition, std::size_t bar) const {
        return (verdicts[bar] & VerdictOf(condition)) != 0;
    }
    // The condition holds at the bar and did not, or was not evaluated, on the bar before.
    bool Begins(std::size_t condition, std::size_t bar) const {
        return Holds(condition, bar) && (bar == 0 || !Holds(condition, bar - 1));
    }
};

struct ConditionStudy {
    StudySpan span;
    std::vector<std::string> actions;    // of conditions 1 up, as many as the stored set has
    std::vector<StudyDay> dates;         // every day that is a bar of some ticker, rising
    std::vector<StudiedTicker> tickers;  // different ones, in table order; those that were walked
    std::size_t asked = 0;               // different tickers of the table
    std::vector<Failure> unreadable;     // a ticker each that is left out: its files cannot be read
    bool stopped = false;                // the walk was ended before the last ticker

    Date DateOf(std::uint32_t date) const { return DateOfNumber(dates[date].day); }
    // Pairs that were evaluated.
    std::size_t Evaluated() const;
};

// Walks the tickers, on all processors, with the stored conditions. Progress goes to the session's person; a
// stop ends the walk before the next ticker and keeps what was found. `helpers` threads work beside the
// caller's own.
inline constexpr std::size_t kHelpersOfMachine = static_cast<std::size_t>(-1);
ConditionStudy RunStudy(Session& session, const std::vector<std::string>& tickers, const StudySpan& span,
                        std::size_t helpers = kHelpersOfMachine);

}  // namespace brantlow
