// The bars of one window of a history and every indicator on them, each value computed when it is asked for
// and no sooner: what a run that looks at few bars, or a study of many past days, reads in place of a whole
// indicator pass.
//
// Values are those that loading the ticker alone and ComputeIndicators would leave, to the last bit; what the
// pass would not have written reads as 0. A source of bars for selector/test_running.h.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "indicators/history_row.h"
#include "indicators/indicator_pass.h"
#include "indicators/indicators.h"
#include "indicators/series_folding.h"
#include "indicators/window_sums.h"
#include "selector/named_test.h"

namespace brantlow {

// Elements that must be readable before element 0 of a column, and behind its last bar.
inline constexpr std::size_t kWindowMargin = 256;

// One column for each of kNumberFields; each pointer addresses element 0 of the window.
using WindowColumns = std::array<const double*, kNumberFields.size()>;

// Columns that an indicator is made of beside the closes.
struct WindowInputs {
    std::span<const NumberSlot> everyBar;  // of any bar up to that of the indicator
    std::span<const NumberSlot> sameBar;   // of its bar alone
};
WindowInputs InputsOf(IndicatorArray array);
// The column that a value of the whole window is made of.
NumberSlot InputOf(WindowScalar scalar);

enum class LookedAtLeftovers : unsigned char {
    None,
    Gaps,         // elements of an indicator that cannot be computed
    ElementZero,  // what is made of the close of element 0, perhaps gaps too
};

class WindowBars {
  public:
    WindowBars();

    // Looks at another window, of at most kDefaultWindow bars. The ratios of bar 1 and the first bar of each
    // relative strength look at element 0.
    void Look(const WindowColumns& columns, std::size_t barCount);
    // Which elements that the window does not settle by itself have been asked for since: with other tickers
    // loaded before, such an element may hold what one of them left.
    LookedAtLeftovers Leftovers() const { return leftovers_; }
    std::size_t BarCount() const { return barCount_; }

    double Stored(StoredArray array, std::size_t bar) const;
    double Computed(IndicatorArray array, std::size_t bar) const;
    double Scalar(WindowScalar scalar) const;

  private:
    enum class Family : unsigned char {
        MA,
        WMA,
        VolumeWMA,
        MLR,
        Slope,
        Intercept,
        LooseUCL,
        LooseLCL,
        TightUCL,
        TightLCL,
        PriceLine,
        VolumeLine,
        Derivative,
        Momentum,
        RSI,
        McClellan,
        Stochastic,
        MACD,
        Ratio,
    };
    struct Place {
        Family family = Family::Ratio;
        std::size_t index = 0;  // of the length, or of the ratio
        std::size_t firstBar = 0;
    };
    // Averages, lines and bands of eight neighbouring bars for one length.
    struct Block {
        std::uint64_t look = 0;
        std::uint64_t bandsLook = 0;
        EightMeans means;
        std::array<double, kWindowsAtOnce> slope, intercept, level;
        std::array<double, kWindowsAtOnce> looseUpper, tightUpper, looseLower, tightLower;
    };
    struct Spot {
        const Block* block;
        std::size_t lane;
    };
    struct WholeWindow {
        std::uint64_t look = 0;
        std::array<double, kDefaultWindow + 1> level{};
    };
    static constexpr std::size_t kBlocks = kDefaultWindow / kWindowsAtOnce + 1;

    template <std::size_t Count>
    void Enter(const std::array<IndicatorArray, Count>& arrays, Family family);
    const double* Column(NumberSlot slot) const { return columns_[slot]; }
    BarView View() const;
    Spot BlockAt(std::size_t length, std::size_t bar) const;
    Spot BandsAt(std::size_t length, std::size_t bar) const;
    void Fill(std::size_t length, std::ptrdiff_t first, Block& block) const;
    double MomentumAt(std::size_t length, std::size_t bar) const;
    double DerivativeOf(std::size_t length, std::size_t bar) const;
    double StrengthAt(std::size_t length, std::size_t bar) const;
    double StochasticAt(std::size_t length, std::size_t bar) const;
    double VolumeAverageAt(std::size_t length, std::size_t bar) const;
    double MomentumDifferenceAt(std::size_t length, std::size_t bar) const;
    double McClellanAt(std::size_t length, std::size_t bar) const;
    double Value(const Place& place, std::size_t bar) const;
    double Settled(double value) const;
    void TellElementZero() const { leftovers_ = LookedAtLeftovers::ElementZero; }
    const WholeWindow& PriceLine() const;
    const WholeWindow& VolumeLine() const;

    WindowColumns columns_{};
    std::size_t barCount_ = 0;
    std::uint64_t look_ = 0;
    std::array<double, kDefaultWindow + 1> squares_{};  // sums of the squares of 1 to k
    std::vector<std::uint8_t> storedSlots_;             // by the place of the array in its struct
    std::vector<std::uint8_t> computedSlots_;
    std::array<Place, kIndicatorArrays.size()> places_;
    // What has been computed for the window in hand.
    mutable std::array<std::array<Block, kBlocks>, kAverageLengths.size()> blocks_{};
    mutable WholeWindow price_;
    mutable WholeWindow volume_;
    mutable IndicatorScalars scalars_;
    mutable std::array<WholeWindow, 2> differences_{};
    mutable LookedAtLeftovers leftovers_ = LookedAtLeftovers::None;
};

}  // namespace brantlow
