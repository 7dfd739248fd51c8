// The commands that take quotes in from other programs and hand them out: import and export.
#include "batch/run_telling.h"
#include "batch/table_calls.h"
#include "batch/table_commands.h"
#include "store/quote_export.h"
#include "store/quote_import.h"
#include "store/table_edit.h"

namespace brantlow {

namespace {

ExitStatus ReportImport(BatchCall& call, const QuoteImport& import, const std::string& name) {
    const Path file = ImportFile(call.session.AppPath, call.session.settings);
    switch (import.outcome) {
        case ImportOutcome::NeedsQuoteFile:
        case ImportOutcome::Declined:
            return ExitStatus::Refused;
        case ImportOutcome::Stopped:
            Refuse(call, kImportStopped);
            return ExitStatus::Interrupted;
        case ImportOutcome::Failed:
            return RefuseChange(call, "The import of " + file.string(), import.error);
        case ImportOutcome::NothingToRead:
        case ImportOutcome::Done:
            break;
    }
    call.out << "Rows: " << import.rows << '\n' << "Days stored: " << import.stored << '\n';
    if (import.outcome == ImportOutcome::Done) call.out << "Saved: " << name << '\n';
    return TellRun(call, import.report);
}

}  // namespace

ExitStatus RunImport(BatchCall& call) {
    const std::string& name = call.arguments.operands.front();
    const auto file = ExistingDataFile(call, name);
    if (!file) return ExitStatus::Refused;
    // A template takes an import in its window, where it is then saved under a name of its own.
    if (KindOf(name) == FileKind::Db) return Refuse(call, kSaveBeforeEditing);
    QuoteTable table;
    if (!LoadTable(call, name, table)) return ExitStatus::Refused;
    call.session.CurrentFile = name;
    DayStore days;
    return ReportImport(call, ImportQuotes(call.session, table, days, &*file), name);
}

ExitStatus RunExport(BatchCall& call) {
    const std::string& name = call.arguments.operands.front();
    if (!ExistingDataFile(call, name)) return ExitStatus::Refused;
    QuoteTable table;
    if (!LoadTable(call, name, table)) return ExitStatus::Refused;
    call.session.CurrentFile = name;
    const QuoteExport exported = ExportQuotes(call.session, table);
    if (exported.outcome == ExportOutcome::NeedsTable || exported.outcome == ExportOutcome::Declined) {
        return ExitStatus::Refused;
    }
    const std::string target = ExportFile(call.session.AppPath, call.session.settings).string();
    if (exported.error) return Refuse(call, exported.error);
    call.out << "Exported: " << OneLine(target) << '\n';
    return TellRun(call, ExportReport(name, exported.rows, target));
}

}  // namespace brantlow
