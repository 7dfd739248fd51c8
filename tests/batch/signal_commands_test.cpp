#include <gmock/gmock.h>

#include <array>

#include "json_lines.h"
#include "shell/settings/condition_set.h"

namespace brantlow {
namespace {

using nlohmann::ordered_json;

constexpr std::size_t kPriceEarningsAbove = 17;
constexpr std::size_t kPriceEarningsBelow = 18;

// Tickers whose P/E ratio alone decides: buy from 20 up, sell down to 5.
class SignalCommands : public BatchTest {
  protected:
    void SetUp() override {
        ConditionSet set;
        set[0].action = "Buy";
        set[0].slots[kPriceEarningsAbove - 1] = "20";
        set[1].action = "Sell";
        set[1].slots[kPriceEarningsBelow - 1] = "5";
        Write("Data/VTRSELset.ini", FormatConditionSet(set));
        ChooseConditions("Condition 1", "Condition 2");
    }
    void ChooseConditions(const std::string& buy, const std::string& sell) const {
        std::string text = "\"Default\"\r\n\"Price\"\r\n";
        for (int variable = 0; variable < 6; ++variable) text += "\"MA 15\"\r\n";
        Write("Data/VTRGRAPHset.ini", text + "\"" + buy + "\"\r\n\"" + sell + "\"\r\n");
    }

    struct Bar {
        std::string close = "13";
        std::string priceEarnings = "10";
    };
    // Bars 1 up of the year 2026; the one record of the oldest year that a loader reads is what bar 1
    // overwrites.
    void WriteHistory(const std::string& ticker, const std::vector<Bar>& bars) const {
        const auto record = [](const Bar& bar) {
            return "\"01/02/26\",\"\"," + bar.close + "," + bar.close + "," + bar.close + ",100," +
                   bar.priceEarnings + ",0,0,0,0,\"\",\"\",0,0,0,0,0," + bar.close + "\r\n";
        };
        for (const char* oldest : {".06", ".23"}) Write("Quotes/EOD/" + ticker + oldest, record({}));
        std::string year;
        for (const Bar& bar : bars) year += record(bar);
        Write("Quotes/EOD/" + ticker + ".26", year);
    }
    // Buy on bar 40 and 10 on the next one, Sell on bar 50 and 12 on the next one, 13 otherwise.
    static std::vector<Bar> OneRoundTrip() {
        std::vector<Bar> bars(60);
        bars[40 - 1].priceEarnings = "30";
        bars[41 - 1].close = "10";
        bars[50 - 1].priceEarnings = "2";
        bars[51 - 1].close = "12";
        return bars;
    }

    std::vector<ordered_json> Lines(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--today", "2026-11-21"});
        return JsonLines(Call(arguments));
    }
    // A signal of `bars` elements that is "True" at one bar.
    static ordered_json TrueAt(std::size_t bar, std::size_t bars) {
        ordered_json signal = ordered_json::array();
        for (std::size_t i = 1; i <= bars; ++i) signal.push_back(i == bar ? "True" : "False");
        return signal;
    }
};

TEST_F(SignalCommands, SignalsTellsEveryBarOfBothSides) {
    WriteHistory("UP", OneRoundTrip());
    const ordered_json line = Lines({"signals", "UP"}).at(0);
    ordered_json expected = {{"ticker", "UP"}, {"interval", "daily"}, {"BarCount", 60}};
    expected["BuySignal"] = TrueAt(40, 60);
    expected["SellSignal"] = TrueAt(50, 60);
    EXPECT_EQ(line.dump(), expected.dump());
}

// A weekly bar is made of five days and takes its P/E ratio from the last, so bars 40 and 50 are weeks 8, 10.
TEST_F(SignalCommands, SignalsFoldsTheBarsOfTheInterval) {
    WriteHistory("UP", OneRoundTrip());
    const ordered_json weekly = Lines({"signals", "UP", "--interval", "weekly"}).at(0);
    EXPECT_EQ(weekly["interval"], "weekly");
    EXPECT_EQ(weekly["BarCount"], 12);
    EXPECT_EQ(weekly["BuySignal"], TrueAt(8, 12));
    EXPECT_EQ(weekly["SellSignal"], TrueAt(10, 12));
    const ordered_json monthly = Lines({"signals", "UP", "--interval", "monthly"}).at(0);
    EXPECT_EQ(monthly["BarCount"], 3);
    EXPECT_EQ(monthly["BuySignal"].dump(), R"(["","",""])");
}

TEST_F(SignalCommands, SignalsLeavesASideWithoutAConditionEmpty) {
    WriteHistory("UP", OneRoundTrip());
    ChooseConditions("None", "Condition 2");
    ordered_json line = Lines({"signals", "UP"}).at(0);
    EXPECT_EQ(line["BuySignal"], ordered_json::array());
    EXPECT_EQ(line["SellSignal"], TrueAt(50, 60));
    // The block's action is another one: all bars are dark.
    ChooseConditions("Condition 2", "None");
    line = Lines({"signals", "UP"}).at(0);
    EXPECT_EQ(line["BuySignal"].size(), 60u);
    EXPECT_EQ(line["BuySignal"][49], "");
    EXPECT_EQ(line["SellSignal"], ordered_json::array());
}

// The selector leaves windows of fifteen bars out, the chart does not.
TEST_F(SignalCommands, SignalsTakesShortHistories) {
    std::vector<Bar> bars(4);
    bars[2].priceEarnings = "25";
    WriteHistory("FOUR", bars);
    const auto lines = Lines({"signals", "FOUR", "NONE"});
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0]["BuySignal"], TrueAt(3, 4));
    EXPECT_EQ(lines[1].dump(),
              R"({"ticker":"NONE","interval":"daily","BarCount":0,"BuySignal":[],"SellSignal":[]})");
}

TEST_F(SignalCommands, BackTestWorksTheExampleOfOnePurchaseAndOneSale) {
    WriteHistory("UP", OneRoundTrip());
    const ordered_json line = Lines({"backtest", "UP"}).at(0);
    EXPECT_EQ(line["ticker"], "UP");
    EXPECT_EQ(line["BarCount"], 60);
    EXPECT_EQ(line["SharesBought"], 1000);
    EXPECT_EQ(line["SharesSold"], 1000);
    EXPECT_DOUBLE_EQ(line["BuyCost"], 10050);
    EXPECT_DOUBLE_EQ(line["SellValue"], 11940);
    EXPECT_EQ(line["HeldValue"], 0);
    EXPECT_NEAR(line["Profit"], 1890, 1e-9);
    EXPECT_EQ(line["labels"].dump(),
              R"({"Label4":"1000","Label6":"$10050.00","Label7":"1000","Label9":"$11940.00",)"
              R"("Label10":"0","Label12":"$.00","Label14":"18.8 %","Label16":"$1890.00",)"
              R"("Label18":"Condition 1","Label20":"Condition 2"})");
}

// A longer ticker before it must not lend its closes to the bar past the newest one.
TEST_F(SignalCommands, BackTestCountsNothingForASignalOnTheNewestBar) {
    WriteHistory("LONG", std::vector<Bar>(60, Bar{"99", "10"}));
    std::vector<Bar> bars(30);
    bars.back().priceEarnings = "30";
    WriteHistory("SHORT", bars);
    const ordered_json line = Lines({"backtest", "LONG", "SHORT"}).at(1);
    EXPECT_EQ(line["SharesBought"], 1000);
    EXPECT_EQ(line["BuyCost"], 0);
    EXPECT_EQ(line["HeldValue"], 13000);
}

TEST_F(SignalCommands, BackTestWithoutTradesSaysSo) {
    WriteHistory("FLAT", std::vector<Bar>(60));
    const auto lines = Lines({"backtest", "FLAT", "NONE"});
    ASSERT_EQ(lines.size(), 2u);
    for (const ordered_json& line : lines) {
        EXPECT_EQ(line["Profit"], 0);
        EXPECT_EQ(line["labels"]["Label6"], "");
        EXPECT_EQ(line["labels"]["Label9"], "");
        EXPECT_EQ(line["labels"]["Label14"], "No trades in this window.");
        EXPECT_EQ(line["labels"]["Label16"], "$.00");
    }
}

TEST_F(SignalCommands, BackTestIsRefusedWithoutBothConditions) {
    WriteHistory("UP", OneRoundTrip());
    const std::pair<const char*, const char*> choices[] = {
        {"None", "Condition 2"}, {"Condition 1", "None"}, {"None", "None"}};
    for (const auto& [buy, sell] : choices) {
        ChooseConditions(buy, sell);
        const auto before = Everything();
        const CallResult result = Call({"--today", "2026-11-21", "backtest", "UP"});
        EXPECT_EQ(result.status, ExitStatus::Refused);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err,
                  "First, you must select Buy and Sell Conditions. Select Settings, Application, and "
                  "Graphics Display Settings tab.\n");
        EXPECT_EQ(Everything(), before);
    }
}

TEST_F(SignalCommands, ATableIsReplayedTickerByTickerWithItsSumsAndTrades) {
    WriteHistory("ONE", OneRoundTrip());
    WriteHistory("NONE", std::vector<Bar>(60));
    Write("Data/Mine.ddq", "Ticker Symbol\tLast Price\r\nONE\r\nNONE\r\nONE\r\nEMPTY\r\n");
    const CallResult result = Call({"--today", "2026-11-21", "backtest", "Mine.ddq"});
    ASSERT_EQ(result.status, ExitStatus::Done) << result.err;
    // Bought at 10 with 0.5 %, sold at 12 without 0.5 %, once: the second ONE is the first. 10 times 1.005 is
    // not quite 10.05 in binary.
    EXPECT_EQ(
        result.out,
        R"({"file":"Mine.ddq","interval":"daily","tickers":3,"traded":1,"gained":1,"lost":0,)"
        R"("SharesBought":1000,"SharesSold":1000,"BuyCost":10049.999999999998,"SellValue":11940,"HeldValue":0,)"
        R"("Profit":1890.0000000000018,"trades":[)"
        R"({"ticker":"ONE","action":"Buy","date":"2026-01-02","price":10,"amount":10049.999999999998},)"
        R"({"ticker":"ONE","action":"Sell","date":"2026-01-02","price":12,"amount":11940}]})"
        "\n");
    EXPECT_EQ(Call({"backtest", "None.ddq"}).err, "None.ddq: no such file in Data\n");
}

}  // namespace
}  // namespace brantlow
