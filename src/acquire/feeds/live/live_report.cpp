#include "acquire/feeds/live/live_report.h"

#include <fmt/format.h>

#include <algorithm>

namespace brantlow {

namespace {

bool IsFailure(const SourceOutcome& outcome) {
    return !IsAnswer(outcome.result) && outcome.result != SourceResult::Stopped;
}

TickerFate FateOf(const LiveTicker& row) {
    if (row.outcome.result == SourceResult::UnknownSymbol || row.outcome.result == SourceResult::NoData) {
        return TickerFate::Unknown;
    }
    return row.outcome.Done() && row.days > 0 ? TickerFate::Stored : TickerFate::NothingNew;
}

}  // namespace

std::size_t LiveReport::Count(SourceResult result) const {
    return static_cast<std::size_t>(std::count_if(
        tickers.begin(), tickers.end(), [&](const LiveTicker& row) { return row.outcome.result == result; }));
}

std::size_t LiveReport::Failed() const {
    return static_cast<std::size_t>(std::count_if(
        tickers.begin(), tickers.end(), [](const LiveTicker& row) { return IsFailure(row.outcome); }));
}

std::string ReportSummary(const LiveReport& report) {
    std::string text =
        fmt::format("{} of {} from {}", report.Answered(), report.tickers.size(), report.title);
    // A source that does not know a ticker and one that has nothing of it are one to a run's report.
    const std::size_t unknown =
        report.Count(SourceResult::UnknownSymbol) + report.Count(SourceResult::NoData);
    if (unknown > 0) text += fmt::format(", {} unknown", unknown);
    const std::size_t early = report.Count(SourceResult::NotYetPublished);
    if (early > 0) text += fmt::format(", {} not yet published", early);
    if (const std::size_t failed = report.Failed()) text += fmt::format(", {} failed", failed);
    return text;
}

std::vector<std::string> ReportFailures(const LiveReport& report) {
    std::vector<std::string> lines;
    std::vector<std::pair<SourceResult, std::vector<std::string>>> kinds;
    std::vector<SourceOutcome> firsts;
    for (const LiveTicker& row : report.tickers) {
        if (!IsFailure(row.outcome)) continue;
        const auto found = std::find_if(kinds.begin(), kinds.end(),
                                        [&](const auto& kind) { return kind.first == row.outcome.result; });
        if (found != kinds.end()) {
            found->second.push_back(row.ticker);
            continue;
        }
        kinds.push_back({row.outcome.result, {row.ticker}});
        firsts.push_back(row.outcome);
    }
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const auto& names = kinds[i].second;
        lines.push_back(fmt::format("{} failed at {} ({}): {}", CountedTickers(names.size()), report.title,
                                    NameList(names), OutcomeText(firsts[i])));
    }
    return lines;
}

RunReport RunReportOf(const LiveReport& report, std::string what) {
    RunReport run(std::move(what), "from " + report.title);
    for (const LiveTicker& row : report.tickers) {
        const bool isFailure = IsFailure(row.outcome);
        std::string why = row.outcome.words;
        if (row.outcome.result == SourceResult::NoData && why.empty()) why = "no data in the span";
        const bool namesSource = row.outcome.result == SourceResult::NoKey;
        if (isFailure && !namesSource) why = report.title + ": " + OutcomeText(row.outcome);
        if (row.outcome.result == SourceResult::Stopped) {
            run.Tell(row.ticker, TickerFate::Skipped, "stopped");
        } else if (isFailure) {
            run.Tell(row.ticker, TickerFate::Failed, std::move(why));
        } else {
            run.Tell(row.ticker, FateOf(row), std::move(why));
        }
    }
    if (report.fault) {
        run.Fail(FailedSentence(run.What(), report.fault));
        if (report.fault.isHalfDone) run.MarkChanged();
    }
    if (!report.unfinished.empty()) run.Fail(report.unfinished);
    for (const std::string& remark : report.remarks) run.Add(remark);
    if (const std::size_t early = report.Count(SourceResult::NotYetPublished)) {
        run.Add(fmt::format("{} not yet published", early));
    }
    if (report.stopped) run.Add("stopped");
    return run;
}

}  // namespace brantlow
