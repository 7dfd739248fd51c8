#include "selector/selector_run.h"

#include <algorithm>
#include <numeric>

#include "indicators/series_pipeline.h"
#include "selector/newest_verdicts.h"
#include "selector/window_conditions.h"
#include "shell/kept_ticker.h"
#include "shell/status_words.h"
#include "store/error_report.h"
#include "store/table_colours.h"

namespace brantlow {
namespace {

struct IntervalRow {
    Interval interval;
    std::string_view word;
    std::size_t minimumBars;
    std::string_view shortReason;
};

constexpr std::array<IntervalRow, 3> kIntervals = {{
    {Interval::Daily, "Daily", 100,
     "This report was generated because one or more Ticker Symbols has less than 100 days of data."},
    {Interval::Weekly, "Weekly", 20,
     "This report was generated because one or more Ticker Symbols has less than 20 weeks of data."},
    {Interval::Monthly, "Monthly", 2,
     "This report was generated because one or more Ticker Symbols has less than 2 months of data."},
}};

const IntervalRow& RowOf(Interval interval) {
    return *std::find_if(kIntervals.begin(), kIntervals.end(),
                         [interval](const IntervalRow& row) { return row.interval == interval; });
}

// A Buy whose short trend has begun to fall, and a Sell whose short trend has begun to rise, take a colour of
// their own.
std::optional<CellStyle> StyleOf(std::string_view action, ShortTrend trend) {
    const std::optional<CellStyle> style = ResultStyle(action);
    if (style == CellStyle::Sell && trend == ShortTrend::Rising) return CellStyle::RecoveringSell;
    if (style == CellStyle::Buy && trend == ShortTrend::Falling) return CellStyle::FadingBuy;
    return style;
}

// One run over one table.
class SelectorWalk {
  public:
    SelectorWalk(Session& session, Analysis& analysis, Interval interval, QuoteTable& evaluations,
                 SelectorOutcome& outcome, std::optional<Date> lastDay, Leftovers leftovers)
        : session_(session),
          lastDay_(lastDay),
          analysis_(analysis),
          interval_(interval),
          evaluations_(evaluations),
          leftovers_(leftovers),
          outcome_(outcome),
          conditions_(session.settings) {}

    void WalkRows() {
        HistorySource source = HistoryOf(session_);
        if (lastDay_) source.lastDay = lastDay_;
        const bool leavesNothing = leftovers_ == Leftovers::Unused && interval_ == Interval::Daily &&
                                   !source.lastDay && IsUntouched(analysis_.series);
        if (leavesNothing) {
            NewestVerdicts verdicts(source, evaluations_.Tickers(), conditions_);
            WalkRows([&] { return verdicts.Next(); });
        } else {
            SeriesPipeline pipeline(source, interval_, evaluations_.Tickers(), analysis_, kThreadsOfMachine,
                                    leftovers_);
            WalkRows([&] {
                pipeline.Next();
                if (pipeline.Unreadable()) return TickerVerdict{pipeline.Unreadable()};
                return VerdictOn(analysis_, conditions_.Compiled());
            });
        }
    }

  private:
    template <class NextVerdict>
    void WalkRows(NextVerdict&& next) {
        const std::size_t rows = evaluations_.TickerCount();
        for (std::size_t row = 1; row <= rows; ++row) {
            outcome_.stopped = ShouldStop(session_.run, session_.person);
            if (outcome_.stopped) return;
            ShowRow(row, rows);
            TakeTicker(row, next());
        }
    }

    void ShowRow(std::size_t row, std::size_t rows) {
        session_.run.CurrentRow = row;
        session_.CurrentTicker = evaluations_.Ticker(row);
        session_.run.ProgressFraction = static_cast<double>(row) / static_cast<double>(rows);
        session_.person.ShowProgress(session_.run.ProgressFraction);
        session_.person.ShowStatusWord(std::to_string(row));
    }

    void TakeTicker(std::size_t row, const TickerVerdict& verdict) {
        ++outcome_.tickers;
        if (verdict.unreadable) {
            outcome_.unreadable.push_back(verdict.unreadable);
        } else {
            FillCells(row, verdict);
            if (verdict.BarCount < MinimumHistory(interval_))
                outcome_.shortTickers.push_back(evaluations_.Ticker(row));
        }
        session_.person.PumpEvents();
    }

    void FillCells(std::size_t row, const TickerVerdict& verdict) {
        for (std::size_t condition = 1; condition <= kConditionCount; ++condition) {
            if ((verdict.holds & VerdictOf(condition)) == 0) continue;
            const std::string& action = conditions_.Compiled().Block(condition).action;
            evaluations_.SetText(row, condition, action);
            if (const auto style = StyleOf(action, verdict.trend))
                evaluations_.SetStyle(row, condition, *style);
            ++outcome_.hitsPerCondition[condition];
        }
    }

    Session& session_;
    std::optional<Date> lastDay_;
    Analysis& analysis_;
    Interval interval_;
    QuoteTable& evaluations_;
    Leftovers leftovers_;
    SelectorOutcome& outcome_;
    WindowConditions conditions_;
};

}  // namespace

std::optional<Interval> IntervalOf(std::string_view word) {
    for (const IntervalRow& row : kIntervals)
        if (row.word == word) return row.interval;
    return std::nullopt;
}

std::string_view WordOf(Interval interval) {
    return RowOf(interval).word;
}

TableOrigin OriginOfRun(const Session& session, Interval interval, std::string source,
                        std::optional<Date> lastDay) {
    const Date day = lastDay.value_or(session.HistoryUpTo.value_or(session.clock.Today()));
    return {day, std::string(WordOf(interval)), std::move(source)};
}

RunReport ReportOf(const SelectorOutcome& outcome, const std::string& source, std::size_t rows) {
    RunReport report("Stock Selector over " + source, "tickers");
    const auto& hits = outcome.hitsPerCondition;
    std::string line = outcome.stopped ? std::to_string(outcome.tickers) + " of " : "";
    line += CountedTickers(rows) + ", ";
    line += Counted(std::accumulate(hits.begin(), hits.end(), std::size_t{0}), "hit", "hits");
    report.SetHeadline(std::move(line));
    if (outcome.stopped) report.Add("stopped");
    return report;
}

std::size_t MinimumHistory(Interval interval) {
    return RowOf(interval).minimumBars;
}

std::string_view ShortHistoryReason(Interval interval) {
    return RowOf(interval).shortReason;
}

void RunSelector(Session& session, Analysis& analysis, Interval interval, QuoteTable& evaluations,
                 SelectorOutcome& outcome, std::optional<Date> lastDay, Leftovers leftovers) {
    outcome = {};
    const KeptTicker selected(session);
    BeginRun(session.run);
    session.person.ShowStatusWord(kStatusSelecting);
    SelectorWalk(session, analysis, interval, evaluations, outcome, lastDay, leftovers).WalkRows();
    session.run.CurrentRow = 0;
    session.person.ShowStatusWord(kStatusComplete);
    // A look back leaves the report on today's history alone.
    outcome.looksBack = session.HistoryUpTo || lastDay;
    if (outcome.shortTickers.empty() || outcome.looksBack) return;
    const ErrorReport report{std::string(ShortHistoryReason(interval)), outcome.shortTickers};
    outcome.reportError = WriteErrorReport(session.DataFolder(), report);
}

}  // namespace brantlow
