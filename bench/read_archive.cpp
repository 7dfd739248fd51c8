// The reading half of an import of histories alone: every file of an archive or a folder is unpacked and read
// as it is before its ticker is stored. Prints what was read.
#include <fmt/format.h>

#include <cstdio>

#include "acquire/feeds/archives/downloaded_history.h"
#include "acquire/feeds/archives/history_bundle.h"

int main(int argc, char** argv) {
    using namespace brantlow;
    if (argc != 2) {
        fmt::print(stderr, "Usage: read_archive ARCHIVE|FOLDER\n");
        return 2;
    }
    constexpr std::chrono::sys_days kToday{std::chrono::year{2026} / 11 / 20};
    std::size_t histories = 0;
    std::size_t days = 0;
    std::size_t bytes = 0;
    const BundleReading reading = {[](const BundleEntry& entry) { return IsHistoryFileName(entry.name); },
                                   [&](const BundleEntry& entry, const BundleText& text) {
                                       const DownloadedHistory history =
                                           ReadDownloadedHistory(entry.name, text.bytes, kToday);
                                       if (!text.refusal.empty() || !history.days.refusal.empty())
                                           return false;
                                       ++histories;
                                       days += history.days.bars.size();
                                       bytes += text.bytes.size();
                                       return true;
                                   }};
    const Failure fault = ReadBundle(argv[1], reading);
    if (fault) fmt::print(stderr, "{}\n", Sentence(fault));
    fmt::print("{} histories, {} days, {} MB\n", histories, days, bytes / 1000 / 1000);
    return fault || histories == 0 ? 1 : 0;
}
