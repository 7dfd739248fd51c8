#include <gmock/gmock.h>

#include "json_lines.h"

namespace brantlow {
namespace {

using nlohmann::ordered_json;
using ::testing::ElementsAre;

constexpr std::string_view kToday = "2026-11-21";

class SeriesCommand : public BatchTest {
  protected:
    // `count` bars of the year 2026, closes 1, 2, 3 ... Their first row takes the place of the one row of an
    // older file, without which it would stand at element 0.
    void WriteHistory(const std::string& ticker, int count) const {
        Write("Quotes/EOD/" + ticker + ".23", Record("12/29/23", 500));
        std::string year;
        for (int i = 1; i <= count; ++i) year += Record("01/02/26", i);
        Write("Quotes/EOD/" + ticker + ".26", year);
    }
    ordered_json One(std::vector<std::string> arguments) const { return All(std::move(arguments)).at(0); }
    std::vector<ordered_json> All(std::vector<std::string> arguments) const {
        arguments.insert(arguments.end(), {"--today", std::string(kToday)});
        const CallResult result = Call(arguments);
        EXPECT_EQ(result.err, "");
        return JsonLines(result);
    }
};

TEST_F(SeriesCommand, PrintsEveryArrayByNameUpToTheNewestBar) {
    WriteHistory("KO", 3);
    const ordered_json line = One({"series", "KO"});
    EXPECT_THAT(Keys(line), ElementsAre("ticker", "interval", "BarCount", "LastBar", "series"));
    EXPECT_EQ(line["ticker"], "KO");
    EXPECT_EQ(line["interval"], "daily");
    EXPECT_EQ(line["BarCount"], 3);
    EXPECT_EQ(line["LastBar"], 3);
    const ordered_json& series = line["series"];
    EXPECT_THAT(
        Keys(series),
        ElementsAre("QuoteDate", "QuoteTime", "ClosePrice", "LowPrice", "HighPrice", "Volume", "PERatio",
                    "EPSttm", "PEGRatio", "EPSest", "DividendPerShare", "DividendPayDate", "ExDividendDate",
                    "PreviousClose", "Low52Week", "High52Week", "PriceToSales", "MarketCap", "OpenPrice"));
    for (const auto& [name, array] : series.items()) EXPECT_EQ(array.size(), 3u) << name;
    EXPECT_EQ(series["QuoteTime"], ordered_json({"", "", ""}));
}

TEST_F(SeriesCommand, WithoutAFileNothingWasWritten) {
    const ordered_json line = One({"series", "NONE"});
    EXPECT_EQ(line["BarCount"], 0);
    EXPECT_EQ(line["series"]["ClosePrice"], ordered_json::array());
}

TEST_F(SeriesCommand, AFieldThatNoRowHasPrintsAsNullAndAnEmptiedOpenAsEmptyText) {
    Write("Quotes/EOD/S.23", "\"01/03/23\",\"\",7\r\n\"01/04/23\",\"\",8\r\n");
    const ordered_json line = One({"series", "S"});
    ASSERT_EQ(line["BarCount"], 2);
    EXPECT_EQ(line["series"]["ClosePrice"], ordered_json({7, 8}));
    EXPECT_EQ(line["series"]["HighPrice"], ordered_json({nullptr, nullptr}));
    EXPECT_EQ(line["series"]["OpenPrice"], ordered_json({"", ""}));
}

TEST_F(SeriesCommand, AnEarlierTickerLeavesWhatALaterOneDoesNotWrite) {
    WriteHistory("FULL", 2);
    Write("Quotes/EOD/S.23", "\"01/03/23\",\"\",7\r\n\"01/04/23\",\"\",8\r\n");
    const auto lines = All({"series", "FULL", "S"});
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[1]["series"]["Volume"], ordered_json({100, 100}));
    EXPECT_EQ(lines[1]["series"]["HighPrice"], lines[0]["series"]["HighPrice"]);
}

TEST_F(SeriesCommand, WindowKeepsTheNewestBars) {
    WriteHistory("KO", 300);
    struct Row {
        std::string window;
        int bars;
    };
    for (const Row& row : {Row{"0", 279}, Row{"1", 3}, Row{"100", 100}, Row{"18000", 300}}) {
        const ordered_json line = One({"series", "KO", "--window", row.window});
        EXPECT_EQ(line["BarCount"], row.bars) << row.window;
        EXPECT_EQ(line["series"]["ClosePrice"].back(), 300) << row.window;
    }
    EXPECT_EQ(One({"series", "KO"})["BarCount"], 279);
}

TEST_F(SeriesCommand, WeeklyAndMonthlyFoldAllYears) {
    std::string old;
    for (int i = 1; i <= 100; ++i) old += Record("01/03/06", i);
    Write("Quotes/EOD/KO.06", old);
    EXPECT_EQ(One({"series", "KO"})["BarCount"], 0);
    const ordered_json weekly = One({"series", "KO", "--interval", "weekly"});
    EXPECT_EQ(weekly["interval"], "weekly");
    EXPECT_EQ(weekly["BarCount"], 20);
    EXPECT_EQ(weekly["series"]["ClosePrice"][0], 5);
    EXPECT_EQ(One({"series", "KO", "--interval", "monthly"})["BarCount"], 5);
    EXPECT_EQ(One({"series", "KO", "--interval", "weekly", "--window", "4"})["series"]["ClosePrice"],
              ordered_json({85, 90, 95, 100}));
}

TEST_F(SeriesCommand, TickersThatCanHaveNoFilesGiveEmptySeries) {
    Write("secret.26", Record("01/02/26", 5));
    const std::string longTicker(5000, 'X');
    for (const std::string& ticker :
         {std::string("../../secret"), std::string("/etc/passwd"), std::string("*"), std::string("A/B"),
          std::string("CON"), std::string("."), std::string(), longTicker}) {
        const ordered_json line = One({"series", ticker});
        EXPECT_EQ(line["ticker"], ticker);
        EXPECT_EQ(line["BarCount"], 0) << ticker.substr(0, 20);
    }
}

TEST_F(SeriesCommand, ATickerOfUnknownEncodingIsShownDecoded) {
    EXPECT_EQ(One({"series", "caf\xe9"})["ticker"], "caf\xc3\xa9");
}

TEST_F(SeriesCommand, CtrlCStopsBetweenTwoTickers) {
    const CallResult result =
        CallWith({"series", "KO", "PG"}, folder / "brantlow-batch", [] { return true; });
    EXPECT_EQ(result.status, ExitStatus::Interrupted);
    EXPECT_EQ(result.out, "");
}

TEST_F(SeriesCommand, IndicatorsPrintEveryScalarAndArrayByName) {
    WriteHistory("KO", 20);
    const ordered_json line = One({"indicators", "KO"});
    EXPECT_THAT(Keys(line), ElementsAre("ticker", "interval", "BarCount", "scalars", "arrays"));
    EXPECT_THAT(Keys(line["scalars"]),
                ElementsAre("LRSlope", "LRIntercept", "LRTightUCL", "LRLooseUCL", "LRTightLCL", "LRLooseLCL",
                            "LRMaxResidual", "LRMinResidual", "MaxVolume", "AverageVolume", "VolumeTightUCL",
                            "VolumeLooseUCL"));
    const std::vector<std::string> names = Keys(line["arrays"]);
    std::vector<std::string> expected;
    const auto family = [&](const std::string& name, std::initializer_list<int> lengths) {
        for (const int length : lengths) expected.push_back(name + std::to_string(length));
    };
    family("MA", {15, 30, 60, 90, 120, 180});
    family("WMA", {15, 30, 60, 90, 120, 180});
    for (const char* name :
         {"MLR", "MLRSlope", "MLRIntercept", "LooseUCL", "LooseLCL", "TightUCL", "TightLCL"}) {
        family(name, {15, 30, 60, 90, 120});
    }
    family("MLRDer", {15, 30, 60, 90});
    family("Momentum", {15, 30, 60});
    family("RSI", {15, 30});
    family("McClellan", {15, 30});
    family("Stochastic", {15, 30, 60, 90});
    family("MACD", {15, 30});
    for (const char* name :
         {"LRPrice", "LRVolume", "VolumeWMA15", "VolumeWMA30", "PercentChange", "SalesPerShare",
          "EarningsPerSales", "ForwardPE", "Sales", "Earnings", "EstimatedEarnings"}) {
        expected.emplace_back(name);
    }
    EXPECT_THAT(names, ::testing::UnorderedElementsAreArray(expected));
    for (const auto& [name, array] : line["arrays"].items()) EXPECT_EQ(array.size(), 20u) << name;
}

TEST_F(SeriesCommand, IndicatorValuesStandAtTheirBars) {
    WriteHistory("KO", 20);
    const ordered_json line = One({"indicators", "KO"});
    const ordered_json& arrays = line["arrays"];
    EXPECT_EQ(arrays["MA15"][13], nullptr);
    // Closes 1 to 15, then 6 to 20.
    EXPECT_EQ(arrays["MA15"][14], 8);
    EXPECT_EQ(arrays["MA15"][19], 13);
    EXPECT_EQ(arrays["MA30"][19], nullptr);
    EXPECT_EQ(arrays["PercentChange"][0], nullptr);
    // From 3 to 4, with fifteen digits.
    EXPECT_EQ(arrays["PercentChange"][3], 33.3333333333333);
    EXPECT_EQ(line["scalars"]["MaxVolume"], 100);
}

}  // namespace
}  // namespace brantlow
