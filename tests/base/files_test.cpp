#include "base/files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <thread>

#include "support/temp_folder.h"

namespace brantlow {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kDiskSize = 4096;

// Runs `body` in a child process in which no file can grow beyond kDiskSize, as on a disk that is full, and
// gives the child's exit status. The parent's files and limits stay as they are.
template <class Body>
int OnAFullDisk(const Body& body) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{kDiskSize, kDiskSize};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        ::_exit(body() ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::vector<std::string> EveryNameIn(const Path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

TEST(ReadWholeFile, GivesEveryByte) {
    const TempFolder folder;
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    for (const std::string& content :
         {std::string(), bytes, std::string(1'000'000, 'x'), std::string("a\r\nb")}) {
        ASSERT_FALSE(WriteWholeFile(folder / "file", content));
        const ReadResult read = ReadWholeFile(folder / "file");
        EXPECT_EQ(read.outcome, ReadOutcome::Done);
        EXPECT_EQ(read.bytes, content);
        EXPECT_FALSE(read.error);
    }
}

// The time of access would be written to the disk for each of ten thousand files.
TEST(ReadWholeFile, LeavesTheTimeOfAccessOfAFileOfOnesOwn) {
    const TempFolder folder;
    const Path path = folder / "file";
    ASSERT_FALSE(WriteWholeFile(path, "bytes"));
    constexpr timespec kLongAgo{1'000'000'000, 0};
    const timespec times[2] = {kLongAgo, {0, UTIME_NOW}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    EXPECT_EQ(ReadWholeFile(path).bytes, "bytes");
    std::string buffer;
    std::size_t used = 0;
    EXPECT_EQ(ReadIntoBuffer(path, buffer, used), ReadOutcome::Done);
    FileEnd end;
    EXPECT_EQ(GrowingFile(path).ReadEndIntoBuffer(1, 1, buffer, used, end), ReadOutcome::Done);
    struct stat status {};
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_atim.tv_sec, kLongAgo.tv_sec);
}

TEST(ReadWholeFile, TellsMissingFromUnreadable) {
    const TempFolder folder;
    ASSERT_FALSE(WriteWholeFile(folder / "file", "x"));
    fs::create_symlink("nowhere", folder / "dangling");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    struct Row {
        const char* name;
        ReadOutcome outcome;
    };
    constexpr Row kRows[] = {{"missing", ReadOutcome::Missing},
                             {"no/folder", ReadOutcome::Missing},
                             {"file/below", ReadOutcome::Missing},
                             {"dangling", ReadOutcome::Missing},
                             {"", ReadOutcome::Failed},
                             {"pipe", ReadOutcome::Failed}};
    for (const Row& row : kRows) {
        const ReadResult read = ReadWholeFile(folder / row.name);
        EXPECT_EQ(read.outcome, row.outcome) << row.name;
        EXPECT_EQ(read.bytes, "") << row.name;
        EXPECT_EQ(static_cast<bool>(read.error), row.outcome == ReadOutcome::Failed) << row.name;
        EXPECT_EQ(BytesOrEmpty(folder / row.name), "") << row.name;
    }
    EXPECT_EQ(ReadWholeFile(folder.Get()).error, std::errc::is_a_directory);
    EXPECT_EQ(ReadWholeFile(folder / std::string(5000, 'a')).outcome, ReadOutcome::Failed);
}

TEST(ReadWholeFile, ReadsFilesThatDoNotKnowTheirSize) {
    EXPECT_NE(BytesOrEmpty("/proc/self/status").find("Name:"), std::string::npos);
}

TEST(Files, APathWithANulNamesNoFile) {
    const TempFolder folder;
    const Path path = folder.Get() / std::string("file\0.txt", 9);
    ASSERT_FALSE(WriteWholeFile(folder / "file", "kept"));
    EXPECT_EQ(ReadWholeFile(path).outcome, ReadOutcome::Missing);
    EXPECT_TRUE(WriteWholeFile(path, "x"));
    EXPECT_TRUE(AppendToFile(path, "x"));
    EXPECT_FALSE(DeleteOneFile(path));
    EXPECT_FALSE(IsRegularFile(path));
    EXPECT_EQ(BytesOrEmpty(folder / "file"), "kept");
    EXPECT_EQ(EveryNameIn(folder.Get()), (std::vector<std::string>{"file"}));
}

TEST(WriteWholeFile, MakesAndReplacesWithoutATrace) {
    const TempFolder folder;
    for (const Flush flush : {Flush::ToDisk, Flush::Later}) {
        for (const char* content : {"first, rather long", "second", ""}) {
            EXPECT_FALSE(WriteWholeFile(folder / "file", content, flush));
            EXPECT_EQ(BytesOrEmpty(folder / "file"), content);
        }
    }
    EXPECT_EQ(EveryNameIn(folder.Get()), (std::vector<std::string>{"file"}));
}

TEST(WriteWholeFile, AReaderWithTheOldFileOpenKeepsTheOldBytes) {
    const TempFolder folder;
    ASSERT_FALSE(WriteWholeFile(folder / "file", "old"));
    fs::create_hard_link(folder / "file", folder / "reader");
    ASSERT_FALSE(WriteWholeFile(folder / "file", "new"));
    EXPECT_EQ(BytesOrEmpty(folder / "reader"), "old");
    EXPECT_EQ(BytesOrEmpty(folder / "file"), "new");
}

TEST(WriteWholeFile, KeepsThePermissionsOfTheOldFile) {
    const TempFolder folder;
    ASSERT_FALSE(WriteWholeFile(folder / "file", "old"));
    const auto mode = fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions(folder / "file", mode);
    ASSERT_FALSE(WriteWholeFile(folder / "file", "new"));
    EXPECT_EQ(fs::status(folder / "file").permissions(), mode);
}

TEST(WriteWholeFile, AFullDiskLeavesTheOldFileAndNoOther) {
    const TempFolder folder;
    ASSERT_FALSE(WriteWholeFile(folder / "file", "old"));
    const std::string tooLarge(kDiskSize + 1, 'x');
    for (const char* name : {"file", "new"}) {
        const Path path = folder / name;
        EXPECT_EQ(OnAFullDisk([&] { return WriteWholeFile(path, tooLarge) == std::errc::file_too_large; }),
                  0);
    }
    EXPECT_EQ(BytesOrEmpty(folder / "file"), "old");
    EXPECT_EQ(EveryNameIn(folder.Get()), (std::vector<std::string>{"file"}));
}

TEST(WriteWholeFile, WhatFitsOnAFullDiskIsWritten) {
    const TempFolder folder;
    const Path path = folder / "file";
    const std::string fits(kDiskSize, 'x');
    EXPECT_EQ(OnAFullDisk([&] { return !WriteWholeFile(path, fits); }), 0);
    EXPECT_EQ(BytesOrEmpty(path), fits);
}

TEST(WriteWholeFile, AReadOnlyFolderLeavesTheOldFile) {
    if (::geteuid() == 0) {
        // Nothing is read-only for the superuser; another user tries it in a child process.
        const TempFolder folder;
        ASSERT_FALSE(WriteWholeFile(folder / "file", "old"));
        fs::permissions(folder.Get(), static_cast<fs::perms>(0755));
        const Path path = folder / "file";
        constexpr uid_t kNobody = 65534;
        const pid_t child = ::fork();
        if (child == 0) {
            const bool left = ::setuid(kNobody) == 0;
            ::_exit(left && WriteWholeFile(path, "new") == std::errc::permission_denied ? 0 : 1);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
        EXPECT_EQ(BytesOrEmpty(path), "old");
        EXPECT_EQ(EveryNameIn(folder.Get()), (std::vector<std::string>{"file"}));
        return;
    }
    const TempFolder folder;
    ASSERT_FALSE(WriteWholeFile(folder / "file", "old"));
    fs::permissions(folder.Get(), static_cast<fs::perms>(0500));
    EXPECT_EQ(WriteWholeFile(folder / "file", "new"), std::errc::permission_denied);
    fs::permissions(folder.Get(), static_cast<fs::perms>(0700));
    EXPECT_EQ(BytesOrEmpty(folder / "file"), "old");
    EXPECT_EQ(EveryNameIn(folder.Get()), (std::vector<std::string>{"file"}));
}

TEST(WriteWholeFile, ReplacesTheFileBehindALink) {
    const TempFolder folder;
    fs::create_directory(folder / "elsewhere");
    ASSERT_FALSE(WriteWholeFile(folder / "elsewhere/file", "old"));
    fs::create_symlink("elsewhere/file", folder / "link");
    ASSERT_FALSE(WriteWholeFile(folder / "link", "new"));
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(BytesOrEmpty(folder / "elsewhere/file"), "new");
    EXPECT_EQ(EveryNameIn(folder / "elsewhere"), (std::vector<std::string>{"file"}));
}

TEST(WriteWholeFile, RefusesWhatIsNoFile) {
    const TempFolder folder;
    fs::create_directory(folder / "folder");
    fs::create_symlink("nowhere", folder / "dangling");
    fs::create_symlink("circle", folder / "circle");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    const std::vector<std::string> before = EveryNameIn(folder.Get());
    EXPECT_EQ(WriteWholeFile(folder / "folder", "x"), std::errc::is_a_directory);
    EXPECT_EQ(WriteWholeFile(folder / "pipe", "x"), std::errc::invalid_argument);
    EXPECT_TRUE(WriteWholeFile(folder / "dangling", "x"));
    EXPECT_TRUE(WriteWholeFile(folder / "circle", "x"));
    EXPECT_EQ(WriteWholeFile(folder / "no/folder", "x"), std::errc::no_such_file_or_directory);
    EXPECT_EQ(WriteWholeFile(folder / std::string(300, 'a'), "x"), std::errc::filename_too_long);
    EXPECT_EQ(EveryNameIn(folder.Get()), before);
}

TEST(WriteWholeFile, TwoWritersInOneFolderKeepApart) {
    const TempFolder folder;
    const auto writeMany = [&](const char* name, char byte) {
        for (int i = 0; i < 200; ++i)
            EXPECT_FALSE(WriteWholeFile(folder / name, std::string(3000, byte), Flush::Later));
    };
    std::thread other(writeMany, "a", 'a');
    writeMany("b", 'b');
    other.join();
    EXPECT_EQ(BytesOrEmpty(folder / "a"), std::string(3000, 'a'));
    EXPECT_EQ(BytesOrEmpty(folder / "b"), std::string(3000, 'b'));
    EXPECT_EQ(EveryNameIn(folder.Get()), (std::vector<std::string>{"a", "b"}));
}

TEST(AppendToFile, AddsToTheEndAndMakesTheFile) {
    const TempFolder folder;
    EXPECT_FALSE(AppendToFile(folder / "file", "one\r\n"));
    EXPECT_FALSE(AppendToFile(folder / "file", "two\r\n"));
    EXPECT_FALSE(AppendToFile(folder / "file", ""));
    EXPECT_EQ(BytesOrEmpty(folder / "file"), "one\r\ntwo\r\n");
    EXPECT_TRUE(AppendToFile(folder.Get(), "x"));
    EXPECT_TRUE(AppendToFile(folder / "no/folder", "x"));
}

TEST(AppendToFile, AFullDiskLeavesTheFileAsItWas) {
    const TempFolder folder;
    const Path path = folder / "file";
    ASSERT_FALSE(WriteWholeFile(path, "old line\r\n"));
    const std::string tooLarge(kDiskSize, 'x');
    EXPECT_EQ(OnAFullDisk([&] { return static_cast<bool>(AppendToFile(path, tooLarge)); }), 0);
    EXPECT_EQ(BytesOrEmpty(path), "old line\r\n");
}

TEST(ScratchFile, TakesThePlaceOfWhatWasThereAndGoesWithItsOwner) {
    const TempFolder folder;
    const Path file = folder / "Temp.txt";
    ASSERT_FALSE(WriteWholeFile(file, "what a killed program left"));
    {
        ScratchFile scratch(file);
        EXPECT_EQ(scratch.Name(), file);
        for (const std::string_view bytes : {"text", "a longer text", "short", "", "again"}) {
            EXPECT_FALSE(scratch.Write(bytes));
            EXPECT_EQ(BytesOrEmpty(file), bytes);
        }
        EXPECT_EQ(FileNamesIn(folder.Get()), std::vector<std::string>{"Temp.txt"});
    }
    EXPECT_EQ(FileNamesIn(folder.Get()), std::vector<std::string>{});
}

TEST(ScratchFile, LeavesWhatItsNameStoodForUntilItIsWritten) {
    const TempFolder folder;
    // A link goes, and not the file behind it.
    ASSERT_FALSE(WriteWholeFile(folder / "own", "own"));
    fs::create_symlink(folder / "own", folder / "link");
    { const ScratchFile never(folder / "link"); }
    EXPECT_EQ(BytesOrEmpty(folder / "link"), "own");
    ScratchFile scratch(folder / "link");
    EXPECT_FALSE(scratch.Write("text"));
    EXPECT_EQ(BytesOrEmpty(folder / "own"), "own");
    EXPECT_EQ(BytesOrEmpty(folder / "link"), "text");
    fs::create_directory(folder / "in the way");
    EXPECT_EQ(ScratchFile(folder / "in the way").Write("text"), std::errc::is_a_directory);
    EXPECT_TRUE(fs::is_directory(folder / "in the way"));
    EXPECT_EQ(ScratchFile(Path(std::string("a\0b", 3))).Write("text"), std::errc::invalid_argument);
}

TEST(ScratchFile, IsMadeAnewWhereAnotherFileTookItsPlace) {
    const TempFolder folder;
    const Path file = folder / "Temp.txt";
    ScratchFile scratch(file);
    EXPECT_FALSE(scratch.Write("one"));
    ASSERT_FALSE(WriteWholeFile(file, "in its place"));
    scratch.Delete();
    EXPECT_FALSE(IsRegularFile(file));
    EXPECT_FALSE(scratch.Write("two"));
    EXPECT_EQ(BytesOrEmpty(file), "two");
}

TEST(ScratchFile, LeavesNothingOnAFullDiskAndIsMadeAnewBehindIt) {
    const TempFolder folder;
    const Path file = folder / "Temp.txt";
    const auto isMadeAnew = [&] {
        ScratchFile scratch(file);
        const bool isFirst = !scratch.Write("text");
        const bool fails = static_cast<bool>(scratch.Write(std::string(2 * kDiskSize, 'x')));
        const bool isGone = !IsRegularFile(file);
        return isFirst && fails && isGone && !scratch.Write("again") && BytesOrEmpty(file) == "again";
    };
    EXPECT_EQ(OnAFullDisk(isMadeAnew), 0);
    EXPECT_FALSE(IsRegularFile(file));
}

TEST(GrowingFile, IsReadAndGrowsWhileItIsOpen) {
    const TempFolder folder;
    const Path file = folder / "year.24";
    ASSERT_FALSE(WriteWholeFile(file, "one\r\n"));
    GrowingFile growing(file);
    std::string buffer = "before";
    std::size_t used = buffer.size();
    EXPECT_EQ(growing.ReadIntoBuffer(buffer, used), ReadOutcome::Done);
    EXPECT_EQ(buffer.substr(0, used), "beforeone\r\n");
    EXPECT_FALSE(growing.Append("two\r\n"));
    EXPECT_EQ(BytesOrEmpty(file), "one\r\ntwo\r\n");
    EXPECT_FALSE(growing.Append("three\r\n"));
    EXPECT_FALSE(growing.Close());
    EXPECT_EQ(BytesOrEmpty(file), "one\r\ntwo\r\nthree\r\n");
}

TEST(GrowingFile, AsMuchOfItsBeginningAsMayBeIsLeftOut) {
    const TempFolder folder;
    const Path file = folder / "year.24";
    ASSERT_FALSE(WriteWholeFile(file, "one two three"));
    struct Case {
        std::size_t least, most, leftOut;
    };
    constexpr std::array<Case, 5> kCases = {
        {{5, 100, 8}, {5, 3, 3}, {13, 100, 0}, {14, 100, 0}, {0, 100, 13}}};
    for (const Case& one : kCases) {
        GrowingFile growing(file);
        std::string buffer = "before";
        std::size_t used = buffer.size();
        FileEnd end;
        EXPECT_EQ(growing.ReadEndIntoBuffer(one.least, one.most, buffer, used, end), ReadOutcome::Done);
        EXPECT_EQ(end.leftOut, one.leftOut);
        EXPECT_EQ(end.extent.length, 13U);
        EXPECT_EQ(end.extent.device, growing.Extent()->device);
        EXPECT_EQ(buffer.substr(0, used), "before" + std::string("one two three").substr(one.leftOut));
    }
}

TEST(GrowingFile, TheEndOfWhatIsMissingOrNoFileIsNotRead) {
    const TempFolder folder;
    std::string buffer;
    std::size_t used = 0;
    FileEnd end;
    EXPECT_EQ(GrowingFile(folder / "year.24").ReadEndIntoBuffer(5, 5, buffer, used, end),
              ReadOutcome::Missing);
    EXPECT_EQ(GrowingFile(folder.Get()).ReadEndIntoBuffer(5, 5, buffer, used, end), ReadOutcome::Failed);
    EXPECT_EQ(used, 0U);
}

TEST(GrowingFile, AMissingFileIsMadeByItsFirstLine) {
    const TempFolder folder;
    GrowingFile growing(folder / "year.24");
    std::string buffer;
    std::size_t used = 0;
    EXPECT_EQ(growing.ReadIntoBuffer(buffer, used), ReadOutcome::Missing);
    EXPECT_FALSE(IsRegularFile(folder / "year.24"));
    EXPECT_FALSE(growing.Append("one\n"));
    EXPECT_EQ(BytesOrEmpty(folder / "year.24"), "one\n");
}

TEST(GrowingFile, AFolderInItsPlaceIsAFailureThatIsTold) {
    const TempFolder folder;
    GrowingFile growing(folder.Get());
    std::string buffer;
    std::size_t used = 0;
    EXPECT_EQ(growing.ReadIntoBuffer(buffer, used), ReadOutcome::Failed);
    EXPECT_EQ(growing.Append("one\n"), std::errc::is_a_directory);
}

TEST(GrowingFile, AFileThatMayNotGrowIsReadAllTheSame) {
    const TempFolder folder;
    const Path path = folder / "year.24";
    ASSERT_FALSE(WriteWholeFile(path, "one\n"));
    fs::permissions(path, static_cast<fs::perms>(0444));
    fs::permissions(folder.Get(), static_cast<fs::perms>(0755));
    constexpr uid_t kNobody = 65534;
    const pid_t child = ::fork();
    if (child == 0) {
        // To the superuser every file may grow.
        const bool left = ::geteuid() != 0 || ::setuid(kNobody) == 0;
        GrowingFile growing(path);
        std::string buffer;
        std::size_t used = 0;
        const bool isRead = growing.ReadIntoBuffer(buffer, used) == ReadOutcome::Done && used == 4;
        ::_exit(left && isRead && growing.Append("two\n") == std::errc::permission_denied ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(BytesOrEmpty(path), "one\n");
}

TEST(DeleteOneFile, DeletesFilesAndLinksButNoFolder) {
    const TempFolder folder;
    ASSERT_FALSE(WriteWholeFile(folder / "file", "x"));
    fs::create_directory(folder / "folder");
    fs::create_symlink("folder", folder / "link");
    EXPECT_TRUE(DeleteOneFile(folder / "file"));
    EXPECT_FALSE(DeleteOneFile(folder / "file"));
    EXPECT_FALSE(DeleteOneFile(folder / "folder"));
    EXPECT_TRUE(DeleteOneFile(folder / "link"));
    EXPECT_EQ(EveryNameIn(folder.Get()), (std::vector<std::string>{"folder"}));
}

TEST(FileNamesIn, ListsRegularFilesSorted) {
    const TempFolder folder;
    for (const char* name : {"b", "a", "C", ".hidden", "\xFF"}) {
        ASSERT_FALSE(WriteWholeFile(folder / name, ""));
    }
    fs::create_directory(folder / "folder");
    fs::create_symlink("a", folder / "link");
    fs::create_symlink("nowhere", folder / "dangling");
    EXPECT_EQ(FileNamesIn(folder.Get()),
              (std::vector<std::string>{".hidden", "C", "a", "b", "link", "\xFF"}));
    EXPECT_TRUE(FileNamesIn(folder / "missing").empty());
    EXPECT_TRUE(FileNamesIn(folder / "a").empty());
    EXPECT_TRUE(IsRegularFile(folder / "link"));
    EXPECT_FALSE(IsRegularFile(folder / "folder"));
    EXPECT_FALSE(IsRegularFile(folder / "dangling"));
}

TEST(PlatformPath, TurnsBackslashesIntoSlashes) {
    EXPECT_EQ(PlatformPath("\\Quotes\\EOD\\"), "/Quotes/EOD/");
    EXPECT_EQ(PlatformPath("sub/x.dbe"), "sub/x.dbe");
    EXPECT_EQ(PlatformPath(""), "");
}

}  // namespace
}  // namespace brantlow
