// An equity curve of three tickers, worked out by hand.
#include "study/portfolio.h"

#include <gtest/gtest.h>

#include "three_tickers.h"

namespace brantlow {
namespace {

PortfolioTerms Terms() {
    PortfolioTerms terms;
    terms.hold = 2;
    terms.most = 1;
    terms.cost = 0;
    return terms;
}

TEST(Portfolio, FollowsTheHandWorkedTrades) {
    // Date 1: A bought at 20. Date 3: A sold at 30, C bought at 40. Date 5: C has no close, B's signal finds
    // no room. Date 6: C sold at 60.
    const Portfolio portfolio = PortfolioOf(ThreeTickers(), Terms());
    EXPECT_EQ(portfolio.dates, (std::vector<std::uint32_t>{0, 1, 2, 3, 4, 5, 6, 7}));
    const std::vector<double> equity = {1, 1, 1.25, 1.5, 1.875, 1.875, 2.25, 2.25};
    // A, B and C from 10, 8 and 50 on, a third each.
    const std::vector<double> benchmark = {1,       4.0 / 3, 4.75 / 3, 4.425 / 3,
                                           3.9 / 3, 2.7 / 3, 4.0 / 3,  4.0 / 3};
    ASSERT_EQ(portfolio.equity.size(), equity.size());
    for (std::size_t i = 0; i < equity.size(); ++i) {
        EXPECT_NEAR(portfolio.equity[i], equity[i], 1e-12) << i;
        EXPECT_NEAR(portfolio.benchmark[i], benchmark[i], 1e-12) << i;
    }
    ASSERT_EQ(portfolio.trades.size(), 2u);
    EXPECT_EQ(portfolio.trades[0].ticker, 0u);
    EXPECT_EQ(portfolio.trades[0].entry, 1u);
    EXPECT_EQ(portfolio.trades[0].exit, 3u);
    EXPECT_NEAR(portfolio.trades[0].result, 0.5, 1e-12);
    EXPECT_EQ(portfolio.trades[1].ticker, 2u);
    EXPECT_EQ(portfolio.trades[1].entryClose, 40);
    EXPECT_EQ(portfolio.trades[1].exitClose, 60);
    EXPECT_EQ(portfolio.held, 0u);
    EXPECT_NEAR(portfolio.worstFall, 0, 1e-12);
    EXPECT_NEAR(portfolio.benchmarkWorstFall, 1 - 2.7 / 4.75, 1e-12);
    EXPECT_NEAR(portfolio.inMarket, 5.0 / 8, 1e-12);
    ASSERT_TRUE(portfolio.yearly);
    EXPECT_GT(*portfolio.yearly, 1e6);
}

TEST(Portfolio, MoreHoldingsTakeEqualParts) {
    PortfolioTerms terms = Terms();
    terms.most = 2;
    // Date 1: half into A at 20. Date 2: worth .5 + .625, half of that would be .5625: what is left, .5, into
    // B at 10. Date 3: A sold for .75, C bought for (.75 + .25) / 2 = .5 at 40. Date 4: B sold at 4 for .2.
    const Portfolio portfolio = PortfolioOf(ThreeTickers(), terms);
    EXPECT_NEAR(portfolio.equity[2], 1.125, 1e-12);
    EXPECT_NEAR(portfolio.equity[3], 1.0, 1e-12);
    EXPECT_NEAR(portfolio.equity[4], 0.25 + 0.2 + 0.625, 1e-12);
}

TEST(Portfolio, ASellSignalEndsAHoldingAndCostsAreTaken) {
    ConditionStudy study = ThreeTickers();
    study.tickers[0].verdicts[1] = static_cast<BarVerdicts>(kEvaluated | VerdictOf(2));
    PortfolioTerms terms = Terms();
    terms.sell = 2;
    terms.cost = 1;
    const Portfolio portfolio = PortfolioOf(study, terms);
    ASSERT_FALSE(portfolio.trades.empty());
    EXPECT_EQ(portfolio.trades[0].exit, 2u);
    EXPECT_NEAR(portfolio.trades[0].result, 25 * 0.99 / (20 * 1.01) - 1, 1e-12);
    EXPECT_NEAR(portfolio.benchmark[0], 1 / 1.01, 1e-12);
}

TEST(Portfolio, AWalkWithoutAnEvaluatedDayGivesNothing) {
    ConditionStudy study = ThreeTickers();
    for (StudiedTicker& ticker : study.tickers)
        for (BarVerdicts& verdicts : ticker.verdicts) verdicts = 0;
    const Portfolio portfolio = PortfolioOf(study, Terms());
    EXPECT_TRUE(portfolio.dates.empty());
    EXPECT_EQ(portfolio.yearly, std::nullopt);
}

}  // namespace
}  // namespace brantlow
