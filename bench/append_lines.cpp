// The least that storing a day asks of the system: every file that is named on standard input, a name a line,
// is opened, read to its end, lengthened by a line in one write and closed, one after another, and their file
// system is flushed. Prints "<seconds> <processor seconds>" of the lengthening and of the flush, a line each;
// the files then get their old lengths back.
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

// Prints what has been taken since the last call.
class Laps {
  public:
    void Print() {
        const auto now = std::chrono::steady_clock::now();
        const double processor = ProcessorSeconds();
        const std::chrono::duration<double> taken = now - start_;
        fmt::print("{:.3f} {:.3f}\n", taken.count(), processor - processorBefore_);
        start_ = now;
        processorBefore_ = processor;
    }

  private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    double processorBefore_ = ProcessorSeconds();
};

bool FlushFileSystemOf(const std::string& name) {
    const int descriptor = ::open(name.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return false;
    const bool isFlushed = ::syncfs(descriptor) == 0;
    return ::close(descriptor) == 0 && isFlushed;
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
    bool isDone = !files.empty();
    Laps laps;
    for (Lengthened& file : files) isDone = AppendTo(file, line + "\r\n", buffer) && isDone;
    laps.Print();
    isDone = isDone && FlushFileSystemOf(files.front().name);
    laps.Print();
    for (const Lengthened& file : files) isDone = ::truncate(file.name.c_str(), file.before) == 0 && isDone;
    return isDone ? 0 : 1;
}
