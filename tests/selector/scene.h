// A hand-filled analysis for evaluator tests. Values are written as a line of text, each word a series or a
// scalar by its own name with its values from the newest bar backwards:
//
//     "ClosePrice=11,9 MA15=10,10"      bar n and bar n-1
//     "ClosePrice@15=240"               bar n-15
//     "ClosePrice#1=100 LRSlope=0.5"    bar 1, and a number of the whole window
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "indicators/analysis.h"

namespace brantlow {

class Scene {
  public:
    // The analysis as the scene stands, `bar` being its newest bar. Everything not put into the scene is 0.
    explicit Scene(std::size_t bar = 700) { SetBar(bar); }

    const Analysis& Get() const { return analysis_; }
    Analysis& Mutable() { return analysis_; }

    void SetBar(std::size_t bar) { analysis_.series.BarCount = analysis_.series.LastBar = bar; }
    std::size_t Bar() const { return analysis_.series.LastBar; }

    // Clears what was put before and puts `values`.
    void Show(std::string_view values);
    // Puts `values` on top of what stands.
    void Put(std::string_view values);
    void Clear();

  private:
    struct Written {
        NumberSeries* series;
        std::size_t bar;
    };
    void PutWord(std::string_view word);

    Analysis analysis_;
    std::vector<Written> written_;
    std::vector<double*> scalars_;
};

}  // namespace brantlow
