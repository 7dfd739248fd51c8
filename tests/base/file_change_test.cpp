#include "base/file_change.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>

#include "base/change_list.h"
#include "base/undo_store.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FileChangeTest : public ::testing::Test {
  protected:
    FileChangeTest() { fs::create_directories(folder / "Data"); }

    Path File(const std::string& name) const { return folder / "Data" / name; }
    void Put(const std::string& name, std::string_view bytes) const {
        ASSERT_FALSE(WriteWholeFile(File(name), bytes));
    }
    // Names and bytes of the user's files.
    std::vector<std::string> Files() const {
        std::vector<std::string> files;
        for (const auto& entry : fs::directory_iterator(folder / "Data")) {
            files.push_back(entry.path().filename().string() + "=" + BytesOrEmpty(entry.path()));
        }
        std::sort(files.begin(), files.end());
        return files;
    }
    std::vector<std::string> Whats() const {
        std::vector<std::string> whats;
        for (const KeptChange& change : KeptChanges(place)) whats.push_back(change.what);
        return whats;
    }
    std::size_t UndoFolders() const {
        if (!fs::exists(place.UndoFolder())) return 0;
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(place.UndoFolder()), fs::directory_iterator()));
    }
    // A change of every kind: "kept" replaced, "gone" deleted, "new" made, "long" lengthened, "fresh" begun.
    Failure ChangeAll(FileChange& change) const {
        Failure fault = change.Write(File("kept"), "KEPT");
        if (!fault) fault = change.Delete(File("gone"));
        if (!fault) fault = change.Write(File("new"), "NEW");
        for (const char* name : {"long", "fresh"}) {
            if (!fault) fault = change.WillGrow(File(name));
            if (!fault)
                fault = FailedTo(FailureKind::Write, File(name), AppendToFile(change.Where(File(name)), "+"));
        }
        return fault;
    }
    void PutAll() const {
        Put("kept", "kept");
        Put("gone", "gone");
        Put("long", "long");
    }
    const std::vector<std::string> before = {"gone=gone", "kept=kept", "long=long"};
    const std::vector<std::string> after = {"fresh=+", "kept=KEPT", "long=long+", "new=NEW"};

    TempFolder folder;
    ChangePlace place{folder.Get(), "2024-03-15 16:00:05"};
};

TEST_F(FileChangeTest, NothingIsChangedBeforeTheCommit) {
    PutAll();
    {
        FileChange change(place, "Test");
        ASSERT_FALSE(change.Write(File("kept"), "KEPT"));
        ASSERT_FALSE(change.Delete(File("gone")));
        EXPECT_EQ(BytesOrEmpty(File("kept")), "kept");
        EXPECT_EQ(BytesOrEmpty(change.Where(File("kept"))), "KEPT");
        EXPECT_EQ(BytesOrEmpty(File("gone")), "gone");
    }
    EXPECT_EQ(Files(), before);
    EXPECT_EQ(UndoFolders(), 0U);
}

TEST_F(FileChangeTest, ACommitChangesEveryFileAndKeepsTheChange) {
    PutAll();
    FileChange change(place, "Populate Practice.ddq");
    ASSERT_FALSE(ChangeAll(change));
    ASSERT_FALSE(change.Commit());
    EXPECT_EQ(Files(), after);
    const std::vector<KeptChange> changes = KeptChanges(place);
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(changes[0].number, 1U);
    EXPECT_EQ(changes[0].when, "2024-03-15 16:00:05");
    EXPECT_EQ(changes[0].what, "Populate Practice.ddq");
    EXPECT_EQ(changes[0].files, 5U);
    EXPECT_EQ(changes[0].bytes, 8U);
    EXPECT_EQ(changes[0].folder.filename(), "2024-03-15 160005-Populate Practice.ddq");
}

TEST_F(FileChangeTest, OnlyItsOwnFolderIsMadeWhereItIsMissing) {
    place.ownFolder = folder / "own/eod";
    FileChange change(place, "Test");
    ASSERT_FALSE(change.Write(folder / "own/eod/KO.26", "new"));
    EXPECT_EQ(change.Write(folder / "share/KO.26", "new").cause, std::errc::no_such_file_or_directory);
    EXPECT_FALSE(fs::exists(folder / "share"));
    ASSERT_FALSE(change.Commit());
    EXPECT_EQ(BytesOrEmpty(folder / "own/eod/KO.26"), "new");

    fs::remove_all(folder / "own");
    FileChange growing(place, "Test");
    ASSERT_FALSE(growing.WillGrow(folder / "own/eod/KO.26"));
    EXPECT_FALSE(AppendToFile(folder / "own/eod/KO.26", "+"));
    ASSERT_FALSE(growing.Commit());
}

TEST_F(FileChangeTest, AnUndoBringsEveryFileBackAndASecondOneTheChange) {
    PutAll();
    FileChange change(place, "Test");
    ASSERT_FALSE(ChangeAll(change));
    ASSERT_FALSE(change.Commit());
    for (int round = 0; round < 2; ++round) {
        EXPECT_FALSE(UndoChange(place, "").fault);
        EXPECT_EQ(Files(), before);
        EXPECT_THAT(Whats(), ElementsAre("Undo Test"));
        EXPECT_FALSE(UndoChange(place, "").fault);
        EXPECT_EQ(Files(), after);
        EXPECT_THAT(Whats(), ElementsAre("Test"));
    }
}

TEST_F(FileChangeTest, LinesAddedLaterToAKeptFileAreNoPartOfIt) {
    Put("kept", "one\n");
    FileChange first(place, "First");
    ASSERT_FALSE(first.Write(File("kept"), "two\n"));
    ASSERT_FALSE(first.Commit());
    ASSERT_FALSE(UndoChange(place, "").fault);
    ASSERT_FALSE(AppendToFile(File("kept"), "more\n"));
    FileChange second(place, "Second");
    ASSERT_FALSE(second.Delete(File("kept")));
    ASSERT_FALSE(second.Commit());
    ASSERT_FALSE(UndoChange(place, "").fault);
    EXPECT_EQ(BytesOrEmpty(File("kept")), "one\nmore\n");
}

TEST_F(FileChangeTest, AFileThatGrewAndWasReplacedGoesBackToItsFirstLength) {
    Put("long", "long");
    FileChange change(place, "Test");
    ASSERT_FALSE(change.WillGrow(File("long")));
    ASSERT_FALSE(AppendToFile(File("long"), "+more"));
    ASSERT_FALSE(change.Write(File("long"), "anew"));
    ASSERT_FALSE(change.Commit());
    EXPECT_EQ(BytesOrEmpty(File("long")), "anew");
    ASSERT_FALSE(UndoChange(place, "").fault);
    EXPECT_EQ(BytesOrEmpty(File("long")), "long");
}

TEST_F(FileChangeTest, APreparedFileIsPreparedAgainOrTakenOut) {
    Put("kept", "kept");
    FileChange change(place, "Test");
    ASSERT_FALSE(change.Write(File("kept"), "one"));
    ASSERT_FALSE(change.Write(File("kept"), "two"));
    ASSERT_FALSE(change.Write(File("new"), "new"));
    ASSERT_FALSE(change.Delete(File("new")));
    ASSERT_FALSE(change.Commit());
    EXPECT_THAT(Files(), ElementsAre("kept=two"));
}

TEST_F(FileChangeTest, AChangeThatBreaksOffIsTakenBackAsAWhole) {
    PutAll();
    FileChange change(place, "Test");
    ASSERT_FALSE(ChangeAll(change));
    // In the place of the new file a folder has appeared.
    fs::create_directory(File("new"));
    const Failure fault = change.Commit();
    EXPECT_EQ(fault.cause, std::errc::is_a_directory);
    EXPECT_EQ(fault.file, File("new"));
    fs::remove(File("new"));
    EXPECT_EQ(Files(), before);
    EXPECT_EQ(UndoFolders(), 0U);
}

TEST_F(FileChangeTest, WithoutRoomForTheOldFilesNothingIsChanged) {
    PutAll();
    ASSERT_FALSE(WriteWholeFile(folder / "Back Up", "no folder"));
    FileChange change(place, "Test");
    ASSERT_FALSE(change.Write(File("kept"), "KEPT"));
    const Failure fault = change.Commit();
    EXPECT_EQ(fault.file, place.UndoFolder());
    EXPECT_FALSE(fault.isHalfDone);
    EXPECT_EQ(Files(), before);
}

TEST_F(FileChangeTest, AChangeThatIsNotForUndoLeavesNothingBehind) {
    PutAll();
    FileChange change(place, "Test", ChangeKeeps::UntilDone);
    ASSERT_FALSE(ChangeAll(change));
    ASSERT_FALSE(change.Commit());
    EXPECT_EQ(Files(), after);
    EXPECT_EQ(UndoFolders(), 0U);
}

// Without a list of what was there: files that do not depend on one another.
TEST_F(FileChangeTest, AGroupThatBreaksOffIsTakenBackToo) {
    PutAll();
    FileChange change(place, "Test", ChangeKeeps::Nothing);
    ASSERT_FALSE(change.Write(File("kept"), "KEPT"));
    ASSERT_FALSE(change.Write(File("new"), "NEW"));
    ASSERT_FALSE(change.Write(File("blocked"), "BLOCKED"));
    fs::create_directory(File("blocked"));
    EXPECT_EQ(change.Commit().file, File("blocked"));
    fs::remove(File("blocked"));
    EXPECT_EQ(Files(), before);
    EXPECT_EQ(UndoFolders(), 0U);
}

TEST_F(FileChangeTest, AFileThatWasPreparedAndThenTakenOutStaysWhenTheChangeIsTakenBack) {
    Put("kept", "kept");
    FileChange change(place, "Test");
    ASSERT_FALSE(change.Write(File("kept"), "KEPT"));
    ASSERT_FALSE(change.Delete(File("kept")));
    EXPECT_FALSE(change.TakeBack());
    EXPECT_THAT(Files(), ElementsAre("kept=kept"));
}

TEST_F(FileChangeTest, AChangeWithoutWorkLeavesNothingBehind) {
    FileChange change(place, "Test");
    ASSERT_FALSE(change.Delete(File("none")));
    ASSERT_FALSE(change.Commit());
    EXPECT_THAT(Whats(), IsEmpty());
    EXPECT_EQ(UndoFolders(), 0U);
}

TEST_F(FileChangeTest, ManyFilesAreOneGroup) {
    constexpr int kFiles = 50;
    FileChange change(place, "Test");
    for (int i = 0; i < kFiles; ++i) ASSERT_FALSE(change.Write(File(std::to_string(i)), "x"));
    ASSERT_FALSE(change.Commit());
    EXPECT_EQ(Files().size(), static_cast<std::size_t>(kFiles));
    EXPECT_EQ(KeptChanges(place)[0].files, static_cast<std::size_t>(kFiles));
}

TEST_F(FileChangeTest, ManyFilesThatGrowAreFlushedMeanwhileAndTakenBackAllTheSame) {
    constexpr int kFiles = 1100;
    FileChange change(place, "Test");
    for (int i = 0; i < kFiles; ++i) {
        ASSERT_FALSE(change.WillGrow(File(std::to_string(i))));
        ASSERT_FALSE(AppendToFile(File(std::to_string(i)), "x"));
    }
    EXPECT_EQ(Files().size(), static_cast<std::size_t>(kFiles));
    ASSERT_FALSE(change.TakeBack());
    EXPECT_TRUE(Files().empty());
}

TEST_F(FileChangeTest, FilesNotedTogetherGoBackToTheirLengths) {
    Put("a", "one");
    Put("b", "two!");
    const Path a = File("a");
    const Path b = File("b");
    FileChange change(place, "Test");
    EXPECT_FALSE(change.Touches(a));
    ASSERT_FALSE(change.WillGrow(std::vector<FileChange::Growth>{{&a, {3, 1}}, {&b, {4, 1}}}));
    EXPECT_TRUE(change.Touches(a));
    EXPECT_TRUE(change.Touches(b));
    EXPECT_FALSE(change.Touches(File("c")));
    ASSERT_FALSE(AppendToFile(a, "+"));
    ASSERT_FALSE(AppendToFile(b, "++"));
    ASSERT_FALSE(change.TakeBack());
    EXPECT_THAT(Files(), ElementsAre("a=one", "b=two!"));
    EXPECT_FALSE(change.Touches(a));
}

TEST_F(FileChangeTest, NotingNoFileBeginsNoChange) {
    FileChange change(place, "Test");
    ASSERT_FALSE(change.WillGrow(std::vector<FileChange::Growth>{}));
    EXPECT_FALSE(change.HasWork());
    EXPECT_EQ(UndoFolders(), 0U);
}

TEST_F(FileChangeTest, AChangeTouchesWhatItWritesAndDeletes) {
    Put("gone", "x");
    FileChange change(place, "Test");
    ASSERT_FALSE(change.Write(File("new"), "NEW"));
    ASSERT_FALSE(change.Delete(File("gone")));
    EXPECT_TRUE(change.Touches(File("new")));
    EXPECT_TRUE(change.Touches(File("gone")));
    EXPECT_FALSE(change.Touches(File("else")));
}

// A flush goes to the files, or to the file system by one of them: it fails where none of them is left.
TEST_F(FileChangeTest, FilesThatGrewAreFlushedHoweverMany) {
    for (const int count : {1, 16, 17, 40}) {
        for (const bool wereThere : {false, true}) {
            FileChange change(place, "Test", ChangeKeeps::UntilDone);
            for (int i = 0; i < count; ++i) {
                const std::string name = std::to_string(i);
                if (wereThere) Put(name, "a");
                ASSERT_FALSE(change.WillGrow(File(name)));
                ASSERT_FALSE(AppendToFile(File(name), "b"));
            }
            for (int i = 0; i < count; ++i) fs::remove(File(std::to_string(i)));
            EXPECT_TRUE(change.Commit()) << count << (wereThere ? " files" : " new files");
        }
    }
}

TEST_F(FileChangeTest, AccessKeysAreNeverCopied) {
    Put("Keys.ini", "secret");
    FileChange change(place, "Test");
    ASSERT_FALSE(change.Write(File("Keys.ini"), "other"));
    ASSERT_FALSE(change.Write(File("table"), "rows"));
    ASSERT_FALSE(change.Commit());
    for (const auto& entry : fs::recursive_directory_iterator(place.UndoFolder())) {
        if (entry.is_regular_file()) {
            EXPECT_NE(BytesOrEmpty(entry.path()), "secret") << entry.path();
        }
    }
}

TEST_F(FileChangeTest, NamesAndPathsOfAnyBytesComeBack) {
    const std::string name = "a\tb\n%41 \"c\"";
    Put(name, "old");
    FileChange change(place, "Split A/B 7/1");
    ASSERT_FALSE(change.Write(File(name), "new"));
    ASSERT_FALSE(change.Commit());
    EXPECT_THAT(Whats(), ElementsAre("Split A/B 7/1"));
    ASSERT_FALSE(UndoChange(place, "1").fault);
    EXPECT_EQ(BytesOrEmpty(File(name)), "old");
}

TEST_F(FileChangeTest, TheNewestChangesWithinTheLimitsAreKept) {
    place.limits.changes = 3;
    for (int i = 1; i <= 5; ++i) {
        FileChange change(place, "Change " + std::to_string(i));
        ASSERT_FALSE(change.Write(File("kept"), std::string(static_cast<std::size_t>(i), 'x')));
        ASSERT_FALSE(change.Commit());
    }
    EXPECT_THAT(Whats(), ElementsAre("Change 5", "Change 4", "Change 3"));
    place.limits.bytes = 5;
    FileChange change(place, "Change 6");
    ASSERT_FALSE(change.Write(File("kept"), "y"));
    ASSERT_FALSE(change.Commit());
    // The newest alone holds five bytes.
    EXPECT_THAT(Whats(), ElementsAre("Change 6"));
    EXPECT_EQ(UndoFolders(), 1U);
}

TEST_F(FileChangeTest, AnOlderChangeIsUndoneByItsNumber) {
    Put("a", "a");
    Put("b", "b");
    for (const char* name : {"a", "b"}) {
        FileChange change(place, name);
        ASSERT_FALSE(change.Write(File(name), "new"));
        ASSERT_FALSE(change.Commit());
    }
    const UndoResult result = UndoChange(place, "1");
    EXPECT_EQ(result.change.what, "a");
    EXPECT_THAT(result.files, ElementsAre(File("a")));
    EXPECT_THAT(Files(), ElementsAre("a=a", "b=new"));
    EXPECT_THAT(Whats(), ElementsAre("Undo a", "b"));
    EXPECT_EQ(UndoChange(place, "7").change.number, 0U);
}

TEST_F(FileChangeTest, ADamagedCopyRefusesTheUndo) {
    Put("kept", "kept");
    FileChange change(place, "Test");
    ASSERT_FALSE(change.Write(File("kept"), "KEPT"));
    ASSERT_FALSE(change.Commit());
    const Path copy = KeptChanges(place)[0].folder / "1";
    ASSERT_FALSE(WriteWholeFile(copy, "k"));
    const UndoResult result = UndoChange(place, "");
    EXPECT_EQ(result.fault.file, copy);
    EXPECT_EQ(BytesOrEmpty(File("kept")), "KEPT");
    EXPECT_THAT(Whats(), ElementsAre("Test"));
}

// A child process carries the change out until it dies behind its step `stop`; what it left is taken back.
TEST_F(FileChangeTest, WhatAKilledProgramLeftOpenIsTakenBack) {
    PutAll();
    const pid_t child = ::fork();
    if (child == 0) {
        FileChange change(place, "Split KO 2/1");
        if (ChangeAll(change)) ::_exit(1);
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_EQ(status, 0);
    EXPECT_EQ(BytesOrEmpty(File("long")), "long+");
    const std::vector<InterruptedChange> interrupted = RecoverChanges(place);
    ASSERT_EQ(interrupted.size(), 1U);
    EXPECT_EQ(InterruptedSentence(interrupted[0]),
              "Split KO 2/1 was interrupted: what it had changed was taken back.");
    const std::vector<Path> folders = {folder / "Data"};
    SweepTemporaries(folders);
    EXPECT_EQ(Files(), before);
    EXPECT_EQ(UndoFolders(), 0U);
    EXPECT_THAT(RecoverChanges(place), IsEmpty());
}

TEST_F(FileChangeTest, UnfinishedFilesOfLivingProgramsStay) {
    const std::string own = std::string(kTemporaryPrefix) + std::to_string(::getpid()) + "-1.tmp";
    Put(own, "own");
    Put(".brantlow-4194399-c7.tmp", "of a process number that the system never gives");
    Put(".brantlow-notes", "of the user");
    const std::vector<Path> folders = {folder / "Data"};
    SweepTemporaries(folders);
    EXPECT_THAT(Files(), ElementsAre(own + "=own", ".brantlow-notes=of the user"));
}

TEST(ChangeList, ALineThatIsCutDoesNotCount) {
    const FileChange::Entry entry{FileChange::Entry::Was::Grown, 0, 12, "/app/Quotes/KO.24"};
    const std::string text = ChangeListHead("now", "Test") + ChangeListLine(entry, "/app");
    EXPECT_EQ(text, "brantlow change 1\tnow\tTest\ngrown\t0\t12\tQuotes/KO.24\n");
    for (std::size_t length = 0; length <= text.size(); ++length) {
        const ChangeList list = ParseChangeList(text.substr(0, length), "/app");
        EXPECT_EQ(list.entries.size(), length == text.size() ? 1U : 0U) << length;
    }
    EXPECT_EQ(ParseChangeList(text, "/app").entries[0].path, "/app/Quotes/KO.24");
}

TEST(ChangeList, APathBelowTheFolderIsNamedFromThereOn) {
    struct Case {
        const char* path;
        const char* folder;
        const char* named;
    };
    constexpr std::array<Case, 8> kCases = {{{"/app/EOD/KO.24", "/app", "EOD/KO.24"},
                                             {"/app/EOD/KO.24", "/app/", "EOD/KO.24"},
                                             {"/app//EOD/KO.24", "/app", "EOD/KO.24"},
                                             {"/app2/KO.24", "/app", "/app2/KO.24"},
                                             {"/app/../KO.24", "/app", "/app/../KO.24"},
                                             {"/app/..KO.24", "/app", "..KO.24"},
                                             {"/KO.24", "/", "/KO.24"},
                                             {"./EOD/KO.24", ".", "EOD/KO.24"}}};
    for (const Case& one : kCases) {
        const FileChange::Entry entry{FileChange::Entry::Was::Absent, 0, 0, one.path};
        const std::string line = ChangeListLine(entry, one.folder);
        EXPECT_EQ(line, "absent\t0\t0\t" + std::string(one.named) + "\n");
        const ChangeList list = ParseChangeList(ChangeListHead("now", "Test") + line, one.folder);
        ASSERT_EQ(list.entries.size(), 1U);
        EXPECT_EQ(Path(list.entries[0].path).lexically_normal(), Path(one.path).lexically_normal());
    }
}

}  // namespace
}  // namespace brantlow
