#include "base/clock.h"

#include <gtest/gtest.h>

#include <ctime>

namespace brantlow {
namespace {

using namespace std::chrono_literals;

TEST(FixedClock, StandsStillUntilItIsSet) {
    FixedClock clock(Date{2004y, std::chrono::January, 2d}, 34200);
    EXPECT_EQ(clock.Today(), (Date{2004y, std::chrono::January, 2d}));
    EXPECT_EQ(clock.SecondsSinceMidnight(), 34200);
    clock.Set(Date{2004y, std::chrono::January, 3d}, 0);
    EXPECT_EQ(clock.Today(), (Date{2004y, std::chrono::January, 3d}));
    EXPECT_EQ(clock.SecondsSinceMidnight(), 0);
}

TEST(SystemClock, AgreesWithTheLocalTimeOfTheSystem) {
    const SystemClock clock;
    const auto stamp = [](std::time_t now) {
        std::tm local{};
        ::localtime_r(&now, &local);
        char text[32];
        std::strftime(text, sizeof text, "%Y-%m-%d", &local);
        return std::string(text);
    };
    const std::string before = stamp(std::time(nullptr));
    const std::string today = FormatIsoDate(clock.Today());
    const std::string after = stamp(std::time(nullptr));
    EXPECT_TRUE(today == before || today == after) << today;
    EXPECT_GE(clock.SecondsSinceMidnight(), 0);
    EXPECT_LT(clock.SecondsSinceMidnight(), 86401);
}

}  // namespace
}  // namespace brantlow
