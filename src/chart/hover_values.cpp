#include "chart/hover_values.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/numbers.h"
#include "chart/panel_paint.h"
#include "chart/round_scale.h"
#include "chart/series_tables.h"
#include "chart/study_values.h"

namespace brantlow {

namespace {

constexpr std::string_view kNoValue = "-";

std::string Price(double value) {
    return FormatPicture(kPricePicture, value);
}

std::string Band(double upper, double lower) {
    return Price(lower) + " / " + Price(upper);
}

std::string ChangeText(const WorkingSeries& series, std::size_t bar) {
    constexpr double kPercent = 100;
    const double before = bar > 1 ? series.ClosePrice[bar - 1] : 0;
    if (before == 0) return std::string(kNoValue);
    const double change = series.ClosePrice[bar] - before;
    return fmt::format("{:+.2f} ({:+.2f} %)", change, kPercent * change / before);
}

// The bar before the paints stretched it. A list of another length is that of another load.
BarAsRead BarOf(const ChartSession& chart, const WorkingSeries& series, std::size_t bar) {
    if (chart.AsRead.size() == series.BarCount + 1) return chart.AsRead[bar];
    return {series.OpenPrice[bar], series.HighPrice[bar], series.LowPrice[bar], series.Volume[bar]};
}

void AddBar(const ChartSession& chart, const WorkingSeries& series, std::size_t bar,
            std::vector<HoverValue>& values) {
    const BarAsRead read = BarOf(chart, series, bar);
    values.push_back({"Date", series.QuoteDate[bar], {}});
    values.push_back({"Open", Price(read.open), {}});
    values.push_back({"High", Price(read.high), {}});
    values.push_back({"Low", Price(read.low), {}});
    values.push_back({"Close", Price(series.ClosePrice[bar]), {}});
    values.push_back({"Change", ChangeText(series, bar), {}});
    values.push_back({"Volume", GroupedNumber(read.volume), {}});
}

std::string StudyText(const Study& study, const Analysis& analysis, std::size_t bar) {
    const StudyValues values(study, analysis);
    if (bar < study.drawFrom || !values.IsWritten(bar)) return std::string(kNoValue);
    return FormatPicture(kStudyPicture, values[bar]);
}

// A segment ends at its first bar and begins at the one before.
bool IsDrawnAt(std::size_t fromBar, std::size_t bar, std::size_t barCount) {
    return bar + 1 >= fromBar && barCount >= fromBar;
}

std::string PriceSeriesText(std::string_view name, const Analysis& analysis, std::size_t bar) {
    const Indicators& indicators = analysis.indicators;
    if (const PriceSeries* row = RowNamed(kPriceSeries, name)) {
        if (!IsDrawnAt(row->fromBar, bar, analysis.series.BarCount)) return std::string(kNoValue);
        const double centre = (indicators.*row->centre)[bar];
        if (row->upper == nullptr) return Price(centre);
        return Band(centre + (indicators.*row->upper)[bar], centre + (indicators.*row->lower)[bar]);
    }
    if (const WholeWindowSeries* row = RowNamed(kWholeWindowSeries, name)) {
        const double line = indicators.LRPrice[bar];
        return Band(line + indicators.*row->upper, line + indicators.*row->lower);
    }
    return std::string(kNoValue);
}

std::string VolumeSeriesText(std::string_view name, const Analysis& analysis, std::size_t bar) {
    const Indicators& indicators = analysis.indicators;
    const VolumeSeries* row = RowNamed(kVolumeSeries, name);
    if (row == nullptr || !IsDrawnAt(row->fromBar, bar, analysis.series.BarCount))
        return std::string(kNoValue);
    if (row->level != nullptr) return GroupedNumber(indicators.*row->level);
    if (row->array != nullptr) return GroupedNumber((indicators.*row->array)[bar]);
    const double offset = row->offset == nullptr ? 0 : indicators.*row->offset;
    return GroupedNumber(indicators.LRVolume[bar] + offset);
}

}  // namespace

std::vector<HoverValue> HoverValuesAt(const ChartSession& chart, const Analysis& analysis, std::size_t bar,
                                      const ChartPalette& palette) {
    const std::size_t barCount = analysis.series.BarCount;
    std::vector<HoverValue> values;
    if (bar == 0 || bar > barCount) return values;
    AddBar(chart, analysis.series, bar, values);
    if (const Study* study = RowNamed(kStudies, chart.Combo2)) {
        values.push_back({chart.Combo2, StudyText(*study, analysis, bar), {}});
    }
    for (const LegendEntry& entry : SlotLegend(chart, barCount, palette)) {
        const bool isTold = std::any_of(values.begin(), values.end(),
                                        [&](const HoverValue& value) { return value.name == entry.text; });
        if (entry.text.empty() || entry.text == kPriceName || isTold) continue;
        values.push_back({entry.text, PriceSeriesText(entry.text, analysis, bar), entry.colour});
    }
    for (const LegendEntry& entry : VolumeLegend(chart, barCount, palette)) {
        values.push_back({"Vol. " + entry.text, VolumeSeriesText(entry.text, analysis, bar), entry.colour});
    }
    return values;
}

}  // namespace brantlow
