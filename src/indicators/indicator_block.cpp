#include "indicators/indicator_block.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "indicators/window_sums.h"

namespace brantlow {

void IndicatorBlock::Start(std::size_t barCount) {
    barCount_ = barCount;
    stride_ = barCount + 1 + kLanePadding;
    needsOld_ = false;
    scalars = {};
    ranges_.fill({});
    values_.resize(std::max(values_.size(), stride_ * (kIndicatorArrays.size() + kWorkArrays)));
}

void IndicatorBlock::Finish(IndicatorSlot slot, std::size_t first) {
    const std::size_t count = first <= barCount_ ? barCount_ - first + 1 : 0;
    const std::size_t computed = CountFinite((*this)[slot] + first, count);
    const Coverage coverage = computed == 0       ? Coverage::Nothing
                              : computed == count ? Coverage::Everything
                                                  : Coverage::Something;
    ranges_[slot] = {first, coverage};
}

const double* IndicatorBlock::Settled(IndicatorSlot slot, const Indicators* old) {
    const Range& range = ranges_[slot];
    if (range.coverage == Coverage::Everything || range.first > barCount_) return (*this)[slot];
    if (old == nullptr) needsOld_ = true;
    std::vector<double>& settled = settled_[slot];
    settled.assign(stride_, 0.0);
    for (std::size_t k = range.first; k <= barCount_; ++k) {
        const double value = (*this)[slot][k];
        const double before = old == nullptr ? 0.0 : (old->*kIndicatorArrays[slot].array)[k];
        settled[k] = std::isfinite(value) ? value : before;
    }
    return settled.data();
}

void IndicatorBlock::Store(Indicators& indicators) const {
    static_cast<IndicatorScalars&>(indicators) = scalars;
    for (IndicatorSlot slot = 0; slot < kIndicatorArrays.size(); ++slot) {
        const Range& range = ranges_[slot];
        if (range.coverage == Coverage::Nothing) continue;
        NumberSeries& array = indicators.*kIndicatorArrays[slot].array;
        const double* const values = (*this)[slot];
        if (range.coverage == Coverage::Everything) {
            const std::size_t count = barCount_ - range.first + 1;
            std::memcpy(array.MutableValues() + range.first, values + range.first, count * sizeof(double));
            std::fill_n(array.MutableStates() + range.first, count, ElementState::Written);
            continue;
        }
        for (std::size_t k = range.first; k <= barCount_; ++k) {
            if (std::isfinite(values[k])) array.Set(k, values[k]);
        }
    }
}

}  // namespace brantlow
