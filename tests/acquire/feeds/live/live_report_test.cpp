#include "acquire/feeds/live/live_report.h"

#include <gmock/gmock.h>

namespace brantlow {
namespace {

using ::testing::ElementsAre;

LiveReport ReportOf(const std::vector<SourceResult>& results) {
    LiveReport report;
    report.title = "Massive";
    for (const SourceResult result : results) {
        LiveTicker row;
        row.ticker = "T" + std::to_string(report.tickers.size() + 1);
        row.outcome.result = result;
        row.days = result == SourceResult::Rows ? 1 : 0;
        report.tickers.push_back(row);
    }
    return report;
}

TEST(LiveReport, ATickerOfWhichNothingIsThereIsUnknownInEveryLine) {
    const LiveReport report =
        ReportOf({SourceResult::Rows, SourceResult::UnknownSymbol, SourceResult::NoData});
    EXPECT_EQ(ReportSummary(report), "1 of 3 from Massive, 2 unknown");
    const RunReport run = RunReportOf(report, "Update of Mine.ddq");
    EXPECT_EQ(run.Line(), "1 of 3 from Massive, 2 tickers unknown: T2, T3");
    ASSERT_EQ(run.Tickers().size(), 3u);
    EXPECT_EQ(run.Tickers()[1].why, "");
    EXPECT_EQ(run.Tickers()[2].why, "no data in the span");
}

TEST(LiveReport, EachKindOfAnswerAndOfFailureIsCounted) {
    const LiveReport report =
        ReportOf({SourceResult::NotYetPublished, SourceResult::Network, SourceResult::RateLimited,
                  SourceResult::Network, SourceResult::Stopped});
    EXPECT_EQ(ReportSummary(report), "0 of 5 from Massive, 1 not yet published, 3 failed");
    EXPECT_THAT(ReportFailures(report),
                ElementsAre("2 tickers failed at Massive (T2, T4): network",
                            "1 ticker failed at Massive (T3): rate limited (by the minute)"));
}

}  // namespace
}  // namespace brantlow
