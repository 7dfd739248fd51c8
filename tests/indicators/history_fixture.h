// A quote database in a folder of the test's own, and the day on which the tests take place.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "base/clock.h"
#include "indicators/working_series.h"
#include "support/temp_folder.h"

namespace brantlow {

inline constexpr Date kTestDay = std::chrono::year(2026) / 3 / 2;

class HistoryFixture : public testing::Test {
  protected:
    void WriteYear(std::string_view ticker, std::string_view year, std::string_view bytes) const {
        std::ofstream file(quoteFolder + std::string(ticker) + "." + std::string(year), std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }

    // `count` rows whose closes are `firstClose`, `firstClose` + 1, ...
    static std::string Rows(std::size_t count, double firstClose) {
        std::string text;
        for (std::size_t i = 0; i < count; ++i) text += Row(firstClose + static_cast<double>(i));
        return text;
    }

    static std::string Row(double close) {
        return "\"01/02/23\",\"16:00\"," + std::to_string(close) +
               ",1,2,1000,11,1.5,1.1,1.75,.2,\"02/01/23\",\"01/15/23\",99,80,120,2.5,1234.5,98\r\n";
    }

    TempFolder folder_;
    std::string quoteFolder = folder_.Get().string() + "/";
    FixedClock clock{kTestDay};
    HistorySource source{quoteFolder, clock};
};

}  // namespace brantlow
