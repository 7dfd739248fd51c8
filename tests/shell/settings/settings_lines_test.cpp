#include "shell/settings/lines.h"

#include <gtest/gtest.h>

#include "shell/settings/choices.h"
#include "shell/settings/settings_files.h"
#include "support/source_folder.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

namespace fs = std::filesystem;

class OwnSettings : public testing::Test {
  protected:
    void Load(std::string_view text) {
        fs::create_directories(app_ / "Data");
        ASSERT_FALSE(WriteWholeFile(app_ / "Data/VTROWNset.ini", text));
        LoadAllSettings(app_.Get(), settings_);
    }

    TempFolder app_;
    SettingsTables settings_;
};

TEST_F(OwnSettings, ShippedKeepHistoryAndTwentyChangesOfTwoGigabytes) {
    LoadAllSettings(SourceFolder() / "assets", settings_);
    EXPECT_TRUE(KeepsHistoryOnFailure(settings_));
    EXPECT_EQ(UndoLimitsOf(settings_).changes, 20);
    EXPECT_EQ(UndoLimitsOf(settings_).bytes, 2147483648u);
}

TEST_F(OwnSettings, WithoutTheFileHistoryGoesAndUndoIsLimitedAsUsual) {
    LoadAllSettings(app_.Get(), settings_);
    EXPECT_FALSE(settings_.ReadErrors[std::size_t(SettingsFile::Own)]);
    EXPECT_FALSE(KeepsHistoryOnFailure(settings_));
    EXPECT_EQ(UndoLimitsOf(settings_).changes, 20);
    EXPECT_EQ(UndoLimitsOf(settings_).bytes, 2147483648u);
}

TEST_F(OwnSettings, OnlyTheExactWordKeeps) {
    for (const char* text : {"\"keep\"\r\n", "\"\"\r\n", "", "\"Keep \"\r\n", "\"Replace\"\r\n"}) {
        Load(text);
        EXPECT_FALSE(KeepsHistoryOnFailure(settings_)) << text;
    }
    for (const char* text : {"\"Keep\"\r\n", "\"Keep\"", "\"Keep\"\n"}) {
        Load(text);
        EXPECT_TRUE(KeepsHistoryOnFailure(settings_)) << text;
    }
}

TEST_F(OwnSettings, LimitsAreWholeNumbersWithinTheirRange) {
    struct Row {
        const char* lines;
        int changes;
        std::uintmax_t bytes;
    };
    constexpr std::uintmax_t kMegabyte = 1024 * 1024;
    constexpr Row kRows[] = {{"3\r\n1\r\n", 3, kMegabyte},
                             {"\"3\"\r\n\"5\"\r\n", 3, 5 * kMegabyte},
                             {"2.9\r\n1e3\r\n", 2, 1000 * kMegabyte},
                             {"0\r\n-7\r\n", 1, kMegabyte},
                             {"99999999\r\n1e300\r\n", 10000, 1000000 * kMegabyte},
                             {"\"many\"\r\n\"\"\r\n", 20, 2048 * kMegabyte},
                             {"4", 4, 2048 * kMegabyte}};
    for (const Row& row : kRows) {
        Load(std::string("\"Keep\"\r\n") + row.lines);
        EXPECT_EQ(UndoLimitsOf(settings_).changes, row.changes) << row.lines;
        EXPECT_EQ(UndoLimitsOf(settings_).bytes, row.bytes) << row.lines;
    }
}

TEST_F(OwnSettings, AFileThatCannotBeReadIsToldAndTheTableStays) {
    Load("\"Keep\"\r\n7\r\n");
    fs::remove(app_ / "Data/VTROWNset.ini");
    fs::create_directory(app_ / "Data/VTROWNset.ini");
    LoadAllSettings(app_.Get(), settings_);
    EXPECT_TRUE(settings_.ReadErrors[std::size_t(SettingsFile::Own)]);
    EXPECT_EQ(UnreadableSettings(SettingsFile::Own, app_.Get(), settings_),
              (app_ / "Data/VTROWNset.ini").string() + ": cannot be read (Is a directory)");
    EXPECT_EQ(UnreadableSettings(SettingsFile::Data, app_.Get(), settings_), "");
    EXPECT_TRUE(KeepsHistoryOnFailure(settings_));
    EXPECT_EQ(UndoLimitsOf(settings_).changes, 7);
    EXPECT_EQ(WriteSettingsFile(SettingsFile::Own, app_.Get(), settings_), std::errc::is_a_directory);
}

}  // namespace
}  // namespace brantlow
