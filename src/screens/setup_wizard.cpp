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

constexpr std::string_view kTrue = "True";
constexpr std::string_view kFalse = "False";

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
    outcome.sentence = CannotBeSaved(ApplySettings(next, files, OrdinaryChange(appPath), settings));
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

void WizardDriver::Start() {
    WizardRunning_ = kTrue;
    flags_.fill("");
    flags_.front() = kFalse;
}

std::optional<std::size_t> WizardDriver::StepToShow() const {
    if (WizardRunning_ != kTrue) return std::nullopt;
    const auto shown = std::find(flags_.begin(), flags_.end(), kFalse);
    if (shown == flags_.end()) return std::nullopt;
    return static_cast<std::size_t>(shown - flags_.begin()) + 1;
}

void WizardDriver::GoTo(std::size_t step) {
    const std::optional<std::size_t> shown = StepToShow();
    if (!shown || step < 1 || step > flags_.size()) return;
    flags_[*shown - 1] = kTrue;
    flags_[step - 1] = kFalse;
}

void WizardDriver::Next() {
    GoTo(StepToShow().value_or(0) + 1);
}

void WizardDriver::Back() {
    GoTo(StepToShow().value_or(1) - 1);
}

void WizardDriver::Finish() {
    flags_.back() = kTrue;
    WizardRunning_ = kFalse;
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
