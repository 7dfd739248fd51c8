#include "store/day_store.h"

#include <optional>

#include "store/days_ahead.h"
#include "store/store_fixture.h"
#include "store/update_list.h"

namespace brantlow {
namespace {

using namespace std::string_literals;

// A record's line as the store writes it for the prices of Row below.
std::string LineOfDay(const std::string& date, const std::string& time, const std::string& close) {
    return "\"" + date + "\",\"" + time + "\"," + close + ",9.5,13,1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,12\r\n";
}

class StoreDayFixture : public ::testing::Test {
  protected:
    void SetUp() override { rows.MakeRoom(2); }

    void Fill(const std::string& ticker, const std::string& date, const std::string& time,
              const std::string& price, std::size_t row = 1) {
        rows.Symbols[row] = ticker;
        rows.TradeDates[row] = date;
        rows.TradeTimes[row] = time;
        rows.LastPrices[row] = price;
        rows.LowPrices[row] = "9.500";
        rows.HighPrices[row] = "13";
        rows.Volumes[row] = "1000";
        rows.OpenPrices[row] = "12";
    }
    ChangePlace Place() { return {folder.Root(), "2024-03-15 16:00:00"}; }
    // A run of one day.
    DayOutcome Store(std::size_t row = 1) {
        FileChange change(Place(), "Test", ChangeKeeps::UntilDone);
        DayRun run{change, growth, {}, {}};
        std::optional<DaysAhead> ahead;
        if (isReadAhead && row == 1) ahead.emplace(quotes, rows, 1, run);
        const DayOutcome outcome =
            StoreDay(quotes, rows, row, state, run, ahead ? ahead->Of(1) : nullptr).outcome;
        EXPECT_FALSE(change.Commit());
        listed += run.listed;
        halfLines += run.halfLines.size();
        return outcome;
    }
    DayOutcome Store(const std::string& ticker, const std::string& date, const std::string& time,
                     const std::string& price) {
        Fill(ticker, date, time, price);
        return Store();
    }
    std::string File(const std::string& name) const { return folder.Read("EOD/" + name); }
    void Put(const std::string& name, const std::string& bytes) { folder.Write("EOD/" + name, bytes); }

    TestFolder folder;
    std::string quotes = folder.Folder("EOD");
    QuoteArrays rows;
    DayStore state;
    YearGrowth growth = YearGrowth::Replaced;
    bool isReadAhead = false;
    std::string listed;
    std::size_t halfLines = 0;
};

struct StoreWay {
    const char* name;
    YearGrowth growth;
    bool isReadAhead;
};

// The bytes are the same whichever way a file is read and grows.
class StoreDayTest : public StoreDayFixture, public ::testing::WithParamInterface<StoreWay> {
  protected:
    void SetUp() override {
        StoreDayFixture::SetUp();
        growth = GetParam().growth;
        isReadAhead = GetParam().isReadAhead;
    }
};
INSTANTIATE_TEST_SUITE_P(Growth, StoreDayTest,
                         ::testing::Values(StoreWay{"Replaced", YearGrowth::Replaced, false},
                                           StoreWay{"InPlace", YearGrowth::InPlace, false},
                                           StoreWay{"InPlaceReadAhead", YearGrowth::InPlace, true}),
                         [](const auto& test) { return test.param.name; });

TEST_P(StoreDayTest, TheFirstDayStartsAFile) {
    EXPECT_EQ(Store("IBM", "03/15/24", "16:00", "10.5"), DayOutcome::Appended);
    EXPECT_EQ(File("IBM.24"), LineOfDay("03/15/24", "16:00", "10.5"));
    EXPECT_EQ(listed, "\"IBM\"\r\n");
}

TEST_P(StoreDayTest, ANewDateIsAppended) {
    Store("IBM", "03/15/24", "16:00", "10.5");
    EXPECT_EQ(Store("IBM", "03/18/24", "16:00", "9.8"), DayOutcome::Appended);
    EXPECT_EQ(File("IBM.24"), LineOfDay("03/15/24", "16:00", "10.5") + LineOfDay("03/18/24", "16:00", "9.8"));
}

TEST_P(StoreDayTest, TheFirstDayOfANewYearStartsANewFile) {
    Store("IBM", "12/31/24", "16:00", "10.5");
    EXPECT_EQ(Store("IBM", "01/02/25", "16:00", "11"), DayOutcome::Appended);
    EXPECT_EQ(File("IBM.24"), LineOfDay("12/31/24", "16:00", "10.5"));
    EXPECT_EQ(File("IBM.25"), LineOfDay("01/02/25", "16:00", "11"));
}

struct SecondStore {
    const char* what;
    const char* date;
    const char* time;
    const char* price;
    DayOutcome outcome;

    // The name of its test, the same in every run.
    friend void PrintTo(const SecondStore& row, std::ostream* out) { *out << row.what; }
};

class SecondStoreTest : public StoreDayFixture, public ::testing::WithParamInterface<SecondStore> {};

TEST_P(SecondStoreTest, AfterTheDayBefore) {
    const SecondStore& second = GetParam();
    const std::string older = LineOfDay("03/14/24", "16:00", "10");
    const std::string last = LineOfDay("03/15/24", "12:00", "10.5");
    Put("IBM.24", older + last);
    EXPECT_EQ(Store("IBM", second.date, second.time, second.price), second.outcome) << second.what;
    const std::string record = LineOfDay(second.date, second.time, second.price);
    const std::string expected = second.outcome == DayOutcome::Replaced   ? older + record
                                 : second.outcome == DayOutcome::Appended ? older + last + record
                                                                          : older + last;
    EXPECT_EQ(File("IBM.24"), expected) << second.what;
    EXPECT_EQ(listed, "\"IBM\"\r\n") << second.what;
}

INSTANTIATE_TEST_SUITE_P(
    Store, SecondStoreTest,
    ::testing::Values(
        SecondStore{"earlier and lower", "03/15/24", "11:00", "10", DayOutcome::Unchanged},
        SecondStore{"the same again", "03/15/24", "12:00", "10.5", DayOutcome::Unchanged},
        SecondStore{"same time and higher", "03/15/24", "12:00", "10.6", DayOutcome::Replaced},
        SecondStore{"earlier and higher", "03/15/24", "09:30", "10.6", DayOutcome::Replaced},
        SecondStore{"later and lower", "03/15/24", "12:01", "1", DayOutcome::Replaced},
        SecondStore{"no time and lower", "03/15/24", "", "10", DayOutcome::Unchanged},
        SecondStore{"older date", "03/13/24", "16:00", "99", DayOutcome::Unchanged},
        SecondStore{"the date before the last", "03/14/24", "17:00", "99", DayOutcome::Unchanged},
        SecondStore{"newer date", "03/18/24", "09:30", "1", DayOutcome::Appended},
        SecondStore{"unreadable date of the same year", "x/y/24", "09:30", "1", DayOutcome::Appended}));

TEST_P(StoreDayTest, ANewDateWithoutAPriceIsNotStored) {
    Put("IBM.24", LineOfDay("03/14/24", "16:00", "10"));
    Fill("IBM", "03/15/24", "16:00", "0");
    rows.LowPrices[1] = "0";
    EXPECT_EQ(Store(), DayOutcome::Unchanged);
    rows.LastPrices[1] = "N/A";
    EXPECT_EQ(Store(), DayOutcome::Unchanged);
    EXPECT_EQ(File("IBM.24"), LineOfDay("03/14/24", "16:00", "10"));
}

TEST_P(StoreDayTest, ALaterRecordOfTheSameDayReplacesEvenWithoutAPrice) {
    Put("IBM.24", LineOfDay("03/15/24", "12:00", "10"));
    Fill("IBM", "03/15/24", "16:00", "0");
    rows.LowPrices[1] = "0";
    EXPECT_EQ(Store(), DayOutcome::Replaced);
    EXPECT_EQ(File("IBM.24"), "\"03/15/24\",\"16:00\",0,0,13,1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,12\r\n");
}

TEST_P(StoreDayTest, MissingPricesAreFilledInBeforeTheStore) {
    Fill("IBM", "03/15/24", "", "0");
    rows.OpenPrices[1] = "";
    EXPECT_EQ(Store(), DayOutcome::Appended);
    // Last and open are the middle of 9.5 and 13.
    EXPECT_EQ(File("IBM.24"), "\"03/15/24\",\"\",11.25,9.5,13,1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,11.25\r\n");
    EXPECT_EQ(rows.OpenPrices[1], "11.25");
}

TEST_P(StoreDayTest, EveryFieldTakesItsArrayAndItsRounding) {
    Fill("IBM", "03/15/24", "16:00", "2.0005");
    rows.LowPrices[1] = "3.12345";
    rows.HighPrices[1] = "4.5";
    rows.Volumes[1] = "5.6";
    rows.PeTtm[1] = "6";
    rows.EpsTtm[1] = "7.00049";
    rows.PegValues[1] = "N/A";
    rows.EpsEst[1] = "9";
    rows.Dividends[1] = "10";
    rows.DividendDates[1] = "11/11/24";
    rows.XDividendDates[1] = "12/12/24";
    rows.PreviousCloses[1] = "13";
    rows.Low52[1] = "14";
    rows.High52[1] = "15";
    rows.PsValues[1] = "16";
    rows.MarketCaps[1] = 17.123456789;
    rows.OpenPrices[1] = "18";
    EXPECT_EQ(Store(), DayOutcome::Appended);
    EXPECT_EQ(File("IBM.24"),
              "\"03/15/24\",\"16:00\",2.001,3.123,4.5,6,6,7,0,9,10,\"11/11/24\",\"12/12/24\",13,14,15,16,"
              "17.123456789,18\r\n");
}

TEST_P(StoreDayTest, DeviceNamesAndEmptyTickersAreSkippedAndNotListed) {
    for (const char* ticker : {"AUX", "con.x", "NUL", "prn", ""}) {
        EXPECT_EQ(Store(ticker, "03/15/24", "16:00", "10"), DayOutcome::Skipped) << ticker;
    }
    EXPECT_TRUE(folder.Files().empty());
}

TEST_P(StoreDayTest, ARowWithoutATradeDateIsNeverStored) {
    Put("IBM.24", LineOfDay("", "", "10"));
    Store("IBM", "01/01/24", "", "0");
    EXPECT_EQ(Store("IBM", "", "16:00", "99"), DayOutcome::Skipped);
    EXPECT_EQ(listed, "\"IBM\"\r\n");
    EXPECT_FALSE(File("IBM.24").find("99") != std::string::npos);
}

TEST_P(StoreDayTest, ASkippedRowLeavesTheStateOfTheRowBefore) {
    Store("IBM", "03/15/24", "16:00", "10");
    const auto file = state.file;
    Store("AUX", "03/15/25", "16:00", "10");
    EXPECT_EQ(state.file, file);
}

TEST_P(StoreDayTest, ADateWithoutAYearIsComparedWithTheFileOfTheRowBefore) {
    const std::string last = LineOfDay("03/15/24", "16:00", "10");
    Put("IBM.24", last);
    EXPECT_EQ(Store("IBM", "03/15/24", "16:00", "10"), DayOutcome::Unchanged);
    // Year 00 sorts before the last date of the file before: nothing is written.
    EXPECT_EQ(Store("MSFT", "01/05/00", "16:00", "50"), DayOutcome::Unchanged);
    EXPECT_EQ(state.HistoryCount(), 1U);
    EXPECT_EQ(File("IBM.24"), last);
    // An unreadable date sorts behind it and lands in that file.
    EXPECT_EQ(Store("MSFT", "someday", "16:00", "50"), DayOutcome::Appended);
    EXPECT_EQ(File("IBM.24"), last + LineOfDay("someday", "16:00", "50"));
    EXPECT_EQ(folder.Files(), std::vector<std::string>{"EOD/IBM.24"});
    EXPECT_EQ(listed, "\"IBM\"\r\n\"MSFT\"\r\n\"MSFT\"\r\n");
}

TEST_P(StoreDayTest, ADateWithoutAYearInTheFirstRowHasNoFile) {
    EXPECT_EQ(Store("IBM", "someday", "16:00", "50"), DayOutcome::Unchanged);
    EXPECT_TRUE(folder.Files().empty());
}

TEST_P(StoreDayTest, TheStateIsTheFileAsItWasReadBeforeTheRowWasStored) {
    Store("IBM", "03/15/24", "16:00", "10");
    EXPECT_EQ(state.HistoryCount(), 0U);
    Store("IBM", "03/18/24", "16:00", "10");
    EXPECT_EQ(state.HistoryCount(), 1U);
    EXPECT_EQ(state.last.HistoryDate, "03/15/24");
}

TEST_P(StoreDayTest, AFileWithoutAFinalLineEndGetsOneBeforeTheNewDay) {
    const std::string last = LineOfDay("03/15/24", "16:00", "10");
    Put("IBM.24", last.substr(0, last.size() - 2));
    EXPECT_EQ(Store("IBM", "03/18/24", "16:00", "11"), DayOutcome::Appended);
    EXPECT_EQ(File("IBM.24"), last + LineOfDay("03/18/24", "16:00", "11"));
    EXPECT_EQ(Store("MSFT", "someday", "16:00", "50"), DayOutcome::Appended);
    EXPECT_EQ(File("IBM.24"),
              last + LineOfDay("03/18/24", "16:00", "11") + LineOfDay("someday", "16:00", "50"));
}

TEST_P(StoreDayTest, LinesThatEndInLineFeedAloneAreRead) {
    std::string lines = LineOfDay("03/14/24", "16:00", "9") + LineOfDay("03/15/24", "16:00", "10");
    std::erase(lines, '\r');
    Put("IBM.24", lines);
    EXPECT_EQ(Store("IBM", "03/15/24", "16:30", "11"), DayOutcome::Replaced);
    EXPECT_EQ(File("IBM.24"), LineOfDay("03/14/24", "16:00", "9") + LineOfDay("03/15/24", "16:30", "11"));
}

// Promise `kill`: half a line is never glued to the next record; it is told and cut. One with all its fields
// counts as whole.
TEST_P(StoreDayTest, AFileCutAtAnyByteLosesTheHalfLineToTheNextDay) {
    const std::string first = LineOfDay("03/13/24", "16:00", "9");
    const std::string whole = first + LineOfDay("03/14/24", "16:00", "10");
    const std::string record = LineOfDay("03/18/24", "16:00", "11");
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const std::string left = whole.substr(0, length);
        const std::size_t lines = left.rfind('\n') + 1;
        const std::string last = left.substr(lines);
        const bool isHalf = !last.empty() && std::count(last.begin(), last.end(), ',') < 18;
        Put("IBM.24", left);
        halfLines = 0;
        Store("IBM", "03/18/24", "16:00", "11");
        const std::string bytes = File("IBM.24");
        ASSERT_TRUE(bytes.ends_with(record)) << length;
        const std::string before = bytes.substr(0, bytes.size() - record.size());
        ASSERT_TRUE(before.empty() || before.ends_with("\n")) << length;
        ASSERT_TRUE(before.starts_with(isHalf ? left.substr(0, lines) : left)) << length;
        if (isHalf) {
            ASSERT_EQ(before, left.substr(0, lines)) << length;
        }
        ASSERT_EQ(halfLines, isHalf ? 1U : 0U) << length;
    }
}

TEST_P(StoreDayTest, AFileCutAtAnyByteStillTakesABetterRecordOfItsLastDay) {
    const std::string first = LineOfDay("03/13/24", "16:00", "9");
    const std::string whole = first + LineOfDay("03/14/24", "16:00", "10");
    const std::string record = LineOfDay("03/14/24", "17:00", "11");
    for (std::size_t length = first.size(); length <= whole.size(); ++length) {
        Put("IBM.24", whole.substr(0, length));
        Store("IBM", "03/14/24", "17:00", "11");
        const std::string bytes = File("IBM.24");
        // What is left of the last day is replaced, or stands as a line of its own where its date is cut.
        const std::string left = whole.substr(first.size(), length - first.size());
        const bool replaced = bytes == first + record;
        const bool keptApart = bytes.starts_with(first + left) && bytes.ends_with("\n" + record);
        ASSERT_TRUE(replaced || keptApart) << length << '\n' << bytes;
    }
}

TEST_P(StoreDayTest, JunkInAYearFileStaysOutOfTheWay) {
    const std::string good = LineOfDay("03/13/24", "16:00", "9");
    std::string junk = "\xFF\0\x01 junk \"\"\",,,\r\n"s;
    junk += "a,b,c\r\n" + std::string(300, ',') + "\r\n" + std::string(10'000'000, 'z') + "\r\n";
    Put("IBM.24", junk + good);
    EXPECT_EQ(Store("IBM", "03/14/24", "16:00", "10"), DayOutcome::Appended);
    EXPECT_TRUE(File("IBM.24") == junk + good + LineOfDay("03/14/24", "16:00", "10"));
    EXPECT_EQ(Store("IBM", "03/14/24", "17:00", "11"), DayOutcome::Replaced);
    EXPECT_TRUE(File("IBM.24").ends_with("\r\n" + good + LineOfDay("03/14/24", "17:00", "11")));
}

TEST_P(StoreDayTest, OfAnEndlessFileTheFirstEighteenThousandLinesCount) {
    std::string lines;
    for (std::size_t i = 1; i < kMostRows; ++i) lines += "\n";
    const std::string last = LineOfDay("03/14/24", "16:00", "10");
    Put("IBM.24", lines + last + LineOfDay("03/18/24", "16:00", "12"));
    EXPECT_EQ(Store("IBM", "03/14/24", "17:00", "11"), DayOutcome::Replaced);
    EXPECT_EQ(state.HistoryCount(), kMostRows);
    EXPECT_EQ(state.last.HistoryClose, 10);
    EXPECT_TRUE(File("IBM.24").ends_with("\r\n" + LineOfDay("03/14/24", "17:00", "11")));
}

TEST_P(StoreDayTest, AnEmptyLineAtTheEndIsTheLastRecord) {
    Put("IBM.24", LineOfDay("03/18/24", "16:00", "10") + "\r\n");
    EXPECT_EQ(Store("IBM", "03/15/24", "16:00", "11"), DayOutcome::Appended);
    EXPECT_EQ(state.HistoryCount(), 2U);
}

TEST_P(StoreDayTest, AFolderInPlaceOfAYearFileIsAFailureThatIsTold) {
    folder.Folder("EOD/IBM.24");
    Fill("IBM", "03/15/24", "16:00", "10");
    FileChange change(Place(), "Test", ChangeKeeps::UntilDone);
    DayRun run{change, growth, {}, {}};
    const StoredDay stored = StoreDay(quotes, rows, 1, state, run);
    EXPECT_EQ(stored.outcome, DayOutcome::Failed);
    EXPECT_EQ(stored.error.cause, std::errc::is_a_directory);
    EXPECT_EQ(stored.error.file, Path(quotes + "IBM.24"));
    EXPECT_TRUE(run.listed.empty());
}

TEST_P(StoreDayTest, AMissingFolderIsAFailureThatIsTold) {
    Fill("IBM", "03/15/24", "16:00", "10");
    FileChange change(Place(), "Test", ChangeKeeps::UntilDone);
    DayRun run{change, growth, {}, {}};
    const StoredDay stored = StoreDay(quotes + "none/", rows, 1, state, run);
    EXPECT_EQ(stored.outcome, DayOutcome::Failed);
    EXPECT_TRUE(stored.error);
}

TEST_P(StoreDayTest, ATickerThatNoFileNameCanHoldWritesNoFile) {
    const std::vector<std::string> tickers = {"a/b", "../x", "/etc/x", "..",
                                              ".",   "a\\b", "A\0B"s,  std::string(5000, 'T')};
    for (const std::string& ticker : tickers) {
        EXPECT_EQ(Store(ticker, "03/15/24", "16:00", "10"), DayOutcome::Unchanged) << ticker.substr(0, 20);
        EXPECT_FALSE(state.file) << ticker.substr(0, 20);
    }
    EXPECT_TRUE(folder.Files().empty());
    EXPECT_EQ(Store("*?", "03/15/24", "16:00", "10"), DayOutcome::Appended);
    EXPECT_EQ(File("*?.24"), LineOfDay("03/15/24", "16:00", "10"));
}

TEST_P(StoreDayTest, ADateThatNamesNoFileWritesNone) {
    for (const char* date : {"03/15/5/", "5\\", "1/../9/"}) {
        EXPECT_EQ(Store("IBM", date, "16:00", "10"), DayOutcome::Unchanged) << date;
    }
    EXPECT_TRUE(folder.Files().empty());
}

TEST_P(StoreDayTest, ARunThatIsNotCommittedLeavesEveryFileAsItWas) {
    const std::string old = LineOfDay("03/14/24", "16:00", "9");
    Put("IBM.24", old);
    Put("MSFT.24", old);
    {
        FileChange change(Place(), "Test", ChangeKeeps::UntilDone);
        DayRun run{change, growth, {}, {}};
        Fill("IBM", "03/15/24", "16:00", "10", 1);
        Fill("MSFT", "03/14/24", "17:00", "20", 2);
        EXPECT_EQ(StoreDay(quotes, rows, 1, state, run).outcome, DayOutcome::Appended);
        EXPECT_EQ(StoreDay(quotes, rows, 2, state, run).outcome, DayOutcome::Replaced);
        // The day that was replaced is found by a further row of the ticker.
        Fill("MSFT", "03/15/24", "16:00", "21", 2);
        EXPECT_EQ(StoreDay(quotes, rows, 2, state, run).outcome, DayOutcome::Appended);
        EXPECT_EQ(run.listed, "\"IBM\"\r\n\"MSFT\"\r\n\"MSFT\"\r\n");
    }
    EXPECT_EQ(File("IBM.24"), old);
    EXPECT_EQ(File("MSFT.24"), old);
    EXPECT_EQ(folder.Files(), (std::vector<std::string>{"EOD/IBM.24", "EOD/MSFT.24"}));
}

TEST_P(StoreDayTest, ADayReplacedByAnotherFileIsFoundAgainByARowWithoutAYear) {
    const std::string last = LineOfDay("03/15/24", "12:00", "10");
    Put("IBM.24", last);
    EXPECT_EQ(Store("IBM", "03/15/24", "16:00", "11"), DayOutcome::Replaced);
    EXPECT_EQ(Store("IBM", "someday", "16:00", "50"), DayOutcome::Appended);
    EXPECT_EQ(File("IBM.24"), LineOfDay("03/15/24", "16:00", "11") + LineOfDay("someday", "16:00", "50"));
}

TEST_P(StoreDayTest, EachRowUsesItsOwnEntries) {
    Fill("IBM", "03/15/24", "16:00", "10", 1);
    Fill("MSFT", "03/15/24", "16:00", "20", 2);
    EXPECT_EQ(Store(1), DayOutcome::Appended);
    EXPECT_EQ(Store(2), DayOutcome::Appended);
    EXPECT_EQ(File("MSFT.24"), LineOfDay("03/15/24", "16:00", "20"));
    EXPECT_EQ(listed, "\"IBM\"\r\n\"MSFT\"\r\n");
}

}  // namespace
}  // namespace brantlow
