#include "splits/split_page.h"

#include <gtest/gtest.h>

#include <string>

#include "shell/settings/settings_tables.h"

namespace brantlow {
namespace {

std::string Cell(const std::string& text) {
    return "<td align=center valign=middle>" + text + "</td>";
}

std::string TickerLink(const std::string& ticker) {
    return "<a href=\"http://quotes.example/q?s=" + ticker + "&d=t\">" + ticker + "</a>";
}

std::string PageRow(const std::string& date, const std::string& ticker, const std::string& ratio) {
    return "<tr>" + Cell(date) + "<td>" + TickerLink(ticker) + "</td>" + Cell("Y") + Cell(ratio) +
           "</tr>\r\n";
}

TEST(SplitPage, TakesTickerDateAndRatioOfEachRow) {
    const std::string page = "<html><body><table>" + PageRow("Mar 2", "ACME", "2-1") +
                             PageRow("Mar 4", "BETA", "3-2") + PageRow("Apr 10", "GAMMA", "1-4") +
                             "</table></body></html>";
    const std::vector<PageSplit> expected = {
        {"ACME", "Mar 2", "2-1"}, {"BETA", "Mar 4", "3-2"}, {"GAMMA", "Apr 10", "1-4"}};
    EXPECT_EQ(SplitsOfPage(page), expected);
}

TEST(SplitPage, TheLastLongCellBeforeTheTickerIsTheDate) {
    EXPECT_EQ(SplitsOfPage(Cell("Acme Works") + Cell("Mar 2") + Cell("No") + TickerLink("ACME") +
                           Cell("Apr 3") + Cell("2-1")),
              (std::vector<PageSplit>{{"ACME", "Mar 2", "2-1"}}));
}

TEST(SplitPage, ACellBehindTheRatioTakesItsPlaceWhileTheTickerIsMissing) {
    EXPECT_EQ(SplitsOfPage(Cell("Mar 2") + Cell("2-1") + Cell("Yes") + TickerLink("ACME")),
              (std::vector<PageSplit>{{"ACME", "Yes", "Yes"}}));
}

TEST(SplitPage, ARatioIsForgottenOnceItsSplitIsWhole) {
    EXPECT_EQ(SplitsOfPage(PageRow("Mar 2", "ACME", "2-1") + Cell("Mar 3") + TickerLink("BETA") + Cell("Y")),
              (std::vector<PageSplit>{{"ACME", "Mar 2", "2-1"}}));
}

TEST(SplitPage, ATickerOfAnyLengthLosesOnlyWhatClosesTheLink) {
    EXPECT_EQ(SplitsOfPage(Cell("Mar 2") + "d=t\"><" + Cell("2-1")), std::vector<PageSplit>{});
    EXPECT_EQ(SplitsOfPage(Cell("Mar 2") + "d=tX<" + Cell("2-1")), std::vector<PageSplit>{});
    EXPECT_EQ(SplitsOfPage(Cell("Mar 2") + "d=t\">X<" + Cell("2-1")),
              (std::vector<PageSplit>{{"X", "Mar 2", "2-1"}}));
}

TEST(SplitPage, APageOfAnotherLayoutGivesNothing) {
    for (const char* page :
         {"", "<html></html>", "middle>", "middle><", "d=t", "Mar 2, ACME, 2-1",
          "<td valign=\"middle\">Mar 2</td><td valign=\"middle\">2-1</td><a href=\"?d=t\">ACME</a>"}) {
        EXPECT_TRUE(SplitsOfPage(page).empty()) << page;
    }
}

TEST(SplitPage, APageCutAnywhereGivesTheSplitsThatWereWhole) {
    const std::string first = PageRow("Mar 2", "ACME", "2-1");
    const std::string page = first + PageRow("Mar 4", "BETA", "3-2");
    const std::size_t firstWhole = first.find("2-1<") + 4;
    const std::size_t secondWhole = first.size() + PageRow("Mar 4", "BETA", "3-2").find("3-2<") + 4;
    for (std::size_t length = 0; length <= page.size(); ++length) {
        const std::size_t expected = (length >= firstWhole ? 1U : 0U) + (length >= secondWhole ? 1U : 0U);
        ASSERT_EQ(SplitsOfPage(page.substr(0, length)).size(), expected) << length;
    }
}

TEST(SplitPage, AnyBytesAreTaken) {
    std::string junk;
    for (int i = 0; i < 70000; ++i) junk += static_cast<char>(i * 7919 % 256);
    EXPECT_TRUE(SplitsOfPage(junk).empty());
    const std::string zero("middle>a\0b<d=t\">\0X<middle>2-1<", 31);
    const auto splits = SplitsOfPage(zero);
    ASSERT_EQ(splits.size(), 1U);
    EXPECT_EQ(splits[0].ticker, std::string("\0X", 2));
}

TEST(SplitPage, AnEndlessPageGivesNoMoreSplitsThanATableHasRows) {
    std::string page;
    for (std::size_t i = 0; i <= kMostRows; ++i) page += "middle>day<d=t\">X<middle>2-1<";
    EXPECT_EQ(SplitsOfPage(page).size(), kMostRows);
}

TEST(SplitRatio, IsNewSharesByOldShares) {
    struct Line {
        std::string ratio;
        double factor;
    };
    const std::vector<Line> lines = {
        {"2-1", 2},       {"3-2", 1.5},       {"1-4", 0.25},
        {"1-3", 1.0 / 3}, {"10-1", 1},    // as many characters are taken as stand behind the hyphen
        {"20-10", 2},     {"1-10", 0.1},  // "1-" reads as 1
        {"2 - 1", 2},     {"2-1-4", 2.0 / 1},
    };
    for (const Line& line : lines) EXPECT_EQ(FactorOfRatio(line.ratio), line.factor) << line.ratio;
}

TEST(SplitRatio, TextWithoutAFactorGivesZero) {
    for (const char* ratio : {"", "-", "2", "2:1", "2-", "-1", "2-0", "a-b", "0-1", "---", "2-x"}) {
        EXPECT_EQ(FactorOfRatio(ratio), 0) << ratio;
    }
    EXPECT_EQ(FactorOfRatio(std::string(1000000, '-')), 0);
}

}  // namespace
}  // namespace brantlow
