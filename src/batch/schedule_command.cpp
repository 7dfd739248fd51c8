#include "acquire/schedule/daily_start.h"
#include "acquire/schedule/update_schedule.h"
#include "batch/commands.h"

namespace brantlow {

namespace {

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
    const StartedProgram started = DesktopProgram(call.executable, call.session.AppPath);
    const auto days = ParseDays(call.arguments.Text("--days")).value_or(kMondayToFriday);
    const std::string refusal = ScheduleDailyRun(system, {days, minute}, started, call.session.settings);
    return refusal.empty() ? Show(call, system) : Refuse(call, refusal);
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

bool ChangesSchedule(const Arguments& arguments) {
    return arguments.Has("--at") || arguments.Has("--days") || arguments.Has("--remove");
}

ExitStatus RunSchedule(BatchCall& call) {
    const Arguments& arguments = call.arguments;
    const ScheduleSystem system = ThisScheduleSystem();
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
