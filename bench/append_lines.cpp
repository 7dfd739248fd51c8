// The least that storing a day asks of the system: every file that is named on standard input, a name a line,
// is opened, read to its end, lengthened by a line in one write and closed, one after another. Prints
// "<seconds> <processor seconds>" of that; the files then get their old lengths back.
#include <fcntl.h>
#include <fmt/format.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <iostream>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kBytesOfADay = 140;

struct Lengthened {
    std::string name;
    off_t before = 0;
};

double ProcessorSeconds() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

bool AppendTo(Lengthened& file, const std::string& line, std::string& buffer) {
    const int descriptor = ::open(file.name.c_str(), O_RDWR | O_APPEND | O_CLOEXEC);
    struct stat status {};
    if (descriptor < 0 || ::fstat(descriptor, &status) != 0) return false;
    file.before = status.st_size;
    buffer.resize(static_cast<std::size_t>(status.st_size) + 1);
    while (::read(descriptor, buffer.data(), buffer.size()) > 0) {
    }
    const bool isWritten = ::write(descriptor, line.data(), line.size()) == static_cast<ssize_t>(line.size());
    return ::close(descriptor) == 0 && isWritten;
}

}  // namespace

int main() {
    std::vector<Lengthened> files;
    for (std::string name; std::getline(std::cin, name);) files.push_back({name});
    const std::string line(kBytesOfADay - 2, '0');
    std::string buffer;
    bool isDone = true;
    const double processorBefore = ProcessorSeconds();
    const auto start = std::chrono::steady_clock::now();
    for (Lengthened& file : files) isDone = AppendTo(file, line + "\r\n", buffer) && isDone;
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    fmt::print("{:.3f} {:.3f}\n", taken.count(), ProcessorSeconds() - processorBefore);
    for (const Lengthened& file : files) isDone = ::truncate(file.name.c_str(), file.before) == 0 && isDone;
    return isDone ? 0 : 1;
}
