// The daily run and the start of the program for it, set together: what the schedule window and the batch
// tool's `schedule` share.
#pragma once

#include <string>

#include "acquire/schedule/start_keeper.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

// The system that this program runs on, with the user's own units.
ScheduleSystem ThisScheduleSystem();

// The desktop program that lies beside `executable`, working on `appPath`, with what it needs to reach the
// screen of the person who is at work.
StartedProgram DesktopProgram(const Path& executable, const Path& appPath);

// Has the system start the program kStartEarlyMinutes before `chosen`, in place of any earlier start, and
// stores the daily run at that time. Returns the sentence that says what could not be done, empty when all
// was; without a start nothing is stored.
std::string ScheduleDailyRun(const ScheduleSystem& system, const WeeklyTime& chosen,
                             const StartedProgram& started, SettingsTables& settings);

}  // namespace brantlow
