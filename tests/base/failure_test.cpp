#include "base/failure.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace brantlow {
namespace {

const std::error_code kFull = std::make_error_code(std::errc::no_space_on_device);

TEST(Failure, IsNoneUntilSomethingFailed) {
    EXPECT_FALSE(Failure{});
    EXPECT_FALSE(FailedTo(FailureKind::Write, "a", {}));
    EXPECT_TRUE(FailedTo(FailureKind::Write, "a", kFull));
    EXPECT_EQ(Sentence({}), "");
}

struct Worded {
    FailureKind kind;
    std::string_view sentence;
};

TEST(Failure, NamesTheFileTheAttemptAndTheCause) {
    const std::vector<Worded> rows = {
        {FailureKind::Read, "/q/NFLX.25: cannot be read (No space left on device)"},
        {FailureKind::List, "/q/NFLX.25: cannot be looked through (No space left on device)"},
        {FailureKind::Write, "/q/NFLX.25: cannot be saved (No space left on device)"},
        {FailureKind::Delete, "/q/NFLX.25: cannot be deleted (No space left on device)"},
        {FailureKind::Make, "/q/NFLX.25: cannot be made (No space left on device)"},
        {FailureKind::Lock, "/q/NFLX.25: cannot be locked (No space left on device)"},
    };
    for (const Worded& row : rows) {
        EXPECT_EQ(Sentence(FailedTo(row.kind, "/q/NFLX.25", kFull)), row.sentence);
    }
}

TEST(Failure, SaysOfADeclinedSaveThatTheFileStaysAsItIs) {
    const std::error_code declined = std::make_error_code(std::errc::operation_canceled);
    EXPECT_EQ(CannotBeSaved("Mine.ddq", declined),
              "Mine.ddq: was not saved and stays as the other program left it");
    EXPECT_EQ(
        ChangeSentence("The edit", FailedTo(FailureKind::Write, "/d/Mine.ddq", declined)),
        "The edit failed: /d/Mine.ddq: was not saved and stays as the other program left it; nothing was "
        "changed");
}

TEST(Failure, TakesWhatTheLayersAdd) {
    const Failure failure =
        FailedTo(FailureKind::Read, "Import.Txt", kFull).Of("KO").Of("ADBE").About("it stays").About("no");
    EXPECT_EQ(failure.ticker, "KO");
    EXPECT_EQ(Sentence(failure), "Import.Txt: cannot be read (No space left on device); it stays");
}

TEST(Failure, NamesTheLineWhereThereIsOne) {
    Failure failure = FailedTo(FailureKind::Read, "Hosts.ini", kFull);
    failure.line = 7;
    EXPECT_EQ(Sentence(failure), "Hosts.ini, line 7: cannot be read (No space left on device)");
}

TEST(Failure, SpeaksForItselfWhereNoFileIsMeant) {
    EXPECT_EQ(Sentence(FailedBecause("the wheel is off")), "the wheel is off");
}

TEST(Failure, TheFirstOfManyIsKept) {
    Failure first;
    KeepFirst(first, {});
    EXPECT_FALSE(first);
    KeepFirst(first, FailedBecause("one"));
    KeepFirst(first, FailedBecause("two"));
    EXPECT_EQ(Sentence(first), "one");
}

TEST(ReadIfThere, TellsAMissingFileFromOneThatCannotBeRead) {
    const TempFolder folder;
    std::string bytes = "old";
    EXPECT_FALSE(ReadIfThere(folder / "none", bytes));
    EXPECT_EQ(bytes, "");

    ASSERT_FALSE(WriteWholeFile(folder / "some", "text"));
    EXPECT_FALSE(ReadIfThere(folder / "some", bytes));
    EXPECT_EQ(bytes, "text");

    std::filesystem::create_directory(folder / "folder");
    const Failure failure = ReadIfThere(folder / "folder", bytes);
    EXPECT_EQ(Sentence(failure), (folder / "folder").string() + ": cannot be read (Is a directory)");
    EXPECT_EQ(bytes, "");
}

TEST(ReadBehindIfThere, SaysWhyAFileCannotBeReadAndLeavesTheBuffer) {
    const TempFolder folder;
    std::string buffer;
    std::size_t used = 0;
    EXPECT_FALSE(ReadBehindIfThere(folder / "none", buffer, used));
    EXPECT_EQ(used, 0U);
    const Failure failure = ReadBehindIfThere(folder.Get(), buffer, used);
    EXPECT_EQ(failure.cause, std::errc::is_a_directory);
    EXPECT_EQ(failure.file, folder.Get());
    EXPECT_EQ(used, 0U);
}

TEST(ListFiles, AFolderThatIsMissingHasNoneAndOneThatIsNoFolderIsAFailure) {
    const TempFolder folder;
    std::vector<std::string> names = {"old"};
    EXPECT_FALSE(ListFiles(folder / "none", names));
    EXPECT_TRUE(names.empty());
    ASSERT_FALSE(WriteWholeFile(folder / "file", "x"));
    std::filesystem::create_directory(folder / "inner");
    EXPECT_FALSE(ListFiles(folder.Get(), names));
    EXPECT_EQ(names, std::vector<std::string>{"file"});
    const Failure failure = ListFiles(folder / "file", names);
    EXPECT_EQ(Sentence(failure), (folder / "file").string() + ": cannot be looked through (Not a directory)");
}

TEST(DeleteIfThere, TellsWhatCannotGo) {
    const TempFolder folder;
    ASSERT_FALSE(WriteWholeFile(folder / "file", "x"));
    EXPECT_FALSE(DeleteIfThere(folder / "file"));
    EXPECT_FALSE(IsRegularFile(folder / "file"));
    EXPECT_FALSE(DeleteIfThere(folder / "file"));
    EXPECT_EQ(DeleteIfThere(folder.Get()).kind, FailureKind::Delete);
}

}  // namespace
}  // namespace brantlow
