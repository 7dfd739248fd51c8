#include "acquire/feeds/live/zone_time.h"

#include "acquire/feeds/live/source_fixture.h"

namespace brantlow {

namespace {

std::string InNewYork(EpochSeconds at) {
    const ZoneMoment moment = MomentIn(NewYorkZone(), at);
    return FormatIsoDate(Date{moment.day}) + " " + FormatTime(moment.minutes);
}

EpochSeconds Utc(int year, unsigned month, unsigned day, int minutes) {
    return std::chrono::sys_seconds{DayOf(year, month, day)}.time_since_epoch().count() + minutes * 60;
}

}  // namespace

TEST(ZoneTime, NewYorkChangesItsClockOnTheSecondSundayOfMarchAndTheFirstOfNovember) {
    EXPECT_EQ(InNewYork(Utc(2026, 3, 8, 6 * 60 + 59)), "2026-03-08 01:59");
    EXPECT_EQ(InNewYork(Utc(2026, 3, 8, 7 * 60)), "2026-03-08 03:00");
    EXPECT_EQ(InNewYork(Utc(2026, 11, 1, 5 * 60 + 59)), "2026-11-01 01:59");
    EXPECT_EQ(InNewYork(Utc(2026, 11, 1, 6 * 60)), "2026-11-01 01:00");
}

TEST(ZoneTime, BeforeTheRuleOf2007AprilAndOctoberCount) {
    EXPECT_EQ(InNewYork(Utc(2006, 3, 15, 12 * 60)), "2006-03-15 07:00");
    EXPECT_EQ(InNewYork(Utc(2006, 4, 15, 12 * 60)), "2006-04-15 08:00");
    EXPECT_EQ(InNewYork(Utc(2006, 10, 30, 12 * 60)), "2006-10-30 07:00");
}

TEST(ZoneTime, AMomentOfAZoneLeadsBack) {
    for (const char* name : {"America/New_York", "Europe/London", "Asia/Kolkata", "Australia/Sydney"}) {
        const ZoneRule& zone = *FindZone(name);
        for (unsigned month = 1; month <= 12; ++month) {
            const auto day = DayOf(2026, month, 15);
            const ZoneMoment moment = MomentIn(zone, EpochOf(zone, day, 570));
            EXPECT_EQ(moment.day, day) << name << month;
            EXPECT_EQ(moment.minutes, 570) << name << month;
        }
    }
}

TEST(ZoneTime, TheDayBeforeAHolidayEndsAtOne) {
    EXPECT_EQ(UnitedStatesClose(DayOf(2026, 11, 20)), 16 * 60);
    EXPECT_EQ(UnitedStatesClose(DayOf(2026, 11, 27)), 13 * 60);  // behind Thanksgiving
    EXPECT_EQ(UnitedStatesClose(DayOf(2026, 12, 24)), 13 * 60);
    EXPECT_EQ(UnitedStatesClose(DayOf(2025, 7, 3)), 13 * 60);
    EXPECT_EQ(UnitedStatesClose(DayOf(2026, 7, 3)), 16 * 60);  // the holiday itself is kept then
}

TEST(ZoneTime, TheNewestDayIsOverOnceItsSessionIs) {
    const ZoneRule& zone = NewYorkZone();
    EXPECT_EQ(NewestEndedDay(zone, EpochOf(zone, DayOf(2026, 11, 20), 16 * 60 - 1)), DayOf(2026, 11, 19));
    EXPECT_EQ(NewestEndedDay(zone, EpochOf(zone, DayOf(2026, 11, 20), 16 * 60)), DayOf(2026, 11, 20));
    EXPECT_EQ(NewestEndedDay(zone, EpochOf(zone, DayOf(2026, 11, 27), 13 * 60)), DayOf(2026, 11, 27));
    EXPECT_EQ(NewestEndedDay(zone, EpochOf(zone, DayOf(2026, 11, 22), 20 * 60)), DayOf(2026, 11, 20));
    EXPECT_EQ(NewestEndedDay(zone, EpochOf(zone, DayOf(2026, 11, 23), 60)), DayOf(2026, 11, 20));
}

}  // namespace brantlow
