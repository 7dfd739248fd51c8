#include "chart/hover_values.h"

#include "chart/paint_fixture.h"

namespace brantlow {
namespace {

class HoverTest : public PaintTest {
  protected:
    HoverTest() {
        FillBars(100);
        SetBar(49, 10, 12, 9, 11);
        SetBar(50, 11.5, 13.25, 11.25, 13);
        series.Volume.Set(50, 7510578);
        series.QuoteDate.Set(50, "03/09/26");
        chart.Combo2 = "RSI 30";
        indicators.RSI30.Set(50, 61.5);
        chart.Slots = {"Price", "MA 15", "MLR 30 L.CL", "LR T.CL", "MA 180", "MA 15", ""};
        indicators.MA15.Set(50, 12.345);
        indicators.MLR30.Set(50, 12);
        indicators.LooseUCL30.Set(50, 2);
        indicators.LooseLCL30.Set(50, -1.5);
        indicators.LRPrice.Set(50, 12);
        indicators.LRTightUCL = 0.5;
        indicators.LRTightLCL = -0.25;
        chart.VolumeSeriesList = {"Volume", "Average", "L. UCL", "WMA 30", "", ""};
        indicators.AverageVolume = 1234567;
        indicators.LRVolume.Set(50, 1000000);
        indicators.VolumeLooseUCL = 500000;
        indicators.VolumeWMA30.Set(50, 999);
    }
    std::vector<std::string> Texts(std::size_t bar) {
        std::vector<std::string> texts;
        for (const HoverValue& value : HoverValuesAt(chart, analysis, bar, PaletteOf(ChartColours::Standard)))
            texts.push_back(value.name + " " + value.text);
        return texts;
    }
};

TEST_F(HoverTest, TellsTheBarTheStudyAndEverySeriesOnce) {
    EXPECT_EQ(Texts(50), (std::vector<std::string>{
                             "Date 03/09/26", "Open 11.50", "High 13.25", "Low 11.25", "Close 13.00",
                             "Change +2.00 (+18.18 %)", "Volume 7,510,578", "RSI 30 61.5000", "MA 15 12.35",
                             "MLR 30 L.CL 10.50 / 14.00", "LR T.CL 11.75 / 12.50", "MA 180 -",
                             "Vol. Average 1,234,567", "Vol. L. UCL 1,500,000", "Vol. WMA 30 999"}));
}

TEST_F(HoverTest, TellsTheBarAsItWasReadAndNotAsThePaintStretchedIt) {
    KeepBarsAsRead(series, chart);
    PaintPrice();
    // The gap to the close of 11 was closed.
    EXPECT_EQ(series.LowPrice[50], 11);
    const std::vector<std::string> texts = Texts(50);
    EXPECT_EQ(texts[3], "Low 11.25");
    // Those of another load are not this one's.
    chart.AsRead.resize(20);
    EXPECT_EQ(Texts(50)[3], "Low 11.00");
}

TEST_F(HoverTest, SeriesHaveNoValueBeforeTheirFirstBar) {
    const std::vector<std::string> texts = Texts(10);
    EXPECT_EQ(texts[7], "RSI 30 -");
    EXPECT_EQ(texts[8], "MA 15 -");
    EXPECT_EQ(texts[9], "MLR 30 L.CL -");
    EXPECT_EQ(Texts(15)[8].substr(0, 5), "MA 15");
    EXPECT_NE(Texts(15)[8], "MA 15 -");
}

TEST_F(HoverTest, TheVolumesLinesHaveTheirValueInAWindowOfOneBar) {
    FillBars(1);
    indicators.LRVolume.Set(1, 1000);
    indicators.VolumeLooseUCL = 30;
    indicators.VolumeTightUCL = 20;
    chart.VolumeSeriesList = {"Volume", "Average", "LR", "L. UCL", "T. UCL", "WMA 15"};
    std::vector<std::string> texts = Texts(1);
    texts.erase(texts.begin(), texts.end() - 5);
    EXPECT_EQ(texts, (std::vector<std::string>{"Vol. Average 1,234,567", "Vol. LR 1,000", "Vol. L. UCL 1,030",
                                               "Vol. T. UCL 1,020", "Vol. WMA 15 -"}));
}

TEST_F(HoverTest, TheFirstBarHasNoChange) {
    EXPECT_EQ(Texts(1)[5], "Change -");
    SetBar(49, 0, 0, 0, 0);
    EXPECT_EQ(Texts(50)[5], "Change -");
}

TEST_F(HoverTest, NamesOfSeriesBearTheirColours) {
    const std::vector<HoverValue> values =
        HoverValuesAt(chart, analysis, 50, PaletteOf(ChartColours::Distinct));
    EXPECT_FALSE(values[0].colour);
    EXPECT_EQ(values[8].colour, PaletteOf(ChartColours::Distinct).series[0]);
}

TEST_F(HoverTest, ABarThatThereIsNotHasNothing) {
    EXPECT_TRUE(Texts(0).empty());
    EXPECT_TRUE(Texts(101).empty());
    chart.Combo2 = "Nothing";
    EXPECT_EQ(Texts(50)[7], "MA 15 12.35");
}

// Under the picture of 90 bars the read-out of a press is that of 60; here stands what is drawn.
TEST_F(HoverTest, TheStudyIsTheOneThatIsDrawn) {
    FillBars(120);
    chart.Combo2 = "Stochastics 90";
    indicators.Stochastic90.Set(110, 0.9);
    indicators.Stochastic60.Set(110, 0.6);
    EXPECT_EQ(Texts(110)[7], "Stochastics 90 0.9000");
}

}  // namespace
}  // namespace brantlow
