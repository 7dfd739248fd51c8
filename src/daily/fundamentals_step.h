// The step of an update that fills what no quote tells: earnings, sales, shares and dividends from the source
// that is chosen for fundamentals.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "acquire/feeds/live/live_report.h"
#include "daily/live_update.h"

namespace brantlow {

// Fills the empty cells of the open table; nothing where no such source is chosen. A company is asked for at
// most once a day.
std::optional<LiveReport> AskFundamentals(const UpdateWork& work);

// "derived from filings to 2026-06-27: EPS ttm., P/E ttm." where cells of the ticker were filled.
std::string FilledWords(const std::optional<LiveReport>& filled, std::string_view ticker);

// Takes what failed into the report of the update. That a source does not know a ticker is no failure.
void TellFundamentals(const std::optional<LiveReport>& filled, RunReport& report);

}  // namespace brantlow
