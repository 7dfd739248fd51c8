#include <cstdlib>

#include "acquire/feeds/archives/history_import.h"
#include "acquire/feeds/history_download.h"
#include "batch/commands.h"
#include "batch/run_telling.h"
#include "batch/table_calls.h"

namespace brantlow {

ExitStatus RunImportHistory(BatchCall& call) {
    const std::vector<std::string>& operands = call.arguments.operands;
    HistoryImportChoice choice;
    choice.from = operands.front();
    choice.years = std::atoi(call.arguments.Text("--years").c_str());
    choice.replacesNewer = call.arguments.Has(kReplaceNewerOption);
    if (operands.size() > 1) {
        QuoteTable table;
        if (!ExistingDataFile(call, operands[1]) || !LoadTable(call, operands[1], table))
            return ExitStatus::Refused;
        choice.tickers = TickersOf(table);
        call.session.person.ShowTickerCount(table.TickerCount());
    }
    const HistoryImport import = ImportHistories(call.session, choice);
    call.out << "Tickers: " << import.report.Tickers().size() << "\nStored: " << import.histories
             << "\nDays: " << import.days << '\n';
    const ExitStatus status = TellRun(call, import.report);
    return import.stopped && call.interrupted() ? ExitStatus::Interrupted : status;
}

}  // namespace brantlow
