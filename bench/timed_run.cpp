// Runs a command and prints to standard error what it took: "<seconds> <processor seconds> <peak megabytes>".
#include <fmt/format.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>

namespace {

double Seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        fmt::print(stderr, "Usage: timed_run COMMAND [ARGUMENT...]\n");
        return 2;
    }
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = ::fork();
    if (child < 0) return 1;
    if (child == 0) {
        ::execvp(argv[1], argv + 1);
        fmt::print(stderr, "{}: cannot be run\n", argv[1]);
        ::_exit(127);
    }
    int status = 0;
    rusage usage{};
    if (::wait4(child, &status, 0, &usage) < 0) return 1;
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    constexpr double kKilobytesInMegabyte = 1024;
    fmt::print(stderr, "{:.3f} {:.3f} {:.0f}\n", taken.count(),
               Seconds(usage.ru_utime) + Seconds(usage.ru_stime),
               static_cast<double>(usage.ru_maxrss) / kKilobytesInMegabyte);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}
