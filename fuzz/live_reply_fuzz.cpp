// Replies of the live sources that the program brings along: judged, read, and turned into records. Input: a
// byte for the source, a byte for what it is asked for, the reply.
#include <cmath>

#include "acquire/feeds/live/bar_store.h"
#include "acquire/feeds/live/error_rules.h"
#include "acquire/feeds/live/source_catalogue.h"
#include "acquire/feeds/live/source_rows.h"
#include "fuzz_session.h"

using namespace brantlow;

namespace {

const SourceCatalogue& Shipped() {
    static const SourceCatalogue catalogue = LoadSources("/nonexistent");
    return catalogue;
}

bool IsPrice(double price) {
    return std::isfinite(price) && price <= kHighestPrice;
}

void CheckBars(SourceBars& ticker) {
    FinishBars(ticker, false);
    for (const SourceBar& bar : ticker.bars) {
        Demand(IsPrice(bar.open) && IsPrice(bar.high) && IsPrice(bar.low) && IsPrice(bar.close),
               "a bar holds a price that is none");
        std::string line;
        AppendHistoryLine(RecordOfBar(bar), line);
        Demand(ParseHistoryLine(std::string_view(line).substr(0, line.size() - 2)) == RecordOfBar(bar),
               "a bar's record does not read back as itself");
    }
    AdjustBars(ticker.bars, ticker.splits);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input = BytesOf(data, size);
    const auto& sources = Shipped().sources;
    const SourceDefinition& source = sources.at(TakeByte(input) % sources.size());
    const auto capability = static_cast<Capability>(TakeByte(input) % kCapabilityNames.size());
    const CapabilityForm* form = source.Form(capability);
    if (form == nullptr) return 0;
    const bool isRead = JudgeReply(source, 200, input).Done();
    JudgeReply(source, 403, input);
    if (!isRead) return 0;
    const auto today = std::chrono::sys_days{std::chrono::year{2026} / 11 / 20};
    constexpr EpochSeconds kNow = 1'795'217'400;
    SourceReply reply;
    ReadReply({source, *form, "KO", today - std::chrono::days{400}, today, kNow}, input, reply);
    for (auto& [symbol, ticker] : reply.bySymbol) CheckBars(ticker);
    for (const SourceSplit& split : reply.splits) Demand(split.factor > 0, "a split holds no factor");
    return 0;
}
