#include "store/table_files.h"

#include <unistd.h>

#include "base/text.h"
#include "base/undo_store.h"
#include "shell/session_change.h"
#include "store/store_fixture.h"
#include "store/table_colours.h"
#include "support/recording_person.h"
#include "support/table_lines.h"

namespace brantlow {
namespace {

using namespace std::string_literals;

SettingsTables ShowingColumns(const std::vector<std::string>& headers) {
    SettingsTables settings;
    SetLines(settings.ColumnSettings, headers);
    return settings;
}

std::string Headers(const QuoteTable& table, std::size_t count) {
    std::string text;
    for (std::size_t c = 0; c < count; ++c) text += (c ? "|" : "") + table.Header(c);
    return text;
}

// A quote file of `lines` lines, the header among them.
std::string FileOf(std::size_t lines) {
    std::string bytes = "Ticker Symbol\tLast Price\r\n";
    for (std::size_t i = 1; i < lines; ++i) bytes += "T" + std::to_string(i) + "\t1.000\r\n";
    return bytes;
}

class TableFiles : public ::testing::Test {
  protected:
    TableFiles() { folder.Folder("Data"); }
    TableLoad Load(const Path& file, Person* progress = nullptr) {
        return LoadQuoteTable(file, KindOf(file.string()), settings, kQuoteDay, table, progress);
    }

    TestFolder folder;
    SettingsTables settings;
    QuoteTable table;
    FixedClock clock{kQuoteDay};
    RecordingPerson person;
    Session session{folder.Root(), clock, person};
};

TEST_F(TableFiles, ColumnWidthsByKind) {
    struct Row {
        FileKind kind;
        int ticker;
        int others;
    };
    constexpr Row kRows[] = {{FileKind::Ddq, 1300, 0},
                             {FileKind::Db, 1300, 0},
                             {FileKind::Dbe, 1300, 1350},
                             {FileKind::Efq, 1300, 1200},
                             {FileKind::None, 1300, 1100}};
    for (const Row& row : kRows) {
        QuoteTable sheet;
        ColumnWidth(row.kind, sheet);
        sheet.AppendLine("a\tb\tc");
        EXPECT_EQ(sheet.Width(0), row.ticker) << static_cast<int>(row.kind);
        EXPECT_EQ(sheet.Width(1), row.others) << static_cast<int>(row.kind);
        EXPECT_EQ(sheet.Width(2), row.others) << static_cast<int>(row.kind);
    }
}

TEST_F(TableFiles, ShowsTheUsersColumnsInTheUsersOrderHiddenOnesBehind) {
    settings = ShowingColumns({"Name", "Last Price", "Volume"});
    const Path file = folder.Write("a.ddq", QuoteHeader() + "\r\n");
    ASSERT_TRUE(Load(file).Done());
    EXPECT_EQ(Headers(table, 6), "Ticker Symbol|Name|Last Price|Volume|Change|Change (%)");
    EXPECT_EQ(table.Width(0), 1300);
    EXPECT_EQ(table.Width(1), 2000);
    EXPECT_EQ(table.Width(2), 1100);
    EXPECT_EQ(table.Width(3), 1200);
    for (std::size_t c = 4; c < 35; ++c) EXPECT_EQ(table.Width(c), 0) << c;
}

TEST_F(TableFiles, EveryColumnTakesItsCatalogueWidth) {
    std::vector<std::string> all;
    for (std::size_t i = kQuoteColumns.size() - 1; i > 0; --i) all.emplace_back(kQuoteColumns[i].header);
    settings = ShowingColumns(all);
    ASSERT_TRUE(Load(folder.Write("a.ddq", QuoteHeader() + "\r\n")).Done());
    for (std::size_t c = 1; c < 35; ++c) {
        EXPECT_EQ(table.Header(c), kQuoteColumns[35 - c].header);
        EXPECT_EQ(table.Width(c), kQuoteColumns[35 - c].width) << table.Header(c);
    }
}

TEST_F(TableFiles, ACellMovesWithItsColumn) {
    settings = ShowingColumns({"Change", "Last Price"});
    Load(folder.Write("a.ddq", "Ticker Symbol\tLast Price\tName\tChange\r\nIBM\t1\tInter\t-0.500\r\n"));
    EXPECT_EQ(LineText(table, 1), "IBM\t-0.500\t1\tInter");
    EXPECT_EQ(table.Style(1, 1), CellStyle::Weak);
    EXPECT_EQ(table.Style(1, 2), CellStyle::Neutral);
    EXPECT_EQ(table.Style(1, 3), CellStyle::Plain);
}

TEST_F(TableFiles, ASettingThatMatchesNoHeaderShowsNothingAtItsPosition) {
    settings = ShowingColumns({"Volume", "No Such Column", "Name"});
    Load(folder.Write("a.ddq", "Ticker Symbol\tLast Price\tName\tVolume\r\n"));
    // Position 1 Volume, position 3 Name, and what is hidden keeps position 2.
    EXPECT_EQ(LineText(table, 0), "Ticker Symbol\tVolume\tLast Price\tName");
    EXPECT_EQ(table.Width(1), 1200);
    EXPECT_EQ(table.Width(2), 0);
    EXPECT_EQ(table.Width(3), 2000);
}

TEST_F(TableFiles, AColumnNamedTwiceStandsAtItsLastPlace) {
    settings = ShowingColumns({"Name", "Volume", "Name"});
    Load(folder.Write("a.ddq", "Ticker Symbol\tLast Price\tName\tVolume\r\n"));
    // Name to 1; Volume from 3 to 2; Name from 1 to 3.
    EXPECT_EQ(LineText(table, 0), "Ticker Symbol\tVolume\tLast Price\tName");
}

TEST_F(TableFiles, MoreSettingsThanColumnsAreNoHarm) {
    settings = ShowingColumns({"A", "B", "C", "D", "Last Price", "E"});
    Load(folder.Write("a.ddq", "Ticker Symbol\tName\tLast Price\r\n"));
    EXPECT_EQ(LineText(table, 0), "Ticker Symbol\tName\tLast Price");
    EXPECT_EQ(table.Width(2), 0);
}

TEST_F(TableFiles, AHeaderWithoutAlarmColumnsLoadsAndColours) {
    settings = ShowingColumns({"Last Price"});
    const TableLoad load = Load(folder.Write("a.ddq", "Ticker Symbol\tLast Price\r\nIBM\t5.000\r\n"));
    EXPECT_TRUE(load.Done());
    EXPECT_FALSE(table.ColumnOf("High Alarm"));
    EXPECT_EQ(table.Style(1, 1), CellStyle::Neutral);
}

TEST_F(TableFiles, ExactlyEighteenThousandLinesLoadWhole) {
    const TableLoad load = Load(folder.Write("a.ddq", FileOf(18000)));
    EXPECT_FALSE(load.cut);
    EXPECT_EQ(table.TickerCount(), 17999U);
    EXPECT_EQ(table.Ticker(17999), "T17999");
}

TEST_F(TableFiles, LineEighteenThousandAndOneIsDroppedAndASaveShortensTheFile) {
    const Path file = folder.Write("a.ddq", FileOf(18001));
    const TableLoad load = Load(file);
    EXPECT_TRUE(load.cut);
    EXPECT_EQ(TableLoadSentence(load, "a.ddq"), "a.ddq: " + std::string(kTooManyLines));
    EXPECT_EQ(table.TickerCount(), 17999U);
    EXPECT_FALSE(SaveQuoteTable(table, file));
    EXPECT_EQ(folder.Read("a.ddq"), FileOf(18000));
}

TEST_F(TableFiles, ASavedTableReloadsTheSameInDisplayOrder) {
    settings = ShowingColumns({"Name", "Last Price"});
    const Path file =
        folder.Write("a.ddq", "Ticker Symbol\tLast Price\tName\tVolume\r\nIBM\t1.500\tInter\t7\r\n");
    Load(file);
    ASSERT_FALSE(SaveQuoteTable(table, file));
    const std::string saved = "Ticker Symbol\tName\tLast Price\tVolume\r\nIBM\tInter\t1.500\t7\r\n";
    EXPECT_EQ(folder.Read("a.ddq"), saved);
    Load(file);
    EXPECT_EQ(LineText(table, 1), "IBM\tInter\t1.500\t7");
    EXPECT_EQ(table.Width(3), 0);
    ASSERT_FALSE(SaveQuoteTable(table, file));
    EXPECT_EQ(folder.Read("a.ddq"), saved);
}

TEST_F(TableFiles, BytesOfAnyKindSurviveASave) {
    const std::string bytes = "Ticker Symbol\tName\r\nA\0B\t\xE9\xFF \"q\"\r\n\tx\r\n"s;
    const Path file = folder.Write("a.ddq", bytes);
    Load(file);
    EXPECT_EQ(table.Ticker(1), "A\0B"s);
    ASSERT_FALSE(SaveQuoteTable(table, file));
    EXPECT_EQ(folder.Read("a.ddq"), bytes);
}

TEST_F(TableFiles, RaggedRowsKeepEveryCell) {
    const Path file = folder.Write("a.ddq", "Ticker Symbol\tLast Price\nIBM\nMSFT\t2.000\textra\t\tfar\n\nC");
    Load(file);
    EXPECT_EQ(table.RowCount(), 5U);
    EXPECT_EQ(table.ColumnCount(), 5U);
    ASSERT_FALSE(SaveQuoteTable(table, file));
    EXPECT_EQ(folder.Read("a.ddq"),
              "Ticker Symbol\tLast "
              "Price\t\t\t\r\nIBM\t\t\t\t\r\nMSFT\t2.000\textra\t\tfar\r\n\t\t\t\t\r\nC\t\t\t\t\r\n");
}

TEST_F(TableFiles, AnEmptyColumnSettingMovesNoNamelessColumn) {
    settings = ShowingColumns({"Last Price"});
    Load(folder.Write("a.ddq", "Ticker Symbol\t\tLast Price\t\tName\r\nx\t1\t2\t3\t4\r\n"));
    EXPECT_EQ(LineText(table, 1), "x\t2\t1\t3\t4");
}

TEST_F(TableFiles, ALineOfTenMegabytesIsACell) {
    const std::string name(10'000'000, 'x');
    const Path file = folder.Write("a.ddq", "Ticker Symbol\tName\r\nIBM\t" + name + "\r\nMSFT\ty\r\n");
    ASSERT_TRUE(Load(file).Done());
    EXPECT_EQ(table.Text(1, 1).size(), name.size());
    EXPECT_EQ(table.Ticker(2), "MSFT");
    const Path tabs = folder.Write("t.ddq", "Ticker Symbol\r\n" + std::string(10'000'000, '\t') + "\r\n");
    ASSERT_TRUE(Load(tabs).Done());
    EXPECT_EQ(table.ColumnCount(), QuoteTable::kMostColumns);
    ASSERT_FALSE(SaveQuoteTable(table, tabs));
    EXPECT_TRUE(folder.Read("t.ddq").ends_with(std::string(10'000'000, '\t') + "\r\n"));
}

TEST_F(TableFiles, ProgressRunsToOneHalfForTheLinesAndThenOverTheRows) {
    ProgressRecorder progress;
    Load(folder.Write("a.ddq", FileOf(3)), &progress);
    const std::vector<double> expected = {1.0 / 3 * 0.5, 2.0 / 3 * 0.5, 0.5, 0.5, 1, 1};
    EXPECT_EQ(progress.fractions, expected);
}

TEST_F(TableFiles, ATemplateShowsNoProgress) {
    ProgressRecorder progress;
    Load(folder.Write("New EOD Quotes.db", QuoteHeader() + "\r\n"), &progress);
    EXPECT_EQ(table.TickerCount(), 0U);
    EXPECT_EQ(table.ColumnCount(), 35U);
    EXPECT_TRUE(progress.fractions.empty());
}

TEST_F(TableFiles, AFileThatCannotBeLoadedIsToldInWords) {
    const TableLoad missing = Load(folder.Root() / "none.ddq");
    EXPECT_EQ(missing.outcome, ReadOutcome::Missing);
    EXPECT_EQ(TableLoadSentence(missing, "none.ddq"), "none.ddq: no such file in Data");
    folder.Folder("d.ddq");
    const TableLoad directory = Load(folder.Root() / "d.ddq");
    EXPECT_EQ(directory.outcome, ReadOutcome::Failed);
    EXPECT_EQ(TableLoadSentence(directory, "d.ddq"), "d.ddq: a folder, not a quote file");
    const TableLoad unreadable = {ReadOutcome::Failed, std::make_error_code(std::errc::permission_denied)};
    EXPECT_EQ(TableLoadSentence(unreadable, "a.ddq"), "a.ddq: cannot be read (Permission denied)");
    EXPECT_EQ(table.RowCount(), 0U);
}

TEST_F(TableFiles, AFileWithoutAHeaderIsToldInWordsAndShownAsItIs) {
    const TableLoad empty = Load(folder.Write("e.ddq", ""));
    EXPECT_TRUE(empty.Done());
    EXPECT_EQ(TableLoadSentence(empty, "e.ddq"), "e.ddq: the file is empty, it has no header line");
    const TableLoad bare = Load(folder.Write("b.ddq", "IBM\t1.000\r\nMSFT\t2.000\r\n"));
    EXPECT_EQ(TableLoadSentence(bare, "b.ddq"),
              "b.ddq: the first line is no header, it names no column of this kind of file");
    EXPECT_EQ(table.RowCount(), 2U);
    EXPECT_EQ(LineText(table, 1), "MSFT\t2.000");
    EXPECT_EQ(TableLoadSentence(Load(folder.Write("g.ddq", "Last Price\r\n")), "g.ddq"), "");
}

TEST_F(TableFiles, ALoadReplacesWhatTheTableHeld) {
    Load(folder.Write("a.ddq", FileOf(5)));
    Load(folder.Root() / "none.ddq");
    EXPECT_EQ(table.RowCount(), 0U);
    EXPECT_EQ(table.ColumnCount(), 0U);
}

TEST_F(TableFiles, TheTemplateIsNeverWritten) {
    const Path file = folder.Write("New EOD Quotes.db", QuoteHeader() + "\r\n");
    Load(file);
    table.AppendLine("IBM");
    EXPECT_EQ(SaveQuoteTable(table, file), std::errc::operation_not_permitted);
    EXPECT_EQ(folder.Read("New EOD Quotes.db"), QuoteHeader() + "\r\n");
}

TEST_F(TableFiles, ASaveThatFailsLeavesNothingBehind) {
    Load(folder.Write("a.ddq", FileOf(3)));
    EXPECT_TRUE(SaveQuoteTable(table, folder.Root() / "no folder" / "x.ddq"));
    folder.Folder("d.ddq");
    EXPECT_EQ(SaveQuoteTable(table, folder.Root() / "d.ddq"), std::errc::is_a_directory);
    EXPECT_EQ(folder.Files(), std::vector<std::string>{"a.ddq"});
}

TEST_F(TableFiles, ARunOverAnOlderFileCanBeUndone) {
    Load(folder.Write("a.ddq", "Ticker Symbol\r\nMSFT\r\n"));
    folder.Write("Data/Evaluations.dbe", "what an earlier run left");
    ASSERT_FALSE(CreateEvaluationFile(table, session));
    const std::vector<KeptChange> changes = KeptChanges(ChangePlaceOf(session));
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(changes[0].what, "Stock Selector");
    ASSERT_FALSE(UndoChange(ChangePlaceOf(session), "").fault);
    EXPECT_EQ(folder.Read("Data/Evaluations.dbe"), "what an earlier run left");
}

TEST_F(TableFiles, AFreshEvaluationFileHoldsOnlyTickersAndLoadsWithEmptyResults) {
    Load(folder.Write("a.ddq", "Ticker Symbol\tLast Price\r\nMSFT\t1\r\nIBM\t2\r\n"));
    folder.Write("Data/Evaluations.dbe", "what an earlier run left");
    ASSERT_FALSE(CreateEvaluationFile(table, session));
    EXPECT_EQ(folder.Read("Data/Evaluations.dbe"),
              "Ticker Symbol\tCondition 1\tCondition 2\tCondition 3\tCondition 4\tCondition 5\tCondition 6\t"
              "Condition 7\tCondition 8\tCondition 9\tCondition 10\r\nMSFT\r\nIBM\r\n");
    ASSERT_TRUE(Load(session.DataFile("Evaluations.dbe")).Done());
    EXPECT_EQ(table.ColumnCount(), 11U);
    EXPECT_EQ(table.Ticker(2), "IBM");
    for (std::size_t c = 1; c <= 10; ++c) {
        EXPECT_EQ(table.Text(1, c), "");
        EXPECT_EQ(table.Style(1, c), CellStyle::EmptyResult);
        EXPECT_EQ(table.Width(c), 1350);
    }
}

TEST_F(TableFiles, AnEvaluationFileOfAnEmptyTableIsAHeader) {
    ASSERT_FALSE(CreateEvaluationFile(QuoteTable(), session));
    EXPECT_EQ(folder.Read("Data/Evaluations.dbe"), EvaluationHeader() + "\r\n");
}

TEST_F(TableFiles, AFreshFundamentalFileHoldsTheHeaderAndTheTickers) {
    Load(folder.Write("a.ddq", "Ticker Symbol\r\nMSFT\r\nIBM\r\n"));
    ASSERT_FALSE(CreateFundamentalFile(table, session));
    EXPECT_EQ(folder.Read("Data/ExtendedFundamentals.efq"), EfqHeader() + "\r\nMSFT\r\nIBM\r\n");
    ASSERT_TRUE(Load(session.DataFile("ExtendedFundamentals.efq")).Done());
    EXPECT_EQ(table.ColumnCount(), 59U);
    EXPECT_EQ(table.Width(0), 1300);
    EXPECT_EQ(table.Header(30), "Beta");
    EXPECT_EQ(table.Width(30), 1400);
    EXPECT_EQ(table.Header(32), "Float");
    EXPECT_EQ(table.Width(32), 1400);
    EXPECT_EQ(table.Width(1), 2100);
    EXPECT_EQ(table.Width(58), 4200);
    EXPECT_EQ(table.Style(1, 1), CellStyle::Plain);
}

TEST_F(TableFiles, AFileOfFewerColumnsShowsWhatItHas) {
    Load(folder.Write("a.efq", "Symbol\tMarket Cap (intraday)\r\nIBM\t5B\r\n"));
    EXPECT_EQ(table.ColumnCount(), 2U);
    EXPECT_EQ(table.Width(1), 2100);
    Load(folder.Write("a.dbe", "Ticker Symbol\tCondition 1\r\nIBM\tBuy\r\n"));
    EXPECT_EQ(table.ColumnCount(), 2U);
    EXPECT_EQ(table.Style(1, 1), CellStyle::Buy);
}

TEST_F(TableFiles, ConditionSummaryJoinsActionAndNames) {
    SetLines(settings.SelectorSettings,
             {"Condition", "Buy", "Name A", "Name B", "Value", "5", "", "Condition", "Sell", "Value",
              "Condition", "Hold", "Name C", "Value"});
    const auto summaries = ConditionSummary(settings);
    EXPECT_EQ(summaries[0], "");
    EXPECT_EQ(summaries[1], "Buy,  Name A,  Name B");
    EXPECT_EQ(summaries[2], "Sell");
    EXPECT_EQ(summaries[3], "Hold,  Name C");
    for (std::size_t i = 4; i <= 10; ++i) EXPECT_EQ(summaries[i], "") << i;
}

TEST_F(TableFiles, ConditionSummaryWalksOddListsAsTheyStand) {
    // A slot text that reads as an action opens the names again; a block without Value leaves them open.
    SetLines(settings.SelectorSettings, {"Hold", "stray", "Condition", "first", "Buy", "Value", "1", "Sell",
                                         "2", "Condition", "second"});
    const auto summaries = ConditionSummary(settings);
    EXPECT_EQ(summaries[0], "Hold,  stray");
    EXPECT_EQ(summaries[1], "first,  Buy,  Sell,  2");
    EXPECT_EQ(summaries[2], "second");
}

TEST_F(TableFiles, ConditionSummaryHasNoPlaceForAnEleventhCondition) {
    std::vector<std::string> lines;
    for (int i = 1; i <= 12; ++i) {
        lines.emplace_back("Condition");
        lines.emplace_back("Buy");
        lines.push_back("Name " + std::to_string(i));
        lines.emplace_back("Value");
    }
    SetLines(settings.SelectorSettings, lines);
    const auto summaries = ConditionSummary(settings);
    EXPECT_EQ(summaries[10], "Buy,  Name 10");
    EXPECT_EQ(summaries.size(), 11U);
}

TEST_F(TableFiles, ATickerOfAnyKindNeverLeavesTheDataFolder) {
    std::string bytes = "Ticker Symbol\r\n../../x\r\n/etc/x\r\n*\r\n";
    bytes.append("A\0B\r\n"s).append(5000, 'T').append("\r\n");
    Load(folder.Write("Data/a.ddq", bytes));
    ASSERT_FALSE(CreateEvaluationFile(table, session));
    EXPECT_EQ(folder.Files(), (std::vector<std::string>{"Data/Evaluations.dbe", "Data/a.ddq"}));
    EXPECT_EQ(folder.Read("Data/Evaluations.dbe"), EvaluationHeader() + bytes.substr(13));
}

}  // namespace
}  // namespace brantlow
