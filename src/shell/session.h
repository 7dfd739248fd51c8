// The session's state: what is process-wide by nature. main() owns the one Session and passes it, or the
// narrowest part that serves, by reference.
#pragma once

#include <optional>
#include <string>

#include "base/clock.h"
#include "base/files.h"
#include "shell/person.h"
#include "shell/run_control.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

struct Session {
    Session(Path appPath, const Clock& clock_, Person& person_)
        : AppPath(std::move(appPath)), clock(clock_), person(person_) {}

    Path DataFolder() const { return AppPath / "Data"; }
    Path DataFile(std::string_view name) const { return DataFolder() / Path(name); }

    // The application folder; every other folder is derived from it.
    Path AppPath;
    // The open file, relative to Data/, with its extension; empty while nothing is open.
    std::string CurrentFile;
    // Ticker of the row last selected in the quote table.
    std::string CurrentTicker;
    // Set while OpenQuotesFile takes the name from PickedFile and shows no dialog.
    bool OpenWithoutDialog = false;
    std::string PickedFile;
    // Lets the progress routine run even when CurrentFile has no known kind.
    bool ProgressAlways = false;

    // Set while a call looks back: history after this day counts as not there, and the clock stands on it.
    std::optional<Date> HistoryUpTo;

    SettingsTables settings;
    RunControl run;
    const Clock& clock;
    Person& person;
};

}  // namespace brantlow
