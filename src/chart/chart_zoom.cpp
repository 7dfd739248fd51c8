#include "chart/chart_zoom.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "chart/signals.h"
#include "indicators/whole_history.h"

namespace brantlow {

namespace {

// What the paint of a stretch takes from the chart's own session.
void TakeOver(const ChartSession& own, ChartSession& chart) {
    chart.SelectorTicker = own.SelectorTicker;
    chart.ChartStyle = own.ChartStyle;
    chart.ChartTimeFrame = own.ChartTimeFrame;
    chart.LastDay = own.LastDay;
    chart.HighAlarm = own.HighAlarm;
    chart.LowAlarm = own.LowAlarm;
    chart.Slots = own.Slots;
    chart.VolumeSeriesList = own.VolumeSeriesList;
    chart.Combo1 = own.Combo1;
    chart.Combo2 = own.Combo2;
    chart.Combo3 = own.Combo3;
    chart.Label58 = own.Label58;
}

std::chrono::sys_days DayAt(const WorkingSeries& series, std::size_t bar) {
    const std::optional<Date> day = ParseDate(series.QuoteDate[bar]);
    return day ? std::chrono::sys_days(*day) : std::chrono::sys_days();
}

// The first bar that is not before the day, one beyond the newest where there is none.
std::size_t FirstBarNotBefore(const WorkingSeries& series, std::chrono::sys_days day) {
    std::size_t before = 0;
    std::size_t left = series.BarCount;
    while (left > 0) {
        const std::size_t half = left / 2;
        if (DayAt(series, before + half + 1) < day) {
            before += half + 1;
            left -= half + 1;
        } else {
            left = half;
        }
    }
    return before + 1;
}

// Five days of trade a week.
double DaysABar(int timeFrame) {
    constexpr double kDaily = 7.0 / 5;
    constexpr double kWeekly = 7;
    constexpr double kMonthly = 365.25 / 12;
    if (timeFrame == kWeeklyFrame) return kWeekly;
    return timeFrame == kMonthlyFrame ? kMonthly : kDaily;
}

// As FirstBarNotBefore, and on to both sides of the series.
double BarIn(const WorkingSeries& series, std::chrono::sys_days day, int timeFrame) {
    if (series.BarCount == 0) return 1;
    const std::chrono::sys_days oldest = DayAt(series, 1);
    const std::chrono::sys_days newest = DayAt(series, series.BarCount);
    if (day < oldest) return 1 - static_cast<double>((oldest - day).count()) / DaysABar(timeFrame);
    const double beyond = static_cast<double>((day - newest).count()) / DaysABar(timeFrame);
    if (day > newest) return static_cast<double>(series.BarCount) + beyond;
    return static_cast<double>(FirstBarNotBefore(series, day));
}

}  // namespace

ChartContext ChartZoom::Shown() const {
    if (!IsWide()) return own_;
    return {own_.session, wide_->analysis, wide_->chart};
}

void ChartZoom::ZoomAbout(double x, double factor) {
    const std::size_t shown = Shown().analysis.series.BarCount;
    if (shown == 0) return;
    const double part = std::clamp((x - kPanelLeft) / (kPanelRight - kPanelLeft), 0.0, 1.0);
    const auto count = static_cast<double>(view_.count);
    const double held =
        std::min(static_cast<double>(view_.first) - 1 + part * (count + 1), static_cast<double>(shown));
    // A step changes something, however few bars there are.
    const double wanted =
        factor > 1 ? std::max(count * factor, count + 1) : std::min(count * factor, count - 1);
    ChartSpan span{0,
                   static_cast<std::size_t>(std::max(std::round(wanted), static_cast<double>(kClosestView)))};
    const double last = held + (1 - part) * (static_cast<double>(span.count) + 1) - 1;
    const double newer =
        static_cast<double>(NewerThanLists()) + static_cast<double>(shown) - std::round(last);
    span.back = static_cast<std::size_t>(std::max(newer, 0.0));
    Show(span);
}

bool ChartZoom::PanBy(std::ptrdiff_t bars) {
    const auto back = static_cast<std::ptrdiff_t>(span_.back) + bars;
    const ChartSpan span = Within({static_cast<std::size_t>(std::max<std::ptrdiff_t>(back, 0)), span_.count});
    if (span == span_) return false;
    Show(span);
    return true;
}

void ChartZoom::PanToOldest() {
    Show({AllBars(), span_.count});
}

void ChartZoom::PanToNewest() {
    Show({0, span_.count});
}

void ChartZoom::Reset() {
    ShowWhole();
}

void ChartZoom::PaintedAgain() {
    if (IsWide()) PaintStretch();
}

void ChartZoom::Reloaded() {
    ForgetHistory();
    Show(span_);
}

void ChartZoom::ForgetHistory() {
    history_.reset();
    ahead_ = {};
}

ChartZoom::Reading ChartZoom::NextReading() const {
    const HistorySource source = HistoryOf(own_.session);
    return {source.QuoteFolder, source.clock.Today(),
            own_.chart.LastDay ? std::optional<Date>(*own_.chart.LastDay) : source.lastDay,
            own_.chart.SelectorTicker, IntervalOf(own_.chart.ChartTimeFrame)};
}

std::unique_ptr<ChartZoom::History> ChartZoom::Reading::Read() const {
    auto history = std::make_unique<History>();
    const FixedClock clock(today);
    const HistorySource source{quoteFolder, clock, lastDay};
    history->failure = LoadWholeHistory(source, ticker, interval, history->series);
    return history;
}

void ChartZoom::ReadAhead() {
    if (history_ || ahead_.valid()) return;
    // Room for the stretch as well: it is large enough to be felt in a step.
    ahead_ = std::async(std::launch::async, [reading = NextReading()] {
        return Ahead{reading.Read(), std::make_unique<Wide>()};
    });
}

double ChartZoom::BarOf(const Date& day) {
    const WorkingSeries& lists = Shown().analysis.series;
    const std::chrono::sys_days wanted{day};
    const bool isAmong = lists.BarCount > 0 && wanted >= DayAt(lists, 1) &&
                         (NewerThanLists() == 0 || wanted <= DayAt(lists, lists.BarCount));
    const std::size_t older = isAmong ? 0 : OlderThanLists();
    const bool isLoaded = !isAmong && history_ && !history_->failure && history_->series.BarCount > 0;
    return BarIn(isLoaded ? history_->series : lists, wanted, own_.chart.ChartTimeFrame) -
           static_cast<double>(isLoaded ? older : 0);
}

std::optional<Date> ChartZoom::DayOf(std::ptrdiff_t bar) {
    const WorkingSeries& lists = Shown().analysis.series;
    const auto count = static_cast<std::ptrdiff_t>(lists.BarCount);
    if (count == 0) return std::nullopt;
    const bool isAmong = bar >= 1 && bar <= count;
    const auto older = static_cast<std::ptrdiff_t>(isAmong ? 0 : OlderThanLists());
    const bool isLoaded = !isAmong && history_ && !history_->failure && history_->series.BarCount > 0;
    const WorkingSeries& series = isLoaded ? history_->series : lists;
    const std::ptrdiff_t wanted = bar + (isLoaded ? older : 0);
    const auto held = std::clamp<std::ptrdiff_t>(wanted, 1, static_cast<std::ptrdiff_t>(series.BarCount));
    return ParseDate(series.QuoteDate[static_cast<std::size_t>(held)]);
}

void ChartZoom::AwaitReading() const {
    if (ahead_.valid()) ahead_.wait();
}

std::string ChartZoom::Remark() const {
    if (!IsWide()) return {};
    const WorkingSeries& series = wide_->analysis.series;
    return fmt::format("Series and studies over {} bars, {} - {}", series.BarCount, series.QuoteDate[1],
                       series.QuoteDate[series.BarCount]);
}

std::size_t ChartZoom::AllBars() {
    if (!history_) {
        Ahead ahead = ahead_.valid() ? ahead_.get() : Ahead{NextReading().Read(), nullptr};
        history_ = std::move(ahead.history);
        if (!wide_) wide_ = std::move(ahead.wide);
        if (history_->failure) own_.session.person.Say(Sentence(history_->failure));
    }
    if (!wide_) wide_ = std::make_unique<Wide>();
    return history_->failure ? OwnBars() : std::max(history_->series.BarCount, OwnBars());
}

std::size_t ChartZoom::OlderThanLists() {
    const std::size_t newestOfLists = AllBars() - NewerThanLists();
    return newestOfLists - std::min(newestOfLists, Shown().analysis.series.BarCount);
}

std::size_t ChartZoom::NewerThanLists() const {
    if (!IsWide()) return 0;
    return span_.back;
}

void ChartZoom::ShowWhole() {
    isWide_ = false;
    span_ = {};
    view_ = {};
}

ChartSpan ChartZoom::Within(ChartSpan span) {
    span.count = std::max(span.count, kClosestView);
    if (span.back + span.count <= OwnBars()) return span;
    const std::size_t all = AllBars();
    span.count = std::clamp(span.count, kClosestView, std::max(all, kWholeView));
    if (span.count >= all && all <= kWholeView) return {};
    span.count = std::min(span.count, std::max(all, kClosestView));
    span.back = std::min(span.back, all - std::min(all, span.count));
    return span;
}

void ChartZoom::Show(ChartSpan wanted) {
    const ChartSpan span = Within(wanted);
    if (span == ChartSpan{}) return ShowWhole();
    span_ = span;
    isWide_ = span.back + span.count > OwnBars();
    std::size_t newestOfLists = OwnBars() - std::min(OwnBars(), span.back);
    if (isWide_) {
        const std::size_t newest = AllBars() - span.back;
        MakeStretch(newest, std::min(newest, std::max(span.count, kWholeView)));
        newestOfLists = wide_->analysis.series.BarCount;
    }
    view_ = {newestOfLists - std::min(newestOfLists, span.count) + 1, span.count};
}

void ChartZoom::MakeStretch(std::size_t newest, std::size_t bars) {
    CopyBars(history_->series, newest - bars + 1, bars, wide_->analysis.series);
    KeepBarsAsRead(wide_->analysis.series, wide_->chart);
    ComputeIndicators(wide_->analysis.series, wide_->analysis.indicators);
    const SettingsTables& settings = own_.session.settings;
    if (HasCondition(settings, kBuySide)) ComputeBuySignals(settings, wide_->analysis, wide_->chart);
    if (HasCondition(settings, kSellSide)) ComputeSellSignals(settings, wide_->analysis, wide_->chart);
    PaintStretch();
}

void ChartZoom::PaintStretch() {
    TakeOver(own_.chart, wide_->chart);
    ChartContext stretch{own_.session, wide_->analysis, wide_->chart};
    PaintAllPanels(stretch);
}

}  // namespace brantlow
