// Backing up the program's files and the quote database to the folders that the settings name, and bringing
// them back: four commands, one routine.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "shell/run_report.h"
#include "shell/session.h"
#include "store/folder_copy.h"

namespace brantlow {

enum class BackedUp { ProgramFiles, QuoteDatabase };

struct BackUpJob {
    std::string_view command;  // the menu entry
    BackedUp what;
    bool restores;
    std::string_view title;
    std::string_view question;
};

inline constexpr std::array<BackUpJob, 4> kBackUpJobs = {{
    {"mnuEditBackUpProgramFiles", BackedUp::ProgramFiles, false, "Back Up Program Files?",
     "Do you want back up program files?"},
    {"mnuEditBackUpQuoteDatabase", BackedUp::QuoteDatabase, false, "Back Up Quote Database?",
     "Do you want back up quote database?"},
    {"mnuEditRestoreProgramFiles", BackedUp::ProgramFiles, true, "Restore Program Files?",
     "Do you want to restore program files?"},
    {"mnuEditRestoreQuoteDatabase", BackedUp::QuoteDatabase, true, "Restore Quote Database?",
     "Do you want to restore the quote database?"},
}};

// The job of `what` in this direction.
const BackUpJob& BackUpJobOf(BackedUp what, bool restores);

inline constexpr std::string_view kNoProgramBackUpFolder =
    "No folder is chosen for the back-up of the program files. Go to Settings, Application to choose one.";
inline constexpr std::string_view kNoQuoteBackUpFolder =
    "No folder is chosen for the back-up of the quote database. Go to Settings, Application to choose one.";

struct BackUpResult {
    FolderCopy copy;
    std::string refusal;  // why nothing, or not everything, was copied; else empty
    RunReport report;     // "12 files copied to ..."
};

// Copies every file of the one folder into the other; files of the same name are replaced, others stay.
// Refused while the settings name no folder for the back-up, or where there is nothing to copy. Progress goes
// to the session's person.
BackUpResult RunBackUpJob(const BackUpJob& job, Session& session);

}  // namespace brantlow
