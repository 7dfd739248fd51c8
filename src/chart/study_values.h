// The values of a study as its panel draws them.
#pragma once

#include <cstddef>

#include "chart/series_tables.h"
#include "indicators/analysis.h"

namespace brantlow {

// The values of a study, bar by bar.
class StudyValues {
  public:
    StudyValues(const Study& study, const Analysis& analysis)
        : values_(study.stored != nullptr ? analysis.series.*study.stored
                                          : analysis.indicators.*study.computed),
          subtracted_(study.subtracted != nullptr ? &(analysis.indicators.*study.subtracted) : nullptr) {}

    bool IsWritten(std::size_t i) const {
        return values_.State(i) == ElementState::Written &&
               (subtracted_ == nullptr || subtracted_->State(i) == ElementState::Written);
    }
    // 0 where nothing was written.
    double operator[](std::size_t i) const {
        if (!IsWritten(i)) return 0;
        return subtracted_ == nullptr ? values_[i] : values_[i] - (*subtracted_)[i];
    }

  private:
    const NumberSeries& values_;
    const NumberSeries* subtracted_;
};

}  // namespace brantlow
