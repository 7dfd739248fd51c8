#include "acquire/feeds/add_ticker.h"

#include "acquire/feeds/history_download.h"
#include "shell/status_words.h"

namespace brantlow {

namespace {

constexpr std::size_t kHistoryYearsLine = 6;

bool FetchesHistory(const Session& session) {
    return KindOf(session.CurrentFile) == FileKind::Ddq &&
           !session.settings.DataSettings.Text(kHistoryYearsLine).empty();
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
    if (FetchesHistory(session)) {
        edit.history = DownloadTickerHistory(session, web, hosts, added);
        edit.historyError = edit.history->error;
    }
    edit.saveError = AutomaticSave(session, table);
    session.person.ShowTickerCount(table.TickerCount());
    session.person.ShowStatusWord(kStatusComplete);
    return edit;
}

}  // namespace brantlow
