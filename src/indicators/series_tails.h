// Bars above BarCount that tickers loaded earlier have left in the working series, not yet stored there.
//
// Nothing but a later ticker with short rows can see them, so they stay in the text of their histories and
// are stored when such a ticker comes or the run ends. What a later ticker overwrites is forgotten.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "indicators/history_text.h"

namespace brantlow {

class SeriesTails {
  public:
    explicit SeriesTails(Interval interval) : interval_(interval) {}

    // A load overwrites all elements up to `index`.
    void Overwrite(std::size_t index);
    // The elements `first` to `last` are those of `history`.
    void Add(std::unique_ptr<HistoryText> history, std::size_t first, std::size_t last);
    // The load empties the open of element `index`.
    void EmptyOpen(std::size_t index, WorkingSeries& series);
    // Stores what is left and forgets it.
    void StoreAll(WorkingSeries& series);
    // More are held than is worth their memory.
    bool AreMany() const { return tails_.size() > kMostTails; }
    // A history that no bar is needed of any more, or a new one.
    std::unique_ptr<HistoryText> SpareHistory();

  private:
    static constexpr std::size_t kMostTails = 16;

    struct Tail {
        std::unique_ptr<HistoryText> history;
        std::size_t first;
        std::size_t last;
        std::vector<std::size_t> emptiedOpens;
    };

    void StoreTail(const Tail& tail, WorkingSeries& series) const;

    Interval interval_;
    std::vector<Tail> tails_;  // no two hold the same element
    std::vector<std::unique_ptr<HistoryText>> spare_;
};

}  // namespace brantlow
