#include "indicators/series_pipeline.h"

#include <bit>
#include <memory>

#include "indicators/history_row.h"
#include "indicators/history_text.h"
#include "indicators/line_scan.h"
#include "indicators/series_folding.h"
#include "indicators/year_plan.h"
#include "random_histories.h"
#include "store/year_files.h"
#include "support/bits.h"

namespace brantlow {
namespace {

void ExpectSameNumbers(std::string_view name, const NumberSeries& actual, const NumberSeries& wanted,
                       std::size_t last) {
    for (std::size_t i = 0; i <= last; ++i) {
        ASSERT_EQ(actual.State(i), wanted.State(i)) << name << "[" << i << "]";
        ASSERT_EQ(Bits(actual[i]), Bits(wanted[i]))
            << name << "[" << i << "] is " << actual[i] << " and not " << wanted[i];
    }
}

void ExpectSameTexts(std::string_view name, const TextSeries& actual, const TextSeries& wanted,
                     std::size_t last) {
    for (std::size_t i = 0; i <= last; ++i) {
        ASSERT_EQ(actual.State(i), wanted.State(i)) << name << "[" << i << "]";
        ASSERT_EQ(actual[i], wanted[i]) << name << "[" << i << "]";
    }
}

void ExpectSameBars(const Analysis& actual, const Analysis& wanted, std::size_t last) {
    EXPECT_EQ(actual.series.BarCount, wanted.series.BarCount);
    EXPECT_EQ(actual.series.LastBar, wanted.series.LastBar);
    for (const NumberField& field : kNumberFields) {
        ExpectSameNumbers(field.name, actual.series.*field.series, wanted.series.*field.series, last);
    }
    for (const TextField& field : kTextFields) {
        ExpectSameTexts(field.name, actual.series.*field.series, wanted.series.*field.series, last);
    }
    ExpectSameNumbers("AskPrice", actual.series.AskPrice, wanted.series.AskPrice, last);
    ExpectSameNumbers("BidPrice", actual.series.BidPrice, wanted.series.BidPrice, last);
    for (const NamedIndicator& named : kIndicatorArrays) {
        ExpectSameNumbers(named.name, actual.indicators.*named.array, wanted.indicators.*named.array, last);
    }
    const IndicatorScalars& a = actual.indicators;
    const IndicatorScalars& w = wanted.indicators;
    for (const auto scalar :
         {&IndicatorScalars::LRSlope, &IndicatorScalars::LRIntercept, &IndicatorScalars::LRTightUCL,
          &IndicatorScalars::LRLooseUCL, &IndicatorScalars::LRTightLCL, &IndicatorScalars::LRLooseLCL,
          &IndicatorScalars::LRMaxResidual, &IndicatorScalars::LRMinResidual, &IndicatorScalars::MaxVolume,
          &IndicatorScalars::AverageVolume, &IndicatorScalars::VolumeTightUCL,
          &IndicatorScalars::VolumeLooseUCL}) {
        EXPECT_EQ(Bits(a.*scalar), Bits(w.*scalar));
    }
}

void ExpectSame(const Analysis& actual, const Analysis& wanted, std::size_t last) {
    EXPECT_EQ(actual.series.LastRowRead, wanted.series.LastRowRead);
    ExpectSameBars(actual, wanted, last);
}

class SeriesPipelineTest : public RandomHistories {
  protected:
    void RunBoth(Interval interval, std::size_t helpers) {
        SeriesPipeline pipeline(source, interval, tickers, *actual, helpers);
        for (const std::string& ticker : tickers) {
            ASSERT_TRUE(pipeline.Next());
            AnalyseTicker(source, ticker, interval, *wanted);
            ASSERT_NO_FATAL_FAILURE(ExpectSame(*actual, *wanted, wanted->series.BarCount)) << ticker;
        }
        EXPECT_FALSE(pipeline.Next());
        pipeline.Complete();
        ASSERT_NO_FATAL_FAILURE(ExpectSame(*actual, *wanted, kMostRows));
    }

    // A run whose leftovers nobody looks at afterwards.
    void RunNewest(std::size_t helpers) {
        SeriesPipeline pipeline(source, Interval::Daily, tickers, *actual, helpers, Leftovers::Unused);
        for (const std::string& ticker : tickers) {
            ASSERT_TRUE(pipeline.Next());
            AnalyseTicker(source, ticker, Interval::Daily, *wanted);
            ASSERT_NO_FATAL_FAILURE(ExpectSameBars(*actual, *wanted, wanted->series.BarCount)) << ticker;
        }
        EXPECT_FALSE(pipeline.Next());
    }

    std::unique_ptr<Analysis> actual = std::make_unique<Analysis>();
    std::unique_ptr<Analysis> wanted = std::make_unique<Analysis>();
};

struct Road {
    Interval interval;
    std::size_t helpers;
    std::uint64_t oddOneIn;
};

// How a failure names its road.
void PrintTo(const Road& road, std::ostream* out) {
    constexpr const char* kNames[] = {"daily", "weekly", "monthly"};
    *out << kNames[static_cast<std::size_t>(road.interval)] << ", " << road.helpers << " helpers, odd one in "
         << road.oddOneIn;
}

class SeriesPipelineAgainstSequentialRuns : public SeriesPipelineTest,
                                            public testing::WithParamInterface<Road> {};

TEST_P(SeriesPipelineAgainstSequentialRuns, LeavesTheSameStateAfterEveryTicker) {
    const Road& run = GetParam();
    random.seed(run.helpers * 100 + run.oddOneIn);
    MakeDatabase(run.interval == Interval::Daily ? 60 : 30, run.oddOneIn);
    RunBoth(run.interval, run.helpers);
}

INSTANTIATE_TEST_SUITE_P(Intervals, SeriesPipelineAgainstSequentialRuns,
                         testing::Values(Road{Interval::Daily, 0, 5}, Road{Interval::Daily, 3, 5},
                                         Road{Interval::Daily, 1, 40}, Road{Interval::Weekly, 0, 5},
                                         Road{Interval::Weekly, 2, 40}, Road{Interval::Monthly, 1, 5},
                                         Road{Interval::Monthly, 0, 40}));

class SeriesPipelineOfNewestFiles : public SeriesPipelineTest, public testing::WithParamInterface<int> {};

TEST_P(SeriesPipelineOfNewestFiles, GivesTheBarsOfSequentialRuns) {
    const auto seed = static_cast<std::uint64_t>(GetParam());
    random.seed(seed);
    constexpr std::uint64_t kOddOneIn[] = {3, 8, 30, 1000};
    for (int i = 0; i < 70; ++i) {
        const std::string name = "F" + std::to_string(i);
        if (OneIn(random, 5)) {
            MakeTicker(name, OneIn(random, 2) ? 60 : 260, 6);
        } else {
            MakeFullTicker(name, kOddOneIn[seed % std::size(kOddOneIn)]);
        }
    }
    RunNewest(seed % 3);
}

INSTANTIATE_TEST_SUITE_P(Seeds, SeriesPipelineOfNewestFiles, testing::Range(1, 13));

TEST_F(SeriesPipelineTest, OlderFilesAreLeftUnreadWhereNothingLooksAtThem) {
    const std::vector<std::string> years = YearTexts(kTestDay, kRecentYears);
    for (const char* name : {"A", "B"}) {
        for (const std::string& year : years) WriteYear(name, year, RandomYear(random, 200, {}));
    }
    HistoryText text;
    ASSERT_FALSE(text.LoadNewest(source.QuoteFolder, "A", years, kDefaultWindow));
    EXPECT_TRUE(text.IsPartial());
    EXPECT_GT(text.BarCount(), kDefaultWindow);
    EXPECT_LT(text.BarCount(), std::size_t{400});
    std::filesystem::remove(*YearFilePath(source.QuoteFolder, "B", years.front()));
    ASSERT_FALSE(text.LoadNewest(source.QuoteFolder, "B", years, kDefaultWindow));
    EXPECT_FALSE(text.IsPartial()) << "its first row is element 0";
    EXPECT_EQ(text.BarCount(), std::size_t{597});
}

TEST_F(SeriesPipelineTest, TickersLongerThanAllBeforeThemFindWhatWasLeft) {
    for (int i = 0; i < 6; ++i) MakeFullTicker("F" + std::to_string(i), 1000000);
    for (const char* name : {"LONG", "LONGER"}) {
        std::string rows;
        for (int row = 0; row < (name[4] == 'E' ? 1500 : 1200); ++row)
            rows += row % 3 == 0 ? "\"01/02/23\",\"\",5\r\n" : RandomRow(random, {}) + "\r\n";
        WriteYear(name, "23", rows);
        tickers.emplace_back(name);
        MakeFullTicker(std::string(name) + "2", 1000000);
    }
    RunNewest(1);
}

TEST_F(SeriesPipelineTest, TailsOfLongTickersSurfaceUnderShortRows) {
    // Each ticker is shorter than the one before, so that more tails pend than are kept unread.
    for (int i = 0; i < 40; ++i) {
        const std::string name = "L" + std::to_string(i);
        WriteYear(name, "23", RandomYear(random, static_cast<std::size_t>(700 - 10 * i), {}));
        tickers.push_back(name);
        if (i % 13 != 12) continue;
        const std::string shortRows = "S" + std::to_string(i);
        std::string rows;
        for (int row = 0; row < 650; ++row) rows += "\"only a date\"\r\n";
        WriteYear(shortRows, "23", rows);
        tickers.push_back(shortRows);
    }
    RunBoth(Interval::Daily, 2);
}

TEST_F(SeriesPipelineTest, MoreRowsThanElementsAreLoadedInTheSeriesItself) {
    for (const std::size_t rows : {17998U, 17999U, 18000U, 18001U, 20000U}) {
        const std::string name = "N" + std::to_string(rows);
        WriteYear(name, "23", Rows(rows, 1));
        tickers.push_back(name);
    }
    RunBoth(Interval::Daily, 1);
    RunBoth(Interval::Weekly, 1);
}

TEST_F(SeriesPipelineTest, AskAndBidPricesFoldToo) {
    for (const auto& analysis : {actual.get(), wanted.get()}) {
        for (std::size_t i = 1; i <= 200; ++i) {
            analysis->series.AskPrice.Set(i, static_cast<double>(i * 7919 % 101));
            analysis->series.BidPrice.Set(i, static_cast<double>(i * 7907 % 103));
        }
    }
    MakeDatabase(10, 40);
    RunBoth(Interval::Weekly, 1);
}

TEST_F(SeriesPipelineTest, OverlongAndHugePricesNeedTheSharedArrays) {
    // Prices near the largest double: some indicators fail and their elements keep an earlier ticker's value.
    const auto huge = [&](const std::string& price) {
        std::string text;
        for (int i = 0; i < 200; ++i) {
            text += "\"01/02/23\",\"\"," + (OneIn(random, 3) ? price : RandomNumber(random)) +
                    ",1,2,1e307,1,1,1,1,1,\"\",\"\",1,1,1,1,1e305,1\r\n";
        }
        return text;
    };
    for (int i = 0; i < 6; ++i) {
        MakeTicker("T" + std::to_string(i), 260, 50);
        const std::string name = "H" + std::to_string(i);
        WriteYear(name, "23", huge(i % 2 == 0 ? "1.1e307" : "0"));
        tickers.push_back(name);
    }
    RunBoth(Interval::Daily, 1);
}

TEST_F(SeriesPipelineTest, StoppedRunLeavesTheStateOfTheTickersTaken) {
    MakeDatabase(40, 10);
    {
        SeriesPipeline pipeline(source, Interval::Daily, tickers, *actual, 2);
        for (int i = 0; i < 7; ++i) {
            ASSERT_TRUE(pipeline.Next());
            AnalyseTicker(source, tickers[static_cast<std::size_t>(i)], Interval::Daily, *wanted);
        }
    }
    ExpectSame(*actual, *wanted, kMostRows);
}

TEST_F(SeriesPipelineTest, EmptyListHasNoTicker) {
    SeriesPipeline pipeline(source, Interval::Daily, {}, *actual);
    EXPECT_FALSE(pipeline.Next());
    EXPECT_FALSE(pipeline.Next());
}

TEST(ScanLines, FindsLinesAndTheFewestCommas) {
    struct Case {
        std::string text;
        std::vector<std::string> lines;
        std::size_t fewest;
    };
    constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    const std::vector<Case> cases = {
        {"", {}, kNone},
        {"\n", {""}, 0},
        {"a,b", {"a,b"}, 1},
        {"a,b\n", {"a,b"}, 1},
        {"a,b\r\n,,,\n\nx", {"a,b\r", ",,,", "", "x"}, 0},
        {std::string(200, ',') + "\n" + std::string(63, ','),
         {std::string(200, ','), std::string(63, ',')},
         63},
    };
    for (const Case& c : cases) {
        // A front that is not scanned shifts the lines over the borders of the chunks.
        for (std::size_t front = 0; front < 70; ++front) {
            const std::string text = std::string(front, ',') + c.text;
            std::vector<LineSpan> spans;
            EXPECT_EQ(ScanLines(text.data(), front, text.size(), spans), c.fewest) << c.text;
            std::vector<std::string> lines;
            for (const LineSpan& span : spans)
                lines.push_back(text.substr(span.start, span.end - span.start));
            EXPECT_EQ(lines, c.lines) << front;
        }
    }
}

TEST(ScanLines, AgreesWithAPlainLoopOnRandomBytes) {
    Random random(3);
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        for (std::size_t size = random() % 400; size > 0; --size) text += "a,,,,\n"[random() % 6];
        std::vector<LineSpan> spans;
        const std::size_t fewest = ScanLines(text.data(), 0, text.size(), spans);
        std::size_t wanted = static_cast<std::size_t>(-1);
        std::size_t start = 0;
        std::size_t count = 0;
        while (start < text.size()) {
            const std::size_t end = std::min(text.find('\n', start), text.size());
            ASSERT_LT(count, spans.size());
            ASSERT_EQ(spans[count].start, start);
            ASSERT_EQ(spans[count].end, end);
            wanted = std::min(wanted, static_cast<std::size_t>(
                                          std::count(text.begin() + static_cast<std::ptrdiff_t>(start),
                                                     text.begin() + static_cast<std::ptrdiff_t>(end), ',')));
            ++count;
            start = end + 1;
        }
        ASSERT_EQ(spans.size(), count);
        ASSERT_EQ(fewest, wanted);
    }
}

TEST(GroupOf, CutsWholeGroupsAndARemainder) {
    EXPECT_EQ(FoldedCount(0, kWeekly), 0U);
    EXPECT_EQ(FoldedCount(10, kWeekly), 2U);
    EXPECT_EQ(FoldedCount(13, kWeekly), 3U);
    EXPECT_EQ(FoldedCount(20, kMonthly), 1U);
    const FoldGroup last = GroupOf(3, 13, kWeekly);
    EXPECT_EQ(last.first, 11U);
    EXPECT_EQ(last.last, 13U);
    EXPECT_EQ(last.divisor, 3U);
    EXPECT_TRUE(last.comparesOpens);
    EXPECT_FALSE(GroupOf(2, 13, kWeekly).comparesOpens);
    EXPECT_TRUE(GroupOf(1, 20, kMonthly).comparesOpens);
}

}  // namespace
}  // namespace brantlow
