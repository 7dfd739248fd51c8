#include "splits/split_adjustment.h"

#include <array>

#include "base/numbers.h"
#include "indicators/rewritten_series.h"
#include "splits/split_factors.h"
#include "store/hand_drawings.h"
#include "store/history_rewrite.h"
#include "store/year_files.h"

namespace brantlow {

namespace {

// P/E, PEG and P/S are ratios to the price and stay; so do the dates and the market cap.
constexpr std::array<NumberSeries WorkingSeries::*, 10> kDividedSeries = {
    &WorkingSeries::ClosePrice,   &WorkingSeries::OpenPrice, &WorkingSeries::Low52Week,
    &WorkingSeries::High52Week,   &WorkingSeries::HighPrice, &WorkingSeries::LowPrice,
    &WorkingSeries::EPSttm,       &WorkingSeries::EPSest,    &WorkingSeries::DividendPerShare,
    &WorkingSeries::PreviousClose};

HistoryRecord RecordOfBar(const WorkingSeries& series, std::size_t i) {
    HistoryRecord record;
    record.HistoryDate = series.QuoteDate[i];
    record.HistoryTime = series.QuoteTime[i];
    record.HistoryClose = series.ClosePrice[i];
    record.HistoryLow = series.LowPrice[i];
    record.HistoryHigh = series.HighPrice[i];
    record.HistoryVolume = series.Volume[i];
    record.HistoryPE = series.PERatio[i];
    record.HistoryEPS = series.EPSttm[i];
    record.HistoryPEG = series.PEGRatio[i];
    record.HistoryEPSest = series.EPSest[i];
    record.HistoryDividend = series.DividendPerShare[i];
    record.HistoryDividendDate = series.DividendPayDate[i];
    record.HistoryXDividendDate = series.ExDividendDate[i];
    record.HistoryPreviousClose = series.PreviousClose[i];
    record.History52WeekLow = series.Low52Week[i];
    record.History52WeekHigh = series.High52Week[i];
    record.HistoryPS = series.PriceToSales[i];
    record.HistoryMarketCap = series.MarketCap[i];
    record.HistoryOpen = series.OpenPrice[i];
    RoundHistoryRecord(record);
    return record;
}

YearFileTexts TextsOfSeries(const WorkingSeries& series) {
    YearFileTexts texts;
    for (std::size_t i = 1; i <= series.BarCount; ++i) {
        const HistoryRecord record = RecordOfBar(series, i);
        if (record.HistoryClose > 0) texts.Add(record);
    }
    return texts;
}

}  // namespace

std::size_t FindSplit(const WorkingSeries& series, double SplitFactor) {
    const SplitBand* band = BandOfFactor(SplitFactor);
    if (band == nullptr) return 0;
    for (std::size_t i = series.BarCount; i >= 2; --i) {
        if (series.ClosePrice[i] == 0) continue;
        const auto PriceRatio = Divide(series.ClosePrice[i], series.ClosePrice[i - 1]);
        if (PriceRatio && band->Contains(*PriceRatio)) return i - 1;
    }
    return 0;
}

void RestateBars(std::size_t SplitIndex, double SplitFactor, WorkingSeries& series) {
    for (std::size_t i = 1; i <= SplitIndex; ++i) {
        for (NumberSeries WorkingSeries::*divided : kDividedSeries) {
            NumberSeries& values = series.*divided;
            if (const auto value = Divide(values[i], SplitFactor)) values.Set(i, *value);
        }
        series.Volume.Set(i, series.Volume[i] * SplitFactor);
    }
}

SplitAdjustment PrepareSplit(const HistorySource& source, const Path& dataFolder, std::string_view ticker,
                             double SplitFactor, WorkingSeries& series, FileChange& change) {
    SplitAdjustment adjustment;
    adjustment.error = LoadSeriesToRewrite(source, ticker, series, adjustment.halfLines);
    if (adjustment.error) return adjustment;
    adjustment.SplitIndex = FindSplit(series, SplitFactor);
    if (adjustment.SplitIndex == 0) return adjustment;
    RestateBars(adjustment.SplitIndex, SplitFactor, series);
    Failure unread;
    std::vector<Path> files = YearFilesOf(source.QuoteFolder, ticker, &unread);
    if (unread) return {.error = unread};
    if (const auto firstDay = ParseDate(series.QuoteDate[adjustment.SplitIndex + 1])) {
        adjustment.error = PrepareRestatedDrawings(dataFolder, ticker, *firstDay, SplitFactor, change);
        if (adjustment.error) return adjustment;
    }
    adjustment.error =
        PrepareTickerHistory(source.QuoteFolder, ticker, TextsOfSeries(series).Files(), files, change);
    return adjustment;
}

SplitAdjustment AdjustForSplit(const HistorySource& source, const ChangePlace& place, std::string_view ticker,
                               double SplitFactor, WorkingSeries& series) {
    FileChange change(place, "Split " + std::string(ticker) + " by " + ShortestNumber(SplitFactor));
    SplitAdjustment adjustment =
        PrepareSplit(source, place.appPath / "Data", ticker, SplitFactor, series, change);
    if (!adjustment.error) adjustment.error = change.Commit();
    return adjustment;
}

}  // namespace brantlow
