// A door between a program and the C library, loaded before it (LD_PRELOAD): the n-th file call of a kind
// fails with a chosen errno, is cut in half, or is the last thing that the program does. The fault tests and
// tools/fault_sweep.sh put it in front of the batch tool; nothing of it is part of the program.
//
// Only calls on paths at or below FAULT_FOLDER count. The environment says what happens:
//
//   FAULT_CALLS    the calls that count, with commas: open read write rename unlink link symlink mkdir rmdir
//                  sync truncate close stat list entry lock chmod time ("list" opens a folder, "entry" reads
//                  one of its names, "sync" is fsync, fdatasync and syncfs); "any" for all of them
//   FAULT_FILE     of those, only the ones whose path holds this text
//   FAULT_NUMBER   which of them is hit, from 1; 0 or nothing: none
//   FAULT_ACTION   an errno (EIO, ENOSPC, EACCES, EMFILE ...): that call fails with it
//                  KILL     SIGKILL before the call
//                  KILLED   SIGKILL after the call
//                  TORN     half of a write, then SIGKILL; any other call as KILL
//                  SHORT    half of a write, and ENOSPC from the next counted call on; any other call ENOSPC
//                  STOP     SIGSTOP before the call; it goes on at SIGCONT
//   FAULT_LASTING  1: the calls after it that count fail too (an errno only)
//   FAULT_MET      this file gets one line when the fault is met: the call and its path
//   FAULT_TRACE    this file gets one line for every call below FAULT_FOLDER, counted or not, in order
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace {

enum class Action { None, Error, Kill, Killed, Torn, Short, Stop };

struct ActionWord {
    std::string_view word;
    Action action;
};
constexpr std::array<ActionWord, 5> kActionWords = {{{"KILL", Action::Kill},
                                                     {"KILLED", Action::Killed},
                                                     {"TORN", Action::Torn},
                                                     {"SHORT", Action::Short},
                                                     {"STOP", Action::Stop}}};

struct ErrorWord {
    std::string_view word;
    int number;
};
constexpr std::array<ErrorWord, 16> kErrorWords = {{{"EIO", EIO},
                                                    {"EACCES", EACCES},
                                                    {"EMFILE", EMFILE},
                                                    {"ENOSPC", ENOSPC},
                                                    {"EISDIR", EISDIR},
                                                    {"EROFS", EROFS},
                                                    {"EFBIG", EFBIG},
                                                    {"ENOMEM", ENOMEM},
                                                    {"EPERM", EPERM},
                                                    {"EXDEV", EXDEV},
                                                    {"EMLINK", EMLINK},
                                                    {"EDQUOT", EDQUOT},
                                                    {"ENFILE", ENFILE},
                                                    {"EBUSY", EBUSY},
                                                    {"ENOTSUP", ENOTSUP},
                                                    {"ENOENT", ENOENT}}};

std::string Setting(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

struct Plan {
    std::string folder = Setting("FAULT_FOLDER");
    std::string calls = "," + Setting("FAULT_CALLS") + ",";
    std::string file = Setting("FAULT_FILE");
    long number = std::atol(Setting("FAULT_NUMBER").c_str());
    Action action = Action::None;
    int error = 0;
    bool lasting = Setting("FAULT_LASTING") == "1";
    std::string met = Setting("FAULT_MET");
    std::string trace = Setting("FAULT_TRACE");

    Plan() {
        const std::string word = Setting("FAULT_ACTION");
        for (const ActionWord& row : kActionWords) {
            if (row.word == word) action = row.action;
        }
        for (const ErrorWord& row : kErrorWords) {
            if (row.word != word) continue;
            action = Action::Error;
            error = row.number;
        }
        if (action == Action::Short) error = ENOSPC;
    }

    bool Counts(std::string_view call, std::string_view path) const {
        if (path.find(file) == std::string_view::npos) return false;
        return calls == ",any," || calls.find("," + std::string(call) + ",") != std::string::npos;
    }
    bool Holds(std::string_view path) const {
        if (folder.empty() || !path.starts_with(folder)) return false;
        return path.size() == folder.size() || path[folder.size()] == '/';
    }
};

const Plan& ThePlan() {
    static const Plan plan;
    return plan;
}

// The C library's own routine behind one of this file.
template <typename Routine>
Routine Behind(const char* name) {
    return reinterpret_cast<Routine>(::dlsym(RTLD_NEXT, name));
}

// Adds a line to a file of the test's, past this door.
void Note(const std::string& file, const std::string& line) {
    if (file.empty()) return;
    const auto number = static_cast<int>(
        ::syscall(SYS_openat, AT_FDCWD, file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666));
    if (number < 0) return;
    ::syscall(SYS_write, number, line.data(), line.size());
    ::syscall(SYS_close, number);
}

std::string LinkText(const std::string& link) {
    std::array<char, 4096> text{};
    const ssize_t count = ::readlink(link.c_str(), text.data(), text.size());
    return count < 0 ? std::string() : std::string(text.data(), static_cast<std::size_t>(count));
}

std::string PathOf(int descriptor) {
    return LinkText("/proc/self/fd/" + std::to_string(descriptor));
}

// An absolute path as the call means it; links and ".." are taken as they stand.
std::string PathAt(int folder, const char* path) {
    if (path == nullptr) return {};
    if (*path == '/') return path;
    const std::string base = folder == AT_FDCWD ? LinkText("/proc/self/cwd") : PathOf(folder);
    return *path == '\0' ? base : base + "/" + path;
}

[[noreturn]] void Die() {
    ::kill(::getpid(), SIGKILL);
    for (;;) ::pause();
}

// What becomes of a call.
enum class Verdict { Pass, Fail, DieAfter, Half, HalfAndDie };

Verdict VerdictOf(Action action, bool isWrite) {
    switch (action) {
        case Action::None:
            return Verdict::Pass;
        case Action::Error:
            return Verdict::Fail;
        case Action::Kill:
            Die();
        case Action::Killed:
            return Verdict::DieAfter;
        case Action::Torn:
            if (!isWrite) Die();
            return Verdict::HalfAndDie;
        case Action::Short:
            return isWrite ? Verdict::Half : Verdict::Fail;
        case Action::Stop:
            ::raise(SIGSTOP);
            return Verdict::Pass;
    }
    return Verdict::Pass;
}

Verdict Judge(std::string_view call, const std::string& path) {
    static std::atomic<long> counted{0};
    const Plan& plan = ThePlan();
    if (!plan.Holds(path)) return Verdict::Pass;
    const std::string line = std::string(call) + " " + path + "\n";
    Note(plan.trace, line);
    if (plan.number <= 0 || !plan.Counts(call, path)) return Verdict::Pass;
    const long number = ++counted;
    if (number > plan.number && (plan.lasting || plan.action == Action::Short)) {
        return plan.error != 0 ? Verdict::Fail : Verdict::Pass;
    }
    if (number != plan.number) return Verdict::Pass;
    Note(plan.met, line);
    return VerdictOf(plan.action, call == "write");
}

// Makes a call as the plan wants it; `failed` is what it gives with errno set.
template <typename Result, typename Call>
Result Through(std::string_view name, const std::string& path, Result failed, const Call& call) {
    const int before = errno;
    const Verdict verdict = Judge(name, path);
    if (verdict == Verdict::Fail) {
        errno = ThePlan().error;
        return failed;
    }
    errno = before;
    const Result result = call();
    if (verdict == Verdict::DieAfter) Die();
    return result;
}

// The same for a write of `size` bytes, which may be cut in half.
template <typename Call>
ssize_t WriteThrough(const std::string& path, std::size_t size, const Call& call) {
    const int before = errno;
    const Verdict verdict = Judge("write", path);
    if (verdict == Verdict::Fail) {
        errno = ThePlan().error;
        return -1;
    }
    errno = before;
    const bool isHalf = verdict == Verdict::Half || verdict == Verdict::HalfAndDie;
    const ssize_t written = call(isHalf && size > 1 ? size / 2 : size);
    if (verdict == Verdict::DieAfter || verdict == Verdict::HalfAndDie) Die();
    return written;
}

std::string_view OpenKind(int flags) {
    return (flags & O_DIRECTORY) != 0 ? "list" : "open";
}

mode_t ModeOf(int flags, va_list list) {
    const bool makes = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    return makes ? static_cast<mode_t>(va_arg(list, int)) : 0;
}

}  // namespace

extern "C" {

#define FAULT_OPEN(name)                                                          \
    int name(const char* path, int flags, ...) {                                  \
        va_list list;                                                             \
        va_start(list, flags);                                                    \
        const mode_t mode = ModeOf(flags, list);                                  \
        va_end(list);                                                             \
        static const auto behind = Behind<int (*)(const char*, int, ...)>(#name); \
        return Through(OpenKind(flags), PathAt(AT_FDCWD, path), -1,               \
                       [&] { return behind(path, flags, mode); });                \
    }
FAULT_OPEN(open)
FAULT_OPEN(open64)

#define FAULT_OPENAT(name)                                                             \
    int name(int folder, const char* path, int flags, ...) {                           \
        va_list list;                                                                  \
        va_start(list, flags);                                                         \
        const mode_t mode = ModeOf(flags, list);                                       \
        va_end(list);                                                                  \
        static const auto behind = Behind<int (*)(int, const char*, int, ...)>(#name); \
        return Through(OpenKind(flags), PathAt(folder, path), -1,                      \
                       [&] { return behind(folder, path, flags, mode); });             \
    }
FAULT_OPENAT(openat)
FAULT_OPENAT(openat64)

#define FAULT_FOPEN(name)                                                              \
    FILE* name(const char* path, const char* mode) {                                   \
        static const auto behind = Behind<FILE* (*)(const char*, const char*)>(#name); \
        return Through("open", PathAt(AT_FDCWD, path), static_cast<FILE*>(nullptr),    \
                       [&] { return behind(path, mode); });                            \
    }
FAULT_FOPEN(fopen)
FAULT_FOPEN(fopen64)

DIR* opendir(const char* path) {
    static const auto behind = Behind<DIR* (*)(const char*)>("opendir");
    return Through("list", PathAt(AT_FDCWD, path), static_cast<DIR*>(nullptr), [&] { return behind(path); });
}

DIR* fdopendir(int descriptor) {
    static const auto behind = Behind<DIR* (*)(int)>("fdopendir");
    return Through("list", PathOf(descriptor), static_cast<DIR*>(nullptr),
                   [&] { return behind(descriptor); });
}

dirent* readdir(DIR* folder) {
    static const auto behind = Behind<dirent* (*)(DIR*)>("readdir");
    return Through("entry", PathOf(::dirfd(folder)), static_cast<dirent*>(nullptr),
                   [&] { return behind(folder); });
}

dirent64* readdir64(DIR* folder) {
    static const auto behind = Behind<dirent64* (*)(DIR*)>("readdir64");
    return Through("entry", PathOf(::dirfd(folder)), static_cast<dirent64*>(nullptr),
                   [&] { return behind(folder); });
}

ssize_t read(int descriptor, void* bytes, std::size_t size) {
    static const auto behind = Behind<ssize_t (*)(int, void*, std::size_t)>("read");
    return Through("read", PathOf(descriptor), ssize_t{-1}, [&] { return behind(descriptor, bytes, size); });
}

ssize_t pread(int descriptor, void* bytes, std::size_t size, off_t at) {
    static const auto behind = Behind<ssize_t (*)(int, void*, std::size_t, off_t)>("pread");
    return Through("read", PathOf(descriptor), ssize_t{-1},
                   [&] { return behind(descriptor, bytes, size, at); });
}

ssize_t write(int descriptor, const void* bytes, std::size_t size) {
    static const auto behind = Behind<ssize_t (*)(int, const void*, std::size_t)>("write");
    return WriteThrough(PathOf(descriptor), size,
                        [&](std::size_t count) { return behind(descriptor, bytes, count); });
}

ssize_t pwrite(int descriptor, const void* bytes, std::size_t size, off_t at) {
    static const auto behind = Behind<ssize_t (*)(int, const void*, std::size_t, off_t)>("pwrite");
    return WriteThrough(PathOf(descriptor), size,
                        [&](std::size_t count) { return behind(descriptor, bytes, count, at); });
}

ssize_t copy_file_range(int from, off64_t* fromAt, int to, off64_t* toAt, std::size_t size, unsigned flags) {
    static const auto behind =
        Behind<ssize_t (*)(int, off64_t*, int, off64_t*, std::size_t, unsigned)>("copy_file_range");
    return WriteThrough(PathOf(to), size,
                        [&](std::size_t count) { return behind(from, fromAt, to, toAt, count, flags); });
}

ssize_t sendfile(int to, int from, off_t* at, std::size_t size) noexcept {
    static const auto behind = Behind<ssize_t (*)(int, int, off_t*, std::size_t)>("sendfile");
    return WriteThrough(PathOf(to), size, [&](std::size_t count) { return behind(to, from, at, count); });
}

int close(int descriptor) {
    static const auto behind = Behind<int (*)(int)>("close");
    const Verdict verdict = Judge("close", PathOf(descriptor));
    const int result = behind(descriptor);
    if (verdict == Verdict::DieAfter) Die();
    if (verdict != Verdict::Fail) return result;
    errno = ThePlan().error;
    return -1;
}

int rename(const char* from, const char* to) noexcept {
    static const auto behind = Behind<int (*)(const char*, const char*)>("rename");
    return Through("rename", PathAt(AT_FDCWD, to), -1, [&] { return behind(from, to); });
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept {
    static const auto behind = Behind<int (*)(int, const char*, int, const char*)>("renameat");
    return Through("rename", PathAt(toFolder, to), -1,
                   [&] { return behind(fromFolder, from, toFolder, to); });
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept {
    static const auto behind = Behind<int (*)(int, const char*, int, const char*, unsigned)>("renameat2");
    return Through("rename", PathAt(toFolder, to), -1,
                   [&] { return behind(fromFolder, from, toFolder, to, flags); });
}

int unlink(const char* path) noexcept {
    static const auto behind = Behind<int (*)(const char*)>("unlink");
    return Through("unlink", PathAt(AT_FDCWD, path), -1, [&] { return behind(path); });
}

int unlinkat(int folder, const char* path, int flags) noexcept {
    static const auto behind = Behind<int (*)(int, const char*, int)>("unlinkat");
    return Through((flags & AT_REMOVEDIR) != 0 ? "rmdir" : "unlink", PathAt(folder, path), -1,
                   [&] { return behind(folder, path, flags); });
}

int remove(const char* path) noexcept {
    static const auto behind = Behind<int (*)(const char*)>("remove");
    return Through("unlink", PathAt(AT_FDCWD, path), -1, [&] { return behind(path); });
}

int link(const char* from, const char* to) noexcept {
    static const auto behind = Behind<int (*)(const char*, const char*)>("link");
    return Through("link", PathAt(AT_FDCWD, to), -1, [&] { return behind(from, to); });
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    static const auto behind = Behind<int (*)(int, const char*, int, const char*, int)>("linkat");
    return Through("link", PathAt(toFolder, to), -1,
                   [&] { return behind(fromFolder, from, toFolder, to, flags); });
}

int symlink(const char* from, const char* to) noexcept {
    static const auto behind = Behind<int (*)(const char*, const char*)>("symlink");
    return Through("symlink", PathAt(AT_FDCWD, to), -1, [&] { return behind(from, to); });
}

int mkdir(const char* path, mode_t mode) noexcept {
    static const auto behind = Behind<int (*)(const char*, mode_t)>("mkdir");
    return Through("mkdir", PathAt(AT_FDCWD, path), -1, [&] { return behind(path, mode); });
}

int mkdirat(int folder, const char* path, mode_t mode) noexcept {
    static const auto behind = Behind<int (*)(int, const char*, mode_t)>("mkdirat");
    return Through("mkdir", PathAt(folder, path), -1, [&] { return behind(folder, path, mode); });
}

int rmdir(const char* path) noexcept {
    static const auto behind = Behind<int (*)(const char*)>("rmdir");
    return Through("rmdir", PathAt(AT_FDCWD, path), -1, [&] { return behind(path); });
}

int fsync(int descriptor) {
    static const auto behind = Behind<int (*)(int)>("fsync");
    return Through("sync", PathOf(descriptor), -1, [&] { return behind(descriptor); });
}

int fdatasync(int descriptor) {
    static const auto behind = Behind<int (*)(int)>("fdatasync");
    return Through("sync", PathOf(descriptor), -1, [&] { return behind(descriptor); });
}

int syncfs(int descriptor) noexcept {
    static const auto behind = Behind<int (*)(int)>("syncfs");
    return Through("sync", PathOf(descriptor), -1, [&] { return behind(descriptor); });
}

int ftruncate(int descriptor, off_t size) noexcept {
    static const auto behind = Behind<int (*)(int, off_t)>("ftruncate");
    return Through("truncate", PathOf(descriptor), -1, [&] { return behind(descriptor, size); });
}

int truncate(const char* path, off_t size) noexcept {
    static const auto behind = Behind<int (*)(const char*, off_t)>("truncate");
    return Through("truncate", PathAt(AT_FDCWD, path), -1, [&] { return behind(path, size); });
}

int stat(const char* path, struct stat* status) noexcept {
    static const auto behind = Behind<int (*)(const char*, struct stat*)>("stat");
    return Through("stat", PathAt(AT_FDCWD, path), -1, [&] { return behind(path, status); });
}

int lstat(const char* path, struct stat* status) noexcept {
    static const auto behind = Behind<int (*)(const char*, struct stat*)>("lstat");
    return Through("stat", PathAt(AT_FDCWD, path), -1, [&] { return behind(path, status); });
}

int fstat(int descriptor, struct stat* status) noexcept {
    static const auto behind = Behind<int (*)(int, struct stat*)>("fstat");
    return Through("stat", PathOf(descriptor), -1, [&] { return behind(descriptor, status); });
}

int fstatat(int folder, const char* path, struct stat* status, int flags) noexcept {
    static const auto behind = Behind<int (*)(int, const char*, struct stat*, int)>("fstatat");
    return Through("stat", PathAt(folder, path), -1, [&] { return behind(folder, path, status, flags); });
}

int statx(int folder, const char* path, int flags, unsigned mask, struct statx* status) noexcept {
    static const auto behind = Behind<int (*)(int, const char*, int, unsigned, struct statx*)>("statx");
    return Through("stat", PathAt(folder, path), -1,
                   [&] { return behind(folder, path, flags, mask, status); });
}

int access(const char* path, int mode) noexcept {
    static const auto behind = Behind<int (*)(const char*, int)>("access");
    return Through("stat", PathAt(AT_FDCWD, path), -1, [&] { return behind(path, mode); });
}

int flock(int descriptor, int operation) noexcept {
    static const auto behind = Behind<int (*)(int, int)>("flock");
    return Through("lock", PathOf(descriptor), -1, [&] { return behind(descriptor, operation); });
}

int fchmod(int descriptor, mode_t mode) noexcept {
    static const auto behind = Behind<int (*)(int, mode_t)>("fchmod");
    return Through("chmod", PathOf(descriptor), -1, [&] { return behind(descriptor, mode); });
}

int chmod(const char* path, mode_t mode) noexcept {
    static const auto behind = Behind<int (*)(const char*, mode_t)>("chmod");
    return Through("chmod", PathAt(AT_FDCWD, path), -1, [&] { return behind(path, mode); });
}

int futimens(int descriptor, const timespec* times) noexcept {
    static const auto behind = Behind<int (*)(int, const timespec*)>("futimens");
    return Through("time", PathOf(descriptor), -1, [&] { return behind(descriptor, times); });
}

int utimensat(int folder, const char* path, const timespec* times, int flags) noexcept {
    static const auto behind = Behind<int (*)(int, const char*, const timespec*, int)>("utimensat");
    return Through("time", PathAt(folder, path), -1, [&] { return behind(folder, path, times, flags); });
}

}  // extern "C"
