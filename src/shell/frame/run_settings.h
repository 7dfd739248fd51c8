// The commands of the main frame that go by settings files: each is refused, with a sentence that names the
// file, while one of its files is there and cannot be read.
#pragma once

#include <algorithm>
#include <array>
#include <string_view>

#include "shell/run_report.h"
#include "shell/session.h"
#include "shell/settings/settings_needs.h"

namespace brantlow {

struct RunSettings {
    std::string_view command;
    SettingsNeeds needs;
};

inline constexpr std::array kRunSettings = {
    RunSettings{"mnuEvaluatePickStocks", kSelectorRunSettings},
    RunSettings{"mnuEvaluateStudy", kConditionSettings},
    RunSettings{"mnuViewExplain", kConditionSettings},
    RunSettings{"mnuFileUpdateQuotes", kDownloadSettings},
    RunSettings{"mnuFilePopulate", kDownloadSettings},
    RunSettings{"mnuExtendedFundamentals", kDownloadSettings},
    RunSettings{"FundamentalData", kDownloadSettings},
    RunSettings{"CmdAdd", kDownloadSettings},
    RunSettings{"mnuFileImportQuotes", kExchangeSettings},
    RunSettings{"mnuFileImportHistory", kChangeSettings},
    RunSettings{"mnuFileExportQuotes", kExchangeSettings},
    RunSettings{"mnuEditSplitAdjustment", kChangeSettings},
    RunSettings{"mnuPopUpSplitAdjustmentMakeAdjustment", kChangeSettings},
    RunSettings{"mnuEditCombineQuoteFiles", kChangeSettings},
    RunSettings{"mnuEditRemoveLastUpdate", kChangeSettings},
    RunSettings{"mnuEditBackUpProgramFiles", kDatabaseSettings},
    RunSettings{"mnuEditBackUpQuoteDatabase", kDatabaseSettings},
    RunSettings{"mnuEditRestoreProgramFiles", kChangeSettings},
    RunSettings{"mnuEditRestoreQuoteDatabase", kChangeSettings},
};

// Nothing for a command that goes by none.
inline SettingsNeeds NeedsOf(std::string_view command) {
    const auto row = std::find_if(kRunSettings.begin(), kRunSettings.end(),
                                  [&](const RunSettings& r) { return r.command == command; });
    return row == kRunSettings.end() ? SettingsNeeds{} : row->needs;
}

// What the start of the program tells of settings files that are there and cannot be read; nobody's report,
// without a What, when there is no such file. It is for the status bar: a box would hold up a start that
// nobody attends.
RunReport StartReport(const Session& session);

}  // namespace brantlow
