#include "store/error_report.h"

#include "base/text.h"
#include "base/values.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

std::error_code WriteErrorReport(const Path& dataFolder, const ErrorReport& report) {
    std::string text = report.reason;
    text += kLineEnd;
    for (const std::string& ticker : report.tickers) {
        text += Value::OfText(ticker).Written();
        text += kLineEnd;
    }
    return WriteWholeFile(dataFolder / kErrorReportName, text);
}

std::optional<ErrorReport> ReadErrorReport(const Path& dataFolder) {
    const ReadResult file = ReadWholeFile(dataFolder / kErrorReportName);
    if (file.outcome != ReadOutcome::Done) return std::nullopt;
    ErrorReport report;
    LineReader lines(file.bytes);
    std::string_view line;
    if (lines.Next(line)) report.reason = line;
    while (report.tickers.size() < kMostRows && lines.Next(line)) {
        std::string ticker = Value::Parse(line).Text();
        if (!ticker.empty()) report.tickers.push_back(std::move(ticker));
    }
    return report;
}

}  // namespace brantlow
