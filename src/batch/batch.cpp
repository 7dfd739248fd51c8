#include "batch/batch.h"

#include <chrono>

#include "base/clock.h"
#include "batch/command_line.h"
#include "batch/table_commands.h"
#include "batch/terminal_person.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

constexpr double kSecondsPerMinute = 60;

// The clock stands still for the whole call; what the call does not set is the system's day or time.
FixedClock CallClock(const CommandLine& line) {
    const SystemClock system;
    const double seconds = line.minutes ? *line.minutes * kSecondsPerMinute : system.SecondsSinceMidnight();
    return FixedClock(line.today.value_or(system.Today()), seconds);
}

Path AppPathOf(const CommandLine& line, const Path& executable) {
    if (!line.app) return executable.parent_path();
    std::error_code error;
    const Path absolute = std::filesystem::absolute(*line.app, error).lexically_normal();
    return absolute.has_filename() ? absolute : absolute.parent_path();
}

ExitStatus RunCommand(const CommandLine& line, const BatchProcess& process) {
    const FixedClock clock = CallClock(line);
    TerminalPerson person(process.err, process.errIsTerminal, process.interrupted);
    Session session(AppPathOf(line, process.executable), clock, person);
    person.WatchRun(&session.run);
    person.AnswerYes(line.arguments.Has(kYesOption));
    BatchCall call{session,     line.arguments,      process.assets,    process.out,
                   process.err, process.interrupted, process.executable};
    std::error_code error;
    if (line.command->needsAppFolder && !std::filesystem::is_directory(session.AppPath, error)) {
        return RefuseUsage(call, "--app", "'" + session.AppPath.string() + "' is no folder");
    }
    LoadAllSettings(session.AppPath, session.settings);
    for (const SettingsFile file : line.command->settings) {
        const std::string sentence = UnreadableSettings(file, session.AppPath, session.settings);
        if (!sentence.empty()) return Refuse(call, sentence);
    }
    return line.command->run(call);
}

}  // namespace

ExitStatus RunBatch(std::span<const std::string> arguments, const BatchProcess& process) {
    const CommandLine line = ParseCommandLine(arguments);
    ExitStatus status = ExitStatus::Done;
    if (!line.help.empty()) {
        process.out << line.help;
    } else if (!line.error.empty()) {
        process.err << line.error << '\n';
        return ExitStatus::Usage;
    } else {
        status = RunCommand(line, process);
    }
    process.out.flush();
    if (!process.out && status == ExitStatus::Done) {
        process.err << "standard output could not be written\n";
        return ExitStatus::Refused;
    }
    return status;
}

}  // namespace brantlow
