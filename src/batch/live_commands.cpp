#include "batch/live_commands.h"

#include <algorithm>

#include "acquire/feeds/history_download.h"
#include "acquire/feeds/live/company_facts.h"
#include "acquire/feeds/live/live_history.h"
#include "acquire/feeds/live/live_splits.h"
#include "alerts/alarm_mail.h"
#include "batch/commands.h"
#include "batch/source_calls.h"
#include "batch/table_calls.h"
#include "daily/daily_update.h"
#include "store/table_files.h"
#include "store/year_files.h"

namespace brantlow {

namespace {

// The table of the call's FILE, which becomes the current one; nothing after a sentence.
std::optional<QuoteTable> OpenFile(BatchCall& call) {
    const std::string& name = call.arguments.operands.front();
    QuoteTable table;
    if (!ExistingDataFile(call, name) || !LoadTable(call, name, table)) return std::nullopt;
    call.session.CurrentFile = name;
    call.session.person.ShowTickerCount(table.TickerCount());
    return table;
}

void PrintTickers(BatchCall& call, const LiveReport& report) {
    for (const LiveTicker& row : report.tickers) {
        call.out << OneLine(row.ticker) << ": ";
        if (row.outcome.Done()) {
            call.out << row.days << " days\n";
        } else {
            call.out << OneLine(OutcomeText(row.outcome)) << '\n';
        }
    }
}

// Tickers of the call that may be fetched; the others are told of.
std::vector<std::string> Fetchable(BatchCall& call, ExitStatus& status) {
    std::vector<std::string> tickers;
    for (const std::string& ticker : call.arguments.operands) {
        bool hasData = false;
        if (!HasDatabaseFiles(ticker)) {
            status =
                Refuse(call, OneLine(ticker) + ": no file can have this name, so the ticker has no history");
        } else if (const Failure unread = FindDataOfThisYear(call.session, ticker, hasData)) {
            status = Refuse(call, unread);
        } else if (hasData) {
            call.session.person.Say(kDataExistsSentence);
            call.out << OneLine(ticker) << ": not downloaded\n";
            status = ExitStatus::Refused;
        } else {
            tickers.push_back(ticker);
        }
    }
    return tickers;
}

void PrintUpdateOf(BatchCall& call, const DailyUpdate& update, const QuoteTable& table,
                   const std::string& name) {
    call.out << "Tickers: " << table.TickerCount() << '\n'
             << "Quotes for the database: " << update.quotes.accepted << '\n';
    if (update.database) call.out << "Days stored: " << update.database->stored << '\n';
    call.out << "Histories adjusted: " << update.liveSplits.size() << '\n';
    for (const AppliedSplit& split : update.liveSplits) call.out << OneLine(SplitSentence(split)) << '\n';
    if (update.isSaved && !update.saveError) call.out << "Saved: " << name << '\n';
}

ExitStatus FinishUpdate(BatchCall& call, SourceCall& sources, const DailyUpdate& update,
                        const QuoteTable& table) {
    const std::string name = call.session.CurrentFile;
    PrintUpdateOf(call, update, table, name);
    const ExitStatus told = sources.Print(*update.live, update.report);
    if (told == ExitStatus::Interrupted || told == ExitStatus::Refused) return told;
    if (!update.isSaved) call.err << "Manual Save: " << name << " stays as it is\n";
    if (update.stopped) return call.interrupted() ? ExitStatus::Interrupted : ExitStatus::Partly;
    const ExitStatus selected =
        update.selectorFollows ? SelectFrom(call, name, Interval::Daily) : ExitStatus::Done;
    return selected == ExitStatus::Done ? told : selected;
}

}  // namespace

std::optional<ExitStatus> PopulateLive(BatchCall& call) {
    SourceCall sources(call);
    const SourceDefinition* source = sources.Choose(Capability::History);
    if (source == nullptr)
        return sources.Status() == ExitStatus::Done ? std::nullopt : std::optional(sources.Status());
    const std::optional<QuoteTable> table = OpenFile(call);
    if (!table || !TakeYears(call)) return ExitStatus::Refused;
    const SourceDefinition* const fallback = sources.Fallback();
    if (sources.Status() != ExitStatus::Done) return sources.Status();
    const LiveReport report =
        PopulateFromSource(sources.World(), *source, TickersOf(*table),
                           {.fallback = fallback, .storesYears = call.arguments.Has("--years")});
    call.out << "Tickers: " << report.tickers.size() << "\nWith data: " << report.Answered() << '\n';
    return sources.Print(report, RunReportOf(report, "Populate of " + call.session.CurrentFile));
}

std::optional<ExitStatus> HistoryLive(BatchCall& call) {
    SourceCall sources(call);
    const SourceDefinition* source = sources.Choose(Capability::History);
    if (source == nullptr)
        return sources.Status() == ExitStatus::Done ? std::nullopt : std::optional(sources.Status());
    ExitStatus status = ExitStatus::Done;
    const std::vector<std::string> tickers = Fetchable(call, status);
    if (tickers.empty()) return status;
    const SourceDefinition* const fallback = sources.Fallback();
    if (sources.Status() != ExitStatus::Done) return sources.Status();
    const LiveReport report = PopulateFromSource(sources.World(), *source, tickers, {.fallback = fallback});
    PrintTickers(call, report);
    const ExitStatus told = sources.Print(report, RunReportOf(report, "History"));
    return told == ExitStatus::Done ? status : told;
}

std::optional<ExitStatus> UpdateLive(BatchCall& call) {
    SourceCall sources(call);
    const SourceDefinition* source = sources.Choose(Capability::Quotes);
    if (source == nullptr)
        return sources.Status() == ExitStatus::Done ? std::nullopt : std::optional(sources.Status());
    std::optional<QuoteTable> table = OpenFile(call);
    if (!table) return ExitStatus::Refused;
    Session& session = call.session;
    if (KindOf(session.CurrentFile) != FileKind::Ddq)
        return Refuse(call, session.CurrentFile + ": no end-of-day file");
    LiveSources live{sources.World(), source};
    live.splits = sources.Beside(source, Capability::Splits);
    live.fallback = sources.Fallback();
    live.fundamentals = sources.Beside(source, Capability::Fundamentals);
    if (sources.Status() != ExitStatus::Done) return sources.Status();
    QuoteArrays rows;
    AlertedTickers alerted;
    DayStore days;
    WorkingSeries series;
    const std::optional<Hosts> hosts = ReadHosts(call);
    if (!hosts) return ExitStatus::Refused;
    UpdateWork work{session, *table, sources.Network(), *hosts, rows, alerted};
    work.live = &live;
    CurlMail mail(session.person);
    AlarmPost post{mail};
    work.post = &post;
    const DailyUpdate update = RunDailyUpdate(work, days, series);
    return FinishUpdate(call, sources, update, *table);
}

std::optional<ExitStatus> SplitCalendarLive(BatchCall& call) {
    SourceCall sources(call);
    const SourceDefinition* source = sources.Choose(Capability::Splits);
    if (source == nullptr)
        return sources.Status() == ExitStatus::Done ? std::nullopt : std::optional(sources.Status());
    Failure unread;
    const std::vector<std::string> tickers = StoredTickers(call.session.settings.QuoteFolder, unread);
    if (unread) return Refuse(call, unread);
    const LiveSplitCheck check = CheckLiveSplits(sources.World(), *source, tickers);
    if (check.fault) return Refuse(call, check.fault);
    const SourceResult result = check.outcome.result;
    if (!IsAnswer(result)) return Refuse(call, OneLine(source->title + ": " + OutcomeText(check.outcome)));
    call.out << "Told: " << check.told << "\nRestated: " << check.applied.size() << '\n';
    for (const AppliedSplit& split : check.applied) call.out << OneLine(SplitSentence(split)) << '\n';
    return ExitStatus::Done;
}

std::optional<ExitStatus> FundamentalsLive(BatchCall& call) {
    // The collection of its own file is another thing, whatever source is chosen for the rows.
    if (!call.arguments.Has(kSourceOptionName)) return std::nullopt;
    BeginRun(call.session.run);
    SourceCall sources(call);
    const SourceDefinition* source = sources.Choose(Capability::Fundamentals);
    if (source == nullptr)
        return sources.Status() == ExitStatus::Done ? std::nullopt : std::optional(sources.Status());
    std::optional<QuoteTable> table = OpenFile(call);
    if (!table) return ExitStatus::Refused;
    const std::string& name = call.session.CurrentFile;
    if (KindOf(name) != FileKind::Ddq) return Refuse(call, name + ": no end-of-day file");
    const LiveReport report = FillFundamentals(sources.World(), *source, *table);
    const bool isFilled = std::any_of(report.tickers.begin(), report.tickers.end(),
                                      [](const LiveTicker& row) { return row.days > 0; });
    if (isFilled) {
        if (const auto error = SaveQuoteTable(*table, call.session.DataFile(name))) {
            return Refuse(call, FailedTo(FailureKind::Write, name, error));
        }
        call.out << "Saved: " << name << '\n';
    }
    for (const LiveTicker& row : report.tickers) {
        if (row.days > 0) call.out << OneLine(row.ticker + ": " + row.outcome.words) << '\n';
    }
    return sources.Print(report, RunReportOf(report, "Fundamentals of " + name));
}

}  // namespace brantlow
