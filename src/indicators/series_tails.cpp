#include "indicators/series_tails.h"

#include <algorithm>
#include <utility>

namespace brantlow {

void SeriesTails::Overwrite(std::size_t index) {
    for (Tail& tail : tails_) {
        tail.first = std::max(tail.first, index + 1);
        if (tail.first > tail.last) spare_.push_back(std::move(tail.history));
    }
    std::erase_if(tails_, [](const Tail& tail) { return tail.first > tail.last; });
}

void SeriesTails::Add(std::unique_ptr<HistoryText> history, std::size_t first, std::size_t last) {
    tails_.push_back({std::move(history), first, last, {}});
}

void SeriesTails::EmptyOpen(std::size_t index, WorkingSeries& series) {
    for (Tail& tail : tails_) {
        if (index < tail.first || index > tail.last) continue;
        tail.emptiedOpens.push_back(index);
        return;
    }
    series.OpenPrice.Empty(index);
}

void SeriesTails::StoreTail(const Tail& tail, WorkingSeries& series) const {
    HistoryBar bar;
    for (std::size_t i = tail.first; i <= tail.last; ++i) {
        tail.history->Bar(interval_, i, bar);
        StoreHistoryRow(bar.row, i, series);
        if (bar.openEmptied) series.OpenPrice.Empty(i);
    }
    for (const std::size_t i : tail.emptiedOpens) {
        if (i >= tail.first) series.OpenPrice.Empty(i);
    }
}

void SeriesTails::StoreAll(WorkingSeries& series) {
    for (Tail& tail : tails_) {
        StoreTail(tail, series);
        spare_.push_back(std::move(tail.history));
    }
    tails_.clear();
}

std::unique_ptr<HistoryText> SeriesTails::SpareHistory() {
    if (spare_.empty()) return std::make_unique<HistoryText>();
    std::unique_ptr<HistoryText> history = std::move(spare_.back());
    spare_.pop_back();
    history->TrimMemory();
    return history;
}

}  // namespace brantlow
