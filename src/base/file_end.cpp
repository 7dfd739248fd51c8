#include "base/file_end.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

#include "base/file_calls.h"

namespace brantlow {

ReadOutcome ReadEndIntoBuffer(const Path& path, std::size_t most, std::string& buffer, std::size_t& used,
                              bool& isWhole) {
    if (NamesNoFile(path)) return ReadOutcome::Missing;
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (!file.IsOpen())
        return errno == ENOENT || errno == ENOTDIR ? ReadOutcome::Missing : ReadOutcome::Failed;
    if (::fstat(file.Number(), &status) != 0 || !S_ISREG(status.st_mode)) return ReadOutcome::Failed;
    const auto size = static_cast<std::size_t>(status.st_size);
    const std::size_t count = std::min(size, most);
    if (buffer.size() < used + count + 1) buffer.resize(used + count + 1);
    if (!ReadPart(file.Number(), buffer.data() + used, count, size - count)) return ReadOutcome::Failed;
    used += count;
    isWhole = count == size;
    return ReadOutcome::Done;
}

std::uintmax_t BytesOfFile(const Path& path) {
    struct stat status {};
    const bool isFile = !NamesNoFile(path) && ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
    return isFile ? static_cast<std::uintmax_t>(status.st_size) : 0;
}

}  // namespace brantlow
