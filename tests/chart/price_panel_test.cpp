#include <gmock/gmock.h>

#include "chart/paint_fixture.h"

namespace brantlow {
namespace {

using testing::ElementsAre;

using PricePanel = PaintTest;

std::vector<std::string> PriceLabels(const PanelDrawing& drawing) {
    std::vector<std::string> texts;
    for (const char* control : {"Label51", "Label25", "Label52", "Label27", "Label53"}) {
        texts.push_back(LabelText(drawing, control));
    }
    return texts;
}

// --- frame, scale and labels ---

TEST_F(PricePanel, FrameIsTwoLeftAxesARightAxisAndThreeRules) {
    FillBars(1);
    const std::vector<DrawnLine> lines = ItemsFrom<DrawnLine>(PaintPrice(), 0);
    ASSERT_GT(lines.size(), kPriceFrameItems);
    EXPECT_EQ(lines[0], (DrawnLine{50, 50, 50, 6100, kTestBlack}));
    EXPECT_EQ(lines[1], (DrawnLine{50, 50, 50, 6100, kTestBlack}));
    EXPECT_EQ(lines[2], (DrawnLine{12650, 50, 12650, 6100, kTestBlack}));
    EXPECT_EQ(lines[3], (DrawnLine{25, 50, 12650, 50, kTestBlack}));
    EXPECT_EQ(lines[4], (DrawnLine{25, 3050, 12650, 3050, kTestBlack}));
    EXPECT_EQ(lines[5], (DrawnLine{25, 6050, 12650, 6050, kTestBlack}));
}

TEST_F(PricePanel, QuarterLinesAreDashesOfTenWithGapsOfTen) {
    FillBars(1);
    const std::vector<DrawnLine> lines = ItemsFrom<DrawnLine>(PaintPrice(), 0);
    for (std::size_t dash = 0; dash <= 630; ++dash) {
        const float x = 50 + 20 * static_cast<float>(dash);
        EXPECT_EQ(lines[6 + 2 * dash], (DrawnLine{x, 1550, x + 10, 1550, kTestBlack}));
        EXPECT_EQ(lines[7 + 2 * dash], (DrawnLine{x, 4550, x + 10, 4550, kTestBlack}));
    }
}

TEST_F(PricePanel, ScaleIsTheRangeOfTheBars) {
    FillBars(10);
    const PanelDrawing drawing = PaintPrice();
    EXPECT_EQ(chart.PriceTop, 200);
    EXPECT_EQ(chart.PriceBottom, 100);
    EXPECT_EQ(chart.PriceMiddle, 150);
    EXPECT_EQ(chart.PriceScale, 60);
    EXPECT_THAT(PriceLabels(drawing), ElementsAre("200.00", "175.00", "150.00", "125.00", "100.00"));
}

TEST_F(PricePanel, FlatHistoryGivesLabelsFromOneToZero) {
    FillBars(20);
    for (std::size_t i = 1; i <= 20; ++i) SetBar(i, 7, 7, 7, 7);
    EXPECT_THAT(PriceLabels(PaintPrice()), ElementsAre("1.00", "0.75", "0.50", "0.25", "0.00"));
    EXPECT_EQ(chart.PriceScale, 6000);
}

TEST_F(PricePanel, OnlyTheNewestBarsYearRangeCounts) {
    FillBars(10);
    series.High52Week.Set(9, 900);
    series.Low52Week.Set(9, 1);
    series.High52Week.Set(10, 250);
    series.Low52Week.Set(10, 50);
    PaintPrice();
    EXPECT_EQ(chart.PriceTop, 250);
    EXPECT_EQ(chart.PriceBottom, 50);
}

TEST_F(PricePanel, AYearLowOfZeroOrLessDoesNotCount) {
    FillBars(10);
    for (const double low : {0.0, -5.0}) {
        series.Low52Week.Set(10, low);
        PaintPrice();
        EXPECT_EQ(chart.PriceBottom, 100) << low;
    }
}

TEST_F(PricePanel, HeaderLabelsShowTheTickerAndItsNewestBar) {
    FillBars(10);
    chart.SelectorTicker = "ABC";
    series.ClosePrice.Set(10, 150.25);
    series.PEGRatio.Set(10, 1.236);
    series.PERatio.Set(10, 18.5);
    const PanelDrawing drawing = PaintPrice();
    EXPECT_EQ(LabelText(drawing, "Label58"), "ABC");
    EXPECT_EQ(chart.Label58, "ABC");
    EXPECT_EQ(LabelText(drawing, "Label59"), "150.25");
    EXPECT_EQ(LabelText(drawing, "Label60"), "day 1");
    EXPECT_EQ(LabelText(drawing, "Label61"), "-");
    EXPECT_EQ(LabelText(drawing, "Label62"), "day 10");
    EXPECT_EQ(LabelText(drawing, "Label63"), "1.24");
    EXPECT_EQ(LabelText(drawing, "Label64"), "18.50");
}

TEST_F(PricePanel, ARegressionThatEndsAtZeroBecomesOne) {
    FillBars(10);
    indicators.LRPrice.Set(10, 0);
    PaintPrice();
    EXPECT_EQ(indicators.LRPrice[10], 1);
}

// --- repairs ---

TEST_F(PricePanel, ABarThatGapsUpReachesDownToTheLastClose) {
    FillBars(3);
    SetBar(1, 10, 12, 9, 10);
    SetBar(2, 20, 22, 19, 21);
    SetBar(3, 21, 22, 20, 21);
    PaintPrice();
    EXPECT_EQ(series.LowPrice[2], 10);
    EXPECT_EQ(series.HighPrice[2], 22);
    EXPECT_EQ(series.LowPrice[3], 20) << "equal closes leave a bar as it is";
    EXPECT_EQ(chart.PriceBottom, 9);
}

TEST_F(PricePanel, ABarThatGapsDownReachesUpToTheLastCloseAndTheScaleSeesIt) {
    FillBars(2);
    SetBar(1, 10, 10.5, 9, 10.25);
    SetBar(2, 5, 6, 4, 5);
    PaintPrice();
    EXPECT_EQ(series.HighPrice[2], 10.25);
    EXPECT_EQ(series.LowPrice[2], 4);
    EXPECT_EQ(chart.PriceTop, 10.5);
}

TEST_F(PricePanel, RepairsAreIdempotent) {
    FillBars(3);
    SetBar(1, 10, 12, 9, 10);
    SetBar(2, 0, 22, 19, 21);
    SetBar(3, 0, 8, 6, 7);
    SetGraphLine(1, "CandleStick");
    const PanelDrawing first = PaintPrice();
    const PanelDrawing second = PaintPrice();
    EXPECT_EQ(first.items, second.items);
    EXPECT_EQ(first.labels, second.labels);
}

TEST_F(PricePanel, MissingOpensTakeTheLastCloseOnlyInACandlestickChart) {
    FillBars(3);
    series.OpenPrice.Set(1, 0);
    series.OpenPrice.Set(2, 0);
    series.OpenPrice.Empty(3);
    PaintPrice();
    EXPECT_EQ(series.OpenPrice[2], 0);
    EXPECT_EQ(series.OpenPrice.State(3), ElementState::Emptied);
    SetGraphLine(1, "CandleStick");
    PaintPrice();
    EXPECT_EQ(series.OpenPrice[1], 0) << "bar 1 has no bar before it";
    EXPECT_EQ(series.OpenPrice[2], 150);
    EXPECT_EQ(series.OpenPrice[3], 150);
}

// --- bars ---

TEST_F(PricePanel, HighLowCloseIsAnUprightAndATickAsWideAsTwoBars) {
    FillBars(2);
    SetBar(2, 0, 180, 120, 160);
    const std::vector<DrawnLine> lines = LinesAfterFrame(PaintPrice(), kPriceFrameItems);
    ASSERT_EQ(lines.size(), 4U);
    ExpectLine(lines[0], 95, 6050, 95, 50, kTestBlack, "bar 1");
    ExpectLine(lines[1], 50, 3050, 140, 3050, kTestBlack, "tick 1");
    ExpectLine(lines[2], 140, Y(120), 140, Y(180), kTestBlack, "bar 2");
    ExpectLine(lines[3], 95, Y(160), 185, Y(160), kTestBlack, "tick 2");
}

TEST_F(PricePanel, ACandleIsTwoWicksTwoEndsAndTwoSides) {
    struct Case {
        double open, close;
        Rgb sides;
    };
    SetGraphLine(1, "anything");
    FillBars(1);
    for (const Case& c : {Case{160, 140, {100, 10, 10}}, {140, 160, {10, 100, 10}}, {150, 150, {0, 0, 0}}}) {
        SetBar(1, c.open, 200, 100, c.close);
        const std::vector<DrawnLine> lines = LinesAfterFrame(PaintPrice(), kPriceFrameItems);
        ASSERT_EQ(lines.size(), 6U);
        const std::string what = "close " + std::to_string(c.close);
        const double top = std::max(c.open, c.close);
        const double bottom = std::min(c.open, c.close);
        ExpectLine(lines[0], 95, Y(top), 95, 50, kTestBlack, what);
        ExpectLine(lines[1], 95, 6050, 95, Y(bottom), kTestBlack, what);
        ExpectLine(lines[2], 80, Y(c.close), 105, Y(c.close), kTestBlack, what);
        ExpectLine(lines[3], 80, Y(c.open), 105, Y(c.open), kTestBlack, what);
        ExpectLine(lines[4], 80, Y(c.open), 80, Y(c.close), c.sides, what);
        ExpectLine(lines[5], 105, Y(c.open), 105, Y(c.close), c.sides, what);
    }
}

// --- slots ---

TEST_F(PricePanel, AnEmptySlotRepeatsTheSeriesBeforeItAndTakesItsColour) {
    FillBars(40);
    chart.Slots = {"Price", "MA 30", "", "", "", "", ""};
    const PanelDrawing withEmpty = PaintPrice();
    EXPECT_EQ(chart.Combo1, "MA 30");
    EXPECT_EQ(CaptionColour(withEmpty, "Label13"), kTestBlack);
    for (const char* label : {"Label14", "Label15", "Label16", "Label17", "Label18", "Label19"}) {
        EXPECT_EQ(CaptionColour(withEmpty, label), (Rgb{0, 150, 0})) << label;
    }
    EXPECT_EQ(LabelText(withEmpty, "Label15"), "");
    chart.Slots = {"Price", "MA 30", "MA 30", "MA 30", "MA 30", "MA 30", "MA 30"};
    EXPECT_EQ(PaintPrice().items, withEmpty.items) << "the picture does not change";
}

TEST_F(PricePanel, PriceKeepsTheColourOfTheSlotBeforeIt) {
    FillBars(40);
    chart.Slots = {"WMA 30", "Price", "MLR 15", "", "", "", ""};
    const PanelDrawing drawing = PaintPrice();
    EXPECT_EQ(CaptionColour(drawing, "Label13"), (Rgb{10, 10, 150}));
    EXPECT_EQ(CaptionColour(drawing, "Label14"), (Rgb{10, 10, 150}));
    EXPECT_EQ(CaptionColour(drawing, "Label15"), (Rgb{255, 80, 50}));
}

TEST_F(PricePanel, AnEmptyFirstSlotDrawsNothing) {
    FillBars(40);
    chart.Combo1 = "Price";
    chart.Slots = {};
    EXPECT_EQ(LinesAfterFrame(PaintPrice(), kPriceFrameItems).size(), 0U);
    EXPECT_EQ(chart.Combo1, "");
}

TEST_F(PricePanel, LaterSlotsAreDrawnOverEarlierOnes) {
    FillBars(40);
    chart.Slots = {"MA 30", "Price", "", "", "", "", ""};
    const std::vector<DrawnLine> lines = LinesAfterFrame(PaintPrice(), kPriceFrameItems);
    ASSERT_EQ(lines.size(), 10U + 80U);
    EXPECT_EQ(lines.front().colour, (Rgb{0, 150, 0}));
    EXPECT_EQ(lines.back().colour, kTestBlack);
}

TEST_F(PricePanel, CaptionsAreWrittenBackToTheSettings) {
    FillBars(5);
    chart.Slots = {"Price", "MA 30", "", "WMA 15", "", "", "LR T.CL"};
    PaintPrice();
    const std::vector<std::string> expected = {"Price", "MA 30", "", "WMA 15", "", "", "LR T.CL"};
    for (std::size_t slot = 0; slot < expected.size(); ++slot) {
        EXPECT_EQ(settings.GraphSettings.Text(2 + slot), expected[slot]);
    }
    EXPECT_EQ(settings.GraphSettings.Text(1), "Default");
    EXPECT_EQ(settings.GraphSettings.Text(9), "None");
}

// --- signals ---

class SignalMarks : public PaintTest {
  protected:
    SignalMarks() {
        FillBars(100);
        SetGraphLine(9, "Condition 1");
        SetGraphLine(10, "Condition 2");
        for (std::size_t i = 1; i <= 100; ++i) Signal(i, "False", "False");
    }
    void Signal(std::size_t i, std::string_view buy, std::string_view sell) {
        chart.BuySignal.Set(i, buy);
        chart.SellSignal.Set(i, sell);
    }
    // The marks before the six circles of the alarms.
    std::vector<DrawnCircle> Marks() {
        std::vector<DrawnCircle> circles = CirclesOf(PaintPrice());
        EXPECT_GE(circles.size(), 6U);
        circles.resize(circles.size() - 6);
        return circles;
    }
    static std::vector<DrawnCircle> Mark(float x, Rgb colour) {
        return {{x, 6050, 40, colour}, {x, 6050, 35, colour}, {x, 6050, 25, colour}};
    }
    static std::vector<DrawnCircle> Joined(std::vector<DrawnCircle> a, const std::vector<DrawnCircle>& b) {
        a.insert(a.end(), b.begin(), b.end());
        return a;
    }
    static constexpr Rgb kBuy = {50, 150, 50};
    static constexpr Rgb kSell = {150, 50, 50};
};

TEST_F(SignalMarks, StandOneBarLeftOfTheSignalOnTheBottomLine) {
    Signal(40, "True", "False");
    Signal(50, "False", "True");
    // 50 + 45 * 39 and 50 + 45 * 49.
    EXPECT_EQ(Marks(), Joined(Mark(1805, kBuy), Mark(2255, kSell)));
}

TEST_F(SignalMarks, NoneIsDrawnUnlessBothConditionsAreSet) {
    Signal(40, "True", "False");
    for (const char* none : {"None", ""}) {
        SetGraphLine(9, "Condition 1");
        SetGraphLine(10, none);
        EXPECT_TRUE(Marks().empty());
        SetGraphLine(9, none);
        SetGraphLine(10, "Condition 2");
        EXPECT_TRUE(Marks().empty());
    }
}

TEST_F(SignalMarks, BuyAndSellAtTheSameBarMarkNothing) {
    Signal(40, "True", "True");
    EXPECT_TRUE(Marks().empty());
}

TEST_F(SignalMarks, OnlyTheFirstOfTwoBuysIsMarked) {
    Signal(40, "True", "False");
    Signal(41, "True", "False");
    EXPECT_EQ(Marks(), Mark(1805, kBuy));
}

TEST_F(SignalMarks, TheFirstMarkIsAlwaysABuy) {
    Signal(35, "False", "True");
    Signal(40, "True", "False");
    EXPECT_EQ(Marks(), Mark(1805, kBuy));
}

TEST_F(SignalMarks, TheFirst29BarsAreNotMarked) {
    Signal(29, "True", "False");
    EXPECT_TRUE(Marks().empty());
    Signal(30, "True", "False");
    EXPECT_EQ(Marks(), Mark(1355, kBuy));
}

TEST_F(SignalMarks, ASideThatIsDarkLetsTheOtherMarkNothing) {
    Signal(40, "True", "");
    EXPECT_TRUE(Marks().empty());
}

// --- alarms ---

TEST_F(PricePanel, AHighAlarmAboveTheYearHighRaisesTheTopAndStandsThere) {
    FillBars(10);
    series.High52Week.Set(10, 210);
    chart.HighAlarm = 220;
    chart.LowAlarm = 70;
    const std::vector<DrawnCircle> circles = CirclesOf(PaintPrice());
    EXPECT_EQ(chart.PriceTop, 220);
    EXPECT_EQ(chart.PriceBottom, 70);
    const Rgb colour = {250, 150, 0};
    EXPECT_THAT(circles,
                ElementsAre(DrawnCircle{12645, 6050, 40, colour}, DrawnCircle{12645, 6050, 35, colour},
                            DrawnCircle{12645, 6050, 25, colour}, DrawnCircle{12645, 50, 40, colour},
                            DrawnCircle{12645, 50, 35, colour}, DrawnCircle{12645, 50, 25, colour}));
}

TEST_F(PricePanel, AlarmsThatAreNotSetAreDrawnBelowThePanel) {
    FillBars(10);
    const std::vector<DrawnCircle> circles = CirclesOf(PaintPrice());
    ASSERT_EQ(circles.size(), 6U);
    // 50 + 60 * 200.
    for (const DrawnCircle& circle : circles) EXPECT_EQ(circle.y, 12050);
}

}  // namespace
}  // namespace brantlow
