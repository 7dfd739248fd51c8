#include "acquire/feeds/add_ticker.h"

#include "acquire/feeds/history_download.h"
#include "shell/session_change.h"
#include "shell/settings/choices.h"
#include "shell/status_words.h"
#include "store/file_stamp.h"
#include "store/table_files.h"

namespace brantlow {

namespace {

bool WantsHistory(const Session& session) {
    return KindOf(session.CurrentFile) == FileKind::Ddq && FetchesHistory(session.settings);
}

bool Saves(const Session& session, TableSaving saving) {
    return saving != TableSaving::AsSettingsSay || SavesTable(session.settings);
}

}  // namespace

AddedTicker AddTicker(Session& session, Web& web, const Hosts& hosts, QuoteTable& table,
                      const NewTicker& ticker, std::size_t sortColumn, TableSaving saving,
                      const std::function<void()>& rowAdded) {
    AddedTicker edit;
    edit.outcome = AppendTicker(session, table, ticker, sortColumn);
    if (edit.outcome != EditOutcome::Changed) return edit;
    session.person.ShowStatusWord(kStatusUpdating);
    const std::string added = session.CurrentTicker;
    if (rowAdded) rowAdded();
    FileChange change(ChangePlaceOf(session), "Add " + added, ChangeKeeps::UntilDone);
    // A ticker for which nothing came stands in the table all the same.
    if (WantsHistory(session)) {
        edit.history = PrepareTickerDownload(session, web, hosts, added, change);
        edit.fault = edit.history->error;
    }
    const Path file = session.DataFile(session.CurrentFile);
    const bool keepsOther = Saves(session, saving) && !MayReplaceTable(session, table, file);
    const bool saves = Saves(session, saving) && !keepsOther && !edit.fault;
    if (saves) edit.fault = PrepareSavedTable(session, table, change);
    if (!edit.fault) edit.fault = CommitBeside(session, change);
    if (saves && !edit.fault) table.SetSource(file, StampOf(file));
    edit.saveError = edit.fault.cause;
    if (keepsOther && !edit.fault) edit.saveError = std::make_error_code(std::errc::operation_canceled);
    session.person.ShowTickerCount(table.TickerCount());
    session.person.ShowStatusWord(kStatusComplete);
    return edit;
}

}  // namespace brantlow
