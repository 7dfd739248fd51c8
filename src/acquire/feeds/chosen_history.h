// Histories from the live source that is chosen for them, for everyone who asks for a history without naming
// a source: adding a ticker, a chart without data, populating from the window.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "acquire/feeds/history_download.h"

namespace brantlow {

// Nothing where the standard source serves. A choice that does not hold is told to the session's person.
std::optional<HistoryDownload> DownloadFromChosen(Session& session, const std::string& ticker);
std::optional<PopulateRun> PopulateFromChosen(Session& session, const std::vector<std::string>& tickers);

}  // namespace brantlow
