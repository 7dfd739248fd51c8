#include "acquire/feeds/history_download.h"

#include "acquire/feeds/history_address.h"
#include "acquire/feeds/history_reply.h"
#include "acquire/web/downloads.h"
#include "acquire/web/fetch_queue.h"
#include "base/text.h"
#include "base/values.h"
#include "shell/status_words.h"
#include "store/error_report.h"
#include "store/history_rewrite.h"
#include "store/year_files.h"

namespace brantlow {

namespace {

// Line numbers of the settings tables.
constexpr std::size_t kHistoryYearsLine = 6;
constexpr std::size_t kSourceLine = 3;
constexpr std::size_t kUserUrlLine = 5;
constexpr std::size_t kHeaderLine = 7;
constexpr std::size_t kFooterLine = 8;
constexpr std::size_t kDateFormLine = 9;

using FilesByTicker = std::unordered_map<std::string, std::vector<Path>>;

bool UsesUserSource(const Session& session) {
    return session.settings.NetSettings.Text(kSourceLine) == kUserSource;
}

HistorySpan WantedSpan(const Session& session) {
    return HistorySpanOf(session.clock.Today(), session.settings.DataSettings.Number(kHistoryYearsLine));
}

WebRequest RequestFor(std::string url) {
    return {.url = std::move(url), .limitSeconds = kDownloadSeconds};
}

WebRequest StandardRequest(const Session& session, const Hosts& hosts, std::string_view ticker) {
    return RequestFor(StandardHistoryUrl(hosts, ticker, WantedSpan(session)));
}

WebRequest ChosenRequest(const Session& session, const Hosts& hosts, std::string_view ticker) {
    if (!UsesUserSource(session)) return StandardRequest(session, hosts, ticker);
    const std::string& userUrl = session.settings.NetSettings.Text(kUserUrlLine);
    return RequestFor(UserHistoryUrl(userUrl, ticker, WantedSpan(session)));
}

HistoryReplyForm ReplyForm(const Session& session, bool quotesProtect) {
    const SettingsTable& net = session.settings.NetSettings;
    return {net.Number(kHeaderLine), net.Number(kFooterLine), net.Text(kDateFormLine), quotesProtect};
}

// Puts what a reply brought in the place of the ticker's `files`.
HistoryDownload StoreHistory(const Session& session, std::string_view ticker, const WebReply& reply,
                             bool quotesProtect, std::vector<Path>& files) {
    YearFileTexts texts;
    HistoryDownload download{HistoryOutcome::NoData, 0, {}};
    if (reply.ok) {
        for (const HistoryRecord& day : RecordsOfReply(reply.bytes, ReplyForm(session, quotesProtect))) {
            texts.Add(day);
            ++download.days;
        }
    }
    download.error =
        ReplaceTickerHistory(session.settings.QuoteFolder, ticker, texts.Files(), WhenOneFails::GoOn, files);
    if (download.days > 0) download.outcome = HistoryOutcome::Stored;
    if (download.error) download.outcome = HistoryOutcome::Failed;
    return download;
}

bool HasDataOfThisYear(const Session& session, std::string_view ticker) {
    const std::string today = FormatDate(session.clock.Today());
    const auto file = YearFilePath(session.settings.QuoteFolder, ticker, YearDigits(today));
    if (!file) return false;
    const std::string bytes = BytesOrEmpty(*file);
    std::string_view line;
    return LineReader(bytes).Next(line) && !ParseRecord(line).front().Text().empty();
}

// Why `ticker` is not downloaded, after what there is to say was said; nothing when it can be.
std::optional<HistoryOutcome> Refusal(const Session& session, std::string_view ticker) {
    if (HasDataOfThisYear(session, ticker)) {
        session.person.Say(kDataExistsSentence);
        return HistoryOutcome::DataExists;
    }
    if (ticker.empty()) return HistoryOutcome::NoTicker;
    if (UsesUserSource(session) && session.settings.NetSettings.Text(kUserUrlLine).empty()) {
        session.person.Say(kNoSourceSentence);
        return HistoryOutcome::NoSource;
    }
    if (!HasDatabaseFiles(ticker)) return HistoryOutcome::NoFiles;
    return std::nullopt;
}

std::vector<std::string> TickersOf(const QuoteTable& table) {
    std::vector<std::string> tickers;
    for (std::size_t row = 1; row <= table.TickerCount(); ++row) tickers.push_back(table.Ticker(row));
    return tickers;
}

// Shows that `done` of `count` tickers are reached, `ticker` the one in work.
void ShowTickerInWork(Session& session, const std::string& ticker, std::size_t done, std::size_t count) {
    session.CurrentTicker = ticker;
    session.person.PumpEvents();
    session.run.ProgressFraction = static_cast<double>(done) / static_cast<double>(count);
    session.person.ShowProgress(session.run.ProgressFraction);
}

void EndPopulating(Session& session) {
    session.run.ProgressFraction = 0;
    session.run.CurrentRow = 0;
    session.person.ShowStatusWord(kStatusComplete);
}

// One run over the tickers of a table.
class PopulateWalk {
  public:
    PopulateWalk(Session& session, Web& web, const Hosts& hosts, std::vector<std::string> tickers)
        : session_(session),
          hosts_(hosts),
          tickers_(std::move(tickers)),
          queue_(web, [this] { return NextRequest(); }) {}

    void DeleteHistories() { DeleteTickerHistories(session_.settings.QuoteFolder, tickers_); }

    PopulateRun Walk() {
        files_ = YearFilesByTicker(session_.settings.QuoteFolder, tickers_);
        for (std::size_t row = 1; row <= tickers_.size() && !run_.stopped; ++row) {
            ShowRow(row);
            Populate(tickers_[row - 1]);
            ++run_.tickers;
            run_.stopped = ShouldStop(session_.run, session_.person);
        }
        return run_;
    }

  private:
    // The request of the next ticker that has files; asked for ahead of the ticker in work.
    std::optional<WebRequest> NextRequest() {
        while (nextAsked_ < tickers_.size()) {
            const std::string& ticker = tickers_[nextAsked_++];
            if (HasDatabaseFiles(ticker)) return StandardRequest(session_, hosts_, ticker);
        }
        return std::nullopt;
    }

    void ShowRow(std::size_t row) {
        session_.run.CurrentRow = row;
        ShowTickerInWork(session_, tickers_[row - 1], row, tickers_.size());
    }

    void Populate(const std::string& ticker) {
        if (!HasDatabaseFiles(ticker)) return;
        const auto fetched = queue_.Next();
        if (!fetched) return;
        const HistoryDownload download = StoreHistory(session_, ticker, fetched->reply, true, files_[ticker]);
        if (download.days > 0) ++run_.stored;
        if (download.error && !run_.error) run_.error = download.error;
    }

    Session& session_;
    const Hosts& hosts_;
    std::vector<std::string> tickers_;
    std::size_t nextAsked_ = 0;
    FetchQueue queue_;
    FilesByTicker files_;
    PopulateRun run_;
};

}  // namespace

HistoryDownload DownloadTickerHistory(Session& session, Web& web, const Hosts& hosts,
                                      std::string_view ticker) {
    if (const auto refusal = Refusal(session, ticker)) return {*refusal, 0, {}};
    const WebReply reply = web.Fetch(ChosenRequest(session, hosts, ticker));
    std::vector<Path> files = YearFilesOf(session.settings.QuoteFolder, ticker);
    return StoreHistory(session, ticker, reply, !UsesUserSource(session), files);
}

HistoryDownload PopulateTicker(Session& session, Web& web, const Hosts& hosts, std::string_view ticker) {
    if (ticker.empty()) return {};
    if (!HasDatabaseFiles(ticker)) return {HistoryOutcome::NoFiles, 0, {}};
    const WebReply reply = web.Fetch(StandardRequest(session, hosts, ticker));
    std::vector<Path> files = YearFilesOf(session.settings.QuoteFolder, ticker);
    return StoreHistory(session, ticker, reply, true, files);
}

PopulateRun PopulateDatabase(Session& session, Web& web, const Hosts& hosts, const QuoteTable& table) {
    BeginRun(session.run);
    session.person.ShowStatusWord(kStatusPopulating);
    PopulateWalk walk(session, web, hosts, TickersOf(table));
    if (KindOf(session.CurrentFile) == FileKind::Ddq) walk.DeleteHistories();
    const PopulateRun run = walk.Walk();
    EndPopulating(session);
    return run;
}

PopulateRun RepopulateReported(Session& session, Web& web, const Hosts& hosts) {
    PopulateRun run;
    const std::optional<ErrorReport> report = ReadErrorReport(session.DataFolder());
    if (!report) return run;
    BeginRun(session.run);
    session.person.ShowStatusWord(kStatusPopulating);
    DeleteTickerHistories(session.settings.QuoteFolder, report->tickers);
    for (const std::string& ticker : report->tickers) {
        ShowTickerInWork(session, ticker, run.tickers + 1, report->tickers.size());
        const HistoryDownload download = DownloadTickerHistory(session, web, hosts, ticker);
        if (download.outcome == HistoryOutcome::NoSource) break;
        ++run.tickers;
        if (download.days > 0) ++run.stored;
        if (download.error && !run.error) run.error = download.error;
        run.stopped = ShouldStop(session.run, session.person);
        if (run.stopped) break;
    }
    EndPopulating(session);
    return run;
}

}  // namespace brantlow
