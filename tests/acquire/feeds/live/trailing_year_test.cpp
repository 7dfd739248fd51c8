// The last twelve months out of filings. Apple's figures are those of its filings of 2025 and 2026; the
// others are made up.
#include "acquire/feeds/live/trailing_year.h"

#include "acquire/feeds/live/source_fixture.h"

namespace brantlow {

namespace {

FiledFact Fact(std::chrono::sys_days start, std::chrono::sys_days end, double value,
               const char* form = "10-Q", std::chrono::sys_days filed = DayOf(2026, 7, 31)) {
    return {start, end, value, form, filed};
}

// A company whose year is that of the calendar: three told quarters, nine months and the year before.
std::vector<FiledFact> FlowFacts() {
    return {Fact(DayOf(2025, 1, 1), DayOf(2025, 12, 31), 100, "10-K", DayOf(2026, 2, 20)),
            Fact(DayOf(2025, 1, 1), DayOf(2025, 9, 30), 70, "10-Q", DayOf(2025, 10, 30)),
            Fact(DayOf(2025, 4, 1), DayOf(2025, 6, 30), 23, "10-Q", DayOf(2025, 7, 30)),
            Fact(DayOf(2025, 7, 1), DayOf(2025, 9, 30), 25, "10-Q", DayOf(2025, 10, 30)),
            Fact(DayOf(2026, 1, 1), DayOf(2026, 3, 31), 26),
            Fact(DayOf(2026, 4, 1), DayOf(2026, 6, 30), 28)};
}

const auto kToday = DayOf(2026, 8, 15);

}  // namespace

TEST(TrailingYear, FourQuartersAddUpAndTheLastOfAYearIsWorkedOut) {
    const auto sum = SumOfYear(FlowFacts(), MayBeNegative::No, kToday);
    ASSERT_TRUE(sum);
    EXPECT_DOUBLE_EQ(sum->value, 25 + 30 + 26 + 28);
    EXPECT_EQ(sum->end, DayOf(2026, 6, 30));
}

TEST(TrailingYear, WithoutQuartersTheYearAndTheTimeSinceServe) {
    const std::vector<FiledFact> facts = {Fact(DayOf(2025, 1, 1), DayOf(2025, 12, 31), 100, "10-K"),
                                          Fact(DayOf(2026, 1, 1), DayOf(2026, 6, 30), 60),
                                          Fact(DayOf(2025, 1, 1), DayOf(2025, 6, 30), 45)};
    const auto sum = SumOfYear(facts, MayBeNegative::No, kToday);
    ASSERT_TRUE(sum);
    EXPECT_DOUBLE_EQ(sum->value, 100 + 60 - 45);
}

TEST(TrailingYear, OfOnePeriodTheLastFilingCountsAndOtherFormsDoNot) {
    std::vector<FiledFact> facts = FlowFacts();
    facts.push_back(Fact(DayOf(2026, 4, 1), DayOf(2026, 6, 30), 29, "10-Q/A", DayOf(2026, 8, 10)));
    facts.push_back(Fact(DayOf(2026, 4, 1), DayOf(2026, 6, 30), 99, "8-K", DayOf(2026, 8, 12)));
    EXPECT_DOUBLE_EQ(SumOfYear(facts, MayBeNegative::No, kToday)->value, 25 + 30 + 26 + 29);
}

TEST(TrailingYear, OldFiguresAreNone) {
    EXPECT_FALSE(SumOfYear(FlowFacts(), MayBeNegative::No, DayOf(2027, 1, 10)));
    EXPECT_TRUE(SumOfYear(FlowFacts(), MayBeNegative::No, DayOf(2027, 1, 1)));
}

TEST(TrailingYear, ANegativeWorkedOutQuarterOfSalesIsNone) {
    const std::vector<FiledFact> facts = {Fact(DayOf(2025, 1, 1), DayOf(2025, 12, 31), 60, "10-K"),
                                          Fact(DayOf(2025, 1, 1), DayOf(2025, 9, 30), 70)};
    EXPECT_TRUE(QuartersOf(facts, MayBeNegative::No).empty());
    EXPECT_EQ(QuartersOf(facts, MayBeNegative::Yes).size(), 1u);
}

TEST(TrailingYear, EarningsAShareOfTheLastQuarterAreItsIncomeByItsShares) {
    const std::vector<FiledFact> income = {Fact(DayOf(2025, 1, 1), DayOf(2025, 12, 31), 1000, "10-K"),
                                           Fact(DayOf(2025, 1, 1), DayOf(2025, 9, 30), 700)};
    // 4 x 100 - 3 x 120 = 40 shares in the last quarter.
    const std::vector<FiledFact> shares = {Fact(DayOf(2025, 1, 1), DayOf(2025, 12, 31), 100, "10-K"),
                                           Fact(DayOf(2025, 1, 1), DayOf(2025, 9, 30), 120)};
    const std::vector<FiledFact> perShare = {Fact(DayOf(2025, 1, 1), DayOf(2025, 12, 31), 10, "10-K"),
                                             Fact(DayOf(2025, 7, 1), DayOf(2025, 9, 30), 2),
                                             Fact(DayOf(2026, 1, 1), DayOf(2026, 3, 31), 3),
                                             Fact(DayOf(2026, 4, 1), DayOf(2026, 6, 30), 4)};
    const auto year = EarningsOfYear(perShare, income, shares, kToday);
    ASSERT_TRUE(year);
    EXPECT_DOUBLE_EQ(year->value, 2 + 300.0 / 40 + 3 + 4);
}

TEST(TrailingYear, ShareCountsThatHardlyMovedAreTheYears) {
    const std::vector<FiledFact> income = {Fact(DayOf(2025, 1, 1), DayOf(2025, 12, 31), 1000, "10-K"),
                                           Fact(DayOf(2025, 1, 1), DayOf(2025, 9, 30), 700)};
    const std::vector<FiledFact> shares = {Fact(DayOf(2025, 1, 1), DayOf(2025, 12, 31), 100, "10-K"),
                                           Fact(DayOf(2025, 1, 1), DayOf(2025, 9, 30), 102)};
    const std::vector<FiledFact> perShare = {Fact(DayOf(2025, 1, 1), DayOf(2025, 12, 31), 10, "10-K"),
                                             Fact(DayOf(2025, 7, 1), DayOf(2025, 9, 30), 2),
                                             Fact(DayOf(2026, 1, 1), DayOf(2026, 3, 31), 3),
                                             Fact(DayOf(2026, 4, 1), DayOf(2026, 6, 30), 4)};
    EXPECT_DOUBLE_EQ(EarningsOfYear(perShare, income, shares, kToday)->value, 2 + 3.0 + 3 + 4);
}

TEST(TrailingYear, ValuesFiledBeforeASplitAreScaled) {
    std::vector<FiledFact> facts = {
        Fact(DayOf(2026, 1, 1), DayOf(2026, 3, 31), 8, "10-Q", DayOf(2026, 4, 30)),
        Fact(DayOf(2026, 4, 1), DayOf(2026, 6, 30), 2.5, "10-Q", DayOf(2026, 7, 30))};
    ScaleForSplits(facts, {{DayOf(2026, 6, 10), 4}});
    EXPECT_DOUBLE_EQ(facts[0].value, 2);
    EXPECT_DOUBLE_EQ(facts[1].value, 2.5);
}

}  // namespace brantlow
