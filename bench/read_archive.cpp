// The reading half of an import of histories alone: every file of an archive or a folder is unpacked and read
// as it is before its ticker is stored. Prints what was read.
#include <fmt/format.h>

#include <array>
#include <cstdio>
#include <string_view>

#include "acquire/feeds/archives/bundle_reading.h"
#include "acquire/feeds/archives/downloaded_history.h"

int main(int argc, char** argv) {
    using namespace brantlow;
    const bool isAlone = argc == 3 && std::string_view(argv[1]) == "--one-thread";
    if (argc != 2 && !isAlone) {
        fmt::print(stderr, "Usage: read_archive [--one-thread] ARCHIVE|FOLDER\n");
        return 2;
    }
    const Path from = argv[argc - 1];
    constexpr std::chrono::sys_days kToday{std::chrono::year{2026} / 11 / 20};
    std::size_t histories = 0;
    std::size_t days = 0;
    std::size_t bytes = 0;
    struct ReadFile {
        DownloadedHistory history;
        std::size_t bytes = 0;
        bool isGood = false;
    };
    std::array<ReadFile, kReadAhead> files;
    BundleReading reading = {[](const BundleEntry& entry) { return IsHistoryFileName(entry.name); },
                             [&](std::size_t slot, const BundleEntry& entry, const BundleText& text) {
                                 ReadFile& file = files[slot];
                                 file.history = ReadDownloadedHistory(entry.name, text.bytes, kToday);
                                 file.bytes = text.bytes.size();
                                 file.isGood = text.refusal.empty() && file.history.days.refusal.empty();
                             },
                             [&](std::size_t slot, const BundleEntry&) {
                                 if (!files[slot].isGood) return false;
                                 ++histories;
                                 days += files[slot].history.days.bars.size();
                                 bytes += files[slot].bytes;
                                 return true;
                             }};
    if (isAlone) reading.helpers = 0;
    const Failure fault = ReadBundle(from, ListBundle(from), reading);
    if (fault) fmt::print(stderr, "{}\n", Sentence(fault));
    fmt::print("{} histories, {} days, {} MB\n", histories, days, bytes / 1000 / 1000);
    return fault || histories == 0 ? 1 : 0;
}
