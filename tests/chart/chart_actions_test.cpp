#include "chart/chart_actions.h"

#include <gmock/gmock.h>

#include "chart/paint_fixture.h"
#include "support/session_fixture.h"

namespace brantlow {
namespace {

using testing::ElementsAre;

constexpr std::string_view kGraphFile =
    "\"Default\"\r\n\"Price\"\r\n\"MA 30\"\r\n\"\"\r\n\"WMA 15\"\r\n\"\"\r\n\"\"\r\n\"LR "
    "T.CL\"\r\n\"None\"\r\n"
    "\"None\"\r\n";

// A row of a year file: a close, and a range of 1 around it.
std::string DayRow(const std::string& date, double close, double volume = 1000) {
    const auto text = [](double number) { return std::to_string(number); };
    return "\"" + date + "\",\"16:00\"," + text(close) + "," + text(close - 1) + "," + text(close + 1) + "," +
           text(volume) + ",0,0,0,0,0,\"\",\"\",0,0,0,0,0," + text(close) + "\r\n";
}

class ChartActions : public SessionTest {
  protected:
    ChartActions() { Write("Data/VTRGRAPHset.ini", kGraphFile); }

    // The days of the newest year become bars 1 up; the one row of the oldest year gives way to the first.
    void WriteHistory(const std::string& ticker, const std::string& rows) {
        Write("Quotes/EOD/" + ticker + ".21", DayRow("12/31/21", 1));
        Write("Quotes/EOD/" + ticker + ".24", rows);
        Write("Quotes/EOD/" + ticker + ".04", DayRow("12/31/04", 1));
    }
    void WriteBars(const std::string& ticker, std::size_t count) {
        std::string rows;
        for (std::size_t i = 1; i <= count; ++i) {
            rows += DayRow("day " + std::to_string(i), 100 + static_cast<double>(i));
        }
        WriteHistory(ticker, rows);
    }
    ChartStart Start(std::string_view ticker, std::string_view style = {}) {
        return StartChart(context, {ticker}, style);
    }
    // Marks the working series, so that a reload shows.
    void MarkSeries() { analysis.series.ClosePrice.Set(1, 777); }
    bool WasReloaded() const { return analysis.series.ClosePrice[1] != 777; }

    Analysis analysis;
    ChartSession chart;
    ChartContext context{session, analysis, chart};
};

// --- starting a chart ---

TEST_F(ChartActions, NoTickerIsSaidAndChangesNothing) {
    chart.ChartStyle = "Default";
    EXPECT_EQ(Start("", "CandleStick"), ChartStart::NoTicker);
    EXPECT_THAT(person.said, ElementsAre(RecordingPerson::Message{
                                 "You must select a ticker symbol to obtain a graph.", ""}));
    EXPECT_EQ(chart.ChartStyle, "Default");
    EXPECT_EQ(chart.SelectorTicker, "");
}

TEST_F(ChartActions, AStartLoadsTheTickerDailyAndPaintsThePanels) {
    WriteBars("ABC", 40);
    chart.ChartTimeFrame = kMonthlyFrame;
    EXPECT_EQ(Start("ABC"), ChartStart::Done);
    EXPECT_EQ(chart.ChartTimeFrame, 1);
    EXPECT_EQ(chart.SelectorTicker, "ABC");
    EXPECT_EQ(analysis.series.BarCount, 40U);
    EXPECT_EQ(LabelText(chart.Picture(Panel::Price), "Label62"), "day 40");
    EXPECT_EQ(LabelText(chart.Picture(Panel::Price), "Label59"), "140");
    EXPECT_GT(chart.Picture(Panel::Study).items.size(), kStripFrameItems);
    EXPECT_GT(chart.Picture(Panel::Volume).items.size(), kStripFrameItems);
    EXPECT_EQ(analysis.indicators.MA30[40], 125.5) << "the mean of 111 to 140";
}

TEST_F(ChartActions, AStartFillsSlotsVolumeListAndPickLists) {
    WriteBars("ABC", 40);
    chart.Combo2 = "RSI 15";
    Start("ABC");
    EXPECT_THAT(chart.Slots, ElementsAre("Price", "MA 30", "", "WMA 15", "", "", "LR T.CL"));
    EXPECT_THAT(chart.VolumeSeriesList, ElementsAre("Volume", "Average", "LR", "L. UCL", "", ""));
    EXPECT_EQ(chart.Combo1, "LR T.CL") << "the last series drawn";
    EXPECT_EQ(chart.Combo2, "MLR Der 30");
    EXPECT_EQ(chart.Combo3, "L. UCL");
}

TEST_F(ChartActions, AMenusStyleBeatsTheFileAndTheToolButtonFollowsIt) {
    WriteBars("ABC", 5);
    Start("ABC");
    EXPECT_EQ(session.settings.GraphSettings.Text(1), "Default") << "the file's, before any menu";
    Start("ABC", "CandleStick");
    EXPECT_EQ(session.settings.GraphSettings.Text(1), "CandleStick");
    Start("ABC");
    EXPECT_EQ(chart.ChartStyle, "CandleStick");
    EXPECT_EQ(session.settings.GraphSettings.Text(1), "CandleStick");
    // A candle has six lines, a bar of the other style two.
    chart.Slots = {"Price"};
    PaintAllPanels(context);
    EXPECT_EQ(LinesAfterFrame(chart.Picture(Panel::Price), kPriceFrameItems).size(), 30U);
}

TEST_F(ChartActions, AMissingSettingsFileGivesCandlesticksAndNoSeries) {
    std::filesystem::remove(folder / "Data/VTRGRAPHset.ini");
    WriteBars("ABC", 40);
    Start("ABC");
    EXPECT_EQ(LinesAfterFrame(chart.Picture(Panel::Price), kPriceFrameItems).size(), 0U);
    EXPECT_EQ(CirclesOf(chart.Picture(Panel::Price)).size(), 6U);
    PickPriceSeries(context, "Price");
    EXPECT_EQ(LinesAfterFrame(chart.Picture(Panel::Price), kPriceFrameItems).size(), 240U);
}

TEST_F(ChartActions, ATickerWithoutHistoryGivesAnEmptyChart) {
    EXPECT_EQ(Start("NONE"), ChartStart::NoHistory);
    const PanelDrawing& price = chart.Picture(Panel::Price);
    EXPECT_EQ(LinesAfterFrame(price, kPriceFrameItems).size(), 0U);
    EXPECT_EQ(LabelText(price, "Label58"), "NONE");
    EXPECT_EQ(LabelText(price, "Label59"), "");
    WriteBars("ONE", 1);
    EXPECT_EQ(Start("ONE"), ChartStart::NoHistory);
    WriteBars("TWO", 2);
    EXPECT_EQ(Start("TWO"), ChartStart::Done);
}

TEST_F(ChartActions, AlarmsComeFromTheSelectedRow) {
    WriteBars("ABC", 5);
    const QuoteTable table = TableOf({"Ticker Symbol\tHigh Alarm\tLow Alarm", "ABC\t500\t20", "XYZ\t\tnone"});
    StartChart(context, {"ABC", &table, 1}, "");
    EXPECT_EQ(chart.HighAlarm, 500);
    EXPECT_EQ(chart.LowAlarm, 20);
    EXPECT_EQ(chart.PriceTop, 500);
    StartChart(context, {"XYZ", &table, 2}, "");
    EXPECT_EQ(chart.HighAlarm, 0);
    EXPECT_EQ(chart.LowAlarm, 0);
}

TEST_F(ChartActions, AlarmsOfAnotherRowAreShownOverTheSameTicker) {
    WriteBars("ABC", 5);
    const QuoteTable table = TableOf({"Ticker Symbol\tHigh Alarm\tLow Alarm", "ABC\t500\t20", "XYZ\t600\t"});
    StartChart(context, {"ABC", &table, 1}, "");
    EXPECT_FALSE(ShowAlarms(context, {"ABC", &table, 1}));
    EXPECT_TRUE(ShowAlarms(context, {"ABC", &table, 2}));
    EXPECT_EQ(chart.HighAlarm, 600);
    EXPECT_EQ(chart.LowAlarm, 0);
    EXPECT_EQ(chart.PriceTop, 600);
    EXPECT_EQ(LabelText(chart.Picture(Panel::Price), "Label58"), "ABC");
}

TEST_F(ChartActions, AnAlarmWithoutAColumnKeepsItsValue) {
    WriteBars("ABC", 5);
    chart.HighAlarm = 400;
    const QuoteTable table = TableOf({"Ticker Symbol\tLow Alarm", "ABC\t20"});
    StartChart(context, {"ABC", &table, 1}, "");
    EXPECT_EQ(chart.HighAlarm, 400);
    EXPECT_EQ(chart.LowAlarm, 20);
}

TEST_F(ChartActions, EachSideOfTheSignalsIsComputedWhereItHasACondition) {
    WriteBars("ABC", 40);
    session.settings.GraphSettings.Set(9, Value::OfText("None"));
    session.settings.GraphSettings.Set(10, Value::OfText("Condition 1"));
    for (std::size_t i = 1; i <= 40; ++i) {
        chart.BuySignal.Set(i, "kept");
        chart.SellSignal.Set(i, "old");
    }
    Start("ABC");
    EXPECT_EQ(chart.BuySignal[40], "kept");
    EXPECT_EQ(chart.SellSignal[40], "") << "the settings hold no such block";
}

// --- series ---

TEST_F(ChartActions, APickTakesTheFirstEmptySlotBehindTheFirst) {
    WriteBars("ABC", 40);
    Start("ABC");
    PickPriceSeries(context, "WMA 30");
    EXPECT_THAT(chart.Slots, ElementsAre("Price", "MA 30", "WMA 30", "WMA 15", "", "", "LR T.CL"));
    PickPriceSeries(context, "WMA 30");
    EXPECT_THAT(chart.Slots, ElementsAre("Price", "MA 30", "WMA 30", "WMA 15", "WMA 30", "", "LR T.CL"));
}

TEST_F(ChartActions, ASeventhPickChangesNothingButRepaints) {
    WriteBars("ABC", 40);
    Start("ABC");
    PickPriceSeries(context, "MLR 15");
    PickPriceSeries(context, "MLR 30");
    PickPriceSeries(context, "MA 15");
    const auto full = chart.Slots;
    const auto picture = chart.Picture(Panel::Price).items;
    chart.Picture(Panel::Price).labels.clear();
    PickPriceSeries(context, "WMA 30");
    EXPECT_EQ(chart.Slots, full);
    EXPECT_EQ(chart.Picture(Panel::Price).items, picture);
    EXPECT_EQ(LabelText(chart.Picture(Panel::Price), "Label58"), "ABC");
}

TEST_F(ChartActions, ClearSeriesLeavesThePriceAlone) {
    WriteBars("ABC", 40);
    Start("ABC");
    ClearPriceSeries(context);
    EXPECT_THAT(chart.Slots, ElementsAre("Price", "", "", "", "", "", ""));
    EXPECT_EQ(LinesAfterFrame(chart.Picture(Panel::Price), kPriceFrameItems).size(), 80U);
}

TEST_F(ChartActions, PicksLastOnlyUntilTheNextStart) {
    WriteBars("ABC", 40);
    Start("ABC");
    PickPriceSeries(context, "MLR 15");
    EXPECT_EQ(session.settings.GraphSettings.Text(4), "MLR 15");
    EXPECT_EQ(Read("Data/VTRGRAPHset.ini"), kGraphFile);
    Start("ABC");
    EXPECT_EQ(chart.Slots[2], "");
}

TEST_F(ChartActions, AStudyReplacesTheOneBefore) {
    WriteBars("ABC", 40);
    Start("ABC");
    PickStudy(context, "RSI 15");
    EXPECT_EQ(chart.StudyTop, 100);
    PickStudy(context, "Price To Sales");
    EXPECT_EQ(chart.Picture(Panel::Study).items.size(), kStripFrameItems + 40);
}

TEST_F(ChartActions, AVolumePickTakesTheFirstFreeEntryAndClearLeavesTheVolume) {
    WriteBars("ABC", 40);
    Start("ABC");
    PickVolumeSeries(context, "WMA 15");
    EXPECT_THAT(chart.VolumeSeriesList, ElementsAre("Volume", "Average", "LR", "L. UCL", "WMA 15", ""));
    PickVolumeSeries(context, "T. UCL");
    PickVolumeSeries(context, "WMA 30");
    EXPECT_THAT(chart.VolumeSeriesList, ElementsAre("Volume", "Average", "LR", "L. UCL", "WMA 15", "T. UCL"));
    ClearVolumeSeries(context);
    EXPECT_THAT(chart.VolumeSeriesList, ElementsAre("Volume", "", "", "", "", ""));
    EXPECT_EQ(chart.Picture(Panel::Volume).items.size(), kStripFrameItems + 40);
}

TEST_F(ChartActions, APickDrawsOverWhatStands) {
    // Without any volume the first paint fills the strip; after its repair the bars shrink to nothing.
    WriteHistory("NIL", DayRow("a", 10, 0) + DayRow("b", 11, 0) + DayRow("c", 12, 0) + DayRow("d", 13, 0));
    Start("NIL");
    const DrawnItem fullBar = DrawnLine{95, 50, 95, 1120, {10, 150, 10}};
    const auto stands = [&] {
        const auto& items = chart.Picture(Panel::Volume).items;
        return std::find(items.begin(), items.end(), fullBar) != items.end();
    };
    EXPECT_TRUE(stands());
    PickVolumeSeries(context, "WMA 15");
    EXPECT_TRUE(stands()) << "a pick erases nothing";
    ClearVolumeSeries(context);
    EXPECT_FALSE(stands());
}

// --- time frames ---

TEST_F(ChartActions, FramesGoFromDailyToMonthlyAndBack) {
    WriteBars("ABC", 45);
    Start("ABC");
    EXPECT_TRUE(CoarserTimeFrame(context));
    EXPECT_EQ(chart.ChartTimeFrame, 2);
    EXPECT_EQ(analysis.series.BarCount, 9U);
    EXPECT_TRUE(CoarserTimeFrame(context));
    EXPECT_EQ(chart.ChartTimeFrame, 3);
    EXPECT_EQ(analysis.series.BarCount, 3U);
    EXPECT_TRUE(FinerTimeFrame(context));
    EXPECT_EQ(analysis.series.BarCount, 9U);
    EXPECT_TRUE(FinerTimeFrame(context));
    EXPECT_EQ(analysis.series.BarCount, 45U);
    EXPECT_EQ(LabelText(chart.Picture(Panel::Price), "Label62"), "day 45");
}

TEST_F(ChartActions, FramesEndAtDailyAndMonthlyWithoutAReload) {
    WriteBars("ABC", 45);
    Start("ABC");
    MarkSeries();
    EXPECT_FALSE(FinerTimeFrame(context));
    EXPECT_FALSE(WasReloaded());
    EXPECT_EQ(chart.ChartTimeFrame, 1);
    CoarserTimeFrame(context);
    CoarserTimeFrame(context);
    MarkSeries();
    EXPECT_FALSE(CoarserTimeFrame(context));
    EXPECT_FALSE(WasReloaded());
    EXPECT_EQ(chart.ChartTimeFrame, 3);
}

TEST_F(ChartActions, AReloadTakesTheTickerFromTheHeader) {
    WriteBars("ABC", 45);
    Start("ABC");
    chart.SelectorTicker = "ELSE";
    CoarserTimeFrame(context);
    EXPECT_EQ(chart.SelectorTicker, "ABC");
    EXPECT_EQ(analysis.series.BarCount, 9U);
}

TEST_F(ChartActions, AShortChartEndsWhereItsBarsEnd) {
    WriteBars("ABC", 45);
    Start("ABC");
    ClearPriceSeries(context);
    // The tick of bar 45 reaches one bar further.
    EXPECT_EQ(LinesAfterFrame(chart.Picture(Panel::Price), kPriceFrameItems).back().x2, 50 + 45 * 46);
}

TEST_F(ChartActions, ALongHistoryFillsTheWindowOf279Bars) {
    WriteBars("ABC", 400);
    Start("ABC");
    ClearPriceSeries(context);
    const std::vector<DrawnLine> lines = LinesAfterFrame(chart.Picture(Panel::Price), kPriceFrameItems);
    EXPECT_EQ(lines.size(), 2U * 279);
    EXPECT_EQ(lines[2 * 278].x1, 12605);
}

// --- mouse ---

class ChartMouse : public ChartActions {
  protected:
    ChartMouse() {
        WriteBars("ABC", 45);
        Start("ABC");
        PickStudy(context, "Momentum 15");
    }
    std::string DateAt(double x) {
        PressPanel(context, x);
        const std::string date = chart.ReadOut.Label68;
        ReleasePanel(context, Panel::Volume);
        return date;
    }
};

TEST_F(ChartMouse, TheLaterOfTwoBarsWins) {
    EXPECT_EQ(DateAt(45), "day 1");
    EXPECT_EQ(DateAt(89), "day 1");
    EXPECT_EQ(DateAt(90), "day 2");
    EXPECT_EQ(DateAt(45 * 7 + 45), "day 8");
    EXPECT_EQ(DateAt(45 * 45 + 49), "day 45");
}

TEST_F(ChartMouse, NoBarIsReadOutBeforeTheFirstAndBehindTheNewest) {
    EXPECT_EQ(DateAt(44), "");
    EXPECT_EQ(DateAt(45 * 45 + 50), "");
    EXPECT_EQ(DateAt(12600), "");
    EXPECT_EQ(DateAt(-100), "");
}

TEST_F(ChartMouse, APressReadsOutDateCloseVolumeAndStudy) {
    analysis.indicators.Momentum15.Set(20, 2.5);
    PaintAllPanels(context);
    PressPanel(context, 45 * 20 + 10);
    EXPECT_EQ(chart.ReadOut.Label68, "day 20");
    EXPECT_EQ(chart.ReadOut.Label69, "120");
    EXPECT_EQ(chart.ReadOut.Label28, "1000");
    EXPECT_EQ(chart.ReadOut.Label26, "2.5");
}

TEST_F(ChartMouse, APressDrawsTheCursorOverAllPanels) {
    PressPanel(context, 1000);
    const Rgb green = {0, 100, 0};
    EXPECT_EQ(chart.Picture(Panel::Price).items.back(), DrawnItem(DrawnLine{1015, 50, 1015, 6100, green}));
    EXPECT_EQ(chart.Picture(Panel::Study).items.back(), DrawnItem(DrawnLine{1015, 50, 1015, 1170, green}));
    EXPECT_EQ(chart.Picture(Panel::Volume).items.back(), DrawnItem(DrawnLine{1015, 50, 1015, 1170, green}));
}

TEST_F(ChartMouse, AReleaseOnThePricePanelReloadsAndUndoesTheRepairs) {
    analysis.series.LowPrice.Set(30, 1);
    MarkSeries();
    PressPanel(context, 1000);
    chart.BuySignal.Set(30, "kept");
    session.settings.GraphSettings.Set(9, Value::OfText("Condition 1"));
    ReleasePanel(context, Panel::Price);
    EXPECT_TRUE(WasReloaded());
    // The day's low is 129, the close before it 129, so that no gap is closed.
    EXPECT_EQ(analysis.series.LowPrice[30], 129);
    EXPECT_EQ(chart.ReadOut.Label68, "");
    EXPECT_EQ(chart.BuySignal[30], "kept") << "this reload leaves the signals alone";
    EXPECT_NE(chart.Picture(Panel::Study).items.back(),
              DrawnItem(DrawnLine{1015, 50, 1015, 1170, {0, 100, 0}}));
}

TEST_F(ChartMouse, AReleaseOnAStripPaintsWithoutAReload) {
    for (const Panel panel : {Panel::Study, Panel::Volume}) {
        MarkSeries();
        PressPanel(context, 1000);
        ReleasePanel(context, panel);
        EXPECT_FALSE(WasReloaded());
        EXPECT_EQ(chart.ReadOut.Label69, "");
        for (const PanelDrawing& picture : chart.Pictures) {
            EXPECT_EQ(std::count_if(picture.items.begin(), picture.items.end(),
                                    [](const DrawnItem& item) {
                                        const auto* line = std::get_if<DrawnLine>(&item);
                                        return line != nullptr && line->colour == Rgb{0, 100, 0};
                                    }),
                      0);
        }
    }
}

TEST_F(ChartMouse, AGapClosedByThePaintIsOpenAgainAfterAReload) {
    WriteHistory("GAP", DayRow("a", 10) + DayRow("b", 20) + DayRow("c", 20.5));
    Start("GAP");
    EXPECT_EQ(analysis.series.LowPrice[2], 10);
    ReloadChart(context, Signals::Keep);
    EXPECT_EQ(analysis.series.LowPrice[2], 19);
}

TEST_F(ChartMouse, AVolumeOfZeroIsBackAfterAReload) {
    WriteHistory("NIL", DayRow("a", 10, 5) + DayRow("b", 11, 0) + DayRow("c", 12, 7));
    Start("NIL");
    EXPECT_EQ(analysis.series.Volume[2], 1);
    ReloadChart(context, Signals::Keep);
    EXPECT_EQ(analysis.series.Volume[2], 0);
}

TEST_F(ChartMouse, TipsShowTheValueUnderThePointer) {
    chart.PriceTop = 200;
    chart.PriceScale = 60;
    chart.StudyTop = 10;
    chart.StudyScale = 107;
    chart.VolumeTop = 5000;
    chart.VolumeScale = 0.5;
    EXPECT_EQ(TipText(chart, Panel::Price, 50), "200.00");
    EXPECT_EQ(TipText(chart, Panel::Price, 3050), "150.00");
    EXPECT_EQ(TipText(chart, Panel::Price, 3080), "149.50");
    EXPECT_EQ(TipText(chart, Panel::Study, 157), "9.00");
    EXPECT_EQ(TipText(chart, Panel::Volume, 80), "4940");
}

}  // namespace
}  // namespace brantlow
