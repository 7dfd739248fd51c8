// A quote database of the test's own, the day of the tests and a working series to load into.
#pragma once

#include <gmock/gmock.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/clock.h"
#include "base/file_change.h"
#include "base/files.h"
#include "indicators/working_series.h"
#include "store/year_files.h"
#include "support/temp_folder.h"

namespace brantlow {

inline constexpr Date kSplitTestDay = std::chrono::year(2026) / 3 / 2;

class SplitsFixture : public testing::Test {
  protected:
    SplitsFixture() { std::filesystem::create_directories(quoteFolder); }

    Path File(std::string_view name) const { return Path(quoteFolder) / name; }
    std::string Read(std::string_view name) const { return BytesOrEmpty(File(name)); }
    void Write(std::string_view name, std::string_view bytes) const {
        ASSERT_FALSE(WriteWholeFile(File(name), bytes, Flush::Later)) << name;
    }

    // A day of which every price is `close` and the other figures are chosen to be told apart.
    static std::string Day(std::string_view date, std::string_view close, std::string_view volume) {
        std::string line = "\"" + std::string(date) + "\",\"16:00\",";
        for (int i = 0; i < 3; ++i) line.append(close).append(1, ',');
        return line.append(volume) + ",11,4,1.5,6,0.5,\"02/01/26\",\"01/15/26\"," + std::string(close) +
               ",20,80,2.5,1234.56789," + std::string(close) + "\r\n";
    }

    TempFolder folder;
    std::string quoteFolder = (folder / "Quotes").string() + "/";
    FixedClock clock{kSplitTestDay};
    HistorySource source{quoteFolder, clock};
    ChangePlace place{folder.Get(), "2026-03-02 18:00:00"};
    WorkingSeries series;
};

}  // namespace brantlow
