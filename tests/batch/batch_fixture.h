// What the tests of the batch tool share: an application folder of their own and calls with streams.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "base/files.h"
#include "batch/batch.h"
#include "support/source_folder.h"
#include "support/temp_folder.h"

namespace brantlow {

// What one call gave.
struct CallResult {
    ExitStatus status = ExitStatus::Done;
    std::string out;
    std::string err;
};

inline const Path kAssets = SourceFolder() / "assets";

inline CallResult CallWith(const std::vector<std::string>& arguments, const Path& executable,
                           bool (*interrupted)()) {
    std::ostringstream out;
    std::ostringstream err;
    const BatchProcess process{out, err, false, executable, kAssets, interrupted};
    const ExitStatus status = RunBatch(arguments, process);
    return {status, out.str(), err.str()};
}

// A record with a close, and a range of 1 around it.
inline std::string Record(const std::string& date, int close) {
    return "\"" + date + "\",\"\"," + std::to_string(close) + "," + std::to_string(close - 1) + "," +
           std::to_string(close + 1) + ",100,0,0,0,0,0,\"\",\"\",0,0,0,0,0," + std::to_string(close) + "\r\n";
}

// An application folder, and calls with it as the executable's folder.
class BatchTest : public ::testing::Test {
  protected:
    CallResult Call(const std::vector<std::string>& arguments) const {
        return CallWith(arguments, folder / "brantlow-batch", [] { return false; });
    }

    void Write(std::string_view name, std::string_view bytes) const {
        const Path file = folder / std::string(name);
        std::filesystem::create_directories(file.parent_path());
        ASSERT_FALSE(WriteWholeFile(file, bytes, Flush::Later)) << file;
    }
    std::string Read(std::string_view name) const { return BytesOrEmpty(folder / std::string(name)); }
    // Every file below the folder with its bytes, to see that nothing was changed; what is kept for undoing
    // is left out.
    std::vector<std::string> Everything() const {
        std::vector<std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Get())) {
            const std::string name = entry.path().lexically_relative(folder.Get()).string();
            if (name == "Back Up" || name.starts_with("Back Up/Undo")) continue;
            files.push_back(entry.is_regular_file() ? name + " " + BytesOrEmpty(entry.path()) : name);
        }
        std::sort(files.begin(), files.end());
        return files;
    }

    TempFolder folder;
};

}  // namespace brantlow
