#include "chart/chart_picture.h"

#include <gmock/gmock.h>

#include "chart/chart_svg.h"
#include "chart/paint_fixture.h"

namespace brantlow {
namespace {

using testing::HasSubstr;
using testing::Not;

class PictureTest : public PaintTest {
  protected:
    PictureTest() {
        FillBars(100);
        for (std::size_t i = 1; i <= 100; ++i) {
            indicators.MA30.Set(i, 150);
            indicators.MLRDer30.Set(i, static_cast<double>(i));
            indicators.MLRDer90.Set(i, static_cast<double>(i));
        }
        chart.SelectorTicker = "ABC";
        chart.Slots = {"Price", "MA 30", "", "", "", "", ""};
        chart.VolumeSeriesList = {"Volume", "Average", "LR", "L. UCL", "T. UCL", "WMA 15"};
    }
    ChartPicture LayOut() {
        chart.Picture(Panel::Price) = PaintPrice();
        chart.Picture(Panel::Study) = PaintStudy(chart.Combo2);
        chart.Picture(Panel::Volume) = PaintVolumePanel(chart, analysis);
        return LayOutPicture(chart, series);
    }
    static const PlacedText* Find(const ChartPicture& picture, std::string_view text) {
        for (const PlacedText& placed : picture.texts) {
            if (placed.text == text) return &placed;
        }
        return nullptr;
    }
    static bool Has(const ChartPicture& picture, std::string_view text) {
        return Find(picture, text) != nullptr;
    }
};

TEST_F(PictureTest, PanelsStandOneUnderTheOtherWithTheSameLeftEdge) {
    const ChartPicture picture = LayOut();
    ASSERT_EQ(picture.panels.size(), 3U);
    for (std::size_t i = 1; i < 3; ++i) {
        EXPECT_EQ(picture.panels[i].x, picture.panels[0].x);
        EXPECT_GT(picture.panels[i].y, picture.panels[i - 1].y + picture.panels[i - 1].height);
    }
    EXPECT_LT(picture.panels[2].y + picture.panels[2].height, picture.height);
    EXPECT_LT(picture.panels[0].x + picture.panels[0].width, picture.width);
}

TEST_F(PictureTest, ScaleLabelsStandAtTheirLines) {
    const ChartPicture picture = LayOut();
    const PlacedPanel& price = picture.panels[0];
    // The middle of a line of text lies above its base line.
    const auto expectAt = [&](std::string_view text, double y) {
        const PlacedText* label = Find(picture, text);
        ASSERT_NE(label, nullptr) << text;
        EXPECT_EQ(label->align, TextAlign::Right);
        EXPECT_NEAR(label->y - label->size / 3, price.y + y, 10) << text;
        EXPECT_LE(label->x, price.x + 25);
    };
    expectAt("200.00", 50);
    expectAt("175.00", 1550);
    expectAt("150.00", 3050);
    expectAt("125.00", 4550);
    expectAt("100.00", 6050);
}

TEST_F(PictureTest, CaptionsHaveTheColoursOfTheirLines) {
    const ChartPicture picture = LayOut();
    ASSERT_TRUE(Has(picture, "MA 30"));
    EXPECT_EQ(Find(picture, "MA 30")->colour, (Rgb{0, 150, 0}));
    EXPECT_EQ(Find(picture, "Price")->colour, kTestBlack);
    EXPECT_EQ(Find(picture, "T. UCL")->colour, (Rgb{55, 50, 125}));
    EXPECT_EQ(Find(picture, "WMA 15")->colour, (Rgb{255, 40, 80}));
    EXPECT_TRUE(Has(picture, "MLR Der 30"));
}

TEST_F(PictureTest, HeaderNamesTickerDatesAndTimeFrame) {
    series.ClosePrice.Set(100, 151.5);
    chart.ChartTimeFrame = kWeeklyFrame;
    const ChartPicture picture = LayOut();
    for (const char* text :
         {"ABC", "LastPrice:", "151.5", "Date:", "day 1", "-", "day 100", "PEG:", "P/E:", "0.00", "Weekly"}) {
        EXPECT_TRUE(Has(picture, text)) << text;
    }
}

TEST_F(PictureTest, NoTextLeavesThePicture) {
    chart.Combo2 = "Sales Per Share";
    chart.SelectorTicker = std::string(300, 'W');
    series.HighPrice.Set(5, 1e300);
    const ChartPicture picture = LayOut();
    for (const PlacedText& text : picture.texts) {
        const double width = static_cast<double>(text.text.size()) * text.size * 0.6;
        const double left = text.align == TextAlign::Left    ? text.x
                            : text.align == TextAlign::Right ? text.x - width
                                                             : text.x - width / 2;
        EXPECT_GE(left, 0) << text.text;
        EXPECT_LE(left + width, picture.width) << text.text;
    }
}

TEST_F(PictureTest, ALongScaleValueWidensItsColumn) {
    chart.Combo2 = "MLR Der 90";
    const double usual = LayOut().panels[0].x;
    series.BarCount = 20;
    const ChartPicture picture = LayOut();
    EXPECT_GT(picture.panels[0].x, usual);
    ASSERT_TRUE(Has(picture, "-900000000000000000000.0000"));
    EXPECT_EQ(Find(picture, "-900000000000000000000.0000")->size, Find(picture, "200.00")->size);
}

TEST_F(PictureTest, AStudyWithoutAValueIsExplained) {
    chart.Combo2 = "MLR Der 90";
    EXPECT_FALSE(Has(LayOut(), "No values of MLR Der 90"));
    series.BarCount = 95;
    EXPECT_TRUE(Has(LayOut(), "No values of MLR Der 90"));
}

TEST_F(PictureTest, ATickerWithoutHistoryIsExplained) {
    constexpr std::string_view kSentence =
        "Data does not exist in the Quote Database for this Ticker Symbol.";
    EXPECT_FALSE(Has(LayOut(), kSentence));
    series.BarCount = 0;
    const ChartPicture picture = LayOut();
    EXPECT_TRUE(Has(picture, kSentence));
    EXPECT_FALSE(Has(picture, "No values of MLR Der 30")) << "one sentence is enough";
}

TEST_F(PictureTest, SvgHoldsTheLinesOfThePanelsCutToThem) {
    indicators.MA30.Set(100, 0);
    const std::string svg = SvgOf(LayOut());
    EXPECT_THAT(svg, testing::StartsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg "));
    EXPECT_THAT(svg, testing::EndsWith("</svg>\n"));
    EXPECT_THAT(svg, HasSubstr("M50 50L50 6100"));
    // Bar 2, from its low to its high.
    EXPECT_THAT(svg, HasSubstr("M140 6050L140 50"));
    EXPECT_THAT(svg, HasSubstr("stroke=\"#009600\" d=\"M1400 3050L1445 3050")) << "MA 30";
    // Its last segment falls from 150 to 0: 45 to the right while 9000 down, cut 3100 below its start, at
    // the panel's lower edge. The alarms are not set.
    EXPECT_THAT(svg, HasSubstr("L4505 3050L4520.5 6150\"/>"));
    EXPECT_THAT(svg, Not(HasSubstr("<circle")));
    EXPECT_THAT(svg, HasSubstr(">ABC</text>"));
}

TEST_F(PictureTest, SvgCutsALineAtThePanelsEdge) {
    PanelDrawing drawing;
    drawing.items = {DrawnLine{0, -100, 100, 100, kTestBlack}, DrawnLine{0, -100, 100, -50, kTestBlack},
                     DrawnLine{50, 50, 250, 50, kTestBlack}, DrawnCircle{10, 10, 40, kTestBlack},
                     DrawnCircle{500, 10, 35, kTestBlack}};
    ChartPicture picture;
    picture.width = picture.height = 300;
    picture.panels = {{&drawing, 0, 0, 200, 200}};
    const std::string svg = SvgOf(picture);
    EXPECT_THAT(svg, HasSubstr("d=\"M50 0L100 100M50 50L200 50\"/>"));
    EXPECT_THAT(svg, HasSubstr("<circle cx=\"10\" cy=\"10\" r=\"40\""));
    EXPECT_THAT(svg, Not(HasSubstr("r=\"35\"")));
}

}  // namespace
}  // namespace brantlow
