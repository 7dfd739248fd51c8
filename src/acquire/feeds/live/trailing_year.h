// A company's last twelve months out of the periods that its filings tell: quarters are told or worked out
// from longer periods, four of them in a row make the year.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace brantlow {

// A value of a filing. Without a start it is a value on a day.
struct FiledFact {
    std::optional<std::chrono::sys_days> start;
    std::chrono::sys_days end;
    double value = 0;
    std::string form;  // "10-Q", "10-K/A"
    std::chrono::sys_days filed;
};

struct TrailingYear {
    double value = 0;
    std::chrono::sys_days end;
};

struct QuarterValue {
    std::chrono::sys_days start;
    std::chrono::sys_days end;
    double value = 0;
};

// Of several facts of one period the one filed last, those of yearly and quarterly reports only.
std::vector<FiledFact> LatestFacts(const std::vector<FiledFact>& facts);

enum class MayBeNegative { No, Yes };

// The quarters, oldest first: those that are told, and those that a half year, nine months or a year leave
// over beside them. A worked-out quarter below 0 is none where that may not be.
std::vector<QuarterValue> QuartersOf(const std::vector<FiledFact>& facts, MayBeNegative negative);

// The sum of the four quarters that end last, without a gap of more than ten days; else the last year with
// the time since then and without the same time of the year before. Nothing when its end is more than 185
// days before `today`.
std::optional<TrailingYear> SumOfYear(const std::vector<FiledFact>& facts, MayBeNegative negative,
                                      std::chrono::sys_days today);

// Earnings a share: they do not add up over quarters of different share counts. A quarter that is not told is
// its income by its shares, four times the year's average less three times that of nine months; the year's
// average where the two are within 3 per cent.
std::optional<TrailingYear> EarningsOfYear(const std::vector<FiledFact>& perShare,
                                           const std::vector<FiledFact>& income,
                                           const std::vector<FiledFact>& shares, std::chrono::sys_days today);

// The newest value on a day, or of a period's end, not more than 185 days old.
std::optional<TrailingYear> NewestValue(const std::vector<FiledFact>& facts, std::chrono::sys_days today);

// Values a share that were filed before a split stand for fewer shares.
struct FiledSplit {
    std::chrono::sys_days day;
    double factor = 1;
};
void ScaleForSplits(std::vector<FiledFact>& perShare, const std::vector<FiledSplit>& splits);

}  // namespace brantlow
