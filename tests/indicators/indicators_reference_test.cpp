#include <gtest/gtest.h>

#include <bit>
#include <memory>
#include <random>

#include "indicators/analysis.h"
#include "naive_indicators.h"

namespace brantlow {
namespace {

using Random = std::mt19937_64;

double Uniform(Random& random, double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
}

// A walk in prices with three decimals.
void FillRandom(Random& random, std::size_t bars, WorkingSeries& series) {
    double close = Uniform(random, 1, 500);
    for (std::size_t i = 1; i <= bars; ++i) {
        close = std::round(std::max(0.01, close * Uniform(random, 0.95, 1.06)) * 1000) / 1000;
        series.ClosePrice.Set(i, close);
        series.LowPrice.Set(i, close * Uniform(random, 0.9, 1.0));
        series.HighPrice.Set(i, random() % 10 == 0 ? series.LowPrice[i] : close * Uniform(random, 1.0, 1.1));
        series.Volume.Set(i, std::round(Uniform(random, 0, 1e7)));
        series.PERatio.Set(i, random() % 3 == 0 ? 0 : Uniform(random, -50, 50));
        series.EPSttm.Set(i, Uniform(random, -5, 5));
        series.EPSest.Set(i, random() % 3 == 0 ? 0 : Uniform(random, -5, 5));
        series.PriceToSales.Set(i, random() % 3 == 0 ? 0 : Uniform(random, 0, 20));
        series.MarketCap.Set(i, Uniform(random, 0, 1e6));
    }
    series.BarCount = series.LastBar = bars;
}

class ComputeIndicatorsAgainstPlainLoops : public testing::Test {
  protected:
    // Runs both and compares every element up to BarCount, to the last bit.
    void RunAndCompare(const std::string& what) {
        ComputeIndicators(series, indicators);
        naive::Compute(series, expected);
        for (const NamedIndicator& named : kIndicatorArrays) {
            const NumberSeries& array = indicators.*named.array;
            const naive::Array& plain = expected.arrays[std::string(named.name)];
            for (std::size_t i = 0; i <= series.BarCount; ++i) {
                ASSERT_EQ(array.State(i) == ElementState::Written, plain.Has(i))
                    << what << ": " << named.name << "[" << i << "] of " << series.BarCount;
                ASSERT_EQ(std::bit_cast<std::uint64_t>(array[i]), std::bit_cast<std::uint64_t>(plain.Get(i)))
                    << what << ": " << named.name << "[" << i << "] of " << series.BarCount << " is "
                    << array[i] << " and not " << plain.Get(i);
            }
        }
        const std::map<std::string, double> scalars = {
            {"LRSlope", indicators.LRSlope},
            {"LRIntercept", indicators.LRIntercept},
            {"LRTightUCL", indicators.LRTightUCL},
            {"LRLooseUCL", indicators.LRLooseUCL},
            {"LRTightLCL", indicators.LRTightLCL},
            {"LRLooseLCL", indicators.LRLooseLCL},
            {"LRMaxResidual", indicators.LRMaxResidual},
            {"LRMinResidual", indicators.LRMinResidual},
            {"MaxVolume", indicators.MaxVolume},
            {"AverageVolume", indicators.AverageVolume},
            {"VolumeTightUCL", indicators.VolumeTightUCL},
            {"VolumeLooseUCL", indicators.VolumeLooseUCL},
        };
        EXPECT_EQ(scalars, expected.scalars) << what << " of " << series.BarCount;
    }

    Random random{4711};
    WorkingSeries series;
    Indicators indicators;
    naive::Results expected;
};

TEST_F(ComputeIndicatorsAgainstPlainLoops, AgreeAtEveryBarCountFrom0To300) {
    for (std::size_t bars = 0; bars <= 300; ++bars) {
        FillRandom(random, bars, series);
        ASSERT_NO_FATAL_FAILURE(RunAndCompare("random walk"));
    }
}

TEST_F(ComputeIndicatorsAgainstPlainLoops, AgreeOnALongSeries) {
    FillRandom(random, 1500, series);
    RunAndCompare("long");
}

TEST_F(ComputeIndicatorsAgainstPlainLoops, AgreeOnFlatSeries) {
    for (const double close : {10.0, 0.1, 12.34}) {
        FillRandom(random, 279, series);
        for (std::size_t i = 1; i <= 279; ++i) series.ClosePrice.Set(i, close);
        ASSERT_NO_FATAL_FAILURE(RunAndCompare("flat"));
    }
}

TEST_F(ComputeIndicatorsAgainstPlainLoops, AgreeWithGapsAndZeroPricesOverEarlierTickers) {
    for (int ticker = 0; ticker < 40; ++ticker) {
        FillRandom(random, 16 + random() % 264, series);
        for (std::size_t i = 1; i <= series.BarCount; ++i) {
            if (random() % 20 == 0) series.ClosePrice.Set(i, 0);
            if (random() % 20 == 0) series.Volume.Set(i, 0);
        }
        if (ticker % 3 == 0) series.ClosePrice.Set(0, Uniform(random, 0, 100));
        if (ticker % 7 == 0) series.ClosePrice.Set(0, -1);
        ASSERT_NO_FATAL_FAILURE(RunAndCompare("gaps"));
    }
}

TEST_F(ComputeIndicatorsAgainstPlainLoops, AgreeOnHugePrices) {
    for (const double scale : {1e300, 1e304, 1e307, 1e-300}) {
        FillRandom(random, 279, series);
        ASSERT_NO_FATAL_FAILURE(RunAndCompare("before"));
        for (std::size_t i = 1; i <= 279; ++i) {
            series.ClosePrice.Set(i, Uniform(random, 0.1, 1) * scale);
            series.MarketCap.Set(i, Uniform(random, 0.1, 1) * scale);
        }
        if (scale < 1e305) {
            RunAndCompare("huge");
        } else {
            // Sums overflow here; nothing that is stored may be other than finite.
            ComputeIndicators(series, indicators);
            for (const NamedIndicator& named : kIndicatorArrays) {
                for (std::size_t i = 0; i <= 279; ++i) {
                    ASSERT_TRUE(std::isfinite((indicators.*named.array)[i])) << named.name << i;
                }
            }
            naive::Compute(series, expected);
        }
    }
}

TEST_F(ComputeIndicatorsAgainstPlainLoops, EveryArrayIsNamedOnceAndFirstWrittenAtItsBar) {
    FillRandom(random, 279, series);
    ComputeIndicators(series, indicators);
    std::map<std::string_view, int> names;
    for (const NamedIndicator& named : kIndicatorArrays) {
        EXPECT_EQ(++names[named.name], 1) << named.name;
        const NumberSeries& array = indicators.*named.array;
        EXPECT_EQ(array.State(named.firstBar - 1), ElementState::NeverWritten) << named.name;
        std::size_t written = 0;
        for (std::size_t i = 0; i <= 279; ++i) {
            if (array.State(i) == ElementState::Written) ++written;
        }
        EXPECT_GT(written, 90U) << named.name;
    }
    RunAndCompare("names");
}

}  // namespace
}  // namespace brantlow
