#include "acquire/feeds/add_ticker.h"

#include "acquire/feeds/history_download.h"
#include "shell/settings/choices.h"
#include "shell/status_words.h"

namespace brantlow {

namespace {

bool WantsHistory(const Session& session) {
    return KindOf(session.CurrentFile) == FileKind::Ddq && FetchesHistory(session.settings);
}

}  // namespace

AddedTicker AddTicker(Session& session, Web& web, const Hosts& hosts, QuoteTable& table,
                      const NewTicker& ticker, std::size_t sortColumn,
                      const std::function<void()>& rowAdded) {
    AddedTicker edit;
    edit.outcome = AppendTicker(session, table, ticker, sortColumn);
    if (edit.outcome != EditOutcome::Changed) return edit;
    session.person.ShowStatusWord(kStatusUpdating);
    const std::string added = session.CurrentTicker;
    if (rowAdded) rowAdded();
    // A ticker for which nothing came stands in the table all the same.
    if (WantsHistory(session)) {
        edit.history = DownloadTickerHistory(session, web, hosts, added);
        edit.historyError = edit.history->error;
    }
    edit.saveError = AutomaticSave(session, table);
    session.person.ShowTickerCount(table.TickerCount());
    session.person.ShowStatusWord(kStatusComplete);
    return edit;
}

}  // namespace brantlow
