#include "shell/frame/frame_place.h"

#include <gtest/gtest.h>

#include <vector>

#include "shell/frame/frame_choices.h"
#include "shell/user_store.h"
#include "support/temp_folder.h"

namespace brantlow {

// The printer of failed comparisons looks for it beside the type.
static void PrintTo(const FramePlace& place, std::ostream* out) {
    *out << place.rect.left << ',' << place.rect.top << ' ' << place.rect.width << 'x' << place.rect.height
         << (place.maximised ? " maximised" : "");
}

namespace {

constexpr int kTitleBar = 30;

TEST(FramePlace, TheFirstTimeIsThreeQuartersOfTheScreenAndNeverCutOnASmallOne) {
    struct Row {
        ScreenRect screen;
        FramePlace place;
    };
    const Row rows[] = {
        {{0, 0, 1920, 1080}, {{240, 150, 1440, 810}}},
        {{0, 0, 3840, 2160}, {{480, 285, 2880, 1620}}},
        {{0, 0, 1600, 1200}, {{200, 165, 1200, 900}}},
        // Three quarters would be smaller than the frame's own size.
        {{0, 0, 1400, 950}, {{175, 116, 1050, 747}}},
        {{0, 0, 1366, 768}, {{166, 30, 1033, 738}}},
        {{0, 0, 1280, 720}, {{123, 30, 1033, 690}}},
        {{0, 0, 1024, 768}, {{0, 30, 1024, 738}, true}},
        {{0, 0, 800, 600}, {{0, 30, 800, 570}}},
        {{64, 27, 1856, 1053}, {{296, 174, 1392, 789}}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(PlaceToOpen(std::nullopt, {&row.screen, 1}, kTitleBar), row.place) << row.screen.width;
}

TEST(FramePlace, OpensWhereItWasClosedOnAScreenThatStillExists) {
    const ScreenRect left{0, 0, 1920, 1080};
    const ScreenRect right{1920, 0, 1280, 1024};
    struct Row {
        const char* what;
        std::vector<ScreenRect> screens;
        FramePlace kept, opens;
    };
    const Row rows[] = {
        {"as it was", {left}, {{100, 50, 1200, 800}}, {{100, 50, 1200, 800}}},
        {"on the second screen", {left, right}, {{2000, 40, 1100, 700}}, {{2000, 40, 1100, 700}}},
        {"across both", {left, right}, {{1500, 40, 1100, 700}}, {{1500, 40, 1100, 700}}},
        {"the second screen is gone", {left}, {{2000, 40, 1100, 700}}, {{820, 40, 1100, 700}}},
        {"and the frame was larger", {right}, {{0, 30, 1900, 1040}}, {{1920, 30, 1280, 994}}},
        {"above the screen", {left}, {{100, -400, 1200, 800}}, {{100, 30, 1200, 800}}},
        {"half below it", {left}, {{100, 900, 1200, 800}}, {{100, 280, 1200, 800}}},
        {"maximised", {left}, {{100, 50, 1200, 800}, true}, {{100, 50, 1200, 800}, true}},
        {"all of it, with its title bar", {left}, {{0, 30, 1920, 1050}}, {{0, 30, 1920, 1050}}},
        {"a pixel too high", {left}, {{0, 30, 1920, 1051}}, {{0, 30, 1920, 1050}}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(PlaceToOpen(row.kept, row.screens, kTitleBar), row.opens) << row.what;
}

TEST(KeptFrame, IsOnInANewInstallationAndOffInOneFromBefore) {
    const TempFolder folder;
    const Path store = folder / "Brantlow.ini";
    EXPECT_EQ(LoadKeptFrame(store), KeptFrame{});
    EXPECT_TRUE(KeptFrame{}.remembers);
    ASSERT_FALSE(SaveFrameGeometry(store, {150, 300, 15000, 9000}));
    EXPECT_EQ(LoadKeptFrame(store), (KeptFrame{false, FramePlace{{10, 20, 1000, 600}}}));
}

TEST(KeptFrame, ComesBackAsItWasClosed) {
    const TempFolder folder;
    const Path store = folder / "config" / "Brantlow.ini";
    for (const bool maximised : {true, false}) {
        const FramePlace place{{-40, 12, 1280, 720}, maximised};
        ASSERT_FALSE(SaveFramePlace(store, place));
        ASSERT_FALSE(SaveFrameChoice(store, kRemembersWindowSize, true));
        EXPECT_EQ(LoadKeptFrame(store), (KeptFrame{true, place}));
    }
    ASSERT_FALSE(SaveFrameChoice(store, kRemembersWindowSize, false));
    EXPECT_FALSE(LoadKeptFrame(store).remembers);
}

TEST(FrameChoices, ANewInstallationRemembersItsSizeAndShowsItsStartPictureForThreeSeconds) {
    const TempFolder folder;
    const Path store = folder / "Brantlow.ini";
    EXPECT_TRUE(LoadFrameChoice(store, kRemembersWindowSize));
    EXPECT_TRUE(LoadFrameChoice(store, kDoubleClickCharts));
    EXPECT_FALSE(LoadFrameChoice(store, kOpensWithoutWaiting));
}

TEST(FrameChoices, AreOffInAnInstallationFromBeforeUntilTheyAreChosen) {
    const TempFolder folder;
    const Path store = folder / "Brantlow.ini";
    ASSERT_FALSE(SaveFramePlace(store, {{1, 2, 300, 400}}));
    for (const FrameChoice& choice : kFrameChoices) {
        EXPECT_FALSE(LoadFrameChoice(store, choice)) << choice.key;
        ASSERT_FALSE(SaveFrameChoice(store, choice, true));
        EXPECT_TRUE(LoadFrameChoice(store, choice)) << choice.key;
        ASSERT_FALSE(SaveFrameChoice(store, choice, false));
        EXPECT_FALSE(LoadFrameChoice(store, choice)) << choice.key;
    }
}

TEST(KeptFrame, AStoreThatCannotBeWrittenIsTold) {
    const TempFolder folder;
    EXPECT_TRUE(SaveFramePlace(folder.Get(), {{1, 2, 300, 400}}));
    EXPECT_TRUE(SaveFrameChoice(folder.Get(), kRemembersWindowSize, true));
}

}  // namespace
}  // namespace brantlow
