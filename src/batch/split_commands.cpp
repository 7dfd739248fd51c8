#include "acquire/web/curl_web.h"
#include "batch/commands.h"
#include "batch/live_commands.h"
#include "batch/run_telling.h"
#include "batch/table_calls.h"
#include "batch/ticker_lines.h"
#include "shell/memory_status.h"
#include "shell/session_change.h"
#include "splits/split_adjustment.h"
#include "splits/split_calendar.h"
#include "splits/split_calendar_page.h"
#include "splits/split_factors.h"

namespace brantlow {

ExitStatus RunSplit(BatchCall& call) {
    const std::string& ticker = call.arguments.operands[0];
    const std::string& ratio = call.arguments.operands[1];
    const std::optional<double> factor = ParseSplitFactor(ratio);
    if (!factor) {
        return RefuseUsage(call, "NEW/OLD", "'" + ratio + "' is not two whole numbers such as 2/1");
    }
    WorkingSeries series;
    const SplitAdjustment adjustment =
        AdjustForSplit(SourceOf(call), ChangePlaceOf(call.session), ticker, *factor, series);
    if (adjustment.error) return RefuseChange(call, "Split of " + ticker, adjustment.error);
    call.out << OneLine(ticker) << ": ";
    if (adjustment.SplitIndex == 0) {
        call.out << "no jump of the prices fits " << ratio << ", nothing changed\n";
    } else {
        call.out << adjustment.SplitIndex << " days before "
                 << OneLine(series.QuoteDate[adjustment.SplitIndex + 1]) << " restated\n";
        TellHalfLines(call, adjustment.halfLines);
    }
    return ExitStatus::Done;
}

ExitStatus RunSplitCalendar(BatchCall& call) {
    if (const auto status = SplitCalendarLive(call)) return *status;
    Session& session = call.session;
    CurlWeb web(session.person);
    const std::optional<Hosts> hosts = ReadHosts(call);
    if (!hosts) return ExitStatus::Refused;
    const SplitCalendarPage page = FetchSplitCalendarPage(web, *hosts);
    WorkingSeries series;
    SplitCheck check = CheckSplitCalendar(session, page.markup, ReadMemoryInfo(), series);
    if (!page.failure.empty()) check.report.Fail(page.failure);
    if (check.isChanged) check.report.MarkChanged();
    call.out << "Logged: " << check.logged << "\nDue: " << check.due << "\nRestated: " << check.adjusted
             << '\n';
    return TellRun(call, check.report);
}

}  // namespace brantlow
