#include "acquire/feeds/extended_fundamentals.h"

#include <algorithm>
#include <optional>

#include "acquire/feeds/fundamental_pages.h"
#include "acquire/web/downloads.h"
#include "acquire/web/fetch_queue.h"
#include "acquire/web/giving_up_web.h"
#include "base/askable_ticker.h"
#include "base/text.h"
#include "shell/kept_ticker.h"
#include "shell/memory_status.h"
#include "shell/session_change.h"
#include "shell/status_words.h"
#include "store/file_names.h"
#include "store/table_files.h"

namespace brantlow {

namespace {

// While a row is worked on, these stand above it.
constexpr std::size_t kRowsAbove = 15;

bool HasPages(const std::string& ticker) {
    return !ticker.empty() && ticker.front() != kIndexMark && IsAskableTicker(ticker);
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
    PageRequests(const QuoteTable& table, std::string host) : table_(table), host_(std::move(host)) {}

    std::optional<WebRequest> operator()() {
        while (page_ == 0 && row_ < table_.RowCount() && !HasPages(table_.Ticker(row_))) ++row_;
        if (row_ >= table_.RowCount()) return std::nullopt;
        std::string RequestUrl = host_;
        RequestUrl.append(kFundamentalPages[page_].path).append(table_.Ticker(row_));
        if (++page_ == kFundamentalPages.size()) {
            page_ = 0;
            ++row_;
        }
        return WebRequest{
            .url = std::move(RequestUrl), .limitSeconds = kPageSeconds, .limitBytes = kPageBytes};
    }

  private:
    const QuoteTable& table_;
    std::string host_;
    std::size_t row_ = 1;
    std::size_t page_ = 0;
};

class Collection {
  public:
    Collection(Session& session, const FundamentalSources& sources, QuoteTable& table)
        : session_(session),
          sources_(sources),
          table_(table),
          web_(sources.web),
          pages_(web_, PageRequests(table, sources.hosts.QuoteHostInForce(session.settings))) {
        outcome_.report = RunReport("Extended fundamentals", "tickers");
    }

    FundamentalsOutcome Run() {
        for (std::size_t row = 1; row < table_.RowCount() && !outcome_.stopped; ++row) {
            session_.run.CurrentRow = row;
            session_.CurrentTicker = table_.Ticker(row);
            if (row > kRowsAbove) session_.run.TopRow = row - kRowsAbove;
            if (HasPages(table_.Ticker(row))) {
                CollectRow(row);
            } else {
                TellWithoutPages(table_.Ticker(row));
            }
            ++outcome_.tickers;
            ShowProgress(row);
            session_.person.PumpEvents();
            outcome_.stopped = ShouldStop(session_.run, session_.person);
        }
        TellTickers();
        if (outcome_.stopped) TellStopped();
        return std::move(outcome_);
    }

  private:
    void TellWithoutPages(const std::string& ticker) {
        if (!IsAskableTicker(ticker)) {
            told_.push_back({ticker, TickerFate::LeftOut, std::string(kUnaskableReason)});
        } else if (!ticker.empty()) {
            told_.push_back({ticker, TickerFate::Skipped, "an index has no such pages"});
        }
    }

    // A run that is to stop finishes the ticker in work.
    void CollectRow(std::size_t row) {
        std::string failure;
        for (const FundamentalPageRow& page : kFundamentalPages) {
            std::string why = ReadFundamentalPage(page.page, row);
            if (failure.empty()) failure = std::move(why);
        }
        const bool hasValues = HasValues(table_, row);
        if (!hasValues) outcome_.withoutValues.push_back(table_.Ticker(row));
        TickerFate fate = hasValues ? TickerFate::Stored : TickerFate::Unknown;
        if (!failure.empty()) fate = TickerFate::Failed;
        told_.push_back({table_.Ticker(row), fate, std::move(failure)});
        if (hasValues) outcome_.report.MarkChanged();
    }

    // Pages that hold no value of any of several tickers are other pages than those that were asked for.
    bool HasForeignPages() const {
        const auto isUnknown = [](const TickerTold& told) { return told.fate == TickerFate::Unknown; };
        const auto isStored = [](const TickerTold& told) { return told.fate == TickerFate::Stored; };
        return pageAddress_ && std::none_of(told_.begin(), told_.end(), isStored) &&
               std::count_if(told_.begin(), told_.end(), isUnknown) > 1;
    }

    void TellTickers() {
        const bool isForeign = HasForeignPages();
        for (TickerTold& told : told_) {
            if (isForeign && told.fate == TickerFate::Unknown) {
                told.fate = TickerFate::Failed;
                told.why = NoDataSentence(*pageAddress_, "web pages without a single value");
            }
            outcome_.report.Tell(told.ticker, told.fate, std::move(told.why));
        }
    }

    void TellStopped() {
        std::vector<std::string> further;
        for (std::size_t row = outcome_.tickers + 1; row < table_.RowCount(); ++row) {
            if (!table_.Ticker(row).empty()) further.push_back(table_.Ticker(row));
        }
        outcome_.report.StopBefore(further);
    }

    // The queue holds the same pages in the same order as the rows are worked on. Gives what failed; a page
    // that the host does not have is an answer.
    std::string ReadFundamentalPage(FundamentalPage page, std::size_t row) {
        constexpr int kNotFound = 404;
        const auto fetched = pages_.Next();
        if (!fetched) return {};
        const WebReply& reply = fetched->reply;
        const std::optional<std::string> text = TextOfReply(reply);
        if (text) ParseFundamentalPage(page, *text, table_, row);
        PurgeUrlCache(sources_.cache);
        // A ticker whose run is to stop is finished; the person was told why.
        if (session_.run.ProcessCommand != kStopRun) {
            WatchMemory(sources_.meminfo(), session_.run, session_.person);
        }
        if (!reply.ok) return reply.status == kNotFound ? "" : FailureSentence(fetched->request.url, reply);
        if (Trim(reply.bytes).empty()) return NoDataSentence(fetched->request.url, "an empty reply");
        pageAddress_ = fetched->request.url;
        return {};
    }

    void ShowProgress(std::size_t row) {
        session_.run.ProgressFraction = static_cast<double>(row) / static_cast<double>(table_.TickerCount());
        session_.person.ShowProgress(session_.run.ProgressFraction);
    }

    Session& session_;
    const FundamentalSources& sources_;
    QuoteTable& table_;
    GivingUpWeb web_;
    FetchQueue pages_;
    FundamentalsOutcome outcome_;
    std::vector<TickerTold> told_;
    // Of a page that came.
    std::optional<std::string> pageAddress_;
};

Failure Save(const Session& session, const QuoteTable& table, ChangeKeeps keeps) {
    FileChange change(ChangePlaceOf(session), std::string(kFundamentalsChange), keeps);
    Failure fault = PrepareQuoteTable(table, session.DataFile(session.CurrentFile), change);
    return fault ? fault : change.Commit();
}

}  // namespace

FundamentalsOutcome CollectExtendedFundamentals(Session& session, const FundamentalSources& sources,
                                                QuoteTable& table, const FundamentalsEnd& end) {
    const KeptTicker selected(session);
    BeginRun(session.run);
    PurgeUrlCache(sources.cache);
    FundamentalsOutcome outcome = Collection(session, sources, table).Run();
    session.run.CurrentRow = 0;
    session.run.TopRow = 0;
    session.person.ShowProgress(1);
    if (outcome.report.Extent() != RunExtent::Nothing || end.savesWithoutValues) {
        outcome.saveError = Save(session, table, end.keeps);
    }
    if (outcome.saveError) outcome.report.Fail(FailedSentence(kFundamentalsChange, outcome.saveError));
    session.CurrentFile = CollectedFundamentalsName(session.clock.Today());
    session.person.ShowStatusWord(kStatusComplete);
    return outcome;
}

}  // namespace brantlow
