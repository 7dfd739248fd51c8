#include "acquire/schedule/start_keeper.h"

#include <array>

#include "base/failure.h"
#include "base/text.h"
#include "shell/user_store.h"

namespace brantlow {

namespace {

using Command = std::vector<std::string>;

// What crontab says, and no failure, when the user has none.
constexpr std::string_view kNoCrontab = "no crontab for";

struct Crontab {
    bool there = false;  // the program exists
    bool readable = false;
    std::string text;
    std::string error;
};

std::string Joined(const Command& command) {
    std::string text;
    for (const std::string& word : command) text.append(text.empty() ? "" : " ").append(word);
    return text;
}

// Runs a command; the sentence about its failure, empty when done.
std::string Failure(const ScheduleSystem& system, const Command& command, std::string_view input = {}) {
    const CommandResult result = system.run(command, input);
    if (result.Done()) return {};
    const std::string reason(Trim(result.err));
    return Joined(command) + " failed" + (reason.empty() ? "." : ": " + reason);
}

Command UserSystemctl(const Command& arguments) {
    Command command = {"systemctl", "--user"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
}

bool SystemdAnswers(const ScheduleSystem& system) {
    return system.run(UserSystemctl({"show", "--property=Version"}), {}).Done();
}

Crontab ReadUserCrontab(const ScheduleSystem& system) {
    const CommandResult result = system.run({"crontab", "-l"}, {});
    Crontab crontab;
    crontab.there = result.started;
    crontab.readable = result.Done() || result.err.find(kNoCrontab) != std::string::npos;
    if (result.Done()) crontab.text = result.out;
    crontab.error = Trim(result.err);
    return crontab;
}

std::string WriteUserCrontab(const ScheduleSystem& system, const std::string& text) {
    return text.empty() ? Failure(system, {"crontab", "-r"}) : Failure(system, {"crontab", "-"}, text);
}

std::string RemoveOwnLines(const ScheduleSystem& system) {
    const Crontab crontab = ReadUserCrontab(system);
    const std::string rest = WithoutOwnLines(crontab.text);
    return rest == crontab.text ? std::string() : WriteUserCrontab(system, rest);
}

// The two unit files as they were before an installation.
class EarlierUnits {
  public:
    explicit EarlierUnits(const Path& folder)
        : files_{{{folder / kTimerName, ReadWholeFile(folder / kTimerName)},
                  {folder / kServiceName, ReadWholeFile(folder / kServiceName)}}} {}

    void PutBack() const {
        for (const auto& [file, before] : files_) {
            if (before.outcome == ReadOutcome::Done) WriteWholeFile(file, before.bytes);
            if (before.outcome == ReadOutcome::Missing) DeleteOneFile(file);
        }
    }

  private:
    struct Unit {
        Path file;
        ReadResult before;
    };
    std::array<Unit, 2> files_;
};

std::string WriteUnits(const Path& folder, const WeeklyTime& start, const StartedProgram& started) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (!error) error = WriteWholeFile(folder / kServiceName, ServiceText(started));
    if (!error) error = WriteWholeFile(folder / kTimerName, TimerText(start));
    return CannotBeSaved(folder, error);
}

std::string StartTimer(const ScheduleSystem& system) {
    std::string failure = Failure(system, UserSystemctl({"daemon-reload"}));
    if (failure.empty()) failure = Failure(system, UserSystemctl({"enable", kTimerName}));
    // A timer that runs already goes on with its old times until it is started anew.
    if (failure.empty()) failure = Failure(system, UserSystemctl({"restart", kTimerName}));
    return failure;
}

std::string InstallTimer(const ScheduleSystem& system, const WeeklyTime& start,
                         const StartedProgram& started) {
    const EarlierUnits earlier(system.unitFolder);
    std::string failure = WriteUnits(system.unitFolder, start, started);
    if (failure.empty()) failure = StartTimer(system);
    if (failure.empty()) return RemoveOwnLines(system);
    earlier.PutBack();
    system.run(UserSystemctl({"daemon-reload"}), {});
    return failure;
}

// The unit files and the link by which an enabled timer starts with its user.
void DeleteUnits(const Path& folder) {
    std::error_code ignored;
    for (const Path& file :
         {Path(kTimerName), Path(kServiceName), Path("timers.target.wants") / kTimerName}) {
        std::filesystem::remove(folder / file, ignored);
    }
}

std::string InstallCrontabLine(const ScheduleSystem& system, const WeeklyTime& start,
                               const StartedProgram& started) {
    const Crontab crontab = ReadUserCrontab(system);
    if (!crontab.there) return std::string(kNoScheduler);
    if (!crontab.readable) return "The crontab could not be read: " + crontab.error;
    std::string failure = WriteUserCrontab(system, WithOwnLine(crontab.text, CrontabLine(start, started)));
    // A timer that is left from a time when systemd answered would start the program a second time.
    if (failure.empty()) DeleteUnits(system.unitFolder);
    return failure;
}

std::string RemoveTimer(const ScheduleSystem& system) {
    if (!IsRegularFile(system.unitFolder / kTimerName)) return {};
    std::string failure;
    const bool answers = SystemdAnswers(system);
    if (answers) failure = Failure(system, UserSystemctl({"disable", "--now", kTimerName}));
    if (!failure.empty()) return failure;
    DeleteUnits(system.unitFolder);
    if (answers) system.run(UserSystemctl({"daemon-reload"}), {});
    return {};
}

}  // namespace

std::string_view Word(StartKeeper keeper) {
    return keeper == StartKeeper::Systemd ? "systemd" : "crontab";
}

Path UserUnitFolder(const std::string& configHome, const Path& home) {
    return UserStoreFile(configHome, home).parent_path().parent_path() / "systemd" / "user";
}

std::optional<InstalledStart> FindScheduledStart(const ScheduleSystem& system) {
    if (const auto start = ReadTimer(BytesOrEmpty(system.unitFolder / kTimerName))) {
        return InstalledStart{StartKeeper::Systemd, *start};
    }
    if (const auto start = ReadCrontab(ReadUserCrontab(system).text)) {
        return InstalledStart{StartKeeper::Crontab, *start};
    }
    return std::nullopt;
}

std::string InstallScheduledStart(const ScheduleSystem& system, const WeeklyTime& start,
                                  const StartedProgram& started) {
    if (!CanBeScheduled(started)) return std::string(kPathCannotBeScheduled);
    if (SystemdAnswers(system)) return InstallTimer(system, start, started);
    return InstallCrontabLine(system, start, started);
}

std::string RemoveScheduledStart(const ScheduleSystem& system) {
    const std::string timer = RemoveTimer(system);
    const std::string line = RemoveOwnLines(system);
    return timer.empty() ? line : timer;
}

}  // namespace brantlow
