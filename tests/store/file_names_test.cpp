#include "store/file_names.h"

#include "store/store_fixture.h"

namespace brantlow {
namespace {

TEST(FileNames, KindIsReadFromTheEndOfTheNameCaseAndAll) {
    struct Row {
        const char* name;
        FileKind kind;
    };
    constexpr Row kRows[] = {{"Jan.ddq", FileKind::Ddq},
                             {"sub/x.dbe", FileKind::Dbe},
                             {"New EOD Quotes.db", FileKind::Db},
                             {"ExtendedFundamentals.efq", FileKind::Efq},
                             {"Jan.DDQ", FileKind::None},
                             {"Jan.Db", FileKind::None},
                             {"Jan.ddq ", FileKind::None},
                             {"Jan.txt", FileKind::None},
                             {"", FileKind::None},
                             {"ddq", FileKind::Ddq},
                             {"addq", FileKind::Ddq},
                             {"b", FileKind::None}};
    for (const Row& row : kRows) EXPECT_EQ(KindOf(row.name), row.kind) << row.name;
}

TEST(FileNames, SavingATemplateUnderANameWithoutDdqLeavesAFileWithoutAKind) {
    EXPECT_EQ(KindOf("My Table"), FileKind::None);
    EXPECT_EQ(KindOf("My Table.txt"), FileKind::None);
}

TEST(FileNames, TheWorkingNamesHaveTheirKinds) {
    EXPECT_EQ(kNewTableName, "New EOD Quotes.db");
    EXPECT_EQ(kEvaluationsName, "Evaluations.dbe");
    EXPECT_EQ(kFundamentalsName, "ExtendedFundamentals.efq");
    EXPECT_EQ(KindOf(kNewTableName), FileKind::Db);
    EXPECT_EQ(KindOf(kEvaluationsName), FileKind::Dbe);
    EXPECT_EQ(KindOf(kFundamentalsName), FileKind::Efq);
}

TEST(FileNames, SaveProposesTheOpenFileAndNothingForTheTemplate) {
    EXPECT_EQ(SaveName("Jan.ddq"), "Jan.ddq");
    EXPECT_EQ(SaveName("Evaluations.dbe"), "Evaluations.dbe");
    EXPECT_EQ(SaveName("New EOD Quotes.db"), "");
}

TEST(FileNames, SaveAsProposesTheDayForARunAndACollection) {
    const Date today = Day(2024, 3, 5);
    EXPECT_EQ(SaveAsName("Jan.ddq", today), "Jan.ddq");
    EXPECT_EQ(SaveAsName("Evaluations.dbe", today), "SS03-05-24.dbe");
    EXPECT_EQ(SaveAsName("ExtendedFundamentals.efq", today), "EF03-05-24.efq");
    EXPECT_EQ(SaveAsName("New EOD Quotes.db", today), "");
    EXPECT_EQ(SaveAsName("notes.txt", today), "");
    EXPECT_EQ(CollectedFundamentalsName(today), "03-05-24.efq");
}

TEST(FileNames, SaveFiltersByKind) {
    EXPECT_EQ(SaveFilter(FileKind::Ddq), "All Files (*.ddq)|*.ddq");
    EXPECT_EQ(SaveFilter(FileKind::Db), "All Files (*.ddq)|*.ddq");
    EXPECT_EQ(SaveFilter(FileKind::Dbe), "All Files (*.dbe)|*.dbe");
    EXPECT_EQ(SaveFilter(FileKind::Efq), "All Files (*.efq)|*.efq");
    EXPECT_EQ(SaveFilter(FileKind::None), "");
}

TEST(CutCurrentFile, TakesTheDataFolderAway) {
    const TestFolder folder;
    folder.Folder("Data/sub");
    const Path app = folder.Root();
    EXPECT_EQ(CutCurrentFile(app, app / "Data/Jan.ddq").CurrentFile, "Jan.ddq");
    EXPECT_EQ(CutCurrentFile(app, app / "Data/sub/x.dbe").CurrentFile, "sub/x.dbe");
    EXPECT_EQ(CutCurrentFile(app, app / "Data/sub/../Jan.ddq").CurrentFile, "Jan.ddq");
    EXPECT_EQ(CutCurrentFile(app, app / "Data/not there yet.ddq").CurrentFile, "not there yet.ddq");
    EXPECT_EQ(CutCurrentFile(app.string() + "/", app / "Data/Jan.ddq").CurrentFile, "Jan.ddq");
    EXPECT_EQ(CutCurrentFile(app, app / "Data/Jan.ddq").refusal, "");
    EXPECT_EQ(CutCurrentFile(app, app / "Data/..hidden.ddq").CurrentFile, "..hidden.ddq");
}

TEST(CutCurrentFile, FollowsALinkedDataFolder) {
    const TestFolder folder;
    folder.Folder("real");
    std::filesystem::create_directories(folder.Root() / "app");
    std::filesystem::create_directory_symlink(folder.Root() / "real", folder.Root() / "app/Data");
    EXPECT_EQ(CutCurrentFile(folder.Root() / "app", folder.Root() / "app/Data/a.ddq").CurrentFile, "a.ddq");
    EXPECT_EQ(CutCurrentFile(folder.Root() / "app", folder.Root() / "real/a.ddq").CurrentFile, "a.ddq");
}

TEST(CutCurrentFile, RefusesAFileOutsideTheDataFolder) {
    const TestFolder folder;
    folder.Folder("Data");
    const std::string data = std::filesystem::canonical(folder.Root() / "Data").string();
    const std::vector<Path> outside = {folder.Root() / "Jan.ddq",
                                       folder.Root() / "Data/../Jan.ddq",
                                       folder.Root() / "Data2/a.ddq",
                                       folder.Root() / "Data",
                                       folder.Root() / "Data/",
                                       "/etc/passwd",
                                       Path()};
    for (const Path& path : outside) {
        const ChosenFile chosen = CutCurrentFile(folder.Root(), path);
        EXPECT_EQ(chosen.CurrentFile, "") << path;
        EXPECT_EQ(chosen.refusal, path.string() + " does not lie in the folder " + data + ".") << path;
    }
}

}  // namespace
}  // namespace brantlow
