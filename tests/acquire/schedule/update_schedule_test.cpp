#include "acquire/schedule/update_schedule.h"

#include <gtest/gtest.h>

namespace brantlow {
namespace {

using namespace std::chrono_literals;

constexpr Date kDay = 2026y / 11 / 20;

constexpr double At(int hour, int minute, double second = 0) {
    return hour * 3600.0 + minute * 60.0 + second;
}

SettingsTables RunAt(std::string_view hour, std::string_view minute, std::string_view collection = "EOD") {
    SettingsTables settings;
    settings.DataSettings.Set(9, Value::OfText(collection));
    settings.DataSettings.Set(10, Value::OfText(hour));
    settings.DataSettings.Set(11, Value::OfText(minute));
    return settings;
}

TEST(WaitsForDailyRun, NoneMeansNoWait) {
    EXPECT_FALSE(WaitsForDailyRun(RunAt("09", "30", "None")));
    EXPECT_TRUE(WaitsForDailyRun(RunAt("09", "30")));
    FixedClock clock(kDay, At(9, 29));
    DailyRun run;
    for (int second = 0; second < 300; ++second) {
        clock.Set(kDay, At(9, 29, second));
        EXPECT_FALSE(run.Poll(RunAt("09", "30", "None"), clock));
    }
}

TEST(DailyRunMinute, ComparesByNumber) {
    struct Row {
        const char* hour;
        const char* minute;
        std::optional<int> minuteOfDay;
    };
    const Row kRows[] = {{"09", "30", 570},          {"9", "30", 570},
                         {" 9 ", "030", 570},        {"00", "00", 0},
                         {"23", "59", 1439},         {"24", "00", std::nullopt},
                         {"09", "60", std::nullopt}, {"-1", "0", std::nullopt},
                         {"", "30", std::nullopt},   {"09", "", std::nullopt},
                         {"x", "30", std::nullopt},  {"9.5", "0", std::nullopt},
                         {"1e9", "0", std::nullopt}};
    for (const Row& row : kRows) {
        EXPECT_EQ(DailyRunMinute(RunAt(row.hour, row.minute)), row.minuteOfDay) << row.hour << row.minute;
    }
    EXPECT_EQ(DailyRunMinute(RunAt("09", "30", "None")), std::nullopt);
    EXPECT_EQ(DailyRunMinute(RunAt("09", "30", "")), std::nullopt);
}

TEST(DailyRunMinute, AStoredNumberCountsLikeText) {
    SettingsTables settings = RunAt("", "");
    settings.DataSettings.Set(10, Value::OfNumber(9));
    settings.DataSettings.Set(11, Value::OfNumber(5));
    EXPECT_EQ(DailyRunMinute(settings), 545);
}

TEST(CheckDailyRun, AStoredHourOf09MatchesTheClockAtHalfPastNine) {
    DailyRun run;
    EXPECT_TRUE(run.CheckDailyRun(RunAt("09", "30"), FixedClock(kDay, At(9, 30))));
}

TEST(CheckDailyRun, FiresInItsMinuteOnly) {
    struct Row {
        double seconds;
        bool fires;
    };
    constexpr Row kRows[] = {{At(9, 29, 59.9), false}, {At(9, 30), true},   {At(9, 30, 59.9), true},
                             {At(9, 31), false},       {At(21, 30), false}, {0, false}};
    for (const Row& row : kRows) {
        DailyRun run;
        EXPECT_EQ(run.CheckDailyRun(RunAt("9", "30"), FixedClock(kDay, row.seconds)), row.fires)
            << row.seconds;
    }
}

TEST(CheckDailyRun, FiresOnceADayAMinute) {
    DailyRun run;
    const SettingsTables settings = RunAt("9", "30");
    EXPECT_TRUE(run.CheckDailyRun(settings, FixedClock(kDay, At(9, 30, 0))));
    EXPECT_FALSE(run.CheckDailyRun(settings, FixedClock(kDay, At(9, 30, 59))));
    EXPECT_TRUE(run.CheckDailyRun(RunAt("9", "45"), FixedClock(kDay, At(9, 45)))) << "another minute";
    EXPECT_TRUE(run.CheckDailyRun(settings, FixedClock(AddDays(kDay, 1), At(9, 30)))) << "another day";
}

// How often a run that is polled each second fires over `seconds` from a moment on.
int Firings(const SettingsTables& settings, double from, int seconds) {
    constexpr int kDaySeconds = 86400;
    FixedClock clock(kDay);
    DailyRun run;
    int firings = 0;
    for (int second = 0; second < seconds; ++second) {
        const double now = from + second;
        const int day = static_cast<int>(now) / kDaySeconds;
        clock.Set(AddDays(kDay, day), now - day * kDaySeconds);
        if (run.Poll(settings, clock)) ++firings;
    }
    return firings;
}

TEST(DailyRunPoll, FiresOnceADayWhateverTheMomentOfTheStart) {
    const SettingsTables settings = RunAt("09", "30");
    for (int start = 0; start < 60; ++start) {
        EXPECT_EQ(Firings(settings, At(9, 25, start), 600), 1) << start;
    }
    EXPECT_EQ(Firings(settings, At(9, 25), 2 * 86400), 2);
    EXPECT_EQ(Firings(settings, At(9, 31), 600), 0);
}

TEST(DailyRunPoll, AWaitAcrossMidnightDoesNotHang) {
    for (int start = 0; start < 60; ++start) {
        EXPECT_EQ(Firings(RunAt("00", "00"), At(23, 57, start), 400), 1) << start;
        EXPECT_EQ(Firings(RunAt("00", "02"), At(23, 58, start), 400), 1) << start;
    }
}

TEST(DailyRunPoll, LooksAfter59Seconds) {
    FixedClock clock(kDay, At(9, 30, 0));
    DailyRun run;
    const SettingsTables settings = RunAt("9", "30");
    EXPECT_FALSE(run.Poll(settings, clock));
    clock.Set(kDay, At(9, 30, 58.9));
    EXPECT_FALSE(run.Poll(settings, clock));
    clock.Set(kDay, At(9, 30, 59));
    EXPECT_TRUE(run.Poll(settings, clock));
}

TEST(DailyRunPoll, AClockSetBackEndsTheWait) {
    FixedClock clock(kDay, At(12, 0));
    DailyRun run;
    EXPECT_FALSE(run.Poll(RunAt("9", "30"), clock));
    clock.Set(kDay, At(9, 30));
    EXPECT_TRUE(run.Poll(RunAt("9", "30"), clock));
    clock.Set(AddDays(kDay, -3), At(9, 30));
    EXPECT_TRUE(run.Poll(RunAt("9", "30"), clock));
}

TEST(DailyRunPoll, TheOptionTurnedOffAndOnStartsAWaitAnew) {
    FixedClock clock(kDay, At(9, 29, 30));
    DailyRun run;
    EXPECT_FALSE(run.Poll(RunAt("9", "30"), clock));
    clock.Set(kDay, At(9, 30, 20));
    EXPECT_FALSE(run.Poll(RunAt("9", "30", "None"), clock));
    clock.Set(kDay, At(9, 30, 40));
    EXPECT_FALSE(run.Poll(RunAt("9", "30"), clock));
}

TEST(TurnOnDailyRun, SetsLines10And11InTheTable) {
    SettingsTables settings = RunAt("", "", "None");
    EXPECT_TRUE(TurnOnDailyRun("16", "05", settings));
    EXPECT_EQ(settings.DataSettings.Text(9), "None");
    EXPECT_EQ(settings.DataSettings.Text(10), "16");
    EXPECT_EQ(settings.DataSettings.Text(11), "05");
}

TEST(TurnOnDailyRun, ChangesNothingWhenTheRunIsOnOrATimeIsMissing) {
    struct Row {
        const char* collection;
        const char* hour;
        const char* minute;
    };
    constexpr Row kRows[] = {{"EOD", "16", "05"}, {"None", "", "05"}, {"None", "16", ""}, {"", "", ""}};
    for (const Row& row : kRows) {
        SettingsTables settings = RunAt("1", "2", row.collection);
        EXPECT_FALSE(TurnOnDailyRun(row.hour, row.minute, settings)) << row.collection;
        EXPECT_EQ(settings.DataSettings.Text(10), "1");
        EXPECT_EQ(settings.DataSettings.Text(11), "2");
    }
}

TEST(SetDailyRun, WritesTwoDigits) {
    SettingsTables settings;
    SetDailyRun(9 * 60 + 5, settings);
    EXPECT_EQ(settings.DataSettings.Text(9), "EOD");
    EXPECT_EQ(settings.DataSettings.Text(10), "09");
    EXPECT_EQ(settings.DataSettings.Text(11), "05");
    EXPECT_EQ(DailyRunMinute(settings), 545);
}

TEST(DailyRunPoll, AMinuteThatTheMachineSleptThroughIsMadeUp) {
    FixedClock clock(kDay, At(9, 0));
    DailyRun run;
    const SettingsTables settings = RunAt("9", "30");
    EXPECT_FALSE(run.Poll(settings, clock));
    clock.Set(kDay, At(14, 7));
    EXPECT_TRUE(run.Poll(settings, clock));
    clock.Set(kDay, At(14, 9));
    EXPECT_FALSE(run.Poll(settings, clock)) << "once";
    clock.Set(AddDays(kDay, 1), At(9, 30));
    EXPECT_TRUE(run.Poll(settings, clock)) << "the next day has its own";
}

TEST(DailyRunPoll, DaysThatWereMissedAreMadeUpByOneRun) {
    FixedClock clock(kDay, At(9, 0));
    DailyRun run;
    const SettingsTables settings = RunAt("9", "30");
    EXPECT_FALSE(run.Poll(settings, clock));
    clock.Set(AddDays(kDay, 3), At(8, 0));
    EXPECT_TRUE(run.Poll(settings, clock));
    clock.Set(AddDays(kDay, 3), At(8, 2));
    EXPECT_FALSE(run.Poll(settings, clock));
    clock.Set(AddDays(kDay, 3), At(9, 30));
    EXPECT_TRUE(run.Poll(settings, clock));
}

TEST(DailyRunPoll, AMinuteBeforeTheProgramWasOpenIsNotMadeUp) {
    FixedClock clock(kDay, At(9, 30, 5));
    DailyRun run;
    const SettingsTables settings = RunAt("9", "30");
    EXPECT_FALSE(run.Poll(settings, clock));
    clock.Set(kDay, At(9, 31, 4));
    EXPECT_FALSE(run.Poll(settings, clock));
}

TEST(DailyRunPoll, AMinuteThatIsChosenOnceItHasPassedIsNotMadeUp) {
    FixedClock clock(kDay, At(9, 0));
    DailyRun run;
    EXPECT_FALSE(run.Poll(RunAt("9", "10"), clock));
    clock.Set(kDay, At(9, 5));
    EXPECT_FALSE(run.Poll(RunAt("9", "10"), clock));
    clock.Set(kDay, At(9, 9));
    EXPECT_FALSE(run.Poll(RunAt("9", "8"), clock));
    clock.Set(AddDays(kDay, 1), At(9, 8));
    EXPECT_TRUE(run.Poll(RunAt("9", "8"), clock));
}

TEST(DailyRunAskForToday, AMinuteThatHasPassedBeforeTheProgramWasOpenIsMadeUpOnceItIsAskedFor) {
    FixedClock clock(kDay, At(9, 40));
    DailyRun run;
    const SettingsTables settings = RunAt("9", "30");
    EXPECT_FALSE(run.Poll(settings, clock));
    EXPECT_EQ(run.AskForToday(settings, clock), DailyRun::Today::Comes);
    EXPECT_TRUE(run.Poll(settings, clock)) << "at the next look";
    EXPECT_EQ(run.AskForToday(settings, clock), DailyRun::Today::Over);
    clock.Set(kDay, At(9, 45));
    EXPECT_FALSE(run.Poll(settings, clock));
}

TEST(DailyRunAskForToday, ARunThatIsStillToComeBeginsInItsMinute) {
    FixedClock clock(kDay, At(9, 25));
    DailyRun run;
    const SettingsTables settings = RunAt("9", "30");
    EXPECT_FALSE(run.Poll(settings, clock));
    EXPECT_EQ(run.AskForToday(settings, clock), DailyRun::Today::Comes);
    clock.Set(kDay, At(9, 26, 30));
    EXPECT_FALSE(run.Poll(settings, clock));
    clock.Set(kDay, At(9, 30, 10));
    EXPECT_TRUE(run.Poll(settings, clock));
}

TEST(DailyRunAskForToday, WithoutAChosenMinuteThereIsNothingToWaitFor) {
    DailyRun run;
    const FixedClock clock(kDay, At(9, 25));
    EXPECT_EQ(run.AskForToday(RunAt("9", "30", "None"), clock), DailyRun::Today::NotChosen);
    EXPECT_EQ(run.AskForToday(RunAt("", ""), clock), DailyRun::Today::NotChosen);
}

}  // namespace
}  // namespace brantlow
