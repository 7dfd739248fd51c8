#include "fault_run.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include "base/text.h"

namespace brantlow {

namespace {

// An argument with the application folder in the place of "{app}".
std::string InFolder(const std::string& argument, const Path& app) {
    constexpr std::string_view kFolder = "{app}";
    return argument.starts_with(kFolder) ? app.string() + argument.substr(kFolder.size()) : argument;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

// The test's own environment without what this file sets.
std::vector<std::string> PlainEnvironment() {
    std::vector<std::string> texts;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string_view text(*entry);
        if (!text.starts_with("FAULT_") && !text.starts_with("LD_PRELOAD=")) texts.emplace_back(text);
    }
    return texts;
}

pid_t Spawn(std::vector<std::string> arguments, std::vector<std::string> environment, const Path& out,
            const Path& err) {
    posix_spawn_file_actions_t actions{};
    posix_spawn_file_actions_init(&actions);
    constexpr int kWrites = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, out.c_str(), kWrites, 0600);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, err.c_str(), kWrites, 0600);
    pid_t process = -1;
    const int failed = ::posix_spawn(&process, arguments.front().c_str(), &actions, nullptr,
                                     Pointers(arguments).data(), Pointers(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    if (failed != 0) throw std::runtime_error(arguments.front() + " cannot be started");
    return process;
}

}  // namespace

FaultPrograms ProgramsUnderTest() {
    return {BRANTLOW_BATCH_FILE, KEEP_DRAWINGS_FILE, BRANTLOW_FAULT_SHIM_FILE};
}

std::string FaultedCall::Told() const {
    std::ostringstream text;
    text << "status " << status << (signal != 0 ? " signal " + std::to_string(signal) : std::string())
         << ", fault at " << call << ' ' << path.string() << "\n  out: " << out << "\n  err: " << err;
    return text.str();
}

RunningCall::RunningCall(const Path& app, const std::vector<std::string>& arguments, const FaultPlan& plan,
                         bool traces) {
    const FaultPrograms programs = ProgramsUnderTest();
    const bool isDrawing = !arguments.empty() && arguments.front() == kWindowsDrawing;
    std::vector<std::string> command = {(isDrawing ? programs.keepDrawings : programs.batchTool).string(),
                                        "--app",
                                        app.string(),
                                        "--today",
                                        "2026-11-21",
                                        "--time",
                                        "18:00"};
    for (const std::string& argument : arguments) command.push_back(InFolder(argument, app));
    std::vector<std::string> environment = PlainEnvironment();
    environment.push_back("LD_PRELOAD=" + programs.shim.string());
    environment.push_back("FAULT_FOLDER=" + app.string());
    if (traces) environment.push_back("FAULT_TRACE=" + Note("trace").string());
    if (!plan.action.empty()) {
        environment.push_back("FAULT_CALLS=" + plan.calls);
        environment.push_back("FAULT_NUMBER=" + std::to_string(plan.number));
        environment.push_back("FAULT_ACTION=" + plan.action);
        environment.push_back("FAULT_FILE=" + plan.file);
        if (plan.lasts) environment.push_back("FAULT_LASTING=1");
        environment.push_back("FAULT_MET=" + Note("met").string());
    }
    process_ = Spawn(std::move(command), std::move(environment), Note("out"), Note("err"));
}

RunningCall::~RunningCall() {
    if (!ended_) {
        Kill();
        Wait();
    }
}

void RunningCall::TakeStatus(int status) {
    ended_ = true;
    result_.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result_.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

bool RunningCall::WaitUntilStopped() {
    int status = 0;
    ::waitpid(process_, &status, WUNTRACED);
    if (WIFSTOPPED(status)) return true;
    TakeStatus(status);
    return false;
}

void RunningCall::Continue() const {
    ::kill(process_, SIGCONT);
}

void RunningCall::Kill() const {
    ::kill(process_, SIGKILL);
}

FaultedCall RunningCall::Wait() {
    int status = 0;
    if (!ended_ && ::waitpid(process_, &status, 0) == process_) TakeStatus(status);
    result_.out = BytesOrEmpty(Note("out"));
    result_.err = BytesOrEmpty(Note("err"));
    const std::string met = BytesOrEmpty(Note("met"));
    const std::size_t space = met.find(' ');
    if (space != std::string::npos) {
        result_.call = met.substr(0, space);
        result_.path = met.substr(space + 1, met.find('\n') - space - 1);
    }
    return result_;
}

std::vector<std::string> RunningCall::Trace() const {
    const std::string bytes = BytesOrEmpty(Note("trace"));
    std::vector<std::string> lines;
    LineReader reader(bytes);
    for (std::string_view line; reader.Next(line);) lines.emplace_back(line);
    return lines;
}

FaultedCall CallWithFault(const Path& app, const std::vector<std::string>& arguments, const FaultPlan& plan) {
    RunningCall call(app, arguments, plan);
    return call.Wait();
}

}  // namespace brantlow
