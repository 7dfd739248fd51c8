#include "acquire/feeds/live/trailing_year.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

#include "base/numbers.h"

namespace brantlow {

namespace {

using std::chrono::days;
using std::chrono::sys_days;

constexpr days kStale{185};
constexpr days kGap{10};
constexpr std::size_t kQuarters = 4;

enum class Period { Quarter, Half, NineMonths, Year, Other };

struct PeriodRow {
    int shortest;
    int longest;
    Period period;
};
constexpr std::array<PeriodRow, 4> kPeriods = {{{70, 120, Period::Quarter},
                                                {140, 229, Period::Half},
                                                {230, 329, Period::NineMonths},
                                                {330, 420, Period::Year}}};

Period PeriodOf(const FiledFact& fact) {
    if (!fact.start) return Period::Other;
    const auto length = (fact.end - *fact.start).count();
    for (const PeriodRow& row : kPeriods) {
        if (length >= row.shortest && length <= row.longest) return row.period;
    }
    return Period::Other;
}

bool IsPeriodic(const std::string& form) {
    return form.starts_with("10-Q") || form.starts_with("10-K");
}

bool IsNear(sys_days a, sys_days b) {
    return (a > b ? a - b : b - a) <= kGap;
}

bool IsStale(sys_days end, sys_days today) {
    return end + kStale < today;
}

// The fact of a kind whose period begins where `fact`'s does and ends a quarter earlier.
const FiledFact* ShorterBy(const std::vector<FiledFact>& facts, const FiledFact& fact, Period kind) {
    for (const FiledFact& other : facts) {
        if (PeriodOf(other) == kind && IsNear(*other.start, *fact.start)) return &other;
    }
    return nullptr;
}

std::optional<Period> PeriodBefore(Period period) {
    if (period == Period::Half) return Period::Quarter;
    if (period == Period::NineMonths) return Period::Half;
    if (period == Period::Year) return Period::NineMonths;
    return std::nullopt;
}

bool HasQuarter(const std::vector<QuarterValue>& quarters, sys_days end) {
    return std::any_of(quarters.begin(), quarters.end(),
                       [&](const QuarterValue& quarter) { return IsNear(quarter.end, end); });
}

std::vector<QuarterValue> ToldQuarters(const std::vector<FiledFact>& facts) {
    std::vector<QuarterValue> quarters;
    for (const FiledFact& fact : facts) {
        if (PeriodOf(fact) == Period::Quarter) quarters.push_back({*fact.start, fact.end, fact.value});
    }
    return quarters;
}

// A year less its three told quarters, where no nine months are told.
std::optional<double> YearLessQuarters(const FiledFact& year, const std::vector<QuarterValue>& quarters) {
    double sum = 0;
    std::size_t count = 0;
    for (const QuarterValue& quarter : quarters) {
        const bool isWithin = quarter.start + kGap >= *year.start && quarter.end < year.end - kGap;
        if (!isWithin) continue;
        sum += quarter.value;
        ++count;
    }
    return count == kQuarters - 1 ? std::optional(year.value - sum) : std::nullopt;
}

void SortQuarters(std::vector<QuarterValue>& quarters) {
    std::sort(quarters.begin(), quarters.end(),
              [](const QuarterValue& a, const QuarterValue& b) { return a.end < b.end; });
}

// The last four quarters where each begins right behind the one before it.
std::optional<TrailingYear> SumOfQuarters(const std::vector<QuarterValue>& quarters) {
    if (quarters.size() < kQuarters) return std::nullopt;
    const std::size_t first = quarters.size() - kQuarters;
    double sum = quarters[first].value;
    for (std::size_t i = first + 1; i < quarters.size(); ++i) {
        if (!IsNear(quarters[i].start, quarters[i - 1].end)) return std::nullopt;
        sum += quarters[i].value;
    }
    return TrailingYear{sum, quarters.back().end};
}

// The newest year, with the time since then and less the same time of the year before.
std::optional<TrailingYear> YearAndSince(const std::vector<FiledFact>& facts) {
    const FiledFact* year = nullptr;
    for (const FiledFact& fact : facts) {
        if (PeriodOf(fact) == Period::Year && (year == nullptr || fact.end > year->end)) year = &fact;
    }
    if (year == nullptr) return std::nullopt;
    const FiledFact* since = nullptr;
    for (const FiledFact& fact : facts) {
        const bool follows = fact.start && IsNear(*fact.start, year->end) && PeriodOf(fact) != Period::Year;
        if (follows && (since == nullptr || fact.end > since->end)) since = &fact;
    }
    if (since == nullptr) return TrailingYear{year->value, year->end};
    for (const FiledFact& fact : facts) {
        const bool isYearBefore =
            fact.start && IsNear(*fact.start, *year->start) && PeriodOf(fact) == PeriodOf(*since);
        if (isYearBefore) return TrailingYear{year->value + since->value - fact.value, since->end};
    }
    return TrailingYear{year->value, year->end};
}

std::optional<double> ValueAt(const std::vector<FiledFact>& facts, Period period, sys_days end) {
    for (const FiledFact& fact : facts) {
        if (PeriodOf(fact) == period && IsNear(fact.end, end)) return fact.value;
    }
    return std::nullopt;
}

// The shares of a year's last quarter.
std::optional<double> LastQuarterShares(const std::vector<FiledFact>& shares, const FiledFact& year) {
    const auto average = ValueAt(shares, Period::Year, year.end);
    if (!average || !(*average > 0)) return std::nullopt;
    const FiledFact* nine = ShorterBy(shares, year, Period::NineMonths);
    constexpr double kSmallMove = 0.03;
    if (nine == nullptr || std::abs(nine->value / *average - 1) < kSmallMove) return average;
    constexpr double kQuartersOfYear = 4;
    constexpr double kQuartersOfNine = 3;
    const double derived = kQuartersOfYear * *average - kQuartersOfNine * nine->value;
    return derived > 0 ? std::optional(derived) : average;
}

}  // namespace

std::vector<FiledFact> LatestFacts(const std::vector<FiledFact>& facts) {
    std::map<std::pair<sys_days, sys_days>, FiledFact> byPeriod;
    for (const FiledFact& fact : facts) {
        if (!fact.start || !IsPeriodic(fact.form)) continue;
        const auto key = std::pair(*fact.start, fact.end);
        const auto found = byPeriod.find(key);
        if (found == byPeriod.end()) {
            byPeriod.emplace(key, fact);
        } else if (fact.filed >= found->second.filed) {
            found->second = fact;
        }
    }
    std::vector<FiledFact> latest;
    for (const auto& [period, fact] : byPeriod) latest.push_back(fact);
    return latest;
}

std::vector<QuarterValue> QuartersOf(const std::vector<FiledFact>& facts, MayBeNegative negative) {
    const std::vector<FiledFact> latest = LatestFacts(facts);
    std::vector<QuarterValue> quarters = ToldQuarters(latest);
    for (const FiledFact& fact : latest) {
        const auto before = PeriodBefore(PeriodOf(fact));
        if (!before || HasQuarter(quarters, fact.end)) continue;
        const FiledFact* shorter = ShorterBy(latest, fact, *before);
        std::optional<double> rest;
        if (shorter != nullptr) rest = fact.value - shorter->value;
        if (!rest && PeriodOf(fact) == Period::Year) rest = YearLessQuarters(fact, quarters);
        if (!rest || (*rest < 0 && negative == MayBeNegative::No)) continue;
        constexpr days kQuarterLength{91};
        const sys_days start = shorter != nullptr ? shorter->end + days{1} : fact.end - kQuarterLength;
        quarters.push_back({start, fact.end, *rest});
    }
    SortQuarters(quarters);
    return quarters;
}

std::optional<TrailingYear> SumOfYear(const std::vector<FiledFact>& facts, MayBeNegative negative,
                                      sys_days today) {
    std::optional<TrailingYear> sum = SumOfQuarters(QuartersOf(facts, negative));
    if (!sum) sum = YearAndSince(LatestFacts(facts));
    if (sum && IsStale(sum->end, today)) return std::nullopt;
    return sum;
}

std::optional<TrailingYear> EarningsOfYear(const std::vector<FiledFact>& perShare,
                                           const std::vector<FiledFact>& income,
                                           const std::vector<FiledFact>& shares, sys_days today) {
    const std::vector<FiledFact> latest = LatestFacts(perShare);
    const std::vector<FiledFact> latestShares = LatestFacts(shares);
    const std::vector<QuarterValue> incomes = QuartersOf(income, MayBeNegative::Yes);
    std::vector<QuarterValue> quarters = ToldQuarters(latest);
    for (const FiledFact& fact : latest) {
        if (PeriodOf(fact) != Period::Year || HasQuarter(quarters, fact.end)) continue;
        const auto quarter = std::find_if(incomes.begin(), incomes.end(), [&](const QuarterValue& value) {
            return IsNear(value.end, fact.end);
        });
        const auto count = LastQuarterShares(latestShares, fact);
        if (quarter != incomes.end() && count) {
            quarters.push_back({quarter->start, quarter->end, quarter->value / *count});
        }
    }
    SortQuarters(quarters);
    std::optional<TrailingYear> sum = SumOfQuarters(quarters);
    // Sums of what was told are right to a cent or two.
    if (!sum) sum = SumOfYear(perShare, MayBeNegative::Yes, today);
    if (sum && IsStale(sum->end, today)) return std::nullopt;
    return sum;
}

std::optional<TrailingYear> NewestValue(const std::vector<FiledFact>& facts, sys_days today) {
    const FiledFact* newest = nullptr;
    for (const FiledFact& fact : facts) {
        const bool isNewer = newest == nullptr || fact.end > newest->end ||
                             (fact.end == newest->end && fact.filed >= newest->filed);
        if (isNewer) newest = &fact;
    }
    if (newest == nullptr || IsStale(newest->end, today)) return std::nullopt;
    return TrailingYear{newest->value, newest->end};
}

void ScaleForSplits(std::vector<FiledFact>& perShare, const std::vector<FiledSplit>& splits) {
    for (const FiledSplit& split : splits) {
        for (FiledFact& fact : perShare) {
            if (fact.filed < split.day) fact.value = Divide(fact.value, split.factor).value_or(fact.value);
        }
    }
}

}  // namespace brantlow
