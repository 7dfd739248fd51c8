#include "shell/app_folder.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace brantlow {
namespace {

namespace fs = std::filesystem;

void Put(const Path& file, std::string_view bytes) {
    fs::create_directories(file.parent_path());
    ASSERT_FALSE(WriteWholeFile(file, bytes)) << file;
}

TEST(ResolveAppPath, ASetHomeWinsThenTheProgramsFolderThenTheUsersHome) {
    const TempFolder folder;
    fs::create_directories(folder / "install/Data");
    fs::create_directories(folder / "bin");
    const Path home = folder / "home";
    const Path installed = folder / "install/brantlow";
    const Path bare = folder / "bin/brantlow";
    struct Row {
        std::string brantlowHome;
        Path executable;
        Path appPath;
    };
    const Row rows[] = {{"/srv/quotes", installed, "/srv/quotes"},
                        {"/srv/quotes/", installed, "/srv/quotes"},
                        {"/srv/./a/../quotes", bare, "/srv/quotes"},
                        {"/", installed, "/"},
                        {"", installed, folder / "install"},
                        {"", bare, home / "Brantlow"},
                        {"", {}, home / "Brantlow"}};
    for (const Row& row : rows) {
        EXPECT_EQ(ResolveAppPath({row.brantlowHome, home, row.executable}), row.appPath) << row.brantlowHome;
    }
    EXPECT_FALSE(fs::exists(home));
}

TEST(ResolveAppPath, ARelativeHomeCountsFromTheCurrentFolder) {
    EXPECT_EQ(ResolveAppPath({"app", "/home/ann", "/bin/x"}), fs::current_path() / "app");
}

TEST(ResolveAppPath, AFileNamedDataIsNoDataFolder) {
    const TempFolder folder;
    Put(folder / "Data", "x");
    EXPECT_EQ(ResolveAppPath({"", "/home/ann", folder / "brantlow"}), Path("/home/ann/Brantlow"));
}

TEST(CurrentStartPlaces, KnowTheRunningProgram) {
    const StartPlaces places = CurrentStartPlaces();
    EXPECT_EQ(places.executable.filename(), "engine_tests");
    EXPECT_TRUE(places.home.is_absolute());
}

TEST(FindAssets, LooksBesideTheProgramAboveItAndInTheInstalledPlace) {
    const TempFolder folder;
    fs::create_directories(folder / "source/assets/Data");
    fs::create_directories(folder / "usr/share/brantlow/Data");
    fs::create_directories(folder / "bare/bin");
    struct Row {
        const char* executable;
        const char* assets;
    };
    constexpr Row kRows[] = {{"source/brantlow", "source/assets"},
                             {"source/app/brantlow", "source/assets"},
                             {"source/build/release/bin/brantlow", "source/assets"},
                             {"usr/bin/brantlow", "usr/share/brantlow"}};
    for (const Row& row : kRows) EXPECT_EQ(FindAssets(folder / row.executable), folder / row.assets);
    EXPECT_FALSE(FindAssets(folder / "bare/bin/brantlow"));
    EXPECT_FALSE(FindAssets(folder / "source/a/b/c/d/brantlow"));
}

class MakeAppFolderTest : public testing::Test {
  protected:
    void SetUp() override {
        Put(assets / "Data/VTRDATAset.ini", "\"Manually\"\r\n");
        Put(assets / "Data/New EOD Quotes.db", "Ticker Symbol\r\n");
        Put(assets / "Help/index.html", "<p>help</p>");
        Put(assets / "Help/images/a.svg", "<svg/>");
        Put(assets / "practice/prices/KO.csv", "Date\n");
    }

    TempFolder folder;
    Path assets = folder / "assets";
    Path app = folder / "user/Brantlow";
};

TEST_F(MakeAppFolderTest, MakesEveryFolderAndCopiesTheShippedFiles) {
    EXPECT_TRUE(NeedsMaking(app));
    ASSERT_FALSE(MakeAppFolder(assets, app));
    EXPECT_FALSE(NeedsMaking(app));
    for (const char* made : {"Data", "Quotes/EOD", "Images", "Help", "Back Up", "Back Up/Data"}) {
        EXPECT_TRUE(fs::is_directory(app / made)) << made;
    }
    EXPECT_EQ(BytesOrEmpty(app / "Data/VTRDATAset.ini"), "\"Manually\"\r\n");
    EXPECT_EQ(BytesOrEmpty(app / "Data/New EOD Quotes.db"), "Ticker Symbol\r\n");
    EXPECT_EQ(BytesOrEmpty(app / "Help/images/a.svg"), "<svg/>");
    EXPECT_FALSE(fs::exists(app / "practice"));
    EXPECT_FALSE(fs::exists(app / "Data.new"));
}

TEST_F(MakeAppFolderTest, NeverOverwritesWhatIsThere) {
    Put(app / "Data/VTRDATAset.ini", "mine");
    Put(app / "Data/Jan.ddq", "my table");
    Put(app / "Help/index.html", "my help");
    fs::create_symlink("nowhere", app / "Data/New EOD Quotes.db");
    ASSERT_FALSE(MakeAppFolder(assets, app));
    EXPECT_EQ(BytesOrEmpty(app / "Data/VTRDATAset.ini"), "mine");
    EXPECT_EQ(BytesOrEmpty(app / "Data/Jan.ddq"), "my table");
    EXPECT_EQ(BytesOrEmpty(app / "Help/index.html"), "my help");
    EXPECT_EQ(BytesOrEmpty(app / "Help/images/a.svg"), "<svg/>");
    EXPECT_EQ(fs::read_symlink(app / "Data/New EOD Quotes.db"), "nowhere");
}

TEST_F(MakeAppFolderTest, OnlyANewFolderGetsTheOwnSettings) {
    Put(assets / "Data/VTROWNset.ini", "\"Keep\"\r\n");
    Put(folder / "old/Data/VTRMRUset.ini", "");
    ASSERT_FALSE(MakeAppFolder(assets, folder / "old"));
    EXPECT_FALSE(fs::exists(folder / "old/Data/VTROWNset.ini"));
    EXPECT_TRUE(fs::exists(folder / "old/Data/VTRDATAset.ini"));

    ASSERT_FALSE(MakeAppFolder(assets, app));
    EXPECT_EQ(BytesOrEmpty(app / "Data/VTROWNset.ini"), "\"Keep\"\r\n");

    // A Data folder without any settings was only prepared.
    fs::create_directories(folder / "prepared/Data");
    ASSERT_FALSE(MakeAppFolder(assets, folder / "prepared"));
    EXPECT_TRUE(fs::exists(folder / "prepared/Data/VTROWNset.ini"));
}

TEST_F(MakeAppFolderTest, FilesOfAReadOnlyInstallationBecomeTheUsersOwn) {
    fs::permissions(assets / "Data/VTRDATAset.ini", fs::perms::owner_read);
    ASSERT_FALSE(MakeAppFolder(assets, app));
    const auto permissions = fs::status(app / "Data/VTRDATAset.ini").permissions();
    EXPECT_NE(permissions & fs::perms::owner_write, fs::perms::none);
}

TEST_F(MakeAppFolderTest, AnInterruptedMakingIsTakenUpAgain) {
    Put(app / "Data.new/VTRDATAset.ini", "\"Manually\"\r\n");
    EXPECT_TRUE(NeedsMaking(app));
    ASSERT_FALSE(MakeAppFolder(assets, app));
    EXPECT_FALSE(NeedsMaking(app));
    EXPECT_EQ(FileNamesIn(app / "Data"), (std::vector<std::string>{"New EOD Quotes.db", "VTRDATAset.ini"}));
    EXPECT_FALSE(fs::exists(app / "Data.new"));
}

// Whoever lays hosts or keys there before the first start has no settings and no tables yet.
TEST_F(MakeAppFolderTest, ADataFolderThatWasOnlyPreparedIsMade) {
    const char* const kPrepared[] = {"Data/Hosts.ini", "Data/Keys.ini", "Data/Sources/own.json"};
    for (const char* file : kPrepared) Put(app / file, "mine");
    EXPECT_TRUE(NeedsMaking(app));
    ASSERT_FALSE(MakeAppFolder(assets, app));
    EXPECT_FALSE(NeedsMaking(app));
    for (const char* file : kPrepared) EXPECT_EQ(BytesOrEmpty(app / file), "mine") << file;
    EXPECT_EQ(BytesOrEmpty(app / "Data/VTRDATAset.ini"), "\"Manually\"\r\n");
    EXPECT_FALSE(fs::exists(app / "Data.new"));
}

TEST_F(MakeAppFolderTest, ADataFolderWithATableOrSettingsIsSomebodys) {
    for (const char* file : {"Jan.ddq", "Evaluations.dbe", "Old.efq", "VTRMRUset.ini"}) {
        const Path used = folder / file;
        Put(used / "Data" / file, "mine");
        EXPECT_FALSE(NeedsMaking(used)) << file;
    }
}

TEST_F(MakeAppFolderTest, AnInterruptedMakingOfAPreparedFolderIsTakenUpAgain) {
    Put(assets / "Data/VTROWNset.ini", "\"Keep\"\r\n");
    Put(app / "Data/Hosts.ini", "mine");
    Put(app / "Data/VTRDATAset.ini", "\"Manually\"\r\n");
    fs::create_directories(app / "Data.new");
    EXPECT_TRUE(NeedsMaking(app));
    ASSERT_FALSE(MakeAppFolder(assets, app));
    EXPECT_FALSE(NeedsMaking(app));
    EXPECT_EQ(BytesOrEmpty(app / "Data/VTROWNset.ini"), "\"Keep\"\r\n");
    EXPECT_EQ(BytesOrEmpty(app / "Data/Hosts.ini"), "mine");
}

TEST_F(MakeAppFolderTest, AFileInTheWayIsReportedAndStands) {
    Put(app / "Data", "a file");
    EXPECT_TRUE(MakeAppFolder(assets, app));
    EXPECT_EQ(BytesOrEmpty(app / "Data"), "a file");
    const Path blocked = folder / "blocked";
    Put(blocked, "a file");
    EXPECT_TRUE(MakeAppFolder(assets, blocked / "Brantlow"));
    EXPECT_EQ(BytesOrEmpty(blocked), "a file");
}

TEST_F(MakeAppFolderTest, AssetsWithoutFoldersStillGiveTheEmptyFolders) {
    ASSERT_FALSE(MakeAppFolder(folder / "no assets", app));
    EXPECT_TRUE(fs::is_directory(app / "Data"));
    EXPECT_TRUE(fs::is_directory(app / "Back Up/Data"));
}

}  // namespace
}  // namespace brantlow
