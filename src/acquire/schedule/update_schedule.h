// The daily run: while the program is open it looks at the clock about once a minute and starts the update in
// the minute that the settings name. The main frame polls it from a timer; how the program gets started in
// time is in scheduled_start.h.
#pragma once

#include <optional>
#include <string_view>

#include "base/clock.h"
#include "base/dates.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

// Between two looks at the clock, so that each minute gets one.
inline constexpr double kPollSeconds = 59;

// Whether anything is to be waited for: line 9 of the data settings is not "None".
bool WaitsForDailyRun(const SettingsTables& settings);

// The minute of the day that the settings name, 0 to 1439; nothing unless line 9 is "EOD" and lines 10 and 11
// hold an hour and a minute. "09", "9" and " 9" are one hour.
std::optional<int> DailyRunMinute(const SettingsTables& settings);

// A day and the seconds since its midnight.
struct Moment {
    Date day;
    double seconds;
    auto operator<=>(const Moment&) const = default;
};
Moment MomentOf(const Clock& clock);
// Below 0 where `to` is the earlier one.
double SecondsBetween(const Moment& from, const Moment& to);

class DailyRun {
  public:
    // To be called about once a second while a run could begin. True when it is to begin now: in the chosen
    // minute, or at the first look after one that no look fell into, because the machine slept or a question
    // or another run stood in the way; once for each minute, and once for all the days that were missed. The
    // first look comes kPollSeconds after the first call; a clock that passed midnight or was set back ends
    // the wait. A minute before the first call, or one chosen after it had passed, is not made up.
    bool Poll(const SettingsTables& settings, const Clock& clock);

    // One look at the clock, under the same rules but for the wait.
    bool CheckDailyRun(const SettingsTables& settings, const Clock& clock);

    // A copy that the system started for the run of today asks for it.
    enum class Today {
        NotChosen,  // the settings name no run
        Over,       // it has begun before
        Comes,      // it begins in its minute, or at the next look where that has passed
    };
    Today AskForToday(const SettingsTables& settings, const Clock& clock);
    // Whether the minute of today has come and its run has not begun.
    bool IsDue(const SettingsTables& settings, const Clock& clock) const;

  private:
    struct Minute {
        Date day;
        int minute;
        bool operator==(const Minute&) const = default;
    };

    std::optional<Moment> PollStart_;
    // The look before, and the minute that was chosen then.
    std::optional<Moment> lastLook_;
    std::optional<int> lastChosen_;
    bool isAskedFor_ = false;
    std::optional<Minute> lastRun_;
};

// The run turned on in the settings screens: takes hour and minute into lines 10 and 11. True when a
// scheduled start is to be offered. False, and nothing is taken, when the run was on already or one of the
// two is empty.
bool TurnOnDailyRun(std::string_view hour, std::string_view minute, SettingsTables& settings);

// Sets lines 9, 10 and 11 for a run at `minute` of the day, 0 to 1439.
void SetDailyRun(int minute, SettingsTables& settings);

}  // namespace brantlow
