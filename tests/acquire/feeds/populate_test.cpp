#include "acquire/feeds/history_fixture.h"

namespace brantlow {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PopulateTest : public HistoryDownloadFixture {
  protected:
    PopulateTest() {
        session.CurrentFile = "Mine.ddq";
        // Each ticker's history is one day of which the volume is the length of its address.
        web.AnswerWith([](const WebRequest& request) {
            return MemoryWeb::Page("h\n2-Jan-26,1,1,1,1," + std::to_string(request.url.size()) + ",1\n");
        });
    }
    PopulateRun Populate(const std::vector<std::string>& tickers) {
        QuoteTable table;
        table.AppendLine("Ticker Symbol\tLast Price");
        for (const std::string& ticker : tickers) table.AppendLine(ticker + "\t1");
        return PopulateDatabase(session, web, hosts, table);
    }
    std::string Expected(std::string_view ticker) const {
        return Record("01/02/26", "1,1,1," + std::to_string(UrlOf(ticker).size()), "1");
    }
};

TEST_F(PopulateTest, FetchesEveryTickerInOrder) {
    const PopulateRun run = Populate({"A", "BB", "CCC", "DDDD", "EEEEE", "FFFFFF"});
    EXPECT_EQ(run.tickers, 6U);
    EXPECT_EQ(run.stored, 6U);
    EXPECT_FALSE(run.stopped);
    EXPECT_THAT(web.Addresses, ElementsAre(UrlOf("A"), UrlOf("BB"), UrlOf("CCC"), UrlOf("DDDD"),
                                           UrlOf("EEEEE"), UrlOf("FFFFFF")));
    for (const char* ticker : {"A", "BB", "CCC", "DDDD", "EEEEE", "FFFFFF"}) {
        EXPECT_EQ(Read(std::string(ticker) + ".26"), Expected(ticker)) << ticker;
    }
}

TEST_F(PopulateTest, FourRequestsAreOnTheirWayWhileOneIsWorkedOn) {
    Populate({"A", "BB", "CCC", "DDDD", "EEEEE", "FFFFFF"});
    EXPECT_EQ(web.MostStarted, 4U);
    EXPECT_EQ(web.Abandoned, 0U);
}

TEST_F(PopulateTest, ShowsItsWordsAndItsProgress) {
    Populate({"A", "BB", "CCC", "DDDD"});
    EXPECT_THAT(person.statusWords, ElementsAre("Populating", "Complete"));
    EXPECT_THAT(person.progress, ElementsAre(0.25, 0.5, 0.75, 1.0));
    EXPECT_EQ(session.run.ProgressFraction, 0);
    EXPECT_EQ(session.run.CurrentRow, 0U);
    EXPECT_TRUE(person.said.empty());
}

TEST_F(PopulateTest, ATableWithoutTickersIsComplete) {
    EXPECT_EQ(Populate({}).tickers, 0U);
    EXPECT_THAT(person.statusWords, ElementsAre("Populating", "Complete"));
    EXPECT_EQ(PopulateDatabase(session, web, hosts, QuoteTable()).tickers, 0U);
    EXPECT_THAT(web.Addresses, IsEmpty());
}

TEST_F(PopulateTest, TickersThatCanHaveNoFilesAreSkippedInTheirPlace) {
    const PopulateRun run = Populate({"A", "AUX", "../X", "", "PRN.X", "BB"});
    EXPECT_EQ(run.tickers, 6U);
    EXPECT_EQ(run.stored, 2U);
    EXPECT_THAT(web.Addresses, ElementsAre(UrlOf("A"), UrlOf("BB")));
    EXPECT_EQ(Read("BB.26"), Expected("BB"));
    EXPECT_EQ(person.progress.size(), 6U);
}

TEST_F(PopulateTest, ExitStopsAfterTheCurrentTickerAndThoseFurtherOnHaveLostTheirFiles) {
    for (const char* ticker : {"A", "BB", "CCC"}) Write(std::string(ticker) + ".25", "old");
    Write("ZZ.25", "no ticker of the table");
    person.events = {[] {}, [this] { session.run.ProcessCommand = "True"; }};
    const PopulateRun run = Populate({"A", "BB", "CCC"});
    EXPECT_TRUE(run.stopped);
    EXPECT_EQ(run.tickers, 2U);
    EXPECT_THAT(Files(), ElementsAre("A.26", "BB.26", "ZZ.25"));
    EXPECT_EQ(Read("BB.26"), Expected("BB"));
    EXPECT_EQ(web.Abandoned, 1U);
    EXPECT_THAT(person.statusWords, ElementsAre("Populating", "Complete"));
}

TEST_F(PopulateTest, APauseWaitsForResume) {
    person.events = {[this] { session.run.ProcessCommand = "Pause"; }, [] {}, [] {},
                     [this] { session.run.ProcessCommand = "Resume"; }};
    const PopulateRun run = Populate({"A", "BB", "CCC"});
    EXPECT_FALSE(run.stopped);
    EXPECT_EQ(run.stored, 3U);
    EXPECT_EQ(session.run.ProcessCommand, "False");
}

TEST_F(PopulateTest, OnlyAnEndOfDayFileLosesAllItsHistoriesFirst) {
    for (const char* name : {"Mine.db", "Evaluations.dbe", "Funds.efq", ""}) {
        SCOPED_TRACE(name);
        session.CurrentFile = name;
        Write("BB.25", "old");
        person.events = {[this] { session.run.ProcessCommand = "True"; }};
        Populate({"A", "BB"});
        EXPECT_EQ(Read("BB.25"), "old");
    }
}

TEST_F(PopulateTest, AnOldHistoryIsReplacedInAnyFile) {
    session.CurrentFile = "Evaluations.dbe";
    Write("A.25", "old");
    Populate({"A"});
    EXPECT_THAT(Files(), ElementsAre("A.26"));
}

TEST_F(PopulateTest, AFailedDownloadLosesTheHistoryAndTheRunGoesOn) {
    session.CurrentFile = "Evaluations.dbe";
    Write("A.25", "old");
    web.Answer(UrlOf("A"), FailedReply(WebFailure::NoConnection, "refused"));
    const PopulateRun run = Populate({"A", "BB"});
    EXPECT_EQ(run.tickers, 2U);
    EXPECT_EQ(run.stored, 1U);
    EXPECT_THAT(Files(), ElementsAre("BB.26"));
}

TEST_F(PopulateTest, ATickerThatStandsTwiceIsFetchedTwice) {
    web.Answer(UrlOf("A"), MemoryWeb::Page(kThreeDays));
    EXPECT_EQ(Populate({"A", "A"}).stored, 2U);
    EXPECT_THAT(Files(), ElementsAre("A.25", "A.26"));
    EXPECT_EQ(web.Addresses.size(), 2U);
}

TEST_F(PopulateTest, TheSourceOfTheSettingsIsNotAsked) {
    UseUserSource("");
    EXPECT_EQ(Populate({"A"}).stored, 1U);
    EXPECT_TRUE(person.said.empty());
}

TEST_F(PopulateTest, WhereAFileCannotBeWrittenNoHistoryIsChanged) {
    std::filesystem::create_directories(folder / "Quotes/BB.26");
    const PopulateRun run = Populate({"A", "BB"});
    EXPECT_EQ(run.error.file, folder / "Quotes/BB.26");
    EXPECT_FALSE(run.error.isHalfDone);
    EXPECT_EQ(run.stored, 0U);
    EXPECT_EQ(run.report.Extent(), RunExtent::Nothing);
    EXPECT_THAT(Files(), IsEmpty());
}

}  // namespace
}  // namespace brantlow
