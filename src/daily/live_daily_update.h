// The whole end-of-day update where live sources are asked: RunDailyUpdate comes here for them.
#pragma once

#include "daily/daily_update.h"

namespace brantlow {

// Needs work.live with its quotes. Missed days enter the database before the newest one; a run without a
// quote leaves the work files of the update before it.
DailyUpdate RunLiveUpdate(const UpdateWork& work, DayStore& days);

}  // namespace brantlow
