#include "selector/value_slots.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "scene.h"
#include "selector/evaluation.h"

namespace brantlow {
namespace {

struct SlotCase {
    std::size_t slot;
    const char* label;
    const char* values;  // a situation in which the slot's value is 50
};

constexpr SlotCase kSlots[] = {
    {1, "Volume/Average Volume > X", "Volume=500 AverageVolume=10"},
    {2, "LR 15 Slope (%/yr) > X", "MLRSlope15=0.5 ClosePrice@15=240"},
    {3, "LR 30 Slope (%/yr) > X", "MLRSlope30=0.5 ClosePrice@30=240"},
    {4, "LR 60 Slope (%/yr) > X", "MLRSlope60=0.5 ClosePrice@60=240"},
    {5, "LR 90 Slope (%/yr) > X", "MLRSlope90=0.5 ClosePrice@90=240"},
    {6, "LR 120 Slope (%/yr) > X", "MLRSlope120=0.5 ClosePrice@120=240"},
    {7, "LR 15 Slope (%/yr) < X", "MLRSlope15=0.5 ClosePrice@15=240"},
    {8, "LR 30 Slope (%/yr) < X", "MLRSlope30=0.5 ClosePrice@30=240"},
    {9, "LR 60 Slope (%/yr) < X", "MLRSlope60=0.5 ClosePrice@60=240"},
    {10, "LR 90 Slope (%/yr) < X", "MLRSlope90=0.5 ClosePrice@90=240"},
    {11, "LR 120 Slope (%/yr) < X", "MLRSlope120=0.5 ClosePrice@120=240"},
    {12, "LR Slope (%/yr) > X", "LRSlope=0.5 ClosePrice#1=240"},
    {13, "LR Slope (%/yr) < X", "LRSlope=0.5 ClosePrice#1=240"},
    {14, "% Change > X", "PercentChange=50"},
    {15, "% Change < X", "PercentChange=50"},
    {16, "% Div. Yield > X", "DividendPerShare=4 ClosePrice=8"},
    {17, "P/E > X", "PERatio=50"},
    {18, "P/E < X", "PERatio=50"},
    {19, "P/S > X", "PriceToSales=50"},
    {20, "P/S < X", "PriceToSales=50"},
    {21, "EPS ttm > X", "EPSttm=50"},
    {22, "EPS ttm < X", "EPSttm=50"},
    {23, "EPS est > X", "EPSest=50"},
    {24, "EPS est < X", "EPSest=50"},
    {25, "PEG > X", "PEGRatio=50"},
    {26, "PEG < X", "PEGRatio=50"},
    {27, "SPS > X", "SalesPerShare=50"},
    {28, "SPS < X", "SalesPerShare=50"},
    {29, "E/S > X", "EarningsPerSales=50"},
    {30, "E/S < X", "EarningsPerSales=50"},
    {31, "Earnings Change est (%/yr) > X", "EPSest=6 EPSttm=4"},
    {32, "Earnings Change est (%/yr) < X", "EPSest=6 EPSttm=4"},
    {33, "Earnings Change est (%/5 yr) > X", "ClosePrice=10 EPSest=2 PERatio=9 PEGRatio=2"},
    {34, "Earnings Change est (%/5 yr) < X", "ClosePrice=10 EPSest=2 PERatio=9 PEGRatio=2"},
    {35, "MLR 30 Slope (%/yr) > X", "MLRDer30=0.5 ClosePrice=240"},
    {36, "MLR 60 Slope (%/yr) > X", "MLRDer60=0.5 ClosePrice=240"},
    {37, "MLR 30 Slope (%/yr) < X", "MLRDer30=0.5 ClosePrice=240"},
    {38, "MLR 60 Slope (%/yr) < X", "MLRDer60=0.5 ClosePrice=240"},
};

bool IsUpper(const SlotCase& row) {
    return std::string_view(row.label).ends_with("< X");
}

// What a condition says whose slot holds this text and that has nothing else.
std::string Verdict(std::size_t slot, std::string_view x, const Scene& scene) {
    SettingsTables settings;
    const auto add = [&](std::string_view line) {
        settings.SelectorSettings.Set(++settings.SelectorLineCount, Value::OfText(line));
    };
    for (const std::string_view line : {"Condition", "Buy", "Value"}) add(line);
    for (std::size_t i = 1; i <= std::max(slot, kSlotCount); ++i) add(i == slot ? x : "");
    ConditionResults results;
    EvaluateConditions(settings, scene.Get(), results);
    return results.ConditionResult[1];
}

TEST(ValueSlots, CompareInclusivelyWithTheirNumber) {
    Scene scene(200);
    for (const SlotCase& row : kSlots) {
        scene.Show(row.values);
        EXPECT_EQ(Verdict(row.slot, "50", scene), "True") << row.label;
        EXPECT_EQ(Verdict(row.slot, "49.999", scene), IsUpper(row) ? "False" : "True") << row.label;
        EXPECT_EQ(Verdict(row.slot, "50.001", scene), IsUpper(row) ? "True" : "False") << row.label;
    }
    EXPECT_EQ(std::size(kSlots), kSlotCount);
}

TEST(ValueSlots, HaveTheirLabels) {
    for (const SlotCase& row : kSlots) EXPECT_EQ(ValueSlotLabel(row.slot), row.label);
    EXPECT_EQ(ValueSlotLabel(0), "");
    EXPECT_EQ(ValueSlotLabel(39), "");
}

TEST(ValueSlots, NumberZeroIsFilledAndEmptyIsNot) {
    Scene scene(200);
    for (const SlotCase& row : kSlots) {
        scene.Show(row.values);
        EXPECT_EQ(Verdict(row.slot, "0", scene), IsUpper(row) ? "False" : "True") << row.label;
        EXPECT_EQ(Verdict(row.slot, "", scene), "") << row.label;
    }
}

TEST(ValueSlots, ATextThatIsNoNumberCountsAsZero) {
    Scene scene(200);
    for (const auto& [value, verdict] : {std::pair{"PERatio=0", "True"}, std::pair{"PERatio=0.1", "True"},
                                         std::pair{"PERatio=-0.1", "False"}}) {
        scene.Show(value);
        EXPECT_EQ(Verdict(17, "abc", scene), verdict) << value;
        EXPECT_EQ(Verdict(17, " ", scene), verdict) << value;
    }
}

TEST(ValueSlots, ANumberTakesItsFront) {
    Scene scene(200);
    scene.Show("PERatio=12");
    EXPECT_EQ(Verdict(17, "12%", scene), "True");
    EXPECT_EQ(Verdict(17, "+12.5", scene), "False");
    EXPECT_EQ(Verdict(18, "-12", scene), "False");
}

TEST(ValueSlots, PriceChangeIsComparedAsItsTextReads) {
    Scene scene(200);
    scene.Mutable().indicators.PercentChange.Set(200, (31.0 - 20) / 20 * 100);
    ASSERT_GT(scene.Get().indicators.PercentChange[200], 55);
    EXPECT_EQ(Verdict(15, "55", scene), "True");
    EXPECT_EQ(Verdict(14, "55", scene), "True");
    EXPECT_EQ(Verdict(14, "55.00000000000001", scene), "False");
}

TEST(ValueSlots, OutsideTheirRangeTestNothing) {
    Scene scene(200);
    for (const std::size_t slot : {0U, 39U, 40U, 1000U}) {
        EXPECT_EQ(Verdict(slot, "1", scene), "") << slot;
        EXPECT_EQ(RunValueSlot(slot, 1, scene.Get(), scene.Bar()), TestState::Undecided) << slot;
    }
}

TEST(ValueSlots, WithAnUnmetPreconditionAreSkipped) {
    Scene scene(200);
    struct Row {
        std::size_t slot;
        const char* values;
    };
    constexpr Row kRows[] = {{1, "Volume=500 AverageVolume=0"},
                             {31, "EPSest=6 EPSttm=0"},
                             {32, "EPSest=6 EPSttm=0"},
                             {33, "ClosePrice=10 EPSest=0 PERatio=9 PEGRatio=2"},
                             {33, "ClosePrice=10 EPSest=2 PERatio=9 PEGRatio=0"},
                             {34, "ClosePrice=10 EPSest=0 PERatio=9 PEGRatio=2"},
                             {34, "ClosePrice=10 EPSest=2 PERatio=9 PEGRatio=0"}};
    for (const Row& row : kRows) {
        scene.Show(row.values);
        EXPECT_EQ(Verdict(row.slot, "-1000", scene), "") << row.slot << ": " << row.values;
        EXPECT_EQ(Verdict(row.slot, "1000", scene), "") << row.slot << ": " << row.values;
    }
}

TEST(ValueSlots, ADivisionByAZeroClosePasses) {
    Scene scene(200);
    struct Row {
        std::size_t slot;
        const char* values;
        const char* x;  // a number that the slot would miss with any sane close
    };
    constexpr Row kRows[] = {
        {2, "MLRSlope15=1", "1e300"},        {6, "MLRSlope120=1", "1e300"}, {7, "MLRSlope15=1", "-1e300"},
        {11, "MLRSlope120=1", "-1e300"},     {12, "LRSlope=1", "1e300"},    {13, "LRSlope=1", "-1e300"},
        {16, "DividendPerShare=1", "1e300"}, {35, "MLRDer30=1", "1e300"},   {36, "MLRDer60=1", "1e300"},
        {37, "MLRDer30=1", "-1e300"},        {38, "MLRDer60=1", "-1e300"}};
    for (const Row& row : kRows) {
        scene.Show(row.values);
        EXPECT_EQ(Verdict(row.slot, row.x, scene), "True") << row.slot;
    }
}

struct LookBack {
    std::size_t slot;
    std::size_t length;
    const char* missed;  // a number that the slot's value, 0, misses
};

constexpr LookBack kLookBacks[] = {{2, 15, "9"},   {3, 30, "9"},   {4, 60, "9"},  {5, 90, "9"},
                                   {6, 120, "9"},  {7, 15, "-9"},  {8, 30, "-9"}, {9, 60, "-9"},
                                   {10, 90, "-9"}, {11, 120, "-9"}};

TEST(ValueSlots, ALookBackBeforeTheArraysPassesAndAtElement0IsFalse) {
    Scene scene;
    for (const LookBack& row : kLookBacks) {
        scene.SetBar(row.length - 1);
        EXPECT_EQ(Verdict(row.slot, row.missed, scene), "True") << row.slot;
        scene.SetBar(row.length);
        EXPECT_EQ(Verdict(row.slot, "0", scene), "False") << row.slot;
        scene.Show("ClosePrice#0=100");
        EXPECT_EQ(Verdict(row.slot, "0", scene), "False") << row.slot;
        scene.SetBar(row.length + 1);
        scene.Show("ClosePrice#1=100");
        EXPECT_EQ(Verdict(row.slot, "0", scene), "True") << row.slot;
        EXPECT_EQ(Verdict(row.slot, row.missed, scene), "False") << row.slot;
        scene.Clear();
    }
}

TEST(ValueSlots, DerivativeSlopesAreFalseUpToTheirLength) {
    Scene scene;
    for (const auto& [slot, length] :
         {std::pair{35U, 30U}, std::pair{36U, 60U}, std::pair{37U, 30U}, std::pair{38U, 60U}}) {
        for (const std::size_t bar : {std::size_t{16}, std::size_t{length}}) {
            scene.Clear();
            scene.SetBar(bar);
            scene.Put("ClosePrice=100");
            EXPECT_EQ(Verdict(slot, "0", scene), "False") << slot;
            scene.Show("ClosePrice=0");
            EXPECT_EQ(Verdict(slot, "0", scene), "True") << slot << " with a close of 0";
        }
        scene.SetBar(length + 1);
        scene.Show("ClosePrice=100");
        EXPECT_EQ(Verdict(slot, "0", scene), "True") << slot;
    }
}

TEST(ValueSlots, AWeeklyRunOf50BarsPassesSlot4AndFailsSlot36WhateverTheNumber) {
    Scene scene(50);
    scene.Show("ClosePrice=10 MLRSlope60=-5 MLRDer60=5");
    for (const char* x : {"-1e9", "0", "1e9"}) {
        EXPECT_EQ(Verdict(4, x, scene), "True") << x;
        EXPECT_EQ(Verdict(36, x, scene), "False") << x;
    }
}

TEST(ValueSlots, TheWindowSlopeIsTakenOverTheFirstClose) {
    Scene scene(200);
    scene.Show("LRSlope=0.5 ClosePrice#1=240 ClosePrice=1 ClosePrice@199=240");
    EXPECT_EQ(RunValueSlot(12, 50, scene.Get(), 100), TestState::True);
    EXPECT_EQ(RunValueSlot(12, 50.1, scene.Get(), 100), TestState::False);
}

TEST(ValueSlots, ABarOutsideTheArraysPasses) {
    Scene scene(200);
    EXPECT_EQ(RunValueSlot(17, 5, scene.Get(), kMostRows), TestState::False);
    EXPECT_EQ(RunValueSlot(17, 5, scene.Get(), kMostRows + 1), TestState::True);
}

}  // namespace
}  // namespace brantlow
