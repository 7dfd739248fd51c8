#include "base/system_command.h"

#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>

namespace brantlow {

namespace {

constexpr std::chrono::seconds kLongest{10};
constexpr std::chrono::milliseconds kLookEvery{5};
constexpr std::string_view kMessageLanguage = "LC_ALL=";

// A file in memory for one of a program's three streams: unlike a pipe it never fills up.
class MemoryFile {
  public:
    explicit MemoryFile(const char* name) : number_(::memfd_create(name, MFD_CLOEXEC)) {}
    ~MemoryFile() {
        if (number_ >= 0) ::close(number_);
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    int Number() const { return number_; }
    bool Fill(std::string_view text) const {
        const ssize_t written = ::write(number_, text.data(), text.size());
        return written == static_cast<ssize_t>(text.size()) && ::lseek(number_, 0, SEEK_SET) == 0;
    }
    std::string Text() const {
        std::string text;
        char piece[4096];
        ::lseek(number_, 0, SEEK_SET);
        for (ssize_t count = 0; (count = ::read(number_, piece, sizeof piece)) > 0;)
            text.append(piece, static_cast<std::size_t>(count));
        return text;
    }

  private:
    int number_;
};

// Texts as the array of pointers that the system takes; lives as long as the texts.
std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> EnvironmentInEnglish() {
    std::vector<std::string> environment;
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
        if (!std::string_view(*entry).starts_with(kMessageLanguage)) environment.emplace_back(*entry);
    }
    environment.push_back(std::string(kMessageLanguage) + "C");
    return environment;
}

pid_t Spawn(std::vector<std::string> command, const MemoryFile& in, const MemoryFile& out,
            const MemoryFile& err) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, in.Number(), STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, out.Number(), STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, err.Number(), STDERR_FILENO);
    std::vector<std::string> environment = EnvironmentInEnglish();
    pid_t process = -1;
    const int error = ::posix_spawnp(&process, command.front().c_str(), &actions, nullptr,
                                     Pointers(command).data(), Pointers(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    return error == 0 ? process : -1;
}

// Waits for the end of a program; false when it had to be ended or died of a signal.
bool WaitFor(pid_t process, int& status) {
    const auto last = std::chrono::steady_clock::now() + kLongest;
    int state = 0;
    pid_t ended = 0;
    while ((ended = ::waitpid(process, &state, WNOHANG)) == 0) {
        if (std::chrono::steady_clock::now() >= last) {
            ::kill(process, SIGKILL);
            ::waitpid(process, &state, 0);
            return false;
        }
        std::this_thread::sleep_for(kLookEvery);
    }
    if (ended != process || !WIFEXITED(state)) return false;
    status = WEXITSTATUS(state);
    return true;
}

}  // namespace

CommandResult RunSystemCommand(const std::vector<std::string>& command, std::string_view input) {
    const MemoryFile in("in");
    const MemoryFile out("out");
    const MemoryFile err("err");
    CommandResult result;
    if (command.empty() || !in.Fill(input) || out.Number() < 0 || err.Number() < 0) return result;
    const pid_t process = Spawn(command, in, out, err);
    if (process < 0) return result;
    result.started = WaitFor(process, result.status);
    result.out = out.Text();
    result.err = err.Text();
    return result;
}

}  // namespace brantlow
