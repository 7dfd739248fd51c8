// What a window computes on demand is what the indicator pass leaves, bit for bit.
#include "selector/window_bars.h"

#include <gtest/gtest.h>

#include <bit>
#include <memory>
#include <random>

#include "indicators/analysis.h"

namespace brantlow {
namespace {

struct Bars {
    std::array<std::vector<double>, kNumberFields.size()> columns;
    WindowColumns View(std::size_t bars, std::size_t window) const {
        WindowColumns view{};
        for (std::size_t slot = 0; slot < columns.size(); ++slot)
            view[slot] = columns[slot].data() + kWindowMargin + (bars - window);
        return view;
    }
};

enum class Kind { Walk, Flat, Zeros, Steps, Huge };

Bars Make(Kind kind, std::size_t count, std::mt19937& dice) {
    std::uniform_real_distribution<double> step(-1.0, 1.02);
    Bars bars;
    for (auto& column : bars.columns) column.assign(count + 1 + 2 * kWindowMargin, 0.0);
    double close = 40;
    for (std::size_t i = 1; i <= count; ++i) {
        close = std::max(0.5, close + step(dice));
        double shown = std::round(close * 1000) / 1000;
        if (kind == Kind::Flat) shown = 7.25;
        if (kind == Kind::Zeros && dice() % 5 == 0) shown = 0;
        if (kind == Kind::Steps) shown = static_cast<double>(10 + i / 40);
        if (kind == Kind::Huge && dice() % 9 == 0) shown = 1e308;
        for (std::size_t slot = 0; slot < bars.columns.size(); ++slot)
            bars.columns[slot][kWindowMargin + i] = dice() % 7 == 0 ? 0 : step(dice) * 30;
        bars.columns[kCloseSlot][kWindowMargin + i] = shown;
        bars.columns[kLowSlot][kWindowMargin + i] = shown - (kind == Kind::Flat ? 0 : 0.25);
        bars.columns[kHighSlot][kWindowMargin + i] = shown + (kind == Kind::Flat ? 0 : 0.5);
        bars.columns[kVolumeSlot][kWindowMargin + i] =
            kind == Kind::Flat ? 100 : std::round(step(dice) * 1e6 + 2e6);
    }
    return bars;
}

// The same window loaded into a series of its own, whose first bar has no bar before it.
std::unique_ptr<Analysis> PassOver(const WindowColumns& view, std::size_t window) {
    auto analysis = std::make_unique<Analysis>();
    for (std::size_t slot = 0; slot < kNumberFields.size(); ++slot)
        for (std::size_t i = 1; i <= window; ++i)
            (analysis->series.*kNumberFields[slot].series).Set(i, view[slot][i]);
    analysis->series.BarCount = analysis->series.LastBar = window;
    ComputeIndicators(analysis->series, analysis->indicators);
    return analysis;
}

bool SameBits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) || (a == 0 && b == 0);
}

class EveryKind : public ::testing::TestWithParam<Kind> {};

TEST_P(EveryKind, EveryValueIsThatOfThePass) {
    std::mt19937 dice(7);
    const std::size_t count = 320;
    const Bars bars = Make(GetParam(), count, dice);
    WindowBars windows;
    for (const std::size_t newest : {320U, 319U, 300U, 279U, 278U, 200U, 181U, 123U, 100U, 61U, 33U, 20U}) {
        const std::size_t window = std::min<std::size_t>(newest, kDefaultWindow);
        const WindowColumns view = bars.View(newest, window);
        const auto analysis = PassOver(view, window);
        windows.Look(view, window);
        for (const NamedIndicator& row : kIndicatorArrays) {
            // The first bars of what looks at element 0 are not asked for.
            for (std::size_t bar = row.firstBar + 1; bar <= window; ++bar) {
                const double expected = (analysis->indicators.*row.array)[bar];
                ASSERT_TRUE(SameBits(windows.Computed(row.array, bar), expected))
                    << row.name << " bar " << bar << " of " << window << ": "
                    << windows.Computed(row.array, bar) << " and not " << expected;
            }
            for (std::size_t bar = 1; bar < row.firstBar && bar <= window; ++bar)
                ASSERT_EQ(windows.Computed(row.array, bar), 0) << row.name;
        }
        for (const IndicatorScalarName& row : kIndicatorScalarNames)
            ASSERT_TRUE(SameBits(windows.Scalar(row.value), analysis->indicators.*row.value)) << row.name;
        for (const NumberField& row : kNumberFields)
            ASSERT_EQ(windows.Stored(row.series, window), (analysis->series.*row.series)[window]);
    }
}

TEST(WindowBarsLeftovers, TellWhatTheWindowDoesNotSettle) {
    struct Case {
        Kind kind;
        IndicatorArray array;
        std::size_t bar;
        LookedAtLeftovers told;
    };
    constexpr Case kCases[] = {
        {Kind::Walk, &Indicators::MA180, 279, LookedAtLeftovers::None},
        {Kind::Walk, &Indicators::RSI15, 16, LookedAtLeftovers::None},
        {Kind::Walk, &Indicators::RSI15, 15, LookedAtLeftovers::ElementZero},
        {Kind::Walk, &Indicators::RSI30, 30, LookedAtLeftovers::ElementZero},
        {Kind::Walk, &Indicators::PercentChange, 1, LookedAtLeftovers::ElementZero},
        {Kind::Walk, &Indicators::MA15, 14, LookedAtLeftovers::None},  // nobody ever writes it
        {Kind::Walk, &Indicators::TightUCL120, 120, LookedAtLeftovers::None},
        {Kind::Flat, &Indicators::RSI15, 100, LookedAtLeftovers::Gaps},
        {Kind::Flat, &Indicators::Stochastic15, 100, LookedAtLeftovers::None},  // without a range it is 0
        {Kind::Flat, &Indicators::MACD15, 100, LookedAtLeftovers::Gaps},
    };
    std::mt19937 dice(11);
    for (const Case& row : kCases) {
        const Bars bars = Make(row.kind, 320, dice);
        WindowBars windows;
        windows.Look(bars.View(320, kDefaultWindow), kDefaultWindow);
        windows.Computed(row.array, row.bar);
        EXPECT_EQ(windows.Leftovers(), row.told) << kIndicatorArrays[SlotOf(row.array)].name << row.bar;
        windows.Look(bars.View(319, kDefaultWindow), kDefaultWindow);
        EXPECT_EQ(windows.Leftovers(), LookedAtLeftovers::None) << "another window";
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, EveryKind,
                         ::testing::Values(Kind::Walk, Kind::Flat, Kind::Zeros, Kind::Steps, Kind::Huge));

}  // namespace
}  // namespace brantlow
