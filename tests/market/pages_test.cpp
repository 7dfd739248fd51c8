// The market's pages as their readers see them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <span>

#include "acquire/feeds/fundamental_labels.h"
#include "acquire/version/version_check.h"
#include "acquire/web/memory_web.h"
#include "acquire/web/page_text.h"
#include "acquire/web/url_cache.h"
#include "base/numbers.h"
#include "market/market_request.h"
#include "market/plain_pages.h"
#include "market_fixture.h"
#include "splits/split_calendar.h"
#include "splits/split_page.h"
#include "support/recording_person.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

// The lines of a page's text; a text ends with its last line.
std::vector<std::string> PageLines(const std::string& target, const Date& today = kSaturday) {
    const MarketReply reply = Ask(target, today);
    EXPECT_EQ(reply.status, 200) << target;
    return LinesOf(PageText(reply.body, reply.contentType));
}

// The text behind the last ":" of the first line that begins with `label`; the longer labels that begin the
// same do not count.
std::string ValueBehind(const std::vector<std::string>& lines, const std::string& label) {
    for (const std::string& line : lines) {
        if (line.starts_with(label + ':')) return line.substr(line.rfind(':') + 1);
    }
    return "no line";
}

void ExpectLabels(const std::string& target, std::span<const FundamentalLabel> labels) {
    const auto lines = PageLines(target);
    ASSERT_LE(lines.size(), kMostPageLines);
    for (const FundamentalLabel& label : labels) {
        const std::string value = ValueBehind(lines, std::string(label.label));
        const char* form =
            label.kind == ValueKind::Scaled ? "-?[0-9]+\\.[0-9]+[BMK]" : "-?[0-9]+(\\.[0-9]+)?[%BMK]?";
        EXPECT_THAT(value, ::testing::MatchesRegex(form)) << label.label;
        EXPECT_NE(LeadingNumber(value), 0) << label.label;
    }
}

TEST(FundamentalPages, HaveEveryLabelOfTheKeyStatistics) {
    ExpectLabels("/q/ks?s=A", kKeyStatisticsLabels);
    ExpectLabels("/q/ks?s=NFLX", kKeyStatisticsLabels);
}

TEST(FundamentalPages, HaveEveryLabelOfTheAnalystOpinion) {
    ExpectLabels("/q/ao?s=A", kAnalystOpinionLabels);
}

TEST(FundamentalPages, TellTheFiguresOfTheQuote) {
    const auto lines = PageLines("/q/ks?s=A");
    const auto quote = FieldsOfLine(LinesOf(Ask("/d/quotes.txt?s=A&f=j1rr5p5e").body).at(0), ',');
    EXPECT_EQ(ValueBehind(lines, "Market Cap (intraday)"), quote[0]);
    EXPECT_EQ(ValueBehind(lines, "Trailing P/E (ttm, intraday)"), quote[1]);
    EXPECT_EQ(ValueBehind(lines, "PEG Ratio (5 yr expected)"), quote[2]);
    EXPECT_EQ(ValueBehind(lines, "Price/Sales (ttm)"), quote[3]);
    EXPECT_EQ(ValueBehind(lines, "Diluted EPS (ttm)"), quote[4]);
}

// The four numbers behind "Avg. Estimate" five lines below `head`.
std::string Averages(const std::vector<std::string>& lines, const std::string& head) {
    const std::string label = "Avg. Estimate";
    for (std::size_t i = 5; i < lines.size(); ++i) {
        if (lines[i].starts_with(label) && lines[i - 5].starts_with(head))
            return lines[i].substr(label.size());
    }
    return "no line";
}

TEST(FundamentalPages, HaveTheEstimatesFiveLinesBelowTheirHeads) {
    const auto lines = PageLines("/q/ae?s=A");
    EXPECT_LE(lines.size(), kMostPageLines);
    EXPECT_THAT(Averages(lines, "Earnings EstCurrent Qtr"),
                ::testing::MatchesRegex("([0-9]+\\.[0-9][0-9]){4}"));
    EXPECT_THAT(Averages(lines, "Revenue EstCurrent Qtr"),
                ::testing::MatchesRegex("([0-9]+\\.[0-9][0-9][BMK]){4}"));
}

TEST(FundamentalPages, HaveEachGrowthRightBelowItsHead) {
    for (const std::string ticker : {"A", "NFLX", "T"}) {
        const auto lines = PageLines("/q/ae?s=" + ticker);
        for (const FundamentalLabel& label : kGrowthLabels) {
            bool found = false;
            for (std::size_t i = 1; i < lines.size(); ++i) {
                if (!lines[i].starts_with(label.label) || lines[i - 1] != "Growth Est") continue;
                found = true;
                const std::string value = lines[i].substr(label.label.size());
                EXPECT_THAT(value, ::testing::MatchesRegex("-?[0-9]+\\.[0-9]%")) << label.label;
                EXPECT_LE(value.size(), 6u) << label.label;
            }
            EXPECT_TRUE(found) << label.label;
        }
    }
}

TEST(FundamentalPages, TellNothingOfAnUnknownTickerAndAnIndex) {
    for (const std::string ticker : {"ZZZZ", "SPX", "%5EDJI", "", "%3Cscript%3E"}) {
        const auto lines = PageLines("/q/ks?s=" + ticker);
        for (const FundamentalLabel& label : kKeyStatisticsLabels) {
            EXPECT_EQ(ValueBehind(lines, std::string(label.label)), "N/A") << ticker << ' ' << label.label;
        }
        EXPECT_EQ(ValueBehind(PageLines("/q/ao?s=" + ticker), "Mean Target"), "N/A");
        EXPECT_EQ(Averages(PageLines("/q/ae?s=" + ticker), "Earnings EstCurrent Qtr"), "N/AN/AN/AN/A");
    }
    EXPECT_THAT(Ask("/q/ks?s=%3Cscript%3E").body, Not(HasSubstr("<SCRIPT>")));
}

TEST(FundamentalPages, AreConstantForADay) {
    for (const std::string path : {"/q/ks?s=A", "/q/ao?s=A", "/q/ae?s=A"}) {
        EXPECT_EQ(Ask(path).body, Ask(path).body);
    }
    EXPECT_NE(Ask("/q/ao?s=A").body, Ask("/q/ao?s=A", Day(2026, 11, 22)).body);
}

TEST(SplitCalendar, ListsTheSplitOfThePracticePricesAndOthers) {
    const std::vector<PageSplit> splits = SplitsOfPage(Ask("/c/s.html").body);
    const std::vector<PageSplit> expected = {{"NFLX", "11/18", "7-1"},
                                             {"QXTA", "11/19", "2-1"},
                                             {"QXTB", "11/21", "3-2"},
                                             {"QXTC", "11/24", "1-4"},
                                             {"QXTD", "11/27", "5-4"}};
    EXPECT_EQ(splits, expected);
    for (const PageSplit& split : expected) {
        EXPECT_EQ(MonthAndDay(split.date, kSaturday), split.date);
        EXPECT_EQ(ShippedData().Find(split.ticker) != nullptr, split.ticker == "NFLX");
    }
    EXPECT_EQ(FactorOfRatio("7-1"), 7);
}

TEST(SplitCalendar, ListsTheSplitOnTheDayOnWhichThePricesFallWhileALogTakesIt) {
    for (int day = 1; day <= 30; ++day) {
        const Date today = Day(2026, 11, static_cast<unsigned>(day));
        std::string listed;
        for (const PageSplit& split : SplitsOfPage(Ask("/c/s.html", today).body)) {
            if (split.ticker == "NFLX") listed = split.date;
        }
        const auto lines = LinesOf(Ask("/table.txt?s=NFLX", today).body);
        std::string fallen;
        for (std::size_t i = 1; i + 1 < lines.size() && fallen.empty(); ++i) {
            const double after = std::stod(FieldsOfLine(lines[i], ',')[4]);
            const double before = std::stod(FieldsOfLine(lines[i + 1], ',')[4]);
            if (after * 4 < before) fallen = lines[i].substr(5, 2) + '/' + lines[i].substr(8, 2);
        }
        // The prices fall on a Wednesday; from Monday on a log would drop it, and the last workday is told.
        const bool isLate = day % 7 == 2 || day % 7 == 3 || day % 7 == 4;
        if (isLate) fallen = FormatDate(AddDays(today, day % 7 == 2 ? -3 : -1)).substr(0, 5);
        EXPECT_EQ(listed, fallen) << day;
    }
}

TEST(SplitCalendar, AnUpdateOnAnyDayOfTheWeekFindsTheSplit) {
    for (unsigned day = 1; day <= 30; ++day) {
        const Date today = Day(2026, 11, day);
        std::vector<LoggedSplit> log;
        LogNewSplits(SplitsOfPage(Ask("/c/s.html", today).body), today, log);
        DropOldSplits(today, log);
        const bool found = std::any_of(log.begin(), log.end(), [&](const LoggedSplit& split) {
            return split.ticker == "NFLX" && split.factor == 7 && IsDue(split, today);
        });
        EXPECT_TRUE(found) << day;
    }
}

TEST(UpdatePageReply, OffersNothingNewerThanTheRunningVersion) {
    MemoryWeb web;
    web.AnswerWith([](const WebRequest& request) {
        const MarketReply reply =
            Ask(std::string_view(request.url).substr(std::string_view("http://host").size()));
        return MemoryWeb::Page(reply.body, reply.contentType);
    });
    MemoryUrlCache cache;
    const TempFolder folder;
    RecordingPerson person;
    const Hosts hosts = Hosts::Parse("VendorHost=http://host\n");
    const SettingsTables settings;
    EXPECT_EQ(
        CheckVersion(web, cache, hosts, settings, folder.Get(), RunningVersion(), AskedBy::User, person),
        VersionOutcome::Nothing);
    EXPECT_EQ(web.Addresses, std::vector<std::string>{"http://host/Updates/brantlow/updateme.htm"});
    EXPECT_EQ(
        CheckVersion(web, cache, hosts, settings, folder.Get(), "Version: 0.9.0", AskedBy::User, person),
        VersionOutcome::NewVersion);
}

TEST(UpdatePageReply, IsTheOnlyPageThatIsNoProgram) {
    EXPECT_EQ(Ask("/Updates/brantlow/Updater.exe").status, 404);
}

TEST(Alerts, AreKeptAndShown) {
    AlertList alerts;
    const auto ask = [&](std::string_view target) {
        return Answer(target, ShippedData(), kSaturday, alerts);
    };
    EXPECT_EQ(ask("/send_stock_alert.asp?EA=a+b@example.org&TS=KO").status, 200);
    EXPECT_EQ(ask("/send_stock_alert.asp?EA=&TS=T").status, 200);
    EXPECT_EQ(ask("/send_stock_alert.asp?EA=%3Cb%3E&TS=A%26B").status, 200);
    const std::vector<StockAlert> expected = {{"a+b@example.org", "KO"}, {"", "T"}, {"<b>", "A&B"}};
    EXPECT_EQ(alerts.All(), expected);
    const MarketReply page = ask("/alerts");
    const auto lines = LinesOf(PageText(page.body, page.contentType));
    EXPECT_THAT(lines, ::testing::IsSupersetOf({"AddressTicker", "a+b@example.orgKO", "T", "<b>A&B"}));
    EXPECT_THAT(page.body, Not(HasSubstr("<b>")));
}

TEST(Alerts, KeepTheNewestThousand) {
    AlertList alerts;
    for (int i = 0; i < 1500; ++i) alerts.Add({"a", std::to_string(i)});
    ASSERT_EQ(alerts.All().size(), 1000u);
    EXPECT_EQ(alerts.All().front().ticker, "500");
    EXPECT_EQ(alerts.All().back().ticker, "1499");
}

// Every address of the research commands, for the ticker BRK.B.
constexpr std::string_view kTickerAddresses[] = {
    "/a/r/B/BRK.B.html",
    "/q?s=BRK.B&d=c",
    "/q/co?s=BRK.B",
    "/q?s=BRK.B&d=t",
    "/fin/l/B/BRK.B.html",
    "/ic/B/BRK.B.html",
    "/t/B/BRK.B.html",
    "/q/mb?s=BRK.B",
    "/q/h?s=BRK.B",
    "/q?s=BRK.B&d=o",
    "/hd/B/BRK.B.html",
    "/p/B/BRK.B.html",
    "/q?s=BRK.B&d=e",
    "/d?vw=0&db=reports&z=dat&tk=BRK.B",
    "/z/a/B/BRK.B.html",
    "/e/l/B/BRK.B.html",
    "/earnings/"
    "analyst_summary.asp?&kind=&mode=stock&symbol=BRK.B&selected=BRK.B&FormType=&mkttype=&pathname=&page="
    "analystinfo",
    "/quote.dll?mode=basics&kind=&symbol=BRK.B&selected=BRK.B&FormType=&mkttype=&pathname=&page=charting",
    "/screening/"
    "ViewCompetitors.asp?mode=&kind=&symbol=BRK.B&FormType=&mkttype=&pathname=&page=competitor&selected=BRK."
    "B",
    "/asp/"
    "summaryquote.asp?mode=&kind=&symbol=BRK.B&FormType=&mkttype=&pathname=&page=summaryquote&selected=BRK.B",
    "/asp/ExtendFund.asp?mode=&kind=&symbol=BRK.B&FormType=&mkttype=&pathname=&page=full&selected=BRK.B",
    "/asp/Holdings.asp?symbol=BRK.B&selected=BRK.B&page=holdingssummary",
    "/news/newsHeadlines.aspx?&kind=&symbol=BRK.B&selected=BRK.B&FormType=&mkttype=&pathname=&page=news",
    "/asp/"
    "option_mostactive.asp?mode=&kind=&symbol=BRK.B&FormType=&mkttype=&pathname=&page=options&selected=BRK.B",
    "/asp/quotes_reports.asp?symbol=BRK.B&selected=BRK.B&page=stockreports",
    "/quote.dll?&mode=stock&symbol=BRK.B&selected=BRK.B&page=quick",
    "/asp/stock_consultant.asp?symbol=BRK.B&selected=BRK.B",
    "/asp/quotes_sec.asp?symbol=BRK.B&selected=BRK.B&page=filings"};

TEST(ResearchPages, NameThePathAndTheTicker) {
    for (const std::string_view address : kTickerAddresses) {
        const auto lines = PageLines(std::string(address));
        const std::string path(address.substr(0, address.find('?')));
        EXPECT_THAT(lines,
                    ::testing::IsSupersetOf({std::string("Page: ") + path, std::string("Ticker: BRK.B"),
                                             std::string("Name: Berkshire Hathaway Inc. class B")}))
            << address;
    }
}

constexpr std::string_view kMarketAddresses[] = {
    "/m0?u",
    "/mrd",
    "/c/e.html",
    "/research/earncal/today.html",
    "/mp?u",
    "/ipo/",
    "/mt?u",
    "/mnvl?e=aq",
    "/mnvl?e=nq",
    "/mnvl?e=o",
    "/stocks.html",
    "/l",
    "/m1?u",
    "/mru?u",
    "/m2?u",
    "/asp/usmostactive.asp?exchange=nasdaq&mostactive=adv",
    "/earnings/Analyst_Rec_change.asp?SortTable=Downgrade",
    "/asp/econodayframe.asp?page=http://127.0.0.1/econoday/index.html",
    "/earnings/Analyst_Forecast_change.asp?SortTable=Increase",
    "/heatmaps/heatmap_100.asp",
    "/reference/ipos.stm",
    "/aspx/majorindices.aspx",
    "/asp/USmostactive.asp?exchange=AMEX",
    "/reference/upcoming_splits.stm",
    "/reference/guru.stm",
    "/asp/HomeSymLookup.asp?parentLocation=&srch=name&contain=0&mode=stock&key=a&go.x=16&go.y=6",
    "/dynamic/activityPrompt.stm",
    "/asp/globalindices_world.asp",
    "/questions.htm",
    "/feedback.htm",
    "/UserForum/BullitenBoard/UFlogin.asp?UN=me&PW=secret"};

TEST(ResearchPages, NameThePathOfAMarketPage) {
    for (const std::string_view address : kMarketAddresses) {
        const auto lines = PageLines(std::string(address));
        const std::string path(address.substr(0, address.find('?')));
        EXPECT_THAT(lines, ::testing::Contains("Page: " + path)) << address;
        for (const std::string& line : lines) EXPECT_THAT(line, Not(StartsWith("Ticker:"))) << address;
    }
    EXPECT_THAT(Ask("/UserForum/BullitenBoard/UFlogin.asp?UN=me&PW=secret").body, Not(HasSubstr("secret")));
}

TEST(ResearchPages, SayWhenATickerIsUnknown) {
    EXPECT_THAT(
        PageLines("/q?s=ZZZZ&d=t"),
        ::testing::IsSupersetOf({"Ticker: ZZZZ", "The practice market has no prices for this ticker."}));
}

TEST(ResearchPages, LinkToEveryTickerFromAPageWithoutOne) {
    for (const char* target : {"/", "/mt?u"}) {
        const std::string page = Ask(target).body;
        for (const auto& [ticker, rest] : ShippedData().Tickers()) {
            EXPECT_THAT(page, HasSubstr("<a href=\"/q?s=" + ticker + "&d=t\">" + ticker + "</a>"));
        }
    }
}

TEST(ResearchPages, TellTheQuotesOfTheDayOnAPageWithoutATicker) {
    const auto fields = FieldsOfLine(LinesOf(Ask("/d/quotes.txt?s=NFLX&f=sl1c1v").body).at(0), ',');
    ASSERT_EQ(fields.size(), 4u);
    const std::string page = Ask("/mt?u").body;
    EXPECT_THAT(page, HasSubstr(">NFLX</a></td><td>Netflix, Inc.</td><td>" + fields[1] + "</td><td>" +
                                fields[2] + "</td><td>" + fields[3] + "</td></tr>"));
}

TEST(TickerOfAddress, TakesAPageNamedInTheFolderOfItsFirstCharacterOnly) {
    const auto ticker = [](std::string_view target) { return TickerOfAddress(ReadRequest(target)); };
    EXPECT_EQ(ticker("/p/N/NFLX.html"), "NFLX");
    EXPECT_EQ(ticker("/p/n/nflx.html"), "NFLX");
    EXPECT_EQ(ticker("/p/X/NFLX.html"), "");
    EXPECT_EQ(ticker("/c/s.html"), "");
    EXPECT_EQ(ticker("/.html"), "");
    EXPECT_EQ(ticker(".html"), "");
    EXPECT_EQ(ticker("/A/A.html"), "A");
    EXPECT_EQ(ticker("/q?symbol=T"), "T");
}

}  // namespace
}  // namespace brantlow
