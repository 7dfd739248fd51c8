#include "daily/fundamentals_step.h"

#include <algorithm>

#include "acquire/feeds/live/company_facts.h"

namespace brantlow {

std::optional<LiveReport> AskFundamentals(const UpdateWork& work) {
    if (work.live == nullptr || work.live->fundamentals == nullptr) return std::nullopt;
    return FillFundamentals(work.live->world, *work.live->fundamentals, work.table);
}

std::string FilledWords(const std::optional<LiveReport>& filled, std::string_view ticker) {
    if (!filled) return {};
    const auto found =
        std::find_if(filled->tickers.begin(), filled->tickers.end(),
                     [&](const LiveTicker& row) { return row.ticker == ticker && row.days > 0; });
    return found == filled->tickers.end() ? std::string() : found->outcome.words;
}

void TellFundamentals(const std::optional<LiveReport>& filled, RunReport& report) {
    if (!filled) return;
    for (const std::string& line : ReportFailures(*filled)) report.Fail("Fundamentals: " + line);
}

}  // namespace brantlow
