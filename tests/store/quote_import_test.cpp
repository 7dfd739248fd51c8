#include "store/quote_import.h"

#include "support/session_fixture.h"

namespace brantlow {
namespace {

using Lines = std::vector<std::string>;

constexpr const char* kImportHeader = "Ticker Symbol\tLast Price\tTrade Date\tHigh Price\tLow Price\tVolume";

class QuoteImportTest : public SessionTest {
  protected:
    QuoteImportTest() {
        SetLines(session.settings.ImExSettings,
                 {"Comma Delimited", "Data", "Export.Txt", "Comma Delimited", "Data", "Import.Txt", "0", "0",
                  "01/02/04", "Ticker Symbol", "End Export File", "Ticker Symbol", "Last Price", "Trade Date",
                  "High Price", "Low Price", "Volume", "End Import File"});
        session.settings.ImportFieldFirst = 12;
        session.settings.ImportFieldLast = 17;
    }

    void File(std::string_view bytes) const { Write("Data/Import.Txt", bytes); }
    void Fields(const Lines& names) {
        for (std::size_t i = 0; i < names.size(); ++i) Set(session.settings.ImExSettings, 12 + i, names[i]);
        session.settings.ImportFieldLast = 11 + names.size();
    }
    void Frame(const char* header, const char* footer) {
        Set(session.settings.ImExSettings, 7, header);
        Set(session.settings.ImExSettings, 8, footer);
    }
    QuoteImport Import(const Path* saveTo = nullptr) { return ImportQuotes(session, table, days, saveTo); }

    QuoteTable table = TableOf({kImportHeader});
    DayStore days;
};

TEST_F(QuoteImportTest, ANewTableTakesAllThatTheFileHolds) {
    File("AAA,10.5,3/14/2024,11,10,1500\r\nBBB,20,3/15/2024,21,19,2500\r\n");
    const QuoteImport result = Import();
    EXPECT_EQ(result.outcome, ImportOutcome::Done);
    EXPECT_EQ(result.rows, 2U);
    EXPECT_EQ(result.stored, 2U);
    EXPECT_EQ(LinesOf(table), (Lines{kImportHeader, "AAA\t10.500\t03/14/24\t11.000\t10.000\t1500",
                                     "BBB\t20.000\t03/15/24\t21.000\t19.000\t2500"}));
    EXPECT_EQ(Read("Quotes/EOD/AAA.24"),
              "\"03/14/24\",\"\",10.5,10,11,1500,0,0,0,0,0,\"\",\"\",0,0,0,0,0,10.5\r\n");
    EXPECT_EQ(Read("Quotes/EOD/QuoteList.ddq"), "\"AAA\"\r\n\"BBB\"\r\n");
    EXPECT_EQ(person.statusWords, Lines{"Complete"});
    EXPECT_EQ(person.tickerCounts, std::vector<std::size_t>{2});
    EXPECT_EQ(person.progress, (std::vector<double>{0.5, 1}));
    EXPECT_EQ(person.pumps, 2);
    EXPECT_EQ(person.beside, 1);
}

TEST_F(QuoteImportTest, AStoppedImportLeavesTableDatabaseAndFileAsTheyWere) {
    table = TableOf({kImportHeader, "OLD\t1.000\t\t\t\t"});
    File("AAA,10.5,3/14/2024,11,10,1500\r\nBBB,20,3/15/2024,21,19,2500\r\n");
    const auto before = Everything();
    const Lines rows = LinesOf(table);
    person.events.push_back([] {});
    person.events.push_back([this] { session.run.ProcessCommand = kStopRun; });
    const QuoteImport result = Import();
    EXPECT_EQ(result.outcome, ImportOutcome::Stopped);
    EXPECT_EQ(result.rows, 0U);
    EXPECT_EQ(result.stored, 0U);
    EXPECT_EQ(LinesOf(table), rows);
    EXPECT_EQ(Everything(), before);
    EXPECT_EQ(person.statusWords, Lines{"Complete"});
}

TEST_F(QuoteImportTest, WithoutATableItSaysSoAndStops) {
    for (const char* name : {"", "Evaluations.dbe", "ExtendedFundamentals.efq", "Mine.DDQ"}) {
        session.CurrentFile = name;
        File("AAA,10,3/14/2024,11,10,1500\r\n");
        const auto before = Everything();
        person.said.clear();
        EXPECT_EQ(Import().outcome, ImportOutcome::NeedsQuoteFile) << name;
        ASSERT_EQ(person.said.size(), 1U);
        EXPECT_EQ(
            person.said[0].text,
            "First, open an existing EOD Quote File or a New EOD Quote File you wish to Import data. An "
            "Existing Quote file will import the data for the ticker sysmbols contained in the quote "
            "file. A New Quote file will accept all data in the file you wish to import.");
        EXPECT_EQ(Everything(), before);
        EXPECT_EQ(LinesOf(table), Lines{kImportHeader});
    }
}

TEST_F(QuoteImportTest, TheTemplateTakesImports) {
    session.CurrentFile = "New EOD Quotes.db";
    File("AAA,10,3/14/2024,11,10,1500\r\n");
    EXPECT_EQ(Import().outcome, ImportOutcome::Done);
    EXPECT_EQ(table.TickerCount(), 1U);
}

TEST_F(QuoteImportTest, HeaderAndFooterAreLeftOutAndRowNumbersStayLineNumbers) {
    Frame("1", "1");
    File("Symbol,Last,Date,High,Low,Volume\r\nAAA,10,3/14/2024,11,9,1500\r\nEnd,0,0,0,0,0\r\n");
    EXPECT_EQ(Import().rows, 1U);
    EXPECT_EQ(LinesOf(table), (Lines{kImportHeader, "\t\t\t\t\t",
                                     "AAA\t10.000\t03/14/24\t11.000\t9.000\t1500", "\t\t\t\t\t"}));
    EXPECT_FALSE(Exists("Quotes/EOD/Symbol.24"));
}

TEST_F(QuoteImportTest, TheFooterIsTheFilesNotTheAddedTickers) {
    Frame("0", "1");
    table = TableOf({kImportHeader, "OLD\t5.000\t03/14/24\t6.000\t4.000\t100"});
    File("AAA,10,3/14/2024,11,9,1500\r\nTotal 1\r\n");
    Import();
    EXPECT_EQ(LinesOf(table), (Lines{kImportHeader, "AAA\t10.000\t03/14/24\t11.000\t9.000\t1500",
                                     "\t\t\t\t\t", "OLD\t5.000\t03/14/24\t6.000\t4.000\t100"}));
}

TEST_F(QuoteImportTest, ATickerAndALongerOneThatBeginsWithItAreBothImported) {
    table = TableOf({kImportHeader, "ABC\t1.000\t03/13/24\t1.000\t1.000\t1"});
    File("ABC,10,3/14/2024,11,9,1500\r\nABCD,20,3/14/2024,21,19,2500\r\n");
    Import();
    EXPECT_EQ(LinesOf(table), (Lines{kImportHeader, "ABC\t10.000\t03/14/24\t11.000\t9.000\t1500",
                                     "ABCD\t20.000\t03/14/24\t21.000\t19.000\t2500"}));
}

TEST_F(QuoteImportTest, AnExistingTableKeepsItsTickers) {
    table = TableOf({kImportHeader, "OLD\t5.000\t03/14/24\t6.000\t4.000\t100", "\t1", "AAA\t1.000"});
    File("AAA,10,3/14/2024,11,9,1500\r\n");
    Import();
    EXPECT_EQ(LinesOf(table), (Lines{kImportHeader, "AAA\t10.000\t03/14/24\t11.000\t9.000\t1500",
                                     "OLD\t5.000\t03/14/24\t6.000\t4.000\t100"}));
}

TEST_F(QuoteImportTest, ARowThatTheFileDoesNotMentionKeepsItsCellsAndStoresNothing) {
    // The columns stand in another order than the file's fields.
    const std::string header = "Ticker Symbol\tVolume\tChange\tLast Price\tName\tHigh Alarm";
    table = TableOf({header, "OLD\t100\t-3.740\t5.000\tOld, Inc\t9", "AAA"});
    Write("Quotes/EOD/OLD.24", "history");
    File("AAA,10,3/14/2024,11,9,1500\r\n");
    EXPECT_EQ(Import().rows, 1U);
    EXPECT_EQ(LinesOf(table),
              (Lines{header, "AAA\t1500\t\t10.000\t\t", "OLD\t100\t-3.740\t5.000\tOld, Inc\t9"}));
    EXPECT_EQ(FileNamesIn(folder / "Quotes/EOD"), (Lines{"AAA.24", "OLD.24", "QuoteList.ddq"}));
    EXPECT_EQ(Read("Quotes/EOD/OLD.24"), "history");
    EXPECT_EQ(Read("Quotes/EOD/QuoteList.ddq"), "\"AAA\"\r\n");
}

TEST_F(QuoteImportTest, ALineOfALongerTickerStandsForAShorterOne) {
    table = TableOf({kImportHeader, "A\t5.000\t03/14/24\t6.000\t4.000\t100"});
    File("AA,10,3/14/2024,11,9,1500\r\n");
    Import();
    EXPECT_EQ(LinesOf(table), (Lines{kImportHeader, "AA\t10.000\t03/14/24\t11.000\t9.000\t1500"}));
}

TEST_F(QuoteImportTest, LinesThatBeginWithADeviceNameAreDropped) {
    File(
        "CON,1,3/14/2024,1,1,1\r\nconx,1,3/14/2024,1,1,1\r\nPRN\r\nAux.a,2\r\nnul\r\nCO,5,3/14/"
        "2024,5,5,5\r\n");
    Import();
    EXPECT_EQ(LinesOf(table), (Lines{kImportHeader, "CO\t5.000\t03/14/24\t5.000\t5.000\t5"}));
}

TEST_F(QuoteImportTest, TheFileIsGoneAfterwardsAndASecondImportReadsNothing) {
    File("AAA,10,3/14/2024,11,9,1500\r\n");
    Import();
    EXPECT_FALSE(Exists("Data/Import.Txt"));
    const Lines before = LinesOf(table);
    const auto files = Everything();
    EXPECT_EQ(Import().outcome, ImportOutcome::NothingToRead);
    EXPECT_EQ(LinesOf(table), before);
    EXPECT_EQ(Everything(), files);
    EXPECT_EQ(person.statusWords, (Lines{"Complete", "Complete"}));
    EXPECT_TRUE(person.said.empty());
}

TEST_F(QuoteImportTest, TabsSeparateWhereTheFormIsNotCommaDelimited) {
    Set(session.settings.ImExSettings, 4, "Tab Delimited");
    File("AAA\t10\t3/14/2024\t11\t9\t1,500\r\n");
    Import();
    EXPECT_EQ(LineText(table, 1), "AAA\t10.000\t03/14/24\t11.000\t9.000\t1");
}

TEST_F(QuoteImportTest, DatesByTheirForm) {
    struct Row {
        const char* form;
        const char* field;
        const char* cell;
    };
    constexpr Row kRows[] = {{"01/02/04", "3/14/04", "03/14/04"},  {"Jan-2-2004", "Mar-14-2004", "03/14/04"},
                             {"20040102", "20040303", "03/03/04"}, {"20040102", "20040315", "15/15/2004"},
                             {"040102", "040303", "03/03/04"},     {"040102", "040315", "15/15/04"}};
    for (const Row& row : kRows) {
        table = TableOf({kImportHeader});
        Set(session.settings.ImExSettings, 9, row.form);
        File("AAA,10," + std::string(row.field) + ",11,9,1500\r\n");
        Import();
        EXPECT_EQ(table.Text(1, 2), row.cell) << row.form << ' ' << row.field;
    }
}

TEST_F(QuoteImportTest, EveryFieldFillsItsColumn) {
    table =
        TableOf({"Ticker Symbol\tLast Price\tTrade Date\tTrade Time\tDividend Date\tChange\tName\tExchange\t"
                 "X Dividend Date\tAsk Price\tBid Price\tOpen Price\tHigh Price\tDividend\t52 Week Low\t"
                 "52 Week High\tEPS ttm.\tLow Price\tP/E ttm.\tVolume\tPEG\tEPS est.\tPrevious Close\t"
                 "Market Cap (M)\tP/S\tChange (%)\tYield (%)"});
    Fields({"Ticker Symbol", "Last Price", "Trade Date",     "Trade Time",      "Dividend Date",
            "Change",        "Name",       "Exchange",       "X Dividend Date", "Ask Price",
            "Bid Price",     "Open Price", "High Price",     "Dividend",        "52 Week Low",
            "52 Week High",  "EPS ttm.",   "Low Price",      "P/E ttm.",        "Volume",
            "PEG",           "EPS est.",   "Previous Close", "Market Cap (M)",  "P/S"});
    File(
        "AAA,110,3/14/2024,4:01pm,3/1/2024,10,Name,NYSE,2/1/"
        "2024,111,109,101,112,2,50,120,5,99,22,12345,1.5,6,"
        "100,1.2B,3\r\n");
    Import();
    EXPECT_EQ(
        LineText(table, 1),
        "AAA\t110.000\t03/14/24\t16:01\t03/01/24\t10.000\tName\tNYSE\t02/01/24\t111.000\t109.000\t"
        "101.000\t112.000\t2.000\t50.000\t120.000\t5.000\t99.000\t22.000\t12345\t1.500\t6.000\t100.000\t"
        "1200\t3.000\t10.000\t2.000");
}

TEST_F(QuoteImportTest, FieldsOfOtherNamesAreSkipped) {
    Fields({"Ticker Symbol", "Variable", "Change (%)", "Last Price", "Trade Date"});
    File("AAA,x,5,10,3/14/2024\r\n");
    Import();
    EXPECT_EQ(LineText(table, 1), "AAA\t10.000\t03/14/24\t\t\t");
}

TEST_F(QuoteImportTest, WithoutAnImportSequenceNoFieldIsRead) {
    session.settings.ImportFieldFirst = 0;
    session.settings.ImportFieldLast = 0;
    File("AAA,10,3/14/2024,11,9,1500\r\n");
    EXPECT_EQ(Import().stored, 0U);
    EXPECT_EQ(LineText(table, 1), "\t\t\t\t\t");
}

TEST_F(QuoteImportTest, AShortLineLeavesTheLaterColumnsOfItsTicker) {
    table = TableOf(
        {kImportHeader, "BBB\t1.000\t03/13/24\t2.000\t3.000\t4", "AAA\t5.000\t03/13/24\t6.000\t7.000\t8"});
    File("AAA,10,3/14/2024\r\nBBB,20,3/14/2024\r\n");
    Import();
    EXPECT_EQ(LinesOf(table), (Lines{kImportHeader, "AAA\t10.000\t03/14/24\t6.000\t7.000\t8",
                                     "BBB\t20.000\t03/14/24\t2.000\t3.000\t4"}));
    // The database takes no old prices under a new day.
    EXPECT_EQ(Read("Quotes/EOD/AAA.24"), "\"03/14/24\",\"\",10,10,10,0,0,0,0,0,0,\"\",\"\",0,0,0,0,0,10\r\n");
}

TEST_F(QuoteImportTest, AlarmsStayWithTheirTickers) {
    table = TableOf(
        {"Ticker Symbol\tLast Price\tHigh Alarm\tLow Alarm", "AAA\t1.000\t50\t40", "BBB\t2.000\t\t30"});
    File("BBB,20,3/14/2024\r\nCCC,30,3/14/2024\r\nAAA,10,3/14/2024\r\n");
    Import();
    EXPECT_EQ(LinesOf(table), (Lines{"Ticker Symbol\tLast Price\tHigh Alarm\tLow Alarm", "BBB\t20.000\t\t30",
                                     "CCC\t30.000\t\t", "AAA\t10.000\t50\t40"}));
}

TEST_F(QuoteImportTest, RepairsReachTheDatabaseAndNotTheCells) {
    File("AAA,10,3/14/2024,0,0,1500\r\n");
    Import();
    EXPECT_EQ(LineText(table, 1), "AAA\t10.000\t03/14/24\t0.000\t0.000\t1500");
    EXPECT_EQ(Read("Quotes/EOD/AAA.24"),
              "\"03/14/24\",\"\",10,10,10,1500,0,0,0,0,0,\"\",\"\",0,0,0,0,0,10\r\n");
}

std::string ManyLines(std::size_t count) {
    std::string bytes;
    for (std::size_t i = 1; i <= count; ++i) bytes += "T" + std::to_string(i) + ",1,N/A,1,1,1\r\n";
    return bytes;
}

TEST_F(QuoteImportTest, EighteenThousandLinesAskAndYesImportsThem) {
    Fields({"Ticker Symbol", "Last Price"});
    File(ManyLines(18000));
    EXPECT_EQ(Import().outcome, ImportOutcome::Done);
    ASSERT_EQ(person.asked.size(), 1U);
    EXPECT_EQ(person.asked[0].text,
              "You have exceeded 18000 Ticker Symbols. Some data will be lost. Do you wish to continue?");
    EXPECT_EQ(person.asked[0].title, "Quote File Exceedence!");
    EXPECT_EQ(table.RowCount(), 18000U);
    EXPECT_EQ(table.Ticker(17999), "T17999");
}

TEST_F(QuoteImportTest, NoLeavesEverythingAsItWas) {
    Fields({"Ticker Symbol", "Last Price"});
    File(ManyLines(17999));
    table = TableOf({kImportHeader, "OLD\t5.000"});
    person.answer = false;
    const auto before = Everything();
    EXPECT_EQ(Import().outcome, ImportOutcome::Declined);
    EXPECT_EQ(person.asked.size(), 1U);
    EXPECT_EQ(Everything(), before);
    EXPECT_EQ(LinesOf(table), (Lines{kImportHeader, "OLD\t5.000\t\t\t\t"}));
}

TEST_F(QuoteImportTest, SeventeenThousandNineHundredNinetyNineLinesDoNotAsk) {
    Fields({"Ticker Symbol", "Last Price"});
    File(ManyLines(17999));
    Import();
    EXPECT_TRUE(person.asked.empty());
    EXPECT_EQ(table.TickerCount(), 17999U);
}

TEST_F(QuoteImportTest, LinesBeyondTheLimitAreNotRead) {
    EXPECT_EQ(ImportLinesOf(ManyLines(18003)).size(), 18000U);
    EXPECT_EQ(ImportLinesOf(ManyLines(18003)).back(), "T18000,1,N/A,1,1,1");
}

TEST_F(QuoteImportTest, TheTableIsSavedBeforeTheFileGoes) {
    File("AAA,10,3/14/2024,11,9,1500\r\n");
    const Path saveTo = session.DataFile("Mine.ddq");
    EXPECT_EQ(Import(&saveTo).outcome, ImportOutcome::Done);
    EXPECT_EQ(Read("Data/Mine.ddq"),
              std::string(kImportHeader) + "\r\nAAA\t10.000\t03/14/24\t11.000\t9.000\t1500\r\n");
    EXPECT_FALSE(Exists("Data/Import.Txt"));
}

TEST_F(QuoteImportTest, ATableThatCannotBeSavedLeavesTheImportFile) {
    File("AAA,10,3/14/2024,11,9,1500\r\n");
    const Path saveTo = folder / "missing/Mine.ddq";
    const QuoteImport result = Import(&saveTo);
    EXPECT_EQ(result.outcome, ImportOutcome::Failed);
    EXPECT_TRUE(result.error);
    EXPECT_EQ(Read("Data/Import.Txt"), "AAA,10,3/14/2024,11,9,1500\r\n");
}

TEST_F(QuoteImportTest, ADayThatCannotBeStoredLeavesTheImportFileAndTheOldTable) {
    Write("Data/Mine.ddq", "old");
    std::filesystem::create_directories(folder / "Quotes/EOD/AAA.24");
    File("AAA,10,3/14/2024,11,9,1500\r\nBBB,20,3/14/2024,21,19,2500\r\n");
    const Path saveTo = session.DataFile("Mine.ddq");
    const QuoteImport result = Import(&saveTo);
    EXPECT_EQ(result.outcome, ImportOutcome::Failed);
    EXPECT_EQ(result.error.file, folder / "Quotes/EOD/AAA.24");
    EXPECT_EQ(result.stored, 0U);
    EXPECT_FALSE(Exists("Quotes/EOD/BBB.24"));
    EXPECT_TRUE(Exists("Data/Import.Txt"));
    EXPECT_EQ(Read("Data/Mine.ddq"), "old");
    EXPECT_EQ(person.statusWords.back(), "Complete");
}

TEST_F(QuoteImportTest, FolderAndNameComeFromTheSettings) {
    Set(session.settings.ImExSettings, 5, "Data\\In");
    Set(session.settings.ImExSettings, 6, "mine.csv");
    EXPECT_EQ(ImportFile(session.AppPath, session.settings), folder / "Data/In/mine.csv");
    Set(session.settings.ImExSettings, 5, "/elsewhere");
    EXPECT_EQ(ImportFile(session.AppPath, session.settings), "/elsewhere/mine.csv");
}

TEST_F(QuoteImportTest, HostileFilesEndInNoFilesOutsideTheDatabase) {
    File(std::string("../../ESCAPE,10,3/14/2024,11,9,1\r\n/abs,10,3/14/2024,11,9,1\r\n\r\n,,,,\r\n") +
         std::string("N\0L,10,3/14/2024,11,9,1\n", 24) + std::string(100000, ',') + "\nlast");
    Import();
    EXPECT_EQ(FileNamesIn(folder / "Quotes/EOD"), std::vector<std::string>{"QuoteList.ddq"});
    EXPECT_FALSE(Exists("ESCAPE.24"));
    EXPECT_EQ(table.TickerCount(), 7U);
    EXPECT_EQ(person.statusWords.back(), "Complete");
}

TEST_F(QuoteImportTest, ATickerWhoseLettersBeginAnothersLineCountsAsFoundAndItsLossIsTold) {
    table = TableOf({kImportHeader, "A\t5.000", "ZZ\t7.000"});
    File("ADBE,10.5,3/14/2024,11,10,1500\r\n");
    const QuoteImport result = Import();
    EXPECT_EQ(table.Ticker(1), "ADBE");
    EXPECT_EQ(table.Ticker(2), "ZZ");
    EXPECT_EQ(table.TickerCount(), 2U);
    EXPECT_EQ(result.report.Line(),
              "1 row imported, 1 day stored, 1 ticker left the table, because the letters of its name begin "
              "another line of the file: A");
    EXPECT_EQ(result.report.Extent(), RunExtent::Whole);
}

TEST_F(QuoteImportTest, ARowThatTheFileDoesNotMentionKeepsItsCellsAndIsNotStored) {
    table = TableOf({kImportHeader, "ZZ\t7.000\t03/14/24\t8\t6\t9"});
    File("AAA,10.5,3/14/2024,11,10,1500\r\n");
    EXPECT_EQ(Import().stored, 1U);
    EXPECT_EQ(LineText(table, 2), "ZZ\t7.000\t03/14/24\t8\t6\t9");
    EXPECT_FALSE(Exists("Quotes/EOD/ZZ.24"));
}

TEST_F(QuoteImportTest, ARowWithoutADateGoesIntoNoFileInAnyDateForm) {
    for (const char* form : {"01/02/04", "Jan-2-2004", "20040102", "040102"}) {
        Set(session.settings.ImExSettings, 9, form);
        table = TableOf({kImportHeader});
        File("AAA,10.5,20240303,11,10,1500\r\nBBB,99,,99,99,99\r\nCCC,98,  ,98,98,98\r\n");
        Import();
        for (const auto& file : Everything()) {
            if (file.rfind("Quotes/EOD/", 0) != 0 || file.find("QuoteList") != std::string::npos) continue;
            EXPECT_EQ(file.find(",99,"), std::string::npos) << form << ' ' << file;
            EXPECT_EQ(file.find(",98,"), std::string::npos) << form << ' ' << file;
        }
        EXPECT_EQ(table.Text(2, 2), "") << form;
    }
}

TEST_F(QuoteImportTest, ALineThatWasCutOffInAYearFileIsTakenOutAndTold) {
    Write("Quotes/EOD/AAA.24", "\"03/13/24\",\"\",1");
    File("AAA,10.5,3/14/2024,11,10,1500\r\n");
    EXPECT_EQ(Import().report.Line(),
              "1 row imported, 1 day stored, the half line at the end of AAA.24 was taken out");
    EXPECT_EQ(Read("Quotes/EOD/AAA.24").find("03/13/24"), std::string::npos);
}

TEST_F(QuoteImportTest, WithoutAFileItSaysSoInItsLine) {
    const QuoteImport result = Import();
    EXPECT_EQ(result.report.Line(), "Nothing to import in " + (folder / "Data/Import.Txt").string());
    EXPECT_EQ(result.report.Extent(), RunExtent::Whole);
}

}  // namespace
}  // namespace brantlow
