// Makes what a service offers for download: an archive with a text file of daily prices a ticker, and the
// folder that it unpacks to. The same arguments give the same prices on every machine.
#include <archive.h>
#include <archive_entry.h>
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <string>

#include "base/dates.h"
#include "base/files.h"

namespace {

using namespace brantlow;
using std::chrono::sys_days;

struct Wish {
    std::string folder;
    std::size_t tickers = 8000;
    int years = 20;
    std::string today = "2026-11-20";
};

// 0 up to 1, from a state that it moves on.
double Roll(std::uint64_t& state) {
    state = state * 6364136223846793005U + 1442695040888963407U;
    return static_cast<double>(state >> 11U) * 0x1p-53;
}

std::string HistoryOf(std::size_t ticker, sys_days from, sys_days to) {
    std::uint64_t state = ticker * 0x9E3779B97F4A7C15U + 1;
    double close = 5 + 200 * Roll(state);
    std::string text = "<TICKER>,<PER>,<DATE>,<TIME>,<OPEN>,<HIGH>,<LOW>,<CLOSE>,<VOL>,<OPENINT>\r\n";
    for (sys_days day = from; day <= to; day += std::chrono::days{1}) {
        const std::chrono::weekday weekday{day};
        if (weekday == std::chrono::Saturday || weekday == std::chrono::Sunday) continue;
        const double open = close;
        close = std::max(0.05, close * (0.9751 + 0.05 * Roll(state)));
        const double high = std::max(open, close) * (1 + 0.01 * Roll(state));
        const double low = std::min(open, close) * (1 - 0.01 * Roll(state));
        const Date date{day};
        fmt::format_to(std::back_inserter(text),
                       "T{:05}.US,D,{}{:02}{:02},000000,{:.6g},{:.6g},{:.6g},{:.6g},{:.0f},0\r\n", ticker,
                       static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                       static_cast<unsigned>(date.day()), open, high, low, close, 1e4 + 5e7 * Roll(state));
    }
    return text;
}

bool AddToArchive(archive* zip, const std::string& name, const std::string& bytes) {
    archive_entry* const entry = archive_entry_new();
    archive_entry_set_pathname(entry, name.c_str());
    archive_entry_set_perm(entry, 0644);
    archive_entry_set_filetype(entry, AE_IFREG);
    archive_entry_set_size(entry, static_cast<la_int64_t>(bytes.size()));
    const bool isWritten = archive_write_header(zip, entry) == ARCHIVE_OK &&
                           archive_write_data(zip, bytes.data(), bytes.size()) >= 0;
    archive_entry_free(entry);
    return isWritten;
}

int Make(const Wish& wish) {
    const auto today = ParseDate(wish.today);
    if (!today) return 2;
    const Path unpacked = Path(wish.folder) / "unpacked";
    std::filesystem::create_directories(unpacked);
    archive* const zip = archive_write_new();
    archive_write_set_format_zip(zip);
    bool isGood = archive_write_open_filename(zip, (Path(wish.folder) / "us.zip").c_str()) == ARCHIVE_OK;
    const sys_days to{*today};
    for (std::size_t ticker = 1; isGood && ticker <= wish.tickers; ++ticker) {
        const std::string name = fmt::format("data/daily/us/{}/t{:05}.us.txt", 1 + ticker / 3000, ticker);
        const std::string bytes = HistoryOf(ticker, to - std::chrono::days{365 * wish.years}, to);
        std::filesystem::create_directories((unpacked / name).parent_path());
        isGood = AddToArchive(zip, name, bytes) && !WriteWholeFile(unpacked / name, bytes, Flush::Later);
    }
    isGood = archive_write_close(zip) == ARCHIVE_OK && isGood;
    archive_write_free(zip);
    if (!isGood) fmt::print(stderr, "{}: cannot be written\n", wish.folder);
    return isGood ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    Wish wish;
    CLI::App app("Makes an archive of daily prices, FOLDER/us.zip, and FOLDER/unpacked with the same files");
    app.add_option("folder", wish.folder, "where")->required();
    app.add_option("--tickers", wish.tickers, "how many");
    app.add_option("--years", wish.years, "how many years each");
    app.add_option("--today", wish.today, "the last day, as YYYY-MM-DD");
    CLI11_PARSE(app, argc, argv);
    return Make(wish);
}
