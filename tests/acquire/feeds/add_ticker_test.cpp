#include "acquire/feeds/add_ticker.h"

#include "acquire/web/memory_web.h"
#include "support/session_fixture.h"

namespace brantlow {
namespace {

using Lines = std::vector<std::string>;

class AddTickerTest : public SessionTest {
  protected:
    AddTickerTest() {
        Set(session.settings.DataSettings, 6, "2");
        Set(session.settings.DataSettings, 7, "Automatic Save");
        Set(session.settings.NetSettings, 3, "Yahoo");
        web.AnswerWith([](const WebRequest&) {
            return MemoryWeb::Page("Date,Open,High,Low,Close,Volume,Adj\n2024-03-14,10,12,9,11,500,11\n");
        });
    }
    TableEdit Add(const NewTicker& ticker) { return AddTicker(session, web, hosts, table, ticker, 0); }

    QuoteTable table = TableOf({"Ticker Symbol\tHigh Alarm\tLow Alarm", "BBB\t\t"});
    MemoryWeb web;
    Hosts hosts;
};

TEST_F(AddTickerTest, FetchesTheHistoryAndSaves) {
    const TableEdit edit = Add({"aaa", "50", "40"});
    EXPECT_EQ(edit.outcome, EditOutcome::Changed);
    EXPECT_FALSE(edit.saveError);
    EXPECT_EQ(Read("Data/Mine.ddq"), "Ticker Symbol\tHigh Alarm\tLow Alarm\r\nAAA\t50\t40\r\nBBB\t\t\r\n");
    EXPECT_EQ(Read("Quotes/EOD/AAA.24"),
              "\"03/14/24\",\"\",11,9,12,500,0,0,0,0,0,\"\",\"\",0,0,0,0,0,10\r\n");
    ASSERT_EQ(web.Addresses.size(), 1U);
    EXPECT_NE(web.Addresses[0].find("/table.txt?s=AAA&"), std::string::npos);
    EXPECT_EQ(person.statusWords, (Lines{"Updating", "Saving", "Complete"}));
    EXPECT_EQ(person.tickerCounts, std::vector<std::size_t>{2});
}

// A new file, then into its place.
TEST_F(AddTickerTest, TheTableIsWrittenBesideTheWindowsAlone) {
    Set(session.settings.DataSettings, 6, "");
    EXPECT_EQ(FilesChangedBesideBy([&] { Add({"AAA"}); }), 2);
    EXPECT_TRUE(Exists("Data/Mine.ddq"));
}

TEST_F(AddTickerTest, WithoutYearsNoHistoryIsFetched) {
    Set(session.settings.DataSettings, 6, "");
    EXPECT_EQ(Add({"AAA"}).outcome, EditOutcome::Changed);
    EXPECT_TRUE(web.Addresses.empty());
}

TEST_F(AddTickerTest, OnlyAnEndOfDayTableFetchesHistory) {
    session.CurrentFile = "Evaluations.dbe";
    EXPECT_EQ(Add({"AAA"}).outcome, EditOutcome::Changed);
    EXPECT_TRUE(web.Addresses.empty());
}

TEST_F(AddTickerTest, WithManualSaveTheFileIsNotWritten) {
    Set(session.settings.DataSettings, 7, "Manual Save");
    Add({"AAA"});
    EXPECT_FALSE(Exists("Data/Mine.ddq"));
    EXPECT_EQ(table.TickerCount(), 2U);
}

TEST_F(AddTickerTest, ATickerForWhichNothingComesStandsInTheTable) {
    web.AnswerWith([](const WebRequest&) { return FailedReply(WebFailure::NoConnection, "refused"); });
    EXPECT_EQ(Add({"AAA"}).outcome, EditOutcome::Changed);
    EXPECT_EQ(table.Ticker(1), "AAA");
    EXPECT_FALSE(Exists("Quotes/EOD/AAA.24"));
    EXPECT_TRUE(person.said.empty());
}

TEST_F(AddTickerTest, ItsOwnSaveIsNoChangeOfAnotherProgram) {
    ASSERT_FALSE(SaveOpenTable(session, table));
    EXPECT_FALSE(Add({"AAA"}).saveError);
    EXPECT_FALSE(Add({"CCC"}).saveError);
    EXPECT_FALSE(SaveOpenTable(session, table));
    EXPECT_TRUE(person.asked.empty());
}

TEST_F(AddTickerTest, WhatAnotherProgramMadeOfTheFileStaysWhereThePersonWantsIt) {
    ASSERT_FALSE(SaveOpenTable(session, table));
    ASSERT_FALSE(WriteWholeFile(session.DataFile(session.CurrentFile), "somebody else's"));
    person.answer = false;
    EXPECT_EQ(Add({"AAA"}).saveError, std::errc::operation_canceled);
    ASSERT_EQ(person.asked.size(), 1U);
    EXPECT_EQ(person.asked[0].title, kFileChangedTitle);
    EXPECT_EQ(Read("Data/Mine.ddq"), "somebody else's");
    EXPECT_TRUE(Exists("Quotes/EOD/AAA.24"));
    EXPECT_EQ(table.Ticker(1), "AAA");
}

TEST_F(AddTickerTest, WhatIsNotAddedFetchesAndSavesNothing) {
    for (const char* symbol : {"bbb", "NUL", "", " "}) {
        EXPECT_NE(Add({symbol}).outcome, EditOutcome::Changed) << symbol;
    }
    EXPECT_TRUE(web.Addresses.empty());
    EXPECT_TRUE(person.statusWords.empty());
    EXPECT_FALSE(Exists("Data/Mine.ddq"));
    EXPECT_EQ(table.TickerCount(), 1U);
}

}  // namespace
}  // namespace brantlow
