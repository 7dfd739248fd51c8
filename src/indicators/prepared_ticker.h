// One ticker's part of a selector run that hangs on nothing but its own files: the bars of the window and
// their indicators, made on any thread, to be merged into the shared Analysis in the order of the table.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "indicators/analysis.h"
#include "indicators/history_text.h"
#include "indicators/indicator_block.h"

namespace brantlow {

class PreparedTicker {
  public:
    // Reads the year files of `ticker`, makes the window's bars and, where they are enough, their indicators.
    // With a `lastDay` its records end there.
    void Prepare(const std::string& quoteFolder, std::span<const std::string> years, Interval interval,
                 std::string_view ticker, const std::optional<Date>& lastDay = std::nullopt);
    // The same of the daily bars, from no more of the files than the window needs, where they let that be.
    void PrepareNewest(const std::string& quoteFolder, std::span<const std::string> years,
                       std::string_view ticker);

    // Why the ticker's files could not be read: there is nothing of it then.
    const Failure& Unreadable() const { return unreadable_; }
    // False when the ticker depends on what the working series held before: it is then to be loaded there.
    bool IsRegular() const { return history_->IsRegular(); }

    // Elements 0 to BarCount of every series, and the counters, as loading, folding and windowing leave them.
    void StoreSeries(WorkingSeries& series) const;
    // The indicators of that series, which has to be stored before.
    void StoreIndicators(Analysis& analysis) const;

    // Whether every element of these indicators from their first bar up to BarCount, but for those made of
    // the close of element 0, is this ticker's own.
    bool Covers(std::span<const IndicatorSlot> slots) const;

    // Bars of the window.
    std::size_t BarCount() const { return barCount_; }
    const HistoryText& History() const { return *history_; }
    // Hands the history over and goes on with another one.
    std::unique_ptr<HistoryText> ExchangeHistory(std::unique_ptr<HistoryText> other);

  private:
    void MakeWindow(Interval interval);
    void TakeBar(Interval interval, std::size_t from, std::size_t to);
    void ComputeIndicatorsAhead();
    double* Numbers(std::size_t slot) { return numbers_.data() + slot * stride_; }
    const double* Numbers(std::size_t slot) const { return numbers_.data() + slot * stride_; }
    std::string_view* Texts(std::size_t slot) { return texts_.data() + slot * stride_; }
    const std::string_view* Texts(std::size_t slot) const { return texts_.data() + slot * stride_; }

    std::unique_ptr<HistoryText> history_ = std::make_unique<HistoryText>();
    Failure unreadable_;
    std::size_t barCount_ = 0;
    std::size_t stride_ = 0;
    bool newestOpenEmptied_ = false;
    std::vector<double> numbers_;          // one array of elements 0 to BarCount for each of kNumberFields
    std::vector<std::string_view> texts_;  // and for each of kTextFields
    IndicatorBlock indicators_;
};

}  // namespace brantlow
