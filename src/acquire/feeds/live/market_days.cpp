#include "acquire/feeds/live/market_days.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "shell/status_words.h"

namespace brantlow {

namespace {

using std::chrono::sys_days;

// Tickers whose days are in memory at a time.
constexpr std::size_t kTickersAtOnce = 2000;

// A number that changes with the set of tickers.
std::uint64_t HashOf(const std::vector<std::string>& tickers) {
    constexpr std::uint64_t kOffset = 14695981039346656037U;
    constexpr std::uint64_t kPrime = 1099511628211U;
    std::uint64_t hash = kOffset;
    for (const std::string& ticker : tickers) {
        for (const char c : ticker + '\n') hash = (hash ^ static_cast<unsigned char>(c)) * kPrime;
    }
    return hash;
}

std::vector<sys_days> WeekdaysBack(sys_days from, sys_days to) {
    std::vector<sys_days> days;
    for (sys_days day = to; day >= from; day -= std::chrono::days{1}) {
        if (!IsWeekend(day)) days.push_back(day);
    }
    return days;
}

void AppendBar(std::size_t place, const SourceBar& bar, std::string& out) {
    fmt::format_to(std::back_inserter(out), "{},{},{},{},{},{}\n", place, ShortestNumber(bar.open),
                   ShortestNumber(bar.high), ShortestNumber(bar.low), ShortestNumber(bar.close),
                   ShortestNumber(bar.volume));
}

// What a day's file says of a ticker; what cannot be true of it is told when its days are read again.
std::string DayLine(std::size_t place, const SourceBars& bars) {
    std::string line;
    if (!bars.refusal.empty()) return fmt::format("{},?{}\n", place, bars.refusal);
    if (bars.bars.size() > 1) return fmt::format("{},?a day has two rows for it\n", place);
    if (bars.bars.empty()) return bars.withoutPrice > 0 ? fmt::format("{},-\n", place) : line;
    AppendBar(place, bars.bars.front(), line);
    return line;
}

}  // namespace

MarketDays::MarketDays(SourceWorld& world, SourceClient& client, const std::vector<std::string>& tickers)
    : world_(world),
      client_(client),
      tickers_(tickers),
      folder_(world.session.DataFolder() / kSourceDaysFolder / client.Source().name) {
    for (std::size_t i = 0; i < tickers_.size(); ++i) {
        if (const auto symbol = SpellSymbol(client.Source().notation, tickers_[i]))
            places_.emplace(*symbol, i);
    }
    mark_ = fmt::format("days of {} tickers {:016x}", tickers_.size(), HashOf(tickers_));
}

Path MarketDays::DayFile(sys_days day) const {
    return folder_ / (FormatIsoDate(Date{day}) + ".csv");
}

bool MarketDays::HasDay(sys_days day) const {
    const ReadResult read = ReadWholeFile(DayFile(day));
    return read.outcome == ReadOutcome::Done && read.bytes.starts_with(mark_ + "\n");
}

SourceOutcome MarketDays::FetchDay(sys_days day, Failure& fault) {
    SourceReply reply = client_.Ask({Capability::Quotes, {}, day, day});
    if (!reply.outcome.Done()) return reply.outcome;
    std::string bytes = mark_ + "\n";
    for (auto& [symbol, bars] : reply.bySymbol) {
        const auto place = places_.find(symbol);
        if (place == places_.end()) continue;
        bytes += DayLine(place->second, bars);
    }
    const Path file = DayFile(day);
    if (const auto error = WriteWholeFile(file, bytes, Flush::Later))
        fault = FailedTo(FailureKind::Write, file, error);
    return {};
}

void MarketDays::ShowLeft(std::size_t done, std::size_t count) {
    Session& session = world_.session;
    session.run.ProgressFraction = static_cast<double>(done) / static_cast<double>(count);
    session.person.ShowProgress(session.run.ProgressFraction);
    ShowTimeLeft(session, client_, kStatusPopulating, count - done);
}

MarketDaysEnd MarketDays::Fetch(sys_days from, sys_days to) {
    MarketDaysEnd end;
    std::error_code error;
    std::filesystem::create_directories(folder_, error);
    if (error) {
        end.fault = FailedTo(FailureKind::Make, folder_, error);
        return end;
    }
    const sys_days newest = NewestEndedDay(*client_.Source().zone, EpochOf(world_.session.clock));
    const std::vector<sys_days> wanted = WeekdaysBack(from, std::min(to, newest));
    std::size_t done = 0;
    for (const sys_days day : wanted) {
        ShowLeft(done++, wanted.size());
        const bool isThere = HasDay(day);
        if (!isThere) end.outcome = FetchDay(day, end.fault);
        if (end.fault) return end;
        if (end.outcome.result == SourceResult::NotYetPublished) {
            end.outcome = {};
            continue;
        }
        // What the plan does not hold any more is where the history begins.
        if (end.outcome.result == SourceResult::NotInPlan && !days_.empty()) break;
        if (!end.outcome.Done()) break;
        days_.push_back(day);
    }
    const bool endsWithPlan = end.outcome.result == SourceResult::NotInPlan && !days_.empty();
    if (endsWithPlan) {
        end.unfinished = fmt::format("The days before {} are not in the plan: {}",
                                     FormatIsoDate(Date{days_.back()}), end.outcome.words);
        end.outcome = {};
    }
    if (!days_.empty() && end.outcome.Done()) end.outcome = FetchSplits(days_.back(), to);
    end.isComplete = !days_.empty() && end.outcome.Done();
    if (!end.isComplete && !wanted.empty()) {
        end.unfinished = fmt::format("{} of {} days are there; the same call goes on from them", days_.size(),
                                     wanted.size());
    }
    return end;
}

SourceOutcome MarketDays::FetchSplits(sys_days from, sys_days to) {
    if (client_.Source().Form(Capability::Splits) == nullptr) return {};
    const SourceReply reply = client_.Ask({Capability::Splits, {}, from, to});
    if (!reply.outcome.Done()) return reply.outcome;
    for (const SourceSplit& split : reply.splits) splits_[split.symbol].push_back(split);
    return {};
}

void MarketDays::ReadDay(sys_days day, std::size_t first, std::size_t end,
                         std::vector<SourceBars>& bars) const {
    const std::string bytes = BytesOrEmpty(DayFile(day));
    LineReader lines(bytes);
    std::string_view line;
    lines.Next(line);
    while (lines.Next(line)) {
        const std::vector<std::string_view> fields = SplitAt(line, ',');
        const auto place = static_cast<std::size_t>(LeadingNumber(fields.front()));
        if (place < first || place >= end || fields.size() < 2) continue;
        SourceBars& ticker = bars[place - first];
        if (fields[1].starts_with('?')) {
            ticker.Refuse(std::string(line.substr(fields.front().size() + 2)));
            continue;
        }
        if (fields[1] == "-") ++ticker.withoutPrice;
        constexpr std::size_t kFields = 6;
        if (fields.size() != kFields) continue;
        ticker.bars.push_back({day, LeadingNumber(fields[1]), LeadingNumber(fields[2]),
                               LeadingNumber(fields[3]), LeadingNumber(fields[4]), LeadingNumber(fields[5])});
    }
}

// The splits are in the prices from here on, so that what is stored stands on one basis.
void MarketDays::ForEachTicker(const TakeAnswer& take) {
    std::vector<std::string> symbols(tickers_.size());
    for (const auto& [symbol, place] : places_) symbols[place] = symbol;
    for (std::size_t first = 0; first < tickers_.size(); first += kTickersAtOnce) {
        const std::size_t end = std::min(first + kTickersAtOnce, tickers_.size());
        std::vector<SourceBars> chunk(end - first);
        for (const sys_days day : days_) ReadDay(day, first, end, chunk);
        for (std::size_t i = first; i < end; ++i) {
            TickerAnswer answer{{}, std::move(chunk[i - first])};
            const auto splits = splits_.find(symbols[i]);
            if (splits != splits_.end()) answer.bars.splits = splits->second;
            FinishBars(answer.bars, false);
            if (!answer.bars.refusal.empty()) {
                answer.outcome = {.result = SourceResult::Refused, .words = answer.bars.refusal};
            } else if (answer.bars.bars.empty()) {
                answer.outcome = {.result = SourceResult::UnknownSymbol, .words = {}};
            }
            take(tickers_[i], std::move(answer));
        }
    }
}

void MarketDays::Forget() {
    std::error_code error;
    for (const std::string& name : FileNamesIn(folder_)) DeleteOneFile(folder_ / name);
    std::filesystem::remove(folder_, error);
    std::filesystem::remove(folder_.parent_path(), error);
}

}  // namespace brantlow
