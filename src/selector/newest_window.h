// The newest daily bars of one ticker, read from no more of its files than they ask for and with no more
// fields than somebody looks at.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/failure.h"
#include "indicators/history_text.h"
#include "selector/window_bars.h"
#include "selector/window_conditions.h"

namespace brantlow {

class NewestWindow {
  public:
    explicit NewestWindow(const LookedAtFields& fields);

    // Takes the default window of `ticker` out of the files of `years`. Files that cannot be read are a
    // failure, and there is no window then.
    Failure Load(const std::string& quoteFolder, std::string_view ticker, std::span<const std::string> years);

    // False when the bars depend on what other tickers left in the working series; there is no window then.
    bool IsRegular() const { return text_.IsRegular(); }
    // Rows that the files hold, where they are not regular.
    std::size_t RowCount() const { return text_.BarCount(); }
    std::size_t BarCount() const { return barCount_; }
    // The bars up to BarCount with the fields that are looked at. It stands until the next Load.
    const WindowColumns& Columns() const { return view_; }

  private:
    void ReadBars();
    void ReadBar(std::span<const NumberSlot> slots, std::size_t row, std::size_t bar);

    std::vector<NumberSlot> ofEveryBar_;
    std::vector<NumberSlot> ofNewestBars_;
    HistoryText text_;
    std::size_t barCount_ = 0;
    std::array<double, kNumberFields.size()> numbers_{};
    std::vector<double> columns_;
    WindowColumns view_{};
};

}  // namespace brantlow
