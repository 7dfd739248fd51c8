#include <gmock/gmock.h>

#include <cstdlib>
#include <optional>

#include "batch_fixture.h"

namespace brantlow {
namespace {

using ::testing::HasSubstr;

// A variable of the environment for the length of a test.
class TestVariable {
  public:
    TestVariable(const char* name, const std::string& value) : name_(name) {
        if (const char* before = std::getenv(name)) before_ = before;
        ::setenv(name, value.c_str(), 1);
    }
    ~TestVariable() {
        if (before_) {
            ::setenv(name_, before_->c_str(), 1);
        } else {
            ::unsetenv(name_);
        }
    }
    TestVariable(const TestVariable&) = delete;
    TestVariable& operator=(const TestVariable&) = delete;

  private:
    const char* name_;
    std::optional<std::string> before_;
};

// A system of the test's own: $PATH leads to its programs only.
class ScheduleCommand : public BatchTest {
  protected:
    ScheduleCommand() {
        Write("brantlow", "the program");
        std::filesystem::create_directories(folder / "Data");
        std::filesystem::create_directories(folder / "bin");
    }
    void Install(const std::string& name, const std::string& script) const {
        Write("bin/" + name, "#!/bin/sh\n" + script);
        std::filesystem::permissions(folder / "bin" / name, std::filesystem::perms::owner_all);
    }
    void HasSystemd() const { Install("systemctl", "exit 0\n"); }
    void HasCrontab() const {
        const std::string table = (folder / "table").string();
        Install("crontab", "case $1 in\n-l) [ -f '" + table + "' ] && exec /bin/cat '" + table +
                               "'; echo 'no crontab for a' >&2; exit 1;;\n-r) exec /bin/rm '" + table +
                               "';;\n-) exec /bin/cat > '" + table + "';;\nesac\n");
    }
    CallResult Schedule(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), "schedule");
        return Call(arguments);
    }
    std::string OwnLine(const std::string& time) const {
        return time + " BRANTLOW_HOME='" + folder.Get().string() + "' DISPLAY=':7' '" +
               (folder / "brantlow").string() + "' --scheduled # Brantlow: started for the daily update\n";
    }

    TestVariable path{"PATH", (folder / "bin").string()};
    TestVariable config{"XDG_CONFIG_HOME", (folder / "config").string()};
    TestVariable display{"DISPLAY", ":7"};
    TestVariable wayland{"WAYLAND_DISPLAY", ""};
    TestVariable authority{"XAUTHORITY", ""};
    TestVariable runtime{"XDG_RUNTIME_DIR", ""};
};

TEST_F(ScheduleCommand, ShowsThatNothingIsInstalled) {
    const auto before = Everything();
    const CallResult result = Schedule({});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.out, "Scheduled start: none\nDaily update: none\n");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(Everything(), before);
}

TEST_F(ScheduleCommand, InstallsATimerAndTheDailyUpdate) {
    HasSystemd();
    const CallResult result = Schedule({"--at", "16:30"});
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.out, "Scheduled start: mon,tue,wed,thu,fri 16:25 (systemd)\nDaily update: 16:30\n");
    EXPECT_THAT(Read("config/systemd/user/brantlow.timer"),
                HasSubstr("\nOnCalendar=Mon,Tue,Wed,Thu,Fri *-*-* 16:25:00\n"));
    EXPECT_THAT(Read("config/systemd/user/brantlow.service"),
                HasSubstr("\nExecStart=\"" + (folder / "brantlow").string() + "\" --scheduled\n"));
    EXPECT_THAT(Read("Data/VTRDATAset.ini"), HasSubstr("\"EOD\"\r\n\"16\"\r\n\"30\"\r\n"));
    EXPECT_EQ(Schedule({}).out, result.out);
}

TEST_F(ScheduleCommand, InstallsACrontabLineBesideTheLinesOfOthers) {
    HasCrontab();
    Write("table", "0 5 * * * backup\n");
    const CallResult result = Schedule({"--at", "00:04", "--days", "mon,sat"});
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, "Scheduled start: fri,sun 23:59 (crontab)\nDaily update: 00:04\n");
    EXPECT_EQ(Read("table"), "0 5 * * * backup\n" + OwnLine("59 23 * * 5,0"));
    const CallResult removed = Schedule({"--remove"});
    EXPECT_EQ(removed.status, ExitStatus::Done);
    EXPECT_EQ(removed.out, "Scheduled start: none\nDaily update: 00:04\n");
    EXPECT_EQ(Read("table"), "0 5 * * * backup\n");
}

TEST_F(ScheduleCommand, RemovesTheTimer) {
    HasSystemd();
    ASSERT_EQ(Schedule({"--at", "16:30"}).status, ExitStatus::Done);
    EXPECT_EQ(Schedule({"--remove"}).out, "Scheduled start: none\nDaily update: 16:30\n");
    EXPECT_TRUE(FileNamesIn(folder / "config/systemd/user").empty());
    EXPECT_EQ(Schedule({"--remove"}).status, ExitStatus::Done) << "nothing is left to be removed";
}

TEST_F(ScheduleCommand, DaysAloneTakeTheStoredTime) {
    HasCrontab();
    const CallResult without = Schedule({"--days", "mon"});
    EXPECT_EQ(without.status, ExitStatus::Usage);
    EXPECT_EQ(without.err, "--days: needs --at, no time of a daily update is stored\n");
    ASSERT_EQ(Schedule({"--at", "09:05"}).status, ExitStatus::Done);
    EXPECT_EQ(Schedule({"--days", "sun"}).out, "Scheduled start: sun 09:00 (crontab)\nDaily update: 09:05\n");
    EXPECT_EQ(Read("table"), OwnLine("0 9 * * 0"));
}

TEST_F(ScheduleCommand, SaysClearlyThatNeitherSchedulerIsThere) {
    const auto before = Everything();
    const CallResult result = Schedule({"--at", "16:30"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err,
              "Neither systemctl --user nor crontab answers here, so the start cannot be scheduled. Brantlow "
              "updates at the chosen time when it is open then.\n");
    EXPECT_EQ(Everything(), before);
}

TEST_F(ScheduleCommand, AMissingProgramIsNotScheduled) {
    HasCrontab();
    std::filesystem::remove(folder / "brantlow");
    const CallResult result = Schedule({"--at", "16:30"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.err, (folder / "brantlow").string() + ": no such program to be started\n");
    EXPECT_EQ(Read("table"), "");
}

TEST_F(ScheduleCommand, RefusesArgumentsThatCannotBeRead) {
    HasCrontab();
    const auto before = Everything();
    struct Row {
        std::vector<std::string> arguments;
        const char* reason;
    };
    const Row kRows[] = {
        {{"--at", "25:00"}, "'25:00' is no time of the form HH:MM"},
        {{"--at", "9:05"}, "'9:05' is no time of the form HH:MM"},
        {{"--at", "16:30", "--days", "monday"},
         "'monday' is no list of mon, tue, wed, thu, fri, sat, sun with commas between"},
        {{"--remove", "--at", "16:30"}, "--remove: takes neither --at nor --days beside it\n"},
        {{"--remove", "--days", "mon"}, "--remove: takes neither --at nor --days beside it\n"}};
    for (const Row& row : kRows) {
        const CallResult result = Schedule(row.arguments);
        EXPECT_EQ(result.status, ExitStatus::Usage) << row.reason;
        EXPECT_THAT(result.err, HasSubstr(row.reason));
        EXPECT_EQ(result.out, "");
    }
    EXPECT_EQ(Everything(), before);
}

TEST_F(ScheduleCommand, SettingsThatCannotBeReadAreNamed) {
    HasCrontab();
    std::filesystem::create_directories(folder / "Data/VTRDATAset.ini");
    const CallResult result = Schedule({"--at", "16:30"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.err, (folder / "Data/VTRDATAset.ini").string() + ": cannot be read (Is a directory)\n");
}

}  // namespace
}  // namespace brantlow
