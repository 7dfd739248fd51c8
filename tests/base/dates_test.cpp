#include "base/dates.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace brantlow {
namespace {

using namespace std::chrono_literals;

TEST(ParseDate, ReadsTheFormsOfSuppliers) {
    struct Row {
        const char* text;
        const char* iso;
    };
    constexpr Row kRows[] = {
        {"01/02/04", "2004-01-02"},   {"1/2/2004", "2004-01-02"},    {"1/2/4", "2004-01-02"},
        {"01-02-04", "2004-01-02"},   {"01.02.04", "2004-01-02"},    {" 01/02/04 ", "2004-01-02"},
        {"Jan-2-2004", "2004-01-02"}, {"2-Jan-04", "2004-01-02"},    {"January 2, 2004", "2004-01-02"},
        {"sept 9 99", "1999-09-09"},  {"MAY-31-2010", "2010-05-31"}, {"2004-01-02", "2004-01-02"},
        {"2004/12/31", "2004-12-31"}, {"02/29/04", "2004-02-29"},    {"02/29/2000", "2000-02-29"},
        {"12/31/29", "2029-12-31"},   {"01/01/30", "1930-01-01"},    {"06/15/99", "1999-06-15"},
        {"06/15/00", "2000-06-15"}};
    for (const Row& row : kRows) {
        const auto date = ParseDate(row.text);
        ASSERT_TRUE(date) << row.text;
        EXPECT_EQ(FormatIsoDate(*date), row.iso) << row.text;
    }
}

TEST(ParseDate, EveryTwoDigitYearFallsInto1930To2029) {
    for (int year = 1930; year <= 2029; ++year) {
        const Date date{std::chrono::year{year}, std::chrono::March, 4d};
        EXPECT_EQ(ParseDate(FormatDate(date)), date) << year;
    }
}

TEST(ParseDate, NamesEveryMonth) {
    constexpr const char* kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                       "July",    "August",   "September", "October", "November", "December"};
    for (unsigned month = 1; month <= 12; ++month) {
        const std::string name = kMonths[month - 1];
        const Date date{2011y, std::chrono::month{month}, 5d};
        EXPECT_EQ(ParseDate(name + " 5 2011"), date) << name;
        EXPECT_EQ(ParseDate("5-" + name.substr(0, 3) + "-11"), date) << name;
    }
}

TEST(ParseDate, RefusesWhatIsNoDate) {
    for (const char* text : {"",
                             "N/A",
                             "20040102",
                             "01/02",
                             "01/02/04/05",
                             "13/01/04",
                             "00/01/04",
                             "01/00/04",
                             "01/32/04",
                             "02/29/03",
                             "02/30/04",
                             "04/31/04",
                             "01/02/004",
                             "01/02/20044",
                             "a/b/c",
                             "Ja-2-2004",
                             "Janx-2-2004",
                             "Jan-Feb-2004",
                             "01/02/x4",
                             "+1/02/04",
                             "1e0/02/04",
                             "99999999999/01/04",
                             "01/02/04 16:00",
                             "////",
                             "2004-02-30",
                             "1900-02-29"}) {
        EXPECT_FALSE(ParseDate(text)) << text;
    }
}

// The form of nearly every date takes a road of its own.
TEST(ParseDate, ADateOfTwoDigitsEachReadsAlikeWhateverParts) {
    for (int month = 0; month <= 13; ++month) {
        for (int day = 0; day <= 32; ++day) {
            for (const int year : {0, 23, 24, 29, 30, 99}) {
                const std::string slashes = fmt::format("{:02}/{:02}/{:02}", month, day, year);
                const std::string lines = fmt::format("{:02}-{:02}-{:02}", month, day, year);
                const auto date = ParseDate(slashes);
                EXPECT_EQ(date, ParseDate(lines)) << slashes;
                if (date) {
                    EXPECT_EQ(FormatDate(*date), slashes);
                }
            }
        }
    }
    EXPECT_EQ(ParseDate("1a/02/24"), std::nullopt);
    EXPECT_EQ(ParseDate("+1/02/24"), std::nullopt);
    EXPECT_EQ(ParseDate("01/-2/24"), ParseDate("01-2/24"));
}

TEST(ReformatDate, WritesTheShortFormAndPassesTheRestUnchanged) {
    struct Row {
        const char* text;
        const char* written;
    };
    constexpr Row kRows[] = {{"1/2/2004", "01/02/04"},
                             {"Jan-2-2004", "01/02/04"},
                             {"2004-12-31", "12/31/04"},
                             {"N/A", "N/A"},
                             {"", ""},
                             {"31/12/04", "31/12/04"},
                             {" 13/13/13 ", " 13/13/13 "}};
    for (const Row& row : kRows) EXPECT_EQ(ReformatDate(row.text), row.written) << row.text;
}

TEST(FormatDate, PadsWithZeros) {
    const Date date{2004y, std::chrono::January, 2d};
    EXPECT_EQ(FormatDate(date), "01/02/04");
    EXPECT_EQ(FormatLongDate(date), "01/02/2004");
    EXPECT_EQ(FormatIsoDate(date), "2004-01-02");
    EXPECT_EQ(FormatDate(Date{2000y, std::chrono::December, 31d}), "12/31/00");
    EXPECT_EQ(FormatDate(Date{1999y, std::chrono::October, 10d}), "10/10/99");
}

TEST(AddDays, CrossesMonthsYearsAndLeapDays) {
    struct Row {
        Date from;
        int days;
        Date to;
    };
    constexpr Row kRows[] = {{{2004y, std::chrono::February, 28d}, 1, {2004y, std::chrono::February, 29d}},
                             {{2003y, std::chrono::February, 28d}, 1, {2003y, std::chrono::March, 1d}},
                             {{2003y, std::chrono::December, 31d}, 1, {2004y, std::chrono::January, 1d}},
                             {{2004y, std::chrono::January, 1d}, -1, {2003y, std::chrono::December, 31d}},
                             {{2004y, std::chrono::March, 1d}, 0, {2004y, std::chrono::March, 1d}},
                             // 20 years of 365 days fall five leap days short.
                             {{2024y, std::chrono::March, 1d}, -7300, {2004y, std::chrono::March, 6d}}};
    for (const Row& row : kRows) EXPECT_EQ(AddDays(row.from, row.days), row.to) << row.days;
}

TEST(ParseTime, ReadsClockTimesInBothForms) {
    struct Row {
        const char* text;
        int minutes;
    };
    constexpr Row kRows[] = {{"0:00", 0},      {"9:30", 570},    {"09:30", 570},       {"16:00:59", 960},
                             {"23:59", 1439},  {"4:00pm", 960},  {"4:00 PM", 960},     {"12:30am", 30},
                             {"12:30pm", 750}, {" 1:05AM ", 65}, {"11:59:00 pm", 1439}};
    for (const Row& row : kRows) EXPECT_EQ(ParseTime(row.text), row.minutes) << row.text;
}

TEST(ParseTime, RefusesWhatIsNoTime) {
    for (const char* text : {"", "N/A", "pm", "930", "24:00", "9:60", "9:30:60", "-1:00", "+1:00", "9:",
                             ":30", "1:2:3:4", "16:00pm", "0:30am", "13:00am", "9.30", "009:30", "9 : 30"}) {
        EXPECT_FALSE(ParseTime(text)) << text;
    }
}

TEST(ParseTime, HoursAndMinutesReadAlikeWithAndWithoutSeconds) {
    for (int hour = 0; hour <= 25; ++hour) {
        for (int minute = 0; minute <= 61; ++minute) {
            const std::string text = fmt::format("{:02}:{:02}", hour, minute);
            EXPECT_EQ(ParseTime(text), ParseTime(text + ":00")) << text;
        }
    }
    EXPECT_EQ(ParseTime("24:00"), std::nullopt);
    EXPECT_EQ(ParseTime("12:60"), std::nullopt);
    EXPECT_EQ(ParseTime("1a:00"), std::nullopt);
}

TEST(ReformatTime, WritesTwentyFourHoursAndPassesTheRestUnchanged) {
    EXPECT_EQ(ReformatTime("4:00pm"), "16:00");
    EXPECT_EQ(ReformatTime("9:05"), "09:05");
    EXPECT_EQ(ReformatTime("N/A"), "N/A");
    EXPECT_EQ(ReformatTime(""), "");
}

TEST(FormatTime, ComesBackForEveryMinuteOfTheDay) {
    for (int minutes = 0; minutes < 24 * 60; ++minutes) {
        EXPECT_EQ(ParseTime(FormatTime(minutes)), minutes);
    }
}

}  // namespace
}  // namespace brantlow
