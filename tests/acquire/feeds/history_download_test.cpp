#include "acquire/feeds/history_download.h"

#include <algorithm>

#include "acquire/feeds/history_fixture.h"

namespace brantlow {
namespace {

using std::chrono::year;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class HistoryDownloadTest : public HistoryDownloadFixture {
  protected:
    // The report of a run over a table with this ticker alone.
    RunReport Populate(const std::string& ticker) {
        QuoteTable table;
        table.AppendLine("Ticker Symbol");
        table.AppendLine(ticker);
        return PopulateDatabase(session, web, hosts, table).report;
    }
    TickerFate PopulatedFate(const std::string& ticker) { return Populate(ticker).Tickers().at(0).fate; }
};

TEST_F(HistoryDownloadTest, WritesOneFileAYearOldestDayFirst) {
    Answer("KO", kThreeDays);
    const HistoryDownload download = Download("KO");
    EXPECT_EQ(download.outcome, HistoryOutcome::Stored);
    EXPECT_EQ(download.days, 3U);
    EXPECT_THAT(Files(), ElementsAre("KO.25", "KO.26"));
    EXPECT_EQ(Read("KO.25"),
              "\"12/30/25\",\"\",9.25,8.75,9.5,1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,9\r\n"
              "\"12/31/25\",\"\",10,9.125,10.25,1100,0,0,0,0,0,\"\",\"\",0,0,0,0,0,9.5\r\n");
    EXPECT_EQ(Read("KO.26"), "\"01/02/26\",\"\",10.75,10,11,1200,0,0,0,0,0,\"\",\"\",0,0,0,0,0,10.5\r\n");
    EXPECT_TRUE(person.said.empty());
    EXPECT_TRUE(person.statusWords.empty());
}

TEST_F(HistoryDownloadTest, AsksForTheYearsOfTheSettings) {
    session.settings.DataSettings.Set(6, Value::OfNumber(2));
    Download("KO");
    EXPECT_THAT(web.Addresses,
                ElementsAre("https://history.brantlow.example/table.txt?s=KO&a=2&b=02&c=2024&d=2&e=02&f=2026"
                            "&g=d&ignore=.txt"));
}

TEST_F(HistoryDownloadTest, DaysOfOneYearEndUpInOneFileWhereverTheyStand) {
    Answer("KO",
           "h\n2-Jan-26,1,1,1,1,1,1\n31-Dec-25,1,1,1,2,1,1\n5-Jan-26,1,1,1,3,1,1\n"
           "30-Dec-25,1,1,1,4,1,1\n3-Jan-00,1,1,1,5,1,1\n");
    EXPECT_EQ(Download("KO").days, 5U);
    EXPECT_THAT(Files(), ElementsAre("KO.00", "KO.25", "KO.26"));
    EXPECT_EQ(Read("KO.00"), Record("01/03/00", "5,1,1,1", "1")) << "year 00 is written";
    EXPECT_EQ(Read("KO.25"), Record("12/30/25", "4,1,1,1", "1") + Record("12/31/25", "2,1,1,1", "1"));
    EXPECT_EQ(Read("KO.26"), Record("01/05/26", "3,1,1,1", "1") + Record("01/02/26", "1,1,1,1", "1"));
}

TEST_F(HistoryDownloadTest, IsRefusedWhereThisYearHasData) {
    Write("KO.26", "\"01/02/26\",\"\",1\r\n");
    EXPECT_EQ(Download("KO").outcome, HistoryOutcome::DataExists);
    ASSERT_EQ(person.said.size(), 1U);
    EXPECT_EQ(
        person.said[0].text,
        "Data for this Ticker Symbol already exists in your database. To download historical data for "
        "this Ticker Symbol, you must first delete the Data from the Database. Click on the Delete "
        "Ticker Symbol Icon and Select, Delete. Then Type in the Symbol in the Symbol Box and click Add "
        "Ticker Symbol.");
    EXPECT_THAT(web.Addresses, IsEmpty());
    EXPECT_EQ(Read("KO.26"), "\"01/02/26\",\"\",1\r\n");
}

TEST_F(HistoryDownloadTest, AFileOfAnEarlierYearCountsAsNoData) {
    Write("KO.25", "\"12/31/25\",\"\",1\r\n");
    Write("KO.01", "old");
    Answer("KO", "h\n2-Jan-26,1,1,1,1,1,1\n");
    EXPECT_EQ(Download("KO").outcome, HistoryOutcome::Stored);
    EXPECT_TRUE(person.said.empty());
    EXPECT_THAT(Files(), ElementsAre("KO.26")) << "the older years are replaced as well";
}

TEST_F(HistoryDownloadTest, AThisYearsFileWithoutAFirstValueCountsAsNoData) {
    for (const char* bytes : {"", "\r\n", "\"\",1\r\n", ",1"}) {
        Write("KO.26", bytes);
        EXPECT_EQ(Download("KO").outcome, HistoryOutcome::NoReply) << bytes;
    }
    EXPECT_TRUE(person.said.empty());
}

TEST_F(HistoryDownloadTest, AnEmptyTickerIsPassedOver) {
    EXPECT_EQ(Download("").outcome, HistoryOutcome::NoTicker);
    EXPECT_THAT(Populate("").Tickers(), IsEmpty());
    EXPECT_THAT(web.Addresses, IsEmpty());
    EXPECT_TRUE(person.said.empty());
}

TEST_F(HistoryDownloadTest, TheUsersAddressIsAskedWhenItIsChosen) {
    UseUserSource("http://user.example/QUOTESYMBOL?from=Right$(StartDate, 4)&to=Right$(EndDate, 4)");
    web.Answer("http://user.example/KO?from=2016&to=2026",
               MemoryWeb::Page("h\n\"2-Jan-26\",\"1\",\"2\",\"0.5\",\"1.5\",\"7\",\"\"\n"));
    EXPECT_EQ(Download("KO").outcome, HistoryOutcome::Stored);
    EXPECT_EQ(Read("KO.26"), Record("01/02/26", "1.5,0.5,2,7", "1"));
}

TEST_F(HistoryDownloadTest, WithoutAUsersAddressItSaysWhereToSetItUp) {
    UseUserSource("");
    Write("KO.25", "old");
    EXPECT_EQ(Download("KO").outcome, HistoryOutcome::NoSource);
    ASSERT_EQ(person.said.size(), 1U);
    EXPECT_EQ(person.said[0].text,
              "Go to Settings, Application, Quote and Web Settings to set up Quote Downloads.");
    EXPECT_THAT(web.Addresses, IsEmpty());
    EXPECT_EQ(Read("KO.25"), "old");
}

TEST_F(HistoryDownloadTest, HeaderFooterAndDateFormHoldForTheStandardSourceToo) {
    SetNet(7, "1");
    SetNet(8, "1");
    SetNet(9, "20040102");
    Answer("KO", "h\nh\n20260105,1,1,1,3,1,1\n20260102,1,1,1,4,1,1\nend\n");
    EXPECT_EQ(Download("KO").days, 2U);
    EXPECT_EQ(Read("KO.26"), Record("02/02/26", "4,1,1,1", "1") + Record("05/05/26", "3,1,1,1", "1"));
}

TEST_F(HistoryDownloadTest, AFailedDownloadLosesTheEarlierHistoryAndSaysNothing) {
    struct Line {
        std::string name;
        WebReply reply;
    };
    WebReply notFound = FailedReply(WebFailure::Status, "404");
    notFound.bytes = kThreeDays;
    WebReply cut = FailedReply(WebFailure::TimedOut, "late");
    cut.status = 200;
    cut.bytes = kThreeDays;
    const std::vector<Line> lines = {{"no connection", FailedReply(WebFailure::NoConnection, "refused")},
                                     {"status", notFound},
                                     {"timed out", cut},
                                     {"empty", MemoryWeb::Page("")},
                                     {"page", MemoryWeb::Page("<html>\n<p>1,2,3,4,5,6,7</p>\n</html>\n")}};
    for (const Line& line : lines) {
        SCOPED_TRACE(line.name);
        Write("KO.25", "old");
        Write("KOX.25", "another ticker's");
        web.Answer(UrlOf("KO"), line.reply);
        EXPECT_EQ(Download("KO").outcome, HistoryOutcome::NoReply);
        EXPECT_THAT(Files(), ElementsAre("KOX.25"));
        EXPECT_EQ(Read("KOX.25"), "another ticker's");
    }
    EXPECT_TRUE(person.said.empty());
}

TEST_F(HistoryDownloadTest, AReplyWithAHeaderOnlyLeavesTheTickerWithoutFiles) {
    Write("KO.25", "old");
    Answer("KO", "Date,Open,High,Low,Close,Volume,Adj. Close*\n");
    EXPECT_EQ(Download("KO").outcome, HistoryOutcome::NoData);
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(HistoryDownloadTest, ATickerThatCanHaveNoFilesIsNotFetched) {
    web.AnswerWith([](const WebRequest&) { return MemoryWeb::Page(kThreeDays); });
    const std::string tooLong(300, 'A');
    for (const std::string& ticker : {std::string("A/B"), std::string("../KO"), std::string(".."),
                                      std::string("A\\B"), std::string("AUX"), tooLong}) {
        EXPECT_EQ(Download(ticker).outcome, HistoryOutcome::NoFiles) << ticker;
        EXPECT_EQ(PopulatedFate(ticker), TickerFate::Skipped) << ticker;
    }
    EXPECT_THAT(web.Addresses, IsEmpty());
    EXPECT_THAT(FileNamesIn(folder.Get()), IsEmpty());
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(HistoryDownloadTest, NoScratchFileIsLeftBehind) {
    Answer("KO", kThreeDays);
    Download("KO");
    EXPECT_THAT(FileNamesIn(folder.Get()), IsEmpty());
}

TEST_F(HistoryDownloadTest, WhereOneYearCannotBeWrittenTheHistoryStaysAsItIs) {
    std::filesystem::create_directories(folder / "Quotes/KO.25");
    Answer("KO", kThreeDays);
    const HistoryDownload download = Download("KO");
    EXPECT_EQ(download.outcome, HistoryOutcome::Failed);
    EXPECT_EQ(download.error.file, folder / "Quotes/KO.25");
    EXPECT_FALSE(download.isChanged);
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(HistoryDownloadTest, AReplyCutAtEveryByteLeavesWholeFiles) {
    const std::string first = Record("01/02/26", "10.75,10,11,1200", "10.5");
    const std::string second = Record("12/31/25", "10,9.125,10.25,1100", "9.5");
    const std::string third = Record("12/30/25", "9.25,8.75,9.5,1000", "9");
    for (std::size_t length = 0; length <= kThreeDays.size(); ++length) {
        const std::string cut = kThreeDays.substr(0, length);
        Answer("KO", cut);
        Populate("KO");
        const auto lines = std::count(cut.begin(), cut.end(), '\n');
        ASSERT_EQ(Read("KO.26"), lines >= 2 ? first : "") << length;
        ASSERT_EQ(Read("KO.25"), lines >= 4 ? third + second : lines >= 3 ? second : "") << length;
    }
}

TEST_F(HistoryDownloadTest, ALongReplyKeepsItsNewest18000Days) {
    std::string reply = "h\n";
    for (int i = 0; i <= 18000; ++i) reply += "2-Jan-26,1,1,1," + std::to_string(i + 1) + ",1,1\n";
    Answer("KO", reply);
    EXPECT_EQ(Download("KO").days, 18000U);
    const std::string bytes = Read("KO.26");
    EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), 18000);
    EXPECT_EQ(bytes.substr(0, 20), "\"01/02/26\",\"\",18000,");
}

TEST_F(HistoryDownloadTest, PopulateTakesTheStandardSourceAndAsksForNoData) {
    UseUserSource("");
    Write("KO.26", "\"01/02/26\",\"\",1\r\n");
    Answer("KO", "h\n2-Jan-26,1,1,1,2,1,1\n");
    EXPECT_EQ(PopulatedFate("KO"), TickerFate::Stored);
    EXPECT_EQ(Read("KO.26"), Record("01/02/26", "2,1,1,1", "1"));
    EXPECT_TRUE(person.said.empty());
}

TEST_F(HistoryDownloadTest, DeviceNamesAreNotFetchedByPopulate) {
    for (const char* ticker : {"AUX", "PRN.X", "con", "Nul", "nul.L"}) {
        EXPECT_EQ(PopulatedFate(ticker), TickerFate::Skipped) << ticker;
    }
    EXPECT_THAT(web.Addresses, IsEmpty());
    for (const char* ticker : {"AUXX", "PR", "CONX.L", "COM"}) Populate(ticker);
    EXPECT_EQ(web.Addresses.size(), 4U);
}

TEST_F(HistoryDownloadTest, ReportedTickersAreFetchedAnew) {
    std::filesystem::create_directories(folder / "Data");
    ASSERT_FALSE(WriteWholeFile(folder / "Data/Error Report.txt", "The reason.\r\n\"KO\"\r\n\"NEW\"\r\n"));
    Write("KO.26", "\"01/02/26\",\"\",1\r\n");
    Write("NEW.26", "\"01/02/26\",\"\",1\r\n");
    Write("PEP.26", "\"01/02/26\",\"\",1\r\n");
    Answer("KO", kThreeDays);
    const PopulateRun run = RepopulateReported(session, web, hosts);
    EXPECT_EQ(run.tickers, 2U);
    EXPECT_EQ(run.stored, 1U);
    EXPECT_THAT(Files(), ElementsAre("KO.25", "KO.26", "PEP.26"));
    EXPECT_TRUE(person.said.empty());
}

TEST_F(HistoryDownloadTest, FetchingReportedTickersAnewTakesPartInRunControl) {
    std::filesystem::create_directories(folder / "Data");
    ASSERT_FALSE(
        WriteWholeFile(folder / "Data/Error Report.txt", "The reason.\r\n\"A\"\r\n\"B\"\r\n\"C\"\r\n"));
    for (const char* ticker : {"A", "B", "C"}) Answer(ticker, kThreeDays);
    // A goes through, B is paused behind and resumed, and the run is stopped then.
    person.events = {[] {}, [this] { session.run.ProcessCommand = kPauseRun; }, [] {},
                     [this] { session.run.ProcessCommand = kStopRun; }};
    const PopulateRun run = RepopulateReported(session, web, hosts);
    EXPECT_TRUE(run.stopped);
    EXPECT_EQ(run.tickers, 2U);
    EXPECT_EQ(web.Addresses.size(), 2U);
    EXPECT_THAT(person.progress, ElementsAre(1.0 / 3, 2.0 / 3));
    EXPECT_THAT(person.statusWords, ElementsAre("Populating", "Complete"));
    EXPECT_EQ(run.report.Line(), "2 of 3 histories, stopped");
}

TEST_F(HistoryDownloadTest, WithoutAReportNothingIsFetchedAnew) {
    EXPECT_EQ(RepopulateReported(session, web, hosts).tickers, 0U);
    EXPECT_THAT(web.Addresses, IsEmpty());
}

}  // namespace
}  // namespace brantlow
