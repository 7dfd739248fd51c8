// The settings dialog without its window: what each of its controls shows, what a click does to the others,
// and what Apply and Default write. frmApplicationSettings shows these controls and passes clicks on.
#pragma once

#include <string>
#include <string_view>

#include "acquire/web/hosts.h"
#include "screens/settings_controls.h"
#include "shell/session.h"
#include "shell/settings/settings_draft.h"

namespace brantlow {

// What Apply or Default leads to.
struct SettingsOutcome {
    std::string sentence;         // why a file could not be written; empty when all were
    bool openScheduler = false;   // the daily run was turned on: its start is to be scheduled
    bool rebuildColumns = false;  // the open quote table is to show other columns
};

class ApplicationSettings {
  public:
    // Both outlive the object. Load comes first.
    ApplicationSettings(Session& session, const Hosts& hosts) : session_(session), hosts_(hosts) {}

    // Reads the files of all tabs afresh, into the session's tables, and sets every control by them: the
    // dialog's load and, after Default, RefreshApplicationSettings. The conditions that can be chosen are
    // those that the session has loaded.
    void Load();

    // Shows the daily run as the session's tables have it by now; all else stays as it was entered.
    void ShowDailyRun();

    // The control of this name; one that is usable and empty where no rule and no setting knows the name.
    const SettingsControl& Control(std::string_view name) const;

    // What a person should know of the choices made so far, by the label that shows it (kTimeNote and the
    // other two); empty where there is nothing to tell.
    std::string_view Note(std::string_view label) const;

    // A click on an option or a check box, or an entry in a text box or drop-down list. What a rule disables
    // stays as it is.
    void Choose(std::string_view option);
    void Check(std::string_view check, bool on);
    void SetText(std::string_view control, std::string_view text);

    // An arrow moves entry `item` (0 the first) of the list that it leads from to the end of the other. A
    // seventh chart variable is refused with a message. True when something moved.
    bool Move(std::string_view arrow, std::size_t item);

    // Writes the file or files of one tab from its controls and reads them back; other tabs keep what was
    // entered and not saved. When a file cannot be written, all stay as they were, on the disk and in memory.
    SettingsOutcome Apply(SettingsTab tab);
    // Writes the defaults of one tab, reads them back and sets the controls of all tabs by the files. What
    // they replace is kept for undoing.
    SettingsOutcome Default(SettingsTab tab);

  private:
    SettingsOutcome Store(SettingsTab tab, const SettingsTables& next, const SettingsChange& change);
    bool Select(const ListRow& row, std::size_t item);
    bool Return(const ListRow& row, std::size_t item);

    Session& session_;
    const Hosts& hosts_;
    SettingsControls controls_;
};

}  // namespace brantlow
