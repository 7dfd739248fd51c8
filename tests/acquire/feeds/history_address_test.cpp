#include "acquire/feeds/history_address.h"

#include <gtest/gtest.h>

#include <limits>

namespace brantlow {
namespace {

using std::chrono::year;

TEST(HistorySpan, GoesBackYearsOf365Days) {
    struct Line {
        double years;
        std::string start;
    };
    // 20 years are 7,300 days exactly: five leap days lie between.
    const std::vector<Line> lines = {{2, "03/02/2024"},  {5, "03/03/2021"},    {10, "03/04/2016"},
                                     {20, "03/07/2006"}, {1, "03/02/2025"},    {0, "03/02/2026"},
                                     {-3, "03/02/2026"}, {1e300, "10/31/1026"}};
    for (const Line& line : lines) {
        const HistorySpan span = HistorySpanOf(year(2026) / 3 / 2, line.years);
        EXPECT_EQ(span.StartDate, line.start) << line.years;
        EXPECT_EQ(span.EndDate, "03/02/2026") << line.years;
    }
}

TEST(StandardHistoryUrl, HoldsItsKeysInOrder) {
    EXPECT_EQ(StandardHistoryUrl(Hosts(), "KO", {"03/04/2016", "12/31/2026"}),
              "https://history.brantlow.example/table.txt?s=KO&a=2&b=04&c=2016&d=11&e=31&f=2026&g=d"
              "&ignore=.txt");
}

TEST(StandardHistoryUrl, JanuaryIsMonthZero) {
    EXPECT_EQ(StandardHistoryUrl(Hosts(), "KO", HistorySpanOf(year(2026) / 1 / 5, 2)),
              "https://history.brantlow.example/table.txt?s=KO&a=0&b=06&c=2024&d=0&e=05&f=2026&g=d"
              "&ignore=.txt");
}

TEST(StandardHistoryUrl, EncodesNothing) {
    const Hosts hosts = Hosts::Parse("HistoryHost=http://127.0.0.1:8080/de\n");
    EXPECT_EQ(StandardHistoryUrl(hosts, "^A&B C", {"01/02/2024", "01/02/2026"}),
              "http://127.0.0.1:8080/de/table.txt?s=^A&B C&a=0&b=02&c=2024&d=0&e=02&f=2026&g=d&ignore=.txt");
}

const HistorySpan kSpan = {"03/04/2016", "11/09/2026"};

TEST(UserHistoryUrl, ReplacesEachOfTheSevenPlaceholders) {
    struct Line {
        std::string placeholder;
        std::string value;
    };
    const std::vector<Line> lines = {
        {"QUOTESYMBOL", "KO"},
        {"(Val(Left$(StartDate, 2)) - 1)", "2"},
        {"Right$(Left$(StartDate, 5), 2)", "04"},
        {"Right$(StartDate, 4)", "2016"},
        {"(Val(Left$(EndDate, 2)) - 1)", "10"},
        {"Right$(Left$(EndDate, 5), 2)", "09"},
        {"Right$(EndDate, 4)", "2026"},
    };
    std::string all;
    std::string allReplaced;
    for (const Line& line : lines) {
        EXPECT_EQ(UserHistoryUrl("http://h/" + line.placeholder + "?", "KO", kSpan),
                  "http://h/" + line.value + "?")
            << line.placeholder;
        all += "&" + line.placeholder;
        allReplaced += "&" + line.value;
    }
    EXPECT_EQ(UserHistoryUrl(all, "KO", kSpan), allReplaced);
}

TEST(UserHistoryUrl, ReplacesTheLastOfSeveralOccurrences) {
    EXPECT_EQ(UserHistoryUrl("http://h/QUOTESYMBOL?s=QUOTESYMBOL&QUOTESYMBO", "KO", kSpan),
              "http://h/QUOTESYMBOL?s=KO&QUOTESYMBO");
    EXPECT_EQ(UserHistoryUrl("Right$(EndDate, 4)Right$(EndDate, 4)", "KO", kSpan), "Right$(EndDate, 4)2026");
}

TEST(UserHistoryUrl, TakesThePlaceholdersInTheirOrder) {
    // A later placeholder is found in what an earlier one has put there.
    EXPECT_EQ(UserHistoryUrl("s=QUOTESYMBOL", "Right$(EndDate, 4)", kSpan), "s=2026");
    EXPECT_EQ(UserHistoryUrl("s=QUOTESYMBOL", "QUOTESYMBOL", kSpan), "s=QUOTESYMBOL");
}

TEST(UserHistoryUrl, LetterForLetterOnly) {
    const std::string url = "http://h/quotesymbol?Right$(EndDate,4)&\"x,y\"";
    EXPECT_EQ(UserHistoryUrl(url, "KO", kSpan), url);
    EXPECT_EQ(UserHistoryUrl("", "KO", kSpan), "");
}

}  // namespace
}  // namespace brantlow
