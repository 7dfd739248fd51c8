// What the main frame does to the open table: taking quotes in from a file and handing them out.
#include "shell/frame/windows/frmMain.h"
#include "shell/frame/windows/window_person.h"
#include "store/quote_export.h"
#include "store/quote_import.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

void frmMain::ImportQuoteFile() {
    if (!quoteForm_) {
        person_.Say(kImportNeedsQuoteFile);
        return;
    }
    const QuoteImport import = ImportQuotes(session_, quoteForm_->Table(), days_, nullptr);
    quoteForm_->TableChanged();
    if (import.outcome == ImportOutcome::Failed) {
        person_.Say(ImportFile(session_.AppPath, session_.settings).string() +
                    ": the import failed and the file stays (" + import.error.message() + ")");
    }
}

void frmMain::ExportQuoteFile() {
    if (!quoteForm_) {
        person_.Say(kExportNeedsTable);
        return;
    }
    session_.run.ProgressLastShown = 0;
    const QuoteExport exported = ExportQuotes(session_, quoteForm_->Table());
    person_.HideProgress();
    if (exported.outcome == ExportOutcome::Failed) {
        person_.Say(ExportFile(session_.AppPath, session_.settings).string() + ": cannot be saved (" +
                    exported.error.message() + ")");
    }
}

}  // namespace brantlow
