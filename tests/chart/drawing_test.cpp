#include "chart/drawing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "chart/paint_fixture.h"

namespace brantlow {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr Rgb kColour = {1, 2, 3};

TEST(LineBetween, NarrowsWhatIsWithinReach) {
    EXPECT_EQ(LineBetween({95, 50.25}, {140, -7000.5}, kColour),
              (DrawnLine{95, 50.25F, 140, -7000.5F, kColour}));
}

TEST(LineBetween, CutsALineThatLeavesAndKeepsItsDirection) {
    // Falls 1e7 in 45 from 0: at the reach it has gone half of 90.
    const DrawnLine line = LineBetween({0, 0}, {90, 2e7}, kColour);
    EXPECT_EQ(line, (DrawnLine{0, 0, 45, 1e7F, kColour}));
    EXPECT_EQ(LineBetween({90, 2e7}, {0, 0}, kColour), (DrawnLine{45, 1e7F, 0, 0, kColour}));
}

TEST(LineBetween, CutsBothEndsOfALineThatCrossesTheReach) {
    EXPECT_EQ(LineBetween({50, -1e300}, {150, 1e300}, kColour), (DrawnLine{100, -1e7F, 100, 1e7F, kColour}));
}

TEST(LineBetween, LeavesALineBeyondTheReachBeyondIt) {
    const DrawnLine line = LineBetween({50, 1e300}, {95, 1e299}, kColour);
    EXPECT_EQ(line.y1, 1e7F);
    EXPECT_EQ(line.y2, 1e7F);
}

TEST(LineBetween, IsFiniteWhateverItIsGiven) {
    const double values[] = {0, 50, -50, 1e7, -1e7, 1e300, -1e300, 1.7e308, kInfinity, -kInfinity, kNan};
    for (const double a : values) {
        for (const double b : values) {
            for (const double c : values) {
                const DrawnLine line = LineBetween({a, b}, {c, a + b}, kColour);
                for (const float coordinate : {line.x1, line.y1, line.x2, line.y2}) {
                    ASSERT_LE(std::abs(coordinate), 1e7F) << a << ' ' << b << ' ' << c;
                }
                ASSERT_LE(std::abs(CircleAround({a, b}, 40, kColour).y), 1e7F);
            }
        }
    }
}

TEST(PaintedOver, KeepsWhatIsNotDrawnAgainBelowTheNewLines) {
    const DrawnLine old{1, 1, 2, 2, kColour};
    const DrawnLine both{3, 3, 4, 4, kColour};
    const DrawnLine fresh{5, 5, 6, 6, kColour};
    const DrawnCircle circle{7, 7, 40, kColour};
    const PanelDrawing standing{{old, both, circle}, {{"Label51", "1.00", {}}}};
    const PanelDrawing result = PaintedOver(standing, {{fresh, both, circle}, {{"Label51", "2.00", {}}}});
    EXPECT_EQ(result.items, (std::vector<DrawnItem>{old, fresh, both, circle}));
    EXPECT_EQ(LabelText(result, "Label51"), "2.00");
}

TEST(PaintedOver, DoesNotGrowWithPaintingOverAndOver) {
    PanelDrawing picture{{DrawnLine{1, 1, 2, 2, kColour}, DrawnLine{-0.0F, 1, 2, 2, kColour}}, {}};
    const PanelDrawing fresh{{DrawnLine{1, 1, 2, 2, kColour}, DrawnLine{0.0F, 1, 2, 2, kColour}}, {}};
    for (int i = 0; i < 5; ++i) picture = PaintedOver(picture, fresh);
    EXPECT_EQ(picture.items.size(), 2U);
}

}  // namespace
}  // namespace brantlow
