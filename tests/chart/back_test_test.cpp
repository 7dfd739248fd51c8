#include "chart/back_test.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>

#include "signal_settings.h"

namespace brantlow {
namespace {

using ::testing::ElementsAre;

class BackTestReplay : public ::testing::Test {
  protected:
    // Bars 1 to `count` at one close, with both sides "False" everywhere.
    void SetBars(std::size_t count, double close) {
        series->BarCount = series->LastBar = count;
        for (std::size_t i = 1; i <= count; ++i) {
            series->ClosePrice.Set(i, close);
            session.BuySignal.Set(i, "False");
            session.SellSignal.Set(i, "False");
        }
    }
    void Buy(std::size_t bar) { session.BuySignal.Set(bar, "True"); }
    void Sell(std::size_t bar) { session.SellSignal.Set(bar, "True"); }

    BackTest Run() const { return RunBackTest(*series, session); }
    std::map<std::string, std::string> Texts() const {
        std::map<std::string, std::string> texts;
        for (const BackTestLabel& label : BackTestLabels(Run(), settings))
            texts.emplace(label.control, label.text);
        return texts;
    }

    std::unique_ptr<WorkingSeries> series = std::make_unique<WorkingSeries>();
    ChartSession session;
    SettingsTables settings = SignalSettings({}, "Condition 4", "Condition 7");
};

TEST_F(BackTestReplay, WorksTheExampleOfOnePurchaseAndOneSale) {
    SetBars(60, 13);
    Buy(40);
    series->ClosePrice.Set(41, 10);
    Sell(50);
    series->ClosePrice.Set(51, 12);
    const BackTest test = Run();
    EXPECT_EQ(test.SharesBought, 1000);
    EXPECT_DOUBLE_EQ(test.BuyCost, 10050);
    EXPECT_EQ(test.SharesSold, 1000);
    EXPECT_DOUBLE_EQ(test.SellValue, 11940);
    EXPECT_EQ(test.HeldValue, 0);
    EXPECT_NEAR(test.Profit, 1890, 1e-9);
    const std::map<std::string, std::string> expected = {
        {"Label4", "1000"},         {"Label6", "$10050.00"}, {"Label7", "1000"},
        {"Label9", "$11940.00"},    {"Label10", "0"},        {"Label12", "$.00"},
        {"Label14", "18.8 %"},      {"Label16", "$1890.00"}, {"Label18", "Condition 4"},
        {"Label20", "Condition 7"},
    };
    EXPECT_EQ(Texts(), expected);
}

TEST_F(BackTestReplay, AnOpenPositionIsHeldAtTheNewestCloseWithoutCommission) {
    SetBars(60, 10);
    Buy(40);
    series->ClosePrice.Set(60, 12.5);
    const BackTest test = Run();
    EXPECT_EQ(test.SellValue, 0);
    EXPECT_DOUBLE_EQ(test.HeldValue, 12500);
    EXPECT_NEAR(test.Profit, 2450, 1e-9);
    auto texts = Texts();
    EXPECT_EQ(texts["Label7"], "0");
    EXPECT_EQ(texts["Label9"], "");
    EXPECT_EQ(texts["Label10"], "1000");
    EXPECT_EQ(texts["Label12"], "$12500.00");
    EXPECT_EQ(texts["Label14"], "24.4 %");
}

TEST_F(BackTestReplay, AFirstSellIsIgnored) {
    SetBars(60, 10);
    Sell(20);
    EXPECT_TRUE(Run().trades.empty());
    Buy(30);
    EXPECT_EQ(Run().SharesBought, 1000);
    EXPECT_EQ(Run().SharesSold, 0);
}

TEST_F(BackTestReplay, BothSidesTrueOrNeitherTradesNothing) {
    SetBars(60, 10);
    Buy(40);
    Sell(40);
    EXPECT_TRUE(Run().trades.empty());
    // A dark side is not "False": nothing trades against it.
    session.SellSignal.Set(40, "");
    EXPECT_TRUE(Run().trades.empty());
}

TEST_F(BackTestReplay, TheSidesTakeTurns) {
    SetBars(60, 10);
    for (const std::size_t bar : {35u, 36u, 37u, 50u}) Buy(bar);
    for (const std::size_t bar : {42u, 43u, 55u}) Sell(bar);
    std::vector<std::size_t> bars;
    std::vector<std::string_view> actions;
    for (const BackTestTrade& trade : Run().trades) {
        bars.push_back(trade.signalBar);
        actions.push_back(trade.action);
    }
    EXPECT_THAT(bars, ElementsAre(35u, 42u, 50u, 55u));
    EXPECT_THAT(actions, ElementsAre("Buy", "Sell", "Buy", "Sell"));
    EXPECT_EQ(Run().SharesBought, 2000);
}

TEST_F(BackTestReplay, TheFirst29BarsTradeAsWell) {
    SetBars(60, 10);
    Buy(1);
    Sell(2);
    EXPECT_EQ(Run().SharesBought, 1000);
    EXPECT_EQ(Run().SharesSold, 1000);
}

TEST_F(BackTestReplay, ASignalOnTheNewestBarMovesSharesAndNoMoney) {
    SetBars(60, 10);
    Buy(60);
    // What an earlier, longer ticker left behind the newest bar.
    series->ClosePrice.Set(61, 99);
    const BackTest test = Run();
    EXPECT_EQ(test.SharesBought, 1000);
    EXPECT_EQ(test.BuyCost, 0);
    EXPECT_DOUBLE_EQ(test.HeldValue, 10000);
    EXPECT_DOUBLE_EQ(test.Profit, 10000);
    EXPECT_EQ(test.trades.at(0).price, 0);
    auto texts = Texts();
    EXPECT_EQ(texts["Label6"], "$.00");
    // A return on nothing spent cannot be computed, yet there was a trade.
    EXPECT_EQ(texts["Label14"], "");
}

TEST_F(BackTestReplay, AveragesAreThoseOfALotAndSoIsTheBaseOfTheReturn) {
    SetBars(100, 10);
    Buy(40);
    series->ClosePrice.Set(41, 10);
    Sell(50);
    series->ClosePrice.Set(51, 12);
    Buy(60);
    series->ClosePrice.Set(61, 20);
    Sell(70);
    series->ClosePrice.Set(71, 30);
    auto texts = Texts();
    // 10050 and 20100 were paid, 11940 and 29850 received.
    EXPECT_EQ(texts["Label4"], "2000");
    EXPECT_EQ(texts["Label6"], "$15075.00");
    EXPECT_EQ(texts["Label9"], "$20895.00");
    EXPECT_EQ(texts["Label16"], "$11640.00");
    // 11640 over one average lot, not over the 30150 spent.
    EXPECT_EQ(texts["Label14"], "77.2 %");
}

TEST_F(BackTestReplay, NoTradeLeavesTheAveragesEmptyAndSaysSo) {
    SetBars(60, 10);
    const std::map<std::string, std::string> expected = {
        {"Label4", "0"},
        {"Label6", ""},
        {"Label7", "0"},
        {"Label9", ""},
        {"Label10", "0"},
        {"Label12", "$.00"},
        {"Label14", "No trades in this window."},
        {"Label16", "$.00"},
        {"Label18", "Condition 4"},
        {"Label20", "Condition 7"},
    };
    EXPECT_EQ(Texts(), expected);
    series->BarCount = 0;
    EXPECT_EQ(Texts(), expected);
}

TEST_F(BackTestReplay, MoneyShowsNoLeadingZeroAndItsSignInFront) {
    SetBars(60, 0.0005);
    Buy(59);
    auto texts = Texts();
    // 1000 shares at 0.0005, bought for 0.5025.
    EXPECT_EQ(texts["Label12"], "$.50");
    EXPECT_EQ(texts["Label6"], "$.50");
    EXPECT_EQ(texts["Label16"], "$.00");
    EXPECT_EQ(texts["Label14"], "-.5 %");
    SetBars(60, 1);
    Buy(40);
    EXPECT_EQ(Texts()["Label16"], "-$5.00");
    series->ClosePrice.Set(60, -2);
    EXPECT_EQ(Texts()["Label12"], "-$2000.00");
}

TEST_F(BackTestReplay, PricesBeyondADoubleDoNotTurnATradeIntoNone) {
    SetBars(60, 1e308);
    Buy(40);
    auto texts = Texts();
    EXPECT_EQ(texts["Label4"], "1000");
    EXPECT_EQ(texts["Label6"], "");
    EXPECT_EQ(texts["Label14"], "");
}

TEST_F(BackTestReplay, ATradeTellsItsPriceAndAmount) {
    SetBars(60, 13);
    Buy(40);
    series->ClosePrice.Set(41, 10);
    Sell(50);
    series->ClosePrice.Set(51, 12);
    const std::vector<BackTestTrade> trades = Run().trades;
    ASSERT_EQ(trades.size(), 2u);
    EXPECT_EQ(trades[0].price, 10);
    EXPECT_DOUBLE_EQ(trades[0].amount, 10050);
    EXPECT_EQ(trades[1].price, 12);
    EXPECT_DOUBLE_EQ(trades[1].amount, 11940);
}

TEST(BackTestGuard, AsksForBothConditions) {
    constexpr std::string_view kSentence =
        "First, you must select Buy and Sell Conditions. Select Settings, Application, and Graphics Display "
        "Settings tab.";
    EXPECT_EQ(RefuseBackTest(SignalSettings({}, "None", "None")), kSentence);
    EXPECT_EQ(RefuseBackTest(SignalSettings({}, "Condition 1", "None")), kSentence);
    EXPECT_EQ(RefuseBackTest(SignalSettings({}, "None", "Condition 2")), kSentence);
    EXPECT_EQ(RefuseBackTest(SettingsTables{}), kSentence);
    // An empty line counts as "None".
    EXPECT_EQ(RefuseBackTest(SignalSettings({}, "", "Condition 2")), kSentence);
    EXPECT_EQ(RefuseBackTest(SignalSettings({}, "Condition 1", "")), kSentence);
    EXPECT_EQ(RefuseBackTest(SignalSettings({}, "Condition 1", "Condition 2")), std::nullopt);
}

}  // namespace
}  // namespace brantlow
