#include "shell/folder_lock.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fcntl.h>

#include <csignal>

#include "support/temp_folder.h"

namespace brantlow {
namespace {

class FolderLockTest : public ::testing::Test {
  protected:
    Path File() const { return folder / std::string(kLockName); }
    std::string Text() const { return BytesOrEmpty(File()); }
    void WriteLock(std::string_view text) const { ASSERT_FALSE(WriteWholeFile(File(), text)); }
    // Makes the lock's file as old as this.
    void Age(long seconds) const {
        const std::time_t when = std::time(nullptr) - seconds;
        const timespec times[2] = {{when, 0}, {when, 0}};
        ASSERT_EQ(::utimensat(AT_FDCWD, File().c_str(), times, 0), 0);
    }
    LockOutcome TakeWith(FolderLock& lock) const { return lock.Take(folder.Get(), self, {}); }

    TempFolder folder;
    const LockHolder self = ThisProcess(kCommandHolder, "add Mine.ddq KO");
};

TEST_F(FolderLockTest, NamesItsHolderWhileItIsTaken) {
    FolderLock lock;
    EXPECT_FALSE(lock.IsTaken());
    ASSERT_EQ(TakeWith(lock), LockOutcome::Taken);
    EXPECT_TRUE(lock.IsTaken());
    EXPECT_TRUE(Text().starts_with(std::to_string(::getpid()) + "\ncommand\n")) << Text();
    EXPECT_NE(Text().find("\nadd Mine.ddq KO\n"), std::string::npos) << Text();
    lock.Release();
    EXPECT_FALSE(lock.IsTaken());
    EXPECT_FALSE(IsRegularFile(File()));
}

TEST_F(FolderLockTest, ASecondHolderIsToldWhoHasItAndWhatForAndWithWhichNumber) {
    FolderLock first;
    ASSERT_EQ(first.Take(folder.Get(), ThisProcess(kWindowHolder, "it is open"), {}), LockOutcome::Taken);
    FolderLock second;
    ASSERT_EQ(TakeWith(second), LockOutcome::Held);
    EXPECT_TRUE(second.Holder().IsWindow());
    EXPECT_EQ(second.Refusal(), folder.Get().string() + " is in use by the window of Brantlow, process " +
                                    std::to_string(::getpid()) + " (it is open); nothing was changed");
    EXPECT_FALSE(second.IsTaken());
    first.Release();
    EXPECT_EQ(TakeWith(second), LockOutcome::Taken);
}

TEST_F(FolderLockTest, GoesToTheOneThatWaitsOnceItIsReleased) {
    FolderLock first;
    ASSERT_EQ(TakeWith(first), LockOutcome::Taken);
    FolderLock second;
    const LockPatience patience{std::chrono::hours(1), [&] {
                                    first.Release();
                                    return true;
                                }};
    EXPECT_EQ(second.Take(folder.Get(), self, patience), LockOutcome::Taken);
}

TEST_F(FolderLockTest, WaitingEndsWhenThePersonWantsNoMoreOfIt) {
    FolderLock first;
    ASSERT_EQ(TakeWith(first), LockOutcome::Taken);
    FolderLock second;
    EXPECT_EQ(second.Take(folder.Get(), self, {std::chrono::hours(1), [] { return false; }}),
              LockOutcome::Held);
}

TEST_F(FolderLockTest, OfAKilledProcessIsTakenOver) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        FolderLock lock;
        if (TakeWith(lock) != LockOutcome::Taken) ::_exit(1);
        ::kill(::getpid(), SIGKILL);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    ASSERT_TRUE(IsRegularFile(File()));
    FolderLock lock;
    EXPECT_EQ(TakeWith(lock), LockOutcome::Taken);
    EXPECT_TRUE(Text().starts_with(std::to_string(::getpid()) + "\n"));
}

TEST_F(FolderLockTest, OfThisMachineIsTakenOverWhateverItsNameWas) {
    WriteLock("1\nwindow\nformer-name\n" + self.machine + "\nit is open\n");
    FolderLock lock;
    EXPECT_EQ(TakeWith(lock), self.machine.empty() ? LockOutcome::Held : LockOutcome::Taken);
}

TEST_F(FolderLockTest, OfAnotherMachineHoldsForADay) {
    WriteLock("4711\nwindow\nattic\nsome-other-machine\nit is open\n");
    FolderLock lock;
    ASSERT_EQ(TakeWith(lock), LockOutcome::Held);
    EXPECT_EQ(lock.Refusal(),
              folder.Get().string() +
                  " is in use by the window of Brantlow, process 4711 on the computer attic (it is open); "
                  "nothing was changed. If it is gone, delete " +
                  File().string());
    Age(24 * 60 * 60 + 60);
    EXPECT_EQ(TakeWith(lock), LockOutcome::Taken);
}

TEST_F(FolderLockTest, TextThatIsNobodysIsTakenOver) {
    for (const std::string_view text : {"", "\n", "gibberish", "99999999999999999999999\nx"}) {
        WriteLock(text);
        FolderLock lock;
        EXPECT_EQ(TakeWith(lock), LockOutcome::Taken) << text;
    }
}

TEST_F(FolderLockTest, StaysYoungWhileItsHolderSaysSo) {
    FolderLock lock;
    ASSERT_EQ(TakeWith(lock), LockOutcome::Taken);
    Age(1000000);
    lock.Refresh();
    struct stat status {};
    ASSERT_EQ(::stat(File().c_str(), &status), 0);
    EXPECT_LT(std::time(nullptr) - status.st_mtime, 1000);
}

TEST_F(FolderLockTest, AFolderInItsPlaceIsToldWithItsName) {
    std::filesystem::create_directory(File());
    FolderLock lock;
    ASSERT_EQ(TakeWith(lock), LockOutcome::Failed);
    EXPECT_EQ(lock.Why().cause, std::errc::is_a_directory);
    EXPECT_EQ(lock.Refusal(), File().string() + ": cannot be made (Is a directory)");
}

}  // namespace
}  // namespace brantlow
