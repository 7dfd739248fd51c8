#include "acquire/feeds/live/live_history.h"

#include <cmath>

#include "acquire/feeds/live/bar_store.h"
#include "acquire/feeds/live/live_asking.h"
#include "acquire/feeds/live/market_days.h"
#include "acquire/feeds/live/ticker_basis.h"
#include "shell/session_change.h"
#include "shell/settings/settings_files.h"
#include "shell/status_words.h"
#include "store/year_files.h"

namespace brantlow {

namespace {

using std::chrono::days;
using std::chrono::sys_days;

std::vector<std::string> WithFiles(const std::vector<std::string>& tickers) {
    std::vector<std::string> kept;
    for (const std::string& ticker : tickers) {
        if (HasDatabaseFiles(ticker)) kept.push_back(ticker);
    }
    return kept;
}

// One populate run.
class LivePopulate {
  public:
    LivePopulate(SourceWorld& world, const SourceDefinition& source, std::vector<std::string> tickers,
                 TickerBases& bases, FileChange& change)
        : world_(world),
          session_(world.session),
          source_(source),
          client_(world, source),
          tickers_(std::move(tickers)),
          bases_(bases),
          change_(change) {}

    LiveReport Run() {
        report_.title = source_.title;
        files_ = YearFilesByTicker(session_.settings.QuoteFolder, tickers_, &report_.fault);
        if (report_.fault) return report_;
        const CapabilityForm* quotes = source_.Form(Capability::Quotes);
        const bool byDays =
            quotes != nullptr && quotes->tickers == 0 && tickers_.size() >= kMarketFromTickers;
        const DaySpan span = WantedHistory(session_);
        if (byDays) {
            PopulateByDays(span);
        } else {
            PopulateByTickers(span);
        }
        return report_;
    }

  private:
    void PopulateByTickers(const DaySpan& span) {
        const CapabilityForm& form = source_.FormOf(Capability::History);
        TickersQuestion question{Capability::History, span.from, span.to, kStatusPopulating};
        std::vector<std::string> early;
        AskTickers(client_, world_, question, tickers_, [&](const std::string& ticker, TickerAnswer answer) {
            if (answer.outcome.result != SourceResult::NotYetPublished) {
                return Take(form, ticker, std::move(answer));
            }
            // The newest day hides the others: all that follows is asked without it.
            early.push_back(ticker);
            question.to = WeekdayBefore(span.to);
        });
        AskTickers(client_, world_, question, early, [&](const std::string& ticker, TickerAnswer answer) {
            Take(form, ticker, std::move(answer));
        });
        report_.stopped = session_.run.ProcessCommand == kStopRun;
    }

    void PopulateByDays(const DaySpan& span) {
        MarketDays market(world_, client_, tickers_);
        const MarketDaysEnd end = market.Fetch(span.from, span.to);
        report_.stopped = end.outcome.result == SourceResult::Stopped;
        report_.unfinished = end.unfinished;
        if (end.fault) report_.fault = end.fault;
        const CapabilityForm& form = source_.FormOf(Capability::Quotes);
        market.ForEachTicker([&](const std::string& ticker, TickerAnswer answer) {
            if (!end.isComplete && answer.outcome.Done() && !files_[ticker].empty()) {
                answer = {end.outcome, {}};
            }
            if (!end.isComplete && !answer.outcome.Done()) answer = {end.outcome, {}};
            Take(form, ticker, std::move(answer));
        });
        if (end.isComplete && !report_.fault) market.Forget();
    }

    void Take(const CapabilityForm& form, const std::string& ticker, TickerAnswer answer) {
        if (report_.fault) return;
        report_.tickers.push_back(StoreAnswer(world_, client_, form, ticker, std::move(answer),
                                              files_[ticker], bases_, change_, report_.fault));
    }

    SourceWorld& world_;
    Session& session_;
    const SourceDefinition& source_;
    SourceClient client_;
    std::vector<std::string> tickers_;
    std::unordered_map<std::string, std::vector<Path>> files_;
    TickerBases& bases_;
    FileChange& change_;
    LiveReport report_;
};

std::vector<std::string> Unknown(const LiveReport& report) {
    std::vector<std::string> unknown;
    for (const LiveTicker& row : report.tickers) {
        if (row.outcome.result == SourceResult::UnknownSymbol) unknown.push_back(row.ticker);
    }
    return unknown;
}

// What goes with the histories.
Failure PrepareRest(const Session& session, const TickerBases& bases, const PopulateWith& with,
                    FileChange& change) {
    if (const Failure fault = bases.Save(session.DataFolder(), change)) return fault;
    if (!with.storesYears) return {};
    return PrepareSettingsFile(SettingsFile::Data, session.AppPath, session.settings, change);
}

// No history was stored, whatever came.
void FailWholly(const Failure& fault, LiveReport& report) {
    report.fault = fault;
    report.tickers.clear();
    report.remarks.clear();
    report.unfinished.clear();
}

void Merge(LiveReport& report, LiveReport second) {
    for (LiveTicker& row : second.tickers) {
        for (LiveTicker& first : report.tickers) {
            if (first.ticker == row.ticker) first = row;
        }
    }
    report.title += " and " + second.title;
    report.stopped = report.stopped || second.stopped;
    if (!report.fault) report.fault = second.fault;
    report.remarks.insert(report.remarks.end(), second.remarks.begin(), second.remarks.end());
}

}  // namespace

DaySpan WantedHistory(const Session& session) {
    constexpr double kMostYears = 100;
    constexpr double kDaysInYear = 365;
    const sys_days today{session.clock.Today()};
    const double years = std::clamp(Get(session.settings, kHistoryYears), 0.0, kMostYears);
    return {today - days{std::lround(years * kDaysInYear)}, today};
}

LiveTicker StoreAnswer(SourceWorld& world, const SourceClient& client, const CapabilityForm& form,
                       const std::string& ticker, TickerAnswer answer, const std::vector<Path>& oldFiles,
                       TickerBases& bases, FileChange& change, Failure& fault) {
    LiveTicker row{ticker, std::move(answer.outcome), 0};
    if (!row.outcome.Done()) return row;
    std::vector<SourceBar>& bars = answer.bars.bars;
    const EpochSeconds now = EpochOf(world.session.clock);
    // Readers in code know the exchange's own session.
    const bool knowsLive = form.reader != ReplyReader::Rows;
    std::erase_if(bars, [&](const SourceBar& bar) {
        return bar.isLive || (!knowsLive && !IsOver(*client.Source().zone, bar.day, now));
    });
    // What a source sends raw together with its splits is put on one basis.
    if (form.basis == PriceBasis::Raw) AdjustBars(bars, answer.bars.splits);
    HistoryWrite write = WriteHistory(world.session.settings.QuoteFolder, ticker, bars, oldFiles, change);
    fault = write.fault;
    row.days = write.days;
    if (write.days == 0) {
        row.outcome = {.result = SourceResult::NoData, .words = {}};
        return row;
    }
    const bool knowsSplits = !form.Field(RowField::SplitFactor).empty() ||
                             (form.tickers == 0 && client.Source().Form(Capability::Splits) != nullptr);
    const bool isAdjusted = form.basis == PriceBasis::Raw && knowsSplits;
    TickerBasis basis;
    basis.source = client.Source().name;
    basis.basis = isAdjusted ? PriceBasis::Split : form.basis;
    basis.currency = answer.bars.currency;
    basis.through = sys_days{world.session.clock.Today()};
    bases.Set(ticker, std::move(basis));
    return row;
}

LiveReport PreparePopulate(SourceWorld& world, const SourceDefinition& source,
                           const std::vector<std::string>& tickers, const PopulateWith& with,
                           FileChange& change) {
    Session& session = world.session;
    BeginRun(session.run);
    session.person.ShowStatusWord(kStatusPopulating);
    Failure fault;
    TickerBases bases = TickerBases::Load(session.DataFolder(), fault);
    LiveReport report;
    report.title = source.title;
    if (!fault) {
        report = LivePopulate(world, source, WithFiles(tickers), bases, change).Run();
        const std::vector<std::string> unknown = Unknown(report);
        const bool goesOn = with.fallback != nullptr && with.fallback != &source && !report.stopped;
        if (goesOn && !report.fault && !unknown.empty()) {
            Merge(report, LivePopulate(world, *with.fallback, unknown, bases, change).Run());
        }
        fault = report.fault;
    }
    if (!fault && report.Answered() > 0) fault = PrepareRest(session, bases, with, change);
    if (fault) FailWholly(fault, report);
    session.run.ProgressFraction = 0;
    session.run.CurrentRow = 0;
    session.person.ShowStatusWord(kStatusComplete);
    return report;
}

LiveReport PopulateFromSource(SourceWorld& world, const SourceDefinition& source,
                              const std::vector<std::string>& tickers, const PopulateWith& with) {
    FileChange change(ChangePlaceOf(world.session), "Populate from " + source.title);
    change.AlsoKeep(world.session.DataFile(kLastRunName));
    LiveReport report = PreparePopulate(world, source, tickers, with, change);
    if (report.fault) return report;
    if (const Failure fault = CommitBeside(world.session, change)) FailWholly(fault, report);
    return report;
}

}  // namespace brantlow
