#include "shell/settings/choices.h"

#include "base/file_change.h"
#include "shell/settings/lines.h"

namespace brantlow {

bool SavesTable(const SettingsTables& tables) {
    return Get(tables, kSavesTable);
}

bool StoresInDatabase(const SettingsTables& tables) {
    return Get(tables, kStoresInDatabase);
}

bool RunsSelector(const SettingsTables& tables) {
    return Get(tables, kRunsSelector);
}

bool AdjustsSplits(const SettingsTables& tables) {
    return Get(tables, kAdjustsSplits);
}

bool SendsAlerts(const SettingsTables& tables) {
    return Get(tables, kSendsAlerts);
}

bool ChecksForUpdates(const SettingsTables& tables) {
    return Get(tables, kChecksForUpdates);
}

bool FetchesHistory(const SettingsTables& tables) {
    return !TextOf(tables, kHistoryYears).empty();
}

bool UsesUserSource(const SettingsTables& tables) {
    return Known(tables, kQuoteSource) == SourceChoice::User;
}

bool KeepsHistoryOnFailure(const SettingsTables& tables) {
    return Get(tables, kKeepsHistory);
}

UndoLimits UndoLimitsOf(const SettingsTables& tables) {
    constexpr std::uintmax_t kBytesOfMegabyte = 1024 * 1024;
    return {static_cast<std::size_t>(Get(tables, kUndoChanges)),
            static_cast<std::uintmax_t>(Get(tables, kUndoMegabytes)) * kBytesOfMegabyte};
}

}  // namespace brantlow
