#include "batch/run_telling.h"

namespace brantlow {

namespace {

ExitStatus StatusOf(RunExtent extent) {
    switch (extent) {
        case RunExtent::Whole:
            return ExitStatus::Done;
        case RunExtent::Partly:
            return ExitStatus::Partly;
        case RunExtent::Nothing:
            break;
    }
    return ExitStatus::Refused;
}

}  // namespace

ToldRun TellRunCounted(BatchCall& call, const RunReport& report, std::string note) {
    std::vector<std::string> lines = report.Lines();
    if (!note.empty() && report.Extent() != RunExtent::Nothing) {
        if (lines.size() < kMostToldLines) {
            lines.push_back(std::move(note));
        } else {
            lines.back().append("; ").append(note);
        }
    }
    for (const std::string& line : lines) call.err << OneLine(line) << '\n';
    const Session& session = call.session;
    const ToldRun told{StatusOf(report.Extent()), lines.size()};
    // What has no tickers has no list to keep.
    if (report.Tickers().empty()) return told;
    const std::error_code error = KeepLastRun(session.DataFolder(), report, session.clock);
    if (!error || told.status == ExitStatus::Refused) return told;
    // A run that has told of three failures names the disk's trouble already.
    if (told.lines == kMostToldLines) return {ExitStatus::Partly, told.lines};
    call.err << OneLine(CannotBeSaved(session.DataFolder() / kLastRunName, error)) << '\n';
    return {ExitStatus::Partly, told.lines + 1};
}

ExitStatus TellRun(BatchCall& call, const RunReport& report, std::string note) {
    return TellRunCounted(call, report, std::move(note)).status;
}

}  // namespace brantlow
