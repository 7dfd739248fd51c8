#include "batch/batch.h"

#include <chrono>

#include "base/clock.h"
#include "batch/command_line.h"
#include "batch/table_commands.h"
#include "batch/terminal_person.h"
#include "shell/folder_lock.h"
#include "shell/session_change.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

constexpr double kSecondsPerMinute = 60;
// How long a call waits for the folder's lock that names no time.
constexpr int kWaitSeconds = 10;

// The past day that the call looks from.
std::optional<Date> AsOf(const CommandLine& line) {
    return ReadIsoDate(line.arguments.Text(kAsOfOption.name));
}

// The clock stands still for the whole call; what the call does not set is the system's day or time.
FixedClock CallClock(const CommandLine& line) {
    const SystemClock system;
    const std::optional<Date> today = AsOf(line) ? AsOf(line) : line.today;
    const double seconds = line.minutes ? *line.minutes * kSecondsPerMinute : system.SecondsSinceMidnight();
    return FixedClock(today.value_or(system.Today()), seconds);
}

Path AppPathOf(const CommandLine& line, const Path& executable) {
    if (!line.app) return executable.parent_path();
    std::error_code error;
    const Path absolute = std::filesystem::absolute(*line.app, error).lexically_normal();
    return absolute.has_filename() ? absolute : absolute.parent_path();
}

// What a call is called by those who wait for it.
std::string WorkOf(const CommandLine& line) {
    std::string work(line.command->name);
    for (const std::string& operand : line.arguments.operands) work.append(" ").append(operand);
    constexpr std::size_t kLongestWork = 200;
    return work.substr(0, kLongestWork);
}

// Takes the lock of the folder for a call that writes; the status of one that is refused.
std::optional<ExitStatus> TakeLock(const CommandLine& line, const BatchProcess& process, BatchCall& call,
                                   FolderLock& lock) {
    if (line.command->writes == nullptr || !line.command->writes(line.arguments)) return std::nullopt;
    const Path& folder = call.session.AppPath;
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) return Refuse(call, FailedTo(FailureKind::Make, folder, error));
    const LockPatience patience{std::chrono::seconds(line.wait.value_or(kWaitSeconds)),
                                [&] { return !process.interrupted(); }};
    const LockOutcome outcome = lock.Take(folder, ThisProcess(kCommandHolder, WorkOf(line)), patience);
    if (outcome == LockOutcome::Taken) return std::nullopt;
    if (process.interrupted()) return ExitStatus::Interrupted;
    return Refuse(call, lock.Refusal());
}

// Takes back what a killed program left half done; the status of a call that may not go on.
std::optional<ExitStatus> Recover(BatchCall& call) {
    const FolderRecovery recovery = RecoverFolder(call.session);
    for (const std::string& sentence : recovery.sentences) call.err << OneLine(sentence) << '\n';
    call.tookChangeBack = recovery.tookChangeBack;
    if (recovery.failed) return ExitStatus::Refused;
    if (!recovery.sentences.empty()) LoadAllSettings(call.session.AppPath, call.session.settings);
    return std::nullopt;
}

ExitStatus RunCommand(const CommandLine& line, const BatchProcess& process) {
    const FixedClock clock = CallClock(line);
    TerminalPerson person(process.err, process.errIsTerminal, process.interrupted);
    Session session(AppPathOf(line, process.executable), clock, person);
    session.HistoryUpTo = AsOf(line);
    person.WatchRun(&session.run);
    person.AnswerYes(line.arguments.Has(kYesOption));
    BatchCall call{session,     line.arguments,      process.assets,    process.out,
                   process.err, process.interrupted, process.executable};
    std::error_code error;
    if (line.command->needsAppFolder && !std::filesystem::is_directory(session.AppPath, error)) {
        return RefuseUsage(call, "--app", "'" + session.AppPath.string() + "' is no folder");
    }
    FolderLock lock;
    if (const auto refused = TakeLock(line, process, call, lock)) return *refused;
    // What another call has just written counts.
    LoadAllSettings(session.AppPath, session.settings);
    if (lock.IsTaken()) {
        if (const auto refused = Recover(call)) return *refused;
    }
    const std::string unread = FirstUnreadable(line.command->settings, session.AppPath, session.settings);
    if (!unread.empty()) return Refuse(call, unread);
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
