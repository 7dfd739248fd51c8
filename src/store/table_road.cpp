#include "store/table_road.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

#include "base/text.h"
#include "shell/recent_files.h"
#include "shell/settings/settings_draft.h"
#include "shell/status_words.h"
#include "store/file_names.h"
#include "store/table_edit.h"

namespace brantlow {

namespace {

struct RoadRow {
    OpeningRoad road;
    std::string_view filter;
};

// The words of the fundamentals' filter are those of the evaluations; only the pattern differs.
constexpr std::array<RoadRow, 3> kRoads = {
    {{OpeningRoad::EndOfDay, "EOD Detailed Quote Files (*.ddq)|*.ddq"},
     {OpeningRoad::Evaluation, "Data Base Evaluation Files (*.dbe)|*.dbe"},
     {OpeningRoad::ExtendedFundamental, "Data Base Evaluation Files (*.efq)|*.efq"}}};

std::string FilterOf(OpeningRoad road) {
    for (const RoadRow& row : kRoads) {
        if (row.road == road) return std::string(row.filter);
    }
    return {};
}

}  // namespace

FileQuestion OpeningQuestion(const Session& session, OpeningRoad road) {
    return {"Open", session.DataFolder(), "", FilterOf(road), false};
}

namespace {

bool TakesPickedFile(const Session& session, OpeningRoad road) {
    return road == OpeningRoad::EndOfDay && session.OpenWithoutDialog && !session.PickedFile.empty();
}

// Asks for a file below Data/; empty when the person cancelled or chose one outside, which is told.
std::string AskCurrentFile(Session& session, const FileQuestion& question, const TableWindows& windows) {
    const Path chosen = windows.askFile(question);
    if (chosen.empty()) return {};
    const ChosenFile file = CutCurrentFile(session.AppPath, chosen);
    if (!file.refusal.empty()) session.person.Say(file.refusal);
    return file.CurrentFile;
}

// The name kept from an earlier session, empty when it leads out of Data/, which is told.
std::string PickedName(Session& session) {
    const ChosenFile file = CutCurrentFile(session.AppPath, session.DataFile(session.PickedFile));
    if (file.refusal.empty()) return session.PickedFile;
    session.person.Say(file.refusal);
    return {};
}

std::string NameToOpen(Session& session, OpeningRoad road, const TableWindows& windows) {
    if (road == OpeningRoad::NewTable) return std::string(kNewTableName);
    if (TakesPickedFile(session, road)) return PickedName(session);
    return AskCurrentFile(session, OpeningQuestion(session, road), windows);
}

void ForgetTable(Session& session, const TableWindows& windows) {
    windows.CheckActivefrm();
    session.CurrentFile.clear();
    session.CurrentTicker.clear();
}

std::string SaveFailure(const std::string& name, const std::error_code& error) {
    if (error == std::errc::operation_not_permitted)
        return name + ": the template of new files is never written";
    return CannotBeSaved(name, error);
}

// Writes the open table to CurrentFile; a failure is told.
bool WriteOpenTable(Session& session, const TableWindows& windows) {
    QuoteTable* const table = windows.openTable();
    if (!table) return false;
    session.person.ShowStatusWord(kStatusSaving);
    std::error_code error;
    const auto save = [&] { error = SaveOpenTable(session, *table); };
    if (windows.saving) {
        windows.saving(*table, save);
    } else {
        save();
    }
    session.person.ShowStatusWord(kStatusComplete);
    if (error == std::errc::operation_canceled) return false;
    if (error) {
        session.person.Say(SaveFailure(session.CurrentFile, error));
        return false;
    }
    if (KindOf(session.CurrentFile) == FileKind::Ddq) SaveRecentFiles(session);
    return true;
}

// Asks for a name and saves under it; the old name stands when that fails.
void SaveUnderNewName(Session& session, const FileQuestion& question, const TableWindows& windows) {
    const std::string name = AskCurrentFile(session, question, windows);
    if (name.empty()) return;
    const std::string oldName = std::exchange(session.CurrentFile, name);
    if (!WriteOpenTable(session, windows)) session.CurrentFile = oldName;
    windows.nameChanged();
}

}  // namespace

void OpenTableFile(Session& session, OpeningRoad road, const TableWindows& windows) {
    session.person.ShowStatusWord(kStatusOpening);
    ForgetTable(session, windows);
    session.CurrentFile = NameToOpen(session, road, windows);
    if (session.CurrentFile.empty() || !ShowCurrentFile(session, windows)) {
        session.person.ShowStatusWord(kStatusComplete);
    }
    session.OpenWithoutDialog = false;
}

bool ShowCurrentFile(Session& session, const TableWindows& windows) {
    session.ProgressAlways = true;
    session.run.ProgressLastShown = 0;
    const TableLoad load = windows.loadQuoteForm();
    session.ProgressAlways = false;
    const std::string sentence = TableLoadSentence(load, session.CurrentFile);
    const QuoteTable* table = load.Done() ? windows.openTable() : nullptr;
    if (table) {
        session.CurrentTicker = table->Ticker(1);
        session.person.ShowTickerCount(table->TickerCount());
        session.person.ShowStatusWord(kStatusComplete);
        windows.showQuoteForm();
        if (KindOf(session.CurrentFile) == FileKind::Ddq) {
            UpdateRecentFiles(session.CurrentFile, session.settings.MruSettings);
        }
    } else {
        ForgetTable(session, windows);
    }
    if (!sentence.empty()) session.person.Say(sentence);
    return table != nullptr;
}

void CloseTableFile(Session& session, const TableWindows& windows) {
    if (!windows.openTable()) return;
    const FileKind kind = KindOf(session.CurrentFile);
    if (kind == FileKind::Db && session.person.Ask("Do you want to save the new file?", "Save New File?")) {
        SaveTableFileAs(session, windows);
        return;
    }
    if (kind == FileKind::Ddq) SaveRecentFiles(session);
    session.person.ShowStatusWord(kStatusComplete);
    ForgetTable(session, windows);
}

void SaveTableFile(Session& session, const TableWindows& windows) {
    const FileKind kind = KindOf(session.CurrentFile);
    if (!windows.openTable() || kind == FileKind::None) return;
    if (kind == FileKind::Ddq) {
        WriteOpenTable(session, windows);
        windows.nameChanged();
        return;
    }
    SaveUnderNewName(
        session,
        {"Save", session.DataFolder(), SaveName(session.CurrentFile), std::string(SaveFilter(kind)), true},
        windows);
}

void SaveTableFileAs(Session& session, const TableWindows& windows) {
    const FileKind kind = KindOf(session.CurrentFile);
    if (!windows.openTable() || kind == FileKind::None) return;
    SaveUnderNewName(session,
                     {"Save As", session.DataFolder(), SaveAsName(session.CurrentFile, session.clock.Today()),
                      std::string(SaveFilter(kind)), true},
                     windows);
}

void SaveRecentFiles(Session& session) {
    SettingsTables draft = session.settings;
    if (KindOf(session.CurrentFile) == FileKind::Ddq)
        UpdateRecentFiles(session.CurrentFile, draft.MruSettings);
    const Failure failure =
        ApplySettings(draft, SettingsFile::Mru, OrdinaryChange(session.AppPath), session.settings);
    if (failure) session.person.Say(Sentence(failure));
}

std::vector<std::string> TablesToGoOnWith(const Session& session, std::string_view lastClosed) {
    std::vector<std::string> tables;
    const auto offer = [&](const std::string& name) {
        const bool isNew = std::find(tables.begin(), tables.end(), name) == tables.end();
        if (!name.empty() && isNew && KindOf(name) != FileKind::Db && IsRegularFile(session.DataFile(name)))
            tables.push_back(name);
    };
    offer(std::string(lastClosed));
    for (const std::string& name : RecentFiles(session.settings)) offer(name);
    return tables;
}

bool NamesUnmadeTable(const Session& session) {
    const std::string& newest = TextOf(session.settings, kRecentFile1);
    std::error_code error;
    return newest == kRecentFile1.row->standard &&
           !std::filesystem::exists(session.DataFile(newest), error) && !error;
}

std::size_t FindTickerRow(const QuoteTable& table, std::string_view typed) {
    const std::string wanted = UpperCase(typed);
    for (std::size_t row = 1; row < table.RowCount(); ++row) {
        if (table.Ticker(row).starts_with(wanted)) return row;
    }
    return 0;
}

}  // namespace brantlow
