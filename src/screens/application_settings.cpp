#include "screens/application_settings.h"

#include <algorithm>

#include "acquire/schedule/update_schedule.h"
#include "screens/control_lines.h"
#include "screens/control_loading.h"
#include "screens/settings_store.h"
#include "shell/file_kind.h"
#include "shell/session_change.h"

namespace brantlow {

namespace {

// The files of each tab, in the order in which they are written. VTRSELset.ini and VTRMRUset.ini have other
// writers and stay as they are loaded.
struct FileOfTab {
    SettingsTab tab;
    SettingsFile file;
};
constexpr std::array kFilesOfTabs = {
    FileOfTab{SettingsTab::ImportExport, SettingsFile::ImEx},
    FileOfTab{SettingsTab::DataAutomation, SettingsFile::Data},
    FileOfTab{SettingsTab::Graphics, SettingsFile::Graph},
    FileOfTab{SettingsTab::Columns, SettingsFile::Columns},
    FileOfTab{SettingsTab::Network, SettingsFile::Net},
    FileOfTab{SettingsTab::Network, SettingsFile::Lang},
};

const ListRow* ListOfArrow(std::string_view arrow) {
    for (const ListRow& row : kListRows) {
        if (row.selectArrow == arrow || row.returnArrow == arrow) return &row;
    }
    return nullptr;
}

void Erase(std::vector<std::string>& items, std::size_t item) {
    items.erase(items.begin() + static_cast<std::ptrdiff_t>(item));
}

}  // namespace

void ApplicationSettings::Load() {
    for (const FileOfTab& row : kFilesOfTabs) {
        LoadSettingsFile(row.file, session_.AppPath, session_.settings);
    }
    controls_ = LoadControls(session_.settings, hosts_);
}

void ApplicationSettings::ShowDailyRun() {
    const SettingsControls stored = LoadControls(session_.settings, hosts_);
    for (const char* control : {"Option16", "Option36", "Combo2", "Combo3"}) {
        controls_[control] = stored.at(control);
    }
}

const SettingsControl& ApplicationSettings::Control(std::string_view name) const {
    static const SettingsControl unknown;
    const auto found = controls_.find(name);
    return found == controls_.end() ? unknown : found->second;
}

std::string_view ApplicationSettings::Note(std::string_view label) const {
    const bool noTime = Control("Combo2").text.empty() || Control("Combo3").text.empty();
    const bool noYears = std::none_of(kOptionRows.begin(), kOptionRows.end(), [this](const OptionRow& row) {
        return IsYears(row) && Control(row.control).on;
    });
    const bool fewVariables = Control("List5").items.size() < kChartSeries;
    if (label == kTimeNote.label && Control("Option16").on && noTime) return kTimeNote.words;
    if (label == kYearsNote.label && Control(kHistoryCheck).on && noYears) return kYearsNote.words;
    if (label == kVariablesNote.label && fewVariables) return kVariablesNote.words;
    return {};
}

void ApplicationSettings::Choose(std::string_view option) {
    // What is chosen already stays as it was entered: only a choice that is new presets others.
    if (!Control(option).enabled || Control(option).on) return;
    const bool isMarket = std::any_of(kMarkets.begin(), kMarkets.end(),
                                      [&](const MarketRow& market) { return market.control == option; });
    if (isMarket) {
        for (const MarketRow& market : kMarkets) controls_[market.control].on = market.control == option;
    } else if (const OptionRow* row = FindOption(option)) {
        TurnOn(*row, controls_);
        ApplyPresets(option, controls_);
    }
    ApplyEnabling(controls_);
}

void ApplicationSettings::Check(std::string_view check, bool on) {
    const auto found = controls_.find(check);
    if (found == controls_.end() || !found->second.enabled) return;
    found->second.on = on;
    if (check == kHistoryCheck && on) ChooseNoYears(controls_);
    ApplyEnabling(controls_);
}

void ApplicationSettings::SetText(std::string_view control, std::string_view text) {
    const auto found = controls_.find(control);
    if (found != controls_.end() && found->second.enabled) found->second.text = text;
}

bool ApplicationSettings::Move(std::string_view arrow, std::size_t item) {
    const ListRow* row = ListOfArrow(arrow);
    if (row == nullptr || !Control(arrow).enabled) return false;
    return row->selectArrow == arrow ? Select(*row, item) : Return(*row, item);
}

bool ApplicationSettings::Select(const ListRow& row, std::size_t item) {
    std::vector<std::string>& selected = controls_[row.selected].items;
    std::vector<std::string>& available = controls_[row.available].items;
    if (!row.list && selected.size() >= kChartSeries) {
        session_.person.Say(kTooManyVariables);
        return false;
    }
    if (item >= available.size()) return false;
    selected.push_back(available[item]);
    if (selected.back() != kSkippedField) Erase(available, item);
    return true;
}

bool ApplicationSettings::Return(const ListRow& row, std::size_t item) {
    std::vector<std::string>& selected = controls_[row.selected].items;
    std::vector<std::string>& available = controls_[row.available].items;
    if (item >= selected.size()) return false;
    // A name that stood in the sequence twice, or the one that never left, is there already.
    if (!HasItem(available, selected[item])) available.push_back(selected[item]);
    Erase(selected, item);
    return true;
}

SettingsOutcome ApplicationSettings::Apply(SettingsTab tab) {
    const SettingsTables next =
        TablesWithControls(tab, controls_, {session_.settings, session_.AppPath, session_.clock.Today()});
    // Whether the run is new shows in the tables that are in force until then.
    SettingsTables inForce = session_.settings;
    const bool turnedOn =
        Control("Option16").on && TurnOnDailyRun(Control("Combo2").text, Control("Combo3").text, inForce);
    SettingsOutcome outcome = Store(tab, next, OrdinaryChange(session_.AppPath));
    if (tab != SettingsTab::DataAutomation || !outcome.sentence.empty()) return outcome;
    controls_["Text4"].text = Get(session_.settings, kDatabaseFolder);
    outcome.openScheduler = turnedOn;
    return outcome;
}

SettingsOutcome ApplicationSettings::Default(SettingsTab tab) {
    const SettingsTables next =
        TablesWithDefaults(tab, controls_, {session_.settings, session_.AppPath, session_.clock.Today()});
    const TabRow& row = kSettingsTabs[static_cast<std::size_t>(tab) - 1];
    const SettingsChange change{ChangePlaceOf(session_), "Default of " + std::string(row.caption)};
    const SettingsOutcome outcome = Store(tab, next, change);
    if (outcome.sentence.empty()) Load();
    return outcome;
}

SettingsOutcome ApplicationSettings::Store(SettingsTab tab, const SettingsTables& next,
                                           const SettingsChange& change) {
    std::vector<SettingsFile> files;
    for (const FileOfTab& row : kFilesOfTabs) {
        if (row.tab == tab) files.push_back(row.file);
    }
    SettingsOutcome outcome;
    outcome.sentence = Sentence(ApplySettings(next, files, change, session_.settings));
    if (!outcome.sentence.empty()) return outcome;
    outcome.rebuildColumns = tab == SettingsTab::Columns && KindOf(session_.CurrentFile) == FileKind::Ddq;
    return outcome;
}

}  // namespace brantlow
