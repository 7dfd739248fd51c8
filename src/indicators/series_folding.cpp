#include "indicators/series_folding.h"

#include <cmath>

#include "indicators/working_series.h"

namespace brantlow {

namespace {

void CopyBar(std::size_t to, std::size_t from, WorkingSeries& series) {
    for (const NumberField& field : kNumberFields) (series.*field.series).Copy(to, from);
    for (const TextField& field : kTextFields) (series.*field.series).Copy(to, from);
}

// Takes the neighbour whenever a bar lies below it (TakeRises) or above it (TakeFalls).
void TakeRises(const FoldGroup& group, NumberSeries& series) {
    for (std::size_t j = group.first; j < group.last; ++j) {
        if (series[j] < series[j + 1]) series.Copy(group.index, j + 1);
    }
}

void TakeFalls(const FoldGroup& group, NumberSeries& series) {
    for (std::size_t j = group.first; j < group.last; ++j) {
        if (series[j] > series[j + 1]) series.Copy(group.index, j + 1);
    }
}

// The mean volume a day. A sum too large for a double passes the bar over.
void FoldVolume(const FoldGroup& group, NumberSeries& volume) {
    double sum = volume[group.first];
    for (std::size_t j = group.first; j < group.last; ++j) {
        const double next = sum + volume[j + 1];
        if (std::isfinite(next)) sum = next;
    }
    volume.Set(group.index, sum / static_cast<double>(group.divisor));
}

void FoldOneGroup(const FoldGroup& group, WorkingSeries& series) {
    for (const NumberSlot slot : kFoldedFromLast) {
        (series.*kNumberFields[slot].series).Copy(group.index, group.last);
    }
    for (const TextField& field : kTextFields) (series.*field.series).Copy(group.index, group.last);
    for (NumberSeries* first :
         {&series.OpenPrice, &series.HighPrice, &series.LowPrice, &series.AskPrice, &series.BidPrice}) {
        first->Copy(group.index, group.first);
    }
    TakeRises(group, series.HighPrice);
    TakeFalls(group, series.LowPrice);
    TakeRises(group, series.AskPrice);
    TakeFalls(group, series.BidPrice);
    if (group.comparesOpens) TakeFalls(group, series.OpenPrice);
    FoldVolume(group, series.Volume);
}

void Fold(const Folding& folding, WorkingSeries& series) {
    const std::size_t daily = series.BarCount;
    const std::size_t folded = FoldedCount(daily, folding);
    for (std::size_t i = 1; i <= folded; ++i) FoldOneGroup(GroupOf(i, daily, folding), series);
    series.BarCount = folded;
    WindowSeries(0, series);
}

}  // namespace

void WindowSeries(double length, WorkingSeries& series) {
    if (length == 0) length = static_cast<double>(kDefaultWindow);
    if (!(length >= static_cast<double>(kSmallestWindow))) length = static_cast<double>(kSmallestWindow);
    if (length < static_cast<double>(series.BarCount)) {
        const auto kept = static_cast<std::size_t>(length);
        const std::size_t start = series.BarCount - kept + 1;
        for (std::size_t i = 1; i <= kept; ++i) CopyBar(i, start - 1 + i, series);
        series.BarCount = kept;
    }
    series.LastBar = series.BarCount;
}

void MakeWeeklySeries(WorkingSeries& series) {
    Fold(kWeekly, series);
}

void MakeMonthlySeries(WorkingSeries& series) {
    Fold(kMonthly, series);
}

}  // namespace brantlow
