// Writing commands take the application folder's lock, reading ones do not.
#include <gmock/gmock.h>

#include <thread>

#include "batch/command_table.h"
#include "batch_fixture.h"
#include "shell/folder_lock.h"

namespace brantlow {
namespace {

using ::testing::HasSubstr;

class LockTest : public BatchTest {
  protected:
    void SetUp() override {
        Write("Data/Mine.ddq",
              "Ticker Symbol\tLast Price\tHigh Alarm\tLow Alarm\r\nADBE\t1.000\t\t\r\nKO\t2.000\t\t\r\n");
        Write("Quotes/EOD/KO.26", "\"11/20/26\",\"\",1,1,1,1,0,0,0,0,0,\"\",\"\",0,0,0,0,0,1\r\n");
    }
    // Somebody else who holds the folder.
    void Hold(FolderLock& lock, std::string_view program) const {
        ASSERT_EQ(lock.Take(folder.Get(), ThisProcess(program, "it is open"), {}), LockOutcome::Taken);
    }
};

TEST_F(LockTest, EveryWritingCommandIsRefusedWhileTheWindowIsOpenAndToldByWhom) {
    FolderLock window;
    Hold(window, kWindowHolder);
    const std::vector<std::vector<std::string>> calls = {{"add", "Mine.ddq", "A"},
                                                         {"delete", "Mine.ddq", "KO"},
                                                         {"alarm", "Mine.ddq", "KO", "--high", "3"},
                                                         {"select", "Mine.ddq"},
                                                         {"populate", "Mine.ddq"},
                                                         {"history", "KO"},
                                                         {"update", "Mine.ddq"},
                                                         {"fundamentals", "Mine.ddq"},
                                                         {"import", "Mine.ddq"},
                                                         {"import-history", "archive.zip"},
                                                         {"export", "Mine.ddq"},
                                                         {"split", "KO", "2/1"},
                                                         {"split-calendar"},
                                                         {"practice", "--replace"},
                                                         {"combine", "Mine.ddq", "Mine.ddq", "C.ddq"},
                                                         {"remove-last-update"},
                                                         {"check", "--repair"},
                                                         {"backup", "program"},
                                                         {"restore", "database"},
                                                         {"schedule", "--remove"}};
    const auto before = Everything();
    for (std::vector<std::string> call : calls) {
        call.insert(call.begin(), {"--wait", "0"});
        const CallResult result = Call(call);
        EXPECT_EQ(result.status, ExitStatus::Refused) << call[2];
        EXPECT_EQ(result.out, "") << call[2];
        EXPECT_EQ(result.err, folder.Get().string() + " is in use by the window of Brantlow, process " +
                                  std::to_string(::getpid()) + " (it is open); nothing was changed\n")
            << call[2];
        EXPECT_EQ(Everything(), before) << call[2];
    }
}

TEST_F(LockTest, ACommandThatOnlyReadsDoesNotWait) {
    FolderLock window;
    Hold(window, kWindowHolder);
    for (const std::vector<std::string>& call :
         std::vector<std::vector<std::string>>{{"catalogue"},
                                               {"settings"},
                                               {"series", "KO"},
                                               {"indicators", "KO"},
                                               {"evaluate", "KO"},
                                               {"signals", "KO"},
                                               {"chart", "KO", "--out", "-"},
                                               {"research", "mnuPopUpNews", "KO"},
                                               {"schedule"}}) {
        const CallResult result = Call(call);
        EXPECT_THAT(result.err, ::testing::Not(HasSubstr("in use"))) << call[0];
        EXPECT_EQ(result.status, ExitStatus::Done) << call[0] << result.err;
    }
}

TEST_F(LockTest, ACommandWaitsAsLongAsItIsTold) {
    FolderLock other;
    Hold(other, kCommandHolder);
    std::thread release([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        other.Release();
    });
    const CallResult result = Call({"--wait", "600", "delete", "Mine.ddq", "KO"});
    release.join();
    EXPECT_EQ(result.status, ExitStatus::Done) << result.err;
    EXPECT_THAT(Read("Data/Mine.ddq"), ::testing::Not(HasSubstr("KO")));
    EXPECT_FALSE(IsRegularFile(folder / std::string(kLockName)));
}

TEST_F(LockTest, ACallThatWaitsCanBeInterrupted) {
    FolderLock other;
    Hold(other, kCommandHolder);
    const CallResult result =
        CallWith({"delete", "Mine.ddq", "KO"}, folder / "brantlow-batch", [] { return true; });
    EXPECT_EQ(result.status, ExitStatus::Interrupted);
    EXPECT_THAT(Read("Data/Mine.ddq"), HasSubstr("KO"));
}

TEST_F(LockTest, TheWorkOfACommandIsNamed) {
    FolderLock other;
    ASSERT_EQ(other.Take(folder.Get(), ThisProcess(kCommandHolder, "update Mine.ddq"), {}),
              LockOutcome::Taken);
    const CallResult result = Call({"--wait", "0", "delete", "Mine.ddq", "KO"});
    EXPECT_THAT(result.err, HasSubstr(" is in use by a command of Brantlow, process "));
    EXPECT_THAT(result.err, HasSubstr(" (update Mine.ddq); nothing was changed"));
}

TEST_F(LockTest, ALockThatCannotBeMadeRefusesTheCallAndNamesItsFile) {
    std::filesystem::create_directory(folder / std::string(kLockName));
    const CallResult result = Call({"delete", "Mine.ddq", "KO"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.err, (folder / std::string(kLockName)).string() + ": cannot be made (Is a directory)\n");
    EXPECT_THAT(Read("Data/Mine.ddq"), HasSubstr("KO"));
}

}  // namespace
}  // namespace brantlow
