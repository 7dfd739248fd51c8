// Days that were missed, on their way from a live source into the database.
#include "daily/live_update.h"

#include "acquire/feeds/live/source_fixture.h"
#include "store/year_growth.h"

namespace brantlow {
namespace {

std::string LineOfDay(const std::string& date, int close) {
    const std::string price = std::to_string(close);
    return "\"" + date + "\",\"\"," + price + "," + price + "," + price +
           ",5,0,0,0,0,0,\"\",\"\",0,0,0,0,0," + price + "\r\n";
}

SourceBar BarOf(std::chrono::sys_days day, double price) {
    SourceBar bar;
    bar.day = day;
    bar.open = bar.high = bar.low = bar.close = price;
    bar.volume = 5;
    return bar;
}

class MissedDaysTest : public SourceTest {
  protected:
    Failure Store() {
        const LiveSources sources{world, &Source("massive"), nullptr, nullptr};
        return StoreMissedDays(sources, update, halfLines);
    }
    static MissedDays Missed(const std::string& ticker) {
        return {ticker, {BarOf(DayOf(2025, 12, 31), 11), BarOf(DayOf(2026, 1, 2), 12)}, {}};
    }

    LiveUpdate update;
    std::vector<Path> halfLines;
    const Path lastYear = "Quotes/EOD/KO.25";
    const Path thisYear = "Quotes/EOD/KO.26";
};

TEST_F(MissedDaysTest, EnterTheFilesOfTheirYears) {
    Write(lastYear, LineOfDay("12/30/25", 10));
    update.missed = {Missed("KO")};
    EXPECT_FALSE(Store());
    EXPECT_EQ(Read(lastYear), LineOfDay("12/30/25", 10) + LineOfDay("12/31/25", 11));
    EXPECT_EQ(Read(thisYear), LineOfDay("01/02/26", 12));
    EXPECT_TRUE(halfLines.empty());
    EXPECT_EQ(update.stored, 2U);
    // They are in the database as the day behind them will be: nothing of their own to undo.
    EXPECT_TRUE(FileNamesIn(folder / "Back Up/Undo").empty());
}

TEST_F(MissedDaysTest, ADayWithoutAPriceIsLeftOut) {
    update.missed = {{"KO", {BarOf(DayOf(2026, 1, 2), 12), BarOf(DayOf(2026, 1, 5), 0)}, {}}};
    EXPECT_FALSE(Store());
    EXPECT_EQ(Read(thisYear), LineOfDay("01/02/26", 12));
    EXPECT_EQ(update.stored, 1U);
}

TEST_F(MissedDaysTest, AHalfLineIsCutAndTold) {
    Write(lastYear, LineOfDay("12/30/25", 10) + "\"12/31/25\",\"\",1");
    update.missed = {Missed("KO")};
    EXPECT_FALSE(Store());
    EXPECT_EQ(Read(lastYear), LineOfDay("12/30/25", 10) + LineOfDay("12/31/25", 11));
    ASSERT_EQ(halfLines.size(), 1U);
    EXPECT_EQ(halfLines.front(), folder / lastYear);
}

// A folder in the place of the second ticker's file: what the first one had is as it was.
TEST_F(MissedDaysTest, OneFileThatCannotBeWrittenLeavesAllAsTheyWere) {
    Write(lastYear, LineOfDay("12/30/25", 10));
    std::filesystem::create_directories(folder / "Quotes/EOD/PEP.25");
    update.missed = {Missed("KO"), Missed("PEP")};
    const Failure fault = Store();
    EXPECT_EQ(fault.file, folder / "Quotes/EOD/PEP.25");
    EXPECT_EQ(fault.cause, std::errc::is_a_directory);
    EXPECT_FALSE(fault.isHalfDone);
    EXPECT_EQ(update.stored, 0U);
    EXPECT_EQ(Read(lastYear), LineOfDay("12/30/25", 10));
    EXPECT_FALSE(IsRegularFile(folder / thisYear));
}

// Beyond so many tickers files grow in place; they are taken back by their lengths.
TEST_F(MissedDaysTest, OfManyTickersOneFaultTakesAllBack) {
    Write(lastYear, LineOfDay("12/30/25", 10));
    update.missed = {Missed("KO")};
    for (std::size_t i = 0; i < kMostReplacedYears; ++i)
        update.missed.push_back(Missed("T" + std::to_string(i)));
    std::filesystem::create_directories(folder / "Quotes/EOD/T99.26");
    EXPECT_EQ(Store().file, folder / "Quotes/EOD/T99.26");
    EXPECT_EQ(Read(lastYear), LineOfDay("12/30/25", 10));
    EXPECT_EQ(FileNamesIn(folder / "Quotes/EOD"), std::vector<std::string>{"KO.25"});
    std::filesystem::remove(folder / "Quotes/EOD/T99.26");
    EXPECT_FALSE(Store());
    EXPECT_EQ(Read(lastYear), LineOfDay("12/30/25", 10) + LineOfDay("12/31/25", 11));
    EXPECT_EQ(Read("Quotes/EOD/T99.26"), LineOfDay("01/02/26", 12));
}

}  // namespace
}  // namespace brantlow
