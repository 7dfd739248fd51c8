#include "shell/frame/windows/upkeep_commands.h"

#include <QMainWindow>
#include <algorithm>

#include "base/undo_store.h"
#include "base/windows/display_text.h"
#include "base/windows/text_editor.h"
#include "check/windows/frmCheckDatabase.h"
#include "shell/frame/windows/frame_children.h"
#include "shell/frame/windows/frame_runs.h"
#include "shell/frame/windows/window_person.h"
#include "shell/run_control.h"
#include "shell/run_report.h"
#include "shell/session_change.h"
#include "shell/settings/settings_files.h"
#include "shell/status_words.h"
#include "store/back_up.h"
#include "store/combine_tables.h"
#include "store/exit_back_up.h"
#include "store/file_deletion.h"
#include "store/file_stamp.h"
#include "store/remove_update.h"
#include "store/windows/frmDeleteFile.h"
#include "store/year_growth.h"

namespace brantlow {

namespace {

constexpr const char* kQuoteFileFilter = "EOD Detailed Quote Files (*.ddq)|*.ddq";

}  // namespace

CommandRows UpkeepCommands::Rows() {
    static constexpr SubjectRow<UpkeepCommands> kRows[] = {
        {"mnuEditUndo", &UpkeepCommands::Undo},
        {"mnuEditBackUpProgramFiles", &UpkeepCommands::BackUpProgramFiles},
        {"mnuEditBackUpQuoteDatabase", &UpkeepCommands::BackUpQuoteDatabase},
        {"mnuEditRestoreProgramFiles", &UpkeepCommands::RestoreProgramFiles},
        {"mnuEditRestoreQuoteDatabase", &UpkeepCommands::RestoreQuoteDatabase},
        {"mnuEditEditQuoteFiles", &UpkeepCommands::EditQuoteFiles},
        {"mnuEditEditDatabaseFiles", &UpkeepCommands::EditDatabaseFiles},
        {"mnuEditCombineQuoteFiles", &UpkeepCommands::CombineFiles},
        {"mnuEditRemoveLastUpdate", &UpkeepCommands::RemoveUpdate},
        {"mnuEditCheckDatabase", &UpkeepCommands::ShowCheck},
        {"mnuEditDelete", &UpkeepCommands::DeleteFiles},
    };
    return RowsOf(*this, kRows);
}

void UpkeepCommands::RunBackUp(BackedUp what, bool restores) {
    const BackUpJob& job = BackUpJobOf(what, restores);
    const bool goesOn = restores ? frame_.person.AskBeforeDestroying(job.question, job.title)
                                 : frame_.person.Ask(job.question, job.title);
    if (!goesOn) return;
    if (frame_.person.InRun()) return;
    const FileStamp openTable = StampOf(OpenTableFile());
    frame_.runs.BeginWithoutTable(restores ? RunStop::TakesAllBack : RunStop::KeepsWhatIsDone);
    const BackUpResult result = RunBackUpJob(job, frame_.session);
    const bool stays = frame_.runs.End();
    frame_.person.HideProgress();
    if (!stays) return frame_.tell(result.report);
    if (!result.refusal.empty()) return frame_.person.Say(result.refusal);
    if (restores && what == BackedUp::ProgramFiles) TakeRestoredFiles(openTable);
    frame_.notice(Counted(result.copy.copied, "file copied", "files copied"));
    frame_.tell(result.report);
}

Path UpkeepCommands::OpenTableFile() const {
    return frame_.table.form() ? frame_.session.DataFile(frame_.session.CurrentFile) : Path();
}

// The settings and the open table are those of the back-up from now on.
void UpkeepCommands::TakeRestoredFiles(const FileStamp& openTable) {
    LoadAllSettings(frame_.session.AppPath, frame_.session.settings);
    frame_.showRecentFiles();
    const Path file = OpenTableFile();
    if (!file.empty() && HasChanged(openTable, file))
        frame_.table.show(std::string(frame_.session.CurrentFile));
}

void UpkeepCommands::BackUpProgramFiles() {
    RunBackUp(BackedUp::ProgramFiles, false);
}

void UpkeepCommands::BackUpQuoteDatabase() {
    RunBackUp(BackedUp::QuoteDatabase, false);
}

void UpkeepCommands::RestoreProgramFiles() {
    RunBackUp(BackedUp::ProgramFiles, true);
}

void UpkeepCommands::RestoreQuoteDatabase() {
    RunBackUp(BackedUp::QuoteDatabase, true);
}

void UpkeepCommands::RemoveUpdate() {
    if (!frame_.person.AskBeforeDestroying(kRemoveUpdateQuestion, kRemoveUpdateTitle)) return;
    if (frame_.person.InRun()) return;
    frame_.runs.BeginWithoutTable(RunStop::TakesAllBack);
    const RemovedUpdate result = RemoveLastUpdate(frame_.session);
    const bool stays = frame_.runs.End();
    frame_.person.HideProgress();
    if (!stays) return;
    if (!result.hasList) return frame_.person.Say(kNoUpdateToRemove);
    if (result.error) {
        return frame_.person.Say(ChangeSentence(kRemoveLastUpdateChange, result.error));
    }
    if (result.stopped) return frame_.notice(std::string(kRemoveStopped));
    const std::string halfLines = HalfLineWords(result.halfLines);
    frame_.notice(Counted(result.removed, "record", "records") + " removed" +
                  (halfLines.empty() ? "" : "; " + halfLines));
}

void UpkeepCommands::CombineFiles() {
    std::array<std::string, 3> names;
    const std::array<std::string_view, 3> titles = {kFirstFileTitle, kSecondFileTitle, kCombinedFileTitle};
    for (std::size_t i = 0; i < names.size(); ++i) {
        const bool isOutput = i + 1 == names.size();
        const Path chosen = frame_.askFile(
            {std::string(titles[i]), frame_.session.DataFolder(), std::string(), kQuoteFileFilter, isOutput});
        if (chosen.empty()) return;
        names[i] = BareFileName(chosen.string());
    }
    if (!MayDelete(names[2]))
        return frame_.person.Say(names[2] + ": a file of the program cannot be replaced");
    CombinedFile combined;
    frame_.person.BeginWork();
    frame_.person.DoBeside(
        [&] { combined = CombineQuoteFiles(frame_.session, names[0], names[1], names[2]); });
    const bool stays = frame_.runs.End();
    if (combined.unread) return frame_.person.Say(Sentence(combined.unread));
    if (combined.error) return frame_.person.Say(ChangeSentence("Combine", combined.error));
    if (stays) frame_.notice(names[2] + ": " + Counted(combined.rows, "row", "rows"));
}

std::string UpkeepCommands::UndoWords() const {
    if (const std::string ticker = frame_.rowToRestore(); !ticker.empty()) return "Undo Delete " + ticker;
    const std::vector<KeptChange> changes = KeptChanges(ChangePlaceOf(frame_.session));
    if (changes.empty()) return "Undo";
    const std::string& what = changes.front().what;
    return (IsUndoing(what) ? "Redo " : "Undo ") + (IsUndoing(what) ? NameOfUndoing(what) : what);
}

void UpkeepCommands::Undo() {
    if (const std::string ticker = frame_.rowToRestore(); !ticker.empty()) {
        frame_.restoreRow();
        return frame_.notice("Undone: Delete " + ticker);
    }
    if (frame_.person.InRun()) return;
    const UndoResult result = UndoNewest();
    if (result.change.number == 0) return frame_.notice(std::string(kNothingToUndo));
    if (result.fault) {
        return frame_.person.Say(ChangeSentence(NameOfUndoing(result.change.what), result.fault));
    }
    frame_.showUndone(result.change.number, [&] { ShowUndone(result.files); });
    // In place of the line of the run that is undone.
    RunReport report("Undo", "files");
    const std::string& what = result.change.what;
    report.SetHeadline(IsUndoing(what) ? "Redone: " + NameOfUndoing(what) : "Undone: " + what);
    frame_.tell(report);
    frame_.notice(report.Line());
}

// It cannot be stopped, and has no rows.
UndoResult UpkeepCommands::UndoNewest() {
    UndoResult result;
    frame_.person.ShowStatusWord(kStatusUndoing);
    frame_.person.BeginWork();
    frame_.person.DoBeside([&] { result = UndoChange(ChangePlaceOf(frame_.session), {}); });
    frame_.runs.End();
    frame_.person.ShowStatusWord(kStatusComplete);
    return result;
}

// The window shows what the files say now.
void UpkeepCommands::ShowUndone(const std::vector<Path>& files) {
    LoadAllSettings(frame_.session.AppPath, frame_.session.settings);
    frame_.showRecentFiles();
    const std::string name = frame_.session.CurrentFile;
    const Path open = frame_.session.DataFile(name);
    if (name.empty() || std::find(files.begin(), files.end(), open) == files.end()) return;
    // What else was changed may be what another child shows.
    const bool inPlace = frame_.table.form() && (files.size() == 1 || frame_.children.HasOneAtMost());
    if (IsRegularFile(open) && inPlace) {
        frame_.table.reload();
    } else if (IsRegularFile(open)) {
        frame_.table.show(name);
    } else {
        frame_.table.close();
    }
}

void UpkeepCommands::ShowCheck() {
    if (frame_.person.InRun()) return;
    auto* form = new frmCheckDatabase({[this](CheckMode mode) { return RunCheck(mode); },
                                       [this] { frame_.session.run.ProcessCommand = kStopRun; },
                                       [this] { return frame_.session.run.ProgressFraction; },
                                       [this](const Finding& finding) { OpenFinding(finding); }},
                                      frame_.session.AppPath, &frame_.window);
    form->setAttribute(Qt::WA_DeleteOnClose);
    form->show();
    form->Check();
}

CheckReport UpkeepCommands::RunCheck(CheckMode mode) {
    if (frame_.person.InRun()) return {};
    frame_.runs.BeginWithoutTable();
    BeginRun(frame_.session.run);
    CheckReport report = CheckDatabase(frame_.session, mode);
    frame_.runs.End();
    frame_.person.HideProgress();
    if (!report.repairedFiles.empty()) ShowUndone(report.repairedFiles);
    return report;
}

// A table opens as a table, any other file in the editor at the line.
void UpkeepCommands::OpenFinding(const Finding& finding) {
    if (!IsRegularFile(finding.file) || frame_.person.InRun()) return;
    const std::string name = finding.file.filename().string();
    const bool isTable = finding.file.parent_path() == frame_.session.DataFolder() &&
                         KindOf(name) != FileKind::None && finding.kind != FindingKind::Unreadable;
    if (isTable) {
        frame_.table.show(name);
        return;
    }
    auto* editor = new TextEditor(finding.file, &frame_.window);
    editor->setAttribute(Qt::WA_DeleteOnClose);
    editor->show();
    editor->ShowLine(finding.line);
}

void UpkeepCommands::DeleteFiles() {
    auto* dialog = new frmDeleteFile(frame_.person, ChangePlaceOf(frame_.session),
                                     frame_.session.DataFolder(), &frame_.window);
    QObject::connect(dialog, &QDialog::finished, dialog, &QObject::deleteLater);
    dialog->open();
}

void UpkeepCommands::EditQuoteFiles() {
    EditFile(frame_.askFile({"Edit Quote File", frame_.session.DataFolder(), {}, kQuoteFileFilter}));
}

void UpkeepCommands::EditDatabaseFiles() {
    EditFile(frame_.askFile({"Edit Quote Database Files",
                             Path(frame_.session.settings.QuoteFolder),
                             {},
                             "EOD Quote Database (*.*)|*.*"}));
}

void UpkeepCommands::EditFile(const Path& file) {
    if (file.empty()) return;
    OpenInDesktop(ShownPath(file), &frame_.window, [this, file] {
        auto* editor = new TextEditor(file, &frame_.window);
        editor->setAttribute(Qt::WA_DeleteOnClose);
        editor->show();
    });
}

bool UpkeepCommands::CloseEditors() {
    const QList<TextEditor*> editors = frame_.window.findChildren<TextEditor*>();
    return std::all_of(editors.begin(), editors.end(), [](TextEditor* editor) { return editor->close(); });
}

void UpkeepCommands::BackUpBeforeExit() {
    const Date today = frame_.session.clock.Today();
    if (!BackUpIsDue(frame_.session.settings, today)) return;
    frame_.person.ShowStatusWord(kStatusSaving);
    frame_.session.run.ProgressLastShown = 0;
    frame_.session.ProgressAlways = true;
    frame_.person.BeginWork();
    const ExitBackUp backUp =
        BackUpAtExit(frame_.session.AppPath, today, frame_.session.settings, frame_.person);
    // The frame goes anyway.
    frame_.person.EndRun();
    frame_.session.ProgressAlways = false;
    frame_.person.ShowStatusWord(kStatusComplete);
    if (backUp.settingsError) frame_.person.Say(Sentence(backUp.settingsError));
}

}  // namespace brantlow
