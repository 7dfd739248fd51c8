// Taking the last update back out of the quote database: the newest record of every ticker that the update
// list names goes.
#pragma once

#include <cstddef>
#include <string_view>

#include <vector>

#include "base/file_change.h"
#include "shell/session.h"

namespace brantlow {

inline constexpr std::string_view kRemoveUpdateQuestion =
    "Do you want to remove the last update from the database?";
inline constexpr std::string_view kRemoveUpdateTitle = "Remove Update?";
inline constexpr std::string_view kNoUpdateToRemove =
    "You will need to update the quote file before you can remove the last day of data.";

inline constexpr std::string_view kRemoveStopped = "Stopped; nothing was removed";

// The name of the change that can be undone.
inline constexpr std::string_view kRemoveLastUpdateChange = "Remove Last Update";

struct RemovedUpdate {
    bool hasList = false;              // false: there is no update list, nothing was changed
    std::size_t removed = 0;           // records
    bool stopped = false;              // by the person: nothing was changed
    std::vector<Path> halfLines = {};  // files whose last record was a line that had been cut off
    Failure error;  // the first file that could not be read or written; nothing was changed
};

// Removes the last record of this year's file of each ticker of the list, whatever its date; a file of one
// record goes with it. The list stays: a second call removes a further day. No more than 1,000 records of a
// file are looked at, and what lies behind them is lost with the last. All files are one change
// that can be undone: none is written where one of them cannot be. Progress goes to the session's person.
RemovedUpdate RemoveLastUpdate(Session& session);

}  // namespace brantlow
