#include "store/days_ahead.h"

#include <array>
#include <filesystem>

#include "store/store_fixture.h"

namespace brantlow {
namespace {

namespace fs = std::filesystem;

// What a ticker has in its file before the run, and the day that comes.
struct Scene {
    const char* before;  // null where there is no file
    const char* date;
    const char* price;
};

constexpr std::string_view kOld =
    "\"03/14/24\",\"16:00\",10,9.5,13,1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,12\r\n";

constexpr std::array<Scene, 9> kScenes = {{
    {kOld.data(), "03/15/24", "11"},            // the next day
    {nullptr, "03/15/24", "11"},                // the first
    {kOld.data(), "03/14/24", "11"},            // the last again, higher
    {kOld.data(), "03/13/24", "11"},            // an older one
    {"\"03/14/24\",\"16:0", "03/15/24", "11"},  // behind half a line
    {kOld.data(), "", "11"},                    // no day
    {kOld.data(), "03/15/x", "11"},             // a day without a year: the file before
    {"", "03/15/24", "11"},                     // an empty file
    {kOld.data(), "03/15/24", "0"},             // no price, made of high and low
}};

class DaysAheadTest : public ::testing::Test {
  protected:
    static std::string TickerOf(std::size_t row) { return "T" + std::to_string(row); }

    void Fill(std::size_t row, const std::string& ticker, const std::string& date, const std::string& price) {
        rows.MakeRoom(row);
        rows.Symbols[row] = ticker;
        rows.TradeDates[row] = date;
        rows.TradeTimes[row] = "17:00";
        rows.LastPrices[row] = price;
        rows.LowPrices[row] = "9.500";
        rows.HighPrices[row] = "13";
        rows.Volumes[row] = "1000";
        rows.OpenPrices[row] = "12";
    }
    void PutOld(const std::string& ticker) { folder.Write("EOD/" + ticker + ".24", kOld); }
    // A run over all rows; the outcomes row by row.
    std::vector<DayOutcome> Store(std::size_t entries, bool isAhead) {
        FileChange change({folder.Root(), "2024-03-15 17:00:00"}, "Test", ChangeKeeps::UntilDone);
        DayRun run{change, YearGrowth::InPlace, {}, {}};
        std::vector<DayOutcome> outcomes;
        {
            DayStore state;
            std::optional<DaysAhead> ahead;
            if (isAhead) ahead.emplace(quotes, rows, entries, run);
            for (std::size_t row = 1; row <= entries; ++row) {
                ReadYear* const read = ahead ? ahead->Of(row) : nullptr;
                readAhead += read != nullptr ? 1 : 0;
                outcomes.push_back(StoreDay(quotes, rows, row, state, run, read).outcome);
            }
        }
        EXPECT_FALSE(change.Commit());
        listed = run.listed;
        halfLines = run.halfLines;
        return outcomes;
    }
    std::string File(const std::string& ticker) const { return folder.Read("EOD/" + ticker + ".24"); }

    TestFolder folder;
    std::string quotes = folder.Folder("EOD");
    QuoteArrays rows;
    std::size_t readAhead = 0;
    std::string listed;
    std::vector<Path> halfLines;
};

// Lines of days long past.
std::string Days(std::size_t count) {
    std::string days;
    for (std::size_t i = 0; i < count; ++i)
        days += "\"01/02/24\",\"16:00\",10,9.5,13,1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0," + std::to_string(i) +
                "\r\n";
    return days;
}
// None; as many that the file's end is read alone; as many that more than its end is read.
constexpr std::array<std::size_t, 3> kDaysBefore = {0, 90, 300};

TEST_F(DaysAheadTest, EveryKindOfDayIsStoredAsInItsTurn) {
    constexpr std::size_t kRows = 200;
    for (const std::size_t count : kDaysBefore) {
        std::array<std::vector<std::string>, 2> files;
        std::array<std::vector<DayOutcome>, 2> outcomes;
        std::array<std::string, 2> lists;
        const std::string days = Days(count);
        readAhead = 0;
        for (const bool isAhead : {false, true}) {
            for (std::size_t row = 1; row <= kRows; ++row) {
                // Neighbours differ from one block to the next.
                const Scene& scene = kScenes[(row * row + row / 16) % kScenes.size()];
                const Path file = Path(quotes) / (TickerOf(row) + ".24");
                fs::remove(file);
                if (scene.before != nullptr)
                    folder.Write("EOD/" + TickerOf(row) + ".24", days + scene.before);
                Fill(row, TickerOf(row), scene.date, scene.price);
            }
            outcomes[isAhead] = Store(kRows, isAhead);
            lists[isAhead] = listed;
            EXPECT_FALSE(halfLines.empty());
            for (std::size_t row = 1; row <= kRows; ++row) files[isAhead].push_back(File(TickerOf(row)));
        }
        EXPECT_GT(readAhead, kRows / 2) << count;
        EXPECT_EQ(outcomes[true], outcomes[false]) << count;
        EXPECT_EQ(lists[true], lists[false]) << count;
        EXPECT_EQ(files[true], files[false]) << count;
    }
}

TEST_F(DaysAheadTest, ARowWithoutAYearGoesOnWithTheWholeFileBeforeIt) {
    for (const std::size_t count : kDaysBefore) {
        std::array<std::string, 2> files;
        for (const bool isAhead : {false, true}) {
            folder.Write("EOD/T1.24", Days(count) + std::string(kOld).replace(0, 10, "\"x\""));
            Fill(1, "T1", "03/13/24", "11");
            Fill(2, "", "03/15/24", "11");
            // Its text is that of the last day, its price higher: it takes that day's place.
            Fill(3, "T3", "x", "11");
            Fill(4, "T4", "03/15/24", "11");
            PutOld("T4");
            EXPECT_EQ(Store(4, isAhead),
                      (std::vector<DayOutcome>{DayOutcome::Unchanged, DayOutcome::Skipped,
                                               DayOutcome::Replaced, DayOutcome::Appended}))
                << count;
            files[isAhead] = File("T1");
        }
        EXPECT_EQ(files[true], files[false]) << count;
        EXPECT_THAT(files[true], ::testing::StartsWith(Days(count)));
    }
}

TEST_F(DaysAheadTest, TheLastFileOfARunIsKeptWhole) {
    const std::string before = Days(200) + std::string(kOld);
    for (const char* ticker : {"T1", "T2"}) folder.Write("EOD/" + std::string(ticker) + ".24", before);
    Fill(1, "T1", "03/15/24", "11");
    Fill(2, "T2", "03/15/24", "11");
    Fill(3, "T3", "", "11");
    FileChange change({folder.Root(), "2024-03-15 17:00:00"}, "Test", ChangeKeeps::UntilDone);
    DayRun run{change, YearGrowth::InPlace, {}, {}};
    DayStore state;
    std::size_t firstRead = 0;
    DaysAhead ahead(quotes, rows, 3, run);
    for (std::size_t row = 1; row <= 3; ++row) {
        ReadYear* const read = ahead.Of(row);
        EXPECT_EQ(read != nullptr, row < 3);
        StoreDay(quotes, rows, row, state, run, read);
        if (row == 1) firstRead = state.used;
    }
    EXPECT_LT(firstRead, before.size());
    EXPECT_EQ(state.Bytes(), before);
    EXPECT_EQ(state.HistoryCount(), 201U);
}

TEST_F(DaysAheadTest, AFileWhoseLastLineBeginsBeforeItsEndIsReadInItsTurn) {
    const std::string time(5000, '1');
    const std::string before = Days(1) + "\"03/14/24\",\"" + time +
                               std::string(kOld).substr(std::string_view("\"03/14/24\",\"16:00").size());
    for (const char* ticker : {"T1", "T2"}) folder.Write("EOD/" + std::string(ticker) + ".24", before);
    Fill(1, "T1", "03/15/24", "11");
    Fill(2, "T2", "03/15/24", "11");
    EXPECT_EQ(Store(2, true), (std::vector<DayOutcome>{DayOutcome::Appended, DayOutcome::Appended}));
    EXPECT_EQ(readAhead, 1U);
    EXPECT_THAT(File("T1"), ::testing::StartsWith(before));
}

TEST_F(DaysAheadTest, AFileOfMoreLinesThanCountIsReadInItsTurn) {
    // 18,001 lines, most of them empty.
    const std::string before = std::string(kMostRows, '\n') + std::string(kOld);
    for (const char* ticker : {"T1", "T2"}) folder.Write("EOD/" + std::string(ticker) + ".24", before);
    Fill(1, "T1", "03/15/24", "11");
    Fill(2, "T2", "03/15/24", "11");
    const std::array<std::vector<DayOutcome>, 2> outcomes = {Store(2, false), Store(2, true)};
    EXPECT_EQ(readAhead, 1U);
    EXPECT_EQ(outcomes[1], outcomes[0]);
}

TEST_F(DaysAheadTest, ATickerOfTheSameBlockIsReadAgain) {
    PutOld("T1");
    Fill(1, "T1", "03/15/24", "11");
    Fill(2, "T1", "03/15/24", "12");
    Fill(3, "T1", "03/18/24", "13");
    EXPECT_EQ(Store(3, true),
              (std::vector<DayOutcome>{DayOutcome::Appended, DayOutcome::Replaced, DayOutcome::Appended}));
    EXPECT_EQ(readAhead, 1U);
    const std::string rest = ",9.5,13,1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,12\r\n";
    EXPECT_EQ(File("T1"),
              std::string(kOld) + "\"03/15/24\",\"17:00\",12" + rest + "\"03/18/24\",\"17:00\",13" + rest);
}

TEST_F(DaysAheadTest, ATickerOfALaterBlockIsReadAgain) {
    constexpr std::size_t kRows = 40;
    for (std::size_t row = 1; row <= kRows; ++row) {
        PutOld(TickerOf(row));
        Fill(row, TickerOf(row), "03/15/24", "11");
    }
    Fill(kRows, "T1", "03/18/24", "13");
    const std::vector<DayOutcome> outcomes = Store(kRows, true);
    EXPECT_EQ(readAhead, kRows - 1);
    EXPECT_EQ(outcomes, std::vector<DayOutcome>(kRows, DayOutcome::Appended));
    const std::string rest = ",9.5,13,1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,12\r\n";
    EXPECT_EQ(File("T1"),
              std::string(kOld) + "\"03/15/24\",\"17:00\",11" + rest + "\"03/18/24\",\"17:00\",13" + rest);
}

TEST_F(DaysAheadTest, AFileThatIsToBeReplacedIsReadFromItsNewBytes) {
    const std::string rest = ",9.5,13,1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,12\r\n";
    // In the same block, and in a later one.
    for (const std::size_t last : {2U, 40U}) {
        for (std::size_t row = 1; row <= last; ++row) {
            PutOld(TickerOf(row));
            Fill(row, TickerOf(row), "03/15/24", "11");
        }
        Fill(1, "T1", "03/14/24", "12");
        Fill(last, "T1", "03/18/24", "13");
        const std::vector<DayOutcome> outcomes = Store(last, true);
        EXPECT_EQ(outcomes.front(), DayOutcome::Replaced);
        EXPECT_EQ(outcomes.back(), DayOutcome::Appended);
        EXPECT_EQ(File("T1"), "\"03/14/24\",\"17:00\",12" + rest + "\"03/18/24\",\"17:00\",13" + rest)
            << last;
    }
}

TEST_F(DaysAheadTest, ASecondNameOfAFileThatGrewIsReadAgain) {
    PutOld("T1");
    fs::create_symlink(Path(quotes) / "T1.24", Path(quotes) / "T2.24");
    Fill(1, "T1", "03/15/24", "11");
    Fill(2, "T2", "03/15/24", "11");
    EXPECT_EQ(Store(2, true), (std::vector<DayOutcome>{DayOutcome::Appended, DayOutcome::Unchanged}));
    EXPECT_EQ(readAhead, 1U);
}

// The first name is read in its turn, since its last line is too long for an end; the second whole, before.
TEST_F(DaysAheadTest, ASecondNameOfAFileThatGrewInItsTurnIsReadAgain) {
    const std::string before = Days(1) + "\"03/14/24\",\"" + std::string(5000, '1') +
                               std::string(kOld).substr(std::string_view("\"03/14/24\",\"16:00").size());
    folder.Write("EOD/T1.24", before);
    fs::create_symlink(Path(quotes) / "T1.24", Path(quotes) / "T2.24");
    Fill(1, "T1", "03/15/24", "11");
    Fill(2, "T2", "03/15/24", "11");
    EXPECT_EQ(Store(2, true), (std::vector<DayOutcome>{DayOutcome::Appended, DayOutcome::Unchanged}));
    EXPECT_EQ(readAhead, 0U);
}

TEST_F(DaysAheadTest, AFileThatCannotBeReadFailsInItsTurn) {
    folder.Folder("EOD/T1.24");
    PutOld("T2");
    Fill(1, "T1", "03/15/24", "11");
    Fill(2, "T2", "03/15/24", "11");
    EXPECT_EQ(Store(2, true), (std::vector<DayOutcome>{DayOutcome::Failed, DayOutcome::Appended}));
    EXPECT_EQ(listed, "\"T2\"\r\n");
}

TEST_F(DaysAheadTest, ARunThatBreaksOffInABlockGoesBackToEveryLength) {
    constexpr std::size_t kRows = 20;
    for (std::size_t row = 1; row <= kRows; ++row) {
        PutOld(TickerOf(row));
        Fill(row, TickerOf(row), "03/15/24", "11");
    }
    {
        FileChange change({folder.Root(), "2024-03-15 17:00:00"}, "Test", ChangeKeeps::UntilDone);
        DayRun run{change, YearGrowth::InPlace, {}, {}};
        DayStore state;
        DaysAhead ahead(quotes, rows, kRows, run);
        for (std::size_t row = 1; row <= kRows - 2; ++row)
            EXPECT_EQ(StoreDay(quotes, rows, row, state, run, ahead.Of(row)).outcome, DayOutcome::Appended);
    }
    for (std::size_t row = 1; row <= kRows; ++row) EXPECT_EQ(File(TickerOf(row)), kOld) << row;
}

}  // namespace
}  // namespace brantlow
