// Runs a fuzz target over files, for those who have no fuzzing engine: each argument is a file, or a folder
// whose files are taken in the order of their names. Ends with 1 where there was none.
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <vector>

#include "base/files.h"
#include "fuzz_session.h"

using namespace brantlow;

int main(int count, char** arguments) {
    std::vector<Path> files;
    for (int i = 1; i < count; ++i) {
        const Path given = arguments[i];
        if (!std::filesystem::is_directory(given)) files.push_back(given);
        for (const std::string& name : FileNamesIn(given)) files.push_back(given / name);
    }
    for (const Path& file : files) {
        const ReadResult read = ReadWholeFile(file);
        if (read.outcome != ReadOutcome::Done) {
            std::cerr << file.string() << " cannot be read\n";
            return 1;
        }
        std::cout << file.filename().string() << std::endl;
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(read.bytes.data()), read.bytes.size());
    }
    return files.empty() ? 1 : 0;
}
