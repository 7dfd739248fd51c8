#include "daily/daily_update.h"

#include "daily/update_fixture.h"
#include "splits/split_calendar_page.h"

namespace brantlow {
namespace {

using Lines = std::vector<std::string>;

class DailyUpdateTest : public UpdateTest {
  protected:
    DailyUpdateTest() {
        Set(session.settings.DataSettings, 7, "Automatic Save");
        Set(session.settings.DataSettings, 8, "Automatic Save");
        Set(session.settings.DataSettings, 16, "Manual");
        Set(session.settings.DataSettings, 19, "Manual");
        table = Tickers(2);
    }
    DailyUpdate Run() { return RunDailyUpdate(work, days, series); }

    DayStore days;
    WorkingSeries series;
};

TEST_F(DailyUpdateTest, QuotesReachTheTableTheDatabaseAndTheFile) {
    const DailyUpdate update = Run();
    EXPECT_EQ(update.quotes.accepted, 2U);
    ASSERT_TRUE(update.database);
    EXPECT_EQ(update.database->stored, 2U);
    EXPECT_FALSE(update.splits);
    EXPECT_FALSE(update.selectorFollows);
    EXPECT_FALSE(update.stopped);
    EXPECT_EQ(Read("Data/Mine.ddq"), "Ticker Symbol\tLast Price\r\nT1\t110.000\r\nT2\t110.000\r\n");
    EXPECT_EQ(
        Read("Quotes/EOD/T1.24"),
        "\"03/15/24\",\"16:01\",110,99,112,12345,22,5,1.5,6,2,\"03/01/24\",\"02/01/24\",100,50,120,3,1200,"
        "101\r\n");
    EXPECT_EQ(Read("Quotes/EOD/QuoteList.ddq"), "2\r\n\"T1\"\r\n\"T2\"\r\n");
    EXPECT_FALSE(Exists("Import.Txt"));
    EXPECT_EQ(person.statusWords, (Lines{"Updating", "Importing EODQ", "Complete", "Saving", "Complete"}));
}

TEST_F(DailyUpdateTest, ALineThatWasCutOffIsTakenOutAndToldInTheLineOfTheRun) {
    Write("Quotes/EOD/T1.24", "\"03/14/24\",\"\",1");
    EXPECT_EQ(Run().report.Line(), "2 of 2 quotes, the half line at the end of T1.24 was taken out");
    EXPECT_EQ(Read("Quotes/EOD/T1.24").find("03/14/24"), std::string::npos);
}

TEST_F(DailyUpdateTest, WithManualSaveForTheDatabaseTheListStaysDeleted) {
    Set(session.settings.DataSettings, 8, "Manual Save");
    Write("Quotes/EOD/QuoteList.ddq", "1\r\n\"T1\"\r\n");
    EXPECT_FALSE(Run().database);
    EXPECT_TRUE(FileNamesIn(folder / "Quotes/EOD").empty());
    EXPECT_TRUE(Exists("Data/Mine.ddq"));
}

TEST_F(DailyUpdateTest, WithManualSaveTheQuoteFileStaysAsItIs) {
    Set(session.settings.DataSettings, 7, "Manual Save");
    Write("Data/Mine.ddq", "old");
    const DailyUpdate update = Run();
    EXPECT_FALSE(update.isSaved);
    EXPECT_EQ(Read("Data/Mine.ddq"), "old");
    EXPECT_TRUE(Exists("Quotes/EOD/T1.24"));
}

TEST_F(DailyUpdateTest, TheSplitCalendarIsLookedAtWhenSwitchedOn) {
    const std::string page = SplitCalendarUrl(hosts);
    web.Answer(page, MemoryWeb::Page("<html><body>none</body></html>", "text/html"));
    Set(session.settings.DataSettings, 19, "Automatic");
    ASSERT_TRUE(Run().splits);
    EXPECT_EQ(web.Addresses.back(), RequestAddress(page));
}

TEST_F(DailyUpdateTest, TheSelectorFollowsWhenSwitchedOn) {
    Set(session.settings.DataSettings, 16, "Automatic");
    EXPECT_TRUE(Run().selectorFollows);
}

TEST_F(DailyUpdateTest, AfterAStopWhatCameIsKeptAndNothingFurtherBegins) {
    Set(session.settings.DataSettings, 16, "Automatic");
    Set(session.settings.DataSettings, 19, "Automatic");
    table = Tickers(20);
    work.memoryInfo = LittleMemory;
    const DailyUpdate update = Run();
    EXPECT_TRUE(update.stopped);
    EXPECT_TRUE(update.quotes.stopped);
    ASSERT_TRUE(update.database);
    EXPECT_EQ(update.database->stored, 15U);
    EXPECT_TRUE(Exists("Data/Mine.ddq"));
    EXPECT_FALSE(update.splits);
    EXPECT_FALSE(update.selectorFollows);
    EXPECT_EQ(person.statusWords.back(), "Complete");
    EXPECT_EQ(update.report.Line(), "15 of 20 quotes, stopped");
    ASSERT_EQ(update.report.Tickers().size(), 20U);
    EXPECT_EQ(TickerLine(update.report.Tickers()[14]), "T15: stored");
    EXPECT_EQ(TickerLine(update.report.Tickers()[15]), "T16: skipped: stopped");
}

TEST_F(DailyUpdateTest, ARunWithoutASingleReplyLeavesTheFileAndEndsOnComplete) {
    Write("Data/Mine.ddq", "Last Price\tTicker Symbol\n\tT1\n");
    web.AnswerWith([](const WebRequest&) { return FailedReply(WebFailure::NoConnection, "refused"); });
    const DailyUpdate update = Run();
    EXPECT_EQ(update.quotes.failedBatches, 1U);
    EXPECT_EQ(update.database->stored, 0U);
    EXPECT_FALSE(update.isSaved);
    EXPECT_EQ(Read("Data/Mine.ddq"), "Last Price\tTicker Symbol\n\tT1\n");
    EXPECT_EQ(person.statusWords.back(), "Complete");
    EXPECT_TRUE(person.said.empty());
}

TEST_F(DailyUpdateTest, AnotherKindOfFileIsLeftAlone) {
    session.CurrentFile = "Evaluations.dbe";
    const auto before = Everything();
    Run();
    EXPECT_EQ(Everything(), before);
    EXPECT_TRUE(person.statusWords.empty());
    EXPECT_TRUE(web.Addresses.empty());
}

TEST_F(DailyUpdateTest, AFileThatCannotBeSavedIsReported) {
    session.CurrentFile = "missing/Mine.ddq";
    EXPECT_TRUE(Run().saveError);
}

TEST_F(DailyUpdateTest, ASecondUpdateOfTheDayRefinesTheDay) {
    Run();
    lines["T1"] = ReplyLine("T1").With(2, "111").With(4, "\"4:05pm\"").Text();
    lines["T2"] = ReplyLine("T2").With(2, "109").With(4, "\"3:00pm\"").Text();
    EXPECT_EQ(Run().database->stored, 1U);
    EXPECT_TRUE(Read("Quotes/EOD/T1.24").starts_with("\"03/15/24\",\"16:05\",111,"));
    EXPECT_TRUE(Read("Quotes/EOD/T2.24").starts_with("\"03/15/24\",\"16:01\",110,"));
}

}  // namespace
}  // namespace brantlow
