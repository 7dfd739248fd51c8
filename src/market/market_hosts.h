// Points an application folder's Hosts.ini to the practice market, and knows its own file from a user's.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "base/files.h"

namespace brantlow {

inline constexpr int kHighestPort = 65535;

// The bytes of a Hosts.ini that names `base` ("http://127.0.0.1:8080") for every host, with the letters of
// each market behind it. Its first line is kPracticeMarketMark.
std::string MarketHostsText(std::string_view base);

enum class HostsOutcome {
    Written,
    Foreign,  // a file without the mark; it stands as it was
    Failed,
};

struct HostsResult {
    HostsOutcome outcome = HostsOutcome::Written;
    std::error_code error;  // set when Failed
};

// Writes `file` when it is missing or bears the mark. Its folder has to be there.
HostsResult PointHosts(const Path& file, std::string_view base);

// The port that a file with the mark names for quotes. A market that comes back to it serves the addresses
// that were chosen in the settings meanwhile.
std::optional<int> PortInHosts(const Path& file);

}  // namespace brantlow
