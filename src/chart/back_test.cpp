#include "chart/back_test.h"

#include <utility>

#include "base/numbers.h"
#include "chart/signals.h"
#include "selector/test_state.h"

namespace brantlow {

namespace {

constexpr double kLot = 1000;
constexpr double kPercent = 100;

constexpr std::string_view kPercentPicture = "#.0";
constexpr std::string_view kNoTrades = "No trades in this window.";

// What a trade of a side adds to. The factor is the commission, half a percent of the lot.
struct TradeSide {
    SignalSide side;
    double factor;
    double BackTest::*shares;
    double BackTest::*money;
};
constexpr TradeSide kPurchase = {kBuySide, 1.005, &BackTest::SharesBought, &BackTest::BuyCost};
constexpr TradeSide kSale = {kSellSide, 0.995, &BackTest::SharesSold, &BackTest::SellValue};

// Past the newest bar there is no close yet, whatever an earlier ticker left there.
double CloseAt(const WorkingSeries& series, std::size_t bar) {
    return bar <= series.BarCount ? series.ClosePrice[bar] : 0;
}

class Replay {
  public:
    explicit Replay(const WorkingSeries& series) : series_(series) {}

    void Take(std::size_t bar, std::string_view buy, std::string_view sell) {
        if (buy == kTrue && sell == kFalse) Trade(kPurchase, bar);
        if (sell == kTrue && buy == kFalse) Trade(kSale, bar);
    }

    BackTest Result() {
        test_.HeldValue = series_.ClosePrice[series_.BarCount] * (test_.SharesBought - test_.SharesSold);
        test_.Profit = test_.HeldValue + test_.SellValue - test_.BuyCost;
        return std::move(test_);
    }

  private:
    static constexpr std::string_view kTrue = Word(TestState::True);
    static constexpr std::string_view kFalse = Word(TestState::False);

    void Trade(const TradeSide& trade, std::size_t bar) {
        if (Position_ == trade.side.action) return;
        Position_ = trade.side.action;
        const double price = CloseAt(series_, bar + 1);
        const double amount = price * kLot * trade.factor;
        test_.*trade.shares += kLot;
        test_.*trade.money += amount;
        test_.trades.push_back({trade.side.action, bar, price, amount});
    }

    const WorkingSeries& series_;
    BackTest test_;
    std::string_view Position_ = kSellSide.action;
};

// Of one lot; nothing where no share was traded.
std::optional<double> LotAverage(double money, double shares) {
    return Divide(kLot * money, shares);
}

std::string MoneyText(std::optional<double> amount) {
    return amount ? FormatPicture(kMoneyPicture, *amount) : std::string();
}

std::string ReturnText(const BackTest& test) {
    if (test.SharesBought == 0) return std::string(kNoTrades);
    const std::optional<double> lotCost = LotAverage(test.BuyCost, test.SharesBought);
    const std::optional<double> percent = Divide(kPercent * test.Profit, lotCost.value_or(0));
    return percent ? FormatPicture(kPercentPicture, *percent) + " %" : std::string();
}

}  // namespace

std::optional<std::string_view> RefuseBackTest(const SettingsTables& settings) {
    if (HasBothConditions(settings)) return std::nullopt;
    return "First, you must select Buy and Sell Conditions. Select Settings, Application, and Graphics "
           "Display Settings tab.";
}

BackTest RunBackTest(const WorkingSeries& series, const ChartSession& session) {
    Replay replay(series);
    for (std::size_t bar = 1; bar <= series.BarCount; ++bar)
        replay.Take(bar, session.BuySignal[bar], session.SellSignal[bar]);
    return replay.Result();
}

std::vector<BackTestLabel> BackTestLabels(const BackTest& test, const SettingsTables& settings) {
    return {
        {"Label4", ShortestNumber(test.SharesBought)},
        {"Label6", MoneyText(LotAverage(test.BuyCost, test.SharesBought))},
        {"Label7", ShortestNumber(test.SharesSold)},
        {"Label9", MoneyText(LotAverage(test.SellValue, test.SharesSold))},
        {"Label10", ShortestNumber(test.SharesBought - test.SharesSold)},
        {"Label12", MoneyText(test.HeldValue)},
        {"Label14", ReturnText(test)},
        {"Label16", MoneyText(test.Profit)},
        {"Label18", Get(settings, kBuySide.setting)},
        {"Label20", Get(settings, kSellSide.setting)},
    };
}

}  // namespace brantlow
