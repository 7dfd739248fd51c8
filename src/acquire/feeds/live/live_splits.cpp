#include "acquire/feeds/live/live_splits.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <unordered_map>

#include "acquire/feeds/live/bar_store.h"
#include "base/numbers.h"
#include "base/text.h"
#include "shell/session_change.h"
#include "store/hand_drawings.h"
#include "store/year_files.h"
#include "store/year_growth.h"

namespace brantlow {

namespace {

using std::chrono::days;
using std::chrono::sys_days;

constexpr days kLongestLook{365};
// How far a history of unknown origin is looked at.
constexpr days kUnknownLook{30};

struct Neighbours {
    double before = 0;  // the close of the last day before the split
    double after = 0;   // the close of the first day of the split or behind it
};

Failure ClosesAround(const std::vector<Path>& files, sys_days splitDay, const FileChange& change,
                     Neighbours& closes) {
    sys_days last{};
    sys_days first = sys_days::max();
    for (const Path& file : files) {
        const ReadResult read = ReadWholeFile(change.Where(file));
        if (read.outcome == ReadOutcome::Failed) return FailedTo(FailureKind::Read, file, read.error);
        LineReader reader(WithoutHalfLine(read.bytes));
        for (std::string_view line; reader.Next(line);) {
            const HistoryRecord record = ParseHistoryLine(line);
            const auto date = ParseDate(record.HistoryDate);
            if (!date || !(record.HistoryClose > 0)) continue;
            const sys_days day{*date};
            if (day < splitDay && day >= last) {
                last = day;
                closes.before = record.HistoryClose;
            } else if (day >= splitDay && day < first) {
                first = day;
                closes.after = record.HistoryClose;
            }
        }
    }
    return {};
}

// Whether the factor takes the jump at the split's day away. Without a day behind it there is no telling.
bool FitsJump(const Neighbours& closes, double factor) {
    const auto ratio = Divide(closes.after, closes.before);
    if (!ratio || !(*ratio > 0)) return false;
    return std::abs(std::log(*ratio * factor)) < std::abs(std::log(*ratio));
}

// Small dividends in shares leave no jump that could be told from a day's trade.
bool IsPlainJump(double factor) {
    constexpr double kPlain = 1.2;
    return factor >= kPlain || factor <= 1 / kPlain;
}

bool IsWanted(const TickerBasis* basis, const SourceSplit& split, const Neighbours& closes) {
    if (basis == nullptr) return FitsJump(closes, split.factor);
    const auto& restated = basis->restated;
    if (split.day <= basis->through) return false;
    if (std::find(restated.begin(), restated.end(), split.day) != restated.end()) return false;
    // Days behind the split show whether its jump is there.
    return !(closes.after > 0) || !IsPlainJump(split.factor) || FitsJump(closes, split.factor);
}

void Remember(const std::string& ticker, const SourceSplit& split, TickerBases& bases) {
    const TickerBasis* known = bases.Find(ticker);
    if (known == nullptr) return;
    TickerBasis basis = *known;
    basis.restated.push_back(split.day);
    bases.Set(ticker, std::move(basis));
}

// The first day of which a split may be missing.
sys_days LookFrom(const std::vector<std::string>& tickers, const TickerBases& bases, sys_days today) {
    sys_days from = today;
    for (const std::string& ticker : tickers) {
        const TickerBasis* basis = bases.Find(ticker);
        from = std::min(from, basis == nullptr ? today - kUnknownLook : basis->through + days{1});
    }
    return std::max(from, today - kLongestLook);
}

}  // namespace

Failure ApplySplits(Session& session, const std::string& ticker, std::vector<SourceSplit> splits,
                    const std::vector<SourceBar>& newBars, TickerBases& bases, FileChange& change,
                    std::vector<AppliedSplit>& applied) {
    const sys_days today{session.clock.Today()};
    std::sort(splits.begin(), splits.end(),
              [](const SourceSplit& a, const SourceSplit& b) { return a.day < b.day; });
    const auto again = [](const SourceSplit& a, const SourceSplit& b) { return a.day == b.day; };
    splits.erase(std::unique(splits.begin(), splits.end(), again), splits.end());
    Failure unread;
    const std::vector<Path> files = YearFilesOf(session.settings.QuoteFolder, ticker, &unread);
    if (unread) return unread;
    if (files.empty()) return {};
    for (const SourceSplit& split : splits) {
        if (split.day > today) continue;
        Neighbours closes;
        if (Failure fault = ClosesAround(files, split.day, change, closes)) return fault;
        const auto behind = std::find_if(newBars.begin(), newBars.end(),
                                         [&](const SourceBar& bar) { return bar.day >= split.day; });
        if (!(closes.after > 0) && behind != newBars.end()) closes.after = behind->close;
        if (!(closes.before > 0) || !IsWanted(bases.Find(ticker), split, closes)) continue;
        if (Failure fault =
                PrepareRestatedDrawings(session.DataFolder(), ticker, Date{split.day}, split.factor, change))
            return fault;
        const Restatement done = RestateHistory(files, split.day, split.factor, change);
        if (done.fault) return done.fault;
        Remember(ticker, split, bases);
        applied.push_back({ticker, split, done.days, done.halfLines});
    }
    return {};
}

Failure CommitSplits(Session& session, const TickerBases& bases, const std::vector<AppliedSplit>& applied,
                     FileChange& change) {
    if (applied.empty()) return {};
    const Path file = session.DataFolder() / kSourceSplitsName;
    std::string log;
    if (Failure failure = ReadIfThere(file, log)) return failure;
    for (const AppliedSplit& row : applied) {
        log += fmt::format("{} {} {} {}\r\n", FormatIsoDate(Date{row.split.day}), row.ticker,
                           ShortestNumber(row.split.factor), row.days);
    }
    if (const Failure fault = change.Write(file, log)) return fault;
    if (const Failure fault = bases.Save(session.DataFolder(), change)) return fault;
    return CommitBeside(session, change);
}

LiveSplitCheck CheckLiveSplits(SourceWorld& world, const SourceDefinition& source,
                               const std::vector<std::string>& tickers) {
    LiveSplitCheck check;
    Session& session = world.session;
    TickerBases bases = TickerBases::Load(session.DataFolder(), check.fault);
    if (check.fault || tickers.empty()) return check;
    const sys_days today{session.clock.Today()};
    const sys_days from = LookFrom(tickers, bases, today);
    if (from > today) return check;
    SourceClient client(world, source);
    const SourceReply reply = client.Ask({Capability::Splits, {}, from, today});
    check.outcome = reply.outcome;
    if (!check.outcome.Done()) return check;
    check.told = reply.splits.size();
    std::unordered_map<std::string, std::vector<SourceSplit>> byTicker;
    for (const SourceSplit& split : reply.splits) {
        if (const auto ticker = ReadSymbol(source.notation, split.symbol)) byTicker[*ticker].push_back(split);
    }
    FileChange change(ChangePlaceOf(session), "Restate for splits told by " + source.title);
    for (const std::string& ticker : tickers) {
        const auto found = byTicker.find(ticker);
        if (found == byTicker.end()) continue;
        check.fault = ApplySplits(session, ticker, found->second, {}, bases, change, check.applied);
        if (check.fault) return check;
    }
    check.fault = CommitSplits(session, bases, check.applied, change);
    return check;
}

std::string SplitSentence(const AppliedSplit& applied) {
    constexpr double kWhole = 1;
    const double factor = applied.split.factor;
    const std::string shares = factor >= kWhole
                                   ? fmt::format("{} for 1", ShortestNumber(factor))
                                   : fmt::format("1 for {}", ShortestNumber(RoundDecimals(1 / factor, 6)));
    const std::string halfLines = HalfLineWords(applied.halfLines);
    return fmt::format("{}: split {} on {}, {} days restated{}{}", applied.ticker, shares,
                       FormatIsoDate(Date{applied.split.day}), applied.days, halfLines.empty() ? "" : ", ",
                       halfLines);
}

std::vector<std::string> StoredTickers(const std::string& quoteFolder, Failure& failure) {
    std::set<std::string> tickers;
    std::vector<std::string> names;
    failure = ListFiles(quoteFolder, names);
    for (const std::string& name : names) {
        const std::size_t point = name.rfind('.');
        constexpr std::size_t kYearDigits = 2;
        if (point != std::string::npos && point > 0 && name.size() == point + 1 + kYearDigits) {
            tickers.insert(name.substr(0, point));
        }
    }
    return {tickers.begin(), tickers.end()};
}

}  // namespace brantlow
