#include "shell/folder_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <ctime>
#include <thread>
#include <utility>

#include "base/text.h"

namespace brantlow {

namespace {

constexpr std::chrono::milliseconds kBetweenTries{50};
constexpr std::time_t kForeignLockSeconds = 24 * 60 * 60;
constexpr mode_t kLockMode = 0666;

std::error_code LastError() {
    return {errno, std::generic_category()};
}

std::string FirstLineOf(const Path& file) {
    const std::string bytes = BytesOrEmpty(file);
    std::string_view line;
    LineReader(bytes).Next(line);
    return std::string(line);
}

std::string HostName() {
    constexpr std::size_t kLongestName = 256;
    std::array<char, kLongestName> name{};
    return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : std::string();
}

std::string TextOf(const LockHolder& holder) {
    std::string text = std::to_string(holder.process);
    for (const std::string* line : {&holder.program, &holder.host, &holder.machine, &holder.work}) {
        text.append("\n").append(*line);
    }
    return text.append("\n");
}

LockHolder ParseHolder(std::string_view text) {
    LockHolder holder;
    LineReader lines(text);
    std::string_view line;
    if (lines.Next(line)) std::from_chars(line.data(), line.data() + line.size(), holder.process);
    for (std::string* part : {&holder.program, &holder.host, &holder.machine, &holder.work}) {
        if (lines.Next(line)) *part = line;
    }
    return holder;
}

// What an open lock file says.
LockHolder ReadHolder(int descriptor) {
    constexpr std::size_t kLongestLock = 4096;
    std::array<char, kLongestLock> text{};
    const ssize_t count = ::pread(descriptor, text.data(), text.size(), 0);
    return count <= 0 ? LockHolder{}
                      : ParseHolder(std::string_view(text.data(), static_cast<std::size_t>(count)));
}

bool IsOfThisMachine(const LockHolder& holder, const LockHolder& self) {
    if (holder.host.empty() || holder.host == self.host) return true;
    return !holder.machine.empty() && holder.machine == self.machine;
}

// A lock that another machine wrote today: whether its holder lives cannot be seen from here.
bool IsForeignAndYoung(int descriptor, const LockHolder& self) {
    struct stat status {};
    if (::fstat(descriptor, &status) != 0) return false;
    const LockHolder holder = ReadHolder(descriptor);
    return !IsOfThisMachine(holder, self) && std::time(nullptr) - status.st_mtime < kForeignLockSeconds;
}

// False when the file was taken away, or replaced, between its opening and its locking.
bool IsStillThere(int descriptor, const Path& file) {
    struct stat opened {};
    struct stat named {};
    return ::fstat(descriptor, &opened) == 0 && ::stat(file.c_str(), &named) == 0 &&
           opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
}

// Writes who holds the lock. A disk too full for it takes nothing from the lock itself.
void WriteHolder(int descriptor, const LockHolder& self) {
    const std::string text = TextOf(self);
    if (::pwrite(descriptor, text.data(), text.size(), 0) < 0) return;
    // Only now what stood there before goes, so that a reader finds a holder at any time.
    if (::ftruncate(descriptor, static_cast<off_t>(text.size())) != 0) return;
}

}  // namespace

bool LockHolder::IsWindow() const {
    return program == kWindowHolder;
}

LockHolder ThisProcess(std::string_view program, std::string_view work) {
    LockHolder self;
    self.process = ::getpid();
    self.program = program;
    self.host = HostName();
    self.machine = FirstLineOf("/etc/machine-id");
    self.work = work;
    for (char& c : self.work) {
        if (c == '\n' || c == '\r') c = ' ';
    }
    return self;
}

LockOutcome FolderLock::Try(const LockHolder& self) {
    const int descriptor = ::open(file_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kLockMode);
    if (descriptor < 0) {
        failure_ = FailedTo(FailureKind::Make, file_, LastError());
        return LockOutcome::Failed;
    }
    const bool locked = ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
    if (!locked && errno != EWOULDBLOCK && errno != EINTR) {
        failure_ = FailedTo(FailureKind::Lock, file_, LastError());
        ::close(descriptor);
        return LockOutcome::Failed;
    }
    if (!locked || IsForeignAndYoung(descriptor, self) || !IsStillThere(descriptor, file_)) {
        holder_ = ReadHolder(descriptor);
        ::close(descriptor);
        return LockOutcome::Held;
    }
    WriteHolder(descriptor, self);
    descriptor_ = descriptor;
    return LockOutcome::Taken;
}

LockOutcome FolderLock::Take(const Path& folder, const LockHolder& self, const LockPatience& patience) {
    if (IsTaken()) return LockOutcome::Taken;
    file_ = folder / Path(kLockName);
    const auto end = std::chrono::steady_clock::now() + patience.limit;
    LockOutcome outcome = Try(self);
    while (outcome == LockOutcome::Held && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(kBetweenTries);
        if (patience.goOn && !patience.goOn()) return outcome;
        outcome = Try(self);
    }
    return outcome;
}

void FolderLock::Release() {
    if (!IsTaken()) return;
    // While the lock is held: nobody else's file can be meant.
    ::unlink(file_.c_str());
    ::close(std::exchange(descriptor_, -1));
}

void FolderLock::Refresh() const {
    if (IsTaken()) ::futimens(descriptor_, nullptr);
}

std::string FolderLock::Refusal() const {
    if (failure_) return Sentence(failure_);
    const std::string folder = file_.parent_path().string();
    const std::string who = holder_.IsWindow() ? "the window of Brantlow" : "a command of Brantlow";
    std::string sentence = folder + " is in use by " + who;
    sentence += holder_.process > 0 ? ", process " + std::to_string(holder_.process) : std::string();
    const LockHolder self = ThisProcess({}, {});
    const bool isForeign = !IsOfThisMachine(holder_, self);
    if (isForeign) sentence += " on the computer " + holder_.host;
    if (!holder_.work.empty()) sentence += " (" + holder_.work + ")";
    sentence += "; nothing was changed";
    if (isForeign) sentence += ". If it is gone, delete " + file_.string();
    return sentence;
}

}  // namespace brantlow
