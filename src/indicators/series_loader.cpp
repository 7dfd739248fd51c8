#include "base/failure.h"
#include "base/files.h"
#include "base/numbers.h"
#include "base/text.h"
#include "indicators/history_row.h"
#include "indicators/record_days.h"
#include "indicators/rewritten_series.h"
#include "indicators/series_folding.h"
#include "indicators/whole_history.h"
#include "indicators/year_plan.h"
#include "store/year_files.h"
#include "store/year_growth.h"

namespace brantlow {

namespace {

constexpr std::size_t kYearDigits = 2;

// The texts of the ticker's year files, oldest first, up to the last day looked at; a missing one is empty.
// Half lines are left out where somebody wants to know of them.
Failure ReadYears(const HistorySource& source, std::string_view ticker, std::size_t years,
                  std::vector<Path>* halfLines, std::vector<std::string>& texts) {
    for (const std::string& year : YearTexts(source.NewestDay(), years)) {
        std::string& text = texts.emplace_back();
        const std::optional<Path> path = YearFilePath(source.QuoteFolder, ticker, year);
        if (!path) continue;
        if (Failure failure = ReadIfThere(*path, text)) return std::move(failure).Of(ticker);
        std::size_t end = halfLines == nullptr ? text.size() : WithoutHalfLine(text).size();
        if (end < text.size()) halfLines->push_back(*path);
        if (source.lastDay) DropRecordsAfter(*source.lastDay, text, 0, end);
        text.resize(end);
    }
    return {};
}

// The row about to be read loses its open before the end of the file is met, so the element behind the last
// row is emptied too; where the file has no rows that is the newest bar so far.
void AppendYear(std::string_view text, WorkingSeries& series) {
    LineReader lines(text);
    std::string_view line;
    HistoryRow row;
    for (std::size_t i = series.BarCount; i <= kMostRows; ++i) {
        series.OpenPrice.Empty(i);
        if (!lines.Next(line)) break;
        ParseHistoryRow(line, row);
        StoreHistoryRow(row, i, series);
        series.LastRowRead = i;
    }
    series.BarCount = series.LastRowRead;
}

// Nothing is stored unless every file could be read.
Failure LoadYears(const HistorySource& source, std::string_view ticker, std::size_t years,
                  WorkingSeries& series, std::vector<Path>* halfLines = nullptr) {
    std::vector<std::string> texts;
    if (Failure failure = ReadYears(source, ticker, years, halfLines, texts)) return failure;
    series.BarCount = 1;
    series.LastRowRead = 0;
    for (const std::string& text : texts) AppendYear(text, series);
    return {};
}

}  // namespace

std::vector<std::string> YearTexts(const Date& today, std::size_t count) {
    constexpr std::size_t kCentury = 100;
    const std::string shortDate = FormatDate(today);
    const auto newest =
        static_cast<std::size_t>(LeadingNumber(shortDate.substr(shortDate.size() - kYearDigits)));
    std::vector<std::string> years;
    for (std::size_t f = 0; f < count; ++f) {
        const std::string number = std::to_string(newest + kCentury - (count - 1) + f);
        years.push_back(number.substr(number.size() - kYearDigits));
    }
    return years;
}

Failure LoadRecentSeries(const HistorySource& source, std::string_view ticker, WorkingSeries& series) {
    return LoadYears(source, ticker, kRecentYears, series);
}

Failure LoadFullSeries(const HistorySource& source, std::string_view ticker, WorkingSeries& series) {
    return LoadYears(source, ticker, kFullYears, series);
}

Failure LoadSeriesToRewrite(const HistorySource& source, std::string_view ticker, WorkingSeries& series,
                            std::vector<Path>& halfLines) {
    return LoadYears(source, ticker, kFullYears, series, &halfLines);
}

Failure LoadWholeHistory(const HistorySource& source, std::string_view ticker, Interval interval,
                         WorkingSeries& series) {
    if (Failure failure = LoadFullSeries(source, ticker, series)) return failure;
    if (interval == Interval::Weekly) FoldBars(kWeekly, series);
    if (interval == Interval::Monthly) FoldBars(kMonthly, series);
    series.LastBar = series.BarCount;
    return {};
}

Failure LoadSeriesFor(const HistorySource& source, std::string_view ticker, Interval interval,
                      WorkingSeries& series) {
    if (Failure failure = LoadYears(source, ticker, YearsFor(interval), series)) return failure;
    if (interval == Interval::Weekly) MakeWeeklySeries(series);
    if (interval == Interval::Monthly) MakeMonthlySeries(series);
    WindowSeries(0, series);
    return {};
}

}  // namespace brantlow
