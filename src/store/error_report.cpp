#include "store/error_report.h"

#include "base/text.h"
#include "base/values.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

Path ErrorReportFile(const Path& dataFolder) {
    return dataFolder / kErrorReportName;
}

Failure WriteErrorReport(const Path& dataFolder, const ErrorReport& report) {
    std::string text = report.reason;
    text += kLineEnd;
    for (const std::string& ticker : report.tickers) {
        text += Value::OfText(ticker).Written();
        text += kLineEnd;
    }
    const Path file = ErrorReportFile(dataFolder);
    return FailedTo(FailureKind::Write, file, WriteWholeFile(file, text));
}

std::optional<ErrorReport> ReadErrorReport(const Path& dataFolder, Failure* failure) {
    const Path path = ErrorReportFile(dataFolder);
    const ReadResult file = ReadWholeFile(path);
    if (failure != nullptr) *failure = FailedTo(FailureKind::Read, path, file.error);
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
