#include "study/remaining_time.h"

#include <gtest/gtest.h>

namespace brantlow {
namespace {

constexpr Date kDay{std::chrono::year{2026}, std::chrono::month{11}, std::chrono::day{20}};
constexpr double kNoon = 12 * 3600;

TEST(RemainingTime, IsWhatIsLeftAtTheSpeedSoFar) {
    struct Row {
        double seconds;
        double share;
        const char* words;
    };
    constexpr Row kRows[] = {
        {1.9, 0.5, ""},              // too early to tell
        {2, 0, ""},                  // nothing is done
        {10, 1, ""},                 // all is done
        {10, 0.5, "10 s left"},      // ten for the other half
        {10, 0.4, "15 s left"},      // fifteen
        {10, 0.45, "15 s left"},     // 12.2, told in fives
        {20, 0.25, "60 s left"},     // sixty
        {20, 0.24, "2 min left"},    // 63.3
        {60, 0.1, "9 min left"},     // 540
        {60, 0.099, "10 min left"},  // 546
    };
    for (const Row& row : kRows) {
        FixedClock clock(kDay, kNoon);
        const RemainingTime remaining(clock);
        clock.Set(kDay, kNoon + row.seconds);
        EXPECT_EQ(remaining.Words(row.share), row.words) << row.seconds << ' ' << row.share;
    }
}

TEST(RemainingTime, CountsNoPause) {
    FixedClock clock(kDay, kNoon);
    RemainingTime remaining(clock);
    clock.Set(kDay, kNoon + 5);
    remaining.BeginPause();
    clock.Set(kDay, kNoon + 1005);
    remaining.EndPause();
    clock.Set(kDay, kNoon + 1010);
    EXPECT_EQ(remaining.Words(0.5), "10 s left");
}

TEST(RemainingTime, GoesOnOverMidnight) {
    FixedClock clock(kDay, 86395);
    const RemainingTime remaining(clock);
    clock.Set(AddDays(kDay, 1), 5);
    EXPECT_EQ(remaining.Words(0.5), "10 s left");
}

}  // namespace
}  // namespace brantlow
