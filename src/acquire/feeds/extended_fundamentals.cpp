#include "acquire/feeds/extended_fundamentals.h"

#include "acquire/feeds/fundamental_pages.h"
#include "acquire/web/downloads.h"
#include "acquire/web/fetch_queue.h"
#include "shell/memory_status.h"
#include "shell/status_words.h"
#include "store/file_names.h"
#include "store/table_files.h"

namespace brantlow {

namespace {

// While a row is worked on, these stand above it.
constexpr std::size_t kRowsAbove = 15;

bool HasPages(const std::string& ticker) {
    return !ticker.empty() && ticker.front() != kIndexMark;
}

bool HasValues(const QuoteTable& table, std::size_t row) {
    for (std::size_t column = 1; column < table.ColumnCount(); ++column) {
        if (!table.Text(row, column).empty()) return true;
    }
    return false;
}

// The requests of a run one after another: every page of each ticker that has pages.
class PageRequests {
  public:
    PageRequests(const QuoteTable& table, std::string host, const RunControl& run)
        : table_(table), host_(std::move(host)), run_(run) {}

    std::optional<WebRequest> operator()() {
        while (page_ == 0 && row_ < table_.RowCount() && !HasPages(table_.Ticker(row_))) ++row_;
        if (row_ >= table_.RowCount()) return std::nullopt;
        std::string RequestUrl = host_;
        RequestUrl.append(kFundamentalPages[page_].path).append(table_.Ticker(row_));
        if (++page_ == kFundamentalPages.size()) {
            page_ = 0;
            ++row_;
        }
        return WebRequest{.url = std::move(RequestUrl), .limitSeconds = kPageSeconds, .run = &run_};
    }

  private:
    const QuoteTable& table_;
    std::string host_;
    const RunControl& run_;
    std::size_t row_ = 1;
    std::size_t page_ = 0;
};

class Collection {
  public:
    Collection(Session& session, const FundamentalSources& sources, QuoteTable& table)
        : session_(session),
          sources_(sources),
          table_(table),
          pages_(sources.web,
                 PageRequests(table, sources.hosts.QuoteHostInForce(session.settings), session.run)) {}

    FundamentalsOutcome Run() {
        for (std::size_t row = 1; row < table_.RowCount() && !outcome_.stopped; ++row) {
            session_.run.CurrentRow = row;
            if (row > kRowsAbove) session_.run.TopRow = row - kRowsAbove;
            if (HasPages(table_.Ticker(row))) CollectRow(row);
            ++outcome_.tickers;
            ShowProgress(row);
            session_.person.PumpEvents();
            outcome_.stopped = ShouldStop(session_.run, session_.person);
        }
        return std::move(outcome_);
    }

  private:
    bool IsStopped() const { return session_.run.ProcessCommand == kStopRun; }

    void CollectRow(std::size_t row) {
        for (const FundamentalPageRow& page : kFundamentalPages) {
            if (IsStopped()) return;
            ReadFundamentalPage(page.page, row);
        }
        if (!HasValues(table_, row) && !IsStopped()) outcome_.withoutValues.push_back(table_.Ticker(row));
    }

    // The queue holds the same pages in the same order as the rows are worked on.
    void ReadFundamentalPage(FundamentalPage page, std::size_t row) {
        const auto fetched = pages_.Next();
        if (!fetched) return;
        const std::optional<std::string> text = TextOfReply(fetched->reply);
        if (text) ParseFundamentalPage(page, *text, table_, row);
        PurgeUrlCache(sources_.cache);
        WatchMemory(sources_.meminfo(), session_.run, session_.person);
    }

    void ShowProgress(std::size_t row) {
        session_.run.ProgressFraction = static_cast<double>(row) / static_cast<double>(table_.TickerCount());
        session_.person.ShowProgress(session_.run.ProgressFraction);
    }

    Session& session_;
    const FundamentalSources& sources_;
    QuoteTable& table_;
    FetchQueue pages_;
    FundamentalsOutcome outcome_;
};

}  // namespace

FundamentalsOutcome CollectExtendedFundamentals(Session& session, const FundamentalSources& sources,
                                                QuoteTable& table) {
    BeginRun(session.run);
    FundamentalsOutcome outcome = Collection(session, sources, table).Run();
    session.run.CurrentRow = 0;
    session.run.TopRow = 0;
    session.person.ShowProgress(1);
    outcome.saveError = SaveQuoteTable(table, session.DataFile(session.CurrentFile));
    session.CurrentFile = CollectedFundamentalsName(session.clock.Today());
    session.person.ShowStatusWord(kStatusComplete);
    return outcome;
}

}  // namespace brantlow
