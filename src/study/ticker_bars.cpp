#include "study/ticker_bars.h"

#include <algorithm>
#include <optional>
#include <unordered_set>
#include <utility>

#include "indicators/history_row.h"
#include "indicators/history_text.h"
#include "indicators/record_days.h"
#include "indicators/year_plan.h"

namespace brantlow {

namespace {

constexpr int kFirstYearOfLastCentury = 30;

// The year of a file's name, "ABC.26"; nothing where the name ends otherwise.
std::optional<int> YearOfFile(const Path& file) {
    const std::string name = file.extension().string();
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (name.size() != 3 || !isDigit(name[1]) || !isDigit(name[2])) return std::nullopt;
    const int year = (name[1] - '0') * 10 + (name[2] - '0');
    return year + (year < kFirstYearOfLastCentury ? 2000 : 1900);
}

// The close of a record, 0 where it has none.
double CloseOf(std::string_view line) {
    std::size_t at = 0;
    for (std::size_t field = 0; field < kNumberFields[kCloseSlot].field; ++field) {
        at = line.find(',', at);
        if (at == std::string_view::npos) return 0;
        ++at;
    }
    const char* text = line.data() + at;
    return ReadNumberField(text, line.data() + line.size());
}

std::string_view DateFieldOf(std::string_view line) {
    const std::string_view field = line.substr(0, line.find(','));
    return field.size() < 2 ? std::string_view() : field.substr(1, field.size() - 2);
}

// Of several bars of one date the last one stays.
void KeepLastOfEachDay(std::vector<TickerBar>& bars) {
    const auto isBefore = [](const TickerBar& a, const TickerBar& b) { return a.day.day < b.day.day; };
    const bool rising = std::adjacent_find(bars.begin(), bars.end(), [&](const auto& a, const auto& b) {
                            return !isBefore(a, b);
                        }) == bars.end();
    if (rising) return;
    std::unordered_set<std::int32_t> seen;
    std::vector<TickerBar> kept;
    for (auto bar = bars.rbegin(); bar != bars.rend(); ++bar)
        if (seen.insert(bar->day.day).second) kept.push_back(*bar);
    std::reverse(kept.begin(), kept.end());
    bars = std::move(kept);
}

}  // namespace

void TickerBars::TakeRecord(std::string_view line, int year) {
    const std::string_view field = DateFieldOf(line);
    const std::optional<Date> date = DayOfField(field);
    if (!date) {
        orderly_ = orderly_ && hasDayBefore_;
        return;
    }
    const std::int32_t day = DayNumberOf(*date);
    const bool inOrder = !hasDayBefore_ || day >= dayBefore_;
    orderly_ = orderly_ && inOrder && static_cast<int>(date->year()) == year;
    hasDayBefore_ = true;
    dayBefore_ = day;
    if (*date <= today_) bars_.push_back({{day, writings_.Of(*date, field)}, CloseOf(line)});
}

Failure TickerBars::TakeFile(const Path& file, int year) {
    std::size_t used = 0;
    if (Failure failure = ReadBehindIfThere(file, buffer_, used)) return failure;
    lines_.clear();
    const std::size_t fewestCommas = ScanLines(buffer_.data(), 0, used, lines_);
    if (fewestCommas + 1 < kHistoryFieldCount) orderly_ = false;
    hasDayBefore_ = false;
    for (const LineSpan& line : lines_)
        TakeRecord({buffer_.data() + line.start, static_cast<std::size_t>(line.end - line.start)}, year);
    return {};
}

// The full series of today, folded and not windowed.
Failure TickerBars::TakeWeeks(std::string_view ticker) {
    bars_.clear();
    HistoryText text;
    if (Failure failure = text.Load(quoteFolder_, ticker, YearTexts(today_, kFullYears), today_))
        return failure;
    HistoryBar bar;
    for (std::size_t i = 1; i <= text.BarCount(Interval::Weekly); ++i) {
        text.Bar(Interval::Weekly, i, bar);
        const std::string_view field = bar.row.texts[0];
        if (const std::optional<Date> date = DayOfField(field))
            bars_.push_back({{DayNumberOf(*date), writings_.Of(*date, field)}, bar.row.numbers[kCloseSlot]});
    }
    return {};
}

// Nothing before the first evaluated day is ever asked for.
void TickerBars::KeepFrom(std::int32_t first) {
    const auto start = std::find_if(bars_.begin(), bars_.end(),
                                    [first](const TickerBar& bar) { return bar.day.day >= first; });
    bars_.erase(bars_.begin(), start);
}

Failure TickerBars::Load(std::string_view ticker, std::span<const Path> files, Interval interval,
                         const Date& from) {
    bars_.clear();
    orderly_ = true;
    std::vector<std::pair<int, const Path*>> years;
    for (const Path& file : files)
        if (const std::optional<int> year = YearOfFile(file)) years.emplace_back(*year, &file);
    std::sort(years.begin(), years.end());
    Failure failure;
    for (const auto& [year, file] : years) KeepFirst(failure, TakeFile(*file, year));
    if (interval == Interval::Weekly) KeepFirst(failure, TakeWeeks(ticker));
    if (failure) {
        bars_.clear();
        return std::move(failure).Of(ticker);
    }
    KeepLastOfEachDay(bars_);
    KeepFrom(DayNumberOf(from));
    return {};
}

}  // namespace brantlow
