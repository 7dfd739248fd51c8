// Histories from the live source that is chosen for them, for everyone who asks for a history without naming
// a source: adding a ticker, a chart without data, populating from the window.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "acquire/feeds/history_download.h"

namespace brantlow {

// Nothing where the standard source serves. A choice that does not hold is told to the session's person. The
// history is a part of the caller's change.
std::optional<HistoryDownload> DownloadFromChosen(Session& session, Web& web, const std::string& ticker,
                                                  FileChange& change);
// All histories are a change of their own; the settings that name the years go with them where they are to
// be stored.
std::optional<PopulateRun> PopulateFromChosen(Session& session, Web& web,
                                              const std::vector<std::string>& tickers, Years years);

}  // namespace brantlow
