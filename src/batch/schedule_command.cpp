#include <array>
#include <cstdlib>

#include "acquire/start_keeper.h"
#include "acquire/update_schedule.h"
#include "batch/commands.h"
#include "shell/app_folder.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

constexpr const char* kProgramName = "brantlow";

// By which a program finds the screen of the person who is at work.
constexpr std::array<const char*, 4> kScreenVariables = {"DISPLAY", "WAYLAND_DISPLAY", "XAUTHORITY",
                                                         "XDG_RUNTIME_DIR"};

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

ScheduleSystem ThisSystem() {
    return {RunSystemCommand, UserUnitFolder(Environment("XDG_CONFIG_HOME"), CurrentStartPlaces().home)};
}

StartedProgram ProgramOf(const BatchCall& call) {
    StartedProgram started{call.executable.parent_path() / kProgramName, call.session.AppPath, {}};
    for (const char* name : kScreenVariables) {
        const std::string value = Environment(name);
        if (!value.empty()) started.screen.emplace_back(name, value);
    }
    return started;
}

// The time that the call names, else the one that the settings hold.
std::optional<int> ChosenMinute(const BatchCall& call) {
    const Arguments& arguments = call.arguments;
    return arguments.Has("--at") ? ReadClockTime(arguments.Text("--at"))
                                 : DailyRunMinute(call.session.settings);
}

ExitStatus Show(BatchCall& call, const ScheduleSystem& system) {
    const auto installed = FindScheduledStart(system);
    call.out << "Scheduled start: ";
    if (installed) {
        call.out << WeeklyTimeText(installed->start) << " (" << Word(installed->keeper) << ")\n";
    } else {
        call.out << "none\n";
    }
    const auto minute = DailyRunMinute(call.session.settings);
    call.out << "Daily update: " << (minute ? FormatTime(*minute) : "none") << '\n';
    return ExitStatus::Done;
}

ExitStatus Install(BatchCall& call, const ScheduleSystem& system, int minute) {
    const StartedProgram started = ProgramOf(call);
    if (!IsRegularFile(started.program)) {
        return Refuse(call, started.program.string() + ": no such program to be started");
    }
    const auto days = ParseDays(call.arguments.Text("--days")).value_or(kMondayToFriday);
    const std::string refusal = InstallScheduledStart(system, StartTimeFor({days, minute}), started);
    if (!refusal.empty()) return Refuse(call, refusal);
    SetDailyRun(minute, call.session.settings);
    const auto error = WriteSettingsFile(SettingsFile::Data, call.session.AppPath, call.session.settings);
    if (error) {
        return Refuse(call,
                      SettingsFileName(SettingsFile::Data) + " could not be written: " + error.message());
    }
    return Show(call, system);
}

}  // namespace

std::optional<std::string> RefuseAt(std::string_view text) {
    if (ReadClockTime(text)) return std::nullopt;
    return "'" + std::string(text) + "' is no time of the form HH:MM";
}

std::optional<std::string> RefuseDays(std::string_view text) {
    if (ParseDays(text)) return std::nullopt;
    return "'" + std::string(text) + "' is no list of mon, tue, wed, thu, fri, sat, sun with commas between";
}

ExitStatus RunSchedule(BatchCall& call) {
    const Arguments& arguments = call.arguments;
    const ScheduleSystem system = ThisSystem();
    const bool installs = arguments.Has("--at") || arguments.Has("--days");
    if (arguments.Has("--remove")) {
        if (installs) return RefuseUsage(call, "--remove", "takes neither --at nor --days beside it");
        const std::string refusal = RemoveScheduledStart(system);
        return refusal.empty() ? Show(call, system) : Refuse(call, refusal);
    }
    if (!installs) return Show(call, system);
    const auto minute = ChosenMinute(call);
    if (!minute) return RefuseUsage(call, "--days", "needs --at, no time of a daily update is stored");
    return Install(call, system, *minute);
}

}  // namespace brantlow
