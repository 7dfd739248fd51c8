#include "chart/signals.h"

#include <gtest/gtest.h>

#include <memory>

#include "selector/catalogue.h"
#include "selector/evaluation.h"
#include "signal_settings.h"

namespace brantlow {
namespace {

constexpr const char* kAboveLine = "Close Price Above LR Price";
constexpr const char* kBelowLine = "Close Price Below LR Price";
constexpr const char* kAbove15 = "Close Price Above MA 15";
constexpr const char* kAbove180 = "Close Price Above MA 180";

// An analysis to fill by hand: every element that a test does not set is 0.
class SignalOverlay : public ::testing::Test {
  protected:
    void SetBars(std::size_t count) { analysis->series.BarCount = analysis->series.LastBar = count; }
    void SetCloses(const std::vector<double>& closes) {
        SetBars(closes.size());
        for (std::size_t i = 0; i < closes.size(); ++i) analysis->series.ClosePrice.Set(i + 1, closes[i]);
    }

    // One letter a bar: T, F or "-" for empty.
    static std::string Shape(const TextSeries& signal, std::size_t bars) {
        std::string shape;
        for (std::size_t i = 1; i <= bars; ++i) {
            if (signal[i] == "True") shape += 'T';
            if (signal[i] == "False") shape += 'F';
            if (signal[i].empty()) shape += '-';
        }
        return shape;
    }
    std::string Buy(const Lines& lines, const std::string& chosen = "Condition 1") {
        ComputeBuySignals(SignalSettings(lines, chosen, "None"), *analysis, session);
        return Shape(session.BuySignal, analysis->series.BarCount);
    }
    std::string Sell(const Lines& lines, const std::string& chosen = "Condition 1") {
        ComputeSellSignals(SignalSettings(lines, "None", chosen), *analysis, session);
        return Shape(session.SellSignal, analysis->series.BarCount);
    }
    std::string SelectorResult(const Lines& lines) const {
        ConditionResults results;
        EvaluateConditions(SignalSettings(lines, "None", "None"), *analysis, results);
        return results.ConditionResult[1];
    }

    std::unique_ptr<Analysis> analysis = std::make_unique<Analysis>();
    ChartSession session;
};

TEST_F(SignalOverlay, TellsEveryBarWhereTheSelectorTellsTheNewest) {
    SetCloses({1, -1, 0, 2, -2});
    EXPECT_EQ(Buy(Block("Buy", {kAboveLine})), "TFFTF");
    EXPECT_EQ(SelectorResult(Block("Buy", {kAboveLine})), "False");
}

TEST_F(SignalOverlay, NamesAndValueSlotsGiveTheSameKindOfSeries) {
    SetBars(4);
    for (std::size_t i = 1; i <= 4; ++i) {
        analysis->series.PERatio.Set(i, static_cast<double>(i));
        analysis->series.ClosePrice.Set(i, static_cast<double>(i) - 2.5);
    }
    EXPECT_EQ(Buy(Block("Buy", {kAboveLine})), "FFTT");
    EXPECT_EQ(Buy(Block("Buy", {}, Slot(17, "3"))), "FFTT");
    EXPECT_EQ(Buy(Block("Buy", {}, Slot(18, "3"))), "TTTF");
    EXPECT_EQ(Buy(Block("Buy", {kAboveLine}, Slot(18, "3"))), "FFTF");
}

TEST_F(SignalOverlay, AnEmptyValueLineUsesUpItsSlotNumber) {
    SetBars(4);
    analysis->series.PERatio.Set(1, 5);
    analysis->series.PERatio.Set(2, 15);
    Lines slots(17);
    slots[16] = "10";
    // Were the sixteen empty lines not counted, this would be slot 1, which compares volumes.
    EXPECT_EQ(Buy(Lines{"Condition", "Buy", "Value"} + slots), "FTFF");
    EXPECT_EQ(Buy(Lines{"Condition", "Buy", "Value"} + Lines(38)), "----");
}

TEST_F(SignalOverlay, ANameGuardedBy180LeavesBars1To180False) {
    SetCloses(std::vector<double>(183, 7));
    EXPECT_EQ(Buy(Block("Buy", {kAbove180})), std::string(180, 'F') + "TTT");
    SetBars(150);
    EXPECT_EQ(Buy(Block("Buy", {kAbove180})), std::string(150, 'F'));
}

TEST_F(SignalOverlay, WithBothSidesOnOneBlockItsActionDecidesWhichIsLit) {
    SetCloses({1, -1, 1, -1});
    EXPECT_EQ(Buy(Block("Buy", {kAboveLine})), "TFTF");
    EXPECT_EQ(Sell(Block("Buy", {kAboveLine})), "----");
    EXPECT_EQ(Buy(Block("Sell", {kAboveLine})), "----");
    EXPECT_EQ(Sell(Block("Sell", {kAboveLine})), "TFTF");
    EXPECT_EQ(Buy(Block("Hold", {kAboveLine})), "----");
    EXPECT_EQ(Sell(Block("Hold", {kAboveLine})), "----");
}

TEST_F(SignalOverlay, ATestThatIsTrueOnEveryBarIsTrueOnEveryBar) {
    SetCloses(std::vector<double>(40, 1));
    EXPECT_EQ(Buy(Block("Buy", {kAboveLine})), std::string(40, 'T'));
}

TEST_F(SignalOverlay, LooksAtTheChosenBlockOnly) {
    SetCloses({1, -1, 1, -1});
    Lines ten;
    for (int i = 1; i <= 9; ++i) ten = ten + Block("Buy", {kBelowLine});
    ten = ten + Block("Buy", {kAboveLine});
    EXPECT_EQ(Buy(ten, "Condition 10"), "TFTF");
    EXPECT_EQ(Buy(ten, "Condition 1"), "FTFT");
    EXPECT_EQ(Buy(ten, "Condition 11"), "----");
    for (const char* unknown : {"", "condition 1", "Condition 01", "Condition  1", "Condition", "1"})
        EXPECT_EQ(Buy(ten, unknown), "----") << unknown;
}

TEST_F(SignalOverlay, ABlockWithoutItsActionLineStaysDark) {
    SetCloses({1, 1, 1, 1});
    // In the selector's walk the slots of the block before would go on into the second one.
    EXPECT_EQ(Buy(Block("Buy", {kAboveLine}, {"1"}) + Lines{"Condition", kAboveLine}, "Condition 2"), "----");
    EXPECT_EQ(Buy({"Condition"}), "----");
    EXPECT_EQ(Buy({}), "----");
    EXPECT_EQ(Buy({"Buy", kAboveLine}), "----");
}

TEST_F(SignalOverlay, ATestThatCannotBeRunIsFalseWhereTheSelectorSkipsIt) {
    SetCloses(std::vector<double>(20, 3));
    const Lines guarded = Block("Buy", {kAboveLine, kAbove180});
    EXPECT_EQ(SelectorResult(guarded), "True");
    EXPECT_EQ(Buy(guarded), std::string(20, 'F'));
    const Lines unknown = Block("Buy", {kAboveLine, "Close Price Broke Above LR LooseUCL"});
    EXPECT_EQ(SelectorResult(unknown), "True");
    EXPECT_EQ(Buy(unknown), std::string(20, 'F'));
    // The average volume is 0, so that slot 1 is not to be tested.
    const Lines slot = Block("Buy", {kAboveLine}, {"1"});
    EXPECT_EQ(SelectorResult(slot), "True");
    EXPECT_EQ(Buy(slot), std::string(20, 'F'));
    // The list of slots ends at 38.
    EXPECT_EQ(Buy(Block("Buy", {kAboveLine}) + Lines{"0"}), std::string(20, 'F'));
}

TEST_F(SignalOverlay, AFalseBarDoesNotEndTheBlock) {
    SetCloses({-1, 1, 1, -1});
    for (std::size_t i = 1; i <= 4; ++i) analysis->series.PERatio.Set(i, i % 2 == 0 ? 20 : 5);
    // The first line is False on bars 1 and 4, the second on bars 1 and 3; in either order.
    EXPECT_EQ(Buy(Block("Buy", {kAboveLine}, Slot(17, "10"))), "FTFF");
    EXPECT_EQ(Buy(Block("Buy", {kAboveLine, kAboveLine, kBelowLine})), "FFFF");
}

TEST_F(SignalOverlay, YesterdayIsTheBarBeforeTheOneUnderTest) {
    SetCloses(std::vector<double>(20, 5));
    for (std::size_t i = 1; i <= 20; ++i) analysis->indicators.MA15.Set(i, i == 18 || i == 17 ? 6 : 4);
    // Above on 16, below on 17 and 18, above again from 19 on.
    EXPECT_EQ(Buy(Block("Buy", {"Close Price Broke Above MA 15"})), std::string(18, 'F') + "TF");
    EXPECT_EQ(Buy(Block("Buy", {"Close Price Broke Below MA 15"})), std::string(16, 'F') + "TFFF");
}

TEST_F(SignalOverlay, ATenDaysNameLooksAtTheBarAndTheNineBeforeIt) {
    SetCloses(std::vector<double>(40, 5));
    for (std::size_t i = 1; i <= 40; ++i) analysis->indicators.MLR15.Set(i, i == 25 ? 4 : 6);
    EXPECT_EQ(Buy(Block("Buy", {"Close Price Above Loose MLR 15 UCL 10 Days"})),
              std::string(24, 'F') + std::string(10, 'T') + std::string(6, 'F'));
}

TEST_F(SignalOverlay, WholeWindowQuantitiesAreOneValueForAllBars) {
    SetBars(18);
    for (std::size_t i = 1; i <= 18; ++i) analysis->series.Volume.Set(i, static_cast<double>(i));
    analysis->indicators.VolumeTightUCL = 16.5;
    EXPECT_EQ(Buy(Block("Buy", {"Volume Above Tight UCL"})), std::string(16, 'F') + "TT");
}

TEST_F(SignalOverlay, ATestThatCannotBeComputedPasses) {
    SetCloses(std::vector<double>(17, 2));
    EXPECT_EQ(Buy(Block("Buy", {"Close Price Above LR Tight UCL"})), std::string(17, 'T'));
    // "LR 15 Slope (%/yr) > X": below bar 15 the look-back fails and passes, at bar 15 the guard decides.
    EXPECT_EQ(Buy(Block("Buy", {}, Slot(2, "1"))), std::string(14, 'T') + "FFF");
}

TEST_F(SignalOverlay, EachSideRebuildsItsOwnSeriesAndNoOther) {
    SetCloses({1, 1, 1, 1});
    session.SellSignal.Set(2, "True");
    session.BuySignal.Set(5, "True");
    EXPECT_EQ(Buy(Block("Buy", {kAboveLine})), "TTTT");
    EXPECT_EQ(session.SellSignal[2], "True");
    EXPECT_EQ(session.BuySignal[5], "True");
    EXPECT_EQ(session.BuySignal[0], "");
    EXPECT_EQ(Buy(Block("Sell", {kAboveLine})), "----");
    EXPECT_EQ(session.BuySignal[5], "True");
}

TEST_F(SignalOverlay, LinesAfterTheLastOneReadAreNotWalked) {
    SetCloses({1, 1, 1, 1});
    SettingsTables settings = SignalSettings({"Condition", "Buy", kAboveLine, kBelowLine}, "Condition 1", "");
    settings.SelectorLineCount = 3;
    ComputeBuySignals(settings, *analysis, session);
    EXPECT_EQ(Shape(session.BuySignal, 4), "TTTT");
}

TEST_F(SignalOverlay, WithoutBarsNothingIsWritten) {
    SetBars(0);
    EXPECT_EQ(Buy(Block("Buy", {kAboveLine})), "");
    EXPECT_EQ(session.BuySignal.State(1), ElementState::NeverWritten);
}

TEST_F(SignalOverlay, ThreeBarsAreNotTestedFourAre) {
    SetCloses({1, 1, 1});
    EXPECT_EQ(Buy(Block("Buy", {kAboveLine})), "---");
    SetCloses({1, 1, 1, 1});
    EXPECT_EQ(Buy(Block("Buy", {kAboveLine})), "TTTT");
}

// Every name, on a window of random bars: the overlay says True on a bar where the selector, with that bar as
// its newest one, says True, and False where it says False or nothing.
TEST_F(SignalOverlay, EveryNameAgreesWithTheSelectorAtTheNewestBar) {
    SetBars(200);
    unsigned dice = 12345;
    const auto roll = [&dice] { return (dice = dice * 1103515245u + 12345u) >> 16 & 0xff; };
    for (std::size_t i = 0; i <= 200; ++i) {
        for (NumberSeries* series :
             {&analysis->series.ClosePrice, &analysis->series.LowPrice, &analysis->series.HighPrice,
              &analysis->series.OpenPrice, &analysis->indicators.MA30, &analysis->indicators.MLR60,
              &analysis->indicators.MACD15, &analysis->indicators.RSI15})
            series->Set(i, roll());
    }
    for (const std::string_view name : ConditionNames()) {
        SetBars(200);
        Buy(Block("Buy", {std::string(name)}));
        for (const std::size_t bar : {1u, 2u, 15u, 16u, 31u, 95u, 181u, 200u}) {
            analysis->series.LastBar = bar;
            const bool holds = EvaluateName(name, *analysis) == TestState::True;
            EXPECT_EQ(session.BuySignal[bar], holds ? "True" : "False") << name << " at " << bar;
        }
    }
}

TEST(ChosenConditions, NoneAndAnEmptyOrMissingLineChooseNothing) {
    const SettingsTables settings = SignalSettings({}, "None", "Condition 3");
    EXPECT_FALSE(HasCondition(settings, kBuySide));
    EXPECT_TRUE(HasCondition(settings, kSellSide));
    EXPECT_FALSE(HasBothConditions(settings));
    EXPECT_FALSE(HasCondition(SettingsTables{}, kBuySide));
    const SettingsTables empty = SignalSettings({}, "", "");
    EXPECT_FALSE(HasCondition(empty, kBuySide));
    EXPECT_FALSE(HasCondition(empty, kSellSide));
    EXPECT_TRUE(HasBothConditions(SignalSettings({}, "Condition 1", "Condition 1")));
}

}  // namespace
}  // namespace brantlow
