// The marks of the axes: dates, round prices, and short forms of numbers.
#include <cmath>
#include <limits>

#include "base/dates.h"
#include "chart/paint_fixture.h"
#include "chart/round_scale.h"
#include "chart/time_axis.h"

namespace brantlow {
namespace {

std::string Joined(const std::vector<AxisTick>& ticks) {
    std::string text;
    for (const AxisTick& tick : ticks) {
        text +=
            (text.empty() ? "" : " ") + std::to_string(tick.bar) + ":" + tick.text + (tick.isYear ? "!" : "");
    }
    return text;
}

class TimeAxis : public PaintTest {
  protected:
    // `count` bars, `step` days apart, from this day on.
    void FillDates(std::size_t count, const Date& first, int step = 1) {
        FillBars(count);
        for (std::size_t i = 0; i < count; ++i) {
            series.QuoteDate.Set(i + 1, FormatDate(AddDays(first, static_cast<int>(i) * step)));
        }
    }
    std::string Marks(const ChartView& view, double leastGap) {
        return Joined(TimeAxisOf(series.QuoteDate, series.BarCount, view, leastGap, leastGap));
    }
};

constexpr Date DayOf(int year, unsigned month, unsigned day) {
    return Date{std::chrono::year{year}, std::chrono::month{month}, std::chrono::day{day}};
}

TEST_F(TimeAxis, MarksMonthsAndYearsAtTheirFirstBar) {
    // 90 days from 10 November 2025: December begins at bar 22, 2026 at bar 53, February at bar 84.
    FillDates(90, DayOf(2025, 11, 10));
    EXPECT_EQ(Marks({}, 1000), "22:Dec 53:2026! 84:Feb");
}

TEST_F(TimeAxis, MarksWeeksWhereThereIsRoom) {
    // 2 March 2026 is a Monday.
    FillDates(30, DayOf(2026, 3, 2));
    EXPECT_EQ(Marks({1, 30}, 1000), "8:Mar 9 15:Mar 16 22:Mar 23 29:Mar 30");
    // The first week of a year bears the year.
    FillDates(20, DayOf(2025, 12, 20));
    EXPECT_EQ(Marks({1, 20}, 1000), "3:Dec 22 10:Dec 29 17:Jan 5");
}

TEST_F(TimeAxis, MarksMonthsWhereOnlyTheLongerTextsOfWeeksHaveNoRoom) {
    // A week is 969 twips wide.
    FillDates(90, DayOf(2025, 11, 10));
    const auto marks = [&](double leastWeekGap) {
        return Joined(TimeAxisOf(series.QuoteDate, series.BarCount, {1, 90}, 900, leastWeekGap));
    };
    EXPECT_EQ(marks(1000), "22:Dec 53:2026! 84:Feb");
    EXPECT_EQ(marks(960).substr(0, 18), "8:Nov 17 15:Nov 24");
}

TEST_F(TimeAxis, TakesQuartersYearsAndDecadesAsTheSpanGrows) {
    // Weekly bars over five years.
    FillDates(260, DayOf(2021, 1, 4), 7);
    EXPECT_EQ(Marks({1, 260}, 700),
              "27:Jul 53:2022! 79:Jul 105:2023! 131:Jul 157:2024! 183:Jul 210:2025! 236:Jul");
    EXPECT_EQ(Marks({1, 260}, 1500), "53:2022! 105:2023! 157:2024! 210:2025!");
    EXPECT_EQ(Marks({1, 260}, 4000), "53:2022! 157:2024!");
    FillDates(200, DayOf(1935, 1, 15), 152);
    EXPECT_EQ(Marks({1, 200}, 1200),
              "13:1940! 37:1950! 61:1960! 86:1970! 110:1980! 134:1990! 158:2000! 182:2010!");
}

TEST_F(TimeAxis, ShowsOnlyWhatTheViewShows) {
    FillDates(90, DayOf(2025, 11, 10));
    EXPECT_EQ(Marks({30, 40}, 1000), "36:Dec 15 43:Dec 22 50:Dec 29 57:Jan 5 64:Jan 12");
    EXPECT_EQ(Marks({30, 40}, 3000), "53:2026!");
    EXPECT_EQ(Marks({200, 40}, 1000), "");
}

TEST_F(TimeAxis, PassesOverDatesThatAreNone) {
    FillDates(90, DayOf(2025, 11, 10));
    for (const std::size_t bar : {22U, 53U, 60U}) series.QuoteDate.Set(bar, "no day");
    EXPECT_EQ(Marks({}, 1000), "23:Dec 54:2026! 84:Feb");
    FillBars(50);
    EXPECT_EQ(Marks({}, 1000), "");
    series.BarCount = 0;
    EXPECT_EQ(Marks({}, 1000), "");
}

TEST_F(TimeAxis, HasNoRoomForDatesThatJump) {
    FillBars(100);
    for (std::size_t i = 1; i <= 100; ++i) series.QuoteDate.Set(i, i % 2 == 0 ? "01/02/26" : "01/02/95");
    EXPECT_EQ(Marks({}, 1000), "");
}

TEST(RoundPrices, AreMultiplesOfOneTwoOrFive) {
    struct Row {
        double bottom, top;
        std::size_t most;
        std::string expected;
    };
    const Row rows[] = {
        {100, 380, 8, "100 150 200 250 300 350"},
        {45.38, 75, 8, "50 55 60 65 70 75"},
        {45.38, 75, 16, "46 48 50 52 54 56 58 60 62 64 66 68 70 72 74"},
        {0, 1, 5, "0.0 0.2 0.4 0.6 0.8"},
        {0.0012, 0.0049, 5, "0.002 0.003 0.004"},
        {-3, 3, 4, "-2 0 2"},
        {99990, 100010, 3, "99990 100000 100010"},
        {1e15, 3e15, 2, "1000000000000000 2000000000000000"},
        {5, 5, 8, ""},
        {7, 3, 8, ""},
        {1, 9, 0, ""},
        {0, std::numeric_limits<double>::infinity(), 5, ""},
        {std::nan(""), 5, 5, ""},
    };
    for (const Row& row : rows) {
        std::string found;
        for (const RoundLevel& level : RoundLevels(row.bottom, row.top, row.most)) {
            found += (found.empty() ? "" : " ") + level.text;
            EXPECT_GE(level.value, row.bottom - 1e-9);
            EXPECT_LE(level.value, row.top + 1e-9);
        }
        EXPECT_EQ(found, row.expected) << row.bottom << " to " << row.top;
    }
}

TEST(ShortNumbers, HaveThreeDigitsThatCount) {
    const std::pair<double, std::string> rows[] = {
        {0, "0"},
        {7, "7"},
        {950, "950"},
        {999, "999"},
        {1000, "1K"},
        {8500, "8.5K"},
        {12345, "12.3K"},
        {532863, "533K"},
        {999400, "999K"},
        {999600, "1M"},
        {7510578, "7.51M"},
        {7500000, "7.5M"},
        {1.2e9, "1.2B"},
        {2.5e12, "2.5T"},
        {-4200, "-4.2K"},
        {0.5, "0.5"},
        {9e20, "900000000T"},
        {std::nan(""), "-"},
        {std::numeric_limits<double>::infinity(), "-"},
    };
    for (const auto& [value, text] : rows) EXPECT_EQ(ShortNumber(value), text) << value;
}

TEST(GroupedNumbers, HaveSeparators) {
    const std::pair<double, std::string> rows[] = {
        {0, "0"},
        {7, "7"},
        {999, "999"},
        {1000, "1,000"},
        {7510578, "7,510,578"},
        {-12345, "-12,345"},
        {-0.2, "0"},
        {1234.5, "1,234"},
        {1e6, "1,000,000"},
        {std::nan(""), "-"},
    };
    for (const auto& [value, text] : rows) EXPECT_EQ(GroupedNumber(value), text) << value;
}

}  // namespace
}  // namespace brantlow
