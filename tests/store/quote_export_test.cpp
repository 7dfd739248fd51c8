#include "store/quote_export.h"

#include "support/session_fixture.h"

namespace brantlow {
namespace {

class QuoteExportTest : public SessionTest {
  protected:
    QuoteExportTest() { Choose("Comma Delimited", {"Last Price", "Ticker Symbol", "Volume"}); }

    void Choose(const char* form, const std::vector<std::string>& columns) {
        SettingsTable& lines = session.settings.ImExSettings;
        lines.Clear();
        SetLines(lines,
                 {form, "Data", "Export.Txt", "Comma Delimited", "Data", "Import.Txt", "0", "0", "01/02/04"});
        std::size_t line = 10;
        for (const std::string& column : columns) Set(lines, line++, column);
        Set(lines, line++, "End Export File");
        Set(lines, line++, "Name");
        Set(lines, line, "End Import File");
    }
    QuoteExport Export() { return ExportQuotes(session, table); }

    QuoteTable table = TableOf(
        {"Ticker Symbol\tName\tVolume\tLast Price", "AAA\tAlpha\t100\t1.500", "BBB\tBeta, Inc\t\t2.500"});
};

TEST_F(QuoteExportTest, AQuoteTableHasNoHeaderLineAndKeepsItsColumnOrder) {
    EXPECT_EQ(Export().outcome, ExportOutcome::Done);
    EXPECT_EQ(Read("Data/Export.Txt"), "AAA,100,1.500\r\nBBB,,2.500\r\n");
    EXPECT_EQ(person.progress, (std::vector<double>{0.5, 1}));
    EXPECT_TRUE(person.said.empty());
}

TEST_F(QuoteExportTest, TabDelimited) {
    Choose("Tab Delimited", {"Ticker Symbol", "Name"});
    Export();
    EXPECT_EQ(Read("Data/Export.Txt"), "AAA\tAlpha\r\nBBB\tBeta, Inc\r\n");
}

TEST_F(QuoteExportTest, AnEmptyFirstCellMakesNoSeparator) {
    Choose("Comma Delimited", {"Volume", "Last Price"});
    Export();
    EXPECT_EQ(Read("Data/Export.Txt"), "100,1.500\r\n2.500\r\n");
}

TEST_F(QuoteExportTest, AColumnNamedTwiceIsWrittenTwice) {
    Choose("Comma Delimited", {"Ticker Symbol", "Volume", "Ticker Symbol"});
    Export();
    EXPECT_EQ(Read("Data/Export.Txt"), "AAA,AAA,100\r\nBBB,BBB,\r\n");
}

TEST_F(QuoteExportTest, NamesThatTheTableDoesNotHaveAreLeftOut) {
    Choose("Comma Delimited", {"Ticker Symbol", "Bid Price", "0"});
    Export();
    EXPECT_EQ(Read("Data/Export.Txt"), "AAA\r\nBBB\r\n");
}

TEST_F(QuoteExportTest, SelectorRunsAndFundamentalsAreWrittenWhole) {
    for (const char* name : {"Evaluations.dbe", "ExtendedFundamentals.efq"}) {
        session.CurrentFile = name;
        table = TableOf({"Ticker Symbol\tCondition 1\tCondition 2", "AAA\tBuy\t", "BBB\t\tSell"});
        person.progress.clear();
        Export();
        EXPECT_EQ(Read("Data/Export.Txt"),
                  "Ticker Symbol,Condition 1,Condition 2\r\nAAA,Buy,\r\nBBB,,Sell\r\n")
            << name;
        EXPECT_EQ(person.progress, (std::vector<double>{0, 0.25, 0.5}));
    }
}

TEST_F(QuoteExportTest, OtherFilesAreRefused) {
    for (const char* name : {"", "New EOD Quotes.db", "notes.txt"}) {
        session.CurrentFile = name;
        person.said.clear();
        EXPECT_EQ(Export().outcome, ExportOutcome::NeedsTable) << name;
        ASSERT_EQ(person.said.size(), 1U);
        EXPECT_EQ(person.said[0].text,
                  "Export is only supported for End of Day, Stock Selector, and Extended Fundamental files");
        EXPECT_FALSE(Exists("Data/Export.Txt"));
    }
}

TEST_F(QuoteExportTest, ReplacesTheTarget) {
    Write("Data/Export.Txt", "a longer text than the new one, which must not show through\r\n");
    table = TableOf({"Ticker Symbol", "A"});
    Export();
    EXPECT_EQ(Read("Data/Export.Txt"), "A\r\n");
}

TEST_F(QuoteExportTest, ATableWithoutTickersMakesAnEmptyFile) {
    table = TableOf({"Ticker Symbol\tLast Price"});
    EXPECT_EQ(Export().outcome, ExportOutcome::Done);
    EXPECT_TRUE(Exists("Data/Export.Txt"));
    EXPECT_EQ(Read("Data/Export.Txt"), "");
}

TEST_F(QuoteExportTest, AFolderThatIsNotThereIsReportedAndLeavesTheOldFile) {
    Set(session.settings.ImExSettings, 2, "Data\\missing");
    Write("Data/Export.Txt", "old");
    const QuoteExport result = Export();
    EXPECT_EQ(result.outcome, ExportOutcome::Failed);
    EXPECT_TRUE(result.error);
    EXPECT_EQ(Read("Data/Export.Txt"), "old");
}

TEST_F(QuoteExportTest, FolderAndNameComeFromTheSettings) {
    Set(session.settings.ImExSettings, 2, "Out\\Put");
    Set(session.settings.ImExSettings, 3, "quotes.csv");
    EXPECT_EQ(ExportFile(session.AppPath, session.settings), folder / "Out/Put/quotes.csv");
}

}  // namespace
}  // namespace brantlow
