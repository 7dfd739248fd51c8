#include "store/table_origin.h"

#include <fmt/format.h>

#include <array>
#include <cstdint>

#include "base/text.h"

namespace brantlow {

namespace {

constexpr std::string_view kOriginEnding = ".about";
constexpr std::array<std::string_view, 4> kKeys = {"Day: ", "Interval: ", "Table: ", "Check: "};

// A number that other bytes hardly share; the same on every machine.
std::string CheckOf(std::string_view bytes) {
    constexpr std::uint64_t kBasis = 0xcbf29ce484222325U;
    constexpr std::uint64_t kPrime = 0x100000001b3U;
    std::uint64_t hash = kBasis;
    for (const char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * kPrime;
    return fmt::format("{:016x}", hash);
}

}  // namespace

Path OriginFile(const Path& table) {
    Path file = table;
    file += kOriginEnding;
    return file;
}

std::string OriginText(const TableOrigin& origin, std::string_view tableBytes) {
    const std::array<std::string, kKeys.size()> values = {FormatIsoDate(origin.day), origin.interval,
                                                          origin.source, CheckOf(tableBytes)};
    std::string text;
    for (std::size_t i = 0; i < kKeys.size(); ++i) text.append(kKeys[i]).append(values[i]).append("\r\n");
    return text;
}

std::optional<TableOrigin> ParseOrigin(std::string_view text, std::string_view tableBytes) {
    std::array<std::string_view, kKeys.size()> values;
    LineReader reader(text);
    for (std::size_t i = 0; i < kKeys.size(); ++i) {
        std::string_view line;
        if (!reader.Next(line) || !line.starts_with(kKeys[i])) return std::nullopt;
        values[i] = line.substr(kKeys[i].size());
    }
    const std::optional<Date> day = ParseDate(values[0]);
    if (!day || FormatIsoDate(*day) != values[0] || values[3] != CheckOf(tableBytes)) return std::nullopt;
    return TableOrigin{*day, std::string(values[1]), std::string(values[2])};
}

std::optional<TableOrigin> ReadOrigin(const Path& table, std::string_view tableBytes) {
    const ReadResult read = ReadWholeFile(OriginFile(table));
    return read.outcome == ReadOutcome::Done ? ParseOrigin(read.bytes, tableBytes) : std::nullopt;
}

std::string OriginWords(const TableOrigin& origin) {
    std::string interval = origin.interval;
    if (!interval.empty()) interval.front() = static_cast<char>(interval.front() | 0x20);
    return origin.source + ", " + interval + ", " + FormatIsoDate(origin.day);
}

}  // namespace brantlow
