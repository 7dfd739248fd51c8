// A study of three tickers and six days, every figure of it worked out by hand.
#include "study/study_figures.h"

#include <gtest/gtest.h>

#include <cmath>

#include "three_tickers.h"

namespace brantlow {
namespace {

StudyTerms Terms(double cost) {
    return {{1, 2}, cost, false};
}

TEST(StudyFigures, TheBaselineIsTheMeanOfAllEvaluatedPairs) {
    // After one bar. A: 25/20, 30/25, 24/30, 12/24, 18/12, 18/18 less 1: .25 .2 -.2 -.5 .5 0, together .25.
    // B: 10/8, 5/10, 4/5, 4/4, 8/4 and none on date 5: .25 -.5 -.2 0 1, together .55.
    // C: from date 1: 40 bought, 50 sold: .25. Dates 3 and 4: a side of 0 is open. Date 5: open.
    const StudyFigures figures = FiguresOf(ThreeTickers(), Terms(0));
    EXPECT_EQ(figures.baseline[0].n, 12u);
    EXPECT_NEAR(figures.baseline[0].mean, (0.25 + 0.55 + 0.25) / 12, 1e-15);
    // After two bars. A: 30/20 24/25 12/30 18/24 18/12 and open: .5 -.04 -.6 -.25 .5, together .11.
    // B: 5/8 4/10 4/5 8/4 and open: -.375 -.6 -.2 1, together -.175. C: 0 at the end of date 1's, 60/50 of
    // date 3's: .2, then open.
    EXPECT_EQ(figures.baseline[1].n, 10u);
    EXPECT_NEAR(figures.baseline[1].mean, (0.11 - 0.175 + 0.2) / 10, 1e-15);
}

TEST(StudyFigures, EachFigureOfAConditionIsTheHandWorkedOne) {
    const StudyFigures figures = FiguresOf(ThreeTickers(), Terms(0));
    const ConditionFigures& one = figures.conditions[0];
    EXPECT_EQ(one.condition, 1u);
    EXPECT_EQ(one.holding, 8u);  // A 2, B 4, C 2
    EXPECT_EQ(one.signals, 5u);  // A 0, B 1, B 4, C 1, C 4
    EXPECT_EQ(one.tickers, 3u);
    EXPECT_EQ(one.days, 3u);
    // A 0: .25, B 1: -.5 (10 to 5), B 4: 1 (4 to 8), C 1: .25 (40 to 50), C 4: bought at 0, open.
    const HorizonFigures& after = one.horizons[0];
    EXPECT_EQ(after.n, 4u);
    EXPECT_EQ(after.open, 1u);
    EXPECT_NEAR(*after.mean, 0.25, 1e-15);
    EXPECT_NEAR(*after.median, 0.25, 1e-15);
    EXPECT_NEAR(*after.hit, 0.75, 1e-15);
    EXPECT_NEAR(*after.excess, 0.25 - 1.05 / 12, 1e-15);
    // Deviations by date: 0, then -.75 + 0, then .75.
    const double se = std::sqrt(0.75 * 0.75 + 0.75 * 0.75) / 4;
    EXPECT_NEAR(*after.se, se, 1e-15);
    EXPECT_NEAR(*after.t, (0.25 - 1.05 / 12) / se, 1e-14);
    // Six evaluated dates, so date 3 is the middle one: A 0, B 1, C 1 before it, B 4 from it on.
    EXPECT_NEAR(*after.firstHalf, 0.0, 1e-15);
    EXPECT_NEAR(*after.secondHalf, 1.0, 1e-15);
    // After two bars: A 0: .5, B 1: -.6, B 4 and both of C open.
    const HorizonFigures& later = one.horizons[1];
    EXPECT_EQ(later.n, 2u);
    EXPECT_EQ(later.open, 3u);
    EXPECT_NEAR(*later.mean, -0.05, 1e-15);
    EXPECT_NEAR(*later.median, -0.05, 1e-15);
    EXPECT_NEAR(*later.hit, 0.5, 1e-15);
    EXPECT_NEAR(*later.se, std::sqrt(2 * 0.55 * 0.55) / 2, 1e-15);
    EXPECT_EQ(later.secondHalf, std::nullopt);
}

TEST(StudyFigures, CostsAreTakenAtBothEnds) {
    const ConditionStudy study = ThreeTickers();
    EXPECT_DOUBLE_EQ(*ReturnAfter(study.tickers[0], 0, 1, 1.0), 25 * 0.99 / (20 * 1.01) - 1);
    EXPECT_DOUBLE_EQ(*ReturnAfter(study.tickers[0], 0, 0, 0.5), 0.995 / 1.005 - 1);
}

TEST(StudyFigures, OneDateAloneHasAnErrorButNoT) {
    const HorizonFigures one = FiguresOf(ThreeTickers(), Terms(0)).conditions[1].horizons[0];
    EXPECT_EQ(one.n, 1u);
    EXPECT_NEAR(*one.mean, -0.5, 1e-15);
    EXPECT_EQ(*one.se, 0);
    EXPECT_EQ(one.t, std::nullopt);
}

TEST(StudyFigures, AConditionThatNeverHoldsHasNoFigures) {
    const ConditionFigures three = FiguresOf(ThreeTickers(), Terms(0)).conditions[2];
    EXPECT_EQ(three.holding + three.signals + three.tickers + three.days, 0u);
    for (const HorizonFigures& horizon : three.horizons) {
        EXPECT_EQ(horizon.n + horizon.open, 0u);
        for (const auto& value : {horizon.mean, horizon.median, horizon.hit, horizon.excess, horizon.se,
                                  horizon.t, horizon.firstHalf, horizon.secondHalf})
            EXPECT_EQ(value, std::nullopt);
    }
}

TEST(StudyFigures, WithEveryDayEachHoldingPairIsASignal) {
    StudyTerms terms = Terms(0);
    terms.everyDay = true;
    const ConditionFigures one = FiguresOf(ThreeTickers(), terms).conditions[0];
    EXPECT_EQ(one.signals, 8u);
    EXPECT_EQ(one.days, 5u);
}

TEST(StudyFigures, ASignalFollowsABarThatWasNotEvaluated) {
    ConditionStudy study = ThreeTickers();
    study.tickers[0].verdicts = {0, kFirst, kFirst, 0, kFirst, kEvaluated, 0, 0};
    EXPECT_FALSE(study.tickers[0].Begins(1, 0));
    EXPECT_TRUE(study.tickers[0].Begins(1, 1));
    EXPECT_FALSE(study.tickers[0].Begins(1, 2));
    EXPECT_TRUE(study.tickers[0].Begins(1, 4));
}

TEST(StudyFigures, NoTickerGivesNoFiguresAndNoDivision) {
    ConditionStudy study;
    study.actions = {"Buy"};
    const StudyFigures figures = FiguresOf(study, Terms(0.5));
    EXPECT_EQ(figures.baseline[0].n, 0u);
    EXPECT_EQ(figures.conditions[0].horizons[0].mean, std::nullopt);
    EXPECT_EQ(SignalsCsv(study, Terms(0.5)), "date,ticker,condition,action,entry,entry_close,r_1,r_2\n");
}

TEST(StudyFigures, TheListIsSortedByDateTickerAndCondition) {
    EXPECT_EQ(SignalsCsv(ThreeTickers(), Terms(0)),
              "date,ticker,condition,action,entry,entry_close,r_1,r_2\n"
              "2026-03-02,A,1,Buy,2026-03-03,20,0.25,0.5\n"
              "2026-03-03,B,1,Buy,2026-03-04,10,-0.5,-0.6\n"
              "2026-03-03,B,2,Sell,2026-03-04,10,-0.5,-0.6\n"
              "2026-03-03,C,1,Buy,2026-03-05,40,0.25,\n"
              "2026-03-06,B,1,Buy,2026-03-07,4,1,\n"
              "2026-03-06,C,1,Buy,2026-03-07,0,,\n");
}

TEST(StudyFigures, APathBeginsAtThePurchaseAndAgreesWithTheTable) {
    const ConditionStudy study = ThreeTickers();
    const auto path = MeanPath(study, 1, Terms(0), 2);
    ASSERT_EQ(path.size(), 3u);
    EXPECT_EQ(*path[0].signals.mean, 0);
    const StudyFigures figures = FiguresOf(study, Terms(0));
    EXPECT_EQ(path[1].signals.mean, figures.conditions[0].horizons[0].mean);
    EXPECT_EQ(path[2].signals.se, figures.conditions[0].horizons[1].se);
    EXPECT_EQ(path[2].baseline.mean, figures.baseline[1].mean);
}

}  // namespace
}  // namespace brantlow
