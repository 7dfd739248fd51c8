// What the chart's window shows of its lists, and the picture of it.
#include "chart/chart_scene.h"

#include <gmock/gmock.h>

#include "chart/paint_fixture.h"
#include "chart/scene_picture.h"
#include "support/session_fixture.h"

namespace brantlow {
namespace {

using testing::HasSubstr;
using testing::Not;

class SceneTest : public SessionTest {
  protected:
    SceneTest() {
        Write("Data/VTRGRAPHset.ini",
              "\"Default\"\r\n\"Price\"\r\n\"MA 15\"\r\n\"MLR "
              "120\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"None\"\r\n\"None\"\r\n");
        std::string rows;
        Date day{std::chrono::year{2023}, std::chrono::month{1}, std::chrono::day{2}};
        for (int i = 0; i <= 400; ++i, day = AddDays(day, 1)) {
            const std::string close = std::to_string(100 + i / 4);
            const std::string volume = std::to_string(7500000 - i * 1000);
            rows += "\"" + FormatDate(day) + "\",\"16:00\"," + close + "," + close + "," + close + "," +
                    volume + ",0,0,0,0,0,\"\",\"\",0,0,0,0,0," + close + "\r\n";
        }
        Write("Quotes/EOD/ABC.24", rows);
        StartChart(context, {"ABC"}, "");
        scene.Update(kRoom);
    }

    static constexpr AxisRoom kRoom{1000, 8};
    Analysis analysis;
    ChartSession chart;
    ChartContext context{session, analysis, chart};
    ChartOptions options;
    ChartScene scene{context, options};
};

TEST_F(SceneTest, OfTheWholeWindowItGivesTheListsThemselves) {
    for (const Panel panel : {Panel::Price, Panel::Study, Panel::Volume}) {
        EXPECT_EQ(scene.Items(panel).data(), chart.Picture(panel).items.data());
        EXPECT_EQ(scene.Axis(panel).top, AxisOf(chart, panel).top);
    }
    EXPECT_EQ(scene.ScaleText(Panel::Price, 0), LabelText(chart.Picture(Panel::Price), "Label51"));
    // Bar 122 of 400 is the first of the window.
    EXPECT_EQ(scene.ScaleText(Panel::Volume, 0), "7.38M");
}

TEST_F(SceneTest, AxesHaveWhatTheOptionsAskFor) {
    EXPECT_FALSE(scene.Ticks().empty());
    EXPECT_TRUE(scene.Levels().empty());
    options.timeAxis = false;
    options.roundPrices = true;
    scene.Update(kRoom);
    EXPECT_TRUE(scene.Ticks().empty());
    EXPECT_FALSE(scene.Levels().empty());
    options.roundPrices = false;
    scene.Update(kRoom);
    EXPECT_TRUE(scene.Levels().empty());
    options.grid = true;
    scene.Update(kRoom);
    EXPECT_FALSE(scene.Ticks().empty());
    EXPECT_FALSE(scene.Levels().empty());
}

TEST_F(SceneTest, AZoomedSceneHasTheScaleOfWhatIsSeen) {
    scene.Zoom().ZoomAbout(6000, 0.1);
    scene.Update(kRoom);
    EXPECT_FALSE(scene.View().IsWhole());
    EXPECT_NE(scene.ScaleText(Panel::Price, 0), LabelText(chart.Picture(Panel::Price), "Label51"));
    // In its own size a chart is whole.
    options.fitToWindow = false;
    scene.Update(kRoom);
    EXPECT_TRUE(scene.View().IsWhole());
}

TEST_F(SceneTest, AnEmptyChartHasNoScale) {
    EXPECT_TRUE(scene.HasScale(Panel::Price));
    StartChart(context, {"NONE"}, "");
    scene.Update(kRoom);
    for (const Panel panel : {Panel::Price, Panel::Study, Panel::Volume}) EXPECT_FALSE(scene.HasScale(panel));
    EXPECT_THAT(SvgOfScene(scene), Not(HasSubstr("00000000000")));
}

TEST_F(SceneTest, AnEmptyChartShowsNoDateAndNoPriceOfTheTickerBefore) {
    const std::string before = SvgOfScene(scene);
    // The series keep what they held, so the lists of the empty chart do too.
    EXPECT_THAT(before, HasSubstr(">200<"));
    EXPECT_THAT(before, HasSubstr(">02/06/24<"));
    StartChart(context, {"NONE"}, "");
    scene.Update(kRoom);
    const std::string empty = SvgOfScene(scene);
    EXPECT_THAT(empty, HasSubstr(">NONE<"));
    EXPECT_THAT(empty, HasSubstr(">LastPrice:<"));
    EXPECT_THAT(empty, Not(HasSubstr(">200<")));
    EXPECT_THAT(empty, Not(HasSubstr("/24<")));
    EXPECT_THAT(empty, Not(HasSubstr(">0.00<")));
}

TEST_F(SceneTest, ThePictureHasTheLegendAndTheAxis) {
    const std::string svg = SvgOfScene(scene);
    for (const char* text : {">ABC<", ">Price<", ">MA 15<", ">MLR 120<", ">L. UCL<", ">7.38M<", ">2024<"})
        EXPECT_THAT(svg, HasSubstr(text));
    EXPECT_THAT(svg, HasSubstr("fill=\"#ffffff\""));
    // The bright caption is dark enough to read.
    EXPECT_THAT(svg, Not(HasSubstr("fill=\"#fff032\"")));
}

TEST_F(SceneTest, ThePictureHasThePaletteAndTheListsKeepTheirColours) {
    const std::vector<DrawnItem> items = chart.Picture(Panel::Price).items;
    options.colours = ChartColours::Dark;
    scene.Update(kRoom);
    const std::string svg = SvgOfScene(scene);
    EXPECT_THAT(svg, HasSubstr("<rect width=\"16550\" height=\"10240\" fill=\"#181c22\"/>"));
    // The headings over the panels.
    EXPECT_THAT(svg, HasSubstr("fill=\"#a0a8b2\">LastPrice:<"));
    EXPECT_THAT(svg, Not(HasSubstr("#5a5a5a")));
    EXPECT_THAT(svg, HasSubstr("stroke=\"#ff8c50\""));
    EXPECT_THAT(svg, Not(HasSubstr("#000000")));
    EXPECT_EQ(chart.Picture(Panel::Price).items, items);
}

TEST_F(SceneTest, ThePictureHasGridRoundPricesAndWideLinesWhereTheWindowHasThem) {
    const std::string plain = SvgOfScene(scene);
    EXPECT_THAT(plain, Not(HasSubstr("#dee2e6")));
    EXPECT_THAT(plain, Not(HasSubstr("stroke-width=\"30\"")));
    EXPECT_THAT(plain, Not(HasSubstr(">180<")));
    options.grid = options.roundPrices = options.wideLines = true;
    scene.Update(kRoom);
    const std::string svg = SvgOfScene(scene);
    EXPECT_THAT(svg, HasSubstr("<path stroke=\"#dee2e6\" d=\"M"));
    EXPECT_THAT(svg, HasSubstr("<path stroke=\"#006400\" stroke-width=\"30\" d=\"M"));
    // Bars and frame stay thin.
    EXPECT_THAT(svg, Not(HasSubstr("<path stroke=\"#000000\" stroke-width=\"30\"")));
    ASSERT_FALSE(scene.Levels().empty());
    for (const RoundLevel& level : scene.Levels()) EXPECT_THAT(svg, HasSubstr(">" + level.text + "<"));
    // The names of the series stand behind the prices.
    EXPECT_THAT(svg, HasSubstr("viewBox=\"0 0 17450 10240\""));
    EXPECT_THAT(plain, HasSubstr("viewBox=\"0 0 16550 10240\""));
}

TEST_F(SceneTest, ThePictureShowsTheStretchThatTheWindowShows) {
    const std::string whole = SvgOfScene(scene);
    scene.Zoom().ZoomAbout(6000, 0.1);
    scene.Update(kRoom);
    EXPECT_NE(SvgOfScene(scene), whole);
    EXPECT_LT(SvgOfScene(scene).size(), whole.size());
    const TextSeries& dates = analysis.series.QuoteDate;
    EXPECT_THAT(SvgOfScene(scene), HasSubstr(">" + dates[scene.View().first] + "<"));
    EXPECT_THAT(SvgOfScene(scene), HasSubstr(">" + dates[scene.View().Last()] + "<"));
    EXPECT_THAT(SvgOfScene(scene), Not(HasSubstr(">" + dates[1] + "<")));
}

}  // namespace
}  // namespace brantlow
