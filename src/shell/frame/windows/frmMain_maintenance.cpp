// The housekeeping commands of the Edit menu: back-ups, joining tables, taking an update back, deleting and
// editing files.
#include <algorithm>

#include "base/windows/display_text.h"
#include "base/windows/text_editor.h"
#include "shell/frame/windows/command_bar.h"
#include "shell/frame/windows/frmMain.h"
#include "shell/frame/windows/window_person.h"
#include "shell/settings/settings_files.h"
#include "store/back_up.h"
#include "store/combine_tables.h"
#include "store/file_deletion.h"
#include "store/remove_update.h"
#include "store/windows/frmDeleteFile.h"

namespace brantlow {

namespace {

constexpr const char* kQuoteFileFilter = "EOD Detailed Quote Files (*.ddq)|*.ddq";

}  // namespace

void frmMain::RunBackUp(BackedUp what, bool restores) {
    const BackUpJob& job = BackUpJobOf(what, restores);
    if (!person_.Ask(job.question, job.title)) return;
    const BackUpResult result = RunBackUpJob(job, session_);
    person_.HideProgress();
    if (!result.refusal.empty()) return person_.Say(result.refusal);
    if (restores && what == BackedUp::ProgramFiles) {
        LoadAllSettings(session_.AppPath, session_.settings);
        commands_->ShowRecentFiles(session_.settings.MruSettings);
    }
    Notice(std::to_string(result.copy.copied) + (result.copy.copied == 1 ? " file copied" : " files copied"));
}

void frmMain::BackUpProgramFiles() {
    RunBackUp(BackedUp::ProgramFiles, false);
}

void frmMain::BackUpQuoteDatabase() {
    RunBackUp(BackedUp::QuoteDatabase, false);
}

void frmMain::RestoreProgramFiles() {
    RunBackUp(BackedUp::ProgramFiles, true);
}

void frmMain::RestoreQuoteDatabase() {
    RunBackUp(BackedUp::QuoteDatabase, true);
}

void frmMain::RemoveUpdate() {
    if (!person_.Ask(kRemoveUpdateQuestion, kRemoveUpdateTitle)) return;
    const RemovedUpdate result = RemoveLastUpdate(session_);
    person_.HideProgress();
    if (!result.hasList) return person_.Say(kNoUpdateToRemove);
    if (result.error) {
        return person_.Say("The database could not be written: " + result.error.message());
    }
    Notice(std::to_string(result.removed) + (result.removed == 1 ? " record removed" : " records removed"));
}

void frmMain::CombineFiles() {
    std::array<std::string, 3> names;
    const std::array<std::string_view, 3> titles = {kFirstFileTitle, kSecondFileTitle, kCombinedFileTitle};
    for (std::size_t i = 0; i < names.size(); ++i) {
        const bool isOutput = i + 1 == names.size();
        const Path chosen = AskFile(
            {std::string(titles[i]), session_.DataFolder(), std::string(), kQuoteFileFilter, isOutput});
        if (chosen.empty()) return;
        names[i] = BareFileName(chosen.string());
    }
    if (!MayDelete(names[2])) return person_.Say(names[2] + ": a file of the program cannot be replaced");
    const CombinedFile combined = CombineQuoteFiles(session_.DataFolder(), names[0], names[1], names[2]);
    if (!combined.unreadable.empty()) return person_.Say(combined.unreadable + ": no such file in Data");
    if (combined.error) {
        return person_.Say(names[2] + ": cannot be saved (" + combined.error.message() + ")");
    }
    Notice(names[2] + ": " + std::to_string(combined.rows) + " rows");
}

void frmMain::DeleteFiles() {
    auto* dialog = new frmDeleteFile(person_, session_.DataFolder(), this);
    connect(dialog, &QDialog::finished, dialog, &QObject::deleteLater);
    dialog->open();
}

void frmMain::EditQuoteFiles() {
    EditFile(AskFile({"Edit Quote File", session_.DataFolder(), {}, kQuoteFileFilter}));
}

void frmMain::EditDatabaseFiles() {
    EditFile(AskFile({"Edit Quote Database Files",
                      Path(session_.settings.QuoteFolder),
                      {},
                      "EOD Quote Database (*.*)|*.*"}));
}

void frmMain::EditFile(const Path& file) {
    if (file.empty()) return;
    OpenInDesktop(ShownPath(file), this, [this, file] {
        auto* editor = new TextEditor(file, this);
        editor->setAttribute(Qt::WA_DeleteOnClose);
        editor->show();
    });
}

bool frmMain::CloseEditors() {
    const QList<TextEditor*> editors = findChildren<TextEditor*>();
    return std::all_of(editors.begin(), editors.end(), [](TextEditor* editor) { return editor->close(); });
}

}  // namespace brantlow
