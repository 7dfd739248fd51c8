// Installing, showing and removing the scheduled start of the program (scheduled_start.h): a timer of the
// user's systemd where it answers, else a line of the user's crontab. The settings screens and the batch tool
// call this.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "acquire/schedule/scheduled_start.h"
#include "base/files.h"
#include "base/system_command.h"

namespace brantlow {

enum class StartKeeper { Systemd, Crontab };

// "systemd" or "crontab".
std::string_view Word(StartKeeper keeper);

inline constexpr std::string_view kNoScheduler =
    "Neither systemctl --user nor crontab answers here, so the start cannot be scheduled. Brantlow updates "
    "at "
    "the chosen time when it is open then.";
inline constexpr std::string_view kPathCannotBeScheduled =
    "The start cannot be scheduled: the path of the program or of its folder holds a control character.";

struct ScheduleSystem {
    CommandRunner run;
    Path unitFolder;  // of the user's own units
};

// <configHome>/systemd/user; where `configHome` is empty or no absolute path, <home>/.config stands for it.
Path UserUnitFolder(const std::string& configHome, const Path& home);

struct InstalledStart {
    StartKeeper keeper;
    WeeklyTime start;

    bool operator==(const InstalledStart&) const = default;
};

// What is installed, or nothing; with both, the timer.
std::optional<InstalledStart> FindScheduledStart(const ScheduleSystem& system);

// Installs one start in place of any earlier one. Returns the sentence that says why it could not be, empty
// when done; what was installed before is then still there. Lines of others in the crontab stay as they are;
// a crontab that cannot be read is never written.
std::string InstallScheduledStart(const ScheduleSystem& system, const WeeklyTime& start,
                                  const StartedProgram& started);

// Removes what is installed, wherever it is. Returns the sentence that says what could not be removed; empty
// when nothing is left, or nothing was there.
std::string RemoveScheduledStart(const ScheduleSystem& system);

}  // namespace brantlow
