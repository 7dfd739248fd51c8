#include "chart/time_axis.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "base/dates.h"

namespace brantlow {

namespace {

constexpr std::array<std::string_view, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr int kMonthsAYear = 12;
constexpr int kDaysAWeek = 7;

int YearOf(const Date& date) {
    return static_cast<int>(date.year());
}

int MonthOf(const Date& date) {
    return static_cast<int>(static_cast<unsigned>(date.month())) - 1;
}

// Weeks begin on Monday; the first day of the count was a Thursday.
int WeekOf(const Date& date) {
    constexpr int kThursday = 3;
    const int days = static_cast<int>(std::chrono::sys_days(date).time_since_epoch().count()) + kThursday;
    return days >= 0 ? days / kDaysAWeek : (days - kDaysAWeek + 1) / kDaysAWeek;
}

// A span of so many months; 0 is a week.
struct Span {
    int months;
};
constexpr std::array kSpans = {Span{0}, Span{1}, Span{3}, Span{6}, Span{12}, Span{24}, Span{60}, Span{120}};

int NumberOf(const Date& date, Span span) {
    if (span.months == 0) return WeekOf(date);
    return (YearOf(date) * kMonthsAYear + MonthOf(date)) / span.months;
}

std::string TextOf(const Date& date, Span span, bool isYear) {
    if (isYear) return std::to_string(YearOf(date));
    const std::string_view month = kMonths[static_cast<std::size_t>(MonthOf(date))];
    if (span.months == 0) return fmt::format("{} {}", month, static_cast<unsigned>(date.day()));
    return std::string(month);
}

using Days = std::vector<std::optional<Date>>;

// The marks of one span, whatever room they have.
std::vector<AxisTick> TicksOf(const Days& days, std::size_t first, Span span) {
    std::vector<AxisTick> ticks;
    std::optional<Date> before;
    for (std::size_t i = 0; i < days.size(); ++i) {
        if (!days[i]) continue;
        if (before && NumberOf(*before, span) != NumberOf(*days[i], span)) {
            const bool isYear = YearOf(*before) != YearOf(*days[i]);
            ticks.push_back({first + i, TextOf(*days[i], span, isYear), isYear});
        }
        before = days[i];
    }
    return ticks;
}

bool HaveRoom(const std::vector<AxisTick>& ticks, const ChartView& view, double leastGap) {
    for (std::size_t i = 1; i < ticks.size(); ++i) {
        if (static_cast<double>(ticks[i].bar - ticks[i - 1].bar) * view.Spacing() < leastGap) return false;
    }
    return true;
}

}  // namespace

std::vector<AxisTick> TimeAxisOf(const TextSeries& dates, std::size_t barCount, const ChartView& view,
                                 double leastGap, double leastWeekGap) {
    Days days;
    for (std::size_t bar = view.first; bar <= std::min(view.Last(), barCount); ++bar) {
        days.push_back(ParseDate(dates[bar]));
    }
    for (const Span span : kSpans) {
        std::vector<AxisTick> ticks = TicksOf(days, view.first, span);
        if (HaveRoom(ticks, view, span.months == 0 ? leastWeekGap : leastGap)) return ticks;
    }
    return {};
}

}  // namespace brantlow
