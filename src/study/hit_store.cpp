#include "study/hit_store.h"

#include <bit>
#include <memory>

#include "base/numbers.h"
#include "indicators/series_pipeline.h"
#include "selector/test_running.h"
#include "selector/test_table.h"

namespace brantlow {

namespace {

constexpr std::size_t kWordBits = 64;

void SetBit(std::vector<std::uint64_t>& bits, std::size_t i) {
    bits[i / kWordBits] |= std::uint64_t{1} << (i % kWordBits);
}

std::size_t CountOf(const std::vector<std::uint64_t>& bits) {
    std::size_t count = 0;
    for (const std::uint64_t word : bits) count += static_cast<std::size_t>(std::popcount(word));
    return count;
}

}  // namespace

void HitStore::Begin(std::size_t tickers) {
    words_ = (tickers + kWordBits - 1) / kWordBits;
    taken_ = 0;
    names_.assign(NamedTests().size(), {Nothing(), Nothing()});
    for (std::vector<SlotValue>& values : values_) {
        values.clear();
        values.reserve(tickers);
    }
}

void HitStore::Take(const Analysis& analysis) {
    const bool evaluated = HasBarsToEvaluate(analysis.series);
    const std::size_t bar = analysis.series.LastBar;
    const AnalysisBars bars(analysis);
    for (std::size_t i = 0; i < names_.size() && evaluated; ++i) {
        const TestState state = RunNamedTestOver(NamedTests()[i].test, bars, bar);
        if (state == TestState::True) SetBit(names_[i].holds, taken_);
        if (state == TestState::False) SetBit(names_[i].fails, taken_);
    }
    for (std::size_t slot = 1; slot <= kSlotCount; ++slot)
        values_[slot - 1].push_back(evaluated ? running::SlotValueAt(*FindSlot(slot), bars, bar)
                                              : SlotValue{});
    ++taken_;
}

void HitStore::TakeNothing() {
    for (std::vector<SlotValue>& values : values_) values.emplace_back();
    ++taken_;
}

HitStore::Verdicts HitStore::LineOfName(std::string_view name) const {
    const TestRow* const row = FindTestRow(name);
    if (row == nullptr || names_.empty()) return {Nothing(), Nothing()};
    return names_[static_cast<std::size_t>(row - NamedTests().data())];
}

HitStore::Verdicts HitStore::LineOfSlot(std::size_t slot, std::string_view text) const {
    Verdicts line{Nothing(), Nothing()};
    const double x = LeadingNumber(text);
    for (std::size_t i = 0; i < taken_; ++i) {
        const TestState state = JudgeSlot(values_[slot - 1][i], FindSlot(slot)->relation, x);
        if (state == TestState::True) SetBit(line.holds, i);
        if (state == TestState::False) SetBit(line.fails, i);
    }
    return line;
}

std::vector<HitStore::Verdicts> HitStore::LinesOf(const Condition& condition) const {
    std::vector<Verdicts> lines;
    for (const std::string& name : condition.names) lines.push_back(LineOfName(name));
    for (std::size_t slot = 1; slot <= kSlotCount; ++slot)
        if (!condition.slots[slot - 1].empty()) lines.push_back(LineOfSlot(slot, condition.slots[slot - 1]));
    return lines;
}

ConditionHits HitStore::Count(const Condition& condition) const {
    ConditionHits counted;
    Verdicts all{Nothing(), Nothing()};
    for (const Verdicts& line : LinesOf(condition)) {
        Bits left = Nothing();
        for (std::size_t word = 0; word < words_; ++word) {
            all.holds[word] |= line.holds[word];
            all.fails[word] |= line.fails[word];
            left[word] = all.holds[word] & ~all.fails[word];
        }
        counted.hits = CountOf(left);
        counted.lines.push_back({CountOf(line.holds), counted.hits});
    }
    return counted;
}

std::size_t HitStore::Bytes() const {
    std::size_t bytes = names_.size() * 2 * words_ * sizeof(std::uint64_t);
    for (const std::vector<SlotValue>& values : values_) bytes += values.capacity() * sizeof(SlotValue);
    return bytes;
}

bool WalkForHits(const HistorySource& source, Interval interval, const std::vector<std::string>& tickers,
                 HitStore& hits, const std::function<bool(std::size_t done)>& goOn) {
    hits.Begin(tickers.size());
    const auto analysis = std::make_unique<Analysis>();
    SeriesPipeline pipeline(source, interval, tickers, *analysis);
    while (pipeline.Next()) {
        if (pipeline.Unreadable()) {
            hits.TakeNothing();
        } else {
            hits.Take(*analysis);
        }
        if (!goOn(hits.Tickers())) return false;
    }
    return true;
}

}  // namespace brantlow
