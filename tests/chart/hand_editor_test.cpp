// Drawing by hand: from days and prices to the panel and back, the pull of a bar's prices, and what the mouse
// and the keys do.
#include "chart/hand_editor.h"

#include <gmock/gmock.h>

#include "chart/chart_scene.h"
#include "chart/paint_fixture.h"
#include "chart/scene_picture.h"
#include "support/session_fixture.h"

namespace brantlow {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr std::size_t kHistoryBars = 400;

// Bar i of the history, from 1, closes at 100 + i / 2, reaches two up and one down; one a day from January
// 2, 2023 on. The chart's own window begins with bar 122.
class HandTest : public SessionTest {
  protected:
    HandTest() {
        Write("Data/VTRGRAPHset.ini",
              "\"Default\"\r\n\"Price\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"None\"\r\n\"None"
              "\"\r\n");
        std::string rows = Row(0);
        for (std::size_t i = 1; i <= kHistoryBars; ++i) rows += Row(i);
        Write("Quotes/EOD/ABC.24", rows);
        StartChart(context, {"ABC"}, "");
        scene.Update(kRoom);
    }
    static Date DayOf(std::size_t bar) {
        return AddDays(std::chrono::year(2023) / 1 / 1, static_cast<int>(bar));
    }
    static double Close(std::size_t bar) { return 100 + static_cast<double>(bar) / 2; }
    static std::string Row(std::size_t i) {
        const double close = Close(i);
        const auto text = [](double number) { return std::to_string(number); };
        return "\"" + FormatDate(DayOf(i)) + "\",\"16:00\"," + text(close) + "," + text(close - 1) + "," +
               text(close + 2) + ",1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0," + text(close) + "\r\n";
    }
    // x of a bar of the history in the own window.
    static double X(std::size_t bar) { return BarX(bar - 121); }
    double Y(double price) { return scene.Axis(Panel::Price).Y(price); }
    ChartPoint At(std::size_t bar, double price) { return {X(bar), Y(price)}; }

    void Press(ChartPoint at, bool freely = false) { took = editor.Press(scene.Sheet(), at, kReach, freely); }
    void Move(ChartPoint at) { editor.Move(scene.Sheet(), at, kReach, false); }
    void Release(ChartPoint at, bool freely = false) { editor.Release(scene.Sheet(), at, kReach, freely); }
    void Drag(ChartPoint from, ChartPoint to) {
        Press(from);
        Move(to);
        Release(to);
    }
    void Click(ChartPoint at) {
        Press(at);
        Release(at);
    }
    void DrawTrend() {
        editor.TakeTool(HandKind::Trend);
        Drag(At(200, Close(200)), At(300, Close(300)));
    }
    static HandDrawings Trend() {
        return {{HandKind::Trend, {{DayOf(200), Close(200)}, {DayOf(300), Close(300)}}}};
    }

    static constexpr AxisRoom kRoom{1000, 8};
    // Half a bar's price each way, and less than two bars.
    static constexpr HandReach kReach{80, 12, 100, 200};

    Analysis analysis;
    ChartSession chart;
    ChartContext context{session, analysis, chart};
    ChartOptions options;
    ChartScene scene{context, options};
    HandEditor& editor = scene.Hand();
    bool took = false;
};

// --- places ---

TEST_F(HandTest, APlaceIsTheNearestBarsDayAndPulledToItsHighLowOrClose) {
    const HandSheet sheet = scene.Sheet();
    const auto at = [&](double x, double y, bool pull) { return sheet.PointAt({x, y}, kReach, pull); };
    EXPECT_EQ(at(X(200) + 20, Y(Close(200)) + 5, true), (HandPoint{DayOf(200), Close(200)}));
    EXPECT_EQ(at(X(200) - 20, Y(Close(200) + 2) - 5, true), (HandPoint{DayOf(200), Close(200) + 2}));
    EXPECT_EQ(at(X(200), Y(Close(200) - 1) + 5, true), (HandPoint{DayOf(200), Close(200) - 1}));
    // Beyond the pull, and without one, the price is the pointer's.
    EXPECT_NEAR(at(X(200), Y(150), true)->price, 150, 0.0001);
    EXPECT_NEAR(at(X(200), Y(Close(200)) + 5, false)->price, Close(200) - 5 / scene.Axis(Panel::Price).scale,
                0.0001);
    // Left of the first bar and right of the newest one those are meant.
    EXPECT_EQ(at(0, 100, false)->day, DayOf(122));
    EXPECT_EQ(at(12700, 100, false)->day, DayOf(kHistoryBars));
}

TEST_F(HandTest, WithoutABarThereIsNoPlaceAndNothingIsDrawn) {
    ChangeTicker(context, {"NONE"});
    scene.Zoom().Reloaded();
    scene.Update(kRoom);
    editor.Load(Trend());
    scene.ShowHand();
    EXPECT_TRUE(scene.Drawn().lines.empty());
    EXPECT_FALSE(scene.Sheet().PointAt({500, 500}, kReach, true));
    editor.TakeTool(HandKind::Trend);
    Press({500, 500});
    EXPECT_FALSE(took);
}

TEST_F(HandTest, ATrendLineGoesThroughItsPlacesAndOnToTheRightAxis) {
    const std::vector<DrawnLine> lines = scene.Sheet().LinesOf(Trend()[0], kBlack);
    ASSERT_EQ(lines.size(), 1U);
    ExpectLine(lines[0], X(200), Y(Close(200)), kPanelRight,
               Y(Close(200)) + (Y(Close(300)) - Y(Close(200))) * (kPanelRight - X(200)) / (X(300) - X(200)),
               kBlack, "trend");
    HandDrawing other = Trend()[0];
    std::swap(other.points[0], other.points[1]);
    EXPECT_EQ(scene.Sheet().LinesOf(other, kBlack), lines) << "drawn from right to left";
}

TEST_F(HandTest, AHorizontalLineAChannelAndASteepLineStandWhereTheyBelong) {
    const HandSheet sheet = scene.Sheet();
    const auto horizontal = sheet.LinesOf({HandKind::Horizontal, {{DayOf(10), 250}}}, kBlack);
    ASSERT_EQ(horizontal.size(), 1U);
    ExpectLine(horizontal[0], kPanelLeft, Y(250), kPanelRight, Y(250), kBlack, "horizontal");
    const auto channel =
        sheet.LinesOf({HandKind::Channel, {{DayOf(200), 200}, {DayOf(399), 200}, {DayOf(300), 220}}}, kBlack);
    ASSERT_EQ(channel.size(), 2U);
    ExpectLine(channel[0], X(200), Y(200), kPanelRight, Y(200), kBlack, "first");
    ExpectLine(channel[1], X(200), Y(220), kPanelRight, Y(220), kBlack, "second");
    const auto steep = sheet.LinesOf({HandKind::Trend, {{DayOf(300), 200}, {DayOf(300), 230}}}, kBlack);
    ASSERT_EQ(steep.size(), 1U);
    ExpectLine(steep[0], X(300), Y(200), X(300), Y(230), kBlack, "steep");
}

TEST_F(HandTest, WhatLiesBesideThePanelIsNotDrawn) {
    const HandSheet sheet = scene.Sheet();
    EXPECT_TRUE(sheet.LinesOf({HandKind::Horizontal, {{DayOf(300), 5000}}}, kBlack).empty());
    EXPECT_TRUE(sheet.LinesOf({HandKind::Trend, {{DayOf(10), 5000}, {DayOf(300), 6000}}}, kBlack).empty());
    editor.Load({{HandKind::Text, {{DayOf(10), 200}}, "before the window"}});
    scene.ShowHand();
    EXPECT_TRUE(scene.Drawn().texts.empty());
}

TEST_F(HandTest, APlaceBeforeTheWindowIsCountedInBarsOfTheWholeHistory) {
    // Bar 42 is 80 bars left of the window's first one.
    EXPECT_NEAR(scene.Sheet().PlaceOf({DayOf(42), 200}).x, BarX(1) - 80 * kBarSpacing, 0.01);
    const HandDrawing line{HandKind::Trend, {{DayOf(42), Close(42)}, {DayOf(300), Close(300)}}};
    const auto cut = scene.Sheet().LinesOf(line, kBlack);
    ASSERT_EQ(cut.size(), 1U);
    // All closes lie on one line, so the line meets the left axis at the close of bar 121.
    ExpectLine(cut[0], kPanelLeft, Y(Close(121)), kPanelRight, Y(Close(401)), kBlack, "cut");
}

TEST_F(HandTest, InAnotherStretchThePlacesAreTheSameBars) {
    editor.Load(Trend());
    scene.Zoom().PanToOldest();
    scene.Update(kRoom);
    const ChartView& view = scene.View();
    EXPECT_NEAR(scene.Sheet().PlaceOf(Trend()[0].points[0]).x, view.X(200), 0.01);
    // Bar 300 is newer than the stretch, which ends with bar 279.
    EXPECT_NEAR(scene.Sheet().PlaceOf(Trend()[0].points[1]).x, view.X(300), 0.01);
}

TEST_F(HandTest, ADayBeyondTheHistoryIsCountedByTheDaysOfABar) {
    // Seven days are five bars.
    EXPECT_NEAR(scene.Sheet().PlaceOf({AddDays(DayOf(kHistoryBars), 7), 200}).x, BarX(279 + 5), 0.01);
    EXPECT_NEAR(scene.Sheet().PlaceOf({AddDays(DayOf(1), -14), 200}).x, BarX(1) - (121 + 10) * kBarSpacing,
                0.01);
}

TEST_F(HandTest, InWeeklyBarsAPlaceIsTheWeekOfItsDay) {
    CoarserTimeFrame(context);
    scene.Zoom().Reloaded();
    scene.Update(kRoom);
    const WorkingSeries& weeks = context.analysis.series;
    const Date day = DayOf(300);
    const double x = scene.Sheet().PlaceOf({day, 200}).x;
    const std::size_t bar = scene.View().BarAt(x, weeks.BarCount);
    ASSERT_GT(bar, 1U);
    EXPECT_GE(std::chrono::sys_days(*ParseDate(weeks.QuoteDate[bar])), std::chrono::sys_days(day));
    EXPECT_LT(std::chrono::sys_days(*ParseDate(weeks.QuoteDate[bar - 1])), std::chrono::sys_days(day));
}

// --- the mouse ---

TEST_F(HandTest, ADragDrawsALineFromPlaceToPlace) {
    DrawTrend();
    EXPECT_TRUE(took);
    EXPECT_EQ(editor.Kept(), Trend());
    EXPECT_EQ(editor.Chosen(), 0U);
    EXPECT_FALSE(editor.Tool()) << "the next press chooses";
}

TEST_F(HandTest, AClickForEachPlaceDrawsTheSame) {
    editor.TakeTool(HandKind::Trend);
    Click(At(200, Close(200)));
    EXPECT_TRUE(editor.Kept().empty());
    Move(At(250, 200));
    EXPECT_EQ(editor.Shown().back().points[1], (HandPoint{DayOf(250), 200})) << "follows the pointer";
    Click(At(300, Close(300)));
    EXPECT_EQ(editor.Kept(), Trend());
}

TEST_F(HandTest, AChannelTakesAThirdPlace) {
    editor.TakeTool(HandKind::Channel);
    Drag(At(200, Close(200)), At(300, Close(300)));
    EXPECT_TRUE(editor.Kept().empty());
    Click(At(250, Close(250) + 2));
    EXPECT_EQ(
        editor.Kept(),
        (HandDrawings{{HandKind::Channel,
                       {{DayOf(200), Close(200)}, {DayOf(300), Close(300)}, {DayOf(250), Close(250) + 2}}}}));
}

TEST_F(HandTest, AHorizontalLineTakesThePlaceOfTheRelease) {
    editor.TakeTool(HandKind::Horizontal);
    Drag(At(200, Close(200)), At(300, Close(300) - 1));
    EXPECT_EQ(editor.Kept(), (HandDrawings{{HandKind::Horizontal, {{DayOf(300), Close(300) - 1}}}}));
}

TEST_F(HandTest, ATextWaitsForItsWords) {
    editor.TakeTool(HandKind::Text);
    Click(At(200, Close(200)));
    ASSERT_TRUE(editor.TextPlace());
    EXPECT_TRUE(editor.Kept().empty());
    editor.EnterText("  two\nlines ");
    EXPECT_EQ(editor.Kept(), (HandDrawings{{HandKind::Text, {{DayOf(200), Close(200)}}, "two lines"}}));
    ASSERT_TRUE(editor.EditText());
    EXPECT_EQ(editor.TextWords(), "two lines");
    editor.EnterText(std::string(199, 'x') + "\xC3\xA4");
    EXPECT_EQ(editor.Kept()[0].text, std::string(199, 'x')) << "cut between letters";
    ASSERT_TRUE(editor.EditText());
    editor.EnterText(" ");
    EXPECT_TRUE(editor.Kept().empty());
    EXPECT_TRUE(editor.Undo());
    EXPECT_EQ(editor.Kept().size(), 1U);
}

TEST_F(HandTest, ATextWithoutWordsIsNone) {
    editor.TakeTool(HandKind::Text);
    Click(At(200, Close(200)));
    editor.EnterText("");
    EXPECT_TRUE(editor.Kept().empty());
    EXPECT_FALSE(editor.CanUndo());
}

TEST_F(HandTest, APressBesideEveryDrawingIsTheCharts) {
    editor.Load(Trend());
    Press(At(250, Close(250) - 40));
    EXPECT_FALSE(took);
    EXPECT_FALSE(editor.Chosen());
}

TEST_F(HandTest, APressOnALineChoosesItAndADragMovesAllOfIt) {
    editor.Load(Trend());
    Click(At(250, Close(250)));
    EXPECT_TRUE(took);
    EXPECT_EQ(editor.Chosen(), 0U);
    EXPECT_EQ(editor.Kept(), Trend()) << "a click moves nothing";
    EXPECT_FALSE(editor.CanUndo());
    Drag(At(250, Close(250)), At(260, Close(250) + 20));
    ASSERT_EQ(editor.Kept().size(), 1U);
    EXPECT_EQ(editor.Kept()[0].points[0].day, DayOf(210));
    EXPECT_EQ(editor.Kept()[0].points[1].day, DayOf(310));
    EXPECT_NEAR(editor.Kept()[0].points[0].price, Close(200) + 20, 0.0001);
    EXPECT_NEAR(editor.Kept()[0].points[1].price, Close(300) + 20, 0.0001);
}

TEST_F(HandTest, ARingOfTheChosenOneMovesItsPlaceAlone) {
    editor.Load(Trend());
    Click(At(250, Close(250)));
    Drag(At(300, Close(300)), At(350, Close(350) + 2));
    EXPECT_EQ(editor.Kept()[0].points,
              (std::vector<HandPoint>{{DayOf(200), Close(200)}, {DayOf(350), Close(350) + 2}}));
}

TEST_F(HandTest, AHorizontalLineThatIsDraggedIsPulledLikeAPlace) {
    editor.Load({{HandKind::Horizontal, {{DayOf(130), 180}}}});
    Drag(At(200, 180), {X(260), Y(Close(260)) + 5});
    EXPECT_EQ(editor.Kept()[0].points[0], (HandPoint{DayOf(130), Close(260)}));
}

TEST_F(HandTest, OfDrawingsOverOneAnotherTheLastIsMeant) {
    HandDrawings twice = Trend();
    twice.push_back(twice[0]);
    editor.Load(twice);
    Click(At(250, Close(250)));
    EXPECT_EQ(editor.Chosen(), 1U);
}

TEST_F(HandTest, ATextIsHitByItsLetters) {
    editor.Load({{HandKind::Text, {{DayOf(200), 200}}, "abcde"}});
    const ChartPoint place = At(200, 200);
    for (const auto& [x, y, isHit] : {std::tuple{250.0, -100.0, true},
                                      {560.0, -100.0, true},
                                      {700.0, -100.0, false},
                                      {250.0, -300.0, false},
                                      {250.0, 40.0, false}}) {
        EXPECT_EQ(scene.Sheet().IsOn(editor.Kept()[0], {place.x + x, place.y + y}, kReach), isHit) << x << y;
    }
}

// --- keys ---

TEST_F(HandTest, CancelGivesUpWhatIsBeingMadeThenTheToolThenTheChoice) {
    editor.TakeTool(HandKind::Trend);
    Click(At(200, Close(200)));
    EXPECT_TRUE(editor.Cancel());
    EXPECT_TRUE(editor.Shown().empty());
    EXPECT_EQ(editor.Tool(), HandKind::Trend);
    EXPECT_TRUE(editor.Cancel());
    EXPECT_FALSE(editor.Tool());
    EXPECT_FALSE(editor.Cancel());
    DrawTrend();
    EXPECT_TRUE(editor.Cancel());
    EXPECT_FALSE(editor.Chosen());
    EXPECT_EQ(editor.Kept(), Trend());
}

TEST_F(HandTest, AMoveThatIsGivenUpLeavesTheLine) {
    editor.Load(Trend());
    Press(At(250, Close(250)));
    Move(At(280, Close(250) + 40));
    EXPECT_NE(editor.Shown(), Trend());
    EXPECT_TRUE(editor.Cancel());
    EXPECT_EQ(editor.Shown(), Trend());
    Release(At(280, Close(250) + 40));
    EXPECT_EQ(editor.Kept(), Trend());
}

TEST_F(HandTest, KeysGoFromDrawingToDrawingMoveAndDelete) {
    HandDrawings two = Trend();
    two.push_back({HandKind::Horizontal, {{DayOf(130), 180}}});
    editor.Load(two);
    EXPECT_FALSE(editor.MoveChosen(scene.Sheet(), 1, 0));
    EXPECT_FALSE(editor.DeleteChosen());
    EXPECT_TRUE(editor.ChooseNext());
    EXPECT_EQ(editor.Chosen(), 0U);
    EXPECT_TRUE(editor.MoveChosen(scene.Sheet(), -3, 0));
    EXPECT_EQ(editor.Kept()[0].points,
              (std::vector<HandPoint>{{DayOf(197), Close(200)}, {DayOf(297), Close(300)}}));
    EXPECT_TRUE(editor.ChooseNext());
    EXPECT_TRUE(editor.MoveChosen(scene.Sheet(), 0, -30));
    EXPECT_NEAR(editor.Kept()[1].points[0].price, 180 + 30 / scene.Axis(Panel::Price).scale, 0.0001);
    EXPECT_TRUE(editor.DeleteChosen());
    EXPECT_EQ(editor.Kept().size(), 1U);
    EXPECT_TRUE(editor.ChooseNext());
    EXPECT_EQ(editor.Chosen(), 0U);
    EXPECT_TRUE(editor.DeleteAll());
    EXPECT_FALSE(editor.ChooseNext());
    EXPECT_FALSE(editor.DeleteAll());
}

TEST_F(HandTest, EveryChangeCanBeUndoneAndDoneAgain) {
    DrawTrend();
    editor.MoveChosen(scene.Sheet(), 5, 0);
    const HandDrawings moved = editor.Kept();
    editor.DeleteChosen();
    EXPECT_TRUE(editor.Undo());
    EXPECT_EQ(editor.Kept(), moved);
    EXPECT_TRUE(editor.Undo());
    EXPECT_EQ(editor.Kept(), Trend());
    EXPECT_TRUE(editor.Undo());
    EXPECT_TRUE(editor.Kept().empty());
    EXPECT_FALSE(editor.Undo());
    EXPECT_TRUE(editor.Redo());
    EXPECT_TRUE(editor.Redo());
    EXPECT_EQ(editor.Kept(), moved);
    editor.ChooseNext();
    editor.MoveChosen(scene.Sheet(), 1, 0);
    EXPECT_FALSE(editor.Redo()) << "a new change ends what could be done again";
}

TEST_F(HandTest, UndoInTheMidstOfALineGivesUpTheLineAlone) {
    DrawTrend();
    editor.TakeTool(HandKind::Horizontal);
    Press(At(200, 200));
    EXPECT_TRUE(editor.Undo());
    EXPECT_EQ(editor.Shown(), Trend());
}

TEST_F(HandTest, WhatCouldNotBeKeptIsTakenBackWhateverItWas) {
    DrawTrend();
    editor.DeleteChosen();
    editor.TakeBack();
    EXPECT_EQ(editor.Kept(), Trend());
    EXPECT_TRUE(editor.Undo());
    editor.TakeBack();
    EXPECT_EQ(editor.Kept(), Trend());
    EXPECT_TRUE(editor.CanUndo());
}

// --- in pictures ---

TEST_F(HandTest, TheWindowsPictureHasLinesAndWordsButNoRings) {
    editor.Load(
        {{HandKind::Horizontal, {{DayOf(200), 200}}}, {HandKind::Text, {{DayOf(200), 210}}, "a < b"}});
    editor.ChooseNext();
    scene.ShowHand();
    const std::string svg = SvgOfScene(scene);
    EXPECT_THAT(svg, HasSubstr("#003cbe"));
    EXPECT_THAT(svg, HasSubstr("a &lt; b</text>"));
    EXPECT_THAT(svg, Not(HasSubstr("<circle")));
    EXPECT_EQ(scene.Drawn().lines.size(), 2U) << "the line and its ring";
    editor.Load({});
    scene.ShowHand();
    EXPECT_THAT(SvgOfScene(scene), Not(HasSubstr("#003cbe")));
}

TEST_F(HandTest, ItsColourCanBeReadOnEveryPalette) {
    for (const ChartPalette& palette : kChartPalettes)
        EXPECT_GE(Contrast(palette.hand, palette.ground), kLegibleContrast) << palette.name;
}

}  // namespace
}  // namespace brantlow
