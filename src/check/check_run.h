// The check of everything that the application folder and the quote database hold, and the repair of what
// can be repaired without guessing. brantlow-batch check and the window frmCheckDatabase are its faces.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "base/file_change.h"
#include "check/finding.h"
#include "shell/session.h"

namespace brantlow {

// The name of the change that a repair is, which can be undone.
inline constexpr std::string_view kRepairChange = "Repair of the Database";

enum class CheckMode { Look, Repair };

struct CheckReport {
    std::vector<Finding> findings;  // settings, tables and lists first, then the histories by ticker
    std::size_t files = 0;          // that were looked at
    std::size_t repaired = 0;       // files that are other than before
    std::vector<Path> repairedFiles;
    Failure fault;  // a repair that could not be carried out
    bool stopped = false;

    // Faults that stay, and notes.
    std::size_t Faults() const;
    std::size_t Notes() const;
    // Faults of which `mend` is true.
    std::size_t Count(Mend mend) const;
};

// Looks at all files; repairs what it can as one change that can be undone. The run shows its progress to the
// session's person and ends when the run is stopped; a run that was stopped repairs nothing. To be called
// under the folder's lock for a repair, once the settings are loaded.
CheckReport CheckDatabase(Session& session, CheckMode mode);

// "3 faults and 2 notes in 172 files, 1 of them can be repaired".
std::string CheckSentence(const CheckReport& report);

}  // namespace brantlow
