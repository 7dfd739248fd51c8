#include "market/market_data.h"

#include <gtest/gtest.h>

#include "market/history_reply.h"
#include "market/practice_dice.h"
#include "market_fixture.h"
#include "practice/practice.h"
#include "store/year_files.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

TEST(MarketData, HoldsTheShippedTickers) {
    EXPECT_EQ(ShippedData().Tickers().size(), 43u);
    ASSERT_NE(ShippedData().Find("BRK.B"), nullptr);
    EXPECT_EQ(ShippedData().Find("BRK.B")->about.exchange, "NYSE");
    EXPECT_EQ(ShippedData().Find("brk.b"), nullptr);
    EXPECT_EQ(ShippedData().Find(""), nullptr);
}

TEST(MarketData, LeavesTickersWithoutPricesOut) {
    const TempFolder folder;
    ASSERT_FALSE(WriteWholeFile(folder.Get() / "tickers.csv", "Ticker,Name,Exchange\nAB,Ab,NYSE\n"));
    EXPECT_TRUE(MarketData::Read(folder.Get()).Tickers().empty());
    EXPECT_TRUE(MarketData::Read(folder.Get() / "none").Tickers().empty());
}

TEST(MarketData, ByTheWeeksOfADayThePricesGoOnUpToIt) {
    const MarketData data = MarketData::Read(ShippedPrices(), kSaturday);
    for (const auto& [name, ticker] : data.Tickers()) {
        const TradedDays last(ticker, kSaturday);
        for (int back = 1; back <= 14; ++back) {
            const Date day = AddDays(kSaturday, -back);
            const TradedDays earlier(ticker, day);
            ASSERT_LE(earlier.Count(), last.Count()) << name;
            ASSERT_GT(earlier.Count(), 0u) << name;
            const std::size_t newest = earlier.Count() - 1;
            EXPECT_EQ(earlier.DateOf(newest), last.DateOf(newest)) << name;
            EXPECT_LE(earlier.DateOf(newest), day) << name;
        }
    }
    // Before its day a split is in no price.
    const MarketTicker& split = *data.Find("NFLX");
    EXPECT_EQ(TradedDays(split, Day(2026, 11, 17)).SplitFactorAt(0), 1);
    EXPECT_EQ(TradedDays(split, Day(2026, 11, 18)).SplitFactorAt(0), 1.0 / 7);
}

TEST(TradedDays, EndOnTheDayItself) {
    // A's last days before its move are 2018-02-02 (a Friday) and 02-05 to 02-07.
    const MarketTicker& ticker = *ShippedData().Find("A");
    struct Row {
        Date today;
        Date newest;
        double close;
    };
    for (const Row& row :
         {Row{Day(2026, 11, 21), Day(2026, 11, 20), 71.25}, Row{Day(2026, 11, 22), Day(2026, 11, 20), 71.25},
          Row{Day(2026, 11, 23), Day(2026, 11, 23), 68.22}, Row{Day(2026, 11, 24), Day(2026, 11, 24), 68.45},
          Row{Day(2026, 11, 25), Day(2026, 11, 25), 68.06}}) {
        const TradedDays days(ticker, row.today);
        ASSERT_GT(days.Count(), 0u);
        EXPECT_EQ(FormatIsoDate(days.DateOf(days.Count() - 1)), FormatIsoDate(row.newest));
        EXPECT_DOUBLE_EQ(days.At(days.Count() - 1).close, row.close);
    }
}

TEST(TradedDays, FindTheFirstDayFromADate) {
    const TradedDays days(*ShippedData().Find("A"), kSaturday);
    EXPECT_EQ(days.FirstFrom(Day(1990, 1, 1)), 0u);
    EXPECT_EQ(days.FirstFrom(Day(2026, 11, 20)), days.Count() - 1);
    EXPECT_EQ(days.FirstFrom(Day(2026, 11, 21)), days.Count());
    EXPECT_EQ(days.FirstFrom(Day(2040, 1, 1)), days.Count());
}

TEST(TradedDays, CompareOnlyThePricesBeforeASplitByItsFactor) {
    const TradedDays days(*ShippedData().Find("NFLX"), kSaturday);
    const std::size_t split = days.FirstFrom(Day(2026, 11, 18));
    EXPECT_DOUBLE_EQ(days.At(split).close, 98.13);
    EXPECT_DOUBLE_EQ(days.SplitFactorAt(split), 1);
    EXPECT_DOUBLE_EQ(days.SplitFactorAt(split - 1), 1.0 / 7);
    EXPECT_DOUBLE_EQ(days.SplitFactorAt(0), 1.0 / 7);
    const TradedDays others(*ShippedData().Find("A"), kSaturday);
    EXPECT_DOUBLE_EQ(others.SplitFactorAt(0), 1);
}

// The market continues what the practice table begins: for each day of a week and across a new year, all of a
// ticker's stored days are those that the history tells.
TEST(TradedDays, TellTheHistoryThatThePracticeTableStores) {
    for (const Date& today : {Day(2026, 11, 16), Day(2026, 11, 18), Day(2026, 11, 19), kSaturday,
                              Day(2027, 1, 1), Day(2028, 2, 29)}) {
        const TempFolder folder;
        const PracticeTarget target{
            {folder.Get(), "now"}, folder.Get() / "Data", folder.Get().string() + "/Quotes/", today};
        ASSERT_EQ(FillPractice(ShippedPrices(), target).outcome, PracticeOutcome::Filled);
        for (const std::string ticker : {"A", "NFLX", "BRK.B", "SPX"}) {
            std::string stored;
            for (const Path& file : YearFilesOf(target.quoteFolder, ticker)) stored += BytesOrEmpty(file);
            std::string told;
            auto lines = LinesOf(Ask("/table.txt?s=" + ticker, today).body);
            ASSERT_GT(lines.size(), 1u);
            for (std::size_t i = lines.size(); i-- > 1;) {
                const auto fields = FieldsOfLine(lines[i], ',');
                HistoryRecord record;
                record.HistoryDate = ReformatDate(fields[0]);
                record.HistoryOpen = std::stod(fields[1]);
                record.HistoryHigh = std::stod(fields[2]);
                record.HistoryLow = std::stod(fields[3]);
                record.HistoryClose = std::stod(fields[4]);
                record.HistoryVolume = std::stod(fields[5]);
                AppendHistoryLine(record, told);
            }
            EXPECT_TRUE(stored == told) << ticker << ' ' << FormatIsoDate(today);
        }
    }
}

TEST(PracticeDice, GiveTheSameShareForTheSameTextsOnly) {
    EXPECT_EQ(ShareOf("A", "beta"), ShareOf("A", "beta"));
    EXPECT_NE(ShareOf("A", "beta"), ShareOf("A", "peg"));
    EXPECT_NE(ShareOf("A", "beta"), ShareOf("B", "beta"));
    EXPECT_NE(ShareOf("AB", "C"), ShareOf("A", "BC"));
    double sum = 0;
    constexpr int kDraws = 1000;
    for (int i = 0; i < kDraws; ++i) {
        const double share = ShareOf("A", std::to_string(i));
        ASSERT_GE(share, 0);
        ASSERT_LT(share, 1);
        sum += share;
    }
    EXPECT_NEAR(sum / kDraws, 0.5, 0.05);
}

}  // namespace
}  // namespace brantlow
