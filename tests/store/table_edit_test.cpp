#include "store/table_edit.h"

#include "shell/settings/lines.h"
#include "support/session_fixture.h"

namespace brantlow {
namespace {

using Lines = std::vector<std::string>;

const AskDeleteHistory kWithHistory = [](const std::string&) { return true; };
const AskDeleteHistory kWithoutHistory = [](const std::string&) { return false; };

constexpr const char* kAlarmHeader = "Ticker Symbol\tLast Price\tHigh Alarm\tLow Alarm";

class TableEditTest : public SessionTest {
  protected:
    TableEditTest() { Set(session.settings.DataSettings, 7, "Automatic Save"); }

    EditOutcome Append(const NewTicker& ticker) { return AppendTicker(session, table, ticker, 0); }
    void ExpectSaid(const char* text) {
        ASSERT_EQ(person.said.size(), 1U);
        EXPECT_EQ(person.said[0].text, text);
        EXPECT_EQ(person.said[0].title, "");
        person.said.clear();
    }

    QuoteTable table = TableOf({kAlarmHeader, "BBB\t2.000\t\t", "CCC\t3.000\t5\t1"});
};

TEST_F(TableEditTest, ATickerInLowerCaseIsStoredInUpperCase) {
    EXPECT_EQ(Append({"ddd", "50", "40"}), EditOutcome::Changed);
    EXPECT_EQ(LinesOf(table), (Lines{kAlarmHeader, "BBB\t2.000\t\t", "CCC\t3.000\t5\t1", "DDD\t\t50\t40"}));
    EXPECT_EQ(session.CurrentTicker, "DDD");
}

TEST_F(TableEditTest, TheTableIsSortedAfterwards) {
    Append({"aaa"});
    EXPECT_EQ(LinesOf(table), (Lines{kAlarmHeader, "AAA\t\t\t", "BBB\t2.000\t\t", "CCC\t3.000\t5\t1"}));
    AppendTicker(session, table, {"zzz"}, 1);
    EXPECT_EQ(table.Ticker(1), "AAA");
    EXPECT_EQ(table.Ticker(2), "ZZZ");
    EXPECT_EQ(table.Ticker(3), "BBB");
}

TEST_F(TableEditTest, WithALiveSourceInUseWhatItCanBeAskedForIsAdded) {
    brantlow::Set(session.settings, kLiveQuotes, "yahoo");
    for (const char* const good : {"M&M.NS", "A#B", "A?B", "A%42", "EURUSD=X", "^GSPC"}) {
        EXPECT_EQ(Append({good}), EditOutcome::Changed) << good;
        EXPECT_GT(RowOfTicker(table, good), 0U) << good;
    }
    EXPECT_EQ(Append({"m&t"}), EditOutcome::Changed);
    EXPECT_GT(RowOfTicker(table, "M&T"), 0U);
    // The small letter of a preferred share stays one.
    EXPECT_EQ(Append({"bac pK"}), EditOutcome::Changed);
    EXPECT_GT(RowOfTicker(table, "BAC pK"), 0U);
    EXPECT_EQ(Append({"BAC pK"}), EditOutcome::Unchanged);
    EXPECT_EQ(DeleteTicker(session, table, "bac pK", kWithHistory).outcome, EditOutcome::Changed);
    EXPECT_EQ(RowOfTicker(table, "BAC pK"), 0U);
    // What would break a line of a table or a history, or has no file, is refused still.
    for (const char* const bad : {"A,B", "A B", "A\tB", "A\nB", "A\x7f", "A\"B&", "A&B/C", " pK"}) {
        EXPECT_EQ(Append({bad}), EditOutcome::Refused) << bad;
    }
}

TEST_F(TableEditTest, WithALiveSourceForHistoriesAloneTheStandardSourceIsAskedForQuotes) {
    brantlow::Set(session.settings, kLiveHistory, "yahoo");
    EXPECT_EQ(Append({"M&M.NS"}), EditOutcome::Refused);
}

TEST_F(TableEditTest, ATickerThatWouldBreakALineOrAnAddressIsRefused) {
    constexpr const char* kControl = ": a ticker cannot hold a tab or a line end";
    constexpr const char* kAddress = ": a ticker with a blank or one of & # ? % , cannot be asked for";
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"A\tB", std::string("A?B") + kControl},    {"A\nB", std::string("A?B") + kControl},
        {"A\r\nB", std::string("A??B") + kControl}, {"A\x7f", std::string("A?") + kAddress},
        {"A&B", std::string("A&B") + kAddress},     {"A#B", std::string("A#B") + kAddress},
        {"A?B", std::string("A?B") + kAddress},     {"A%42", std::string("A%42") + kAddress},
        {"A B", std::string("A B") + kAddress},     {" A", std::string(" A") + kAddress}};
    const Lines before = LinesOf(table);
    for (const auto& [symbol, sentence] : rows) {
        EXPECT_EQ(Append({symbol}), EditOutcome::Refused) << sentence;
        ExpectSaid(sentence.c_str());
        EXPECT_EQ(LinesOf(table), before);
    }
    for (const char* const good : {"KO", "BRK.B", "^DJI", "A/B", "A*B", "A-B", "\xc3\x84"}) {
        EXPECT_EQ(RefusedTickerName(good, session.settings), "") << good;
    }
}

TEST_F(TableEditTest, AddingATickerThatIsThereDoesNothing) {
    const Lines before = LinesOf(table);
    EXPECT_EQ(Append({"ccc", "9", "9"}), EditOutcome::Unchanged);
    EXPECT_EQ(LinesOf(table), before);
    EXPECT_TRUE(person.said.empty());
}

TEST_F(TableEditTest, DeviceNamesAreNotAdded) {
    const Lines before = LinesOf(table);
    for (const char* name : {"NUL", "con", "Aux.x", "prn."}) {
        EXPECT_EQ(Append({name}), EditOutcome::Unchanged) << name;
        EXPECT_EQ(LinesOf(table), before);
        EXPECT_TRUE(person.said.empty());
    }
}

TEST_F(TableEditTest, AnEmptySymbolIsToldOf) {
    for (const char* symbol : {"", " "}) {
        EXPECT_EQ(Append({symbol}), EditOutcome::Refused);
        ExpectSaid("Enter a Ticker Symbol in the Symbol Box before selecting Add");
        EXPECT_EQ(DeleteTicker(session, table, symbol, kWithHistory).outcome, EditOutcome::Refused);
        ExpectSaid("Enter a Ticker Symbol in the Symbol Box before selecting Delete");
    }
    EXPECT_EQ(table.TickerCount(), 2U);
}

TEST_F(TableEditTest, TheTemplateRefusesBothWithTheSameSentence) {
    session.CurrentFile = "New EOD Quotes.db";
    EXPECT_EQ(Append({"DDD"}), EditOutcome::Refused);
    ExpectSaid("Save this file as another name before editing.");
    EXPECT_EQ(DeleteTicker(session, table, "BBB", kWithHistory).outcome, EditOutcome::Refused);
    ExpectSaid("Save this file as another name before editing.");
    EXPECT_EQ(table.TickerCount(), 2U);
}

TEST_F(TableEditTest, OnlyAnEndOfDayTableTakesAlarms) {
    session.CurrentFile = "Evaluations.dbe";
    Append({"DDD", "50", "40"});
    EXPECT_EQ(LineText(table, 3), "DDD\t\t\t");
}

TEST_F(TableEditTest, ATableWithoutAlarmColumnsTakesTheTickerAlone) {
    table = TableOf({"Ticker Symbol\tLast Price", "BBB\t2.000"});
    Append({"DDD", "50", "40"});
    EXPECT_EQ(LineText(table, 2), "DDD\t");
}

TEST_F(TableEditTest, AFullTableTakesNoFurtherTicker) {
    table.SetRowCount(kMostRows);
    EXPECT_EQ(Append({"ZZZ"}), EditOutcome::Unchanged);
    EXPECT_EQ(table.RowCount(), kMostRows);
}

TEST_F(TableEditTest, DeletingTakesTheRowAndSaves) {
    const TableEdit edit = DeleteTicker(session, table, "bbb", kWithoutHistory);
    EXPECT_EQ(edit.outcome, EditOutcome::Changed);
    EXPECT_FALSE(edit.saveError);
    EXPECT_EQ(LinesOf(table), (Lines{kAlarmHeader, "CCC\t3.000\t5\t1"}));
    EXPECT_EQ(Read("Data/Mine.ddq"), std::string(kAlarmHeader) + "\r\nCCC\t3.000\t5\t1\r\n");
    EXPECT_EQ(person.statusWords, (Lines{"Updating", "Saving", "Complete"}));
    EXPECT_EQ(person.tickerCounts, std::vector<std::size_t>{1});
}

// A new file beside the table's, then all into their places.
TEST_F(TableEditTest, ADeletionWritesAndDeletesBesideTheWindowsAlone) {
    Write("Data/Mine.ddq", "old");
    Write("Quotes/EOD/BBB.24", "history");
    EXPECT_EQ(FilesChangedBesideBy([&] { DeleteTicker(session, table, "BBB", kWithHistory); }), 2);
    EXPECT_FALSE(Exists("Quotes/EOD/BBB.24"));
    EXPECT_EQ(Read("Data/Mine.ddq"), std::string(kAlarmHeader) + "\r\nCCC\t3.000\t5\t1\r\n");
}

TEST_F(TableEditTest, TheRowIsOutOfTheTableBeforeAFileIsWritten) {
    Write("Data/Mine.ddq", "old");
    int calls = 0;
    const auto rowTaken = [&] {
        ++calls;
        EXPECT_EQ(LinesOf(table), (Lines{kAlarmHeader, "CCC\t3.000\t5\t1"}));
        EXPECT_EQ(Read("Data/Mine.ddq"), "old");
        EXPECT_EQ(person.beside, 0);
    };
    EXPECT_EQ(DeleteTicker(session, table, "ZZZ", kWithoutHistory, rowTaken).outcome, EditOutcome::Unchanged);
    EXPECT_EQ(calls, 0);
    DeleteTicker(session, table, "BBB", kWithoutHistory, rowTaken);
    EXPECT_EQ(calls, 1);
}

TEST_F(TableEditTest, WithManualSaveTheFileStaysAsItIs) {
    Set(session.settings.DataSettings, 7, "Manual Save");
    Write("Data/Mine.ddq", "old");
    DeleteTicker(session, table, "BBB", kWithoutHistory);
    EXPECT_EQ(table.TickerCount(), 1U);
    EXPECT_EQ(Read("Data/Mine.ddq"), "old");
}

TEST_F(TableEditTest, TheLastTickerStaysWithoutAWord) {
    table = TableOf({kAlarmHeader, "BBB\t2.000"});
    Write("Quotes/EOD/BBB.24", "history");
    EXPECT_EQ(DeleteTicker(session, table, "BBB", kWithHistory).outcome, EditOutcome::Unchanged);
    EXPECT_EQ(DeleteTicker(session, table, "", kWithHistory).outcome, EditOutcome::Unchanged);
    EXPECT_EQ(table.TickerCount(), 1U);
    EXPECT_TRUE(Exists("Quotes/EOD/BBB.24"));
    EXPECT_TRUE(person.said.empty());
    EXPECT_TRUE(person.statusWords.empty());
}

TEST_F(TableEditTest, TheHistoryGoesWhenTheAnswerSaysSo) {
    for (const bool goes : {true, false}) {
        table = TableOf({kAlarmHeader, "BBB\t2.000", "CCC\t3.000"});
        Write("Quotes/EOD/BBB.24", "history");
        Write("Quotes/EOD/BBBB.24", "another's");
        Lines asked;
        DeleteTicker(session, table, "bbb", [&](const std::string& ticker) {
            asked.push_back(ticker);
            return goes;
        });
        EXPECT_EQ(asked, Lines{"BBB"}) << goes;
        EXPECT_EQ(Exists("Quotes/EOD/BBB.24"), !goes);
        EXPECT_TRUE(Exists("Quotes/EOD/BBBB.24"));
        EXPECT_EQ(table.TickerCount(), 1U);
    }
}

TEST_F(TableEditTest, ASelectorRunsTickerKeepsItsHistory) {
    session.CurrentFile = "Evaluations.dbe";
    Write("Quotes/EOD/BBB.24", "history");
    DeleteTicker(session, table, "BBB", kWithHistory);
    EXPECT_TRUE(Exists("Quotes/EOD/BBB.24"));
    EXPECT_EQ(table.TickerCount(), 1U);
}

TEST_F(TableEditTest, ATickerThatIsNotThereLeavesTheTable) {
    const Lines before = LinesOf(table);
    EXPECT_EQ(DeleteTicker(session, table, "XYZ", kWithoutHistory).outcome, EditOutcome::Unchanged);
    EXPECT_EQ(LinesOf(table), before);
    EXPECT_FALSE(Exists("Data/Mine.ddq"));
}

TEST_F(TableEditTest, ATableThatCannotBeSavedIsReported) {
    session.CurrentFile = "missing/Mine.ddq";
    EXPECT_TRUE(DeleteTicker(session, table, "BBB", kWithoutHistory).saveError);
}

TEST_F(TableEditTest, AFileThatAnotherProgramChangedIsWrittenOverOnlyWhereThePersonWantsIt) {
    const Path file = session.DataFile(session.CurrentFile);
    ASSERT_FALSE(SaveOpenTable(session, table));
    EXPECT_TRUE(person.asked.empty());
    ASSERT_FALSE(SaveOpenTable(session, table));
    EXPECT_TRUE(person.asked.empty()) << "its own save is no change of another program";

    ASSERT_FALSE(WriteWholeFile(file, "somebody else's"));
    person.answer = false;
    EXPECT_EQ(SaveOpenTable(session, table), std::errc::operation_canceled);
    EXPECT_EQ(BytesOrEmpty(file), "somebody else's");
    ASSERT_EQ(person.asked.size(), 1U);
    EXPECT_EQ(person.asked[0].text, session.CurrentFile +
                                        " was changed by another program since it was opened. Do you want to "
                                        "write over those changes?");
    EXPECT_EQ(person.asked[0].title, kFileChangedTitle);

    person.answer = true;
    EXPECT_FALSE(SaveOpenTable(session, table));
    EXPECT_NE(BytesOrEmpty(file), "somebody else's");
    EXPECT_FALSE(SaveOpenTable(session, table));
    EXPECT_EQ(person.asked.size(), 2U);
}

}  // namespace
}  // namespace brantlow
