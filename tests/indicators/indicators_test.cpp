#include <gtest/gtest.h>

#include <cmath>

#include "indicators/analysis.h"

namespace brantlow {
namespace {

class ComputeIndicatorsTest : public testing::Test {
  protected:
    template <class Close>
    void Fill(std::size_t bars, Close close) {
        for (std::size_t i = 1; i <= bars; ++i) {
            series.ClosePrice.Set(i, close(i));
            series.LowPrice.Set(i, close(i) - 1);
            series.HighPrice.Set(i, close(i) + 1);
            series.Volume.Set(i, 1000);
        }
        series.BarCount = series.LastBar = bars;
    }
    void FillLine(std::size_t bars) {
        Fill(bars, [](std::size_t i) { return static_cast<double>(i); });
    }
    void FillFlat(std::size_t bars) {
        Fill(bars, [](std::size_t) { return 10.0; });
    }
    void Compute() { ComputeIndicators(series, indicators); }

    static std::size_t FirstWritten(const NumberSeries& array) {
        std::size_t i = 0;
        while (i <= kMostRows && array.State(i) != ElementState::Written) ++i;
        return i;
    }

    // Twenty bars with every fundamental known.
    void FillFundamentals() {
        FillLine(20);
        for (std::size_t i = 1; i <= 20; ++i) {
            series.PriceToSales.Set(i, 4);
            series.PERatio.Set(i, 25);
            series.EPSttm.Set(i, 2);
            series.EPSest.Set(i, 2.5);
            series.MarketCap.Set(i, 1000);
        }
    }

    WorkingSeries series;
    Indicators indicators;
};

constexpr IndicatorArray kFundamentalArrays[] = {
    &Indicators::Sales,         &Indicators::Earnings,      &Indicators::EstimatedEarnings,
    &Indicators::PercentChange, &Indicators::SalesPerShare, &Indicators::EarningsPerSales,
    &Indicators::ForwardPE};

TEST_F(ComputeIndicatorsTest, ThreeBarsComputeNothingAndOldValuesStay) {
    FillLine(40);
    Compute();
    ASSERT_EQ(indicators.MA15[20], 13);
    ASSERT_EQ(indicators.LRSlope, 1);
    const double level = indicators.LRPrice[2];
    series.BarCount = series.LastBar = 3;
    for (std::size_t i = 1; i <= 3; ++i) series.ClosePrice.Set(i, 500);
    Compute();
    EXPECT_EQ(indicators.MA15[20], 13);
    EXPECT_EQ(indicators.LRPrice[2], level);
    EXPECT_EQ(indicators.LRSlope, 0);
    EXPECT_EQ(indicators.LRIntercept, 0);
    EXPECT_EQ(indicators.MaxVolume, 0);
    EXPECT_EQ(indicators.AverageVolume, 0);
    EXPECT_EQ(indicators.VolumeTightUCL, 0);
}

TEST_F(ComputeIndicatorsTest, FourBarsAreComputed) {
    FillLine(4);
    Compute();
    EXPECT_EQ(indicators.LRSlope, 1);
    EXPECT_EQ(indicators.LRPrice[4], 4);
}

TEST_F(ComputeIndicatorsTest, StraightLineHasNoResidualsAndBandsOfZero) {
    FillLine(200);
    Compute();
    EXPECT_EQ(indicators.LRSlope, 1);
    EXPECT_EQ(indicators.LRIntercept, 0);
    EXPECT_EQ(indicators.LRTightUCL, 0);
    EXPECT_EQ(indicators.LRLooseUCL, 0);
    EXPECT_EQ(indicators.LRTightLCL, 0);
    EXPECT_EQ(indicators.LRLooseLCL, 0);
    EXPECT_EQ(indicators.LRMaxResidual, 0);
    EXPECT_EQ(indicators.LRMinResidual, 0);
    for (std::size_t l = 0; l < kRegressionLengths.size(); ++l) {
        for (const auto& family : {kLooseUCL, kLooseLCL, kTightUCL, kTightLCL}) {
            EXPECT_EQ((indicators.*family[l])[200], 0) << kRegressionLengths[l];
            EXPECT_EQ((indicators.*family[l]).State(200), ElementState::Written) << kRegressionLengths[l];
        }
        EXPECT_EQ((indicators.*kMLR[l])[200], 200) << kRegressionLengths[l];
        EXPECT_EQ((indicators.*kMLRSlope[l])[200], 1) << kRegressionLengths[l];
        EXPECT_EQ((indicators.*kMLRIntercept[l])[200], 0) << kRegressionLengths[l];
    }
}

TEST_F(ComputeIndicatorsTest, HundredBarsLeaveTheLongAveragesUnwritten) {
    FillLine(100);
    Compute();
    for (const NumberSeries* array :
         {&indicators.MLR120, &indicators.MA120, &indicators.MA180, &indicators.WMA120, &indicators.WMA180}) {
        EXPECT_GT(FirstWritten(*array), kMostRows);
    }
    EXPECT_EQ(indicators.MA90[90], 45.5);
    EXPECT_EQ(FirstWritten(indicators.MA90), 90U);
}

TEST_F(ComputeIndicatorsTest, WeightsGrowFromTheOldestBarToTheNewest) {
    Fill(15, [](std::size_t i) { return i == 15 ? 100.0 : i == 1 ? 20.0 : 0.0; });
    Compute();
    EXPECT_EQ(indicators.WMA15[15], (15 * 100.0 + 1 * 20.0) / 120);
    EXPECT_EQ(indicators.MA15[15], 8);
}

TEST_F(ComputeIndicatorsTest, VolumeAveragesAreWeightedTheSameWay) {
    FillLine(30);
    for (std::size_t i = 1; i <= 30; ++i) series.Volume.Set(i, i == 30 ? 310 : 0);
    Compute();
    EXPECT_EQ(indicators.VolumeWMA15[30], 310.0 * 15 / 120);
    EXPECT_EQ(indicators.VolumeWMA30[30], 310.0 * 30 / 465);
    EXPECT_EQ(indicators.VolumeWMA15[29], 0);
    EXPECT_EQ(indicators.MaxVolume, 310);
    EXPECT_DOUBLE_EQ(indicators.AverageVolume, 310.0 / 30);
}

TEST_F(ComputeIndicatorsTest, WholeWindowBandsOfFourBarsByHand) {
    // Closes 1, 3, 2, 4: mean x 2.5, mean y 2.5, mean xx 7.5, mean xy 29/4; slope (7.25-6.25)/1.25 = 0.8,
    // intercept (18.75-18.125)/1.25 = 0.5; levels 1.3, 2.1, 2.9, 3.7; residuals -0.3, 0.9, -0.9, 0.3.
    constexpr double kCloses[] = {1, 3, 2, 4};
    Fill(4, [&](std::size_t i) { return kCloses[i - 1]; });
    Compute();
    EXPECT_DOUBLE_EQ(indicators.LRSlope, 0.8);
    EXPECT_DOUBLE_EQ(indicators.LRIntercept, 0.5);
    EXPECT_NEAR(indicators.LRTightUCL, 2.658 * 0.6, 1e-12);
    EXPECT_NEAR(indicators.LRLooseUCL, 3.865 * 0.6, 1e-12);
    EXPECT_NEAR(indicators.LRTightLCL, -2.658 * 0.6, 1e-12);
    EXPECT_NEAR(indicators.LRLooseLCL, -3.865 * 0.6, 1e-12);
    EXPECT_NEAR(indicators.LRMaxResidual, 0.9, 1e-12);
    EXPECT_NEAR(indicators.LRMinResidual, -0.9, 1e-12);
}

TEST_F(ComputeIndicatorsTest, BandsAreZeroOnAFlatSeries) {
    FillFlat(50);
    Compute();
    EXPECT_EQ(indicators.LRTightLCL, 0);
    EXPECT_EQ(indicators.LRLooseLCL, 0);
    EXPECT_EQ(indicators.LRTightUCL, 0);
}

TEST_F(ComputeIndicatorsTest, VolumeLimitsCountOnlyPositiveResiduals) {
    // Volumes 1, 3, 2, 4 leave the residuals 0.9 and 0.3 above their line.
    constexpr double kVolumes[] = {1, 3, 2, 4};
    FillLine(4);
    for (std::size_t i = 1; i <= 4; ++i) series.Volume.Set(i, kVolumes[i - 1]);
    Compute();
    EXPECT_NEAR(indicators.VolumeTightUCL, 2.658 * 0.6, 1e-12);
    EXPECT_NEAR(indicators.VolumeLooseUCL, 3.865 * 0.6, 1e-12);
    EXPECT_NEAR(indicators.LRVolume[4], 3.7, 1e-12);
}

TEST_F(ComputeIndicatorsTest, VolumeLimitsAreOneWithoutPositiveResiduals) {
    FillLine(40);
    for (std::size_t i = 1; i <= 40; ++i) series.Volume.Set(i, 1024);
    Compute();
    EXPECT_EQ(indicators.VolumeTightUCL, 1);
    EXPECT_EQ(indicators.VolumeLooseUCL, 1);
}

TEST_F(ComputeIndicatorsTest, DerivativesAreFirstWrittenThreeBarsAfterTheirLength) {
    FillLine(100);
    Compute();
    EXPECT_EQ(FirstWritten(indicators.MLRDer90), 93U);
    EXPECT_EQ(FirstWritten(indicators.MLRDer60), 63U);
    EXPECT_EQ(FirstWritten(indicators.MLRDer30), 33U);
    EXPECT_EQ(FirstWritten(indicators.MLRDer15), 18U);
    EXPECT_EQ(indicators.MLRDer90[93], 1);
    EXPECT_EQ(indicators.MLRDer15[100], 1);
}

TEST_F(ComputeIndicatorsTest, FlatSeriesHasNoMomentumNoMacdAndNoRsi) {
    FillFlat(100);
    series.ClosePrice.Set(0, 10);
    Compute();
    for (const NumberSeries* momentum :
         {&indicators.Momentum15, &indicators.Momentum30, &indicators.Momentum60}) {
        EXPECT_EQ((*momentum)[100], 0);
        EXPECT_EQ(momentum->State(100), ElementState::Written);
    }
    for (const NumberSeries* unwritten :
         {&indicators.MACD15, &indicators.MACD30, &indicators.RSI15, &indicators.RSI30}) {
        EXPECT_GT(FirstWritten(*unwritten), kMostRows);
    }
}

TEST_F(ComputeIndicatorsTest, RsiCountsUpAndDownBars) {
    // Bars 2 to 31 of a series of 31: 20 up, 10 down.
    Fill(31, [](std::size_t i) {
        return 100 + (i <= 21 ? static_cast<double>(i) : 42.0 - static_cast<double>(i));
    });
    Compute();
    EXPECT_NEAR(indicators.RSI30[31], 66.67, 0.005);
    FillLine(31);
    Compute();
    EXPECT_EQ(indicators.RSI30[31], 100);
    Fill(31, [](std::size_t i) { return 100 - static_cast<double>(i); });
    Compute();
    EXPECT_EQ(indicators.RSI30[31], 0);
}

TEST_F(ComputeIndicatorsTest, FirstRsiComparesWithElementZero) {
    FillLine(16);
    Compute();
    EXPECT_EQ(indicators.RSI15[15], 100);  // element 0 was never written and reads as 0
    series.ClosePrice.Set(0, 50);
    Compute();
    EXPECT_NEAR(indicators.RSI15[15], 14.0 / 15 * 100, 1e-9);
    series.ClosePrice.Set(0, 1);
    Compute();
    EXPECT_EQ(indicators.RSI15[15], 100);
    EXPECT_EQ(indicators.RSI15[16], 100);
}

TEST_F(ComputeIndicatorsTest, MomentumIsTheSlopeScaledByTheFirstCloseOfItsWindow) {
    FillLine(70);
    Compute();
    EXPECT_DOUBLE_EQ(indicators.Momentum15[70], 24000.0 / 56);
    EXPECT_DOUBLE_EQ(indicators.Momentum30[70], 24000.0 / 41);
    EXPECT_DOUBLE_EQ(indicators.Momentum60[70], 24000.0 / 11);
}

TEST_F(ComputeIndicatorsTest, ZeroCloseInTheWindowsFirstBarKeepsTheOldMomentum) {
    FillLine(70);
    Compute();
    const double before = indicators.Momentum15[20];
    series.ClosePrice.Set(6, 0);
    Compute();
    EXPECT_EQ(indicators.Momentum15[20], before);
    EXPECT_NE(indicators.Momentum15[21], 0);
}

TEST_F(ComputeIndicatorsTest, McClellanBelowTheLongerLengthIsTheShorterAverageAlone) {
    FillLine(70);
    Compute();
    EXPECT_EQ(indicators.McClellan15[20], indicators.WMA15[20]);
    EXPECT_EQ(indicators.McClellan15[30], indicators.WMA15[30] - indicators.WMA30[30]);
    EXPECT_EQ(indicators.McClellan30[59], indicators.WMA30[59]);
    EXPECT_EQ(indicators.McClellan30[60], indicators.WMA30[60] - indicators.WMA60[60]);
    EXPECT_EQ(FirstWritten(indicators.McClellan15), 15U);
    EXPECT_EQ(FirstWritten(indicators.McClellan30), 30U);
}

TEST_F(ComputeIndicatorsTest, StochasticIsOneWhereEveryCloseIsTheHighAndZeroWithoutRange) {
    FillLine(20);
    for (std::size_t i = 1; i <= 20; ++i) series.HighPrice.Set(i, series.ClosePrice[i]);
    Compute();
    EXPECT_EQ(indicators.Stochastic15[15], 1);
    for (std::size_t i = 1; i <= 20; ++i) series.LowPrice.Set(i, series.ClosePrice[i]);
    Compute();
    EXPECT_EQ(indicators.Stochastic15[15], 0);
    EXPECT_EQ(indicators.Stochastic15.State(15), ElementState::Written);
}

TEST_F(ComputeIndicatorsTest, BarWithoutRangeStillCountsInTheDivisorOfTheStochastic) {
    FillLine(15);
    for (std::size_t i = 1; i <= 15; ++i) {
        series.HighPrice.Set(i, series.ClosePrice[i]);
        if (i > 10) series.LowPrice.Set(i, series.ClosePrice[i]);
    }
    Compute();
    EXPECT_DOUBLE_EQ(indicators.Stochastic15[15], 10.0 / 15);
}

TEST_F(ComputeIndicatorsTest, Macd30StartsAtBar60) {
    FillLine(100);
    Compute();
    EXPECT_EQ(FirstWritten(indicators.MACD30), 60U);
    EXPECT_EQ(FirstWritten(indicators.MACD15), 30U);
}

TEST_F(ComputeIndicatorsTest, MacdIsAPercentageOfTheLargestSizeSoFar) {
    FillLine(100);
    Compute();
    // On the line the momenta are 24000 over the window's first close and fall as it rises.
    const double scale = 24000.0 / 31 + 24000.0 / 1;
    EXPECT_NEAR(indicators.MACD30[60], 100 * (24000.0 / 31 - 24000.0) / scale, 1e-9);
    EXPECT_NEAR(indicators.MACD30[100], 100 * (24000.0 / 71 - 24000.0 / 41) / scale, 1e-9);
}

TEST_F(ComputeIndicatorsTest, FundamentalsByTheirFormulas) {
    FillLine(20);
    Fill(20, [](std::size_t i) { return i == 19 ? 50.0 : 60.0; });
    series.PriceToSales.Set(20, 4);
    series.PERatio.Set(20, 25);
    series.EPSttm.Set(20, 2);
    series.EPSest.Set(20, 2.5);
    series.MarketCap.Set(20, 1000);
    Compute();
    EXPECT_EQ(indicators.Sales[20], 12.5 * (1e9 / 50));
    EXPECT_EQ(indicators.Earnings[20], 1e9 / 25);
    EXPECT_EQ(indicators.EstimatedEarnings[20], 2.5 * (1e9 / 50));
    EXPECT_EQ(indicators.PercentChange[20], 20);
    EXPECT_EQ(indicators.SalesPerShare[20], 12.5);
    EXPECT_EQ(indicators.EarningsPerSales[20], 0.16);
    EXPECT_EQ(indicators.ForwardPE[20], 20);
}

TEST_F(ComputeIndicatorsTest, UnguardedFundamentalsKeepTheirOldValues) {
    FillFundamentals();
    Compute();
    for (IndicatorArray array : kFundamentalArrays) {
        ASSERT_EQ((indicators.*array).State(20), ElementState::Written);
    }
    const double sales = indicators.Sales[20];
    series.ClosePrice.Set(19, 0);
    series.PERatio.Set(20, 0);
    series.EPSest.Set(20, 0);
    series.PriceToSales.Set(20, 0);
    Indicators fresh;
    ComputeIndicators(series, fresh);
    Compute();
    EXPECT_EQ(indicators.Sales[20], sales);
    for (IndicatorArray array : kFundamentalArrays) {
        EXPECT_EQ((fresh.*array).State(20), ElementState::NeverWritten);
        EXPECT_EQ((indicators.*array).State(20), ElementState::Written);
    }
}

TEST_F(ComputeIndicatorsTest, FirstBarTakesElementZeroAsItsPreviousClose) {
    FillFundamentals();
    Compute();
    EXPECT_EQ(indicators.PercentChange.State(1), ElementState::NeverWritten);
    EXPECT_EQ(indicators.Sales.State(1), ElementState::NeverWritten);
    EXPECT_EQ(indicators.Earnings.State(1), ElementState::Written);
    series.ClosePrice.Set(0, 2);
    Compute();
    EXPECT_EQ(indicators.PercentChange[1], (series.ClosePrice[1] - 2) / 2 * 100);
    EXPECT_EQ(indicators.SalesPerShare[1], 0.5);
}

TEST_F(ComputeIndicatorsTest, PercentChangeIsSeenWithFifteenDigits) {
    Fill(20, [](std::size_t i) { return i == 20 ? 4.0 : 3.0; });
    Compute();
    EXPECT_EQ(indicators.PercentChange[20], 1.0 / 3 * 100);
    EXPECT_EQ(PercentChangeAt(indicators, 20), 33.3333333333333);
    EXPECT_EQ(PercentChangeAt(indicators, 1), 0);
}

TEST_F(ComputeIndicatorsTest, ElementsAboveBarCountKeepWhatTheyHeld) {
    FillLine(100);
    Compute();
    const double before = indicators.MA15[60];
    Fill(50, [](std::size_t i) { return 3.0 * static_cast<double>(i); });
    Compute();
    EXPECT_EQ(indicators.MA15[60], before);
    EXPECT_EQ(indicators.MA15[50], 129);
}

TEST_F(ComputeIndicatorsTest, ShortestLengthNeedsAnUpperResidualForItsLowerBands) {
    // Residuals of a fitted line never lie all below it but for rounding, so the rule shows on series that
    // are flat to the last bit but one; whichever way they round, the other lengths keep each side apart.
    int withoutUpper = 0;
    for (int c = 1; c <= 400; ++c) {
        Indicators fresh;
        Fill(15, [&](std::size_t) { return c * 0.1; });
        ComputeIndicators(series, fresh);
        if (fresh.TightUCL15.State(15) == ElementState::Written) continue;
        ++withoutUpper;
        EXPECT_EQ(fresh.LooseUCL15.State(15), ElementState::NeverWritten) << c;
        EXPECT_EQ(fresh.TightLCL15.State(15), ElementState::NeverWritten) << c;
        EXPECT_EQ(fresh.LooseLCL15.State(15), ElementState::NeverWritten) << c;
    }
    EXPECT_GT(withoutUpper, 0);
}

}  // namespace
}  // namespace brantlow
