#include "shell/user_store.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace brantlow {
namespace {

TEST(UserStoreFile, LiesInTheConfigurationFolder) {
    EXPECT_EQ(UserStoreFile("/conf", "/home/ann"), Path("/conf/Brantlow/Brantlow.ini"));
    EXPECT_EQ(UserStoreFile("", "/home/ann"), Path("/home/ann/.config/Brantlow/Brantlow.ini"));
    EXPECT_EQ(UserStoreFile("not/absolute", "/home/ann"), Path("/home/ann/.config/Brantlow/Brantlow.ini"));
}

TEST(GetSetting, FindsTheKeyOfItsSection) {
    struct Row {
        const char* text;
        const char* value;
    };
    constexpr Row kRows[] = {
        {"[Settings]\r\nMainLeft=12\r\n", "12"},
        {"[Settings]\nMainLeft = 12.5 \n", "12.5"},
        {"[Settings]\nMainLeft=7", "7"},
        {"  [Settings]  \n  MainLeft=7", "7"},
        {"[Other]\nMainLeft=1\n[Settings]\nMainLeft=2\n", "2"},
        {"[Settings]\n\n; MainLeft=1\n#x=2\nMainLeft=3\nMainLeft=4\n", "3"},
        {"[Settings]\nA=1\n[Other]\nB=2\n[Settings]\nMainLeft=5\n", "5"},
        {"[Settings]\nMainLeft=a=b\n", "a=b"},
        {"[Settings]\nMainLeft=\n", ""},
        {"", "none"},
        {"MainLeft=1\n", "none"},
        {"[settings]\nMainLeft=1\n", "none"},
        {"[Settings]\nmainleft=1\n", "none"},
        {"[Settings]\nMainLeft\n", "none"},
        {"[Settings\nMainLeft=1\n", "none"},
        {"[Settings][x]\nMainLeft=1\n", "none"},
        {"\xff\xfe[\n=\n[]\n===\n", "none"},
    };
    const TempFolder folder;
    const Path file = folder / "store.ini";
    for (const Row& row : kRows) {
        ASSERT_FALSE(WriteWholeFile(file, row.text));
        EXPECT_EQ(GetSetting(file, "Settings", "MainLeft", "none"), row.value) << row.text;
    }
    EXPECT_EQ(GetSetting(folder / "missing.ini", "Settings", "MainLeft", "none"), "none");
    EXPECT_EQ(GetSetting(folder.Get(), "Settings", "MainLeft", "none"), "none");
}

TEST(SaveSetting, KeepsWhatOthersWrote) {
    struct Row {
        const char* before;
        const char* after;
    };
    constexpr Row kRows[] = {
        {"", "[Settings]\r\nMainTop=9\r\n"},
        {"[Settings]\r\nMainTop=1\r\nX=2\r\n", "[Settings]\r\nMainTop=9\r\nX=2\r\n"},
        {"[Settings]\nMainTop=1\nX=2\n", "[Settings]\nMainTop=9\nX=2\n"},
        {"[Settings]\nX=2\n", "[Settings]\nX=2\nMainTop=9\r\n"},
        {"[Settings]\nX=2", "[Settings]\nX=2\r\nMainTop=9\r\n"},
        {"[Settings]", "[Settings]\r\nMainTop=9\r\n"},
        {"[Settings]\nMainTop=1", "[Settings]\nMainTop=9"},
        {"; mine\n[A]\nMainTop=1\n", "; mine\n[A]\nMainTop=1\n\r\n[Settings]\r\nMainTop=9\r\n"},
        {"[A]\nq=1", "[A]\nq=1\r\n\r\n[Settings]\r\nMainTop=9\r\n"},
        {"[Settings]\nX=2\n\n[B]\ny=1\n", "[Settings]\nX=2\nMainTop=9\r\n\n[B]\ny=1\n"},
        {"[Settings]\n[B]\ny=1\n", "[Settings]\nMainTop=9\r\n[B]\ny=1\n"},
    };
    const TempFolder folder;
    const Path file = folder / "store.ini";
    for (const Row& row : kRows) {
        ASSERT_FALSE(WriteWholeFile(file, row.before));
        ASSERT_FALSE(SaveSetting(file, "Settings", "MainTop", "9")) << row.before;
        EXPECT_EQ(BytesOrEmpty(file), row.after) << row.before;
        EXPECT_EQ(GetSetting(file, "Settings", "MainTop", ""), "9") << row.before;
    }
}

TEST(SaveSetting, MakesFileAndFolder) {
    const TempFolder folder;
    const Path file = folder / "deep/er/Brantlow.ini";
    EXPECT_FALSE(SaveSetting(file, "Settings", "MainTop", "1.5"));
    EXPECT_EQ(GetSetting(file, "Settings", "MainTop", ""), "1.5");
}

TEST(SaveSetting, RefusesWhatTheFileCannotHold) {
    struct Row {
        std::string_view section, key, value;
    };
    constexpr Row kRows[] = {{"a]b", "k", "v"},
                             {"", "k", "v"},
                             {"s", "", "v"},
                             {"s", "a=b", "v"},
                             {"s", ";k", "v"},
                             {"s", "#k", "v"},
                             {"s", "[k", "v"},
                             {"s", " k", "v"},
                             {"s", "k", "a\nb"},
                             {"s", "k", "a\r"},
                             {"s\n", "k", "v"},
                             {"s", "k\n", "v"},
                             {"s", "k", std::string_view("\0", 1)}};
    const TempFolder folder;
    for (const Row& row : kRows) {
        EXPECT_EQ(SaveSetting(folder / "store.ini", row.section, row.key, row.value),
                  std::errc::invalid_argument)
            << row.section << '|' << row.key << '|' << row.value;
    }
    EXPECT_TRUE(FileNamesIn(folder.Get()).empty());
}

TEST(SaveSetting, AFolderInPlaceOfTheFileIsReportedAndStands) {
    const TempFolder folder;
    std::filesystem::create_directory(folder / "store.ini");
    EXPECT_EQ(SaveSetting(folder / "store.ini", "s", "k", "v"), std::errc::is_a_directory);
    EXPECT_TRUE(std::filesystem::is_directory(folder / "store.ini"));
}

TEST(FrameGeometry, DefaultsWhereNothingReadableStands) {
    const TempFolder folder;
    const Path file = folder / "store.ini";
    EXPECT_EQ(LoadFrameGeometry(file), (FrameGeometry{1000, 1000, 6500, 6500}));
    struct Row {
        const char* text;
        FrameGeometry geometry;
    };
    const Row rows[] = {
        {"[Settings]\nMainLeft=-30\nMainTop=0\nMainWidth=15500\nMainHeight=11200.5\n",
         {-30, 0, 15500, 11200.5}},
        {"[Settings]\nMainLeft=abc\nMainTop=\nMainWidth=0\nMainHeight=-5\n", {1000, 1000, 6500, 6500}},
        {"[Settings]\nMainLeft=1e300\nMainTop=-1e9\nMainWidth=1e999\nMainHeight=nan\n",
         {1000, 1000, 6500, 6500}},
        {"[Settings]\nMainWidth=9000\n", {1000, 1000, 9000, 6500}},
    };
    for (const Row& row : rows) {
        ASSERT_FALSE(WriteWholeFile(file, row.text));
        EXPECT_EQ(LoadFrameGeometry(file), row.geometry) << row.text;
    }
}

TEST(FrameGeometry, ComesBackAsSaved) {
    const TempFolder folder;
    const Path file = folder / "conf/Brantlow/Brantlow.ini";
    const FrameGeometry geometry{-15, 2.5, 15500, 11200};
    ASSERT_FALSE(SaveFrameGeometry(file, geometry));
    EXPECT_EQ(LoadFrameGeometry(file), geometry);
    EXPECT_EQ(BytesOrEmpty(file),
              "[Settings]\r\nMainLeft=-15\r\nMainTop=2.5\r\nMainWidth=15500\r\nMainHeight=11200\r\n");
    const FrameGeometry moved{300, 400, 5000, 4000};
    ASSERT_FALSE(SaveFrameGeometry(file, moved));
    EXPECT_EQ(LoadFrameGeometry(file), moved);
}

}  // namespace
}  // namespace brantlow
