#include "acquire/feeds/extended_fundamentals.h"

#include <gtest/gtest.h>

#include "acquire/web/memory_web.h"
#include "shell/memory_status.h"
#include "store/table_files.h"
#include "support/recording_person.h"
#include "support/table_lines.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

using Urls = std::vector<std::string>;
using namespace std::chrono_literals;

constexpr std::string_view kPlenty = "MemTotal: 1000 kB\nMemAvailable: 500 kB\n";
constexpr std::string_view kScarce = "MemTotal: 1000 kB\nMemAvailable: 54 kB\n";

class ExtendedFundamentalsTest : public ::testing::Test {
  protected:
    ExtendedFundamentalsTest() {
        std::filesystem::create_directories(session.DataFolder());
        session.CurrentFile = kFundamentalsName;
        Rows({"IBM"});
        web.AnswerWith([](const WebRequest&) { return WithoutThePage(); });
    }

    void Rows(const std::vector<std::string>& tickers) {
        QuoteTable quotes;
        quotes.AppendLine("Ticker Symbol");
        for (const std::string& ticker : tickers) quotes.AppendLine(ticker);
        ASSERT_FALSE(CreateFundamentalFile(quotes, session));
        const auto load = LoadQuoteTable(session.DataFile(kFundamentalsName), FileKind::Efq, session.settings,
                                         clock.Today(), table, nullptr);
        ASSERT_TRUE(load.Done());
    }
    static WebReply WithoutThePage() {
        WebReply reply = FailedReply(WebFailure::Status, "The host answered with status 404.");
        reply.status = 404;
        return reply;
    }
    void AnswerPages(const std::string& ticker, const std::string& beta, const std::string& target) {
        web.Answer(
            "http://q/q/ks?s=" + ticker,
            MemoryWeb::Page("<table><tr><td>Beta:</td><td>" + beta + "</td></tr></table>", "text/html"));
        web.Answer("http://q/q/ao?s=" + ticker, MemoryWeb::Page("Mean Target:" + target));
        web.Answer("http://q/q/ae?s=" + ticker, MemoryWeb::Page("Growth Est\r\nCurrent Qtr.5.0%"));
    }
    FundamentalsOutcome Collect() {
        return CollectExtendedFundamentals(session, {web, cache, hosts, [this] { return meminfo; }}, table);
    }
    std::string Saved(std::string_view name) const { return BytesOrEmpty(session.DataFile(name)); }

    TempFolder folder;
    RecordingPerson person;
    FixedClock clock{2026y / 11 / 21};
    Session session{folder.Get(), clock, person};
    MemoryWeb web{&person};
    MemoryUrlCache cache;
    Hosts hosts = Hosts::Parse("QuoteHost=http://q");
    std::string meminfo{kPlenty};
    QuoteTable table;
};

TEST_F(ExtendedFundamentalsTest, ReadsThreePagesOfEachTickerInOrder) {
    Rows({"IBM", "MSFT"});
    AnswerPages("IBM", "1.05", "90");
    AnswerPages("MSFT", "0.9", "30.5");
    const FundamentalsOutcome outcome = Collect();
    EXPECT_EQ(web.Addresses, (Urls{"http://q/q/ks?s=IBM", "http://q/q/ao?s=IBM", "http://q/q/ae?s=IBM",
                                   "http://q/q/ks?s=MSFT", "http://q/q/ao?s=MSFT", "http://q/q/ae?s=MSFT"}));
    EXPECT_EQ(outcome.tickers, 2U);
    EXPECT_FALSE(outcome.stopped);
    EXPECT_TRUE(outcome.withoutValues.empty());
    EXPECT_EQ(table.Text(1, 30), "1.05");
    EXPECT_EQ(table.Text(1, 41), "90");
    EXPECT_EQ(table.Text(1, 54), "5");
    EXPECT_EQ(table.Text(2, 30), "0.9");
    EXPECT_EQ(table.Text(2, 41), "30.5");
}

TEST_F(ExtendedFundamentalsTest, NoMoreThanFourPagesAreUnderWay) {
    Rows({"A", "B", "C", "D"});
    web.AnswerWith([](const WebRequest&) { return MemoryWeb::Page("Beta:1"); });
    Collect();
    EXPECT_EQ(web.Addresses.size(), 12U);
    EXPECT_EQ(web.MostStarted, kRequestsPerHost);
    EXPECT_EQ(web.Abandoned, 0U);
}

TEST_F(ExtendedFundamentalsTest, AnIndexLeavesItsRowEmptyAndTheRunGoesOn) {
    Rows({"^DJI", "IBM", "^GSPC"});
    AnswerPages("IBM", "1.05", "90");
    const FundamentalsOutcome outcome = Collect();
    EXPECT_EQ(web.Addresses.size(), 3U);
    EXPECT_EQ(outcome.tickers, 3U);
    EXPECT_TRUE(outcome.withoutValues.empty());
    EXPECT_EQ(LineText(table, 1), "^DJI" + std::string(58, '\t'));
    EXPECT_EQ(LineText(table, 3), "^GSPC" + std::string(58, '\t'));
    EXPECT_EQ(table.Text(2, 30), "1.05");
}

TEST_F(ExtendedFundamentalsTest, AnEmptyRowIsNotAskedFor) {
    Rows({"", "IBM"});
    EXPECT_EQ(Collect().tickers, 2U);
    EXPECT_EQ(web.Addresses.size(), 3U);
}

TEST_F(ExtendedFundamentalsTest, SavesTheTableAndTakesTheNameOfTheDay) {
    AnswerPages("IBM", "1.05", "90");
    EXPECT_FALSE(Collect().saveError);
    const std::string header = EfqHeader() + "\r\n";
    EXPECT_EQ(Saved(kFundamentalsName), header + "IBM" + std::string(30, '\t') + "1.05" +
                                            std::string(11, '\t') + "90" + std::string(13, '\t') + "5" +
                                            std::string(4, '\t') + "\r\n");
    EXPECT_EQ(session.CurrentFile, "11-21-26.efq");
    EXPECT_FALSE(IsRegularFile(session.DataFile("11-21-26.efq")));
    EXPECT_FALSE(IsRegularFile("Temp.txt"));
}

TEST_F(ExtendedFundamentalsTest, ATableThatCannotBeSavedIsReported) {
    session.CurrentFile = "Folder.efq";
    std::filesystem::create_directories(session.DataFile("Folder.efq"));
    EXPECT_EQ(Collect().saveError.cause, std::errc::is_a_directory);
    EXPECT_EQ(session.CurrentFile, "11-21-26.efq");
}

TEST_F(ExtendedFundamentalsTest, APageThatCannotBeReachedLeavesItsCellsEmpty) {
    Rows({"IBM", "GONE"});
    AnswerPages("IBM", "1.05", "90");
    web.Answer("http://q/q/ao?s=IBM", FailedReply(WebFailure::Status, "404"));
    const FundamentalsOutcome outcome = Collect();
    EXPECT_EQ(table.Text(1, 30), "1.05");
    EXPECT_EQ(table.Text(1, 41), "");
    EXPECT_EQ(table.Text(1, 54), "5");
    EXPECT_EQ(outcome.withoutValues, (std::vector<std::string>{"GONE"}));
    EXPECT_TRUE(person.said.empty());
}

TEST_F(ExtendedFundamentalsTest, APageIsWaitedForTenSecondsAndReadAsFarAsItCame) {
    std::vector<std::optional<double>> limits;
    web.AnswerWith([&](const WebRequest& request) {
        limits.push_back(request.limitSeconds);
        return MemoryWeb::Page("");
    });
    web.NeverComplete("http://q/q/ks?s=IBM", "<p>Beta:1.05</p><p>Forw");
    Collect();
    EXPECT_EQ(limits, (std::vector<std::optional<double>>{10, 10}));
    EXPECT_EQ(table.Text(1, 30), "1.05");
}

TEST_F(ExtendedFundamentalsTest, TheCacheIsPurgedAfterEachPage) {
    std::vector<std::size_t> held;
    web.AnswerWith([&](const WebRequest& request) {
        held.push_back(cache.Entries().size());
        cache.Add(request.url, kNormalCacheEntry);
        cache.Add("cookie", kCookieCacheEntry);
        return MemoryWeb::Page("");
    });
    Collect();
    EXPECT_EQ(held, (std::vector<std::size_t>{0, 0, 0}));
    EXPECT_TRUE(cache.Entries().empty());
}

TEST_F(ExtendedFundamentalsTest, TheCacheIsPurgedBeforeTheFirstPage) {
    cache.Add("http://q/q/ks?s=IBM", kNormalCacheEntry);
    std::vector<std::size_t> held;
    web.AnswerWith([&](const WebRequest&) {
        held.push_back(cache.Entries().size());
        return MemoryWeb::Page("");
    });
    Collect();
    ASSERT_EQ(held.size(), 3U);
    EXPECT_EQ(held.front(), 0U);
}

TEST_F(ExtendedFundamentalsTest, ExitInTheMiddleOfATickerReadsItsOtherPages) {
    Rows({"IBM", "MSFT"});
    AnswerPages("IBM", "1.05", "90");
    web.Answer("http://q/q/ks?s=IBM", FailedReply(WebFailure::Broken, ""));
    meminfo = kScarce;  // the stop word is written after the first page
    const FundamentalsOutcome outcome = Collect();
    EXPECT_TRUE(outcome.stopped);
    EXPECT_EQ(outcome.tickers, 1U);
    EXPECT_EQ(table.Text(1, 41), "90");
    EXPECT_EQ(table.Text(1, 54), "5");
}

TEST_F(ExtendedFundamentalsTest, NoRequestIsEndedByTheStopWord) {
    web.AnswerWith([&](const WebRequest& request) {
        EXPECT_EQ(request.run, nullptr);
        return WithoutThePage();
    });
    Collect();
}

TEST_F(ExtendedFundamentalsTest, TellsWhatBecameOfEachTicker) {
    Rows({"IBM", "^DJI", "A&B", "NONE", "CUT"});
    AnswerPages("IBM", "1.05", "90");
    web.Answer("http://q/q/ks?s=CUT", FailedReply(WebFailure::Broken, ""));
    const RunReport report = Collect().report;
    EXPECT_EQ(report.Lines(),
              (std::vector<std::string>{
                  "1 of 5 tickers, 1 ticker unknown: NONE",
                  "Left out: a ticker with a blank or one of & # ? % , cannot be asked for (1 ticker: A&B)",
                  "No reply from http://q : the reply was cut (1 ticker: CUT)"}));
    EXPECT_EQ(report.Extent(), RunExtent::Partly);
    EXPECT_EQ(TickerLine(report.Tickers()[1]), "^DJI: skipped: an index has no such pages");
    for (const std::string& url : web.Addresses) EXPECT_EQ(url.find('&'), std::string::npos) << url;
}

TEST_F(ExtendedFundamentalsTest, PagesWithoutAValueOfAnyTickerAreNotTheOnesThatWereAskedFor) {
    Rows({"IBM", "MSFT"});
    web.AnswerWith([](const WebRequest&) {
        return MemoryWeb::Page("<html><body>Sign in to the network</body></html>", "text/html");
    });
    const RunReport report = Collect().report;
    EXPECT_EQ(report.Line(), "No data from http://q : web pages without a single value; nothing was changed");
    Rows({"ZZZ"});
    session.CurrentFile = kFundamentalsName;
    EXPECT_EQ(Collect().report.Line(), "0 of 1 tickers, 1 ticker unknown: ZZZ");
}

TEST_F(ExtendedFundamentalsTest, ASilentHostIsGivenUp) {
    std::vector<std::string> tickers;
    for (int i = 0; i < 30; ++i) tickers.push_back("T" + std::to_string(i));
    Rows(tickers);
    web.AnswerWith([](const WebRequest&) { return FailedReply(WebFailure::TimedOut, ""); });
    const RunReport report = Collect().report;
    EXPECT_LE(web.Addresses.size(), 3U + kRequestsPerHost);
    EXPECT_EQ(report.Line(),
              "No reply from http://q : no whole reply in time; http://q was given up after 3 "
              "requests without a reply; nothing was changed");
}

TEST_F(ExtendedFundamentalsTest, LowMemoryEndsTheRunAndTheRowsSoFarAreSaved) {
    Rows({"IBM", "MSFT"});
    AnswerPages("IBM", "1.05", "90");
    meminfo = kScarce;
    const FundamentalsOutcome outcome = Collect();
    EXPECT_TRUE(outcome.stopped);
    EXPECT_EQ(outcome.tickers, 1U);
    ASSERT_EQ(person.said.size(), 1U);
    EXPECT_EQ(person.said.front().title, kLowMemoryTitle);
    EXPECT_EQ(table.Text(1, 30), "1.05");
    EXPECT_NE(Saved(kFundamentalsName).find("\t1.05\t"), std::string::npos);
}

TEST_F(ExtendedFundamentalsTest, ExitStopsAfterTheTickerInWork) {
    Rows({"IBM", "MSFT", "X"});
    AnswerPages("IBM", "1.05", "90");
    person.events.push_back([this] { session.run.ProcessCommand = kStopRun; });
    const FundamentalsOutcome outcome = Collect();
    EXPECT_TRUE(outcome.stopped);
    EXPECT_EQ(outcome.tickers, 1U);
    EXPECT_EQ(table.Text(1, 41), "90");
    EXPECT_EQ(session.CurrentFile, "11-21-26.efq");
    EXPECT_EQ(web.Addresses.size(), 3U + web.Abandoned);
    EXPECT_EQ(outcome.report.Line(), "1 of 3 tickers, stopped");
    EXPECT_EQ(TickerLine(outcome.report.Tickers()[2]), "X: skipped: stopped");
}

TEST_F(ExtendedFundamentalsTest, PauseHoldsTheRunUntilResume) {
    Rows({"IBM", "MSFT"});
    AnswerPages("MSFT", "0.9", "30");
    std::size_t rowWhilePaused = 0;
    std::string tickerWhilePaused;
    session.CurrentTicker = "MSFT";
    person.events.push_back([this] { session.run.ProcessCommand = kPauseRun; });
    person.events.push_back([&] {
        EXPECT_EQ(session.run.ProcessCommand, "");
        rowWhilePaused = session.run.CurrentRow;
        tickerWhilePaused = session.CurrentTicker;
        session.run.ProcessCommand = kResumeRun;
    });
    const FundamentalsOutcome outcome = Collect();
    EXPECT_EQ(rowWhilePaused, 1U);
    EXPECT_EQ(tickerWhilePaused, "IBM");
    EXPECT_EQ(session.CurrentTicker, "MSFT");
    EXPECT_FALSE(outcome.stopped);
    EXPECT_EQ(table.Text(2, 30), "0.9");
}

TEST_F(ExtendedFundamentalsTest, ProgressIsTheShareOfTheRows) {
    Rows({"IBM", "^DJI", "MSFT", "X"});
    Collect();
    EXPECT_EQ(person.progress, (std::vector<double>{0.25, 0.5, 0.75, 1, 1}));
    EXPECT_EQ(session.run.ProcessCommand, kRunning);
    EXPECT_EQ(session.run.CurrentRow, 0U);
    EXPECT_EQ(person.statusWords, (std::vector<std::string>{"Complete"}));
}

TEST_F(ExtendedFundamentalsTest, AStopWordOfAnEarlierRunDoesNotCount) {
    AnswerPages("IBM", "1.05", "90");
    session.run.ProcessCommand = kStopRun;
    EXPECT_FALSE(Collect().stopped);
    EXPECT_EQ(table.Text(1, 30), "1.05");
}

TEST_F(ExtendedFundamentalsTest, ATableWithoutTickersIsSavedWithItsHeader) {
    Rows({});
    EXPECT_EQ(Collect().tickers, 0U);
    EXPECT_EQ(Saved(kFundamentalsName), EfqHeader() + "\r\n");
    EXPECT_TRUE(web.Addresses.empty());
}

TEST_F(ExtendedFundamentalsTest, TheChosenMarketsHostIsAsked) {
    session.settings.QuoteHost = "http://uk";
    Collect();
    EXPECT_EQ(web.Addresses.front(), "http://uk/q/ks?s=IBM");
}

TEST_F(ExtendedFundamentalsTest, AHostileTickerIsAskedForNowhere) {
    Rows({"A B\rX: y"});
    Collect();
    EXPECT_TRUE(web.Addresses.empty());
}

TEST(ExtendedFundamentalsWords, AreTheProgramsOwn) {
    EXPECT_EQ(kFundamentalsOverTemplate,
              "To access Extended Fundamental data, you will need to open an End of Day Quote File");
    EXPECT_EQ(kFundamentalsNeedQuoteFile,
              "To run Extended Fundamentals, you will need to open an End of Day Quote File");
}

}  // namespace
}  // namespace brantlow
