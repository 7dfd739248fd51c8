#include "store/exit_back_up.h"

#include <gtest/gtest.h>

#include "base/values.h"
#include "shell/settings/settings_files.h"
#include "support/recording_person.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

using namespace std::chrono_literals;

constexpr Date kBackUpDay = 2026y / 11 / 21;

class ExitBackUpTest : public ::testing::Test {
  protected:
    ExitBackUpTest() {
        for (std::size_t line = 1; line <= 19; ++line) Set(line, "line " + std::to_string(line));
        Set(1, "Weekly");
        Set(2, "True");
        Set(3, "Back Up\\Data");
        Set(4, "True");
        Set(5, (folder / "elsewhere").string());
        LastBackUp(AddDays(kBackUpDay, -7));
        settings.QuoteFolder = (folder / "Quotes/EOD/").string();
        Write("Data/VTRMRUset.ini", "mru");
        Write("Data/Mine.ddq", std::string("a\tb\0c\r\n", 7));
        Write("Data/.hidden", "h");
        Write("Data/sub/inner.ddq", "inner");
        Write("Quotes/EOD/IBM.26", "ibm");
        Write("Quotes/EOD/BRK.A.26", "");
        std::filesystem::create_directories(folder / "Back Up");
    }

    void Set(std::size_t line, const std::string& text) {
        settings.DataSettings.Set(line, Value::OfText(text));
    }
    void LastBackUp(const Date& date) { settings.DataSettings.Set(13, Value::OfDate(date)); }
    void Write(const std::string& name, std::string_view bytes) const {
        std::filesystem::create_directories((folder / name).parent_path());
        ASSERT_FALSE(WriteWholeFile(folder / name, bytes, Flush::Later));
    }
    std::string Read(const std::string& name) const { return BytesOrEmpty(folder / name); }
    ExitBackUp Leave() { return BackUpAtExit(folder.Get(), kBackUpDay, settings, person); }

    TempFolder folder;
    SettingsTables settings;
    RecordingPerson person;
};

TEST_F(ExitBackUpTest, CopiesEveryFileOfBothFoldersWhole) {
    Write("Back Up/Data/Mine.ddq", "an older and longer one than the new");
    Write("Back Up/Data/Other.ddq", "other");
    const ExitBackUp backUp = Leave();
    ASSERT_TRUE(backUp.applicationFiles && backUp.quoteDatabase);
    EXPECT_EQ(backUp.applicationFiles->copied, 3U);
    EXPECT_EQ(backUp.quoteDatabase->copied, 2U);
    EXPECT_EQ(backUp.applicationFiles->failed + backUp.quoteDatabase->failed, 0U);
    EXPECT_EQ(Read("Back Up/Data/Mine.ddq"), std::string("a\tb\0c\r\n", 7));
    EXPECT_EQ(Read("Back Up/Data/.hidden"), "h");
    EXPECT_EQ(Read("Back Up/Data/Other.ddq"), "other");
    EXPECT_FALSE(std::filesystem::exists(folder / "Back Up/Data/sub"));
    EXPECT_EQ(FileNamesIn(folder / "elsewhere"), (std::vector<std::string>{"BRK.A.26", "IBM.26"}));
    EXPECT_EQ(Read("elsewhere/IBM.26"), "ibm");
    EXPECT_TRUE(person.said.empty());
}

TEST_F(ExitBackUpTest, RewritesLine13AloneInTheSettingsFile) {
    EXPECT_FALSE(Leave().settingsError);
    std::string expected = "\"Weekly\"\r\n\"True\"\r\n\"Back Up\\Data\"\r\n\"True\"\r\n\"" +
                           (folder / "elsewhere").string() + "\"\r\n";
    for (int line = 6; line <= 19; ++line) {
        expected += line == 13 ? "#2026-11-21#\r\n" : "\"line " + std::to_string(line) + "\"\r\n";
    }
    EXPECT_EQ(Read("Data/VTRDATAset.ini"), expected);
    EXPECT_FALSE(Leave().Ran()) << "the next one is due in a week";
}

TEST_F(ExitBackUpTest, TheIntervalDecides) {
    struct Row {
        const char* frequency;
        int daysAgo;
        bool due;
    };
    constexpr Row kRows[] = {{"Weekly", 6, false},     {"Weekly", 7, true},    {"Weekly", 8, true},
                             {"Monthly", 7, false},    {"Monthly", 29, false}, {"Monthly", 30, true},
                             {"Manually", 900, false}, {"", 900, false},       {"weekly", 900, false},
                             {"Weekly", 0, false},     {"Weekly", -1, false}};
    for (const Row& row : kRows) {
        Set(1, row.frequency);
        LastBackUp(AddDays(kBackUpDay, -row.daysAgo));
        EXPECT_EQ(BackUpIsDue(settings, kBackUpDay), row.due) << row.frequency << row.daysAgo;
    }
}

TEST_F(ExitBackUpTest, WithLine13SixDaysOldNothingRuns) {
    LastBackUp(AddDays(kBackUpDay, -6));
    EXPECT_FALSE(Leave().Ran());
    EXPECT_FALSE(std::filesystem::exists(folder / "Back Up/Data"));
    EXPECT_FALSE(std::filesystem::exists(folder / "Data/VTRDATAset.ini"));
    EXPECT_EQ(settings.DataSettings.Text(13), "2026-11-15");
}

TEST_F(ExitBackUpTest, ManuallyDoesNothing) {
    Set(1, "Manually");
    LastBackUp(AddDays(kBackUpDay, -900));
    EXPECT_FALSE(Leave().Ran());
    EXPECT_FALSE(std::filesystem::exists(folder / "Data/VTRDATAset.ini"));
}

TEST_F(ExitBackUpTest, ADateThatCannotBeReadLiesLongBack) {
    for (const char* text : {"", "soon"}) {
        Set(13, text);
        EXPECT_TRUE(BackUpIsDue(settings, kBackUpDay)) << text;
    }
    settings.DataSettings.Set(13, Value::OfText("11/14/26"));
    EXPECT_TRUE(BackUpIsDue(settings, kBackUpDay));
    settings.DataSettings.Set(13, Value::OfText("11/15/26"));
    EXPECT_FALSE(BackUpIsDue(settings, kBackUpDay));
}

TEST_F(ExitBackUpTest, OnlyTheQuoteDatabaseIsCopiedWhenLine2IsFalse) {
    Set(2, "False");
    const ExitBackUp backUp = Leave();
    EXPECT_FALSE(backUp.applicationFiles);
    EXPECT_TRUE(backUp.quoteDatabase);
    EXPECT_FALSE(std::filesystem::exists(folder / "Back Up/Data"));
    EXPECT_EQ(Read("elsewhere/IBM.26"), "ibm");
    EXPECT_EQ(settings.DataSettings.Text(13), "2026-11-21");
}

TEST_F(ExitBackUpTest, OnlyTheApplicationFilesAreCopiedWhenLine4IsFalse) {
    Set(4, "False");
    const ExitBackUp backUp = Leave();
    EXPECT_TRUE(backUp.applicationFiles);
    EXPECT_FALSE(backUp.quoteDatabase);
    EXPECT_FALSE(std::filesystem::exists(folder / "elsewhere"));
    EXPECT_EQ(settings.DataSettings.Text(13), "2026-11-21");
}

TEST_F(ExitBackUpTest, OnAMissingDriveTheCopyFailsQuietlyAndLine13StillChanges) {
    Set(3, (folder / "drive/not/there").string());
    Set(5, (folder / "drive/not/there").string());
    const ExitBackUp backUp = Leave();
    ASSERT_TRUE(backUp.applicationFiles && backUp.quoteDatabase);
    EXPECT_EQ(backUp.applicationFiles->copied, 0U);
    EXPECT_EQ(backUp.applicationFiles->failed, 3U);
    EXPECT_TRUE(backUp.applicationFiles->error);
    EXPECT_TRUE(person.said.empty());
    EXPECT_FALSE(std::filesystem::exists(folder / "drive"));
    EXPECT_NE(Read("Data/VTRDATAset.ini").find("#2026-11-21#"), std::string::npos);
}

TEST_F(ExitBackUpTest, AFileThatCannotBeCopiedIsPassedOver) {
    std::filesystem::create_directories(folder / "elsewhere/BRK.A.26");
    const ExitBackUp backUp = Leave();
    EXPECT_EQ(backUp.quoteDatabase->failed, 1U);
    EXPECT_EQ(backUp.quoteDatabase->copied, 1U);
    EXPECT_EQ(Read("elsewhere/IBM.26"), "ibm");
}

TEST_F(ExitBackUpTest, AnEmptyFolderIsRefusedWithASentence) {
    Set(3, "");
    Set(5, "");
    const ExitBackUp backUp = Leave();
    EXPECT_FALSE(backUp.Ran());
    EXPECT_EQ(person.said, (std::vector<RecordingPerson::Message>{
                               {"The application files could not be backed up: no folder is chosen for the "
                                "back-up. Go to Settings, Application to choose one.",
                                ""},
                               {"The quote database could not be backed up: no folder is chosen for the "
                                "back-up. Go to Settings, Application to choose one.",
                                ""}}));
    EXPECT_EQ(settings.DataSettings.Text(13), "2026-11-14");
    EXPECT_FALSE(std::filesystem::exists(folder / "Data/VTRDATAset.ini"));
}

TEST_F(ExitBackUpTest, AnEmptyFolderOfOneDoesNotHoldUpTheOther) {
    Set(3, "");
    const ExitBackUp backUp = Leave();
    EXPECT_FALSE(backUp.applicationFiles);
    EXPECT_EQ(backUp.quoteDatabase->copied, 2U);
    EXPECT_EQ(person.said.size(), 1U);
    EXPECT_EQ(settings.DataSettings.Text(13), "2026-11-21");
}

TEST_F(ExitBackUpTest, ASettingsFileThatCannotBeWrittenIsReported) {
    std::filesystem::create_directories(folder / "Data/VTRDATAset.ini");
    EXPECT_TRUE(Leave().settingsError);
}

TEST_F(ExitBackUpTest, AFolderCopiedOntoItselfStaysAsItIs) {
    Set(5, settings.QuoteFolder);
    EXPECT_EQ(Leave().quoteDatabase->copied, 2U);
    EXPECT_EQ(FileNamesIn(folder / "Quotes/EOD"), (std::vector<std::string>{"BRK.A.26", "IBM.26"}));
    EXPECT_EQ(Read("Quotes/EOD/IBM.26"), "ibm");
}

TEST_F(ExitBackUpTest, AMissingSourceCopiesNothing) {
    settings.QuoteFolder = (folder / "gone/").string();
    const ExitBackUp backUp = Leave();
    EXPECT_EQ(backUp.quoteDatabase->copied, 0U);
    EXPECT_EQ(backUp.quoteDatabase->failed, 0U);
}

}  // namespace
}  // namespace brantlow
