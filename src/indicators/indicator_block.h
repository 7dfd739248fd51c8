// The results of one indicator pass apart from the arrays that all tickers share, so that a pass can run on
// any thread. What could not be computed is not finite in a block and is left out when the block is stored.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "indicators/indicators.h"

namespace brantlow {

// A place in kIndicatorArrays.
using IndicatorSlot = std::size_t;

constexpr IndicatorSlot SlotOf(IndicatorArray array) {
    IndicatorSlot slot = 0;
    while (kIndicatorArrays[slot].array != array) ++slot;
    return slot;
}

template <std::size_t Count>
constexpr std::array<IndicatorSlot, Count> SlotsOf(const std::array<IndicatorArray, Count>& arrays) {
    std::array<IndicatorSlot, Count> slots{};
    for (std::size_t i = 0; i < Count; ++i) slots[i] = SlotOf(arrays[i]);
    return slots;
}

// Arrays that a pass works with and nobody stores.
enum class WorkArray : std::size_t { Closes, Products, Volumes, Positions, Squares, UpBars, DownBars };
inline constexpr std::size_t kWorkArrays = 7;

class IndicatorBlock {
  public:
    // Makes room for a series of `barCount` bars; nothing counts as computed yet.
    void Start(std::size_t barCount);
    std::size_t BarCount() const { return barCount_; }

    // Element 0 of an array; elements up to kLanePadding behind BarCount may be overwritten.
    double* operator[](IndicatorSlot slot) { return values_.data() + slot * stride_; }
    const double* operator[](IndicatorSlot slot) const { return values_.data() + slot * stride_; }

    double* Work(WorkArray array) {
        return (*this)[kIndicatorArrays.size() + static_cast<std::size_t>(array)];
    }

    // Ends the computing of an array: its elements `first` to BarCount are those to be stored.
    void Finish(IndicatorSlot slot, std::size_t first);

    // Whether all elements that Finish told could be computed.
    bool IsWhole(IndicatorSlot slot) const { return ranges_[slot].coverage == Coverage::Everything; }

    // Element 0 of a finished array as the shared array will hold it: elements that could not be computed are
    // those of `old`. Without `old` they are 0 and NeedsOld becomes true.
    const double* Settled(IndicatorSlot slot, const Indicators* old);
    // The block is made without knowing the shared arrays and depends on them: it has to be made again.
    bool NeedsOld() const { return needsOld_; }

    // Writes what was computed into the shared arrays and scalars.
    void Store(Indicators& indicators) const;

    IndicatorScalars scalars;

  private:
    enum class Coverage : std::uint8_t { Nothing, Something, Everything };
    struct Range {
        std::size_t first = 0;
        Coverage coverage = Coverage::Nothing;
    };

    std::size_t barCount_ = 0;
    std::size_t stride_ = 0;
    bool needsOld_ = false;
    std::array<Range, kIndicatorArrays.size()> ranges_;
    std::vector<double> values_;
    std::array<std::vector<double>, kIndicatorArrays.size()> settled_;  // of arrays with gaps
};

}  // namespace brantlow
