#include "acquire/schedule/scheduled_start.h"

#include <gtest/gtest.h>

namespace brantlow {
namespace {

using Days = std::array<bool, 7>;
constexpr Days kNoDay{};
constexpr Days kWeekend = {false, false, false, false, false, true, true};

const StartedProgram kProgram = {"/opt/b/brantlow", "/home/a/Brantlow", {}};

TEST(ParseDays, TakesNamesInAnyOrderAndCase) {
    EXPECT_EQ(ParseDays("mon,tue,wed,thu,fri"), kMondayToFriday);
    EXPECT_EQ(ParseDays("SUN, Sat"), kWeekend);
    EXPECT_EQ(ParseDays("sat,sun,sat"), kWeekend);
    for (const char* bad : {"", "mon,", ",mon", "monday", "mon tue", "mon;tue", "1", "mon,xyz"}) {
        EXPECT_EQ(ParseDays(bad), std::nullopt) << bad;
    }
}

TEST(ParseDays, KnowsEachDay) {
    constexpr const char* kNames[] = {"mon", "tue", "wed", "thu", "fri", "sat", "sun"};
    for (std::size_t i = 0; i < 7; ++i) {
        Days days = kNoDay;
        days[i] = true;
        EXPECT_EQ(ParseDays(kNames[i]), days) << kNames[i];
        EXPECT_EQ(WeeklyTimeText({days, 0}), std::string(kNames[i]) + " 00:00");
    }
}

TEST(WeeklyTimeText, NamesDaysAndTime) {
    EXPECT_EQ(WeeklyTimeText({kMondayToFriday, 16 * 60 + 25}), "mon,tue,wed,thu,fri 16:25");
}

TEST(StartTimeFor, IsFiveMinutesEarlier) {
    EXPECT_EQ(StartTimeFor({kMondayToFriday, 990}), (WeeklyTime{kMondayToFriday, 985}));
    EXPECT_EQ(StartTimeFor({kMondayToFriday, 5}), (WeeklyTime{kMondayToFriday, 0}));
}

TEST(StartTimeFor, AcrossMidnightTheDaysShift) {
    constexpr Days kSundayToThursday = {true, true, true, true, false, false, true};
    EXPECT_EQ(StartTimeFor({kMondayToFriday, 4}), (WeeklyTime{kSundayToThursday, 1439}));
    EXPECT_EQ(StartTimeFor({kMondayToFriday, 0}), (WeeklyTime{kSundayToThursday, 1435}));
    constexpr Days kMonday = {true, false, false, false, false, false, false};
    constexpr Days kSunday = {false, false, false, false, false, false, true};
    EXPECT_EQ(StartTimeFor({kMonday, 0}).days, kSunday);
}

TEST(ChosenTimeOf, IsTheTimeThatHasTheStart) {
    EXPECT_EQ(ChosenTimeOf({kMondayToFriday, 985}), (WeeklyTime{kMondayToFriday, 990}));
    constexpr Days kSundayToThursday = {true, true, true, true, false, false, true};
    EXPECT_EQ(ChosenTimeOf({kSundayToThursday, 1435}), (WeeklyTime{kMondayToFriday, 0}));
    EXPECT_EQ(ChosenTimeOf({kSundayToThursday, 1439}), (WeeklyTime{kMondayToFriday, 4}));
    for (int minute = 0; minute < 24 * 60; ++minute) {
        const WeeklyTime chosen = {{true, false, true, false, false, false, false}, minute};
        EXPECT_EQ(ChosenTimeOf(StartTimeFor(chosen)), chosen) << minute;
    }
}

TEST(TimerText, IsAUserTimer) {
    EXPECT_EQ(TimerText({kMondayToFriday, 16 * 60 + 25}),
              "[Unit]\n"
              "Description=Starts Brantlow for its daily update\n"
              "\n"
              "[Timer]\n"
              "OnCalendar=Mon,Tue,Wed,Thu,Fri *-*-* 16:25:00\n"
              "AccuracySec=1s\n"
              "Unit=brantlow.service\n"
              "\n"
              "[Install]\n"
              "WantedBy=timers.target\n");
    EXPECT_NE(TimerText({kWeekend, 5}).find("\nOnCalendar=Sat,Sun *-*-* 00:05:00\n"), std::string::npos);
}

TEST(ServiceText, StartsTheProgramWithItsFolder) {
    EXPECT_EQ(ServiceText(kProgram),
              "[Unit]\n"
              "Description=Brantlow, started for its daily update\n"
              "\n"
              "[Service]\n"
              "Environment=\"BRANTLOW_HOME=/home/a/Brantlow\"\n"
              "ExecStart=\"/opt/b/brantlow\" --scheduled\n");
}

TEST(ServiceText, QuotesWhatAUnitFileWouldReadOtherwise) {
    const std::string text = ServiceText({"/a b/100%/\"q\"/back\\s", "/h me/5%", {}});
    EXPECT_NE(text.find("\nEnvironment=\"BRANTLOW_HOME=/h me/5%%\"\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\nExecStart=\"/a b/100%%/\\\"q\\\"/back\\\\s\" --scheduled\n"), std::string::npos)
        << text;
}

TEST(CrontabLine, StartsTheProgramWithItsFolder) {
    EXPECT_EQ(CrontabLine({kMondayToFriday, 16 * 60 + 5}, kProgram),
              "5 16 * * 1,2,3,4,5 BRANTLOW_HOME='/home/a/Brantlow' '/opt/b/brantlow'"
              " --scheduled # Brantlow: started for the daily update\n");
    EXPECT_EQ(CrontabLine({kWeekend, 0}, kProgram).substr(0, 12), "0 0 * * 6,0 ");
}

TEST(CrontabLine, NamesTheScreen) {
    StartedProgram started = kProgram;
    started.screen = {{"DISPLAY", ":0"}, {"XAUTHORITY", "/home/a/.X a"}};
    EXPECT_EQ(CrontabLine({kWeekend, 61}, started),
              "1 1 * * 6,0 BRANTLOW_HOME='/home/a/Brantlow' DISPLAY=':0' XAUTHORITY='/home/a/.X a'"
              " '/opt/b/brantlow' --scheduled # Brantlow: started for the daily update\n");
}

TEST(CrontabLine, QuotesWhatAShellOrACrontabWouldReadOtherwise) {
    EXPECT_EQ(CrontabLine({kWeekend, 0}, {"/a'b/$x;`y`", "/5% of", {}}),
              "0 0 * * 6,0 BRANTLOW_HOME='/5\\% of' '/a'\\''b/$x;`y`'"
              " --scheduled # Brantlow: started for the daily update\n");
}

TEST(CanBeScheduled, RefusesControlCharacters) {
    EXPECT_TRUE(CanBeScheduled(kProgram));
    EXPECT_TRUE(CanBeScheduled({"/\xC3\xA4 b", "/c", {}}));
    EXPECT_FALSE(CanBeScheduled({"/a\nb", "/c", {}}));
    EXPECT_FALSE(CanBeScheduled({"/a", "/c\r", {}}));
    EXPECT_FALSE(CanBeScheduled({"/a", "/c", {{"DISPLAY", ":0\n* * * * * evil"}}}));
}

TEST(ScheduledStart, EveryTimeReadsBack) {
    for (unsigned set = 1; set < 128; ++set) {
        WeeklyTime time;
        for (std::size_t day = 0; day < 7; ++day) time.days[day] = (set >> day & 1U) != 0;
        time.minute = static_cast<int>(set * 11);
        EXPECT_EQ(ReadTimer(TimerText(time)), time) << set;
        EXPECT_EQ(ReadCrontab(CrontabLine(time, kProgram)), time) << set;
    }
}

TEST(ScheduledStart, OtherTextsHoldNoTime) {
    for (const char* text : {"", "[Timer]\n", "OnCalendar=daily\n", "OnCalendar=Mon *-*-* x\n",
                             "OnCalendar=Xyz *-*-* 16:25:00\n"}) {
        EXPECT_EQ(ReadTimer(text), std::nullopt) << text;
    }
    const std::string remark = " --scheduled # Brantlow: started for the daily update\n";
    for (const std::string& text :
         {std::string(), std::string("5 16 * * 1 /opt/b/brantlow\n"), remark, "a b * * 1 x" + remark,
          "99 99 * * 1 x" + remark, "-5 0 * * 1 x" + remark, "5 16 * * mon x" + remark}) {
        EXPECT_EQ(ReadCrontab(text), std::nullopt) << text;
    }
}

TEST(Crontab, OtherPeoplesLinesStayByteForByte) {
    const std::string own = CrontabLine({kMondayToFriday, 985}, kProgram);
    const std::string first = "# my jobs\nMAILTO=me\r\n\n0 5 * * * backup  \n";
    const std::string second = "@daily brantlow # my own\n";
    EXPECT_EQ(WithOwnLine(first + second, own), first + second + own);
    EXPECT_EQ(WithOwnLine(first + own + second, own), first + second + own) << "one line of our own";
    EXPECT_EQ(WithOwnLine(own + first + own, own), first + own);
    EXPECT_EQ(WithoutOwnLines(first + own + second), first + second);
    EXPECT_EQ(WithoutOwnLines(own), "");
    EXPECT_EQ(WithOwnLine("", own), own);
    EXPECT_EQ(WithOwnLine("0 5 * * * x", own), "0 5 * * * x\n" + own) << "a missing line end";
    EXPECT_EQ(WithoutOwnLines("0 5 * * * x\n" + own.substr(0, own.size() - 1)), "0 5 * * * x\n");
}

}  // namespace
}  // namespace brantlow
