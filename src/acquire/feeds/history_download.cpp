#include "acquire/feeds/history_download.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <span>

#include "acquire/feeds/chosen_history.h"
#include "acquire/feeds/history_address.h"
#include "acquire/feeds/history_reply.h"
#include "acquire/web/downloads.h"
#include "acquire/web/fetch_queue.h"
#include "acquire/web/giving_up_web.h"
#include "base/askable_ticker.h"
#include "base/text.h"
#include "base/values.h"
#include "shell/session_change.h"
#include "shell/settings/choices.h"
#include "shell/settings/lines.h"
#include "shell/settings/settings_files.h"
#include "shell/status_words.h"
#include "store/error_report.h"
#include "store/history_rewrite.h"
#include "store/year_files.h"

namespace brantlow {

namespace {

constexpr std::string_view kNoFilesReason = "no file can have this name, so the ticker has no history";
constexpr std::string_view kDataExistsReason = "its history is stored already";

struct FateOfOutcome {
    HistoryOutcome outcome;
    TickerFate fate;
};

// Outcomes that are no row here are told of elsewhere, or of no ticker.
constexpr std::array<FateOfOutcome, 8> kFates = {{{HistoryOutcome::Stored, TickerFate::Stored},
                                                  {HistoryOutcome::NoData, TickerFate::Unknown},
                                                  {HistoryOutcome::Unknown, TickerFate::Unknown},
                                                  {HistoryOutcome::NoReply, TickerFate::Failed},
                                                  {HistoryOutcome::Failed, TickerFate::Failed},
                                                  {HistoryOutcome::DataExists, TickerFate::Failed},
                                                  {HistoryOutcome::LeftOut, TickerFate::LeftOut},
                                                  {HistoryOutcome::NoFiles, TickerFate::Skipped}}};

std::string WhyOf(const HistoryDownload& download) {
    switch (download.outcome) {
        case HistoryOutcome::Stored:
            return Counted(download.days, "day", "days");
        case HistoryOutcome::NoData:
            return "no day in the span";
        case HistoryOutcome::DataExists:
            return std::string(kDataExistsReason);
        default:
            return download.why;
    }
}

RunReport ReportOf(std::string_view file) {
    return {fmt::format("Populate of {}", file), "histories"};
}

using FilesByTicker = std::unordered_map<std::string, std::vector<Path>>;

HistorySpan WantedSpan(const Session& session) {
    return HistorySpanOf(session.clock.Today(), Get(session.settings, kHistoryYears));
}

WebRequest StandardRequest(const Session& session, const Hosts& hosts, std::string_view ticker) {
    return FeedRequest(StandardHistoryUrl(hosts, ticker, WantedSpan(session)));
}

WebRequest ChosenRequest(const Session& session, const Hosts& hosts, std::string_view ticker) {
    if (!UsesUserSource(session.settings)) return StandardRequest(session, hosts, ticker);
    const std::string& userUrl = Get(session.settings, kHistoryTemplate);
    return FeedRequest(UserHistoryUrl(userUrl, ticker, WantedSpan(session)));
}

HistoryReplyForm ReplyForm(const Session& session, bool quotesProtect) {
    const SettingsTables& settings = session.settings;
    return {Get(settings, kSourceHeader), Get(settings, kSourceFooter), TextOf(settings, kSourceDateForm),
            quotesProtect};
}

// A reply to a request, and how it is read.
struct Fetched {
    std::string url;
    WebReply reply;
    bool quotesProtect = true;
};

// The days of a reply, or what there is in their place.
struct HistoryReading {
    std::vector<HistoryRecord> records;
    HistoryOutcome outcome = HistoryOutcome::Stored;
    std::string why;
};

// A reply of the standard source ends its last line; one that does not was cut where nobody announced its
// length.
bool IsCut(const Fetched& fetched) {
    return fetched.quotesProtect && !fetched.reply.bytes.ends_with('\n');
}

HistoryReading ReadHistory(const Session& session, const Fetched& fetched, bool hasFiles) {
    constexpr int kNotFound = 404;
    HistoryReading reading;
    const WebReply& reply = fetched.reply;
    if (reply.status == kNotFound) {
        reading.outcome = HistoryOutcome::Unknown;
        return reading;
    }
    if (reply.ok) reading.records = RecordsOfReply(reply.bytes, ReplyForm(session, fetched.quotesProtect));
    const bool keeps = KeepsHistoryOnFailure(session.settings);
    if (keeps && Trim(reply.bytes).starts_with('<')) reading.records.clear();
    if (!reading.records.empty()) {
        // Half a history is better than none, and worse than the one that is stored.
        if (!keeps || !hasFiles || !IsCut(fetched)) return reading;
        reading.why = FailureSentence(fetched.url, FailedReply(WebFailure::Broken, {}));
    } else if (reply.ok && IsHistoryWithoutDays(reply.bytes)) {
        reading.outcome = HistoryOutcome::NoData;
        return reading;
    } else {
        reading.why = FeedFault(fetched.url, reply);
    }
    reading.records.clear();
    reading.outcome = HistoryOutcome::NoReply;
    return reading;
}

// A file of the history could not be written: what is stored is what was stored before.
void MarkFailed(HistoryDownload& download) {
    download.outcome = HistoryOutcome::Failed;
    download.why = FailedSentence("The history", download.error);
    download.days = 0;
    download.isChanged = download.error.isHalfDone;
}

// Prepares that what a reply brought takes the place of the ticker's `files`.
HistoryDownload PrepareHistory(const Session& session, std::string_view ticker, const Fetched& fetched,
                               std::vector<Path>& files, FileChange& change) {
    HistoryReading reading = ReadHistory(session, fetched, !files.empty());
    HistoryDownload download{
        .outcome = reading.outcome, .days = reading.records.size(), .why = std::move(reading.why)};
    const bool isAnswer =
        download.outcome == HistoryOutcome::Stored || download.outcome == HistoryOutcome::NoData;
    if (!isAnswer && KeepsHistoryOnFailure(session.settings)) return download;
    YearFileTexts texts;
    for (const HistoryRecord& day : reading.records) texts.Add(day);
    download.isChanged = !files.empty() || download.days > 0;
    download.error = PrepareTickerHistory(session.settings.QuoteFolder, ticker, texts.Files(), files, change);
    if (download.error) MarkFailed(download);
    return download;
}

std::string HistoryChange(std::string_view ticker) {
    return "History of " + std::string(ticker);
}

// A download of its own; what it replaces is no longer than it needs it.
HistoryDownload Committed(Session& session, HistoryDownload download, FileChange& change) {
    if (!download.error) download.error = CommitBeside(session, change);
    if (download.error) MarkFailed(download);
    return download;
}

// What becomes of a ticker whose files cannot be read: nothing of it is touched.
HistoryDownload Unread(const Failure& failure) {
    HistoryDownload download{.outcome = HistoryOutcome::Failed};
    download.error = failure;
    download.why = Sentence(failure);
    return download;
}

// Why nothing is asked for `ticker`, at the standard source or at the user's; nothing when it can be.
std::optional<HistoryDownload> Refusal(std::string_view ticker, bool standardSource) {
    if (ticker.empty()) return HistoryDownload{};
    if (!HasDatabaseFiles(ticker)) {
        return HistoryDownload{.outcome = HistoryOutcome::NoFiles, .why = std::string(kNoFilesReason)};
    }
    if (standardSource && !IsAskableTicker(ticker)) {
        return HistoryDownload{.outcome = HistoryOutcome::LeftOut, .why = std::string(kUnaskableReason)};
    }
    return std::nullopt;
}

enum class StoredData { Hinders, IsReplaced };

// The same for the chosen source, after what there is to say was said.
std::optional<HistoryDownload> ChosenRefusal(const Session& session, std::string_view ticker,
                                             StoredData stored) {
    bool hasData = false;
    if (stored == StoredData::Hinders) {
        if (const Failure failure = FindDataOfThisYear(session, ticker, hasData)) return Unread(failure);
    }
    if (hasData) {
        session.person.Say(kDataExistsSentence);
        return HistoryDownload{.outcome = HistoryOutcome::DataExists};
    }
    const bool usesUserSource = UsesUserSource(session.settings);
    if (!ticker.empty() && usesUserSource && Get(session.settings, kHistoryTemplate).empty()) {
        session.person.Say(kNoSourceSentence);
        return HistoryDownload{.outcome = HistoryOutcome::NoSource};
    }
    return Refusal(ticker, !usesUserSource);
}

HistoryDownload Fetch(const Session& session, Web& web, std::string_view ticker, const WebRequest& request,
                      bool quotesProtect, FileChange& change) {
    const Fetched fetched{request.url, web.Fetch(request), quotesProtect};
    Failure unread;
    std::vector<Path> files = YearFilesOf(session.settings.QuoteFolder, ticker, &unread);
    if (unread) return Unread(unread);
    return PrepareHistory(session, ticker, fetched, files, change);
}

HistoryDownload DownloadChosen(Session& session, Web& web, const Hosts& hosts, std::string_view ticker,
                               StoredData stored, FileChange& change) {
    if (auto refusal = ChosenRefusal(session, ticker, stored)) return *refusal;
    if (auto live = DownloadFromChosen(session, web, std::string(ticker), change)) return std::move(*live);
    return Fetch(session, web, ticker, ChosenRequest(session, hosts, ticker),
                 !UsesUserSource(session.settings), change);
}

// Shows that `done` of `count` tickers are reached, `ticker` the one in work.
void ShowTickerInWork(Session& session, const std::string& ticker, std::size_t done, std::size_t count) {
    session.CurrentTicker = ticker;
    session.person.PumpEvents();
    session.run.ProgressFraction = static_cast<double>(done) / static_cast<double>(count);
    session.person.ShowProgress(session.run.ProgressFraction);
}

// Where the run was stopped, the tickers that it did not reach.
void TellStopped(const std::vector<std::string>& tickers, PopulateRun& run) {
    if (run.stopped) run.report.StopBefore(std::span(tickers).subspan(run.tickers));
}

// One run of populating from its first word to its last. The ticker selected before is selected afterwards.
class PopulatingMark {
  public:
    explicit PopulatingMark(Session& session) : session_(session), ticker_(session.CurrentTicker) {
        BeginRun(session.run);
        session.person.ShowStatusWord(kStatusPopulating);
    }
    ~PopulatingMark() {
        session_.run.ProgressFraction = 0;
        session_.run.CurrentRow = 0;
        session_.CurrentTicker = ticker_;
        session_.person.ShowStatusWord(kStatusComplete);
    }
    PopulatingMark(const PopulatingMark&) = delete;
    PopulatingMark& operator=(const PopulatingMark&) = delete;

  private:
    Session& session_;
    std::string ticker_;
};

void Count(const HistoryDownload& download, std::string_view ticker, PopulateRun& run) {
    ++run.tickers;
    if (download.days > 0) ++run.stored;
    if (download.error && !run.error) run.error = download.error;
    TellHistory(ticker, download, run.report);
}

// One run over the tickers of a table.
class PopulateWalk {
  public:
    PopulateWalk(Session& session, Web& web, const Hosts& hosts, std::vector<std::string> tickers,
                 FileChange& change)
        : session_(session),
          hosts_(hosts),
          tickers_(std::move(tickers)),
          change_(change),
          web_(web),
          queue_(web_, [this] { return NextRequest(); }) {
        run_.report = ReportOf(session.CurrentFile);
        Failure unread;
        files_ = YearFilesByTicker(session.settings.QuoteFolder, tickers_, &unread);
        run_.error = unread;
    }

    void DeleteHistories() {
        if (run_.error) return;
        if (!files_.empty()) run_.report.MarkChanged();
        run_.error = PrepareHistoryDeletion(session_.settings.QuoteFolder, tickers_, change_);
        files_.clear();
    }

    PopulateRun Walk() {
        for (std::size_t row = 1; row <= tickers_.size() && !run_.stopped && !run_.error; ++row) {
            const std::string& ticker = tickers_[row - 1];
            session_.run.CurrentRow = row;
            ShowTickerInWork(session_, ticker, row, tickers_.size());
            Count(Populate(ticker), ticker, run_);
            run_.stopped = ShouldStop(session_.run, session_.person);
        }
        TellStopped(tickers_, run_);
        return std::move(run_);
    }

  private:
    // The request of the next ticker that can be asked for; wanted ahead of the ticker in work.
    std::optional<WebRequest> NextRequest() {
        while (nextAsked_ < tickers_.size()) {
            const std::string& ticker = tickers_[nextAsked_++];
            if (!Refusal(ticker, true)) return StandardRequest(session_, hosts_, ticker);
        }
        return std::nullopt;
    }

    HistoryDownload Populate(const std::string& ticker) {
        if (auto refusal = Refusal(ticker, true)) return *refusal;
        auto fetched = queue_.Next();
        if (!fetched) return {};
        return PrepareHistory(session_, ticker, {std::move(fetched->request.url), std::move(fetched->reply)},
                              files_[ticker], change_);
    }

    Session& session_;
    const Hosts& hosts_;
    std::vector<std::string> tickers_;
    std::size_t nextAsked_ = 0;
    FileChange& change_;
    GivingUpWeb web_;
    FetchQueue queue_;
    FilesByTicker files_;
    PopulateRun run_;
};

// Puts the histories of a run in place. Where nothing came nothing is changed, and neither where a file
// cannot be written.
void CommitRun(Session& session, FileChange& change, PopulateRun& run) {
    if (!run.error && run.report.Extent() == RunExtent::Nothing) run.error = change.TakeBack();
    if (!run.error) run.error = CommitBeside(session, change);
    if (!run.error) return;
    if (TakeBackBeside(session, change)) run.error.isHalfDone = true;
    run.stored = 0;
    run.report = RunReport(run.report.What(), "histories");
    run.report.Fail(FailedSentence(run.report.What(), run.error));
    if (run.error.isHalfDone) run.report.MarkChanged();
}

// The report's tickers, those further on than a stop included.
PopulateRun Repopulate(Session& session, Web& web, const Hosts& hosts,
                       const std::vector<std::string>& tickers, FileChange& change) {
    PopulateRun run;
    run.report = ReportOf(kErrorReportName);
    const bool keeps = KeepsHistoryOnFailure(session.settings);
    if (!keeps) {
        run.error = PrepareHistoryDeletion(session.settings.QuoteFolder, tickers, change);
        if (change.HasWork()) run.report.MarkChanged();
    }
    for (const std::string& ticker : tickers) {
        if (run.error) break;
        ShowTickerInWork(session, ticker, run.tickers + 1, tickers.size());
        const HistoryDownload download =
            DownloadChosen(session, web, hosts, ticker, StoredData::IsReplaced, change);
        if (download.outcome == HistoryOutcome::NoSource) break;
        Count(download, ticker, run);
        run.stopped = ShouldStop(session.run, session.person);
        if (run.stopped) break;
    }
    TellStopped(tickers, run);
    return run;
}

}  // namespace

Failure FindDataOfThisYear(const Session& session, std::string_view ticker, bool& hasData) {
    const std::string today = FormatDate(session.clock.Today());
    const auto file = YearFilePath(session.settings.QuoteFolder, ticker, YearDigits(today));
    std::string bytes;
    if (Failure failure = file ? ReadIfThere(*file, bytes) : Failure{}) return failure;
    std::string_view line;
    hasData = LineReader(bytes).Next(line) && !ParseRecord(line).front().Text().empty();
    return {};
}

bool HasHistoryYears(const SettingsTables& settings) {
    return Get(settings, kHistoryYears) > 0;
}

std::vector<std::string> TickersOf(const QuoteTable& table) {
    std::vector<std::string> tickers;
    for (std::size_t row = 1; row <= table.TickerCount(); ++row) tickers.push_back(table.Ticker(row));
    return tickers;
}

std::size_t TickersWithHistory(const Session& session, const std::vector<std::string>& tickers) {
    return YearFilesByTicker(session.settings.QuoteFolder, tickers).size();
}

std::string ReplaceQuestion(std::size_t stored, std::size_t tickers) {
    return fmt::format(
        "The stored history of {} of {} is replaced by what is downloaded now. Do you want to go on?", stored,
        CountedTickers(tickers));
}

void TellHistory(std::string_view ticker, const HistoryDownload& download, RunReport& report) {
    for (const FateOfOutcome& row : kFates) {
        if (row.outcome == download.outcome) report.Tell(ticker, row.fate, WhyOf(download));
    }
    if (download.isChanged) report.MarkChanged();
}

HistoryDownload DownloadTickerHistory(Session& session, Web& web, const Hosts& hosts,
                                      std::string_view ticker) {
    FileChange change(ChangePlaceOf(session), HistoryChange(ticker), ChangeKeeps::UntilDone);
    return Committed(session, PrepareTickerDownload(session, web, hosts, ticker, change), change);
}

HistoryDownload PrepareTickerDownload(Session& session, Web& web, const Hosts& hosts, std::string_view ticker,
                                      FileChange& change) {
    return DownloadChosen(session, web, hosts, ticker, StoredData::Hinders, change);
}

PopulateRun PopulateDatabase(Session& session, Web& web, const Hosts& hosts, const QuoteTable& table,
                             Years years) {
    if (auto live = PopulateFromChosen(session, web, TickersOf(table), years)) return std::move(*live);
    const PopulatingMark mark(session);
    FileChange change(ChangePlaceOf(session), "Populate " + session.CurrentFile);
    change.AlsoKeep(session.DataFile(kLastRunName));
    PopulateWalk walk(session, web, hosts, TickersOf(table), change);
    const bool deletesFirst =
        KindOf(session.CurrentFile) == FileKind::Ddq && !KeepsHistoryOnFailure(session.settings);
    if (deletesFirst) walk.DeleteHistories();
    PopulateRun run = walk.Walk();
    if (!run.error && years == Years::Stored) {
        run.error = PrepareSettingsFile(SettingsFile::Data, session.AppPath, session.settings, change);
    }
    CommitRun(session, change, run);
    return run;
}

PopulateRun RepopulateReported(Session& session, Web& web, const Hosts& hosts) {
    const std::optional<ErrorReport> report = ReadErrorReport(session.DataFolder());
    if (!report) return {};
    if (auto live = PopulateFromChosen(session, web, report->tickers, Years::AsTheyAre))
        return std::move(*live);
    const PopulatingMark mark(session);
    GivingUpWeb patient(web);
    FileChange change(ChangePlaceOf(session), "Populate " + std::string(kErrorReportName));
    change.AlsoKeep(session.DataFile(kLastRunName));
    PopulateRun run = Repopulate(session, patient, hosts, report->tickers, change);
    CommitRun(session, change, run);
    return run;
}

}  // namespace brantlow
