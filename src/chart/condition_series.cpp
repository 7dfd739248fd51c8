#include "chart/condition_series.h"

#include <algorithm>

#include "chart/series_tables.h"

namespace brantlow {

namespace {

template <typename Part>
bool IsPart(Part part, Part value) {
    return value != nullptr && part == value;
}

bool Shows(const PriceSeries& series, const LookedAt& value) {
    // Bands are drawn about their centre; the centre alone has a series of its own.
    if (series.upper == nullptr) return IsPart(series.centre, value.computed);
    return IsPart(series.upper, value.computed) || IsPart(series.lower, value.computed);
}

bool Shows(const WholeWindowSeries& series, const LookedAt& value) {
    if (value.computed == &Indicators::LRPrice) return true;
    return IsPart(series.upper, value.scalar) || IsPart(series.lower, value.scalar);
}

bool Shows(const Study& study, const LookedAt& value) {
    if (study.subtracted != nullptr) return false;
    return IsPart(study.computed, value.computed) || IsPart(study.stored, value.stored);
}

bool Shows(const VolumeSeries& series, const LookedAt& value) {
    if (series.isRegression && series.offset == nullptr) return value.computed == &Indicators::LRVolume;
    return IsPart(series.array, value.computed) || IsPart(series.level, value.scalar) ||
           IsPart(series.offset, value.scalar);
}

template <typename Table>
std::string_view FirstThatShows(const Table& table, const LookedAt& value) {
    const auto found =
        std::find_if(table.begin(), table.end(), [&](const auto& row) { return Shows(row, value); });
    return found == table.end() ? std::string_view() : found->name;
}

void AddOnce(std::string_view name, std::vector<std::string_view>& names, std::size_t most) {
    if (name.empty() || names.size() == most || std::find(names.begin(), names.end(), name) != names.end())
        return;
    names.push_back(name);
}

// The first slot is the price's own.
constexpr std::size_t kFreeSlots = kSlotControls.size() - 1;

void Take(const LookedAt& value, SeriesWish& wish) {
    AddOnce(FirstThatShows(kPriceSeries, value), wish.price, kFreeSlots);
    AddOnce(FirstThatShows(kWholeWindowSeries, value), wish.price, kFreeSlots);
    AddOnce(FirstThatShows(kVolumeSeries, value), wish.volume, kVolumeEntries - 1);
    if (wish.study.empty()) wish.study = FirstThatShows(kStudies, value);
}

template <typename Places>
void Fill(Places& places, std::string_view own, const std::vector<std::string_view>& names) {
    if (names.empty()) return;
    places = {std::string(own)};
    std::copy(names.begin(), names.end(), std::next(places.begin()));
}

}  // namespace

SeriesWish SeriesOf(std::span<const LookedAt> values) {
    SeriesWish wish;
    for (const LookedAt& value : values) Take(value, wish);
    return wish;
}

SeriesWish SeriesOf(const ConditionExplanation& explanation) {
    SeriesWish wish;
    for (const LineExplanation& line : explanation.lines)
        for (const LookedAt& value : line.values) Take(value, wish);
    return wish;
}

void ShowWish(ChartContext& context, const ChartWish& wish) {
    ChartSession& chart = context.chart;
    if (wish.interval != Interval::Daily) {
        chart.ChartTimeFrame = TimeFrameOf(wish.interval);
        if (const Failure failure = ReloadChart(context, Signals::Compute))
            context.session.person.Say(Sentence(failure));
    }
    Fill(chart.Slots, kPriceName, wish.series.price);
    Fill(chart.VolumeSeriesList, kVolumeName, wish.series.volume);
    if (!wish.series.study.empty()) chart.Combo2 = wish.series.study;
    PaintAllPanels(context);
}

}  // namespace brantlow
