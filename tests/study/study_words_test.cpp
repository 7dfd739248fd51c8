#include "study/study_words.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "three_tickers.h"

namespace brantlow {
namespace {

ConditionStudy Weekly() {
    ConditionStudy study = ThreeTickers();
    study.span.interval = Interval::Weekly;
    return study;
}

// Of A, the first bar alone is evaluated.
ConditionStudy OneBar() {
    ConditionStudy study = ThreeTickers();
    study.tickers.resize(1);
    auto& verdicts = study.tickers.front().verdicts;
    std::fill(verdicts.begin() + 1, verdicts.end(), BarVerdicts{0});
    return study;
}

std::string FirstLineOfPortfolio(const ConditionStudy& study, const PortfolioTerms& terms) {
    const std::string words = PortfolioWords(study, terms, Portfolio());
    return words.substr(0, words.find('\n'));
}

TEST(StudyWords, ALengthIsToldInTheBarsOfTheStudy) {
    EXPECT_EQ(BarsText(1, Interval::Daily), "1 day");
    EXPECT_EQ(BarsText(20, Interval::Daily), "20 days");
    EXPECT_EQ(BarsText(1, Interval::Weekly), "1 week");
    EXPECT_EQ(BarsText(20, Interval::Weekly), "20 weeks");
    EXPECT_EQ(AfterText(1, Interval::Weekly), "after 1 week");
    EXPECT_EQ(AfterText(20, Interval::Daily), "after 20 days");
}

TEST(StudyWords, WhatWasJudgedIsToldInTheBarsOfTheStudy) {
    // Six days of A and of B and four of C.
    EXPECT_EQ(JudgedWords(ThreeTickers()), "16 days of 3 tickers were judged.");
    EXPECT_EQ(JudgedWords(Weekly()), "16 weeks of 3 tickers were judged.");
}

TEST(StudyWords, OneJudgedDayOfOneTickerIsOne) {
    EXPECT_EQ(JudgedWords(OneBar()), "1 day of 1 ticker was judged.");
}

TEST(StudyWords, ThePortfolioTellsItsTermsInTheBarsOfTheStudy) {
    PortfolioTerms terms;
    EXPECT_EQ(
        FirstLineOfPortfolio(ThreeTickers(), terms),
        "Bought at the signals of condition 1 (Buy), at most 10 shares at a time in equal parts, held for "
        "20 days; cost 0.5 % each time.");
    terms.hold = 1;
    terms.most = 1;
    terms.sell = 2;
    EXPECT_EQ(
        FirstLineOfPortfolio(Weekly(), terms),
        "Bought at the signals of condition 1 (Buy), at most 1 share at a time in equal parts, held for "
        "1 week or until a signal of condition 2 (Sell); cost 0.5 % each time.");
}

TEST(StudyWords, OneTradeAndOneHeldShareAreOne) {
    Portfolio portfolio;
    portfolio.trades.resize(1);
    portfolio.held = 1;
    const std::string words = PortfolioWords(ThreeTickers(), PortfolioTerms(), portfolio);
    EXPECT_NE(words.find("\n1 trade has ended, 1 share is still held. "), std::string::npos) << words;
    portfolio.trades.resize(3);
    portfolio.held = 2;
    const std::string more = PortfolioWords(ThreeTickers(), PortfolioTerms(), portfolio);
    EXPECT_NE(more.find("\n3 trades have ended, 2 shares are still held. "), std::string::npos) << more;
}

}  // namespace
}  // namespace brantlow
