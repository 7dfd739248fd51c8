#include "acquire/schedule/daily_start.h"

#include <array>

#include "acquire/schedule/update_schedule.h"
#include "shell/app_folder.h"
#include "shell/settings/settings_draft.h"

namespace brantlow {

namespace {

constexpr const char* kProgramName = "brantlow";

// By which a program finds the screen of the person who is at work.
constexpr std::array<const char*, 4> kScreenVariables = {"DISPLAY", "WAYLAND_DISPLAY", "XAUTHORITY",
                                                         "XDG_RUNTIME_DIR"};

}  // namespace

ScheduleSystem ThisScheduleSystem() {
    return {RunSystemCommand, UserUnitFolder(EnvironmentText("XDG_CONFIG_HOME"), CurrentStartPlaces().home)};
}

StartedProgram DesktopProgram(const Path& executable, const Path& appPath) {
    StartedProgram started{executable.parent_path() / kProgramName, appPath, {}};
    for (const char* name : kScreenVariables) {
        const std::string value = EnvironmentText(name);
        if (!value.empty()) started.screen.emplace_back(name, value);
    }
    return started;
}

std::string ScheduleDailyRun(const ScheduleSystem& system, const WeeklyTime& chosen,
                             const StartedProgram& started, SettingsTables& settings) {
    if (!IsRegularFile(started.program)) {
        return started.program.string() + ": no such program to be started";
    }
    std::string refusal = InstallScheduledStart(system, StartTimeFor(chosen), started);
    if (!refusal.empty()) return refusal;
    SettingsTables draft = settings;
    SetDailyRun(chosen.minute, draft);
    return Sentence(ApplySettings(draft, SettingsFile::Data, OrdinaryChange(started.appPath), settings));
}

}  // namespace brantlow
