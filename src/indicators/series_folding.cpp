#include "indicators/series_folding.h"

#include "indicators/whole_history.h"

namespace brantlow {

namespace {

void CopyBar(std::size_t to, std::size_t from, WorkingSeries& series) {
    for (const NumberField& field : kNumberFields) (series.*field.series).Copy(to, from);
    for (const TextField& field : kTextFields) (series.*field.series).Copy(to, from);
}

template <class Series>
void TakeElement(const Series& from, std::size_t fromElement, std::size_t toElement, Series& to) {
    to.Set(toElement, from[fromElement]);
}

void TakeElement(const NumberSeries& from, std::size_t fromElement, std::size_t toElement, NumberSeries& to) {
    if (from.State(fromElement) == ElementState::Written) {
        to.Set(toElement, from[fromElement]);
    } else {
        to.Empty(toElement);
    }
}

// Copying into the group's own first bar is safe: each bar is looked at before it is overwritten.
void TakeRise(const FoldGroup& group, NumberSeries& series) {
    series.Copy(group.index, LastRise(group, [&](std::size_t j) { return series[j]; }));
}

void TakeFall(const FoldGroup& group, NumberSeries& series) {
    series.Copy(group.index, LastFall(group, [&](std::size_t j) { return series[j]; }));
}

void FoldOneGroup(const FoldGroup& group, WorkingSeries& series) {
    for (const NumberSlot slot : kFoldedFromLast) {
        (series.*kNumberFields[slot].series).Copy(group.index, group.last);
    }
    for (const TextField& field : kTextFields) (series.*field.series).Copy(group.index, group.last);
    TakeRise(group, series.HighPrice);
    TakeFall(group, series.LowPrice);
    TakeRise(group, series.AskPrice);
    TakeFall(group, series.BidPrice);
    if (group.comparesOpens) {
        TakeFall(group, series.OpenPrice);
    } else {
        series.OpenPrice.Copy(group.index, group.first);
    }
    series.Volume.Set(group.index, MeanVolume(group, [&](std::size_t j) { return series.Volume[j]; }));
}

}  // namespace

void FoldBars(const Folding& folding, WorkingSeries& series) {
    const std::size_t daily = series.BarCount;
    const std::size_t folded = FoldedCount(daily, folding);
    for (std::size_t i = 1; i <= folded; ++i) FoldOneGroup(GroupOf(i, daily, folding), series);
    series.BarCount = folded;
}

void CopyBars(const WorkingSeries& from, std::size_t first, std::size_t count, WorkingSeries& to) {
    for (std::size_t i = 0; i < count; ++i) {
        for (const NumberField& field : kNumberFields)
            TakeElement(from.*field.series, first + i, i + 1, to.*field.series);
        for (const TextField& field : kTextFields)
            TakeElement(from.*field.series, first + i, i + 1, to.*field.series);
    }
    to.BarCount = to.LastBar = to.LastRowRead = count;
}

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
    FoldBars(kWeekly, series);
    WindowSeries(0, series);
}

void MakeMonthlySeries(WorkingSeries& series) {
    FoldBars(kMonthly, series);
    WindowSeries(0, series);
}

}  // namespace brantlow
