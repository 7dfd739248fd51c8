// What a person has downloaded: an archive with its names and packed bytes, and the text file of a ticker.
// Input: a byte for the kind (even: a text file, odd: a zip archive), the bytes.
#include <cmath>
#include <utility>

#include "acquire/feeds/archives/bundle_reading.h"
#include "acquire/feeds/archives/downloaded_history.h"
#include "fuzz_session.h"

using namespace brantlow;

namespace {

constexpr std::chrono::sys_days kToday{std::chrono::year{2026} / 11 / 20};

void ReadText(std::string_view name, std::string_view bytes) {
    const DownloadedHistory history = ReadDownloadedHistory(name, bytes, kToday);
    Demand(history.line == 0 || !history.days.refusal.empty(), "a line is told of no refusal");
    if (!history.days.refusal.empty()) return;
    std::chrono::sys_days last{std::chrono::year{1929} / 12 / 31};
    for (const SourceBar& bar : history.days.bars) {
        Demand(bar.day > last && bar.day <= kToday, "the days are not in order, or still to come");
        Demand(std::isfinite(bar.close) && bar.close > 0 && bar.close <= kHighestPrice,
               "a close is no price");
        last = bar.day;
    }
}

void ReadArchive(std::string_view bytes) {
    const Path file = AppFolder() / "archive.zip";
    Demand(!WriteWholeFile(file, bytes, Flush::Later), "the archive cannot be written");
    BundleLimits limits;
    limits.files = 1000;
    limits.bytesOfFile = 1 << 20;
    limits.bytes = 8 << 20;
    const BundleList list = ListBundle(file, limits);
    for (const BundleEntry& entry : list.entries) Demand(!entry.name.starts_with('/'), "a name leads out");
    std::size_t taken = 0;
    BundleReading reading = {[](const BundleEntry&) { return true; },
                             [&](std::size_t, const BundleEntry& entry, const BundleText& text) {
                                 Demand(text.bytes.size() <= limits.bytesOfFile, "a file is too large");
                                 ReadText(entry.name, text.bytes);
                             },
                             [&](std::size_t, const BundleEntry&) { return ++taken > 0; }};
    const Failure alone = ReadBundle(file, list, reading, limits);
    const std::size_t takenAlone = std::exchange(taken, 0);
    reading.helpers = 2;
    const Failure shared = ReadBundle(file, list, reading, limits);
    Demand(taken == takenAlone && Sentence(alone) == Sentence(shared), "threads change what is taken");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input = BytesOf(data, size);
    if (TakeByte(input) % 2 == 0) {
        ReadText("us/aapl.us.txt", input);
    } else {
        ReadArchive(input);
    }
    return 0;
}
