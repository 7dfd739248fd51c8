// The setup wizard without its windows: which of its six forms is to be shown, and what Next writes on each.
// Every step writes its file at once, so leaving the wizard half-way keeps what was done. What the forms show
// comes from the controls of the settings dialog (control_loading.h). frmSetupWizard shows the forms.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/files.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

inline constexpr std::string_view kWizardTitle = "Cadrel' Setup Wizard";
inline constexpr std::string_view kWizardHead = "Brantlow Setup Wizard";

struct WizardStep {
    std::string_view form;
    std::string_view head;
};

inline constexpr std::array<WizardStep, 6> kWizardSteps = {{
    {"frmSetupWizard1", "Step 1:                                                    Overview"},
    {"frmSetupWizard2", "Step 2:                                                Quote Supplier"},
    {"frmSetupWizard3", "Step 3:                                  Yahoo Market and Web Content"},
    {"frmSetupWizard4", "Step 4:                                                      LAN Settings"},
    {"frmSetupWizard5", "Step 5:                                Automatic Quote Database Updates"},
    {"frmSetupWizard6", "Step 6:                                            Basic Setup Complete"},
}};

// The ways to a first table and its chart, as the welcome page has them.
enum class StartWay { PracticeTable, List, File };

// Which of the steps, numbered from 1, is shown.
class WizardDriver {
  public:
    // At the first step.
    void Start() { step_ = 1; }
    // The step that is to be shown; nothing while the wizard is not running.
    std::optional<std::size_t> StepToShow() const { return step_; }
    // From the step that is shown to its neighbour; past either end nothing moves.
    void Next();
    void Back();
    // The last step is done, or the wizard was left half-way.
    void End() { step_.reset(); }

  private:
    std::optional<std::size_t> step_;
};

// What Next leads to on a form that writes.
struct WizardOutcome {
    std::string sentence;        // what the person is to be told; empty for nothing
    bool stays = false;          // the form stays as it is
    bool openScheduler = false;  // the daily run was turned on: its start is to be scheduled
};

// Step 2, with the option chosen, "Option7" or "Option8". Lines behind the last sequence are dropped, and
// the numbers of a supplier's format that are empty get their defaults; all other lines stay.
WizardOutcome SaveQuoteSupplier(std::string_view option, const Path& appPath, SettingsTables& settings);

// Step 3, with "Option1" or "Option22" and an index of kMarkets; without one the market's address stays.
WizardOutcome SaveMarketAndContent(std::string_view option, std::optional<std::size_t> market,
                                   const Path& appPath, SettingsTables& settings);

// Step 4: the quote database lies in `folder`, or, without one, in its own place in the application folder.
WizardOutcome SaveDatabasePlace(const std::optional<std::string>& folder, const Path& appPath,
                                SettingsTables& settings);

inline constexpr std::string_view kWizardNeedsTime =
    "You must select a time. Please enter the time you want Brantlow to begin collecting data.";

// Step 5: the daily run with its hour and minute, two digits each. A run without a time stays on the form.
WizardOutcome SaveDailyRun(bool on, std::string_view hour, std::string_view minute, const Path& appPath,
                           SettingsTables& settings);

}  // namespace brantlow
