#include "shell/display.h"

#include <gtest/gtest.h>

namespace brantlow {
namespace {

TEST(Display, LaysOutForAtLeast1024By768) {
    struct Row {
        int width, height, layoutWidth, layoutHeight;
        bool maximised;
    };
    constexpr Row kRows[] = {{800, 600, 1024, 768, false},  {1024, 768, 1024, 768, true},
                             {1024, 600, 1024, 768, true},  {1023, 768, 1024, 768, false},
                             {1025, 769, 1025, 769, false}, {1920, 1080, 1920, 1080, false},
                             {600, 1200, 1024, 1200, false}};
    for (const Row& row : kRows) {
        const Display display{row.width, row.height};
        EXPECT_EQ(display.LayoutWidth(), row.layoutWidth) << row.width;
        EXPECT_EQ(display.LayoutHeight(), row.layoutHeight) << row.height;
        EXPECT_EQ(display.FrameStartsMaximised(), row.maximised) << row.width;
    }
}

TEST(Display, FifteenTwipsAreAPixel) {
    struct Row {
        double twips;
        int pixels;
    };
    constexpr Row kRows[] = {{0, 0}, {15, 1}, {1300, 87}, {7, 0}, {8, 1}, {-15, -1}, {15500, 1033}};
    for (const Row& row : kRows) EXPECT_EQ(PixelsOf(row.twips), row.pixels) << row.twips;
    EXPECT_EQ(TwipsOf(1024), 15360);
}

TEST(Display, ChildWindowsGrowWithTheLayout) {
    EXPECT_DOUBLE_EQ(ScaledWidth({1024, 768}, kTableWidth), 15380);
    EXPECT_DOUBLE_EQ(ScaledHeight({1024, 768}, kTableHeight), 10290);
    EXPECT_DOUBLE_EQ(ScaledWidth({2048, 1536}, kTableWidth), 30760);
    EXPECT_DOUBLE_EQ(ScaledHeight({2048, 1536}, kTableHeight), 20580);
    EXPECT_DOUBLE_EQ(ScaledWidth({640, 480}, kTableWidth), 15380);
}

}  // namespace
}  // namespace brantlow
