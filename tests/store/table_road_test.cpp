#include "store/table_road.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "base/clock.h"
#include "shell/settings/settings_files.h"
#include "store/file_names.h"
#include "support/recording_person.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr Date kRoadDay{std::chrono::year{2026}, std::chrono::month{3}, std::chrono::day{9}};

// The frame's part played by a test: one table at most, a file dialog with a prepared answer.
class TableRoad : public testing::Test {
  protected:
    TableRoad() {
        std::filesystem::create_directories(session.DataFolder());
        Write("Jan.ddq", "Ticker Symbol\tLast Price\r\nIBM\t90\r\nKO\t60\r\n");
        Write("Feb.ddq", "Ticker Symbol\tLast Price\r\nXOM\t100\r\n");
        Write("New EOD Quotes.db", "Ticker Symbol\tLast Price\r\n");
        Write("Old.dbe", "Ticker Symbol\tCondition 1\r\nIBM\tBuy\r\n");
        windows.CheckActivefrm = [this] {
            open = false;
            ++closings;
        };
        windows.askFile = [this](const FileQuestion& question) {
            questions.push_back(question);
            return answer;
        };
        windows.loadQuoteForm = [this] {
            open = true;
            return LoadQuoteTable(session.DataFile(session.CurrentFile), KindOf(session.CurrentFile),
                                  session.settings, kRoadDay, table, &person);
        };
        windows.showQuoteForm = [this] { ++shown; };
        windows.openTable = [this]() -> QuoteTable* { return open ? &table : nullptr; };
        windows.nameChanged = [this] { ++renamings; };
    }

    void Write(const std::string& name, std::string_view bytes) {
        ASSERT_FALSE(WriteWholeFile(session.DataFile(name), bytes));
    }
    std::string Read(const std::string& name) { return BytesOrEmpty(session.DataFile(name)); }
    void Answer(const std::string& name) { answer = session.DataFile(name); }
    void Open(const std::string& name) {
        session.PickedFile = name;
        session.OpenWithoutDialog = true;
        OpenTableFile(session, OpeningRoad::EndOfDay, windows);
    }
    std::vector<std::string> Recent() {
        std::vector<std::string> names;
        for (std::size_t i = 1; i <= 4; ++i) names.push_back(session.settings.MruSettings.Text(i));
        return names;
    }

    TempFolder folder;
    FixedClock clock{kRoadDay};
    RecordingPerson person;
    Session session{folder.Get(), clock, person};
    QuoteTable table;
    TableWindows windows;
    std::vector<FileQuestion> questions;
    Path answer;
    bool open = false;
    int closings = 0, shown = 0, renamings = 0;
};

TEST_F(TableRoad, EachRoadAsksWithItsOwnFilter) {
    const std::pair<OpeningRoad, std::string> rows[] = {
        {OpeningRoad::EndOfDay, "EOD Detailed Quote Files (*.ddq)|*.ddq"},
        {OpeningRoad::Evaluation, "Data Base Evaluation Files (*.dbe)|*.dbe"},
        {OpeningRoad::ExtendedFundamental, "Data Base Evaluation Files (*.efq)|*.efq"},
    };
    for (const auto& [road, filter] : rows) {
        questions.clear();
        OpenTableFile(session, road, windows);
        ASSERT_EQ(questions.size(), 1U) << filter;
        EXPECT_EQ(questions[0].title, "Open");
        EXPECT_EQ(questions[0].filter, filter);
        EXPECT_EQ(questions[0].folder, session.DataFolder());
        EXPECT_EQ(questions[0].fileName, "");
        EXPECT_FALSE(questions[0].saving);
    }
}

TEST_F(TableRoad, OpeningShowsTheTableItsCountAndComplete) {
    Answer("Jan.ddq");
    OpenTableFile(session, OpeningRoad::EndOfDay, windows);
    EXPECT_EQ(session.CurrentFile, "Jan.ddq");
    EXPECT_EQ(session.CurrentTicker, "IBM");
    EXPECT_EQ(shown, 1);
    EXPECT_THAT(person.statusWords, ElementsAre("Opening", "Complete"));
    EXPECT_THAT(person.tickerCounts, ElementsAre(2U));
    EXPECT_THAT(person.said, IsEmpty());
    EXPECT_FALSE(session.ProgressAlways);
}

TEST_F(TableRoad, ThePickedFileNeedsNoDialog) {
    Open("Feb.ddq");
    EXPECT_THAT(questions, IsEmpty());
    EXPECT_EQ(session.CurrentFile, "Feb.ddq");
    EXPECT_FALSE(session.OpenWithoutDialog);
}

TEST_F(TableRoad, WithoutAPickedFileTheDialogComesEvenAtStart) {
    session.OpenWithoutDialog = true;
    OpenTableFile(session, OpeningRoad::EndOfDay, windows);
    EXPECT_EQ(questions.size(), 1U);
    EXPECT_FALSE(open);
    EXPECT_EQ(session.CurrentFile, "");
    EXPECT_THAT(person.statusWords, ElementsAre("Opening", "Complete"));
}

TEST_F(TableRoad, ACancelledDialogLeavesTheEarlierTableClosed) {
    Open("Jan.ddq");
    answer.clear();
    OpenTableFile(session, OpeningRoad::Evaluation, windows);
    EXPECT_FALSE(open);
    EXPECT_EQ(person.statusWords.back(), "Complete");
}

TEST_F(TableRoad, ASecondFileClosesTheFirstWithoutAQuestion) {
    OpenTableFile(session, OpeningRoad::NewTable, windows);
    const int before = closings;
    Open("Jan.ddq");
    EXPECT_EQ(closings, before + 1);
    EXPECT_THAT(person.asked, IsEmpty());
    EXPECT_EQ(session.CurrentFile, "Jan.ddq");
}

TEST_F(TableRoad, ANewTableIsTheTemplateWithoutTickers) {
    OpenTableFile(session, OpeningRoad::NewTable, windows);
    EXPECT_THAT(questions, IsEmpty());
    EXPECT_EQ(session.CurrentFile, "New EOD Quotes.db");
    EXPECT_EQ(session.CurrentTicker, "");
    EXPECT_THAT(person.tickerCounts, ElementsAre(0U));
    EXPECT_EQ(person.statusWords.back(), "Complete");
}

TEST_F(TableRoad, AMissingFileIsToldAndLeavesTheFrameEmpty) {
    Open("Gone.ddq");
    ASSERT_EQ(person.said.size(), 1U);
    EXPECT_EQ(person.said[0].text, "Gone.ddq: no such file in Data");
    EXPECT_FALSE(open);
    EXPECT_EQ(session.CurrentFile, "");
    EXPECT_EQ(person.statusWords.back(), "Complete");
    EXPECT_THAT(Recent(), ElementsAre("", "", "", ""));
}

TEST_F(TableRoad, AFolderInPlaceOfAFileIsTold) {
    std::filesystem::create_directory(session.DataFile("Dir.ddq"));
    Open("Dir.ddq");
    ASSERT_EQ(person.said.size(), 1U);
    EXPECT_EQ(person.said[0].text, "Dir.ddq: a folder, not a quote file");
    EXPECT_FALSE(open);
}

TEST_F(TableRoad, AFileOutsideTheDataFolderIsRefused) {
    answer = folder / "Stray.ddq";
    ASSERT_FALSE(WriteWholeFile(answer, "Ticker Symbol\r\n"));
    OpenTableFile(session, OpeningRoad::EndOfDay, windows);
    ASSERT_EQ(person.said.size(), 1U);
    EXPECT_THAT(person.said[0].text, HasSubstr("does not lie in the folder"));
    EXPECT_FALSE(open);
}

TEST_F(TableRoad, ARecentEntryThatLeadsOutOfTheDataFolderIsRefused) {
    ASSERT_FALSE(WriteWholeFile(folder / "Stray.ddq", "Ticker Symbol\r\n"));
    Open("../Stray.ddq");
    ASSERT_EQ(person.said.size(), 1U);
    EXPECT_FALSE(open);
}

TEST_F(TableRoad, OnlyQuoteTablesEnterTheRecentFiles) {
    Open("Jan.ddq");
    Answer("Old.dbe");
    OpenTableFile(session, OpeningRoad::Evaluation, windows);
    OpenTableFile(session, OpeningRoad::NewTable, windows);
    EXPECT_THAT(Recent(), ElementsAre("Jan.ddq", "", "", ""));
}

TEST_F(TableRoad, OpeningTheSecondOfTheListSwapsItWithTheFirst) {
    Open("Jan.ddq");
    Open("Feb.ddq");
    EXPECT_THAT(Recent(), ElementsAre("Feb.ddq", "Jan.ddq", "", ""));
    Open("Jan.ddq");
    EXPECT_THAT(Recent(), ElementsAre("Jan.ddq", "Feb.ddq", "", ""));
}

TEST_F(TableRoad, AFifthDistinctFileDropsTheOldest) {
    for (const char* name : {"1.ddq", "2.ddq", "3.ddq", "4.ddq", "5.ddq"}) {
        Write(name, "Ticker Symbol\r\n");
        Open(name);
    }
    EXPECT_THAT(Recent(), ElementsAre("5.ddq", "4.ddq", "3.ddq", "2.ddq"));
}

TEST_F(TableRoad, CloseSavesTheRecentFilesAndEmptiesTheFrame) {
    Open("Jan.ddq");
    CloseTableFile(session, windows);
    EXPECT_FALSE(open);
    EXPECT_EQ(session.CurrentFile, "");
    EXPECT_EQ(Read("VTRMRUset.ini"), "\"Jan.ddq\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n");
    EXPECT_EQ(person.statusWords.back(), "Complete");
    EXPECT_THAT(person.asked, IsEmpty());
}

TEST_F(TableRoad, LinesThatASaveWouldLoseAreToldAtTheOpening) {
    std::string lines = "Ticker Symbol\r\n";
    for (int row = 1; row <= 18000; ++row) lines += "T" + std::to_string(row) + "\r\n";
    Write("Long.ddq", lines);
    Open("Long.ddq");
    EXPECT_EQ(table.TickerCount(), 17999U);
    ASSERT_EQ(person.said.size(), 1U);
    EXPECT_EQ(person.said[0].text,
              "Long.ddq: the file has more than 18,000 lines; those behind are not shown, and a save would "
              "lose them");
}

TEST_F(TableRoad, TheRecentListIsUpdatedBeforeItIsSaved) {
    const std::string asOpened = "\"Old.ddq\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n";
    Write("VTRMRUset.ini", asOpened);
    session.settings.MruSettings.Set(1, Value::OfText("Old.ddq"));
    Open("Jan.ddq");
    EXPECT_THAT(Recent(), ElementsAre("Jan.ddq", "Old.ddq", "", ""));
    EXPECT_EQ(Read("VTRMRUset.ini"), asOpened);
    answer = session.DataFile("Mine.ddq");
    SaveTableFileAs(session, windows);
    EXPECT_THAT(Recent(), ElementsAre("Mine.ddq", "Jan.ddq", "Old.ddq", ""));
    EXPECT_EQ(Read("VTRMRUset.ini"), "\"Mine.ddq\"\r\n\"Jan.ddq\"\r\n\"Old.ddq\"\r\n\"\"\r\n");
}

TEST_F(TableRoad, CloseWithNothingOpenDoesNothing) {
    CloseTableFile(session, windows);
    EXPECT_THAT(person.statusWords, IsEmpty());
    EXPECT_EQ(closings, 0);
}

TEST_F(TableRoad, CloseOnTheTemplateAsksAndNoDiscardsIt) {
    OpenTableFile(session, OpeningRoad::NewTable, windows);
    person.answer = false;
    CloseTableFile(session, windows);
    EXPECT_THAT(person.asked,
                ElementsAre(RecordingPerson::Message{"Do you want to save the new file?", "Save New File?"}));
    EXPECT_THAT(questions, IsEmpty());
    EXPECT_FALSE(open);
}

TEST_F(TableRoad, CloseOnTheTemplateWithYesSavesItAsAndLeavesItOpen) {
    OpenTableFile(session, OpeningRoad::NewTable, windows);
    Answer("Mine.ddq");
    CloseTableFile(session, windows);
    ASSERT_EQ(questions.size(), 1U);
    EXPECT_EQ(questions[0].title, "Save As");
    EXPECT_EQ(questions[0].fileName, "");
    EXPECT_TRUE(open);
    EXPECT_EQ(session.CurrentFile, "Mine.ddq");
    EXPECT_EQ(Read("Mine.ddq"), "Ticker Symbol\tLast Price\r\n");
    EXPECT_THAT(Recent(), ElementsAre("Mine.ddq", "", "", ""));
}

TEST_F(TableRoad, SaveWritesAQuoteTableInPlace) {
    Open("Jan.ddq");
    table.SetText(1, 1, "95");
    SaveTableFile(session, windows);
    EXPECT_THAT(questions, IsEmpty());
    EXPECT_EQ(Read("Jan.ddq"), "Ticker Symbol\tLast Price\r\nIBM\t95\r\nKO\t60\r\n");
    EXPECT_THAT(person.statusWords, ElementsAre("Opening", "Complete", "Saving", "Complete"));
    EXPECT_EQ(Read("VTRMRUset.ini"), "\"Jan.ddq\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n");
}

TEST_F(TableRoad, SaveOfASelectorRunAsksForItsName) {
    Answer("Old.dbe");
    OpenTableFile(session, OpeningRoad::Evaluation, windows);
    questions.clear();
    Answer("Kept.dbe");
    SaveTableFile(session, windows);
    ASSERT_EQ(questions.size(), 1U);
    EXPECT_EQ(questions[0].title, "Save");
    EXPECT_EQ(questions[0].fileName, "Old.dbe");
    EXPECT_EQ(questions[0].filter, "All Files (*.dbe)|*.dbe");
    EXPECT_TRUE(questions[0].saving);
    EXPECT_EQ(session.CurrentFile, "Kept.dbe");
    EXPECT_EQ(Read("Kept.dbe"), Read("Old.dbe"));
}

TEST_F(TableRoad, SaveAsProposesTheDayForASelectorRun) {
    Answer("Old.dbe");
    OpenTableFile(session, OpeningRoad::Evaluation, windows);
    questions.clear();
    answer.clear();
    SaveTableFileAs(session, windows);
    ASSERT_EQ(questions.size(), 1U);
    EXPECT_EQ(questions[0].fileName, "SS03-09-26.dbe");
}

TEST_F(TableRoad, ACancelledSaveLeavesEverythingAsItWas) {
    Open("Jan.ddq");
    const std::string before = Read("Jan.ddq");
    table.SetText(1, 1, "95");
    answer.clear();
    SaveTableFileAs(session, windows);
    EXPECT_EQ(session.CurrentFile, "Jan.ddq");
    EXPECT_EQ(Read("Jan.ddq"), before);
    EXPECT_EQ(person.statusWords.back(), "Complete");
}

TEST_F(TableRoad, ASaveUnderANameWithoutAnEndingYieldsAFileWithoutAKind) {
    OpenTableFile(session, OpeningRoad::NewTable, windows);
    Answer("Mine");
    SaveTableFile(session, windows);
    EXPECT_EQ(session.CurrentFile, "Mine");
    EXPECT_EQ(KindOf(session.CurrentFile), FileKind::None);
    EXPECT_EQ(Read("Mine"), "Ticker Symbol\tLast Price\r\n");
}

TEST_F(TableRoad, TheTemplateIsNeverWritten) {
    Open("Jan.ddq");
    Answer("New EOD Quotes.db");
    SaveTableFileAs(session, windows);
    ASSERT_EQ(person.said.size(), 1U);
    EXPECT_EQ(person.said[0].text, "New EOD Quotes.db: the template of new files is never written");
    EXPECT_EQ(session.CurrentFile, "Jan.ddq");
    EXPECT_EQ(Read("New EOD Quotes.db"), "Ticker Symbol\tLast Price\r\n");
}

TEST_F(TableRoad, AFailedSaveIsToldAndKeepsTheName) {
    Open("Jan.ddq");
    std::filesystem::create_directory(session.DataFile("Dir.ddq"));
    Answer("Dir.ddq");
    SaveTableFileAs(session, windows);
    ASSERT_EQ(person.said.size(), 1U);
    EXPECT_THAT(person.said[0].text, HasSubstr("Dir.ddq: cannot be saved ("));
    EXPECT_EQ(session.CurrentFile, "Jan.ddq");
}

TEST_F(TableRoad, ATableOfNoKindIsNotSaved) {
    Write("Notes.txt", "Ticker Symbol\r\nIBM\r\n");
    Answer("Notes.txt");
    OpenTableFile(session, OpeningRoad::EndOfDay, windows);
    SaveTableFile(session, windows);
    SaveTableFileAs(session, windows);
    EXPECT_EQ(questions.size(), 1U);
}

TEST(FindTickerRow, FindsTheFirstRowThatBeginsWithTheTypedLetters) {
    QuoteTable table;
    for (const char* line : {"Ticker Symbol", "A", "IBM", "INTC", "intl"}) table.AppendLine(line);
    const std::pair<std::string_view, std::size_t> rows[] = {{"i", 2}, {"in", 3}, {"INTC", 3}, {"intl", 0},
                                                             {"z", 0}, {"", 1},   {"INTCX", 0}};
    for (const auto& [typed, row] : rows) EXPECT_EQ(FindTickerRow(table, typed), row) << typed;
}

}  // namespace
}  // namespace brantlow
