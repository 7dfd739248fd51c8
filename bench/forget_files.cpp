// Takes the files that are named on standard input, a name a line, out of the system's cache, so that the
// next reader has to wait for the disk.
#include <fcntl.h>
#include <unistd.h>

#include <iostream>
#include <string>

int main() {
    int failed = 0;
    for (std::string name; std::getline(std::cin, name);) {
        const int file = ::open(name.c_str(), O_RDONLY | O_CLOEXEC);
        // What is not on the disk yet cannot be forgotten.
        const bool isDone =
            file >= 0 && ::fdatasync(file) == 0 && ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED) == 0;
        if (!isDone) ++failed;
        if (file >= 0) ::close(file);
    }
    return failed == 0 ? 0 : 1;
}
