#include "shell/run_outlook.h"

#include <gtest/gtest.h>

namespace brantlow {
namespace {

TEST(RunOutlook, SaysWhatHowFarAndHowLongYet) {
    struct Row {
        RunSight sight;
        const char* line;
    };
    const Row rows[] = {
        {{"", "", 0, 0}, "Working"},
        {{"Updating", "AAPL", 0, 10}, "Updating AAPL"},
        {{"Updating", "", 0.5, 60}, "Updating: 50 % done, about 1 minute left"},
        {{"Updating", "AAPL", 0.4, 120}, "Updating AAPL: 40 % done, about 3 minutes left"},
        {{"Updating", "AAPL", 0.5, 59}, "Updating AAPL: 50 % done, less than a minute left"},
        {{"Updating", "AAPL", 0.5, 2.9}, "Updating AAPL: 50 % done"},
        {{"Updating", "AAPL", 0.019, 600}, "Updating AAPL: 1 % done"},
        {{"Updating", "AAPL", 0.1, 3600}, "Updating AAPL: 10 % done, about 9 hours left"},
        {{"Updating", "AAPL", 0.5, 7199}, "Updating AAPL: 50 % done, about 120 minutes left"},
        {{"Updating", "AAPL", 0.999, 100}, "Updating AAPL: 99 % done, less than a minute left"},
        {{"Updating", "AAPL", 1, 100}, "Updating AAPL: 100 % done"},
        {{"Updating", "AAPL", 7, 100}, "Updating AAPL: 100 % done"},
        {{"5 s left", "", 0.6, 8}, "Working: 60 % done, less than a minute left"},
        {{"12", "AAPL", 0.4, 120}, "Row 12, AAPL: 40 % done, about 3 minutes left"},
    };
    for (const Row& row : rows) EXPECT_EQ(RunOutlook(row.sight), row.line);
}

TEST(RunClock, StandsStillWithTheRun) {
    RunClock clock;
    clock.Begin(1'000'000);
    EXPECT_EQ(clock.Seconds(1'000'000), 0);
    EXPECT_EQ(clock.Seconds(1'012'500), 12.5);
    clock.StandStill(1'020'000);
    clock.StandStill(1'030'000);
    EXPECT_EQ(clock.Seconds(4'000'000), 20);
    clock.GoOn(5'000'000);
    clock.GoOn(5'005'000);
    EXPECT_EQ(clock.Seconds(5'010'000), 30);
    clock.StandStill(5'010'000);
    clock.GoOn(5'090'000);
    EXPECT_EQ(clock.Seconds(5'091'000), 31);
}

TEST(RunClock, ARunThatEndedWhileItStoodStillLeavesNothingToTheNext) {
    RunClock clock;
    clock.Begin(0);
    clock.StandStill(5'000);
    clock.Begin(60'000);
    EXPECT_EQ(clock.Seconds(61'000), 1);
}

TEST(RunOutlook, APauseIsAcknowledgedAtOnce) {
    EXPECT_EQ(PausingSentence("AAPL"), "Pausing after AAPL");
    EXPECT_EQ(PausingSentence(""), "Pausing");
    EXPECT_EQ(EndingSentence("AAPL"), "Ending after AAPL");
    EXPECT_EQ(EndingSentence(""), "Ending");
}

}  // namespace
}  // namespace brantlow
