#include "acquire/feeds/add_ticker.h"

#include "acquire/feeds/history_download.h"
#include "shell/session_change.h"
#include "shell/settings/choices.h"
#include "shell/status_words.h"
#include "store/table_files.h"

namespace brantlow {

namespace {

bool WantsHistory(const Session& session) {
    return KindOf(session.CurrentFile) == FileKind::Ddq && FetchesHistory(session.settings);
}

Failure PrepareSave(const Session& session, const QuoteTable& table, TableSaving saving, FileChange& change) {
    if (saving == TableSaving::AsSettingsSay && !SavesTable(session.settings)) return {};
    session.person.ShowStatusWord(kStatusSaving);
    return PrepareQuoteTable(table, session.DataFile(session.CurrentFile), change);
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
    if (!edit.fault) edit.fault = PrepareSave(session, table, saving, change);
    if (!edit.fault) edit.fault = change.Commit();
    edit.saveError = edit.fault.cause;
    session.person.ShowTickerCount(table.TickerCount());
    session.person.ShowStatusWord(kStatusComplete);
    return edit;
}

}  // namespace brantlow
