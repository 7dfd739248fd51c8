// Which series of the chart show what a condition looked at.
#include "chart/condition_series.h"

#include <gmock/gmock.h>

#include "chart/series_tables.h"

namespace brantlow {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

SeriesWish Of(const std::vector<LookedAt>& values) {
    return SeriesOf(std::span(values));
}

TEST(ConditionSeries, EachNumberLeadsToTheSeriesThatShowsIt) {
    EXPECT_THAT(Of({{.computed = &Indicators::MA60}}).price, ElementsAre("MA 60"));
    // A band is not its centre.
    EXPECT_THAT(Of({{.computed = &Indicators::MLR30}}).price, ElementsAre("MLR 30"));
    EXPECT_THAT(Of({{.computed = &Indicators::LooseUCL30}, {.computed = &Indicators::MLR30}}).price,
                ElementsAre("MLR 30 L.CL", "MLR 30"));
    EXPECT_THAT(Of({{.scalar = &Indicators::LRTightLCL}}).price, ElementsAre("LR T.CL"));
    EXPECT_EQ(Of({{.computed = &Indicators::RSI15}}).study, "RSI 15");
    EXPECT_EQ(Of({{.stored = &WorkingSeries::PERatio}}).study, "Price To Earnings");
    EXPECT_THAT(Of({{.scalar = &Indicators::AverageVolume}}).volume, ElementsAre("Average"));
    EXPECT_THAT(Of({{.computed = &Indicators::VolumeWMA15}}).volume, ElementsAre("WMA 15"));
    EXPECT_THAT(Of({{.scalar = &Indicators::VolumeTightUCL}}).volume, ElementsAre("T. UCL"));
    EXPECT_THAT(Of({{.computed = &Indicators::LRVolume}}).volume, ElementsAre("LR"));
}

TEST(ConditionSeries, WhatNoSeriesShowsIsPassedOver) {
    const SeriesWish wish = Of({{.stored = &WorkingSeries::ClosePrice}, {.scalar = &Indicators::LRSlope}});
    EXPECT_THAT(wish.price, IsEmpty());
    EXPECT_THAT(wish.volume, IsEmpty());
    EXPECT_EQ(wish.study, "");
}

TEST(ConditionSeries, EachStandsOnceAndNoMoreThanTheChartHasRoomFor) {
    std::vector<LookedAt> values;
    for (const PriceSeries& series : kPriceSeries) {
        if (series.upper != nullptr) continue;
        values.push_back({.computed = series.centre, .bar = 1});
        values.push_back({.computed = series.centre, .bar = 2});
    }
    EXPECT_THAT(Of(values).price, ElementsAre("MA 15", "MA 30", "MA 60", "MA 90", "MA 120", "MA 180"));
    // One study has room, the first.
    EXPECT_EQ(Of({{.computed = &Indicators::MACD30}, {.computed = &Indicators::RSI30}}).study, "MACD 30");
}

TEST(ConditionSeries, EverySeriesOfTheTablesIsFoundByItsOwnNumbers) {
    for (const PriceSeries& series : kPriceSeries) {
        const IndicatorArray own = series.upper == nullptr ? series.centre : series.upper;
        EXPECT_THAT(Of({{.computed = own}}).price, ElementsAre(series.name));
    }
    for (const WholeWindowSeries& series : kWholeWindowSeries)
        EXPECT_THAT(Of({{.scalar = series.upper}}).price, ElementsAre(series.name));
}

}  // namespace
}  // namespace brantlow
