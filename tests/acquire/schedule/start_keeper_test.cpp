#include "acquire/schedule/start_keeper.h"

#include <gtest/gtest.h>

#include "acquire/schedule/pretend_system.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

const StartedProgram kKeptProgram = {"/opt/b/brantlow", "/home/a/Brantlow", {}};
const WeeklyTime kStart = {kMondayToFriday, 985};
constexpr std::string_view kOthers = "0 5 * * * backup\n";

class StartKeeperTest : public ::testing::Test {
  protected:
    std::string Unit(const char* name) const { return BytesOrEmpty(system.unitFolder / name); }

    TempFolder folder;
    PretendSystem pretend;
    ScheduleSystem system = pretend.System(folder / "config/systemd/user");
};

TEST_F(StartKeeperTest, InstallsATimerWhereSystemdAnswers) {
    pretend.systemd = true;
    EXPECT_EQ(InstallScheduledStart(system, kStart, kKeptProgram), "");
    EXPECT_EQ(Unit("brantlow.timer"), TimerText(kStart));
    EXPECT_EQ(Unit("brantlow.service"), ServiceText(kKeptProgram));
    EXPECT_EQ(pretend.calls, (std::vector<std::string>{
                                 "systemctl --user show --property=Version", "systemctl --user daemon-reload",
                                 "systemctl --user enable brantlow.timer",
                                 "systemctl --user restart brantlow.timer", "crontab -l"}));
    EXPECT_EQ(FindScheduledStart(system), (InstalledStart{StartKeeper::Systemd, kStart}));
}

TEST_F(StartKeeperTest, InstallsACrontabLineWhereSystemdDoesNotAnswer) {
    pretend.crontab = true;
    EXPECT_EQ(InstallScheduledStart(system, kStart, kKeptProgram), "");
    EXPECT_EQ(pretend.table, CrontabLine(kStart, kKeptProgram));
    EXPECT_EQ(Unit("brantlow.timer"), "");
    EXPECT_EQ(FindScheduledStart(system), (InstalledStart{StartKeeper::Crontab, kStart}));
}

TEST_F(StartKeeperTest, SaysClearlyThatNeitherIsThere) {
    EXPECT_EQ(InstallScheduledStart(system, kStart, kKeptProgram),
              "Neither systemctl --user nor crontab answers here, so the start cannot be scheduled. Brantlow "
              "updates at the chosen time when it is open then.");
    EXPECT_EQ(FindScheduledStart(system), std::nullopt);
    EXPECT_EQ(RemoveScheduledStart(system), "");
    EXPECT_FALSE(std::filesystem::exists(system.unitFolder));
}

TEST_F(StartKeeperTest, KeepsOtherPeoplesCrontabLines) {
    pretend.crontab = true;
    pretend.table = kOthers;
    EXPECT_EQ(InstallScheduledStart(system, kStart, kKeptProgram), "");
    EXPECT_EQ(pretend.table, std::string(kOthers) + CrontabLine(kStart, kKeptProgram));
    const WeeklyTime later = {kMondayToFriday, 1000};
    EXPECT_EQ(InstallScheduledStart(system, later, kKeptProgram), "");
    EXPECT_EQ(pretend.table, std::string(kOthers) + CrontabLine(later, kKeptProgram));
    EXPECT_EQ(RemoveScheduledStart(system), "");
    EXPECT_EQ(pretend.table, kOthers);
}

TEST_F(StartKeeperTest, ACrontabThatCannotBeReadIsNeverWritten) {
    pretend.crontab = true;
    pretend.table = kOthers;
    pretend.crontabError = "You (a) are not allowed to use this program (crontab)\n";
    EXPECT_EQ(InstallScheduledStart(system, kStart, kKeptProgram),
              "The crontab could not be read: You (a) are not allowed to use this program (crontab)");
    EXPECT_EQ(RemoveScheduledStart(system), "");
    EXPECT_FALSE(pretend.Called("crontab -"));
    EXPECT_FALSE(pretend.Called("crontab -r"));
}

TEST_F(StartKeeperTest, ACrontabThatCannotBeWrittenIsReported) {
    pretend.crontab = true;
    pretend.table = kOthers;
    pretend.failing = "crontab -";
    EXPECT_EQ(InstallScheduledStart(system, kStart, kKeptProgram), "crontab - failed: disk full");
    EXPECT_EQ(pretend.table, kOthers);
}

TEST_F(StartKeeperTest, TheLastLineRemovedRemovesTheCrontab) {
    pretend.crontab = true;
    ASSERT_EQ(InstallScheduledStart(system, kStart, kKeptProgram), "");
    EXPECT_EQ(RemoveScheduledStart(system), "");
    EXPECT_EQ(pretend.table, std::nullopt);
    EXPECT_TRUE(pretend.Called("crontab -r"));
    EXPECT_EQ(FindScheduledStart(system), std::nullopt);
}

TEST_F(StartKeeperTest, ACrontabWithoutOurLineIsNotWritten) {
    pretend.crontab = true;
    pretend.table = kOthers;
    EXPECT_EQ(RemoveScheduledStart(system), "");
    EXPECT_EQ(pretend.calls, (std::vector<std::string>{"crontab -l"}));
}

TEST_F(StartKeeperTest, ATimerTakesTheCrontabLinesPlace) {
    pretend.crontab = true;
    pretend.table = kOthers;
    ASSERT_EQ(InstallScheduledStart(system, kStart, kKeptProgram), "");
    pretend.systemd = true;
    EXPECT_EQ(InstallScheduledStart(system, kStart, kKeptProgram), "");
    EXPECT_EQ(pretend.table, kOthers);
    EXPECT_EQ(FindScheduledStart(system)->keeper, StartKeeper::Systemd);
}

TEST_F(StartKeeperTest, ACrontabLineTakesTheTimersPlace) {
    pretend.systemd = true;
    ASSERT_EQ(InstallScheduledStart(system, kStart, kKeptProgram), "");
    std::filesystem::create_directories(system.unitFolder / "timers.target.wants");
    std::filesystem::create_symlink("../brantlow.timer",
                                    system.unitFolder / "timers.target.wants/brantlow.timer");
    pretend.systemd = false;
    pretend.crontab = true;
    EXPECT_EQ(InstallScheduledStart(system, kStart, kKeptProgram), "");
    EXPECT_FALSE(std::filesystem::exists(
        std::filesystem::symlink_status(system.unitFolder / "timers.target.wants/brantlow.timer")));
    EXPECT_TRUE(FileNamesIn(system.unitFolder).empty());
    EXPECT_EQ(FindScheduledStart(system), (InstalledStart{StartKeeper::Crontab, kStart}));
}

TEST_F(StartKeeperTest, RemovesTheTimer) {
    pretend.systemd = true;
    ASSERT_EQ(InstallScheduledStart(system, kStart, kKeptProgram), "");
    ASSERT_FALSE(WriteWholeFile(system.unitFolder / "other.timer", "other"));
    EXPECT_EQ(RemoveScheduledStart(system), "");
    EXPECT_TRUE(pretend.Called("systemctl --user disable --now brantlow.timer"));
    EXPECT_EQ(FileNamesIn(system.unitFolder), (std::vector<std::string>{"other.timer"}));
    EXPECT_EQ(FindScheduledStart(system), std::nullopt);
}

TEST_F(StartKeeperTest, ATimerThatCannotBeRemovedStaysAndIsReported) {
    pretend.systemd = true;
    ASSERT_EQ(InstallScheduledStart(system, kStart, kKeptProgram), "");
    pretend.failing = "systemctl --user disable --now brantlow.timer";
    EXPECT_EQ(RemoveScheduledStart(system),
              "systemctl --user disable --now brantlow.timer failed: Access denied");
    EXPECT_EQ(FindScheduledStart(system)->start, kStart);
}

TEST_F(StartKeeperTest, AFailedInstallationLeavesWhatWasThere) {
    pretend.systemd = true;
    for (const char* step : {"systemctl --user daemon-reload", "systemctl --user enable brantlow.timer",
                             "systemctl --user restart brantlow.timer"}) {
        pretend.failing = step;
        EXPECT_EQ(InstallScheduledStart(system, kStart, kKeptProgram),
                  std::string(step) + " failed: Access denied");
        EXPECT_TRUE(FileNamesIn(system.unitFolder).empty()) << step;
    }
    pretend.failing.clear();
    ASSERT_EQ(InstallScheduledStart(system, kStart, kKeptProgram), "");
    pretend.failing = "systemctl --user restart brantlow.timer";
    EXPECT_NE(InstallScheduledStart(system, {kMondayToFriday, 1}, {"/other", "/x", {}}), "");
    EXPECT_EQ(Unit("brantlow.timer"), TimerText(kStart));
    EXPECT_EQ(Unit("brantlow.service"), ServiceText(kKeptProgram));
}

TEST_F(StartKeeperTest, AUnitFolderThatCannotBeMadeIsReported) {
    pretend.systemd = true;
    ASSERT_FALSE(WriteWholeFile(folder / "config", "a file"));
    EXPECT_EQ(InstallScheduledStart(system, kStart, kKeptProgram),
              system.unitFolder.string() + ": cannot be saved (Not a directory)");
    EXPECT_FALSE(pretend.Called("systemctl --user enable brantlow.timer"));
}

TEST_F(StartKeeperTest, APathWithALineEndIsRefused) {
    pretend.crontab = true;
    EXPECT_EQ(InstallScheduledStart(system, kStart, {"/a\n* * * * * evil", "/x", {}}),
              "The start cannot be scheduled: the path of the program or of its folder holds a control "
              "character.");
    EXPECT_TRUE(pretend.calls.empty());
}

TEST(UserUnitFolder, LiesInTheConfigurationFolder) {
    EXPECT_EQ(UserUnitFolder("/cfg", "/home/a"), Path("/cfg/systemd/user"));
    EXPECT_EQ(UserUnitFolder("", "/home/a"), Path("/home/a/.config/systemd/user"));
}

TEST(StartKeeperWord, NamesTheScheduler) {
    EXPECT_EQ(Word(StartKeeper::Systemd), "systemd");
    EXPECT_EQ(Word(StartKeeper::Crontab), "crontab");
}

}  // namespace
}  // namespace brantlow
