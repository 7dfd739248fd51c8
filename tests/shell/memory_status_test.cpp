#include "shell/memory_status.h"

#include <gtest/gtest.h>

#include <string>

#include "support/recording_person.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

std::string Meminfo(const std::string& total, const std::string& available, const std::string& swapTotal,
                    const std::string& swapFree) {
    return "MemTotal:       " + total + " kB\nMemFree:          17 kB\nMemAvailable:   " + available +
           " kB\nSwapCached:        5 kB\nSwapTotal:      " + swapTotal + " kB\nSwapFree:       " + swapFree +
           " kB\nVmallocTotal:   34359738367 kB\n";
}

TEST(MemoryStatus, MainMemoryAndSwapSpaceTogetherAreThePageFile) {
    const auto status = ParseMemoryStatus(Meminfo("8000000", "3000000", "2000000", "1500000"));
    ASSERT_TRUE(status);
    EXPECT_EQ(status->totalPageFile, 10000000U);
    EXPECT_EQ(status->availablePageFile, 4500000U);
    EXPECT_DOUBLE_EQ(PercentAvailable(*status), 45);
}

TEST(MemoryStatus, MissingSwapFiguresAreNoSwapSpace) {
    const auto status = ParseMemoryStatus("MemTotal: 400 kB\nMemAvailable: 100 kB");
    ASSERT_TRUE(status);
    EXPECT_EQ(status->totalPageFile, 400U);
    EXPECT_EQ(status->availablePageFile, 100U);
}

TEST(MemoryStatus, UnreadableFiguresAreNoStatus) {
    for (const char* text :
         {"", "MemTotal: 400 kB\n", "MemAvailable: 400 kB\n", "MemTotal: x kB\nMemAvailable: 4 kB\n",
          "MemTotal: 0 kB\nMemAvailable: 0 kB\n", "MemTotal\nMemAvailable\n",
          "MemTotal: 99999999999999999999999 kB\nMemAvailable: 4 kB\n", "XMemTotal: 4\nXMemAvailable: 4\n"}) {
        EXPECT_FALSE(ParseMemoryStatus(text)) << text;
    }
}

TEST(MemoryLook, IsTakenAnewWhenItIsAHundredthOfASecondOld) {
    using std::chrono::microseconds;
    const TempFolder folder;
    const Path file = folder / "meminfo";
    MemoryLook look(file);
    const MemoryLook::TimePoint start(std::chrono::hours(1));
    // What is not there is looked for each time.
    EXPECT_EQ(look.At(start), "");
    ASSERT_FALSE(WriteWholeFile(file, "one"));
    EXPECT_EQ(look.At(start), "one");
    ASSERT_FALSE(WriteWholeFile(file, "two"));
    EXPECT_EQ(look.At(start + microseconds(9999)), "one");
    EXPECT_EQ(look.At(start + microseconds(10000)), "two");
    ASSERT_FALSE(WriteWholeFile(file, "three"));
    // Its age counts from the last look.
    EXPECT_EQ(look.At(start + microseconds(19999)), "two");
    EXPECT_EQ(look.At(start + microseconds(20000)), "three");
}

TEST(MemoryStatus, ReadsThisMachine) {
    const auto status = ParseMemoryStatus(ReadMemoryInfo());
    ASSERT_TRUE(status);
    EXPECT_GT(status->availablePageFile, 0U);
    EXPECT_LE(status->availablePageFile, status->totalPageFile);
}

TEST(WatchMemory, StopsAt54PercentAndGoesOnAt55) {
    struct Row {
        const char* available;
        const char* swapFree;
        const char* word;
    };
    constexpr Row kRows[] = {{"54", "0", "True"}, {"55", "0", "False"}, {"50", "5", "False"},
                             {"50", "4", "True"}, {"0", "0", "True"},   {"900", "100", "False"}};
    for (const Row& row : kRows) {
        RecordingPerson person;
        RunControl run;
        BeginRun(run);
        WatchMemory(Meminfo("900", row.available, "100", row.swapFree), run, person);
        EXPECT_EQ(run.ProcessCommand, row.word) << row.available;
        EXPECT_EQ(person.said.size(), run.ProcessCommand == "True" ? 1U : 0U) << row.available;
    }
}

TEST(WatchMemory, WarnsInItsOwnWords) {
    RecordingPerson person;
    RunControl run;
    WatchMemory(Meminfo("1000", "10", "0", "0"), run, person);
    ASSERT_EQ(person.said.size(), 1U);
    EXPECT_EQ(person.said[0].title, "Memory Monitor");
    EXPECT_EQ(
        person.said[0].text,
        "Low Memory Warning\n\n"
        "You are experiencing low memory, and you will need to restart Brantlow. Before restarting, you "
        "will need to save your work.\n\n"
        "To prevent this issue from reocurring, you may simply increase the size of your virtual memory, "
        "or decrease the quote file size. As a last resort, you can install additional RAM.");
}

TEST(WatchMemory, UnreadableFiguresStopNothing) {
    RecordingPerson person;
    RunControl run;
    BeginRun(run);
    WatchMemory("", run, person);
    EXPECT_EQ(run.ProcessCommand, "False");
    EXPECT_TRUE(person.said.empty());
}

}  // namespace
}  // namespace brantlow
