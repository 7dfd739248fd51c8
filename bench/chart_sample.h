// What the benchmarks of the chart draw: four years of one ticker and seven series that draw on every bar.
#pragma once

#include <stdlib.h>

#include <cmath>
#include <filesystem>
#include <string>

#include "base/files.h"
#include "indicators/year_plan.h"
#include "shell/person.h"
#include "store/history_record.h"
#include "store/year_files.h"

namespace brantlow {

inline constexpr Date kToday = std::chrono::year(2026) / 12 / 31;

class Silence final : public Person {
  public:
    void Say(std::string_view, std::string_view) override {}
    bool Ask(std::string_view, std::string_view) override { return false; }
    void ShowStatusWord(std::string_view) override {}
    void ShowTickerCount(std::size_t) override {}
    void ShowProgress(double) override {}
    void PumpEvents() override {}
    void Beep() override {}
};

// A year of records; `year` counts from that of kToday, which is 0.
inline std::string YearText(int year) {
    constexpr int kRowsAYear = 260;
    std::string text;
    for (int i = 0; i < kRowsAYear; ++i) {
        const double x = static_cast<double>(i) / 10 + year;
        HistoryRecord record;
        record.HistoryDate = FormatDate(AddDays(kToday, i - 365 + year * 365));
        record.HistoryTime = "16:00";
        record.HistoryClose = 100 + 20 * std::sin(x) + 3 * std::sin(11 * x);
        record.HistoryLow = record.HistoryClose - 1.25;
        record.HistoryHigh = record.HistoryClose + 1.125;
        record.HistoryOpen = record.HistoryClose + std::cos(7 * x);
        record.HistoryVolume = 1e6 + 4e5 * std::sin(5 * x);
        AppendHistoryLine(record, text);
    }
    return text;
}

// An application folder of its own with the ticker "AB" and the settings of the series; the caller removes
// it.
inline Path NewChartFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "brantlow-bench-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) std::abort();
    const Path folder = name;
    std::filesystem::create_directories(folder / "Data");
    std::filesystem::create_directories(folder / "Quotes/EOD");
    int phase = -4;
    for (const std::string& year : YearTexts(kToday, kRecentYears)) {
        const auto path = *YearFilePath((folder / "Quotes/EOD").string() + "/", "AB", year);
        if (WriteWholeFile(path, YearText(++phase), Flush::Later)) std::abort();
    }
    const std::string settings =
        "\"CandleStick\"\r\n\"Price\"\r\n\"MA 15\"\r\n\"WMA 15\"\r\n\"MLR 15 L.CL\"\r\n\"MLR 15 T.CL\"\r\n"
        "\"MLR 30\"\r\n\"LR L.CL\"\r\n\"None\"\r\n\"None\"\r\n";
    if (WriteWholeFile(folder / "Data/VTRGRAPHset.ini", settings, Flush::Later)) std::abort();
    return folder;
}

}  // namespace brantlow
