#include "acquire/feeds/live/source_hosts.h"

#include "acquire/web/hosts.h"
#include "acquire/web/web.h"
#include "base/failure.h"
#include "base/numbers.h"
#include "base/text.h"

namespace brantlow {

namespace {

constexpr std::string_view kSourcePrefix = "Source.";
constexpr std::string_view kLimitPrefix = "Limit.";

// "COUNT/SECONDS", both above 0.
std::optional<RequestLimit> ReadLimit(std::string_view text) {
    const std::size_t slash = text.find('/');
    if (slash == std::string_view::npos) return std::nullopt;
    const auto requests = WholeNumber(text.substr(0, slash));
    const auto seconds = WholeNumber(text.substr(slash + 1));
    constexpr double kMost = 1e9;
    const bool fits =
        requests && seconds && *requests >= 1 && *requests <= kMost && *seconds > 0 && *seconds <= kMost;
    if (!fits) return std::nullopt;
    return RequestLimit{static_cast<std::size_t>(*requests), *seconds};
}

}  // namespace

SourceHosts SourceHosts::Parse(std::string_view text) {
    SourceHosts hosts;
    LineReader lines(text);
    for (std::string_view line; lines.Next(line);) {
        line = Trim(line);
        const std::size_t equals = line.find('=');
        if (line.starts_with('#') || equals == std::string_view::npos) continue;
        const std::string_view name = Trim(line.substr(0, equals));
        const std::string_view value = Trim(line.substr(equals + 1));
        if (name.starts_with(kSourcePrefix) && IsWebAddress(value)) {
            const std::string_view address = value.substr(0, value.find_last_not_of('/') + 1);
            hosts.addresses_[std::string(name.substr(kSourcePrefix.size()))] = address;
        }
        const auto limit = name.starts_with(kLimitPrefix) ? ReadLimit(value) : std::nullopt;
        if (limit) hosts.limits_[std::string(name.substr(kLimitPrefix.size()))] = *limit;
    }
    return hosts;
}

const std::string& SourceHosts::Address(std::string_view source) const {
    static const std::string none;
    const auto found = addresses_.find(source);
    return found == addresses_.end() ? none : found->second;
}

std::optional<RequestLimit> SourceHosts::Limit(std::string_view source) const {
    const auto found = limits_.find(source);
    return found == limits_.end() ? std::nullopt : std::optional(found->second);
}

SourceHosts LoadSourceHosts(const Path& dataFolder) {
    std::string bytes;
    const Failure failure = ReadIfThere(dataFolder / kHostsFileName, bytes);
    SourceHosts hosts = SourceHosts::Parse(bytes);
    hosts.refusal = Sentence(failure);
    return hosts;
}

}  // namespace brantlow
