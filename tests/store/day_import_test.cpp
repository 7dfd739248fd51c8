#include "store/day_import.h"

#include <fmt/format.h>

#include "base/text.h"
#include "store/history_record.h"
#include "support/session_fixture.h"

namespace brantlow {
namespace {

// A record of Import.Txt with the prices that a test cares about.
std::string Record(const std::string& ticker, const std::string& last, const std::string& low,
                   const std::string& high, const std::string& open, const std::string& date = "03/15/24",
                   const std::string& time = "16:01") {
    return "\"" + ticker + "\"," + last + ",0,0,0," + low + "," + high + ",1000,10,1.5,0,\"\",\"\"," + open +
           ",5,50,\"Name\",\"NYSE\",\"" + date + "\",\"" + time + "\",2,1.1,3,9.5,1200.5," + open + "\r\n";
}

class DayImportTest : public SessionTest {
  protected:
    DayImport Import() { return ImportEndOfDay(session, table, days); }

    QuoteTable table = TableOf({"Ticker Symbol\tLast Price", "AAA", "BBB", "CCC"});
    DayStore days;
};

TEST_F(DayImportTest, StoresTheRecordsAndDeletesTheFile) {
    Write("Import.Txt", Record("AAA", "10", "9", "11", "9.5") + Record("BBB", "20", "19", "21", "20"));
    const DayImport result = Import();
    EXPECT_EQ(result.lines, 2U);
    EXPECT_EQ(result.stored, 2U);
    EXPECT_FALSE(result.error);
    EXPECT_EQ(Read("Quotes/EOD/AAA.24"),
              "\"03/15/24\",\"16:01\",10,9,11,1000,10,1.5,1.1,2,0,\"\",\"\",9.5,5,50,3,1200.5,9.5\r\n");
    EXPECT_EQ(Read("Quotes/EOD/BBB.24"),
              "\"03/15/24\",\"16:01\",20,19,21,1000,10,1.5,1.1,2,0,\"\",\"\",9.5,5,50,3,1200.5,20\r\n");
    EXPECT_FALSE(Exists("Import.Txt"));
    EXPECT_EQ(Read("Quotes/EOD/QuoteList.ddq"), "3\r\n\"AAA\"\r\n\"BBB\"\r\n");
}

TEST_F(DayImportTest, ShowsItsStatusWordsAndProgress) {
    Write("Import.Txt", Record("AAA", "10", "9", "11", "9.5"));
    Import();
    EXPECT_EQ(person.statusWords, (std::vector<std::string>{"Importing EODQ", "Complete"}));
    ASSERT_EQ(person.progress.size(), 3U);
    EXPECT_DOUBLE_EQ(person.progress[0], 1.0 / 3);
    EXPECT_DOUBLE_EQ(person.progress[2], 1);
    EXPECT_EQ(person.pumps, 3);
    EXPECT_EQ(person.beside, 1);
}

TEST_F(DayImportTest, EntriesCarryTheirOwnTickers) {
    // Line 1 belongs to the ticker of row 3.
    Write("Import.Txt", Record("CCC", "30", "29", "31", "30"));
    Import();
    EXPECT_TRUE(Exists("Quotes/EOD/CCC.24"));
    EXPECT_FALSE(Exists("Quotes/EOD/AAA.24"));
}

// So many that threads share them.
TEST_F(DayImportTest, EveryRecordOfAMarketGoesToItsTickersFileInTheOrderOfTheLines) {
    constexpr std::size_t kTickers = 18;
    constexpr std::size_t kDays = 250;
    constexpr std::size_t kDaysAMonth = 21;
    std::string records;
    for (std::size_t day = 0; day < kDays; ++day) {
        const std::string date = fmt::format("{:02}/{:02}/24", day / kDaysAMonth + 1, day % kDaysAMonth + 1);
        for (std::size_t ticker = 0; ticker < kTickers; ++ticker) {
            const std::string price = std::to_string(1 + day * kTickers + ticker);
            records += Record(fmt::format("T{}", ticker), price, price, price, price, date);
        }
    }
    while (table.TickerCount() < kTickers * kDays) table.AppendLine("MORE");
    Write("Import.Txt", records);
    const DayImport result = Import();
    EXPECT_EQ(result.lines, kTickers * kDays);
    EXPECT_EQ(result.stored, kTickers * kDays);
    for (std::size_t ticker = 0; ticker < kTickers; ++ticker) {
        const std::string bytes = Read(fmt::format("Quotes/EOD/T{}.24", ticker));
        LineReader reader(bytes);
        std::string_view line;
        std::size_t day = 0;
        for (; reader.Next(line); ++day) {
            EXPECT_EQ(ParseHistoryLine(line).HistoryClose, static_cast<double>(1 + day * kTickers + ticker));
        }
        EXPECT_EQ(day, kDays) << ticker;
    }
}

TEST_F(DayImportTest, NoMoreEntriesThanTheTableHasRows) {
    table = TableOf({"Ticker Symbol", "AAA"});
    Write("Import.Txt", Record("AAA", "10", "9", "11", "9.5") + Record("BBB", "20", "19", "21", "20"));
    const DayImport result = Import();
    EXPECT_EQ(result.lines, 2U);
    EXPECT_EQ(result.stored, 1U);
    EXPECT_FALSE(Exists("Quotes/EOD/BBB.24"));
}

TEST_F(DayImportTest, AMissingFileStoresNothing) {
    const DayImport result = Import();
    EXPECT_EQ(result.lines, 0U);
    EXPECT_EQ(result.stored, 0U);
    EXPECT_EQ(FileNamesIn(folder / "Quotes/EOD"), std::vector<std::string>{"QuoteList.ddq"});
    EXPECT_EQ(person.statusWords.back(), "Complete");
}

TEST_F(DayImportTest, MissingPricesAreRepairedOnTheWayToTheDatabase) {
    Write("Import.Txt", Record("AAA", "10", "0", "0", "0") + Record("BBB", "0", "18", "22", "0"));
    Import();
    EXPECT_EQ(Read("Quotes/EOD/AAA.24"),
              "\"03/15/24\",\"16:01\",10,10,10,1000,10,1.5,1.1,2,0,\"\",\"\",9.5,5,50,3,1200.5,10\r\n");
    EXPECT_EQ(Read("Quotes/EOD/BBB.24"),
              "\"03/15/24\",\"16:01\",20,18,22,1000,10,1.5,1.1,2,0,\"\",\"\",9.5,5,50,3,1200.5,20\r\n");
    EXPECT_EQ(LineText(table, 1), "AAA\t");
}

TEST_F(DayImportTest, TickersThatCanHaveNoFilesAreLeftOut) {
    Write("Import.Txt", Record("AUX", "10", "9", "11", "9") + Record("../ESCAPE", "10", "9", "11", "9") +
                            Record("", "10", "9", "11", "9"));
    Import();
    EXPECT_EQ(FileNamesIn(folder / "Quotes/EOD"), std::vector<std::string>{"QuoteList.ddq"});
    EXPECT_FALSE(Exists("Quotes/ESCAPE.24"));
    EXPECT_EQ(Read("Quotes/EOD/QuoteList.ddq"), "3\r\n\"../ESCAPE\"\r\n");
}

TEST_F(DayImportTest, AFileThatCannotBeWrittenLeavesImportTxtInPlace) {
    // A folder stands where the year file should be.
    std::filesystem::create_directories(folder / "Quotes/EOD/AAA.24");
    const std::string records = Record("AAA", "10", "9", "11", "9") + Record("BBB", "20", "19", "21", "20");
    Write("Import.Txt", records);
    const DayImport result = Import();
    EXPECT_TRUE(result.error);
    EXPECT_EQ(result.stored, 1U);
    EXPECT_EQ(Read("Import.Txt"), records);
    EXPECT_TRUE(Exists("Quotes/EOD/BBB.24"));
}

TEST_F(DayImportTest, WhereEveryDayFailsTheListOfTheUpdateBeforeStays) {
    std::filesystem::create_directories(folder / "Quotes/EOD/AAA.24");
    const std::string former = "3\r\n\"BBB\"\r\n\"CCC\"\r\n";
    Write("Quotes/EOD/QuoteList.ddq", former);
    Write("Import.Txt", Record("AAA", "10", "9", "11", "9"));
    EXPECT_EQ(Import().failed, 1U);
    EXPECT_EQ(Read("Quotes/EOD/QuoteList.ddq"), former);
}

TEST_F(DayImportTest, HostileBytesEndInNoFiles) {
    Write("Import.Txt", std::string("\0\xff\xfe,,,\r\n\"\"\"\"\r\n\"unclosed,1,2\r\n\r\n", 31));
    const DayImport result = Import();
    EXPECT_EQ(result.stored, 0U);
    EXPECT_EQ(person.statusWords.back(), "Complete");
}

}  // namespace
}  // namespace brantlow
