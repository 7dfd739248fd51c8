#include <algorithm>
#include <array>

#include "batch/commands.h"
#include "batch/left_out.h"
#include "batch/table_calls.h"
#include "selector/selector_run.h"
#include "shell/settings/condition_lines.h"
#include "store/error_report.h"
#include "store/table_files.h"

namespace brantlow {

namespace {

// Makes the table of the run from the tickers of `name`; its file is written once, at the end. False after
// the sentence was written.
bool OpenEvaluations(BatchCall& call, const std::string& name, QuoteTable& evaluations) {
    QuoteTable quotes;
    if (!LoadTable(call, name, quotes)) return false;
    MakeEvaluationTable(quotes, evaluations);
    call.session.CurrentFile = kEvaluationsName;
    return true;
}

void PrintOutcome(BatchCall& call, const SelectorOutcome& outcome, std::size_t rows,
                  const std::string& savedAs) {
    call.out << "Saved: " << savedAs << '\n' << "Tickers: " << outcome.tickers;
    if (outcome.stopped) call.out << " of " << rows;
    call.out << '\n';
    const auto actions = ConditionActionsOf(call.session.settings);
    for (std::size_t i = 1; i <= kConditionCount; ++i) {
        call.out << "Condition " << i << (actions[i].empty() ? "" : " " + actions[i]) << ": "
                 << outcome.hitsPerCondition[i] << '\n';
    }
    call.out << "Short tickers: " << outcome.shortTickers.size() << '\n';
    for (const std::string& ticker : outcome.shortTickers) call.out << "  " << OneLine(ticker) << '\n';
}

}  // namespace

std::optional<std::string> RefuseEvaluationName(std::string_view text) {
    return RefuseTableName(text, ".dbe");
}

ExitStatus SelectFrom(BatchCall& call, const std::string& name, Interval interval,
                      const std::string& saveAs) {
    QuoteTable evaluations;
    if (!OpenEvaluations(call, name, evaluations)) return ExitStatus::Refused;

    Session& session = call.session;
    session.person.ShowTickerCount(evaluations.TickerCount());
    Analysis analysis;
    SelectorOutcome outcome;
    RunSelector(session, analysis, interval, evaluations, outcome, std::nullopt, Leftovers::Unused);
    // Whoever looks back keeps his tables apart, and finds no second file beside them.
    if (!outcome.looksBack) evaluations.SetOrigin(OriginOfRun(session, interval, name));

    const std::size_t rows = evaluations.TickerCount();
    if (rows > 0 && outcome.unreadable.size() == rows)
        return TellLeftOut(call, outcome.unreadable, rows, "tickers");
    if (!saveAs.empty()) session.CurrentFile = saveAs;
    if (const auto error = SaveQuoteTable(evaluations, session.DataFile(session.CurrentFile))) {
        return Refuse(call, FailedTo(FailureKind::Write, session.CurrentFile, error));
    }
    PrintOutcome(call, outcome, evaluations.TickerCount(), session.CurrentFile);
    ExitStatus status = TellLeftOut(call, outcome.unreadable, rows, "tickers");
    if (outcome.reportError) {
        Refuse(call, outcome.reportError);
        status = ExitStatus::Partly;
    }
    return outcome.stopped ? ExitStatus::Interrupted : status;
}

ExitStatus RunSelect(BatchCall& call) {
    const std::string& name = call.arguments.operands.front();
    if (call.arguments.Has(kAsOfOption.name) && !call.arguments.Has(kOutOption)) {
        return RefuseUsage(call, kAsOfOption.name, "a look back needs --out, a table of its own");
    }
    if (!ExistingDataFile(call, name)) return ExitStatus::Refused;
    if (KindOf(name) != FileKind::Ddq) return Refuse(call, kSelectorNeedsQuoteFile);
    return SelectFrom(call, name, ChosenInterval(call.arguments), call.arguments.Text(kOutOption));
}

}  // namespace brantlow
