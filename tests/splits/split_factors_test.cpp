#include "splits/split_factors.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace brantlow {
namespace {

struct BandLine {
    double factor;
    double lower;
    double upper;
};

const std::vector<BandLine> kBands = {
    {10.0, 0.07, 0.13},    {9.0, 0.08, 0.14},  {8.0, 0.09, 0.15},     {7.0, 0.11, 0.17},
    {6.0, 0.12, 0.2},      {5.0, 0.16, 0.24},  {4.0, 0.21, 0.29},     {3.0, 0.27, 0.39},
    {2.5, 0.35, 0.45},     {2.0, 0.44, 0.56},  {5.0 / 3, 0.54, 0.66}, {1.5, 0.6, 0.72},
    {4.0 / 3, 0.69, 0.81}, {1.25, 0.74, 0.86}, {0.8, 1.1, 1.4},       {0.75, 1.2, 1.5},
    {0.5, 1.8, 2.2},       {0.6, 1.5, 1.9},    {2.0 / 3, 1.3, 1.7},   {0.4, 2.3, 2.7},
    {1.0 / 3, 2.8, 3.2},   {0.25, 3.7, 4.3},   {0.2, 4.6, 5.4},       {1.0 / 6, 5.5, 6.5},
    {1.0 / 7, 6.5, 7.5},   {0.125, 7.4, 8.6},  {1.0 / 9, 8.4, 9.6},   {0.1, 9.3, 10.7},
};

TEST(SplitFactors, EveryBandHoldsItsLowerBoundAndNotItsUpper) {
    ASSERT_EQ(kSplitBands.size(), kBands.size());
    for (std::size_t i = 0; i < kBands.size(); ++i) {
        const BandLine& line = kBands[i];
        SCOPED_TRACE("factor " + std::to_string(line.factor));
        EXPECT_EQ(&kSplitBands[i], BandOfFactor(line.factor));
        EXPECT_TRUE(kSplitBands[i].Contains(line.lower));
        EXPECT_FALSE(kSplitBands[i].Contains(std::nextafter(line.lower, 0)));
        EXPECT_FALSE(kSplitBands[i].Contains(line.upper));
        EXPECT_TRUE(kSplitBands[i].Contains(std::nextafter(line.upper, 0)));
    }
}

TEST(SplitFactors, OnlyAnExactFactorHasABand) {
    for (const double factor : {0.0, 1.0, -2.0, 11.0, 0.333333333333333, 1.67, 2.0000001,
                                std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(BandOfFactor(factor), nullptr) << factor;
    }
}

TEST(SplitFactors, TheDialogOffersEighteenChoices) {
    const std::vector<std::pair<std::string, std::string>> choices = {
        {"Option18", "10/1"}, {"Option1", "5/1"},  {"Option2", "4/1"},  {"Option3", "3/1"},
        {"Option4", "5/2"},   {"Option5", "2/1"},  {"Option6", "5/3"},  {"Option7", "3/2"},
        {"Option8", "4/3"},   {"Option9", "5/4"},  {"Option10", "1/3"}, {"Option11", "1/4"},
        {"Option12", "1/5"},  {"Option13", "1/6"}, {"Option14", "1/7"}, {"Option15", "1/8"},
        {"Option16", "1/9"},  {"Option17", "1/10"}};
    ASSERT_EQ(kSplitChoices.size(), choices.size());
    for (std::size_t i = 0; i < choices.size(); ++i) {
        SCOPED_TRACE(choices[i].second);
        EXPECT_EQ(kSplitChoices[i].control, choices[i].first);
        EXPECT_EQ(kSplitChoices[i].caption, choices[i].second);
        EXPECT_EQ(ParseSplitFactor(kSplitChoices[i].caption), kSplitChoices[i].Factor());
        EXPECT_NE(BandOfFactor(kSplitChoices[i].Factor()), nullptr);
    }
}

TEST(SplitFactors, TheDialogHasItsWords) {
    EXPECT_EQ(kSplitDialogTitle, "Split Adjustment");
    EXPECT_EQ(kSplitDialogFrame, "Stock Split");
    EXPECT_EQ(kSplitDialogLabel, "Select Stock Split: New Shares/Old Shares");
}

TEST(SplitFactors, AFactorIsTwoWholeNumbersAboveZero) {
    EXPECT_EQ(ParseSplitFactor("2/1"), 2.0);
    EXPECT_EQ(ParseSplitFactor("1/10"), 0.1);
    EXPECT_EQ(ParseSplitFactor("5/3"), 5.0 / 3);
    for (const char* text : {"", "/", "2", "2/", "/1", "0/1", "1/0", "-2/1", "2/-1", "2.5/1", "2/1/1", "a/b",
                             " 2/1", "2/1 ", "99999999999/1", "2-1"}) {
        EXPECT_FALSE(ParseSplitFactor(text)) << text;
    }
}

}  // namespace
}  // namespace brantlow
