#include "daily/live_update.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <unordered_map>

#include "acquire/feeds/live/bar_store.h"
#include "acquire/feeds/live/live_asking.h"
#include "base/text.h"
#include "daily/row_update.h"
#include "shell/kept_ticker.h"
#include "shell/session_change.h"
#include "shell/status_words.h"
#include "store/import_record.h"
#include "store/year_files.h"

namespace brantlow {

namespace {

using std::chrono::days;
using std::chrono::sys_days;

// Days in front of the newest one that are asked for with it: the close before it is among them.
constexpr days kDaysBefore{6};
// A ticker that is further behind is for populating anew.
constexpr days kLongestGap{366};
constexpr int kMostDaysBack = 5;

std::vector<std::string> DifferentTickers(const QuoteTable& table) {
    std::vector<std::string> tickers;
    std::set<std::string> seen;
    for (std::size_t row = 1; row <= table.TickerCount(); ++row) {
        const std::string& ticker = table.Ticker(row);
        if (!ticker.empty() && seen.insert(ticker).second) tickers.push_back(ticker);
    }
    return tickers;
}

std::vector<sys_days> WeekdaysBetween(sys_days first, sys_days last) {
    std::vector<sys_days> weekdays;
    for (sys_days day = first; day <= last; day += days{1}) {
        if (!IsWeekend(day)) weekdays.push_back(day);
    }
    return weekdays;
}

// What is known of a ticker before anything is asked.
struct TickerState {
    StoredEnd end;
    std::string shownDate;  // of its row
};
using TickerStates = std::unordered_map<std::string, TickerState>;
using Answers = std::unordered_map<std::string, TickerAnswer>;

// The days of many tickers from one source, in whichever way it tells them.
class Gathering {
  public:
    Gathering(SourceWorld& world, const SourceDefinition& source, const TickerStates& states)
        : world_(world), source_(source), client_(world, source), states_(states) {
        const EpochSeconds now = EpochOf(world.session.clock);
        newest_ = NewestEndedDay(*source.zone, now);
        today_ = std::max(MomentIn(*source.zone, now).day, newest_);
    }

    Answers Ask(const std::vector<std::string>& tickers) {
        const CapabilityForm& form = source_.FormOf(Capability::Quotes);
        if (form.tickers == 0) {
            AskMarket(tickers);
        } else if (form.reader == ReplyReader::YahooSpark) {
            AskClosesFirst(tickers);
        } else {
            AskDays(Capability::Quotes, tickers, form.tickers == 1 ? today_ : newest_);
        }
        return std::move(answers_);
    }

    // Days that are still missing because one of them failed, for a person; empty when there are none.
    const std::string& Unfinished() const { return unfinished_; }

  private:
    // The first day that a ticker's question begins with.
    sys_days FirstFor(const std::string& ticker) const {
        const StoredEnd& end = states_.at(ticker).end;
        const sys_days usual = newest_ - kDaysBefore;
        return end.day ? std::max(std::min(*end.day, usual), newest_ - kLongestGap) : usual;
    }

    void Keep(const std::string& ticker, TickerAnswer answer) { answers_[ticker] = std::move(answer); }

    // Tickers with the same gap are asked together; where the newest day is not out yet, up to the day
    // before.
    void AskDays(Capability capability, const std::vector<std::string>& tickers, sys_days to) {
        std::map<sys_days, std::vector<std::string>> byFirst;
        for (const std::string& ticker : tickers) byFirst[FirstFor(ticker)].push_back(ticker);
        for (const auto& [first, group] : byFirst) {
            std::vector<std::string> unpublished;
            const TakeAnswer take = [&](const std::string& ticker, TickerAnswer answer) {
                if (answer.outcome.result == SourceResult::NotYetPublished) unpublished.push_back(ticker);
                Keep(ticker, std::move(answer));
            };
            AskTickers(client_, world_, {capability, first, to, kStatusUpdating}, group, take);
            if (unpublished.empty()) continue;
            AskTickers(
                client_, world_, {capability, first, WeekdayBefore(newest_), kStatusUpdating}, unpublished,
                [&](const std::string& ticker, TickerAnswer answer) { Keep(ticker, std::move(answer)); });
        }
    }

    // A short reply tells which tickers have a new day; the whole day is asked of those only.
    void AskClosesFirst(const std::vector<std::string>& tickers) {
        std::vector<std::string> wanted;
        AskTickers(client_, world_, {Capability::Quotes, newest_ - kDaysBefore, today_, kStatusUpdating},
                   tickers, [&](const std::string& ticker, TickerAnswer answer) {
                       // A source that cannot be reached is not asked for the days either.
                       const bool isDead = answer.outcome.result == SourceResult::Network;
                       if (isDead || EndsRun(answer.outcome)) {
                           Keep(ticker, std::move(answer));
                       } else if (IsNews(ticker, answer)) {
                           wanted.push_back(ticker);
                       } else {
                           answer.bars.bars.clear();
                           Keep(ticker, std::move(answer));
                       }
                   });
        // East of the source's own zone tomorrow has begun.
        AskDays(Capability::History, wanted, today_ + days{1});
    }

    bool IsNews(const std::string& ticker, const TickerAnswer& answer) const {
        const SourceResult result = answer.outcome.result;
        if (result == SourceResult::UnknownSymbol && answer.outcome.words.starts_with("it cannot"))
            return false;
        if (!answer.outcome.Done()) return true;
        const SourceBar& bar = answer.bars.bars.back();
        const TickerState& state = states_.at(ticker);
        return bar.isLive || !state.end.day || bar.day > *state.end.day ||
               state.shownDate != FormatDate(Date{bar.day});
    }

    std::vector<sys_days> MarketDaysFor(const std::vector<std::string>& tickers) const {
        sys_days first = newest_;
        for (const std::string& ticker : tickers) {
            const StoredEnd& end = states_.at(ticker).end;
            if (end.day) first = std::min(first, std::max(*end.day + days{1}, newest_ - kLongestGap));
        }
        return WeekdaysBetween(first, newest_);
    }

    void AskMarket(const std::vector<std::string>& tickers) {
        std::unordered_map<std::string, std::string> tickerOf;
        for (const std::string& ticker : tickers) {
            const auto symbol = SpellSymbol(source_.notation, ticker);
            if (symbol) tickerOf.emplace(*symbol, ticker);
        }
        std::unordered_map<std::string, SourceBars> bars;
        SourceOutcome end;
        bool any = false;
        const std::vector<sys_days> wanted = MarketDaysFor(tickers);
        for (const sys_days day : wanted) {
            end = TakeMarketDay(day, wanted, tickerOf, bars, any);
            if (!end.Done() && end.result != SourceResult::NotYetPublished) break;
        }
        // After a holiday there is nothing new; the day before fills the table all the same.
        sys_days back = wanted.front();
        for (int i = 0; i < kMostDaysBack && !any && IsAnswer(end.result); ++i) {
            back = WeekdayBefore(back);
            end = TakeMarketDay(back, wanted, tickerOf, bars, any);
        }
        if (!IsAnswer(end.result) && !bars.empty()) {
            unfinished_ = fmt::format("{} of {} days came from {}, the next update goes on: {}", asked_ - 1,
                                      wanted.size(), source_.title, OutcomeText(end));
        }
        for (const std::string& ticker : tickers) Keep(ticker, MarketAnswer(ticker, bars, tickerOf, end));
    }

    SourceOutcome TakeMarketDay(sys_days day, const std::vector<sys_days>& wanted,
                                const std::unordered_map<std::string, std::string>& tickerOf,
                                std::unordered_map<std::string, SourceBars>& bars, bool& any) {
        Session& session = world_.session;
        if (ShouldStop(session.run, session.person)) return {.result = SourceResult::Stopped, .words = {}};
        ++asked_;
        session.run.ProgressFraction =
            std::min(1.0, static_cast<double>(asked_) / static_cast<double>(wanted.size() + 1));
        session.person.ShowProgress(session.run.ProgressFraction);
        SourceReply reply = client_.Ask({Capability::Quotes, {}, day, day});
        if (!reply.outcome.Done()) return reply.outcome;
        any = any || reply.rows > 0;
        for (auto& [symbol, day_] : reply.bySymbol) {
            const auto found = tickerOf.find(symbol);
            if (found == tickerOf.end()) continue;
            SourceBars& all = bars[found->second];
            if (!day_.refusal.empty()) all.Refuse(day_.refusal);
            all.withoutPrice += day_.withoutPrice;
            all.bars.insert(all.bars.end(), day_.bars.begin(), day_.bars.end());
        }
        return {};
    }

    TickerAnswer MarketAnswer(const std::string& ticker, std::unordered_map<std::string, SourceBars>& bars,
                              const std::unordered_map<std::string, std::string>& tickerOf,
                              const SourceOutcome& end) const {
        const auto found = bars.find(ticker);
        if (found != bars.end()) {
            TickerAnswer answer{{}, std::move(found->second)};
            FinishBars(answer.bars, false);
            if (!answer.bars.refusal.empty()) {
                answer.outcome = {.result = SourceResult::Refused, .words = answer.bars.refusal};
            } else if (answer.bars.bars.empty()) {
                answer.outcome = {.result = SourceResult::NoData, .words = {}};
            }
            return answer;
        }
        if (!end.Done()) return {end, {}};
        const auto symbol = SpellSymbol(source_.notation, ticker);
        const bool isKnown = symbol && tickerOf.find(*symbol) != tickerOf.end() && states_.at(ticker).end.day;
        return {{.result = isKnown ? SourceResult::NoData : SourceResult::UnknownSymbol, .words = {}}, {}};
    }

    SourceWorld& world_;
    const SourceDefinition& source_;
    SourceClient client_;
    const TickerStates& states_;
    sys_days newest_;
    sys_days today_;
    std::size_t asked_ = 0;
    std::string unfinished_;
    Answers answers_;
};

// One run of UpdateFromSource.
class LiveRun {
  public:
    explicit LiveRun(const UpdateWork& work)
        : work_(work), session_(work.session), sources_(*work.live), row_(work, update_.outcome) {}

    LiveUpdate Run() {
        update_.report.title = sources_.quotes->title;
        const std::vector<std::string> tickers = DifferentTickers(work_.table);
        bases_ = TickerBases::Load(session_.DataFolder(), update_.report.fault);
        ReadStates(tickers);
        Gather(tickers);
        row_.BeginBatch(1);
        for (std::size_t row = 1; row <= work_.table.TickerCount(); ++row) TakeRow(row);
        for (LiveTicker& row : update_.report.tickers) row.days = news_.count(row.ticker);
        if (!records_.empty()) {
            const Path file = ImportRecordFile(session_.AppPath);
            KeepFirst(update_.outcome.error,
                      FailedTo(FailureKind::Write, file, AppendToFile(file, records_)));
        }
        update_.outcome.stopped = session_.run.ProcessCommand == kStopRun;
        update_.report.stopped = update_.outcome.stopped;
        return std::move(update_);
    }

  private:
    void ReadStates(const std::vector<std::string>& tickers) {
        const sys_days today{session_.clock.Today()};
        Failure unread;
        const auto files = YearFilesByTicker(session_.settings.QuoteFolder, tickers, &unread);
        for (const std::string& ticker : tickers) {
            TickerState& state = states_[ticker];
            const auto found = files.find(ticker);
            Failure fault = unread;
            if (found != files.end()) state.end = ReadStoredEnd(found->second, today, fault);
            if (fault && !update_.report.fault) update_.report.fault = fault;
            if (fault) unreadable_.insert(ticker);
        }
        for (std::size_t column = 1; column < work_.table.ColumnCount(); ++column) {
            if (work_.table.Header(column) != "Trade Date") continue;
            for (std::size_t row = 1; row <= work_.table.TickerCount(); ++row) {
                const auto state = states_.find(work_.table.Ticker(row));
                if (state != states_.end()) state->second.shownDate = work_.table.Text(row, column);
            }
        }
    }

    void Gather(const std::vector<std::string>& tickers) {
        Gathering gathering(sources_.world, *sources_.quotes, states_);
        Answers first = gathering.Ask(tickers);
        update_.report.unfinished = gathering.Unfinished();
        std::vector<std::string> unknown;
        for (const std::string& ticker : tickers) {
            Judge(ticker, *sources_.quotes, first[ticker]);
            if (first[ticker].outcome.result == SourceResult::UnknownSymbol) unknown.push_back(ticker);
        }
        const SourceDefinition* fallback = sources_.fallback;
        if (fallback != nullptr && fallback != sources_.quotes && !unknown.empty() &&
            fallback->Form(Capability::Quotes) != nullptr) {
            Answers second = Gathering(sources_.world, *fallback, states_).Ask(unknown);
            for (const std::string& ticker : unknown) {
                Judge(ticker, *fallback, second[ticker]);
                first[ticker] = std::move(second[ticker]);
            }
            update_.report.title += " and " + fallback->title;
        }
        answers_ = std::move(first);
        for (const std::string& ticker : tickers) {
            update_.report.tickers.push_back({ticker, answers_[ticker].outcome, 0});
        }
    }

    // Brings the days on the basis of today, and refuses what may not follow the stored ones.
    void Judge(const std::string& ticker, const SourceDefinition& source, TickerAnswer& answer) {
        if (!answer.outcome.Done()) return;
        const CapabilityForm& form = source.FormOf(Capability::Quotes);
        if (form.basis == PriceBasis::Raw) AdjustBars(answer.bars.bars, answer.bars.splits);
        const std::string refusal = MixRefusal(bases_.Find(ticker), source, form.basis, answer.bars.currency);
        if (!refusal.empty()) answer = {{.result = SourceResult::Refused, .words = refusal}, {}};
        if (unreadable_.count(ticker) > 0) {
            answer = {{.result = SourceResult::Refused, .words = "its stored history cannot be read"}, {}};
        }
    }

    void TakeRow(std::size_t row) {
        session_.run.CurrentRow = row;
        const std::string ticker = work_.table.Ticker(row);
        session_.CurrentTicker = ticker;
        const auto found = answers_.find(ticker);
        if (found == answers_.end() || !found->second.outcome.Done()) return;
        if (found->second.bars.bars.empty()) {
            row_.TakeShown(row);
        } else {
            TakeDays(row, ticker, found->second.bars);
        }
        session_.person.PumpEvents();
    }

    void TakeDays(std::size_t row, const std::string& ticker, const SourceBars& answer) {
        const StoredEnd& end = states_.at(ticker).end;
        std::vector<SourceBar> over;
        const SourceBar* live = nullptr;
        for (const SourceBar& bar : answer.bars) {
            if (bar.isLive || IsBeforeClose(bar.day)) {
                live = &bar;
            } else {
                over.push_back(bar);
            }
        }
        if (!over.empty()) TakeNewest(row, ticker, end, over, live == nullptr);
        if (live == nullptr) return;
        row_.TakeQuote(QuoteOf(*live, over.empty() ? ClosesBefore(end, live->day) : over.back().close), row,
                       true, nullptr);
    }

    // Readers in code know the exchange's own session.
    bool IsBeforeClose(sys_days day) const {
        const SourceDefinition& source = *sources_.quotes;
        return source.FormOf(Capability::Quotes).reader == ReplyReader::Rows &&
               !IsOver(*source.zone, day, EpochOf(session_.clock));
    }

    // The newest day that is over: for the table, for Import.Txt, and those between it and the stored ones.
    void TakeNewest(std::size_t row, const std::string& ticker, const StoredEnd& end,
                    const std::vector<SourceBar>& over, bool isShown) {
        const SourceBar& newest = over.back();
        // A source that is behind the stored days has nothing to show.
        if (end.day && newest.day < *end.day) return;
        const std::optional<double> before =
            over.size() > 1 ? std::optional(over[over.size() - 2].close) : ClosesBefore(end, newest.day);
        const bool isYoung = row_.IsYoung(FormatDate(Date{newest.day}));
        row_.TakeQuote(QuoteOf(newest, before), row, isShown, &records_);
        if (!end.day || newest.day > *end.day) news_.insert(ticker);
        if (missedTaken_.insert(ticker).second) {
            KeepMissed(ticker, end, over, !isYoung);
        }
    }

    void KeepMissed(const std::string& ticker, const StoredEnd& end, const std::vector<SourceBar>& over,
                    bool withNewest) {
        MissedDays missed{ticker, {}, answers_.at(ticker).bars.splits};
        const std::size_t count = over.size() - (withNewest ? 0 : 1);
        // A ticker without history begins with its newest day.
        for (std::size_t i = end.day || withNewest ? 0 : count; i < count; ++i) {
            const bool isWanted = end.day ? over[i].day > *end.day : i + 1 == over.size();
            if (isWanted) missed.bars.push_back(over[i]);
        }
        if (!missed.bars.empty() || !missed.splits.empty()) update_.missed.push_back(std::move(missed));
    }

    static std::optional<double> ClosesBefore(const StoredEnd& end, sys_days day) {
        if (end.day && *end.day < day) return end.close;
        if (end.dayBefore && *end.dayBefore < day) return end.closeBefore;
        return std::nullopt;
    }

    LiveQuote QuoteOf(const SourceBar& bar, std::optional<double> previousClose) const {
        const int minutes = bar.minutes >= 0 ? bar.minutes : UnitedStatesClose(bar.day);
        return {Date{bar.day}, minutes, bar.open, bar.high, bar.low, bar.close, bar.volume, previousClose};
    }

    const UpdateWork& work_;
    Session& session_;
    const LiveSources& sources_;
    LiveUpdate update_;
    RowUpdate row_;
    TickerBases bases_;
    TickerStates states_;
    Answers answers_;
    std::set<std::string> unreadable_;
    std::set<std::string> missedTaken_;
    std::set<std::string> news_;  // tickers with a day behind their stored ones
    std::string records_;
};

std::vector<HistoryRecord> PricedRecords(const std::vector<SourceBar>& bars) {
    std::vector<HistoryRecord> records;
    for (const SourceBar& bar : bars) {
        records.push_back(RecordOfBar(bar));
        if (!(records.back().HistoryClose > 0)) records.pop_back();
    }
    return records;
}

}  // namespace

LiveUpdate UpdateFromSource(const UpdateWork& work) {
    const KeptTicker selected(work.session);
    BeginUpdate(work);
    LiveUpdate update = LiveRun(work).Run();
    CopySymbols(work.table, work.rows);
    work.session.run.CurrentRow = 0;
    work.session.run.TopRow = 0;
    return update;
}

Failure StoreMissedDays(const LiveSources& sources, LiveUpdate& update, std::vector<Path>& halfLines) {
    Session& session = sources.world.session;
    Failure fault;
    TickerBases bases = TickerBases::Load(session.DataFolder(), fault);
    if (fault) return fault;
    FileChange restated(ChangePlaceOf(session), "Restate for splits told by " + update.report.title);
    for (const MissedDays& missed : update.missed) {
        fault =
            ApplySplits(session, missed.ticker, missed.splits, missed.bars, bases, restated, update.applied);
        if (fault) return fault;
    }
    fault = CommitSplits(session, bases, update.applied, restated);
    if (fault) return fault;
    FileChange added(ChangePlaceOf(session), "Missed days told by " + update.report.title,
                     ChangeKeeps::UntilDone);
    const YearGrowth growth = GrowthOfRun(update.missed.size());
    std::size_t stored = 0;
    for (const MissedDays& missed : update.missed) {
        const std::vector<HistoryRecord> records = PricedRecords(missed.bars);
        fault = AddRecords(session.settings.QuoteFolder, missed.ticker, records, growth, added, halfLines);
        if (fault) break;
        stored += records.size();
    }
    if (fault) {
        fault.isHalfDone = static_cast<bool>(added.TakeBack());
        return fault;
    }
    fault = CommitBeside(session, added);
    if (!fault) update.stored = stored;
    return fault;
}

LiveSplitCheck CheckSplitsOfTable(const UpdateWork& work) {
    return CheckLiveSplits(work.live->world, *work.live->splits, DifferentTickers(work.table));
}

}  // namespace brantlow
