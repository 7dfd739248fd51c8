// "Error Report.txt" in the data folder: why a selector run reports, and the tickers that it reports. The run
// writes it, frmErrorReport reads it back to fetch those tickers' history anew.
//
// Line 1 is the reason as raw text; each further line is one ticker in double quotes. Lines end with CR LF.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/failure.h"
#include "base/files.h"

namespace brantlow {

inline constexpr std::string_view kErrorReportName = "Error Report.txt";

struct ErrorReport {
    std::string reason;
    std::vector<std::string> tickers;

    bool operator==(const ErrorReport&) const = default;
};

Path ErrorReportFile(const Path& dataFolder);

// Replaces the report in `dataFolder`. On failure the old one stands.
Failure WriteErrorReport(const Path& dataFolder, const ErrorReport& report);

// The report in `dataFolder`, or nothing where there is none, or none that can be read: `failure`, unless
// null, says why. Lines without a ticker are passed over, and those beyond kMostRows tickers are not read.
std::optional<ErrorReport> ReadErrorReport(const Path& dataFolder, Failure* failure = nullptr);

}  // namespace brantlow
