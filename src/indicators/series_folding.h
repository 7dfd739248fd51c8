// The two foldings as data, shared by the routine that folds the working series in place and by the one that
// makes single folded bars of a history read ahead.
#pragma once

#include <cmath>
#include <cstddef>

#include "indicators/history_row.h"

namespace brantlow {

inline constexpr std::size_t kDefaultWindow = 279;
inline constexpr std::size_t kSmallestWindow = 3;

struct Folding {
    std::size_t groupSize;
    // A whole weekly bar keeps the first bar's open; monthly bars and every remainder bar compare.
    bool comparesOpens;
};

inline constexpr Folding kWeekly = {5, false};
inline constexpr Folding kMonthly = {20, true};

// Folds all bars of `series` in place.
void FoldBars(const Folding& folding, WorkingSeries& series);

// One bar to be made: of the bars `first` to `last`, stored at `index`.
struct FoldGroup {
    std::size_t index;
    std::size_t first;
    std::size_t last;
    bool comparesOpens;
    std::size_t divisor;  // of the volume
};

// How many bars `barCount` bars fold to, a remainder bar included.
constexpr std::size_t FoldedCount(std::size_t barCount, const Folding& folding) {
    return (barCount + folding.groupSize - 1) / folding.groupSize;
}

// The group of folded bar `index`, 1 to FoldedCount.
constexpr FoldGroup GroupOf(std::size_t index, std::size_t barCount, const Folding& folding) {
    const std::size_t first = folding.groupSize * (index - 1) + 1;
    const std::size_t last = folding.groupSize * index;
    if (last <= barCount) return {index, first, last, folding.comparesOpens, folding.groupSize};
    return {index, first, barCount, true, barCount - first + 1};
}

// The bar of the group whose value a folded high takes: the last that rose above its predecessor, which may
// lie below the highest. `at` gives the value of a bar.
template <class At>
std::size_t LastRise(const FoldGroup& group, const At& at) {
    std::size_t taken = group.first;
    for (std::size_t j = group.first; j < group.last; ++j) {
        if (at(j) < at(j + 1)) taken = j + 1;
    }
    return taken;
}

// The same downward, for lows and opens.
template <class At>
std::size_t LastFall(const FoldGroup& group, const At& at) {
    std::size_t taken = group.first;
    for (std::size_t j = group.first; j < group.last; ++j) {
        if (at(j) > at(j + 1)) taken = j + 1;
    }
    return taken;
}

// The mean volume a day. A bar whose volume makes the sum too large for a double is passed over.
template <class At>
double MeanVolume(const FoldGroup& group, const At& at) {
    double sum = at(group.first);
    for (std::size_t j = group.first; j < group.last; ++j) {
        const double next = sum + at(j + 1);
        if (std::isfinite(next)) sum = next;
    }
    return sum / static_cast<double>(group.divisor);
}

// Series whose folded bar is the group's last one. The others are the first bar's, then compared or summed.
inline constexpr std::array<NumberSlot, 11> kFoldedFromLast = {
    kCloseSlot,  kLow52WeekSlot, kHigh52WeekSlot,    kPERatioSlot,      kEPSttmSlot,    kPEGRatioSlot,
    kEPSestSlot, kDividendSlot,  kPreviousCloseSlot, kPriceToSalesSlot, kMarketCapSlot,
};

// The numbers of a folded bar: at(slot, bar) reads one of a daily bar, set(slot, value) takes one of the
// folded bar. Returns the daily bar whose open was taken.
template <class At, class Set>
std::size_t FoldNumbers(const FoldGroup& group, const At& at, const Set& set) {
    const auto of = [&](NumberSlot slot) { return [&at, slot](std::size_t j) { return at(slot, j); }; };
    for (const NumberSlot slot : kFoldedFromLast) set(slot, at(slot, group.last));
    set(kHighSlot, at(kHighSlot, LastRise(group, of(kHighSlot))));
    set(kLowSlot, at(kLowSlot, LastFall(group, of(kLowSlot))));
    const std::size_t open = group.comparesOpens ? LastFall(group, of(kOpenSlot)) : group.first;
    set(kOpenSlot, at(kOpenSlot, open));
    set(kVolumeSlot, MeanVolume(group, of(kVolumeSlot)));
    return open;
}

}  // namespace brantlow
