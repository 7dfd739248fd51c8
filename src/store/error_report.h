// "Error Report.txt" in the data folder: why a selector run reports, and the tickers that it reports. The run
// writes it, frmErrorReport reads it back to fetch those tickers' history anew.
//
// Line 1 is the reason as raw text; each further line is one ticker in double quotes. Lines end with CR LF.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/files.h"

namespace brantlow {

inline constexpr std::string_view kErrorReportName = "Error Report.txt";

struct ErrorReport {
    std::string reason;
    std::vector<std::string> tickers;

    bool operator==(const ErrorReport&) const = default;
};

// Replaces the report in `dataFolder`. On failure the old one stands.
std::error_code WriteErrorReport(const Path& dataFolder, const ErrorReport& report);

// The report in `dataFolder`, or nothing where there is none. Lines without a ticker are passed over, and
// those beyond kMostRows tickers are not read.
std::optional<ErrorReport> ReadErrorReport(const Path& dataFolder);

}  // namespace brantlow
