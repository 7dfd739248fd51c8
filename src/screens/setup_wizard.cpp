#include "screens/setup_wizard.h"

#include <algorithm>
#include <array>
#include <span>

#include "acquire/schedule/update_schedule.h"
#include "screens/control_loading.h"
#include "screens/settings_controls.h"
#include "screens/settings_store.h"
#include "shell/settings/settings_draft.h"

namespace brantlow {

namespace {

// Takes the value of an option into its line.
void TakeOption(std::string_view control, SettingsTables& next) {
    if (const OptionRow* row = FindOption(control)) SetText(next, *row->line, row->Value());
}

// A set of lines without its last marker has no end that is known, and is kept whole.
void DropLinesBehindSequences(SettingsTables& settings) {
    if (settings.NetHistLast == 0) return;
    SettingsTable kept;
    const std::size_t last = std::min(settings.NetHistLast + 1, settings.NetSettings.Size());
    for (std::size_t i = 1; i <= last; ++i) kept.Set(i, settings.NetSettings.At(i));
    settings.NetSettings = kept;
}

void RepairNumbers(SettingsTables& next) {
    for (const NumberLine line : {kQuotesPerRequest, kSourceHeader, kSourceFooter}) {
        if (TextOf(next, line).empty()) Set(next, line, line.row->fallback);
    }
}

WizardOutcome Store(std::span<const SettingsFile> files, const Path& appPath, const SettingsTables& next,
                    SettingsTables& settings) {
    WizardOutcome outcome;
    outcome.sentence = Sentence(ApplySettings(next, files, OrdinaryChange(appPath), settings));
    return outcome;
}

constexpr std::array kDataFile = {SettingsFile::Data};
constexpr std::array kSupplierFile = {SettingsFile::Net};
constexpr std::array kMarketFiles = {SettingsFile::Net, SettingsFile::Lang};

// The tables with the option taken into the net settings.
SettingsTables WithNetOption(std::string_view option, const SettingsTables& settings) {
    SettingsTables next = settings;
    TakeOption(option, next);
    DropLinesBehindSequences(next);
    RepairNumbers(next);
    return next;
}

}  // namespace

void WizardDriver::Next() {
    if (step_ && *step_ < kWizardSteps.size()) ++*step_;
}

void WizardDriver::Back() {
    if (step_ && *step_ > 1) --*step_;
}

WizardOutcome SaveQuoteSupplier(std::string_view option, const Path& appPath, SettingsTables& settings) {
    return Store(kSupplierFile, appPath, WithNetOption(option, settings), settings);
}

WizardOutcome SaveMarketAndContent(std::string_view option, std::optional<std::size_t> market,
                                   const Path& appPath, SettingsTables& settings) {
    SettingsTables next = WithNetOption(option, settings);
    if (market) ChooseMarket(*market, next);
    return Store(kMarketFiles, appPath, next, settings);
}

WizardOutcome SaveDatabasePlace(const std::optional<std::string>& folder, const Path& appPath,
                                SettingsTables& settings) {
    SettingsTables next = settings;
    SetDatabasePlace(folder, appPath, next);
    return Store(kDataFile, appPath, next, settings);
}

WizardOutcome SaveDailyRun(bool on, std::string_view hour, std::string_view minute, const Path& appPath,
                           SettingsTables& settings) {
    if (on && (hour.empty() || minute.empty())) return {std::string(kWizardNeedsTime), true, false};
    SettingsTables next = settings;
    const bool turnedOn = on && TurnOnDailyRun(hour, minute, next);
    Set(next, kCollection, on ? DataCollection::Daily : DataCollection::Never);
    Set(next, kCollectionHour, hour);
    Set(next, kCollectionMinute, minute);
    WizardOutcome outcome = Store(kDataFile, appPath, next, settings);
    outcome.openScheduler = turnedOn && outcome.sentence.empty();
    return outcome;
}

}  // namespace brantlow
