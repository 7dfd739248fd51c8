// The promise "gone": settings that keep the stored history of a ticker whose download failed.
#include <algorithm>

#include "acquire/feeds/history_fixture.h"
#include "store/error_report.h"

namespace brantlow {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kHost = "https://history.brantlow.example";

class KeptHistoryTest : public HistoryDownloadFixture {
  protected:
    KeptHistoryTest() {
        session.CurrentFile = "Mine.ddq";
        session.settings.OwnSettings.Set(1, Value::OfText("Keep"));
        for (const char* ticker : {"A", "BB", "CCC"}) Write(std::string(ticker) + ".25", "old");
        web.AnswerWith([](const WebRequest&) { return MemoryWeb::Page(kThreeDays); });
    }
    PopulateRun Populate(const std::vector<std::string>& tickers = {"A", "BB", "CCC"}) {
        QuoteTable table;
        table.AppendLine("Ticker Symbol\tLast Price");
        for (const std::string& ticker : tickers) table.AppendLine(ticker + "\t1");
        return PopulateDatabase(session, web, hosts, table);
    }
    void EverythingGets(const WebReply& reply) {
        web.AnswerWith([reply](const WebRequest&) { return reply; });
    }
};

struct FailedRow {
    const char* name;
    WebReply reply;
    std::string why;
};

std::vector<FailedRow> FailedReplies() {
    WebReply status = FailedReply(WebFailure::Status, "The host answered with status 500.");
    status.status = 500;
    const std::string none = "No reply from " + kHost + " : ";
    const std::string page = "No data from " + kHost + " : ";
    return {
        {"refused", FailedReply(WebFailure::NoConnection, "Failed to connect after 3 ms"),
         none + "could not connect"},
        {"cut", FailedReply(WebFailure::Broken, "x"), none + "the reply was cut"},
        {"status", status, none + "the host answered with status 500"},
        {"certificate", FailedReply(WebFailure::Certificate, "self-signed certificate"),
         none + "its certificate is not valid (self-signed certificate)"},
        {"late", FailedReply(WebFailure::TimedOut, "x"), none + "no whole reply in time"},
        {"empty", MemoryWeb::Page(""), page + "an empty reply"},
        {"blank", MemoryWeb::Page(" \r\n\n"), page + "an empty reply"},
        {"page", MemoryWeb::Page("<html><body>Sorry</body></html>", "text/html"),
         page + "a web page in place of data"},
        {"page with days", MemoryWeb::Page("<!DOCTYPE html>\n2-Jan-26,1,1,1,1,1,1\n</html>\n"),
         page + "a web page in place of data"},
        {"words", MemoryWeb::Page("Too many requests\n"), page + "a reply in no form that is known"},
        {"cut without a length", MemoryWeb::Page(kThreeDays.substr(0, kThreeDays.size() - 20)),
         none + "the reply was cut"},
    };
}

TEST_F(KeptHistoryTest, AFailedDownloadKeepsTheHistoryAtPopulate) {
    for (const FailedRow& row : FailedReplies()) {
        SCOPED_TRACE(row.name);
        EverythingGets(row.reply);
        const PopulateRun run = Populate({"A", "BB"});
        EXPECT_EQ(run.stored, 0U);
        EXPECT_THAT(Files(), ElementsAre("A.25", "BB.25", "CCC.25"));
        EXPECT_EQ(Read("A.25"), "old");
        EXPECT_EQ(run.report.Extent(), RunExtent::Nothing);
        EXPECT_EQ(run.report.Line(), row.why + "; nothing was changed");
    }
    EXPECT_TRUE(person.said.empty());
}

TEST_F(KeptHistoryTest, AFailedDownloadKeepsTheHistoryAtASecondPopulate) {
    Populate();
    const std::string stored = Read("A.26");
    ASSERT_NE(stored, "");
    for (const FailedRow& row : FailedReplies()) {
        SCOPED_TRACE(row.name);
        EverythingGets(row.reply);
        Populate();
        EXPECT_EQ(Read("A.26"), stored);
        EXPECT_THAT(Files(), ElementsAre("A.25", "A.26", "BB.25", "BB.26", "CCC.25", "CCC.26"));
    }
}

TEST_F(KeptHistoryTest, AFailedDownloadKeepsTheHistoryOfASingleTicker) {
    for (const FailedRow& row : FailedReplies()) {
        SCOPED_TRACE(row.name);
        EverythingGets(row.reply);
        const HistoryDownload download = Download("A");
        EXPECT_EQ(download.outcome, HistoryOutcome::NoReply);
        EXPECT_EQ(download.why, row.why);
        EXPECT_FALSE(download.isChanged);
        EXPECT_EQ(Read("A.25"), "old");
    }
}

TEST_F(KeptHistoryTest, AFailedDownloadKeepsTheHistoryAtRepopulate) {
    std::filesystem::create_directories(folder / "Data");
    ASSERT_FALSE(WriteErrorReport(session.DataFolder(), {"short", {"A", "BB"}}));
    for (const FailedRow& row : FailedReplies()) {
        SCOPED_TRACE(row.name);
        EverythingGets(row.reply);
        const PopulateRun run = RepopulateReported(session, web, hosts);
        EXPECT_EQ(run.tickers, 2U);
        EXPECT_EQ(run.report.Line(), row.why + "; nothing was changed");
        EXPECT_THAT(Files(), ElementsAre("A.25", "BB.25", "CCC.25"));
    }
    EXPECT_TRUE(person.said.empty());
}

TEST_F(KeptHistoryTest, RepopulateReplacesTheHistoryOfThisYearToo) {
    std::filesystem::create_directories(folder / "Data");
    ASSERT_FALSE(WriteErrorReport(session.DataFolder(), {"short", {"A"}}));
    Write("A.26", "\"01/02/26\",\"\",1\r\n");
    const PopulateRun run = RepopulateReported(session, web, hosts);
    EXPECT_EQ(run.stored, 1U);
    EXPECT_TRUE(person.said.empty());
    EXPECT_EQ(Read("A.26"), Record("01/02/26", "10.75,10,11,1200", "10.5"));
}

TEST_F(KeptHistoryTest, HalfAMarketKeepsTheOtherHalf) {
    web.Answer(UrlOf("BB"), FailedReply(WebFailure::Broken, "x"));
    const PopulateRun run = Populate();
    EXPECT_EQ(run.stored, 2U);
    EXPECT_EQ(Read("BB.25"), "old");
    EXPECT_THAT(Files(), ElementsAre("A.25", "A.26", "BB.25", "CCC.25", "CCC.26"));
    EXPECT_EQ(run.report.Extent(), RunExtent::Partly);
    EXPECT_THAT(
        run.report.Lines(),
        ElementsAre("2 of 3 histories", "No reply from " + kHost + " : the reply was cut (1 ticker: BB)"));
}

TEST_F(KeptHistoryTest, AWellFormedReplyWithoutDaysTakesTheHistoryAway) {
    EverythingGets(MemoryWeb::Page("Date,Open,High,Low,Close,Volume,Adj Close\n"));
    const PopulateRun run = Populate();
    EXPECT_THAT(Files(), IsEmpty());
    EXPECT_EQ(run.report.Extent(), RunExtent::Whole);
    EXPECT_EQ(run.report.Line(), "0 of 3 histories, 3 tickers unknown: A, BB, CCC");
}

TEST_F(KeptHistoryTest, APageThatTheHostDoesNotHaveIsAnAnswerAndTheHistoryStays) {
    WebReply missing = FailedReply(WebFailure::Status, "The host answered with status 404.");
    missing.status = 404;
    EverythingGets(missing);
    const PopulateRun run = Populate();
    EXPECT_THAT(Files(), ElementsAre("A.25", "BB.25", "CCC.25"));
    EXPECT_EQ(run.report.Extent(), RunExtent::Whole);
    EXPECT_EQ(run.report.Line(), "0 of 3 histories, 3 tickers unknown: A, BB, CCC");
}

TEST_F(KeptHistoryTest, HalfAHistoryIsStoredWhereThereIsNone) {
    web.Answer(UrlOf("NEW"), MemoryWeb::Page(kThreeDays.substr(0, kThreeDays.size() - 20)));
    EXPECT_EQ(Download("NEW").outcome, HistoryOutcome::Stored);
    EXPECT_EQ(Read("NEW.26"), Record("01/02/26", "10.75,10,11,1200", "10.5"));
}

TEST_F(KeptHistoryTest, ExitLeavesTheHistoriesOfTheTickersFurtherOn) {
    person.events = {[this] { session.run.ProcessCommand = "True"; }};
    const PopulateRun run = Populate();
    EXPECT_TRUE(run.stopped);
    EXPECT_THAT(Files(), ElementsAre("A.25", "A.26", "BB.25", "CCC.25"));
    EXPECT_EQ(run.report.Line(), "1 of 3 histories, stopped");
}

TEST_F(KeptHistoryTest, ASilentHostIsGivenUpAndEveryHistoryStays) {
    std::vector<std::string> tickers;
    for (int i = 0; i < 40; ++i) {
        tickers.push_back("T" + std::to_string(i));
        Write(tickers.back() + ".25", "old");
    }
    EverythingGets(FailedReply(WebFailure::Silent, "x"));
    const PopulateRun run = Populate(tickers);
    EXPECT_EQ(run.tickers, 40U);
    EXPECT_LE(web.Addresses.size(), 3U + kRequestsPerHost);
    EXPECT_EQ(Files().size(), 43U);
    EXPECT_EQ(run.report.Line(), "No reply from " + kHost + " : no whole reply in time; " + kHost +
                                     " was given up after 3 requests without a reply; nothing was changed");
}

TEST_F(KeptHistoryTest, ATickerThatCannotBeAskedForIsLeftOut) {
    Write("A&B.25", "old");
    const PopulateRun run = Populate({"A", "A&B", "BB"});
    EXPECT_THAT(web.Addresses, ElementsAre(UrlOf("A"), UrlOf("BB")));
    EXPECT_EQ(Read("A&B.25"), "old");
    EXPECT_EQ(run.report.Extent(), RunExtent::Partly);
    EXPECT_THAT(run.report.Lines(),
                ElementsAre("2 of 3 histories",
                            "Left out: a ticker with a blank or one of & # ? % , cannot be asked for (1 "
                            "ticker: A&B)"));
    EXPECT_EQ(Download("A#B").outcome, HistoryOutcome::LeftOut);
}

TEST_F(KeptHistoryTest, TheSelectedTickerIsTheSameAfterwards) {
    session.CurrentTicker = "SEL";
    Populate();
    EXPECT_EQ(session.CurrentTicker, "SEL");
    std::filesystem::create_directories(folder / "Data");
    ASSERT_FALSE(WriteErrorReport(session.DataFolder(), {"short", {"A", "BB"}}));
    RepopulateReported(session, web, hosts);
    EXPECT_EQ(session.CurrentTicker, "SEL");
}

TEST_F(KeptHistoryTest, WithoutTheChoiceTheHistoryIsLostAndTheRunSaysSo) {
    session.settings.OwnSettings.Set(1, Value::OfText("Replace"));
    EverythingGets(FailedReply(WebFailure::NoConnection, "x"));
    const PopulateRun run = Populate();
    EXPECT_THAT(Files(), IsEmpty());
    EXPECT_EQ(run.report.Extent(), RunExtent::Partly);
    EXPECT_THAT(run.report.Lines(),
                ElementsAre("0 of 3 histories",
                            "No reply from " + kHost + " : could not connect (3 tickers: A, BB, CCC)"));
}

}  // namespace
}  // namespace brantlow
